// Special folders and shortcuts, by the shell.
//
//     ustring documents;
//     if (GetSpecialFolderLocation(nullptr, CSIDL_PERSONAL, documents))
//         CreateShortcut(L"\\Windows\\Desktop\\Documents.lnk", documents.c_str(), nullptr);
//
// Nothing throws.

#ifndef VANTOR_SHELL_H
#define VANTOR_SHELL_H

#include <vantor/Platform.h>
#include <vantor/Strings.h>

namespace vantor
{
// The path of a special folder (CSIDL_...), up to MAX_PATH characters. False, and `path` stays as it was, if there is
// no such folder or it is none of the file system. `owner`, of what the shell may have to ask, may be null.
VANTOR_API bool GetSpecialFolderLocation(HWND owner, int folder, ustring& path) noexcept;

// Writes the shortcut file over what was there; the name comes with its ".lnk". A target with a blank is handed to the
// shell in quotation marks, so it is a path alone, without arguments. Whether it exists is not asked. The third
// argument is not used. The desktop answers false to an empty target, one with a quotation mark in it, and one of
// MAX_PATH characters or more.
VANTOR_API bool CreateShortcut(const wchar_t* shortcut, const wchar_t* target, const wchar_t* reserved) noexcept;
}   // namespace vantor

#endif
