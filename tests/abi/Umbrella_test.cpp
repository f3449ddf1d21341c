// The umbrella header under the settings that applications use; see Umbrella.cpp.

#include <vantor/Registry.h>
#include <vantor/Strings.h>

#include <gtest/gtest.h>

vantor::ustring UmbrellaFirst(const wchar_t* key);
vantor::ustring UmbrellaFirstUnicode(const wchar_t* key);
vantor::ustring WindowsFirst(const wchar_t* key);
vantor::ustring WindowsFirstUnicode(const wchar_t* key);
vantor::ustring LeanWindowsFirst(const wchar_t* key);

namespace
{
constexpr wchar_t Written[] = L"text 7";

class Umbrella : public testing::Test
{
protected:
    Umbrella() { m_key.sprintf(L"Software\\vantor umbrella test %lu", ::GetCurrentProcessId()); }
    ~Umbrella() override { vantor::RegDeleteKeyW(HKEY_CURRENT_USER, m_key.c_str()); }

    const wchar_t* Key() const { return m_key.c_str(); }

private:
    vantor::ustring m_key;
};
}   // namespace

TEST_F(Umbrella, BeforeWindows_ReachesTheLibrary)
{
    EXPECT_EQ(Written, UmbrellaFirst(Key()));
}

TEST_F(Umbrella, BeforeWindowsWithUnicode_ReachesTheLibrary)
{
    EXPECT_EQ(Written, UmbrellaFirstUnicode(Key()));
}

TEST_F(Umbrella, AfterWindows_ReachesTheLibrary)
{
    EXPECT_EQ(Written, WindowsFirst(Key()));
}

TEST_F(Umbrella, AfterWindowsWithUnicode_ReachesTheLibrary)
{
    EXPECT_EQ(Written, WindowsFirstUnicode(Key()));
}

TEST_F(Umbrella, AfterWindowsWithoutWinsock_ReachesTheLibrary)
{
    EXPECT_EQ(Written, LeanWindowsFirst(Key()));
}
