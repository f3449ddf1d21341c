// Encodings and line ends, to the byte.

#include "IniTest.h"

using namespace vantor;
using namespace settings_test;
using support::Utf16;

namespace
{
class IniFileBytes : public IniTest
{
protected:
    std::string Resaved(const std::string& bytes)
    {
        CIniFile& ini = Open(bytes);
        ini.Load();
        ini.Save();
        return Bytes();
    }
};
}   // namespace

TEST_F(IniFileBytes, Utf8_StaysUtf8WithoutAMark)
{
    CIniFile& ini = Open("[\xC3\x9C]\r\nk=\xE2\x82\xAC\r\n");
    ini.WriteString(L"\u00DC", L"x", L"\u00DF");

    EXPECT_EQ("[\xC3\x9C]\r\nk=\xE2\x82\xAC\r\nx=\xC3\x9F\r\n", Bytes());
}

TEST_F(IniFileBytes, Utf8_ReadsToTheText)
{
    EXPECT_EQ(L"\u20AC\xD83D\xDE00", Open("[S]\nk=\xE2\x82\xAC\xF0\x9F\x98\x80\n").GetString(L"S", L"k", L""));
}

TEST_F(IniFileBytes, Utf8_LineFeedsAloneBecomeCrLf)
{
    EXPECT_EQ("[S]\r\nk=v\r\n", Resaved("[S]\nk=v\n"));
}

TEST_F(IniFileBytes, Utf8_MarkIsACharacterOfTheFirstLine)
{
    EXPECT_EQ(L"v", Open("\xEF\xBB\xBFk=v\n").GetString(L"", L"\xFEFFk", L""));
}

TEST_F(IniFileBytes, Utf8_MarkIsWrittenBack)
{
    CIniFile& ini = Open("\xEF\xBB\xBF[S]\r\nk=old\r\n");
    ini.WriteString(L"S", L"k", L"new");

    EXPECT_EQ("\xEF\xBB\xBF[S]\r\nk=new\r\n", Bytes());
}

TEST_F(IniFileBytes, Utf8_NulEndsTheText)
{
    EXPECT_EQ("[S]\r\na=1\r\n", Resaved(std::string("[S]\na=1\0\nb=2\n", 13)));
}

TEST_F(IniFileBytes, Utf8_BytesThatAreNoneBecomeTheReplacementCharacter)
{
    EXPECT_EQ("[S]\r\nk=a\xEF\xBF\xBD\x62\r\n", Resaved("[S]\r\nk=a\xFF\x62\r\n"));
}

TEST_F(IniFileBytes, Utf8_SurrogateAloneBecomesTheReplacementCharacter)
{
    Open("").WriteString(L"S", L"k", L"\xD83D");

    EXPECT_EQ("[S]\r\nk=\xEF\xBF\xBD\r\n", Bytes());
}

TEST_F(IniFileBytes, Utf16_StaysUtf16WithTheMark)
{
    CIniFile& ini = Open(MarkedUtf16(L"[S]\r\nk=\u20AC\r\n"));
    ini.WriteString(L"S", L"x", L"\u00DF");

    EXPECT_EQ(MarkedUtf16(L"[S]\r\nk=\u20AC\r\nx=\u00DF\r\n"), Bytes());
}

TEST_F(IniFileBytes, Utf16_ReadsToTheText)
{
    CIniFile& ini = Open(MarkedUtf16(L"[S]\nk=\u20AC\xD83D\xDE00\n"));

    EXPECT_EQ((Texts{L"S"}), Sections(ini));
    EXPECT_EQ(L"\u20AC\xD83D\xDE00", ini.GetString(L"S", L"k", L""));
}

TEST_F(IniFileBytes, Utf16_LineFeedsAloneBecomeCrLf)
{
    EXPECT_EQ(MarkedUtf16(L"[S]\r\nk=v\r\n"), Resaved(MarkedUtf16(L"[S]\nk=v\n")));
}

TEST_F(IniFileBytes, Utf16_MarkAlone_IsAnEmptyFile)
{
    CIniFile& ini = Open("\xFF\xFE");

    EXPECT_EQ(Texts(), Sections(ini));
    EXPECT_EQ(L"d", ini.GetString(L"", L"", L"d"));
}

TEST_F(IniFileBytes, Utf16_MarkAlone_KeepsTheEncoding)
{
    Open("\xFF\xFE").WriteString(L"S", L"k", L"v");

    EXPECT_EQ(MarkedUtf16(L"[S]\r\nk=v\r\n"), Bytes());
}

TEST_F(IniFileBytes, Utf16_WithoutLines_IsTheMarkAlone)
{
    Open(MarkedUtf16(L"[S]\r\nk=v\r\n")).DeleteSection(L"S");

    EXPECT_EQ("\xFF\xFE", Bytes());
}

TEST_F(IniFileBytes, Utf16_SurrogateAloneIsKept)
{
    EXPECT_EQ(MarkedUtf16(L"k=\xD83D\r\n"), Resaved(MarkedUtf16(L"k=\xD83D\r\n")));
}

TEST_F(IniFileBytes, Utf16_NulIsKept)
{
    const std::wstring text(L"[S]\r\na\0b=1\r\nk=v\r\n", 17);

    EXPECT_EQ(MarkedUtf16(text), Resaved(MarkedUtf16(text)));
}

TEST_F(IniFileBytes, Utf16_LinesBehindANulAreFound)
{
    EXPECT_EQ(L"v", Open(MarkedUtf16(std::wstring(L"[S]\na\0b=1\nk=v\n", 14))).GetString(L"S", L"k", L""));
}

TEST_F(IniFileBytes, Utf16_OddLastByteIsDropped)
{
    EXPECT_EQ(MarkedUtf16(L"[S]\r\n"), Resaved(MarkedUtf16(L"[S]\r\n") + 'x'));
}

TEST_F(IniFileBytes, Utf16_OneByteBehindTheMarkIsDropped)
{
    EXPECT_EQ("\xFF\xFE", Resaved("\xFF\xFEx"));
}

TEST_F(IniFileBytes, Utf16_BigEndianMarkIsNone)
{
    Open("\xFE\xFF").WriteString(L"", L"k", L"v");

    EXPECT_EQ("\xEF\xBF\xBD\xEF\xBF\xBD\r\nk=v\r\n", Bytes());
}

TEST_F(IniFileBytes, FirstByteOfTheMarkAlone_IsUtf8)
{
    EXPECT_EQ("\xEF\xBF\xBD\r\n", Resaved("\xFF"));
}

TEST_F(IniFileBytes, NewEncodingOnDisk_IsTheOneWritten)
{
    CIniFile& ini = Open("[S]\r\nk=v\r\n");
    ini.Load();

    SetBytes(MarkedUtf16(L"[S]\r\nk=v\r\n"));
    ini.WriteString(L"S", L"k", L"w");

    EXPECT_EQ(MarkedUtf16(L"[S]\r\nk=w\r\n"), Bytes());
}

TEST_F(IniFileBytes, EmptiedFile_IsWrittenAsUtf8)
{
    CIniFile& ini = Open(MarkedUtf16(L"[S]\r\n"));
    ini.Load();

    SetBytes("");
    ini.WriteString(L"S", L"k", L"v");

    EXPECT_EQ("[S]\r\nk=v\r\n", Bytes());
}

TEST_F(IniFileBytes, CarriageReturns_AreRemovedEverywhere)
{
    EXPECT_EQ("ab=cd\r\ne\r\n", Resaved("\ra\rb=c\rd\r\r\n\re\r"));
}

TEST_F(IniFileBytes, CarriageReturnAlone_EndsNoLine)
{
    EXPECT_EQ((Texts{L"ab"}), Entries(Open("[S]\na\rb\n"), L"S"));
}

TEST_F(IniFileBytes, CarriageReturnsAlone_AreAnEmptyFile)
{
    EXPECT_EQ("", Resaved("\r\r\r"));
}

TEST_F(IniFileBytes, LastLineWithoutALineEnd_GetsOne)
{
    EXPECT_EQ("[S]\r\nk=v\r\n", Resaved("[S]\r\nk=v"));
}

TEST_F(IniFileBytes, LastLineWithALineEnd_IsFollowedByNone)
{
    EXPECT_EQ("[S]\r\nk=v\r\n", Resaved("[S]\r\nk=v\r\n"));
}

TEST_F(IniFileBytes, EmptyLastLine_IsLost)
{
    EXPECT_EQ("[S]\r\nk=v\r\n", Resaved("[S]\r\nk=v\r\n\r\n"));
}

TEST_F(IniFileBytes, EmptyLastLines_AreLostOneByOne)
{
    EXPECT_EQ("[S]\r\n\r\n", Resaved("[S]\r\n\r\n\r\n"));
}

TEST_F(IniFileBytes, EmptyLastLine_IsNoEntry)
{
    EXPECT_EQ((Texts{L"k"}), Entries(Open("[S]\nk=v\n\n"), L"S"));
}

TEST_F(IniFileBytes, BlankLineAlone_IsLost)
{
    EXPECT_EQ("", Resaved("\r\n"));
}

TEST_F(IniFileBytes, LastLineOfBlanks_IsKept)
{
    EXPECT_EQ("[S]\r\n \r\n", Resaved("[S]\r\n \r\n"));
}

TEST_F(IniFileBytes, EmptyFile_StaysEmpty)
{
    EXPECT_EQ("", Resaved(""));
}

TEST_F(IniFileBytes, SaveAfterLoad_OverwritesWhatOthersWroteMeanwhile)
{
    CIniFile& ini = Open("[S]\r\nk=mine\r\n");
    ini.Load();

    SetBytes("[S]\r\nk=of another\r\nmore=1\r\n");
    ini.Save();

    EXPECT_EQ("[S]\r\nk=mine\r\n", Bytes());
}

TEST_F(IniFileBytes, SaveWithoutLoad_EmptiesTheFile)
{
    Open("[S]\r\nk=v\r\n").Save();

    EXPECT_EQ("", Bytes());
}

TEST_F(IniFileBytes, ShorterContents_LeaveNothingOfTheLonger)
{
    CIniFile& ini = Open("[S]\r\nk=a long value\r\n");
    ini.WriteString(L"S", L"k", L"");

    EXPECT_EQ("[S]\r\nk=\r\n", Bytes());
}

// A character of three bytes at every place around the end of the first block that is read.
TEST_F(IniFileBytes, Utf8_CharacterOnABlocksBorder_IsWhole)
{
    for (std::size_t length = 505; length <= 515; ++length)
    {
        const std::string bytes = std::string(length, 'x') + "=\xE2\x82\xAC\r\n";
        ASSERT_EQ(bytes, Resaved(bytes)) << length << " characters before it";
        Close();
    }
}

TEST_F(IniFileBytes, Utf16_TextThatEndsAroundABlocksBorder_IsWhole)
{
    for (std::size_t length = 250; length <= 260; ++length)
    {
        const std::string bytes = MarkedUtf16(std::wstring(length, L'\u20AC') + L"\r\n");
        ASSERT_EQ(bytes, Resaved(bytes)) << length << " characters";
        Close();
    }
}

TEST_F(IniFileBytes, FileOfWholeBlocks_IsReadToItsEnd)
{
    for (const std::size_t size : {510, 511, 512, 513, 1023, 1024, 1025, 5120})
    {
        const std::string bytes = std::string(size - 2, 'x') + "\r\n";
        ASSERT_EQ(bytes, Resaved(bytes)) << size << " bytes";
        Close();
    }
}
