// Formats of a time: how they are scanned, and what each code gives in American English.

#include "support/ImportPatch.h"
#include "support/Print.h"

#include <vantor/SystemTime.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

using namespace vantor;
using support::CImportPatch;

namespace
{
constexpr LCID American = 1033;

// 2013-03-05, a Tuesday
const CSystemTime Afternoon(SYSTEMTIME{2013, 3, 2, 5, 14, 7, 9, 250});

ustring InAmerican(const wchar_t* format, const CSystemTime& time = Afternoon)
{
    return time.Format(American, format);
}

ustring OnDay(const wchar_t* format, WORD year, WORD month, WORD day)
{
    return CSystemTime(year, month, day, 0, 0, 0, 0).Format(American, format);
}

ustring AtHour(const wchar_t* format, WORD hour)
{
    return CSystemTime(2013, 3, 5, hour, 0, 0, 0).Format(American, format);
}

int g_calls;

int WINAPI CountingGetDateFormat(LCID, DWORD, const SYSTEMTIME*, const wchar_t*, wchar_t*, int)
{
    ++g_calls;
    return 0;
}

BOOL WINAPI CountingSystemTimeToFileTime(const SYSTEMTIME*, FILETIME*)
{
    ++g_calls;
    return FALSE;
}

BOOL WINAPI CountingFileTimeToSystemTime(const FILETIME*, SYSTEMTIME*)
{
    ++g_calls;
    return FALSE;
}

DWORD g_zoneId;
TIME_ZONE_INFORMATION g_zone;

DWORD WINAPI ZoneOfTheTest(TIME_ZONE_INFORMATION* zone)
{
    ++g_calls;
    *zone = g_zone;
    return g_zoneId;
}

void SetZone(DWORD id, const wchar_t* standard, const wchar_t* daylight)
{
    g_zoneId = id;
    g_zone = {};
    ::lstrcpynW(g_zone.StandardName, standard, 32);
    ::lstrcpynW(g_zone.DaylightName, daylight, 32);
}

// None of the calls that a format can need.
class CNoCalls
{
public:
    CNoCalls() { g_calls = 0; }

private:
    const CImportPatch m_date{&::GetDateFormatW, &CountingGetDateFormat};
    const CImportPatch m_time{&::GetTimeFormatW, &CountingGetDateFormat};
    const CImportPatch m_toFileTime{&::SystemTimeToFileTime, &CountingSystemTimeToFileTime};
    const CImportPatch m_toSystemTime{&::FileTimeToSystemTime, &CountingFileTimeToSystemTime};
    const CImportPatch m_zone{&::GetTimeZoneInformation, &ZoneOfTheTest};
};
}   // namespace

TEST(SystemTimeFormat, EmptyFormat_GivesNothingAndAsksNobody)
{
    const CNoCalls patches;

    EXPECT_EQ(L"", CSystemTime().Format(American, L""));
    EXPECT_EQ(0, g_calls);
}

TEST(SystemTimeFormat, NullFormat_GivesNothingAndAsksNobody)
{
    const CNoCalls patches;

    EXPECT_EQ(L"", CSystemTime().Format(American, nullptr));
    EXPECT_EQ(0, g_calls);
}

TEST(SystemTimeFormat, TextWithoutCodes_IsCopied)
{
    EXPECT_EQ(L"d M # y 'x' \\ \u00E4\U0001F600", InAmerican(L"d M # y 'x' \\ \u00E4\U0001F600"));
}

TEST(SystemTimeFormat, TextBetweenCodes_IsCopied)
{
    EXPECT_EQ(L"<05>.<03>.<2013>", InAmerican(L"<%d>.<%m>.<%Y>"));
}

TEST(SystemTimeFormat, CodesWithoutTextBetween)
{
    EXPECT_EQ(L"20130305140709", InAmerican(L"%Y%m%d%H%M%S"));
}

TEST(SystemTimeFormat, LongFormat)
{
    std::wstring format;
    std::wstring expected;
    for (int i = 0; i < 2000; ++i)
    {
        format += L"%d of %Y, ";
        expected += L"05 of 2013, ";
    }

    EXPECT_TRUE(InAmerican(format.c_str()) == expected);
}

TEST(SystemTimeFormat, TrailingPercent_IsDropped)
{
    EXPECT_EQ(L"05", InAmerican(L"%d%"));
    EXPECT_EQ(L"", InAmerican(L"%"));
}

TEST(SystemTimeFormat, TrailingAlternateFlag_IsDropped)
{
    EXPECT_EQ(L"05", InAmerican(L"%d%#"));
    EXPECT_EQ(L"", InAmerican(L"%#"));
}

TEST(SystemTimeFormat, TwoPercents_AreOne)
{
    EXPECT_EQ(L"%", InAmerican(L"%%"));
}

TEST(SystemTimeFormat, AlternatePercent_IsOneToo)
{
    EXPECT_EQ(L"%", InAmerican(L"%#%"));
}

TEST(SystemTimeFormat, ThreePercents_StartACodeAtTheThird)
{
    EXPECT_EQ(L"%05", InAmerican(L"%%%d"));
}

TEST(SystemTimeFormat, TwoPercentsBeforeALetter_AreNoCode)
{
    EXPECT_EQ(L"%d", InAmerican(L"%%d"));
}

TEST(SystemTimeFormat, UnknownCode_GivesNothing)
{
    EXPECT_EQ(L"", InAmerican(L"%q"));
}

TEST(SystemTimeFormat, UnknownCode_ConsumesOneCharacter)
{
    EXPECT_EQ(L"[d]", InAmerican(L"[%qd]"));
    EXPECT_EQ(L"[d]", InAmerican(L"[%5d]"));
    EXPECT_EQ(L"[d]", InAmerican(L"[% d]"));
}

TEST(SystemTimeFormat, AlternateUnknownCode_GivesNothing)
{
    EXPECT_EQ(L"[d]", InAmerican(L"[%#qd]"));
}

TEST(SystemTimeFormat, TwoFlags_AreAFlagAndAnUnknownCode)
{
    EXPECT_EQ(L"", InAmerican(L"%##"));
    EXPECT_EQ(L"d", InAmerican(L"%##d"));
}

TEST(SystemTimeFormat, AFlagBehindTheCode_IsText)
{
    EXPECT_EQ(L"05#", InAmerican(L"%d#"));
}

TEST(SystemTimeFormat, EveryOtherCharacter_GivesNothing)
{
    const std::wstring codes = L"aAbBcdHIjmMpSUwWxXyYzZ%#";
    for (wchar_t code = 1; code < 0x180; ++code)
    {
        if (codes.find(code) != std::wstring::npos)
            continue;
        const wchar_t format[] = {L'%', code, 0};
        const wchar_t alternate[] = {L'%', L'#', code, 0};
        EXPECT_EQ(L"", InAmerican(format)) << static_cast<unsigned>(code);
        EXPECT_EQ(L"", InAmerican(alternate)) << static_cast<unsigned>(code);
    }
}

TEST(SystemTimeFormat, YearMonthDay)
{
    EXPECT_EQ(L"2013-03-05", InAmerican(L"%Y-%m-%d"));
}

TEST(SystemTimeFormat, AlternateMonthAndDay_HaveNoZeros)
{
    EXPECT_EQ(L"3/5", InAmerican(L"%#m/%#d"));
}

TEST(SystemTimeFormat, a_IsTheShortWeekday)
{
    EXPECT_EQ(L"Tue Tue", InAmerican(L"%a %#a"));
}

TEST(SystemTimeFormat, A_IsTheWeekday)
{
    EXPECT_EQ(L"Tuesday Tuesday", InAmerican(L"%A %#A"));
}

TEST(SystemTimeFormat, b_IsTheShortMonth)
{
    EXPECT_EQ(L"Mar Mar", InAmerican(L"%b %#b"));
}

TEST(SystemTimeFormat, B_IsTheMonth)
{
    EXPECT_EQ(L"March March", InAmerican(L"%B %#B"));
}

TEST(SystemTimeFormat, c_IsDateBlankTime)
{
    EXPECT_EQ(L"3/5/2013 2:07:09 PM", InAmerican(L"%c"));
}

TEST(SystemTimeFormat, Alternate_c_HasTheLongDate)
{
    EXPECT_EQ(L"Tuesday, March 5, 2013 2:07:09 PM", InAmerican(L"%#c"));
}

TEST(SystemTimeFormat, d_IsTheDay)
{
    EXPECT_EQ(L"05 5", InAmerican(L"%d %#d"));
    EXPECT_EQ(L"31 31", OnDay(L"%d %#d", 2013, 3, 31));
}

TEST(SystemTimeFormat, H_IsTheHourOf24)
{
    EXPECT_EQ(L"14 14", InAmerican(L"%H %#H"));
    EXPECT_EQ(L"00 0", AtHour(L"%H %#H", 0));
}

TEST(SystemTimeFormat, I_IsTheHourOf12)
{
    EXPECT_EQ(L"02 2", InAmerican(L"%I %#I"));
    EXPECT_EQ(L"12 12", AtHour(L"%I %#I", 0));
    EXPECT_EQ(L"12 12", AtHour(L"%I %#I", 12));
}

TEST(SystemTimeFormat, j_OfTheFirstOfJanuary)
{
    EXPECT_EQ(L"001", OnDay(L"%j", 2013, 1, 1));
}

TEST(SystemTimeFormat, j_OfTheLastDayOfALeapYear)
{
    EXPECT_EQ(L"366", OnDay(L"%j", 2012, 12, 31));
}

TEST(SystemTimeFormat, Alternate_j_HasNoZeros)
{
    EXPECT_EQ(L"64", InAmerican(L"%#j"));
}

TEST(SystemTimeFormat, m_IsTheMonthsNumber)
{
    EXPECT_EQ(L"03 3", InAmerican(L"%m %#m"));
    EXPECT_EQ(L"12 12", OnDay(L"%m %#m", 2013, 12, 1));
}

TEST(SystemTimeFormat, M_IsTheMinute)
{
    EXPECT_EQ(L"07 7", InAmerican(L"%M %#M"));
}

TEST(SystemTimeFormat, p_IsTheHalfOfTheDay)
{
    EXPECT_EQ(L"PM PM", InAmerican(L"%p %#p"));
    EXPECT_EQ(L"AM AM", AtHour(L"%p %#p", 11));
}

TEST(SystemTimeFormat, S_IsTheSecond)
{
    EXPECT_EQ(L"09 9", InAmerican(L"%S %#S"));
}

TEST(SystemTimeFormat, U_BeforeTheFirstSundayIs0)
{
    EXPECT_EQ(L"00", OnDay(L"%U", 2013, 1, 1));
    EXPECT_EQ(L"00", OnDay(L"%U", 2013, 1, 5));
}

TEST(SystemTimeFormat, U_FromTheFirstSundayIs1)
{
    EXPECT_EQ(L"01", OnDay(L"%U", 2013, 1, 6));
    EXPECT_EQ(L"01", OnDay(L"%U", 2012, 1, 1));
}

TEST(SystemTimeFormat, W_BeforeTheFirstMondayIs0)
{
    EXPECT_EQ(L"00", OnDay(L"%W", 2013, 1, 6));
}

TEST(SystemTimeFormat, W_FromTheFirstMondayIs1)
{
    EXPECT_EQ(L"01", OnDay(L"%W", 2013, 1, 7));
    EXPECT_EQ(L"01", OnDay(L"%W", 2018, 1, 1));
}

TEST(SystemTimeFormat, Weeks_CanBe53)
{
    EXPECT_EQ(L"53 53", OnDay(L"%U %#U", 2000, 12, 31));
    EXPECT_EQ(L"53 53", OnDay(L"%W %#W", 2012, 12, 31));
}

TEST(SystemTimeFormat, AlternateWeeks_HaveNoZeros)
{
    EXPECT_EQ(L"9 9", InAmerican(L"%#U %#W"));
    EXPECT_EQ(L"09 09", InAmerican(L"%U %W"));
    EXPECT_EQ(L"0 0", OnDay(L"%#U %#W", 2013, 1, 1));
}

TEST(SystemTimeFormat, w_IsTheNumberOfTheWeekday)
{
    EXPECT_EQ(L"2 2", InAmerican(L"%w %#w"));
    EXPECT_EQ(L"0", OnDay(L"%w", 2013, 3, 3));
}

TEST(SystemTimeFormat, w_IsTheFieldAsItStands)
{
    CSystemTime time(Afternoon);
    time.wDayOfWeek = 12;

    EXPECT_EQ(L"12", InAmerican(L"%w", time));
}

TEST(SystemTimeFormat, x_IsTheShortDate)
{
    EXPECT_EQ(L"3/5/2013", InAmerican(L"%x"));
}

TEST(SystemTimeFormat, Alternate_x_IsTheLongDate)
{
    EXPECT_EQ(L"Tuesday, March 5, 2013", InAmerican(L"%#x"));
}

TEST(SystemTimeFormat, X_IsTheTime)
{
    EXPECT_EQ(L"2:07:09 PM 2:07:09 PM", InAmerican(L"%X %#X"));
}

TEST(SystemTimeFormat, y_IsTheYearOfTheCentury)
{
    EXPECT_EQ(L"13", InAmerican(L"%y"));
    EXPECT_EQ(L"05", OnDay(L"%y", 2005, 3, 5));
}

TEST(SystemTimeFormat, Y_IsTheYear)
{
    EXPECT_EQ(L"2013 2013", InAmerican(L"%Y %#Y"));
}

TEST(SystemTimeFormat, Z_InAnUnknownState_IsTheStandardName)
{
    const CImportPatch patch(&::GetTimeZoneInformation, &ZoneOfTheTest);
    SetZone(TIME_ZONE_ID_UNKNOWN, L"Standard", L"Daylight");

    EXPECT_EQ(L"Standard Standard Standard Standard", InAmerican(L"%z %#z %Z %#Z"));
}

TEST(SystemTimeFormat, Z_InStandardTime_IsTheStandardName)
{
    const CImportPatch patch(&::GetTimeZoneInformation, &ZoneOfTheTest);
    SetZone(TIME_ZONE_ID_STANDARD, L"Standard", L"Daylight");

    EXPECT_EQ(L"Standard Standard Standard Standard", InAmerican(L"%z %#z %Z %#Z"));
}

TEST(SystemTimeFormat, Z_InDaylightTime_IsTheDaylightName)
{
    const CImportPatch patch(&::GetTimeZoneInformation, &ZoneOfTheTest);
    SetZone(TIME_ZONE_ID_DAYLIGHT, L"Standard", L"Daylight");

    EXPECT_EQ(L"Daylight Daylight Daylight Daylight", InAmerican(L"%z %#z %Z %#Z"));
}

TEST(SystemTimeFormat, Z_OfANameWithoutATerminator)
{
    const CImportPatch patch(&::GetTimeZoneInformation, &ZoneOfTheTest);
    g_zoneId = TIME_ZONE_ID_STANDARD;
    std::memset(&g_zone, 0x5A, sizeof g_zone);
    std::fill_n(g_zone.StandardName, 32, L'S');

    EXPECT_TRUE(InAmerican(L"%z") == std::wstring(32, L'S'));
}

TEST(SystemTimeFormat, Z_OfADaylightNameWithoutATerminator)
{
    const CImportPatch patch(&::GetTimeZoneInformation, &ZoneOfTheTest);
    g_zoneId = TIME_ZONE_ID_DAYLIGHT;
    std::memset(&g_zone, 0x5A, sizeof g_zone);
    std::fill_n(g_zone.DaylightName, 32, L'D');

    EXPECT_TRUE(InAmerican(L"%Z") == std::wstring(32, L'D'));
}

TEST(SystemTimeFormat, Z_OfAnEmptyName)
{
    const CImportPatch patch(&::GetTimeZoneInformation, &ZoneOfTheTest);
    SetZone(TIME_ZONE_ID_STANDARD, L"", L"Daylight");

    EXPECT_EQ(L"[]", InAmerican(L"[%z]"));
}

TEST(SystemTimeFormat, AllCodesInOneFormat)
{
    const CImportPatch patch(&::GetTimeZoneInformation, &ZoneOfTheTest);
    SetZone(TIME_ZONE_ID_STANDARD, L"Standard", L"Daylight");

    EXPECT_EQ(L"a=Tue A=Tuesday b=Mar B=March c=3/5/2013 2:07:09 PM d=05 H=14 I=02 j=064 m=03 M=07 p=PM S=09 "
              L"U=09 w=2 W=09 x=3/5/2013 X=2:07:09 PM y=13 Y=2013 z=Standard Z=Standard %.",
              InAmerican(L"a=%a A=%A b=%b B=%B c=%c d=%d H=%H I=%I j=%j m=%m M=%M p=%p S=%S "
                         L"U=%U w=%w W=%W x=%x X=%X y=%y Y=%Y z=%z Z=%Z %%."));
}
