#include "../os/Thrower.h"

#include <vantor/SystemTime.h>

#include <climits>

namespace vantor
{
namespace
{
constexpr CThrower Fail{L".\\SystemTime"};

constexpr long long TicksPerMillisecond = 10000;
constexpr long long TicksPerSecond = 10000000;
constexpr long long TicksPerDay = 864000000000;
constexpr long long Epoch = 116444736000000000;   // 1970-01-01 00:00:00

constexpr unsigned long long MillisecondsPerSecond = 1000;
constexpr unsigned long long MillisecondsPerMinute = 60 * MillisecondsPerSecond;
constexpr unsigned long long MillisecondsPerHour = 60 * MillisecondsPerMinute;
constexpr unsigned long long MillisecondsPerDay = 24 * MillisecondsPerHour;

FILETIME ToFileTime(const SYSTEMTIME& time)
{
    FILETIME result;
    if (!::SystemTimeToFileTime(&time, &result))
        Fail(346, L"SystemTimeToFileTime");
    return result;
}

SYSTEMTIME ToSystemTime(const FILETIME& time)
{
    SYSTEMTIME result;
    if (!::FileTimeToSystemTime(&time, &result))
        Fail(291, L"FileTimeToSystemTime");
    return result;
}

long long Ticks(const SYSTEMTIME& time)
{
    return CSystemTime::FT2LI(ToFileTime(time)).QuadPart;
}

// A valid file time has 63 bits; from a platform that lets a later year pass, it wraps.
long long TicksBetween(long long from, long long to)
{
    return static_cast<long long>(static_cast<unsigned long long>(to) - static_cast<unsigned long long>(from));
}

// start + count * unit ticks. What leaves the range of file times comes out with its top bit set, which no conversion
// accepts: a moment that cannot be told fails, and does not come back as another one.
FILETIME Shifted(long long start, long long count, long long unit)
{
    const long long limit = LLONG_MAX / (unit < 0 ? -unit : unit);

    ULARGE_INTEGER ticks;
    ticks.QuadPart = 1ULL << 63;
    if (-limit <= count && count <= limit)
        ticks.QuadPart = static_cast<unsigned long long>(start) + static_cast<unsigned long long>(count * unit);
    return CSystemTime::ULI2FT(ticks);
}
}   // namespace

CSystemTimeSpan::CSystemTimeSpan(WORD days, WORD hours, WORD minutes, WORD seconds, WORD milliseconds,
                                 bool negative) noexcept
    : m_milliseconds((((days * 24LL + hours) * 60 + minutes) * 60 + seconds) * 1000 + milliseconds)
{
    if (negative)
        m_milliseconds = -m_milliseconds;
}

CSystemTimeSpan::CSystemTimeSpan(const CSystemTime& a, const CSystemTime& b)
    : m_milliseconds(TicksBetween(Ticks(b), Ticks(a)) / TicksPerMillisecond)
{
}

// Of the lowest count too, which no signed number is the magnitude of.
unsigned long long CSystemTimeSpan::Magnitude() const noexcept
{
    const auto count = static_cast<unsigned long long>(m_milliseconds);
    return m_milliseconds < 0 ? 0 - count : count;
}

WORD CSystemTimeSpan::GetDays() const noexcept
{
    return static_cast<WORD>(Magnitude() / MillisecondsPerDay);
}

WORD CSystemTimeSpan::GetHours() const noexcept
{
    return static_cast<WORD>(Magnitude() / MillisecondsPerHour % 24);
}

WORD CSystemTimeSpan::GetMinutes() const noexcept
{
    return static_cast<WORD>(Magnitude() / MillisecondsPerMinute % 60);
}

WORD CSystemTimeSpan::GetSeconds() const noexcept
{
    return static_cast<WORD>(Magnitude() / MillisecondsPerSecond % 60);
}

WORD CSystemTimeSpan::GetMilliseconds() const noexcept
{
    return static_cast<WORD>(Magnitude() % MillisecondsPerSecond);
}

CSystemTimeSpan& CSystemTimeSpan::operator+=(const CSystemTimeSpan& other) noexcept
{
    m_milliseconds = static_cast<long long>(static_cast<unsigned long long>(m_milliseconds) +
                                            static_cast<unsigned long long>(other.m_milliseconds));
    return *this;
}

CSystemTimeSpan& CSystemTimeSpan::operator-=(const CSystemTimeSpan& other) noexcept
{
    m_milliseconds = static_cast<long long>(static_cast<unsigned long long>(m_milliseconds) -
                                            static_cast<unsigned long long>(other.m_milliseconds));
    return *this;
}

CSystemTime::CSystemTime(const FILETIME& time) : SYSTEMTIME(ToSystemTime(time)) {}

CSystemTime::CSystemTime(const long long& seconds) : CSystemTime(Shifted(Epoch, seconds, TicksPerSecond)) {}

CSystemTime::CSystemTime(WORD year, WORD month, WORD day, WORD hour, WORD minute, WORD second, WORD milliseconds)
    : CSystemTime(ToFileTime({year, month, 0, day, hour, minute, second, milliseconds}))
{
}

CSystemTime::CSystemTime(const tm& time) noexcept
{
    wYear = static_cast<WORD>(time.tm_year + 1900LL);   // nothing is checked, so nothing may overflow either
    wMonth = static_cast<WORD>(time.tm_mon + 1LL);
    wDayOfWeek = static_cast<WORD>(time.tm_wday);
    wDay = static_cast<WORD>(time.tm_mday);
    wHour = static_cast<WORD>(time.tm_hour);
    wMinute = static_cast<WORD>(time.tm_min);
    wSecond = static_cast<WORD>(time.tm_sec);
    wMilliseconds = 0;
}

CSystemTime& CSystemTime::operator=(const SYSTEMTIME& time) noexcept
{
    SYSTEMTIME::operator=(time);
    return *this;
}

CSystemTime& CSystemTime::operator=(const FILETIME& time)
{
    return *this = CSystemTime(time);
}

CSystemTime& CSystemTime::operator=(const long long& seconds)
{
    return *this = CSystemTime(seconds);
}

CSystemTime& CSystemTime::operator=(const tm& time) noexcept
{
    return *this = CSystemTime(time);
}

void CSystemTime::Clear() noexcept
{
    SYSTEMTIME::operator=({});
}

CSystemTime::operator FILETIME() const
{
    return ToFileTime(*this);
}

CSystemTime::operator tm() const
{
    // From noon to the year's first midnight: cut to whole days, that is the number of days between.
    const long long noon = Ticks({wYear, wMonth, wDayOfWeek, wDay, 12, 0, 0, 0});
    const long long newYear = Ticks({wYear, 1, 0, 1, 0, 0, 0, 0});

    tm result = {};
    result.tm_sec = wSecond;
    result.tm_min = wMinute;
    result.tm_hour = wHour;
    result.tm_mday = wDay;
    result.tm_mon = wMonth - 1;
    result.tm_year = wYear - 1900;
    result.tm_wday = wDayOfWeek;
    result.tm_yday = static_cast<int>(TicksBetween(newYear, noon) / TicksPerDay);
    result.tm_isdst = -1;
    return result;
}

CSystemTime::operator long long() const
{
    const long long seconds = TicksBetween(Epoch, Ticks(*this)) / TicksPerSecond;
    return seconds < 0 ? -1 : seconds;
}

int CSystemTime::Compare(const SYSTEMTIME& other) const
{
    if (wYear == 0 || other.wYear == 0)
        return (wYear != 0) - (other.wYear != 0);
    const FILETIME a = ToFileTime(*this);
    const FILETIME b = ToFileTime(other);
    return static_cast<int>(::CompareFileTime(&a, &b));
}

CSystemTime CSystemTime::operator+(const CSystemTimeSpan& span) const
{
    return Shifted(Ticks(*this), span.GetTimeSpan(), TicksPerMillisecond);
}

CSystemTime CSystemTime::operator-(const CSystemTimeSpan& span) const
{
    return Shifted(Ticks(*this), span.GetTimeSpan(), -TicksPerMillisecond);
}

CSystemTime& CSystemTime::operator+=(const CSystemTimeSpan& span)
{
    return *this = *this + span;
}

CSystemTime& CSystemTime::operator-=(const CSystemTimeSpan& span)
{
    return *this = *this - span;
}

CSystemTimeSpan CSystemTime::operator-(const CSystemTime& other) const
{
    return CSystemTimeSpan(*this, other);
}

CSystemTime CSystemTime::UTCToLocal() const
{
    const FILETIME utc = ToFileTime(*this);
    FILETIME local;
    if (!::FileTimeToLocalFileTime(&utc, &local))
        Fail(691, L"FileTimeToLocalFileTime");
    return local;
}

CSystemTime CSystemTime::LocalToUTC() const
{
    const FILETIME local = ToFileTime(*this);
    FILETIME utc;
    if (!::LocalFileTimeToFileTime(&local, &utc))
        Fail(701, L"LocalFileTimeToFileTime");
    return utc;
}

DWORD CSystemTime::GetTimeZoneInformation(TIME_ZONE_INFORMATION& zone) const
{
    const DWORD result = ::GetTimeZoneInformation(&zone);
    if (result == TIME_ZONE_ID_INVALID)
        Fail(735, L"GetTimeZoneInformation");
    return result;
}

void CSystemTime::SetTimeZoneInformation(const TIME_ZONE_INFORMATION& zone)
{
    if (!::SetTimeZoneInformation(&zone))
        Fail(743, L"SetTimeZoneInformation");
}

SYSTEMTIME CSystemTime::GetSystemTime()
{
    SYSTEMTIME result;
    ::GetSystemTime(&result);
    return result;
}

SYSTEMTIME CSystemTime::GetLocalTime()
{
    SYSTEMTIME result;
    ::GetLocalTime(&result);
    return result;
}

LARGE_INTEGER CSystemTime::FT2LI(const FILETIME& time) noexcept
{
    LARGE_INTEGER result;
    result.LowPart = time.dwLowDateTime;
    result.HighPart = static_cast<LONG>(time.dwHighDateTime);
    return result;
}

ULARGE_INTEGER CSystemTime::FT2ULI(const FILETIME& time) noexcept
{
    ULARGE_INTEGER result;
    result.LowPart = time.dwLowDateTime;
    result.HighPart = time.dwHighDateTime;
    return result;
}

FILETIME CSystemTime::LI2FT(const LARGE_INTEGER& ticks) noexcept
{
    return {ticks.LowPart, static_cast<DWORD>(ticks.HighPart)};
}

FILETIME CSystemTime::ULI2FT(const ULARGE_INTEGER& ticks) noexcept
{
    return {ticks.LowPart, ticks.HighPart};
}
}   // namespace vantor
