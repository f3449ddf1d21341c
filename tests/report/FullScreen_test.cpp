// The device's part of the full-screen presentation, against shells of our own. This program contains the library's
// dialogs once more, built as for the device.

#include "Driver.h"

#include "shell/Shell.h"

#include "../../src/platform/FullScreen.h"
#include "../../src/ui/ErrorDialogs.h"

#include "support/Print.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

using namespace vantor;

namespace
{
// Makes the folder beside this program the one where the shell is found, and keeps the shell loaded.
class CUseShell
{
public:
    explicit CUseShell(const wchar_t* name)
    {
        const std::wstring folder = std::wstring(support::ModuleFolder()) + L"\\shells\\" + name;
        ::SetDllDirectoryW(folder.c_str());
        m_shell = ::LoadLibraryW((folder + L"\\aygshell.dll").c_str());
        if (!m_shell)
            ADD_FAILURE() << "no shell to load: error " << ::GetLastError();
    }
    CUseShell(const CUseShell&) = delete;
    CUseShell& operator=(const CUseShell&) = delete;
    ~CUseShell()
    {
        if (m_shell)
            ::FreeLibrary(m_shell);
        ::SetDllDirectoryW(nullptr);
    }

    std::vector<CShellCall> Calls() const
    {
        const auto name = reinterpret_cast<LPCSTR>(static_cast<ULONG_PTR>(ShellLogOrdinal));
        const auto find = reinterpret_cast<ShellLogCall*>(reinterpret_cast<void*>(::GetProcAddress(m_shell, name)));
        if (!find)
            return {};
        const CShellLog& log = *find();
        return {log.calls, log.calls + log.count};
    }

private:
    HMODULE m_shell;
};

int ShowReport(const std::vector<CStep>& steps)
{
    CReport report;
    report.message = L"The system cannot find the file specified.";
    report.title = L"Level meter";
    report.type = MB_YESNO;
    return Drive(steps, [&] { return CErrorReportDlg(nullptr, report).DoModal(); });
}

std::vector<WORD> Ordinals(const std::vector<CShellCall>& calls)
{
    std::vector<WORD> ordinals;
    for (const CShellCall& call : calls)
        ordinals.push_back(call.ordinal);
    return ordinals;
}

bool CoversTheScreen(HWND dialog)
{
    RECT area = {};
    ::GetWindowRect(dialog, &area);
    const RECT screen = {0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)};
    return ::EqualRect(&screen, &area) != FALSE;
}
}   // namespace

TEST(FullScreen, Shell_IsCalledInOrder)
{
    const CUseShell shell(L"whole");
    ShowReport({});
    EXPECT_EQ((std::vector<WORD>{56, 21, 65}), Ordinals(shell.Calls()));
}

TEST(FullScreen, Initialisation_AsksForTheScreenWithoutMenuBar)
{
    const CUseShell shell(L"whole");
    HWND dialog = nullptr;
    ShowReport({[&](HWND report) { dialog = report; }});
    ASSERT_EQ(3u, shell.Calls().size());
    const CShellCall call = shell.Calls()[0];
    EXPECT_EQ(1u, call.mask);
    EXPECT_EQ(dialog, call.dialog);
    EXPECT_EQ(16u, call.value);
}

TEST(FullScreen, DoneButton_IsHidden)
{
    const CUseShell shell(L"whole");
    HWND dialog = nullptr;
    ShowReport({[&](HWND report) { dialog = report; }});
    ASSERT_EQ(3u, shell.Calls().size());
    EXPECT_EQ(dialog, shell.Calls()[1].dialog);
    EXPECT_EQ(2u, shell.Calls()[1].value);
}

TEST(FullScreen, TaskBarAndInputPanel_AreHidden)
{
    const CUseShell shell(L"whole");
    HWND dialog = nullptr;
    ShowReport({[&](HWND report) { dialog = report; }});
    ASSERT_EQ(3u, shell.Calls().size());
    EXPECT_EQ(dialog, shell.Calls()[2].dialog);
    EXPECT_EQ(42u, shell.Calls()[2].value);
}

TEST(FullScreen, Shell_IsAskedBeforeTheDialogShows)
{
    const CUseShell shell(L"whole");
    ShowReport({});
    ASSERT_EQ(3u, shell.Calls().size());
    for (const CShellCall& call : shell.Calls())
        EXPECT_FALSE(call.visible) << call.ordinal;
}

TEST(FullScreen, Details_AskTheShellToo)
{
    const CUseShell shell(L"whole");
    HWND details = nullptr;
    ShowReport({OpenDetails, [&](HWND dialog)
                {
                    details = dialog;
                    Press(dialog, IDCANCEL);
                }});
    const std::vector<CShellCall> calls = shell.Calls();
    ASSERT_EQ((std::vector<WORD>{56, 21, 65, 56, 21, 65}), Ordinals(calls));
    EXPECT_EQ(details, calls[3].dialog);
    EXPECT_EQ(details, calls[4].dialog);
    EXPECT_EQ(details, calls[5].dialog);
}

TEST(FullScreen, WithTheShell_TheDialogWorks)
{
    const CUseShell shell(L"whole");
    bool covers = false;
    EXPECT_EQ(IDYES, ShowReport({[&](HWND dialog)
                                 {
                                     covers = CoversTheScreen(dialog);
                                     Press(dialog, IDYES);
                                 }}));
    EXPECT_TRUE(covers);
}

TEST(FullScreen, Shell_IsNotKeptLoaded)
{
    {
        const CUseShell shell(L"whole");
        ShowReport({});
    }
    EXPECT_EQ(nullptr, ::GetModuleHandleW(L"aygshell.dll"));
}

TEST(FullScreen, WithoutTheShell_TheDialogWorks)
{
    ASSERT_EQ(nullptr, ::LoadLibraryW(L"aygshell.dll")) << "this system has one";
    bool covers = false;
    EXPECT_EQ(IDYES, ShowReport({[&](HWND dialog)
                                 {
                                     covers = CoversTheScreen(dialog);
                                     Press(dialog, IDYES);
                                 }}));
    EXPECT_TRUE(covers);
}

TEST(FullScreen, WithoutTheShell_TheDetailsWork)
{
    EXPECT_EQ(IDNO, ShowReport({OpenDetails, Pressing(IDCANCEL), Pressing(IDNO)}));
}

struct CShellRow
{
    const wchar_t* folder;
    std::vector<WORD> ordinals;   // that it has, and that are called
};

class IncompleteShell : public ::testing::TestWithParam<CShellRow>
{
};

INSTANTIATE_TEST_SUITE_P(Shell, IncompleteShell,
                         ::testing::Values(CShellRow{L"without56", {21, 65}}, CShellRow{L"without21", {56, 65}},
                                           CShellRow{L"without65", {56, 21}}),
                         [](const auto& info)
                         {
                             const std::wstring name = info.param.folder;
                             return std::string(name.begin(), name.end());
                         });

static void PrintTo(const CShellRow& row, std::ostream* out)
{
    PrintTo(ustring(row.folder), out);
}

TEST_P(IncompleteShell, TheOtherCallsAreMade)
{
    const CUseShell shell(GetParam().folder);
    ShowReport({});
    EXPECT_EQ(GetParam().ordinals, Ordinals(shell.Calls()));
}

TEST_P(IncompleteShell, TheDialogWorks)
{
    const CUseShell shell(GetParam().folder);
    bool covers = false;
    EXPECT_EQ(IDNO, ShowReport({[&](HWND dialog)
                                {
                                    covers = CoversTheScreen(dialog);
                                    Press(dialog, IDNO);
                                }}));
    EXPECT_TRUE(covers);
}
