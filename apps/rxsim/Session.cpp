#include "Session.h"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <utility>

namespace rxsim
{
using namespace vantor;

namespace
{
constexpr unsigned long Patience = 200;         // milliseconds between two looks for something to do
constexpr unsigned long LongestDelay = 60000;   // milliseconds

class CLock
{
public:
    explicit CLock(CCriticalSection& section) : m_section(section) { m_section.Lock(true); }
    CLock(const CLock&) = delete;
    CLock& operator=(const CLock&) = delete;
    ~CLock() { m_section.Unlock(); }

private:
    CCriticalSection& m_section;
};

class CSession
{
public:
    CSession(link::CLink& link, CSharedReceiver& shared, CEvent& cancel)
        : m_link(link), m_lines(link), m_shared(shared), m_cancel(cancel)
    {
    }

    // The sweep belongs to the session that began it.
    ~CSession()
    {
        const CLock lock(m_shared.section);
        if (m_streaming)
            m_shared.receiver.StopSweep();
    }

    void Run()
    {
        std::string command;
        while (!m_ended)
        {
            const unsigned long wait = m_streaming ? link::Left(m_lastReading, Interval()) : Patience;
            if (ReceiveCommand(command, wait))
                Answer(command);
            else if (m_streaming)
                SendReading();
        }
    }

private:
    bool ReceiveCommand(std::string& command, unsigned long time)
    try
    {
        return m_lines.Receive(command, time);
    }
    catch (const CWinException& e)
    {
        if (e.GetErrorCode() != ERROR_INVALID_DATA)
            throw;
        command.clear();   // a line too long is a wrong command like any other
        return true;
    }

    unsigned long Interval()
    {
        const CLock lock(m_shared.section);
        return m_shared.receiver.Interval();
    }

    void SendReading()
    {
        std::string reading;
        {
            const CLock lock(m_shared.section);
            reading = m_shared.receiver.NextReading();
        }
        m_lastReading = ::GetTickCount();
        m_lines.Send(reading);
    }

    std::string Execute(const std::string& command)
    {
        const CLock lock(m_shared.section);
        const bool before = m_shared.receiver.IsSweeping();
        if (before && !m_streaming && command.rfind("sweep", 0) == 0)
            return Reply(eAccessDenied);   // another session's
        const std::string answer = m_shared.receiver.Execute(command);
        const bool after = m_shared.receiver.IsSweeping();
        if (before != after)
        {
            m_streaming = after;
            m_lastReading = ::GetTickCount();
        }
        return answer;
    }

    void Answer(const std::string& command)
    {
        std::istringstream words(command);
        std::string first;
        words >> first;
        if (first == "bye")
        {
            m_lines.Send("OK");
            m_ended = true;
        }
        else if (first == "fault")
            m_lines.Send(Arm(words));
        else
        {
            const std::string fault = std::exchange(m_fault, std::string());
            Misbehave(fault, fault == "reply" ? Reply(static_cast<EReply>(m_value)) : Execute(command));
        }
    }

    // "OK", or what is wrong with the words.
    std::string Arm(std::istringstream& words)
    {
        static constexpr const char* Kinds[] = {"delay", "silence", "half", "garbage", "drop", "reply"};

        std::string kind, number;
        if (!(words >> kind))
            return Reply(eFirstMissed);
        if (std::find(std::begin(Kinds), std::end(Kinds), kind) == std::end(Kinds))
            return Reply(eWrongFirst);
        unsigned long value = 0;
        if (kind == "delay" || kind == "reply")
        {
            if (!(words >> number))
                return Reply(eSecondMissed);
            if (number.size() > 9 || number.find_first_not_of("0123456789") != number.npos)
                return Reply(eWrongSecond);
            value = std::stoul(number);
        }
        if (value > LongestDelay || (kind == "reply" && value >= CCommException::ReplyCount))
            return Reply(eOutOfRange);
        m_fault = kind;
        m_value = value;
        return "OK";
    }

    void Misbehave(const std::string& fault, const std::string& answer)
    {
        if (fault == "silence")
            return;
        if (fault == "drop")
        {
            m_link.Drop();
            m_ended = true;
            return;
        }
        if (fault == "half")
            return m_link.Send(answer.substr(0, (answer.size() + 1) / 2));
        if (fault == "garbage")
            return m_link.Send("\x7F\x01\xFF?#\x80\r\n");
        if (fault == "delay")
            vantor::Sleep(m_value, m_cancel);
        m_lines.Send(answer);
    }

    link::CLink& m_link;
    link::CLines m_lines;
    CSharedReceiver& m_shared;
    CEvent& m_cancel;
    bool m_ended = false;
    bool m_streaming = false;
    unsigned long m_lastReading = 0;
    std::string m_fault;
    unsigned long m_value = 0;
};

bool IsEndOfSession(unsigned long error)
{
    return error == ERROR_GRACEFUL_DISCONNECT || error == WSAECONNRESET || error == WSAECONNABORTED ||
           error == ERROR_CANCELLED || error == ERROR_NETNAME_DELETED;
}
}   // namespace

void Serve(link::CLink& link, CSharedReceiver& shared, CEvent& cancel)
{
    CSession session(link, shared, cancel);
    try
    {
        session.Run();
    }
    catch (const CWinException& e)
    {
        if (!IsEndOfSession(e.GetErrorCode()))
            throw;
    }
}
}   // namespace rxsim
