// Calls that the device and the desktop offer differently, under the device's names. README.md beside this file is the
// table.

#ifndef VANTOR_SRC_CALLS_H
#define VANTOR_SRC_CALLS_H

#include <vantor/Platform.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cwchar>

#ifdef UNDER_CE
extern "C" long _wtol(const wchar_t*);   // exported there, but declared in no header
#else
#include <shlobj.h>
#endif

#ifdef __MINGW32__
// The compiler's headers put functions of its own under these names, which ask for the C locale; these are the runtime
// library's, as the device has them.
extern "C" double __cdecl vantor_wcstod(const wchar_t* text, wchar_t** end) __MINGW_ASM_CALL(wcstod);
extern "C" int __cdecl vantor_swscanf(const wchar_t* text, const wchar_t* format, ...) __MINGW_ASM_CALL(swscanf);
#else
#define vantor_wcstod ::wcstod
#define vantor_swscanf ::swscanf
#endif

namespace vantor::platform
{
// `path` has room for MAX_PATH characters.
inline BOOL SpecialFolderPath(HWND owner, wchar_t* path, int folder, BOOL create)
{
#ifdef UNDER_CE
    return ::SHGetSpecialFolderPath(owner, path, folder, create);
#else
    return ::SHGetSpecialFolderPathW(owner, path, folder, create);
#endif
}

// The record as the device knows it, without the bitmap handle that the desktop appends: both accept this size.
constexpr UINT MenuItemInfoSize =
#ifdef UNDER_CE
    sizeof(MENUITEMINFOW);
#else
    offsetof(MENUITEMINFOW, hbmpItem);
#endif
}   // namespace vantor::platform

#endif
