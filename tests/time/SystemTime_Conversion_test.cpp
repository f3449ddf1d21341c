// What a CSystemTime can be turned into, and passed as.

#include "Fields.h"
#include "support/ImportPatch.h"

#include <vantor/SystemTime.h>

#include <gtest/gtest.h>

#include <type_traits>

using namespace vantor;
using fields::FileTime;
using fields::Text;
using fields::Ticks;

namespace
{
constexpr SYSTEMTIME Tuesday = {2013, 3, 2, 5, 14, 7, 9, 250};

WORD YearOf(const SYSTEMTIME& time)
{
    return time.wYear;
}

long long Seconds(WORD year, WORD month, WORD day, WORD hour, WORD minute, WORD second, WORD milliseconds)
{
    return CSystemTime(year, month, day, hour, minute, second, milliseconds);
}

int DayOfYear(WORD year, WORD month, WORD day)
{
    return tm(CSystemTime(year, month, day, 0, 0, 0, 0)).tm_yday;
}
}   // namespace

TEST(SystemTimeConversion, IsARecordWhereOneIsExpected)
{
    const CSystemTime time(Tuesday);

    EXPECT_EQ(2013, YearOf(time));
}

TEST(SystemTimeConversion, InitialisesARecord)
{
    const CSystemTime time(Tuesday);

    const SYSTEMTIME record = time;

    EXPECT_EQ(Text(Tuesday), Text(record));
}

TEST(SystemTimeConversion, ToARecord_IsACopy)
{
    CSystemTime time(Tuesday);

    SYSTEMTIME record = time.operator SYSTEMTIME();
    record.wYear = 1999;

    EXPECT_EQ(Text(Tuesday), Text(time));
    EXPECT_EQ(1999, record.wYear);
}

TEST(SystemTimeConversion, ToAPointer_IsTheObjectItself)
{
    CSystemTime time;

    SYSTEMTIME* const record = time;

    EXPECT_EQ(static_cast<void*>(&time), static_cast<void*>(record));
}

TEST(SystemTimeConversion, ThePlatformWritesIntoIt)
{
    CSystemTime time;

    ::GetSystemTime(time);

    EXPECT_NE(0, time.wYear);
}

TEST(SystemTimeConversion, AConstantTimeGivesNoPointer)
{
    EXPECT_TRUE((std::is_convertible<CSystemTime&, SYSTEMTIME*>::value));
    EXPECT_FALSE((std::is_convertible<const CSystemTime&, SYSTEMTIME*>::value));
}

TEST(SystemTimeConversion, AConstantTimeConvertsToEveryOtherForm)
{
    EXPECT_TRUE((std::is_convertible<const CSystemTime&, SYSTEMTIME>::value));
    EXPECT_TRUE((std::is_convertible<const CSystemTime&, FILETIME>::value));
    EXPECT_TRUE((std::is_convertible<const CSystemTime&, tm>::value));
    EXPECT_TRUE((std::is_convertible<const CSystemTime&, long long>::value));
}

TEST(SystemTimeConversion, ToAFileTime)
{
    const FILETIME time = CSystemTime(Tuesday);

    EXPECT_EQ(116444736000000000 + 1362492429 * 10000000ULL + 250 * 10000, Ticks(time));
}

TEST(SystemTimeConversion, ToAFileTime_IgnoresTheDayOfTheWeek)
{
    CSystemTime time(Tuesday);
    time.wDayOfWeek = 6;

    EXPECT_EQ(Ticks(Tuesday), Ticks(static_cast<FILETIME>(time)));
}

TEST(SystemTimeConversion, ToATm_TakesTheFields)
{
    const tm time = CSystemTime(Tuesday);

    EXPECT_EQ(9, time.tm_sec);
    EXPECT_EQ(7, time.tm_min);
    EXPECT_EQ(14, time.tm_hour);
    EXPECT_EQ(5, time.tm_mday);
    EXPECT_EQ(2, time.tm_mon);
    EXPECT_EQ(113, time.tm_year);
    EXPECT_EQ(2, time.tm_wday);
}

TEST(SystemTimeConversion, ToATm_DoesNotKnowAboutDaylightSaving)
{
    EXPECT_EQ(-1, tm(CSystemTime(Tuesday)).tm_isdst);
}

TEST(SystemTimeConversion, ToATm_TakesTheDayOfTheWeekAsItStands)
{
    CSystemTime time(Tuesday);
    time.wDayOfWeek = 6;

    EXPECT_EQ(6, tm(time).tm_wday);
}

TEST(SystemTimeConversion, ToATm_FirstDayOfTheYearIs0)
{
    EXPECT_EQ(0, DayOfYear(2013, 1, 1));
}

TEST(SystemTimeConversion, ToATm_LastDayOfALeapYearIs365)
{
    EXPECT_EQ(365, DayOfYear(2012, 12, 31));
}

TEST(SystemTimeConversion, ToATm_LastDayOfACommonYearIs364)
{
    EXPECT_EQ(364, DayOfYear(2013, 12, 31));
}

TEST(SystemTimeConversion, ToATm_DayOfTheYearIsTheSameAllDay)
{
    EXPECT_EQ(63, tm(CSystemTime(2013, 3, 5, 0, 0, 0, 0)).tm_yday);
    EXPECT_EQ(63, tm(CSystemTime(2013, 3, 5, 23, 59, 59, 999)).tm_yday);
}

TEST(SystemTimeConversion, ToATm_LooksAtTheDateOnly)
{
    const tm time = CSystemTime(SYSTEMTIME{2013, 3, 2, 5, 25, 61, 62, 1000});

    EXPECT_EQ(63, time.tm_yday);
    EXPECT_EQ(25, time.tm_hour);
    EXPECT_EQ(61, time.tm_min);
    EXPECT_EQ(62, time.tm_sec);
}

TEST(SystemTimeConversion, ToATmAndBack_LosesOnlyTheMilliseconds)
{
    EXPECT_EQ("2013-03-05 2 14:07:09.000", Text(CSystemTime(tm(CSystemTime(Tuesday)))));
}

TEST(SystemTimeConversion, ToSeconds)
{
    EXPECT_EQ(1362492429, Seconds(2013, 3, 5, 14, 7, 9, 0));
}

TEST(SystemTimeConversion, ToSeconds_OfTheEpochIs0)
{
    EXPECT_EQ(0, static_cast<long long>(CSystemTime(0)));
}

TEST(SystemTimeConversion, ToSeconds_DropsMilliseconds)
{
    EXPECT_EQ(1362492429, Seconds(2013, 3, 5, 14, 7, 9, 999));
}

TEST(SystemTimeConversion, ToSeconds_Of1969IsMinus1)
{
    EXPECT_EQ(-1, Seconds(1969, 7, 20, 20, 17, 40, 0));
}

TEST(SystemTimeConversion, ToSeconds_OfTheFirstMomentIsMinus1)
{
    EXPECT_EQ(-1, Seconds(1601, 1, 1, 0, 0, 0, 0));
}

TEST(SystemTimeConversion, ToSeconds_OfTheLastSecondBefore1970IsMinus1)
{
    EXPECT_EQ(-1, Seconds(1969, 12, 31, 23, 59, 59, 0));
}

TEST(SystemTimeConversion, ToSeconds_LessThanASecondBefore1970Is0)
{
    EXPECT_EQ(0, Seconds(1969, 12, 31, 23, 59, 59, 1));
    EXPECT_EQ(0, Seconds(1969, 12, 31, 23, 59, 59, 999));
}

TEST(SystemTimeConversion, ToSeconds_MoreThanASecondBefore1970IsMinus1)
{
    EXPECT_EQ(-1, Seconds(1969, 12, 31, 23, 59, 58, 999));
}

TEST(SystemTimeConversion, ToSeconds_BeyondSignedFileTimes)
{
    const support::CImportPatch patch(&::SystemTimeToFileTime, &fields::DistantSystemTimeToFileTime);
    const SYSTEMTIME distant = {fields::DistantYear, 1, 0, 1, 0, 0, 0, 0};

    EXPECT_EQ((fields::DistantTicks - 116444736000000000) / 10000000,
              static_cast<unsigned long long>(static_cast<long long>(CSystemTime(distant))));
}

TEST(SystemTimeConversion, FT2LI_TakesBothHalves)
{
    const LARGE_INTEGER result = CSystemTime::FT2LI({0x89ABCDEF, 0x01234567});

    EXPECT_EQ(0x0123456789ABCDEF, result.QuadPart);
}

TEST(SystemTimeConversion, FT2LI_TopBitIsTheSign)
{
    EXPECT_EQ(-2, CSystemTime::FT2LI({0xFFFFFFFE, 0xFFFFFFFF}).QuadPart);
}

TEST(SystemTimeConversion, FT2ULI_TakesBothHalves)
{
    const ULARGE_INTEGER result = CSystemTime::FT2ULI({0x89ABCDEF, 0xFEDCBA98});

    EXPECT_EQ(0xFEDCBA9889ABCDEF, result.QuadPart);
}

TEST(SystemTimeConversion, LI2FT_TakesBothHalves)
{
    LARGE_INTEGER ticks;
    ticks.QuadPart = -2;

    const FILETIME result = CSystemTime::LI2FT(ticks);

    EXPECT_EQ(0xFFFFFFFEu, result.dwLowDateTime);
    EXPECT_EQ(0xFFFFFFFFu, result.dwHighDateTime);
}

TEST(SystemTimeConversion, ULI2FT_TakesBothHalves)
{
    ULARGE_INTEGER ticks;
    ticks.QuadPart = 0xFEDCBA9889ABCDEF;

    const FILETIME result = CSystemTime::ULI2FT(ticks);

    EXPECT_EQ(0x89ABCDEFu, result.dwLowDateTime);
    EXPECT_EQ(0xFEDCBA98u, result.dwHighDateTime);
}
