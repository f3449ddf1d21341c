#include "../platform/Module.h"

#include "../../res/resource.h"

#include <vantor/TipDlg.h>

namespace vantor
{
namespace
{
// Centres the text in the control; one that is too high is drawn from the top and cut with an ellipsis.
void DrawCentred(HDC hdc, const ustring& text, int width, int height)
{
    RECT area = {0, 0, width, height};
    ::SetBkMode(hdc, TRANSPARENT);
    ::SetBkColor(hdc, ::GetSysColor(COLOR_MENU));
    ::ExtTextOutW(hdc, 0, 0, ETO_OPAQUE, &area, nullptr, 0, nullptr);

    UINT format = DT_CENTER | DT_WORDBREAK;
    const int needed = ::DrawTextW(hdc, text.c_str(), -1, &area, format | DT_CALCRECT);
    area = {0, 0, width, height};   // measuring shrinks it to the text
    if (needed <= height)
    {
        area.top = (height - needed) / 2;
        area.bottom = height - area.top;
    }
    else
    {
        // The ellipsis goes to the first line that the rectangle cuts: to the last whole one.
        TEXTMETRICW font = {};
        ::GetTextMetricsW(hdc, &font);
        if (font.tmHeight > 0 && font.tmHeight <= height)
            area.bottom -= height % font.tmHeight + 1;
        format |= DT_END_ELLIPSIS;
    }
    ::DrawTextW(hdc, text.c_str(), -1, &area, format);
}
}   // namespace

CTipDlg::CTipDlg(HWND hWndParent, const wchar_t* text, bool deferred)
    : CDialog(LibraryModule(), IDD_TIP, hWndParent), m_text(text)
{
    if (deferred)
        return;
    Create();
    CenterWindow();
    ::ShowWindow(m_hWnd, SW_SHOW);
    for (HWND window = m_hWndParent; window; window = ::GetParent(window))
        ::UpdateWindow(window);
    ::UpdateWindow(m_hWnd);
}

CTipDlg::~CTipDlg() = default;

bool CTipDlg::OnDialogProc(HWND hWnd, UINT msg, WPARAM, LPARAM)
{
    if (hWnd != m_hWnd || msg != WM_PAINT)
        return false;

    const HWND control = ::GetDlgItem(m_hWnd, IDC_TIP_TEXT);
    RECT place = {};
    ::GetWindowRect(control, &place);
    PAINTSTRUCT paint;
    const HDC hdc = ::BeginPaint(control, &paint);
    const HGDIOBJ previous = ::SelectObject(hdc, reinterpret_cast<HGDIOBJ>(::SendMessageW(control, WM_GETFONT, 0, 0)));
    DrawCentred(hdc, m_text, place.right - place.left, place.bottom - place.top);
    ::SelectObject(hdc, previous);
    ::EndPaint(control, &paint);
    return false;   // the dialog itself is painted as usual
}
}   // namespace vantor
