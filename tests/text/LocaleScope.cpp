#include "LocaleScope.h"

#include "support/ImportPatch.h"

#include <cwchar>

using vantor::CLocale;
using vantor::ustring;

namespace
{
const CNumberSettings* g_settings;
LCID g_locale;

const wchar_t* Answer(LCTYPE type)
{
    switch (type)
    {
    case 14:
        return g_settings->decimalPoint;
    case 15:
        return g_settings->thousandsSep;
    case 16:
        return g_settings->grouping;
    case 17:
        return g_settings->digits;
    case 18:
        return g_settings->leadingZeros;
    case 81:
        return g_settings->negativeSign;
    case 0x1010:
        return g_settings->negNumber;
    default:
        return nullptr;
    }
}

int WINAPI FakeGetLocaleInfo(LCID locale, LCTYPE type, wchar_t* buffer, int size)
{
    const wchar_t* const text = locale == g_locale ? Answer(type) : nullptr;
    if (!text)
    {
        ::SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const int needed = static_cast<int>(std::wcslen(text)) + 1;
    if (size < needed)
    {
        ::SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    std::wcscpy(buffer, text);
    return needed;
}
}   // namespace

CLocale MakeLocale(const CNumberSettings& settings, LCID locale)
{
    g_settings = &settings;
    g_locale = locale;
    const support::CImportPatch patch(&::GetLocaleInfoW, &FakeGetLocaleInfo);
    return CLocale(locale);
}

int ReadNumber(const CNumberSettings& settings, LCTYPE type)
{
    g_settings = &settings;
    g_locale = 0x1234;
    const support::CImportPatch patch(&::GetLocaleInfoW, &FakeGetLocaleInfo);
    return CLocale::GetLocaleInfoW(g_locale, type);
}

CLocaleScope::CLocaleScope(const CNumberSettings& settings) : m_saved(ustring::m_Locale)
{
    ustring::m_Locale = MakeLocale(settings);
}

CLocaleScope::~CLocaleScope()
{
    ustring::m_Locale = m_saved;
}
