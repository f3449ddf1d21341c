// The shell's services, with the device's signatures and the device's manners.

#ifndef VANTOR_SRC_SHELLCALLS_H
#define VANTOR_SRC_SHELLCALLS_H

#include <vantor/Platform.h>

#include <shlobj.h>

namespace vantor::platform
{
// SHGetSpecialFolderLocation: the list belongs to the caller, who frees it with the shell's allocator.
HRESULT SpecialFolderLocation(HWND owner, int folder, ITEMIDLIST** list);
// SHGetPathFromIDList: `path` has room for MAX_PATH characters.
BOOL PathFromIDList(const ITEMIDLIST* list, wchar_t* path);
// SHGetMalloc: the caller releases it.
HRESULT ShellAllocator(IMalloc** allocator);
// SHCreateShortcut: a target with blanks comes in quotation marks.
BOOL CreateShellShortcut(wchar_t* shortcut, wchar_t* target);
}   // namespace vantor::platform

#endif
