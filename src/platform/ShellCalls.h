// The shell's services, with the device's signatures and the device's manners.

#ifndef VANTOR_SRC_SHELLCALLS_H
#define VANTOR_SRC_SHELLCALLS_H

#include "DeviceModule.h"

#include <shlobj.h>

namespace vantor::platform
{
// The shell for the length of a scope: what it hands out, its allocator included, must not outlive the object.
class CShell
{
public:
    CShell();
    CShell(const CShell&) = delete;
    CShell& operator=(const CShell&) = delete;

    // SHGetSpecialFolderLocation: the list belongs to the caller, who frees it with the shell's allocator.
    HRESULT GetSpecialFolderLocation(HWND owner, int folder, ITEMIDLIST** list) const;
    // SHGetPathFromIDList: `path` has room for MAX_PATH characters.
    BOOL GetPathFromIDList(const ITEMIDLIST* list, wchar_t* path) const;
    // SHGetMalloc: the caller releases it.
    HRESULT GetAllocator(IMalloc** allocator) const;

private:
    CDeviceModule m_module;   // none on the desktop
};

// SHCreateShortcut: a target with blanks comes in quotation marks.
BOOL CreateShellShortcut(wchar_t* shortcut, wchar_t* target);
}   // namespace vantor::platform

#endif
