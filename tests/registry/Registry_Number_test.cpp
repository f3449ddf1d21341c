// Which values RegGetValue reads as a number, and what stands in their place otherwise.

#include "OwnKey.h"

using namespace vantor;
using namespace registry_test;

namespace
{
constexpr unsigned long Default = 0xDEFA;

class RegistryNumber : public RegistryTest
{
protected:
    unsigned long Read(bool expected, const wchar_t* path, const wchar_t* name) const
    {
        unsigned long value = 0xBEF0;
        EXPECT_EQ(expected, RegGetValue(HKEY_CURRENT_USER, path, name, value, Default));
        return value;
    }

    void ExpectDefaultFor(DWORD type, const std::string& bytes) const
    {
        Store(L"v", type, bytes);
        EXPECT_EQ(Default, Read(false, m_path, L"v"));
    }
};

class RegistryNumberLimit : public RegistryNumber, public testing::WithParamInterface<unsigned long>
{
};

class RegistryNumberType : public RegistryNumber, public testing::WithParamInterface<DWORD>
{
};
}   // namespace

TEST_F(RegistryNumber, MissingKey_IsFalseWithTheDefault)
{
    EXPECT_EQ(Default, Read(false, m_path, L"v"));
}

TEST_F(RegistryNumber, MissingKey_IsNotCreated)
{
    Read(false, m_path, L"v");
    EXPECT_FALSE(KeyExists(m_path));
}

TEST_F(RegistryNumber, MissingValue_IsFalseWithTheDefault)
{
    MakeKey(m_path);
    EXPECT_EQ(Default, Read(false, m_path, L"v"));
}

TEST_F(RegistryNumber, StoredNumber_ReplacesTheDefault)
{
    Store(L"v", REG_DWORD, std::string("\x78\x56\x34\x12", 4));
    EXPECT_EQ(0x12345678u, Read(true, m_path, L"v"));
}

TEST_P(RegistryNumberLimit, IsReadExactly)
{
    Store(L"v", REG_DWORD, DwordBytes(GetParam()));
    EXPECT_EQ(GetParam(), Read(true, m_path, L"v"));
}

INSTANTIATE_TEST_SUITE_P(Limits, RegistryNumberLimit,
                         testing::Values(0UL, 1UL, 0x7FFFFFFFUL, 0x80000000UL, 0xFFFFFFFFUL));

TEST_F(RegistryNumber, BinaryOf4Bytes_IsFalseWithTheDefault)
{
    ExpectDefaultFor(REG_BINARY, DwordBytes(7));
}

TEST_F(RegistryNumber, BigEndianNumber_IsFalseWithTheDefault)
{
    ExpectDefaultFor(REG_DWORD_BIG_ENDIAN, DwordBytes(7));
}

TEST_F(RegistryNumber, NumberOf64Bits_IsFalseWithTheDefault)
{
    ExpectDefaultFor(REG_QWORD, DwordBytes(7) + DwordBytes(0));
}

TEST_F(RegistryNumber, TextOfDigits_IsFalseWithTheDefault)
{
    ExpectDefaultFor(REG_SZ, Utf16Sz(L"7"));   // 4 bytes
}

TEST_P(RegistryNumberType, OfAnyOtherTypeIn4Bytes_IsFalseWithTheDefault)
{
    ExpectDefaultFor(GetParam(), DwordBytes(7));
}

INSTANTIATE_TEST_SUITE_P(Types, RegistryNumberType,
                         testing::Values(REG_NONE, REG_SZ, REG_EXPAND_SZ, REG_BINARY, REG_DWORD_BIG_ENDIAN, REG_LINK,
                                         REG_MULTI_SZ, REG_RESOURCE_LIST, REG_QWORD, 0x10004));

TEST_F(RegistryNumber, OfNoBytes_IsFalseWithTheDefault)
{
    ExpectDefaultFor(REG_DWORD, "");
}

TEST_F(RegistryNumber, Of1Byte_IsFalseWithTheDefault)
{
    ExpectDefaultFor(REG_DWORD, std::string("\x07", 1));
}

TEST_F(RegistryNumber, Of2Bytes_IsFalseWithTheDefault)
{
    ExpectDefaultFor(REG_DWORD, std::string("\x07\x00", 2));
}

TEST_F(RegistryNumber, Of3Bytes_IsFalseWithTheDefault)
{
    ExpectDefaultFor(REG_DWORD, std::string("\x07\x00\x00", 3));
}

TEST_F(RegistryNumber, Of5Bytes_IsFalseWithTheDefault)
{
    ExpectDefaultFor(REG_DWORD, std::string("\x07\x00\x00\x00\x00", 5));
}

TEST_F(RegistryNumber, Of8Bytes_IsFalseWithTheDefault)
{
    ExpectDefaultFor(REG_DWORD, DwordBytes(7) + DwordBytes(0));
}

TEST_F(RegistryNumber, NullName_IsTheKeysDefaultValue)
{
    Store(nullptr, REG_DWORD, DwordBytes(7));
    EXPECT_EQ(7u, Read(true, m_path, nullptr));
}

TEST_F(RegistryNumber, LongUnicodeNames_AreRead)
{
    const std::wstring path = m_own.Below(std::wstring(255, L'\u30AD'));
    const std::wstring name(255, L'\u0928');
    registry_test::Store(path, name.c_str(), REG_DWORD, DwordBytes(7));
    EXPECT_EQ(7u, Read(true, path.c_str(), name.c_str()));
}

TEST_F(RegistryNumber, NullSubKey_IsTheRootItself)
{
    Store(L"v", REG_DWORD, DwordBytes(7));
    const COpenKey root(m_path);
    unsigned long value = 0;
    EXPECT_TRUE(RegGetValue(root, nullptr, L"v", value, Default));
    EXPECT_EQ(7u, value);
}

TEST_F(RegistryNumber, NoRoot_IsFalseWithTheDefault)
{
    unsigned long value = 0;
    EXPECT_FALSE(RegGetValue(nullptr, m_path, L"v", value, Default));
    EXPECT_EQ(Default, value);
}
