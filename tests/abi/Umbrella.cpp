// Compiled four times: with and without UNICODE, <windows.h> before and after the umbrella. Whatever a program does
// with the platform's macros, it must reach the same functions of the library.

#ifdef WINDOWS_FIRST
#define WIN32_LEAN_AND_MEAN   // without it <windows.h> includes the first Winsock, which the second cannot follow
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

vantor::ustring UMBRELLA_FUNCTION()
{
    vantor::ustring name;
    vantor::CFile::GetModuleFileNameW(nullptr, name, false);
    return name;
}
