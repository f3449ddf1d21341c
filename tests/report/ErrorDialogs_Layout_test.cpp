// Where the controls stand on screens of other sizes.

#include "Driver.h"

#include "support/ImportPatch.h"

#include <vantor/Dialog.h>

#include <gtest/gtest.h>

#include <algorithm>

using namespace vantor;

namespace
{
// How a control follows the growth (dW, dH) of the client area.
enum EFollow
{
    Stays,
    Widens,
    WidensAndHeightens,
    Moves,   // by half of dW, truncated toward zero, and by dH
};

struct CRule
{
    int x, y, cx, cy;   // of the template, in dialog units
    EFollow follow;
};

constexpr int ReportHeight = 113;
const CRule ReportRules[] = {
    {1, 98, 50, 14, Moves},
    {53, 98, 50, 14, Moves},
    {105, 98, 50, 14, Moves},
    {26, 98, 50, 14, Moves},
    {79, 98, 50, 14, Moves},
    {4, 29, 20, 14, Stays},
    {27, 3, 127, 89, WidensAndHeightens},
};
constexpr int InfoHeight = 130;
const CRule InfoRules[] = {
    {3, 3, 38, 8, Stays},      {3, 16, 38, 8, Stays},     {3, 29, 38, 8, Stays},
    {3, 42, 38, 8, Stays},     {3, 55, 38, 8, Stays},     {3, 68, 38, 8, Stays},
    {3, 81, 38, 8, Stays},     {44, 3, 111, 12, Widens},  {44, 16, 111, 12, Widens},
    {44, 29, 111, 12, Widens}, {44, 42, 111, 12, Widens}, {44, 55, 111, 12, Widens},
    {44, 68, 111, 12, Widens}, {53, 115, 50, 14, Moves},  {44, 81, 111, 33, WidensAndHeightens},
};

SIZE TemplateSize(HWND dialog, int height)
{
    const RECT size = TemplatePlace(dialog, {156, height, 0, 0});
    return {size.left, size.top};
}

RECT Expected(HWND dialog, const CRule& rule, SIZE growth)
{
    const RECT units = TemplatePlace(dialog, {rule.x, rule.y, rule.cx, rule.cy});
    LONG x = units.left;
    LONG y = units.top + ::GetSystemMetrics(SM_CYCAPTION);
    LONG cx = units.right;
    LONG cy = units.bottom;
    if (rule.follow == Widens || rule.follow == WidensAndHeightens)
        cx += growth.cx;
    if (rule.follow == WidensAndHeightens)
        cy += growth.cy;
    if (rule.follow == Moves)
    {
        x += growth.cx / 2;
        y += growth.cy;
    }
    return {x, y, x + cx, y + cy};
}

std::vector<RECT> Places(HWND dialog)
{
    std::vector<RECT> places;
    for (const HWND child : Children(dialog))
        places.push_back(Place(dialog, child));
    return places;
}

// The client size is that of the template and the caption bar, and the growth.
void Resize(HWND dialog, int templateHeight, SIZE growth)
{
    const SIZE size = TemplateSize(dialog, templateHeight);
    const int bar = ::GetSystemMetrics(SM_CYCAPTION);
    ::SendMessageW(dialog, WM_SIZE, SIZE_RESTORED, MAKELPARAM(size.cx + growth.cx, size.cy + bar + growth.cy));
}

template <std::size_t Count>
void ExpectPlaces(HWND dialog, const CRule (&rules)[Count], SIZE growth)
{
    const std::vector<RECT> places = Places(dialog);
    for (const CRule& rule : rules)
    {
        const RECT expected = Expected(dialog, rule, growth);
        const bool found = std::any_of(places.begin(), places.end(),
                                       [&](const RECT& place) { return ::EqualRect(&place, &expected) != FALSE; });
        EXPECT_TRUE(found) << "growth " << growth.cx << ',' << growth.cy << ": no control at " << expected.left << ','
                           << expected.top << " to " << expected.right << ',' << expected.bottom;
    }
}

const SIZE Growths[] = {{0, 0},   {1, 1},    {2, 2},     {3, 5},    {-1, -1},   {-2, -2},
                        {-3, -5}, {-37, 41}, {101, -33}, {246, 39}, {1001, 777}};

class Layout : public ::testing::TestWithParam<SIZE>
{
};

INSTANTIATE_TEST_SUITE_P(Growth, Layout, ::testing::ValuesIn(Growths),
                         [](const auto& info) { return std::to_string(info.index); });

// But of the caption bar, which follows any size.
std::vector<RECT> PlacesBelowTheBar(HWND dialog)
{
    std::vector<RECT> places = Places(dialog);
    places.erase(std::remove_if(places.begin(), places.end(), [](const RECT& place) { return place.top == 0; }),
                 places.end());
    return places;
}

std::vector<RECT> g_before;
std::vector<RECT> g_after;
INT_PTR g_handled = FALSE;

BOOL CALLBACK SendSize(HWND window, LPARAM)
{
    if (!::GetDlgItem(window, Details) || !g_before.empty())
        return TRUE;
    g_before = PlacesBelowTheBar(window);
    g_handled = CDialog::DialogProc(window, WM_SIZE, SIZE_RESTORED, MAKELPARAM(500, 400));
    g_after = PlacesBelowTheBar(window);
    return FALSE;
}

// The captions are loaded while the dialog is being initialised.
int WINAPI ResizingLoadString(HINSTANCE module, UINT id, LPWSTR buffer, int size)
{
    if (id == 106)
        ::EnumThreadWindows(::GetCurrentThreadId(), &SendSize, 0);
    return ::LoadStringW(module, id, buffer, size);
}

void ExpectBar(const RECT& bar, LONG width)
{
    EXPECT_EQ(0, bar.left);
    EXPECT_EQ(0, bar.top);
    EXPECT_EQ(width, bar.right);
    EXPECT_EQ(::GetSystemMetrics(SM_CYCAPTION), bar.bottom);
}

bool Same(const std::vector<RECT>& one, const std::vector<RECT>& other)
{
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](const RECT& a, const RECT& b) { return ::EqualRect(&a, &b) != FALSE; });
}
}   // namespace

TEST_P(Layout, Report_FollowsItsSize)
{
    Report(MB_ABORTRETRYIGNORE, {[](HWND dialog)
                                 {
                                     Resize(dialog, ReportHeight, GetParam());
                                     ExpectPlaces(dialog, ReportRules, GetParam());
                                 }});
}

TEST_P(Layout, Report_FollowsItsSizeFromAnotherSizeToo)
{
    Report(MB_OK, {[](HWND dialog)
                   {
                       Resize(dialog, ReportHeight, {333, -7});
                       Resize(dialog, ReportHeight, GetParam());
                       ExpectPlaces(dialog, ReportRules, GetParam());
                   }});
}

TEST_P(Layout, Details_FollowTheirSize)
{
    Report(MB_OK, {OpenDetails, [](HWND details)
                   {
                       Resize(details, InfoHeight, GetParam());
                       ExpectPlaces(details, InfoRules, GetParam());
                   }});
}

TEST_P(Layout, Details_FollowTheirSizeFromAnotherSizeToo)
{
    Report(MB_OK, {OpenDetails, [](HWND details)
                   {
                       Resize(details, InfoHeight, {333, -7});
                       Resize(details, InfoHeight, GetParam());
                       ExpectPlaces(details, InfoRules, GetParam());
                   }});
}

TEST_P(Layout, CaptionBar_KeepsItsHeightAndTakesTheWidth)
{
    RECT bar = {};
    LONG width = 0;
    Report(MB_OK, {[&](HWND dialog)
                   {
                       Resize(dialog, ReportHeight, GetParam());
                       bar = Place(dialog, ::GetDlgItem(dialog, Caption));
                       width = TemplateSize(dialog, ReportHeight).cx + GetParam().cx;
                   }});
    ExpectBar(bar, width);
}

TEST_P(Layout, CaptionBarOfTheDetails_KeepsItsHeightAndTakesTheWidth)
{
    RECT bar = {};
    LONG width = 0;
    Report(MB_OK, {OpenDetails, [&](HWND details)
                   {
                       Resize(details, InfoHeight, GetParam());
                       bar = Place(details, ::GetDlgItem(details, Caption));
                       width = TemplateSize(details, InfoHeight).cx + GetParam().cx;
                   }});
    ExpectBar(bar, width);
}

TEST(ReportLayout, Resize_IsHandled)
{
    INT_PTR handled = FALSE;
    Report(MB_OK,
           {[&](HWND dialog) { handled = CDialog::DialogProc(dialog, WM_SIZE, SIZE_RESTORED, MAKELPARAM(300, 300)); }});
    EXPECT_EQ(TRUE, handled);
}

TEST(ReportLayout, Details_ResizeIsHandled)
{
    INT_PTR handled = FALSE;
    Report(MB_OK, {OpenDetails, [&](HWND details)
                   { handled = CDialog::DialogProc(details, WM_SIZE, SIZE_RESTORED, MAKELPARAM(300, 300)); }});
    EXPECT_EQ(TRUE, handled);
}

TEST(ReportLayout, ResizeOfAnotherWindow_MovesNothing)
{
    bool handled = true;
    bool same = false;
    Report(MB_OK, {[&](HWND dialog)
                   {
                       const std::vector<RECT> before = Places(dialog);
                       auto& object = dynamic_cast<CDialog&>(*CWnd::FindInstance(dialog));
                       handled = object.OnDialogProc(::GetDesktopWindow(), WM_SIZE, 0, MAKELPARAM(300, 300));
                       same = Same(before, Places(dialog));
                   }});
    EXPECT_FALSE(handled);
    EXPECT_TRUE(same);
}

TEST(ReportLayout, OnTheScreen_IsLaidOutForTheScreen)
{
    Report(MB_OK, {[](HWND dialog)
                   {
                       const SIZE size = TemplateSize(dialog, ReportHeight);
                       ExpectPlaces(dialog, ReportRules,
                                    {::GetSystemMetrics(SM_CXSCREEN) - size.cx,
                                     ::GetSystemMetrics(SM_CYSCREEN) - size.cy - ::GetSystemMetrics(SM_CYCAPTION)});
                   }});
}

TEST(ReportLayout, Details_OnTheScreen_AreLaidOutForTheScreen)
{
    Report(MB_OK, {OpenDetails, [](HWND details)
                   {
                       const SIZE size = TemplateSize(details, InfoHeight);
                       ExpectPlaces(details, InfoRules,
                                    {::GetSystemMetrics(SM_CXSCREEN) - size.cx,
                                     ::GetSystemMetrics(SM_CYSCREEN) - size.cy - ::GetSystemMetrics(SM_CYCAPTION)});
                   }});
}

TEST(ReportLayout, IconStaysBelowTheCaptionBar)
{
    RECT icon = {};
    RECT expected = {};
    Report(MB_OK, {[&](HWND dialog)
                   {
                       Resize(dialog, ReportHeight, {200, 100});
                       icon = Place(dialog, ::GetDlgItem(dialog, 1004));
                       expected = TemplatePlace(dialog, {3, 4, 0, 0});
                   }});
    EXPECT_EQ(expected.left, icon.left);
    EXPECT_EQ(expected.top + ::GetSystemMetrics(SM_CYCAPTION), icon.top);
}

TEST(ReportLayout, AWindowThatIsReallyResized_FollowsItsClientArea)
{
    Report(MB_YESNOCANCEL,
           {[](HWND dialog)
            {
                ::SetWindowPos(dialog, nullptr, 0, 0, 481, 641, SWP_NOZORDER);
                RECT client = {};
                ::GetClientRect(dialog, &client);
                const SIZE size = TemplateSize(dialog, ReportHeight);
                ExpectPlaces(dialog, ReportRules,
                             {client.right - size.cx, client.bottom - size.cy - ::GetSystemMetrics(SM_CYCAPTION)});
                EXPECT_EQ(481, client.right);
            }});
}

TEST(ReportLayout, ResizeBeforeTheDialogIsInitialised_MovesNothing)
{
    const support::CImportPatch patch(&::LoadStringW, &ResizingLoadString);
    Report(MB_OK, {});
    EXPECT_EQ(8u, g_before.size());
    EXPECT_TRUE(Same(g_before, g_after));
    EXPECT_EQ(TRUE, g_handled);
}
