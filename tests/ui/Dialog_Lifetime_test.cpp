// Which of the two goes first, the dialog's window or its object; and what is left behind.

#include "Dialogs.h"
#include "Templates.h"

#include "support/ChildProcess.h"
#include "support/Leaks.h"
#include "support/MessagePump.h"

#include <gtest/gtest.h>

#include <memory>

using namespace vantor;

namespace
{
int g_alive = 0;

// Lives on the heap, and ends itself in a handler.
class CSelfDeletingDialog : public CDialog
{
public:
    explicit CSelfDeletingDialog(UINT last = WM_NULL) : CDialog(Module(), IDD_FORM, nullptr), m_last(last)
    {
        ++g_alive;
    }
    ~CSelfDeletingDialog() override { --g_alive; }

    void OnOK() override { delete this; }
    void OnDestroy() override
    {
        CDialog::OnDestroy();
        if (m_last == WM_DESTROY)
            delete this;
    }
    void OnEraseBkgnd(HDC) override
    {
        if (m_last == WM_ERASEBKGND)
            delete this;
    }
    bool OnDialogProc(HWND, UINT msg, WPARAM, LPARAM) override
    {
        if (msg != WM_APP)
            return false;
        delete this;
        return true;
    }

private:
    UINT m_last;
};

class DialogLifetime : public ::testing::Test
{
protected:
    DialogLifetime()
    {
        support::UseOwnDesktop();
        g_alive = 0;
    }

    // Sends the message, after which neither the object nor its window may be there.
    static void ExpectGone(CSelfDeletingDialog* dialog, UINT message, WPARAM wParam = 0)
    {
        ASSERT_TRUE(dialog->Create());
        const HWND window = dialog->m_hWnd;
        ::SendMessageW(window, message, wParam, 0);
        EXPECT_EQ(0, g_alive);
        EXPECT_FALSE(::IsWindow(window));
        EXPECT_EQ(nullptr, CWnd::FindInstance(window));
    }
};

// How the program that throws there ends, and what it says meanwhile.
void ExpectEnd(const wchar_t* where)
{
    const CChildProcess process(L"\"" + support::ModuleFolder() + L"\\ui_throwing.exe\" " + where);
    EXPECT_EQ(3u, process.exitCode);
    EXPECT_EQ(0u, process.output.find("throwing")) << process.output;
    EXPECT_EQ(std::string::npos, process.output.find("survived")) << process.output;
}
}   // namespace

TEST_F(DialogLifetime, WindowDestroyed_TheObjectForgetsIt)
{
    CFormDialog dialog;
    ASSERT_TRUE(dialog.Create());
    const HWND window = dialog.m_hWnd;
    ::DestroyWindow(window);
    EXPECT_EQ("init destroy ", dialog.calls);
    EXPECT_EQ(nullptr, dialog.m_hWnd);
    EXPECT_EQ(nullptr, CWnd::FindInstance(window));
}

TEST_F(DialogLifetime, WindowDestroyed_TheObjectCanMakeAnother)
{
    CFormDialog dialog;
    ASSERT_TRUE(dialog.Create());
    ::DestroyWindow(dialog.m_hWnd);
    EXPECT_TRUE(dialog.Create());
    EXPECT_EQ(&dialog, CWnd::FindInstance(dialog.m_hWnd));
}

TEST_F(DialogLifetime, ObjectDestroyed_TheWindowGoesToo)
{
    HWND window = nullptr;
    {
        CFormDialog dialog;
        ASSERT_TRUE(dialog.Create());
        window = dialog.m_hWnd;
    }
    EXPECT_FALSE(::IsWindow(window));
}

TEST_F(DialogLifetime, ObjectDestroyed_IsNotRegisteredAnyMore)
{
    HWND window = nullptr;
    {
        CFormDialog dialog;
        ASSERT_TRUE(dialog.Create());
        window = dialog.m_hWnd;
    }
    EXPECT_EQ(nullptr, CWnd::FindInstance(window));
}

TEST_F(DialogLifetime, ObjectDestroyedThroughItsBase_TheWindowGoesToo)
{
    auto dialog = std::make_unique<CSelfDeletingDialog>();
    ASSERT_TRUE(dialog->Create());
    const HWND window = dialog->m_hWnd;
    std::unique_ptr<CWnd> base = std::move(dialog);
    base.reset();
    EXPECT_EQ(0, g_alive);
    EXPECT_FALSE(::IsWindow(window));
}

TEST_F(DialogLifetime, ObjectOfAnUnregisteredWindowDestroyed_TheWindowGoesToo)
{
    HWND window = nullptr;
    {
        CFormDialog dialog;
        ASSERT_TRUE(dialog.Create());
        window = dialog.m_hWnd;
        CWnd::UnregisterInstance(window);
    }
    EXPECT_FALSE(::IsWindow(window));
}

TEST_F(DialogLifetime, OwnerDestroyed_TakesTheDialogAlong)
{
    CFormDialog owner;
    ASSERT_TRUE(owner.Create());
    CFormDialog dialog(IDD_FORM, owner.m_hWnd);
    ASSERT_TRUE(dialog.Create());
    ::DestroyWindow(owner.m_hWnd);
    EXPECT_EQ(nullptr, dialog.m_hWnd);
}

TEST_F(DialogLifetime, DeletedByItsCommandHandler)
{
    ExpectGone(new CSelfDeletingDialog, WM_COMMAND, IDOK);
}

TEST_F(DialogLifetime, DeletedByItsOnDialogProc)
{
    ExpectGone(new CSelfDeletingDialog, WM_APP);
}

TEST_F(DialogLifetime, DeletedByItsOnEraseBkgnd)
{
    ExpectGone(new CSelfDeletingDialog(WM_ERASEBKGND), WM_ERASEBKGND);
}

TEST_F(DialogLifetime, DeletedByItsOnDestroy)
{
    auto* const dialog = new CSelfDeletingDialog(WM_DESTROY);
    ASSERT_TRUE(dialog->Create());
    const HWND window = dialog->m_hWnd;
    ::DestroyWindow(window);
    EXPECT_EQ(0, g_alive);
    EXPECT_FALSE(::IsWindow(window));
}

TEST_F(DialogLifetime, ThousandDialogs_LeaveNothingBehind)
{
    const CTemplate memory(L"memory");
    const auto cycle = [&memory]
    {
        CFormDialog modal;
        modal.InitModalIndirect(Module(), memory.Block(), nullptr);
        modal.Run(IDOK);
        CFormDialog modeless;
        modeless.Create();
    };
    for (int round = 0; round < 3; ++round)
        cycle();
    const support::CResources before;
    for (int round = 0; round < 500; ++round)
        cycle();
    EXPECT_EQ(before, support::CResources());
}

TEST(DialogThatThrows, FromACommandHandler_EndsTheProgram)
{
    ExpectEnd(L"command");
}

TEST(DialogThatThrows, FromOnInitDialog_EndsTheProgram)
{
    ExpectEnd(L"init");
}

TEST(DialogThatThrows, FromOnDialogProc_EndsTheProgram)
{
    ExpectEnd(L"proc");
}

TEST(DialogThatThrows, FromOnDestroy_EndsTheProgram)
{
    ExpectEnd(L"destroy");
}

TEST(DialogThatThrows, FromOnEraseBkgnd_EndsTheProgram)
{
    ExpectEnd(L"erase");
}
