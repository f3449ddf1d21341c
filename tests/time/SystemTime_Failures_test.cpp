// How times fail that the platform cannot convert, and what they leave behind.

#include "Fields.h"
#include "support/Failure.h"
#include "support/ImportPatch.h"

#include <vantor/SystemTime.h>

#include <gtest/gtest.h>

#include <climits>
#include <cstring>

using namespace vantor;
using fields::FileTime;
using fields::Text;
using support::CImportPatch;

namespace
{
constexpr DWORD Injected = 0xDEADBEEF;
constexpr unsigned long long FirstInvalid = 1ULL << 63;
constexpr long long FirstSecond = -11644473600;
constexpr long long LastSecond = 910692730085;

const CSystemTime Null;
const CSystemTime Tuesday(SYSTEMTIME{2013, 3, 2, 5, 14, 7, 9, 250});
const CSystemTime NotInTheCalendar(SYSTEMTIME{2013, 2, 0, 30, 0, 0, 0, 0});

// An object with a value that stays when a change fails.
class SystemTimeFailures : public ::testing::Test
{
protected:
    void ExpectUnchanged() { EXPECT_EQ("2013-03-05 2 14:07:09.250", Text(m_time)); }

    CSystemTime m_time = Tuesday;
};

BOOL WINAPI FailingFileTimeToSystemTime(const FILETIME*, SYSTEMTIME* result)
{
    std::memset(result, 0xCC, sizeof *result);
    ::SetLastError(Injected);
    return FALSE;
}

BOOL WINAPI FailingSystemTimeToFileTime(const SYSTEMTIME*, FILETIME* result)
{
    std::memset(result, 0xCC, sizeof *result);
    ::SetLastError(Injected);
    return FALSE;
}

BOOL WINAPI FailingConversion(const FILETIME*, FILETIME*)
{
    ::SetLastError(Injected);
    return FALSE;
}

BOOL WINAPI ConversionOutOfRange(const FILETIME*, FILETIME* result)
{
    *result = FileTime(FirstInvalid);
    return TRUE;
}

DWORD WINAPI FailingGetTimeZoneInformation(TIME_ZONE_INFORMATION*)
{
    ::SetLastError(Injected);
    return 0xFFFFFFFF;
}

BOOL WINAPI FailingSetTimeZoneInformation(const TIME_ZONE_INFORMATION*)
{
    ::SetLastError(Injected);
    return FALSE;
}
}   // namespace

// From file time: 291.

TEST_F(SystemTimeFailures, Construct_FromAFileTimeOutOfRange)
{
    EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", ERROR_INVALID_PARAMETER,
                   const CSystemTime time(FileTime(FirstInvalid)));
}

TEST_F(SystemTimeFailures, Construct_FromAFileTime_ReportsThePlatformsError)
{
    const CImportPatch patch(&::FileTimeToSystemTime, &FailingFileTimeToSystemTime);

    EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", Injected, const CSystemTime time(FileTime(0)));
}

TEST_F(SystemTimeFailures, Assign_OfAFileTimeOutOfRange)
{
    EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", ERROR_INVALID_PARAMETER,
                   m_time = FileTime(FirstInvalid));
    ExpectUnchanged();
}

TEST_F(SystemTimeFailures, Assign_OfAFileTime_KeepsTheValueWhateverThePlatformWrites)
{
    const CImportPatch patch(&::FileTimeToSystemTime, &FailingFileTimeToSystemTime);

    EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", Injected, m_time = FileTime(0));
    ExpectUnchanged();
}

TEST_F(SystemTimeFailures, Construct_FromSecondsBeforeTheFirst)
{
    EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", ERROR_INVALID_PARAMETER,
                   const CSystemTime time(FirstSecond - 1));
}

TEST_F(SystemTimeFailures, Construct_FromSecondsBehindTheLast)
{
    EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", ERROR_INVALID_PARAMETER,
                   const CSystemTime time(LastSecond + 1));
}

TEST_F(SystemTimeFailures, Construct_FromTheHighestSeconds)
{
    EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", ERROR_INVALID_PARAMETER,
                   const CSystemTime time(LLONG_MAX));
}

TEST_F(SystemTimeFailures, Construct_FromTheLowestSeconds)
{
    EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", ERROR_INVALID_PARAMETER,
                   const CSystemTime time(LLONG_MIN));
}

TEST_F(SystemTimeFailures, Construct_FromSecondsWhoseTicksWouldWrapIntoTheCalendar)
{
    // 2^64 ticks and a little more.
    EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", ERROR_INVALID_PARAMETER,
                   const CSystemTime time(1844674407371LL));
}

TEST_F(SystemTimeFailures, Assign_OfSecondsOutOfRange)
{
    EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", ERROR_INVALID_PARAMETER, m_time = LLONG_MAX);
    ExpectUnchanged();
}

TEST_F(SystemTimeFailures, Construct_FromSevenFields_WhenTheWayBackFails)
{
    const CImportPatch patch(&::FileTimeToSystemTime, &FailingFileTimeToSystemTime);

    EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", Injected,
                   const CSystemTime time(2013, 3, 5, 14, 7, 9, 250));
}

TEST_F(SystemTimeFailures, Plus_BehindTheLastMoment)
{
    const CSystemTime last(LastSecond);

    EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(last + CSystemTimeSpan(1000)));
    EXPECT_EQ("30828-09-14 4 02:48:05.000", Text(last));
}

TEST_F(SystemTimeFailures, Plus_BeforeTheFirstMoment)
{
    EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(CSystemTime(FirstSecond) + CSystemTimeSpan(-1)));
}

TEST_F(SystemTimeFailures, Plus_TheHighestSpan)
{
    EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(m_time + CSystemTimeSpan(LLONG_MAX)));
}

TEST_F(SystemTimeFailures, Plus_TheLowestSpan)
{
    EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(m_time + CSystemTimeSpan(LLONG_MIN)));
}

TEST_F(SystemTimeFailures, Minus_BeforeTheFirstMoment)
{
    EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(CSystemTime(FirstSecond) - CSystemTimeSpan(1)));
}

TEST_F(SystemTimeFailures, Minus_BehindTheLastMoment)
{
    EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(CSystemTime(LastSecond) - CSystemTimeSpan(-1000)));
}

TEST_F(SystemTimeFailures, Minus_TheHighestSpan)
{
    EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(m_time - CSystemTimeSpan(LLONG_MAX)));
}

TEST_F(SystemTimeFailures, Minus_TheLowestSpan)
{
    EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(m_time - CSystemTimeSpan(LLONG_MIN)));
}

TEST_F(SystemTimeFailures, PlusAssign_OutOfRange)
{
    EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", ERROR_INVALID_PARAMETER,
                   m_time += CSystemTimeSpan(LLONG_MAX));
    ExpectUnchanged();
}

TEST_F(SystemTimeFailures, MinusAssign_OutOfRange)
{
    EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", ERROR_INVALID_PARAMETER,
                   m_time -= CSystemTimeSpan(LLONG_MAX));
    ExpectUnchanged();
}

TEST_F(SystemTimeFailures, UTCToLocal_OutOfRange)
{
    const CImportPatch patch(&::FileTimeToLocalFileTime, &ConversionOutOfRange);

    EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(m_time.UTCToLocal()));
    ExpectUnchanged();
}

TEST_F(SystemTimeFailures, LocalToUTC_OutOfRange)
{
    const CImportPatch patch(&::LocalFileTimeToFileTime, &ConversionOutOfRange);

    EXPECT_FAILURE(291, L".\\SystemTime", L"FileTimeToSystemTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(m_time.LocalToUTC()));
    ExpectUnchanged();
}

// To file time: 346.

TEST_F(SystemTimeFailures, Construct_The30thOfFebruary)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   const CSystemTime time(2013, 2, 30, 0, 0, 0, 0));
}

TEST_F(SystemTimeFailures, Construct_WithYear0)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   const CSystemTime time(0, 1, 1, 0, 0, 0, 0));
}

TEST_F(SystemTimeFailures, Construct_TheYearBeforeTheFirst)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   const CSystemTime time(1600, 12, 31, 23, 59, 59, 999));
}

TEST_F(SystemTimeFailures, Construct_WithMonth0)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   const CSystemTime time(2013, 0, 1, 0, 0, 0, 0));
}

TEST_F(SystemTimeFailures, Construct_WithMonth13)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   const CSystemTime time(2013, 13, 1, 0, 0, 0, 0));
}

TEST_F(SystemTimeFailures, Construct_WithDay0)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   const CSystemTime time(2013, 1, 0, 0, 0, 0, 0));
}

TEST_F(SystemTimeFailures, Construct_WithHour24)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   const CSystemTime time(2013, 1, 1, 24, 0, 0, 0));
}

TEST_F(SystemTimeFailures, Construct_WithMinute60)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   const CSystemTime time(2013, 1, 1, 0, 60, 0, 0));
}

TEST_F(SystemTimeFailures, Construct_WithSecond60)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   const CSystemTime time(2013, 1, 1, 0, 0, 60, 0));
}

TEST_F(SystemTimeFailures, Construct_WithMillisecond1000)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   const CSystemTime time(2013, 1, 1, 0, 0, 0, 1000));
}

TEST_F(SystemTimeFailures, ToFileTime_OfTheNullTime)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(Null.operator FILETIME()));
}

TEST_F(SystemTimeFailures, ToFileTime_ReportsThePlatformsError)
{
    const CImportPatch patch(&::SystemTimeToFileTime, &FailingSystemTimeToFileTime);

    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", Injected,
                   static_cast<void>(m_time.operator FILETIME()));
    ExpectUnchanged();
}

TEST_F(SystemTimeFailures, Compare_OfATimeThatIsNotInTheCalendar)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(NotInTheCalendar.Compare(m_time)));
}

TEST_F(SystemTimeFailures, Compare_WithATimeThatIsNotInTheCalendar)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(m_time.Compare(NotInTheCalendar)));
}

TEST_F(SystemTimeFailures, OperatorsThatCompareWithATimeThatIsNotInTheCalendar)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(m_time == NotInTheCalendar));
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(m_time < NotInTheCalendar));
}

TEST_F(SystemTimeFailures, Span_FromTheNullTime)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   const CSystemTimeSpan span(m_time, Null));
}

TEST_F(SystemTimeFailures, Span_ToTheNullTime)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   const CSystemTimeSpan span(Null, m_time));
}

TEST_F(SystemTimeFailures, Difference_WithTheNullTime)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(m_time - Null));
    ExpectUnchanged();
}

TEST_F(SystemTimeFailures, ToTm_OfTheNullTime)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(Null.operator tm()));
}

TEST_F(SystemTimeFailures, ToTm_OfADateThatIsNotInTheCalendar)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(NotInTheCalendar.operator tm()));
}

TEST_F(SystemTimeFailures, ToSeconds_OfTheNullTime)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(Null.operator long long()));
}

TEST_F(SystemTimeFailures, Plus_OfTheNullTime)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(Null + CSystemTimeSpan(0)));
}

TEST_F(SystemTimeFailures, Minus_OfTheNullTime)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(Null - CSystemTimeSpan(0)));
}

TEST_F(SystemTimeFailures, PlusAssign_OfADateThatIsNotInTheCalendar)
{
    CSystemTime time(NotInTheCalendar);

    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER, time += CSystemTimeSpan(1));
    EXPECT_EQ(Text(NotInTheCalendar), Text(time));
}

TEST_F(SystemTimeFailures, MinusAssign_OfADateThatIsNotInTheCalendar)
{
    CSystemTime time(NotInTheCalendar);

    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER, time -= CSystemTimeSpan(1));
    EXPECT_EQ(Text(NotInTheCalendar), Text(time));
}

TEST_F(SystemTimeFailures, UTCToLocal_OfTheNullTime)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(Null.UTCToLocal()));
}

TEST_F(SystemTimeFailures, LocalToUTC_OfTheNullTime)
{
    EXPECT_FAILURE(346, L".\\SystemTime", L"SystemTimeToFileTime", ERROR_INVALID_PARAMETER,
                   static_cast<void>(Null.LocalToUTC()));
}

// Zones: 691, 701, 735, 743.

TEST_F(SystemTimeFailures, UTCToLocal)
{
    const CImportPatch patch(&::FileTimeToLocalFileTime, &FailingConversion);

    EXPECT_FAILURE(691, L".\\SystemTime", L"FileTimeToLocalFileTime", Injected, static_cast<void>(m_time.UTCToLocal()));
    ExpectUnchanged();
}

TEST_F(SystemTimeFailures, LocalToUTC)
{
    const CImportPatch patch(&::LocalFileTimeToFileTime, &FailingConversion);

    EXPECT_FAILURE(701, L".\\SystemTime", L"LocalFileTimeToFileTime", Injected, static_cast<void>(m_time.LocalToUTC()));
    ExpectUnchanged();
}

TEST_F(SystemTimeFailures, GetTimeZoneInformation)
{
    const CImportPatch patch(&::GetTimeZoneInformation, &FailingGetTimeZoneInformation);
    TIME_ZONE_INFORMATION zone;

    EXPECT_FAILURE(735, L".\\SystemTime", L"GetTimeZoneInformation", Injected,
                   static_cast<void>(m_time.GetTimeZoneInformation(zone)));
    ExpectUnchanged();
}

TEST_F(SystemTimeFailures, SetTimeZoneInformation_WithoutThePrivilege)
{
    TIME_ZONE_INFORMATION zone;
    ::GetTimeZoneInformation(&zone);

    EXPECT_FAILURE(743, L".\\SystemTime", L"SetTimeZoneInformation", ERROR_PRIVILEGE_NOT_HELD,
                   m_time.SetTimeZoneInformation(zone));
    ExpectUnchanged();
}

TEST_F(SystemTimeFailures, SetTimeZoneInformation_ReportsThePlatformsError)
{
    const CImportPatch patch(&::SetTimeZoneInformation, &FailingSetTimeZoneInformation);

    EXPECT_FAILURE(743, L".\\SystemTime", L"SetTimeZoneInformation", Injected, m_time.SetTimeZoneInformation({}));
}
