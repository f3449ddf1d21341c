// Which values RegGetValue reads as bytes.

#include "OwnKey.h"

using namespace vantor;
using namespace registry_test;

namespace
{
class RegistryBinary : public RegistryTest
{
protected:
    Bytes Read(bool expected, const wchar_t* path, const wchar_t* name) const
    {
        Bytes data = {0xBE, 0xF0};
        EXPECT_EQ(expected, RegGetValue(HKEY_CURRENT_USER, path, name, data));
        return data;
    }

    void ExpectRead(const std::string& bytes) const
    {
        Store(L"v", REG_BINARY, bytes);
        EXPECT_TRUE(Bytes(bytes.begin(), bytes.end()) == Read(true, m_path, L"v"));
    }
};

class RegistryBinaryType : public RegistryBinary, public testing::WithParamInterface<DWORD>
{
};
}   // namespace

TEST_F(RegistryBinary, MissingKey_IsFalseAndEmpty)
{
    EXPECT_EQ(Bytes(), Read(false, m_path, L"v"));
}

TEST_F(RegistryBinary, MissingKey_IsNotCreated)
{
    Read(false, m_path, L"v");
    EXPECT_FALSE(KeyExists(m_path));
}

TEST_F(RegistryBinary, MissingValue_IsFalseAndEmpty)
{
    MakeKey(m_path);
    EXPECT_EQ(Bytes(), Read(false, m_path, L"v"));
}

TEST_F(RegistryBinary, EachByte_IsReadExactly)
{
    std::string bytes;
    for (int byte = 0; byte <= 255; ++byte)
        bytes.push_back(static_cast<char>(byte));
    ExpectRead(bytes);
}

TEST_F(RegistryBinary, OneByte_IsRead)
{
    ExpectRead("x");
}

TEST_F(RegistryBinary, NoBytes_AreReadAsNone)
{
    ExpectRead("");
}

TEST_F(RegistryBinary, NoBytes_ReplaceWhatWasThere)
{
    Store(L"v", REG_BINARY, "");
    EXPECT_EQ(Bytes(), Read(true, m_path, L"v"));
}

TEST_F(RegistryBinary, Megabyte_IsReadWhole)
{
    std::string bytes;
    for (unsigned i = 0; i < 0x100000; ++i)
        bytes.push_back(static_cast<char>(i * 7 % 251));
    ExpectRead(bytes);
}

TEST_P(RegistryBinaryType, OfAnyOtherType_IsFalseAndEmpty)
{
    Store(L"v", GetParam(), std::string("A\0\0\0", 4));
    EXPECT_EQ(Bytes(), Read(false, m_path, L"v"));
}

INSTANTIATE_TEST_SUITE_P(Types, RegistryBinaryType,
                         testing::Values(REG_NONE, REG_SZ, REG_EXPAND_SZ, REG_DWORD, REG_DWORD_BIG_ENDIAN, REG_LINK,
                                         REG_MULTI_SZ, REG_RESOURCE_LIST, REG_QWORD, 0x10003));

TEST_F(RegistryBinary, NullName_IsTheKeysDefaultValue)
{
    Store(nullptr, REG_BINARY, "x");
    EXPECT_EQ(Bytes{'x'}, Read(true, m_path, nullptr));
}

TEST_F(RegistryBinary, LongUnicodeNames_AreRead)
{
    const std::wstring path = m_own.Below(std::wstring(255, L'\u30AD'));
    const std::wstring name(255, L'\u0928');
    registry_test::Store(path, name.c_str(), REG_BINARY, "x");
    EXPECT_EQ(Bytes{'x'}, Read(true, path.c_str(), name.c_str()));
}

TEST_F(RegistryBinary, EmptySubKey_IsTheRootItself)
{
    Store(L"v", REG_BINARY, "x");
    const COpenKey root(m_path);
    Bytes data;
    EXPECT_TRUE(RegGetValue(root, L"", L"v", data));
    EXPECT_EQ(Bytes{'x'}, data);
}

TEST_F(RegistryBinary, NoRoot_IsFalseAndEmpty)
{
    Bytes data = {1, 2, 3};
    EXPECT_FALSE(RegGetValue(nullptr, m_path, L"v", data));
    EXPECT_EQ(Bytes(), data);
}
