// What a line is.

#include "IniModel.h"
#include "support/Print.h"

#include <vantor/IniFile.h>

#include <gtest/gtest.h>

using namespace vantor;
using namespace settings_test;

namespace
{
struct CLine
{
    explicit CLine(const std::wstring& line) : name(L"left from before"), value(L"left from before")
    {
        type = CIniFile::TranslateSection(line, name, value);
    }

    bool IsHeader(const wchar_t* wanted) const { return type == CIniFile::eSection && name == wanted && value.empty(); }

    bool IsEntry(const wchar_t* key, const wchar_t* wanted) const
    {
        return type == CIniFile::eEntry && name == key && value == wanted;
    }

    CIniFile::EType type;
    ustring name, value;
};

std::wstring Visible(const std::wstring& line)
{
    std::wstring text;
    for (const wchar_t ch : line)
        text += ch == 0 ? L'0' : ch;
    return text;
}
}   // namespace

TEST(IniFileTranslateSection, TheTypesAreNumberedFromZero)
{
    EXPECT_EQ(0, CIniFile::eSection);
    EXPECT_EQ(1, CIniFile::eEntry);
    EXPECT_EQ(2, CIniFile::eOther);
}

TEST(IniFileTranslateSection, Header_HasTheNameBetweenTheBracketsAndNoValue)
{
    EXPECT_TRUE(CLine(L"[name]").IsHeader(L"name"));
}

TEST(IniFileTranslateSection, Header_BlanksOfTheNameAreKept)
{
    EXPECT_TRUE(CLine(L"[ name ]").IsHeader(L" name "));
}

TEST(IniFileTranslateSection, Header_TheNameMayBeEmpty)
{
    EXPECT_TRUE(CLine(L"[]").IsHeader(L""));
}

TEST(IniFileTranslateSection, Header_TheNameMayHoldAnEqualsSign)
{
    EXPECT_TRUE(CLine(L"[a=b]").IsHeader(L"a=b"));
}

TEST(IniFileTranslateSection, Header_TextAroundIsIgnored)
{
    EXPECT_TRUE(CLine(L"x[y]z").IsHeader(L"y"));
}

TEST(IniFileTranslateSection, Header_ComesBeforeAnEntry)
{
    EXPECT_TRUE(CLine(L"a=[b]").IsHeader(L"b"));
}

TEST(IniFileTranslateSection, Header_TheFirstBracketsCount)
{
    EXPECT_TRUE(CLine(L"[a][b]").IsHeader(L"a"));
    EXPECT_TRUE(CLine(L"[a]]").IsHeader(L"a"));
    EXPECT_TRUE(CLine(L"[[a]").IsHeader(L"[a"));
}

TEST(IniFileTranslateSection, Header_ACommentBehindIsIgnored)
{
    EXPECT_TRUE(CLine(L"[a] ; [b]").IsHeader(L"a"));
}

TEST(IniFileTranslateSection, BracketsTheWrongWayRound_AreAnEntry)
{
    EXPECT_TRUE(CLine(L"]x[").IsEntry(L"]x[", L""));
}

TEST(IniFileTranslateSection, ABracketBeforeThePair_MakesAnEntry)
{
    EXPECT_TRUE(CLine(L"]x[y]=z").IsEntry(L"]x[y]", L"z"));
}

TEST(IniFileTranslateSection, OneBracketAlone_MakesAnEntry)
{
    EXPECT_TRUE(CLine(L"[a=b").IsEntry(L"[a", L"b"));
    EXPECT_TRUE(CLine(L"a]=b").IsEntry(L"a]", L"b"));
}

TEST(IniFileTranslateSection, ACommentedHeader_IsAnEntryWithoutAKey)
{
    EXPECT_TRUE(CLine(L";[a]").IsEntry(L"", L""));
}

TEST(IniFileTranslateSection, AHeaderWithACommentInside_IsAnEntry)
{
    EXPECT_TRUE(CLine(L"[a;b]").IsEntry(L"[a", L""));
}

TEST(IniFileTranslateSection, Entry_HasAKeyAndAValue)
{
    EXPECT_TRUE(CLine(L"key=value").IsEntry(L"key", L"value"));
}

TEST(IniFileTranslateSection, Entry_BlanksAreKept)
{
    EXPECT_TRUE(CLine(L" key = value ").IsEntry(L" key ", L" value "));
    EXPECT_TRUE(CLine(L"\tkey\t=\tvalue\t").IsEntry(L"\tkey\t", L"\tvalue\t"));
}

TEST(IniFileTranslateSection, Entry_WithoutEqualsSign_HasAnEmptyValue)
{
    EXPECT_TRUE(CLine(L"key").IsEntry(L"key", L""));
}

TEST(IniFileTranslateSection, Entry_WithNothingBehindTheEqualsSign_HasAnEmptyValue)
{
    EXPECT_TRUE(CLine(L"key=").IsEntry(L"key", L""));
}

TEST(IniFileTranslateSection, Entry_WithNothingBeforeTheEqualsSign_HasAnEmptyKey)
{
    EXPECT_TRUE(CLine(L"=value").IsEntry(L"", L"value"));
}

TEST(IniFileTranslateSection, Entry_OfEqualsSignsAlone_IsEmpty)
{
    EXPECT_TRUE(CLine(L"=").IsEntry(L"", L""));
    EXPECT_TRUE(CLine(L"===").IsEntry(L"", L""));
}

TEST(IniFileTranslateSection, Entry_TheValueEndsAtTheSecondEqualsSign)
{
    EXPECT_TRUE(CLine(L"k=a=b").IsEntry(L"k", L"a"));
    EXPECT_TRUE(CLine(L"k==b").IsEntry(L"k", L""));
}

TEST(IniFileTranslateSection, Entry_ACommentEndsTheValue)
{
    EXPECT_TRUE(CLine(L"k=v ;note").IsEntry(L"k", L"v "));
}

TEST(IniFileTranslateSection, Entry_ACommentEndsTheKey)
{
    EXPECT_TRUE(CLine(L"k;=v").IsEntry(L"k", L""));
}

TEST(IniFileTranslateSection, Entry_QuotesMeanNothing)
{
    EXPECT_TRUE(CLine(L"k=\"a;b\"").IsEntry(L"k", L"\"a"));
}

TEST(IniFileTranslateSection, BlankLine_IsAnEntryWithoutAKey)
{
    EXPECT_TRUE(CLine(L"").IsEntry(L"", L""));
}

TEST(IniFileTranslateSection, CommentLine_IsAnEntryWithoutAKey)
{
    EXPECT_TRUE(CLine(L"; k=v").IsEntry(L"", L""));
}

TEST(IniFileTranslateSection, LineThatMeansNothing_IsAnEntryWithAKey)
{
    EXPECT_TRUE(CLine(L"some words").IsEntry(L"some words", L""));
}

TEST(IniFileTranslateSection, NulInAHeader_IsKeptInTheName)
{
    const CLine line(std::wstring(L"[a\0b]", 5));

    EXPECT_EQ(CIniFile::eSection, line.type);
    EXPECT_TRUE(line.name == std::wstring(L"a\0b", 3));
}

TEST(IniFileTranslateSection, NulInAnEntry_EndsIt)
{
    EXPECT_TRUE(CLine(std::wstring(L"k=v\0=w", 6)).IsEntry(L"k", L"v"));
    EXPECT_TRUE(CLine(std::wstring(L"k\0=v", 4)).IsEntry(L"k", L""));
}

TEST(IniFileTranslateSection, TheNameMayBeTheLine)
{
    ustring line = L"k=v", value;

    CIniFile::TranslateSection(line, line, value);

    EXPECT_EQ(L"k", line);
    EXPECT_EQ(L"v", value);
}

TEST(IniFileTranslateSection, TheValueMayBeTheLine)
{
    ustring line = L"k=v", name;

    CIniFile::TranslateSection(line, name, line);

    EXPECT_EQ(L"k", name);
    EXPECT_EQ(L"v", line);
}

TEST(IniFileTranslateSection, TheNameOfAHeaderMayBeTheLine)
{
    ustring line = L"x[name]", value = L"old";

    CIniFile::TranslateSection(line, line, value);

    EXPECT_EQ(L"name", line);
    EXPECT_EQ(L"", value);
}

TEST(IniFileTranslateSection, AllShortLines_AreHeadersOrEntries)
{
    constexpr wchar_t letters[] = {L'[', L']', L';', L'=', L' ', L'a', 0};
    std::vector<std::wstring> lines(1);
    for (std::size_t i = 0; i < lines.size(); ++i)
    {
        const std::wstring line = lines[i];
        const CClassified wanted = Classify(line);
        ustring name, value;
        const CIniFile::EType type = CIniFile::TranslateSection(line, name, value);
        ASSERT_EQ(wanted.header ? CIniFile::eSection : CIniFile::eEntry, type) << testing::PrintToString(Visible(line));
        ASSERT_TRUE(name == wanted.name) << testing::PrintToString(Visible(line));
        ASSERT_TRUE(value == wanted.value) << testing::PrintToString(Visible(line));
        if (line.size() == 6)
            continue;
        for (const wchar_t letter : letters)
            lines.push_back(line + letter);
    }
    EXPECT_EQ(137257u, lines.size());   // 7^0 + ... + 7^6
}
