// The dialog templates of vantor.dll. They are taken apart field by field, so that the device's narrower reader is
// satisfied, not only the desktop's.

#include "ResourceReader.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <map>
#include <ostream>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

using namespace resources;

namespace
{

// A name in a template: a text, or an ordinal behind the mark 0xFFFF, here as "#107".
std::wstring TakeName(Reader& reader)
{
    Reader ahead = reader;
    if (ahead.Take<std::uint16_t>() != 0xFFFF)
        return reader.TakeText();
    const auto ordinal = ahead.Take<std::uint16_t>();
    reader = ahead;
    return L"#" + std::to_wstring(ordinal);
}

std::wstring KindOf(const std::wstring& windowClass)
{
    static const std::map<std::wstring, std::wstring> ordinals = {
        {L"#128", L"BUTTON"}, {L"#129", L"EDIT"}, {L"#130", L"STATIC"}};
    const auto found = ordinals.find(windowClass);
    return found != ordinals.end() ? found->second : windowClass;
}

struct Place
{
    int x, y, width, height;

    bool operator==(const Place& other) const
    {
        return x == other.x && y == other.y && width == other.width && height == other.height;
    }
};

std::ostream& operator<<(std::ostream& out, const Place& place)
{
    return out << place.x << ',' << place.y << ' ' << place.width << 'x' << place.height;
}

Place TakePlace(Reader& reader)
{
    Place place{};
    place.x = reader.Take<std::int16_t>();
    place.y = reader.Take<std::int16_t>();
    place.width = reader.Take<std::int16_t>();
    place.height = reader.Take<std::int16_t>();
    return place;
}

struct Control
{
    DWORD style = 0;
    Place place{};
    unsigned id = 0;
    std::wstring kind;
    std::wstring text;
};

struct Template
{
    DWORD style = 0;
    Place place{};
    std::wstring menu;
    std::wstring windowClass;
    std::wstring title;
    int fontSize = 0;
    std::wstring fontName;
    std::vector<Control> controls;

    const Control& operator[](unsigned id) const
    {
        for (const Control& control : controls)
            if (control.id == id)
                return control;
        throw std::runtime_error("there is no control " + std::to_string(id));
    }
};

bool IsExtended(unsigned id)
{
    Reader reader = Open(TypeDialog, id);
    return reader.Take<DWORD>() == 0xFFFF0001;
}

Template LoadTemplate(unsigned id)
{
    if (IsExtended(id))
        throw std::runtime_error("the template is an extended one");
    Reader reader = Open(TypeDialog, id);
    Template result;
    result.style = reader.Take<DWORD>();
    reader.Take<DWORD>();
    const unsigned count = reader.Take<std::uint16_t>();
    result.place = TakePlace(reader);
    result.menu = TakeName(reader);
    result.windowClass = TakeName(reader);
    result.title = reader.TakeText();
    if (result.style & DS_SETFONT)
    {
        result.fontSize = reader.Take<std::uint16_t>();
        result.fontName = reader.TakeText();
    }
    for (unsigned i = 0; i < count; ++i)
    {
        reader.Align();
        Control control;
        control.style = reader.Take<DWORD>();
        reader.Take<DWORD>();
        control.place = TakePlace(reader);
        control.id = reader.Take<std::uint16_t>();
        control.kind = KindOf(TakeName(reader));
        control.text = TakeName(reader);
        reader.Skip(reader.Take<std::uint16_t>());
        result.controls.push_back(control);
    }
    return result;
}

std::vector<unsigned> IdsOf(const Template& dialog)
{
    std::vector<unsigned> ids;
    for (const Control& control : dialog.controls)
        ids.push_back(control.id);
    return ids;
}

}  // namespace

// What all three share

class DialogTemplate : public ::testing::TestWithParam<unsigned>
{
};

TEST_P(DialogTemplate, IsAPlainOne_AsTheDeviceReadsNoOther)
{
    EXPECT_FALSE(IsExtended(GetParam()));
}

TEST_P(DialogTemplate, IsInTheNeutralLanguageOnly)
{
    EXPECT_EQ(std::set<WORD>{0}, LanguagesOf(TypeDialog, GetParam()));
}

TEST_P(DialogTemplate, IsWrittenInTahoma8)
{
    const Template dialog = LoadTemplate(GetParam());
    EXPECT_EQ(L"Tahoma", dialog.fontName);
    EXPECT_EQ(8, dialog.fontSize);
}

TEST_P(DialogTemplate, IsAPopup)
{
    EXPECT_EQ(WS_POPUP, LoadTemplate(GetParam()).style & (WS_POPUP | WS_CHILD));
}

TEST_P(DialogTemplate, HasNoMenu)
{
    EXPECT_EQ(L"", LoadTemplate(GetParam()).menu);
}

TEST_P(DialogTemplate, HasTheSystemsDialogClass)
{
    EXPECT_EQ(L"", LoadTemplate(GetParam()).windowClass);
}

INSTANTIATE_TEST_SUITE_P(Dialogs, DialogTemplate, ::testing::Values(107u, 108u, 109u),
                         [](const auto& info) { return std::to_string(info.param); });

// Dialog 107, the error report

TEST(ErrorReportTemplate, Is156By113Units)
{
    EXPECT_EQ((Place{0, 0, 156, 113}), LoadTemplate(107).place);
}

TEST(ErrorReportTemplate, HasNoTitleBar)
{
    EXPECT_EQ(0u, LoadTemplate(107).style & WS_CAPTION);
}

TEST(ErrorReportTemplate, HasNoTitle)
{
    EXPECT_EQ(L"", LoadTemplate(107).title);
}

TEST(ErrorReportTemplate, HasItsEightControlsInTabOrder)
{
    EXPECT_EQ((std::vector<unsigned>{1001, 1002, 1003, 1007, 1008, 1006, 1004, 1005}), IdsOf(LoadTemplate(107)));
}

TEST(ErrorReportTemplate, FirstButtonIsTheDefaultPushButton)
{
    const Template dialog = LoadTemplate(107);
    EXPECT_EQ(L"BUTTON", dialog[1001].kind);
    EXPECT_EQ(static_cast<DWORD>(BS_DEFPUSHBUTTON), dialog[1001].style & BS_TYPEMASK);
}

TEST(ErrorReportTemplate, OtherButtonsArePlainPushButtons)
{
    const Template dialog = LoadTemplate(107);
    for (const unsigned id : {1002u, 1003u, 1007u, 1008u, 1006u})
    {
        EXPECT_EQ(L"BUTTON", dialog[id].kind) << id;
        EXPECT_EQ(static_cast<DWORD>(BS_PUSHBUTTON), dialog[id].style & BS_TYPEMASK) << id;
    }
}

TEST(ErrorReportTemplate, ThreeButtonsStandInARow)
{
    const Template dialog = LoadTemplate(107);
    EXPECT_EQ((Place{1, 98, 50, 14}), dialog[1001].place);
    EXPECT_EQ((Place{53, 98, 50, 14}), dialog[1002].place);
    EXPECT_EQ((Place{105, 98, 50, 14}), dialog[1003].place);
}

TEST(ErrorReportTemplate, TwoButtonsStandInACentredRow)
{
    const Template dialog = LoadTemplate(107);
    EXPECT_EQ((Place{26, 98, 50, 14}), dialog[1007].place);
    EXPECT_EQ((Place{79, 98, 50, 14}), dialog[1008].place);
}

TEST(ErrorReportTemplate, CommandButtonsHaveNoCaptionUntilTheReportIsShown)
{
    const Template dialog = LoadTemplate(107);
    for (const unsigned id : {1001u, 1002u, 1003u, 1007u, 1008u})
        EXPECT_EQ(L"", dialog[id].text) << id;
}

TEST(ErrorReportTemplate, ButtonsAreReachedByTheTabKey)
{
    const Template dialog = LoadTemplate(107);
    for (const unsigned id : {1001u, 1002u, 1003u, 1007u, 1008u, 1006u})
        EXPECT_NE(0u, dialog[id].style & WS_TABSTOP) << id;
}

TEST(ErrorReportTemplate, DetailsButtonStandsBelowTheIcon)
{
    EXPECT_EQ((Place{4, 29, 20, 14}), LoadTemplate(107)[1006].place);
}

TEST(ErrorReportTemplate, DetailsButtonReadsInfo)
{
    EXPECT_EQ(L"Info", LoadTemplate(107)[1006].text);
}

TEST(ErrorReportTemplate, DetailsButtonIsHidden)
{
    EXPECT_EQ(0u, LoadTemplate(107)[1006].style & WS_VISIBLE);
}

TEST(ErrorReportTemplate, AllOtherControlsAreVisible)
{
    const Template dialog = LoadTemplate(107);
    for (const unsigned id : {1001u, 1002u, 1003u, 1007u, 1008u, 1004u, 1005u})
        EXPECT_NE(0u, dialog[id].style & WS_VISIBLE) << id;
}

TEST(ErrorReportTemplate, IconShowsTheInformationIcon)
{
    const Template dialog = LoadTemplate(107);
    EXPECT_EQ(L"STATIC", dialog[1004].kind);
    EXPECT_EQ(static_cast<DWORD>(SS_ICON), dialog[1004].style & SS_TYPEMASK);
    EXPECT_EQ(L"#107", dialog[1004].text);
}

TEST(ErrorReportTemplate, IconStandsInTheCorner)
{
    EXPECT_EQ((Place{3, 4, 20, 20}), LoadTemplate(107)[1004].place);
}

TEST(ErrorReportTemplate, MessageIsAStaticText)
{
    const Template dialog = LoadTemplate(107);
    EXPECT_EQ(L"STATIC", dialog[1005].kind);
    EXPECT_EQ(static_cast<DWORD>(SS_LEFT), dialog[1005].style & SS_TYPEMASK);
}

TEST(ErrorReportTemplate, MessageReadsStatic)
{
    EXPECT_EQ(L"Static", LoadTemplate(107)[1005].text);
}

TEST(ErrorReportTemplate, MessageFillsTheRest)
{
    EXPECT_EQ((Place{27, 3, 127, 89}), LoadTemplate(107)[1005].place);
}

// Dialog 108, the error details

namespace
{

struct DetailRow
{
    unsigned label;
    const wchar_t* caption;
    unsigned field;
    int y;
};

const DetailRow DetailRows[] = {{1020, L"Source:", 1007, 3},  {1021, L"Function:", 1008, 16},
                                {1022, L"File:", 1009, 29},   {1023, L"Line:", 1010, 42},
                                {1025, L"File 2:", 1011, 55}, {1026, L"Line 2:", 1012, 68},
                                {1024, L"Message:", 1005, 81}};

const unsigned SingleLineFields[] = {1007, 1008, 1009, 1010, 1011, 1012};

}  // namespace

TEST(ErrorInfoTemplate, Is156By130Units)
{
    EXPECT_EQ((Place{0, 0, 156, 130}), LoadTemplate(108).place);
}

TEST(ErrorInfoTemplate, IsTitledInfo)
{
    EXPECT_EQ(L"Info", LoadTemplate(108).title);
}

TEST(ErrorInfoTemplate, HasItsFifteenControlsFromTopToBottom)
{
    std::vector<unsigned> expected;
    for (const DetailRow& row : DetailRows)
    {
        expected.push_back(row.label);
        expected.push_back(row.field);
    }
    expected.push_back(2);
    EXPECT_EQ(expected, IdsOf(LoadTemplate(108)));
}

TEST(ErrorInfoTemplate, AllControlsAreVisible)
{
    for (const Control& control : LoadTemplate(108).controls)
        EXPECT_NE(0u, control.style & WS_VISIBLE) << control.id;
}

TEST(ErrorInfoTemplate, LabelsAreLeftAlignedStaticTexts)
{
    const Template dialog = LoadTemplate(108);
    for (const DetailRow& row : DetailRows)
    {
        EXPECT_EQ(L"STATIC", dialog[row.label].kind) << row.label;
        EXPECT_EQ(static_cast<DWORD>(SS_LEFT), dialog[row.label].style & SS_TYPEMASK) << row.label;
    }
}

TEST(ErrorInfoTemplate, LabelsNameTheirFields)
{
    const Template dialog = LoadTemplate(108);
    for (const DetailRow& row : DetailRows)
        EXPECT_EQ(row.caption, dialog[row.label].text) << row.label;
}

TEST(ErrorInfoTemplate, LabelsStandInTheLeftColumn)
{
    const Template dialog = LoadTemplate(108);
    for (const DetailRow& row : DetailRows)
    {
        EXPECT_EQ(3, dialog[row.label].place.x) << row.label;
        EXPECT_EQ(row.y, dialog[row.label].place.y) << row.label;
        EXPECT_EQ(38, dialog[row.label].place.width) << row.label;
    }
}

TEST(ErrorInfoTemplate, LabelsDoNotReachIntoTheNextRow)
{
    const Template dialog = LoadTemplate(108);
    for (std::size_t i = 0; i + 1 < std::size(DetailRows); ++i)
    {
        const Place place = dialog[DetailRows[i].label].place;
        EXPECT_LE(place.y + place.height, DetailRows[i + 1].y) << DetailRows[i].label;
    }
}

TEST(ErrorInfoTemplate, SingleLineFieldsStandBesideTheirLabels)
{
    const Template dialog = LoadTemplate(108);
    for (const DetailRow& row : DetailRows)
    {
        if (row.field != 1005)
        {
            EXPECT_EQ((Place{44, row.y, 111, 12}), dialog[row.field].place) << row.field;
        }
    }
}

TEST(ErrorInfoTemplate, MessageFieldStandsBelowTheOthers)
{
    EXPECT_EQ((Place{44, 81, 111, 33}), LoadTemplate(108)[1005].place);
}

TEST(ErrorInfoTemplate, FieldsAreEditFields)
{
    const Template dialog = LoadTemplate(108);
    for (const DetailRow& row : DetailRows)
        EXPECT_EQ(L"EDIT", dialog[row.field].kind) << row.field;
}

TEST(ErrorInfoTemplate, FieldsAreEmptyUntilTheDetailsAreShown)
{
    const Template dialog = LoadTemplate(108);
    for (const DetailRow& row : DetailRows)
        EXPECT_EQ(L"", dialog[row.field].text) << row.field;
}

TEST(ErrorInfoTemplate, FieldsCannotBeWrittenInto)
{
    const Template dialog = LoadTemplate(108);
    for (const DetailRow& row : DetailRows)
        EXPECT_NE(0u, dialog[row.field].style & ES_READONLY) << row.field;
}

TEST(ErrorInfoTemplate, FieldsAreReachedByTheTabKey)
{
    const Template dialog = LoadTemplate(108);
    for (const DetailRow& row : DetailRows)
        EXPECT_NE(0u, dialog[row.field].style & WS_TABSTOP) << row.field;
}

TEST(ErrorInfoTemplate, SingleLineFieldsHoldTextsThatAreWiderThanTheField)
{
    const Template dialog = LoadTemplate(108);
    for (const unsigned id : SingleLineFields)
        EXPECT_EQ(static_cast<DWORD>(ES_AUTOHSCROLL), dialog[id].style & (ES_AUTOHSCROLL | ES_MULTILINE)) << id;
}

TEST(ErrorInfoTemplate, MessageFieldHasSeveralLines)
{
    EXPECT_NE(0u, LoadTemplate(108)[1005].style & ES_MULTILINE);
}

TEST(ErrorInfoTemplate, MessageFieldBreaksLongLines)
{
    EXPECT_EQ(0u, LoadTemplate(108)[1005].style & (ES_AUTOHSCROLL | WS_HSCROLL));
}

TEST(ErrorInfoTemplate, MessageFieldHasAVerticalScrollBar)
{
    EXPECT_NE(0u, LoadTemplate(108)[1005].style & WS_VSCROLL);
}

TEST(ErrorInfoTemplate, CloseIsAPushButton)
{
    const Template dialog = LoadTemplate(108);
    EXPECT_EQ(L"BUTTON", dialog[2].kind);
    EXPECT_EQ(static_cast<DWORD>(BS_PUSHBUTTON), dialog[2].style & BS_TYPEMASK);
}

TEST(ErrorInfoTemplate, CloseReadsClose)
{
    EXPECT_EQ(L"Close", LoadTemplate(108)[2].text);
}

TEST(ErrorInfoTemplate, CloseStandsBelowTheMessage)
{
    EXPECT_EQ((Place{53, 115, 50, 14}), LoadTemplate(108)[2].place);
}

// Dialog 109, the tip

TEST(TipTemplate, Is156By57Units)
{
    EXPECT_EQ((Place{0, 0, 156, 57}), LoadTemplate(109).place);
}

TEST(TipTemplate, HasAModalFrame)
{
    EXPECT_NE(0u, LoadTemplate(109).style & DS_MODALFRAME);
}

TEST(TipTemplate, HasNoTitleBar)
{
    EXPECT_EQ(0u, LoadTemplate(109).style & WS_CAPTION);
}

TEST(TipTemplate, HasNoTitle)
{
    EXPECT_EQ(L"", LoadTemplate(109).title);
}

TEST(TipTemplate, IsHiddenUntilItsOwnerShowsIt)
{
    EXPECT_EQ(0u, LoadTemplate(109).style & WS_VISIBLE);
}

TEST(TipTemplate, HasIconTextAndFrame)
{
    EXPECT_EQ((std::vector<unsigned>{65535, 1012, 65535}), IdsOf(LoadTemplate(109)));
}

TEST(TipTemplate, IconShowsTheInformationIcon)
{
    const Control icon = LoadTemplate(109).controls.at(0);
    EXPECT_EQ(L"STATIC", icon.kind);
    EXPECT_EQ(static_cast<DWORD>(SS_ICON), icon.style & SS_TYPEMASK);
    EXPECT_EQ(L"#107", icon.text);
}

TEST(TipTemplate, IconStandsAtTheLeft)
{
    EXPECT_EQ((Place{8, 18, 21, 20}), LoadTemplate(109).controls.at(0).place);
}

TEST(TipTemplate, TextIsAStaticText)
{
    const Template dialog = LoadTemplate(109);
    EXPECT_EQ(L"STATIC", dialog[1012].kind);
    EXPECT_EQ(static_cast<DWORD>(SS_LEFT), dialog[1012].style & SS_TYPEMASK);
}

TEST(TipTemplate, TextIsEmpty_AsTheDialogPaintsIt)
{
    EXPECT_EQ(L"", LoadTemplate(109)[1012].text);
}

TEST(TipTemplate, TextStandsBesideTheIcon)
{
    EXPECT_EQ((Place{35, 8, 112, 40}), LoadTemplate(109)[1012].place);
}

TEST(TipTemplate, FrameIsAnEmptyGroupBox)
{
    const Control frame = LoadTemplate(109).controls.at(2);
    EXPECT_EQ(L"BUTTON", frame.kind);
    EXPECT_EQ(static_cast<DWORD>(BS_GROUPBOX), frame.style & BS_TYPEMASK);
    EXPECT_EQ(L"", frame.text);
}

TEST(TipTemplate, FrameSurroundsIconAndText)
{
    EXPECT_EQ((Place{3, 0, 149, 53}), LoadTemplate(109).controls.at(2).place);
}

TEST(TipTemplate, AllControlsAreVisible)
{
    for (const Control& control : LoadTemplate(109).controls)
        EXPECT_NE(0u, control.style & WS_VISIBLE) << control.id;
}
