#include "support/Print.h"

#include <vantor/Strings.h>

#include <gtest/gtest.h>

#include <cwchar>
#include <string>
#include <vector>

using vantor::ustring;

namespace
{
using Set = std::vector<wchar_t>;

ustring Replaced(ustring text, const ustring& what, const ustring& with)
{
    text.replace(what, with);
    return text;
}

ustring Escaped(ustring text, const wchar_t* forbidden)
{
    text.replaceForbiddenSymbols(forbidden);
    return text;
}

std::wstring EveryUnitTo(wchar_t last)
{
    std::wstring text;
    for (wchar_t ch = 1; ch <= last; ++ch)
        text += ch;
    return text;
}
}   // namespace

TEST(StringTrim, Left_RemovesEveryLeadingCharacter)
{
    EXPECT_EQ(ustring(L"xxaxbxx").trim_left(L'x'), L"axbxx");
}

TEST(StringTrim, Right_RemovesEveryTrailingCharacter)
{
    EXPECT_EQ(ustring(L"xxaxbxx").trim_right(L'x'), L"xxaxb");
}

TEST(StringTrim, Both_RemovesAtBothEnds)
{
    EXPECT_EQ(ustring(L"xxaxbxx").trim(L'x'), L"axb");
}

TEST(StringTrim, OfNothingElse_GivesTheEmptyString)
{
    EXPECT_EQ(ustring(L"xxx").trim(L'x'), L"");
}

TEST(StringTrim, LeftOfTheEmptyString_DoesNothing)
{
    EXPECT_EQ(ustring().trim_left(L'x'), L"");
}

TEST(StringTrim, RightOfTheEmptyString_DoesNothing)
{
    EXPECT_EQ(ustring().trim_right(L'x'), L"");
}

TEST(StringTrim, OtherCase_Stays)
{
    EXPECT_EQ(ustring(L"xXx").trim(L'x'), L"X");
}

TEST(StringTrim, LeftBySet_RemovesInAnyOrder)
{
    EXPECT_EQ(ustring(L"yxyaxb").trim_left(Set{L'x', L'y'}), L"axb");
}

TEST(StringTrim, RightBySet_RemovesInAnyOrder)
{
    EXPECT_EQ(ustring(L"axbyxy").trim_right(Set{L'x', L'y'}), L"axb");
}

TEST(StringTrim, BothBySet_RemovesAtBothEnds)
{
    EXPECT_EQ(ustring(L" \ta b\t ").trim(Set{L'\t', L' '}), L"a b");
}

TEST(StringTrim, ByEmptySet_ChangesNothing)
{
    EXPECT_EQ(ustring(L" a ").trim(Set{}), L" a ");
}

TEST(StringTrim, EmptyStringBySet_StaysEmpty)
{
    EXPECT_EQ(ustring().trim(Set{L'x'}), L"");
}

TEST(StringTrim, OfNothingElseBySet_GivesTheEmptyString)
{
    EXPECT_EQ(ustring(L"xyyx").trim(Set{L'x', L'y'}), L"");
}

TEST(StringTrim, ReturnsTheStringItself)
{
    ustring text = L"a";
    const Set set = {L'x'};
    EXPECT_EQ(&text.trim(L'x'), &text);
    EXPECT_EQ(&text.trim_left(L'x'), &text);
    EXPECT_EQ(&text.trim_right(L'x'), &text);
    EXPECT_EQ(&text.trim(set), &text);
    EXPECT_EQ(&text.trim_left(set), &text);
    EXPECT_EQ(&text.trim_right(set), &text);
}

TEST(StringReplace, ReplacesEveryOccurrence)
{
    EXPECT_EQ(Replaced(L"a-b-c", L"-", L"+"), L"a+b+c");
}

TEST(StringReplace, InsertedText_IsNotSearchedAgain)
{
    EXPECT_EQ(Replaced(L"aa", L"a", L"aa"), L"aaaa");
}

TEST(StringReplace, InsertedTextWithWhatFollows_IsNotSearchedAgain)
{
    EXPECT_EQ(Replaced(L"abb", L"ab", L"a"), L"ab");
}

TEST(StringReplace, Overlaps_AreTakenFromTheLeft)
{
    EXPECT_EQ(Replaced(L"aaa", L"aa", L"b"), L"ba");
}

TEST(StringReplace, ByNothing_Removes)
{
    EXPECT_EQ(Replaced(L"a b c", L" ", L""), L"abc");
}

TEST(StringReplace, OfWhatIsNotThere_ChangesNothing)
{
    EXPECT_EQ(Replaced(L"abc", L"x", L"y"), L"abc");
}

TEST(StringReplace, OfEmptyPattern_ChangesNothing)
{
    EXPECT_EQ(Replaced(L"abc", L"", L"y"), L"abc");
}

TEST(StringReplace, OfNullPattern_ChangesNothing)
{
    EXPECT_EQ(Replaced(L"abc", nullptr, L"y"), L"abc");
}

TEST(StringReplace, ByNull_Removes)
{
    EXPECT_EQ(Replaced(L"abc", L"b", nullptr), L"ac");
}

TEST(StringReplace, WholeString_IsReplaced)
{
    EXPECT_EQ(Replaced(L"abc", L"abc", L"x"), L"x");
}

TEST(StringReplace, TextByItself_Works)
{
    ustring text = L"ab";
    text.replace(text, L"x");
    EXPECT_EQ(text, L"x");
}

TEST(StringReplace, WithItself_InsertsTheOldText)
{
    ustring text = L"a-a";
    text.replace(L"a", text);
    EXPECT_EQ(text, L"a-a-a-a");
}

TEST(StringReplace, CaseMatters)
{
    EXPECT_EQ(Replaced(L"aA", L"a", L"b"), L"bA");
}

TEST(StringCase, Upper_IsTheRuntimesConversion)
{
    std::wstring expected = EveryUnitTo(0x17F);
    ::_wcsupr(expected.data());
    ustring text = EveryUnitTo(0x17F);
    text.strupr();
    EXPECT_EQ(text, expected);
}

TEST(StringCase, Lower_IsTheRuntimesConversion)
{
    std::wstring expected = EveryUnitTo(0x17F);
    ::_wcslwr(expected.data());
    ustring text = EveryUnitTo(0x17F);
    text.strlwr();
    EXPECT_EQ(text, expected);
}

TEST(StringCase, Upper_ConvertsLetters)
{
    ustring text = L"abC-1z";
    text.strupr();
    EXPECT_EQ(text, L"ABC-1Z");
}

TEST(StringCase, Lower_ConvertsLetters)
{
    ustring text = L"ABc-1Z";
    text.strlwr();
    EXPECT_EQ(text, L"abc-1z");
}

TEST(StringCase, EmptyString_StaysEmpty)
{
    ustring text;
    text.strupr();
    text.strlwr();
    EXPECT_EQ(text, L"");
}

TEST(StringCase, SharedSource_IsLeftAlone)
{
    const ustring source = L"abc";
    ustring copy = source;
    copy.strupr();
    EXPECT_EQ(source, L"abc");
}

TEST(StringForbidden, EachOfTheSet_IsEscaped)
{
    EXPECT_EQ(Escaped(L"a/b:c", L"/:"), L"a%2Fb%3Ac");
}

TEST(StringForbidden, Space_BecomesPercent20)
{
    EXPECT_EQ(Escaped(L"a b", L" "), L"a%20b");
}

TEST(StringForbidden, SmallCode_HasTwoDigits)
{
    EXPECT_EQ(Escaped(L"a\tb", L"\t"), L"a%09b");
}

TEST(StringForbidden, LargeCode_HasAllItsDigits)
{
    EXPECT_EQ(Escaped(L"\x1234", L"\x1234"), L"%1234");
}

TEST(StringForbidden, PercentListedLater_IsEscapedAgain)
{
    EXPECT_EQ(Escaped(L"<", L"<%"), L"%253C");
}

TEST(StringForbidden, PercentListedFirst_IsEscapedOnce)
{
    EXPECT_EQ(Escaped(L"<", L"%<"), L"%3C");
}

TEST(StringForbidden, PercentListedTwiceLater_IsEscapedTwice)
{
    EXPECT_EQ(Escaped(L"<", L"<%%"), L"%25253C");
}

TEST(StringForbidden, PercentOfTheText_IsEscaped)
{
    EXPECT_EQ(Escaped(L"5%", L"%"), L"5%25");
}

TEST(StringForbidden, DigitsOfAnEscape_AreNotEscaped)
{
    EXPECT_EQ(Escaped(L" 2", L" 2"), L"%20%32");
}

TEST(StringForbidden, Neighbours_AreEachEscaped)
{
    EXPECT_EQ(Escaped(L"::", L":"), L"%3A%3A");
}

TEST(StringForbidden, EmptySet_ChangesNothing)
{
    EXPECT_EQ(Escaped(L"a/b", L""), L"a/b");
}

TEST(StringForbidden, NullSet_ChangesNothing)
{
    EXPECT_EQ(Escaped(L"a/b", nullptr), L"a/b");
}

TEST(StringForbidden, EmptyString_StaysEmpty)
{
    EXPECT_EQ(Escaped(L"", L"/"), L"");
}
