// The language's rules: decimal points, dates, words for truth.

#include "Values.h"

#include <vantor/Variant.h>

#include <gtest/gtest.h>

using namespace variants;
using vantor::VariantChangeType;

namespace
{
constexpr LCID German = 1031;
constexpr LCID French = 1036;

constexpr LCID Languages[] = {UsEnglish, German, French};

void ExpectNumber(double expected, LCID lcid, const wchar_t* text)
{
    CVariant v = String(text);
    ASSERT_TRUE(VariantChangeType(lcid, VT_R8, v, 0)) << Describe(v) << " in " << lcid;
    EXPECT_EQ(VT_R8, v.vt);
    EXPECT_EQ(expected, v.dblVal) << lcid;
}

void ExpectText(const wchar_t* expected, LCID lcid, CVariant v)
{
    ASSERT_TRUE(VariantChangeType(lcid, VT_BSTR, v, 0)) << Describe(v) << " in " << lcid;
    EXPECT_TRUE(TextOf(v) == expected) << Describe(v) << " in " << lcid;
}
}   // namespace

TEST(VariantLocales, EnglishReadsAPoint)
{
    ExpectNumber(1.5, UsEnglish, L"1.5");
}

TEST(VariantLocales, EnglishSkipsAComma)
{
    ExpectNumber(15, UsEnglish, L"1,5");
}

TEST(VariantLocales, GermanReadsAComma)
{
    ExpectNumber(1.5, German, L"1,5");
}

TEST(VariantLocales, GermanSkipsAPoint)
{
    ExpectNumber(15, German, L"1.5");
}

TEST(VariantLocales, FrenchReadsAComma)
{
    ExpectNumber(1.5, French, L"1,5");
}

TEST(VariantLocales, FrenchHasNoUseForAPoint)
{
    CVariant v = String(L"1.5");
    EXPECT_FALSE(VariantChangeType(French, VT_R8, v, 0));
    EXPECT_TRUE(TextOf(v) == L"1.5") << Describe(v);
}

TEST(VariantLocales, NumbersAreWrittenByTheLanguage)
{
    ExpectText(L"1.5", UsEnglish, R8(1.5));
    ExpectText(L"1,5", German, R8(1.5));
    ExpectText(L"1,5", French, R8(1.5));
}

TEST(VariantLocales, DatesAreReadByTheLanguage)
{
    constexpr double fifthOfMarch2013 = 41338;
    CVariant english = String(L"3/5/2013");
    ASSERT_TRUE(VariantChangeType(UsEnglish, VT_DATE, english, 0));
    EXPECT_EQ(fifthOfMarch2013, english.date);
    CVariant german = String(L"5.3.2013");
    ASSERT_TRUE(VariantChangeType(German, VT_DATE, german, 0));
    EXPECT_EQ(fifthOfMarch2013, german.date);
    CVariant french = String(L"5/3/2013");
    ASSERT_TRUE(VariantChangeType(French, VT_DATE, french, 0));
    EXPECT_EQ(fifthOfMarch2013, french.date);
}

TEST(VariantLocales, TruthIsAWordInEveryLanguage)
{
    for (const LCID lcid : Languages)
    {
        ExpectText(L"True", lcid, Bool(VARIANT_TRUE));
        ExpectText(L"False", lcid, Bool(VARIANT_FALSE));
    }
}

TEST(VariantLocales, TrueIsTheNumberOneInEveryLanguage)
{
    for (const LCID lcid : Languages)
    {
        CVariant v = Bool(VARIANT_TRUE);
        ASSERT_TRUE(VariantChangeType(lcid, VT_R8, v, 0)) << lcid;
        EXPECT_EQ(1.0, v.dblVal) << lcid;
    }
}

TEST(VariantLocales, ARadixIsTheSameInEveryLanguage)
{
    for (const LCID lcid : Languages)
    {
        CVariant v = String(L"1FFh");
        ASSERT_TRUE(VariantChangeType(lcid, VT_I4, v, 16)) << lcid;
        EXPECT_EQ(511, v.lVal) << lcid;
        ASSERT_TRUE(VariantChangeType(lcid, VT_BSTR, v, 16)) << lcid;
        EXPECT_TRUE(TextOf(v) == L"1FF") << Describe(v);
    }
}

TEST(VariantLocales, ComparisonsReadUsEnglish)
{
    EXPECT_EQ(0, vantor::VariantCompare(R8(1.5), String(L"1.5")));
    EXPECT_EQ(-1, vantor::VariantCompare(R8(1.5), String(L"1,5")));
}
