// Opening a log: what stands in the file, how it is opened, who may share it.

#include "log/Log.h"

using namespace vantor;
using log_test::CFixedClock;
using log_test::CTexts;
using log_test::Texts;
using support::CImportPatch;
using support::CTempFolder;
using support::ReadBytes;
using support::Utf16;

namespace
{
constexpr char Mark[] = "\xFF\xFE";

struct CCreateArguments
{
    std::wstring name;
    DWORD access;
    DWORD share;
    SECURITY_ATTRIBUTES* security;
    DWORD disposition;
    DWORD flags;
    HANDLE pattern;
};
std::vector<CCreateArguments> g_created;

HANDLE WINAPI RecordingCreateFile(const wchar_t* name, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                                  DWORD disposition, DWORD flags, HANDLE pattern)
{
    g_created.push_back({name, access, share, security, disposition, flags, pattern});
    return ::CreateFileW(name, access, share, security, disposition, flags, pattern);
}

int g_reads;
int g_writes;
int g_flushes;

BOOL WINAPI CountingReadFile(HANDLE file, void* buffer, DWORD size, DWORD* done, OVERLAPPED* overlapped)
{
    ++g_reads;
    return ::ReadFile(file, buffer, size, done, overlapped);
}

BOOL WINAPI CountingWriteFile(HANDLE file, const void* buffer, DWORD size, DWORD* done, OVERLAPPED* overlapped)
{
    ++g_writes;
    return ::WriteFile(file, buffer, size, done, overlapped);
}

BOOL WINAPI CountingFlush(HANDLE file)
{
    ++g_flushes;
    return ::FlushFileBuffers(file);
}

// A file of zeros that takes no room.
void MakeSparse(const ustring& path, unsigned long long length)
{
    CFile file(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    file.SetLength(length);
}

std::string LastBytes(const ustring& path, long long count)
{
    CFile file(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    file.Seek(-count, FILE_END);
    std::string bytes(static_cast<std::size_t>(count), '\0');
    unsigned int done = 0;
    file.Read(&bytes[0], static_cast<unsigned int>(count), done, nullptr);
    return bytes;
}

class LogFileOpen : public testing::Test
{
protected:
    ~LogFileOpen() noexcept override {}

    const CTempFolder m_folder;
    const ustring m_path = m_folder.File(L"x.log");
    CLogFile m_log;
};
}   // namespace

TEST_F(LogFileOpen, NewLog_IsNotOpen)
{
    EXPECT_FALSE(m_log.IsCreated());
}

TEST_F(LogFileOpen, NewPath_HoldsTheMarkAlone)
{
    ASSERT_TRUE(m_log.Open(m_path.c_str()));
    EXPECT_EQ(Mark, ReadBytes(m_path.c_str()));
}

TEST_F(LogFileOpen, NewPath_IsOpen)
{
    ASSERT_TRUE(m_log.Open(m_path.c_str()));
    EXPECT_TRUE(m_log.IsCreated());
}

TEST_F(LogFileOpen, NewPath_TheMarkIsFlushed)
{
    const CImportPatch patch(&::FlushFileBuffers, &CountingFlush);
    g_flushes = 0;
    ASSERT_TRUE(m_log.Open(m_path.c_str()));
    EXPECT_EQ(1, g_flushes);
}

TEST_F(LogFileOpen, EmptyFile_GetsTheMark)
{
    m_folder.Write(L"x.log", "");
    ASSERT_TRUE(m_log.Open(m_path.c_str()));
    EXPECT_EQ(Mark, ReadBytes(m_path.c_str()));
}

TEST_F(LogFileOpen, FileOfTheMarkAlone_GetsNoSecond)
{
    m_folder.Write(L"x.log", Mark);
    ASSERT_TRUE(m_log.Open(m_path.c_str()));
    EXPECT_EQ(Mark, ReadBytes(m_path.c_str()));
}

TEST_F(LogFileOpen, FileWithoutAMark_StaysAsItIs)
{
    m_folder.Write(L"x.log", "narrow");
    ASSERT_TRUE(m_log.Open(m_path.c_str()));
    EXPECT_EQ("narrow", ReadBytes(m_path.c_str()));
}

TEST_F(LogFileOpen, ExistingLog_StandsAtItsEnd)
{
    m_folder.Write(L"x.log", std::string(Mark) + "abcd");
    ASSERT_TRUE(m_log.Open(m_path.c_str()));
    EXPECT_EQ(6u, m_log.GetPosition());
}

TEST_F(LogFileOpen, ExistingLog_RecordsFollowItsLast)
{
    const CFixedClock clock;
    const std::string old = Utf16(L"\uFEFF[2012/May/01, 08:00:00] old\r\n");
    m_folder.Write(L"x.log", old);
    ASSERT_TRUE(m_log.Open(m_path.c_str()));
    m_log.Write(L"new");
    EXPECT_EQ(old + Utf16(L"[2013/March/05, 14:07:00] new\r\n"), ReadBytes(m_path.c_str()));
}

TEST_F(LogFileOpen, Reopened_AppendsAfterTheLastRecord)
{
    ASSERT_TRUE(m_log.Open(m_path.c_str()));
    m_log.Write(L"one");
    m_log.Close();
    ASSERT_TRUE(m_log.Open(m_path.c_str()));
    m_log.Write(L"two");
    EXPECT_EQ((CTexts{"one", "two"}), Texts(m_path));
}

TEST_F(LogFileOpen, OpenLog_GoesOnInTheOtherFile)
{
    const ustring other = m_folder.File(L"other.log");
    ASSERT_TRUE(m_log.Open(m_path.c_str()));
    m_log.Write(L"one");
    ASSERT_TRUE(m_log.Open(other.c_str()));
    m_log.Write(L"two");
    EXPECT_EQ(CTexts{"one"}, Texts(m_path));
    EXPECT_EQ(CTexts{"two"}, Texts(other));
}

TEST_F(LogFileOpen, OpenLog_TheOldFileIsClosed)
{
    ASSERT_TRUE(m_log.Open(m_path.c_str()));
    ASSERT_TRUE(m_log.Open(m_folder.File(L"other.log").c_str()));
    EXPECT_TRUE(log_test::IsOpenNowhere(m_path));
}

TEST_F(LogFileOpen, PathBeyondAscii)
{
    const ustring path = m_folder.File(L"Messger\u00E4t \u65E5\u672C.log");
    ASSERT_TRUE(m_log.Open(path.c_str()));
    EXPECT_EQ(Mark, ReadBytes(path.c_str()));
}

TEST_F(LogFileOpen, TheSystemIsAsked_ForAFileWrittenThroughAndShared)
{
    g_created.clear();
    {
        const CImportPatch patch(&::CreateFileW, &RecordingCreateFile);
        ASSERT_TRUE(m_log.Open(m_path.c_str()));
    }
    ASSERT_EQ(1u, g_created.size());
    const CCreateArguments& arguments = g_created[0];
    EXPECT_TRUE(arguments.name == m_path.c_str());
    EXPECT_EQ(GENERIC_WRITE, arguments.access);
    EXPECT_EQ(static_cast<DWORD>(FILE_SHARE_READ | FILE_SHARE_WRITE), arguments.share);
    EXPECT_EQ(nullptr, arguments.security);
    EXPECT_EQ(static_cast<DWORD>(OPEN_ALWAYS), arguments.disposition);
    EXPECT_EQ(static_cast<DWORD>(FILE_ATTRIBUTE_NORMAL | FILE_FLAG_WRITE_THROUGH), arguments.flags);
    EXPECT_EQ(nullptr, arguments.pattern);
}

TEST_F(LogFileOpen, OthersMayReadItMeanwhile)
{
    ASSERT_TRUE(m_log.Open(m_path.c_str()));
    m_log.Write(L"while it is open");
    EXPECT_EQ(CTexts{"while it is open"}, Texts(m_path));   // each record is there at once
}

TEST_F(LogFileOpen, OthersMayCopyItMeanwhile)
{
    ASSERT_TRUE(m_log.Open(m_path.c_str()));
    m_log.Write(L"text");
    const std::string bytes = ReadBytes(m_path.c_str());
    ASSERT_TRUE(::CopyFileW(m_path.c_str(), m_folder.File(L"copy.log").c_str(), TRUE));
    EXPECT_EQ(bytes, ReadBytes(m_folder.File(L"copy.log").c_str()));
}

TEST_F(LogFileOpen, OthersMayWriteItMeanwhile)
{
    ASSERT_TRUE(m_log.Open(m_path.c_str()));
    EXPECT_NO_THROW(
        CFile(m_path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
}

TEST_F(LogFileOpen, NobodyMayRemoveItMeanwhile)
{
    ASSERT_TRUE(m_log.Open(m_path.c_str()));
    EXPECT_FALSE(::DeleteFileW(m_path.c_str()));
}

TEST_F(LogFileOpen, LogOf100Megabytes_NothingIsReadOrWritten)
{
    MakeSparse(m_path, 100 << 20);
    const CImportPatch reads(&::ReadFile, &CountingReadFile);
    const CImportPatch writes(&::WriteFile, &CountingWriteFile);
    g_reads = g_writes = 0;
    ASSERT_TRUE(m_log.Open(m_path.c_str()));
    EXPECT_EQ(0, g_reads);
    EXPECT_EQ(0, g_writes);
}

TEST_F(LogFileOpen, LogOf100Megabytes_TheNextRecordIsOneWriteAtItsEnd)
{
    const CFixedClock clock;
    MakeSparse(m_path, 100 << 20);
    ASSERT_TRUE(m_log.Open(m_path.c_str()));
    const CImportPatch reads(&::ReadFile, &CountingReadFile);
    const CImportPatch writes(&::WriteFile, &CountingWriteFile);
    g_reads = g_writes = 0;
    ASSERT_TRUE(m_log.Write(L"text"));
    EXPECT_EQ(0, g_reads);
    EXPECT_EQ(1, g_writes);
    const std::string record = Utf16(L"[2013/March/05, 14:07:00] text\r\n");
    EXPECT_EQ(record, LastBytes(m_path, static_cast<long long>(record.size())));
    EXPECT_EQ((100u << 20) + record.size(), CFile::GetLength(m_path.c_str()));
}

TEST_F(LogFileOpen, LogBeyond4Gigabytes_GrowsAtItsEnd)
{
    const CFixedClock clock;
    MakeSparse(m_path, 0x140000000);
    ASSERT_TRUE(m_log.Open(m_path.c_str()));
    EXPECT_EQ(0x140000000u, m_log.GetPosition());
    ASSERT_TRUE(m_log.Write(L"text"));
    const std::string record = Utf16(L"[2013/March/05, 14:07:00] text\r\n");
    EXPECT_EQ(record, LastBytes(m_path, static_cast<long long>(record.size())));
    EXPECT_EQ(0x140000000u + record.size(), CFile::GetLength(m_path.c_str()));
}
