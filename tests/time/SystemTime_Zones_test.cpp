// Local time and UTC. Run once in each of several time zones, which come through the environment.
//
// The platform converts with the offset of this moment, whatever the date that is converted: so does the oracle.

#include "Fields.h"
#include "support/Failure.h"
#include "support/Print.h"

#include <vantor/SystemTime.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

using namespace vantor;
using fields::FileTime;
using fields::SystemTime;
using fields::Text;
using fields::Ticks;

namespace
{
constexpr long long TicksPerMinute = 600000000;
constexpr unsigned long long TicksPerHour = 36000000000;

// UTC minus local time, now.
long long OffsetInTicks()
{
    TIME_ZONE_INFORMATION zone;
    const DWORD id = ::GetTimeZoneInformation(&zone);
    EXPECT_NE(TIME_ZONE_ID_INVALID, id);
    LONG minutes = zone.Bias;
    if (id == TIME_ZONE_ID_STANDARD)
        minutes += zone.StandardBias;
    if (id == TIME_ZONE_ID_DAYLIGHT)
        minutes += zone.DaylightBias;
    return minutes * TicksPerMinute;
}

unsigned long long Plus(unsigned long long ticks, long long offset)
{
    return ticks + static_cast<unsigned long long>(offset);
}
}   // namespace

// Else the other tests would prove nothing about zones.
TEST(SystemTimeZones, TheEnvironmentHasSetTheZone)
{
    const std::map<std::string, std::vector<long long>> minutes = {
        {"Europe/Berlin", {-60, -120}}, {"America/New_York", {300, 240}},   {"America/St_Johns", {210, 150}},
        {"Asia/Kolkata", {-330}},       {"Australia/Sydney", {-600, -660}},
    };
    const char* const zone = std::getenv("TZ");
    ASSERT_NE(nullptr, zone);
    const auto known = minutes.find(zone);
    ASSERT_NE(minutes.end(), known) << zone;

    const long long offset = OffsetInTicks() / TicksPerMinute;

    EXPECT_EQ(1, std::count(known->second.begin(), known->second.end(), offset)) << zone << ": " << offset;
}

TEST(SystemTimeZones, EveryHourOfAYear_ToLocalTime)
{
    const long long offset = OffsetInTicks();
    const unsigned long long start = Ticks(SYSTEMTIME{2013, 1, 0, 1, 0, 0, 0, 123});
    for (unsigned long long hour = 0; hour < 365 * 24; ++hour)
    {
        const unsigned long long utc = start + hour * TicksPerHour;

        ASSERT_EQ(Text(SystemTime(Plus(utc, -offset))), Text(CSystemTime(SystemTime(utc)).UTCToLocal()))
            << Text(SystemTime(utc));
    }
}

TEST(SystemTimeZones, EveryHourOfAYear_ToUTC)
{
    const long long offset = OffsetInTicks();
    const unsigned long long start = Ticks(SYSTEMTIME{2013, 1, 0, 1, 0, 0, 0, 123});
    for (unsigned long long hour = 0; hour < 365 * 24; ++hour)
    {
        const unsigned long long local = start + hour * TicksPerHour;

        ASSERT_EQ(Text(SystemTime(Plus(local, offset))), Text(CSystemTime(SystemTime(local)).LocalToUTC()))
            << Text(SystemTime(local));
    }
}

TEST(SystemTimeZones, TheObjectItselfStays)
{
    const CSystemTime time(SYSTEMTIME{2013, 3, 2, 5, 14, 7, 9, 250});

    static_cast<void>(time.UTCToLocal());
    static_cast<void>(time.LocalToUTC());

    EXPECT_EQ("2013-03-05 2 14:07:09.250", Text(time));
}

TEST(SystemTimeZones, ThereAndBack)
{
    const CSystemTime time(SYSTEMTIME{2013, 3, 2, 5, 14, 7, 9, 250});

    EXPECT_EQ(Text(time), Text(time.UTCToLocal().LocalToUTC()));
}

TEST(SystemTimeZones, TheClocksDifferByTheOffset)
{
    const long long before = static_cast<long long>(Ticks(CSystemTime::GetSystemTime()));
    const long long local = static_cast<long long>(Ticks(CSystemTime::GetLocalTime()));
    const long long after = static_cast<long long>(Ticks(CSystemTime::GetSystemTime()));
    const long long offset = OffsetInTicks();

    EXPECT_LE(before, local + offset);
    EXPECT_LE(local + offset, after);
}

TEST(SystemTimeZones, FormatKnowsTheNameOfNow)
{
    TIME_ZONE_INFORMATION zone;
    const DWORD id = ::GetTimeZoneInformation(&zone);
    const ustring name = id == TIME_ZONE_ID_DAYLIGHT ? zone.DaylightName : zone.StandardName;

    EXPECT_EQ(name, CSystemTime().Format(1033, L"%z"));
    EXPECT_EQ(name, CSystemTime().Format(1033, L"%Z"));
}

TEST(SystemTimeZones, TheFirstMoments_CannotAllBeConverted)
{
    const CSystemTime first(1601, 1, 1, 0, 0, 0, 0);
    const long long offset = OffsetInTicks();

    if (offset > 0)
    {
        EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", ERROR_INVALID_PARAMETER,
                       static_cast<void>(first.UTCToLocal()));
        EXPECT_EQ(Text(SystemTime(Plus(0, offset))), Text(first.LocalToUTC()));
    }
    else
    {
        EXPECT_EQ(Text(SystemTime(Plus(0, -offset))), Text(first.UTCToLocal()));
        EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", ERROR_INVALID_PARAMETER,
                       static_cast<void>(first.LocalToUTC()));
    }
}
