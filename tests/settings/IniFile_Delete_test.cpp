// Removing sections and entries.

#include "IniTest.h"
#include "support/ImportPatch.h"

using namespace vantor;
using namespace settings_test;
using support::CImportPatch;

namespace
{
bool g_written;

BOOL WINAPI NotedWriteFile(HANDLE file, LPCVOID buffer, DWORD size, LPDWORD done, LPOVERLAPPED overlapped)
{
    g_written = true;
    return ::WriteFile(file, buffer, size, done, overlapped);
}

BOOL WINAPI NotedSetEndOfFile(HANDLE file)
{
    g_written = true;
    return ::SetEndOfFile(file);
}

class IniFileDelete : public IniTest
{
protected:
    void SetUp() override { g_written = false; }

    std::string WithoutSection(const std::string& bytes, const wchar_t* section)
    {
        EXPECT_TRUE(Open(bytes).DeleteSection(section));
        return Bytes();
    }

    std::string WithoutEntry(const std::string& bytes, const wchar_t* section, const wchar_t* key)
    {
        EXPECT_TRUE(Open(bytes).DeleteEntry(section, key));
        return Bytes();
    }

    bool HasEntry(const std::string& bytes, const wchar_t* section, const wchar_t* key)
    {
        return Open(bytes).DeleteEntry(section, key);
    }
};
}   // namespace

TEST_F(IniFileDelete, Section_GoesWithItsEntries)
{
    EXPECT_EQ("[S]\r\na=1\r\n[U]\r\nc=3\r\n", WithoutSection("[S]\r\na=1\r\n[T]\r\nb=2\r\n[U]\r\nc=3\r\n", L"T"));
}

TEST_F(IniFileDelete, Section_GoesWithTheCommentsBehindItsLastEntry)
{
    EXPECT_EQ("[T]\r\n", WithoutSection("[S]\r\na=1\r\n\r\n;about T\r\n[T]\r\n", L"S"));
}

TEST_F(IniFileDelete, Section_TheLastGoesUpToTheEnd)
{
    EXPECT_EQ("[S]\r\n", WithoutSection("[S]\r\n[T]\r\na=1\r\n;note\r\n", L"T"));
}

TEST_F(IniFileDelete, Section_TheOnlyOneLeavesAnEmptyFile)
{
    EXPECT_EQ("", WithoutSection("[S]\r\na=1\r\n", L"S"));
}

TEST_F(IniFileDelete, Section_CaseDoesNotCount)
{
    EXPECT_EQ("[T]\r\n", WithoutSection("[Section]\r\n[T]\r\n", L"sECTION"));
}

TEST_F(IniFileDelete, Section_ThatOccursTwice_TheFirstGoes)
{
    EXPECT_EQ("[T]\r\n[S]\r\nb=2\r\n", WithoutSection("[S]\r\na=1\r\n[T]\r\n[S]\r\nb=2\r\n", L"S"));
}

TEST_F(IniFileDelete, Section_ThatOccursTwiceInARow_TheFirstGoes)
{
    EXPECT_EQ("[S]\r\nb=2\r\n", WithoutSection("[S]\r\na=1\r\n[S]\r\nb=2\r\n", L"S"));
}

TEST_F(IniFileDelete, Section_LinesBeforeTheFirstHeaderStay)
{
    EXPECT_EQ("a=1\r\n;note\r\n", WithoutSection("a=1\r\n;note\r\n[S]\r\nb=2\r\n", L"S"));
}

TEST_F(IniFileDelete, Section_Missing_IsFalse)
{
    EXPECT_FALSE(Open("[S]\n").DeleteSection(L"T"));
}

TEST_F(IniFileDelete, Section_Missing_NothingIsWritten)
{
    CIniFile& ini = Open("[S]\na=1");
    const CImportPatch write(&::WriteFile, &NotedWriteFile);
    const CImportPatch cut(&::SetEndOfFile, &NotedSetEndOfFile);

    ini.DeleteSection(L"T");

    EXPECT_FALSE(g_written);
}

TEST_F(IniFileDelete, Section_TheLinesBeforeTheFirstHeaderAreNone)
{
    EXPECT_FALSE(Open("a=1\n[S]\n").DeleteSection(L""));
}

TEST_F(IniFileDelete, Section_WithoutANameGoes)
{
    EXPECT_EQ("a=1\r\n", WithoutSection("a=1\r\n[]\r\nb=2\r\n", L""));
}

TEST_F(IniFileDelete, Section_NullIsTheOneWithoutAName)
{
    EXPECT_EQ("a=1\r\n", WithoutSection("a=1\r\n[]\r\nb=2\r\n", nullptr));
}

TEST_F(IniFileDelete, Entry_GoesAlone)
{
    EXPECT_EQ("[S]\r\n;note\r\n\r\nb=2\r\n", WithoutEntry("[S]\r\n;note\r\nk=1\r\n\r\nb=2\r\n", L"S", L"k"));
}

TEST_F(IniFileDelete, Entry_GoesWithItsComment)
{
    EXPECT_EQ("[S]\r\n", WithoutEntry("[S]\r\nk=1 ;note\r\n", L"S", L"k"));
}

TEST_F(IniFileDelete, Entry_CaseDoesNotCount)
{
    EXPECT_EQ("[Section]\r\n", WithoutEntry("[Section]\r\nkey=1\r\n", L"SECTION", L"KEY"));
}

TEST_F(IniFileDelete, Entry_ThatOccursTwice_TheFirstGoes)
{
    EXPECT_EQ("[S]\r\nk=2\r\n", WithoutEntry("[S]\r\nk=1\r\nk=2\r\n", L"S", L"k"));
}

TEST_F(IniFileDelete, Entry_BeforeTheFirstHeaderGoes)
{
    EXPECT_EQ("[S]\r\nk=2\r\n", WithoutEntry("k=1\r\n[S]\r\nk=2\r\n", L"", L"k"));
}

TEST_F(IniFileDelete, Entry_TheEmptyKeyIsTheFirstBlankLine)
{
    EXPECT_EQ("[S]\r\nk=1\r\n;note\r\n", WithoutEntry("[S]\r\nk=1\r\n\r\n;note\r\n", L"S", L""));
}

TEST_F(IniFileDelete, Entry_NullSectionAndKeyAreEmpty)
{
    EXPECT_EQ("k=1\r\n[S]\r\n", WithoutEntry("k=1\r\n;note\r\n[S]\r\n", nullptr, nullptr));
}

TEST_F(IniFileDelete, Entry_OfAMissingSection_IsFalse)
{
    EXPECT_FALSE(HasEntry("[S]\nk=1\n", L"T", L"k"));
}

TEST_F(IniFileDelete, Entry_OfAnotherSection_IsFalse)
{
    EXPECT_FALSE(HasEntry("[S]\na=1\n[T]\nk=1\n", L"S", L"k"));
}

TEST_F(IniFileDelete, Entry_OfTheSecondOfTwoSections_IsFalse)
{
    EXPECT_FALSE(HasEntry("[S]\na=1\n[T]\n[S]\nk=1\n", L"S", L"k"));
}

TEST_F(IniFileDelete, Entry_OfAHeaderWithoutAName_IsFalse)
{
    EXPECT_FALSE(HasEntry("[]\nk=1\n", L"", L"k"));
}

TEST_F(IniFileDelete, Entry_Missing_NothingIsWritten)
{
    CIniFile& ini = Open("[S]\na=1");
    const CImportPatch write(&::WriteFile, &NotedWriteFile);
    const CImportPatch cut(&::SetEndOfFile, &NotedSetEndOfFile);

    ini.DeleteEntry(L"S", L"k");

    EXPECT_FALSE(g_written);
}

TEST_F(IniFileDelete, Entry_Deleted_IsNotFoundAgain)
{
    CIniFile& ini = Open("[S]\r\nk=1\r\n");
    ini.DeleteEntry(L"S", L"k");

    EXPECT_FALSE(ini.DeleteEntry(L"S", L"k"));
}
