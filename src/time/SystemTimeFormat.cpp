#include "../os/Thrower.h"

#include <vantor/SystemTime.h>

#include <algorithm>

namespace vantor
{
namespace
{
constexpr CThrower Fail{L".\\SystemTime"};

// Copies the format, and puts in what `conversion(code, alternate)` gives for each "%" or "%#" and a letter. A format
// that ends too early has a blank there, which is no code.
template <class Conversion>
ustring Expand(const wchar_t* format, Conversion conversion)
{
    ustring result;
    for (const wchar_t* at = OrEmpty(format); *at != 0; ++at)
    {
        if (*at != L'%')
        {
            result += *at;
            continue;
        }
        const bool alternate = at[1] == L'#';
        at += alternate ? 2 : 1;
        result += conversion(*at != 0 ? *at : L' ', alternate);
        if (*at == 0)
            break;
    }
    return result;
}

// A number with at least `width` digits, zeros in front.
ustring Number(int value, int width)
{
    ustring result;
    result.sprintf(L"%0*d", width, value);
    return result;
}

// The week of the year: week 1 begins with its first day of the kind that stands `shift` days behind a Sunday.
int WeekOfYear(const CSystemTime& time, int shift)
{
    const tm day = time;
    const tm newYear = CSystemTime(time.wYear, 1, 1, 0, 0, 0, 0);
    return ((newYear.tm_wday + 6 - shift) % 7 + day.tm_yday + 1) / 7;
}

ustring TimeZoneName(const CSystemTime& time)
{
    TIME_ZONE_INFORMATION zone;
    const bool daylight = time.GetTimeZoneInformation(zone) == TIME_ZONE_ID_DAYLIGHT;
    const auto& name = daylight ? zone.DaylightName : zone.StandardName;
    return std::wstring(std::begin(name), std::find(std::begin(name), std::end(name), L'\0'));
}
}   // namespace

ustring CSystemTime::GetTimeFormatW(LCID locale, DWORD flags, const wchar_t* picture) const
{
    ustring result;
    const int size = ::GetTimeFormatW(locale, flags, this, picture, nullptr, 0);
    if (size < 1)
        Fail(432, L"GetTimeFormat");
    result.resize(static_cast<std::size_t>(size - 1));
    if (::GetTimeFormatW(locale, flags, this, picture, result.data(), size) < 1)
        Fail(436, L"GetTimeFormat");
    return result;
}

ustring CSystemTime::GetDateFormatW(LCID locale, DWORD flags, const wchar_t* picture) const
{
    ustring result;
    const int size = ::GetDateFormatW(locale, flags, this, picture, nullptr, 0);
    if (size < 1)
        Fail(448, L"GetDateFormat");
    result.resize(static_cast<std::size_t>(size - 1));
    if (::GetDateFormatW(locale, flags, this, picture, result.data(), size) < 1)
        Fail(452, L"GetDateFormat");
    return result;
}

ustring CSystemTime::Format(LCID locale, const wchar_t* format) const
{
    const auto date = [this, locale](const wchar_t* picture) { return GetDateFormatW(locale, 0, picture); };
    const auto time = [this, locale](const wchar_t* picture) { return GetTimeFormatW(locale, 0, picture); };
    const auto wholeDate = [this, locale](bool isLong)
    { return GetDateFormatW(locale, isLong ? DATE_LONGDATE : DATE_SHORTDATE, nullptr); };

    return Expand(format,
                  [&](wchar_t code, bool alternate) -> ustring
                  {
                      switch (code)
                      {
                      case L'a':
                          return date(L"ddd");
                      case L'A':
                          return date(L"dddd");
                      case L'b':
                          return date(L"MMM");
                      case L'B':
                          return date(L"MMMM");
                      case L'c':
                          return wholeDate(alternate) + L' ' + time(nullptr);
                      case L'd':
                          return date(alternate ? L"d" : L"dd");
                      case L'H':
                          return time(alternate ? L"H" : L"HH");
                      case L'I':
                          return time(alternate ? L"h" : L"hh");
                      case L'j':
                          return Number(tm(*this).tm_yday + 1, alternate ? 1 : 3);
                      case L'm':
                          return date(alternate ? L"M" : L"MM");
                      case L'M':
                          return time(alternate ? L"m" : L"mm");
                      case L'p':
                          return time(L"tt");
                      case L'S':
                          return time(alternate ? L"s" : L"ss");
                      case L'U':
                          return Number(WeekOfYear(*this, 0), alternate ? 1 : 2);
                      case L'w':
                          return Number(wDayOfWeek, 1);
                      case L'W':
                          return Number(WeekOfYear(*this, 1), alternate ? 1 : 2);
                      case L'x':
                          return wholeDate(alternate);
                      case L'X':
                          return time(nullptr);
                      case L'y':
                          return date(alternate ? L"y" : L"yy");
                      case L'Y':
                          return date(L"yyyy");
                      case L'z':
                      case L'Z':
                          return TimeZoneName(*this);
                      case L'%':
                          return L"%";
                      default:
                          return L"";
                      }
                  });
}

ustring CSystemTimeSpan::Format(const wchar_t* format) const
{
    return Expand(format,
                  [this](wchar_t code, bool alternate) -> ustring
                  {
                      switch (code)
                      {
                      case L'D':
                          return Number(GetDays(), 1);
                      case L'H':
                          return Number(GetHours(), alternate ? 1 : 2);
                      case L'M':
                          return Number(GetMinutes(), alternate ? 1 : 2);
                      case L'S':
                          return Number(GetSeconds(), alternate ? 1 : 2);
                      case L'm':
                          return Number(GetMilliseconds(), alternate ? 1 : 3);
                      case L's':
                          return GetSign() ? L"-" : alternate ? L"+" : L"";
                      case L'%':
                          return L"%";
                      default:
                          return L"";
                      }
                  });
}
}   // namespace vantor
