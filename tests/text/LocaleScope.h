// Number settings of a test's choice in place of the user's: the library reads them from the platform, whose answers
// are exchanged while it reads.

#ifndef VANTOR_TEST_LOCALESCOPE_H
#define VANTOR_TEST_LOCALESCOPE_H

#include <vantor/Strings.h>

// What the platform answers, as text for each item. Null: the call fails.
struct CNumberSettings
{
    const wchar_t* decimalPoint = L".";
    const wchar_t* thousandsSep = L",";
    const wchar_t* negativeSign = L"-";
    const wchar_t* negNumber = L"1";
    const wchar_t* grouping = L"3;0";
    const wchar_t* digits = L"2";
    const wchar_t* leadingZeros = L"1";
};

// A CLocale that was built while the platform gave these answers, for this locale only.
vantor::CLocale MakeLocale(const CNumberSettings& settings, LCID locale = 0x1234);

// A number of the platform's answers, for CLocale::GetLocaleInfoW itself.
int ReadNumber(const CNumberSettings& settings, LCTYPE type);

// The string class formats and reads numbers by these settings until the end of the scope.
class CLocaleScope
{
public:
    explicit CLocaleScope(const CNumberSettings& settings = {});
    CLocaleScope(const CLocaleScope&) = delete;
    CLocaleScope& operator=(const CLocaleScope&) = delete;
    ~CLocaleScope();

private:
    const vantor::CLocale m_saved;
};

#endif
