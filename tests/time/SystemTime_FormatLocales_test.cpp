// Every code in four languages against the platform's own answers, and in American English against the C runtime's.

#include "Fields.h"
#include "support/Print.h"

#include <vantor/SystemTime.h>

#include <gtest/gtest.h>

#include <ctime>
#include <cwchar>
#include <functional>
#include <random>
#include <string>
#include <vector>

using namespace vantor;
using fields::SystemTime;
using fields::Text;

namespace
{
constexpr LCID American = 1033;
constexpr LCID German = 1031;
constexpr LCID French = 1036;
constexpr LCID Japanese = 1041;

std::wstring Date(LCID locale, DWORD flags, const SYSTEMTIME& time, const wchar_t* picture)
{
    wchar_t text[200];
    EXPECT_NE(0, ::GetDateFormatW(locale, flags, &time, picture, text, 200));
    return text;
}

std::wstring Time(LCID locale, const SYSTEMTIME& time, const wchar_t* picture)
{
    wchar_t text[200];
    EXPECT_NE(0, ::GetTimeFormatW(locale, 0, &time, picture, text, 200));
    return text;
}

// Each month, day of the week and hour, and numbers of one digit and of two.
std::vector<SYSTEMTIME> Moments()
{
    std::vector<SYSTEMTIME> result;
    for (WORD i = 0; i < 84; ++i)
    {
        const SYSTEMTIME time = {static_cast<WORD>(2001 + i % 19),
                                 static_cast<WORD>(1 + i % 12),
                                 0,
                                 static_cast<WORD>(1 + i % 28),
                                 static_cast<WORD>(i % 24),
                                 static_cast<WORD>(i % 60),
                                 static_cast<WORD>(i * 7 % 60),
                                 i};
        result.push_back(SystemTime(fields::Ticks(time)));
    }
    return result;
}

class SystemTimeLocales : public ::testing::TestWithParam<LCID>
{
protected:
    using Expected = std::function<std::wstring(const SYSTEMTIME&)>;

    void Expect(const wchar_t* format, const Expected& expected)
    {
        for (const SYSTEMTIME& time : Moments())
            EXPECT_EQ(ustring(expected(time)), CSystemTime(time).Format(GetParam(), format)) << Text(time);
    }

    void ExpectDate(const wchar_t* format, const wchar_t* picture)
    {
        Expect(format, [=](const SYSTEMTIME& time) { return Date(GetParam(), 0, time, picture); });
    }

    void ExpectTime(const wchar_t* format, const wchar_t* picture)
    {
        Expect(format, [=](const SYSTEMTIME& time) { return Time(GetParam(), time, picture); });
    }
};

INSTANTIATE_TEST_SUITE_P(Languages, SystemTimeLocales, ::testing::Values(American, German, French, Japanese));
}   // namespace

TEST_P(SystemTimeLocales, a)
{
    ExpectDate(L"%a", L"ddd");
    ExpectDate(L"%#a", L"ddd");
}

TEST_P(SystemTimeLocales, A)
{
    ExpectDate(L"%A", L"dddd");
    ExpectDate(L"%#A", L"dddd");
}

TEST_P(SystemTimeLocales, b)
{
    ExpectDate(L"%b", L"MMM");
    ExpectDate(L"%#b", L"MMM");
}

TEST_P(SystemTimeLocales, B)
{
    ExpectDate(L"%B", L"MMMM");
    ExpectDate(L"%#B", L"MMMM");
}

TEST_P(SystemTimeLocales, c)
{
    Expect(L"%c", [](const SYSTEMTIME& time)
           { return Date(GetParam(), DATE_SHORTDATE, time, nullptr) + L" " + Time(GetParam(), time, nullptr); });
}

TEST_P(SystemTimeLocales, AlternateC)
{
    Expect(L"%#c", [](const SYSTEMTIME& time)
           { return Date(GetParam(), DATE_LONGDATE, time, nullptr) + L" " + Time(GetParam(), time, nullptr); });
}

TEST_P(SystemTimeLocales, d)
{
    ExpectDate(L"%d", L"dd");
    ExpectDate(L"%#d", L"d");
}

TEST_P(SystemTimeLocales, H)
{
    ExpectTime(L"%H", L"HH");
    ExpectTime(L"%#H", L"H");
}

TEST_P(SystemTimeLocales, I)
{
    ExpectTime(L"%I", L"hh");
    ExpectTime(L"%#I", L"h");
}

TEST_P(SystemTimeLocales, m)
{
    ExpectDate(L"%m", L"MM");
    ExpectDate(L"%#m", L"M");
}

TEST_P(SystemTimeLocales, M)
{
    ExpectTime(L"%M", L"mm");
    ExpectTime(L"%#M", L"m");
}

TEST_P(SystemTimeLocales, p)
{
    ExpectTime(L"%p", L"tt");
    ExpectTime(L"%#p", L"tt");
}

TEST_P(SystemTimeLocales, S)
{
    ExpectTime(L"%S", L"ss");
    ExpectTime(L"%#S", L"s");
}

TEST_P(SystemTimeLocales, x)
{
    Expect(L"%x", [](const SYSTEMTIME& time) { return Date(GetParam(), DATE_SHORTDATE, time, nullptr); });
}

TEST_P(SystemTimeLocales, AlternateX)
{
    Expect(L"%#x", [](const SYSTEMTIME& time) { return Date(GetParam(), DATE_LONGDATE, time, nullptr); });
}

TEST_P(SystemTimeLocales, X)
{
    ExpectTime(L"%X", nullptr);
    ExpectTime(L"%#X", nullptr);
}

TEST_P(SystemTimeLocales, y)
{
    ExpectDate(L"%y", L"yy");
    ExpectDate(L"%#y", L"y");
}

TEST_P(SystemTimeLocales, Y)
{
    ExpectDate(L"%Y", L"yyyy");
    ExpectDate(L"%#Y", L"yyyy");
}

TEST_P(SystemTimeLocales, NumbersThatAreNotThePlatforms_AreTheSameInEveryLanguage)
{
    const CSystemTime time(2013, 3, 5, 14, 7, 9, 250);

    EXPECT_EQ(ustring(L"064 64 09 9 09 9 2 %"), time.Format(GetParam(), L"%j %#j %U %#U %W %#W %w %%"));
}

TEST(SystemTimeRuntime, CodesOfBothMeanTheSame)
{
    // The runtime's other codes have forms of their own.
    const wchar_t* const codes =
        L"%a %A %b %B %d %H %I %j %m %M %p %S %U %w %W %y %Y %% %#d %#H %#I %#j %#m %#M %#S %#U %#W";
    std::mt19937_64 random(7);
    for (int i = 0; i < 3000; ++i)
    {
        // Up to the end of the year 3000, where the runtime's calendar ends.
        const auto seconds = static_cast<long long>(random() % 32535216000);
        const __time64_t moment = seconds;
        const tm* const parts = ::_gmtime64(&moment);
        ASSERT_NE(nullptr, parts);
        wchar_t expected[400];
        ASSERT_NE(0u, std::wcsftime(expected, 400, codes, parts));

        ASSERT_EQ(ustring(expected), CSystemTime(seconds).Format(American, codes)) << seconds;
    }
}
