#include "../platform/Calls.h"

#include <vantor/Strings.h>

namespace vantor
{
CLocale ustring::m_Locale(LOCALE_USER_DEFAULT);

CLocale::CLocale(LCID locale)
    : m_negNumber(GetLocaleInfoW(locale, LOCALE_INEGNUMBER)),
      m_grouping(GetLocaleInfoW(locale, LOCALE_SGROUPING)),
      m_digits(GetLocaleInfoW(locale, LOCALE_IDIGITS)),
      m_leadingZeros(GetLocaleInfoW(locale, LOCALE_ILZERO))
{
    ::GetLocaleInfoW(locale, LOCALE_SDECIMAL, m_decimalPoint, TextSize);
    ::GetLocaleInfoW(locale, LOCALE_STHOUSAND, m_thousandsSep, TextSize);
    ::GetLocaleInfoW(locale, LOCALE_SNEGATIVESIGN, m_negativeSign, TextSize);
}

int CLocale::GetLocaleInfoW(LCID locale, LCTYPE type)
{
    wchar_t text[TextSize] = {};
    if (::GetLocaleInfoW(locale, type, text, TextSize) == 0)
        return 0;
    return ::_wtol(text);
}
}   // namespace vantor
