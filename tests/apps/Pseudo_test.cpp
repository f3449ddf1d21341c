#include "Pseudo.h"
#include "support/Print.h"

#include <gtest/gtest.h>

#include <cwctype>
#include <set>

using lng::Placeholders;
using lng::Pseudo;
using vantor::ustring;

namespace
{
constexpr wchar_t Letters[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

bool Contains(const ustring& text, const wchar_t* part)
{
    return text.find(part) != ustring::npos;
}

bool BeginsWith(const ustring& text, const wchar_t* start)
{
    return text.find(start) == 0;
}

bool EndsWith(const ustring& text, const std::wstring& end)
{
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}
}   // namespace

TEST(Pseudo, EachLetter_GetsAnAccentOfItsOwnAndKeepsItsCase)
{
    std::set<wchar_t> accented;
    for (const wchar_t letter : ustring(Letters))
    {
        const wchar_t text[] = {letter, 0};
        const ustring result = Pseudo(text);
        ASSERT_EQ(result.size(), 3u) << "of letter " << static_cast<char>(letter);
        EXPECT_GT(result[1], 0x7F) << static_cast<char>(letter);
        EXPECT_EQ(std::iswupper(letter) != 0, std::iswupper(result[1]) != 0) << static_cast<char>(letter);
        accented.insert(result[1]);
    }
    EXPECT_EQ(accented.size(), 52u);
}

TEST(Pseudo, Text_StandsInBrackets)
{
    const ustring result = Pseudo(L"Open");
    EXPECT_EQ(result.front(), L'[');
    EXPECT_EQ(result.back(), L']');
}

TEST(Pseudo, Text_BecomesFortyPercentLonger)
{
    EXPECT_EQ(Pseudo(L"abcdefghij").size(), 14u);
}

TEST(Pseudo, Length_IsRoundedUp)
{
    EXPECT_EQ(Pseudo(L"abcdefghijk").size(), 16u);   // 4.4 more
}

TEST(Pseudo, EveryLength_GrowsByTwoFifthsAndAtLeastByTheBrackets)
{
    for (std::size_t length = 1; length <= 100; ++length)
    {
        const std::size_t tenths = 4 * length;
        const std::size_t more = tenths / 10 + (tenths % 10 != 0 ? 1 : 0);
        EXPECT_EQ(Pseudo(std::wstring(length, L'x')).size(), length + (more < 2 ? 2 : more)) << length;
    }
}

TEST(Pseudo, DigitsAndPunctuation_StayAsTheyAre)
{
    EXPECT_TRUE(Contains(Pseudo(L"x, 1.5 (2/3)!"), L", 1.5 (2/3)!"));
}

TEST(Pseudo, PrintfConversions_StayAsTheyAre)
{
    for (const wchar_t* conversion :
         {L"%s", L"%d", L"%5.2f", L"%-20s", L"%02X", L"%I64u", L"%ld", L"%*d", L"%%", L"%c", L"%#x"})
        EXPECT_TRUE(Contains(Pseudo(ustring(L"a ") + conversion + L" b"), conversion))
            << ::testing::PrintToString(ustring(conversion));
}

TEST(Pseudo, MessageInserts_StayAsTheyAre)
{
    for (const wchar_t* insert : {L"%1", L"%12", L"%1!s!", L"%2!08lX!"})
        EXPECT_TRUE(Contains(Pseudo(ustring(L"a ") + insert + L" b"), insert))
            << ::testing::PrintToString(ustring(insert));
}

TEST(Pseudo, BracesWithANumber_StayAsTheyAre)
{
    EXPECT_TRUE(Contains(Pseudo(L"from {0} to {12}"), L" {0} "));
    EXPECT_TRUE(Contains(Pseudo(L"from {0} to {12}"), L" {12}"));
}

TEST(Pseudo, PerCentSignOfASentence_IsNoPlaceholder)
{
    EXPECT_FALSE(Contains(Pseudo(L"50 % of"), L"of"));
}

TEST(Pseudo, Accelerator_KeepsItsLetter)
{
    const ustring result = Pseudo(L"E&xit");
    EXPECT_TRUE(Contains(result, L"&x"));
    EXPECT_FALSE(Contains(result, L"it"));
}

TEST(Pseudo, TwoAmpersands_AreNoAccelerator)
{
    const ustring result = Pseudo(L"Find && replace, R&&D");
    EXPECT_TRUE(Contains(result, L" && "));
    EXPECT_FALSE(Contains(result, L"&D"));
}

TEST(Pseudo, AcceleratorBehindTwoAmpersands_KeepsItsLetter)
{
    EXPECT_TRUE(Contains(Pseudo(L"R&&&D"), L"&&&D"));
}

TEST(Pseudo, AcceleratorOnAPlaceholder_KeepsThePlaceholder)
{
    EXPECT_TRUE(Contains(Pseudo(L"&%d file"), L"&%d "));
}

TEST(Pseudo, AmpersandAtTheEnd_IsKept)
{
    EXPECT_TRUE(Contains(Pseudo(L"This &"), L" &"));
}

TEST(Pseudo, TextOfAnAcceleratorAlone_IsMarkedAllTheSame)
{
    EXPECT_TRUE(Pseudo(L"&X:") == L"[&X:]");
}

TEST(Pseudo, ShortCutBehindATab_StaysBehindTheBracket)
{
    const ustring result = Pseudo(L"&Open...\tCtrl+O");
    EXPECT_TRUE(EndsWith(result, L"]\tCtrl+O"));
    EXPECT_EQ(result.size(), 8u + 4u + 7u);   // 40 % of "&Open..." is 3.2
}

TEST(Pseudo, BlanksAtBothEnds_StayOutsideTheBrackets)
{
    const ustring result = Pseudo(L"  word \r\n");
    EXPECT_TRUE(BeginsWith(result, L"  ["));
    EXPECT_TRUE(EndsWith(result, L"] \r\n"));
    EXPECT_EQ(result.size(), 2u + 6u + 3u);
}

TEST(Pseudo, LineBreaks_AreKept)
{
    const ustring result = Pseudo(L"one\r\ntwo\nsix");
    EXPECT_EQ(result.find(L"\r\n"), 4u);
    EXPECT_EQ(result.find(L'\n', 6), 9u);
}

TEST(Pseudo, EmptyText_StaysEmpty)
{
    EXPECT_TRUE(Pseudo(L"").empty());
}

TEST(Pseudo, TextWithoutALetter_StaysAsItIs)
{
    for (const wchar_t* text : {L"...", L"12:30", L"%s", L"%d, {0}", L" ", L"\t", L"&1", L"->"})
        EXPECT_TRUE(Pseudo(text) == text) << ::testing::PrintToString(Pseudo(text));
}

TEST(Pseudo, ShortCutAlone_StaysAsItIs)
{
    EXPECT_TRUE(Pseudo(L"\tCtrl+O") == L"\tCtrl+O");
}

TEST(Pseudo, LettersThatHaveNoAccent_AreMarkedAllTheSame)
{
    EXPECT_TRUE(Pseudo(L"\u041E\u0442\u043A\u0440") == L"[\u041E\u0442\u043A\u0440]");   // 40 % of 4 is 1.6
}

TEST(Pseudo, SurrogatePairs_StayTogether)
{
    EXPECT_TRUE(Contains(Pseudo(L"a \U0001F600 b"), L" \U0001F600 "));
}

TEST(Placeholders, AreListedInTheirOrder)
{
    const std::vector<ustring> expected = {L"%s", L"{0}", L"%1!d!", L"%%"};
    EXPECT_EQ(Placeholders(L"%s of {0}: %1!d! %%"), expected);
}

TEST(Placeholders, TextWithoutOne_HasNone)
{
    EXPECT_TRUE(Placeholders(L"100 % of {x} and {} at the end %").empty());
}

TEST(Placeholders, SurviveThePseudoTranslation)
{
    for (const wchar_t* text :
         {L"%s", L"&%d %s", L"Copy %1!d! of %2!d! files to %3", L"{0}{1}{0}", L"%5.1f %%", L"a%I64dn"})
        EXPECT_EQ(Placeholders(Pseudo(text)), Placeholders(text)) << ::testing::PrintToString(Pseudo(text));
}
