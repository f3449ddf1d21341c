// Formats of a span.

#include "support/Print.h"

#include <vantor/SystemTime.h>

#include <gtest/gtest.h>

#include <climits>

using namespace vantor;

namespace
{
// 3 days, 4 h 05 min 06.007 s
const CSystemTimeSpan Positive(3, 4, 5, 6, 7, false);
const CSystemTimeSpan Negative(3, 4, 5, 6, 7, true);
}   // namespace

TEST(SystemTimeSpanFormat, EmptyFormat)
{
    EXPECT_EQ(L"", Positive.Format(L""));
}

TEST(SystemTimeSpanFormat, NullFormat)
{
    EXPECT_EQ(L"", Positive.Format(nullptr));
}

TEST(SystemTimeSpanFormat, SignMinutesSecondsMilliseconds)
{
    EXPECT_EQ(L"-01:01.001", CSystemTimeSpan(-61001).Format(L"%s%M:%S.%m"));
}

TEST(SystemTimeSpanFormat, D_IsTheDays)
{
    EXPECT_EQ(L"3 3", Positive.Format(L"%D %#D"));
    EXPECT_EQ(L"0 0", CSystemTimeSpan(0).Format(L"%D %#D"));
}

TEST(SystemTimeSpanFormat, D_WrapsAsTheDaysDo)
{
    EXPECT_EQ(L"65535", CSystemTimeSpan(65535 * 86400000LL).Format(L"%D"));
    EXPECT_EQ(L"0", CSystemTimeSpan(65536 * 86400000LL).Format(L"%D"));
}

TEST(SystemTimeSpanFormat, H_IsTheHours)
{
    EXPECT_EQ(L"04 4", Positive.Format(L"%H %#H"));
    EXPECT_EQ(L"23 23", CSystemTimeSpan(0, 23, 0, 0, 0, false).Format(L"%H %#H"));
}

TEST(SystemTimeSpanFormat, M_IsTheMinutes)
{
    EXPECT_EQ(L"05 5", Positive.Format(L"%M %#M"));
    EXPECT_EQ(L"59 59", CSystemTimeSpan(0, 0, 59, 0, 0, false).Format(L"%M %#M"));
}

TEST(SystemTimeSpanFormat, S_IsTheSeconds)
{
    EXPECT_EQ(L"06 6", Positive.Format(L"%S %#S"));
    EXPECT_EQ(L"59 59", CSystemTimeSpan(59999).Format(L"%S %#S"));
}

TEST(SystemTimeSpanFormat, m_IsTheMilliseconds)
{
    EXPECT_EQ(L"007 7", Positive.Format(L"%m %#m"));
    EXPECT_EQ(L"999 999", CSystemTimeSpan(999).Format(L"%m %#m"));
}

TEST(SystemTimeSpanFormat, s_OfANegativeSpan)
{
    EXPECT_EQ(L"[-]", Negative.Format(L"[%s]"));
}

TEST(SystemTimeSpanFormat, s_OfAPositiveSpan)
{
    EXPECT_EQ(L"[]", Positive.Format(L"[%s]"));
}

TEST(SystemTimeSpanFormat, s_OfZero)
{
    EXPECT_EQ(L"[][+]", CSystemTimeSpan(0).Format(L"[%s][%#s]"));
}

TEST(SystemTimeSpanFormat, Alternate_s_OfANegativeSpan)
{
    EXPECT_EQ(L"[-]", Negative.Format(L"[%#s]"));
}

TEST(SystemTimeSpanFormat, Alternate_s_OfAPositiveSpan)
{
    EXPECT_EQ(L"[+]", Positive.Format(L"[%#s]"));
}

TEST(SystemTimeSpanFormat, WithoutASignCode_NegativeLooksLikePositive)
{
    EXPECT_EQ(Positive.Format(L"%D %H:%M:%S.%m"), Negative.Format(L"%D %H:%M:%S.%m"));
    EXPECT_EQ(L"3 04:05:06.007", Negative.Format(L"%D %H:%M:%S.%m"));
}

TEST(SystemTimeSpanFormat, OfTheLowestCount)
{
    EXPECT_EQ(L"-07:12:55.808", CSystemTimeSpan(LLONG_MIN).Format(L"%s%H:%M:%S.%m"));
}

TEST(SystemTimeSpanFormat, TwoPercents_AreOne)
{
    EXPECT_EQ(L"% %", Positive.Format(L"%% %#%"));
}

TEST(SystemTimeSpanFormat, TrailingPercent_IsDropped)
{
    EXPECT_EQ(L"04", Positive.Format(L"%H%"));
}

TEST(SystemTimeSpanFormat, TrailingAlternateFlag_IsDropped)
{
    EXPECT_EQ(L"04", Positive.Format(L"%H%#"));
}

TEST(SystemTimeSpanFormat, TwoFlags_AreAFlagAndAnUnknownCode)
{
    EXPECT_EQ(L"H", Positive.Format(L"%##H"));
}

TEST(SystemTimeSpanFormat, EveryOtherCharacter_GivesNothing)
{
    const std::wstring codes = L"DHMSms%#";
    for (wchar_t code = 1; code < 0x180; ++code)
    {
        if (codes.find(code) != std::wstring::npos)
            continue;
        const wchar_t format[] = {L'[', L'%', code, L']', 0};
        const wchar_t alternate[] = {L'[', L'%', L'#', code, L']', 0};
        EXPECT_EQ(L"[]", Positive.Format(format)) << static_cast<unsigned>(code);
        EXPECT_EQ(L"[]", Positive.Format(alternate)) << static_cast<unsigned>(code);
    }
}

TEST(SystemTimeSpanFormat, TextBetweenCodes_IsCopied)
{
    EXPECT_EQ(L"H \u00E4 # 04h05m", Positive.Format(L"H \u00E4 # %Hh%Mm"));
}
