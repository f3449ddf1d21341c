#include "Bar.h"

#include <gtest/gtest.h>

#include <ostream>

namespace bar
{
namespace
{
constexpr wchar_t ParentClass[] = L"CaptionParent";
constexpr int ParentHeight = 200;
}   // namespace

bool operator==(const CMessage& left, const CMessage& right)
{
    return left.message == right.message && left.wParam == right.wParam && left.lParam == right.lParam;
}

std::ostream& operator<<(std::ostream& out, const CMessage& message)
{
    return out << "message " << message.message << " (" << message.wParam << ", " << message.lParam << ")";
}

CParent::CParent(int width, const wchar_t* title, HWND hWndParent)
{
    static const bool registered = []
    {
        WNDCLASSW wc = {};
        wc.lpfnWndProc = &WndProc;
        wc.hInstance = ::GetModuleHandleW(nullptr);
        wc.lpszClassName = ParentClass;
        return ::RegisterClassW(&wc) != 0;
    }();
    static_cast<void>(registered);
    const DWORD style = WS_VISIBLE | (hWndParent ? WS_CHILD : WS_POPUP);
    m_hWnd = ::CreateWindowExW(0, ParentClass, title, style, 0, 0, width, ParentHeight, hWndParent, nullptr,
                               ::GetModuleHandleW(nullptr), nullptr);
    ::SetWindowLongPtrW(m_hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

CParent::~CParent()
{
    Destroy();
}

void CParent::Destroy()
{
    if (m_hWnd)
        ::DestroyWindow(m_hWnd);
    m_hWnd = nullptr;
}

void CParent::Resize(int width, int height) const
{
    ::SetWindowPos(m_hWnd, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT CALLBACK CParent::WndProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    auto* const parent = reinterpret_cast<CParent*>(::GetWindowLongPtrW(hWnd, GWLP_USERDATA));
    if (!parent)
        return ::DefWindowProcW(hWnd, msg, wParam, lParam);
    parent->OnMessage(hWnd, msg, wParam, lParam);
    if (msg == WM_HELP || msg == WM_COMMAND)
    {
        parent->m_messages.push_back({msg, wParam, lParam});
        if (wParam == IDCANCEL && parent->m_diesOnClose)
            parent->Destroy();
        return 0;
    }
    return ::DefWindowProcW(hWnd, msg, wParam, lParam);
}

CPicture::CPicture(int width, int height) : m_width(width), m_height(height), m_dc(::CreateCompatibleDC(nullptr))
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;   // from the top down
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* pixels = nullptr;
    m_bitmap = ::CreateDIBSection(m_dc, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    m_pixels = static_cast<const DWORD*>(pixels);
    m_previous = ::SelectObject(m_dc, m_bitmap);
}

namespace
{
RECT Client(HWND hWnd)
{
    RECT client = {};
    ::GetClientRect(hWnd, &client);
    return client;
}
}   // namespace

CPicture::CPicture(HWND hWnd) : CPicture(Client(hWnd).right, Client(hWnd).bottom)
{
    const HDC window = ::GetDC(hWnd);
    ::BitBlt(m_dc, 0, 0, m_width, m_height, window, 0, 0, SRCCOPY);
    ::ReleaseDC(hWnd, window);
    ::GdiFlush();
}

CPicture::~CPicture()
{
    ::SelectObject(m_dc, m_previous);
    ::DeleteObject(m_bitmap);
    ::DeleteDC(m_dc);
}

COLORREF CPicture::At(int x, int y) const
{
    const DWORD pixel = m_pixels[y * m_width + x];
    return RGB((pixel >> 16) & 0xFF, (pixel >> 8) & 0xFF, pixel & 0xFF);
}

RECT CPicture::BoundsWhere(COLORREF colour, bool equal) const
{
    RECT bounds = {};
    for (int y = 0; y < m_height; ++y)
    {
        for (int x = 0; x < m_width; ++x)
        {
            const RECT pixel = {x, y, x + 1, y + 1};
            if ((At(x, y) == colour) == equal)
                ::UnionRect(&bounds, &bounds, &pixel);
        }
    }
    return bounds;
}

RECT CPicture::Bounds(COLORREF colour) const
{
    return BoundsWhere(colour, true);
}

RECT CPicture::BoundsOfOthers(COLORREF colour) const
{
    return BoundsWhere(colour, false);
}

bool CPicture::Has(COLORREF colour) const
{
    const RECT bounds = Bounds(colour);
    return !::IsRectEmpty(&bounds);
}

bool CPicture::operator==(const CPicture& other) const
{
    if (m_width != other.m_width || m_height != other.m_height)
        return false;
    for (int y = 0; y < m_height; ++y)
    {
        for (int x = 0; x < m_width; ++x)
        {
            if (At(x, y) != other.At(x, y))
                return false;
        }
    }
    return true;
}

HWND Button(const vantor::CCaptionCtrl& caption, unsigned int id)
{
    return ::GetDlgItem(caption.GetHwnd(), static_cast<int>(id));
}

void Press(HWND button)
{
    ::SendMessageW(button, BM_CLICK, 0, 0);
}

std::wstring Text(HWND hWnd)
{
    wchar_t text[512] = {};
    ::GetWindowTextW(hWnd, text, 512);
    return text;
}

RECT PlaceInParent(HWND hWnd)
{
    RECT place = {};
    ::GetWindowRect(hWnd, &place);
    ::MapWindowPoints(nullptr, ::GetParent(hWnd), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

bool IsInvalid(HWND hWnd)
{
    return ::GetUpdateRect(hWnd, nullptr, FALSE) != FALSE;
}

void Paint(HWND hWnd)
{
    ::RedrawWindow(hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}
}   // namespace bar
