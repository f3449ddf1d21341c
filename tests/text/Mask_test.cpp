#include "support/Print.h"

#include <vantor/Strings.h>

#include <gtest/gtest.h>

#include <cwchar>
#include <random>
#include <string>
#include <string_view>

using vantor::ustring;

namespace
{
int Match(const wchar_t* text, const wchar_t* mask)
{
    return ustring(text).compareWithMask(mask);
}

int MatchNoCase(const wchar_t* text, const wchar_t* mask)
{
    return ustring(text).compareWithMaskNoCase(mask);
}

// No tail matches: "aa" is less than "abd", and "ac" and "c" are greater.
const std::wstring ManyLetters = std::wstring(199, L'a') + L"c";
const std::wstring ManyStars = []
{
    std::wstring mask;
    for (int star = 0; star < 30; ++star)
        mask += L"*a";
    return mask + L"bd";
}();

int Order(wchar_t a, wchar_t b, bool noCase)
{
    if (noCase)
    {
        const int order = ::_wcsicmp(std::wstring(1, a).c_str(), std::wstring(1, b).c_str());
        return order < 0 ? -1 : order > 0 ? 1 : 0;
    }
    return a < b ? -1 : a > b ? 1 : 0;
}

// The definition as it stands, exponential time and all.
int SlowMatch(std::wstring_view text, std::wstring_view mask, bool noCase)
{
    if (text.empty())
        return 0;
    std::size_t m = 0;
    for (std::size_t i = 0; i < text.size(); ++i, ++m)
    {
        if (m == mask.size())
            return 1;
        if (mask[m] == L'*')
        {
            while (m < mask.size() && (mask[m] == L'*' || mask[m] == L'?'))
                ++m;
            if (m == mask.size())
                return 0;
            const std::wstring_view rest = mask.substr(m);
            for (std::size_t j = i; j < text.size(); ++j)
            {
                if (SlowMatch(text.substr(j), rest, false) == 0)
                    return 0;
            }
            return SlowMatch(text, rest, false);
        }
        if (mask[m] != L'?')
        {
            const int order = Order(text[i], mask[m], noCase);
            if (order != 0)
                return order;
        }
    }
    return 0;
}

void ExpectTheDefinition(const wchar_t* textLetters, const wchar_t* maskLetters, unsigned int seed, int rounds)
{
    std::mt19937 engine(seed);
    const auto fill = [&engine](ustring& text, std::wstring_view letters)
    {
        text.resize(engine() % 9);
        for (wchar_t& ch : text)
            ch = letters[engine() % letters.size()];
    };
    ustring text;
    ustring mask;
    for (int round = 0; round < rounds; ++round)
    {
        fill(text, textLetters);
        fill(mask, maskLetters);
        ASSERT_EQ(text.compareWithMask(mask.c_str()), SlowMatch(text, mask, false))
            << testing::PrintToString(text) << " against " << testing::PrintToString(mask);
        ASSERT_EQ(text.compareWithMaskNoCase(mask.c_str()), SlowMatch(text, mask, true))
            << testing::PrintToString(text) << " against " << testing::PrintToString(mask) << " without case";
    }
}
}   // namespace

TEST(CompareNoCase, WholeString_IsComparedWithoutCase)
{
    EXPECT_EQ(ustring(L"hello").compareNoCase(L"HELLO", ustring::npos), 0);
}

TEST(CompareNoCase, CountOf32BitsAllOnes_MeansTheWholeString)
{
    EXPECT_EQ(ustring(L"hello").compareNoCase(L"HELLO", 0xFFFFFFFF), 0);
    EXPECT_GT(ustring(L"hello").compareNoCase(L"HELL", 0xFFFFFFFF), 0);
}

TEST(CompareNoCase, Count_LimitsTheComparison)
{
    EXPECT_EQ(ustring(L"hello").compareNoCase(L"HELP", 3), 0);
}

TEST(CompareNoCase, CountBeyondTheDifference_FindsIt)
{
    EXPECT_LT(ustring(L"hello").compareNoCase(L"HELP", 4), 0);
}

TEST(CompareNoCase, CountOfZero_IsAlwaysEqual)
{
    EXPECT_EQ(ustring(L"a").compareNoCase(L"b", 0), 0);
}

TEST(CompareNoCase, Order_HasASign)
{
    EXPECT_LT(ustring(L"Abc").compareNoCase(L"aBD", ustring::npos), 0);
    EXPECT_GT(ustring(L"aBD").compareNoCase(L"Abc", ustring::npos), 0);
}

TEST(CompareNoCase, Prefix_IsLess)
{
    EXPECT_LT(ustring(L"HELL").compareNoCase(L"hello", ustring::npos), 0);
}

TEST(CompareNoCase, Result_IsTheRuntimesAsItIs)
{
    EXPECT_EQ(ustring(L"a").compareNoCase(L"z", ustring::npos), ::_wcsicmp(L"a", L"z"));
    EXPECT_EQ(ustring(L"zz").compareNoCase(L"ac", ustring::npos), ::_wcsicmp(L"zz", L"ac"));
    EXPECT_EQ(ustring(L"zz").compareNoCase(L"Zc", 2), ::_wcsnicmp(L"zz", L"Zc", 2));
}

TEST(CompareNoCase, Null_IsTheEmptyText)
{
    EXPECT_EQ(ustring().compareNoCase(nullptr, ustring::npos), 0);
    EXPECT_GT(ustring(L"a").compareNoCase(nullptr, ustring::npos), 0);
    EXPECT_GT(ustring(L"a").compareNoCase(nullptr, 1), 0);
}

TEST(Mask, StarBeforeAnEnding_MatchesIt)
{
    EXPECT_EQ(Match(L"a.txt", L"*.txt"), 0);
}

TEST(Mask, StarBeforeAnotherEnding_DoesNotMatch)
{
    EXPECT_NE(Match(L"a.txd", L"*.txt"), 0);
}

TEST(Mask, QuestionMark_MatchesAnyOneCharacter)
{
    EXPECT_EQ(Match(L"abc", L"a?c"), 0);
}

TEST(Mask, GreaterCharacter_GivesOne)
{
    EXPECT_EQ(Match(L"abd", L"a?c"), 1);
}

TEST(Mask, LessCharacter_GivesMinusOne)
{
    EXPECT_EQ(Match(L"abb", L"a?c"), -1);
}

TEST(Mask, EmptyString_MatchesEveryMask)
{
    EXPECT_EQ(Match(L"", L"abc"), 0);
    EXPECT_EQ(Match(L"", L"*x?"), 0);
    EXPECT_EQ(Match(L"", L""), 0);
}

TEST(Mask, StringThatEndsEarly_Matches)
{
    EXPECT_EQ(Match(L"ab", L"abc"), 0);
    EXPECT_EQ(Match(L"ab", L"ab?"), 0);
}

TEST(Mask, StringLongerThanTheMask_GivesOne)
{
    EXPECT_EQ(Match(L"abcd", L"abc"), 1);
}

TEST(Mask, EmptyMask_GivesOneForAnyText)
{
    EXPECT_EQ(Match(L"a", L""), 1);
}

TEST(Mask, Null_IsTheEmptyMask)
{
    EXPECT_EQ(Match(L"a", nullptr), 1);
    EXPECT_EQ(MatchNoCase(L"a", nullptr), 1);
}

TEST(Mask, Star_MatchesAnyText)
{
    EXPECT_EQ(Match(L"abc", L"*"), 0);
}

TEST(Mask, QuestionMarkBehindAStar_DemandsNoCharacter)
{
    EXPECT_EQ(Match(L"a", L"**?"), 0);
    EXPECT_EQ(Match(L"ab", L"a*?b"), 0);
}

TEST(Mask, QuestionMarkBehindAStar_TakesNoCharacter)
{
    EXPECT_EQ(Match(L"ab", L"*?c"), -1);   // against "c", where "?c" would match the tail "b", which ends early
}

TEST(Mask, QuestionMarkBeforeAStar_DemandsOne)
{
    EXPECT_EQ(Match(L"ab", L"?*b"), 0);
    EXPECT_NE(Match(L"bca", L"?*b"), 0);
}

TEST(Mask, StarInTheMiddle_MatchesAnyRun)
{
    EXPECT_EQ(Match(L"abcde", L"a*e"), 0);
    EXPECT_EQ(Match(L"ae", L"a*e"), 0);
}

TEST(Mask, SeveralStars_MatchTheirPartsInOrder)
{
    EXPECT_EQ(Match(L"xxaxxbxxc", L"*a*b*c"), 0);
    EXPECT_NE(Match(L"xxbxxaxxd", L"*a*b*c"), 0);
}

TEST(Mask, WholeString_IsTriedOnceMoreAgainstTheRest)
{
    EXPECT_EQ(Match(L"ab", L"a*ab"), 0);
}

TEST(Mask, LastAttempt_GivesTheOrderOfTheFirstDifferentCharacter)
{
    EXPECT_EQ(Match(L"xaa", L"x*z"), -1);
    EXPECT_EQ(Match(L"xbb", L"x*a"), 1);
}

TEST(Mask, TailThatEndsBeforeTheRest_Matches)
{
    EXPECT_EQ(Match(L"a.tx", L"*.txt"), 0);
}

TEST(Mask, Case_Counts)
{
    EXPECT_EQ(Match(L"a", L"A"), 1);
}

TEST(Mask, StarOfTheText_IsAnOrdinaryCharacter)
{
    EXPECT_EQ(Match(L"a*", L"a?"), 0);
    EXPECT_NE(Match(L"a*", L"ab"), 0);
}

TEST(Mask, UnitsAboveHalfTheRange_AreNotNegative)
{
    EXPECT_EQ(Match(L"\xFFFF", L"a"), 1);
}

// What the definition decides by trying every way to spread 30 stars over 200 characters.
TEST(Mask, ThirtyStarsAgainst200Characters_AreDecided)
{
    EXPECT_EQ(ustring(ManyLetters).compareWithMask(ManyStars.c_str()), -1);
}

TEST(Mask, ThirtyStarsAgainst200CharactersWithoutCase_AreDecided)
{
    EXPECT_EQ(ustring(ManyLetters).compareWithMaskNoCase(ManyStars.c_str()), -1);
}

TEST(MaskNoCase, LiteralsBeforeTheFirstStar_MatchWithoutCase)
{
    EXPECT_EQ(MatchNoCase(L"abcdef", L"ABC*"), 0);
}

TEST(MaskNoCase, LiteralsBehindAStar_MatchWithCase)
{
    EXPECT_NE(MatchNoCase(L"abcdef", L"*DEF"), 0);
    EXPECT_EQ(MatchNoCase(L"abcdef", L"*def"), 0);
}

TEST(MaskNoCase, NameInCapitals_MatchesByItsNameAndNotByItsExtension)
{
    EXPECT_EQ(MatchNoCase(L"README.TXT", L"readme.*"), 0);
    EXPECT_NE(MatchNoCase(L"README.TXT", L"*.txt"), 0);
}

TEST(MaskNoCase, WithoutStars_TheWholeMaskIsWithoutCase)
{
    EXPECT_EQ(MatchNoCase(L"aBc", L"AbC"), 0);
}

TEST(MaskNoCase, LastAttempt_IsWithCase)
{
    EXPECT_EQ(MatchNoCase(L"ab", L"A*ab"), 0);
    EXPECT_NE(MatchNoCase(L"ab", L"A*AB"), 0);
}

TEST(MaskNoCase, Difference_HasTheRuntimesSign)
{
    EXPECT_EQ(MatchNoCase(L"A", L"b"), -1);
    EXPECT_EQ(MatchNoCase(L"b", L"A"), 1);
}

TEST(MaskNoCase, UnderscoreBetweenTheCases_SortsAsInLowerCase)
{
    EXPECT_EQ(MatchNoCase(L"_", L"A"), -1);
    EXPECT_EQ(Match(L"_", L"A"), 1);
}

TEST(MaskNoCase, EmptyString_MatchesEveryMask)
{
    EXPECT_EQ(MatchNoCase(L"", L"abc"), 0);
}

TEST(MaskNoCase, StringThatEndsEarly_Matches)
{
    EXPECT_EQ(MatchNoCase(L"ab", L"ABC"), 0);
}

TEST(MaskNoCase, StringLongerThanTheMask_GivesOne)
{
    EXPECT_EQ(MatchNoCase(L"abcd", L"ABC"), 1);
}

TEST(MaskRandom, TextsOfTwoLetters_FollowTheDefinition)
{
    ExpectTheDefinition(L"ab", L"ab*?", 1, 800000);
}

TEST(MaskRandom, MasksOfManyStars_FollowTheDefinition)
{
    ExpectTheDefinition(L"ab", L"ab**", 2, 400000);
}

TEST(MaskRandom, TextsWithMaskCharacters_FollowTheDefinition)
{
    ExpectTheDefinition(L"ab*?", L"ab*?", 3, 400000);
}

TEST(MaskRandom, BothCases_FollowTheDefinition)
{
    ExpectTheDefinition(L"aAb_", L"aAb*", 4, 800000);
}
