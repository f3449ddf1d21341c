// Window classes that have a caption bar of their own.

#include "Bar.h"
#include "support/MessagePump.h"

#include "support/ImportPatch.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

using namespace bar;
using support::CImportPatch;
using vantor::CCaptionCtrl;
using vantor::CCaptionEnabledWindow;

namespace
{
constexpr int Width = 240;
constexpr int Height = 26;
constexpr COLORREF Active = RGB(200, 0, 40);
constexpr COLORREF Inactive = RGB(60, 90, 0);

DWORD WINAPI Colours(int index)
{
    return index == COLOR_ACTIVECAPTION ? Active : index == COLOR_INACTIVECAPTION ? Inactive : RGB(9, 9, 9);
}

std::wstring g_title;   // that the bar drew last

int WINAPI RecordingDrawText(HDC hdc, LPCWSTR text, int count, LPRECT place, UINT format)
{
    g_title = text;
    return ::DrawTextW(hdc, text, count, place, format);
}

// A window with a bar, as an application has it.
class COwner : public CParent, public CCaptionEnabledWindow
{
public:
    explicit COwner(HWND hWndParent = nullptr) : CParent(Width, L"Report", hWndParent)
    {
        GetCaptionCtrl().Create(Window(), 100, 107, ::GetModuleHandleW(L"vantor.dll"), AllButtons, Height);
    }

    HWND BarWindow() const { return GetCaptionCtrl().GetHwnd(); }

    void OnMessage(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam) override
    {
        OnWindowProc(hWnd, msg, wParam, lParam);
    }
};

// Keeps what is pressed; says that it has handled it, or that it has not.
class CAskedOwner : public COwner
{
public:
    explicit CAskedOwner(bool handles) : m_handles(handles) {}

    bool OnBnClickedIcon() override { return Note('i'); }
    bool OnBnClickedHelp() override { return Note('?'); }
    bool OnBnClickedOk() override { return Note('o'); }
    bool OnBnClickedClose() override { return Note('x'); }

    std::string m_presses;

private:
    bool Note(char press)
    {
        m_presses += press;
        return m_handles;
    }

    bool m_handles;
};

// Goes away, the bar included, when its bar is closed.
class CMortalOwner : public COwner
{
public:
    explicit CMortalOwner(bool& gone) : m_gone(gone) {}
    CMortalOwner(const CMortalOwner&) = delete;
    CMortalOwner& operator=(const CMortalOwner&) = delete;
    ~CMortalOwner() override { m_gone = true; }

    bool OnBnClickedClose() override
    {
        delete this;
        return true;
    }

private:
    bool& m_gone;
};

class CMixedIn : public CCaptionEnabledWindow
{
};

class CaptionOwner : public testing::Test
{
protected:
    CaptionOwner() { support::UseOwnDesktop(); }

    static void PressAll(const COwner& owner)
    {
        for (const unsigned int id : {HelpId, OkId, CloseId})
            Press(Button(owner.GetCaptionCtrl(), id));
    }

    static void TapIcon(const COwner& owner)
    {
        ::SendMessageW(owner.BarWindow(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    }

    static std::vector<CMessage> AllMessages()
    {
        return {{WM_HELP, 0, 0}, {WM_COMMAND, IDOK, 0}, {WM_COMMAND, IDCANCEL, 0}};
    }

    static void Tell(COwner& owner, UINT msg, WPARAM wParam, LPARAM lParam)
    {
        owner.OnWindowProc(owner.Window(), msg, wParam, lParam);
    }
};
}   // namespace

static_assert(!std::is_constructible_v<CCaptionEnabledWindow>, "only as a base");
static_assert(!std::is_copy_constructible_v<CMixedIn> && !std::is_copy_assignable_v<CMixedIn>,
              "a copied bar would ask the owner of the other");

TEST_F(CaptionOwner, GetCaptionCtrl_OfAConstOwner_IsTheSameBar)
{
    COwner owner;
    EXPECT_EQ(&owner.GetCaptionCtrl(), &static_cast<const COwner&>(owner).GetCaptionCtrl());
}

TEST_F(CaptionOwner, New_HasNoBarYet)
{
    const CMixedIn owner;
    EXPECT_EQ(nullptr, owner.GetCaptionCtrl().GetHwnd());
}

TEST_F(CaptionOwner, Base_HandlesNoPress)
{
    COwner owner;
    EXPECT_FALSE(owner.OnBnClickedIcon());
    EXPECT_FALSE(owner.OnBnClickedHelp());
    EXPECT_FALSE(owner.OnBnClickedOk());
    EXPECT_FALSE(owner.OnBnClickedClose());
}

TEST_F(CaptionOwner, Presses_AreSentToTheParent)
{
    const COwner owner;
    PressAll(owner);
    EXPECT_EQ(AllMessages(), owner.Messages());
}

TEST_F(CaptionOwner, Presses_AskTheOwner)
{
    const CAskedOwner owner(true);
    PressAll(owner);
    EXPECT_EQ("?ox", owner.m_presses);
}

TEST_F(CaptionOwner, Presses_ThatTheOwnerDoesNotHandle_AreSentToTheParent)
{
    const CAskedOwner owner(false);
    PressAll(owner);
    EXPECT_EQ(AllMessages(), owner.Messages());
}

TEST_F(CaptionOwner, Help_ThatTheOwnerHandles_IsNotSent)
{
    const CAskedOwner owner(true);
    Press(Button(owner.GetCaptionCtrl(), HelpId));
    EXPECT_TRUE(owner.Messages().empty());
}

TEST_F(CaptionOwner, Ok_ThatTheOwnerHandles_IsNotSent)
{
    const CAskedOwner owner(true);
    Press(Button(owner.GetCaptionCtrl(), OkId));
    EXPECT_TRUE(owner.Messages().empty());
}

TEST_F(CaptionOwner, Close_ThatTheOwnerHandles_IsNotSent)
{
    const CAskedOwner owner(true);
    Press(Button(owner.GetCaptionCtrl(), CloseId));
    EXPECT_TRUE(owner.Messages().empty());
}

TEST_F(CaptionOwner, Icon_AsksTheOwner)
{
    const CAskedOwner owner(true);
    TapIcon(owner);
    EXPECT_EQ("i", owner.m_presses);
}

TEST_F(CaptionOwner, Icon_SendsNothingEvenIfTheOwnerDoesNotHandleIt)
{
    const CAskedOwner owner(false);
    TapIcon(owner);
    EXPECT_TRUE(owner.Messages().empty());
}

TEST_F(CaptionOwner, Close_WhoseHandlerDeletesTheOwner_Returns)
{
    bool gone = false;
    const auto* const owner = new CMortalOwner(gone);
    const HWND window = owner->BarWindow();
    ::SendMessageW(window, WM_COMMAND, CloseId, 0);
    EXPECT_TRUE(gone);
    EXPECT_FALSE(::IsWindow(window));
}

TEST_F(CaptionOwner, Size_OfTheParent_MakesTheBarAsWide)
{
    const COwner owner;
    owner.Resize(333, 100);
    EXPECT_EQ(333, PlaceInParent(owner.BarWindow()).right);
}

TEST_F(CaptionOwner, Size_OfTheParent_KeepsTheBarsHeight)
{
    const COwner owner;
    owner.Resize(333, 100);
    EXPECT_EQ(Height, PlaceInParent(owner.BarWindow()).bottom);
}

TEST_F(CaptionOwner, Size_OfTheParent_KeepsTheButtonsAtTheRight)
{
    const COwner owner;
    owner.Resize(333, 100);
    EXPECT_EQ(333 - 3, PlaceInParent(Button(owner.GetCaptionCtrl(), CloseId)).right);
}

TEST_F(CaptionOwner, Size_OfTheParent_LeavesTheBarWhereItIs)
{
    const COwner owner;
    ::SetWindowPos(owner.BarWindow(), nullptr, 7, 9, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    owner.Resize(333, 100);
    EXPECT_EQ(7, PlaceInParent(owner.BarWindow()).left);
    EXPECT_EQ(9, PlaceInParent(owner.BarWindow()).top);
}

TEST_F(CaptionOwner, Size_OfTheParent_KeepsTheOrderOfTheWindows)
{
    const COwner owner;
    const CParent later(10, L"", owner.Window());
    ::SetWindowPos(later.Window(), HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
    owner.Resize(333, 100);
    EXPECT_EQ(later.Window(), ::GetWindow(owner.Window(), GW_CHILD));
}

TEST_F(CaptionOwner, Size_IsSigned)
{
    COwner owner;
    Tell(owner, WM_SIZE, SIZE_RESTORED, MAKELPARAM(0xFFFF, 100));
    const RECT place = PlaceInParent(owner.BarWindow());
    EXPECT_EQ(0, place.right - place.left) << "a width below 0 is none at all";
}

TEST_F(CaptionOwner, Size_OfAnotherWindow_LeavesTheBarAlone)
{
    COwner owner;
    const CParent other;
    owner.OnWindowProc(other.Window(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(333, 100));
    EXPECT_EQ(Width, PlaceInParent(owner.BarWindow()).right);
}

TEST_F(CaptionOwner, Size_OfNoWindow_LeavesTheBarAlone)
{
    COwner owner;
    owner.OnWindowProc(nullptr, WM_SIZE, SIZE_RESTORED, MAKELPARAM(333, 100));
    EXPECT_EQ(Width, PlaceInParent(owner.BarWindow()).right);
}

TEST_F(CaptionOwner, Activate_Inactive_DisablesTheCaption)
{
    COwner owner;
    Tell(owner, WM_ACTIVATE, WA_INACTIVE, 0);
    EXPECT_FALSE(owner.GetCaptionCtrl().IsCaptionEnabled());
}

TEST_F(CaptionOwner, Activate_Active_EnablesTheCaption)
{
    COwner owner;
    owner.GetCaptionCtrl().EnableCaption(false);
    Tell(owner, WM_ACTIVATE, WA_ACTIVE, 0);
    EXPECT_TRUE(owner.GetCaptionCtrl().IsCaptionEnabled());
}

TEST_F(CaptionOwner, Activate_ByATap_EnablesTheCaption)
{
    COwner owner;
    owner.GetCaptionCtrl().EnableCaption(false);
    Tell(owner, WM_ACTIVATE, WA_CLICKACTIVE, 0);
    EXPECT_TRUE(owner.GetCaptionCtrl().IsCaptionEnabled());
}

TEST_F(CaptionOwner, Activate_IsReadFromTheLowWordAlone)
{
    COwner owner;
    Tell(owner, WM_ACTIVATE, MAKEWPARAM(WA_INACTIVE, 1), 0);
    EXPECT_FALSE(owner.GetCaptionCtrl().IsCaptionEnabled());
}

TEST_F(CaptionOwner, Activate_OfAnyWindow_Counts)
{
    COwner owner;
    owner.OnWindowProc(nullptr, WM_ACTIVATE, WA_INACTIVE, 0);
    EXPECT_FALSE(owner.GetCaptionCtrl().IsCaptionEnabled());
}

TEST_F(CaptionOwner, Activate_WithoutABar_IsRemembered)
{
    COwner owner;
    owner.GetCaptionCtrl().Destroy();
    Tell(owner, WM_ACTIVATE, WA_INACTIVE, 0);
    EXPECT_FALSE(owner.GetCaptionCtrl().IsCaptionEnabled());
}

TEST_F(CaptionOwner, Activate_Inactive_ShowsTheInactiveColour)
{
    const CImportPatch patch(&::GetSysColor, &Colours);
    COwner owner;
    owner.GetCaptionCtrl().EnableCaption(true);
    Paint(owner.BarWindow());
    Tell(owner, WM_ACTIVATE, WA_INACTIVE, 0);
    ::UpdateWindow(owner.BarWindow());
    EXPECT_EQ(Inactive, CPicture(owner.BarWindow()).At(0, 0));
}

TEST_F(CaptionOwner, Activate_Active_ShowsTheActiveColour)
{
    const CImportPatch patch(&::GetSysColor, &Colours);
    COwner owner;
    owner.GetCaptionCtrl().EnableCaption(false);
    Paint(owner.BarWindow());
    Tell(owner, WM_ACTIVATE, WA_ACTIVE, 0);
    ::UpdateWindow(owner.BarWindow());
    EXPECT_EQ(Active, CPicture(owner.BarWindow()).At(0, 0));
}

TEST_F(CaptionOwner, SetText_OfTheParent_ShowsTheNewTitle)
{
    const COwner owner;
    Paint(owner.BarWindow());
    const CImportPatch patch(&::DrawTextW, &RecordingDrawText);
    ::SetWindowTextW(owner.Window(), L"Another");
    ::UpdateWindow(owner.BarWindow());
    EXPECT_EQ(L"Another", g_title);
}

TEST_F(CaptionOwner, SetText_OfAnotherWindow_RepaintsNothing)
{
    COwner owner;
    const CParent other;
    Paint(owner.BarWindow());
    owner.OnWindowProc(other.Window(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"Another"));
    EXPECT_FALSE(IsInvalid(owner.BarWindow()));
}

TEST_F(CaptionOwner, OtherMessages_RepaintNothing)
{
    COwner owner;
    Paint(owner.BarWindow());
    for (UINT msg = 0; msg < WM_USER; ++msg)
    {
        if (msg != WM_SIZE && msg != WM_ACTIVATE && msg != WM_SETTEXT)
            Tell(owner, msg, 0, 0);
    }
    EXPECT_FALSE(IsInvalid(owner.BarWindow()));
}

TEST_F(CaptionOwner, ParentDestroyedFirst_LeavesTheOwnerWithoutABar)
{
    COwner owner;
    owner.Destroy();
    EXPECT_EQ(nullptr, owner.BarWindow());
}
