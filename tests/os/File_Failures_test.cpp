// How the members of CFile fail, and what they leave behind.

#include "support/Failure.h"
#include "support/ImportPatch.h"
#include "support/Print.h"
#include "support/TempFolder.h"

#include <vantor/File.h>

#include <gtest/gtest.h>

#include <memory>

using namespace vantor;
using support::CImportPatch;
using support::CTempFolder;
using support::ReadBytes;

namespace
{
constexpr DWORD Injected = 0xDEADBEEF;

BOOL WINAPI ReadThatReportsACount(HANDLE, void*, DWORD, DWORD* done, OVERLAPPED*)
{
    *done = 7;
    ::SetLastError(Injected);
    return FALSE;
}

BOOL WINAPI ReadThatReportsNothing(HANDLE, void*, DWORD, DWORD*, OVERLAPPED*)
{
    ::SetLastError(Injected);
    return FALSE;
}

BOOL WINAPI WriteThatReportsACount(HANDLE, const void*, DWORD, DWORD* done, OVERLAPPED*)
{
    *done = 7;
    ::SetLastError(Injected);
    return FALSE;
}

BOOL WINAPI WriteThatReportsNothing(HANDLE, const void*, DWORD, DWORD*, OVERLAPPED*)
{
    ::SetLastError(Injected);
    return FALSE;
}

DWORD WINAPI FailingSetFilePointer(HANDLE, LONG, LONG*, DWORD)
{
    ::SetLastError(Injected);
    return 0xFFFFFFFF;
}

DWORD WINAPI SetFilePointerToAllOnes(HANDLE, LONG, LONG* high, DWORD)
{
    *high = -1;
    ::SetLastError(NO_ERROR);
    return 0xFFFFFFFF;
}

DWORD WINAPI FailingGetFileSize(HANDLE, DWORD*)
{
    ::SetLastError(Injected);
    return 0xFFFFFFFF;
}

int g_endOfFileCalls;

BOOL WINAPI FailingSetEndOfFile(HANDLE)
{
    ++g_endOfFileCalls;
    ::SetLastError(Injected);
    return FALSE;
}

class FileFailures : public ::testing::Test
{
protected:
    void OpenTheFile(unsigned long access = GENERIC_READ | GENERIC_WRITE)
    {
        m_path = m_folder.Write(L"a.txt", "hello");
        m_file.Open(m_path.c_str(), access, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    }

    CTempFolder m_folder;
    ustring m_path;
    const std::unique_ptr<CFile> m_owner{new CFile};   // a fixture's destructor may not throw, that of a file may
    CFile& m_file = *m_owner;
    char m_buffer[8] = {};
    unsigned int m_done = 99;
};
}   // namespace

TEST_F(FileFailures, Open_OfAMissingFile)
{
    const ustring path = m_folder.File(L"missing.txt");

    EXPECT_FAILURE(41, L".\\File", L"CreateFile", ERROR_FILE_NOT_FOUND,
                   m_file.Open(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_FALSE(m_file.IsCreated());
}

TEST_F(FileFailures, Open_OfAFileThatIsNotShared)
{
    OpenTheFile();
    CFile other;

    EXPECT_FAILURE(41, L".\\File", L"CreateFile", ERROR_SHARING_VIOLATION,
                   other.Open(m_path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_FALSE(other.IsCreated());
}

TEST_F(FileFailures, OpeningConstruction_OfAMissingFile)
{
    const ustring path = m_folder.File(L"missing.txt");

    EXPECT_FAILURE(41, L".\\File", L"CreateFile", ERROR_FILE_NOT_FOUND,
                   const CFile file(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
}

TEST_F(FileFailures, Read_OfAnEmptyObject)
{
    EXPECT_FAILURE(54, L".\\File", L"ReadFile", ERROR_INVALID_HANDLE,
                   m_file.Read(m_buffer, sizeof m_buffer, m_done, nullptr));
    EXPECT_EQ(m_done, 0u);
}

TEST_F(FileFailures, Read_OfAFileOpenedForWriting_KeepsTheFileOpen)
{
    OpenTheFile(GENERIC_WRITE);

    EXPECT_FAILURE(54, L".\\File", L"ReadFile", ERROR_ACCESS_DENIED,
                   m_file.Read(m_buffer, sizeof m_buffer, m_done, nullptr));
    EXPECT_TRUE(m_file.IsCreated());
}

TEST_F(FileFailures, Read_HandsOutTheCountThatTheSystemReported)
{
    const CImportPatch patch(&::ReadFile, &ReadThatReportsACount);

    EXPECT_FAILURE(54, L".\\File", L"ReadFile", Injected, m_file.Read(m_buffer, sizeof m_buffer, m_done, nullptr));
    EXPECT_EQ(m_done, 7u);
}

TEST_F(FileFailures, Read_HandsOutZeroWhenTheSystemReportsNothing)
{
    const CImportPatch patch(&::ReadFile, &ReadThatReportsNothing);

    EXPECT_FAILURE(54, L".\\File", L"ReadFile", Injected, m_file.Read(m_buffer, sizeof m_buffer, m_done, nullptr));
    EXPECT_EQ(m_done, 0u);
}

TEST_F(FileFailures, Write_OfAFileOpenedForReading_KeepsTheFileOpen)
{
    OpenTheFile(GENERIC_READ);

    EXPECT_FAILURE(67, L".\\File", L"WriteFile", ERROR_ACCESS_DENIED, m_file.Write("abc", 3, m_done, nullptr));
    EXPECT_EQ(m_done, 0u);
    EXPECT_TRUE(m_file.IsCreated());
}

// Wine maps the host's root to Z:, where this device is a disk without room.
TEST_F(FileFailures, Write_OnAFullDisk)
{
    m_file.Open(L"Z:\\dev\\full", GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);

    EXPECT_FAILURE(67, L".\\File", L"WriteFile", ERROR_DISK_FULL, m_file.Write("abc", 3, m_done, nullptr));
    EXPECT_EQ(m_done, 0u);
}

TEST_F(FileFailures, Write_HandsOutTheCountThatTheSystemReported)
{
    const CImportPatch patch(&::WriteFile, &WriteThatReportsACount);

    EXPECT_FAILURE(67, L".\\File", L"WriteFile", Injected, m_file.Write("abc", 3, m_done, nullptr));
    EXPECT_EQ(m_done, 7u);
}

TEST_F(FileFailures, Write_HandsOutZeroWhenTheSystemReportsNothing)
{
    const CImportPatch patch(&::WriteFile, &WriteThatReportsNothing);

    EXPECT_FAILURE(67, L".\\File", L"WriteFile", Injected, m_file.Write("abc", 3, m_done, nullptr));
    EXPECT_EQ(m_done, 0u);
}

TEST_F(FileFailures, Flush_OfAnEmptyObject)
{
    EXPECT_FAILURE(73, L".\\File", L"FlushFileBuffers", ERROR_INVALID_HANDLE, m_file.Flush());
}

TEST_F(FileFailures, GetPosition_OfAnEmptyObject)
{
    EXPECT_FAILURE(83, L".\\File", L"SetFilePointer", ERROR_INVALID_HANDLE, m_file.GetPosition());
}

TEST_F(FileFailures, GetPosition_OnFailure_ReportsTheSystemsCode)
{
    const CImportPatch patch(&::SetFilePointer, &FailingSetFilePointer);

    EXPECT_FAILURE(83, L".\\File", L"SetFilePointer", Injected, m_file.GetPosition());
}

TEST_F(FileFailures, GetPosition_OfAllOnesWithoutAnError_IsNoFailure)
{
    const CImportPatch patch(&::SetFilePointer, &SetFilePointerToAllOnes);

    EXPECT_EQ(m_file.GetPosition(), 0xFFFFFFFFFFFFFFFFULL);
}

TEST_F(FileFailures, Seek_OfAnEmptyObject)
{
    EXPECT_FAILURE(94, L".\\File", L"SetFilePointer", ERROR_INVALID_HANDLE, m_file.Seek(0, FILE_BEGIN));
}

TEST_F(FileFailures, Seek_BeforeTheStart_LeavesThePosition)
{
    OpenTheFile();
    m_file.Seek(2, FILE_BEGIN);

    EXPECT_FAILURE(94, L".\\File", L"SetFilePointer", ERROR_NEGATIVE_SEEK, m_file.Seek(-3, FILE_CURRENT));
    EXPECT_EQ(m_file.GetPosition(), 2u);
}

TEST_F(FileFailures, Seek_ToAllOnesWithoutAnError_IsNoFailure)
{
    const CImportPatch patch(&::SetFilePointer, &SetFilePointerToAllOnes);

    EXPECT_EQ(m_file.Seek(0, FILE_BEGIN), 0xFFFFFFFFFFFFFFFFULL);
}

TEST_F(FileFailures, GetLength_OfAnEmptyObject)
{
    EXPECT_FAILURE(104, L".\\File", L"GetFileSize", ERROR_INVALID_HANDLE, m_file.GetLength());
}

TEST_F(FileFailures, GetLength_OnFailure_ReportsTheSystemsCode)
{
    const CImportPatch patch(&::GetFileSize, &FailingGetFileSize);

    EXPECT_FAILURE(104, L".\\File", L"GetFileSize", Injected, m_file.GetLength());
}

TEST_F(FileFailures, SetLength_OfAFileOpenedForReading_LeavesItsLength)
{
    OpenTheFile(GENERIC_READ);
    ASSERT_FALSE(::SetEndOfFile(m_file));
    const DWORD error = ::GetLastError();   // ERROR_ACCESS_DENIED or ERROR_INVALID_PARAMETER: systems differ

    EXPECT_FAILURE(112, L".\\File", L"SetEndOfFile", error, m_file.SetLength(2));
    EXPECT_EQ(m_file.GetLength(), 5u);
}

TEST_F(FileFailures, SetLength_OnFailure_LeavesThePositionAtTheWantedEnd)
{
    OpenTheFile();
    const CImportPatch patch(&::SetEndOfFile, &FailingSetEndOfFile);

    EXPECT_FAILURE(112, L".\\File", L"SetEndOfFile", Injected, m_file.SetLength(2));
    EXPECT_EQ(m_file.GetPosition(), 2u);
}

TEST_F(FileFailures, SetLength_ToALengthThatCannotBeReached_FailsAsSeekDoes)
{
    OpenTheFile();
    const CImportPatch patch(&::SetEndOfFile, &FailingSetEndOfFile);
    g_endOfFileCalls = 0;

    EXPECT_FAILURE(94, L".\\File", L"SetFilePointer", ERROR_NEGATIVE_SEEK, m_file.SetLength(0x8000000000000000ULL));
    EXPECT_EQ(g_endOfFileCalls, 0);
}

TEST_F(FileFailures, Rename_OfAMissingFile)
{
    const ustring from = m_folder.File(L"missing.txt");
    const ustring to = m_folder.File(L"b.txt");

    EXPECT_FAILURE(118, L".\\File", L"MoveFile", ERROR_FILE_NOT_FOUND, CFile::Rename(from.c_str(), to.c_str()));
}

TEST_F(FileFailures, Rename_ToAFileThatExists_LeavesBoth)
{
    const ustring from = m_folder.Write(L"a.txt", "a");
    const ustring to = m_folder.Write(L"b.txt", "b");

    EXPECT_FAILURE(118, L".\\File", L"MoveFile", ERROR_ALREADY_EXISTS, CFile::Rename(from.c_str(), to.c_str()));
    EXPECT_EQ(ReadBytes(from.c_str()), "a");
    EXPECT_EQ(ReadBytes(to.c_str()), "b");
}

TEST_F(FileFailures, Remove_OfAMissingFile)
{
    const ustring path = m_folder.File(L"missing.txt");

    EXPECT_FAILURE(124, L".\\File", L"DeleteFile", ERROR_FILE_NOT_FOUND, CFile::Remove(path.c_str()));
}

TEST_F(FileFailures, Remove_OfAnOpenFile_LeavesIt)
{
    OpenTheFile();

    EXPECT_FAILURE(124, L".\\File", L"DeleteFile", ERROR_SHARING_VIOLATION, CFile::Remove(m_path.c_str()));
    m_file.Close();
    EXPECT_EQ(ReadBytes(m_path.c_str()), "hello");
}
