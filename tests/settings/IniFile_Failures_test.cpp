// What fails, and what object and file hold afterwards.

#include "IniTest.h"
#include "support/Failure.h"
#include "support/ImportPatch.h"

#include <algorithm>

using namespace vantor;
using namespace settings_test;
using support::CImportPatch;

namespace
{
constexpr DWORD Injected = 0xDEADBEEF;

HANDLE WINAPI RefusedCreateFile(LPCWSTR, DWORD, DWORD, SECURITY_ATTRIBUTES*, DWORD, DWORD, HANDLE)
{
    ::SetLastError(ERROR_ACCESS_DENIED);
    return INVALID_HANDLE_VALUE;
}

int g_goodCalls;   // that come before the one that fails

BOOL WINAPI FailingReadFile(HANDLE file, LPVOID buffer, DWORD size, LPDWORD done, LPOVERLAPPED overlapped)
{
    if (g_goodCalls-- > 0)
        return ::ReadFile(file, buffer, size, done, overlapped);
    ::SetLastError(Injected);
    return FALSE;
}

DWORD WINAPI FailingSetFilePointer(HANDLE file, LONG low, LONG* high, DWORD method)
{
    if (g_goodCalls-- > 0)
        return ::SetFilePointer(file, low, high, method);
    ::SetLastError(Injected);
    return 0xFFFFFFFF;
}

BOOL WINAPI FailingSetEndOfFile(HANDLE)
{
    ::SetLastError(Injected);
    return FALSE;
}

// Room for six bytes is left.
BOOL WINAPI FullDiskWriteFile(HANDLE file, LPCVOID buffer, DWORD size, LPDWORD done, LPOVERLAPPED overlapped)
{
    ::WriteFile(file, buffer, std::min<DWORD>(size, 6), done, overlapped);
    ::SetLastError(ERROR_DISK_FULL);
    return FALSE;
}

class IniFileFailures : public IniTest
{
protected:
    void SetUp() override { g_goodCalls = 0; }

    const std::string m_bytes = "[S]\r\nk=v\r\n[T]\r\n";
};
}   // namespace

TEST_F(IniFileFailures, Construction_InAMissingFolder)
{
    const ustring path = m_folder.File(L"missing\\a.ini");

    EXPECT_FAILURE(41, L".\\File", L"CreateFile", ERROR_PATH_NOT_FOUND, const CIniFile ini(path.c_str()));
}

TEST_F(IniFileFailures, Construction_OfAFileThatAnotherHasForItselfAlone)
{
    const CFile other(m_path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);

    EXPECT_FAILURE(41, L".\\File", L"CreateFile", ERROR_SHARING_VIOLATION, const CIniFile ini(m_path.c_str()));
}

TEST_F(IniFileFailures, Construction_OfAFileThatAnotherLetsBeReadOnly)
{
    const CFile other(m_path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, CREATE_NEW, 0, nullptr);

    EXPECT_FAILURE(41, L".\\File", L"CreateFile", ERROR_SHARING_VIOLATION, const CIniFile ini(m_path.c_str()));
}

TEST_F(IniFileFailures, Construction_OfAFolder)
{
    EXPECT_FAILURE(41, L".\\File", L"CreateFile", ERROR_ACCESS_DENIED, const CIniFile ini(m_folder.Path().c_str()));
}

// Injected: the attribute of a read-only file does not stop the superuser on Wine.
TEST_F(IniFileFailures, Construction_OfAFileThatMayNotBeWritten)
{
    SetBytes(m_bytes);
    const CImportPatch patch(&::CreateFileW, &RefusedCreateFile);

    EXPECT_FAILURE(41, L".\\File", L"CreateFile", ERROR_ACCESS_DENIED, const CIniFile ini(m_path.c_str()));
    EXPECT_EQ(m_bytes, Bytes());
}

TEST_F(IniFileFailures, Construction_WithoutAName)
{
    EXPECT_FAILURE(41, L".\\File", L"CreateFile", ERROR_PATH_NOT_FOUND, const CIniFile ini(nullptr));
}

TEST_F(IniFileFailures, Load_SeekFails)
{
    CIniFile& ini = Open(m_bytes);
    const CImportPatch patch(&::SetFilePointer, &FailingSetFilePointer);

    EXPECT_FAILURE(94, L".\\File", L"SetFilePointer", Injected, ini.Load());
}

TEST_F(IniFileFailures, Load_ReadFails)
{
    CIniFile& ini = Open(m_bytes);
    const CImportPatch patch(&::ReadFile, &FailingReadFile);

    EXPECT_FAILURE(54, L".\\File", L"ReadFile", Injected, ini.Load());
}

TEST_F(IniFileFailures, Load_SecondReadFails_KeepsTheLinesOfTheLoadBefore)
{
    CIniFile& ini = Open(m_bytes);
    ini.Load();
    SetBytes(MarkedUtf16(std::wstring(1000, L'x')));
    g_goodCalls = 1;
    {
        const CImportPatch patch(&::ReadFile, &FailingReadFile);
        EXPECT_FAILURE(54, L".\\File", L"ReadFile", Injected, ini.Load());
    }

    ini.Save();

    EXPECT_EQ(m_bytes, Bytes());
}

TEST_F(IniFileFailures, GetString_ReadFails)
{
    CIniFile& ini = Open(m_bytes);
    const CImportPatch patch(&::ReadFile, &FailingReadFile);

    EXPECT_FAILURE(54, L".\\File", L"ReadFile", Injected, ini.GetString(L"S", L"k", L"d"));
}

TEST_F(IniFileFailures, GetInt_ReadFails)
{
    CIniFile& ini = Open(m_bytes);
    const CImportPatch patch(&::ReadFile, &FailingReadFile);

    EXPECT_FAILURE(54, L".\\File", L"ReadFile", Injected, ini.GetInt(L"S", L"k", 1));
}

TEST_F(IniFileFailures, EnumSections_ReadFails_LeavesAnEmptyList)
{
    CIniFile& ini = Open(m_bytes);
    Texts sections = {L"old"};
    const CImportPatch patch(&::ReadFile, &FailingReadFile);

    EXPECT_FAILURE(54, L".\\File", L"ReadFile", Injected, ini.EnumSections(sections));
    EXPECT_EQ(Texts(), sections);
}

TEST_F(IniFileFailures, EnumEntries_ReadFails_LeavesAnEmptyList)
{
    CIniFile& ini = Open(m_bytes);
    Texts keys = {L"old"};
    const CImportPatch patch(&::ReadFile, &FailingReadFile);

    EXPECT_FAILURE(54, L".\\File", L"ReadFile", Injected, ini.EnumEntries(L"S", keys));
    EXPECT_EQ(Texts(), keys);
}

TEST_F(IniFileFailures, WriteString_ReadFails_LeavesTheFile)
{
    CIniFile& ini = Open(m_bytes);
    const CImportPatch patch(&::ReadFile, &FailingReadFile);

    EXPECT_FAILURE(54, L".\\File", L"ReadFile", Injected, ini.WriteString(L"S", L"k", L"new"));
    EXPECT_EQ(m_bytes, Bytes());
}

TEST_F(IniFileFailures, DeleteSection_ReadFails_LeavesTheFile)
{
    CIniFile& ini = Open(m_bytes);
    const CImportPatch patch(&::ReadFile, &FailingReadFile);

    EXPECT_FAILURE(54, L".\\File", L"ReadFile", Injected, ini.DeleteSection(L"S"));
    EXPECT_EQ(m_bytes, Bytes());
}

TEST_F(IniFileFailures, DeleteEntry_ReadFails_LeavesTheFile)
{
    CIniFile& ini = Open(m_bytes);
    const CImportPatch patch(&::ReadFile, &FailingReadFile);

    EXPECT_FAILURE(54, L".\\File", L"ReadFile", Injected, ini.DeleteEntry(L"S", L"k"));
    EXPECT_EQ(m_bytes, Bytes());
}

TEST_F(IniFileFailures, Save_SeekFails_LeavesTheFile)
{
    CIniFile& ini = Open(m_bytes);
    ini.Load();
    const CImportPatch patch(&::SetFilePointer, &FailingSetFilePointer);

    EXPECT_FAILURE(94, L".\\File", L"SetFilePointer", Injected, ini.Save());
    EXPECT_EQ(m_bytes, Bytes());
}

TEST_F(IniFileFailures, Save_SeekBehindTheCutFails_LeavesAnEmptyFile)
{
    CIniFile& ini = Open(m_bytes);
    ini.Load();
    g_goodCalls = 1;
    const CImportPatch patch(&::SetFilePointer, &FailingSetFilePointer);

    EXPECT_FAILURE(94, L".\\File", L"SetFilePointer", Injected, ini.Save());
    EXPECT_EQ("", Bytes());
}

TEST_F(IniFileFailures, Save_LengthCannotBeSet_LeavesTheFile)
{
    CIniFile& ini = Open(m_bytes);
    const CImportPatch patch(&::SetEndOfFile, &FailingSetEndOfFile);

    EXPECT_FAILURE(112, L".\\File", L"SetEndOfFile", Injected, ini.WriteString(L"S", L"k", L"new"));
    EXPECT_EQ(m_bytes, Bytes());
}

// Wine maps the host's root to Z:, where this device has no length.
TEST_F(IniFileFailures, Save_OnADeviceWithoutALength)
{
    const wchar_t device[] = L"Z:\\dev\\full";
    const CFile same(device, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_FALSE(::SetEndOfFile(same));
    const DWORD error = ::GetLastError();
    CIniFile ini(device);

    EXPECT_FAILURE(112, L".\\File", L"SetEndOfFile", error, ini.Save());
}

TEST_F(IniFileFailures, WriteString_DiskFull_LeavesTheFileCutShort)
{
    CIniFile& ini = Open(m_bytes);
    const CImportPatch patch(&::WriteFile, &FullDiskWriteFile);

    EXPECT_FAILURE(67, L".\\File", L"WriteFile", ERROR_DISK_FULL, ini.WriteString(L"S", L"k", L"new"));
    EXPECT_EQ("[S]\r\nk", Bytes());
}

TEST_F(IniFileFailures, WriteInt_DiskFull)
{
    CIniFile& ini = Open(m_bytes);
    const CImportPatch patch(&::WriteFile, &FullDiskWriteFile);

    EXPECT_FAILURE(67, L".\\File", L"WriteFile", ERROR_DISK_FULL, ini.WriteInt(L"S", L"k", 1));
}

TEST_F(IniFileFailures, DeleteSection_DiskFull)
{
    CIniFile& ini = Open(m_bytes);
    const CImportPatch patch(&::WriteFile, &FullDiskWriteFile);

    EXPECT_FAILURE(67, L".\\File", L"WriteFile", ERROR_DISK_FULL, ini.DeleteSection(L"S"));
}

TEST_F(IniFileFailures, DeleteEntry_DiskFull)
{
    CIniFile& ini = Open(m_bytes);
    const CImportPatch patch(&::WriteFile, &FullDiskWriteFile);

    EXPECT_FAILURE(67, L".\\File", L"WriteFile", ERROR_DISK_FULL, ini.DeleteEntry(L"S", L"k"));
}

TEST_F(IniFileFailures, SaveAfterADiskFull_WritesEverything)
{
    CIniFile& ini = Open(m_bytes);
    {
        const CImportPatch patch(&::WriteFile, &FullDiskWriteFile);
        EXPECT_FAILURE(67, L".\\File", L"WriteFile", ERROR_DISK_FULL, ini.WriteString(L"S", L"k", L"new"));
    }

    ini.Save();

    EXPECT_EQ("[S]\r\nk=new\r\n[T]\r\n", Bytes());
}

TEST_F(IniFileFailures, SaveAfterADiskFull_KeepsUtf16)
{
    CIniFile& ini = Open(MarkedUtf16(L"[S]\r\nk=v\r\n"));
    {
        const CImportPatch patch(&::WriteFile, &FullDiskWriteFile);
        EXPECT_FAILURE(67, L".\\File", L"WriteFile", ERROR_DISK_FULL, ini.WriteString(L"S", L"k", L"new"));
    }

    ini.Save();

    EXPECT_EQ(MarkedUtf16(L"[S]\r\nk=new\r\n"), Bytes());
}

TEST_F(IniFileFailures, SaveAfterAFailedSeek_WritesEverything)
{
    CIniFile& ini = Open(m_bytes);
    g_goodCalls = 2;   // of the reading and of the cut
    {
        const CImportPatch patch(&::SetFilePointer, &FailingSetFilePointer);
        EXPECT_FAILURE(94, L".\\File", L"SetFilePointer", Injected, ini.DeleteEntry(L"S", L"k"));
    }

    ini.Save();

    EXPECT_EQ("[S]\r\n[T]\r\n", Bytes());
}

TEST_F(IniFileFailures, ReadingAfterADiskFull_SeesWhatIsLeft)
{
    CIniFile& ini = Open(m_bytes);
    {
        const CImportPatch patch(&::WriteFile, &FullDiskWriteFile);
        EXPECT_FAILURE(67, L".\\File", L"WriteFile", ERROR_DISK_FULL, ini.WriteString(L"S", L"k", L"new"));
    }

    EXPECT_EQ((Texts{L"S"}), Sections(ini));
}
