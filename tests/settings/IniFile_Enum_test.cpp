// Lists of sections and of keys.

#include "IniTest.h"

using namespace vantor;
using namespace settings_test;

namespace
{
class IniFileEnum : public IniTest
{
};
}   // namespace

TEST_F(IniFileEnum, Sections_AreInFileOrder)
{
    EXPECT_EQ((Texts{L"b", L"A", L"c"}), Sections(Open("[b]\n[A]\nk=v\n[c]\n")));
}

TEST_F(IniFileEnum, Sections_OneThatOccursTwiceIsListedTwice)
{
    EXPECT_EQ((Texts{L"S", L"T", L"s"}), Sections(Open("[S]\n[T]\n[s]\n")));
}

TEST_F(IniFileEnum, Sections_WithoutANameAreListed)
{
    EXPECT_EQ((Texts{L""}), Sections(Open("k=v\n[]\n")));
}

TEST_F(IniFileEnum, Sections_CommentedOnesAreNotListed)
{
    EXPECT_EQ((Texts{L"T"}), Sections(Open(";[S]\n[T] ;[U]\n")));
}

TEST_F(IniFileEnum, Sections_OfAFileWithoutHeadersAreNone)
{
    EXPECT_EQ(Texts(), Sections(Open("k=v\n")));
}

TEST_F(IniFileEnum, Sections_WhatWasInTheListIsGone)
{
    Texts sections = {L"old"};

    Open("[new]\n").EnumSections(sections);

    EXPECT_EQ((Texts{L"new"}), sections);
}

TEST_F(IniFileEnum, Entries_AreInFileOrder)
{
    EXPECT_EQ((Texts{L"b", L"A", L"c"}), Entries(Open("[S]\nb=1\nA=2\nc\n"), L"S"));
}

TEST_F(IniFileEnum, Entries_EndAtTheNextHeader)
{
    EXPECT_EQ((Texts{L"a"}), Entries(Open("[S]\na=1\n[T]\nb=2\n"), L"S"));
}

TEST_F(IniFileEnum, Entries_CaseOfTheSectionDoesNotCount)
{
    EXPECT_EQ((Texts{L"a"}), Entries(Open("[Section]\na=1\n"), L"sECTION"));
}

TEST_F(IniFileEnum, Entries_ABlankLineIsAnEmptyKey)
{
    EXPECT_EQ((Texts{L"a", L"", L"b"}), Entries(Open("[S]\na=1\n\nb=2\n"), L"S"));
}

TEST_F(IniFileEnum, Entries_ACommentLineIsAnEmptyKey)
{
    EXPECT_EQ((Texts{L"a", L"", L"b"}), Entries(Open("[S]\na=1\n;note\nb=2\n"), L"S"));
}

TEST_F(IniFileEnum, Entries_OneThatOccursTwiceIsListedTwice)
{
    EXPECT_EQ((Texts{L"k", L"K"}), Entries(Open("[S]\nk=1\nK=2\n"), L"S"));
}

TEST_F(IniFileEnum, Entries_OfTheFirstOfTwoSectionsAlone)
{
    EXPECT_EQ((Texts{L"a"}), Entries(Open("[S]\na=1\n[T]\n[S]\nb=2\n"), L"S"));
}

TEST_F(IniFileEnum, Entries_BeforeTheFirstHeaderAreNotListed)
{
    EXPECT_EQ(Texts(), Entries(Open("a=1\n[S]\nb=2\n"), L""));
}

TEST_F(IniFileEnum, Entries_OfAHeaderWithoutANameAreListed)
{
    EXPECT_EQ((Texts{L"b"}), Entries(Open("a=1\n[]\nb=2\n"), L""));
}

TEST_F(IniFileEnum, Entries_NullSectionIsTheHeaderWithoutAName)
{
    EXPECT_EQ((Texts{L"b"}), Entries(Open("a=1\n[]\nb=2\n"), nullptr));
}

TEST_F(IniFileEnum, Entries_OfAMissingSectionAreNone)
{
    EXPECT_EQ(Texts(), Entries(Open("[S]\na=1\n"), L"T"));
}

TEST_F(IniFileEnum, Entries_OfAMissingSection_WhatWasInTheListIsGone)
{
    Texts keys = {L"old"};

    Open("[S]\na=1\n").EnumEntries(L"T", keys);

    EXPECT_EQ(Texts(), keys);
}

TEST_F(IniFileEnum, Entries_TheSectionMayStandInTheList)
{
    CIniFile& ini = Open("[A name that fills a block of its own]\na=1\n");
    Texts texts = Sections(ini);

    ini.EnumEntries(texts[0].c_str(), texts);

    EXPECT_EQ((Texts{L"a"}), texts);
}

TEST_F(IniFileEnum, Listing_LeavesTheFile)
{
    const std::string bytes = "\n[S]\nk=v\n\n\n";
    CIniFile& ini = Open(bytes);

    Sections(ini);
    Entries(ini, L"S");

    EXPECT_EQ(bytes, Bytes());
}
