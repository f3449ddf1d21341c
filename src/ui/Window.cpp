#include "../os/Lock.h"

#include <vantor/Window.h>

namespace vantor
{
namespace
{
long Get(HWND hWnd, int which)
{
    ::SetLastError(NO_ERROR);
    return ::GetWindowLongW(hWnd, which);
}

// A previous style of 0 is a success too, so only the last error tells.
bool Modify(HWND hWnd, int which, long remove, long add)
{
    const LONG style = (Get(hWnd, which) & ~remove) | add;
    return ::SetWindowLongW(hWnd, which, style) != 0 || ::GetLastError() == NO_ERROR;
}
}   // namespace

std::map<HWND, CWnd*> CWnd::m_map;
CCriticalSection CWnd::m_cs;

CWnd::CWnd(HWND hWndParent) : m_hWnd(nullptr), m_hWndParent(hWndParent) {}

CWnd::~CWnd()
{
    if (m_hWnd && ::IsWindow(m_hWnd))
        ::DestroyWindow(m_hWnd);
    UnregisterInstance(m_hWnd);
}

bool CWnd::OnWindowProc(HWND, UINT, WPARAM, LPARAM, LRESULT*)
{
    return false;
}

int CWnd::OnCreate(CREATESTRUCTW*)
{
    RegisterInstance(m_hWnd, this);
    return 0;
}

void CWnd::OnDestroy()
{
    UnregisterInstance(m_hWnd);
    m_hWnd = nullptr;
}

void CWnd::OnEraseBkgnd(HDC hdc)
{
    RECT client = {};
    ::GetClientRect(m_hWnd, &client);
    ::SetBkColor(hdc, ::GetSysColor(COLOR_BTNFACE));
    ::ExtTextOutW(hdc, 0, 0, ETO_OPAQUE, &client, nullptr, 0, nullptr);
}

long CWnd::GetStyle(HWND hWnd)
{
    return Get(hWnd, GWL_STYLE);
}

long CWnd::GetStyleEx(HWND hWnd)
{
    return Get(hWnd, GWL_EXSTYLE);
}

bool CWnd::ModifyStyle(HWND hWnd, long remove, long add)
{
    return Modify(hWnd, GWL_STYLE, remove, add);
}

bool CWnd::ModifyStyleEx(HWND hWnd, long remove, long add)
{
    return Modify(hWnd, GWL_EXSTYLE, remove, add);
}

long CWnd::SetDlgCtrlId(HWND hWnd, long id)
{
    ::SetLastError(NO_ERROR);
    return ::SetWindowLongW(hWnd, GWL_ID, id);
}

void CWnd::CenterWindow()
{
    if (m_hWndParent && !::IsWindow(m_hWndParent))
        return;
    if (!::IsWindow(m_hWnd))
        return;

    RECT window = {};
    ::GetWindowRect(m_hWnd, &window);
    const int x = (::GetSystemMetrics(SM_CXSCREEN) - (window.right - window.left)) / 2;
    const int y = (::GetSystemMetrics(SM_CYSCREEN) - (window.bottom - window.top)) / 2;
    ::SetWindowPos(m_hWnd, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

bool CWnd::RegisterInstance(HWND hWnd, CWnd* pWnd)
{
    const CLock lock(m_cs);
    return m_map.emplace(hWnd, pWnd).second;
}

bool CWnd::UnregisterInstance(HWND hWnd)
{
    const CLock lock(m_cs);
    return m_map.erase(hWnd) != 0;
}

CWnd* CWnd::FindInstance(HWND hWnd)
{
    const CLock lock(m_cs);
    const auto entry = m_map.find(hWnd);
    return entry == m_map.end() ? nullptr : entry->second;
}

CWaitCursor::CWaitCursor(HINSTANCE hInst, const wchar_t* cursorName)
    : m_hPrevCursor(::SetCursor(hInst || cursorName ? ::LoadCursorW(hInst, cursorName) : nullptr))
{
}

CWaitCursor::~CWaitCursor()
{
    Restore();
}

void CWaitCursor::Restore()
{
    ::SetCursor(m_hPrevCursor);
}
}   // namespace vantor
