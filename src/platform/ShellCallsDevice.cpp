// The shell's services on the device. Also built by the tests, against a shell of their own.

#include "DeviceModule.h"
#include "ShellCalls.h"

namespace vantor::platform
{
namespace
{
constexpr wchar_t ShellName[] = L"ceshell.dll";
constexpr wchar_t CoreName[] = L"coredll.dll";

using SpecialFolderLocationCall = HRESULT(HWND owner, int folder, ITEMIDLIST** list);
constexpr auto SpecialFolderLocationName = VANTOR_PROCEDURE("SHGetSpecialFolderLocation");

using PathFromIDListCall = BOOL(const ITEMIDLIST* list, wchar_t* path);
constexpr auto PathFromIDListName = VANTOR_PROCEDURE("SHGetPathFromIDList");

using ShellAllocatorCall = HRESULT(IMalloc** allocator);
constexpr auto ShellAllocatorName = VANTOR_PROCEDURE("SHGetMalloc");

using CreateShortcutCall = DWORD(wchar_t* shortcut, wchar_t* target);
constexpr auto CreateShortcutName = VANTOR_PROCEDURE("SHCreateShortcut");
}   // namespace

HRESULT SpecialFolderLocation(HWND owner, int folder, ITEMIDLIST** list)
{
    const CDeviceModule shell(ShellName);
    const auto call = shell.Find<SpecialFolderLocationCall>(SpecialFolderLocationName);
    return call ? call(owner, folder, list) : E_NOTIMPL;
}

BOOL PathFromIDList(const ITEMIDLIST* list, wchar_t* path)
{
    const CDeviceModule shell(ShellName);
    const auto call = shell.Find<PathFromIDListCall>(PathFromIDListName);
    return call ? call(list, path) : FALSE;
}

HRESULT ShellAllocator(IMalloc** allocator)
{
    const CDeviceModule shell(ShellName);
    const auto call = shell.Find<ShellAllocatorCall>(ShellAllocatorName);
    return call ? call(allocator) : E_NOTIMPL;
}

BOOL CreateShellShortcut(wchar_t* shortcut, wchar_t* target)
{
    const CDeviceModule core(CoreName);
    const auto call = core.Find<CreateShortcutCall>(CreateShortcutName);
    return call ? call(shortcut, target) != 0 : FALSE;
}
}   // namespace vantor::platform
