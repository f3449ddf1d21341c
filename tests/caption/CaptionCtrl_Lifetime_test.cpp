// How long a bar lives, and how it is found.

#include "Bar.h"

#include "support/ImportPatch.h"
#include "support/Leaks.h"
#include "support/MessagePump.h"

#include <gtest/gtest.h>

using namespace bar;
using support::CImportPatch;
using vantor::CCaptionCtrl;

namespace
{
constexpr unsigned int BarId = 4711;
constexpr unsigned int IconId = 107;

std::vector<HWND> g_destroyed;

BOOL WINAPI RecordingDestroyWindow(HWND hWnd)
{
    g_destroyed.push_back(hWnd);
    return ::DestroyWindow(hWnd);
}

class CaptionCtrlLifetime : public testing::Test
{
protected:
    CaptionCtrlLifetime()
    {
        support::UseOwnDesktop();
        g_destroyed.clear();
    }

    static int Create(CCaptionCtrl& bar, const CParent& parent, int height = 26)
    {
        return bar.Create(parent.Window(), BarId, IconId, ::GetModuleHandleW(L"vantor.dll"), AllButtons, height);
    }
};
}   // namespace

TEST_F(CaptionCtrlLifetime, Destroy_WithABar_IsNot0)
{
    const CParent parent;
    CCaptionCtrl bar;
    Create(bar, parent);
    EXPECT_NE(0, bar.Destroy());
}

TEST_F(CaptionCtrlLifetime, Destroy_WithoutABar_Is0)
{
    CCaptionCtrl bar;
    EXPECT_EQ(0, bar.Destroy());
}

TEST_F(CaptionCtrlLifetime, Destroy_Twice_Is0)
{
    const CParent parent;
    CCaptionCtrl bar;
    Create(bar, parent);
    bar.Destroy();
    EXPECT_EQ(0, bar.Destroy());
}

TEST_F(CaptionCtrlLifetime, Destroy_TakesTheButtonsFirst)
{
    const CParent parent;
    CCaptionCtrl bar;
    Create(bar, parent);
    const std::vector<HWND> expected = {Button(bar, HelpId), Button(bar, OkId), Button(bar, CloseId), bar.GetHwnd()};
    const CImportPatch patch(&::DestroyWindow, &RecordingDestroyWindow);
    bar.Destroy();
    EXPECT_EQ(expected, g_destroyed);
}

TEST_F(CaptionCtrlLifetime, Destroy_LeavesTheObjectWithoutAWindow)
{
    const CParent parent;
    CCaptionCtrl bar;
    Create(bar, parent);
    bar.Destroy();
    EXPECT_EQ(nullptr, bar.GetHwnd());
}

TEST_F(CaptionCtrlLifetime, Destructor_DestroysTheBar)
{
    const CParent parent;
    HWND window = nullptr;
    {
        CCaptionCtrl bar;
        Create(bar, parent);
        window = bar.GetHwnd();
    }
    EXPECT_FALSE(::IsWindow(window));
}

TEST_F(CaptionCtrlLifetime, ParentDestroyedFirst_LeavesTheObjectWithoutAWindow)
{
    CParent parent;
    CCaptionCtrl bar;
    Create(bar, parent);
    parent.Destroy();
    EXPECT_EQ(nullptr, bar.GetHwnd());
}

TEST_F(CaptionCtrlLifetime, ParentDestroyedFirst_LeavesNothingToDestroy)
{
    CParent parent;
    CCaptionCtrl bar;
    Create(bar, parent);
    parent.Destroy();
    const CImportPatch patch(&::DestroyWindow, &RecordingDestroyWindow);
    EXPECT_EQ(0, bar.Destroy());
    EXPECT_TRUE(g_destroyed.empty());
}

TEST_F(CaptionCtrlLifetime, ParentDestroyedFirst_AllowsABarInAnotherParent)
{
    CParent first;
    const CParent second;
    CCaptionCtrl bar;
    Create(bar, first);
    first.Destroy();
    EXPECT_NE(0, Create(bar, second));
}

TEST_F(CaptionCtrlLifetime, FindInstance_OfABar_IsItsObject)
{
    const CParent parent;
    CCaptionCtrl bar;
    CCaptionCtrl other;
    Create(bar, parent);
    Create(other, parent);
    EXPECT_EQ(&bar, CCaptionCtrl::FindInstance(bar.GetHwnd()));
}

TEST_F(CaptionCtrlLifetime, FindInstance_OfAnotherWindow_IsNull)
{
    const CParent parent;
    CCaptionCtrl bar;
    Create(bar, parent);
    EXPECT_EQ(nullptr, CCaptionCtrl::FindInstance(parent.Window()));
}

TEST_F(CaptionCtrlLifetime, FindInstance_OfNull_IsNull)
{
    EXPECT_EQ(nullptr, CCaptionCtrl::FindInstance(nullptr));
}

TEST_F(CaptionCtrlLifetime, FindInstance_OfADestroyedBar_IsNull)
{
    const CParent parent;
    CCaptionCtrl bar;
    Create(bar, parent);
    const HWND window = bar.GetHwnd();
    bar.Destroy();
    EXPECT_EQ(nullptr, CCaptionCtrl::FindInstance(window));
}

TEST_F(CaptionCtrlLifetime, FindInstance_OfABarThatWentWithItsParent_IsNull)
{
    CParent parent;
    CCaptionCtrl bar;
    Create(bar, parent);
    const HWND window = bar.GetHwnd();
    parent.Destroy();
    EXPECT_EQ(nullptr, CCaptionCtrl::FindInstance(window));
}

TEST_F(CaptionCtrlLifetime, Copy_HasTheSameWindow)
{
    const CParent parent;
    CCaptionCtrl bar;
    Create(bar, parent);
    const CCaptionCtrl copy(bar);
    EXPECT_EQ(bar.GetHwnd(), copy.GetHwnd());
}

TEST_F(CaptionCtrlLifetime, Copy_HasTheSameParentHeightAndLook)
{
    const CParent parent;
    CCaptionCtrl bar;
    Create(bar, parent, 31);
    bar.EnableCaption(false);
    const CCaptionCtrl copy(bar);
    EXPECT_EQ(parent.Window(), copy.GetParent());
    EXPECT_EQ(31, copy.GetHeight());
    EXPECT_FALSE(copy.IsCaptionEnabled());
}

TEST_F(CaptionCtrlLifetime, Assignment_TakesTheSameWindow)
{
    const CParent parent;
    CCaptionCtrl bar;
    CCaptionCtrl copy;
    Create(bar, parent);
    copy = bar;
    EXPECT_EQ(bar.GetHwnd(), copy.GetHwnd());
}

TEST_F(CaptionCtrlLifetime, Copy_DoesNotReplaceTheObjectOfTheWindow)
{
    const CParent parent;
    CCaptionCtrl bar;
    Create(bar, parent);
    const CCaptionCtrl copy(bar);
    EXPECT_EQ(&bar, CCaptionCtrl::FindInstance(copy.GetHwnd()));
}

TEST_F(CaptionCtrlLifetime, ThousandBars_LeaveNothingBehind)
{
    const CParent parent;
    const auto run = [&parent](int count)
    {
        for (int i = 0; i < count; ++i)
        {
            CCaptionCtrl bar;
            Create(bar, parent);
            bar.EnableCaption(i % 2 == 0);
            Paint(bar.GetHwnd());
            if (i % 2 == 0)
                bar.Destroy();
        }
        support::PumpMessages();
    };
    run(20);
    const support::CResources before;
    run(1000);
    EXPECT_EQ(before, support::CResources());
}
