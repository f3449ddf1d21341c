// Dialogs as their users see them: run, created, pressed, closed.

#include "Dialogs.h"
#include "Templates.h"

#include "support/MessagePump.h"

#include <gtest/gtest.h>

#include <vector>

using namespace vantor;

namespace
{
// Its OnInitDialog does not call the base.
class CSilentDialog : public CFormDialog
{
public:
    bool OnInitDialog() override { return true; }
};

DWORD WINAPI RegisterOnce(void* object)
{
    CWnd::RegisterInstance(nullptr, static_cast<CWnd*>(object));
    return 0;
}

class Dialog : public ::testing::Test
{
protected:
    Dialog() { support::UseOwnDesktop(); }
};
}   // namespace

TEST_F(Dialog, Constructed_KeepsWhatItIsGiven)
{
    const auto parent = reinterpret_cast<HWND>(0x1234);
    const CFormDialog dialog(IDD_MISSING, parent);
    EXPECT_EQ(nullptr, dialog.m_hWnd);
    EXPECT_EQ(parent, dialog.m_hWndParent);
    EXPECT_EQ(Module(), dialog.Instance());
    EXPECT_EQ(unsigned{IDD_MISSING}, dialog.TemplateId());
    EXPECT_EQ(nullptr, dialog.Template());
}

TEST_F(Dialog, DoModal_EndedByOK_ReturnsIDOK)
{
    CFormDialog dialog;
    EXPECT_EQ(1, dialog.Run(IDOK));
    EXPECT_EQ("init ok destroy ", dialog.calls);
}

TEST_F(Dialog, DoModal_EndedByCancel_ReturnsIDCANCEL)
{
    CFormDialog dialog;
    EXPECT_EQ(2, dialog.Run(IDCANCEL));
    EXPECT_EQ("init cancel destroy ", dialog.calls);
}

TEST_F(Dialog, DoModal_EndedByAbort_ReturnsIDABORT)
{
    CFormDialog dialog;
    EXPECT_EQ(3, dialog.Run(IDABORT));
    EXPECT_EQ("init abort destroy ", dialog.calls);
}

TEST_F(Dialog, DoModal_EndedByRetry_ReturnsIDRETRY)
{
    CFormDialog dialog;
    EXPECT_EQ(4, dialog.Run(IDRETRY));
    EXPECT_EQ("init retry destroy ", dialog.calls);
}

TEST_F(Dialog, DoModal_EndedByIgnore_ReturnsIDIGNORE)
{
    CFormDialog dialog;
    EXPECT_EQ(5, dialog.Run(IDIGNORE));
    EXPECT_EQ("init ignore destroy ", dialog.calls);
}

TEST_F(Dialog, DoModal_EndedByYes_ReturnsIDYES)
{
    CFormDialog dialog;
    EXPECT_EQ(6, dialog.Run(IDYES));
    EXPECT_EQ("init yes destroy ", dialog.calls);
}

TEST_F(Dialog, DoModal_EndedByNo_ReturnsIDNO)
{
    CFormDialog dialog;
    EXPECT_EQ(7, dialog.Run(IDNO));
    EXPECT_EQ("init no destroy ", dialog.calls);
}

TEST_F(Dialog, DoModal_EndedByItsOwner_ReturnsThatValue)
{
    CFormDialog dialog;
    dialog.whenShown = [&] { ::EndDialog(dialog.m_hWnd, 4711); };
    EXPECT_EQ(4711, dialog.DoModal());
}

TEST_F(Dialog, DoModal_ByAButtonOfItsOwn_EndsWithItsIdentifier)
{
    CFormDialog dialog;
    dialog.whenShown = [&] { ::PostMessageW(::GetDlgItem(dialog.m_hWnd, IDRETRY), BM_CLICK, 0, 0); };
    EXPECT_EQ(IDRETRY, dialog.DoModal());
}

TEST_F(Dialog, DoModal_OnEscape_CallsOnCancel)
{
    CFormDialog dialog;
    dialog.whenShown = [&] { ::PostMessageW(dialog.m_hWnd, WM_KEYDOWN, VK_ESCAPE, 1); };
    EXPECT_EQ(IDCANCEL, dialog.DoModal());
    EXPECT_EQ("init cancel destroy ", dialog.calls);
}

TEST_F(Dialog, DoModal_OnReturn_PressesTheDefaultButton)
{
    CFormDialog dialog;
    dialog.whenShown = [&] { ::PostMessageW(dialog.m_hWnd, WM_KEYDOWN, VK_RETURN, 1); };
    EXPECT_EQ(IDOK, dialog.DoModal());
    EXPECT_EQ("init ok destroy ", dialog.calls);
}

// The caption's button asks with WM_CLOSE: a dialog whose OnCancel refuses goes all the same.
TEST_F(Dialog, DoModal_OnClose_ReturnsIDCANCELWithoutOnCancel)
{
    CFormDialog dialog;
    dialog.whenShown = [&] { ::PostMessageW(dialog.m_hWnd, WM_CLOSE, 0, 0); };
    EXPECT_EQ(IDCANCEL, dialog.DoModal());
    EXPECT_EQ("init destroy ", dialog.calls);
}

TEST_F(Dialog, DoModal_DisablesItsParentMeanwhile)
{
    CFormDialog parent;
    ASSERT_TRUE(parent.Create());
    CFormDialog dialog(IDD_FORM, parent.m_hWnd);
    dialog.Run(IDOK);
    std::vector<WPARAM> enabled;
    for (const CFormDialog::CMessage& message : parent.messages)
    {
        if (message.message == WM_ENABLE)
            enabled.push_back(message.wParam);
    }
    EXPECT_EQ((std::vector<WPARAM>{FALSE, TRUE}), enabled);
    EXPECT_TRUE(::IsWindowEnabled(parent.m_hWnd));
}

TEST_F(Dialog, DoModal_LeavesNoWindow)
{
    CFormDialog dialog;
    dialog.Run(IDOK);
    EXPECT_EQ(nullptr, dialog.m_hWnd);
    EXPECT_FALSE(::IsWindow(dialog.messages.front().window));
}

TEST_F(Dialog, DoModal_OfAMissingResource_ReturnsWhatTheSystemSays)
{
    CFormDialog dialog(IDD_MISSING);
    const int result = dialog.DoModal();
    EXPECT_TRUE(result == -1 || result == 0) << result;
    EXPECT_EQ("", dialog.calls);
}

TEST_F(Dialog, DoModal_CanBeRunAgain)
{
    CFormDialog dialog;
    EXPECT_EQ(IDYES, dialog.Run(IDYES));
    EXPECT_EQ(IDNO, dialog.Run(IDNO));
}

TEST_F(Dialog, DoModal_InsideAnother_EachHasItsOwnResult)
{
    CFormDialog outer;
    int innerResult = 0;
    outer.whenShown = [&]
    {
        CFormDialog inner(IDD_FORM, outer.m_hWnd);
        innerResult = inner.Run(IDRETRY);
        ::PostMessageW(outer.m_hWnd, WM_COMMAND, IDIGNORE, 0);
    };
    EXPECT_EQ(IDIGNORE, outer.DoModal());
    EXPECT_EQ(IDRETRY, innerResult);
}

TEST_F(Dialog, Create_MakesTheWindow)
{
    CFormDialog dialog;
    EXPECT_TRUE(dialog.Create());
    EXPECT_TRUE(::IsWindow(dialog.m_hWnd));
    EXPECT_EQ(L"form", TitleOf(dialog.m_hWnd));
}

TEST_F(Dialog, Create_Registers)
{
    CFormDialog dialog;
    dialog.Create();
    EXPECT_EQ(&dialog, CWnd::FindInstance(dialog.m_hWnd));
}

TEST_F(Dialog, Create_WithAParent_MakesItTheOwner)
{
    CFormDialog parent;
    ASSERT_TRUE(parent.Create());
    CFormDialog dialog(IDD_FORM, parent.m_hWnd);
    dialog.Create();
    EXPECT_EQ(parent.m_hWnd, ::GetWindow(dialog.m_hWnd, GW_OWNER));
}

TEST_F(Dialog, Create_WithAParent_LeavesItEnabled)
{
    CFormDialog parent;
    ASSERT_TRUE(parent.Create());
    CFormDialog dialog(IDD_FORM, parent.m_hWnd);
    dialog.Create();
    EXPECT_TRUE(::IsWindowEnabled(parent.m_hWnd));
}

TEST_F(Dialog, Create_OfAMissingResource_IsFalse)
{
    CFormDialog dialog(IDD_MISSING);
    EXPECT_FALSE(dialog.Create());
    EXPECT_EQ(nullptr, dialog.m_hWnd);
}

TEST_F(Dialog, Created_OnClose_IsHiddenNotDestroyed)
{
    CFormDialog dialog;
    dialog.Create();
    ::ShowWindow(dialog.m_hWnd, SW_SHOW);
    ASSERT_TRUE(::IsWindowVisible(dialog.m_hWnd));
    ::SendMessageW(dialog.m_hWnd, WM_CLOSE, 0, 0);
    EXPECT_TRUE(::IsWindow(dialog.m_hWnd));
    EXPECT_FALSE(::IsWindowVisible(dialog.m_hWnd));
}

TEST_F(Dialog, Created_OnClose_DoesNotCallOnCancel)
{
    CFormDialog dialog;
    dialog.Create();
    ::SendMessageW(dialog.m_hWnd, WM_CLOSE, 0, 0);
    EXPECT_EQ("init ", dialog.calls);
}

TEST_F(Dialog, Created_OnOK_IsHiddenNotDestroyed)
{
    CFormDialog dialog;
    dialog.Create();
    ::ShowWindow(dialog.m_hWnd, SW_SHOW);
    ::SendMessageW(dialog.m_hWnd, WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(::IsWindow(dialog.m_hWnd));
    EXPECT_FALSE(::IsWindowVisible(dialog.m_hWnd));
}

TEST_F(Dialog, Created_AfterClose_StillGetsItsMessages)
{
    CFormDialog dialog;
    dialog.Create();
    ::SendMessageW(dialog.m_hWnd, WM_CLOSE, 0, 0);
    ::SendMessageW(dialog.m_hWnd, WM_COMMAND, IDYES, 0);
    EXPECT_EQ("init yes ", dialog.calls);
}

TEST_F(Dialog, FirstMessage_IsInitDialog)
{
    CFormDialog dialog;   // its font is set before
    dialog.Create();
    ASSERT_FALSE(dialog.messages.empty());
    EXPECT_EQ(UINT{WM_INITDIALOG}, dialog.messages.front().message);
}

TEST_F(Dialog, FirstMessage_FindsTheWindowInTheObject)
{
    CFormDialog dialog;
    dialog.Create();
    ASSERT_FALSE(dialog.messages.empty());
    EXPECT_EQ(dialog.m_hWnd, dialog.messages.front().member);
}

TEST_F(Dialog, TwoAtOnce_EachGetsItsOwnMessages)
{
    CFormDialog first;
    CFormDialog second;
    ASSERT_TRUE(first.Create());
    ASSERT_TRUE(second.Create());
    ::SendMessageW(first.m_hWnd, WM_COMMAND, IDYES, 0);
    ::SendMessageW(second.m_hWnd, WM_COMMAND, IDNO, 0);
    EXPECT_EQ("init yes ", first.calls);
    EXPECT_EQ("init no ", second.calls);
}

TEST_F(Dialog, TwoAtOnce_TheEndOfOneLeavesTheOther)
{
    CFormDialog first;
    CFormDialog second;
    ASSERT_TRUE(first.Create());
    ASSERT_TRUE(second.Create());
    ::DestroyWindow(first.m_hWnd);
    EXPECT_TRUE(::IsWindow(second.m_hWnd));
    EXPECT_EQ(&second, CWnd::FindInstance(second.m_hWnd));
}

TEST_F(Dialog, WhileAHandlerRuns_TheRegistryIsFreeForOtherThreads)
{
    CWnd other;
    CFormDialog dialog;
    DWORD waited = WAIT_FAILED;
    dialog.whenShown = [&]
    {
        const HANDLE thread = ::CreateThread(nullptr, 0, RegisterOnce, &other, 0, nullptr);
        waited = ::WaitForSingleObject(thread, 10000);
        ::CloseHandle(thread);
    };
    dialog.Create();
    EXPECT_EQ(DWORD{WAIT_OBJECT_0}, waited);
    EXPECT_EQ(&other, CWnd::FindInstance(nullptr));
    CWnd::UnregisterInstance(nullptr);
}

TEST_F(Dialog, WhoseOnInitDialogDoesNotCallTheBase_IsNotRegistered)
{
    CSilentDialog dialog;
    dialog.Create();
    EXPECT_EQ(nullptr, CWnd::FindInstance(dialog.m_hWnd));
}

TEST_F(Dialog, WhoseOnInitDialogDoesNotCallTheBase_GetsNoCommands)
{
    CSilentDialog dialog;
    dialog.Create();
    EXPECT_FALSE(CDialog::DialogProc(dialog.m_hWnd, WM_COMMAND, IDOK, 0));
    EXPECT_EQ("", dialog.calls);
}

TEST_F(Dialog, WhoseOnInitDialogDoesNotCallTheBase_GetsNoClose)
{
    CSilentDialog dialog;
    dialog.Create();
    ::ShowWindow(dialog.m_hWnd, SW_SHOW);
    EXPECT_FALSE(CDialog::DialogProc(dialog.m_hWnd, WM_CLOSE, 0, 0));
    EXPECT_TRUE(::IsWindowVisible(dialog.m_hWnd));
}

TEST_F(Dialog, WhoseOnInitDialogDoesNotCallTheBase_GetsNoDestroy)
{
    CSilentDialog dialog;
    dialog.Create();
    EXPECT_FALSE(CDialog::DialogProc(dialog.m_hWnd, WM_DESTROY, 0, 0));
    ::DestroyWindow(dialog.m_hWnd);
    EXPECT_EQ("", dialog.calls);
    EXPECT_NE(nullptr, dialog.m_hWnd);
}
