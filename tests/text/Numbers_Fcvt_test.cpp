#include "LocaleScope.h"
#include "support/Print.h"

#include <vantor/Strings.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <random>
#include <string>

using vantor::ustring;

namespace
{
ustring Fixed(double value, int digits, const CNumberSettings& settings = {})
{
    const CLocaleScope scope(settings);
    return ustring::fcvt(value, digits);
}

CNumberSettings WithGrouping(const wchar_t* grouping)
{
    CNumberSettings settings;
    settings.grouping = grouping;
    return settings;
}

CNumberSettings WithMode(const wchar_t* negNumber)
{
    CNumberSettings settings;
    settings.negNumber = negNumber;
    return settings;
}

CNumberSettings WithoutLeadingZeros()
{
    CNumberSettings settings;
    settings.leadingZeros = L"0";
    return settings;
}

// All decimals of a value of this test's size.
std::string Exact(double value, int digits)
{
    std::array<char, 128> text;
    const int length = std::snprintf(text.data(), text.size(), "%.*f", digits, value);
    return std::string(text.data(), static_cast<std::size_t>(length));
}

// Halfway between two results: there the rounding is the runtime library's own.
bool IsTie(double value, int digits)
{
    const std::string all = Exact(value, 70);
    const std::string cut = all.substr(all.find('.') + 1 + static_cast<std::size_t>(digits));
    return cut.front() == '5' && cut.find_first_not_of('0', 1) == cut.npos;
}

// The definition, from the exact decimals, for the default settings of CNumberSettings and some groups.
std::wstring SlowFcvt(double value, int digits, std::size_t group, bool leadingZero)
{
    const std::string text = Exact(std::fabs(value), digits);
    const std::string whole = text.substr(0, text.find('.'));
    std::wstring result;
    if (whole != "0" || leadingZero)
    {
        for (std::size_t pos = 0; pos < whole.size(); ++pos)
        {
            if (pos != 0 && group != 0 && (whole.size() - pos) % group == 0)
                result += L',';
            result += static_cast<wchar_t>(whole[pos]);
        }
    }
    if (digits > 0)
    {
        const std::string fraction = text.substr(whole.size() + 1);
        result += L"." + std::wstring(fraction.begin(), fraction.end());
    }
    return value < 0 ? L"-" + result : result;
}
}   // namespace

TEST(Fcvt, LargeValue_IsGroupedAndRounded)
{
    EXPECT_EQ(Fixed(1234567.891, 2), L"1,234,567.89");
}

TEST(Fcvt, ValueBelowOne_HasALeadingZero)
{
    EXPECT_EQ(Fixed(0.5, 3), L"0.500");
}

TEST(Fcvt, NegativeValue_HasItsSignInFront)
{
    EXPECT_EQ(Fixed(-1234.5, 1), L"-1,234.5");
}

TEST(Fcvt, NegativeDigits_MeanTheLocales)
{
    CNumberSettings settings;
    settings.digits = L"3";
    EXPECT_EQ(Fixed(1.5, -1, settings), L"1.500");
    EXPECT_EQ(Fixed(1.5, -7, settings), L"1.500");
}

TEST(Fcvt, NegativeDigitsOfALocaleWithoutAny_GiveNoSeparator)
{
    CNumberSettings settings;
    settings.digits = L"0";
    EXPECT_EQ(Fixed(12.25, -1, settings), L"12");
}

TEST(Fcvt, WithoutDigits_HasNoDecimalSeparator)
{
    EXPECT_EQ(Fixed(1234.25, 0), L"1,234");
}

TEST(Fcvt, LastDigit_IsRounded)
{
    EXPECT_EQ(Fixed(1.236, 2), L"1.24");
    EXPECT_EQ(Fixed(1.234, 2), L"1.23");
}

TEST(Fcvt, RoundingUp_CarriesIntoANewGroup)
{
    EXPECT_EQ(Fixed(999.999, 2), L"1,000.00");
}

TEST(Fcvt, RoundingUpFromBelowOne_GivesOne)
{
    EXPECT_EQ(Fixed(0.999, 2), L"1.00");
}

TEST(Fcvt, Zero_HasAllItsDigits)
{
    EXPECT_EQ(Fixed(0.0, 2), L"0.00");
}

TEST(Fcvt, SmallValue_KeepsTheZerosBehindThePoint)
{
    EXPECT_EQ(Fixed(0.05, 3), L"0.050");
}

TEST(Fcvt, ValueThatRoundsToZero_IsZero)
{
    EXPECT_EQ(Fixed(0.001, 2), L"0.00");
    EXPECT_EQ(Fixed(0.0000001, 2), L"0.00");
}

TEST(Fcvt, NegativeValueThatRoundsToZero_KeepsItsSign)
{
    EXPECT_EQ(Fixed(-0.001, 2), L"-0.00");
}

TEST(Fcvt, LeadingZeroOff_BeginsWithTheSeparator)
{
    EXPECT_EQ(Fixed(0.5, 2, WithoutLeadingZeros()), L".50");
}

TEST(Fcvt, LeadingZeroOn_BeginsWithZero)
{
    EXPECT_EQ(Fixed(0.5, 2), L"0.50");
}

TEST(Fcvt, LeadingZeroOff_KeepsTheZerosBehindThePoint)
{
    EXPECT_EQ(Fixed(0.05, 2, WithoutLeadingZeros()), L".05");
}

TEST(Fcvt, LeadingZeroOff_LeavesValuesFromOneOn)
{
    EXPECT_EQ(Fixed(10.5, 2, WithoutLeadingZeros()), L"10.50");
}

TEST(Fcvt, LeadingZeroOff_PutsTheSignBeforeTheSeparator)
{
    EXPECT_EQ(Fixed(-0.5, 2, WithoutLeadingZeros()), L"-.50");
}

TEST(Fcvt, WholeGroups_HaveNoSeparatorInFront)
{
    EXPECT_EQ(Fixed(123456.5, 1), L"123,456.5");
}

TEST(Fcvt, GroupingOfZero_MeansNoGroups)
{
    EXPECT_EQ(Fixed(1234567.5, 1, WithGrouping(L"0")), L"1234567.5");
}

TEST(Fcvt, GroupsOfFour_AreNotPadded)
{
    EXPECT_EQ(Fixed(10000001.5, 1, WithGrouping(L"4")), L"1000,0001.5");
}

TEST(Fcvt, GroupsOfTwo_AreNotPadded)
{
    EXPECT_EQ(Fixed(12345.5, 1, WithGrouping(L"2")), L"1,23,45.5");
}

TEST(Fcvt, Mode0_PutsParentheses)
{
    EXPECT_EQ(Fixed(-1234.5, 1, WithMode(L"0")), L"(1,234.5)");
}

TEST(Fcvt, Mode2_PutsTheSignAndASpaceBefore)
{
    EXPECT_EQ(Fixed(-1234.5, 1, WithMode(L"2")), L"- 1,234.5");
}

TEST(Fcvt, Mode3_PutsTheSignBehind)
{
    EXPECT_EQ(Fixed(-1234.5, 1, WithMode(L"3")), L"1,234.5-");
}

TEST(Fcvt, Mode4_PutsASpaceAndTheSignBehind)
{
    EXPECT_EQ(Fixed(-1234.5, 1, WithMode(L"4")), L"1,234.5 -");
}

TEST(Fcvt, TextsOfTheLocale_AreUsedWhole)
{
    CNumberSettings settings;
    settings.decimalPoint = L"<.>";
    settings.thousandsSep = L"<,>";
    settings.negativeSign = L"<->";
    EXPECT_EQ(Fixed(-1234567.5, 1, settings), L"<->1<,>234<,>567<.>5");
}

TEST(Fcvt, ManyDigits_ArePaddedToTheirNumber)
{
    EXPECT_EQ(Fixed(1.5, 20), L"1.50000000000000000000");
}

TEST(Fcvt, RandomValues_FollowTheDefinition)
{
    std::mt19937_64 engine(20080229);
    for (const wchar_t* grouping : {L"0", L"3;0", L"4"})
    {
        const CNumberSettings settings = WithGrouping(grouping);
        const CLocaleScope scope(settings);
        for (int round = 0; round < 10000; ++round)
        {
            const double magnitude = static_cast<double>(engine() % 1000000000000ull) / std::pow(10.0, engine() % 16);
            const double value = engine() % 2 == 0 ? magnitude : -magnitude;
            const int digits = static_cast<int>(engine() % 9);
            if (value == 0 || IsTie(value, digits))
                continue;
            ASSERT_EQ(ustring::fcvt(value, digits),
                      SlowFcvt(value, digits, static_cast<std::size_t>(grouping[0] - L'0'), true))
                << Exact(value, 40) << " to " << digits << " digits";
        }
    }
}

TEST(Fcvt, RandomValuesWithoutLeadingZeros_FollowTheDefinition)
{
    std::mt19937_64 engine(20080301);
    const CNumberSettings settings = WithoutLeadingZeros();
    const CLocaleScope scope(settings);
    for (int round = 0; round < 10000; ++round)
    {
        const double value = static_cast<double>(1 + engine() % 10000000) / std::pow(10.0, 4 + engine() % 6);
        const int digits = static_cast<int>(1 + engine() % 6);
        if (IsTie(value, digits))
            continue;
        ASSERT_EQ(ustring::fcvt(value, digits), SlowFcvt(value, digits, 3, false))
            << Exact(value, 40) << " to " << digits << " digits";
    }
}
