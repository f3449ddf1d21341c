// The text that comes of the bytes which a string value holds: programs store it with one terminator, with several,
// with none, or cut in the middle of a character.

#include "OwnKey.h"

using namespace vantor;
using namespace registry_test;

namespace
{
class RegistryTexts : public RegistryTest
{
protected:
    ustring Read(DWORD type, const std::string& bytes) const
    {
        Store(L"v", type, bytes);
        ustring value = L"before";
        EXPECT_TRUE(RegGetValue(HKEY_CURRENT_USER, m_path, L"v", value, L"default"));
        EXPECT_EQ(L'\0', value.c_str()[value.size()]);
        return value;
    }
};

// Bytes of which the last one is half a character.
std::string OddBytes(std::size_t size)
{
    return Utf16(std::wstring(size / 2, L'x')) + 'y';
}
}   // namespace

TEST_F(RegistryTexts, WithTerminator)
{
    EXPECT_EQ(L"text", Read(REG_SZ, Utf16Sz(L"text")));
}

TEST_F(RegistryTexts, WithoutTerminator)
{
    EXPECT_EQ(L"text", Read(REG_SZ, Utf16(L"text")));
}

TEST_F(RegistryTexts, ExpandableWithoutTerminator)
{
    EXPECT_EQ(L"%text%", Read(REG_EXPAND_SZ, Utf16(L"%text%")));
}

TEST_F(RegistryTexts, OneCharacterWithoutTerminator)
{
    EXPECT_EQ(L"x", Read(REG_SZ, Utf16(L"x")));
}

TEST_F(RegistryTexts, SeveralTerminators)
{
    EXPECT_EQ(L"text", Read(REG_SZ, Utf16Sz(L"text") + std::string(6, '\0')));
}

TEST_F(RegistryTexts, EmbeddedNul_EndsTheText)
{
    EXPECT_EQ(L"one", Read(REG_SZ, Utf16Sz(L"one") + Utf16Sz(L"two")));
}

TEST_F(RegistryTexts, EmbeddedNulWithoutTerminator_EndsTheText)
{
    EXPECT_EQ(L"one", Read(REG_SZ, Utf16Sz(L"one") + Utf16(L"two")));
}

TEST_F(RegistryTexts, NulAtTheStart_IsTheEmptyText)
{
    EXPECT_EQ(L"", Read(REG_SZ, Utf16Sz(L"") + Utf16Sz(L"two")));
}

TEST_F(RegistryTexts, TerminatorAlone_IsTheEmptyText)
{
    EXPECT_EQ(L"", Read(REG_SZ, Utf16Sz(L"")));
}

TEST_F(RegistryTexts, NoBytes_AreTheEmptyTextAndNotTheDefault)
{
    EXPECT_EQ(L"", Read(REG_SZ, ""));
}

TEST_F(RegistryTexts, NoBytesExpandable_AreTheEmptyText)
{
    EXPECT_EQ(L"", Read(REG_EXPAND_SZ, ""));
}

TEST_F(RegistryTexts, OneByte_IsTheEmptyText)
{
    EXPECT_EQ(L"", Read(REG_SZ, OddBytes(1)));
}

TEST_F(RegistryTexts, ThreeBytes_AreOneCharacter)
{
    EXPECT_EQ(L"x", Read(REG_SZ, OddBytes(3)));
}

TEST_F(RegistryTexts, FiveBytes_AreTwoCharacters)
{
    EXPECT_EQ(L"xx", Read(REG_SZ, OddBytes(5)));
}

TEST_F(RegistryTexts, ThreeBytesOfWhichTheLastIsNul_AreOneCharacter)
{
    EXPECT_EQ(L"x", Read(REG_SZ, std::string("x\0\0", 3)));
}

// Room for a text grows in steps: each of these sizes may end exactly where its room ends.
TEST_F(RegistryTexts, OddSizesUpTo101Bytes_LoseTheHalfCharacter)
{
    for (std::size_t size = 7; size <= 101; size += 2)
        EXPECT_EQ(ustring(std::wstring(size / 2, L'x')), Read(REG_SZ, OddBytes(size))) << size << " bytes";
}

TEST_F(RegistryTexts, Megabyte_IsReadWhole)
{
    std::wstring text;
    for (unsigned i = 0; i < 0x7FFFF; ++i)
        text += static_cast<wchar_t>(L'!' + i % 0xD000);
    EXPECT_TRUE(ustring(text) == Read(REG_SZ, Utf16Sz(text)));
}

TEST_F(RegistryTexts, MegabyteWithoutTerminator_IsReadWhole)
{
    const std::wstring text(0x80000, L'x');
    EXPECT_TRUE(ustring(text) == Read(REG_SZ, Utf16(text)));
}

TEST_F(RegistryTexts, MegabyteLessHalfACharacter_IsReadWithoutIt)
{
    EXPECT_TRUE(ustring(std::wstring(0x7FFFF, L'x')) == Read(REG_SZ, OddBytes(0xFFFFF)));
}

TEST_F(RegistryTexts, UnicodeText_IsReadAsItIs)
{
    EXPECT_EQ(L"\u00E4\u20AC\u30C6\u0939 \xD83D\xDCE1",
              Read(REG_SZ, Utf16Sz(L"\u00E4\u20AC\u30C6\u0939 \xD83D\xDCE1")));
}

TEST_F(RegistryTexts, UnpairedSurrogate_IsReadAsItIs)
{
    EXPECT_EQ(L"a\xDCE1\xD83D", Read(REG_SZ, Utf16Sz(L"a\xDCE1\xD83D")));
}

TEST_F(RegistryTexts, LongerTextBefore_LeavesNothingBehind)
{
    Store(L"v", REG_SZ, Utf16Sz(L"new"));
    ustring value(std::wstring(1000, L'o'));
    EXPECT_TRUE(RegGetValue(HKEY_CURRENT_USER, m_path, L"v", value, std::wstring(2000, L'd').c_str()));
    EXPECT_EQ(L"new", value);
}
