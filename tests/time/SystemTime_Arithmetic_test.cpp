// Times and spans, added and subtracted.

#include "Fields.h"
#include "support/ImportPatch.h"

#include <vantor/SystemTime.h>

#include <gtest/gtest.h>

#include <random>

using namespace vantor;
using fields::FileTime;
using fields::SystemTime;
using fields::Text;
using fields::Ticks;
using support::CImportPatch;

namespace
{
constexpr long long Day = 86400000;

// 2013-03-05 14:07:09.250
const CSystemTime Tuesday(SYSTEMTIME{2013, 3, 2, 5, 14, 7, 9, 250});

CSystemTime Midnight(WORD year, WORD month, WORD day)
{
    return CSystemTime(year, month, day, 0, 0, 0, 0);
}

std::mt19937_64 g_random(20130305);

// Up to the end of the year 9999.
unsigned long long AnyTicks()
{
    return std::uniform_int_distribution<unsigned long long>(0, 2650467743999999999)(g_random) / 10000 * 10000;
}

// A file time of whole milliseconds plus what the minute of the record says in ticks.
BOOL WINAPI OddSystemTimeToFileTime(const SYSTEMTIME* time, FILETIME* result)
{
    SYSTEMTIME whole = *time;
    whole.wMinute = 0;
    ::SystemTimeToFileTime(&whole, result);
    *result = FileTime(Ticks(*result) + time->wMinute);
    return TRUE;
}
}   // namespace

TEST(SystemTimeArithmetic, PlusASpan)
{
    EXPECT_EQ("2013-03-06 3 15:08:10.251", Text(Tuesday + CSystemTimeSpan(1, 1, 1, 1, 1, false)));
}

TEST(SystemTimeArithmetic, PlusANegativeSpan)
{
    EXPECT_EQ("2013-03-04 1 13:06:08.249", Text(Tuesday + CSystemTimeSpan(1, 1, 1, 1, 1, true)));
}

TEST(SystemTimeArithmetic, MinusASpan)
{
    EXPECT_EQ("2013-03-04 1 13:06:08.249", Text(Tuesday - CSystemTimeSpan(1, 1, 1, 1, 1, false)));
}

TEST(SystemTimeArithmetic, MinusANegativeSpan)
{
    EXPECT_EQ("2013-03-06 3 15:08:10.251", Text(Tuesday - CSystemTimeSpan(1, 1, 1, 1, 1, true)));
}

TEST(SystemTimeArithmetic, PlusOneMillisecondCarriesIntoEveryField)
{
    EXPECT_EQ("2014-01-01 3 00:00:00.000", Text(CSystemTime(2013, 12, 31, 23, 59, 59, 999) + CSystemTimeSpan(1)));
}

TEST(SystemTimeArithmetic, MinusOneMillisecondBorrowsFromEveryField)
{
    EXPECT_EQ("2013-12-31 2 23:59:59.999", Text(Midnight(2014, 1, 1) - CSystemTimeSpan(1)));
}

TEST(SystemTimeArithmetic, ADayIntoALeapDay)
{
    EXPECT_EQ("2012-02-29 3 00:00:00.000", Text(Midnight(2012, 2, 28) + CSystemTimeSpan(Day)));
}

TEST(SystemTimeArithmetic, ADayOverNoLeapDay)
{
    EXPECT_EQ("2013-03-01 5 00:00:00.000", Text(Midnight(2013, 2, 28) + CSystemTimeSpan(Day)));
}

TEST(SystemTimeArithmetic, TheSumKnowsItsDayOfTheWeek)
{
    CSystemTime time(Tuesday);
    time.wDayOfWeek = 6;

    EXPECT_EQ(2, (time + CSystemTimeSpan(0)).wDayOfWeek);
}

TEST(SystemTimeArithmetic, PlusAndMinusLeaveTheObjectAlone)
{
    const CSystemTime time(Tuesday);

    static_cast<void>(time + CSystemTimeSpan(Day));
    static_cast<void>(time - CSystemTimeSpan(Day));

    EXPECT_EQ(Text(Tuesday), Text(time));
}

TEST(SystemTimeArithmetic, PlusAssign)
{
    CSystemTime time(Tuesday);

    CSystemTime& result = time += CSystemTimeSpan(1, 1, 1, 1, 1, false);

    EXPECT_EQ(&time, &result);
    EXPECT_EQ("2013-03-06 3 15:08:10.251", Text(time));
}

TEST(SystemTimeArithmetic, MinusAssign)
{
    CSystemTime time(Tuesday);

    CSystemTime& result = time -= CSystemTimeSpan(1, 1, 1, 1, 1, false);

    EXPECT_EQ(&time, &result);
    EXPECT_EQ("2013-03-04 1 13:06:08.249", Text(time));
}

TEST(SystemTimeArithmetic, DownToTheFirstMoment)
{
    EXPECT_EQ("1601-01-01 1 00:00:00.000", Text(Midnight(1601, 1, 2) - CSystemTimeSpan(Day)));
}

TEST(SystemTimeArithmetic, UpToTheLastMillisecond)
{
    EXPECT_EQ("30828-09-14 4 02:48:05.477", Text(CSystemTime(FileTime(0)) + CSystemTimeSpan(922337203685477)));
}

TEST(SystemTimeArithmetic, OfAnyTimes_GoesByTicks)
{
    for (int i = 0; i < 20000; ++i)
    {
        const unsigned long long from = AnyTicks();
        const unsigned long long to = AnyTicks();
        const auto milliseconds = (static_cast<long long>(to) - static_cast<long long>(from)) / 10000;
        const CSystemTime a(SystemTime(from));
        const CSystemTime b(SystemTime(to));
        CSystemTime up(a);
        CSystemTime down(b);

        EXPECT_EQ(milliseconds, (b - a).GetTimeSpan()) << from << " to " << to;
        EXPECT_EQ(Text(b), Text(a + CSystemTimeSpan(milliseconds))) << from << " to " << to;
        EXPECT_EQ(Text(a), Text(b - CSystemTimeSpan(milliseconds))) << from << " to " << to;
        EXPECT_EQ(Text(b), Text(up += CSystemTimeSpan(milliseconds))) << from << " to " << to;
        EXPECT_EQ(Text(a), Text(down -= CSystemTimeSpan(milliseconds))) << from << " to " << to;
        if (HasFailure())
            break;
    }
}

TEST(SystemTimeDifference, OfALaterTimeAndAnEarlier)
{
    const CSystemTimeSpan span = Midnight(2013, 3, 1) - Midnight(2012, 2, 28);

    EXPECT_EQ(367 * Day, span.GetTimeSpan());
}

TEST(SystemTimeDifference, OfAnEarlierTimeAndALater_IsNegative)
{
    const CSystemTimeSpan span = Midnight(2012, 2, 28) - Midnight(2013, 3, 1);

    EXPECT_EQ(-367 * Day, span.GetTimeSpan());
}

TEST(SystemTimeDifference, OfATimeAndItself)
{
    EXPECT_EQ(0, (Tuesday - Tuesday).GetTimeSpan());
}

TEST(SystemTimeDifference, SpanBetweenTwoTimes)
{
    const CSystemTimeSpan span(Tuesday, Midnight(2013, 3, 5));

    EXPECT_EQ(((14 * 60 + 7) * 60 + 9) * 1000 + 250, span.GetTimeSpan());
}

TEST(SystemTimeDifference, FromFirstToLastDay)
{
    EXPECT_EQ(3067670 * Day, (Midnight(9999, 12, 31) - Midnight(1601, 1, 1)).GetTimeSpan());
}

TEST(SystemTimeDifference, BeyondSignedFileTimes)
{
    const CImportPatch patch(&::SystemTimeToFileTime, &fields::DistantSystemTimeToFileTime);
    const SYSTEMTIME distant = {fields::DistantYear, 1, 0, 1, 0, 0, 0, 0};
    const long long milliseconds = static_cast<long long>((fields::DistantTicks - Ticks(Tuesday)) / 10000);

    EXPECT_EQ(milliseconds, (CSystemTime(distant) - Tuesday).GetTimeSpan());
    EXPECT_EQ(-milliseconds, (Tuesday - CSystemTime(distant)).GetTimeSpan());
}

// Times have whole milliseconds; only a platform of finer clocks shows which way the rest goes.
TEST(SystemTimeDifference, PositiveRestIsCut)
{
    const CImportPatch patch(&::SystemTimeToFileTime, &OddSystemTimeToFileTime);
    const SYSTEMTIME a = {2013, 1, 0, 1, 0, 9, 0, 1};
    const SYSTEMTIME b = {2013, 1, 0, 1, 0, 0, 0, 0};

    EXPECT_EQ(1, CSystemTimeSpan(a, b).GetTimeSpan());
}

TEST(SystemTimeDifference, NegativeRestIsCutTowardsZero)
{
    const CImportPatch patch(&::SystemTimeToFileTime, &OddSystemTimeToFileTime);
    const SYSTEMTIME a = {2013, 1, 0, 1, 0, 0, 0, 0};
    const SYSTEMTIME b = {2013, 1, 0, 1, 0, 9, 0, 1};

    EXPECT_EQ(-1, CSystemTimeSpan(a, b).GetTimeSpan());
}

TEST(SystemTimeDifference, LessThanAMillisecondIsNone)
{
    const CImportPatch patch(&::SystemTimeToFileTime, &OddSystemTimeToFileTime);
    const SYSTEMTIME a = {2013, 1, 0, 1, 0, 0, 0, 0};
    const SYSTEMTIME b = {2013, 1, 0, 1, 0, 9, 0, 0};

    EXPECT_EQ(0, CSystemTimeSpan(a, b).GetTimeSpan());
    EXPECT_EQ(0, CSystemTimeSpan(b, a).GetTimeSpan());
}
