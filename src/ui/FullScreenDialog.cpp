#include "FullScreenDialog.h"

#include "../i18n/LibraryTexts.h"
#include "../platform/FullScreen.h"
#include "../platform/Module.h"

#include "../../res/resource.h"

namespace vantor
{
CFullScreenDialog::CFullScreenDialog(unsigned int templateId, HWND owner, const CReport& report)
    : CDialog(LibraryModule(), templateId, owner), m_report(report)
{
}

unsigned int CFullScreenDialog::IconId() const
{
    switch (m_report.type & 0xF0)
    {
    case MB_ICONHAND:
        return IDI_REPORT_ERROR;
    case MB_ICONQUESTION:
        return IDI_REPORT_QUESTION;
    case MB_ICONEXCLAMATION:
        return IDI_REPORT_WARNING;
    default:
        return IDI_REPORT_INFORMATION;
    }
}

void CFullScreenDialog::Present(const int* controls)
{
    TranslateWindow(m_hWnd);
    RegisterInstance(m_hWnd, this);
    ::GetClientRect(m_hWnd, &m_rcClient);

    CCaptionCtrl& caption = GetCaptionCtrl();
    caption.Create(m_hWnd, IDC_CAPTION_BAR, IconId(), LibraryModule(), CCaptionCtrl::ButtonClose, 0);
    m_rcClient.bottom += caption.GetHeight();

    m_layout.clear();
    for (; *controls != 0; ++controls)
    {
        const HWND control = ::GetDlgItem(m_hWnd, *controls);
        if (!control)
            continue;
        RECT place = {};
        ::GetWindowRect(control, &place);
        if (*controls != IDC_CAPTION_BAR)
            ::OffsetRect(&place, 0, caption.GetHeight());
        ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(&place), 2);
        ::MoveWindow(control, place.left, place.top, place.right - place.left, place.bottom - place.top, TRUE);
        m_layout[*controls] = {control, place};
    }

    ModifyStyle(m_hWnd, WS_CAPTION | WS_SIZEBOX, 0);
    ModifyStyleEx(m_hWnd, 0, WS_EX_TOPMOST);
    platform::PresentFullScreen(m_hWnd);
    ::ShowWindow(m_hWnd, platform::ShowFullScreen);
    ::MoveWindow(m_hWnd, 0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN), TRUE);
    ::SetWindowPos(m_hWnd, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
}

void CFullScreenDialog::StartLayout()
{
    m_initialized = true;
    RECT client = {};
    ::GetClientRect(m_hWnd, &client);
    Layout(client.right - client.left, client.bottom - client.top);
}

void CFullScreenDialog::Layout(int width, int height)
{
    const int wider = width - (m_rcClient.right - m_rcClient.left);
    const int higher = height - m_rcClient.bottom;
    for (const auto& [id, entry] : m_layout)
    {
        const auto& [control, place] = entry;
        int x = place.left;
        int y = place.top;
        int cx = place.right - place.left;
        int cy = place.bottom - place.top;
        if (id == IDC_CAPTION_BAR)
        {
            x = 0;
            cx = width;
        }
        else
        {
            switch (Follow(id))
            {
            case Stay:
                continue;
            case GrowWide:
                cx += wider;
                break;
            case GrowBoth:
                cx += wider;
                cy += higher;
                break;
            case MoveHalfAndDown:
                x += wider / 2;
                y += higher;
                break;
            }
        }
        ::MoveWindow(control, x, y, cx, cy, TRUE);
    }
}

bool CFullScreenDialog::OnDialogProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    if (hWnd != m_hWnd)
        return false;
    CCaptionEnabledWindow::OnWindowProc(hWnd, msg, wParam, lParam);
    if (msg != WM_SIZE)
        return false;
    if (m_initialized)
        Layout(static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam)));
    return true;
}
}   // namespace vantor
