// Every day that has a four-digit year, against a calendar that only counts.

#include "Fields.h"

#include <vantor/SystemTime.h>

#include <gtest/gtest.h>

using namespace vantor;
using fields::Text;

namespace
{
// Walks from day to day. No arithmetic on dates: a month ends when it has had its days.
struct CDay
{
    WORD year = 1601;
    WORD month = 1;
    WORD day = 1;
    int weekday = 1;   // Monday
    int dayOfYear = 0;
    int weekBySunday = 0;   // how many of the year's days so distant were Sundays
    int weekByMonday = 1;
    long long days = -134774;   // since 1970-01-01

    bool IsLeapYear() const { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

    WORD DaysOfMonth() const
    {
        constexpr WORD lengths[] = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        return static_cast<WORD>(lengths[month] + (month == 2 && IsLeapYear() ? 1 : 0));
    }

    void Next()
    {
        ++days;
        ++dayOfYear;
        weekday = weekday == 6 ? 0 : weekday + 1;
        if (++day > DaysOfMonth())
        {
            day = 1;
            ++month;
        }
        if (month > 12)
        {
            month = 1;
            ++year;
            dayOfYear = 0;
            weekBySunday = 0;
            weekByMonday = 0;
        }
        weekBySunday += weekday == 0 ? 1 : 0;
        weekByMonday += weekday == 1 ? 1 : 0;
    }

    SYSTEMTIME Midnight() const { return {year, month, static_cast<WORD>(weekday), day, 0, 0, 0, 0}; }
};

// Compares with numbers first: text takes longer than the conversion.
template <class Check>
void ForEveryDay(Check check)
{
    CDay day;
    for (; day.year <= 9999; day.Next())
    {
        if (!check(day))
        {
            ADD_FAILURE() << "on " << Text(day.Midnight());
            return;
        }
    }
    EXPECT_EQ(3067671 - 134774, day.days);
}

bool IsSame(const SYSTEMTIME& a, const SYSTEMTIME& b)
{
    return a.wYear == b.wYear && a.wMonth == b.wMonth && a.wDay == b.wDay && a.wDayOfWeek == b.wDayOfWeek &&
           a.wHour == b.wHour && a.wMinute == b.wMinute && a.wSecond == b.wSecond && a.wMilliseconds == b.wMilliseconds;
}
}   // namespace

TEST(SystemTimeCalendar, EveryDayHasItsDayOfTheWeek)
{
    ForEveryDay([](const CDay& day)
                { return IsSame(day.Midnight(), CSystemTime(day.year, day.month, day.day, 0, 0, 0, 0)); });
}

TEST(SystemTimeCalendar, EveryDayHasItsDayOfTheYear)
{
    ForEveryDay(
        [](const CDay& day)
        {
            const tm time = CSystemTime(day.Midnight());
            return time.tm_yday == day.dayOfYear && time.tm_wday == day.weekday && time.tm_year == day.year - 1900 &&
                   time.tm_mon == day.month - 1 && time.tm_mday == day.day;
        });
}

TEST(SystemTimeCalendar, EveryDayHasItsSecondsSince1970)
{
    ForEveryDay(
        [](const CDay& day)
        {
            const long long seconds = day.days < 0 ? -1 : day.days * 86400;
            return static_cast<long long>(CSystemTime(day.Midnight())) == seconds;
        });
}

TEST(SystemTimeCalendar, EveryDayComesBackFromItsSeconds)
{
    ForEveryDay([](const CDay& day) { return IsSame(day.Midnight(), CSystemTime(day.days * 86400)); });
}

TEST(SystemTimeCalendar, EveryDayFollowsTheOneBefore)
{
    CSystemTime walker(1601, 1, 1, 0, 0, 0, 0);
    const CSystemTimeSpan oneDay(1, 0, 0, 0, 0, false);
    ForEveryDay(
        [&](const CDay& day)
        {
            const bool same = IsSame(day.Midnight(), walker);
            walker += oneDay;
            return same;
        });
}

TEST(SystemTimeCalendar, EveryDayHasItsWeekBySunday)
{
    ForEveryDay(
        [](const CDay& day)
        {
            const wchar_t week[] = {static_cast<wchar_t>(L'0' + day.weekBySunday / 10),
                                    static_cast<wchar_t>(L'0' + day.weekBySunday % 10), 0};
            return CSystemTime(day.Midnight()).Format(1033, L"%U") == week;
        });
}

TEST(SystemTimeCalendar, EveryDayHasItsWeekByMonday)
{
    ForEveryDay(
        [](const CDay& day)
        {
            const wchar_t week[] = {static_cast<wchar_t>(L'0' + day.weekByMonday / 10),
                                    static_cast<wchar_t>(L'0' + day.weekByMonday % 10), 0};
            return CSystemTime(day.Midnight()).Format(1033, L"%W") == week;
        });
}
