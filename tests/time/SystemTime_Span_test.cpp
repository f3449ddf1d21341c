// Spans: a signed count of milliseconds.

#include <vantor/SystemTime.h>

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <type_traits>

using namespace vantor;

namespace
{
constexpr unsigned long long MillisecondsPerDay = 86400000;

void ExpectComponents(unsigned long long magnitude, const CSystemTimeSpan& span)
{
    EXPECT_EQ(static_cast<WORD>(magnitude / MillisecondsPerDay % 65536), span.GetDays()) << span.GetTimeSpan();
    EXPECT_EQ(magnitude / 3600000 % 24, span.GetHours()) << span.GetTimeSpan();
    EXPECT_EQ(magnitude / 60000 % 60, span.GetMinutes()) << span.GetTimeSpan();
    EXPECT_EQ(magnitude / 1000 % 60, span.GetSeconds()) << span.GetTimeSpan();
    EXPECT_EQ(magnitude % 1000, span.GetMilliseconds()) << span.GetTimeSpan();
}
}   // namespace

TEST(SystemTimeSpan, IsACountAndNothingElse)
{
    EXPECT_EQ(8u, sizeof(CSystemTimeSpan));
    EXPECT_FALSE(std::is_polymorphic<CSystemTimeSpan>::value);
}

TEST(SystemTimeSpan, Default_IsZero)
{
    EXPECT_EQ(0, CSystemTimeSpan().GetTimeSpan());
}

TEST(SystemTimeSpan, OfACount)
{
    const CSystemTimeSpan span(-90061001);

    EXPECT_EQ(-90061001, span.GetTimeSpan());
    EXPECT_EQ(-90061001, span.GetTotalMilliseconds());
}

TEST(SystemTimeSpan, SetTimeSpan_ReplacesTheCount)
{
    CSystemTimeSpan span(5);

    span.SetTimeSpan(-7000000000);

    EXPECT_EQ(-7000000000, span.GetTimeSpan());
}

TEST(SystemTimeSpan, OfComponents_AddsThemUp)
{
    EXPECT_EQ(90061001, CSystemTimeSpan(1, 1, 1, 1, 1, false).GetTimeSpan());
}

TEST(SystemTimeSpan, OfComponents_Negative)
{
    EXPECT_EQ(-90061001, CSystemTimeSpan(1, 1, 1, 1, 1, true).GetTimeSpan());
}

TEST(SystemTimeSpan, OfNoComponents_NegativeIsZeroToo)
{
    EXPECT_EQ(0, CSystemTimeSpan(0, 0, 0, 0, 0, true).GetTimeSpan());
    EXPECT_FALSE(CSystemTimeSpan(0, 0, 0, 0, 0, true).GetSign());
}

TEST(SystemTimeSpan, OfNinetyMinutes_IsAnHourAndAHalf)
{
    const CSystemTimeSpan span(0, 0, 90, 0, 0, false);

    EXPECT_EQ(1, span.GetHours());
    EXPECT_EQ(30, span.GetMinutes());
}

TEST(SystemTimeSpan, OfTheLargestComponents_AddsThemUp)
{
    const long long all = 65535 * (86400000LL + 3600000 + 60000 + 1000 + 1);

    EXPECT_EQ(all, CSystemTimeSpan(65535, 65535, 65535, 65535, 65535, false).GetTimeSpan());
    EXPECT_EQ(-all, CSystemTimeSpan(65535, 65535, 65535, 65535, 65535, true).GetTimeSpan());
}

TEST(SystemTimeSpan, ComponentsOfANegativeSpan_AreThoseOfItsMagnitude)
{
    const CSystemTimeSpan span(-90061001);

    EXPECT_EQ(1, span.GetDays());
    EXPECT_EQ(1, span.GetHours());
    EXPECT_EQ(1, span.GetMinutes());
    EXPECT_EQ(1, span.GetSeconds());
    EXPECT_EQ(1, span.GetMilliseconds());
    EXPECT_TRUE(span.GetSign());
}

TEST(SystemTimeSpan, ComponentsStayBelowTheirNaturalRange)
{
    const CSystemTimeSpan span(2 * 86400000LL - 1);

    EXPECT_EQ(1, span.GetDays());
    EXPECT_EQ(23, span.GetHours());
    EXPECT_EQ(59, span.GetMinutes());
    EXPECT_EQ(59, span.GetSeconds());
    EXPECT_EQ(999, span.GetMilliseconds());
}

TEST(SystemTimeSpan, SignOfAPositiveSpan)
{
    EXPECT_FALSE(CSystemTimeSpan(1).GetSign());
}

TEST(SystemTimeSpan, SignOfZero)
{
    EXPECT_FALSE(CSystemTimeSpan(0).GetSign());
}

TEST(SystemTimeSpan, SignOfANegativeSpan)
{
    EXPECT_TRUE(CSystemTimeSpan(-1).GetSign());
}

TEST(SystemTimeSpan, DaysWrapAt65536)
{
    EXPECT_EQ(65535, CSystemTimeSpan(65535 * 86400000LL).GetDays());
    EXPECT_EQ(0, CSystemTimeSpan(65536 * 86400000LL).GetDays());
    EXPECT_EQ(1, CSystemTimeSpan(-65537 * 86400000LL).GetDays());
}

TEST(SystemTimeSpan, ComponentsOfTheHighestCount)
{
    ExpectComponents(9223372036854775807ULL, CSystemTimeSpan(LLONG_MAX));
}

TEST(SystemTimeSpan, ComponentsOfTheLowestCount)
{
    ExpectComponents(9223372036854775808ULL, CSystemTimeSpan(LLONG_MIN));
    EXPECT_TRUE(CSystemTimeSpan(LLONG_MIN).GetSign());
}

TEST(SystemTimeSpan, ComponentsOfAnyCount)
{
    std::mt19937_64 random(4);
    for (int i = 0; i < 20000; ++i)
    {
        const auto magnitude = static_cast<long long>(random() >> (1 + i % 63));
        ExpectComponents(static_cast<unsigned long long>(magnitude), CSystemTimeSpan(magnitude));
        ExpectComponents(static_cast<unsigned long long>(magnitude), CSystemTimeSpan(-magnitude));
    }
}

TEST(SystemTimeSpan, ComponentsOfAnyCount_MakeItAgain)
{
    std::mt19937_64 random(5);
    for (int i = 0; i < 20000; ++i)
    {
        // Below the first wrap of the days.
        const auto count = static_cast<long long>(random() % (65536 * MillisecondsPerDay)) * (i % 2 ? -1 : 1);
        const CSystemTimeSpan span(count);
        const CSystemTimeSpan again(span.GetDays(), span.GetHours(), span.GetMinutes(), span.GetSeconds(),
                                    span.GetMilliseconds(), span.GetSign());

        EXPECT_EQ(count, again.GetTimeSpan());
    }
}

TEST(SystemTimeSpanArithmetic, Plus)
{
    EXPECT_EQ(-3, (CSystemTimeSpan(4) + CSystemTimeSpan(-7)).GetTimeSpan());
}

TEST(SystemTimeSpanArithmetic, Minus)
{
    EXPECT_EQ(11, (CSystemTimeSpan(4) - CSystemTimeSpan(-7)).GetTimeSpan());
}

TEST(SystemTimeSpanArithmetic, PlusAssign)
{
    CSystemTimeSpan span(4);

    CSystemTimeSpan& result = span += CSystemTimeSpan(-7);

    EXPECT_EQ(&span, &result);
    EXPECT_EQ(-3, span.GetTimeSpan());
}

TEST(SystemTimeSpanArithmetic, MinusAssign)
{
    CSystemTimeSpan span(4);

    CSystemTimeSpan& result = span -= CSystemTimeSpan(-7);

    EXPECT_EQ(&span, &result);
    EXPECT_EQ(11, span.GetTimeSpan());
}

TEST(SystemTimeSpanArithmetic, WithItself)
{
    CSystemTimeSpan span(4);
    span += span;
    EXPECT_EQ(8, span.GetTimeSpan());

    span -= span;
    EXPECT_EQ(0, span.GetTimeSpan());
}

TEST(SystemTimeSpanArithmetic, LeavesItsOperandsAlone)
{
    const CSystemTimeSpan a(4);
    const CSystemTimeSpan b(-7);

    static_cast<void>(a + b);
    static_cast<void>(a - b);

    EXPECT_EQ(4, a.GetTimeSpan());
    EXPECT_EQ(-7, b.GetTimeSpan());
}

TEST(SystemTimeSpanArithmetic, UsesAll64Bits)
{
    EXPECT_EQ(0x7000000000000001, (CSystemTimeSpan(0x7000000000000000) + CSystemTimeSpan(1)).GetTimeSpan());
}

TEST(SystemTimeSpanArithmetic, SumsWrap)
{
    EXPECT_EQ(LLONG_MIN, (CSystemTimeSpan(LLONG_MAX) + CSystemTimeSpan(1)).GetTimeSpan());
}

TEST(SystemTimeSpanArithmetic, DifferencesWrap)
{
    EXPECT_EQ(LLONG_MAX, (CSystemTimeSpan(LLONG_MIN) - CSystemTimeSpan(1)).GetTimeSpan());
    EXPECT_EQ(LLONG_MIN, (CSystemTimeSpan(0) - CSystemTimeSpan(LLONG_MIN)).GetTimeSpan());
}

TEST(SystemTimeSpanCompare, OrdersByTheSignedCount)
{
    constexpr long long ascending[] = {LLONG_MIN, -4294967297, -1, 0, 1, 4294967296, LLONG_MAX};
    for (const long long a : ascending)
    {
        for (const long long b : ascending)
        {
            const CSystemTimeSpan first(a);
            const CSystemTimeSpan second(b);
            EXPECT_EQ(a == b, first == second) << a << " and " << b;
            EXPECT_EQ(a != b, first != second) << a << " and " << b;
            EXPECT_EQ(a < b, first < second) << a << " and " << b;
            EXPECT_EQ(a > b, first > second) << a << " and " << b;
            EXPECT_EQ(a <= b, first <= second) << a << " and " << b;
            EXPECT_EQ(a >= b, first >= second) << a << " and " << b;
        }
    }
}
