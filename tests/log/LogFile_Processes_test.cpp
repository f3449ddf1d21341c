// Several processes that write to one file, and processes that end in the middle of it.

#include "log/Messages.h"

#include <memory>

using namespace vantor;
using log_test::CFixedClock;
using log_test::CRecord;
using support::CTempFolder;
using support::ReadBytes;
using support::Utf16;

namespace
{
// A running log_writer; ended with the object if it still runs.
class CWriter
{
public:
    CWriter(const ustring& path, int writer, int messages, const ustring& meeting)
    {
        ustring commandLine;
        commandLine.sprintf(L"\"%s\\log_writer.exe\" \"%s\" %d %d %s", support::ModuleFolder().c_str(), path.c_str(),
                            writer, messages, meeting.c_str());
        STARTUPINFOW startup = {};
        startup.cb = sizeof startup;
        EXPECT_TRUE(::CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                     &startup, &m_process))
            << "error " << ::GetLastError();
    }
    CWriter(const CWriter&) = delete;
    CWriter& operator=(const CWriter&) = delete;
    ~CWriter()
    {
        Kill();
        ::CloseHandle(m_process.hThread);
        ::CloseHandle(m_process.hProcess);
    }

    void Kill()
    {
        ::TerminateProcess(m_process.hProcess, 1);
        ::WaitForSingleObject(m_process.hProcess, INFINITE);
    }

    DWORD WaitForEnd()
    {
        DWORD exitCode = ~0u;
        ::WaitForSingleObject(m_process.hProcess, INFINITE);
        ::GetExitCodeProcess(m_process.hProcess, &exitCode);
        return exitCode;
    }

private:
    PROCESS_INFORMATION m_process = {};
};

class LogFileProcesses : public testing::Test
{
protected:
    const CTempFolder m_folder;
    const ustring m_path = m_folder.File(L"x.log");
    ustring m_meeting;
    HANDLE m_ready = nullptr;
    HANDLE m_go = nullptr;

    void SetUp() override
    {
        m_meeting.sprintf(L"vantor.log.%u", static_cast<unsigned int>(::GetCurrentProcessId()));
        m_ready = ::CreateSemaphoreW(nullptr, 0, 1000, (m_meeting + L".ready").c_str());
        m_go = ::CreateEventW(nullptr, TRUE, FALSE, (m_meeting + L".go").c_str());
    }

    void TearDown() override
    {
        ::CloseHandle(m_ready);
        ::CloseHandle(m_go);
    }

    std::unique_ptr<CWriter> Start(int writer, int messages)
    {
        return std::make_unique<CWriter>(m_path, writer, messages, m_meeting);
    }

    void WaitForReady() { ASSERT_EQ(WAIT_OBJECT_0, ::WaitForSingleObject(m_ready, 60000)); }

    // Starts a writer and kills it after 100 messages, while it goes on.
    void WriteAndKill()
    {
        const auto writer = Start(0, 0);
        ::SetEvent(m_go);
        WaitForReady();
        WaitForReady();
        writer->Kill();
    }

    // What is complete: up to the last line end.
    std::string WholeRecords() const
    {
        const std::string bytes = ReadBytes(m_path.c_str());
        const std::size_t end = bytes.rfind(Utf16(L"\r\n"));
        return end == std::string::npos ? bytes : bytes.substr(0, end + 4);
    }
};
}   // namespace

TEST_F(LogFileProcesses, TwoAtOnce_NothingIsLostAndMessagesStayTogether)
{
    constexpr int messages = 3000;
    const auto first = Start(0, messages);
    const auto second = Start(1, messages);
    WaitForReady();
    WaitForReady();
    ::SetEvent(m_go);   // from here on both open the file, which is not there yet
    ASSERT_EQ(0u, first->WaitForEnd());
    ASSERT_EQ(0u, second->WaitForEnd());
    log_test::ExpectAllMessages(m_path, 2, messages);
}

TEST_F(LogFileProcesses, KilledInMidRun_ItsRecordsAreReadable)
{
    WriteAndKill();
    std::vector<CRecord> records;
    EXPECT_TRUE(log_test::Parse(WholeRecords(), records));
    ASSERT_GE(records.size(), 300u);
    EXPECT_TRUE(records[299].text == L"0 99 third");
}

TEST_F(LogFileProcesses, KilledInMidRun_TheNextGoesOnBehind)
{
    const CFixedClock clock;
    WriteAndKill();
    const std::string before = ReadBytes(m_path.c_str());
    CLogFile log;
    ASSERT_TRUE(log.Open(m_path.c_str()));
    ASSERT_TRUE(log.Write(L"next"));
    const std::string after = ReadBytes(m_path.c_str());
    const std::string record = Utf16(L"[2013/March/05, 14:07:00] next\r\n");
    EXPECT_EQ(before, after.substr(0, before.size()));
    ASSERT_GE(after.size(), before.size() + record.size());
    EXPECT_EQ(record, after.substr(after.size() - record.size()));
}

TEST_F(LogFileProcesses, EndedInMidCharacter_ItsWholeRecordsAreReadable)
{
    ::SetEvent(m_go);
    ASSERT_EQ(0u, Start(0, -1)->WaitForEnd());
    ASSERT_EQ(1u, ReadBytes(m_path.c_str()).size() % 2);
    std::vector<CRecord> records;
    EXPECT_TRUE(log_test::Parse(WholeRecords(), records));
    EXPECT_GE(records.size(), 300u);
}

TEST_F(LogFileProcesses, EndedInMidCharacter_TheNextRecordIsReadable)
{
    const CFixedClock clock;
    ::SetEvent(m_go);
    ASSERT_EQ(0u, Start(0, -1)->WaitForEnd());
    const std::string before = ReadBytes(m_path.c_str());
    CLogFile log;
    ASSERT_TRUE(log.Open(m_path.c_str()));
    ASSERT_TRUE(log.Write(L"next"));
    EXPECT_EQ(before + '\0' + Utf16(L"[2013/March/05, 14:07:00] next\r\n"), ReadBytes(m_path.c_str()));
}

TEST_F(LogFileProcesses, EndedWhileWriting_LogsThatAreOpenGoOn)
{
    CLogFile log;
    ASSERT_TRUE(log.Open(m_path.c_str()));
    ::SetEvent(m_go);
    ASSERT_EQ(0u, Start(0, -1)->WaitForEnd());
    const std::string before = ReadBytes(m_path.c_str());
    EXPECT_TRUE(log.Write(L"next"));   // hangs if the dead writer still held the file
    EXPECT_LT(before.size(), ReadBytes(m_path.c_str()).size());
}
