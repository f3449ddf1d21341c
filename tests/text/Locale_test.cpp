#include "LocaleScope.h"
#include "support/Print.h"

#include <vantor/Strings.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

using vantor::CLocale;
using vantor::ustring;

namespace
{
// Filled before main, as a static object of an application would.
const ustring g_decimalPointBeforeMain = ustring::m_Locale.DecimalPoint();
const int g_groupingBeforeMain = ustring::m_Locale.Grouping();

ustring PlatformText(LCID locale, LCTYPE type)
{
    wchar_t text[256] = {};
    ::GetLocaleInfoW(locale, type, text, 256);
    return text;
}
}   // namespace

TEST(Locale, TextItems_AreThePlatformsTexts)
{
    const CLocale locale = MakeLocale({L"dec", L"tho", L"neg", L"1", L"3;0", L"2", L"1"});
    EXPECT_EQ(ustring(locale.DecimalPoint()), L"dec");
    EXPECT_EQ(ustring(locale.ThousandsSep()), L"tho");
    EXPECT_EQ(ustring(locale.NegativeSign()), L"neg");
}

TEST(Locale, NumberItems_AreThePlatformsTextsAsNumbers)
{
    const CLocale locale = MakeLocale({L".", L",", L"-", L"4", L"5", L"7", L"0"});
    EXPECT_EQ(locale.NegNumber(), 4);
    EXPECT_EQ(locale.Grouping(), 5);
    EXPECT_EQ(locale.Digits(), 7);
    EXPECT_FALSE(locale.LeadingZeros());
}

TEST(Locale, Grouping_OfThreeThenZero_IsThree)
{
    EXPECT_EQ(MakeLocale({L".", L",", L"-", L"1", L"3;0", L"2", L"1"}).Grouping(), 3);
}

TEST(Locale, Grouping_OfSeveralNumbers_IsTheFirst)
{
    EXPECT_EQ(MakeLocale({L".", L",", L"-", L"1", L"4;2;0", L"2", L"1"}).Grouping(), 4);
}

TEST(Locale, Grouping_ThatDoesNotStartWithADigit_IsZero)
{
    EXPECT_EQ(MakeLocale({L".", L",", L"-", L"1", L";3", L"2", L"1"}).Grouping(), 0);
}

TEST(Locale, LeadingZeros_AreOnForAnyNumberButZero)
{
    EXPECT_TRUE(MakeLocale({L".", L",", L"-", L"1", L"3", L"2", L"2"}).LeadingZeros());
    EXPECT_TRUE(MakeLocale({L".", L",", L"-", L"1", L"3", L"2", L"-1"}).LeadingZeros());
}

TEST(Locale, TextOf255Characters_IsKeptWhole)
{
    const std::wstring longest(255, L'x');
    CNumberSettings settings;
    settings.thousandsSep = longest.c_str();
    EXPECT_EQ(ustring(MakeLocale(settings).ThousandsSep()), longest);
}

TEST(Locale, FailingReads_LeaveEmptyTexts)
{
    const CLocale locale = MakeLocale({nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr});
    EXPECT_EQ(ustring(locale.DecimalPoint()), L"");
    EXPECT_EQ(ustring(locale.ThousandsSep()), L"");
    EXPECT_EQ(ustring(locale.NegativeSign()), L"");
}

TEST(Locale, FailingReads_LeaveZeros)
{
    const CLocale locale = MakeLocale({nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr});
    EXPECT_EQ(locale.NegNumber(), 0);
    EXPECT_EQ(locale.Grouping(), 0);
    EXPECT_EQ(locale.Digits(), 0);
    EXPECT_FALSE(locale.LeadingZeros());
}

TEST(Locale, OneFailingRead_LeavesTheOthers)
{
    const CLocale locale = MakeLocale({nullptr, L",", L"-", L"1", nullptr, L"2", L"1"});
    EXPECT_EQ(ustring(locale.ThousandsSep()), L",");
    EXPECT_EQ(locale.Digits(), 2);
}

TEST(Locale, UnknownLocale_IsEmptyAndZero)
{
    const CLocale locale(99999);
    EXPECT_EQ(ustring(locale.DecimalPoint()), L"");
    EXPECT_EQ(locale.Grouping(), 0);
}

TEST(Locale, GetLocaleInfoW_GivesTheNumberInTheText)
{
    CNumberSettings settings;
    settings.digits = L"12x";
    EXPECT_EQ(ReadNumber(settings, LOCALE_IDIGITS), 12);
}

TEST(Locale, GetLocaleInfoW_OnFailure_GivesZero)
{
    CNumberSettings settings;
    settings.digits = nullptr;
    EXPECT_EQ(ReadNumber(settings, LOCALE_IDIGITS), 0);
}

TEST(Locale, GetLocaleInfoW_OfTextOfMoreThan255Characters_GivesZero)
{
    const std::wstring tooLong(256, L'1');
    CNumberSettings settings;
    settings.digits = tooLong.c_str();
    EXPECT_EQ(ReadNumber(settings, LOCALE_IDIGITS), 0);
}

TEST(Locale, GetLocaleInfoW_OfARealLocale_IsThePlatformsNumber)
{
    EXPECT_EQ(CLocale::GetLocaleInfoW(1031, LOCALE_ILANGUAGE), 407);   // "0407"
}

TEST(Locale, GetLocaleInfoW_OfAnUnknownLocale_GivesZero)
{
    EXPECT_EQ(CLocale::GetLocaleInfoW(99999, LOCALE_IDIGITS), 0);
}

TEST(Locale, German_HasCommaAndPoint)
{
    const CLocale locale(1031);
    EXPECT_EQ(ustring(locale.DecimalPoint()), L",");
    EXPECT_EQ(ustring(locale.ThousandsSep()), L".");
}

TEST(Locale, French_HasANoBreakSpaceBetweenThousands)
{
    const CLocale locale(1036);
    EXPECT_EQ(ustring(locale.DecimalPoint()), L",");
    EXPECT_EQ(ustring(locale.ThousandsSep()), L"\u00A0");
}

TEST(Locale, Hindi_GroupsByItsFirstNumberOnly)
{
    ASSERT_EQ(PlatformText(1081, LOCALE_SGROUPING), L"3;2;0");
    EXPECT_EQ(CLocale(1081).Grouping(), 3);
}

TEST(Locale, Copy_KeepsTheTextsWhenTheSourceChanges)
{
    auto source = std::make_unique<CLocale>(MakeLocale({L"dec", L"tho", L"neg", L"1", L"3", L"2", L"1"}));
    const CLocale copy(*source);
    *source = MakeLocale({});
    source.reset();
    EXPECT_EQ(ustring(copy.DecimalPoint()), L"dec");
    EXPECT_EQ(ustring(copy.ThousandsSep()), L"tho");
    EXPECT_EQ(ustring(copy.NegativeSign()), L"neg");
}

TEST(Locale, Copy_KeepsTheNumbers)
{
    const CLocale source = MakeLocale({L".", L",", L"-", L"4", L"5", L"7", L"1"});
    const CLocale copy(source);   // NOLINT(performance-unnecessary-copy-initialization)
    EXPECT_EQ(copy.NegNumber(), 4);
    EXPECT_EQ(copy.Grouping(), 5);
    EXPECT_EQ(copy.Digits(), 7);
    EXPECT_TRUE(copy.LeadingZeros());
}

TEST(Locale, Snapshot_DoesNotFollowThePlatform)
{
    const CLocale locale = MakeLocale({L"dec", L",", L"-", L"1", L"3", L"2", L"1"});
    MakeLocale({L"new", L",", L"-", L"1", L"3", L"2", L"1"});
    EXPECT_EQ(ustring(locale.DecimalPoint()), L"dec");
}

TEST(Locale, UsersLocale_IsTheStringClasssLocale)
{
    EXPECT_EQ(ustring(ustring::m_Locale.DecimalPoint()), PlatformText(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL));
    EXPECT_EQ(ustring(ustring::m_Locale.ThousandsSep()), PlatformText(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND));
    EXPECT_EQ(ustring(ustring::m_Locale.NegativeSign()), PlatformText(LOCALE_USER_DEFAULT, LOCALE_SNEGATIVESIGN));
}

TEST(Locale, UsersLocale_IsReadyForStaticObjects)
{
    EXPECT_EQ(g_decimalPointBeforeMain, PlatformText(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL));
    EXPECT_EQ(g_groupingBeforeMain, 3);
}
