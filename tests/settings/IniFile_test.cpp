// How an INI file is opened and closed, and that every call sees it as it is on disk.

#include "IniTest.h"
#include "support/Failure.h"
#include "support/ImportPatch.h"
#include "support/Leaks.h"

#include <type_traits>

using namespace vantor;
using namespace settings_test;
using support::CImportPatch;
using support::CResources;

namespace
{
struct COpening
{
    std::wstring name;
    DWORD access;
    DWORD share;
    SECURITY_ATTRIBUTES* sa;
    DWORD disposition;
    DWORD flags;
    HANDLE hTemplate;
};
COpening g_opening;

HANDLE WINAPI RecordingCreateFile(LPCWSTR name, DWORD access, DWORD share, SECURITY_ATTRIBUTES* sa, DWORD disposition,
                                  DWORD flags, HANDLE hTemplate)
{
    g_opening = {name, access, share, sa, disposition, flags, hTemplate};
    return ::CreateFileW(name, access, share, sa, disposition, flags, hTemplate);
}

const HANDLE NoHandle = reinterpret_cast<HANDLE>(0x7FF0);

HANDLE WINAPI CreateFileThatGivesNoHandle(LPCWSTR, DWORD, DWORD, SECURITY_ATTRIBUTES*, DWORD, DWORD, HANDLE)
{
    return NoHandle;
}

int g_calls;

BOOL WINAPI CountingReadFile(HANDLE file, LPVOID buffer, DWORD size, LPDWORD done, LPOVERLAPPED overlapped)
{
    ++g_calls;
    return ::ReadFile(file, buffer, size, done, overlapped);
}

BOOL WINAPI CountingWriteFile(HANDLE file, LPCVOID buffer, DWORD size, LPDWORD done, LPOVERLAPPED overlapped)
{
    ++g_calls;
    return ::WriteFile(file, buffer, size, done, overlapped);
}

BOOL WINAPI CountingSetEndOfFile(HANDLE file)
{
    ++g_calls;
    return ::SetEndOfFile(file);
}

bool CanOpen(const wchar_t* path, DWORD access, DWORD share)
{
    const HANDLE file = ::CreateFileW(path, access, share, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    ::CloseHandle(file);
    return true;
}

class IniFile : public IniTest
{
protected:
    void SetUp() override { g_calls = 0; }
};
}   // namespace

TEST_F(IniFile, Construction_MissingFile_CreatesItEmpty)
{
    OpenAsItIs();

    EXPECT_EQ("", Bytes());
}

TEST_F(IniFile, Construction_ExistingFile_LeavesIt)
{
    Open("[S]\nk=v");

    EXPECT_EQ("[S]\nk=v", Bytes());
}

TEST_F(IniFile, Construction_DoesNotRead)
{
    const CImportPatch patch(&::ReadFile, &CountingReadFile);

    Open("[S]\nk=v\n");

    EXPECT_EQ(0, g_calls);
}

TEST_F(IniFile, Construction_AsksForReadingAndWritingAndSharesBoth)
{
    const CImportPatch patch(&::CreateFileW, &RecordingCreateFile);

    OpenAsItIs();

    EXPECT_TRUE(g_opening.name == m_path);
    EXPECT_EQ(GENERIC_READ | GENERIC_WRITE, g_opening.access);
    EXPECT_EQ(static_cast<DWORD>(FILE_SHARE_READ | FILE_SHARE_WRITE), g_opening.share);
    EXPECT_EQ(nullptr, g_opening.sa);
    EXPECT_EQ(static_cast<DWORD>(OPEN_ALWAYS), g_opening.disposition);
    EXPECT_EQ(static_cast<DWORD>(FILE_ATTRIBUTE_NORMAL), g_opening.flags);
    EXPECT_EQ(nullptr, g_opening.hTemplate);
}

TEST_F(IniFile, WhileOpen_OthersMayReadAndWriteIt)
{
    Open("");

    EXPECT_TRUE(CanOpen(m_path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE));
}

TEST_F(IniFile, WhileOpen_StaysOpenBetweenCalls)
{
    CIniFile& ini = Open("[S]\nk=v\n");
    ini.WriteString(L"S", L"k", L"w");

    EXPECT_FALSE(CanOpen(m_path.c_str(), GENERIC_READ, 0));
}

TEST_F(IniFile, Destruction_ClosesTheFile)
{
    Open("[S]\nk=v\n").GetString(L"S", L"k", L"");

    Close();

    EXPECT_TRUE(CanOpen(m_path.c_str(), GENERIC_READ, 0));
}

TEST_F(IniFile, Destruction_NeverWrites)
{
    CIniFile& ini = Open("[S]\nk=v\n");
    ini.Load();
    SetBytes("[T]\nof=another\n");
    const CImportPatch write(&::WriteFile, &CountingWriteFile);
    const CImportPatch cut(&::SetEndOfFile, &CountingSetEndOfFile);

    Close();

    EXPECT_EQ(0, g_calls);
    EXPECT_EQ("[T]\nof=another\n", Bytes());
}

TEST_F(IniFile, Destruction_LeavesNothingBehind)
{
    const auto use = [this]
    {
        Open("[S]\r\nk=v\r\n").WriteString(L"T", L"k", L"v");
        Close();
    };
    use();
    const CResources before;

    use();

    EXPECT_EQ(before, CResources());
}

TEST_F(IniFile, Destruction_AFailingCloseIsThrown)
{
    const CImportPatch patch(&::CreateFileW, &CreateFileThatGivesNoHandle);
    ASSERT_FALSE(::CloseHandle(NoHandle));

    EXPECT_FAILURE(53, L".\\Object", L"CloseHandle", ERROR_INVALID_HANDLE, const CIniFile ini(m_path.c_str()));
}

TEST_F(IniFile, MissingFile_GetStringIsTheDefault)
{
    EXPECT_EQ(L"d", OpenAsItIs().GetString(L"S", L"k", L"d"));
}

TEST_F(IniFile, MissingFile_TheFirstWriteIsUtf8)
{
    OpenAsItIs().WriteString(L"S", L"k", L"v");

    EXPECT_EQ("[S]\r\nk=v\r\n", Bytes());
}

TEST_F(IniFile, ChangeOfAnotherProgram_IsSeenByGetString)
{
    CIniFile& ini = Open("[S]\nk=old\n");
    ini.GetString(L"S", L"k", L"");

    SetBytes("[S]\nk=new\n");

    EXPECT_EQ(L"new", ini.GetString(L"S", L"k", L""));
}

TEST_F(IniFile, ChangeOfAnotherProgram_IsSeenByGetInt)
{
    CIniFile& ini = Open("[S]\nk=1\n");
    ini.GetInt(L"S", L"k", 0);

    SetBytes("[S]\nk=2\n");

    EXPECT_EQ(2, ini.GetInt(L"S", L"k", 0));
}

TEST_F(IniFile, ChangeOfAnotherProgram_IsSeenByEnumSections)
{
    CIniFile& ini = Open("[old]\n");
    Sections(ini);

    SetBytes("[new]\n");

    EXPECT_EQ((Texts{L"new"}), Sections(ini));
}

TEST_F(IniFile, ChangeOfAnotherProgram_IsSeenByEnumEntries)
{
    CIniFile& ini = Open("[S]\nold=\n");
    Entries(ini, L"S");

    SetBytes("[S]\nnew=\n");

    EXPECT_EQ((Texts{L"new"}), Entries(ini, L"S"));
}

TEST_F(IniFile, ChangeOfAnotherProgram_IsKeptByWriteString)
{
    CIniFile& ini = Open("[S]\r\nk=old\r\n");
    ini.Load();

    SetBytes("[S]\r\nk=new\r\n");
    ini.WriteString(L"S", L"mine", L"1");

    EXPECT_EQ("[S]\r\nk=new\r\nmine=1\r\n", Bytes());
}

TEST_F(IniFile, ChangeOfAnotherProgram_IsKeptByDeleteEntry)
{
    CIniFile& ini = Open("[S]\r\nk=old\r\nx=\r\n");
    ini.Load();

    SetBytes("[S]\r\nk=new\r\nx=\r\n");
    ini.DeleteEntry(L"S", L"x");

    EXPECT_EQ("[S]\r\nk=new\r\n", Bytes());
}

TEST_F(IniFile, ChangeOfAnotherProgram_IsKeptByDeleteSection)
{
    CIniFile& ini = Open("[S]\r\nk=old\r\n[T]\r\n");
    ini.Load();

    SetBytes("[S]\r\nk=new\r\n[T]\r\n");
    ini.DeleteSection(L"T");

    EXPECT_EQ("[S]\r\nk=new\r\n", Bytes());
}

TEST_F(IniFile, TwoObjectsOnOneFile_TheLastWriterWins)
{
    CIniFile& one = Open("[S]\r\n");
    CIniFile& other = OpenAsItIs();

    one.WriteString(L"S", L"k", L"one");
    other.WriteString(L"S", L"k", L"other");

    EXPECT_EQ(L"other", one.GetString(L"S", L"k", L""));
}

TEST(IniFileClass, CannotBeCopied)
{
    EXPECT_FALSE(std::is_copy_constructible_v<CIniFile>);
    EXPECT_FALSE(std::is_copy_assignable_v<CIniFile>);
}
