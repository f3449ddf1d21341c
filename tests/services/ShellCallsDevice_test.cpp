// The device's part of the shell functions, against DLLs of our own. This program contains the functions once more,
// built as for the device.

#include "shell/Shell.h"

#include "support/Print.h"
#include "support/TempFolder.h"

#include <vantor/Shell.h>

#include <gtest/gtest.h>

#include <string>

using namespace vantor;

namespace
{
CShellScript g_script;

class ShellDevice : public ::testing::Test
{
protected:
    ShellDevice()
    {
        g_script = {};
        g_script.path = L"\\My Documents";
        g_script.shortcut = 1;
    }
    ~ShellDevice() override { ::SetDllDirectoryW(nullptr); }

    // Makes the folder beside this program the one where the DLLs are found.
    static void Use(const wchar_t* name)
    {
        const std::wstring folder = std::wstring(support::ModuleFolder()) + L"\\services\\" + name;
        ::SetDllDirectoryW(folder.c_str());
    }

    static std::string Calls() { return g_script.calls; }

    ustring m_path = L"old";
};

ustring TargetGiven(const wchar_t* target)
{
    CreateShortcut(L"\\Windows\\Start Menu\\app.lnk", target, nullptr);
    return g_script.target;
}
}   // namespace

extern "C" __declspec(dllexport) CShellScript* ShellScript()
{
    return &g_script;
}

TEST_F(ShellDevice, Folder_HasItsPath)
{
    Use(L"whole");
    EXPECT_TRUE(GetSpecialFolderLocation(nullptr, 5, m_path));
    EXPECT_EQ(ustring(L"\\My Documents"), m_path);
}

TEST_F(ShellDevice, OwnerAndNumber_ArePassedThrough)
{
    Use(L"whole");
    const HWND owner = ::GetDesktopWindow();
    GetSpecialFolderLocation(owner, 38, m_path);
    EXPECT_EQ(owner, g_script.owner);
    EXPECT_EQ(38, g_script.folder);
}

TEST_F(ShellDevice, List_IsFreedByTheAllocatorWhichIsReleased)
{
    Use(L"whole");
    GetSpecialFolderLocation(nullptr, 5, m_path);
    EXPECT_EQ("LPAFR", Calls());
    EXPECT_FALSE(g_script.foreign);
}

TEST_F(ShellDevice, ListWithoutPath_IsFreedToo)
{
    Use(L"whole");
    g_script.path = nullptr;
    EXPECT_FALSE(GetSpecialFolderLocation(nullptr, 5, m_path));
    EXPECT_EQ("LPAFR", Calls());
    EXPECT_FALSE(g_script.foreign);
}

TEST_F(ShellDevice, ListWithoutPath_LeavesThePathUntouched)
{
    Use(L"whole");
    g_script.path = nullptr;
    GetSpecialFolderLocation(nullptr, 5, m_path);
    EXPECT_EQ(ustring(L"old"), m_path);
}

TEST_F(ShellDevice, NoList_AsksForNothingElse)
{
    Use(L"whole");
    g_script.location = E_INVALIDARG;
    EXPECT_FALSE(GetSpecialFolderLocation(nullptr, 5, m_path));
    EXPECT_EQ("L", Calls());
    EXPECT_EQ(ustring(L"old"), m_path);
}

TEST_F(ShellDevice, NoAllocator_StillGivesThePath)
{
    Use(L"whole");
    g_script.allocator = E_FAIL;
    EXPECT_TRUE(GetSpecialFolderLocation(nullptr, 5, m_path));
    EXPECT_EQ(ustring(L"\\My Documents"), m_path);
    EXPECT_EQ("LPA", Calls());
}

TEST_F(ShellDevice, WithoutTheShell_ThereIsNoFolder)
{
    ASSERT_EQ(nullptr, ::LoadLibraryW(L"ceshell.dll")) << "this system has one";
    EXPECT_FALSE(GetSpecialFolderLocation(nullptr, 5, m_path));
    EXPECT_EQ(ustring(L"old"), m_path);
}

TEST_F(ShellDevice, WithoutTheLocationCall_ThereIsNoFolder)
{
    Use(L"without_location");
    EXPECT_FALSE(GetSpecialFolderLocation(nullptr, 5, m_path));
    EXPECT_EQ(ustring(L"old"), m_path);
    EXPECT_EQ("", Calls());
}

TEST_F(ShellDevice, WithoutThePathCall_ThereIsNoFolder)
{
    Use(L"without_path");
    EXPECT_FALSE(GetSpecialFolderLocation(nullptr, 5, m_path));
    EXPECT_EQ(ustring(L"old"), m_path);
}

TEST_F(ShellDevice, WithoutThePathCall_TheListIsFreed)
{
    Use(L"without_path");
    GetSpecialFolderLocation(nullptr, 5, m_path);
    EXPECT_EQ("LAFR", Calls());
    EXPECT_FALSE(g_script.foreign);
}

TEST_F(ShellDevice, WithoutTheAllocatorCall_TheFolderHasItsPath)
{
    Use(L"without_allocator");
    EXPECT_TRUE(GetSpecialFolderLocation(nullptr, 5, m_path));
    EXPECT_EQ(ustring(L"\\My Documents"), m_path);
    EXPECT_EQ("LP", Calls());
}

TEST_F(ShellDevice, TargetWithABlank_ReachesTheShellInQuotationMarks)
{
    Use(L"whole");
    EXPECT_EQ(ustring(L"\"\\Program Files\\app.exe\""), TargetGiven(L"\\Program Files\\app.exe"));
}

TEST_F(ShellDevice, TargetWithABlankAtItsEnd_ReachesTheShellInQuotationMarks)
{
    Use(L"whole");
    EXPECT_EQ(ustring(L"\"\\app \""), TargetGiven(L"\\app "));
}

TEST_F(ShellDevice, TargetWithoutABlank_ReachesTheShellAsItIs)
{
    Use(L"whole");
    EXPECT_EQ(ustring(L"\\Windows\\app.exe"), TargetGiven(L"\\Windows\\app.exe"));
}

// The blank alone decides.
TEST_F(ShellDevice, TargetWithATab_ReachesTheShellAsItIs)
{
    Use(L"whole");
    EXPECT_EQ(ustring(L"\\My\tFiles\\app.exe"), TargetGiven(L"\\My\tFiles\\app.exe"));
}

TEST_F(ShellDevice, QuotedTargetWithABlank_GetsAnotherPairOfMarks)
{
    Use(L"whole");
    EXPECT_EQ(ustring(L"\"\"\\My Files\\app.exe\"\""), TargetGiven(L"\"\\My Files\\app.exe\""));
}

TEST_F(ShellDevice, NullTarget_ReachesTheShellEmpty)
{
    Use(L"whole");
    EXPECT_EQ(ustring(), TargetGiven(nullptr));
    EXPECT_EQ("S", Calls());
}

TEST_F(ShellDevice, NameOfTheShortcut_ReachesTheShellAsItIs)
{
    Use(L"whole");
    CreateShortcut(L"\\Windows\\Start Menu\\app.lnk", L"\\app.exe", nullptr);
    EXPECT_EQ(ustring(L"\\Windows\\Start Menu\\app.lnk"), ustring(g_script.name));
}

TEST_F(ShellDevice, ThirdArgument_IsNotUsed)
{
    Use(L"whole");
    EXPECT_TRUE(CreateShortcut(L"\\app.lnk", L"\\app.exe", L"-silent"));
    EXPECT_EQ("S", Calls());
    EXPECT_EQ(ustring(L"\\app.exe"), ustring(g_script.target));
}

TEST_F(ShellDevice, AnyResultButZero_IsSuccess)
{
    Use(L"whole");
    g_script.shortcut = 0x80000000;
    EXPECT_TRUE(CreateShortcut(L"\\app.lnk", L"\\app.exe", nullptr));
}

TEST_F(ShellDevice, ResultZero_IsFailure)
{
    Use(L"whole");
    g_script.shortcut = 0;
    EXPECT_FALSE(CreateShortcut(L"\\app.lnk", L"\\app.exe", nullptr));
}

TEST_F(ShellDevice, WithoutTheSystem_ThereIsNoShortcut)
{
    ASSERT_EQ(nullptr, ::LoadLibraryW(L"coredll.dll")) << "this system has one";
    EXPECT_FALSE(CreateShortcut(L"\\app.lnk", L"\\app.exe", nullptr));
}

TEST_F(ShellDevice, WithoutTheShortcutCall_ThereIsNoShortcut)
{
    Use(L"without_shortcut");
    EXPECT_FALSE(CreateShortcut(L"\\app.lnk", L"\\app.exe", nullptr));
    EXPECT_EQ("", Calls());
}
