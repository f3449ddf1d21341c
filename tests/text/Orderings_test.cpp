#include "support/Print.h"

#include <vantor/Strings.h>

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

using vantor::LessStrA;
using vantor::LessStrAN;
using vantor::LessStrW;
using vantor::LessStrWN;
using vantor::ustring;

namespace
{
template <class Order, class Text>
bool Equivalent(const Text& a, const Text& b)
{
    return !Order()(a, b) && !Order()(b, a);
}
}   // namespace

TEST(Orderings, LessStrW_IgnoresCase)
{
    EXPECT_TRUE((Equivalent<LessStrW, ustring>(L"Abc", L"aBC")));
}

TEST(Orderings, LessStrW_SortsByLowerCase)
{
    EXPECT_TRUE(LessStrW()(L"a", L"B"));
    EXPECT_FALSE(LessStrW()(L"B", L"a"));
    EXPECT_TRUE(LessStrW()(L"_", L"A"));
}

TEST(Orderings, LessStrW_SortsAPrefixFirst)
{
    EXPECT_TRUE(LessStrW()(L"AB", L"abc"));
    EXPECT_FALSE(LessStrW()(L"abc", L"AB"));
}

TEST(Orderings, LessStrA_IgnoresCase)
{
    EXPECT_TRUE((Equivalent<LessStrA, std::string>("Abc", "aBC")));
}

TEST(Orderings, LessStrA_SortsByLowerCase)
{
    EXPECT_TRUE(LessStrA()("a", "B"));
    EXPECT_FALSE(LessStrA()("B", "a"));
    EXPECT_TRUE(LessStrA()("_", "A"));
}

TEST(Orderings, LessStrA_SortsAPrefixFirst)
{
    EXPECT_TRUE(LessStrA()("AB", "abc"));
    EXPECT_FALSE(LessStrA()("abc", "AB"));
}

TEST(Orderings, LessStrWN_SortsByNumber)
{
    const std::set<ustring, LessStrWN> sorted = {L"file100", L"file10", L"file2"};
    EXPECT_EQ(std::vector<ustring>(sorted.begin(), sorted.end()),
              (std::vector<ustring>{L"file2", L"file10", L"file100"}));
}

TEST(Orderings, LessStrWN_OfTheSameNumber_IsEqual)
{
    EXPECT_TRUE((Equivalent<LessStrWN, ustring>(L"x7", L"y7")));
}

TEST(Orderings, LessStrWN_InASet_KeepsTheFirstOfANumber)
{
    const std::set<ustring, LessStrWN> sorted = {L"a1", L"b1"};
    EXPECT_EQ(std::vector<ustring>(sorted.begin(), sorted.end()), std::vector<ustring>{L"a1"});
}

TEST(Orderings, LessStrWN_IgnoresWhatStandsBeforeTheNumber)
{
    EXPECT_TRUE(LessStrWN()(L"A2", L"Point10"));
    EXPECT_FALSE(LessStrWN()(L"Point10", L"A2"));
}

TEST(Orderings, LessStrWN_IgnoresWhatFollowsTheFirstNumber)
{
    EXPECT_TRUE((Equivalent<LessStrWN, ustring>(L"a5b9", L"a5b1")));
}

TEST(Orderings, LessStrWN_IgnoresAMinusSign)
{
    EXPECT_TRUE((Equivalent<LessStrWN, ustring>(L"-5", L"5")));
    EXPECT_TRUE(LessStrWN()(L"4", L"-5"));
}

TEST(Orderings, LessStrWN_WithoutDigits_IsZero)
{
    EXPECT_TRUE((Equivalent<LessStrWN, ustring>(L"abc", L"x0")));
    EXPECT_TRUE((Equivalent<LessStrWN, ustring>(L"", L"0")));
    EXPECT_TRUE(LessStrWN()(L"abc", L"1"));
}

TEST(Orderings, LessStrWN_StopsAtADecimalPoint)
{
    EXPECT_TRUE((Equivalent<LessStrWN, ustring>(L"1.9", L"1.1")));
}

TEST(Orderings, LessStrWN_LeadingZerosAreDecimal)
{
    EXPECT_TRUE((Equivalent<LessStrWN, ustring>(L"a010", L"a10")));
}

TEST(Orderings, LessStrAN_SortsByNumber)
{
    const std::set<std::string, LessStrAN> sorted = {"file100", "file10", "file2"};
    EXPECT_EQ(std::vector<std::string>(sorted.begin(), sorted.end()),
              (std::vector<std::string>{"file2", "file10", "file100"}));
}

TEST(Orderings, LessStrAN_OfTheSameNumber_IsEqual)
{
    EXPECT_TRUE((Equivalent<LessStrAN, std::string>("x7", "y7")));
}

TEST(Orderings, LessStrAN_IgnoresAMinusSign)
{
    EXPECT_TRUE((Equivalent<LessStrAN, std::string>("-5", "5")));
}

TEST(Orderings, LessStrAN_WithoutDigits_IsZero)
{
    EXPECT_TRUE((Equivalent<LessStrAN, std::string>("abc", "x0")));
    EXPECT_TRUE(LessStrAN()("", "1"));
}

TEST(Orderings, LessStrAN_IgnoresWhatFollowsTheFirstNumber)
{
    EXPECT_TRUE((Equivalent<LessStrAN, std::string>("a5b9", "a5b1")));
}

TEST(Orderings, LessStrAN_PassesOverBytesAbove127)
{
    EXPECT_TRUE((Equivalent<LessStrAN, std::string>("\xE4\xFF"
                                                    "7",
                                                    "7")));
}

TEST(Orderings, LeaveTheirOperands)
{
    const ustring wide = L"a1";
    const std::string narrow = "a1";
    EXPECT_TRUE((Equivalent<LessStrWN>(wide, wide)));
    EXPECT_TRUE((Equivalent<LessStrAN>(narrow, narrow)));
    EXPECT_EQ(wide, L"a1");
    EXPECT_EQ(narrow, "a1");
}
