// Presses on the bar, and what it tells its parent.

#include "Bar.h"
#include "support/MessagePump.h"

#include "support/ImportPatch.h"

#include <gtest/gtest.h>

#include <memory>

using namespace bar;
using support::CImportPatch;
using vantor::CCaptionCtrl;

namespace
{
constexpr unsigned int IconId = 107;
constexpr int Height = 26;

// Keeps what is pressed instead of telling the parent.
class CRecordingBar : public CCaptionCtrl
{
public:
    void OnBnClickedIcon() override { m_presses += 'i'; }
    void OnBnClickedHelp() override { m_presses += '?'; }
    void OnBnClickedOk() override { m_presses += 'o'; }
    void OnBnClickedClose() override { m_presses += 'x'; }

    std::string m_presses;
};

std::vector<UINT> g_default;   // messages that the system's procedure got from the bar

LRESULT WINAPI RecordingDefWindowProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    constexpr LRESULT result = 77;
    g_default.push_back(msg);
    ::DefWindowProcW(hWnd, msg, wParam, lParam);
    return result;
}

int g_sent = 0;

LRESULT WINAPI CountingSendMessage(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    ++g_sent;
    return ::SendMessageW(hWnd, msg, wParam, lParam);
}

class CaptionCtrlPress : public testing::Test
{
protected:
    CaptionCtrlPress()
    {
        support::UseOwnDesktop();
        m_parent = std::make_unique<CParent>();
    }

    template <class Bar>
    void Create(Bar& bar, unsigned int iconId = IconId)
    {
        bar.Create(m_parent->Window(), 100, iconId, ::GetModuleHandleW(L"vantor.dll"), AllButtons, Height);
    }

    static void Tap(const CCaptionCtrl& bar, int x, int y)
    {
        ::SendMessageW(bar.GetHwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    }

    std::unique_ptr<CParent> m_parent;
};

std::vector<CMessage> One(UINT message, WPARAM wParam)
{
    return {{message, wParam, 0}};
}
}   // namespace

static_assert(noexcept(CCaptionCtrl::WndProc(nullptr, 0, 0, 0)), "no exception may cross the system's frames");

TEST_F(CaptionCtrlPress, Help_SendsHelpToTheParent)
{
    CCaptionCtrl bar;
    Create(bar);
    Press(Button(bar, HelpId));
    EXPECT_EQ(One(WM_HELP, 0), m_parent->Messages());
}

TEST_F(CaptionCtrlPress, Ok_SendsTheCommandOkToTheParent)
{
    CCaptionCtrl bar;
    Create(bar);
    Press(Button(bar, OkId));
    EXPECT_EQ(One(WM_COMMAND, IDOK), m_parent->Messages());
}

TEST_F(CaptionCtrlPress, Close_SendsTheCommandCancelToTheParent)
{
    CCaptionCtrl bar;
    Create(bar);
    Press(Button(bar, CloseId));
    EXPECT_EQ(One(WM_COMMAND, IDCANCEL), m_parent->Messages());
}

TEST_F(CaptionCtrlPress, Icon_TellsTheParentNothing)
{
    CCaptionCtrl bar;
    Create(bar);
    Tap(bar, 5, 5);
    EXPECT_TRUE(m_parent->Messages().empty());
}

TEST_F(CaptionCtrlPress, WithoutAParent_NothingIsSent)
{
    CCaptionCtrl bar;
    const CImportPatch patch(&::SendMessageW, &CountingSendMessage);
    bar.OnBnClickedHelp();
    bar.OnBnClickedOk();
    bar.OnBnClickedClose();
    EXPECT_EQ(0, g_sent);
}

TEST_F(CaptionCtrlPress, Buttons_CallTheirOwnOperations)
{
    CRecordingBar bar;
    Create(bar);
    Press(Button(bar, HelpId));
    Press(Button(bar, OkId));
    Press(Button(bar, CloseId));
    EXPECT_EQ("?ox", bar.m_presses);
}

TEST_F(CaptionCtrlPress, Command_IsReadFromTheLowWordAlone)
{
    CRecordingBar bar;
    Create(bar);
    ::SendMessageW(bar.GetHwnd(), WM_COMMAND, MAKEWPARAM(OkId, BN_DOUBLECLICKED), 0);
    EXPECT_EQ("o", bar.m_presses);
}

TEST_F(CaptionCtrlPress, Command_OfAnotherIdentifier_DoesNothing)
{
    CRecordingBar bar;
    Create(bar);
    for (WPARAM id = 0; id <= 0xFFFF; ++id)
    {
        if (id != HelpId && id != OkId && id != CloseId)
            ::SendMessageW(bar.GetHwnd(), WM_COMMAND, id, 0);
    }
    EXPECT_EQ("", bar.m_presses);
}

TEST_F(CaptionCtrlPress, Icon_TopLeftPixelCounts)
{
    CRecordingBar bar;
    Create(bar);
    Tap(bar, 0, 0);
    EXPECT_EQ("i", bar.m_presses);
}

TEST_F(CaptionCtrlPress, Icon_LastPixelOfTheSquareCounts)
{
    CRecordingBar bar;
    Create(bar);
    Tap(bar, Height - 1, Height - 1);
    EXPECT_EQ("i", bar.m_presses);
}

TEST_F(CaptionCtrlPress, Icon_OnePixelRightOfTheSquareDoesNotCount)
{
    CRecordingBar bar;
    Create(bar);
    Tap(bar, Height, 0);
    EXPECT_EQ("", bar.m_presses);
}

TEST_F(CaptionCtrlPress, Icon_OnePixelBelowTheSquareDoesNotCount)
{
    CRecordingBar bar;
    Create(bar);
    Tap(bar, 0, Height);
    EXPECT_EQ("", bar.m_presses);
}

TEST_F(CaptionCtrlPress, Icon_PlacesAreSigned)
{
    CRecordingBar bar;
    Create(bar);
    Tap(bar, -1, -1);
    EXPECT_EQ("i", bar.m_presses);
}

TEST_F(CaptionCtrlPress, Icon_WithoutOne_TheSquareIsNoButton)
{
    CRecordingBar bar;
    Create(bar, 0);
    Tap(bar, 5, 5);
    EXPECT_EQ("", bar.m_presses);
}

TEST_F(CaptionCtrlPress, Icon_ThatCannotBeLoaded_IsAButtonAllTheSame)
{
    CRecordingBar bar;
    Create(bar, 9999);
    Tap(bar, 5, 5);
    EXPECT_EQ("i", bar.m_presses);
}

TEST_F(CaptionCtrlPress, EveryMessage_GoesOnToTheSystemAtTheEnd)
{
    CRecordingBar bar;
    Create(bar);
    const CImportPatch patch(&::DefWindowProcW, &RecordingDefWindowProc);
    for (const UINT message : {UINT{WM_COMMAND}, UINT{WM_LBUTTONDOWN}, UINT{WM_SIZE}, UINT{WM_PAINT}, UINT{WM_APP}})
    {
        g_default.clear();
        CCaptionCtrl::WndProc(bar.GetHwnd(), message, OkId, 0);
        ASSERT_FALSE(g_default.empty()) << "message " << message;
        EXPECT_EQ(message, g_default.back());
    }
}

TEST_F(CaptionCtrlPress, EveryMessage_HasTheSystemsResult)
{
    CRecordingBar bar;
    Create(bar);
    const CImportPatch patch(&::DefWindowProcW, &RecordingDefWindowProc);
    EXPECT_EQ(77, ::SendMessageW(bar.GetHwnd(), WM_COMMAND, OkId, 0));
}

TEST_F(CaptionCtrlPress, WndProc_OfAnotherWindow_PressesNothing)
{
    CRecordingBar bar;
    Create(bar);
    CCaptionCtrl::WndProc(m_parent->Window(), WM_COMMAND, OkId, 0);
    EXPECT_EQ("", bar.m_presses);
}

TEST_F(CaptionCtrlPress, Close_WhoseHandlerDestroysTheParent_LeavesTheObjectWithoutAWindow)
{
    m_parent->m_diesOnClose = true;
    CCaptionCtrl bar;
    Create(bar);
    Press(Button(bar, CloseId));
    EXPECT_EQ(nullptr, bar.GetHwnd());
}

TEST_F(CaptionCtrlPress, EnableButton_False_DisablesTheButton)
{
    CCaptionCtrl bar;
    Create(bar);
    bar.EnableButton(CloseId, FALSE);
    EXPECT_EQ(0, bar.IsButtonEnabled(CloseId));
}

TEST_F(CaptionCtrlPress, EnableButton_True_EnablesItAgain)
{
    CCaptionCtrl bar;
    Create(bar);
    bar.EnableButton(OkId, FALSE);
    bar.EnableButton(OkId, TRUE);
    EXPECT_NE(0, bar.IsButtonEnabled(OkId));
}

TEST_F(CaptionCtrlPress, EnableButton_LeavesTheOtherButtonsAlone)
{
    CCaptionCtrl bar;
    Create(bar);
    bar.EnableButton(HelpId, FALSE);
    EXPECT_NE(0, bar.IsButtonEnabled(OkId));
    EXPECT_NE(0, bar.IsButtonEnabled(CloseId));
}

TEST_F(CaptionCtrlPress, EnableButton_OfAnEnabledButton_Is0)
{
    CCaptionCtrl bar;
    Create(bar);
    EXPECT_EQ(0, bar.EnableButton(HelpId, FALSE));
}

TEST_F(CaptionCtrlPress, EnableButton_OfADisabledButton_IsNot0)
{
    CCaptionCtrl bar;
    Create(bar);
    bar.EnableButton(HelpId, FALSE);
    EXPECT_NE(0, bar.EnableButton(HelpId, TRUE));
}

TEST_F(CaptionCtrlPress, EnableButton_WithoutSuchAButton_Is0)
{
    CCaptionCtrl bar;
    Create(bar);
    EXPECT_EQ(0, bar.EnableButton(3, FALSE));
}

TEST_F(CaptionCtrlPress, IsButtonEnabled_OfANewButton_IsNot0)
{
    CCaptionCtrl bar;
    Create(bar);
    EXPECT_NE(0, bar.IsButtonEnabled(HelpId));
}

TEST_F(CaptionCtrlPress, IsButtonEnabled_WithoutSuchAButton_Is0)
{
    CCaptionCtrl bar;
    Create(bar);
    EXPECT_EQ(0, bar.IsButtonEnabled(3));
}

TEST_F(CaptionCtrlPress, IsButtonEnabled_WithoutAWindow_Is0)
{
    CCaptionCtrl bar;
    EXPECT_EQ(0, bar.IsButtonEnabled(CloseId));
}
