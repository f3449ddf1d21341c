// The tip as it is seen.

#include "Tip.h"

#include "support/ImportPatch.h"
#include "support/MessagePump.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace bar;
using support::CImportPatch;
using vantor::CTipDlg;

namespace
{
constexpr COLORREF Menu = RGB(250, 220, 190);
constexpr COLORREF Black = RGB(0, 0, 0);

DWORD WINAPI Colours(int index)
{
    return index == COLOR_MENU ? Menu : RGB(100, 150, 200);
}

// Tips whose colours are known.
class TipDlgPaint : public testing::Test
{
protected:
    TipDlgPaint() { support::UseOwnDesktop(); }

    // Of a line in the dialog's font.
    static int LineHeight(const CTipDlg& tip)
    {
        const HWND control = TextControl(tip);
        const HDC hdc = ::GetDC(control);
        const HGDIOBJ previous =
            ::SelectObject(hdc, reinterpret_cast<HGDIOBJ>(::SendMessageW(control, WM_GETFONT, 0, 0)));
        TEXTMETRICW metrics = {};
        ::GetTextMetricsW(hdc, &metrics);
        ::SelectObject(hdc, previous);
        ::ReleaseDC(control, hdc);
        return metrics.tmHeight;
    }

    CImportPatch m_colours{&::GetSysColor, &Colours};
};
}   // namespace

TEST_F(TipDlgPaint, Deferred_CreatedAndShown_ShowsItsText)
{
    CTipDlg tip(nullptr, L"Please wait", true);
    tip.Create();
    ::ShowWindow(tip.m_hWnd, SW_SHOW);
    ::UpdateWindow(tip.m_hWnd);
    EXPECT_TRUE(CPicture(TextControl(tip)).Has(Black));
}

TEST_F(TipDlgPaint, Shown_IsPaintedWhenTheConstructorReturns)
{
    const CTipDlg tip(nullptr, L"Please wait", false);
    EXPECT_TRUE(CPicture(TextControl(tip)).Has(Black));
}

TEST_F(TipDlgPaint, Shown_HasItsIconPaintedToo)
{
    const CTipDlg tip(nullptr, L"", false);
    const HWND icon = ::GetWindow(tip.m_hWnd, GW_CHILD);
    const CPicture seen(icon);
    const COLORREF corner = seen.At(0, 0);
    bool painted = false;
    for (int y = 0; y < seen.Height(); ++y)
    {
        for (int x = 0; x < seen.Width(); ++x)
            painted = painted || seen.At(x, y) != corner;
    }
    EXPECT_TRUE(painted);
}

TEST_F(TipDlgPaint, TextArea_HasTheMenusColour)
{
    const CTipDlg tip(nullptr, L"", false);
    const CPicture seen(TextControl(tip));
    const RECT whole = {0, 0, seen.Width(), seen.Height()};
    const RECT other = seen.BoundsOfOthers(Menu);
    EXPECT_FALSE(::IsRectEmpty(&whole));
    EXPECT_TRUE(::IsRectEmpty(&other));
}

// One letter: the system measures several a little wider than it draws them.
TEST_F(TipDlgPaint, Text_OfOneLine_IsCentredBothWays)
{
    const CTipDlg tip(nullptr, L"W", false);
    const CPicture seen(TextControl(tip));
    const RECT text = seen.BoundsOfOthers(Menu);
    ASSERT_FALSE(::IsRectEmpty(&text));
    const int lineTop = (seen.Height() - LineHeight(tip)) / 2;
    EXPECT_NEAR(text.left, seen.Width() - text.right, 2);
    EXPECT_GE(text.top, lineTop);
    EXPECT_LE(text.bottom, seen.Height() - lineTop);
}

TEST_F(TipDlgPaint, Text_OfTwoLines_HasEachCentred)
{
    const CTipDlg tip(nullptr, L"H\nHHHHHHHH", false);
    const CPicture seen(TextControl(tip));
    int left = seen.Width();
    int right = 0;
    for (int x = 0; x < seen.Width(); ++x)   // of the first line
    {
        for (int y = 0; y < seen.Height() / 2; ++y)
        {
            if (seen.At(x, y) != Menu)
            {
                left = std::min(left, x);
                right = x + 1;
            }
        }
    }
    EXPECT_GT(right, left);
    EXPECT_NEAR(left, seen.Width() - right, 3);
}

TEST_F(TipDlgPaint, Text_LongerThanALine_IsWrapped)
{
    const CTipDlg tip(nullptr, L"HHHHHHHHHH HHHHHHHHHH HHHHHHHHHH", false);
    const RECT text = CPicture(TextControl(tip)).BoundsOfOthers(Menu);
    EXPECT_GT(text.bottom - text.top, LineHeight(tip));
}

TEST_F(TipDlgPaint, Text_TooLong_BeginsInTheFirstLine)
{
    const CTipDlg tip(nullptr, LongText().c_str(), false);
    EXPECT_LT(CPicture(TextControl(tip)).BoundsOfOthers(Menu).top, LineHeight(tip) / 2);
}

TEST_F(TipDlgPaint, Text_TooLong_EndsWithDotsOnTheBaseLine)
{
    const CTipDlg tip(nullptr, LongText().c_str(), false);
    const CPicture seen(TextControl(tip));
    const int line = LineHeight(tip);
    const int last = (seen.Height() / line - 1) * line;   // top of the last whole line
    int right = 0;
    for (int y = last; y < last + line; ++y)
    {
        for (int x = 0; x < seen.Width(); ++x)
            right = seen.At(x, y) != Menu ? std::max(right, x + 1) : right;
    }
    ASSERT_GT(right, 6) << "no text in the last line";
    int bottom = 0;
    int top = seen.Height();
    for (int y = last; y < last + line; ++y)
    {
        for (int x = right - 6; x < right; ++x)
        {
            if (seen.At(x, y) != Menu)
            {
                top = std::min(top, y);
                bottom = y + 1;
            }
        }
    }
    EXPECT_LE(bottom - top, 2) << "the line ends with more than dots";
}

TEST_F(TipDlgPaint, Text_StaysAfterARepaint)
{
    const CTipDlg tip(nullptr, L"Please wait", false);
    const CPicture before(tip.m_hWnd);
    ::InvalidateRect(tip.m_hWnd, nullptr, TRUE);
    ::UpdateWindow(tip.m_hWnd);
    EXPECT_TRUE(before == CPicture(tip.m_hWnd));
}

TEST_F(TipDlgPaint, Text_StaysAfterTheTipWasCovered)
{
    const CTipDlg tip(nullptr, L"Please wait", false);
    support::PumpMessages();
    const CPicture before(tip.m_hWnd);
    {
        const CParent cover(1000);
        ::SetWindowPos(cover.Window(), HWND_TOPMOST, 0, 0, 1024, 768, SWP_NOACTIVATE);
        Paint(cover.Window());
    }
    support::PumpMessages();
    EXPECT_TRUE(before == CPicture(tip.m_hWnd));
}
