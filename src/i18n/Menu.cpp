#include "../platform/Calls.h"

#include <vantor/Translator.h>

namespace vantor
{
namespace
{
// One item of a menu with its text, for which the platform wants a buffer.
struct CMenuItem
{
    static constexpr UINT TextSize = 128;   // characters, terminator included

    MENUITEMINFOW info = {};
    wchar_t text[TextSize] = {};

    bool Read(HMENU menu, UINT position, UINT mask)
    {
        info.cbSize = platform::MenuItemInfoSize;
        info.fMask = mask;
        info.dwTypeData = text;
        info.cch = TextSize;
        return ::GetMenuItemInfoW(menu, position, TRUE, &info) != FALSE;
    }
};

bool ReadItem(HMENU menu, UINT item, bool byPosition, UINT mask, MENUITEMINFOW& info)
{
    info.cbSize = platform::MenuItemInfoSize;
    info.fMask = mask;
    return ::GetMenuItemInfoW(menu, item, byPosition, &info) != FALSE;
}

// The position of a command, or the count of items if the menu does not have it.
UINT PositionOf(HMENU menu, UINT id)
{
    MENUITEMINFOW info = {};
    UINT position = 0;
    while (ReadItem(menu, position, true, MIIM_ID, info) && info.wID != id)
        ++position;
    return position;
}

bool CopyItem(HMENU target, HMENU source, UINT position)
{
    CMenuItem item;
    if (!item.Read(source, position, MIIM_STATE | MIIM_ID | MIIM_SUBMENU | MIIM_TYPE | MIIM_DATA))
        return false;

    if (!item.info.hSubMenu)
    {
        const UINT kind = (item.info.fType & MFT_SEPARATOR) ? MF_SEPARATOR : MF_STRING;
        return ::AppendMenuW(target, kind, item.info.wID, item.text) != FALSE;
    }

    const HMENU popup = ::CreatePopupMenu();
    if (!popup)
        return false;
    if (!::AppendMenuW(target, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), item.text))
    {
        ::DestroyMenu(popup);
        return false;
    }
    return menu::CopyMenu(popup, item.info.hSubMenu);
}
}   // namespace

int menu::GetMenuItemCount(HMENU menu)
{
    CMenuItem item;
    UINT count = 0;
    while (item.Read(menu, count, MIIM_ID | MIIM_TYPE))
        ++count;
    return static_cast<int>(count);
}

UINT menu::GetMenuState(HMENU menu, UINT item, UINT flags)
{
    constexpr UINT types = MF_MENUBARBREAK | MF_MENUBREAK | MF_OWNERDRAW | MF_SEPARATOR;
    constexpr UINT states = MF_GRAYED | MF_CHECKED | MF_HILITE;

    MENUITEMINFOW info = {};
    ReadItem(menu, item, (flags & MF_BYPOSITION) != 0, MIIM_STATE | MIIM_TYPE, info);
    return (info.fType & types) | (info.fState & states);
}

int menu::GetMenuStringW(HMENU menu, UINT item, wchar_t* buffer, int maxChars, UINT flags)
{
    MENUITEMINFOW info = {};
    if (!ReadItem(menu, 0, true, 0, info))
        return 0;
    info.dwTypeData = buffer;
    info.cch = static_cast<UINT>(maxChars);
    if (!ReadItem(menu, item, flags == MF_BYPOSITION, MIIM_TYPE, info))
        return 0;
    return static_cast<int>(info.cch);
}

UINT menu::GetMenuItemID(HMENU menu, int position)
{
    MENUITEMINFOW info = {};
    ReadItem(menu, static_cast<UINT>(position), true, MIIM_ID, info);
    return info.wID;
}

bool menu::ModifyMenuW(HMENU menu, UINT item, UINT flags, UINT_PTR newId, const wchar_t* text)
{
    if (!(flags & MF_BYPOSITION))
    {
        item = PositionOf(menu, item);
        flags |= MF_BYPOSITION;
    }
    return ::DeleteMenu(menu, item, flags) && ::InsertMenuW(menu, item, flags, newId, text);
}

bool menu::ReloadMenu(HMENU menu, HINSTANCE module, UINT id)
{
    while (::RemoveMenu(menu, 0, MF_BYPOSITION))
    {
    }
    const HMENU loaded = ::LoadMenuW(module, MAKEINTRESOURCEW(id & 0xFFFF));
    if (!loaded)
        return false;
    const bool copied = CopyMenu(menu, loaded);
    ::DestroyMenu(loaded);
    return copied;
}

bool menu::CopyMenu(HMENU target, HMENU source)
{
    const UINT count = static_cast<UINT>(menu::GetMenuItemCount(source));
    for (UINT position = 0; position < count; ++position)
    {
        if (!CopyItem(target, source, position))
            return false;
    }
    return true;
}

// Without the texts, which the function in namespace menu reads too.
int CTranslator::GetMenuItemCount(HMENU menu)
{
    MENUITEMINFOW info = {};
    UINT count = 0;
    while (ReadItem(menu, count, true, MIIM_ID, info))
        ++count;
    return static_cast<int>(count);
}

UINT CTranslator::GetMenuState(HMENU menu, UINT item, UINT flags)
{
    return menu::GetMenuState(menu, item, flags);
}

int CTranslator::GetMenuStringW(HMENU menu, UINT item, wchar_t* buffer, int maxChars, UINT flags)
{
    return menu::GetMenuStringW(menu, item, buffer, maxChars, flags);
}

UINT CTranslator::GetMenuItemID(HMENU menu, int position)
{
    return menu::GetMenuItemID(menu, position);
}

int CTranslator::ModifyMenuW(HMENU menu, UINT item, UINT flags, UINT_PTR newId, const wchar_t* text)
{
    return menu::ModifyMenuW(menu, item, flags, newId, text);
}
}   // namespace vantor
