// The umbrella header under the settings that applications use; see Umbrella.cpp.

#include <vantor/Strings.h>

#include <gtest/gtest.h>

vantor::ustring UmbrellaFirst();
vantor::ustring UmbrellaFirstUnicode();
vantor::ustring WindowsFirst();
vantor::ustring WindowsFirstUnicode();

namespace
{
constexpr wchar_t ProgramName[] = L"abi_test";
}

TEST(Umbrella, BeforeWindows_ReachesTheLibrary)
{
    EXPECT_EQ(ProgramName, UmbrellaFirst());
}

TEST(Umbrella, BeforeWindowsWithUnicode_ReachesTheLibrary)
{
    EXPECT_EQ(ProgramName, UmbrellaFirstUnicode());
}

TEST(Umbrella, AfterWindows_ReachesTheLibrary)
{
    EXPECT_EQ(ProgramName, WindowsFirst());
}

TEST(Umbrella, AfterWindowsWithUnicode_ReachesTheLibrary)
{
    EXPECT_EQ(ProgramName, WindowsFirstUnicode());
}
