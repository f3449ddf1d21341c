// The hidden button that opens the details.

#include "Driver.h"

#include <vantor/Dialog.h>

#include <gtest/gtest.h>

using namespace vantor;

namespace
{
HWND DetailsOf(HWND dialog)
{
    return ::GetDlgItem(dialog, Details);
}

// Edges included: the window's right and bottom edge are one pixel outside of what it paints.
std::vector<POINT> Frame(RECT area)
{
    std::vector<POINT> points;
    for (LONG x = area.left; x <= area.right; ++x)
    {
        points.push_back({x, area.top});
        points.push_back({x, area.bottom});
    }
    for (LONG y = area.top; y <= area.bottom; ++y)
    {
        points.push_back({area.left, y});
        points.push_back({area.right, y});
    }
    return points;
}

// After the second tap each further one on the place shows the button again.
std::size_t CountTapsThatShow(HWND dialog, const std::vector<POINT>& points)
{
    std::size_t count = 0;
    TapDetails(dialog);
    TapDetails(dialog);
    for (const POINT point : points)
    {
        ::ShowWindow(DetailsOf(dialog), SW_HIDE);
        Tap(dialog, point);
        if (IsShown(dialog, Details))
            ++count;
    }
    return count;
}
}   // namespace

TEST(ReportDetailsButton, WithoutTaps_TheButtonIsHidden)
{
    bool shown = true;
    Report(0, {[&](HWND dialog) { shown = IsShown(dialog, Details); }});
    EXPECT_FALSE(shown);
}

TEST(ReportDetailsButton, FirstTap_ShowsNothing)
{
    bool shown = true;
    Report(0, {[&](HWND dialog)
               {
                   TapDetails(dialog);
                   shown = IsShown(dialog, Details);
               }});
    EXPECT_FALSE(shown);
}

TEST(ReportDetailsButton, SecondTap_ShowsTheButton)
{
    bool shown = false;
    Report(0, {[&](HWND dialog)
               {
                   TapDetails(dialog);
                   TapDetails(dialog);
                   shown = IsShown(dialog, Details);
               }});
    EXPECT_TRUE(shown);
}

TEST(ReportDetailsButton, SecondTapThatComesQuickly_ShowsTheButton)
{
    bool shown = false;
    Report(0, {[&](HWND dialog)
               {
                   const RECT area = Place(dialog, DetailsOf(dialog));
                   TapDetails(dialog);
                   ::SendMessageW(dialog, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(area.left, area.top));
                   shown = IsShown(dialog, Details);
               }});
    EXPECT_TRUE(shown);
}

TEST(ReportDetailsButton, EveryLaterTap_ShowsTheButtonAgain)
{
    bool shown = false;
    Report(0, {[&](HWND dialog)
               {
                   TapDetails(dialog);
                   TapDetails(dialog);
                   ::ShowWindow(DetailsOf(dialog), SW_HIDE);
                   TapDetails(dialog);
                   shown = IsShown(dialog, Details);
               }});
    EXPECT_TRUE(shown);
}

TEST(ReportDetailsButton, TapsOnEveryEdgePixel_Count)
{
    std::size_t points = 0;
    std::size_t shown = 0;
    Report(0, {[&](HWND dialog)
               {
                   const std::vector<POINT> frame = Frame(Place(dialog, DetailsOf(dialog)));
                   points = frame.size();
                   shown = CountTapsThatShow(dialog, frame);
               }});
    EXPECT_LT(50u, points);
    EXPECT_EQ(points, shown);
}

TEST(ReportDetailsButton, TapsOnePixelOutside_DoNotCount)
{
    std::size_t shown = 1;
    Report(0, {[&](HWND dialog)
               {
                   RECT area = Place(dialog, DetailsOf(dialog));
                   ::InflateRect(&area, 1, 1);
                   shown = CountTapsThatShow(dialog, Frame(area));
               }});
    EXPECT_EQ(0u, shown);
}

TEST(ReportDetailsButton, TapOutsideBefore_DoesNotCount)
{
    bool shown = true;
    Report(0, {[&](HWND dialog)
               {
                   Tap(dialog, {200, 200});
                   TapDetails(dialog);
                   shown = IsShown(dialog, Details);
               }});
    EXPECT_FALSE(shown);
}

TEST(ReportDetailsButton, TapOutsideBetween_DoesNotReset)
{
    bool shown = false;
    Report(0, {[&](HWND dialog)
               {
                   TapDetails(dialog);
                   Tap(dialog, {200, 200});
                   TapDetails(dialog);
                   shown = IsShown(dialog, Details);
               }});
    EXPECT_TRUE(shown);
}

TEST(ReportDetailsButton, TapLeftAndAboveOfTheDialog_HasNegativeCoordinates)
{
    bool shown = false;
    Report(0, {[&](HWND dialog)
               {
                   ::SetWindowPos(DetailsOf(dialog), nullptr, -40, -30, 30, 20, SWP_NOZORDER);
                   Tap(dialog, {-20, -20});
                   Tap(dialog, {-20, -20});
                   shown = (::GetWindowLongW(DetailsOf(dialog), GWL_STYLE) & WS_VISIBLE) != 0;
               }});
    EXPECT_TRUE(shown);
}

TEST(ReportDetailsButton, EveryTap_IsHandled)
{
    INT_PTR handled = FALSE;
    Report(0, {[&](HWND dialog) { handled = CDialog::DialogProc(dialog, WM_LBUTTONDOWN, 0, MAKELPARAM(200, 200)); }});
    EXPECT_EQ(TRUE, handled);
}

TEST(ReportDetailsButton, TapOnThePlace_IsHandled)
{
    INT_PTR handled = FALSE;
    Report(0, {[&](HWND dialog)
               {
                   const RECT area = Place(dialog, DetailsOf(dialog));
                   handled = CDialog::DialogProc(dialog, WM_LBUTTONDOWN, 0, MAKELPARAM(area.left, area.top));
               }});
    EXPECT_EQ(TRUE, handled);
}

TEST(ReportDetailsButton, CommandOfTheButton_IsHandled)
{
    INT_PTR handled = FALSE;
    Report(0,
           {[&](HWND dialog) { handled = CDialog::DialogProc(dialog, WM_COMMAND, Details, 0); }, Pressing(IDCANCEL)});
    EXPECT_EQ(TRUE, handled);
}

TEST(ReportDetailsButton, TapOfAnotherWindow_IsNotHandled)
{
    bool handled = true;
    Report(0, {[&](HWND dialog)
               {
                   auto& object = dynamic_cast<CDialog&>(*CWnd::FindInstance(dialog));
                   handled = object.OnDialogProc(DetailsOf(dialog), WM_LBUTTONDOWN, 0, 0);
               }});
    EXPECT_FALSE(handled);
}

TEST(ReportDetailsButton, OtherCommands_AreNotHandled)
{
    INT_PTR handled = TRUE;
    Report(0, {[&](HWND dialog) { handled = CDialog::DialogProc(dialog, WM_COMMAND, 1004, 0); }});
    EXPECT_EQ(FALSE, handled);
}
