#include "ShellCalls.h"

#include <vantor/COM.h>

#include <objbase.h>
#include <shlguid.h>

#include <cwchar>
#include <memory>

namespace vantor::platform
{
namespace
{
struct CRelease
{
    void operator()(IUnknown* object) const { object->Release(); }
};

// Takes away the quotation marks around a path, which a link object need not understand. False if there are others: no
// path has any.
bool Unquote(wchar_t*& path)
{
    const std::size_t length = std::wcslen(path);
    if (length >= 2 && path[0] == L'"' && path[length - 1] == L'"')
    {
        path[length - 1] = 0;
        ++path;
    }
    return !std::wcschr(path, L'"');
}

bool SaveLink(const wchar_t* file, const wchar_t* target)
{
    const CCOMInitializer com(false);   // where it fails the thread has COM already, in another apartment
    void* created = nullptr;
    if (FAILED(::CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, &created)))
        return false;
    const std::unique_ptr<IShellLinkW, CRelease> link(static_cast<IShellLinkW*>(created));
    if (FAILED(link->SetPath(target)))
        return false;

    void* asked = nullptr;
    if (FAILED(link->QueryInterface(IID_IPersistFile, &asked)))
        return false;
    const std::unique_ptr<IPersistFile, CRelease> persistent(static_cast<IPersistFile*>(asked));
    return SUCCEEDED(persistent->Save(file, TRUE));
}
}   // namespace

CShell::CShell() = default;

HRESULT CShell::GetSpecialFolderLocation(HWND owner, int folder, ITEMIDLIST** list) const
{
    return ::SHGetSpecialFolderLocation(owner, folder, list);
}

BOOL CShell::GetPathFromIDList(const ITEMIDLIST* list, wchar_t* path) const
{
    return ::SHGetPathFromIDListW(list, path);
}

HRESULT CShell::GetAllocator(IMalloc** allocator) const
{
    return ::SHGetMalloc(allocator);
}

BOOL CreateShellShortcut(wchar_t* shortcut, wchar_t* target)
{
    wchar_t file[MAX_PATH];   // whole: a link object does not know the current folder
    const DWORD length = ::GetFullPathNameW(shortcut, MAX_PATH, file, nullptr);
    if (length == 0 || length >= MAX_PATH || !Unquote(target))
        return FALSE;
    // A longer target than a link object has room for is not always refused by it.
    return *target != 0 && std::wcslen(target) < MAX_PATH && SaveLink(file, target);
}
}   // namespace vantor::platform
