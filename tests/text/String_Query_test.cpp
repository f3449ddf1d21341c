#include "LocaleScope.h"
#include "support/Print.h"

#include <vantor/Strings.h>

#include <gtest/gtest.h>

using vantor::ustring;

namespace
{
bool IsNumber(const wchar_t* text, const wchar_t* separator)
{
    CNumberSettings settings;
    settings.thousandsSep = separator;
    const CLocaleScope scope(settings);
    return ustring(text).isnumber();
}
}   // namespace

TEST(StringSubstr, BetweenDelimiters_IsWithoutBoth)
{
    EXPECT_EQ(ustring(L"key=[value];").substr(L"[", L"]", false, true), L"value");
}

TEST(StringSubstr, KeepFrom_BeginsWithTheOpeningDelimiter)
{
    EXPECT_EQ(ustring(L"key=[value];").substr(L"[", L"]", true, true), L"[value");
}

TEST(StringSubstr, WithoutTo_GoesToTheEnd)
{
    EXPECT_EQ(ustring(L"key=[value];").substr(L"[", L"#", false, false), L"value];");
}

TEST(StringSubstr, WithoutNeededTo_IsEmpty)
{
    EXPECT_EQ(ustring(L"key=[value];").substr(L"[", L"#", false, true), L"");
}

TEST(StringSubstr, WithoutFrom_IsEmpty)
{
    EXPECT_EQ(ustring(L"key=[value];").substr(L"#", L"]", false, false), L"");
}

TEST(StringSubstr, NullFrom_MeansTheStart)
{
    EXPECT_EQ(ustring(L"key=[value];").substr(nullptr, L"=", false, true), L"key");
}

TEST(StringSubstr, NullFromWithKeepFrom_MeansTheStartToo)
{
    EXPECT_EQ(ustring(L"key=[value];").substr(nullptr, L"=", true, true), L"key");
}

TEST(StringSubstr, NullTo_MeansTheEnd)
{
    EXPECT_EQ(ustring(L"key=[value];").substr(L"=", nullptr, false, true), L"[value];");
}

TEST(StringSubstr, NullFromAndTo_CopyTheWholeString)
{
    EXPECT_EQ(ustring(L"key=[value];").substr(nullptr, nullptr, false, false), L"key=[value];");
}

TEST(StringSubstr, ToBeforeFrom_DoesNotCount)
{
    EXPECT_EQ(ustring(L"]a[b]c").substr(L"[", L"]", false, true), L"b");
}

TEST(StringSubstr, ToThatOverlapsFrom_DoesNotCount)
{
    EXPECT_EQ(ustring(L"aaab").substr(L"aa", L"ab", false, true), L"");
}

TEST(StringSubstr, SameDelimiters_GiveTheTextBetweenTheFirstTwo)
{
    EXPECT_EQ(ustring(L"a'b'c'd").substr(L"'", L"'", false, true), L"b");
}

TEST(StringSubstr, AdjacentDelimiters_GiveTheEmptyString)
{
    EXPECT_EQ(ustring(L"a[]b").substr(L"[", L"]", false, true), L"");
}

TEST(StringSubstr, AdjacentDelimitersWithKeepFrom_GiveTheOpeningOne)
{
    EXPECT_EQ(ustring(L"a[]b").substr(L"[", L"]", true, true), L"[");
}

TEST(StringSubstr, LongDelimiters_AreDroppedWhole)
{
    EXPECT_EQ(ustring(L"x<!--note-->y").substr(L"<!--", L"-->", false, true), L"note");
}

TEST(StringSubstr, EmptyString_GivesTheEmptyString)
{
    EXPECT_EQ(ustring().substr(nullptr, nullptr, true, false), L"");
}

TEST(StringSubstr, FromAtTheEnd_GivesTheEmptyString)
{
    EXPECT_EQ(ustring(L"key=").substr(L"=", nullptr, false, false), L"");
}

TEST(StringSubstr, LeavesTheString)
{
    const ustring text = L"key=[value];";
    const ustring part = text.substr(L"[", L"]", false, true);
    EXPECT_EQ(text, L"key=[value];");
}

TEST(StringIsNumber, Digits_AreANumber)
{
    EXPECT_TRUE(IsNumber(L"007", L","));
}

TEST(StringIsNumber, EmptyString_IsNone)
{
    EXPECT_FALSE(IsNumber(L"", L","));
}

TEST(StringIsNumber, GroupedDigits_AreANumber)
{
    EXPECT_TRUE(IsNumber(L"1,234", L","));
}

TEST(StringIsNumber, DoubledSeparator_IsAccepted)
{
    EXPECT_TRUE(IsNumber(L"12,,3", L","));
}

TEST(StringIsNumber, LeadingSeparator_IsAccepted)
{
    EXPECT_TRUE(IsNumber(L",5", L","));
}

TEST(StringIsNumber, SeparatorAlone_IsAccepted)
{
    EXPECT_TRUE(IsNumber(L",", L","));
}

TEST(StringIsNumber, MinusSign_IsNotAccepted)
{
    EXPECT_FALSE(IsNumber(L"-1", L","));
}

TEST(StringIsNumber, PlusSign_IsNotAccepted)
{
    EXPECT_FALSE(IsNumber(L"+1", L","));
}

TEST(StringIsNumber, Space_IsNotAccepted)
{
    EXPECT_FALSE(IsNumber(L" 1", L","));
}

TEST(StringIsNumber, DecimalPoint_IsNotAccepted)
{
    EXPECT_FALSE(IsNumber(L"1.5", L","));
}

TEST(StringIsNumber, PointThatSeparatesThousands_IsAccepted)
{
    EXPECT_TRUE(IsNumber(L"1.5", L"."));
}

TEST(StringIsNumber, Letter_IsNotAccepted)
{
    EXPECT_FALSE(IsNumber(L"12a", L","));
}

TEST(StringIsNumber, LongSeparator_IsAcceptedWhole)
{
    EXPECT_TRUE(IsNumber(L"1::234", L"::"));
}

TEST(StringIsNumber, PartOfALongSeparator_IsNotAccepted)
{
    EXPECT_FALSE(IsNumber(L"1:234", L"::"));
}

TEST(StringIsNumber, PartOfALongSeparatorAtTheEnd_IsNotAccepted)
{
    EXPECT_FALSE(IsNumber(L"1:", L"::"));
}

TEST(StringIsNumber, EmptySeparator_LeavesDigitsOnly)
{
    EXPECT_TRUE(IsNumber(L"1234", L""));
    EXPECT_FALSE(IsNumber(L"1,234", L""));
}
