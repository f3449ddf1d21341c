// RegDeleteValueW and RegDeleteKeyW. With the platform's functions of these names in sight, the library's are called
// with its namespace.

#include "OwnKey.h"

using namespace registry_test;

namespace
{
const HKEY User = HKEY_CURRENT_USER;

class RegistryDeleteValue : public RegistryTest
{
};

class RegistryDeleteKey : public RegistryTest
{
};
}   // namespace

// ---- RegDeleteValueW

TEST_F(RegistryDeleteValue, StoredValue_IsGone)
{
    Store(L"v", REG_SZ, Utf16Sz(L"text"));
    EXPECT_TRUE(vantor::RegDeleteValueW(User, m_path, L"v"));
    EXPECT_FALSE(HasValue(m_path, L"v"));
}

TEST_F(RegistryDeleteValue, MissingValue_IsFalse)
{
    MakeKey(m_path);
    EXPECT_FALSE(vantor::RegDeleteValueW(User, m_path, L"v"));
}

TEST_F(RegistryDeleteValue, MissingKey_IsFalseAndCreated)
{
    EXPECT_FALSE(vantor::RegDeleteValueW(User, m_path, L"v"));
    EXPECT_EQ(1u, Snapshot(m_path).size());
}

TEST_F(RegistryDeleteValue, MissingParents_AreCreatedToo)
{
    EXPECT_FALSE(vantor::RegDeleteValueW(User, m_own.Below(L"a\\b").c_str(), L"v"));
    EXPECT_TRUE(KeyExists(m_own.Below(L"a\\b")));
}

TEST_F(RegistryDeleteValue, Twice_IsFalseTheSecondTime)
{
    Store(L"v", REG_SZ, Utf16Sz(L"text"));
    vantor::RegDeleteValueW(User, m_path, L"v");
    EXPECT_FALSE(vantor::RegDeleteValueW(User, m_path, L"v"));
}

TEST_F(RegistryDeleteValue, NullName_IsTheKeysDefaultValue)
{
    Store(nullptr, REG_SZ, Utf16Sz(L"unnamed"));
    EXPECT_TRUE(vantor::RegDeleteValueW(User, m_path, nullptr));
    EXPECT_FALSE(HasValue(m_path, nullptr));
}

TEST_F(RegistryDeleteValue, NameOf255UnicodeCharacters_IsDeleted)
{
    const std::wstring name(255, L'\u0928');
    Store(name.c_str(), REG_BINARY, "x");
    EXPECT_TRUE(vantor::RegDeleteValueW(User, m_path, name.c_str()));
    EXPECT_FALSE(HasValue(m_path, name.c_str()));
}

TEST_F(RegistryDeleteValue, OpenedKeyAsRoot_IsWhereTheSubKeyIsSought)
{
    registry_test::Store(m_own.Below(L"a"), L"v", REG_DWORD, DwordBytes(7));
    const COpenKey root(m_path);
    EXPECT_TRUE(vantor::RegDeleteValueW(root, L"a", L"v"));
    EXPECT_FALSE(HasValue(m_own.Below(L"a"), L"v"));
}

TEST_F(RegistryDeleteValue, AllElse_StaysAsItIs)
{
    Store(L"a", REG_SZ, Utf16Sz(L"text"));
    registry_test::Store(m_own.Below(L"v"), L"v", REG_DWORD, DwordBytes(7));   // a key, and a value in it, of that name
    const std::vector<std::string> before = Snapshot(m_path);
    Store(L"v", REG_SZ, Utf16Sz(L"text"));
    vantor::RegDeleteValueW(User, m_path, L"v");
    EXPECT_EQ(before, Snapshot(m_path));
}

TEST_F(RegistryDeleteValue, NoRoot_IsFalse)
{
    EXPECT_FALSE(vantor::RegDeleteValueW(nullptr, m_path, L"v"));
    EXPECT_FALSE(KeyExists(m_path));
}

// ---- RegDeleteKeyW

TEST_F(RegistryDeleteKey, EmptyKey_IsGone)
{
    MakeKey(m_path);
    EXPECT_TRUE(vantor::RegDeleteKeyW(User, m_path));
    EXPECT_FALSE(KeyExists(m_path));
}

TEST_F(RegistryDeleteKey, KeyWithValues_IsGoneWithThem)
{
    Store(L"v", REG_SZ, Utf16Sz(L"text"));
    EXPECT_TRUE(vantor::RegDeleteKeyW(User, m_path));
    EXPECT_FALSE(KeyExists(m_path));
}

TEST_F(RegistryDeleteKey, MissingKey_IsFalseAndNotCreated)
{
    EXPECT_FALSE(vantor::RegDeleteKeyW(User, m_path));
    EXPECT_FALSE(KeyExists(m_path));
}

TEST_F(RegistryDeleteKey, MissingKeyBelowAnExistingOne_IsFalse)
{
    Store(L"v", REG_SZ, Utf16Sz(L"text"));   // a value is no key
    EXPECT_FALSE(vantor::RegDeleteKeyW(User, m_own.Below(L"v").c_str()));
    EXPECT_TRUE(HasValue(m_path, L"v"));
}

// The desktop's answer, where these tests run. The device deletes the keys below, too.
TEST_F(RegistryDeleteKey, KeyWithKeysBelow_IsRefusedByTheDesktopAndStaysWhole)
{
    Store(L"v", REG_SZ, Utf16Sz(L"text"));
    registry_test::Store(m_own.Below(L"a\\b"), L"v", REG_DWORD, DwordBytes(7));
    const std::vector<std::string> before = Snapshot(m_path);
    EXPECT_FALSE(vantor::RegDeleteKeyW(User, m_path));
    EXPECT_EQ(before, Snapshot(m_path));
}

TEST_F(RegistryDeleteKey, Parent_StaysWithItsOtherKeys)
{
    MakeKey(m_own.Below(L"a"));
    MakeKey(m_own.Below(L"c"));
    const std::vector<std::string> before = Snapshot(m_path);
    MakeKey(m_own.Below(L"b"));
    EXPECT_TRUE(vantor::RegDeleteKeyW(User, m_own.Below(L"b").c_str()));
    EXPECT_EQ(before, Snapshot(m_path));
}

TEST_F(RegistryDeleteKey, OpenedKeyAsRoot_IsWhereTheKeyIsSought)
{
    MakeKey(m_own.Below(L"a"));
    const COpenKey root(m_path);
    EXPECT_TRUE(vantor::RegDeleteKeyW(root, L"a"));
    EXPECT_FALSE(KeyExists(m_own.Below(L"a")));
}

TEST_F(RegistryDeleteKey, NoRoot_IsFalse)
{
    MakeKey(m_path);
    EXPECT_FALSE(vantor::RegDeleteKeyW(nullptr, m_path));
    EXPECT_TRUE(KeyExists(m_path));
}
