// The calls that formats are made of: what they ask the platform, how they fail, and what formats make of it.

#include "Fields.h"
#include "support/Failure.h"
#include "support/ImportPatch.h"
#include "support/Print.h"

#include <vantor/SystemTime.h>

#include <gtest/gtest.h>

#include <vector>

using namespace vantor;
using fields::Text;
using support::CImportPatch;

namespace
{
constexpr DWORD Injected = 0xDEADBEEF;
constexpr LCID American = 1033;
constexpr LCID NoSuchLocale = 99999;

const CSystemTime Null;
const CSystemTime Tuesday(SYSTEMTIME{2013, 3, 2, 5, 14, 7, 9, 250});
const CSystemTime NotInTheCalendar(SYSTEMTIME{2013, 2, 0, 30, 14, 7, 9, 250});
const CSystemTime NoTimeOfDay(SYSTEMTIME{2013, 3, 2, 5, 25, 7, 9, 250});

struct CCall
{
    LCID locale;
    DWORD flags;
    const SYSTEMTIME* time;
    const wchar_t* picture;
    bool hasBuffer;
    int room;
};

std::vector<CCall> g_calls;
int g_lengthAnswer;
int g_textAnswer;

// Answers the query and the call with a buffer as told; what is told 0 or less fails.
int WINAPI Answer(LCID locale, DWORD flags, const SYSTEMTIME* time, const wchar_t* picture, wchar_t* buffer, int room)
{
    g_calls.push_back({locale, flags, time, picture, buffer != nullptr, room});
    const int answer = room == 0 ? g_lengthAnswer : g_textAnswer;
    if (answer < 1)
        ::SetLastError(Injected);
    else if (buffer)
        ::lstrcpynW(buffer, L"abcdefghijklmnopqrstuvwxyz", room);
    return answer;
}

DWORD WINAPI FailingGetTimeZoneInformation(TIME_ZONE_INFORMATION*)
{
    ::SetLastError(Injected);
    return 0xFFFFFFFF;
}

class SystemTimeFormatCalls : public ::testing::Test
{
protected:
    static void Tell(int lengthAnswer, int textAnswer)
    {
        g_calls.clear();
        g_lengthAnswer = lengthAnswer;
        g_textAnswer = textAnswer;
    }

    static void ExpectTwoCalls(LCID locale, DWORD flags, const wchar_t* picture, int length)
    {
        ASSERT_EQ(2u, g_calls.size());
        for (const CCall& call : g_calls)
        {
            EXPECT_EQ(locale, call.locale);
            EXPECT_EQ(flags, call.flags);
            EXPECT_EQ(&Tuesday, call.time);
            EXPECT_EQ(picture, call.picture);
        }
        EXPECT_FALSE(g_calls[0].hasBuffer);
        EXPECT_EQ(0, g_calls[0].room);
        EXPECT_TRUE(g_calls[1].hasBuffer);
        EXPECT_EQ(length, g_calls[1].room);
    }
};
}   // namespace

TEST_F(SystemTimeFormatCalls, GetTimeFormat_AsksForTheLengthAndThenForTheText)
{
    const CImportPatch patch(&::GetTimeFormatW, &Answer);
    const wchar_t* const picture = L"picture";
    Tell(6, 6);

    EXPECT_EQ(L"abcde", Tuesday.GetTimeFormatW(American, TIME_NOSECONDS, picture));
    ExpectTwoCalls(American, TIME_NOSECONDS, picture, 6);
}

TEST_F(SystemTimeFormatCalls, GetDateFormat_AsksForTheLengthAndThenForTheText)
{
    const CImportPatch patch(&::GetDateFormatW, &Answer);
    const wchar_t* const picture = L"picture";
    Tell(6, 6);

    EXPECT_EQ(L"abcde", Tuesday.GetDateFormatW(American, DATE_LONGDATE, picture));
    ExpectTwoCalls(American, DATE_LONGDATE, picture, 6);
}

TEST_F(SystemTimeFormatCalls, GetTimeFormat_WithoutAPicture)
{
    EXPECT_EQ(L"2:07:09 PM", Tuesday.GetTimeFormatW(American, 0, nullptr));
}

TEST_F(SystemTimeFormatCalls, GetTimeFormat_WithFlags)
{
    EXPECT_EQ(L"2:07 PM", Tuesday.GetTimeFormatW(American, TIME_NOSECONDS, nullptr));
}

TEST_F(SystemTimeFormatCalls, GetTimeFormat_WithAPicture)
{
    EXPECT_EQ(L"at 14.07", Tuesday.GetTimeFormatW(American, 0, L"'at' HH.mm"));
}

TEST_F(SystemTimeFormatCalls, GetTimeFormat_WithAnEmptyResult)
{
    EXPECT_EQ(L"", Tuesday.GetTimeFormatW(American, 0, L"''"));
}

TEST_F(SystemTimeFormatCalls, GetTimeFormat_OfALongText)
{
    const std::wstring picture = L"'" + std::wstring(200, L'x') + L"'";

    EXPECT_TRUE(Tuesday.GetTimeFormatW(American, 0, picture.c_str()) == std::wstring(200, L'x'));
}

TEST_F(SystemTimeFormatCalls, GetDateFormat_WithoutAPicture)
{
    EXPECT_EQ(L"3/5/2013", Tuesday.GetDateFormatW(American, 0, nullptr));
}

TEST_F(SystemTimeFormatCalls, GetDateFormat_WithFlags)
{
    EXPECT_EQ(L"Tuesday, March 5, 2013", Tuesday.GetDateFormatW(American, DATE_LONGDATE, nullptr));
}

TEST_F(SystemTimeFormatCalls, GetDateFormat_WithAPicture)
{
    EXPECT_EQ(L"on 5 March", Tuesday.GetDateFormatW(American, 0, L"'on' d MMMM"));
}

TEST_F(SystemTimeFormatCalls, GetDateFormat_OfALongText)
{
    const std::wstring picture = L"'" + std::wstring(200, L'x') + L"'";

    EXPECT_TRUE(Tuesday.GetDateFormatW(American, 0, picture.c_str()) == std::wstring(200, L'x'));
}

TEST_F(SystemTimeFormatCalls, GetTimeFormat_InNoLocale)
{
    EXPECT_FAILURE(432, L".\\SystemTime", L"GetTimeFormat", ERROR_INVALID_PARAMETER,
                   static_cast<void>(Tuesday.GetTimeFormatW(NoSuchLocale, 0, nullptr)));
}

TEST_F(SystemTimeFormatCalls, GetTimeFormat_OfNoTimeOfDay)
{
    EXPECT_FAILURE(432, L".\\SystemTime", L"GetTimeFormat", ERROR_INVALID_PARAMETER,
                   static_cast<void>(NoTimeOfDay.GetTimeFormatW(American, 0, nullptr)));
}

TEST_F(SystemTimeFormatCalls, GetTimeFormat_WhenTheLengthQueryFails)
{
    const CImportPatch patch(&::GetTimeFormatW, &Answer);
    Tell(0, 6);

    EXPECT_FAILURE(432, L".\\SystemTime", L"GetTimeFormat", Injected,
                   static_cast<void>(Tuesday.GetTimeFormatW(American, 0, nullptr)));
    EXPECT_EQ("2013-03-05 2 14:07:09.250", Text(Tuesday));
}

TEST_F(SystemTimeFormatCalls, GetTimeFormat_WhenTheLengthIsNegative)
{
    const CImportPatch patch(&::GetTimeFormatW, &Answer);
    Tell(-1, 6);

    EXPECT_FAILURE(432, L".\\SystemTime", L"GetTimeFormat", Injected,
                   static_cast<void>(Tuesday.GetTimeFormatW(American, 0, nullptr)));
}

TEST_F(SystemTimeFormatCalls, GetTimeFormat_WhenTheFormattingFails)
{
    const CImportPatch patch(&::GetTimeFormatW, &Answer);
    Tell(6, 0);

    EXPECT_FAILURE(436, L".\\SystemTime", L"GetTimeFormat", Injected,
                   static_cast<void>(Tuesday.GetTimeFormatW(American, 0, nullptr)));
    EXPECT_EQ("2013-03-05 2 14:07:09.250", Text(Tuesday));
}

TEST_F(SystemTimeFormatCalls, GetDateFormat_InNoLocale)
{
    EXPECT_FAILURE(448, L".\\SystemTime", L"GetDateFormat", ERROR_INVALID_PARAMETER,
                   static_cast<void>(Tuesday.GetDateFormatW(NoSuchLocale, 0, nullptr)));
}

TEST_F(SystemTimeFormatCalls, GetDateFormat_OfTheNullTime)
{
    EXPECT_FAILURE(448, L".\\SystemTime", L"GetDateFormat", ERROR_INVALID_PARAMETER,
                   static_cast<void>(Null.GetDateFormatW(American, 0, nullptr)));
}

TEST_F(SystemTimeFormatCalls, GetDateFormat_OfADateThatIsNotInTheCalendar)
{
    EXPECT_FAILURE(448, L".\\SystemTime", L"GetDateFormat", ERROR_INVALID_PARAMETER,
                   static_cast<void>(NotInTheCalendar.GetDateFormatW(American, 0, nullptr)));
}

TEST_F(SystemTimeFormatCalls, GetDateFormat_WhenTheLengthQueryFails)
{
    const CImportPatch patch(&::GetDateFormatW, &Answer);
    Tell(0, 6);

    EXPECT_FAILURE(448, L".\\SystemTime", L"GetDateFormat", Injected,
                   static_cast<void>(Tuesday.GetDateFormatW(American, 0, nullptr)));
    EXPECT_EQ("2013-03-05 2 14:07:09.250", Text(Tuesday));
}

TEST_F(SystemTimeFormatCalls, GetDateFormat_WhenTheLengthIsNegative)
{
    const CImportPatch patch(&::GetDateFormatW, &Answer);
    Tell(-1, 6);

    EXPECT_FAILURE(448, L".\\SystemTime", L"GetDateFormat", Injected,
                   static_cast<void>(Tuesday.GetDateFormatW(American, 0, nullptr)));
}

TEST_F(SystemTimeFormatCalls, GetDateFormat_WhenTheFormattingFails)
{
    const CImportPatch patch(&::GetDateFormatW, &Answer);
    Tell(6, 0);

    EXPECT_FAILURE(452, L".\\SystemTime", L"GetDateFormat", Injected,
                   static_cast<void>(Tuesday.GetDateFormatW(American, 0, nullptr)));
    EXPECT_EQ("2013-03-05 2 14:07:09.250", Text(Tuesday));
}

TEST_F(SystemTimeFormatCalls, Format_OfATimeCodeInNoLocale)
{
    EXPECT_FAILURE(432, L".\\SystemTime", L"GetTimeFormat", ERROR_INVALID_PARAMETER,
                   static_cast<void>(Tuesday.Format(NoSuchLocale, L"%H")));
}

TEST_F(SystemTimeFormatCalls, Format_OfATimeCode_WhenTheFormattingFails)
{
    const CImportPatch patch(&::GetTimeFormatW, &Answer);
    Tell(6, 0);

    EXPECT_FAILURE(436, L".\\SystemTime", L"GetTimeFormat", Injected,
                   static_cast<void>(Tuesday.Format(American, L"%p")));
}

TEST_F(SystemTimeFormatCalls, Format_OfADateCodeInNoLocale)
{
    EXPECT_FAILURE(448, L".\\SystemTime", L"GetDateFormat", ERROR_INVALID_PARAMETER,
                   static_cast<void>(Tuesday.Format(NoSuchLocale, L"%A")));
}

TEST_F(SystemTimeFormatCalls, Format_OfADateCode_WhenTheFormattingFails)
{
    const CImportPatch patch(&::GetDateFormatW, &Answer);
    Tell(6, 0);

    EXPECT_FAILURE(452, L".\\SystemTime", L"GetDateFormat", Injected,
                   static_cast<void>(Tuesday.Format(American, L"%Y")));
}

TEST_F(SystemTimeFormatCalls, Format_OfTheNullTime)
{
    EXPECT_FAILURE(448, L".\\SystemTime", L"GetDateFormat", ERROR_INVALID_PARAMETER,
                   static_cast<void>(Null.Format(American, L"%Y-%m-%d")));
}

TEST_F(SystemTimeFormatCalls, Format_OfTheNullTime_WithoutAPlatformsCode)
{
    EXPECT_EQ(L"0 % none", Null.Format(American, L"%w %% none"));
}

TEST_F(SystemTimeFormatCalls, Format_DayOfTheYear_OfTheNullTime)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(Null.Format(American, L"%j")));
}

TEST_F(SystemTimeFormatCalls, Format_WeekBySunday_OfADateThatIsNotInTheCalendar)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(NotInTheCalendar.Format(American, L"%U")));
}

TEST_F(SystemTimeFormatCalls, Format_WeekByMonday_OfADateThatIsNotInTheCalendar)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(NotInTheCalendar.Format(American, L"%W")));
}

TEST_F(SystemTimeFormatCalls, Format_NameOfTheTimeZone)
{
    const CImportPatch patch(&::GetTimeZoneInformation, &FailingGetTimeZoneInformation);

    EXPECT_FAILURE(735, L".\\SystemTime", L"GetTimeZoneInformation", Injected,
                   static_cast<void>(Tuesday.Format(American, L"%z")));
    EXPECT_FAILURE(735, L".\\SystemTime", L"GetTimeZoneInformation", Injected,
                   static_cast<void>(Tuesday.Format(American, L"%Z")));
}
