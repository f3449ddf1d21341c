// What a language file looks like, byte for byte, and which texts come back from it unchanged.

#include "support/Print.h"
#include "support/TempFolder.h"

#include <vantor/Translator.h>

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

using namespace vantor;
using support::CTempFolder;
using support::ReadBytes;
using support::Utf16;

namespace
{
std::string Marked(const std::wstring& text)
{
    return "\xFF\xFE" + Utf16(text);
}

// Loads a file with this text after the mark.
CLanguageFile Loaded(const std::wstring& text)
{
    const CTempFolder folder;
    CLanguageFile file;
    EXPECT_TRUE(file.LoadLanguageFile(folder.Write(L"x.lng", Marked(text)).c_str()));
    return file;
}

std::string SavedBytes(CLanguageFile file)
{
    const CTempFolder folder;
    const ustring path = folder.File(L"x.lng");
    file.SaveLanguageFile(path.c_str());
    return ReadBytes(path.c_str());
}

CLanguageFile SavedAndLoaded(CLanguageFile file)
{
    const CTempFolder folder;
    const ustring path = folder.File(L"x.lng");
    file.SaveLanguageFile(path.c_str());
    CLanguageFile loaded;
    EXPECT_TRUE(loaded.LoadLanguageFile(path.c_str()));
    return loaded;
}

CLanguageFile Pair(const wchar_t* key, const wchar_t* value)
{
    CLanguageFile file;
    file[key] = value;
    return file;
}

// A text that a file can hold: without carriage returns, NULs, and "]", LF, "[" in a row.
std::wstring RandomStorableText(std::mt19937& random, std::size_t maxLength)
{
    static const wchar_t alphabet[] = L"[[]]\n\na \u00e4\u65e5";
    std::wstring text;
    std::size_t length = random() % (maxLength + 1);
    while (length-- > 0)
    {
        text += alphabet[random() % (std::size(alphabet) - 1)];
        if (text.size() >= 3 && text.compare(text.size() - 3, 3, L"]\n[") == 0)
            text.back() = L'b';
    }
    return text;
}
}   // namespace

TEST(LanguageFile, Save_OnePair_WritesTheMarkAndTwoBracketedLines)
{
    const std::string expected("\xFF\xFE[\0k\0]\0\n\0[\0v\0]\0\n\0", 18);
    EXPECT_EQ(expected, SavedBytes(Pair(L"k", L"v")));
}

TEST(LanguageFile, Save_EmptyMap_WritesTheMarkAlone)
{
    EXPECT_EQ("\xFF\xFE", SavedBytes({}));
}

TEST(LanguageFile, Save_WritesTextsUnescaped)
{
    EXPECT_EQ(Marked(L"[[a]\nb%s]\n[\"c\\d]\r\n]\n"), SavedBytes(Pair(L"[a]\nb%s", L"\"c\\d]\r\n")));
}

TEST(LanguageFile, Save_EmptyTexts_WritesEmptyBrackets)
{
    EXPECT_EQ(Marked(L"[]\n[]\n"), SavedBytes(Pair(L"", L"")));
}

TEST(LanguageFile, Save_WritesLettersBeyondAsciiLittleEndian)
{
    const std::string expected("\xFF\xFE[\0\xE4\0]\0\n\0[\0\xE5\x65]\0\n\0", 18);
    EXPECT_EQ(expected, SavedBytes(Pair(L"\u00e4", L"\u65e5")));
}

TEST(LanguageFile, Save_WritesRecordsInOrdinalOrderOfTheKeys)
{
    CLanguageFile file;
    for (const wchar_t* key : {L"b", L"\u00e4", L"B", L"a", L"ab", L""})
        file[key] = L"";
    EXPECT_EQ(Marked(L"[]\n[]\n[B]\n[]\n[a]\n[]\n[ab]\n[]\n[b]\n[]\n[\u00e4]\n[]\n"), SavedBytes(file));
}

TEST(LanguageFile, Save_OverALongerFile_LeavesNothingOfIt)
{
    const CTempFolder folder;
    const ustring path = folder.Write(L"x.lng", std::string(5000, 'x'));
    Pair(L"k", L"v").SaveLanguageFile(path.c_str());
    EXPECT_EQ(Marked(L"[k]\n[v]\n"), ReadBytes(path.c_str()));
}

TEST(LanguageFile, Load_MarkOnly_GivesAnEmptyMap)
{
    const CTempFolder folder;
    CLanguageFile file = Pair(L"old", L"old");
    EXPECT_TRUE(file.LoadLanguageFile(folder.Write(L"x.lng", "\xFF\xFE").c_str()));
    EXPECT_TRUE(file.empty());
}

TEST(LanguageFile, Load_ReplacesWhatTheMapHeld)
{
    const CTempFolder folder;
    CLanguageFile file = Pair(L"old", L"old");
    file.LoadLanguageFile(folder.Write(L"x.lng", Marked(L"[k]\n[v]\n")).c_str());
    EXPECT_EQ(Pair(L"k", L"v"), file);
}

TEST(LanguageFile, Load_KeyReadTwice_KeepsTheValueReadLast)
{
    EXPECT_EQ(Pair(L"k", L"2"), Loaded(L"[k]\n[1]\n[k]\n[2]\n"));
}

TEST(LanguageFile, Load_KeysOutOfOrder_AreAllFound)
{
    const CLanguageFile file = Loaded(L"[c]\n[3]\n[a]\n[1]\n[b]\n[2]\n");
    ASSERT_EQ(3u, file.size());
    EXPECT_EQ(ustring(L"1"), file.at(L"a"));
    EXPECT_EQ(ustring(L"2"), file.at(L"b"));
    EXPECT_EQ(ustring(L"3"), file.at(L"c"));
}

TEST(LanguageFile, Load_KeysThatDifferInCase_AreTwoEntries)
{
    EXPECT_EQ(2u, Loaded(L"[k]\n[1]\n[K]\n[2]\n").size());
}

TEST(LanguageFile, Load_CrLf_GivesTheSameAsLf)
{
    EXPECT_EQ(Loaded(L"[a]\nb]\n[c\nd]\n[e]\n[]\n"), Loaded(L"[a]\r\nb]\r\n[c\r\nd]\r\n[e]\r\n[]\r\n"));
}

TEST(LanguageFile, Load_LoneCarriageReturn_IsALineEnd)
{
    EXPECT_EQ(Pair(L"a\nb", L"v"), Loaded(L"[a\rb]\r[v]\r"));
}

TEST(LanguageFile, Load_TwoCarriageReturnsBeforeALineFeed_AreTwoLineEnds)
{
    EXPECT_EQ(Pair(L"a\n\nb", L"v"), Loaded(L"[a\r\r\nb]\n[v]\n"));
}

TEST(LanguageFile, Load_CrLfAcrossTheBlockBorder_IsOneLineEnd)
{
    const std::wstring key(254, L'k');   // mark, "[" and key fill 256 characters
    EXPECT_EQ(Pair((key + L"\nx").c_str(), L"v"), Loaded(L"[" + key + L"\r\nx]\n[v]\n"));
}

TEST(LanguageFile, Load_LineFeedsBeforeTheFirstRecord_AreRemoved)
{
    EXPECT_EQ(Pair(L"k", L"v"), Loaded(L"\n\n\n[k]\n[v]\n"));
}

TEST(LanguageFile, Load_LineWithoutOpeningBracket_StandsAsItIs)
{
    EXPECT_EQ(Pair(L"k", L"v"), Loaded(L"k]\n[v]\n"));
}

TEST(LanguageFile, Load_RemovesOneOpeningBracketOnly)
{
    EXPECT_EQ(Pair(L"[k", L"[v"), Loaded(L"[[k]\n[[v]\n"));
}

TEST(LanguageFile, Load_BlankLineBetweenRecords_DeliberatelyMakesTheNextPartOfTheText)
{
    EXPECT_EQ(Pair(L"a", L"1]\n\n[b"), Loaded(L"[a]\n[1]\n\n[b]\n[2]\n"));
}

TEST(LanguageFile, Load_LastKeyWithoutAValue_IsIgnored)
{
    EXPECT_EQ(Pair(L"a", L"1"), Loaded(L"[a]\n[1]\n[b]\n"));
}

TEST(LanguageFile, Load_LastValueWithoutItsLineFeed_KeepsTheBracket)
{
    EXPECT_EQ(Pair(L"a", L"1]"), Loaded(L"[a]\n[1]"));
}

TEST(LanguageFile, Load_OddLastByte_IsDropped)
{
    const CTempFolder folder;
    CLanguageFile file;
    file.LoadLanguageFile(folder.Write(L"x.lng", Marked(L"[k]\n[v]\n") + "[").c_str());
    EXPECT_EQ(Pair(L"k", L"v"), file);
}

TEST(LanguageFile, Load_MarkInsideTheText_BelongsToTheText)
{
    EXPECT_EQ(Pair(L"\uFEFFk", L"v"), Loaded(L"[\uFEFFk]\n[v]\n"));
}

TEST(LanguageFile, Load_MissingFile_IsFalseAndKeepsTheMap)
{
    const CTempFolder folder;
    CLanguageFile file = Pair(L"old", L"kept");
    EXPECT_FALSE(file.LoadLanguageFile(folder.File(L"none.lng").c_str()));
    EXPECT_EQ(Pair(L"old", L"kept"), file);
}

TEST(LanguageFile, Load_MissingFolder_IsFalseAndKeepsTheMap)
{
    const CTempFolder folder;
    CLanguageFile file = Pair(L"old", L"kept");
    EXPECT_FALSE(file.LoadLanguageFile(folder.File(L"none\\x.lng").c_str()));
    EXPECT_EQ(Pair(L"old", L"kept"), file);
}

TEST(LanguageFile, RoundTrip_BracketAndLineFeedInsideAText_SurviveUnchanged)
{
    const CLanguageFile file = Pair(L"a]\nb", L"c]\nd");
    EXPECT_EQ(file, SavedAndLoaded(file));
}

TEST(LanguageFile, RoundTrip_TextsThatEndWithBracketAndLineFeed_SurviveUnchanged)
{
    CLanguageFile file = Pair(L"a]\n", L"b]\n]\n");
    file[L"]\n"] = L"]\n";
    EXPECT_EQ(file, SavedAndLoaded(file));
}

TEST(LanguageFile, RoundTrip_TextsThatBeginWithLineFeeds_SurviveUnchanged)
{
    const CLanguageFile file = Pair(L"\n\na", L"\n[b");
    EXPECT_EQ(file, SavedAndLoaded(file));
}

TEST(LanguageFile, RoundTrip_TextWithALineThatBeginsWithABracketAfterABracket_CannotBeStored)
{
    const CLanguageFile file = Pair(L"a]\n[b", L"c");
    EXPECT_EQ(Pair(L"a", L"b"), SavedAndLoaded(file));
}

TEST(LanguageFile, RoundTrip_RandomMaps_SurviveUnchanged)
{
    std::mt19937 random(61);
    for (int round = 0; round < 500; ++round)
    {
        CLanguageFile file;
        for (std::size_t count = random() % 20; count > 0; --count)
            file[RandomStorableText(random, 12)] = RandomStorableText(random, round % 10 == 0 ? 700 : 12);
        ASSERT_EQ(file, SavedAndLoaded(file)) << "round " << round;
    }
}

// Every part of a record - brackets, line feeds, texts - meets the end of a block of 256 characters once.
TEST(LanguageFile, RoundTrip_RecordsAcrossTheBlockBorder_SurviveUnchanged)
{
    for (std::size_t length = 225; length < 275; ++length)
    {
        CLanguageFile file;
        file[std::wstring(length, L'A')] = L"x]\ny";
        file[L"b]\n"] = L"\n[";
        ASSERT_EQ(file, SavedAndLoaded(file)) << "a first key of " << length << " characters";
    }
}

TEST(LanguageFile, RoundTrip_FilesOfWholeBlocks_SurviveUnchanged)
{
    for (std::size_t blocks = 1; blocks <= 4; ++blocks)
    {
        const std::size_t around = 1 + 2 * 3 + 1;   // mark, two lines without texts, one character of value
        const CLanguageFile file = Pair(std::wstring(256 * blocks - around, L'k').c_str(), L"v");
        ASSERT_EQ(512 * blocks, SavedBytes(file).size());
        EXPECT_EQ(file, SavedAndLoaded(file)) << blocks << " blocks";
    }
}

TEST(LanguageFile, RoundTrip_HundredThousandRecords_SurviveUnchanged)
{
    CLanguageFile file;
    for (int i = 0; i < 100000; ++i)
        file[std::to_wstring(i)] = L"translation " + std::to_wstring(i);
    EXPECT_TRUE(file == SavedAndLoaded(file));
}

TEST(LanguageFile, Copy_IsIndependentOfTheOriginal)
{
    CLanguageFile file = Pair(L"k", L"v");
    CLanguageFile copy(file);
    CLanguageFile assigned;
    assigned = file;
    file.clear();
    EXPECT_EQ(Pair(L"k", L"v"), copy);
    EXPECT_EQ(Pair(L"k", L"v"), assigned);
}

TEST(LanguageFile, Find_IsExactAndCaseSensitive)
{
    const CLanguageFile file = Pair(L"Open", L"v");
    EXPECT_EQ(1u, file.count(L"Open"));
    EXPECT_EQ(0u, file.count(L"open"));
    EXPECT_EQ(0u, file.count(L"Open "));
    EXPECT_EQ(0u, file.count(L"Ope"));
}

TEST(LanguageFile, Class_IsAMapAndCanBeCopied)
{
    EXPECT_TRUE((std::is_convertible_v<CLanguageFile*, std::map<ustring, ustring>*>));
    EXPECT_TRUE(std::is_copy_constructible_v<CLanguageFile>);
    EXPECT_TRUE(std::is_copy_assignable_v<CLanguageFile>);
    EXPECT_TRUE(CLanguageFile().empty());
}
