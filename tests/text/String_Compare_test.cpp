// The six comparison operators, with the string, a plain text or a standard string on the other side, and a plain text
// on the left.

#include "support/Print.h"

#include <vantor/Strings.h>

#include <gtest/gtest.h>

#include <array>
#include <string>

using vantor::ustring;

namespace
{
using Results = std::array<bool, 6>;   // == != < > <= >=

template <class Left, class Right>
Results Compare(const Left& a, const Right& b)
{
    return {a == b, a != b, a<b, a> b, a <= b, a >= b};
}

constexpr Results Less = {false, true, true, false, true, false};
constexpr Results Equal = {true, false, false, false, true, true};
constexpr Results Greater = {false, true, false, true, false, true};

const wchar_t* const Null = nullptr;
}   // namespace

TEST(StringCompare, StringWithString)
{
    EXPECT_EQ(Compare(ustring(L"abc"), ustring(L"abd")), Less);
    EXPECT_EQ(Compare(ustring(L"abc"), ustring(L"abc")), Equal);
    EXPECT_EQ(Compare(ustring(L"abd"), ustring(L"abc")), Greater);
}

TEST(StringCompare, StringWithText)
{
    EXPECT_EQ(Compare(ustring(L"abc"), L"abd"), Less);
    EXPECT_EQ(Compare(ustring(L"abc"), L"abc"), Equal);
    EXPECT_EQ(Compare(ustring(L"abd"), L"abc"), Greater);
}

TEST(StringCompare, TextWithString)
{
    EXPECT_EQ(Compare(L"abc", ustring(L"abd")), Less);
    EXPECT_EQ(Compare(L"abc", ustring(L"abc")), Equal);
    EXPECT_EQ(Compare(L"abd", ustring(L"abc")), Greater);
}

TEST(StringCompare, StringWithStandardString)
{
    EXPECT_EQ(Compare(ustring(L"abc"), std::wstring(L"abd")), Less);
    EXPECT_EQ(Compare(ustring(L"abc"), std::wstring(L"abc")), Equal);
    EXPECT_EQ(Compare(ustring(L"abd"), std::wstring(L"abc")), Greater);
}

TEST(StringCompare, StandardStringWithString)
{
    EXPECT_EQ(Compare(std::wstring(L"abc"), ustring(L"abd")), Less);
    EXPECT_EQ(Compare(std::wstring(L"abc"), ustring(L"abc")), Equal);
    EXPECT_EQ(Compare(std::wstring(L"abd"), ustring(L"abc")), Greater);
}

TEST(StringCompare, Prefix_SortsBeforeTheLongerString)
{
    EXPECT_EQ(Compare(ustring(L"ab"), ustring(L"abc")), Less);
    EXPECT_EQ(Compare(ustring(L"ab"), L"abc"), Less);
    EXPECT_EQ(Compare(L"ab", ustring(L"abc")), Less);
}

TEST(StringCompare, LongerString_SortsBehindItsPrefix)
{
    EXPECT_EQ(Compare(ustring(L"abcdef"), L"abc"), Greater);
    EXPECT_EQ(Compare(L"abcdef", ustring(L"abc")), Greater);
}

TEST(StringCompare, Empty_SortsFirst)
{
    EXPECT_EQ(Compare(ustring(), ustring(L"a")), Less);
    EXPECT_EQ(Compare(ustring(), L""), Equal);
}

TEST(StringCompare, CodeUnits_DecideAndNotLetters)
{
    EXPECT_EQ(Compare(ustring(L"Z"), ustring(L"a")), Less);
    EXPECT_EQ(Compare(ustring(L"\u00E4"), L"z"), Greater);
    EXPECT_EQ(Compare(ustring(L"\xD800"), L"\uFFFD"), Less);
}

TEST(StringCompare, UnitsAboveHalfTheRange_AreNotNegative)
{
    EXPECT_EQ(Compare(ustring(L"\xFFFF"), L"\x0001"), Greater);
}

TEST(StringCompare, NulInside_CountsBetweenStrings)
{
    const ustring withNul = std::wstring(L"a\0b", 3);
    EXPECT_EQ(Compare(withNul, ustring(L"a")), Greater);
    EXPECT_EQ(Compare(withNul, L"a"), Greater);
}

TEST(StringCompare, NullOnTheRight_IsTheEmptyText)
{
    EXPECT_EQ(Compare(ustring(L"a"), Null), Greater);
    EXPECT_EQ(Compare(ustring(), Null), Equal);
}

TEST(StringCompare, NullOnTheLeft_IsTheEmptyText)
{
    EXPECT_EQ(Compare(Null, ustring(L"a")), Less);
    EXPECT_EQ(Compare(Null, ustring()), Equal);
}
