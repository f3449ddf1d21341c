#include "LocaleScope.h"
#include "support/ImportPatch.h"
#include "support/Print.h"

#include <vantor/Strings.h>

#include <gtest/gtest.h>

#include <oleauto.h>

#include <cmath>
#include <cstdio>
#include <cwchar>
#include <limits>
#include <random>
#include <string>

using vantor::ustring;

namespace
{
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

CNumberSettings German()
{
    CNumberSettings settings;
    settings.decimalPoint = L",";
    settings.thousandsSep = L".";
    return settings;
}

ustring Grouped(unsigned long long value, const wchar_t* grouping)
{
    const CNumberSettings settings = WithGrouping(grouping);
    const CLocaleScope scope(settings);
    return ustring::ui64toa(value);
}

ustring Signed(long long value, const wchar_t* negNumber)
{
    const CNumberSettings settings = WithMode(negNumber);
    const CLocaleScope scope(settings);
    return ustring::i64toa(value);
}

ustring WithSign(int mode, const wchar_t* sign)
{
    ustring text = L"5";
    text.add_sign(mode, sign);
    return text;
}

// The definition's loop, by the runtime's formats.
std::wstring SlowUi64toa(unsigned long long value, int group)
{
    std::wstring result;
    do
    {
        const auto whole = static_cast<unsigned long long>(std::pow(10.0, group));
        const unsigned long long quotient = group == 0 ? 0 : value / whole;
        const unsigned long long remainder = group == 0 ? value : value % whole;
        char piece[32];
        std::snprintf(piece, sizeof piece, quotient != 0 ? ",%03llu" : "%llu", remainder);
        result.insert(0, std::wstring(piece, piece + std::char_traits<char>::length(piece)));
        value = quotient;
    } while (value != 0);
    return result;
}

int g_clearedTexts;

HRESULT WINAPI CountingVariantClear(VARIANTARG* variant)
{
    if (variant->vt == VT_BSTR && variant->bstrVal)
        ++g_clearedTexts;
    return ::VariantClear(variant);
}

const wchar_t* const Null = nullptr;
}   // namespace

TEST(Atoi64, Spaces_AreIgnored)
{
    const CLocaleScope scope;
    EXPECT_EQ(ustring::atoi64(L"1 234 567"), 1234567);
}

TEST(Atoi64, ThousandsSeparators_AreIgnored)
{
    const CLocaleScope scope;
    EXPECT_EQ(ustring::atoi64(L"1,234,567"), 1234567);
}

TEST(Atoi64, SpacesAndSeparatorsAnywhere_AreIgnored)
{
    const CLocaleScope scope;
    EXPECT_EQ(ustring::atoi64(L" ,- 1,,2 ,3 "), -123);
}

TEST(Atoi64, LongSeparator_IsRemovedWhole)
{
    CNumberSettings settings;
    settings.thousandsSep = L"::";
    const CLocaleScope scope(settings);
    EXPECT_EQ(ustring::atoi64(L"1::234"), 1234);
    EXPECT_EQ(ustring::atoi64(L"1:234"), 1);
}

TEST(Atoi64, EmptySeparator_IsNoHindrance)
{
    CNumberSettings settings;
    settings.thousandsSep = L"";
    const CLocaleScope scope(settings);
    EXPECT_EQ(ustring::atoi64(L"1 234"), 1234);
}

TEST(Atoi64, FirstNonDigit_EndsTheNumber)
{
    const CLocaleScope scope;
    EXPECT_EQ(ustring::atoi64(L"-12abc"), -12);
}

TEST(Atoi64, PlusSign_IsAccepted)
{
    const CLocaleScope scope;
    EXPECT_EQ(ustring::atoi64(L"+12"), 12);
}

TEST(Atoi64, LeadingWhiteSpace_IsPassedOver)
{
    const CLocaleScope scope;
    EXPECT_EQ(ustring::atoi64(L"\t\n12"), 12);
}

TEST(Atoi64, WithoutDigits_IsZero)
{
    const CLocaleScope scope;
    EXPECT_EQ(ustring::atoi64(L"abc"), 0);
    EXPECT_EQ(ustring::atoi64(L""), 0);
}

TEST(Atoi64, Null_IsZero)
{
    const CLocaleScope scope;
    EXPECT_EQ(ustring::atoi64(nullptr), 0);
}

TEST(Atoi64, DigitsOfOtherScripts_AreNone)
{
    const CLocaleScope scope;
    EXPECT_EQ(ustring::atoi64(L"1\u0662"), 1);
}

TEST(Atoi64, ExtremeValues_AreRead)
{
    const CLocaleScope scope;
    EXPECT_EQ(ustring::atoi64(L"-9,223,372,036,854,775,808"), std::numeric_limits<long long>::min());
    EXPECT_EQ(ustring::atoi64(L"9,223,372,036,854,775,807"), std::numeric_limits<long long>::max());
}

TEST(Strtod, PointAndGrouping_AreRead)
{
    const CLocaleScope scope;
    EXPECT_EQ(ustring::strtod(L"1,234.5"), 1234.5);
}

TEST(Strtod, Spaces_AreIgnored)
{
    const CLocaleScope scope;
    EXPECT_EQ(ustring::strtod(L" - 1 234.2 5"), -1234.25);
}

TEST(Strtod, DecimalCommaOfTheLocale_EndsTheNumber)
{
    const CNumberSettings settings = German();
    const CLocaleScope scope(settings);
    EXPECT_EQ(ustring::strtod(L"12,5"), 12.0);
}

TEST(Strtod, PointThatSeparatesThousands_IsIgnored)
{
    const CNumberSettings settings = German();
    const CLocaleScope scope(settings);
    EXPECT_EQ(ustring::strtod(L"1.234"), 1234.0);
}

TEST(Strtod, Exponent_IsRead)
{
    const CLocaleScope scope;
    EXPECT_EQ(ustring::strtod(L"25e-1"), 2.5);
}

TEST(Strtod, WithoutNumber_IsZero)
{
    const CLocaleScope scope;
    EXPECT_EQ(ustring::strtod(L"abc"), 0.0);
    EXPECT_EQ(ustring::strtod(nullptr), 0.0);
}

TEST(Ui64toa, Zero_IsOneDigit)
{
    EXPECT_EQ(Grouped(0, L"3;0"), L"0");
}

TEST(Ui64toa, OneGroup_HasNoSeparator)
{
    EXPECT_EQ(Grouped(999, L"3;0"), L"999");
}

TEST(Ui64toa, Thousand_HasOneSeparator)
{
    EXPECT_EQ(Grouped(1000, L"3;0"), L"1,000");
}

TEST(Ui64toa, InnerGroups_AreZeroPadded)
{
    EXPECT_EQ(Grouped(1000000, L"3;0"), L"1,000,000");
    EXPECT_EQ(Grouped(1002003, L"3;0"), L"1,002,003");
}

TEST(Ui64toa, Million_IsGrouped)
{
    EXPECT_EQ(Grouped(1234567, L"3;0"), L"1,234,567");
}

TEST(Ui64toa, GreatestValue_IsWhole)
{
    EXPECT_EQ(Grouped(std::numeric_limits<unsigned long long>::max(), L"3;0"), L"18,446,744,073,709,551,615");
}

TEST(Ui64toa, GroupingOfZero_MeansNoGroups)
{
    EXPECT_EQ(Grouped(1234567, L"0"), L"1234567");
}

TEST(Ui64toa, GroupsOfFour_AreFormed)
{
    EXPECT_EQ(Grouped(12345678, L"4"), L"1234,5678");
}

TEST(Ui64toa, GroupsOfFour_ArePaddedToThreeDigitsOnly)
{
    EXPECT_EQ(Grouped(10000001, L"4"), L"1000,001");
}

TEST(Ui64toa, GroupsOfTwo_ArePaddedToThreeDigits)
{
    EXPECT_EQ(Grouped(1234567, L"2"), L"1,023,045,067");
}

TEST(Ui64toa, GroupOfNineteenDigits_IsFormed)
{
    EXPECT_EQ(Grouped(std::numeric_limits<unsigned long long>::max(), L"19"), L"1,8446744073709551615");
}

TEST(Ui64toa, LongSeparator_IsInsertedWhole)
{
    CNumberSettings settings;
    settings.thousandsSep = L"<>";
    const CLocaleScope scope(settings);
    EXPECT_EQ(ustring::ui64toa(1234567), L"1<>234<>567");
}

TEST(Ui64toa, EmptySeparator_LeavesTheGroupsTogether)
{
    CNumberSettings settings;
    settings.thousandsSep = L"";
    const CLocaleScope scope(settings);
    EXPECT_EQ(ustring::ui64toa(1002003), L"1002003");
}

TEST(Ui64toa, RandomValues_FollowTheDefinition)
{
    std::mt19937_64 engine(20080229);
    for (const wchar_t* grouping : {L"0", L"1", L"2", L"3", L"4", L"5", L"9", L"18"})
    {
        const int group = static_cast<int>(std::wcstol(grouping, nullptr, 10));
        const CNumberSettings settings = WithGrouping(grouping);
        const CLocaleScope scope(settings);
        for (int round = 0; round < 3000; ++round)
        {
            const unsigned long long value = engine() >> (engine() % 64);
            ASSERT_EQ(ustring::ui64toa(value), SlowUi64toa(value, group)) << value << " in groups of " << group;
        }
    }
}

TEST(I64toa, Positive_HasNoSign)
{
    EXPECT_EQ(Signed(1234567, L"1"), L"1,234,567");
}

TEST(I64toa, Zero_HasNoSign)
{
    EXPECT_EQ(Signed(0, L"0"), L"0");
}

TEST(I64toa, Mode0_PutsParentheses)
{
    EXPECT_EQ(Signed(-1234, L"0"), L"(1,234)");
}

TEST(I64toa, Mode1_PutsTheSignBefore)
{
    EXPECT_EQ(Signed(-1234, L"1"), L"-1,234");
}

TEST(I64toa, Mode2_PutsTheSignAndASpaceBefore)
{
    EXPECT_EQ(Signed(-1234, L"2"), L"- 1,234");
}

TEST(I64toa, Mode3_PutsTheSignBehind)
{
    EXPECT_EQ(Signed(-1234, L"3"), L"1,234-");
}

TEST(I64toa, Mode4_PutsASpaceAndTheSignBehind)
{
    EXPECT_EQ(Signed(-1234, L"4"), L"1,234 -");
}

TEST(I64toa, LeastValue_HasItsFullMagnitude)
{
    EXPECT_EQ(Signed(std::numeric_limits<long long>::min(), L"1"), L"-9,223,372,036,854,775,808");
}

TEST(I64toa, SignOfTheLocale_IsUsed)
{
    CNumberSettings settings;
    settings.negativeSign = L"\u2212";
    const CLocaleScope scope(settings);
    EXPECT_EQ(ustring::i64toa(-5), L"\u22125");
}

TEST(AddSign, Mode0_PutsParenthesesAndNoSign)
{
    EXPECT_EQ(WithSign(0, L"-"), L"(5)");
}

TEST(AddSign, Mode1_PutsTheSignBefore)
{
    EXPECT_EQ(WithSign(1, L"-"), L"-5");
}

TEST(AddSign, Mode2_PutsTheSignAndASpaceBefore)
{
    EXPECT_EQ(WithSign(2, L"-"), L"- 5");
}

TEST(AddSign, Mode3_PutsTheSignBehind)
{
    EXPECT_EQ(WithSign(3, L"-"), L"5-");
}

TEST(AddSign, Mode4_PutsASpaceAndTheSignBehind)
{
    EXPECT_EQ(WithSign(4, L"-"), L"5 -");
}

TEST(AddSign, OtherModes_ChangeNothing)
{
    EXPECT_EQ(WithSign(5, L"-"), L"5");
    EXPECT_EQ(WithSign(-1, L"-"), L"5");
}

TEST(AddSign, LongSign_IsTakenWhole)
{
    EXPECT_EQ(WithSign(1, L"minus "), L"minus 5");
}

TEST(AddSign, NullSign_IsTheEmptyText)
{
    EXPECT_EQ(WithSign(1, Null), L"5");
    EXPECT_EQ(WithSign(2, Null), L" 5");
    EXPECT_EQ(WithSign(3, Null), L"5");
    EXPECT_EQ(WithSign(4, Null), L"5 ");
}

TEST(Wtof, Number_IsRead)
{
    EXPECT_EQ(vantor::wtof(L"-2.5"), -2.5);
}

TEST(Wtof, FirstNumber_IsReadAndTheRestIgnored)
{
    EXPECT_EQ(vantor::wtof(L"  2.5abc 7"), 2.5);
}

TEST(Wtof, TextWithoutNumber_IsZero)
{
    EXPECT_EQ(vantor::wtof(L"abc"), 0.0);
    EXPECT_EQ(vantor::wtof(L""), 0.0);
}

TEST(Wtof, Null_IsZero)
{
    EXPECT_EQ(vantor::wtof(Null), 0.0);
}

TEST(Wtof, LocaleOfTheLibrary_IsNotUsed)
{
    const CNumberSettings settings = German();
    const CLocaleScope scope(settings);
    EXPECT_EQ(vantor::wtof(L"2.5"), 2.5);
    EXPECT_EQ(vantor::wtof(L"2,5"), 2.0);
}

TEST(WtofInLocale, DecimalSeparatorOfTheLocale_IsRead)
{
    EXPECT_EQ(vantor::wtof(L"1.5", 1033), 1.5);
    EXPECT_EQ(vantor::wtof(L"1,5", 1031), 1.5);
    EXPECT_EQ(vantor::wtof(L"1,5", 1036), 1.5);
}

TEST(WtofInLocale, ThousandsSeparatorOfTheLocale_IsRead)
{
    EXPECT_EQ(vantor::wtof(L"1.234,5", 1031), 1234.5);
}

TEST(WtofInLocale, PointWhereTheLocaleWritesComma_IsZero)
{
    EXPECT_EQ(vantor::wtof(L"2.5", 1036), 0.0);
}

TEST(WtofInLocale, TextWithoutNumber_IsZero)
{
    EXPECT_EQ(vantor::wtof(L"abc", 1033), 0.0);
    EXPECT_EQ(vantor::wtof(L"", 1033), 0.0);
}

TEST(WtofInLocale, Null_IsZero)
{
    EXPECT_EQ(vantor::wtof(Null, 1033), 0.0);
}

TEST(WtofInLocale, Text_IsReleasedAfterSuccess)
{
    g_clearedTexts = 0;
    const support::CImportPatch patch(&::VariantClear, &CountingVariantClear);
    vantor::wtof(L"1.5", 1033);
    EXPECT_EQ(g_clearedTexts, 1);
}

TEST(WtofInLocale, Text_IsReleasedAfterFailure)
{
    g_clearedTexts = 0;
    const support::CImportPatch patch(&::VariantClear, &CountingVariantClear);
    vantor::wtof(L"abc", 1033);
    EXPECT_EQ(g_clearedTexts, 1);
}
