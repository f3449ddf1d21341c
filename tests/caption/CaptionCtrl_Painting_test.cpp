// The bar's gradient and icon, as pixels and as what it asks the system to draw.

#include "BarPaint.h"

#include "support/ImportPatch.h"

#include <gtest/gtest.h>

using namespace bar;
using support::CImportPatch;
using vantor::CCaptionCtrl;

namespace
{
struct CLoad
{
    HINSTANCE module;
    UINT_PTR name;
    UINT type;
    int width;
    int height;
    UINT flags;
};

std::vector<CLoad> g_loads;

HANDLE WINAPI RecordingLoadImage(HINSTANCE module, LPCWSTR name, UINT type, int width, int height, UINT flags)
{
    g_loads.push_back({module, reinterpret_cast<UINT_PTR>(name), type, width, height, flags});
    return ::LoadImageW(module, name, type, width, height, flags);
}

RECT g_icon = {};   // left, top, width, height
UINT g_iconFlags = 0;

BOOL WINAPI RecordingDrawIcon(HDC hdc, int x, int y, HICON icon, int width, int height, UINT step, HBRUSH brush,
                              UINT flags)
{
    g_icon = {x, y, width, height};
    g_iconFlags = flags;
    return ::DrawIconEx(hdc, x, y, icon, width, height, step, brush, flags);
}

TRIVERTEX g_vertices[2] = {};
ULONG g_gradientMode = 0;

BOOL WINAPI RecordingGradientFill(HDC hdc, TRIVERTEX* vertices, ULONG count, void* mesh, ULONG meshes, ULONG mode)
{
    EXPECT_EQ(2u, count);
    EXPECT_EQ(1u, meshes);
    std::copy_n(vertices, 2, g_vertices);
    g_gradientMode = mode;
    return ::GradientFill(hdc, vertices, count, mesh, meshes, mode);
}

class CaptionCtrlPaint : public CPaintTest
{
protected:
    CaptionCtrlPaint() { g_loads.clear(); }
};
}   // namespace

TEST_F(CaptionCtrlPaint, Gradient_BeginsWithTheActiveColour)
{
    Show(L"");
    EXPECT_EQ(Active, Seen().At(0, 0));
}

TEST_F(CaptionCtrlPaint, Gradient_EndsWithTheActiveGradientColour)
{
    Show(L"");
    EXPECT_LE(Distance(ActiveEnd, Seen().At(Width - 1, Height - 1)), 2);
}

TEST_F(CaptionCtrlPaint, Gradient_OfAnInactiveBar_BeginsWithTheInactiveColour)
{
    m_active = false;
    Show(L"");
    EXPECT_EQ(Inactive, Seen().At(0, 0));
}

TEST_F(CaptionCtrlPaint, Gradient_OfAnInactiveBar_EndsWithTheInactiveGradientColour)
{
    m_active = false;
    Show(L"");
    EXPECT_LE(Distance(InactiveEnd, Seen().At(Width - 1, Height - 1)), 2);
}

TEST_F(CaptionCtrlPaint, Gradient_IsEvenAndHorizontal)
{
    Show(L"");
    const CPicture seen(m_bar.GetHwnd());
    for (int y = 0; y < Height; ++y)
    {
        for (int x = 0; x < Width; ++x)
            ASSERT_LE(Distance(Between(Active, ActiveEnd, x, Width), seen.At(x, y)), 2) << "at " << x << "," << y;
    }
}

TEST_F(CaptionCtrlPaint, Gradient_HasChannelsOf16BitsAndNoAlpha)
{
    const CImportPatch patch(&::GradientFill, &RecordingGradientFill);
    Show(L"");
    EXPECT_EQ(200 << 8, g_vertices[0].Red);
    EXPECT_EQ(0, g_vertices[0].Green);
    EXPECT_EQ(40 << 8, g_vertices[0].Blue);
    EXPECT_EQ(0, g_vertices[0].Alpha);
    EXPECT_EQ(0, g_vertices[1].Red);
    EXPECT_EQ(100 << 8, g_vertices[1].Green);
    EXPECT_EQ(240 << 8, g_vertices[1].Blue);
    EXPECT_EQ(0, g_vertices[1].Alpha);
}

TEST_F(CaptionCtrlPaint, Gradient_RunsFromCornerToCorner)
{
    const CImportPatch patch(&::GradientFill, &RecordingGradientFill);
    Show(L"");
    EXPECT_EQ(0, g_vertices[0].x);
    EXPECT_EQ(0, g_vertices[0].y);
    EXPECT_EQ(Width, g_vertices[1].x);
    EXPECT_EQ(Height, g_vertices[1].y);
    EXPECT_EQ(ULONG{GRADIENT_FILL_RECT_H}, g_gradientMode);
}

TEST_F(CaptionCtrlPaint, Icon_IsLoadedInTheSystemsSmallSize)
{
    const CImportPatch patch(&::LoadImageW, &RecordingLoadImage);
    Show(L"", IconId, 0, 64);
    ASSERT_EQ(1u, g_loads.size());
    EXPECT_EQ(Library(), g_loads[0].module);
    EXPECT_EQ(IconId, g_loads[0].name);
    EXPECT_EQ(UINT{IMAGE_ICON}, g_loads[0].type);
    EXPECT_EQ(::GetSystemMetrics(SM_CXSMICON), g_loads[0].width);
    EXPECT_EQ(::GetSystemMetrics(SM_CYSMICON), g_loads[0].height);
    EXPECT_EQ(0u, g_loads[0].flags);
}

TEST_F(CaptionCtrlPaint, Icon_OnALowBar_IsAsHighAsTheBar)
{
    const CImportPatch patch(&::LoadImageW, &RecordingLoadImage);
    Show(L"", IconId, 0, 9);
    ASSERT_EQ(1u, g_loads.size());
    EXPECT_EQ(9, g_loads[0].width);
    EXPECT_EQ(9, g_loads[0].height);
}

TEST_F(CaptionCtrlPaint, Icon_IsLoadedAnewAtEveryPaint)
{
    const CImportPatch patch(&::LoadImageW, &RecordingLoadImage);
    Show(L"", IconId);
    Paint(m_bar.GetHwnd());
    EXPECT_EQ(2u, g_loads.size());
}

TEST_F(CaptionCtrlPaint, Icon_IsNotLookedForWithoutANumber)
{
    const CImportPatch patch(&::LoadImageW, &RecordingLoadImage);
    Show(L"", 0);
    EXPECT_TRUE(g_loads.empty());
}

TEST_F(CaptionCtrlPaint, Icon_StandsInTheMiddleOfItsSquare)
{
    const CImportPatch patch(&::DrawIconEx, &RecordingDrawIcon);
    Show(L"", IconId, 0, 31);
    const int cx = ::GetSystemMetrics(SM_CXSMICON);
    const int cy = ::GetSystemMetrics(SM_CYSMICON);
    const RECT expected = {(31 - cx) / 2, (31 - cy) / 2, cx, cy};
    EXPECT_TRUE(::EqualRect(&expected, &g_icon));
    EXPECT_EQ(UINT{DI_NORMAL}, g_iconFlags);
}

TEST_F(CaptionCtrlPaint, Icon_StandsInTheMiddleOfItsSquareAtEveryHeight)
{
    const CImportPatch patch(&::DrawIconEx, &RecordingDrawIcon);
    for (int height = 1; height <= 64; ++height)
    {
        Show(L"", IconId, 0, height);
        const int cx = std::min(height, ::GetSystemMetrics(SM_CXSMICON));
        const int cy = std::min(height, ::GetSystemMetrics(SM_CYSMICON));
        const RECT expected = {(height - cx) / 2, (height - cy) / 2, cx, cy};
        EXPECT_TRUE(::EqualRect(&expected, &g_icon)) << "height " << height;
    }
}

TEST_F(CaptionCtrlPaint, Icon_IsSeenInItsSquareAlone)
{
    Show(L"", IconId);
    const CPicture seen(m_bar.GetHwnd());
    RECT changed = {};
    for (int y = 0; y < Height; ++y)
    {
        for (int x = 0; x < Width; ++x)
        {
            const RECT pixel = {x, y, x + 1, y + 1};
            if (Distance(Between(Active, ActiveEnd, x, Width), seen.At(x, y)) > 2)
                ::UnionRect(&changed, &changed, &pixel);
        }
    }
    EXPECT_FALSE(::IsRectEmpty(&changed));
    EXPECT_LE((Height - ::GetSystemMetrics(SM_CXSMICON)) / 2, changed.left);
    EXPECT_GE((Height + ::GetSystemMetrics(SM_CXSMICON)) / 2, changed.right);
}

TEST_F(CaptionCtrlPaint, EnableCaption_False_ShowsTheInactiveColour)
{
    Show(L"");
    m_bar.EnableCaption(false);
    ::UpdateWindow(m_bar.GetHwnd());
    EXPECT_EQ(Inactive, Seen().At(0, 0));
}

TEST_F(CaptionCtrlPaint, EnableCaption_True_ShowsTheActiveColourAgain)
{
    m_active = false;
    Show(L"");
    m_bar.EnableCaption(true);
    ::UpdateWindow(m_bar.GetHwnd());
    EXPECT_EQ(Active, Seen().At(0, 0));
}

TEST_F(CaptionCtrlPaint, EnableCaption_IsRemembered)
{
    CCaptionCtrl bar;
    bar.EnableCaption(false);
    EXPECT_FALSE(bar.IsCaptionEnabled());
}

TEST_F(CaptionCtrlPaint, Invalidate_AsksForTheWholeBar)
{
    Show(L"");
    m_bar.Invalidate();
    RECT invalid = {};
    ::GetUpdateRect(m_bar.GetHwnd(), &invalid, FALSE);
    const RECT whole = {0, 0, Width, Height};
    EXPECT_TRUE(::EqualRect(&whole, &invalid));
}

TEST_F(CaptionCtrlPaint, Invalidate_WithAWindow_IsNot0)
{
    Show(L"");
    EXPECT_NE(0, m_bar.Invalidate());
}

TEST_F(CaptionCtrlPaint, Invalidate_WithoutAWindow_Is0)
{
    CCaptionCtrl bar;
    EXPECT_EQ(0, bar.Invalidate());
}

TEST_F(CaptionCtrlPaint, Size_RepaintsTheWholeBar)
{
    Show(L"");
    m_parent->Resize(2 * Width, 200);
    ::MoveWindow(m_bar.GetHwnd(), 0, 0, 2 * Width, Height, TRUE);
    ::UpdateWindow(m_bar.GetHwnd());
    EXPECT_LE(Distance(Between(Active, ActiveEnd, Width - 1, 2 * Width), Seen().At(Width - 1, 0)), 2);
}
