#include "../platform/Calls.h"
#include "ProgramFile.h"

#include <vantor/Translator.h>

#include <commctrl.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace vantor
{
template class VANTOR_API CPhoenixSingleton<CTranslator>;

bool CTranslatorInstance::m_bIsInitilized = false;

namespace
{
constexpr UINT LastResourceId = 0xFFFF;

ustring WindowText(HWND hwnd)
{
    ustring text;
    text.resize(static_cast<std::size_t>(::GetWindowTextLengthW(hwnd)) + 1);
    const int length = ::GetWindowTextW(hwnd, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

// A button's text is a pointer; a small number is an index into the toolbar's own strings, and -1 is none.
const wchar_t* ButtonText(const TBBUTTON& button)
{
    const INT_PTR text = button.iString;
    return text == -1 || IS_INTRESOURCE(text) ? nullptr : reinterpret_cast<const wchar_t*>(text);
}

bool ReplaceButton(HWND toolbar, WPARAM index, TBBUTTON button, const ustring& text)
{
    button.iString = reinterpret_cast<INT_PTR>(text.c_str());
    return ::SendMessageW(toolbar, TB_INSERTBUTTONW, index, reinterpret_cast<LPARAM>(&button)) != 0 &&
           ::SendMessageW(toolbar, TB_DELETEBUTTON, index + 1, 0) != 0;
}

// A copy of a dialog template without WS_VISIBLE: some systems show a dialog by its template, whatever its style is by
// then. Empty if there is no such resource.
std::vector<DWORD> HiddenTemplate(HINSTANCE module, UINT id)
{
    std::vector<DWORD> copy;
    const HRSRC resource = ::FindResourceW(module, MAKEINTRESOURCEW(id), RT_DIALOG);
    const HGLOBAL loaded = resource ? ::LoadResource(module, resource) : nullptr;
    const void* const original = loaded ? ::LockResource(loaded) : nullptr;
    const DWORD size = original ? ::SizeofResource(module, resource) : 0;
    if (size < sizeof(DLGTEMPLATE))
        return copy;

    copy.resize(size / sizeof(DWORD) + 1);
    std::memcpy(copy.data(), original, size);
    constexpr DWORD extendedMark = 0xFFFF0001;   // version 1, signature 0xFFFF: the style is the fourth field
    copy[copy[0] == extendedMark ? 3 : 0] &= ~static_cast<DWORD>(WS_VISIBLE);
    return copy;
}
}   // namespace

CTranslator::CTranslator() : m_mode(eTranslate) {}

CTranslator::~CTranslator() = default;

CTranslator::EMode CTranslator::SetMode(EMode mode)
{
    return std::exchange(m_mode, mode);
}

bool CTranslator::XlateEx(ustring& text)
{
    if (m_mode == eGather)
    {
        m_langFile.try_emplace(text, text);
        return true;
    }
    const auto entry = m_langFile.find(text);
    if (entry == m_langFile.end())
        return false;
    text = entry->second;
    return true;
}

void CTranslator::XlateWnd(HWND hwnd)
{
    ustring text = WindowText(hwnd);
    if (XlateEx(text) && m_mode == eTranslate)
        ::SetWindowTextW(hwnd, text.c_str());
    for (HWND child = ::GetWindow(hwnd, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
        XlateWnd(child);
}

void CTranslator::XlateToolbar(HWND toolbar)
{
    TBBUTTON button = {};
    for (WPARAM i = 0; ::SendMessageW(toolbar, TB_GETBUTTON, i, reinterpret_cast<LPARAM>(&button)); ++i)
    {
        if (const wchar_t* label = ButtonText(button))
        {
            ustring text(label);
            if (XlateEx(text) && m_mode == eTranslate)
                ReplaceButton(toolbar, i, button, text);
        }
        XlateMenu(reinterpret_cast<HMENU>(static_cast<UINT_PTR>(button.dwData)));
    }
}

void CTranslator::XlateMenu(HMENU menu)
{
    MENUITEMINFOW item = {};
    item.cbSize = platform::MenuItemInfoSize;
    item.fMask = MIIM_ID;
    for (UINT i = 0; ::GetMenuItemInfoW(menu, i, TRUE, &item); ++i)
    {
        const UINT state = GetMenuState(menu, i, MF_BYPOSITION);
        const UINT flags = (state & MF_POPUP) ? (state & 0xFF) : state;
        if ((flags & (MF_OWNERDRAW | MF_SEPARATOR)) != 0 || (state & (MF_MENUBARBREAK | MF_MENUBREAK)) != 0)
            continue;

        const HMENU sub = ::GetSubMenu(menu, static_cast<int>(i));
        if (sub)
            XlateMenu(sub);

        const int length = GetMenuStringW(menu, i, nullptr, 0, MF_BYPOSITION);
        ustring text;
        text.resize(static_cast<std::size_t>(length) + 1);
        const int copied = GetMenuStringW(menu, i, text.data(), length + 1, MF_BYPOSITION);
        text.resize(static_cast<std::size_t>(std::min(copied, length)));
        if (!XlateEx(text) || m_mode != eTranslate)
            continue;

        if (!sub)
        {
            ModifyMenuW(menu, i, flags | MF_BYPOSITION, GetMenuItemID(menu, static_cast<int>(i)), text.c_str());
        }
        else if (::InsertMenuW(menu, i, flags | MF_BYPOSITION | MF_POPUP, reinterpret_cast<UINT_PTR>(sub),
                               text.c_str()))
        {
            // Once more, for translations that are source texts themselves.
            XlateMenu(sub);
            ::RemoveMenu(menu, i + 1, MF_BYPOSITION);   // unlike DeleteMenu it keeps the sub-menu alive
        }
    }
}

void CTranslator::Gather(HINSTANCE module)
{
    struct Mode
    {
        EMode& mode;
        ~Mode() { mode = eTranslate; }
    } const after{m_mode};
    m_mode = eGather;

    for (UINT id = 1; id <= LastResourceId; ++id)
    {
        ustring text;
        if (text.load(module, id))
            XlateEx(text);
    }
    for (UINT id = 1; id <= LastResourceId; ++id)
    {
        const std::vector<DWORD> hidden = HiddenTemplate(module, id);
        if (hidden.empty())
            continue;
        const HWND dialog = ::CreateDialogIndirectParamW(module, reinterpret_cast<const DLGTEMPLATE*>(hidden.data()),
                                                         ::GetDesktopWindow(), DialogProc, 0);
        if (dialog)
        {
            XlateWnd(dialog);
            ::DestroyWindow(dialog);
        }
    }
    for (UINT id = 1; id <= LastResourceId; ++id)
    {
        if (const HMENU menu = ::LoadMenuW(module, MAKEINTRESOURCEW(id)))
        {
            XlateMenu(menu);
            ::DestroyMenu(menu);
        }
    }
}

INT_PTR CALLBACK CTranslator::DialogProc(HWND hwnd, UINT message, WPARAM, LPARAM) noexcept
{
    if (message == WM_INITDIALOG)
    {
        ::SetWindowLongW(hwnd, GWL_STYLE, ::GetWindowLongW(hwnd, GWL_STYLE) & ~static_cast<LONG>(WS_VISIBLE));
    }
    else if (message == WM_DESTROY)
    {
        while (const HWND child = ::GetWindow(hwnd, GW_CHILD))
        {
            if (!::DestroyWindow(child))
                break;
        }
    }
    return FALSE;
}

CTranslator& CTranslatorInstance::Ref()
{
    if (!m_bIsInitilized)
    {
        m_bIsInitilized = true;
        LoadProgramFile(CPhoenixSingleton<CTranslator>::Ref().m_langFile, nullptr, L".lng");
    }
    return CPhoenixSingleton<CTranslator>::Ref();
}
}   // namespace vantor
