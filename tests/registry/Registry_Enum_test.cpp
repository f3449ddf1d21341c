// The lists of RegEnumSubKeys and RegEnumValues.

#include "OwnKey.h"

#include <algorithm>

using namespace vantor;
using namespace registry_test;

namespace
{
class RegistryEnum : public RegistryTest
{
protected:
    Texts Keys(bool expected, const wchar_t* path) const
    {
        Texts names = {L"before"};
        EXPECT_EQ(expected, RegEnumSubKeys(HKEY_CURRENT_USER, path, names));
        return names;
    }

    Texts Values(bool expected, const wchar_t* path) const
    {
        Texts names = {L"before"};
        EXPECT_EQ(expected, RegEnumValues(HKEY_CURRENT_USER, path, names));
        return names;
    }

    void StoreEmpty(const std::wstring& name) const { Store(name.c_str(), REG_NONE, ""); }
};

// The platform's order, by calls of the test's own. Names of up to 255 characters.
template <class Call>
Texts InThePlatformsOrder(const wchar_t* path, Call call)
{
    const COpenKey key(path);
    Texts names;
    wchar_t name[256];
    for (DWORD index = 0;; ++index)
    {
        DWORD length = 256;
        if (call(key, index, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            return names;
        names.push_back(name);
    }
}

ustring Numbered(const wchar_t* stem, int number)
{
    return ustring(stem + std::to_wstring(number));
}

// "stem0", "stem1" and so on, sorted.
Texts Numbers(const wchar_t* stem, int count)
{
    Texts names;
    for (int number = 0; number < count; ++number)
        names.push_back(Numbered(stem, number));
    std::sort(names.begin(), names.end());
    return names;
}

Texts Sorted(Texts names)
{
    std::sort(names.begin(), names.end());
    return names;
}
}   // namespace

TEST_F(RegistryEnum, MissingKey_IsFalseWithoutKeys)
{
    EXPECT_EQ(Texts(), Keys(false, m_path));
}

TEST_F(RegistryEnum, MissingKey_IsFalseWithoutValues)
{
    EXPECT_EQ(Texts(), Values(false, m_path));
}

TEST_F(RegistryEnum, MissingKey_IsNotCreated)
{
    Keys(false, m_path);
    Values(false, m_path);
    EXPECT_FALSE(KeyExists(m_path));
}

TEST_F(RegistryEnum, EmptyKey_IsTrueWithoutKeys)
{
    MakeKey(m_path);
    EXPECT_EQ(Texts(), Keys(true, m_path));
}

TEST_F(RegistryEnum, EmptyKey_IsTrueWithoutValues)
{
    MakeKey(m_path);
    EXPECT_EQ(Texts(), Values(true, m_path));
}

TEST_F(RegistryEnum, Keys_AreThoseDirectlyBelow)
{
    MakeKey(m_own.Below(L"a\\below"));
    MakeKey(m_own.Below(L"b"));
    StoreEmpty(L"value");
    EXPECT_EQ((Texts{L"a", L"b"}), Sorted(Keys(true, m_path)));
}

TEST_F(RegistryEnum, Values_AreThoseOfTheKeyItself)
{
    registry_test::Store(m_own.Below(L"key"), L"below", REG_NONE, "");
    StoreEmpty(L"a");
    StoreEmpty(L"b");
    EXPECT_EQ((Texts{L"a", L"b"}), Sorted(Values(true, m_path)));
}

TEST_F(RegistryEnum, Keys_ComeInThePlatformsOrder)
{
    for (const wchar_t* name : {L"m", L"B", L"a", L"\u00E4", L"Z", L"10", L"9"})
        MakeKey(m_own.Below(name));
    EXPECT_EQ(7u, Keys(true, m_path).size());
    EXPECT_EQ(InThePlatformsOrder(m_path, &::RegEnumKeyExW), Keys(true, m_path));
}

TEST_F(RegistryEnum, Values_ComeInThePlatformsOrder)
{
    for (const wchar_t* name : {L"m", L"B", L"a", L"\u00E4", L"Z", L"10", L"9"})
        StoreEmpty(name);
    EXPECT_EQ(7u, Values(true, m_path).size());
    EXPECT_EQ(InThePlatformsOrder(m_path, &::RegEnumValueW), Values(true, m_path));
}

TEST_F(RegistryEnum, UnicodeKeys_AreNamedExactly)
{
    const Texts names = {L"\u00DCber", L"\u30AD\u30FC", L"\xD83D\xDD11", L"\xDD11 unpaired"};
    for (const ustring& name : names)
        MakeKey(m_own.Below(name));
    EXPECT_EQ(Sorted(names), Sorted(Keys(true, m_path)));
}

TEST_F(RegistryEnum, UnicodeValues_AreNamedExactly)
{
    const Texts names = {L"\u00DCber", L"\u30AD\u30FC", L"\xD83D\xDD11", L"\xDD11 unpaired", L"with\\backslash"};
    for (const ustring& name : names)
        StoreEmpty(name);
    EXPECT_EQ(Sorted(names), Sorted(Values(true, m_path)));
}

TEST_F(RegistryEnum, KeyNameOf255Characters_IsNamedWhole)
{
    MakeKey(m_own.Below(std::wstring(255, L'k')));
    EXPECT_EQ(Texts{std::wstring(255, L'k')}, Keys(true, m_path));
}

TEST_F(RegistryEnum, ValueNameOf255Characters_IsNamedWhole)
{
    StoreEmpty(std::wstring(255, L'n'));
    EXPECT_EQ(Texts{std::wstring(255, L'n')}, Values(true, m_path));
}

// Its name has no room, and that is an error as any other.
TEST_F(RegistryEnum, ValueNameOf256Characters_EndsTheListWithTrue)
{
    StoreEmpty(L"a");
    StoreEmpty(std::wstring(256, L'b'));
    StoreEmpty(L"c");
    EXPECT_EQ(Texts{L"a"}, Values(true, m_path));
}

TEST_F(RegistryEnum, ShortNameAfterALongOne_IsNamedExactly)
{
    StoreEmpty(std::wstring(255, L'a'));
    StoreEmpty(L"b");
    StoreEmpty(std::wstring(254, L'c'));
    EXPECT_EQ((Texts{std::wstring(255, L'a'), L"b", std::wstring(254, L'c')}), Sorted(Values(true, m_path)));
}

TEST_F(RegistryEnum, KeysDefaultValue_HasTheEmptyName)
{
    Store(nullptr, REG_SZ, Utf16Sz(L"unnamed"));
    EXPECT_EQ(Texts{L""}, Values(true, m_path));
}

TEST_F(RegistryEnum, LargeValues_AreListedToo)
{
    Store(L"large", REG_BINARY, std::string(0x10000, 'x'));
    EXPECT_EQ(Texts{L"large"}, Values(true, m_path));
}

TEST_F(RegistryEnum, TenThousandValues_AreListedInThePlatformsOrder)
{
    const COpenKey key(m_path);
    for (int number = 0; number < 10000; ++number)
        ::RegSetValueExW(key, Numbered(L"v", number).c_str(), 0, REG_NONE, nullptr, 0);

    const Texts names = Values(true, m_path);
    EXPECT_TRUE(Numbers(L"v", 10000) == Sorted(names)) << names.size() << " names";
    EXPECT_TRUE(InThePlatformsOrder(m_path, &::RegEnumValueW) == names);
}

TEST_F(RegistryEnum, TwoThousandKeys_AreListedInThePlatformsOrder)
{
    const COpenKey parent(m_path);
    for (int number = 0; number < 2000; ++number)
    {
        HKEY key = nullptr;
        ::RegCreateKeyExW(parent, Numbered(L"k", number).c_str(), 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr);
        ::RegCloseKey(key);
    }

    const Texts names = Keys(true, m_path);
    EXPECT_TRUE(Numbers(L"k", 2000) == Sorted(names)) << names.size() << " names";
    EXPECT_TRUE(InThePlatformsOrder(m_path, &::RegEnumKeyExW) == names);
}

TEST_F(RegistryEnum, NullSubKey_IsTheRootItself)
{
    MakeKey(m_own.Below(L"key"));
    StoreEmpty(L"value");
    const COpenKey root(m_path);
    Texts keys, values;
    EXPECT_TRUE(RegEnumSubKeys(root, nullptr, keys));
    EXPECT_TRUE(RegEnumValues(root, nullptr, values));
    EXPECT_EQ(Texts{L"key"}, keys);
    EXPECT_EQ(Texts{L"value"}, values);
}

TEST_F(RegistryEnum, EmptySubKey_IsTheRootItself)
{
    MakeKey(m_own.Below(L"key"));
    StoreEmpty(L"value");
    const COpenKey root(m_path);
    Texts keys, values;
    EXPECT_TRUE(RegEnumSubKeys(root, L"", keys));
    EXPECT_TRUE(RegEnumValues(root, L"", values));
    EXPECT_EQ(Texts{L"key"}, keys);
    EXPECT_EQ(Texts{L"value"}, values);
}

TEST_F(RegistryEnum, OpenedKeyAsRoot_IsWhereTheSubKeyIsSought)
{
    MakeKey(m_own.Below(L"a\\b"));
    const COpenKey root(m_path);
    Texts keys;
    EXPECT_TRUE(RegEnumSubKeys(root, L"a", keys));
    EXPECT_EQ(Texts{L"b"}, keys);
}

TEST_F(RegistryEnum, SubKeyThatIsOneOfTheNames_IsListedInTheirPlace)
{
    const std::wstring below(200, L'k');
    MakeKey(m_own.Below(below + L"\\a"));
    registry_test::Store(m_own.Below(below), L"v", REG_NONE, "");
    const COpenKey root(m_path);
    Texts keys = {below}, values = {below};
    EXPECT_TRUE(RegEnumSubKeys(root, keys[0].c_str(), keys));
    EXPECT_TRUE(RegEnumValues(root, values[0].c_str(), values));
    EXPECT_EQ(Texts{L"a"}, keys);
    EXPECT_EQ(Texts{L"v"}, values);
}

TEST_F(RegistryEnum, MachineRoot_IsListedToo)
{
    Texts keys;
    EXPECT_TRUE(RegEnumSubKeys(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Microsoft", keys));
    EXPECT_EQ(1, std::count(keys.begin(), keys.end(), L"Windows NT"));
}

TEST_F(RegistryEnum, NoRoot_IsFalseWithoutNames)
{
    Texts keys = {L"before"}, values = {L"before"};
    EXPECT_FALSE(RegEnumSubKeys(nullptr, m_path, keys));
    EXPECT_FALSE(RegEnumValues(nullptr, m_path, values));
    EXPECT_EQ(Texts(), keys);
    EXPECT_EQ(Texts(), values);
}

TEST_F(RegistryEnum, Listing_ChangesNothing)
{
    MakeKey(m_own.Below(L"key"));
    StoreEmpty(L"value");
    const std::vector<std::string> before = Snapshot(m_path);
    Keys(true, m_path);
    Values(true, m_path);
    EXPECT_EQ(before, Snapshot(m_path));
}
