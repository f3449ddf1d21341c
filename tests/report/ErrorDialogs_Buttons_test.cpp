// Which buttons a report has, and what ends it.

#include "Driver.h"

#include "support/Print.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace vantor;

namespace
{
struct CButton
{
    const wchar_t* caption;
    int command;
    int x;   // of the template, in dialog units
};

struct CGroup
{
    unsigned int type;
    std::vector<CButton> buttons;   // from left to right
    bool cancels;                   // by key, and by the caption bar's button
};

const CGroup Groups[] = {
    {0, {{L"OK", 1, 53}}, true},
    {1, {{L"OK", 1, 26}, {L"Cancel", 2, 79}}, true},
    {2, {{L"Abort", 3, 1}, {L"Retry", 4, 53}, {L"Ignore", 5, 105}}, false},
    {3, {{L"Yes", 6, 1}, {L"No", 7, 53}, {L"Cancel", 2, 105}}, true},
    {4, {{L"Yes", 6, 26}, {L"No", 7, 79}}, false},
    {5, {{L"Retry", 4, 26}, {L"Cancel", 2, 79}}, true},
    {6, {{L"OK", 1, 53}}, false},
    {7, {{L"OK", 1, 53}}, false},
    {8, {{L"OK", 1, 53}}, false},
    {9, {{L"OK", 1, 53}}, false},
    {10, {{L"OK", 1, 53}}, false},
    {11, {{L"OK", 1, 53}}, false},
    {12, {{L"OK", 1, 53}}, false},
    {13, {{L"OK", 1, 53}}, false},
    {14, {{L"OK", 1, 53}}, false},
    {15, {{L"OK", 1, 53}}, false},
};

// Which of the template's columns the button stands in, on a screen that is wider.
int Column(HWND dialog, HWND button)
{
    RECT client = {};
    ::GetClientRect(dialog, &client);
    const LONG moved = (client.right - TemplatePlace(dialog, {156, 0, 0, 0}).left) / 2;
    for (const int x : {1, 26, 53, 79, 105})
    {
        if (Place(dialog, button).left == TemplatePlace(dialog, {x, 0, 0, 0}).left + moved)
            return x;
    }
    return -1;
}

struct CSeen
{
    ustring caption;
    int command;
    int x;
};

std::vector<CSeen> SeenButtons(HWND dialog)
{
    std::vector<CSeen> seen;
    for (const HWND child : Children(dialog))
    {
        wchar_t name[16] = {};
        ::GetClassNameW(child, name, 16);
        if (::_wcsicmp(name, L"BUTTON") == 0 && ::IsWindowVisible(child))
            seen.push_back({Text(child), ::GetDlgCtrlID(child), Column(dialog, child)});
    }
    std::sort(seen.begin(), seen.end(), [](const CSeen& one, const CSeen& other) { return one.x < other.x; });
    return seen;
}

// With each of the icon groups, which have no say in this.
template <class Check>
void ForEachIcon(unsigned int buttonGroup, Check check)
{
    for (const unsigned int icon : {0x00u, 0x10u, 0x20u, 0x30u, 0x40u})
    {
        SCOPED_TRACE(::testing::Message() << "type 0x" << std::hex << (icon | buttonGroup));
        check(icon | buttonGroup);
    }
}

class ReportButtons : public ::testing::TestWithParam<CGroup>
{
};

INSTANTIATE_TEST_SUITE_P(Group, ReportButtons, ::testing::ValuesIn(Groups),
                         [](const auto& info) { return std::to_string(info.param.type); });

void PrintTo(const CGroup& group, std::ostream* out)
{
    *out << "group " << group.type;
}
}   // namespace

TEST_P(ReportButtons, Shown_AreThoseOfTheGroup)
{
    const std::vector<CButton>& expected = GetParam().buttons;
    ForEachIcon(GetParam().type,
                [&](unsigned int type)
                {
                    std::vector<CSeen> seen;
                    Report(type, {[&](HWND dialog) { seen = SeenButtons(dialog); }});
                    ASSERT_EQ(expected.size(), seen.size());
                    for (std::size_t i = 0; i < seen.size(); ++i)
                    {
                        EXPECT_EQ(ustring(expected[i].caption), seen[i].caption);
                        EXPECT_EQ(expected[i].command, seen[i].command);
                        EXPECT_EQ(expected[i].x, seen[i].x);
                    }
                });
}

TEST_P(ReportButtons, Pressed_ReturnsItsCommand)
{
    ForEachIcon(GetParam().type,
                [&](unsigned int type)
                {
                    for (const CButton& button : GetParam().buttons)
                        EXPECT_EQ(button.command, Report(type, {Pressing(button.command)}));
                });
}

// A box without a Cancel button cannot be cancelled by key, except the plain OK box.
TEST_P(ReportButtons, Escape_CancelsWhereThereIsCancelOrNothingButOK)
{
    ForEachIcon(GetParam().type, [&](unsigned int type)
                { EXPECT_EQ(GetParam().cancels ? IDCANCEL : StillOpen, Report(type, {PressEscape})); });
}

TEST_P(ReportButtons, TheCaptionBarsClose_CancelsAsEscapeDoes)
{
    ForEachIcon(GetParam().type, [&](unsigned int type)
                { EXPECT_EQ(GetParam().cancels ? IDCANCEL : StillOpen, Report(type, {PressCaptionClose})); });
}

TEST_P(ReportButtons, WmClose_CancelsEveryBox)
{
    ForEachIcon(GetParam().type, [&](unsigned int type) { EXPECT_EQ(IDCANCEL, Report(type, {SendClose})); });
}

TEST_P(ReportButtons, Return_PressesTheFirstButton)
{
    ForEachIcon(GetParam().type,
                [&](unsigned int type) { EXPECT_EQ(GetParam().buttons[0].command, Report(type, {PressReturn})); });
}

TEST(ReportError, ExclamationYesNo_YesReturns6)
{
    EXPECT_EQ(6, Report(0x34, {Pressing(6)}));
}

TEST(ReportError, ExclamationYesNo_NoReturns7)
{
    EXPECT_EQ(7, Report(0x34, {Pressing(7)}));
}

TEST(ReportError, ExclamationYesNo_IgnoresTheCancelKey)
{
    EXPECT_EQ(StillOpen, Report(0x34, {PressEscape}));
}

TEST(ReportError, ButtonGroupOutOfRange_ShowsTheSingleOK)
{
    std::vector<CSeen> seen;
    Report(7, {[&](HWND dialog) { seen = SeenButtons(dialog); }});
    ASSERT_EQ(1u, seen.size());
    EXPECT_EQ(ustring(L"OK"), seen[0].caption);
}

TEST(ReportError, PlainOK_TheCancelKeyEndsWith2NotWith1)
{
    EXPECT_EQ(2, Report(0, {PressEscape}));
}
