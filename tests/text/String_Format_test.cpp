#include "support/Print.h"

#include <vantor/Strings.h>

#include <gtest/gtest.h>

#include <cstdarg>
#include <string>

using vantor::ustring;

namespace
{
ustring Formatted(const wchar_t* format, ...)
{
    std::va_list args;
    va_start(args, format);
    ustring text = L"old";
    text.vsprintf(format, args);
    va_end(args);
    return text;
}

class StringFormatLength : public testing::TestWithParam<std::size_t>
{
};
}   // namespace

TEST(StringFormat, Sprintf_FormatsItsArguments)
{
    ustring text;
    text.sprintf(L"%s is %d of %04X", L"this", 7, 0xABu);
    EXPECT_EQ(text, L"this is 7 of 00AB");
}

TEST(StringFormat, Vsprintf_FormatsTheListsArguments)
{
    EXPECT_EQ(Formatted(L"%d-%s-%c", -5, L"x", L'y'), L"-5-x-y");
}

TEST(StringFormat, NarrowText_IsPercentCapitalS)
{
    EXPECT_EQ(Formatted(L"%S", "abc"), L"abc");
}

TEST(StringFormat, WideInteger_IsTakenWhole)
{
    EXPECT_EQ(Formatted(L"%I64u|%d", 12345678901234567890ull, 1), L"12345678901234567890|1");
}

TEST(StringFormat, PreviousContent_IsDiscarded)
{
    ustring text(std::wstring(3000, L'o').c_str());
    text.sprintf(L"%s", L"new");
    EXPECT_EQ(text, L"new");
}

TEST(StringFormat, EmptyResult_EmptiesTheString)
{
    EXPECT_EQ(Formatted(L"%s", L""), L"");
}

TEST(StringFormat, NullFormat_EmptiesTheString)
{
    EXPECT_EQ(Formatted(nullptr), L"");
}

TEST(StringFormat, PercentSigns_AreWritten)
{
    EXPECT_EQ(Formatted(L"100%%"), L"100%");
}

TEST(StringFormat, NulCharacter_IsPartOfTheResult)
{
    EXPECT_EQ(Formatted(L"a%cb", 0), ustring(std::wstring(L"a\0b", 3)));
}

TEST_P(StringFormatLength, Text_IsNeverCut)
{
    const std::wstring whole(GetParam(), L'x');
    EXPECT_EQ(Formatted(L"%s", whole.c_str()), whole);
}

// The first room is 1024 characters; it is doubled.
INSTANTIATE_TEST_SUITE_P(Sizes, StringFormatLength, testing::Values(1022, 1023, 1024, 1025, 2047, 2048, 2049, 5000));

TEST(StringFormat, MillionCharacters_AreNotCut)
{
    const std::wstring whole(1000000, L'x');
    EXPECT_EQ(Formatted(L"%s", whole.c_str()).size(), 1000000u);
}

TEST(StringFormat, EachAttempt_TakesAllArgumentsFromTheFirstOn)
{
    const std::wstring first(1500, L'a');
    const std::wstring second(3000, L'b');
    EXPECT_EQ(Formatted(L"%d %s %d %s %I64d %c", 1, first.c_str(), 2, second.c_str(), -3ll, L'z'),
              L"1 " + ustring(first) + L" 2 " + second + L" -3 z");
}

TEST(StringFormat, ArgumentInTheStringItself_IsReadBeforeItGoes)
{
    ustring text = L"abc";
    text.sprintf(L"<%s|%s>", text.c_str(), text.c_str() + 1);
    EXPECT_EQ(text, L"<abc|bc>");
}

TEST(StringFormat, LongArgumentInTheStringItself_IsReadBeforeItGoes)
{
    const std::wstring old(1500, L'o');
    ustring text = old;
    text.sprintf(L"<%s|%s>", text.c_str(), text.c_str());
    EXPECT_EQ(text, L"<" + ustring(old) + L"|" + old + L">");
}

TEST(StringFormat, FormatInTheStringItself_IsReadBeforeItGoes)
{
    ustring text = L"%d of %d";
    text.sprintf(text.c_str(), 1, 2);
    EXPECT_EQ(text, L"1 of 2");
}
