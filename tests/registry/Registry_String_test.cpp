// Which values RegGetValue reads as a string, and what stands in their place otherwise.

#include "OwnKey.h"

using namespace vantor;
using namespace registry_test;

namespace
{
class RegistryString : public RegistryTest
{
protected:
    // What is read with the default L"default"; `value` holds something else before.
    ustring Read(bool expected, const wchar_t* path, const wchar_t* name) const
    {
        ustring value = L"before";
        EXPECT_EQ(expected, RegGetValue(HKEY_CURRENT_USER, path, name, value, L"default"));
        return value;
    }

    ustring ReadStored(DWORD type, const std::string& bytes) const
    {
        Store(L"v", type, bytes);
        return Read(true, m_path, L"v");
    }
};

class RegistryStringType : public RegistryString, public testing::WithParamInterface<DWORD>
{
};
}   // namespace

TEST_F(RegistryString, MissingKey_IsFalseWithTheDefault)
{
    EXPECT_EQ(L"default", Read(false, m_path, L"v"));
}

TEST_F(RegistryString, MissingKey_IsNotCreated)
{
    Read(false, m_path, L"v");
    EXPECT_FALSE(KeyExists(m_path));
}

TEST_F(RegistryString, MissingValue_IsFalseWithTheDefault)
{
    MakeKey(m_path);
    EXPECT_EQ(L"default", Read(false, m_path, L"v"));
}

TEST_F(RegistryString, MissingParent_IsFalseWithTheDefault)
{
    EXPECT_EQ(L"default", Read(false, m_own.Below(L"a\\b").c_str(), L"v"));
}

TEST_F(RegistryString, NullDefault_IsTheEmptyString)
{
    ustring value = L"before";
    EXPECT_FALSE(RegGetValue(HKEY_CURRENT_USER, m_path, L"v", value, nullptr));
    EXPECT_EQ(L"", value);
}

TEST_F(RegistryString, EmptyDefault_IsTheEmptyString)
{
    ustring value = L"before";
    EXPECT_FALSE(RegGetValue(HKEY_CURRENT_USER, m_path, L"v", value, L""));
    EXPECT_EQ(L"", value);
}

TEST_F(RegistryString, StoredText_ReplacesTheDefault)
{
    EXPECT_EQ(L"text", ReadStored(REG_SZ, Utf16Sz(L"text")));
}

TEST_F(RegistryString, NullDefault_DoesNotHideTheStoredText)
{
    Store(L"v", REG_SZ, Utf16Sz(L"text"));
    ustring value;
    EXPECT_TRUE(RegGetValue(HKEY_CURRENT_USER, m_path, L"v", value, nullptr));
    EXPECT_EQ(L"text", value);
}

TEST_F(RegistryString, ExpandableText_IsNotExpanded)
{
    EXPECT_EQ(L"%SystemRoot%\\x", ReadStored(REG_EXPAND_SZ, Utf16Sz(L"%SystemRoot%\\x")));
}

TEST_F(RegistryString, Number_IsFalseWithTheDefault)
{
    Store(L"v", REG_DWORD, DwordBytes(0x00410041));
    EXPECT_EQ(L"default", Read(false, m_path, L"v"));
}

// The letter "A" and a terminator as bytes, so that only the type tells.
TEST_P(RegistryStringType, OfAnyOtherType_IsFalseWithTheDefault)
{
    Store(L"v", GetParam(), std::string("A\0\0\0", 4));
    EXPECT_EQ(L"default", Read(false, m_path, L"v"));
}

INSTANTIATE_TEST_SUITE_P(Types, RegistryStringType,
                         testing::Values(REG_NONE, REG_BINARY, REG_DWORD, REG_DWORD_BIG_ENDIAN, REG_LINK, REG_MULTI_SZ,
                                         REG_RESOURCE_LIST, REG_QWORD, 12, 0xFFFF, 0x10001));

TEST_F(RegistryString, NameOf255Characters_IsRead)
{
    const std::wstring name(255, L'n');
    Store(name.c_str(), REG_SZ, Utf16Sz(L"text"));
    EXPECT_EQ(L"text", Read(true, m_path, name.c_str()));
}

TEST_F(RegistryString, KeyNameOf255Characters_IsRead)
{
    const std::wstring path = m_own.Below(std::wstring(255, L'k'));
    registry_test::Store(path, L"v", REG_SZ, Utf16Sz(L"text"));
    EXPECT_EQ(L"text", Read(true, path.c_str(), L"v"));
}

TEST_F(RegistryString, UnicodeNames_AreRead)
{
    const std::wstring path = m_own.Below(L"\u00DCber \u30AD\u30FC \xD83D\xDD11");
    registry_test::Store(path, L"\u0928\u093E\u092E \xD83C\xDFF7", REG_SZ, Utf16Sz(L"text"));
    EXPECT_EQ(L"text", Read(true, path.c_str(), L"\u0928\u093E\u092E \xD83C\xDFF7"));
}

TEST_F(RegistryString, NullName_IsTheKeysDefaultValue)
{
    Store(nullptr, REG_SZ, Utf16Sz(L"unnamed"));
    EXPECT_EQ(L"unnamed", Read(true, m_path, nullptr));
}

TEST_F(RegistryString, EmptyName_IsTheKeysDefaultValue)
{
    Store(nullptr, REG_SZ, Utf16Sz(L"unnamed"));
    EXPECT_EQ(L"unnamed", Read(true, m_path, L""));
}

TEST_F(RegistryString, NullSubKey_IsTheRootItself)
{
    Store(L"v", REG_SZ, Utf16Sz(L"text"));
    const COpenKey root(m_path);
    ustring value;
    EXPECT_TRUE(RegGetValue(root, nullptr, L"v", value, nullptr));
    EXPECT_EQ(L"text", value);
}

TEST_F(RegistryString, EmptySubKey_IsTheRootItself)
{
    Store(L"v", REG_SZ, Utf16Sz(L"text"));
    const COpenKey root(m_path);
    ustring value;
    EXPECT_TRUE(RegGetValue(root, L"", L"v", value, nullptr));
    EXPECT_EQ(L"text", value);
}

TEST_F(RegistryString, RootItself_IsStillOpenAfterwards)
{
    Store(L"v", REG_SZ, Utf16Sz(L"text"));
    const COpenKey root(m_path);
    ustring value;
    RegGetValue(root, nullptr, L"v", value, nullptr);
    EXPECT_EQ(ERROR_SUCCESS, ::RegQueryValueExW(root, L"v", nullptr, nullptr, nullptr, nullptr));
}

TEST_F(RegistryString, OpenedKeyAsRoot_IsWhereTheSubKeyIsSought)
{
    registry_test::Store(m_own.Below(L"a\\b"), L"v", REG_SZ, Utf16Sz(L"text"));
    const COpenKey root(m_path);
    ustring value;
    EXPECT_TRUE(RegGetValue(root, L"a\\b", L"v", value, nullptr));
    EXPECT_EQ(L"text", value);
}

TEST_F(RegistryString, MachineRoot_IsReadToo)
{
    constexpr wchar_t path[] = L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";
    wchar_t expected[64] = {};
    DWORD size = sizeof expected - sizeof *expected;
    HKEY key;
    ASSERT_EQ(ERROR_SUCCESS, ::RegOpenKeyExW(HKEY_LOCAL_MACHINE, path, 0, KEY_READ, &key));
    ASSERT_EQ(ERROR_SUCCESS,
              ::RegQueryValueExW(key, L"CurrentVersion", nullptr, nullptr, reinterpret_cast<BYTE*>(expected), &size));
    ::RegCloseKey(key);

    ustring value;
    EXPECT_TRUE(RegGetValue(HKEY_LOCAL_MACHINE, path, L"CurrentVersion", value, nullptr));
    EXPECT_EQ(expected, value);
}

TEST_F(RegistryString, NoRoot_IsFalseWithTheDefault)
{
    ustring value = L"before";
    EXPECT_FALSE(RegGetValue(nullptr, m_path, L"v", value, L"default"));
    EXPECT_EQ(L"default", value);
}

TEST_F(RegistryString, HandleOfNoKeyAsRoot_IsFalseWithTheDefault)
{
    const HANDLE event = ::CreateEventW(nullptr, FALSE, FALSE, nullptr);
    ustring value = L"before";
    EXPECT_FALSE(RegGetValue(static_cast<HKEY>(event), m_path, L"v", value, L"default"));
    EXPECT_EQ(L"default", value);
    ::CloseHandle(event);
}

TEST_F(RegistryString, Reading_ChangesNothing)
{
    Store(L"v", REG_SZ, Utf16Sz(L"text"));
    Store(L"w", REG_DWORD, DwordBytes(7));
    const std::vector<std::string> before = Snapshot(m_path);
    Read(true, m_path, L"v");
    Read(false, m_path, L"w");
    Read(false, m_path, L"x");
    EXPECT_EQ(before, Snapshot(m_path));
}
