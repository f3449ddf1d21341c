// The bar at the top of the report and of its details.

#include "Driver.h"

#include "support/ImportPatch.h"
#include "support/Print.h"

#include <vantor/CaptionCtrl.h>
#include <vantor/Translator.h>

#include <gtest/gtest.h>

using namespace vantor;

namespace
{
HWND BarOf(HWND dialog)
{
    return ::GetDlgItem(dialog, Caption);
}

bool LooksActive(HWND bar)
{
    const CCaptionCtrl* const object = CCaptionCtrl::FindInstance(bar);
    return object && object->IsCaptionEnabled();
}

// The identifiers of the bar's buttons.
std::vector<int> Buttons(HWND dialog)
{
    std::vector<int> ids;
    for (const HWND button : Children(BarOf(dialog)))
        ids.push_back(::GetDlgCtrlID(button));
    return ids;
}

void ExpectAcrossTheTop(const RECT& bar)
{
    EXPECT_EQ(0, bar.left);
    EXPECT_EQ(0, bar.top);
    EXPECT_EQ(::GetSystemMetrics(SM_CXSCREEN), bar.right);
    EXPECT_EQ(::GetSystemMetrics(SM_CYCAPTION), bar.bottom);
}

std::vector<unsigned int> g_icons;   // of the library, that were loaded in the size of the bar's

HANDLE WINAPI RecordingLoadImage(HINSTANCE module, LPCWSTR name, UINT type, int cx, int cy, UINT flags)
{
    if (type == IMAGE_ICON && module == ::GetModuleHandleW(L"vantor.dll") && cx == ::GetSystemMetrics(SM_CXSMICON))
        g_icons.push_back(static_cast<unsigned int>(reinterpret_cast<ULONG_PTR>(name)));
    return ::LoadImageW(module, name, type, cx, cy, flags);
}

// A step that paints the bar and reads which icons it loads.
CStep ReadingIcons(std::vector<unsigned int>& icons)
{
    return [&icons](HWND dialog)
    {
        g_icons.clear();
        ::InvalidateRect(BarOf(dialog), nullptr, FALSE);
        ::UpdateWindow(BarOf(dialog));
        icons = g_icons;
    };
}

struct CIconRow
{
    unsigned int type;
    unsigned int icon;
};

class ReportBarIcon : public ::testing::TestWithParam<CIconRow>
{
protected:
    const std::vector<unsigned int> m_expected = {GetParam().icon};
    std::vector<unsigned int> m_icons;
    const support::CImportPatch m_patch{&::LoadImageW, &RecordingLoadImage};
};

INSTANTIATE_TEST_SUITE_P(Type, ReportBarIcon,
                         ::testing::Values(CIconRow{0x00, 107}, CIconRow{0x10, 105}, CIconRow{0x20, 108},
                                           CIconRow{0x30, 106}, CIconRow{0x40, 107}, CIconRow{0xF0, 107},
                                           CIconRow{0x34, 106}),
                         [](const auto& info) { return std::to_string(info.param.type); });

void PrintTo(const CIconRow& row, std::ostream* out)
{
    *out << "type " << row.type;
}
}   // namespace

TEST_P(ReportBarIcon, OfTheReport_IsThatOfTheIconGroup)
{
    Report(GetParam().type, {ReadingIcons(m_icons)});
    EXPECT_EQ(m_expected, m_icons);
}

TEST_P(ReportBarIcon, OfTheDetails_IsThatOfTheReport)
{
    Report(GetParam().type, {OpenDetails, ReadingIcons(m_icons)});
    EXPECT_EQ(m_expected, m_icons);
}

TEST(ReportBar, RunsAcrossTheTop)
{
    RECT bar = {};
    Report(0, {[&](HWND dialog) { bar = Place(dialog, BarOf(dialog)); }});
    ExpectAcrossTheTop(bar);
}

TEST(ReportBar, OfTheDetails_RunsAcrossTheTop)
{
    RECT bar = {};
    Report(0, {OpenDetails, [&](HWND details) { bar = Place(details, BarOf(details)); }});
    ExpectAcrossTheTop(bar);
}

TEST(ReportBar, HasACloseButtonOnly)
{
    std::vector<int> ids;
    Report(0, {[&](HWND dialog) { ids = Buttons(dialog); }});
    EXPECT_EQ(std::vector<int>{IDCANCEL}, ids);
}

TEST(ReportBar, OfTheDetails_HasACloseButtonOnly)
{
    std::vector<int> ids;
    Report(0, {OpenDetails, [&](HWND details) { ids = Buttons(details); }});
    EXPECT_EQ(std::vector<int>{IDCANCEL}, ids);
}

TEST(ReportBar, SignOfTheCloseButton_IsNotTranslated)
{
    CTranslatorInstance::Ref().m_langFile[L"x"] = L"translated";
    ustring text;
    Report(0, {[&](HWND dialog) { text = ItemText(BarOf(dialog), IDCANCEL); }});
    EXPECT_EQ(ustring(L"x"), text);
}

TEST(ReportBar, InFront_LooksActive)
{
    bool active = false;
    Report(0, {[&](HWND dialog) { active = LooksActive(BarOf(dialog)); }});
    EXPECT_TRUE(active);
}

TEST(ReportBar, BehindTheDetails_LooksInactive)
{
    HWND bar = nullptr;
    bool active = true;
    Report(0, {[&](HWND dialog)
               {
                   bar = BarOf(dialog);
                   OpenDetails(dialog);
               },
               [&](HWND) { active = LooksActive(bar); }});
    ASSERT_NE(nullptr, bar);
    EXPECT_FALSE(active);
}

TEST(ReportBar, AfterTheDetails_LooksActiveAgain)
{
    bool active = false;
    Report(0, {OpenDetails, Pressing(IDCANCEL), [&](HWND dialog) { active = LooksActive(BarOf(dialog)); }});
    EXPECT_TRUE(active);
}

TEST(ReportBar, OfTheDetails_FollowsTheirActivationToo)
{
    bool active = true;
    Report(0, {OpenDetails, [&](HWND details)
               {
                   ::SendMessageW(details, WM_ACTIVATE, WA_INACTIVE, 0);
                   active = LooksActive(BarOf(details));
               }});
    EXPECT_FALSE(active);
}

TEST(ReportBar, ChangedTitle_IsPainted)
{
    bool before = true;
    bool after = false;
    Report(0, {[&](HWND dialog)
               {
                   ::UpdateWindow(BarOf(dialog));
                   before = ::GetUpdateRect(BarOf(dialog), nullptr, FALSE) != FALSE;
                   ::SetWindowTextW(dialog, L"another title");
                   after = ::GetUpdateRect(BarOf(dialog), nullptr, FALSE) != FALSE;
               }});
    EXPECT_FALSE(before);
    EXPECT_TRUE(after);
}
