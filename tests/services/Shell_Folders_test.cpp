// The paths of special folders, against another call of the shell.

#include "support/Leaks.h"
#include "support/Print.h"

#include <vantor/Shell.h>

#include <gtest/gtest.h>

#include <shlobj.h>

using namespace vantor;
using support::CResources;

namespace
{
struct CFolderRow
{
    const char* name;
    int folder;
};

void PrintTo(const CFolderRow& row, std::ostream* out)
{
    *out << row.name;
}

class ShellFolder : public ::testing::TestWithParam<CFolderRow>
{
};

class ShellNoFolder : public ::testing::TestWithParam<CFolderRow>
{
};

const auto Name = [](const auto& info) { return info.param.name; };
}   // namespace

INSTANTIATE_TEST_SUITE_P(Shell, ShellFolder,
                         ::testing::Values(CFolderRow{"Personal", CSIDL_PERSONAL},
                                           CFolderRow{"DesktopDirectory", CSIDL_DESKTOPDIRECTORY},
                                           CFolderRow{"Windows", CSIDL_WINDOWS}, CFolderRow{"AppData", CSIDL_APPDATA},
                                           CFolderRow{"ProgramFiles", CSIDL_PROGRAM_FILES},
                                           CFolderRow{"Fonts", CSIDL_FONTS}),
                         Name);

TEST_P(ShellFolder, HasItsPath)
{
    wchar_t expected[MAX_PATH] = {};
    ASSERT_EQ(S_OK, ::SHGetFolderPathW(nullptr, GetParam().folder, nullptr, SHGFP_TYPE_CURRENT, expected));
    ustring path = L"old";
    EXPECT_TRUE(GetSpecialFolderLocation(nullptr, GetParam().folder, path));
    if (path == ustring(expected) + L"\\")   // as Wine ends some
        path.pop_back();
    EXPECT_EQ(ustring(expected), path);
}

// A place of the shell that no path leads to, and none at all.
INSTANTIATE_TEST_SUITE_P(Shell, ShellNoFolder,
                         ::testing::Values(CFolderRow{"Controls", CSIDL_CONTROLS}, CFolderRow{"Unknown", 0x7F7F}),
                         Name);

TEST_P(ShellNoFolder, IsFalse)
{
    ustring path;
    EXPECT_FALSE(GetSpecialFolderLocation(nullptr, GetParam().folder, path));
}

TEST_P(ShellNoFolder, LeavesThePathUntouched)
{
    ustring path = L"old";
    GetSpecialFolderLocation(nullptr, GetParam().folder, path);
    EXPECT_EQ(ustring(L"old"), path);
}

TEST(ShellFolders, Lookup_LeaksNothing)
{
    const auto code = []
    {
        ustring path;
        for (const int folder : {CSIDL_PERSONAL, CSIDL_CONTROLS, 0x7F7F})
            GetSpecialFolderLocation(nullptr, folder, path);
    };
    code();
    const CResources before;
    code();
    EXPECT_EQ(before, CResources());
}
