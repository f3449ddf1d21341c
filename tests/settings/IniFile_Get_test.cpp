// Reading values.

#include "IniTest.h"

#include <climits>

using namespace vantor;
using namespace settings_test;

namespace
{
class IniFileGet : public IniTest
{
protected:
    ustring Value(const std::string& bytes, const wchar_t* section, const wchar_t* key)
    {
        return Open(bytes).GetString(section, key, L"default");
    }

    int Number(const std::string& text, int defaultValue = 99)
    {
        return Open("[S]\nk=" + text + "\n").GetInt(L"S", L"k", defaultValue);
    }
};
}   // namespace

TEST_F(IniFileGet, Entry_IsItsValue)
{
    EXPECT_EQ(L"v", Value("[S]\nk=v\n", L"S", L"k"));
}

TEST_F(IniFileGet, MissingKey_IsTheDefault)
{
    EXPECT_EQ(L"default", Value("[S]\nk=v\n", L"S", L"x"));
}

TEST_F(IniFileGet, MissingSection_IsTheDefault)
{
    EXPECT_EQ(L"default", Value("[S]\nk=v\n", L"T", L"k"));
}

TEST_F(IniFileGet, KeyOfAnotherSection_IsNotFound)
{
    EXPECT_EQ(L"default", Value("[S]\na=1\n[T]\nk=v\n", L"S", L"k"));
}

TEST_F(IniFileGet, NullDefault_IsEmpty)
{
    EXPECT_EQ(L"", Open("").GetString(L"S", L"k", nullptr));
}

TEST_F(IniFileGet, NullSection_IsThatBeforeTheFirstHeader)
{
    EXPECT_EQ(L"v", Value("k=v\n[S]\nk=w\n", nullptr, L"k"));
}

TEST_F(IniFileGet, NullKey_IsTheEmptyOne)
{
    EXPECT_EQ(L"v", Value("[S]\nk=w\n=v\n", L"S", nullptr));
}

TEST_F(IniFileGet, CaseOfTheSectionDoesNotCount)
{
    EXPECT_EQ(L"v", Value("[Section]\nk=v\n", L"sECTION", L"k"));
}

TEST_F(IniFileGet, CaseOfTheKeyDoesNotCount)
{
    EXPECT_EQ(L"v", Value("[S]\nKey=v\n", L"S", L"kEY"));
}

TEST_F(IniFileGet, NamesThatOnlyBeginAlike_AreOthers)
{
    EXPECT_EQ(L"default", Value("[S]\nkey=v\n", L"S", L"ke"));
    EXPECT_EQ(L"default", Value("[S]\nke=v\n", L"S", L"key"));
    EXPECT_EQ(L"default", Value("[Sec]\nk=v\n", L"S", L"k"));
    EXPECT_EQ(L"default", Value("[S]\nk=v\n", L"Sec", L"k"));
}

TEST_F(IniFileGet, ValueIsAsStored)
{
    EXPECT_EQ(L"MiXed", Value("[S]\nk=MiXed\n", L"S", L"k"));
}

TEST_F(IniFileGet, ValueBeforeASecondEqualsSign)
{
    EXPECT_EQ(L"a", Value("[S]\nk=a=b\n", L"S", L"k"));
}

TEST_F(IniFileGet, ValueBeforeAComment_KeepsItsTrailingBlank)
{
    EXPECT_EQ(L"v ", Value("[S]\nk=v ;note\n", L"S", L"k"));
}

TEST_F(IniFileGet, KeyWithALeadingBlank_IsFoundOnlyWithIt)
{
    EXPECT_EQ(L"v", Value("[S]\n k=v\n", L"S", L" k"));
    EXPECT_EQ(L"default", Value("[S]\n k=v\n", L"S", L"k"));
}

TEST_F(IniFileGet, KeyWithATrailingBlank_IsFoundOnlyWithIt)
{
    EXPECT_EQ(L" v", Value("[S]\nk = v\n", L"S", L"k "));
    EXPECT_EQ(L"default", Value("[S]\nk = v\n", L"S", L"k"));
}

TEST_F(IniFileGet, BlankLine_IsTheEmptyKey)
{
    EXPECT_EQ(L"", Value("[S]\nk=v\n\n[T]\n", L"S", L""));
}

TEST_F(IniFileGet, CommentLine_IsTheEmptyKey)
{
    EXPECT_EQ(L"", Value("[S]\n; k=v\n", L"S", L""));
}

TEST_F(IniFileGet, CommentedEntry_IsNotFound)
{
    EXPECT_EQ(L"default", Value("[S]\n;k=v\n", L"S", L";k"));
}

TEST_F(IniFileGet, KeyAlone_HasAnEmptyValue)
{
    EXPECT_EQ(L"", Value("[S]\nk\n", L"S", L"k"));
}

TEST_F(IniFileGet, KeyThatOccursTwice_TheFirstCounts)
{
    EXPECT_EQ(L"1", Value("[S]\nk=1\nk=2\n", L"S", L"k"));
}

TEST_F(IniFileGet, SectionThatOccursTwice_TheFirstCounts)
{
    EXPECT_EQ(L"1", Value("[S]\nk=1\n[T]\n[S]\nk=2\n", L"S", L"k"));
}

TEST_F(IniFileGet, SectionThatOccursTwice_TheSecondIsNeverReached)
{
    EXPECT_EQ(L"default", Value("[S]\na=1\n[T]\n[S]\nk=2\n", L"S", L"k"));
}

TEST_F(IniFileGet, SectionThatOccursTwiceInARow_TheSecondIsNeverReached)
{
    EXPECT_EQ(L"default", Value("[S]\n[S]\nk=2\n", L"S", L"k"));
}

TEST_F(IniFileGet, EntryBeforeTheFirstHeader_HasTheEmptySection)
{
    EXPECT_EQ(L"v", Value("k=v\n[S]\nk=w\n", L"", L"k"));
}

TEST_F(IniFileGet, EmptySection_EndsAtTheFirstHeader)
{
    EXPECT_EQ(L"default", Value("a=1\n[S]\n[]\nk=v\n", L"", L"k"));
}

TEST_F(IniFileGet, EmptySection_AHeaderWithoutANameIsNeverReached)
{
    EXPECT_EQ(L"default", Value("[]\nk=v\n", L"", L"k"));
}

TEST_F(IniFileGet, LineThatIsAHeaderInAnEntrysClothes_EndsTheSection)
{
    const std::string bytes = "[S]\na=[b]\nk=v\n";
    EXPECT_EQ(L"default", Value(bytes, L"S", L"k"));
    EXPECT_EQ(L"v", Value(bytes, L"b", L"k"));
}

TEST_F(IniFileGet, TheLastLineNeedsNoLineEnd)
{
    EXPECT_EQ(L"v", Value("[S]\nk=v", L"S", L"k"));
}

TEST_F(IniFileGet, Reading_LeavesTheFile)
{
    const std::string bytes = "\n[S]\nk=v\n\n\n";
    CIniFile& ini = Open(bytes);

    ini.GetString(L"S", L"k", L"");
    ini.GetInt(L"S", L"x", 0);

    EXPECT_EQ(bytes, Bytes());
}

TEST_F(IniFileGet, NulInAHeader_EndsTheNameThatIsLookedUp)
{
    EXPECT_EQ(L"v", Value(MarkedUtf16(std::wstring(L"[S\0x]\nk=v\n", 10)), L"s\0behind it", L"k"));
}

TEST_F(IniFileGet, Int_IsTheNumber)
{
    EXPECT_EQ(42, Number("42"));
}

TEST_F(IniFileGet, Int_MayBeNegative)
{
    EXPECT_EQ(-42, Number("-42"));
}

TEST_F(IniFileGet, Int_LeadingDigitsCount)
{
    EXPECT_EQ(12, Number("12 metres"));
}

TEST_F(IniFileGet, Int_LeadingBlanksAreSkipped)
{
    EXPECT_EQ(12, Number(" 12"));
}

TEST_F(IniFileGet, Int_TextIsZero)
{
    EXPECT_EQ(0, Number("many"));
}

TEST_F(IniFileGet, Int_EmptyValueIsZero)
{
    EXPECT_EQ(0, Number(""));
}

TEST_F(IniFileGet, Int_HexadecimalIsNotRead)
{
    EXPECT_EQ(0, Number("0x10"));
}

TEST_F(IniFileGet, Int_MissingEntryIsTheDefault)
{
    EXPECT_EQ(-7, Open("[S]\n").GetInt(L"S", L"k", -7));
}

TEST_F(IniFileGet, Int_LimitsAreReadAndDefaulted)
{
    EXPECT_EQ(INT_MIN, Number("-2147483648"));
    EXPECT_EQ(INT_MAX, Number("2147483647"));
    EXPECT_EQ(INT_MIN, Open("").GetInt(L"S", L"k", INT_MIN));
    EXPECT_EQ(INT_MAX, Open("").GetInt(L"S", L"k", INT_MAX));
}
