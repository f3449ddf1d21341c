// A window's object: its hooks, its end, its background and its place.

#include "support/ImportPatch.h"
#include "support/MessagePump.h"

#include <vantor/Window.h>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

using namespace vantor;
using support::CImportPatch;

namespace
{
HWND MakePopup(int width, int height)
{
    const HWND window = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 1, 2, width, height, nullptr, nullptr,
                                          ::GetModuleHandleW(nullptr), nullptr);
    EXPECT_NE(nullptr, window);
    return window;
}

RECT PlaceOf(HWND window)
{
    RECT place = {};
    ::GetWindowRect(window, &place);
    return place;
}

int g_screenWidth = 0;
int g_screenHeight = 0;

int WINAPI FakeGetSystemMetrics(int index)
{
    if (index == SM_CXSCREEN)
        return g_screenWidth;
    return index == SM_CYSCREEN ? g_screenHeight : ::GetSystemMetrics(index);
}

constexpr COLORREF FakeButtonFace = RGB(0x12, 0x34, 0x56);

DWORD WINAPI FakeGetSysColor(int index)
{
    return index == COLOR_BTNFACE ? FakeButtonFace : ~FakeButtonFace & 0xFFFFFF;
}

int g_setWindowPosCalls = 0;
UINT g_setWindowPosFlags = 0;
HWND g_setWindowPosAfter = nullptr;

BOOL WINAPI RecordingSetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags)
{
    ++g_setWindowPosCalls;
    g_setWindowPosFlags = flags;
    g_setWindowPosAfter = after;
    return ::SetWindowPos(window, after, x, y, width, height, flags);
}

// A window class as applications write it: its procedure hands messages to the object's hooks.
class CPlainWindow : public CWnd
{
public:
    CPlainWindow()
    {
        WNDCLASSW wc = {};
        wc.lpfnWndProc = Proc;
        wc.hInstance = ::GetModuleHandleW(nullptr);
        wc.lpszClassName = L"VantorPlainWindow";
        ::RegisterClassW(&wc);
        ::CreateWindowExW(0, wc.lpszClassName, L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, wc.hInstance, this);
    }

    static int destroyed;   // WM_DESTROY messages whose window's object was found

private:
    static LRESULT CALLBACK Proc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam) noexcept
    {
        if (msg == WM_CREATE)
        {
            auto* const cs = reinterpret_cast<CREATESTRUCTW*>(lParam);
            CWnd* const created = static_cast<CPlainWindow*>(cs->lpCreateParams);
            created->m_hWnd = hWnd;
            return created->OnCreate(cs);
        }
        CWnd* const found = FindInstance(hWnd);
        if (msg == WM_DESTROY && found)
        {
            ++destroyed;
            found->OnDestroy();
        }
        return ::DefWindowProcW(hWnd, msg, wParam, lParam);
    }
};
int CPlainWindow::destroyed = 0;

// A picture in memory that is larger than the window's client area.
class CPicture
{
public:
    static constexpr int Size = 50;

    CPicture() : m_hdc(::CreateCompatibleDC(nullptr))
    {
        BITMAPINFO info = {};
        info.bmiHeader = {sizeof info.bmiHeader, Size, -Size, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        m_bitmap = ::CreateDIBSection(m_hdc, &info, DIB_RGB_COLORS, &m_bits, nullptr, 0);
        m_previous = ::SelectObject(m_hdc, m_bitmap);
    }
    CPicture(const CPicture&) = delete;
    CPicture& operator=(const CPicture&) = delete;
    ~CPicture()
    {
        ::SelectObject(m_hdc, m_previous);
        ::DeleteObject(m_bitmap);
        ::DeleteDC(m_hdc);
    }

    HDC DC() const { return m_hdc; }
    int Count(COLORREF colour, int width, int height) const
    {
        ::GdiFlush();
        int count = 0;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                count += ::GetPixel(m_hdc, x, y) == colour;
        return count;
    }

private:
    HDC m_hdc;
    void* m_bits = nullptr;
    HBITMAP m_bitmap;
    HGDIOBJ m_previous;
};

class Window : public ::testing::Test
{
protected:
    Window()
    {
        support::UseOwnDesktop();
        g_setWindowPosCalls = 0;
        CPlainWindow::destroyed = 0;
    }
    ~Window() override
    {
        CWnd::UnregisterInstance(nullptr);
        ::DestroyWindow(m_window);
    }

    HWND Popup(int width = 10, int height = 10) { return m_window = MakePopup(width, height); }

    // Where CenterWindow puts a window of the one size on a screen of the other.
    RECT Centred(int width, int height, int screenWidth, int screenHeight)
    {
        g_screenWidth = screenWidth;
        g_screenHeight = screenHeight;
        const CImportPatch patch(&::GetSystemMetrics, &FakeGetSystemMetrics);
        CWnd wnd;
        wnd.m_hWnd = Popup(width, height);
        wnd.CenterWindow();
        return PlaceOf(m_window);
    }

    HWND m_window = nullptr;
};
}   // namespace

TEST_F(Window, Constructed_HasNoWindow)
{
    const CWnd wnd;
    EXPECT_EQ(nullptr, wnd.m_hWnd);
}

TEST_F(Window, Constructed_HasNoParentUnlessGiven)
{
    const CWnd wnd;
    EXPECT_EQ(nullptr, wnd.m_hWndParent);
}

TEST_F(Window, Constructed_KeepsTheParent)
{
    const CWnd wnd(Popup());
    EXPECT_EQ(m_window, wnd.m_hWndParent);
}

TEST_F(Window, OnWindowProc_HandlesNothing)
{
    CWnd wnd;
    LRESULT result = 77;
    EXPECT_FALSE(wnd.OnWindowProc(nullptr, WM_CLOSE, 0, 0, &result));
    EXPECT_EQ(77, result);
}

TEST_F(Window, OnCreate_Registers)
{
    CWnd wnd;
    wnd.m_hWnd = Popup();
    CREATESTRUCTW cs = {};
    EXPECT_EQ(0, wnd.OnCreate(&cs));
    EXPECT_EQ(&wnd, CWnd::FindInstance(m_window));
}

TEST_F(Window, OnCreate_DoesNotReadTheRecord)
{
    CWnd wnd;
    wnd.m_hWnd = Popup();
    EXPECT_EQ(0, wnd.OnCreate(nullptr));
}

TEST_F(Window, OnCreate_OfAHandleThatIsRegistered_LetsTheCreationGoOn)
{
    CWnd first;
    CWnd second;
    CWnd::RegisterInstance(Popup(), &first);
    second.m_hWnd = m_window;
    EXPECT_EQ(0, second.OnCreate(nullptr));
    EXPECT_EQ(&first, CWnd::FindInstance(m_window));
}

TEST_F(Window, OnDestroy_Unregisters)
{
    CWnd wnd;
    wnd.m_hWnd = Popup();
    wnd.OnCreate(nullptr);
    wnd.OnDestroy();
    EXPECT_EQ(nullptr, CWnd::FindInstance(m_window));
}

TEST_F(Window, OnDestroy_ForgetsTheWindow)
{
    CWnd wnd;
    wnd.m_hWnd = Popup();
    wnd.OnDestroy();
    EXPECT_EQ(nullptr, wnd.m_hWnd);
}

TEST_F(Window, OnDestroy_LeavesTheWindow)
{
    CWnd wnd;
    wnd.m_hWnd = Popup();
    wnd.OnDestroy();
    EXPECT_TRUE(::IsWindow(m_window));
}

TEST_F(Window, OnEraseBkgnd_FillsTheClientAreaWithTheButtonColour)
{
    const CImportPatch patch(&::GetSysColor, &FakeGetSysColor);
    CWnd wnd;
    wnd.m_hWnd = Popup(30, 20);
    const CPicture picture;
    wnd.OnEraseBkgnd(picture.DC());
    EXPECT_EQ(30 * 20, picture.Count(FakeButtonFace, 30, 20));
}

TEST_F(Window, OnEraseBkgnd_FillsNothingElse)
{
    const CImportPatch patch(&::GetSysColor, &FakeGetSysColor);
    CWnd wnd;
    wnd.m_hWnd = Popup(30, 20);
    const CPicture picture;
    wnd.OnEraseBkgnd(picture.DC());
    EXPECT_EQ(30 * 20, picture.Count(FakeButtonFace, CPicture::Size, CPicture::Size));
}

TEST_F(Window, OnEraseBkgnd_LeavesTheColourAsTheBackground)
{
    const CImportPatch patch(&::GetSysColor, &FakeGetSysColor);
    CWnd wnd;
    wnd.m_hWnd = Popup(30, 20);
    const CPicture picture;
    wnd.OnEraseBkgnd(picture.DC());
    EXPECT_EQ(FakeButtonFace, ::GetBkColor(picture.DC()));
}

TEST_F(Window, Destructor_DestroysTheWindow)
{
    {
        CWnd wnd;
        wnd.m_hWnd = Popup();
    }
    EXPECT_FALSE(::IsWindow(m_window));
}

TEST_F(Window, Destructor_Unregisters)
{
    {
        CWnd wnd;
        wnd.m_hWnd = Popup();
        wnd.OnCreate(nullptr);
    }
    EXPECT_EQ(nullptr, CWnd::FindInstance(m_window));
}

TEST_F(Window, Destructor_OfAnObjectWhoseWindowIsGone_Unregisters)
{
    {
        CWnd wnd;
        wnd.m_hWnd = Popup();
        wnd.OnCreate(nullptr);
        ::DestroyWindow(m_window);
    }
    EXPECT_EQ(nullptr, CWnd::FindInstance(m_window));
}

// The window's handle is null then, which is a key as any other.
TEST_F(Window, Destructor_WithoutAWindow_RemovesTheRegistrationOfTheNullHandle)
{
    CWnd other;
    CWnd::RegisterInstance(nullptr, &other);
    {
        const CWnd wnd;
    }
    EXPECT_EQ(nullptr, CWnd::FindInstance(nullptr));
}

TEST_F(Window, Destructor_LeavesTheParent)
{
    {
        const CWnd wnd(Popup());
    }
    EXPECT_TRUE(::IsWindow(m_window));
}

TEST_F(Window, Destructor_OfAPlainWindow_StillRoutesItsDestruction)
{
    {
        const CPlainWindow plain;
        ASSERT_NE(nullptr, plain.m_hWnd);
    }
    EXPECT_EQ(1, CPlainWindow::destroyed);
}

TEST_F(Window, PlainWindow_IsForgottenWhenTheSystemDestroysIt)
{
    const CPlainWindow plain;
    const HWND window = plain.m_hWnd;
    ASSERT_EQ(&plain, CWnd::FindInstance(window));
    ::DestroyWindow(window);
    EXPECT_EQ(nullptr, plain.m_hWnd);
    EXPECT_EQ(nullptr, CWnd::FindInstance(window));
}

TEST_F(Window, CenterWindow_OnTheDevicesScreen)
{
    const RECT place = Centred(100, 50, 240, 320);
    EXPECT_EQ(70, place.left);
    EXPECT_EQ(135, place.top);
}

TEST_F(Window, CenterWindow_WithOddDifferences_RoundsDown)
{
    const RECT place = Centred(99, 51, 240, 320);
    EXPECT_EQ(70, place.left);   // 141 / 2
    EXPECT_EQ(134, place.top);   // 269 / 2
}

TEST_F(Window, CenterWindow_WiderThanTheScreen_HasANegativeX)
{
    const RECT place = Centred(300, 50, 240, 320);
    EXPECT_EQ(-30, place.left);
    EXPECT_EQ(135, place.top);
}

TEST_F(Window, CenterWindow_HigherThanTheScreen_HasANegativeY)
{
    const RECT place = Centred(100, 400, 240, 320);
    EXPECT_EQ(70, place.left);
    EXPECT_EQ(-40, place.top);
}

TEST_F(Window, CenterWindow_WithNegativeOddDifferences_TruncatesTowardZero)
{
    const RECT place = Centred(301, 401, 240, 320);
    EXPECT_EQ(-30, place.left);   // -61 / 2
    EXPECT_EQ(-40, place.top);    // -81 / 2
}

TEST_F(Window, CenterWindow_OfTheScreensSize_IsAtTheOrigin)
{
    const RECT place = Centred(240, 320, 240, 320);
    EXPECT_EQ(0, place.left);
    EXPECT_EQ(0, place.top);
}

TEST_F(Window, CenterWindow_KeepsTheSize)
{
    const RECT place = Centred(100, 50, 240, 320);
    EXPECT_EQ(100, place.right - place.left);
    EXPECT_EQ(50, place.bottom - place.top);
}

TEST_F(Window, CenterWindow_KeepsTheOrder)
{
    const CImportPatch patch(&::SetWindowPos, &RecordingSetWindowPos);
    Centred(100, 50, 240, 320);
    EXPECT_EQ(nullptr, g_setWindowPosAfter);
    EXPECT_EQ(UINT{SWP_NOSIZE | SWP_NOZORDER}, g_setWindowPosFlags);
}

TEST_F(Window, CenterWindow_WithAParent_IsOnTheScreenNotOnTheParent)
{
    const HWND parent = MakePopup(20, 20);
    CWnd wnd(parent);
    wnd.m_hWnd = Popup(100, 50);
    wnd.CenterWindow();
    EXPECT_EQ((::GetSystemMetrics(SM_CXSCREEN) - 100) / 2, PlaceOf(m_window).left);
    EXPECT_EQ((::GetSystemMetrics(SM_CYSCREEN) - 50) / 2, PlaceOf(m_window).top);
    ::DestroyWindow(parent);
}

TEST_F(Window, CenterWindow_WithAParentThatIsNoWindow_DoesNothing)
{
    const HWND parent = MakePopup(20, 20);
    ::DestroyWindow(parent);
    CWnd wnd(parent);
    wnd.m_hWnd = Popup();
    wnd.CenterWindow();
    EXPECT_EQ(1, PlaceOf(m_window).left);
    EXPECT_EQ(2, PlaceOf(m_window).top);
}

TEST_F(Window, CenterWindow_WithoutAWindow_DoesNothing)
{
    const CImportPatch patch(&::SetWindowPos, &RecordingSetWindowPos);
    CWnd wnd;
    wnd.CenterWindow();
    EXPECT_EQ(0, g_setWindowPosCalls);
}

TEST_F(Window, CenterWindow_WithAWindowThatIsGone_DoesNothing)
{
    const CImportPatch patch(&::SetWindowPos, &RecordingSetWindowPos);
    CWnd wnd;
    wnd.m_hWnd = Popup();
    ::DestroyWindow(m_window);
    wnd.CenterWindow();
    EXPECT_EQ(0, g_setWindowPosCalls);
}
