// The dialog procedure, message by message: what is called and what is answered.

#include "Dialogs.h"

#include "support/ImportPatch.h"
#include "support/MessagePump.h"

#include <gtest/gtest.h>

using namespace vantor;
using support::CImportPatch;

namespace
{
constexpr COLORREF FakeButtonFace = RGB(0x12, 0x34, 0x56);

DWORD WINAPI FakeGetSysColor(int)
{
    return FakeButtonFace;
}

HWND g_endedDialog = nullptr;
INT_PTR g_endedWith = 0;

BOOL WINAPI RecordingEndDialog(HWND dialog, INT_PTR result)
{
    g_endedDialog = dialog;
    g_endedWith = result;
    return TRUE;
}

// Answers false to its start.
class CFocusDialog : public CFormDialog
{
public:
    bool OnInitDialog() override
    {
        CDialog::OnInitDialog();
        ::SetFocus(::GetDlgItem(m_hWnd, IDC_FILLED));
        return false;
    }
};

class DialogProc : public ::testing::Test
{
protected:
    DialogProc()
    {
        support::UseOwnDesktop();
        EXPECT_TRUE(m_dialog.Create());
        m_dialog.calls.clear();
        m_dialog.messages.clear();
        g_endedDialog = nullptr;
        g_endedWith = 0;
    }

    INT_PTR Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return CDialog::DialogProc(m_dialog.m_hWnd, message, wParam, lParam);
    }
    // The answer to a command, and that its handler alone is called and ends the dialog.
    void ExpectCommand(WPARAM command, INT_PTR result, const char* call)
    {
        const CImportPatch patch(&::EndDialog, &RecordingEndDialog);
        EXPECT_EQ(TRUE, Send(WM_COMMAND, command));
        EXPECT_EQ(call, m_dialog.calls);
        EXPECT_EQ(m_dialog.m_hWnd, g_endedDialog);
        EXPECT_EQ(result, g_endedWith);
    }
    void ExpectNoCommand(WPARAM command)
    {
        const CImportPatch patch(&::EndDialog, &RecordingEndDialog);
        EXPECT_EQ(FALSE, Send(WM_COMMAND, command));
        EXPECT_EQ("", m_dialog.calls);
        EXPECT_EQ(nullptr, g_endedDialog);
    }

    CFormDialog m_dialog;
};
}   // namespace

TEST_F(DialogProc, Command1_IsOnOK)
{
    ExpectCommand(1, 1, "ok ");
}

TEST_F(DialogProc, Command2_IsOnCancel)
{
    ExpectCommand(2, 2, "cancel ");
}

TEST_F(DialogProc, Command3_IsOnAbort)
{
    ExpectCommand(3, 3, "abort ");
}

TEST_F(DialogProc, Command4_IsOnRetry)
{
    ExpectCommand(4, 4, "retry ");
}

TEST_F(DialogProc, Command5_IsOnIgnore)
{
    ExpectCommand(5, 5, "ignore ");
}

TEST_F(DialogProc, Command6_IsOnYes)
{
    ExpectCommand(6, 6, "yes ");
}

TEST_F(DialogProc, Command7_IsOnNo)
{
    ExpectCommand(7, 7, "no ");
}

TEST_F(DialogProc, Command_WithAnyNotification_IsTheHandlers)
{
    ExpectCommand(MAKEWPARAM(IDRETRY, BN_KILLFOCUS), IDRETRY, "retry ");
}

TEST_F(DialogProc, Command_WithTheHighestNotification_IsTheHandlers)
{
    ExpectCommand(MAKEWPARAM(IDNO, 0xFFFF), IDNO, "no ");
}

TEST_F(DialogProc, Command0_IsNotHandled)
{
    ExpectNoCommand(0);
}

TEST_F(DialogProc, Command8_IsNotHandled)
{
    ExpectNoCommand(8);
}

TEST_F(DialogProc, CommandOfAnotherControl_IsNotHandled)
{
    ExpectNoCommand(IDC_OTHER);
}

TEST_F(DialogProc, CommandWithTheHighestIdentifier_IsNotHandled)
{
    ExpectNoCommand(0xFFFF);
}

TEST_F(DialogProc, CommandWhoseNotificationIsAHandlersIdentifier_IsNotHandled)
{
    ExpectNoCommand(MAKEWPARAM(IDC_OTHER, IDOK));
}

TEST_F(DialogProc, Close_EndsTheDialogWithIDCANCEL)
{
    const CImportPatch patch(&::EndDialog, &RecordingEndDialog);
    EXPECT_EQ(TRUE, Send(WM_CLOSE));
    EXPECT_EQ(m_dialog.m_hWnd, g_endedDialog);
    EXPECT_EQ(IDCANCEL, g_endedWith);
}

TEST_F(DialogProc, Close_DoesNotCallOnCancel)
{
    Send(WM_CLOSE);
    EXPECT_EQ("", m_dialog.calls);
}

TEST_F(DialogProc, Destroy_CallsOnDestroy)
{
    const HWND window = m_dialog.m_hWnd;
    EXPECT_EQ(TRUE, Send(WM_DESTROY));
    EXPECT_EQ("destroy ", m_dialog.calls);
    EXPECT_EQ(nullptr, CWnd::FindInstance(window));
    EXPECT_EQ(nullptr, m_dialog.m_hWnd);
    ::DestroyWindow(window);
}

TEST_F(DialogProc, EraseBkgnd_FillsWithTheColourOfButtons)
{
    const CImportPatch patch(&::GetSysColor, &FakeGetSysColor);
    ::ShowWindow(m_dialog.m_hWnd, SW_SHOW);
    const HDC hdc = ::GetDC(m_dialog.m_hWnd);
    EXPECT_EQ(TRUE, Send(WM_ERASEBKGND, reinterpret_cast<WPARAM>(hdc)));
    EXPECT_EQ(FakeButtonFace, ::GetPixel(hdc, 0, 0));
    ::ReleaseDC(m_dialog.m_hWnd, hdc);
}

TEST_F(DialogProc, InitDialog_AnswersWithOnInitDialogsTrue)
{
    EXPECT_EQ(TRUE, Send(WM_INITDIALOG, 0, reinterpret_cast<LPARAM>(static_cast<CDialog*>(&m_dialog))));
    EXPECT_EQ("init ", m_dialog.calls);
}

TEST_F(DialogProc, InitDialog_AnswersWithOnInitDialogsFalse)
{
    CFocusDialog dialog;
    EXPECT_EQ(FALSE, CDialog::DialogProc(m_dialog.m_hWnd, WM_INITDIALOG, 0,
                                         reinterpret_cast<LPARAM>(static_cast<CDialog*>(&dialog))));
    dialog.m_hWnd = nullptr;   // which is another object's
}

TEST_F(DialogProc, InitDialog_TrueLetsTheSystemSetTheFocus)
{
    CFormDialog dialog;
    dialog.Create();
    EXPECT_EQ(::GetDlgItem(dialog.m_hWnd, IDC_EMPTY), ::GetFocus());
}

TEST_F(DialogProc, InitDialog_FalseKeepsTheFocusThatIsSet)
{
    CFocusDialog dialog;
    dialog.Create();
    EXPECT_EQ(::GetDlgItem(dialog.m_hWnd, IDC_FILLED), ::GetFocus());
}

TEST_F(DialogProc, InitDialog_SetsTheObjectsWindow)
{
    CFormDialog dialog;
    dialog.consumed = WM_INITDIALOG;
    CDialog::DialogProc(m_dialog.m_hWnd, WM_INITDIALOG, 0, reinterpret_cast<LPARAM>(static_cast<CDialog*>(&dialog)));
    EXPECT_EQ(m_dialog.m_hWnd, dialog.m_hWnd);
    dialog.m_hWnd = nullptr;   // which is another object's
}

TEST_F(DialogProc, EveryOtherMessage_IsNotHandled)
{
    for (UINT message = 0; message < 0x500; ++message)
    {
        if (message == WM_DESTROY || message == WM_CLOSE || message == WM_ERASEBKGND || message == WM_INITDIALOG ||
            message == WM_COMMAND)
            continue;
        ASSERT_EQ(FALSE, Send(message, IDOK, 0)) << message;
    }
    EXPECT_EQ("", m_dialog.calls);
}

TEST_F(DialogProc, OnDialogProc_SeesEachMessageWithItsParameters)
{
    Send(WM_APP + 1, 22, 33);
    ASSERT_EQ(1u, m_dialog.messages.size());
    EXPECT_EQ(m_dialog.m_hWnd, m_dialog.messages[0].window);
    EXPECT_EQ(UINT{WM_APP + 1}, m_dialog.messages[0].message);
    EXPECT_EQ(WPARAM{22}, m_dialog.messages[0].wParam);
    EXPECT_EQ(LPARAM{33}, m_dialog.messages[0].lParam);
}

TEST_F(DialogProc, OnDialogProc_ComesBeforeTheHandlers)
{
    m_dialog.consumed = WM_COMMAND;
    EXPECT_EQ(TRUE, Send(WM_COMMAND, IDOK));
    EXPECT_EQ("", m_dialog.calls);
}

TEST_F(DialogProc, OnDialogProc_ThatHandlesAnyMessage_AnswersTRUE)
{
    m_dialog.consumed = WM_APP + 1;
    EXPECT_EQ(TRUE, Send(WM_APP + 1));
}

TEST_F(DialogProc, OnDialogProc_ThatHandlesClose_KeepsTheDialogOpen)
{
    ::ShowWindow(m_dialog.m_hWnd, SW_SHOW);
    m_dialog.consumed = WM_CLOSE;
    EXPECT_EQ(TRUE, Send(WM_CLOSE));
    EXPECT_TRUE(::IsWindowVisible(m_dialog.m_hWnd));
}

TEST_F(DialogProc, OnDialogProc_ThatHandlesDestroy_KeepsTheRegistration)
{
    m_dialog.consumed = WM_DESTROY;
    EXPECT_EQ(TRUE, Send(WM_DESTROY));
    EXPECT_EQ(&m_dialog, CWnd::FindInstance(m_dialog.m_hWnd));
}

TEST_F(DialogProc, OnDialogProc_ThatHandlesInitDialog_ReplacesOnInitDialog)
{
    CFormDialog dialog;
    dialog.consumed = WM_INITDIALOG;
    dialog.Create();
    EXPECT_EQ("", dialog.calls);
    EXPECT_EQ(nullptr, CWnd::FindInstance(dialog.m_hWnd));
}

TEST_F(DialogProc, BaseOnDialogProc_HandlesNothing)
{
    CDialog dialog(Module(), IDD_FORM, nullptr);
    EXPECT_FALSE(dialog.OnDialogProc(m_dialog.m_hWnd, WM_CLOSE, 0, 0));
}

TEST_F(DialogProc, BeforeInitDialog_NothingIsHandled)
{
    const HWND window =
        ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 9, 9, nullptr, nullptr, Module(), nullptr);
    for (const UINT message : {WM_SETFONT, WM_COMMAND, WM_CLOSE, WM_ERASEBKGND, WM_DESTROY})
        EXPECT_EQ(FALSE, CDialog::DialogProc(window, message, IDOK, 0)) << message;
    EXPECT_TRUE(::IsWindowVisible(window));
    ::DestroyWindow(window);
}

TEST_F(DialogProc, AfterTheRegistrationIsRemoved_NothingIsHandled)
{
    CWnd::UnregisterInstance(m_dialog.m_hWnd);
    for (const UINT message : {WM_COMMAND, WM_CLOSE, WM_ERASEBKGND, WM_DESTROY})
        EXPECT_EQ(FALSE, Send(message, IDOK, 0)) << message;
    EXPECT_EQ("", m_dialog.calls);
}

TEST_F(DialogProc, OfAWindowWhoseObjectIsNoDialog_HandlesNothing)
{
    CWnd plain;
    CWnd::UnregisterInstance(m_dialog.m_hWnd);
    CWnd::RegisterInstance(m_dialog.m_hWnd, &plain);
    for (const UINT message : {WM_COMMAND, WM_CLOSE, WM_ERASEBKGND, WM_DESTROY})
        EXPECT_EQ(FALSE, Send(message, IDOK, 0)) << message;
    EXPECT_EQ(&plain, CWnd::FindInstance(m_dialog.m_hWnd));
    CWnd::UnregisterInstance(m_dialog.m_hWnd);
}
