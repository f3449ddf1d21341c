#include "support/Print.h"

#include <vantor/Strings.h>

#include <gtest/gtest.h>

#include <list>
#include <random>
#include <set>
#include <string>
#include <vector>

using vantor::LessStrW;
using vantor::ustring;

namespace
{
using Pieces = std::vector<ustring>;

// The three kinds of container; each starts with something that has to go.
template <class Container>
struct SplitInto : testing::Test
{
    Container out = {L"old"};

    Pieces Split(const wchar_t* multiString)
    {
        ustring::split(multiString, out);
        return Pieces(out.begin(), out.end());
    }

    template <class Delimiter>
    Pieces Split(const wchar_t* text, Delimiter delimiter, bool keepTrailingEmpty)
    {
        ustring::split(text, delimiter, out, keepTrailingEmpty);
        return Pieces(out.begin(), out.end());
    }
};

using Containers = testing::Types<std::vector<ustring>, std::list<ustring>, std::set<ustring, LessStrW>>;
TYPED_TEST_SUITE(SplitInto, Containers);

template <class Delimiter>
Pieces ToVector(const wchar_t* text, Delimiter delimiter, bool keepTrailingEmpty)
{
    Pieces out;
    ustring::split(text, delimiter, out, keepTrailingEmpty);
    return out;
}

template <class Delimiter>
Pieces ToSet(const wchar_t* text, Delimiter delimiter, bool keepTrailingEmpty)
{
    std::set<ustring, LessStrW> out;
    ustring::split(text, delimiter, out, keepTrailingEmpty);
    return Pieces(out.begin(), out.end());
}

Pieces SlowSplit(const std::wstring& text, const std::wstring& delimiter, bool keepTrailingEmpty)
{
    Pieces out;
    std::size_t pos = 0;
    do
    {
        const std::size_t found = text.find(delimiter, pos);
        ustring piece;
        for (std::size_t i = pos; i < text.size() && i != found; ++i)
            piece += text[i];
        pos = found == text.npos ? text.npos : found + delimiter.size();
        out.push_back(piece);
        if (pos == text.size() && keepTrailingEmpty)
            out.push_back(ustring());
    } while (pos < text.size());
    return out;
}
}   // namespace

TYPED_TEST(SplitInto, ByCharacter_GivesThePieces)
{
    EXPECT_EQ(this->Split(L"a,b,c", L',', false), (Pieces{L"a", L"b", L"c"}));
}

TYPED_TEST(SplitInto, ByText_GivesThePieces)
{
    EXPECT_EQ(this->Split(L"a, b, c", L", ", false), (Pieces{L"a", L"b", L"c"}));
}

TYPED_TEST(SplitInto, MultiString_GivesItsStrings)
{
    EXPECT_EQ(this->Split(L"one\0two\0"), (Pieces{L"one", L"two"}));
}

TYPED_TEST(SplitInto, EmptyMultiString_GivesNothing)
{
    EXPECT_EQ(this->Split(L"\0ignored\0"), Pieces());
}

TYPED_TEST(SplitInto, NullMultiString_GivesNothing)
{
    EXPECT_EQ(this->Split(nullptr), Pieces());
}

TYPED_TEST(SplitInto, EmptyText_GivesOneEmptyPiece)
{
    EXPECT_EQ(this->Split(L"", L',', false), Pieces{L""});
    EXPECT_EQ(this->Split(L"", L',', true), Pieces{L""});
}

TYPED_TEST(SplitInto, EmptyTextByText_GivesOneEmptyPiece)
{
    EXPECT_EQ(this->Split(L"", L"::", false), Pieces{L""});
    EXPECT_EQ(this->Split(L"", L"::", true), Pieces{L""});
}

TYPED_TEST(SplitInto, NullText_GivesOneEmptyPiece)
{
    EXPECT_EQ(this->Split(nullptr, L',', false), Pieces{L""});
    EXPECT_EQ(this->Split(nullptr, L"::", false), Pieces{L""});
}

TYPED_TEST(SplitInto, NullDelimiter_GivesTheWholeText)
{
    const wchar_t* const null = nullptr;
    EXPECT_EQ(this->Split(L"a,b", null, true), Pieces{L"a,b"});
}

TYPED_TEST(SplitInto, EmptyDelimiter_GivesTheWholeText)
{
    EXPECT_EQ(this->Split(L"a,b", L"", true), Pieces{L"a,b"});
}

TYPED_TEST(SplitInto, TextInTheContainer_IsReadBeforeItGoes)
{
    this->out.clear();
    this->out.insert(this->out.end(), L"x;y");
    EXPECT_EQ(this->Split(this->out.begin()->c_str(), L';', false), (Pieces{L"x", L"y"}));
}

TEST(Split, WithoutTheDelimiter_GivesTheWholeText)
{
    EXPECT_EQ(ToVector(L"abc", L',', true), Pieces{L"abc"});
}

TEST(Split, TrailingDelimiter_GivesNoEmptyPiece)
{
    EXPECT_EQ(ToVector(L"a,b,", L',', false), (Pieces{L"a", L"b"}));
}

TEST(Split, TrailingDelimiterToKeep_GivesAnEmptyPiece)
{
    EXPECT_EQ(ToVector(L"a,b,", L',', true), (Pieces{L"a", L"b", L""}));
}

TEST(Split, TwoTrailingDelimiters_GiveOneEmptyPiece)
{
    EXPECT_EQ(ToVector(L"a,,", L',', false), (Pieces{L"a", L""}));
}

TEST(Split, TwoTrailingDelimitersToKeep_GiveTwoEmptyPieces)
{
    EXPECT_EQ(ToVector(L"a,,", L',', true), (Pieces{L"a", L"", L""}));
}

TEST(Split, NeighbouringDelimiters_GiveAnEmptyPiece)
{
    EXPECT_EQ(ToVector(L"a,,b", L',', false), (Pieces{L"a", L"", L"b"}));
}

TEST(Split, LeadingDelimiter_GivesAnEmptyPiece)
{
    EXPECT_EQ(ToVector(L",a", L',', false), (Pieces{L"", L"a"}));
}

TEST(Split, DelimiterAlone_GivesOneEmptyPiece)
{
    EXPECT_EQ(ToVector(L",", L',', false), Pieces{L""});
}

TEST(Split, DelimiterAloneToKeep_GivesTwoEmptyPieces)
{
    EXPECT_EQ(ToVector(L",", L',', true), (Pieces{L"", L""}));
}

TEST(Split, LongDelimiter_IsTakenFromTheLeft)
{
    EXPECT_EQ(ToVector(L"a:::b", L"::", false), (Pieces{L"a", L":b"}));
}

TEST(Split, PartOfALongDelimiter_IsText)
{
    EXPECT_EQ(ToVector(L"a:b::c:", L"::", true), (Pieces{L"a:b", L"c:"}));
}

TEST(Split, DelimiterOfAnyScript_Works)
{
    EXPECT_EQ(ToVector(L"a\u3001b", L'\u3001', false), (Pieces{L"a", L"b"}));
}

TEST(Split, MultiStringOfOne_GivesIt)
{
    Pieces out;
    ustring::split(L"one\0", out);
    EXPECT_EQ(out, Pieces{L"one"});
}

TEST(Split, MultiString_EndsAtItsEmptyString)
{
    Pieces out;
    ustring::split(L"one\0\0two\0", out);
    EXPECT_EQ(out, Pieces{L"one"});
}

TEST(Split, MultiStringToVector_KeepsOrderAndDoubles)
{
    Pieces out;
    ustring::split(L"b\0a\0b\0", out);
    EXPECT_EQ(out, (Pieces{L"b", L"a", L"b"}));
}

TEST(Split, MultiStringToSet_KeepsTheFirstOfPiecesThatDifferInCase)
{
    std::set<ustring, LessStrW> out;
    ustring::split(L"One\0ONE\0two\0", out);
    EXPECT_EQ(Pieces(out.begin(), out.end()), (Pieces{L"One", L"two"}));
}

TEST(Split, ToSet_KeepsTheFirstOfPiecesThatDifferInCase)
{
    EXPECT_EQ(ToSet(L"A,a,b", L',', false), (Pieces{L"A", L"b"}));
}

TEST(Split, ToSet_SortsWithoutCase)
{
    EXPECT_EQ(ToSet(L"c,B,a", L',', false), (Pieces{L"a", L"B", L"c"}));
}

TEST(Split, ToSet_KeepsOneEmptyPiece)
{
    EXPECT_EQ(ToSet(L",,a,", L',', true), (Pieces{L"", L"a"}));
}

TEST(Split, RandomTexts_FollowTheSteps)
{
    std::mt19937 engine(20080229);
    const auto text = [&engine](std::size_t longest)
    {
        std::wstring result(engine() % (longest + 1), L',');
        for (wchar_t& ch : result)
            ch = L"a,;"[engine() % 3];
        return result;
    };
    for (int round = 0; round < 40000; ++round)
    {
        const ustring whole = text(12);
        const ustring delimiter = L"," + text(2);
        for (const bool keepTrailingEmpty : {false, true})
        {
            const Pieces expected = SlowSplit(whole, delimiter, keepTrailingEmpty);
            ASSERT_EQ(ToVector(whole.c_str(), delimiter.c_str(), keepTrailingEmpty), expected)
                << testing::PrintToString(whole) << testing::PrintToString(delimiter) << keepTrailingEmpty;
            std::list<ustring> out;
            ustring::split(whole.c_str(), delimiter.c_str(), out, keepTrailingEmpty);
            ASSERT_EQ(Pieces(out.begin(), out.end()), expected)
                << testing::PrintToString(whole) << testing::PrintToString(delimiter) << keepTrailingEmpty;
        }
    }
}
