// What RegWriteValue and RegCreateKey leave in the registry.

#include "OwnKey.h"

using namespace vantor;
using namespace registry_test;

namespace
{
const HKEY User = HKEY_CURRENT_USER;

class RegistryWrite : public RegistryTest
{
};

class RegistryWriteNumber : public RegistryTest, public testing::WithParamInterface<unsigned long>
{
};

using RegistryCreate = RegistryWrite;
}   // namespace

// ---- Texts

TEST_F(RegistryWrite, Text_IsStoredWithItsTerminator)
{
    EXPECT_TRUE(RegWriteValue(User, m_path, L"v", L"text"));
    EXPECT_EQ((CStored{REG_SZ, Utf16Sz(L"text")}), Stored(L"v"));
}

TEST_F(RegistryWrite, EmptyText_IsTheTerminatorAlone)
{
    EXPECT_TRUE(RegWriteValue(User, m_path, L"v", L""));
    EXPECT_EQ((CStored{REG_SZ, std::string(2, '\0')}), Stored(L"v"));
}

TEST_F(RegistryWrite, NullText_IsTheEmptyText)
{
    EXPECT_TRUE(RegWriteValue(User, m_path, L"v", static_cast<const wchar_t*>(nullptr)));
    EXPECT_EQ((CStored{REG_SZ, std::string(2, '\0')}), Stored(L"v"));
}

TEST_F(RegistryWrite, TextWithPercentSigns_IsNoExpandableText)
{
    EXPECT_TRUE(RegWriteValue(User, m_path, L"v", L"%SystemRoot%"));
    EXPECT_EQ((CStored{REG_SZ, Utf16Sz(L"%SystemRoot%")}), Stored(L"v"));
}

TEST_F(RegistryWrite, UnicodeText_IsStoredAsItIs)
{
    EXPECT_TRUE(RegWriteValue(User, m_path, L"v", L"\u00E4\u30C6 \xD83D\xDCE1 \xDCE1"));
    EXPECT_EQ((CStored{REG_SZ, Utf16Sz(L"\u00E4\u30C6 \xD83D\xDCE1 \xDCE1")}), Stored(L"v"));
}

TEST_F(RegistryWrite, MegabyteText_IsStoredWhole)
{
    const std::wstring text(0x80000, L'x');
    EXPECT_TRUE(RegWriteValue(User, m_path, L"v", text.c_str()));
    EXPECT_TRUE(Utf16Sz(text) == Stored(L"v").bytes);
}

TEST_F(RegistryWrite, MegabyteText_IsReadBack)
{
    const std::wstring text(0x80000, L'x');
    RegWriteValue(User, m_path, L"v", text.c_str());
    ustring value;
    EXPECT_TRUE(RegGetValue(User, m_path, L"v", value, nullptr));
    EXPECT_TRUE(value == text);
}

TEST_F(RegistryWrite, Text_ReplacesANumber)
{
    Store(L"v", REG_DWORD, DwordBytes(7));
    EXPECT_TRUE(RegWriteValue(User, m_path, L"v", L"text"));
    EXPECT_EQ((CStored{REG_SZ, Utf16Sz(L"text")}), Stored(L"v"));
}

TEST_F(RegistryWrite, ShorterText_ReplacesALongerOne)
{
    Store(L"v", REG_SZ, Utf16Sz(L"a longer text"));
    EXPECT_TRUE(RegWriteValue(User, m_path, L"v", L"x"));
    EXPECT_EQ((CStored{REG_SZ, Utf16Sz(L"x")}), Stored(L"v"));
}

// ---- Numbers

TEST_P(RegistryWriteNumber, IsStoredIn4Bytes)
{
    EXPECT_TRUE(RegWriteValue(User, m_path, L"v", GetParam()));
    EXPECT_EQ((CStored{REG_DWORD, DwordBytes(GetParam())}), Stored(L"v"));
}

TEST_P(RegistryWriteNumber, IsReadBack)
{
    RegWriteValue(User, m_path, L"v", GetParam());
    unsigned long value = ~GetParam();
    EXPECT_TRUE(RegGetValue(User, m_path, L"v", value, ~GetParam()));
    EXPECT_EQ(GetParam(), value);
}

INSTANTIATE_TEST_SUITE_P(Limits, RegistryWriteNumber,
                         testing::Values(0UL, 1UL, 0x12345678UL, 0x7FFFFFFFUL, 0x80000000UL, 0xFFFFFFFFUL));

TEST_F(RegistryWrite, Number_ReplacesAText)
{
    Store(L"v", REG_SZ, Utf16Sz(L"text"));
    EXPECT_TRUE(RegWriteValue(User, m_path, L"v", 7UL));
    EXPECT_EQ((CStored{REG_DWORD, DwordBytes(7)}), Stored(L"v"));
}

// ---- Names and keys

TEST_F(RegistryWrite, MissingKeys_AreCreatedWithTheirParents)
{
    const std::wstring path = m_own.Below(L"a\\b\\c");
    EXPECT_TRUE(RegWriteValue(User, path.c_str(), L"v", L"text"));
    EXPECT_EQ((CStored{REG_SZ, Utf16Sz(L"text")}), registry_test::Stored(path, L"v"));
}

TEST_F(RegistryWrite, MissingKeyForANumber_IsCreated)
{
    EXPECT_TRUE(RegWriteValue(User, m_own.Below(L"a").c_str(), L"v", 7UL));
    EXPECT_EQ((CStored{REG_DWORD, DwordBytes(7)}), registry_test::Stored(m_own.Below(L"a"), L"v"));
}

TEST_F(RegistryWrite, NullName_IsTheKeysDefaultValue)
{
    EXPECT_TRUE(RegWriteValue(User, m_path, nullptr, L"unnamed"));
    EXPECT_EQ((CStored{REG_SZ, Utf16Sz(L"unnamed")}), Stored(nullptr));
}

TEST_F(RegistryWrite, EmptyName_IsTheKeysDefaultValue)
{
    EXPECT_TRUE(RegWriteValue(User, m_path, L"", 7UL));
    EXPECT_EQ((CStored{REG_DWORD, DwordBytes(7)}), Stored(nullptr));
}

TEST_F(RegistryWrite, NamesOf255UnicodeCharacters_AreWritten)
{
    const std::wstring path = m_own.Below(std::wstring(255, L'\u30AD'));
    const std::wstring name = std::wstring(253, L'\u0928') + L"\xD83C\xDFF7";
    EXPECT_TRUE(RegWriteValue(User, path.c_str(), name.c_str(), L"text"));
    EXPECT_EQ((CStored{REG_SZ, Utf16Sz(L"text")}), registry_test::Stored(path, name.c_str()));
}

TEST_F(RegistryWrite, EmptySubKey_IsTheRootItself)
{
    const COpenKey root(m_path);
    EXPECT_TRUE(RegWriteValue(root, L"", L"v", L"text"));
    EXPECT_EQ((CStored{REG_SZ, Utf16Sz(L"text")}), Stored(L"v"));
}

TEST_F(RegistryWrite, OpenedKeyAsRoot_IsWhereTheSubKeyIsMade)
{
    const COpenKey root(m_path);
    EXPECT_TRUE(RegWriteValue(root, L"a\\b", L"v", 7UL));
    EXPECT_EQ((CStored{REG_DWORD, DwordBytes(7)}), registry_test::Stored(m_own.Below(L"a\\b"), L"v"));
}

TEST_F(RegistryWrite, NoRoot_IsFalse)
{
    EXPECT_FALSE(RegWriteValue(nullptr, m_path, L"v", L"text"));
    EXPECT_FALSE(RegWriteValue(nullptr, m_path, L"v", 7UL));
    EXPECT_FALSE(KeyExists(m_path));
}

TEST_F(RegistryWrite, AllElse_StaysAsItIs)
{
    Store(L"a", REG_SZ, Utf16Sz(L"text"));
    Store(L"b", REG_BINARY, "bytes");
    registry_test::Store(m_own.Below(L"key"), L"v", REG_DWORD, DwordBytes(7));
    const std::vector<std::string> before = Snapshot(m_path);

    RegWriteValue(User, m_path, L"c", L"text");
    RegWriteValue(User, m_path, L"d", 7UL);
    const COpenKey key(m_path);
    ::RegDeleteValueW(key, L"c");
    ::RegDeleteValueW(key, L"d");
    EXPECT_EQ(before, Snapshot(m_path));
}

// ---- RegCreateKey

TEST_F(RegistryCreate, MissingKey_IsCreatedEmpty)
{
    EXPECT_TRUE(RegCreateKey(User, m_path));
    EXPECT_EQ(1u, Snapshot(m_path).size());
}

TEST_F(RegistryCreate, Parents_AreCreatedToo)
{
    EXPECT_TRUE(RegCreateKey(User, m_own.Below(L"a\\b\\c").c_str()));
    EXPECT_TRUE(KeyExists(m_own.Below(L"a\\b\\c")));
}

TEST_F(RegistryCreate, Twice_IsTrueTwice)
{
    EXPECT_TRUE(RegCreateKey(User, m_path));
    EXPECT_TRUE(RegCreateKey(User, m_path));
}

TEST_F(RegistryCreate, ExistingKey_KeepsWhatIsInIt)
{
    Store(L"v", REG_DWORD, DwordBytes(7));
    MakeKey(m_own.Below(L"a"));
    const std::vector<std::string> before = Snapshot(m_path);
    EXPECT_TRUE(RegCreateKey(User, m_path));
    EXPECT_EQ(before, Snapshot(m_path));
}

TEST_F(RegistryCreate, NameOf255Characters_IsCreated)
{
    EXPECT_TRUE(RegCreateKey(User, m_own.Below(std::wstring(255, L'k')).c_str()));
    EXPECT_TRUE(KeyExists(m_own.Below(std::wstring(255, L'k'))));
}

TEST_F(RegistryCreate, UnicodeName_IsCreated)
{
    EXPECT_TRUE(RegCreateKey(User, m_own.Below(L"\u00DCber \u30AD\u30FC \xD83D\xDD11").c_str()));
    EXPECT_TRUE(KeyExists(m_own.Below(L"\u00DCber \u30AD\u30FC \xD83D\xDD11")));
}

TEST_F(RegistryCreate, OpenedKeyAsRoot_IsWhereTheKeyIsMade)
{
    const COpenKey root(m_path);
    EXPECT_TRUE(RegCreateKey(root, L"a"));
    EXPECT_TRUE(KeyExists(m_own.Below(L"a")));
}

TEST_F(RegistryCreate, NoRoot_IsFalse)
{
    EXPECT_FALSE(RegCreateKey(nullptr, m_path));
    EXPECT_FALSE(KeyExists(m_path));
}
