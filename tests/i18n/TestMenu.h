// A menu for the length of a test, and what an independent reader sees in it.

#ifndef VANTOR_TEST_TESTMENU_H
#define VANTOR_TEST_TESTMENU_H

#include <vantor/Strings.h>

#include <initializer_list>
#include <utility>

class CTestMenu
{
public:
    CTestMenu() : m_menu(::CreatePopupMenu()) {}
    CTestMenu(std::initializer_list<std::pair<UINT_PTR, const wchar_t*>> items) : CTestMenu()
    {
        for (const auto& [id, text] : items)
            Add(id, text);
    }
    CTestMenu(const CTestMenu&) = delete;
    CTestMenu& operator=(const CTestMenu&) = delete;
    ~CTestMenu() { ::DestroyMenu(m_menu); }

    operator HMENU() const { return m_menu; }

    CTestMenu& Add(UINT_PTR id, const wchar_t* text, UINT flags = MF_STRING)
    {
        ::AppendMenuW(m_menu, flags, id, text);
        return *this;
    }
    // Returns the new sub-menu.
    HMENU AddPopup(const wchar_t* text, UINT flags = 0)
    {
        const HMENU popup = ::CreatePopupMenu();
        ::AppendMenuW(m_menu, MF_POPUP | flags, reinterpret_cast<UINT_PTR>(popup), text);
        return popup;
    }

private:
    HMENU m_menu;
};

inline vantor::ustring ItemText(HMENU menu, UINT position)
{
    wchar_t text[1000] = {};
    ::GetMenuStringW(menu, position, text, 1000, MF_BYPOSITION);
    return text;
}

inline MENUITEMINFOW ItemInfo(HMENU menu, UINT position)
{
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_ID | MIIM_SUBMENU;
    ::GetMenuItemInfoW(menu, position, TRUE, &info);
    return info;
}

#endif
