// The single values, which have nothing to do with the font.

#include "OwnKey.h"

#include <vantor/LogFont.h>

#include <climits>
#include <cstring>

using namespace vantor;
using namespace registry_test;

namespace
{
LOGFONTW SomeRecord()
{
    LOGFONTW record;
    std::memset(&record, 0x55, sizeof record);
    return record;
}

class LogFontValues : public RegistryTest
{
protected:
    // No call of these tests touches the font.
    ~LogFontValues() override
    {
        const LOGFONTW record = SomeRecord();
        EXPECT_EQ(0, std::memcmp(&record, static_cast<LOGFONTW*>(m_font), sizeof record));
    }

    CLogFont m_font{SomeRecord()};
    const CLogFont& m_constant = m_font;
};

class LogFontNumber : public LogFontValues, public testing::WithParamInterface<int>
{
};
}   // namespace

TEST_P(LogFontNumber, IsWrittenAsItsBitPattern)
{
    EXPECT_TRUE(m_constant.WriteProfileInt(m_path, L"any name", GetParam()));
    EXPECT_EQ((CStored{REG_DWORD, DwordBytes(static_cast<unsigned long>(GetParam()))}), Stored(L"any name"));
}

TEST_P(LogFontNumber, IsRead)
{
    Store(L"any name", REG_DWORD, DwordBytes(static_cast<unsigned long>(GetParam())));
    EXPECT_EQ(GetParam(), m_constant.GetProfileInt(m_path, L"any name", 12345));
}

INSTANTIATE_TEST_SUITE_P(Limits, LogFontNumber, testing::Values(0, 1, -1, 1000, INT_MAX, INT_MIN));

TEST_F(LogFontValues, NumberOfAMissingKey_IsTheDefault)
{
    EXPECT_EQ(-5, m_constant.GetProfileInt(m_path, L"v", -5));
}

TEST_F(LogFontValues, NumberOfAMissingKey_DoesNotCreateIt)
{
    m_constant.GetProfileInt(m_path, L"v", -5);
    EXPECT_FALSE(KeyExists(m_path));
}

TEST_F(LogFontValues, MissingNumber_IsTheDefault)
{
    MakeKey(m_path);
    EXPECT_EQ(INT_MIN, m_constant.GetProfileInt(m_path, L"v", INT_MIN));
}

TEST_F(LogFontValues, NumberOfAnotherType_IsTheDefault)
{
    Store(L"v", REG_BINARY, DwordBytes(7));
    EXPECT_EQ(8, m_constant.GetProfileInt(m_path, L"v", 8));
}

TEST_F(LogFontValues, NameOfAField_IsANameAsAnyOther)
{
    EXPECT_TRUE(m_constant.WriteProfileInt(m_path, L"lfHeight", 7));
    EXPECT_EQ(7, m_constant.GetProfileInt(m_path, L"lfHeight", 8));
}

TEST_F(LogFontValues, Text_IsWrittenWithItsTerminator)
{
    EXPECT_TRUE(m_constant.WriteProfileString(m_path, L"any name", L"\u30AD text"));
    EXPECT_EQ((CStored{REG_SZ, Utf16Sz(L"\u30AD text")}), Stored(L"any name"));
}

TEST_F(LogFontValues, NullText_IsWrittenAsTheEmptyText)
{
    EXPECT_TRUE(m_constant.WriteProfileString(m_path, L"v", nullptr));
    EXPECT_EQ((CStored{REG_SZ, Utf16Sz(L"")}), Stored(L"v"));
}

TEST_F(LogFontValues, Text_IsRead)
{
    Store(L"any name", REG_SZ, Utf16Sz(L"\u30AD text"));
    EXPECT_EQ(L"\u30AD text", m_font.GetProfileString(m_path, L"any name", L"default"));
}

TEST_F(LogFontValues, TextLongerThanAFaceName_IsReadWhole)
{
    Store(L"lfFaceName", REG_SZ, Utf16Sz(std::wstring(1000, L'x')));
    EXPECT_EQ(ustring(std::wstring(1000, L'x')), m_font.GetProfileString(m_path, L"lfFaceName", L"default"));
}

TEST_F(LogFontValues, EmptyText_IsNotTheDefault)
{
    Store(L"v", REG_SZ, Utf16Sz(L""));
    EXPECT_EQ(L"", m_font.GetProfileString(m_path, L"v", L"default"));
}

TEST_F(LogFontValues, TextOfAMissingKey_IsTheDefault)
{
    EXPECT_EQ(L"default", m_font.GetProfileString(m_path, L"v", L"default"));
}

TEST_F(LogFontValues, TextOfAMissingKey_DoesNotCreateIt)
{
    m_font.GetProfileString(m_path, L"v", L"default");
    EXPECT_FALSE(KeyExists(m_path));
}

TEST_F(LogFontValues, TextOfAnotherType_IsTheDefault)
{
    Store(L"v", REG_DWORD, DwordBytes(7));
    EXPECT_EQ(L"default", m_font.GetProfileString(m_path, L"v", L"default"));
}

TEST_F(LogFontValues, NullDefault_IsTheEmptyText)
{
    EXPECT_EQ(L"", m_font.GetProfileString(m_path, L"v", nullptr));
}
