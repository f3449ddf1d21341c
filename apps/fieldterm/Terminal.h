// Talks to a receiver: one command, one answer, everything with a time-out. What goes wrong is an exception, and the
// next command works again: the connection is made anew if it was lost, and late answers are not taken for new ones.

#ifndef VANTOR_APPS_TERMINAL_H
#define VANTOR_APPS_TERMINAL_H

#include <Link.h>

#include <deque>
#include <functional>
#include <optional>
#include <vector>

namespace fieldterm
{
class CTerminal
{
public:
    using CConnect = std::function<std::unique_ptr<link::CLink>()>;

    // connect makes the link, at the first command and whenever it was lost. time: milliseconds for each answer. The
    // log may be closed.
    CTerminal(CConnect connect, unsigned long time, vantor::CLogFile& log);

    // The answer's lines, without "OK". Throws CCommException with the receiver's reply, or with what came instead of
    // an answer; CWinException with ERROR_TIMEOUT if none came, or with whatever failed on the line.
    std::vector<std::string> Execute(const std::string& command);

    // The next reading of a sweep; of those that came between answers the last ten thousand are kept. Throws as Execute
    // does. time: milliseconds.
    std::string NextReading(unsigned long time);

private:
    class CLoggedLink;

    template <class Operation>
    auto OnConnection(Operation operation) -> decltype(operation());
    void Disconnect();
    void Send(const std::string& line);
    std::string Receive(unsigned long start, unsigned long time);
    void Resynchronise();
    std::string NextAnswer(unsigned long start);
    std::vector<std::string> Answer(unsigned long start);

    CConnect m_connect;
    unsigned long m_time;
    vantor::CLogFile& m_log;
    std::unique_ptr<link::CLink> m_link;
    std::optional<link::CLines> m_lines;
    std::deque<std::string> m_readings;
    bool m_late = false;   // an answer may still come
    unsigned int m_token = 0;
};
}   // namespace fieldterm

#endif
