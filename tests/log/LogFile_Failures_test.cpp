// How opening and writing fail, and what they leave behind.

#include "log/Log.h"
#include "support/Failure.h"
#include "support/Leaks.h"

#include <memory>
#include <thread>

using namespace vantor;
using log_test::CFixedClock;
using log_test::CTexts;
using log_test::Texts;
using support::CImportPatch;
using support::CResources;
using support::CTempFolder;
using support::ReadBytes;
using support::Utf16;

namespace
{
constexpr DWORD Injected = 0xDEADBEEF;
constexpr char Mark[] = "\xFF\xFE";

DWORD WINAPI FailingGetFileSize(HANDLE, DWORD*)
{
    ::SetLastError(Injected);
    return 0xFFFFFFFF;
}

DWORD WINAPI FailingSetFilePointer(HANDLE, LONG, LONG*, DWORD)
{
    ::SetLastError(Injected);
    return 0xFFFFFFFF;
}

BOOL WINAPI FailingFlush(HANDLE)
{
    ::SetLastError(Injected);
    return FALSE;
}

BOOL WINAPI FailingCloseHandle(HANDLE)
{
    ::SetLastError(Injected);
    return FALSE;
}

int WINAPI FailingGetDateFormat(LCID, DWORD, const SYSTEMTIME*, const wchar_t*, wchar_t*, int)
{
    ::SetLastError(Injected);
    return 0;
}

DWORD g_room;   // bytes that the disk still takes

BOOL WINAPI WriteToAFullDisk(HANDLE file, const void* buffer, DWORD size, DWORD* done, OVERLAPPED* overlapped)
{
    const DWORD fits = size < g_room ? size : g_room;
    g_room -= fits;
    *done = 0;
    if (fits != 0 && !::WriteFile(file, buffer, fits, done, overlapped))
        return FALSE;
    ::SetLastError(ERROR_DISK_FULL);
    return fits == size;
}

// Comes back only if the log's lock is free.
bool WriteInAnotherThread(CLogFile& log)
{
    bool written = false;
    std::thread([&] { written = log.Write(L"another thread"); }).join();
    return written;
}

class LogFileFailures : public testing::Test
{
protected:
    const CTempFolder m_folder;
    const ustring m_path = m_folder.File(L"x.log");
    const std::unique_ptr<CLogFile> m_log = std::make_unique<CLogFile>();

    void ExpectOpenFails(const ustring& path)
    {
        EXPECT_FALSE(m_log->Open(path.c_str()));
        EXPECT_FALSE(m_log->IsCreated());
        EXPECT_FALSE(m_log->Write(L"text"));
    }

    // Opening the file of the test fails in this call, after the file was opened, and keeps no handle.
    template <class Function>
    void ExpectOpenFailsIn(Function* original, Function* fake)
    {
        const CImportPatch patch(original, fake);
        ExpectOpenFails(m_path);
        EXPECT_TRUE(log_test::IsOpenNowhere(m_path));
        const CResources before;
        m_log->Open(m_path.c_str());
        EXPECT_EQ(before, CResources());
    }

    void OpenTheLog() { ASSERT_TRUE(m_log->Open(m_path.c_str())); }
};
}   // namespace

TEST_F(LogFileFailures, Open_MissingFolder)
{
    ExpectOpenFails(m_folder.File(L"missing\\x.log"));
}

TEST_F(LogFileFailures, Open_AFolder)
{
    ExpectOpenFails(m_folder.Path());
}

TEST_F(LogFileFailures, Open_ForbiddenName)
{
    ExpectOpenFails(m_folder.File(L"a?b.log"));
}

TEST_F(LogFileFailures, Open_NoPath)
{
    EXPECT_FALSE(m_log->Open(nullptr));
    EXPECT_FALSE(m_log->Open(L""));
}

TEST_F(LogFileFailures, Open_FileThatAnotherHoldsAlone)
{
    const CFile alone(m_path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    ExpectOpenFails(m_path);
}

TEST_F(LogFileFailures, Open_FullDisk)
{
    ExpectOpenFails(L"Z:\\dev\\full");
}

TEST_F(LogFileFailures, Open_LengthUnknown)
{
    ExpectOpenFailsIn(&::GetFileSize, &FailingGetFileSize);
}

TEST_F(LogFileFailures, Open_MarkCannotBeWritten)
{
    g_room = 0;
    ExpectOpenFailsIn(&::WriteFile, &WriteToAFullDisk);
}

TEST_F(LogFileFailures, Open_MarkCannotBeFlushed)
{
    const CImportPatch patch(&::FlushFileBuffers, &FailingFlush);
    ExpectOpenFails(m_path);
    EXPECT_TRUE(log_test::IsOpenNowhere(m_path));
}

TEST_F(LogFileFailures, Open_EndOfAnExistingLogNotFound)
{
    m_folder.Write(L"x.log", Mark);
    ExpectOpenFailsIn(&::SetFilePointer, &FailingSetFilePointer);
}

TEST_F(LogFileFailures, Open_FailsAndTheCloseAfterItToo_NothingIsThrown)
{
    const CImportPatch sizes(&::GetFileSize, &FailingGetFileSize);
    {
        const CImportPatch closes(&::CloseHandle, &FailingCloseHandle);
        EXPECT_NO_THROW(ExpectOpenFails(m_path));
    }
    EXPECT_NO_THROW(m_log->Close());
}

TEST_F(LogFileFailures, Open_OldFileCannotBeClosed)
{
    OpenTheLog();
    const HANDLE old = *m_log;
    {
        const CImportPatch closes(&::CloseHandle, &FailingCloseHandle);
        ExpectOpenFails(m_folder.File(L"other.log"));
    }
    ::CloseHandle(old);
    EXPECT_FALSE(CFile::FileExists(m_folder.File(L"other.log").c_str()));
}

TEST_F(LogFileFailures, Open_FailsOnAnOpenLog_TheOldFileIsClosed)
{
    OpenTheLog();
    ExpectOpenFails(m_folder.File(L"missing\\x.log"));
    EXPECT_TRUE(log_test::IsOpenNowhere(m_path));
}

TEST_F(LogFileFailures, Open_AfterAFailure_TheNextWorks)
{
    ASSERT_FALSE(m_log->Open(m_folder.File(L"missing\\x.log").c_str()));
    OpenTheLog();
    EXPECT_TRUE(m_log->Write(L"text"));
    EXPECT_EQ(CTexts{"text"}, Texts(m_path));
}

TEST_F(LogFileFailures, Open_AfterAMarkThatFailed_TheNextWritesIt)
{
    {
        g_room = 0;
        const CImportPatch patch(&::WriteFile, &WriteToAFullDisk);
        ASSERT_FALSE(m_log->Open(m_path.c_str()));
    }
    OpenTheLog();
    EXPECT_EQ(Mark, ReadBytes(m_path.c_str()));
}

TEST_F(LogFileFailures, Write_FullDisk)
{
    const HANDLE full = ::CreateFileW(L"Z:\\dev\\full", GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                      OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, full);
    m_log->Attach(full);
    EXPECT_FAILURE(67, L".\\File", L"WriteFile", ERROR_DISK_FULL, m_log->Write(L"text"));
}

TEST_F(LogFileFailures, Write_FullDisk_LogStaysOpenAndTheNextWriteWorks)
{
    OpenTheLog();
    {
        g_room = 0;
        const CImportPatch patch(&::WriteFile, &WriteToAFullDisk);
        EXPECT_FAILURE(67, L".\\File", L"WriteFile", ERROR_DISK_FULL, m_log->Write(L"lost"));
    }
    EXPECT_TRUE(m_log->Write(L"text"));
    EXPECT_EQ(CTexts{"text"}, Texts(m_path));
}

TEST_F(LogFileFailures, Write_FullDisk_TheLockIsFree)
{
    OpenTheLog();
    {
        g_room = 0;
        const CImportPatch patch(&::WriteFile, &WriteToAFullDisk);
        EXPECT_THROW(m_log->Write(L"lost"), CWinException);
    }
    EXPECT_TRUE(WriteInAnotherThread(*m_log));
    EXPECT_EQ(CTexts{"another thread"}, Texts(m_path));
}

TEST_F(LogFileFailures, Write_FullDisk_OtherLogsOnTheFileGoOn)
{
    OpenTheLog();
    CLogFile other;
    ASSERT_TRUE(other.Open(m_path.c_str()));
    {
        g_room = 0;
        const CImportPatch patch(&::WriteFile, &WriteToAFullDisk);
        EXPECT_THROW(m_log->Write(L"lost"), CWinException);
    }
    EXPECT_TRUE(other.Write(L"text"));
    EXPECT_EQ(CTexts{"text"}, Texts(m_path));
}

TEST_F(LogFileFailures, Write_DiskFullInMidMessage_APartMayStandThere)
{
    const CFixedClock clock;
    OpenTheLog();
    const std::string first = Utf16(L"[2013/March/05, 14:07:00] one\r\n");
    {
        g_room = static_cast<DWORD>(first.size()) + 10;
        const CImportPatch patch(&::WriteFile, &WriteToAFullDisk);
        EXPECT_FAILURE(67, L".\\File", L"WriteFile", ERROR_DISK_FULL, m_log->Write(L"one\ntwo"));
    }
    EXPECT_EQ(Mark + first + Utf16(L"[2013"), ReadBytes(m_path.c_str()));
}

TEST_F(LogFileFailures, Write_DiskFullInMidCharacter_TheNextRecordIsReadable)
{
    const CFixedClock clock;
    OpenTheLog();
    {
        g_room = 9;
        const CImportPatch patch(&::WriteFile, &WriteToAFullDisk);
        EXPECT_THROW(m_log->Write(L"one"), CWinException);
    }
    EXPECT_TRUE(m_log->Write(L"two"));
    EXPECT_EQ(Mark + Utf16(L"[2013[2013/March/05, 14:07:00] two\r\n").replace(9, 1, 1, '\0'),
              ReadBytes(m_path.c_str()));
}

TEST_F(LogFileFailures, Write_EndNotFound)
{
    OpenTheLog();
    const CImportPatch patch(&::SetFilePointer, &FailingSetFilePointer);
    EXPECT_FAILURE(94, L".\\File", L"SetFilePointer", Injected, m_log->Write(L"text"));
}

TEST_F(LogFileFailures, Write_EndNotFound_NothingIsWrittenAndTheLockIsFree)
{
    OpenTheLog();
    {
        const CImportPatch patch(&::SetFilePointer, &FailingSetFilePointer);
        EXPECT_THROW(m_log->Write(L"lost"), CWinException);
    }
    EXPECT_TRUE(WriteInAnotherThread(*m_log));
    EXPECT_EQ(CTexts{"another thread"}, Texts(m_path));
}

TEST_F(LogFileFailures, Write_StampCannotBeMade)
{
    OpenTheLog();
    const CImportPatch patch(&::GetDateFormatW, &FailingGetDateFormat);
    EXPECT_FAILURE(448, L".\\SystemTime", L"GetDateFormat", Injected, m_log->Write(L"text"));
}

TEST_F(LogFileFailures, Write_StampCannotBeMade_NothingIsWrittenAndTheLockIsFree)
{
    OpenTheLog();
    {
        const CImportPatch patch(&::GetDateFormatW, &FailingGetDateFormat);
        EXPECT_THROW(m_log->Write(L"lost"), CWinException);
    }
    EXPECT_TRUE(WriteInAnotherThread(*m_log));
    EXPECT_EQ(CTexts{"another thread"}, Texts(m_path));
}

TEST_F(LogFileFailures, Write_ToAHandleForReading)
{
    m_folder.Write(L"x.log", Mark);
    const HANDLE reading =
        ::CreateFileW(m_path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_TRUE(m_log->Attach(reading));
    EXPECT_FAILURE(67, L".\\File", L"WriteFile", ERROR_ACCESS_DENIED, m_log->Write(L"text"));
}
