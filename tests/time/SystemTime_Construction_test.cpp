// How a CSystemTime comes to its value, and what it is in memory.

#include "Fields.h"

#include <vantor/Exceptions.h>
#include <vantor/SystemTime.h>

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <new>
#include <type_traits>

using namespace vantor;
using fields::FileTime;
using fields::SystemTime;
using fields::Text;
using fields::Ticks;

namespace
{
// No calendar has it.
constexpr SYSTEMTIME Impossible = {2013, 13, 9, 99, 25, 61, 62, 1000};
constexpr char ImpossibleText[] = "2013-13-99 9 25:61:62.1000";

constexpr SYSTEMTIME Tuesday = {2013, 3, 2, 5, 14, 7, 9, 250};
constexpr char TuesdayText[] = "2013-03-05 2 14:07:09.250";

tm Broken(int year, int month, int day, int hour, int minute, int second, int weekday)
{
    tm result = {};
    result.tm_year = year - 1900;
    result.tm_mon = month - 1;
    result.tm_mday = day;
    result.tm_hour = hour;
    result.tm_min = minute;
    result.tm_sec = second;
    result.tm_wday = weekday;
    return result;
}
}   // namespace

TEST(SystemTimeLayout, ATimeIsAsBigAsTheRecordOfThePlatform)
{
    EXPECT_EQ(16u, sizeof(CSystemTime));
}

TEST(SystemTimeLayout, ATimeIsARecordOfThePlatform)
{
    EXPECT_TRUE((std::is_convertible<CSystemTime*, SYSTEMTIME*>::value));
    EXPECT_TRUE(std::is_standard_layout<CSystemTime>::value);
}

TEST(SystemTimeLayout, ATimeHasNoVirtualTable)
{
    EXPECT_FALSE(std::is_polymorphic<CSystemTime>::value);
}

TEST(SystemTimeLayout, AnArrayOfTimesIsAnArrayOfRecords)
{
    CSystemTime times[2] = {Impossible, Tuesday};

    EXPECT_EQ(TuesdayText, Text(static_cast<SYSTEMTIME*>(&times[0])[1]));
}

TEST(SystemTimeConstruction, Default_IsTheNullTime)
{
    alignas(CSystemTime) unsigned char memory[sizeof(CSystemTime)];
    std::memset(memory, 0xFF, sizeof memory);

    const CSystemTime* const time = new (memory) CSystemTime;

    EXPECT_EQ("0000-00-00 0 00:00:00.000", Text(*time));
}

TEST(SystemTimeConstruction, Clear_ZeroesAllFields)
{
    CSystemTime time(Impossible);

    time.Clear();

    EXPECT_EQ("0000-00-00 0 00:00:00.000", Text(time));
}

TEST(SystemTimeConstruction, OfARecord_IsUnchecked)
{
    EXPECT_EQ(ImpossibleText, Text(CSystemTime(Impossible)));
}

TEST(SystemTimeConstruction, AssignedRecord_IsUnchecked)
{
    CSystemTime time(Tuesday);

    CSystemTime& result = time = Impossible;

    EXPECT_EQ(&time, &result);
    EXPECT_EQ(ImpossibleText, Text(time));
}

TEST(SystemTimeConstruction, Copy_IsPlain)
{
    const CSystemTime time(Impossible);

    const CSystemTime copy(time);

    EXPECT_EQ(ImpossibleText, Text(copy));
    EXPECT_TRUE(std::is_trivially_copy_constructible<CSystemTime>::value);
}

TEST(SystemTimeConstruction, AssignedTime_IsPlain)
{
    const CSystemTime time(Impossible);
    CSystemTime copy(Tuesday);

    CSystemTime& result = copy = time;

    EXPECT_EQ(&copy, &result);
    EXPECT_EQ(ImpossibleText, Text(copy));
}

TEST(SystemTimeConstruction, OfTheFirstFileTime)
{
    EXPECT_EQ("1601-01-01 1 00:00:00.000", Text(CSystemTime(FileTime(0))));
}

TEST(SystemTimeConstruction, OfTheLastFileTime)
{
    EXPECT_EQ("30828-09-14 4 02:48:05.477", Text(CSystemTime(FileTime((1ULL << 63) - 1))));
}

TEST(SystemTimeConstruction, OfTheEpochAsFileTime)
{
    EXPECT_EQ("1970-01-01 4 00:00:00.000", Text(CSystemTime(FileTime(116444736000000000))));
}

TEST(SystemTimeConstruction, OfAFileTime_CutsToMilliseconds)
{
    EXPECT_EQ("1970-01-01 4 00:00:00.000", Text(CSystemTime(FileTime(116444736000009999))));
    EXPECT_EQ("1970-01-01 4 00:00:00.001", Text(CSystemTime(FileTime(116444736000010000))));
}

TEST(SystemTimeConstruction, AssignedFileTime)
{
    CSystemTime time(Impossible);

    CSystemTime& result = time = FileTime(116444736000000000);

    EXPECT_EQ(&time, &result);
    EXPECT_EQ("1970-01-01 4 00:00:00.000", Text(time));
}

TEST(SystemTimeConstruction, OfNoSeconds_IsTheThursdayOf1970)
{
    EXPECT_EQ("1970-01-01 4 00:00:00.000", Text(CSystemTime(0)));
}

TEST(SystemTimeConstruction, OfSeconds)
{
    EXPECT_EQ("2013-03-05 2 14:07:09.000", Text(CSystemTime(1362492429LL)));
}

TEST(SystemTimeConstruction, OfMoreSecondsThan32Bits)
{
    EXPECT_EQ("9999-12-31 5 00:00:00.000", Text(CSystemTime(253402214400LL)));
}

TEST(SystemTimeConstruction, OfNegativeSeconds_LiesBefore1970)
{
    EXPECT_EQ("1969-12-31 3 23:59:59.000", Text(CSystemTime(-1)));
}

TEST(SystemTimeConstruction, OfTheFirstPossibleSecond)
{
    EXPECT_EQ("1601-01-01 1 00:00:00.000", Text(CSystemTime(-11644473600LL)));
}

TEST(SystemTimeConstruction, OfTheLastPossibleSecond)
{
    EXPECT_EQ("30828-09-14 4 02:48:05.000", Text(CSystemTime(910692730085LL)));
}

TEST(SystemTimeConstruction, AssignedSeconds)
{
    CSystemTime time(Impossible);

    CSystemTime& result = time = 1362492429LL;

    EXPECT_EQ(&time, &result);
    EXPECT_EQ("2013-03-05 2 14:07:09.000", Text(time));
}

TEST(SystemTimeConstruction, OfSevenFields_KeepsThemAll)
{
    EXPECT_EQ(TuesdayText, Text(CSystemTime(2013, 3, 5, 14, 7, 9, 250)));
}

TEST(SystemTimeConstruction, OfSevenFields_FillsTheDayOfTheWeek)
{
    EXPECT_EQ(2, CSystemTime(2013, 1, 1, 0, 0, 0, 0).wDayOfWeek);
}

TEST(SystemTimeConstruction, OfSevenFields_KnowsLeapDays)
{
    EXPECT_EQ("2000-02-29 2 00:00:00.000", Text(CSystemTime(2000, 2, 29, 0, 0, 0, 0)));
}

TEST(SystemTimeConstruction, OfSevenFields_KeepsThePlatformsAnswer)
{
    // Not every platform refuses the leap day of a common year.
    const SYSTEMTIME day = {1900, 2, 0, 29, 0, 0, 0, 0};
    FILETIME ticks;
    if (::SystemTimeToFileTime(&day, &ticks))
    {
        EXPECT_EQ(Text(SystemTime(Ticks(ticks))), Text(CSystemTime(1900, 2, 29, 0, 0, 0, 0)));
    }
    else
    {
        EXPECT_THROW(CSystemTime(1900, 2, 29, 0, 0, 0, 0), CWinException);
    }
}

TEST(SystemTimeConstruction, OfSevenFields_LastMomentOfADay)
{
    EXPECT_EQ("9999-12-31 5 23:59:59.999", Text(CSystemTime(9999, 12, 31, 23, 59, 59, 999)));
}

TEST(SystemTimeConstruction, OfATm)
{
    EXPECT_EQ("2013-03-05 2 14:07:09.000", Text(CSystemTime(Broken(2013, 3, 5, 14, 7, 9, 2))));
}

TEST(SystemTimeConstruction, OfATm_IsUnchecked)
{
    EXPECT_EQ("2013-14-32 9 24:60:61.000", Text(CSystemTime(Broken(2013, 14, 32, 24, 60, 61, 9))));
}

TEST(SystemTimeConstruction, OfATm_TakesTheDayOfTheWeekAsItStands)
{
    EXPECT_EQ(6, CSystemTime(Broken(2013, 3, 5, 14, 7, 9, 6)).wDayOfWeek);
}

TEST(SystemTimeConstruction, OfATm_FieldsWrapAt16Bits)
{
    tm time = {};
    time.tm_year = INT_MAX;
    time.tm_mon = INT_MAX;
    time.tm_mday = 65537;

    EXPECT_EQ("1899-00-01 0 00:00:00.000", Text(CSystemTime(time)));
}

TEST(SystemTimeConstruction, AssignedTm_HasNoMilliseconds)
{
    CSystemTime time(Tuesday);

    CSystemTime& result = time = Broken(2012, 2, 29, 1, 2, 3, 3);

    EXPECT_EQ(&time, &result);
    EXPECT_EQ("2012-02-29 3 01:02:03.000", Text(time));
}
