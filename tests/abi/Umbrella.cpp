// Compiled for each order of <windows.h> and the umbrella, with and without UNICODE. Whatever a program does with the
// platform's macros, it must reach the same functions of the library.

#ifdef WINDOWS_FIRST
#include <windows.h>
#endif
#include <vantor/vantor.h>
#ifndef WINDOWS_FIRST
#include <windows.h>
#endif

#if defined(RegCreateKey) || defined(RegGetValue) || defined(GetProfileInt) || defined(GetProfileString) ||            \
    defined(WriteProfileString)
#error these macros would rename functions of the library
#endif

// Writes and reads by the functions whose names are macros elsewhere; "text 7" if all of them are the library's.
vantor::ustring UMBRELLA_FUNCTION(const wchar_t* key)
{
    using namespace vantor;

    CLogFont font;
    ustring text;
    if (!RegCreateKey(HKEY_CURRENT_USER, key) || !font.WriteProfileString(key, L"text", L"text") ||
        !font.WriteProfileInt(key, L"number", 7) || !RegGetValue(HKEY_CURRENT_USER, key, L"text", text, nullptr))
        return L"";
    if (text != font.GetProfileString(key, L"text", L""))
        return L"";
    text.sprintf(L"%s %d", text.c_str(), font.GetProfileInt(key, L"number", 0));
    return text;
}
