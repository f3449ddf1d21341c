// The details of a failure.

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

int g_toDestroy;

// Before the details see the message.
LRESULT CALLBACK DestroyAControl(int code, WPARAM wParam, LPARAM lParam)
{
    constexpr int label = 1026;   // which the report has not
    const auto& call = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && call.message == WM_INITDIALOG && ::GetDlgItem(call.hwnd, label))
        ::DestroyWindow(::GetDlgItem(call.hwnd, g_toDestroy));
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

class DetailsWithoutAControl : public ::testing::TestWithParam<int>
{
};

INSTANTIATE_TEST_SUITE_P(Control, DetailsWithoutAControl,
                         ::testing::Values(IDCANCEL, 1005, 1007, 1008, 1009, 1010, 1011, 1012, 1020, 1021, 1022, 1023,
                                           1024, 1025, 1026));

// The result of the report whose details the step has to close.
int AfterDetails(const CStep& close)
{
    return Report(MB_YESNO, {OpenDetails, close, Pressing(IDNO)});
}
}   // namespace

TEST(ReportDetails, Title_IsTheApplicationsName)
{
    CStdException::SetAppName(L"Level meter");
    ustring title;
    InDetails(0, [&](HWND details) { title = Text(details); });
    EXPECT_EQ(ustring(L"Level meter"), title);
}

TEST(ReportDetails, Title_IsNotTranslated)
{
    CStdException::SetAppName(L"Level meter");
    CTranslatorInstance::Ref().m_langFile[L"Level meter"] = L"Pegelmesser";
    ustring title;
    InDetails(0, [&](HWND details) { title = Text(details); });
    EXPECT_EQ(ustring(L"Level meter"), title);
}

TEST(ReportDetails, Fields_AreNotTranslated)
{
    CTranslatorInstance::Ref().m_langFile[L"vantor::Start"] = L"translated";
    EXPECT_EQ(ustring(L"vantor::Start"), Field(Function));
}

TEST(ReportDetails, File2Field_IsTheReportersTextAsItWasThen)
{
    wchar_t text[] = L"trace 7.csv";
    ustring shown;
    Drive({[&](HWND dialog)
           {
               text[6] = L'8';
               OpenDetails(dialog);
           },
           [&](HWND details) { shown = ItemText(details, File2); }},
          [&text] { return Failure().ReportError(nullptr, 0, text, 0); });
    EXPECT_EQ(ustring(L"trace 7.csv"), shown);
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

TEST(ReportDetails, Tap_IsNotHandled)
{
    INT_PTR handled = TRUE;
    InDetails(0,
              [&](HWND details) { handled = CDialog::DialogProc(details, WM_LBUTTONDOWN, 0, MAKELPARAM(200, 200)); });
    EXPECT_EQ(FALSE, handled);
}

TEST_P(DetailsWithoutAControl, WorkWithTheOthers)
{
    g_toDestroy = GetParam();
    const int other = GetParam() == Function ? Source : Function;
    ustring text;
    const std::vector<CStep> steps = {OpenDetails,
                                      [&](HWND details)
                                      {
                                          ::SetWindowPos(details, nullptr, 0, 0, 300, 300, 0);
                                          EXPECT_EQ(nullptr, ::GetDlgItem(details, GetParam()));
                                          text = ItemText(details, other);
                                          PressEscape(details);
                                      },
                                      Pressing(IDNO)};
    const auto action = []
    {
        const HHOOK hook = ::SetWindowsHookExW(WH_CALLWNDPROC, &DestroyAControl, nullptr, ::GetCurrentThreadId());
        const int result = Failure().ReportError(nullptr, MB_YESNO, L"", 0);
        ::UnhookWindowsHookEx(hook);
        return result;
    };
    EXPECT_EQ(IDNO, Drive(steps, action));
    EXPECT_EQ(ustring(other == Source ? L"Link" : L"vantor::Start"), text);
}
