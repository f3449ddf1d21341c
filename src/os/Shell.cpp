#include "../platform/ShellCalls.h"

#include <vantor/Shell.h>

namespace vantor
{
bool GetSpecialFolderLocation(HWND owner, int folder, ustring& path) noexcept
try
{
    const platform::CShell shell;
    ITEMIDLIST* list = nullptr;
    if (FAILED(shell.GetSpecialFolderLocation(owner, folder, &list)))
        return false;

    wchar_t found[MAX_PATH] = {};
    const bool isPath = shell.GetPathFromIDList(list, found) != FALSE;
    IMalloc* allocator = nullptr;
    if (SUCCEEDED(shell.GetAllocator(&allocator)))
    {
        allocator->Free(list);
        allocator->Release();
    }
    if (isPath)
        path = found;
    return isPath;
}
catch (...)   // out of memory
{
    return false;
}

bool CreateShortcut(const wchar_t* shortcut, const wchar_t* target, const wchar_t*) noexcept
try
{
    ustring name(shortcut), quoted(target);
    if (quoted.find(L' ') != ustring::npos)
        quoted = L"\"" + quoted + L"\"";
    return platform::CreateShellShortcut(name.data(), quoted.data()) != FALSE;
}
catch (...)   // out of memory
{
    return false;
}
}   // namespace vantor
