#include "Picture.h"

#include "support/ImportPatch.h"
#include "support/MessagePump.h"

using namespace vantor;
using pictures::CSlowPicture;
using pictures::CSurface;
using pictures::Same;
using pictures::Screen;
using support::CImportPatch;

namespace
{
constexpr int Width = 60;
constexpr int Height = 40;

// A window whose pixels can be read back.
class DrawingCommit : public testing::Test
{
protected:
    DrawingCommit() : m_source(Width, Height), m_surface(Width, Height)
    {
        support::UseOwnDesktop();
        m_hWnd = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 2 * Width, 2 * Height, nullptr,
                                   nullptr, nullptr, nullptr);
        EXPECT_NE(nullptr, m_hWnd);
        support::PumpMessages();
        m_hDC = ::GetDC(m_hWnd);
        const RECT all = {0, 0, 2 * Width, 2 * Height};
        ::FillRect(m_hDC, &all, static_cast<HBRUSH>(::GetStockObject(BLACK_BRUSH)));

        std::mt19937 random(1);
        m_source.Fill(random);
        m_source.CopyTo(m_surface);
    }
    ~DrawingCommit() override
    {
        ::ReleaseDC(m_hWnd, m_hDC);
        ::DestroyWindow(m_hWnd);
    }

    // Of the window.
    testing::AssertionResult Shows(const CSlowPicture& wanted) const
    {
        const CSurface seen(wanted.Width(), wanted.Height());
        EXPECT_TRUE(::BitBlt(seen, 0, 0, wanted.Width(), wanted.Height(), m_hDC, 0, 0, SRCCOPY));
        ::GdiFlush();
        for (int i = 0; i < wanted.Width() * wanted.Height(); ++i)
            seen.Words()[i] &= 0xFFFFFF;
        return Same(wanted, seen);
    }

    HWND m_hWnd = nullptr;
    HDC m_hDC = nullptr;
    CSlowPicture m_source;
    CSurface m_surface;
};

struct CBlit
{
    int calls = 0;
    HDC to = nullptr;
    HDC from = nullptr;
    RECT area = {};   // left, top, width, height at the goal
    SIZE fromSize = {};
    DWORD operation = 0;
} g_bit, g_stretch;

struct CMode
{
    int calls = 0;
    HDC dc = nullptr;
    int mode = 0;
    bool wasFirst = false;
} g_mode;

BOOL g_answer = TRUE;

BOOL WINAPI RecordingBitBlt(HDC to, int x, int y, int cx, int cy, HDC from, int fromX, int fromY, DWORD operation)
{
    EXPECT_EQ(0, fromX);
    EXPECT_EQ(0, fromY);
    g_bit = {g_bit.calls + 1, to, from, {x, y, cx, cy}, {cx, cy}, operation};
    return g_answer;
}

BOOL WINAPI RecordingStretchBlt(HDC to, int x, int y, int cx, int cy, HDC from, int fromX, int fromY, int fromCx,
                                int fromCy, DWORD operation)
{
    EXPECT_EQ(0, fromX);
    EXPECT_EQ(0, fromY);
    g_stretch = {g_stretch.calls + 1, to, from, {x, y, cx, cy}, {fromCx, fromCy}, operation};
    return g_answer;
}

int WINAPI RecordingMode(HDC dc, int mode)
{
    g_mode = {g_mode.calls + 1, dc, mode, g_stretch.calls == 0};
    return BLACKONWHITE;
}

// Records the calls instead of drawing.
struct CRecorder
{
    CRecorder()
    {
        g_bit = {};
        g_stretch = {};
        g_mode = {};
    }

    CImportPatch bit{&::BitBlt, &RecordingBitBlt};
    CImportPatch stretch{&::StretchBlt, &RecordingStretchBlt};
    CImportPatch mode{&::SetStretchBltMode, &RecordingMode};
};
}   // namespace

TEST_F(DrawingCommit, OfTheSameSize_ShowsEveryPixel)
{
    EXPECT_TRUE(m_surface.Commit(m_hDC, {Width, Height}, {Width, Height}));
    EXPECT_TRUE(Shows(m_source));
}

TEST_F(DrawingCommit, OfAPart_LeavesTheRestOfTheWindow)
{
    EXPECT_TRUE(m_surface.Commit(m_hDC, {20, 10}, {20, 10}));
    CSlowPicture wanted(Width, Height);
    for (int y = 0; y < 10; ++y)
    {
        for (int x = 0; x < 20; ++x)
            wanted.Word(x, y) = m_source.Word(x, y);
    }
    EXPECT_TRUE(Shows(wanted));
}

// What is between is open to the system's way of smoothing: one colour shows that all of the area is covered.
TEST_F(DrawingCommit, ToTwiceTheSize_CoversIt)
{
    for (int i = 0; i < Width * Height; ++i)
        m_surface.Words()[i] = 0x123456;
    EXPECT_TRUE(m_surface.Commit(m_hDC, {2 * Width, 2 * Height}, {Width, Height}));
    CSlowPicture wanted(2 * Width, 2 * Height);
    for (int y = 0; y < 2 * Height; ++y)
    {
        for (int x = 0; x < 2 * Width; ++x)
            wanted.Word(x, y) = 0x123456;
    }
    EXPECT_TRUE(Shows(wanted));
}

TEST_F(DrawingCommit, ToHalfTheSize_TakesFromTheTopLeftPartOnly)
{
    for (int y = 0; y < Height; ++y)
    {
        for (int x = 0; x < Width; ++x)
            m_surface.Words()[y * Width + x] = x < 40 && y < 20 ? 0x123456u : 0xFFFFFFu;
    }
    EXPECT_TRUE(m_surface.Commit(m_hDC, {20, 10}, {40, 20}));
    CSlowPicture wanted(Width, Height);
    for (int y = 0; y < 10; ++y)
    {
        for (int x = 0; x < 20; ++x)
            wanted.Word(x, y) = 0x123456;
    }
    EXPECT_TRUE(Shows(wanted));
}

TEST_F(DrawingCommit, AfterResampling_ShowsTheAverages)
{
    for (int y = 0; y < Height; ++y)
    {
        for (int x = 0; x < Width; ++x)
            m_surface.Words()[y * Width + x] = x % 2 == 0 ? 0x204060u : 0x406080u;
    }
    ASSERT_TRUE(m_surface.ResampleDown(2));
    EXPECT_TRUE(m_surface.Commit(m_hDC, {Width / 2, Height / 2}, {Width / 2, Height / 2}));
    CSlowPicture wanted(Width, Height);
    for (int y = 0; y < Height / 2; ++y)
    {
        for (int x = 0; x < Width / 2; ++x)
            wanted.Word(x, y) = 0x305070;
    }
    EXPECT_TRUE(Shows(wanted));
}

TEST_F(DrawingCommit, WithoutASurface_FailsAndLeavesTheWindow)
{
    CCompatibleDC surface;
    EXPECT_FALSE(surface.Commit(m_hDC, {Width, Height}, {Width, Height}));
    EXPECT_FALSE(surface.Commit(m_hDC, {2 * Width, Height}, {Width, Height}));
    EXPECT_TRUE(Shows(CSlowPicture(Width, Height)));
}

TEST(DrawingCommitCalls, OfTheSameSize_IsAPlainCopy)
{
    CSurface surface(6, 4);
    const CRecorder recorder;
    EXPECT_TRUE(surface.Commit(Screen(), {5, 3}, {5, 3}));
    EXPECT_EQ(1, g_bit.calls);
    EXPECT_EQ(Screen(), g_bit.to);
    EXPECT_EQ(surface.GetDC(), g_bit.from);
    EXPECT_EQ(0, g_bit.area.left);
    EXPECT_EQ(0, g_bit.area.top);
    EXPECT_EQ(5, g_bit.area.right);
    EXPECT_EQ(3, g_bit.area.bottom);
    EXPECT_EQ(static_cast<DWORD>(SRCCOPY), g_bit.operation);
}

TEST(DrawingCommitCalls, OfTheSameSize_LeavesTheStretchingMode)
{
    CSurface surface(6, 4);
    const CRecorder recorder;
    EXPECT_TRUE(surface.Commit(Screen(), {5, 3}, {5, 3}));
    EXPECT_EQ(0, g_mode.calls);
    EXPECT_EQ(0, g_stretch.calls);
}

TEST(DrawingCommitCalls, OfAnotherSize_Stretches)
{
    CSurface surface(6, 4);
    const CRecorder recorder;
    EXPECT_TRUE(surface.Commit(Screen(), {12, 8}, {5, 3}));
    EXPECT_EQ(0, g_bit.calls);
    EXPECT_EQ(1, g_stretch.calls);
    EXPECT_EQ(Screen(), g_stretch.to);
    EXPECT_EQ(surface.GetDC(), g_stretch.from);
    EXPECT_EQ(0, g_stretch.area.left);
    EXPECT_EQ(0, g_stretch.area.top);
    EXPECT_EQ(12, g_stretch.area.right);
    EXPECT_EQ(8, g_stretch.area.bottom);
    EXPECT_EQ(5, g_stretch.fromSize.cx);
    EXPECT_EQ(3, g_stretch.fromSize.cy);
    EXPECT_EQ(static_cast<DWORD>(SRCCOPY), g_stretch.operation);
}

TEST(DrawingCommitCalls, OfAnotherSize_SetsTheSmoothingModeFirst)
{
    CSurface surface(6, 4);
    const CRecorder recorder;
    EXPECT_TRUE(surface.Commit(Screen(), {12, 8}, {5, 3}));
    EXPECT_EQ(1, g_mode.calls);
    EXPECT_EQ(Screen(), g_mode.dc);
    EXPECT_EQ(5, g_mode.mode);
    EXPECT_TRUE(g_mode.wasFirst);
}

TEST(DrawingCommitCalls, OfAnotherWidthAlone_Stretches)
{
    CSurface surface(6, 4);
    const CRecorder recorder;
    EXPECT_TRUE(surface.Commit(Screen(), {6, 4}, {5, 4}));
    EXPECT_EQ(1, g_stretch.calls);
}

TEST(DrawingCommitCalls, OfAnotherHeightAlone_Stretches)
{
    CSurface surface(6, 4);
    const CRecorder recorder;
    EXPECT_TRUE(surface.Commit(Screen(), {6, 4}, {6, 3}));
    EXPECT_EQ(1, g_stretch.calls);
}

TEST(DrawingCommitCalls, WhenCopyingFails_IsFalse)
{
    CSurface surface(6, 4);
    const CRecorder recorder;
    g_answer = FALSE;
    EXPECT_FALSE(surface.Commit(Screen(), {5, 3}, {5, 3}));
    g_answer = TRUE;
}

TEST(DrawingCommitCalls, WhenStretchingFails_IsFalse)
{
    CSurface surface(6, 4);
    const CRecorder recorder;
    g_answer = FALSE;
    EXPECT_FALSE(surface.Commit(Screen(), {12, 8}, {5, 3}));
    g_answer = TRUE;
}

TEST(DrawingCommitCalls, WithoutAGoal_FailsWithoutACall)
{
    CSurface surface(6, 4);
    const CRecorder recorder;
    EXPECT_FALSE(surface.Commit(nullptr, {5, 3}, {5, 3}));
    EXPECT_FALSE(surface.Commit(nullptr, {12, 8}, {5, 3}));
    EXPECT_EQ(0, g_bit.calls + g_stretch.calls + g_mode.calls);
}

TEST(DrawingCommitCalls, WithoutASurface_FailsWithoutACall)
{
    CCompatibleDC surface;
    const CRecorder recorder;
    EXPECT_FALSE(surface.Commit(Screen(), {5, 3}, {5, 3}));
    EXPECT_FALSE(surface.Commit(Screen(), {12, 8}, {5, 3}));
    EXPECT_EQ(0, g_bit.calls + g_stretch.calls + g_mode.calls);
}
