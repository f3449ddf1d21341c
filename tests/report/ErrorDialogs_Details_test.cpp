// The hidden button, and the details behind it.

#include "Driver.h"

#include "support/Print.h"

#include <vantor/Dialog.h>
#include <vantor/Translator.h>

#include <gtest/gtest.h>

using namespace vantor;

namespace
{
constexpr int Source = 1007;
constexpr int Function = 1008;
constexpr int File = 1009;
constexpr int Line = 1010;
constexpr int File2 = 1011;
constexpr int Line2 = 1012;
constexpr int Message = 1005;

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

// Opens the details of a report of this type, and then the step.
int InDetails(unsigned int type, const CStep& step)
{
    return Report(type, {OpenDetails, step});
}

ustring Field(int id)
{
    ustring text;
    InDetails(0, [&](HWND details) { text = ItemText(details, id); });
    return text;
}

// The result of the report whose details the step has to close.
int AfterDetails(const CStep& close)
{
    return Report(MB_YESNO, {OpenDetails, close, Pressing(IDNO)});
}
}   // namespace

TEST(ReportDetails, WithoutTaps_TheButtonIsHidden)
{
    bool shown = true;
    Report(0, {[&](HWND dialog) { shown = IsShown(dialog, Details); }});
    EXPECT_FALSE(shown);
}

TEST(ReportDetails, FirstTap_ShowsNothing)
{
    bool shown = true;
    Report(0, {[&](HWND dialog)
               {
                   TapDetails(dialog);
                   shown = IsShown(dialog, Details);
               }});
    EXPECT_FALSE(shown);
}

TEST(ReportDetails, SecondTap_ShowsTheButton)
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

TEST(ReportDetails, SecondTapThatComesQuickly_ShowsTheButton)
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

TEST(ReportDetails, EveryLaterTap_ShowsTheButtonAgain)
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

TEST(ReportDetails, TapsOnEveryEdgePixel_Count)
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

TEST(ReportDetails, TapsOnePixelOutside_DoNotCount)
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

TEST(ReportDetails, TapOutsideBefore_DoesNotCount)
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

TEST(ReportDetails, TapOutsideBetween_DoesNotReset)
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

TEST(ReportDetails, TapLeftAndAboveOfTheDialog_HasNegativeCoordinates)
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

TEST(ReportDetails, EveryTap_IsHandled)
{
    INT_PTR handled = FALSE;
    Report(0, {[&](HWND dialog) { handled = CDialog::DialogProc(dialog, WM_LBUTTONDOWN, 0, MAKELPARAM(200, 200)); }});
    EXPECT_EQ(TRUE, handled);
}

TEST(ReportDetails, TapOfAnotherWindow_IsNotHandled)
{
    bool handled = true;
    Report(0, {[&](HWND dialog)
               {
                   auto& object = dynamic_cast<CDialog&>(*CWnd::FindInstance(dialog));
                   handled = object.OnDialogProc(DetailsOf(dialog), WM_LBUTTONDOWN, 0, 0);
               }});
    EXPECT_FALSE(handled);
}

TEST(ReportDetails, OtherCommands_AreNotHandled)
{
    INT_PTR handled = TRUE;
    Report(0, {[&](HWND dialog) { handled = CDialog::DialogProc(dialog, WM_COMMAND, 1004, 0); }});
    EXPECT_EQ(FALSE, handled);
}

TEST(ReportDetails, Title_IsTheApplicationsName)
{
    CStdException::SetAppName(L"Level meter");
    ustring title;
    InDetails(0, [&](HWND details) { title = Text(details); });
    EXPECT_EQ(ustring(L"Level meter"), title);
}

TEST(ReportDetails, SourceField)
{
    EXPECT_EQ(ustring(L"Link"), Field(Source));
}

TEST(ReportDetails, FunctionField)
{
    EXPECT_EQ(ustring(L"vantor::Start"), Field(Function));
}

TEST(ReportDetails, FileField)
{
    EXPECT_EQ(ustring(L".\\Sweep"), Field(File));
}

TEST(ReportDetails, LineField_IsGroupedAsTheLocaleHasIt)
{
    ustring::m_Locale = CLocale(MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT));
    EXPECT_EQ(ustring(L"1.234.567"), Field(Line));
}

TEST(ReportDetails, File2Field_IsTheReportersText)
{
    EXPECT_EQ(ustring(L"trace 7.csv"), Field(File2));
}

TEST(ReportDetails, File2Field_OfANullText_IsEmpty)
{
    ustring text = L"not read";
    Drive({OpenDetails, [&](HWND details) { text = ItemText(details, File2); }},
          [] { return Failure().ReportError(nullptr, 0, nullptr, 0); });
    EXPECT_EQ(ustring(), text);
}

TEST(ReportDetails, Line2Field_IsTheReportersNumberUnsigned)
{
    ustring::m_Locale = CLocale(MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT));
    EXPECT_EQ(ustring(L"4.000.000.000"), Field(Line2));
}

TEST(ReportDetails, MessageField_IsTheTranslatedMessage)
{
    CTranslatorInstance::Ref().m_langFile[L"Access denied"] = L"Zugriff verweigert";
    EXPECT_EQ(ustring(L"Zugriff verweigert"), Field(Message));
}

TEST(ReportDetails, Labels_AreTheTemplates)
{
    EXPECT_EQ(ustring(L"Source:"), Field(1020));
    EXPECT_EQ(ustring(L"Function:"), Field(1021));
    EXPECT_EQ(ustring(L"File:"), Field(1022));
    EXPECT_EQ(ustring(L"Line:"), Field(1023));
    EXPECT_EQ(ustring(L"Message:"), Field(1024));
    EXPECT_EQ(ustring(L"File 2:"), Field(1025));
    EXPECT_EQ(ustring(L"Line 2:"), Field(1026));
}

TEST(ReportDetails, Labels_AreTranslated)
{
    CTranslatorInstance::Ref().m_langFile[L"Source:"] = L"Quelle:";
    EXPECT_EQ(ustring(L"Quelle:"), Field(1020));
}

TEST(ReportDetails, Fields_CannotBeEdited)
{
    for (const int id : {Source, Function, File, Line, File2, Line2, Message})
    {
        long style = 0;
        InDetails(0, [&](HWND details) { style = ::GetWindowLongW(::GetDlgItem(details, id), GWL_STYLE); });
        EXPECT_NE(0, style & ES_READONLY) << id;
    }
}

TEST(ReportDetails, Window_CoversTheScreenAboveTheReport)
{
    RECT area = {};
    long style = ~0L;
    long styleEx = 0;
    InDetails(0,
              [&](HWND details)
              {
                  ::GetWindowRect(details, &area);
                  style = ::GetWindowLongW(details, GWL_STYLE);
                  styleEx = ::GetWindowLongW(details, GWL_EXSTYLE);
              });
    EXPECT_EQ(0, area.left);
    EXPECT_EQ(0, area.top);
    EXPECT_EQ(::GetSystemMetrics(SM_CXSCREEN), area.right);
    EXPECT_EQ(::GetSystemMetrics(SM_CYSCREEN), area.bottom);
    EXPECT_EQ(0, style & (WS_CAPTION | WS_SIZEBOX));
    EXPECT_NE(0, styleEx & WS_EX_TOPMOST);
}

TEST(ReportDetails, Window_BelongsToTheReport)
{
    HWND report = nullptr;
    HWND owner = nullptr;
    Report(0, {[&](HWND dialog)
               {
                   report = dialog;
                   OpenDetails(dialog);
               },
               [&](HWND details) { owner = ::GetWindow(details, GW_OWNER); }});
    EXPECT_NE(nullptr, report);
    EXPECT_EQ(report, owner);
}

TEST(ReportDetails, Close_GoesBackToTheReport)
{
    EXPECT_EQ(IDNO, AfterDetails(Pressing(IDCANCEL)));
}

// Also where the report itself cannot be cancelled.
TEST(ReportDetails, Escape_GoesBackToTheReport)
{
    EXPECT_EQ(IDNO, AfterDetails(PressEscape));
}

TEST(ReportDetails, TheCaptionBarsClose_GoesBackToTheReport)
{
    EXPECT_EQ(IDNO, AfterDetails(PressCaptionClose));
}

TEST(ReportDetails, WmClose_GoesBackToTheReport)
{
    EXPECT_EQ(IDNO, AfterDetails(SendClose));
}

TEST(ReportDetails, CloseButton_IsCalledClose)
{
    EXPECT_EQ(ustring(L"Close"), Field(IDCANCEL));
}

TEST(ReportDetails, Reopened_ShowTheSame)
{
    ustring first;
    ustring second;
    Report(0, {OpenDetails,
               [&](HWND details)
               {
                   first = ItemText(details, Function);
                   Press(details, IDCANCEL);
               },
               Pressing(Details),
               [&](HWND details)
               {
                   second = ItemText(details, Function);
                   Press(details, IDCANCEL);
               }});
    EXPECT_EQ(ustring(L"vantor::Start"), first);
    EXPECT_EQ(first, second);
}

TEST(ReportDetails, Closed_AreNoLongerRegistered)
{
    HWND window = nullptr;
    bool registered = false;
    AfterDetails(
        [&](HWND details)
        {
            window = details;
            registered = CWnd::FindInstance(details) != nullptr;
            Press(details, IDCANCEL);
        });
    EXPECT_TRUE(registered);
    EXPECT_EQ(nullptr, CWnd::FindInstance(window));
}
