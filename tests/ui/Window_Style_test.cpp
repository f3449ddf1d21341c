// Styles and identifiers of windows, which need no object.

#include "support/ImportPatch.h"
#include "support/MessagePump.h"

#include <vantor/Window.h>

#include <gtest/gtest.h>

using namespace vantor;
using support::CImportPatch;

namespace
{
constexpr DWORD OtherError = 1234;   // left by an earlier call

LONG WINAPI SetWindowLongWithoutPrevious(HWND, int, LONG)
{
    return 0;   // the last error stays: a success
}

LONG WINAPI FailingSetWindowLong(HWND, int, LONG)
{
    ::SetLastError(ERROR_ACCESS_DENIED);
    return 0;
}

LONG WINAPI SetWindowLongWithPreviousAndError(HWND, int, LONG)
{
    ::SetLastError(OtherError);
    return 1;
}

class WindowStyle : public ::testing::Test
{
protected:
    WindowStyle()
    {
        support::UseOwnDesktop();
        m_parent = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 50, 50, nullptr, nullptr, nullptr, nullptr);
        m_window = ::CreateWindowExW(WS_EX_CLIENTEDGE, L"STATIC", L"", WS_CHILD | WS_TABSTOP, 0, 0, 9, 9, m_parent,
                                     nullptr, nullptr, nullptr);
        ::SetLastError(OtherError);
    }
    ~WindowStyle() override { ::DestroyWindow(m_parent); }

    LONG Style() const { return ::GetWindowLongW(m_window, GWL_STYLE); }
    LONG StyleEx() const { return ::GetWindowLongW(m_window, GWL_EXSTYLE); }
    HWND Gone() const
    {
        ::DestroyWindow(m_window);
        ::SetLastError(OtherError);
        return m_window;
    }

    HWND m_parent;
    HWND m_window;
};
}   // namespace

TEST_F(WindowStyle, GetStyle_IsTheWindowsStyle)
{
    EXPECT_EQ(long{WS_CHILD | WS_TABSTOP}, CWnd::GetStyle(m_window));
}

TEST_F(WindowStyle, GetStyle_ClearsTheLastError)
{
    CWnd::GetStyle(m_window);
    EXPECT_EQ(DWORD{NO_ERROR}, ::GetLastError());
}

TEST_F(WindowStyle, GetStyle_OfNoWindow_IsZeroWithTheReason)
{
    EXPECT_EQ(0, CWnd::GetStyle(Gone()));
    EXPECT_EQ(DWORD{ERROR_INVALID_WINDOW_HANDLE}, ::GetLastError());
}

TEST_F(WindowStyle, GetStyleEx_IsTheWindowsExtendedStyle)
{
    EXPECT_EQ(long{WS_EX_CLIENTEDGE}, CWnd::GetStyleEx(m_window));
}

TEST_F(WindowStyle, GetStyleEx_ClearsTheLastError)
{
    CWnd::GetStyleEx(m_window);
    EXPECT_EQ(DWORD{NO_ERROR}, ::GetLastError());
}

TEST_F(WindowStyle, GetStyleEx_OfNoWindow_IsZeroWithTheReason)
{
    EXPECT_EQ(0, CWnd::GetStyleEx(Gone()));
    EXPECT_EQ(DWORD{ERROR_INVALID_WINDOW_HANDLE}, ::GetLastError());
}

TEST_F(WindowStyle, ModifyStyle_RemovesAndAdds)
{
    EXPECT_TRUE(CWnd::ModifyStyle(m_window, WS_TABSTOP, WS_DISABLED));
    EXPECT_EQ(LONG{WS_CHILD | WS_DISABLED}, Style());
}

TEST_F(WindowStyle, ModifyStyle_OfABitInBoth_LeavesItSet)
{
    ::SetWindowLongW(m_window, GWL_STYLE, LONG{WS_CHILD | WS_VISIBLE});
    EXPECT_TRUE(CWnd::ModifyStyle(m_window, WS_VISIBLE, WS_VISIBLE));
    EXPECT_NE(0, Style() & WS_VISIBLE);
}

TEST_F(WindowStyle, ModifyStyle_OfABitInBoth_SetsItWhereItWasClear)
{
    EXPECT_TRUE(CWnd::ModifyStyle(m_window, WS_VISIBLE, WS_VISIBLE));
    EXPECT_NE(0, Style() & WS_VISIBLE);
}

TEST_F(WindowStyle, ModifyStyle_LeavesTheExtendedStyle)
{
    CWnd::ModifyStyle(m_window, -1, 0);
    EXPECT_EQ(LONG{WS_EX_CLIENTEDGE}, StyleEx());
}

TEST_F(WindowStyle, ModifyStyle_FromAStyleOfZero_Succeeds)
{
    ::SetWindowLongW(m_window, GWL_STYLE, 0);
    ASSERT_EQ(0, Style());
    ::SetLastError(OtherError);
    EXPECT_TRUE(CWnd::ModifyStyle(m_window, 0, WS_TABSTOP));
    EXPECT_EQ(LONG{WS_TABSTOP}, Style());
}

TEST_F(WindowStyle, ModifyStyle_WithoutPreviousStyleAndError_Succeeds)
{
    const CImportPatch patch(&::SetWindowLongW, &SetWindowLongWithoutPrevious);
    EXPECT_TRUE(CWnd::ModifyStyle(m_window, 0, WS_DISABLED));
}

TEST_F(WindowStyle, ModifyStyle_WithAPreviousStyle_SucceedsWhateverTheLastErrorIs)
{
    const CImportPatch patch(&::SetWindowLongW, &SetWindowLongWithPreviousAndError);
    EXPECT_TRUE(CWnd::ModifyStyle(m_window, 0, WS_DISABLED));
}

TEST_F(WindowStyle, ModifyStyle_WhenTheSystemRefuses_IsFalse)
{
    const CImportPatch patch(&::SetWindowLongW, &FailingSetWindowLong);
    EXPECT_FALSE(CWnd::ModifyStyle(m_window, 0, WS_DISABLED));
}

TEST_F(WindowStyle, ModifyStyle_OfNoWindow_IsFalse)
{
    EXPECT_FALSE(CWnd::ModifyStyle(Gone(), 0, WS_DISABLED));
}

TEST_F(WindowStyle, ModifyStyleEx_RemovesAndAdds)
{
    EXPECT_TRUE(CWnd::ModifyStyleEx(m_window, WS_EX_CLIENTEDGE, WS_EX_TRANSPARENT));
    EXPECT_EQ(LONG{WS_EX_TRANSPARENT}, StyleEx());
}

TEST_F(WindowStyle, ModifyStyleEx_OfABitInBoth_LeavesItSet)
{
    EXPECT_TRUE(CWnd::ModifyStyleEx(m_window, WS_EX_CLIENTEDGE, WS_EX_CLIENTEDGE));
    EXPECT_EQ(LONG{WS_EX_CLIENTEDGE}, StyleEx());
}

TEST_F(WindowStyle, ModifyStyleEx_LeavesTheStyle)
{
    CWnd::ModifyStyleEx(m_window, -1, 0);
    EXPECT_EQ(LONG{WS_CHILD | WS_TABSTOP}, Style());
}

TEST_F(WindowStyle, ModifyStyleEx_FromAStyleOfZero_Succeeds)
{
    ::SetWindowLongW(m_window, GWL_EXSTYLE, 0);
    ASSERT_EQ(0, StyleEx());
    ::SetLastError(OtherError);
    EXPECT_TRUE(CWnd::ModifyStyleEx(m_window, 0, WS_EX_TRANSPARENT));
    EXPECT_EQ(LONG{WS_EX_TRANSPARENT}, StyleEx());
}

TEST_F(WindowStyle, ModifyStyleEx_WhenTheSystemRefuses_IsFalse)
{
    const CImportPatch patch(&::SetWindowLongW, &FailingSetWindowLong);
    EXPECT_FALSE(CWnd::ModifyStyleEx(m_window, 0, WS_EX_TRANSPARENT));
}

TEST_F(WindowStyle, ModifyStyleEx_OfNoWindow_IsFalse)
{
    EXPECT_FALSE(CWnd::ModifyStyleEx(Gone(), 0, WS_EX_TRANSPARENT));
}

TEST_F(WindowStyle, SetDlgCtrlId_SetsTheIdentifier)
{
    CWnd::SetDlgCtrlId(m_window, 4711);
    EXPECT_EQ(4711, ::GetDlgCtrlID(m_window));
    EXPECT_EQ(m_window, ::GetDlgItem(m_parent, 4711));
}

TEST_F(WindowStyle, SetDlgCtrlId_ReturnsThePreviousIdentifier)
{
    EXPECT_EQ(0, CWnd::SetDlgCtrlId(m_window, 4711));
    EXPECT_EQ(4711, CWnd::SetDlgCtrlId(m_window, 4712));
}

TEST_F(WindowStyle, SetDlgCtrlId_WhenThePreviousIsZero_ClearsTheLastError)
{
    CWnd::SetDlgCtrlId(m_window, 4711);
    EXPECT_EQ(DWORD{NO_ERROR}, ::GetLastError());
}

TEST_F(WindowStyle, SetDlgCtrlId_OfNoWindow_IsZeroWithTheReason)
{
    EXPECT_EQ(0, CWnd::SetDlgCtrlId(Gone(), 4711));
    EXPECT_EQ(DWORD{ERROR_INVALID_WINDOW_HANDLE}, ::GetLastError());
}
