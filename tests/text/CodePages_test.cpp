// Against tables that iconv made (data/make_codepages.py).

#include "support/Print.h"

#include <vantor/Strings.h>

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

using vantor::ustring;

namespace
{
using Pairs = std::vector<std::pair<std::string, std::wstring>>;

unsigned int Hex(const std::string& digits)
{
    return static_cast<unsigned int>(std::stoul(digits, nullptr, 16));
}

// One row's pairs: all cells of a row of a "page" section, or the one pair of a line of a "pairs" section.
void AddRow(const std::string& line, bool isPage, std::size_t row, Pairs& pairs)
{
    std::istringstream words(line);
    std::string word;
    if (isPage)
    {
        for (std::size_t cell = 0; words >> word; ++cell)
        {
            if (word != "----")
            {
                pairs.emplace_back(std::string(1, static_cast<char>(row * 16 + cell)),
                                   std::wstring(1, static_cast<wchar_t>(Hex(word))));
            }
        }
        return;
    }
    words >> word;
    std::string bytes;
    for (std::size_t pos = 0; pos < word.size(); pos += 2)
        bytes += static_cast<char>(Hex(word.substr(pos, 2)));
    words >> word;
    std::wstring units;
    for (std::size_t pos = 0; pos < word.size(); pos += 4)
        units += static_cast<wchar_t>(Hex(word.substr(pos, 4)));
    pairs.emplace_back(bytes, units);
}

Pairs ReadTable(unsigned int codePage)
{
    const std::string number = std::to_string(codePage);
    Pairs pairs;
    std::ifstream file(VANTOR_TEST_DATA "/data/codepages.txt");
    bool isPage = false;
    bool inside = false;
    std::size_t row = 0;
    for (std::string line; std::getline(file, line);)
    {
        if (line.front() == 'p')
        {
            isPage = line == "page " + number;
            inside = isPage || line == "pairs " + number;
            row = 0;
        }
        else if (inside)
        {
            AddRow(line, isPage, row++, pairs);
        }
    }
    return pairs;
}

class CodePage : public testing::TestWithParam<unsigned int>
{
protected:
    const Pairs m_pairs = ReadTable(GetParam());
    std::string m_bytes;   // all of the table, one behind the other
    std::wstring m_units;

    void SetUp() override
    {
        ASSERT_FALSE(m_pairs.empty()) << "no table of this page";
        for (const auto& [bytes, units] : m_pairs)
        {
            m_bytes += bytes;
            m_units += units;
        }
    }
};
}   // namespace

TEST_P(CodePage, Bytes_BecomeTheTablesCharacters)
{
    for (const auto& [bytes, units] : m_pairs)
    {
        EXPECT_EQ(ustring::MultiByteToWideChar(bytes, GetParam(), 0), units)
            << std::hex << static_cast<unsigned int>(static_cast<unsigned char>(bytes[0]));
    }
}

TEST_P(CodePage, Characters_BecomeTheTablesBytes)
{
    for (const auto& [bytes, units] : m_pairs)
    {
        EXPECT_EQ(ustring::WideCharToMultiByte(ustring(units), GetParam(), 0), bytes)
            << std::hex << static_cast<unsigned int>(units[0]);
    }
}

TEST_P(CodePage, LongText_IsConvertedWhole)
{
    EXPECT_EQ(ustring::MultiByteToWideChar(m_bytes, GetParam(), 0), m_units);
    EXPECT_EQ(ustring::WideCharToMultiByte(ustring(m_units), GetParam(), 0), m_bytes);
}

INSTANTIATE_TEST_SUITE_P(Tables, CodePage,
                         testing::Values(437, 850, 852, 866, 932, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258,
                                         20866, 28591, 28592, 28594, 28595, 28599, 28605, 65001),
                         testing::PrintToStringParamName());

TEST(CodePages, ToWideUpToTheTerminator_IsWithoutIt)
{
    const ustring text = ustring::MultiByteToWideChar("abc", 0xFFFFFFFF, 1252, 0);
    EXPECT_EQ(text.size(), 3u);
    EXPECT_EQ(text, L"abc");
}

TEST(CodePages, ToNarrowUpToTheTerminator_IsWithoutIt)
{
    const std::string text = ustring::WideCharToMultiByte(L"abc", 0xFFFFFFFF, 1252, 0);
    EXPECT_EQ(text.size(), 3u);
    EXPECT_EQ(text, "abc");
}

TEST(CodePages, LengthOfMinusOne_MeansUpToTheTerminator)
{
    EXPECT_EQ(ustring::MultiByteToWideChar("abc", static_cast<unsigned int>(-1), CP_UTF8, 0), L"abc");
}

TEST(CodePages, EmptyTextUpToTheTerminator_IsEmpty)
{
    EXPECT_EQ(ustring::MultiByteToWideChar("", 0xFFFFFFFF, 1252, 0).size(), 0u);
    EXPECT_EQ(ustring::WideCharToMultiByte(L"", 0xFFFFFFFF, 1252, 0).size(), 0u);
}

TEST(CodePages, LengthOfZero_GivesNothing)
{
    EXPECT_EQ(ustring::MultiByteToWideChar("abc", 0, 1252, 0), L"");
    EXPECT_EQ(ustring::WideCharToMultiByte(L"abc", 0, 1252, 0), "");
}

TEST(CodePages, EmptyStrings_GiveNothing)
{
    EXPECT_EQ(ustring::MultiByteToWideChar(std::string(), 1252, 0), L"");
    EXPECT_EQ(ustring::WideCharToMultiByte(ustring(), 1252, 0), "");
}

TEST(CodePages, LengthToWide_CountsBytes)
{
    EXPECT_EQ(ustring::MultiByteToWideChar("\xC3\xA4"
                                           "bc",
                                           3, CP_UTF8, 0),
              L"\u00E4b");
}

TEST(CodePages, LengthToNarrow_CountsCharacters)
{
    EXPECT_EQ(ustring::WideCharToMultiByte(L"\u00E4\u00F6\u00FC", 2, CP_UTF8, 0), "\xC3\xA4\xC3\xB6");
}

TEST(CodePages, LengthWithTheTerminator_KeepsIt)
{
    EXPECT_EQ(ustring::MultiByteToWideChar("abc", 4, 1252, 0).size(), 4u);
    EXPECT_EQ(ustring::WideCharToMultiByte(L"abc", 4, 1252, 0).size(), 4u);
}

TEST(CodePages, NulInside_IsConvertedLikeOthers)
{
    const std::string bytes("a\0\xE4", 3);
    const std::wstring units(L"a\0\u00E4", 3);
    EXPECT_EQ(ustring::MultiByteToWideChar(bytes, 1252, 0), units);
    EXPECT_EQ(ustring::WideCharToMultiByte(ustring(units), 1252, 0), bytes);
}

TEST(CodePages, InvalidUtf8_WithTheFlagGivesNothing)
{
    EXPECT_EQ(ustring::MultiByteToWideChar(std::string("ab\xFFz"), CP_UTF8, MB_ERR_INVALID_CHARS), L"");
}

TEST(CodePages, OverlongUtf8_WithTheFlagGivesNothing)
{
    EXPECT_EQ(ustring::MultiByteToWideChar(std::string("ab\xC0\x80"), CP_UTF8, MB_ERR_INVALID_CHARS), L"");
}

TEST(CodePages, TruncatedUtf8_WithTheFlagGivesNothing)
{
    EXPECT_EQ(ustring::MultiByteToWideChar(std::string("ab\xE2\x82"), CP_UTF8, MB_ERR_INVALID_CHARS), L"");
}

TEST(CodePages, LoneLeadByte_WithTheFlagGivesNothing)
{
    EXPECT_EQ(ustring::MultiByteToWideChar(std::string("ab\x81"), 932, MB_ERR_INVALID_CHARS), L"");
}

TEST(CodePages, ValidUtf8_WithTheFlagIsConverted)
{
    EXPECT_EQ(ustring::MultiByteToWideChar(std::string("\xC3\xA4"), CP_UTF8, MB_ERR_INVALID_CHARS), L"\u00E4");
}

TEST(CodePages, InvalidUtf8_WithoutTheFlagKeepsItsNeighbours)
{
    const ustring text = ustring::MultiByteToWideChar(std::string("ab\xFFz"), CP_UTF8, 0);
    EXPECT_EQ(text.find(L"ab"), 0u);
    EXPECT_EQ(text.substr(text.size() - 1), L"z");
}

TEST(CodePages, LoneSurrogate_WithTheFlagGivesNothing)
{
    EXPECT_EQ(ustring::WideCharToMultiByte(ustring(L"ab\xD800"), CP_UTF8, WC_ERR_INVALID_CHARS), "");
}

TEST(CodePages, UnknownCodePage_GivesNothing)
{
    EXPECT_EQ(ustring::MultiByteToWideChar(std::string("abc"), 64999, 0), L"");
    EXPECT_EQ(ustring::WideCharToMultiByte(ustring(L"abc"), 64999, 0), "");
}

TEST(CodePages, UnknownFlags_GiveNothing)
{
    EXPECT_EQ(ustring::MultiByteToWideChar(std::string("abc"), 1252, 0x80000000), L"");
}

TEST(CodePages, NullText_GivesNothing)
{
    EXPECT_EQ(ustring::MultiByteToWideChar(nullptr, 0xFFFFFFFF, 1252, 0), L"");
    EXPECT_EQ(ustring::WideCharToMultiByte(nullptr, 0xFFFFFFFF, 1252, 0), "");
}
