// The platform's clock and its time zone, as the library hands them through.

#include "Fields.h"
#include "support/ImportPatch.h"

#include <vantor/SystemTime.h>

#include <gtest/gtest.h>

#include <cstring>

using namespace vantor;
using fields::Text;
using fields::Ticks;
using support::CImportPatch;

namespace
{
DWORD g_result;
TIME_ZONE_INFORMATION g_zone;

DWORD WINAPI TimeZoneOfTheTest(TIME_ZONE_INFORMATION* zone)
{
    *zone = g_zone;
    return g_result;
}

BOOL WINAPI RecordingSetTimeZoneInformation(const TIME_ZONE_INFORMATION* zone)
{
    g_zone = *zone;
    return TRUE;
}

TIME_ZONE_INFORMATION Zone()
{
    TIME_ZONE_INFORMATION zone;
    std::memset(&zone, 0x5A, sizeof zone);
    return zone;
}

class SystemTimeZoneId : public ::testing::TestWithParam<DWORD>
{
};
}   // namespace

TEST(SystemTimeNow, GetSystemTime_LiesBetweenTwoLooksAtTheClock)
{
    SYSTEMTIME before;
    SYSTEMTIME after;

    ::GetSystemTime(&before);
    const SYSTEMTIME now = CSystemTime::GetSystemTime();
    ::GetSystemTime(&after);

    EXPECT_LE(Ticks(before), Ticks(now));
    EXPECT_LE(Ticks(now), Ticks(after));
}

TEST(SystemTimeNow, GetLocalTime_LiesBetweenTwoLooksAtTheClock)
{
    SYSTEMTIME before;
    SYSTEMTIME after;

    ::GetLocalTime(&before);
    const SYSTEMTIME now = CSystemTime::GetLocalTime();
    ::GetLocalTime(&after);

    EXPECT_LE(Ticks(before), Ticks(now));
    EXPECT_LE(Ticks(now), Ticks(after));
}

TEST_P(SystemTimeZoneId, GetTimeZoneInformation_ReturnsIt)
{
    const CImportPatch patch(&::GetTimeZoneInformation, &TimeZoneOfTheTest);
    g_result = GetParam();
    TIME_ZONE_INFORMATION zone;

    EXPECT_EQ(GetParam(), CSystemTime().GetTimeZoneInformation(zone));
}

INSTANTIATE_TEST_SUITE_P(Known, SystemTimeZoneId,
                         ::testing::Values(TIME_ZONE_ID_UNKNOWN, TIME_ZONE_ID_STANDARD, TIME_ZONE_ID_DAYLIGHT));

TEST(SystemTimeZone, GetTimeZoneInformation_HandsTheRecordOut)
{
    const CImportPatch patch(&::GetTimeZoneInformation, &TimeZoneOfTheTest);
    g_result = TIME_ZONE_ID_UNKNOWN;
    g_zone = Zone();
    TIME_ZONE_INFORMATION zone = {};

    CSystemTime().GetTimeZoneInformation(zone);

    EXPECT_EQ(0, std::memcmp(&g_zone, &zone, sizeof zone));
}

TEST(SystemTimeZone, SetTimeZoneInformation_HandsTheRecordIn)
{
    const CImportPatch patch(&::SetTimeZoneInformation, &RecordingSetTimeZoneInformation);
    const TIME_ZONE_INFORMATION zone = Zone();
    g_zone = {};
    CSystemTime time(SYSTEMTIME{2013, 3, 2, 5, 14, 7, 9, 250});

    time.SetTimeZoneInformation(zone);

    EXPECT_EQ(0, std::memcmp(&zone, &g_zone, sizeof zone));
    EXPECT_EQ("2013-03-05 2 14:07:09.250", Text(time));
}
