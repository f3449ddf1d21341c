// The dialog procedure of gathered dialogs, message by message.

#include "support/MessagePump.h"

#include <vantor/Translator.h>

#include <gtest/gtest.h>

#include <vector>

using namespace vantor;

namespace
{
class TranslatorDialogProc : public ::testing::Test
{
protected:
    TranslatorDialogProc()
    {
        support::UseOwnDesktop();
        m_window = ::CreateWindowExW(0, L"STATIC", L"top", WS_POPUP, 0, 0, 50, 50, nullptr, nullptr, nullptr, nullptr);
    }
    ~TranslatorDialogProc() override { ::DestroyWindow(m_window); }

    HWND Child(HWND parent)
    {
        return ::CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 9, 9, parent, nullptr, nullptr, nullptr);
    }

    HWND m_window;
};
}   // namespace

TEST_F(TranslatorDialogProc, InitDialog_TakesVisibilityFromTheStyleAndNothingElse)
{
    const LONG style = ::GetWindowLongW(m_window, GWL_STYLE);
    ::SetWindowLongW(m_window, GWL_STYLE, style | WS_VISIBLE);
    EXPECT_FALSE(CTranslator::DialogProc(m_window, WM_INITDIALOG, 0, 0));
    EXPECT_EQ(style, ::GetWindowLongW(m_window, GWL_STYLE));
}

TEST_F(TranslatorDialogProc, Destroy_DestroysAllChildren)
{
    const HWND first = Child(m_window);
    const HWND inner = Child(first);
    const HWND second = Child(m_window);
    EXPECT_FALSE(CTranslator::DialogProc(m_window, WM_DESTROY, 0, 0));
    for (const HWND child : {first, inner, second})
        EXPECT_FALSE(::IsWindow(child));
    EXPECT_TRUE(::IsWindow(m_window));
}

TEST_F(TranslatorDialogProc, Destroy_WithoutChildren_IsFalse)
{
    EXPECT_FALSE(CTranslator::DialogProc(m_window, WM_DESTROY, 0, 0));
}

TEST_F(TranslatorDialogProc, EveryOtherMessage_IsFalseAndChangesNothing)
{
    const HWND child = Child(m_window);
    const LONG style = ::GetWindowLongW(m_window, GWL_STYLE) | WS_VISIBLE;
    ::SetWindowLongW(m_window, GWL_STYLE, style);
    for (UINT message = 0; message < 0x500; ++message)
    {
        if (message == WM_INITDIALOG || message == WM_DESTROY)
            continue;
        ASSERT_FALSE(CTranslator::DialogProc(m_window, message, IDCANCEL, 0)) << message;
    }
    EXPECT_EQ(style, ::GetWindowLongW(m_window, GWL_STYLE));
    EXPECT_TRUE(::IsWindow(child));
}
