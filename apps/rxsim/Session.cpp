#include "Session.h"

#include <algorithm>
#include <sstream>

namespace rxsim
{
using namespace vantor;

namespace
{
constexpr unsigned long Patience = 200;   // milliseconds between two looks for something to do

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

    void Run()
    {
        std::string command;
        while (!m_ended)
        {
            const unsigned long wait = m_streaming ? link::Left(m_lastReading, Interval()) : Patience;
            if (m_lines.Receive(command, wait))
                Answer(command);
            else if (m_streaming)
                SendReading();
        }
    }

    // The sweep belongs to the session that began it.
    void End()
    {
        const CLock lock(m_shared.section);
        if (m_streaming)
            m_shared.receiver.StopSweep();
    }

private:
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
            Misbehave(fault, fault == "reply" ? Reply(m_value) : Execute(command));
        }
    }

    // "OK", or what is wrong with the words.
    std::string Arm(std::istringstream& words)
    {
        static constexpr const char* Kinds[] = {"delay", "silence", "half", "garbage", "drop", "reply"};

        std::string kind;
        if (!(words >> kind))
            return Reply(1);
        if (std::find(std::begin(Kinds), std::end(Kinds), kind) == std::end(Kinds))
            return Reply(2);
        unsigned long value = 0;
        if ((kind == "delay" || kind == "reply") && !(words >> value))
            return Reply(3);
        if (value > 60000 || (kind == "reply" && value >= CCommException::ReplyCount))
            return Reply(6);
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
        session.End();
    }
    catch (const CWinException& e)
    {
        session.End();
        if (!IsEndOfSession(e.GetErrorCode()))
            throw;
    }
}
}   // namespace rxsim
