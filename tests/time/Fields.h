// Times as text that shows every field, so that a difference can be read; and times as ticks, by the platform alone.

#ifndef VANTOR_TEST_FIELDS_H
#define VANTOR_TEST_FIELDS_H

#include <vantor/Platform.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace fields
{
// "2013-03-05 2 14:07:09.250": the date, the day of the week, the time.
inline std::string Text(const SYSTEMTIME& time)
{
    char text[80];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %d %02d:%02d:%02d.%03d", time.wYear, time.wMonth, time.wDay,
                  time.wDayOfWeek, time.wHour, time.wMinute, time.wSecond, time.wMilliseconds);
    return text;
}

inline FILETIME FileTime(unsigned long long ticks)
{
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

inline unsigned long long Ticks(const FILETIME& time)
{
    return (static_cast<unsigned long long>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
}

inline unsigned long long Ticks(const SYSTEMTIME& time)
{
    FILETIME result = {};
    EXPECT_TRUE(::SystemTimeToFileTime(&time, &result)) << Text(time);
    return Ticks(result);
}

inline SYSTEMTIME SystemTime(unsigned long long ticks)
{
    const FILETIME time = FileTime(ticks);
    SYSTEMTIME result = {};
    EXPECT_TRUE(::FileTimeToSystemTime(&time, &result)) << ticks;
    return result;
}

// In place of the platform's: takes the years from 30829 on, which some platforms refuse and some count on in the
// highest bit.
constexpr WORD DistantYear = 30829;
constexpr unsigned long long DistantTicks = 0x8000000000000000 + 1234567 * 10000ULL;

inline BOOL WINAPI DistantSystemTimeToFileTime(const SYSTEMTIME* time, FILETIME* result)
{
    if (time->wYear != DistantYear)
        return ::SystemTimeToFileTime(time, result);
    *result = FileTime(DistantTicks);
    return TRUE;
}
}   // namespace fields

#endif
