#include "../platform/Calls.h"

#include <vantor/Strings.h>

namespace vantor
{
namespace
{
// A text that cannot be read is empty, whatever the failing call left behind.
template <int Size>
void ReadText(LCID locale, LCTYPE type, wchar_t (&text)[Size])
{
    if (::GetLocaleInfoW(locale, type, text, Size) == 0)
        text[0] = 0;
}
}   // namespace

CLocale ustring::m_Locale(LOCALE_USER_DEFAULT);

CLocale::CLocale(LCID locale)
    : m_negNumber(GetLocaleInfoW(locale, LOCALE_INEGNUMBER)),
      m_grouping(GetLocaleInfoW(locale, LOCALE_SGROUPING)),
      m_digits(GetLocaleInfoW(locale, LOCALE_IDIGITS)),
      m_leadingZeros(GetLocaleInfoW(locale, LOCALE_ILZERO))
{
    ReadText(locale, LOCALE_SDECIMAL, m_decimalPoint);
    ReadText(locale, LOCALE_STHOUSAND, m_thousandsSep);
    ReadText(locale, LOCALE_SNEGATIVESIGN, m_negativeSign);
}

int CLocale::GetLocaleInfoW(LCID locale, LCTYPE type)
{
    wchar_t text[TextSize] = {};
    if (::GetLocaleInfoW(locale, type, text, TextSize) == 0)
        return 0;
    return ::_wtol(text);
}
}   // namespace vantor
