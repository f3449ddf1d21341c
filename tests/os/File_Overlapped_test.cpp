// Overlapped reads and writes of CFile, on named pipes: these keep an operation pending until the other end moves.

#include "Handles.h"
#include "support/Failure.h"
#include "support/ImportPatch.h"
#include "support/TempFolder.h"

#include <vantor/File.h>

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

using namespace vantor;
using namespace os_test;
using support::CImportPatch;
using support::CTempFolder;

namespace
{
struct CCallArguments
{
    HANDLE file;
    const void* buffer;
    DWORD size;
    OVERLAPPED* ov;
};
CCallArguments g_call;

BOOL WINAPI RecordingRead(HANDLE file, void* buffer, DWORD size, DWORD* done, OVERLAPPED* ov)
{
    g_call = {file, buffer, size, ov};
    *done = 3;
    return TRUE;
}

BOOL WINAPI RecordingWrite(HANDLE file, const void* buffer, DWORD size, DWORD* done, OVERLAPPED* ov)
{
    g_call = {file, buffer, size, ov};
    *done = 3;
    return TRUE;
}

BOOL WINAPI PendingRead(HANDLE, void*, DWORD, DWORD* done, OVERLAPPED*)
{
    *done = 4;
    ::SetLastError(ERROR_IO_PENDING);
    return FALSE;
}

BOOL WINAPI PendingWrite(HANDLE, const void*, DWORD, DWORD* done, OVERLAPPED*)
{
    *done = 4;
    ::SetLastError(ERROR_IO_PENDING);
    return FALSE;
}

// Both ends of a pipe of bytes: the far one is the test's, the near one is the library's and overlapped.
class FileOverlapped : public ::testing::Test
{
protected:
    void SetUp() override
    {
        const ustring name = ustring(L"\\\\.\\pipe\\") + UniqueName(L"pipe");
        m_far = ::CreateNamedPipeW(name.c_str(), PIPE_ACCESS_DUPLEX, PIPE_TYPE_BYTE | PIPE_WAIT, 1, PipeSize, PipeSize,
                                   0, nullptr);
        ASSERT_NE(m_far, INVALID_HANDLE_VALUE);
        m_near.Open(name.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, FILE_FLAG_OVERLAPPED,
                    nullptr);
    }
    void TearDown() override { CloseTheFarEnd(); }

    void CloseTheFarEnd()
    {
        if (m_far != INVALID_HANDLE_VALUE)
            ::CloseHandle(m_far);
        m_far = INVALID_HANDLE_VALUE;
    }
    void WriteAtTheFarEnd(const char* text)
    {
        DWORD done;
        ASSERT_TRUE(::WriteFile(m_far, text, static_cast<DWORD>(std::strlen(text)), &done, nullptr));
    }
    std::string ReadAtTheFarEnd(std::size_t size)
    {
        std::string bytes(size, '\0');
        std::size_t filled = 0;
        DWORD done;
        while (filled < size && ::ReadFile(m_far, &bytes[filled], static_cast<DWORD>(size - filled), &done, nullptr) &&
               done != 0)
            filled += done;
        bytes.resize(filled);
        return bytes;
    }
    // Waits for the operation; the bytes that it moved.
    DWORD Complete(COverlapped& overlapped)
    {
        EXPECT_EQ(::WaitForSingleObject(overlapped.hEvent, 10000), static_cast<DWORD>(WAIT_OBJECT_0));
        DWORD done = 0;
        EXPECT_TRUE(::GetOverlappedResult(m_near, &overlapped, &done, FALSE));
        return done;
    }

    static constexpr DWORD PipeSize = 4096;

    HANDLE m_far = INVALID_HANDLE_VALUE;
    const std::unique_ptr<CFile> m_owner{new CFile};   // a fixture's destructor may not throw, that of a file may
    CFile& m_near = *m_owner;
    char m_buffer[16] = {};
    unsigned int m_done = 99;
};
using FileSynchronous = ::testing::Test;
using FilePending = ::testing::Test;
}   // namespace

TEST_F(FileOverlapped, Read_OfAnEmptyPipe_IsPendingWithACountOfZero)
{
    COverlapped overlapped;

    EXPECT_FALSE(m_near.Read(m_buffer, sizeof m_buffer, m_done, &overlapped));
    EXPECT_EQ(m_done, 0u);

    WriteAtTheFarEnd("x");
    Complete(overlapped);
}

TEST_F(FileOverlapped, Read_ThatIsPending_IsCompletedThroughItsEvent)
{
    COverlapped overlapped;
    m_near.Read(m_buffer, sizeof m_buffer, m_done, &overlapped);

    WriteAtTheFarEnd("hello");

    EXPECT_EQ(Complete(overlapped), 5u);
    EXPECT_STREQ(m_buffer, "hello");
}

TEST_F(FileOverlapped, Read_OfAPipeWithData_IsDoneAtOnce)
{
    WriteAtTheFarEnd("hello");
    COverlapped overlapped;

    EXPECT_TRUE(m_near.Read(m_buffer, sizeof m_buffer, m_done, &overlapped));
    EXPECT_EQ(m_done, 5u);
    EXPECT_STREQ(m_buffer, "hello");
}

TEST_F(FileOverlapped, Read_OfABrokenPipe_Throws)
{
    CloseTheFarEnd();
    COverlapped overlapped;

    EXPECT_FAILURE(54, L".\\File", L"ReadFile", ERROR_BROKEN_PIPE,
                   m_near.Read(m_buffer, sizeof m_buffer, m_done, &overlapped));
    EXPECT_EQ(m_done, 0u);
    EXPECT_TRUE(m_near.IsCreated());
}

TEST_F(FileOverlapped, Write_OfMoreThanThePipeTakes_IsPending)
{
    const std::string bytes(100 * PipeSize, 'a');
    COverlapped overlapped;

    EXPECT_FALSE(m_near.Write(bytes.data(), static_cast<unsigned int>(bytes.size()), m_done, &overlapped));

    ReadAtTheFarEnd(bytes.size());
    Complete(overlapped);
}

TEST_F(FileOverlapped, Write_ThatIsPending_IsCompletedThroughItsEvent)
{
    const std::string bytes(100 * PipeSize, 'a');
    COverlapped overlapped;
    m_near.Write(bytes.data(), static_cast<unsigned int>(bytes.size()), m_done, &overlapped);

    EXPECT_EQ(ReadAtTheFarEnd(bytes.size()), bytes);

    EXPECT_EQ(Complete(overlapped), bytes.size());
}

TEST_F(FileOverlapped, Write_ToAPipeWithNobodyAtTheFarEnd_Throws)
{
    CloseTheFarEnd();
    COverlapped overlapped;

    EXPECT_FAILURE(67, L".\\File", L"WriteFile", ERROR_NO_DATA, m_near.Write("abc", 3, m_done, &overlapped));
    EXPECT_EQ(m_done, 0u);
    EXPECT_TRUE(m_near.IsCreated());
}

TEST_F(FileOverlapped, Read_PassesItsArgumentsOn)
{
    COverlapped overlapped;
    const CImportPatch patch(&::ReadFile, &RecordingRead);

    EXPECT_TRUE(m_near.Read(m_buffer, 11, m_done, &overlapped));

    EXPECT_EQ(g_call.file, static_cast<void*>(m_near));
    EXPECT_EQ(g_call.buffer, m_buffer);
    EXPECT_EQ(g_call.size, 11u);
    EXPECT_EQ(g_call.ov, &overlapped);
    EXPECT_EQ(m_done, 3u);
}

TEST_F(FileOverlapped, Write_PassesItsArgumentsOn)
{
    COverlapped overlapped;
    const CImportPatch patch(&::WriteFile, &RecordingWrite);

    EXPECT_TRUE(m_near.Write(m_buffer, 11, m_done, &overlapped));

    EXPECT_EQ(g_call.file, static_cast<void*>(m_near));
    EXPECT_EQ(g_call.buffer, m_buffer);
    EXPECT_EQ(g_call.size, 11u);
    EXPECT_EQ(g_call.ov, &overlapped);
    EXPECT_EQ(m_done, 3u);
}

TEST_F(FileSynchronous, Read_PassesNoOverlappedRecord)
{
    CFile file;
    char buffer[4];
    unsigned int done;
    OVERLAPPED record;
    g_call.ov = &record;
    const CImportPatch patch(&::ReadFile, &RecordingRead);

    file.Read(buffer, sizeof buffer, done, nullptr);

    EXPECT_EQ(g_call.ov, nullptr);
}

TEST_F(FileSynchronous, Write_PassesNoOverlappedRecord)
{
    CFile file;
    unsigned int done;
    OVERLAPPED record;
    g_call.ov = &record;
    const CImportPatch patch(&::WriteFile, &RecordingWrite);

    file.Write("abc", 3, done, nullptr);

    EXPECT_EQ(g_call.ov, nullptr);
}

TEST_F(FilePending, Read_HandsOutTheCountThatTheSystemReported)
{
    CFile file;
    char buffer[8];
    unsigned int done = 99;
    COverlapped overlapped;
    const CImportPatch patch(&::ReadFile, &PendingRead);

    EXPECT_FALSE(file.Read(buffer, sizeof buffer, done, &overlapped));
    EXPECT_EQ(done, 4u);
}

TEST_F(FilePending, Write_HandsOutTheCountThatTheSystemReported)
{
    CFile file;
    unsigned int done = 99;
    COverlapped overlapped;
    const CImportPatch patch(&::WriteFile, &PendingWrite);

    EXPECT_FALSE(file.Write("abc", 3, done, &overlapped));
    EXPECT_EQ(done, 4u);
}

TEST_F(FilePending, Read_OfAPlainFile_StartsAtTheRecordsOffset)
{
    const CTempFolder folder;
    const ustring path = folder.Write(L"a.txt", "hello");
    CFile file(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
    COverlapped overlapped(nullptr, TRUE, FALSE, nullptr);
    overlapped.Offset = 2;
    char buffer[8] = {};
    unsigned int done;

    file.Read(buffer, sizeof buffer, done, &overlapped);
    DWORD moved = 0;
    ASSERT_TRUE(::GetOverlappedResult(file, &overlapped, &moved, TRUE));

    EXPECT_EQ(moved, 3u);
    EXPECT_STREQ(buffer, "llo");
}
