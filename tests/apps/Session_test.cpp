// The simulator's side of a line, over a real connection: what it answers, and how it misbehaves.

#include "Loopback.h"

#include <Session.h>

#include <gtest/gtest.h>

namespace
{
using namespace vantor;
using loopback::ErrorOf;
using loopback::Long;

// Both ends of a connection to a simulator.
class CConnection
{
public:
    CConnection(rxsim::CSharedReceiver& shared, CEvent& cancel, CEvent& stop)
        : m_pair(cancel),
          m_lines(*m_pair.link),
          m_peer(link::Accepted(std::exchange(m_pair.peer.m_socket, INVALID_SOCKET), stop)),
          m_server([this, &shared, &stop] { rxsim::Serve(*m_peer, shared, stop); })
    {
    }

    std::string Line()
    {
        std::string line;
        return m_lines.Receive(line, Long) ? line : "nothing came";
    }

    void Send(const std::string& command) { m_lines.Send(command); }
    void Drop() { m_pair.link->Drop(); }
    void AwaitEndOfSession() { m_server.End(); }

    std::string Ask(const std::string& command)
    {
        Send(command);
        return Line();
    }

    // What comes before the answer to a word of our own.
    std::vector<std::string> UntilEcho()
    {
        std::vector<std::string> lines;
        Send("echo here");
        for (std::string line; (line = Line()) != "OK here" && line != "nothing came";)
            lines.push_back(line);
        return lines;
    }

private:
    loopback::CPair m_pair;
    link::CLines m_lines;
    std::unique_ptr<link::CLink> m_peer;
    loopback::CWorker m_server;
};

class Session : public loopback::CTest
{
protected:
    ~Session() noexcept override { m_stop.Set(); }

    std::string Ask(const std::string& command) { return m_connection.Ask(command); }

    rxsim::CSharedReceiver m_shared{rxsim::CReceiver(1), {}};
    CEvent m_stop{nullptr, TRUE, FALSE, nullptr};
    CConnection m_connection{m_shared, m_cancel, m_stop};
};

using CTexts = std::vector<std::string>;

TEST_F(Session, Commands_AreAnswered)
{
    EXPECT_EQ(Ask("ident"), "OK RXSIM,1.0,0042");
    EXPECT_EQ(Ask("get points"), "OK 11");
}

TEST_F(Session, Bye_IsAnsweredAndEndsTheSession)
{
    EXPECT_EQ(Ask("bye"), "OK");
    m_connection.AwaitEndOfSession();
}

TEST_F(Session, Stop_EndsTheSession)
{
    EXPECT_EQ(Ask("ident"), "OK RXSIM,1.0,0042");
    m_stop.Set();
    m_connection.AwaitEndOfSession();
}

TEST_F(Session, OtherSideIsGone_EndsTheSession)
{
    m_connection.Drop();
    m_connection.AwaitEndOfSession();
}

TEST_F(Session, OtherSideIsGone_EndsItsSweep)
{
    Ask("sweep start");
    m_connection.Drop();
    m_connection.AwaitEndOfSession();
    EXPECT_FALSE(m_shared.receiver.IsSweeping());
}

TEST_F(Session, Sweep_StreamsReadingsInOrder)
{
    Ask("set interval 1");
    Ask("sweep start");
    for (const char* beginning : {"L 0 88000 ", "L 1 90000 ", "L 2 92000 "})
        EXPECT_EQ(m_connection.Line().rfind(beginning, 0), 0U) << beginning;
}

TEST_F(Session, Sweep_Stopped_CountsWhatItSent)
{
    Ask("set interval 1");
    Ask("sweep start");
    std::size_t readings = 0;
    m_connection.Send("sweep stop");
    std::string line = m_connection.Line();
    for (; line.rfind("L ", 0) == 0; line = m_connection.Line())
        ++readings;
    EXPECT_EQ(line, "OK " + std::to_string(readings));
    EXPECT_EQ(m_connection.UntilEcho(), CTexts());   // no reading behind the answer
}

TEST_F(Session, Sweep_OfAnotherSession_CannotBeStoppedHere)
{
    Ask("sweep start");
    CConnection other(m_shared, m_cancel, m_stop);
    EXPECT_EQ(other.Ask("sweep stop"), "{2,,access denied}");
    m_stop.Set();
}

TEST_F(Session, Sweep_OfASessionThatHasEnded_CanBeStartedAnew)
{
    {
        CConnection other(m_shared, m_cancel, m_stop);
        other.Ask("sweep start");
        other.Drop();
    }
    EXPECT_EQ(Ask("sweep start"), "OK");
}

TEST_F(Session, LineTooLong_IsAWrongCommandAndTheSessionGoesOn)
{
    EXPECT_EQ(Ask(std::string(10000, 'x')), "{2,,wrong command}");
    EXPECT_EQ(Ask("ident"), "OK RXSIM,1.0,0042");
}

// --------------------------------------------------------------------------------------------------------- faults

TEST_F(Session, FaultSilence_CommandIsNotAnswered)
{
    EXPECT_EQ(Ask("fault silence"), "OK");
    m_connection.Send("ident");
    EXPECT_EQ(m_connection.UntilEcho(), CTexts());
}

TEST_F(Session, FaultHalf_AnswerHasNoEnd)
{
    EXPECT_EQ(Ask("fault half"), "OK");
    m_connection.Send("ident");
    // 9 of the answer's 17 bytes, and the next answer right behind them.
    EXPECT_EQ(Ask("echo here"), "OK RXSIM,OK here");
}

TEST_F(Session, FaultGarbage_AnswerIsNone)
{
    EXPECT_EQ(Ask("fault garbage"), "OK");
    EXPECT_EQ(Ask("ident"), "\x7F\x01\xFF?#\x80");
}

TEST_F(Session, FaultDrop_EndsTheConnection)
{
    EXPECT_EQ(Ask("fault drop"), "OK");
    m_connection.Send("ident");
    EXPECT_EQ(ErrorOf([this] { m_connection.Line(); }), static_cast<unsigned long>(ERROR_GRACEFUL_DISCONNECT));
    m_connection.AwaitEndOfSession();
}

TEST_F(Session, FaultDelay_AnswerComes)
{
    EXPECT_EQ(Ask("fault delay 1"), "OK");
    EXPECT_EQ(Ask("ident"), "OK RXSIM,1.0,0042");
}

TEST_F(Session, FaultDelay_StopEndsIt)
{
    EXPECT_EQ(Ask("fault delay 60000"), "OK");
    m_connection.Send("ident");
    m_stop.Set();
    m_connection.AwaitEndOfSession();
}

TEST_F(Session, Faults_StrikeOnce)
{
    for (const char* fault : {"silence", "garbage", "reply 3", "delay 1"})
    {
        EXPECT_EQ(Ask("fault " + std::string(fault)), "OK");
        m_connection.Send("ident");
        m_connection.UntilEcho();
        EXPECT_EQ(Ask("ident"), "OK RXSIM,1.0,0042") << fault;
    }
}

TEST_F(Session, FaultReply_CommandIsNotCarriedOut)
{
    Ask("fault reply 25");
    EXPECT_EQ(Ask("set points 5"), "{2,,access denied}");
    EXPECT_EQ(Ask("get points"), "OK 11");
}

TEST_F(Session, FaultReply_EveryNumber_IsTheReceiversReply)
{
    // As the receiver sends them; 32 repeats 15.
    const char* const replies[] = {
        "{2,,wrong command}",
        "{2,,1st parameter missed}",
        "{2,,wrong 1st parameter}",
        "{2,,2nd parameter missed}",
        "{2,,wrong 2nd parameter}",
        "{2,,value missed}",
        "{2,,value out of range}",
        "{2,,wrong file name}",
        "{2,,file open error}",
        "{2,,file system not mounted}",
        "{2,,file read error}",
        "{2,,file already exists}",
        "{2,,can't create file}",
        "{2,,can't remove file}",
        "{2,,broken file}",
        "{2,,incompatible file version}",
        "{2,,file write error}",
        "{2,,data transfer open}",
        "{2,,data transfer error}",
        "{2,,wrong option name}",
        "{2,,bad option date}",
        "{2,,bad option value}",
        "{2,,option disabled}",
        "{2,,terminated by user}",
        "{2,,wrong receiver id}",
        "{2,,access denied}",
        "{2,,operation in progress}",
        "{2,,no file system device}",
        "{2,,dup loop}",
        "{2,,not supported}",
        "{2,,device is not accessible}",
        "{2,,wrong hardware version}",
        "{2,,incompatible file version}",
        "{2,,can't lock}",
        "{2,,memory card is busy}",
    };
    ASSERT_EQ(std::size(replies), 35U);
    for (std::size_t i = 0; i < std::size(replies); ++i)
    {
        EXPECT_EQ(Ask("fault reply " + std::to_string(i)), "OK");
        EXPECT_EQ(Ask("ident"), replies[i]) << i;
    }
}

TEST_F(Session, Fault_WithoutAKind_MissesIt)
{
    EXPECT_EQ(Ask("fault"), "{2,,1st parameter missed}");
}

TEST_F(Session, Fault_UnknownKind_IsWrong)
{
    EXPECT_EQ(Ask("fault flood"), "{2,,wrong 1st parameter}");
}

TEST_F(Session, Fault_WithoutItsNumber_MissesIt)
{
    EXPECT_EQ(Ask("fault reply"), "{2,,2nd parameter missed}");
    EXPECT_EQ(Ask("fault delay"), "{2,,2nd parameter missed}");
}

TEST_F(Session, Fault_NumberThatIsNone_IsWrong)
{
    EXPECT_EQ(Ask("fault reply x"), "{2,,wrong 2nd parameter}");
    EXPECT_EQ(Ask("fault delay 5x"), "{2,,wrong 2nd parameter}");
    EXPECT_EQ(Ask("fault delay -1"), "{2,,wrong 2nd parameter}");
}

TEST_F(Session, Fault_NumberBeyondTheTable_IsOutOfRange)
{
    EXPECT_EQ(Ask("fault reply 35"), "{2,,value out of range}");
    EXPECT_EQ(Ask("fault delay 60001"), "{2,,value out of range}");
}

TEST_F(Session, Fault_Refused_ArmsNothing)
{
    Ask("fault reply 35");
    EXPECT_EQ(Ask("ident"), "OK RXSIM,1.0,0042");
}
}   // namespace
