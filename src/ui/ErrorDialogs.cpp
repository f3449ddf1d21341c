#include "ErrorDialogs.h"

#include "../i18n/LibraryTexts.h"
#include "../platform/Module.h"

#include "../../res/resource.h"

#include <algorithm>
#include <iterator>

namespace vantor
{
namespace
{
constexpr int Buttons[] = {IDC_REPORT_ROW3_LEFT, IDC_REPORT_ROW3_MIDDLE, IDC_REPORT_ROW3_RIGHT, IDC_REPORT_ROW2_LEFT,
                           IDC_REPORT_ROW2_RIGHT};

// A button of the template, and the command that it stands for.
struct CCommand
{
    int control;
    WORD command;
};

struct CButtonGroup
{
    CCommand shown[3];   // unused ones are zero
    bool cancels;        // whether the cancel key ends the box
};

CButtonGroup GroupOf(unsigned int type)
{
    constexpr int left = IDC_REPORT_ROW3_LEFT;
    constexpr int middle = IDC_REPORT_ROW3_MIDDLE;
    constexpr int right = IDC_REPORT_ROW3_RIGHT;
    constexpr int first = IDC_REPORT_ROW2_LEFT;
    constexpr int second = IDC_REPORT_ROW2_RIGHT;
    switch (type & 0x0F)
    {
    case MB_OKCANCEL:
        return {{{first, IDOK}, {second, IDCANCEL}}, true};
    case MB_ABORTRETRYIGNORE:
        return {{{left, IDABORT}, {middle, IDRETRY}, {right, IDIGNORE}}, false};
    case MB_YESNOCANCEL:
        return {{{left, IDYES}, {middle, IDNO}, {right, IDCANCEL}}, true};
    case MB_YESNO:
        return {{{first, IDYES}, {second, IDNO}}, false};
    case MB_RETRYCANCEL:
        return {{{first, IDRETRY}, {second, IDCANCEL}}, true};
    case MB_OK:
        return {{{middle, IDOK}}, true};
    default:
        return {{{middle, IDOK}}, false};
    }
}

// The string resources of the captions stand in the order of the commands.
constexpr unsigned int CaptionOf(WORD command)
{
    return IDS_BUTTON_OK + command - IDOK;
}
static_assert(CaptionOf(IDCANCEL) == IDS_BUTTON_CANCEL && CaptionOf(IDABORT) == IDS_BUTTON_ABORT &&
              CaptionOf(IDRETRY) == IDS_BUTTON_RETRY && CaptionOf(IDIGNORE) == IDS_BUTTON_IGNORE &&
              CaptionOf(IDYES) == IDS_BUTTON_YES && CaptionOf(IDNO) == IDS_BUTTON_NO);

// Edges included.
bool Contains(const RECT& area, POINT point)
{
    return point.x >= area.left && point.x <= area.right && point.y >= area.top && point.y <= area.bottom;
}
}   // namespace

CErrorReportDlg::CErrorReportDlg(HWND owner, const CReport& report)
    : CFullScreenDialog(IDD_ERROR_REPORT, owner, report),
      m_hIcon(static_cast<HICON>(::LoadImageW(LibraryModule(), MAKEINTRESOURCEW(IconId()), IMAGE_ICON,
                                              ::GetSystemMetrics(SM_CXICON), ::GetSystemMetrics(SM_CYICON), 0)))
{
}

CErrorReportDlg::~CErrorReportDlg()
{
    if (m_hIcon)
        ::DestroyIcon(m_hIcon);
}

bool CErrorReportDlg::OnInitDialog()
{
    static constexpr int controls[] = {IDC_CAPTION_BAR,       IDC_REPORT_ICON,
                                       IDC_REPORT_MESSAGE,    IDC_REPORT_DETAILS,
                                       IDC_REPORT_ROW3_LEFT,  IDC_REPORT_ROW3_MIDDLE,
                                       IDC_REPORT_ROW3_RIGHT, IDC_REPORT_ROW2_LEFT,
                                       IDC_REPORT_ROW2_RIGHT, 0};
    Present(controls);
    ::SetWindowTextW(m_hWnd, m_report.title.c_str());
    ::SendMessageW(::GetDlgItem(m_hWnd, IDC_REPORT_ICON), STM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(m_hIcon));
    SetDlgItemTextW(IDC_REPORT_MESSAGE, m_report.message.c_str());
    m_details = ::GetDlgItem(m_hWnd, IDC_REPORT_DETAILS);
    SetUpButtons();
    m_tapCount = 0;
    StartLayout();
    return true;
}

void CErrorReportDlg::SetUpButtons()
{
    const CButtonGroup group = GroupOf(m_report.type);
    for (const int id : Buttons)
    {
        const auto isThis = [id](const CCommand& shown) { return shown.control == id; };
        if (std::none_of(std::begin(group.shown), std::end(group.shown), isThis))
            ::ShowWindow(::GetDlgItem(m_hWnd, id), SW_HIDE);
    }
    for (const CCommand& shown : group.shown)
    {
        if (shown.control == 0)
            break;
        const HWND button = ::GetDlgItem(m_hWnd, shown.control);
        ustring caption;
        LoadLibraryText(CaptionOf(shown.command), caption);
        ::SetWindowTextW(button, caption.c_str());
        ::ShowWindow(button, SW_SHOW);
        SetDlgCtrlId(button, shown.command);
    }
    // The template's default button may be hidden, and has lost its number: the return key means the first shown.
    ::SendMessageW(m_hWnd, DM_SETDEFID, group.shown[0].command, 0);
}

// A box without a Cancel button cannot be cancelled by key, except the plain OK box.
void CErrorReportDlg::OnCancel()
{
    if (GroupOf(m_report.type).cancels)
        ::EndDialog(m_hWnd, IDCANCEL);
}

bool CErrorReportDlg::OnDialogProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    if (CFullScreenDialog::OnDialogProc(hWnd, msg, wParam, lParam))
        return true;
    if (hWnd != m_hWnd)
        return false;
    if (msg == WM_COMMAND && LOWORD(wParam) == IDC_REPORT_DETAILS)
    {
        ShowDetails();
        return true;
    }
    if (msg == WM_LBUTTONDOWN || msg == WM_LBUTTONDBLCLK)   // a second tap that comes quickly is a tap all the same
    {
        OnTap({static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))});
        return true;
    }
    return false;
}

void CErrorReportDlg::OnTap(POINT point)
{
    RECT area = {};
    ::GetWindowRect(m_details, &area);
    ::ClientToScreen(m_hWnd, &point);
    if (Contains(area, point) && ++m_tapCount >= 2)
        ::ShowWindow(m_details, SW_SHOW);
}

void CErrorReportDlg::ShowDetails()
{
    CErrorInfoDlg details(m_hWnd, m_report);
    details.DoModal();
}

CFullScreenDialog::EFollow CErrorReportDlg::Follow(int id) const
{
    switch (id)
    {
    case IDC_REPORT_MESSAGE:
        return GrowBoth;
    case IDC_REPORT_ICON:
    case IDC_REPORT_DETAILS:
        return Stay;
    default:
        return MoveHalfAndDown;
    }
}

CErrorInfoDlg::CErrorInfoDlg(HWND owner, const CReport& report) : CFullScreenDialog(IDD_ERROR_INFO, owner, report) {}

bool CErrorInfoDlg::OnInitDialog()
{
    static constexpr int controls[] = {IDC_CAPTION_BAR,
                                       IDC_INFO_SOURCE_LABEL,
                                       IDC_INFO_FUNCTION_LABEL,
                                       IDC_INFO_FILE_LABEL,
                                       IDC_INFO_FILE2_LABEL,
                                       IDC_INFO_LINE_LABEL,
                                       IDC_INFO_LINE2_LABEL,
                                       IDC_INFO_MESSAGE_LABEL,
                                       IDC_INFO_SOURCE,
                                       IDC_INFO_FUNCTION,
                                       IDC_INFO_FILE,
                                       IDC_INFO_FILE2,
                                       IDC_INFO_LINE,
                                       IDC_INFO_LINE2,
                                       IDC_INFO_MESSAGE,
                                       IDCANCEL,
                                       0};
    Present(controls);
    ::SetWindowTextW(m_hWnd, m_report.title.c_str());
    SetDlgItemTextW(IDC_INFO_SOURCE, m_report.source.c_str());
    SetDlgItemTextW(IDC_INFO_FUNCTION, m_report.function.c_str());
    SetDlgItemTextW(IDC_INFO_FILE, m_report.fileName.c_str());
    SetDlgItemTextW(IDC_INFO_FILE2, m_report.text.c_str());
    SetDlgItemTextW(IDC_INFO_LINE, ustring::ui64toa(m_report.line).c_str());
    SetDlgItemTextW(IDC_INFO_LINE2, ustring::ui64toa(m_report.number).c_str());
    SetDlgItemTextW(IDC_INFO_MESSAGE, m_report.message.c_str());
    StartLayout();
    return true;
}

CFullScreenDialog::EFollow CErrorInfoDlg::Follow(int id) const
{
    switch (id)
    {
    case IDC_INFO_SOURCE:
    case IDC_INFO_FUNCTION:
    case IDC_INFO_FILE:
    case IDC_INFO_FILE2:
    case IDC_INFO_LINE:
    case IDC_INFO_LINE2:
        return GrowWide;
    case IDC_INFO_MESSAGE:
        return GrowBoth;
    case IDCANCEL:
        return MoveHalfAndDown;
    default:
        return Stay;
    }
}
}   // namespace vantor
