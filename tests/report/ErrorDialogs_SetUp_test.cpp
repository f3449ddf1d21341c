// What a report shows when it opens: texts, icon, caption bar, the whole screen.

#include "Driver.h"

#include "support/ImportPatch.h"
#include "support/Print.h"

#include <vantor/Dialog.h>
#include <vantor/Translator.h>

#include <gtest/gtest.h>

#include <cwchar>
#include <memory>

using namespace vantor;

namespace
{
constexpr int Icon = 1004;
constexpr int Message = 1005;

void Translate(const wchar_t* source, const wchar_t* translation)
{
    CTranslatorInstance::Ref().m_langFile[source] = translation;
}

// The failure of a window call is seen by its missing effect.
ustring MessageOf(const CStdException& e)
{
    ustring text;
    Drive({[&](HWND dialog) { text = ItemText(dialog, Message); }}, [&] { return e.ReportError(nullptr, 0, L"", 0); });
    return text;
}

HINSTANCE Library()
{
    return ::GetModuleHandleW(L"vantor.dll");
}

struct IconBits
{
    int width = 0;
    int height = 0;
    std::vector<DWORD> colours;

    explicit IconBits(HICON icon)
    {
        ICONINFO info = {};
        if (!::GetIconInfo(icon, &info))
            return;
        BITMAP bitmap = {};
        ::GetObjectW(info.hbmColor, sizeof bitmap, &bitmap);
        width = bitmap.bmWidth;
        height = bitmap.bmHeight;
        BITMAPINFO format = {};
        format.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        colours.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
        const HDC hdc = ::CreateCompatibleDC(nullptr);
        ::GetDIBits(hdc, info.hbmColor, 0, static_cast<UINT>(height), colours.data(), &format, DIB_RGB_COLORS);
        ::DeleteDC(hdc);
        ::DeleteObject(info.hbmColor);
        ::DeleteObject(info.hbmMask);
    }
};

// The number of the library's icon that the control shows; 0 if it is none of them.
unsigned int ShownIcon(HWND dialog)
{
    const auto icon = reinterpret_cast<HICON>(::SendMessageW(::GetDlgItem(dialog, Icon), STM_GETICON, 0, 0));
    const IconBits shown(icon);
    for (const unsigned int id : {105u, 106u, 107u, 108u})
    {
        const auto own =
            static_cast<HICON>(::LoadImageW(Library(), MAKEINTRESOURCEW(id), IMAGE_ICON, ::GetSystemMetrics(SM_CXICON),
                                            ::GetSystemMetrics(SM_CYICON), 0));
        const bool same = !shown.colours.empty() && IconBits(own).colours == shown.colours;
        ::DestroyIcon(own);
        if (same)
            return id;
    }
    return 0;
}

struct CIconRow
{
    unsigned int type;
    unsigned int icon;
};

class ReportIcon : public ::testing::TestWithParam<CIconRow>
{
};

INSTANTIATE_TEST_SUITE_P(Type, ReportIcon,
                         ::testing::Values(CIconRow{0x00, 107}, CIconRow{0x10, 105}, CIconRow{0x20, 108},
                                           CIconRow{0x30, 106}, CIconRow{0x40, 107}, CIconRow{0x50, 107},
                                           CIconRow{0x80, 107}, CIconRow{0xF0, 107}, CIconRow{0x14, 105},
                                           CIconRow{0x34, 106}, CIconRow{0x10010, 105}),
                         [](const auto& info) { return std::to_string(info.param.type); });

void PrintTo(const CIconRow& row, std::ostream* out)
{
    *out << "type " << row.type;
}

int WINAPI FailingLoadString(HINSTANCE, UINT, LPWSTR, int)
{
    ::SetLastError(0xDEADBEEF);
    return 0;
}

HRSRC WINAPI FailingFindResource(HMODULE, LPCWSTR, LPCWSTR)
{
    ::SetLastError(0xDEADBEEF);
    return nullptr;
}

RECT ScreenArea()
{
    return {0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)};
}

RECT WindowArea(HWND window)
{
    RECT area = {};
    ::GetWindowRect(window, &area);
    return area;
}

std::vector<LONG> g_stylesEx;   // that the windows were given

LONG WINAPI RecordingSetWindowLong(HWND window, int index, LONG value)
{
    if (index == GWL_EXSTYLE)
        g_stylesEx.push_back(value);
    return ::SetWindowLongW(window, index, value);
}

bool IsAbove(HWND one, HWND other)
{
    for (HWND window = one; window; window = ::GetWindow(window, GW_HWNDNEXT))
    {
        if (window == other)
            return true;
    }
    return false;
}

int g_toDestroy;

// Before the dialog sees the message.
LRESULT CALLBACK DestroyAControl(int code, WPARAM wParam, LPARAM lParam)
{
    const auto& call = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && call.message == WM_INITDIALOG)
        ::DestroyWindow(::GetDlgItem(call.hwnd, g_toDestroy));
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}
}   // namespace

TEST_P(ReportIcon, OfTheIconGroup_IsShown)
{
    unsigned int shown = 0;
    Report(GetParam().type, {[&](HWND dialog) { shown = ShownIcon(dialog); }});
    EXPECT_EQ(GetParam().icon, shown);
}

TEST(ReportSetUp, Icon_HasTheSystemsSize)
{
    int width = 0;
    int height = 0;
    Report(0, {[&](HWND dialog)
               {
                   const IconBits bits(
                       reinterpret_cast<HICON>(::SendMessageW(::GetDlgItem(dialog, Icon), STM_GETICON, 0, 0)));
                   width = bits.width;
                   height = bits.height;
               }});
    EXPECT_EQ(::GetSystemMetrics(SM_CXICON), width);
    EXPECT_EQ(::GetSystemMetrics(SM_CYICON), height);
}

TEST(ReportSetUp, Title_IsTheApplicationsName)
{
    CStdException::SetAppName(L"Level meter");
    ustring title;
    Report(0, {[&](HWND dialog) { title = Text(dialog); }});
    EXPECT_EQ(ustring(L"Level meter"), title);
}

TEST(ReportSetUp, Title_WithoutAName_IsTheProgramsFileName)
{
    CStdException::SetAppName(nullptr);
    ustring title;
    Report(0, {[&](HWND dialog) { title = Text(dialog); }});
    EXPECT_EQ(ustring(L"report_test"), title);
}

TEST(ReportSetUp, Title_IsNotTranslated)
{
    CStdException::SetAppName(L"Level meter");
    Translate(L"Level meter", L"Pegelmesser");
    ustring title;
    Report(0, {[&](HWND dialog) { title = Text(dialog); }});
    EXPECT_EQ(ustring(L"Level meter"), title);
}

TEST(ReportSetUp, Message_IsTheOneForTheUser)
{
    EXPECT_EQ(ustring(L"Access denied"), MessageOf(Failure()));
}

TEST(ReportSetUp, Message_IsTranslated)
{
    Translate(L"Access denied", L"Zugriff verweigert");
    EXPECT_EQ(ustring(L"Zugriff verweigert"), MessageOf(Failure()));
}

TEST(ReportSetUp, Message_IsTranslatedOnce)
{
    Translate(L"Access denied", L"Zugriff verweigert");
    Translate(L"Zugriff verweigert", L"once more");
    EXPECT_EQ(ustring(L"Zugriff verweigert"), MessageOf(Failure()));
}

TEST(ReportSetUp, Message_ThatTheExceptionCannotGive_IsEmpty)
{
    EXPECT_EQ(ustring(), MessageOf(CMatrixException(1, L".\\A", L"B", static_cast<CMatrixException::EException>(99))));
}

TEST(ReportSetUp, Message_OfUnknownCode_TellsTheCode)
{
    EXPECT_EQ(ustring(L"Unknown error: 1234567 (0x12D687)."), MessageOf(CWinException(1, L".\\A", L"B", 1234567)));
}

TEST(ReportSetUp, ButtonCaptions_AreTranslated)
{
    Translate(L"Abort", L"Abbruch");
    Translate(L"Retry", L"Wiederholen");
    Translate(L"Ignore", L"Ignorieren");
    std::vector<ustring> captions;
    Report(2, {[&](HWND dialog) { captions = {ItemText(dialog, 3), ItemText(dialog, 4), ItemText(dialog, 5)}; }});
    EXPECT_EQ((std::vector<ustring>{L"Abbruch", L"Wiederholen", L"Ignorieren"}), captions);
}

TEST(ReportSetUp, ButtonCaptions_AreTranslatedOnce)
{
    Translate(L"OK", L"Gut");
    Translate(L"Gut", L"once more");
    ustring caption;
    Report(0, {[&](HWND dialog) { caption = ItemText(dialog, IDOK); }});
    EXPECT_EQ(ustring(L"Gut"), caption);
}

TEST(ReportSetUp, DetailsButton_IsTranslated)
{
    Translate(L"Info", L"Einzelheiten");
    ustring caption;
    Report(0, {[&](HWND dialog) { caption = ItemText(dialog, Details); }});
    EXPECT_EQ(ustring(L"Einzelheiten"), caption);
}

TEST(ReportSetUp, CaptionThatCannotBeLoaded_IsEmpty)
{
    const support::CImportPatch patch(&::LoadStringW, &FailingLoadString);
    ustring caption = L"not read";
    Report(0, {[&](HWND dialog) { caption = ItemText(dialog, IDOK); }});
    EXPECT_EQ(ustring(), caption);
}

TEST(ReportSetUp, CaptionThatCannotBeLoaded_IsNotTranslated)
{
    Translate(L"", L"nothing");
    const support::CImportPatch patch(&::LoadStringW, &FailingLoadString);
    ustring caption = L"not read";
    Report(0, {[&](HWND dialog) { caption = ItemText(dialog, IDOK); }});
    EXPECT_EQ(ustring(), caption);
}

TEST(ReportSetUp, CaptionThatCannotBeLoaded_TheButtonWorks)
{
    const support::CImportPatch patch(&::LoadStringW, &FailingLoadString);
    EXPECT_EQ(IDOK, Report(0, {Pressing(IDOK)}));
}

TEST(ReportSetUp, Window_CoversTheScreen)
{
    RECT area = {};
    Report(0, {[&](HWND dialog) { area = WindowArea(dialog); }});
    const RECT screen = ScreenArea();
    EXPECT_TRUE(::EqualRect(&screen, &area));
}

TEST(ReportSetUp, Window_HasNoFrame)
{
    long style = ~0L;
    Report(0, {[&](HWND dialog) { style = ::GetWindowLongW(dialog, GWL_STYLE); }});
    EXPECT_EQ(0, style & (WS_CAPTION | WS_SIZEBOX));
}

// A desktop heeds the order of windows alone, the device's shell looks at the style.
TEST(ReportSetUp, Window_IsGivenTheStyleOfTopmostWindows)
{
    const support::CImportPatch patch(&::SetWindowLongW, &RecordingSetWindowLong);
    Report(0, {});
    ASSERT_EQ(1u, g_stylesEx.size());
    EXPECT_NE(0, g_stylesEx[0] & WS_EX_TOPMOST);
}

TEST(ReportSetUp, Window_StaysAboveAWindowThatIsBroughtToTheTop)
{
    bool above = false;
    Report(0, {[&](HWND dialog)
               {
                   const HWND other = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 9, 9, nullptr,
                                                        nullptr, nullptr, nullptr);
                   ::SetWindowPos(other, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
                   above = IsAbove(dialog, other);
                   ::DestroyWindow(other);
               }});
    EXPECT_TRUE(above);
}

TEST(ReportSetUp, Window_IsRegisteredWhileItLives)
{
    HWND window = nullptr;
    bool registered = false;
    Report(0, {[&](HWND dialog)
               {
                   window = dialog;
                   registered = CWnd::FindInstance(dialog) != nullptr;
               }});
    EXPECT_TRUE(registered);
    EXPECT_EQ(nullptr, CWnd::FindInstance(window));
}

TEST(ReportSetUp, Parent_OwnsTheReport)
{
    HWND parent = nullptr;
    HWND owner = nullptr;
    bool enabled = true;
    Drive({[&](HWND dialog)
           {
               owner = ::GetWindow(dialog, GW_OWNER);
               enabled = ::IsWindowEnabled(parent) != FALSE;
           }},
          [&]
          {
              parent = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 9, 9, nullptr, nullptr,
                                         nullptr, nullptr);
              return Failure().ReportError(parent, 0, L"", 0);
          });
    EXPECT_EQ(parent, owner);
    EXPECT_FALSE(enabled);
    ::DestroyWindow(parent);
}

TEST(ReportSetUp, DialogThatCannotBeBuilt_ReturnsWhatDoModalDoes)
{
    const int missing = CDialog(::GetModuleHandleW(nullptr), 9999, nullptr).DoModal();
    const support::CImportPatch patch(&::FindResourceW, &FailingFindResource);
    EXPECT_EQ(missing, Failure().ReportError(nullptr, MB_YESNO, L"", 0));
}

class ReportWithoutAControl : public ::testing::TestWithParam<int>
{
};

INSTANTIATE_TEST_SUITE_P(Control, ReportWithoutAControl,
                         ::testing::Values(1001, 1002, 1003, 1004, 1005, 1006, 1007, 1008));

TEST_P(ReportWithoutAControl, WorksWithTheOthers)
{
    g_toDestroy = GetParam();
    const unsigned int type = GetParam() == 1007 || GetParam() == 1008 ? MB_ABORTRETRYIGNORE : MB_YESNO;
    const int expected = type == MB_YESNO ? IDNO : IDRETRY;
    const std::vector<CStep> steps = {[](HWND dialog) { TapDetails(dialog); },
                                      [](HWND dialog) { ::SetWindowPos(dialog, nullptr, 0, 0, 300, 300, 0); },
                                      Pressing(expected)};
    EXPECT_EQ(expected, Drive(steps,
                              [type]
                              {
                                  const HHOOK hook = ::SetWindowsHookExW(WH_CALLWNDPROC, &DestroyAControl, nullptr,
                                                                         ::GetCurrentThreadId());
                                  const int result = Failure().ReportError(nullptr, type, L"", 0);
                                  ::UnhookWindowsHookEx(hook);
                                  return result;
                              }));
}

TEST(ReportError, OfASnapshot_ShowsTheSameAsTheException)
{
    ustring own[4];
    ustring snapshots[4];
    const auto reading = [](ustring* texts)
    {
        return std::vector<CStep>{[texts](HWND dialog)
                                  {
                                      texts[0] = Text(dialog);
                                      texts[1] = ItemText(dialog, Message);
                                      OpenDetails(dialog);
                                  },
                                  [texts](HWND details)
                                  {
                                      texts[2] = ItemText(details, 1009);
                                      texts[3] = ItemText(details, 1012);
                                      Press(details, IDCANCEL);
                                  }};
    };
    const std::vector<CStep> first = reading(own);
    const std::vector<CStep> second = reading(snapshots);
    auto exception = std::make_unique<CCommException>(Failure());
    const CStdException::CExInfo info(*exception);
    Drive(first, [&] { return exception->ReportError(nullptr, 0x11, L"trace", 7); });
    exception.reset();
    Drive(second, [&] { return CStdException::ReportError(info, nullptr, 0x11, L"trace", 7); });
    for (int i = 0; i < 4; ++i)
    {
        EXPECT_FALSE(own[i].empty()) << i;
        EXPECT_EQ(own[i], snapshots[i]) << i;
    }
}

TEST(ReportError, OfASnapshot_ReturnsThePressedButton)
{
    const CStdException::CExInfo info(Failure());
    EXPECT_EQ(IDIGNORE, Drive({Pressing(IDIGNORE)}, [&]
                              { return CStdException::ReportError(info, nullptr, MB_ABORTRETRYIGNORE, nullptr, 0); }));
}

TEST(ReportError, ThroughTheRoot_IsTheSame)
{
    const CCommException exception = Failure();
    const CStdException& root = exception;
    EXPECT_EQ(IDNO, Drive({Pressing(IDNO)}, [&] { return root.ReportError(nullptr, MB_YESNO, nullptr, 0); }));
}
