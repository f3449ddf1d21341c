#include "support/Print.h"

#include <vantor/Strings.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

using vantor::ustring;

namespace
{
const wchar_t* const Null = nullptr;
}

TEST(String, AddsNoData)
{
    EXPECT_EQ(sizeof(ustring), sizeof(std::wstring));
}

TEST(String, IsAStandardWideString)
{
    EXPECT_TRUE((std::is_convertible_v<ustring*, std::wstring*>));
}

TEST(String, Npos_IsTheBasesNpos)
{
    EXPECT_EQ(ustring::npos, std::wstring::npos);
}

TEST(String, Npos_IsAllOnesOfTheSizeType)
{
    EXPECT_EQ(ustring::npos, static_cast<std::size_t>(-1));
}

TEST(String, Find_OfWhatIsNotThere_IsNpos)
{
    EXPECT_TRUE(ustring(L"abc").find(L"x") == ustring::npos);
}

TEST(String, Default_IsEmpty)
{
    EXPECT_EQ(ustring().size(), 0u);
}

TEST(String, FromNull_IsEmpty)
{
    EXPECT_EQ(ustring(nullptr).size(), 0u);
}

TEST(String, FromNullOfPointerType_IsEmpty)
{
    EXPECT_EQ(ustring(Null).size(), 0u);
}

TEST(String, FromText_IsItsCopy)
{
    wchar_t source[] = L"abc";
    const ustring text(source);
    source[0] = L'x';
    EXPECT_EQ(text, L"abc");
}

TEST(String, FromString_IsItsCopy)
{
    ustring source = L"abc";
    const ustring text(source);
    source += L"d";
    EXPECT_EQ(text, L"abc");
}

TEST(String, FromStandardString_KeepsNulsInside)
{
    const std::wstring source(L"a\0b", 3);
    EXPECT_EQ(ustring(source).size(), 3u);
}

TEST(String, FromNarrow_IsConvertedFromTheCodePage)
{
    EXPECT_EQ(ustring(std::string("\xE4\xC4"), 1252, 0), L"\u00E4\u00C4");
}

TEST(String, FromNarrow_UsesTheFlags)
{
    EXPECT_EQ(ustring(std::string("a\xFFz"), CP_UTF8, MB_ERR_INVALID_CHARS), L"");
}

TEST(String, FromNarrow_OfAnUnknownCodePage_IsEmpty)
{
    EXPECT_EQ(ustring(std::string("abc"), 64999, 0), L"");
}

TEST(String, AssignNull_Empties)
{
    ustring text = L"abc";
    text = nullptr;
    EXPECT_EQ(text.size(), 0u);
}

TEST(String, AssignText_Replaces)
{
    ustring text = L"abc";
    text = L"de";
    EXPECT_EQ(text, L"de");
}

TEST(String, AssignOwnTail_Works)
{
    ustring text = L"abcdef";
    text = text.c_str() + 3;
    EXPECT_EQ(text, L"def");
}

TEST(String, AssignString_Replaces)
{
    const ustring source = L"de";
    ustring text = L"abc";
    text = source;
    EXPECT_EQ(text, L"de");
}

TEST(String, AssignStandardString_Replaces)
{
    ustring text = L"abc";
    text = std::wstring(L"de");
    EXPECT_EQ(text, L"de");
}

TEST(String, AssignCharacter_GivesThatCharacterAlone)
{
    ustring text = L"abc";
    text = L'x';
    EXPECT_EQ(text, L"x");
}

TEST(String, AppendString_Appends)
{
    ustring text = L"ab";
    text += ustring(L"cd");
    EXPECT_EQ(text, L"abcd");
}

TEST(String, AppendItself_Doubles)
{
    ustring text = L"ab";
    text += text;
    EXPECT_EQ(text, L"abab");
}

TEST(String, AppendText_Appends)
{
    ustring text = L"ab";
    text += L"cd";
    EXPECT_EQ(text, L"abcd");
}

TEST(String, AppendNull_ChangesNothing)
{
    ustring text = L"ab";
    text += Null;
    EXPECT_EQ(text, L"ab");
}

TEST(String, AppendCharacter_Appends)
{
    ustring text = L"ab";
    text += L'c';
    EXPECT_EQ(text, L"abc");
}

TEST(String, AssignAndAppend_ReturnTheStringItself)
{
    ustring text;
    EXPECT_EQ(&(text = L"a"), &text);
    EXPECT_EQ(&(text = L'b'), &text);
    EXPECT_EQ(&(text += L"c"), &text);
    EXPECT_EQ(&(text += L'd'), &text);
    EXPECT_EQ(&(text += ustring(L"e")), &text);
    EXPECT_EQ(text, L"bcde");
}

TEST(String, Plus_GivesAString)
{
    const ustring a = L"a";
    EXPECT_TRUE((std::is_same_v<decltype(a + a), ustring>));
    EXPECT_TRUE((std::is_same_v<decltype(a + L"b"), ustring>));
    EXPECT_TRUE((std::is_same_v<decltype(L"b" + a), ustring>));
    EXPECT_TRUE((std::is_same_v<decltype(a + L'b'), ustring>));
    EXPECT_TRUE((std::is_same_v<decltype(a + std::wstring(L"b")), ustring>));
}

TEST(String, Plus_JoinsEveryKindOfText)
{
    const ustring b = L"b";
    const std::wstring c = L"c";
    EXPECT_EQ(L"a" + b + c + L"d" + L'e' + (b + b), L"abcdebb");
}

TEST(String, Plus_LeavesItsOperands)
{
    const ustring a = L"a";
    const ustring b = L"b";
    const ustring both = a + b;
    EXPECT_EQ(both, L"ab");
    EXPECT_EQ(a, L"a");
    EXPECT_EQ(b, L"b");
}

TEST(String, PlusNull_IsTheLeftSide)
{
    EXPECT_EQ(ustring(L"ab") + Null, L"ab");
}

TEST(String, NullPlus_IsTheRightSide)
{
    const ustring text = L"ab";
    EXPECT_EQ(Null + text, L"ab");
}

TEST(String, BaseMembers_StayReachable)
{
    ustring text = L"abcdef";
    text.replace(0, 1, L"x");
    text.erase(1, 1);
    EXPECT_EQ(text.substr(1, 2), L"cd");
    EXPECT_EQ(text, L"xcdef");
}

TEST(String, Containers_MoveTheTextsInsteadOfCopying)
{
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<ustring>);
}

TEST(String, InVectors_ComparesEqual)
{
    const std::vector<ustring> a = {L"x", L"y"};
    const std::vector<ustring> b = {L"x", L"y"};
    EXPECT_TRUE(a == b);
}
