// Several threads that write to one file.

#include "log/Messages.h"

#include <array>
#include <functional>
#include <thread>

using namespace vantor;
using log_test::ExpectAllMessages;
using log_test::WriteMessage;
using support::CTempFolder;

namespace
{
constexpr int Threads = 8;

BOOL WINAPI UnsupportedLock(HANDLE, DWORD, DWORD, DWORD, DWORD, OVERLAPPED*)
{
    ::SetLastError(ERROR_NOT_SUPPORTED);
    return FALSE;
}

void RunInThreads(int count, const std::function<void(int thread)>& work)
{
    std::vector<std::thread> threads;
    for (int thread = 0; thread < count; ++thread)
        threads.emplace_back(work, thread);
    for (std::thread& thread : threads)
        thread.join();
}
}   // namespace

TEST(LogFileThreads, EightOnOneLog_NothingIsLostAndMessagesStayTogether)
{
    constexpr int messages = 10000;
    const CTempFolder folder;
    const ustring path = folder.File(L"x.log");
    CLogFile log;
    ASSERT_TRUE(log.Open(path.c_str()));
    RunInThreads(Threads,
                 [&](int thread)
                 {
                     for (int message = 0; message < messages; ++message)
                         WriteMessage(log, thread, message);
                 });
    ExpectAllMessages(path, Threads, messages);
}

// Threads of one log need no help of the file system.
TEST(LogFileThreads, EightOnOneLogWithoutFileLocks_NothingIsLostAndMessagesStayTogether)
{
    constexpr int messages = 1000;
    const CTempFolder folder;
    const ustring path = folder.File(L"x.log");
    CLogFile log;
    ASSERT_TRUE(log.Open(path.c_str()));
    const support::CImportPatch patch(&::LockFileEx, &UnsupportedLock);
    RunInThreads(Threads,
                 [&](int thread)
                 {
                     for (int message = 0; message < messages; ++message)
                         WriteMessage(log, thread, message);
                 });
    ExpectAllMessages(path, Threads, messages);
}

TEST(LogFileThreads, EightLogsOnOneFile_NothingIsLostAndMessagesStayTogether)
{
    constexpr int messages = 500;
    const CTempFolder folder;
    const ustring path = folder.File(L"x.log");
    std::array<CLogFile, Threads> logs;
    for (CLogFile& log : logs)
        ASSERT_TRUE(log.Open(path.c_str()));
    RunInThreads(Threads,
                 [&](int thread)
                 {
                     for (int message = 0; message < messages; ++message)
                         WriteMessage(logs[static_cast<std::size_t>(thread)], thread, message);
                 });
    ExpectAllMessages(path, Threads, messages);
}
