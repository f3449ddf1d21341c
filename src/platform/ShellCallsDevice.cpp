// The shell's services on the device. Also built by the tests, against a shell of their own.

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

using AllocatorCall = HRESULT(IMalloc** allocator);
constexpr auto AllocatorName = VANTOR_PROCEDURE("SHGetMalloc");

using CreateShortcutCall = DWORD(wchar_t* shortcut, wchar_t* target);
constexpr auto CreateShortcutName = VANTOR_PROCEDURE("SHCreateShortcut");
}   // namespace

CShell::CShell() : m_module(ShellName) {}

HRESULT CShell::GetSpecialFolderLocation(HWND owner, int folder, ITEMIDLIST** list) const
{
    const auto call = m_module.Find<SpecialFolderLocationCall>(SpecialFolderLocationName);
    return call ? call(owner, folder, list) : E_NOTIMPL;
}

BOOL CShell::GetPathFromIDList(const ITEMIDLIST* list, wchar_t* path) const
{
    const auto call = m_module.Find<PathFromIDListCall>(PathFromIDListName);
    return call ? call(list, path) : FALSE;
}

HRESULT CShell::GetAllocator(IMalloc** allocator) const
{
    const auto call = m_module.Find<AllocatorCall>(AllocatorName);
    return call ? call(allocator) : E_NOTIMPL;
}

BOOL CreateShellShortcut(wchar_t* shortcut, wchar_t* target)
{
    const CDeviceModule core(CoreName);
    const auto call = core.Find<CreateShortcutCall>(CreateShortcutName);
    return call ? call(shortcut, target) != 0 : FALSE;
}
}   // namespace vantor::platform
