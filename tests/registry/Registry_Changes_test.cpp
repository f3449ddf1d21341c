// Values that another program changes after their type and size are known and before the data is read.

#include "Calls.h"
#include "OwnKey.h"

using namespace vantor;
using namespace registry_test;

namespace
{
const HKEY User = HKEY_CURRENT_USER;

class RegistryChanges : public RegistryTest
{
protected:
    // Stores the second value between the two reads of the first.
    void StoreMeanwhile(DWORD type, const std::string& first, const std::string& second)
    {
        Store(L"v", type, first);
        m_calls.After("RegQueryValueEx", 1, [=] { Store(L"v", type, second); });
    }

    void DeleteMeanwhile(DWORD type, const std::string& bytes)
    {
        Store(L"v", type, bytes);
        m_calls.After("RegQueryValueEx", 1,
                      [this]
                      {
                          const COpenKey key(m_path);
                          EXPECT_EQ(ERROR_SUCCESS, ::RegDeleteValueW(key, L"v"));
                      });
    }

    CCalls m_calls;
};
}   // namespace

TEST_F(RegistryChanges, TextThatGrows_IsFalse)
{
    StoreMeanwhile(REG_SZ, Utf16Sz(L"short"), Utf16Sz(L"a longer text"));
    ustring value;
    EXPECT_FALSE(RegGetValue(User, m_path, L"v", value, L"default"));
}

TEST_F(RegistryChanges, TextThatGrowsByHalfACharacter_IsFalse)
{
    StoreMeanwhile(REG_SZ, Utf16(L"text"), Utf16(L"text") + 'x');
    ustring value;
    EXPECT_FALSE(RegGetValue(User, m_path, L"v", value, L"default"));
}

TEST_F(RegistryChanges, NoBytesOfTextThatGrow_AreFalse)
{
    StoreMeanwhile(REG_SZ, "", Utf16Sz(L"text"));
    ustring value;
    EXPECT_FALSE(RegGetValue(User, m_path, L"v", value, L"default"));
}

TEST_F(RegistryChanges, TextThatShrinks_IsReadWithoutARest)
{
    StoreMeanwhile(REG_SZ, Utf16Sz(L"a longer text"), Utf16Sz(L"short"));
    ustring value;
    EXPECT_TRUE(RegGetValue(User, m_path, L"v", value, L"default"));
    EXPECT_EQ(L"short", value);
}

TEST_F(RegistryChanges, TextThatShrinksAndLosesItsTerminator_IsReadWithoutARest)
{
    StoreMeanwhile(REG_SZ, Utf16Sz(L"a longer text"), Utf16(L"short"));
    ustring value;
    EXPECT_TRUE(RegGetValue(User, m_path, L"v", value, L"default"));
    EXPECT_EQ(L"short", value);
}

TEST_F(RegistryChanges, TextThatShrinksToNoBytes_IsTheEmptyText)
{
    StoreMeanwhile(REG_SZ, Utf16Sz(L"a longer text"), "");
    ustring value;
    EXPECT_TRUE(RegGetValue(User, m_path, L"v", value, L"default"));
    EXPECT_EQ(L"", value);
}

TEST_F(RegistryChanges, TextThatIsDeleted_IsFalse)
{
    DeleteMeanwhile(REG_SZ, Utf16Sz(L"text"));
    ustring value;
    EXPECT_FALSE(RegGetValue(User, m_path, L"v", value, L"default"));
}

TEST_F(RegistryChanges, NumberThatIsDeleted_IsFalse)
{
    DeleteMeanwhile(REG_DWORD, DwordBytes(7));
    unsigned long value = 0;
    EXPECT_FALSE(RegGetValue(User, m_path, L"v", value, 8));
}

TEST_F(RegistryChanges, NumberThatGrows_IsFalse)
{
    StoreMeanwhile(REG_DWORD, DwordBytes(7), DwordBytes(7) + DwordBytes(0));
    unsigned long value = 0;
    EXPECT_FALSE(RegGetValue(User, m_path, L"v", value, 8));
}

TEST_F(RegistryChanges, NumberThatGetsANewValue_IsThatValue)
{
    StoreMeanwhile(REG_DWORD, DwordBytes(7), DwordBytes(9));
    unsigned long value = 0;
    EXPECT_TRUE(RegGetValue(User, m_path, L"v", value, 8));
    EXPECT_EQ(9u, value);
}

TEST_F(RegistryChanges, BytesThatGrow_AreFalse)
{
    StoreMeanwhile(REG_BINARY, "short", "a longer one");
    Bytes data;
    EXPECT_FALSE(RegGetValue(User, m_path, L"v", data));
}

TEST_F(RegistryChanges, NoBytesThatGrow_AreFalse)
{
    StoreMeanwhile(REG_BINARY, "", "bytes");
    Bytes data;
    EXPECT_FALSE(RegGetValue(User, m_path, L"v", data));
}

TEST_F(RegistryChanges, BytesThatShrink_AreAsManyAsTheSecondReadReports)
{
    StoreMeanwhile(REG_BINARY, "a longer one", "few");
    Bytes data;
    EXPECT_TRUE(RegGetValue(User, m_path, L"v", data));
    EXPECT_EQ((Bytes{'f', 'e', 'w'}), data);
}

TEST_F(RegistryChanges, BytesThatShrinkToNone_AreNone)
{
    StoreMeanwhile(REG_BINARY, "bytes", "");
    Bytes data = {1};
    EXPECT_TRUE(RegGetValue(User, m_path, L"v", data));
    EXPECT_EQ(Bytes(), data);
}

TEST_F(RegistryChanges, BytesThatAreDeleted_AreFalse)
{
    DeleteMeanwhile(REG_BINARY, "bytes");
    Bytes data;
    EXPECT_FALSE(RegGetValue(User, m_path, L"v", data));
}
