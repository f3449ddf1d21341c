// Date and time of day to the millisecond, intervals, and both as text.
//
//     const CSystemTime start = CSystemTime::GetLocalTime();
//     Sweep();
//     CSystemTimeSpan took = CSystemTime(CSystemTime::GetLocalTime()) - start;
//     start.Format(1033, L"%Y-%m-%d %H:%M:%S");      // 2013-03-05 14:07:00
//     took.Format(L"%s%H:%M:%S.%m");                              // 00:01:01.250

#ifndef VANTOR_SYSTEMTIME_H
#define VANTOR_SYSTEMTIME_H

#include <vantor/Strings.h>

#include <ctime>

namespace vantor
{
class CSystemTime;

// A signed count of milliseconds. The components (GetDays to GetMilliseconds) are those of its magnitude. Sums and
// differences wrap at 64 bits. A value; nothing here throws but the constructor from two times.
class VANTOR_API CSystemTimeSpan
{
public:
    CSystemTimeSpan() noexcept : m_milliseconds(0) {}
    CSystemTimeSpan(long long milliseconds) noexcept : m_milliseconds(milliseconds) {}
    // Components add up, also above their natural range: 90 minutes are 1 h 30 min.
    CSystemTimeSpan(WORD days, WORD hours, WORD minutes, WORD seconds, WORD milliseconds, bool negative) noexcept;
    // a - b, cut to whole milliseconds. Throws CWinException if one of them is no valid time.
    CSystemTimeSpan(const CSystemTime& a, const CSystemTime& b);

    void SetTimeSpan(long long milliseconds) noexcept { m_milliseconds = milliseconds; }
    long long GetTimeSpan() const noexcept { return m_milliseconds; }
    long long GetTotalMilliseconds() const noexcept { return m_milliseconds; }

    bool GetSign() const noexcept { return m_milliseconds < 0; }   // true: negative
    WORD GetDays() const noexcept;                                 // wraps at 65536
    WORD GetHours() const noexcept;
    WORD GetMinutes() const noexcept;
    WORD GetSeconds() const noexcept;
    WORD GetMilliseconds() const noexcept;

    CSystemTimeSpan& operator+=(const CSystemTimeSpan& other) noexcept;
    CSystemTimeSpan& operator-=(const CSystemTimeSpan& other) noexcept;
    CSystemTimeSpan operator+(const CSystemTimeSpan& other) const noexcept { return CSystemTimeSpan(*this) += other; }
    CSystemTimeSpan operator-(const CSystemTimeSpan& other) const noexcept { return CSystemTimeSpan(*this) -= other; }

    // clang-format off
    bool operator==(const CSystemTimeSpan& other) const noexcept { return m_milliseconds == other.m_milliseconds; }
    bool operator!=(const CSystemTimeSpan& other) const noexcept { return m_milliseconds != other.m_milliseconds; }
    bool operator<(const CSystemTimeSpan& other) const noexcept { return m_milliseconds < other.m_milliseconds; }
    bool operator>(const CSystemTimeSpan& other) const noexcept { return m_milliseconds > other.m_milliseconds; }
    bool operator<=(const CSystemTimeSpan& other) const noexcept { return m_milliseconds <= other.m_milliseconds; }
    bool operator>=(const CSystemTimeSpan& other) const noexcept { return m_milliseconds >= other.m_milliseconds; }
    // clang-format on

    // %D days, %H hours, %M minutes, %S seconds (two digits each but the days), %m milliseconds (three digits), %s "-"
    // if negative, %% a percent sign. "#" after the "%" drops leading zeros, and makes %s "+" where it would be empty.
    // The components are without sign: ask for it with %s. Any other code gives nothing.
    ustring Format(const wchar_t* format) const;

private:
    unsigned long long Magnitude() const noexcept;

    long long m_milliseconds;
};

// A SYSTEMTIME, usable wherever one is expected, with nothing added to it. Which zone it is in, only its owner knows.
// Year 0 is the null time, which only Compare gives a meaning.
//
// Arithmetic and comparison go through the platform's file time (ticks of 100 ns since 1601): what that does not accept
// throws CWinException, and the object is unchanged then.
class VANTOR_API CSystemTime : public SYSTEMTIME
{
public:
    CSystemTime() noexcept { Clear(); }                                  // the null time
    CSystemTime(const SYSTEMTIME& time) noexcept : SYSTEMTIME(time) {}   // unchecked, as it stands
    CSystemTime(const FILETIME& time);
    CSystemTime(const long long& seconds);   // since 1970-01-01 00:00:00
    // Validates, and fills the day of the week.
    CSystemTime(WORD year, WORD month, WORD day, WORD hour, WORD minute, WORD second, WORD milliseconds);
    CSystemTime(const tm& time) noexcept;   // unchecked; wDayOfWeek is tm_wday

    CSystemTime& operator=(const SYSTEMTIME& time) noexcept;
    CSystemTime& operator=(const FILETIME& time);
    CSystemTime& operator=(const long long& seconds);
    CSystemTime& operator=(const tm& time) noexcept;

    void Clear() noexcept;

    // clang-format off
#ifdef __GNUC__
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wclass-conversion"   // of the first, which only a call by its name reaches
#endif
    operator SYSTEMTIME() const noexcept { return *this; }
#ifdef __GNUC__
#pragma GCC diagnostic pop
#endif
    operator SYSTEMTIME*() noexcept { return this; }   // the object itself
    // clang-format on
    operator FILETIME() const;
    operator tm() const;          // tm_isdst is -1, unknown
    operator long long() const;   // whole seconds since 1970-01-01 00:00:00; -1 for anything a second or more before

    // -1, 0 or 1. The null time comes before every other and equals itself.
    int Compare(const SYSTEMTIME& other) const;
    // clang-format off
    bool operator==(const SYSTEMTIME& other) const { return Compare(other) == 0; }
    bool operator!=(const SYSTEMTIME& other) const { return Compare(other) != 0; }
    bool operator<(const SYSTEMTIME& other) const { return Compare(other) < 0; }
    bool operator<=(const SYSTEMTIME& other) const { return Compare(other) <= 0; }
    bool operator>(const SYSTEMTIME& other) const { return Compare(other) > 0; }
    bool operator>=(const SYSTEMTIME& other) const { return Compare(other) >= 0; }
    // clang-format on

    CSystemTime operator+(const CSystemTimeSpan& span) const;
    CSystemTime operator-(const CSystemTimeSpan& span) const;
    CSystemTime& operator+=(const CSystemTimeSpan& span);
    CSystemTime& operator-=(const CSystemTimeSpan& span);
    CSystemTimeSpan operator-(const CSystemTime& other) const;

    // By the time zone's rule of today, whatever the date: the platform looks at the clock, not at the value.
    CSystemTime UTCToLocal() const;
    CSystemTime LocalToUTC() const;

    // The platform's settings, not the object's. Returns TIME_ZONE_ID_UNKNOWN, _STANDARD or _DAYLIGHT.
    DWORD GetTimeZoneInformation(TIME_ZONE_INFORMATION& zone) const;
    void SetTimeZoneInformation(const TIME_ZONE_INFORMATION& zone);

    static SYSTEMTIME GetSystemTime();   // now, in UTC
    static SYSTEMTIME GetLocalTime();    // now, in local time

    // The same 64 bits under another type.
    static LARGE_INTEGER FT2LI(const FILETIME& time) noexcept;
    static ULARGE_INTEGER FT2ULI(const FILETIME& time) noexcept;
    static FILETIME LI2FT(const LARGE_INTEGER& ticks) noexcept;
    static FILETIME ULI2FT(const ULARGE_INTEGER& ticks) noexcept;

    // The platform's calls for this value. Without a picture: the locale's own form.
    ustring GetTimeFormatW(LCID locale, DWORD flags, const wchar_t* picture) const;
    ustring GetDateFormatW(LCID locale, DWORD flags, const wchar_t* picture) const;

    // In the words and forms of the locale. "#" after the "%" drops leading zeros, and makes the date of %c and %x
    // long. Any other code gives nothing.
    // clang-format off
    //
    //     %Y  year                   %A  weekday              %c  date and time, as the locale has them
    //     %y  year, two digits       %a  weekday, short       %x  date
    //     %m  month                  %w  weekday, Sunday: 0   %X  time
    //     %B  month's name           %j  day of the year      %z  name of the platform's time zone
    //     %b  month's name, short    %H  hour, of 24          %Z  the same
    //     %d  day                    %I  hour, of 12          %U  week of the year, from its first Sunday on; 00 before
    //     %M  minute                 %p  AM or PM             %W  the same, from its first Monday on
    //     %S  second                                          %%  a percent sign
    //
    // clang-format on
    ustring Format(LCID locale, const wchar_t* format) const;
};
}   // namespace vantor

#endif
