// Setting and adding entries.

#include "IniTest.h"

#include <climits>

using namespace vantor;
using namespace settings_test;

namespace
{
class IniFileWrite : public IniTest
{
protected:
    std::string After(const std::string& bytes, const wchar_t* section, const wchar_t* key, const wchar_t* value)
    {
        EXPECT_TRUE(Open(bytes).WriteString(section, key, value));
        return Bytes();
    }
};
}   // namespace

TEST_F(IniFileWrite, ExistingEntry_IsReplaced)
{
    EXPECT_EQ("[S]\r\na=1\r\nk=new\r\nb=2\r\n", After("[S]\r\na=1\r\nk=old\r\nb=2\r\n", L"S", L"k", L"new"));
}

TEST_F(IniFileWrite, ExistingEntry_LosesItsComment)
{
    EXPECT_EQ("[S]\r\nk=new\r\n", After("[S]\r\nk=old ;note\r\n", L"S", L"k", L"new"));
}

TEST_F(IniFileWrite, ExistingEntry_TakesTheNewSpellingOfTheKey)
{
    EXPECT_EQ("[Section]\r\nKEY=new\r\n", After("[Section]\r\nkey=old\r\n", L"SECTION", L"KEY", L"new"));
}

TEST_F(IniFileWrite, ExistingEntryThatOccursTwice_TheFirstIsReplaced)
{
    EXPECT_EQ("[S]\r\nk=new\r\nk=2\r\n", After("[S]\r\nk=1\r\nk=2\r\n", L"S", L"k", L"new"));
}

TEST_F(IniFileWrite, KeyAlone_IsReplaced)
{
    EXPECT_EQ("[S]\r\nk=new\r\n", After("[S]\r\nk\r\n", L"S", L"k", L"new"));
}

TEST_F(IniFileWrite, KeyThatDiffersByABlank_IsAnotherEntry)
{
    EXPECT_EQ("[S]\r\nk =old\r\nk=new\r\n", After("[S]\r\nk =old\r\n", L"S", L"k", L"new"));
}

TEST_F(IniFileWrite, NewEntry_GoesToTheEndOfItsSection)
{
    EXPECT_EQ("[S]\r\na=1\r\nk=v\r\n[T]\r\nb=2\r\n", After("[S]\r\na=1\r\n[T]\r\nb=2\r\n", L"S", L"k", L"v"));
}

TEST_F(IniFileWrite, NewEntry_GoesBehindBlankLinesAndComments)
{
    EXPECT_EQ("[S]\r\na=1\r\n\r\n;about T\r\nk=v\r\n[T]\r\n",
              After("[S]\r\na=1\r\n\r\n;about T\r\n[T]\r\n", L"S", L"k", L"v"));
}

TEST_F(IniFileWrite, NewEntry_OfTheLastSectionGoesToTheEndOfTheFile)
{
    EXPECT_EQ("[S]\r\n[T]\r\na=1\r\nk=v\r\n", After("[S]\r\n[T]\r\na=1\r\n", L"T", L"k", L"v"));
}

TEST_F(IniFileWrite, NewEntry_OfAnEmptySectionFollowsItsHeader)
{
    EXPECT_EQ("[S]\r\nk=v\r\n[T]\r\n", After("[S]\r\n[T]\r\n", L"S", L"k", L"v"));
}

TEST_F(IniFileWrite, NewEntry_OfASectionThatOccursTwiceGoesToTheFirst)
{
    EXPECT_EQ("[S]\r\na=1\r\nk=v\r\n[T]\r\n[S]\r\nk=2\r\n",
              After("[S]\r\na=1\r\n[T]\r\n[S]\r\nk=2\r\n", L"S", L"k", L"v"));
}

TEST_F(IniFileWrite, NewEntry_KeyOfAnotherSectionIsLeft)
{
    EXPECT_EQ("[S]\r\nk=v\r\n[T]\r\nk=2\r\n", After("[S]\r\n[T]\r\nk=2\r\n", L"S", L"k", L"v"));
}

TEST_F(IniFileWrite, NewSection_GoesToTheEndOfTheFile)
{
    EXPECT_EQ("a=1\r\n[S]\r\nb=2\r\n[T]\r\nk=v\r\n", After("a=1\r\n[S]\r\nb=2\r\n", L"T", L"k", L"v"));
}

TEST_F(IniFileWrite, NewSection_OfAFileWithoutALastLineEnd_StartsALine)
{
    EXPECT_EQ("[S]\r\nb=2\r\n[T]\r\nk=v\r\n", After("[S]\nb=2", L"T", L"k", L"v"));
}

TEST_F(IniFileWrite, EmptySection_OfAFileWithoutHeaders_Appends)
{
    EXPECT_EQ("a=1\r\nk=v\r\n", After("a=1\r\n", L"", L"k", L"v"));
}

TEST_F(IniFileWrite, EmptySection_OfAnEmptyFile_HasNoHeader)
{
    EXPECT_EQ("k=v\r\n", After("", L"", L"k", L"v"));
}

TEST_F(IniFileWrite, EmptySection_GoesBeforeTheFirstHeader)
{
    EXPECT_EQ("a=1\r\nk=v\r\n[S]\r\n", After("a=1\r\n[S]\r\n", L"", L"k", L"v"));
}

TEST_F(IniFileWrite, EmptySection_GoesBeforeAHeaderWithoutAName)
{
    EXPECT_EQ("k=v\r\n[]\r\nk=1\r\n", After("[]\r\nk=1\r\n", L"", L"k", L"v"));
}

TEST_F(IniFileWrite, HeaderInAnEntrysClothes_IsKept)
{
    EXPECT_EQ("[S]\r\nk=v\r\na=[b]\r\n", After("[S]\r\na=[b]\r\n", L"S", L"k", L"v"));
}

TEST_F(IniFileWrite, LinesThatMeanNothing_AreKept)
{
    EXPECT_EQ("]x[\r\n[S]\r\n\t\r\n===\r\nk=v\r\n[lone\r\n",
              After("]x[\r\n[S]\r\n\t\r\n===\r\nk=old\r\n[lone\r\n", L"S", L"k", L"v"));
}

TEST_F(IniFileWrite, NullSection_IsTheEmptyOne)
{
    EXPECT_EQ("k=v\r\n[S]\r\n", After("[S]\r\n", nullptr, L"k", L"v"));
}

TEST_F(IniFileWrite, NullKey_ReplacesTheFirstBlankLine)
{
    EXPECT_EQ("[S]\r\na=1\r\n=v\r\nb=2\r\n", After("[S]\r\na=1\r\n\r\nb=2\r\n", L"S", nullptr, L"v"));
}

TEST_F(IniFileWrite, NullValue_IsAnEmptyOne)
{
    EXPECT_EQ("[S]\r\nk=\r\n", After("[S]\r\nk=v\r\n", L"S", L"k", nullptr));
}

TEST_F(IniFileWrite, ValueWithAnEqualsSign_IsWrittenWholeAndReadInPart)
{
    CIniFile& ini = Open("");
    ini.WriteString(L"S", L"k", L"a=b");

    EXPECT_EQ("[S]\r\nk=a=b\r\n", Bytes());
    EXPECT_EQ(L"a", ini.GetString(L"S", L"k", L""));
}

TEST_F(IniFileWrite, ValueWithASemicolon_IsWrittenWholeAndReadInPart)
{
    CIniFile& ini = Open("");
    ini.WriteString(L"S", L"k", L"a;b");

    EXPECT_EQ("[S]\r\nk=a;b\r\n", Bytes());
    EXPECT_EQ(L"a", ini.GetString(L"S", L"k", L""));
}

TEST_F(IniFileWrite, LongValue_IsWrittenWhole)
{
    const std::wstring value(5000, L'x');

    EXPECT_EQ("[S]\r\nk=" + std::string(5000, 'x') + "\r\n", After("", L"S", L"k", value.c_str()));
}

TEST_F(IniFileWrite, SameValueAgain_IsTrueToo)
{
    EXPECT_EQ("[S]\r\nk=v\r\n", After("[S]\r\nk=v\r\n", L"S", L"k", L"v"));
}

TEST_F(IniFileWrite, ValueThatWasJustRead_MayBeWrittenBack)
{
    CIniFile& ini = Open("[S]\r\na=1\r\nk=v\r\n");

    ini.WriteString(L"S", L"a", ini.GetString(L"S", L"k", L"").c_str());

    EXPECT_EQ("[S]\r\na=v\r\nk=v\r\n", Bytes());
}

TEST_F(IniFileWrite, Int_IsDecimal)
{
    EXPECT_TRUE(Open("").WriteInt(L"S", L"k", -42));

    EXPECT_EQ("[S]\r\nk=-42\r\n", Bytes());
}

TEST_F(IniFileWrite, Int_Limits)
{
    CIniFile& ini = Open("");
    ini.WriteInt(L"S", L"low", INT_MIN);
    ini.WriteInt(L"S", L"high", INT_MAX);

    EXPECT_EQ("[S]\r\nlow=-2147483648\r\nhigh=2147483647\r\n", Bytes());
}
