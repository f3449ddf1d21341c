// The order of times, the null time included.

#include <vantor/SystemTime.h>

#include <gtest/gtest.h>

using namespace vantor;

namespace
{
constexpr SYSTEMTIME Tuesday = {2013, 3, 2, 5, 14, 7, 9, 250};
constexpr SYSTEMTIME NotInTheCalendar = {2013, 2, 0, 30, 0, 0, 0, 0};

// In ascending order, each later than the one before in one more field.
constexpr SYSTEMTIME Ascending[] = {
    {1601, 1, 1, 1, 0, 0, 0, 0},        {2013, 3, 2, 5, 14, 7, 9, 249}, {2013, 3, 2, 5, 14, 7, 9, 250},
    {2013, 3, 2, 5, 14, 7, 10, 0},      {2013, 3, 2, 5, 14, 8, 0, 0},   {2013, 3, 2, 5, 15, 0, 0, 0},
    {2013, 3, 3, 6, 0, 0, 0, 0},        {2013, 4, 1, 1, 0, 0, 0, 0},    {2014, 1, 3, 1, 0, 0, 0, 0},
    {9999, 12, 5, 31, 23, 59, 59, 999},
};
}   // namespace

TEST(SystemTimeCompare, OrdersByEveryField)
{
    int a = 0;
    for (const SYSTEMTIME& first : Ascending)
    {
        int b = 0;
        for (const SYSTEMTIME& second : Ascending)
        {
            EXPECT_EQ((a > b) - (a < b), CSystemTime(first).Compare(second)) << a << " and " << b;
            ++b;
        }
        ++a;
    }
}

TEST(SystemTimeCompare, IgnoresTheDayOfTheWeek)
{
    CSystemTime other(Tuesday);
    other.wDayOfWeek = 6;

    EXPECT_EQ(0, CSystemTime(Tuesday).Compare(other));
}

TEST(SystemTimeCompare, TwoNullTimesAreEqual)
{
    EXPECT_EQ(0, CSystemTime().Compare(CSystemTime()));
}

TEST(SystemTimeCompare, TheNullTimeComesBeforeEveryOther)
{
    EXPECT_EQ(-1, CSystemTime().Compare(Ascending[0]));
}

TEST(SystemTimeCompare, EveryOtherComesAfterTheNullTime)
{
    EXPECT_EQ(1, CSystemTime(Ascending[0]).Compare(CSystemTime()));
}

TEST(SystemTimeCompare, TheYearAloneMakesTheNullTime)
{
    constexpr SYSTEMTIME year0 = {0, 3, 2, 5, 14, 7, 9, 250};

    EXPECT_EQ(0, CSystemTime(year0).Compare(CSystemTime()));
}

TEST(SystemTimeCompare, WithTheNullTime_ValidatesNothing)
{
    EXPECT_EQ(1, CSystemTime(NotInTheCalendar).Compare(CSystemTime()));
    EXPECT_EQ(-1, CSystemTime().Compare(NotInTheCalendar));
}

TEST(SystemTimeCompare, OperatorsOfEqualTimes)
{
    const CSystemTime a(Tuesday);
    const CSystemTime b(Tuesday);

    EXPECT_TRUE(a == b);
    EXPECT_FALSE(a != b);
    EXPECT_FALSE(a < b);
    EXPECT_TRUE(a <= b);
    EXPECT_FALSE(a > b);
    EXPECT_TRUE(a >= b);
}

TEST(SystemTimeCompare, OperatorsWithALaterTime)
{
    const CSystemTime a(Ascending[1]);
    const CSystemTime b(Ascending[2]);

    EXPECT_FALSE(a == b);
    EXPECT_TRUE(a != b);
    EXPECT_TRUE(a < b);
    EXPECT_TRUE(a <= b);
    EXPECT_FALSE(a > b);
    EXPECT_FALSE(a >= b);
}

TEST(SystemTimeCompare, OperatorsWithAnEarlierTime)
{
    const CSystemTime a(Ascending[2]);
    const CSystemTime b(Ascending[1]);

    EXPECT_FALSE(a == b);
    EXPECT_TRUE(a != b);
    EXPECT_FALSE(a < b);
    EXPECT_FALSE(a <= b);
    EXPECT_TRUE(a > b);
    EXPECT_TRUE(a >= b);
}

TEST(SystemTimeCompare, OperatorsOfVariables)
{
    CSystemTime a(Ascending[1]);
    CSystemTime b(Ascending[2]);

    EXPECT_FALSE(a == b);
    EXPECT_TRUE(a != b);
    EXPECT_TRUE(a < b);
    EXPECT_TRUE(a <= b);
    EXPECT_FALSE(a > b);
    EXPECT_FALSE(a >= b);
}

TEST(SystemTimeCompare, OperatorsWithARecordOfThePlatform)
{
    const CSystemTime a(Tuesday);

    EXPECT_TRUE(a == Tuesday);
    EXPECT_FALSE(a != Tuesday);
    EXPECT_TRUE(a < Ascending[9]);
    EXPECT_TRUE(a <= Ascending[9]);
    EXPECT_FALSE(a > Ascending[9]);
    EXPECT_FALSE(a >= Ascending[9]);
}

TEST(SystemTimeCompare, OperatorsWithTheNullTime)
{
    EXPECT_TRUE(CSystemTime() < CSystemTime(Ascending[0]));
    EXPECT_TRUE(CSystemTime() == CSystemTime());
    EXPECT_FALSE(CSystemTime() < CSystemTime());
}
