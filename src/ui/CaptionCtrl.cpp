#include "../i18n/LibraryTexts.h"
#include "../platform/Module.h"

#include "../../res/resource.h"

#include <vantor/CaptionCtrl.h>
#include <vantor/Strings.h>

#include <algorithm>
#include <utility>

namespace vantor
{
namespace
{
constexpr wchar_t ClassName[] = L"CaptionCtrl32";
constexpr int TextSize = 256;   // of a title, terminator included

// Identifiers of the bar's own buttons.
constexpr WORD IdHelp = 9;
constexpr WORD IdOk = 1;
constexpr WORD IdClose = 2;

// The buttons stand in slots at the bar's right end.
struct CGeometry
{
    explicit CGeometry(int barHeight) : slot(3 * barHeight / 2), margin(barHeight / 8), height(barHeight) {}

    int ButtonX(int barWidth, int slotsToTheRight) const { return barWidth - slot + margin - slotsToTheRight * slot; }
    int ButtonWidth() const { return slot - 2 * margin; }
    int ButtonHeight() const { return height - 2 * margin; }

    int slot;
    int margin;
    int height;
};

void RegisterClassOnce(WNDPROC procedure)
{
    static bool registered = false;
    if (registered)
        return;
    registered = true;
    WNDCLASSW wc = {};
    wc.style = CS_HREDRAW | CS_VREDRAW;
    wc.lpfnWndProc = procedure;
    wc.hInstance = LibraryModule();
    wc.lpszClassName = ClassName;
    ::RegisterClassW(&wc);
}

HWND CreateButton(HWND bar, WORD id, const wchar_t* text, const CGeometry& geometry, int x)
{
    constexpr DWORD style = WS_CHILD | WS_VISIBLE | BS_VCENTER;
    return ::CreateWindowExW(0, L"BUTTON", text, style, x, geometry.margin, geometry.ButtonWidth(),
                             geometry.ButtonHeight(), bar, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), nullptr,
                             nullptr);
}

void DestroyButton(HWND& button)
{
    if (button)
        ::DestroyWindow(std::exchange(button, nullptr));
}

TRIVERTEX Vertex(int x, int y, COLORREF colour)
{
    const auto channel = [](BYTE value) { return static_cast<COLOR16>(value << 8); };
    return {x, y, channel(GetRValue(colour)), channel(GetGValue(colour)), channel(GetBValue(colour)), 0};
}

void FillGradient(HDC hdc, const RECT& area, COLORREF from, COLORREF to)
{
    TRIVERTEX corners[] = {Vertex(area.left, area.top, from), Vertex(area.right, area.bottom, to)};
    GRADIENT_RECT rectangle = {0, 1};
    ::GradientFill(hdc, corners, 2, &rectangle, 1, GRADIENT_FILL_RECT_H);
}

// Draws the icon into the square at the left end; returns the width that it takes from the text, 0 if it cannot be
// loaded.
int DrawSmallIcon(HDC hdc, HINSTANCE module, unsigned int id, int height)
{
    const int cx = std::min(height, ::GetSystemMetrics(SM_CXSMICON));
    const int cy = std::min(height, ::GetSystemMetrics(SM_CYSMICON));
    const auto icon = static_cast<HICON>(::LoadImageW(module, MAKEINTRESOURCEW(id), IMAGE_ICON, cx, cy, 0));
    if (!icon)
        return 0;
    ::DrawIconEx(hdc, (height - cx) / 2, (height - cy) / 2, icon, cx, cy, 0, nullptr, DI_NORMAL);
    ::DestroyIcon(icon);
    return std::max(height, cx);
}

// The device context's own font, semi-bold, for the length of a scope.
class CSemiBold
{
public:
    explicit CSemiBold(HDC hdc) : m_hdc(hdc)
    {
        LOGFONTW font = {};
        const HGDIOBJ current = ::GetCurrentObject(hdc, OBJ_FONT);
        if (current && ::GetObjectW(current, sizeof font, &font) != 0)
        {
            font.lfWeight = FW_SEMIBOLD;
            m_font = ::CreateFontIndirectW(&font);
        }
        if (m_font)
            m_previous = ::SelectObject(hdc, m_font);
    }
    CSemiBold(const CSemiBold&) = delete;
    CSemiBold& operator=(const CSemiBold&) = delete;
    ~CSemiBold()
    {
        if (!m_font)
            return;
        ::SelectObject(m_hdc, m_previous);
        ::DeleteObject(m_font);
    }

private:
    HDC m_hdc;
    HFONT m_font = nullptr;
    HGDIOBJ m_previous = nullptr;
};
}   // namespace

std::map<HWND, CCaptionCtrl*> CCaptionCtrl::m_mapInstances;

CCaptionCtrl::CCaptionCtrl()
    : m_hWnd(nullptr),
      m_hWndParent(nullptr),
      m_hWndHelp(nullptr),
      m_hWndOk(nullptr),
      m_hWndClose(nullptr),
      m_nIconId(0),
      m_hInstance(nullptr),
      m_dwButtons(0),
      m_nHeight(0),
      m_bCaptionEnabled(true),
      m_ptOrigin{0, 0}
{
}

CCaptionCtrl::~CCaptionCtrl()
{
    Destroy();
}

void CCaptionCtrl::OnBnClickedIcon() {}

void CCaptionCtrl::OnBnClickedHelp()
{
    if (m_hWndParent)
        ::SendMessageW(m_hWndParent, WM_HELP, 0, 0);
}

void CCaptionCtrl::OnBnClickedOk()
{
    if (m_hWndParent)
        ::SendMessageW(m_hWndParent, WM_COMMAND, IDOK, 0);
}

void CCaptionCtrl::OnBnClickedClose()
{
    if (m_hWndParent)
        ::SendMessageW(m_hWndParent, WM_COMMAND, IDCANCEL, 0);
}

int CCaptionCtrl::Create(HWND hWndParent, unsigned int id, unsigned int iconId, HINSTANCE hInst, unsigned long buttons,
                         int height)
{
    if (!hWndParent)
        return 0;
    RegisterClassOnce(WndProc);
    Destroy();

    RECT client = {};
    ::GetClientRect(hWndParent, &client);
    wchar_t title[TextSize] = {};
    ::GetWindowTextW(hWndParent, title, TextSize);
    m_nIconId = iconId;
    m_hInstance = hInst;
    m_dwButtons = buttons;
    m_nHeight = height != 0 ? height : ::GetSystemMetrics(SM_CYCAPTION);
    m_hWnd = ::CreateWindowExW(0, ClassName, title, WS_CHILD | WS_VISIBLE | WS_GROUP, 0, 0, client.right - client.left,
                               m_nHeight, hWndParent, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)),
                               LibraryModule(), this);
    return m_hWnd != nullptr;
}

int CCaptionCtrl::Destroy()
{
    DestroyButton(m_hWndHelp);
    DestroyButton(m_hWndOk);
    DestroyButton(m_hWndClose);
    return m_hWnd ? ::DestroyWindow(std::exchange(m_hWnd, nullptr)) : 0;
}

// Without a window there is nothing to do; the system would take the null handle for the whole screen.
int CCaptionCtrl::Invalidate()
{
    return m_hWnd ? ::InvalidateRect(m_hWnd, nullptr, TRUE) : 0;
}

void CCaptionCtrl::EnableCaption(bool enable)
{
    m_bCaptionEnabled = enable;
    Invalidate();
}

int CCaptionCtrl::EnableButton(unsigned int id, int enable)
{
    return ::EnableWindow(::GetDlgItem(m_hWnd, static_cast<int>(id)), enable);
}

int CCaptionCtrl::IsButtonEnabled(unsigned int id)
{
    return ::IsWindowEnabled(::GetDlgItem(m_hWnd, static_cast<int>(id)));
}

CCaptionCtrl* CCaptionCtrl::FindInstance(HWND hWnd)
{
    const auto entry = m_mapInstances.find(hWnd);
    return entry == m_mapInstances.end() ? nullptr : entry->second;
}

LRESULT CALLBACK CCaptionCtrl::WndProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam) noexcept
{
    const auto* cs = msg == WM_CREATE ? reinterpret_cast<const CREATESTRUCTW*>(lParam) : nullptr;
    CCaptionCtrl* const bar = cs ? static_cast<CCaptionCtrl*>(cs->lpCreateParams) : FindInstance(hWnd);
    if (!bar)
        return ::DefWindowProcW(hWnd, msg, wParam, lParam);

    const auto low = static_cast<short>(LOWORD(lParam));
    const auto high = static_cast<short>(HIWORD(lParam));
    switch (msg)
    {
    case WM_CREATE:
        if (cs)   // not of a stranger's message
            bar->OnCreate(hWnd, *cs);
        break;
    case WM_DESTROY:
        bar->OnDestroy(hWnd);
        break;
    case WM_SIZE:
        bar->OnSize(low);
        break;
    case WM_PAINT:
        bar->OnPaint(hWnd);
        break;
    case WM_COMMAND:
        bar->OnCommand(LOWORD(wParam));
        break;
    case WM_LBUTTONDOWN:
        bar->OnTap(low, high);
        break;
    default:
        break;
    }
    return ::DefWindowProcW(hWnd, msg, wParam, lParam);
}

void CCaptionCtrl::OnCreate(HWND hWnd, const CREATESTRUCTW& cs)
{
    m_hWndParent = cs.hwndParent;
    m_mapInstances.emplace(hWnd, this);

    RECT window = {};
    ::GetWindowRect(hWnd, &window);
    m_ptOrigin = {window.left, window.top};
    ::ScreenToClient(m_hWndParent, &m_ptOrigin);

    const CGeometry geometry(m_nHeight);
    const bool ok = (m_dwButtons & ButtonOk) != 0;
    const bool close = (m_dwButtons & ButtonClose) != 0;
    if (m_dwButtons & ButtonHelp)
        m_hWndHelp = CreateButton(hWnd, IdHelp, L"?", geometry, geometry.ButtonX(cs.cx, ok + close));
    if (ok)
    {
        ustring text;
        LoadLibraryText(IDS_BUTTON_OK, text);
        m_hWndOk = CreateButton(hWnd, IdOk, text.c_str(), geometry, geometry.ButtonX(cs.cx, close));
    }
    if (close)
        m_hWndClose = CreateButton(hWnd, IdClose, L"x", geometry, geometry.ButtonX(cs.cx, 0));
}

// The buttons go with the bar. An object whose bar went with its parent must not keep handles that the system gives to
// others.
void CCaptionCtrl::OnDestroy(HWND hWnd)
{
    m_mapInstances.erase(hWnd);
    m_hWnd = m_hWndHelp = m_hWndOk = m_hWndClose = nullptr;
}

void CCaptionCtrl::OnSize(int width)
{
    const CGeometry geometry(m_nHeight);
    int slotsToTheRight = 0;
    for (const HWND button : {m_hWndClose, m_hWndOk, m_hWndHelp})
    {
        if (button)
            ::MoveWindow(button, geometry.ButtonX(width, slotsToTheRight++), geometry.margin, geometry.ButtonWidth(),
                         geometry.ButtonHeight(), TRUE);
    }
}

void CCaptionCtrl::OnPaint(HWND hWnd)
{
    PAINTSTRUCT paint;
    const HDC hdc = ::BeginPaint(hWnd, &paint);
    RECT area = {};
    ::GetClientRect(hWnd, &area);

    const bool active = m_bCaptionEnabled;
    ::SetBkMode(hdc, TRANSPARENT);
    FillGradient(hdc, area, ::GetSysColor(active ? COLOR_ACTIVECAPTION : COLOR_INACTIVECAPTION),
                 ::GetSysColor(active ? COLOR_GRADIENTACTIVECAPTION : COLOR_GRADIENTINACTIVECAPTION));

    const int buttons = (m_hWndHelp != nullptr) + (m_hWndOk != nullptr) + (m_hWndClose != nullptr);
    RECT text = area;
    text.left += (area.bottom - area.top) / 4;
    text.right -= CGeometry(m_nHeight).slot * buttons;
    if (m_nIconId != 0)
        text.left += DrawSmallIcon(hdc, m_hInstance, m_nIconId, m_nHeight);

    wchar_t title[TextSize] = {};
    ::GetWindowTextW(m_hWndParent ? m_hWndParent : hWnd, title, TextSize);
    ::SetTextColor(hdc, ::GetSysColor(active ? COLOR_CAPTIONTEXT : COLOR_INACTIVECAPTIONTEXT));
    {
        const CSemiBold font(hdc);
        ::DrawTextW(hdc, title, -1, &text, DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS);
    }
    ::EndPaint(hWnd, &paint);
}

void CCaptionCtrl::OnCommand(WORD id)
{
    if (id == IdOk)
        OnBnClickedOk();
    else if (id == IdClose)
        OnBnClickedClose();
    else if (id == IdHelp)
        OnBnClickedHelp();
}

// The icon's square at the left end is a button.
void CCaptionCtrl::OnTap(int x, int y)
{
    if (m_nIconId != 0 && x < m_nHeight && y < m_nHeight)
        OnBnClickedIcon();
}

CCaptionEnabledWindow::CCaptionEnabledWindow() : m_caption(*this) {}

bool CCaptionEnabledWindow::OnBnClickedIcon()
{
    return false;
}

bool CCaptionEnabledWindow::OnBnClickedHelp()
{
    return false;
}

bool CCaptionEnabledWindow::OnBnClickedOk()
{
    return false;
}

bool CCaptionEnabledWindow::OnBnClickedClose()
{
    return false;
}

void CCaptionEnabledWindow::OnWindowProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    const HWND bar = m_caption.GetHwnd();
    switch (msg)
    {
    case WM_SIZE:
        if (bar && hWnd && hWnd == m_caption.GetParent())
            ::SetWindowPos(bar, nullptr, 0, 0, static_cast<short>(LOWORD(lParam)), m_caption.GetHeight(),
                           SWP_NOMOVE | SWP_NOZORDER);
        break;
    case WM_ACTIVATE:
        m_caption.EnableCaption(LOWORD(wParam) != WA_INACTIVE);
        break;
    case WM_SETTEXT:
        if (bar && hWnd == ::GetParent(bar))
            m_caption.Invalidate();
        break;
    default:
        break;
    }
}

CCaptionEnabledWindow::CMyCaptionCtrl::CMyCaptionCtrl(CCaptionEnabledWindow& owner) : m_owner(owner) {}

void CCaptionEnabledWindow::CMyCaptionCtrl::OnBnClickedIcon()
{
    m_owner.OnBnClickedIcon();
}

void CCaptionEnabledWindow::CMyCaptionCtrl::OnBnClickedHelp()
{
    if (!m_owner.OnBnClickedHelp())
        CCaptionCtrl::OnBnClickedHelp();
}

void CCaptionEnabledWindow::CMyCaptionCtrl::OnBnClickedOk()
{
    if (!m_owner.OnBnClickedOk())
        CCaptionCtrl::OnBnClickedOk();
}

void CCaptionEnabledWindow::CMyCaptionCtrl::OnBnClickedClose()
{
    if (!m_owner.OnBnClickedClose())
        CCaptionCtrl::OnBnClickedClose();
}
}   // namespace vantor
