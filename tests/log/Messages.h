// Messages that several writers write to one file, and the proof that all of them are there.

#ifndef VANTOR_TEST_LOG_MESSAGES_H
#define VANTOR_TEST_LOG_MESSAGES_H

#include "log/Log.h"

#include <cwchar>

namespace log_test
{
// Of three records, a blank line between, and longer or shorter from one to the next.
inline bool WriteMessage(vantor::CLogFile& log, int writer, int message)
{
    const std::wstring padding(static_cast<std::size_t>(message % 7), L'x');
    return log.Write(L"%d %d first %s\r\n\r\n%d %d second\n%d %d third", writer, message, padding.c_str(), writer,
                     message, writer, message);
}

// Each writer's messages are complete and in the order in which it wrote them, and the records of each together.
inline void ExpectAllMessages(const vantor::ustring& path, int writers, int messages)
{
    const std::vector<CRecord> records = Records(path);
    ASSERT_EQ(static_cast<std::size_t>(writers * messages * 3), records.size());

    std::vector<int> next(static_cast<std::size_t>(writers), 0);
    for (std::size_t at = 0; at < records.size(); at += 3)
    {
        int writer = -1;
        int message = -1;
        ASSERT_EQ(2, std::swscanf(records[at].text.c_str(), L"%d %d first", &writer, &message)) << "record " << at;
        ASSERT_TRUE(0 <= writer && writer < writers) << "record " << at;
        int& expected = next[static_cast<std::size_t>(writer)];
        ASSERT_EQ(expected, message) << "writer " << writer << ", record " << at;
        ++expected;

        const std::wstring tag = std::to_wstring(writer) + L' ' + std::to_wstring(message);
        const std::wstring padding(static_cast<std::size_t>(message % 7), L'x');
        ASSERT_TRUE(records[at].text == tag + L" first " + padding) << "record " << at;
        ASSERT_TRUE(records[at + 1].text == tag + L" second") << "record " << at + 1;
        ASSERT_TRUE(records[at + 2].text == tag + L" third") << "record " << at + 2;
        ASSERT_TRUE(records[at].stamp == records[at + 1].stamp && records[at].stamp == records[at + 2].stamp)
            << "record " << at;
    }
}
}   // namespace log_test

#endif
