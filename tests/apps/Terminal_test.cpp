// The terminal against a receiver that is written down: what it answers to which command, in which pieces.

#include "Loopback.h"
#include "support/Print.h"
#include "support/TempFolder.h"

#include <Session.h>
#include <Terminal.h>

#include <deque>
#include <map>

namespace
{
using namespace vantor;
using loopback::Long;

using CTexts = std::vector<std::string>;

constexpr unsigned long Time = 300;   // milliseconds for each answer: what comes is there at once, the rest never comes

struct CFakeReceiver
{
    // The pieces of its answers; what is not here is answered with "OK", an echo with its word.
    std::map<std::string, CTexts> answers;
    CTexts commands;   // that have come, resynchronising left out
    std::deque<std::string> underWay;
    int connections = 0;
    unsigned long connectError =
        0;   // of the next connection, the next line that is sent, the next one that is awaited
    unsigned long sendError = 0;
    unsigned long receiveError = 0;

    void Take(const std::string& line)
    {
        if (line.empty())
            underWay.push_back("{2,,wrong command}\r\n");
        else if (line.rfind("echo ", 0) == 0)
            underWay.push_back("OK " + line.substr(5) + "\r\n");
        else
        {
            commands.push_back(line);
            const auto answer = answers.find(line);
            const CTexts pieces = answer == answers.end() ? CTexts{"OK\r\n"} : answer->second;
            underWay.insert(underWay.end(), pieces.begin(), pieces.end());
        }
    }
};

void ThrowOnce(unsigned long& error)
{
    if (const unsigned long code = std::exchange(error, 0))
        throw CWinException(1, L".\\Test", L"CFakeLink", code);
}

class CFakeLink : public link::CLink
{
public:
    explicit CFakeLink(CFakeReceiver& receiver) : m_receiver(receiver)
    {
        ThrowOnce(m_receiver.connectError);
        ++m_receiver.connections;
        m_receiver.underWay.clear();
    }
    ~CFakeLink() noexcept(false) override {}

    std::string Receive(unsigned long time) override
    {
        ThrowOnce(m_receiver.receiveError);
        if (m_receiver.underWay.empty())
        {
            ::Sleep(time);
            return std::string();
        }
        std::string piece = std::move(m_receiver.underWay.front());
        m_receiver.underWay.pop_front();
        return piece;
    }

    void Send(const std::string& bytes) override
    {
        ThrowOnce(m_receiver.sendError);
        m_sent += bytes;
        for (std::size_t end; (end = m_sent.find("\r\n")) != m_sent.npos; m_sent.erase(0, end + 2))
            m_receiver.Take(m_sent.substr(0, end));
    }

    void Drop() override {}

private:
    CFakeReceiver& m_receiver;
    std::string m_sent;
};

class Terminal : public loopback::CTest
{
protected:
    ~Terminal() noexcept override {}

    CTexts Execute(const std::string& command) { return m_terminal.Execute(command); }

    // The receiver's reply that is thrown.
    std::string ReplyTo(const std::string& command)
    try
    {
        m_terminal.Execute(command);
        return "nothing was thrown";
    }
    catch (const CCommException& e)
    {
        ustring reply;
        e.GetErrorMessage(reply);
        return ustring::WideCharToMultiByte(reply, CP_UTF8, 0);
    }

    unsigned long ErrorOf(const std::string& command)
    {
        return loopback::ErrorOf([&] { m_terminal.Execute(command); });
    }

    CFakeReceiver m_receiver;
    CLogFile m_log;
    fieldterm::CTerminal m_terminal{[this] { return std::make_unique<CFakeLink>(m_receiver); }, Time, m_log};
};

// -------------------------------------------------------------------------------------------------------- answers

TEST_F(Terminal, Execute_AnswerIsOk_HasNoLines)
{
    EXPECT_EQ(Execute("set points 5"), CTexts());
    EXPECT_EQ(m_receiver.commands, CTexts{"set points 5"});
}

TEST_F(Terminal, Execute_AnswerHasAValue_IsThatLine)
{
    m_receiver.answers["ident"] = {"OK RXSIM,1.0,0042\r\n"};
    EXPECT_EQ(Execute("ident"), CTexts{"RXSIM,1.0,0042"});
}

TEST_F(Terminal, Execute_AnswerInPieces_IsPutTogether)
{
    m_receiver.answers["ident"] = {"O", "K RX", "SIM\r", "\n"};
    EXPECT_EQ(Execute("ident"), CTexts{"RXSIM"});
}

TEST_F(Terminal, Execute_AnswerAnnouncesLines_HasThem)
{
    m_receiver.answers["list"] = {"OK *2\r\nA.CSV;27\r\nB.", "CSV;27\r\n"};
    EXPECT_EQ(Execute("list"), (CTexts{"A.CSV;27", "B.CSV;27"}));
}

TEST_F(Terminal, Execute_AnswerAnnouncesNoLines_HasNone)
{
    m_receiver.answers["list"] = {"OK *0\r\n"};
    EXPECT_EQ(Execute("list"), CTexts());
}

TEST_F(Terminal, Execute_AnnouncedLinesDoNotAllCome_TimesOut)
{
    m_receiver.answers["list"] = {"OK *2\r\nA.CSV;27\r\n"};
    EXPECT_EQ(ErrorOf("list"), static_cast<unsigned long>(ERROR_TIMEOUT));
}

TEST_F(Terminal, Execute_AnnouncementIsGarbled_IsNoAnswer)
{
    m_receiver.answers["list"] = {"OK *two\r\n"};
    EXPECT_EQ(ReplyTo("list"), "OK *two");
}

TEST_F(Terminal, Execute_AnnouncesMoreThanAnybodyHas_IsNoAnswer)
{
    m_receiver.answers["list"] = {"OK *100001\r\n"};
    EXPECT_EQ(ReplyTo("list"), "OK *100001");
}

TEST_F(Terminal, Execute_OneConnection_ServesAllCommands)
{
    Execute("a");
    Execute("b");
    EXPECT_EQ(m_receiver.connections, 1);
}

// --------------------------------------------------------------------------------------------------------- failures

TEST_F(Terminal, Execute_Reply_IsThrown)
{
    m_receiver.answers["x"] = {"{2,,dup loop}\r\n"};
    EXPECT_EQ(ReplyTo("x"), "{2,,dup loop}");
}

TEST_F(Terminal, Execute_AfterAReply_NextCommandWorks)
{
    m_receiver.answers["x"] = {"{2,,dup loop}\r\n"};
    ReplyTo("x");
    m_receiver.answers["ident"] = {"OK RXSIM\r\n"};
    EXPECT_EQ(Execute("ident"), CTexts{"RXSIM"});
}

TEST_F(Terminal, Execute_Garbage_IsThrownAsItCame)
{
    m_receiver.answers["x"] = {"\x7F\x01?#\r\n"};
    EXPECT_EQ(ReplyTo("x"), "\x7F\x01?#");
}

TEST_F(Terminal, Execute_WordThatOnlyBeginsAsOk_IsNoAnswer)
{
    m_receiver.answers["x"] = {"OKAY\r\n"};
    EXPECT_EQ(ReplyTo("x"), "OKAY");
}

TEST_F(Terminal, Execute_AfterGarbage_ItsRealAnswerIsNotTakenForTheNext)
{
    m_receiver.answers["x"] = {"#?\r\nOK of x\r\n"};
    ReplyTo("x");
    m_receiver.answers["ident"] = {"OK RXSIM\r\n"};
    EXPECT_EQ(Execute("ident"), CTexts{"RXSIM"});
}

TEST_F(Terminal, Execute_Silence_TimesOut)
{
    m_receiver.answers["x"] = {};
    EXPECT_EQ(ErrorOf("x"), static_cast<unsigned long>(ERROR_TIMEOUT));
}

TEST_F(Terminal, Execute_AfterATimeOut_TheConnectionIsKept)
{
    m_receiver.answers["x"] = {};
    ErrorOf("x");
    Execute("ident");
    EXPECT_EQ(m_receiver.connections, 1);
}

TEST_F(Terminal, Execute_LateAnswer_IsNotTakenForTheNext)
{
    m_receiver.answers["x"] = {};
    ErrorOf("x");
    m_receiver.underWay.push_back("OK of x\r\n");
    m_receiver.answers["ident"] = {"OK RXSIM\r\n"};
    EXPECT_EQ(Execute("ident"), CTexts{"RXSIM"});
}

TEST_F(Terminal, Execute_LateLinesOfALongAnswer_AreNotTakenForTheNext)
{
    m_receiver.answers["list"] = {"OK *2\r\n"};
    ErrorOf("list");
    m_receiver.underWay.push_back("OK.CSV;27\r\nB.CSV;27\r\n");
    m_receiver.answers["ident"] = {"OK RXSIM\r\n"};
    EXPECT_EQ(Execute("ident"), CTexts{"RXSIM"});
}

TEST_F(Terminal, Execute_AfterHalfALine_NextCommandWorks)
{
    m_receiver.answers["x"] = {"OK RX"};
    EXPECT_EQ(ErrorOf("x"), static_cast<unsigned long>(ERROR_TIMEOUT));
    m_receiver.answers["ident"] = {"OK RXSIM\r\n"};
    EXPECT_EQ(Execute("ident"), CTexts{"RXSIM"});
}

TEST_F(Terminal, Execute_LineTooLong_IsInvalidData)
{
    m_receiver.answers["x"] = {std::string(5000, 'x') + "\r\n"};
    EXPECT_EQ(ErrorOf("x"), static_cast<unsigned long>(ERROR_INVALID_DATA));
}

TEST_F(Terminal, Execute_AfterALineTooLong_NextCommandWorks)
{
    m_receiver.answers["x"] = {std::string(5000, 'x'), "OK the rest\r\n"};
    ErrorOf("x");
    m_receiver.answers["ident"] = {"OK RXSIM\r\n"};
    EXPECT_EQ(Execute("ident"), CTexts{"RXSIM"});
    EXPECT_EQ(m_receiver.connections, 1);
}

TEST_F(Terminal, Execute_NoConnection_IsThrownAndTriedAnewNextTime)
{
    m_receiver.connectError = WSAECONNREFUSED;
    EXPECT_EQ(ErrorOf("x"), static_cast<unsigned long>(WSAECONNREFUSED));
    EXPECT_EQ(Execute("x"), CTexts());
}

TEST_F(Terminal, Execute_ConnectionIsLostInTheAnswer_IsMadeAnewNextTime)
{
    Execute("a");
    m_receiver.receiveError = ERROR_GRACEFUL_DISCONNECT;
    EXPECT_EQ(ErrorOf("b"), static_cast<unsigned long>(ERROR_GRACEFUL_DISCONNECT));
    EXPECT_EQ(Execute("c"), CTexts());
    EXPECT_EQ(m_receiver.connections, 2);
}

TEST_F(Terminal, Execute_CommandCannotBeSent_ConnectionIsMadeAnewNextTime)
{
    for (const unsigned long error :
         std::initializer_list<unsigned long>{ERROR_TIMEOUT, ERROR_CANCELLED, WSAECONNRESET})
    {
        Execute("a");
        m_receiver.connections = 0;
        m_receiver.sendError = error;
        EXPECT_EQ(ErrorOf("b"), error);
        EXPECT_EQ(Execute("c"), CTexts());
        EXPECT_EQ(m_receiver.connections, 1) << error;
    }
}

TEST_F(Terminal, Execute_Cancelled_TheConnectionIsKept)
{
    m_receiver.receiveError = ERROR_CANCELLED;
    EXPECT_EQ(ErrorOf("x"), static_cast<unsigned long>(ERROR_CANCELLED));
    m_receiver.answers["ident"] = {"OK RXSIM\r\n"};
    EXPECT_EQ(Execute("ident"), CTexts{"RXSIM"});
    EXPECT_EQ(m_receiver.connections, 1);
}

TEST_F(Terminal, Execute_HalfALineOfALostConnection_DoesNotBeginTheNextAnswer)
{
    m_receiver.answers["x"] = {"OK RX"};
    ErrorOf("x");
    m_receiver.receiveError = WSAECONNRESET;
    ErrorOf("x");
    m_receiver.answers["ident"] = {"OK RXSIM\r\n"};
    EXPECT_EQ(Execute("ident"), CTexts{"RXSIM"});
}

// --------------------------------------------------------------------------------------------------------- readings

TEST_F(Terminal, NextReading_GivesWhatComes)
{
    m_receiver.answers["sweep start"] = {"OK\r\nL 0 88000 -93.0\r\n", "L 1 90000 -92.0\r\n"};
    Execute("sweep start");
    EXPECT_EQ(m_terminal.NextReading(Time), "L 0 88000 -93.0");
    EXPECT_EQ(m_terminal.NextReading(Time), "L 1 90000 -92.0");
}

TEST_F(Terminal, NextReading_OfThoseBetweenAnswers_ComeInOrder)
{
    m_receiver.answers["get points"] = {"L 0\r\nL 1\r\n", "OK 11\r\nL 2\r\n"};
    EXPECT_EQ(Execute("get points"), CTexts{"11"});
    for (const char* reading : {"L 0", "L 1", "L 2"})
        EXPECT_EQ(m_terminal.NextReading(Time), reading);
}

TEST_F(Terminal, NextReading_OfThoseWithinALongAnswer_AreNotItsLines)
{
    m_receiver.answers["list"] = {"OK *2\r\nA\r\nL 0\r\nB\r\n"};
    EXPECT_EQ(Execute("list"), (CTexts{"A", "B"}));
    EXPECT_EQ(m_terminal.NextReading(Time), "L 0");
}

TEST_F(Terminal, NextReading_NoneComes_TimesOut)
{
    EXPECT_EQ(loopback::ErrorOf([this] { m_terminal.NextReading(1); }), static_cast<unsigned long>(ERROR_TIMEOUT));
}

TEST_F(Terminal, NextReading_ConnectionIsLost_NextCommandWorks)
{
    Execute("sweep start");
    m_receiver.receiveError = WSAECONNRESET;
    EXPECT_EQ(loopback::ErrorOf([this] { m_terminal.NextReading(Time); }), static_cast<unsigned long>(WSAECONNRESET));
    EXPECT_EQ(Execute("ident"), CTexts());
    EXPECT_EQ(m_receiver.connections, 2);
}

// A link on which a reading has always just come.
class CFlood : public link::CLink
{
public:
    ~CFlood() noexcept(false) override {}
    std::string Receive(unsigned long) override { return "L 0 88000 -93.0\r\n"; }
    void Send(const std::string&) override {}
    void Drop() override {}
};

TEST_F(Terminal, Execute_ReadingsComeWithoutAPause_TimesOut)
{
    fieldterm::CTerminal terminal([] { return std::make_unique<CFlood>(); }, Time, m_log);
    EXPECT_EQ(loopback::ErrorOf([&] { terminal.Execute("ident"); }), static_cast<unsigned long>(ERROR_TIMEOUT));
}

// --------------------------------------------------------------------------------------------------------------- log

TEST_F(Terminal, Log_HoldsTheTrafficBothWays)
{
    const support::CTempFolder folder;
    const ustring path = folder.File(L"link.log");
    ASSERT_TRUE(m_log.Open(path.c_str()));
    m_receiver.answers["ident"] = {"OK \xFF\r\n"};
    Execute("ident");
    m_log.Close();

    const std::string log = support::ReadBytes(path.c_str());
    EXPECT_NE(log.find(support::Utf16(L"] > 69 64 65 6E 74 0D 0A  ident$$\r\n")), log.npos);
    EXPECT_NE(log.find(support::Utf16(L"] < 4F 4B 20 FF 0D 0A  OK$")), log.npos);
}

TEST_F(Terminal, Log_Closed_IsNotNeeded)
{
    EXPECT_EQ(Execute("ident"), CTexts());
}

// ----------------------------------------------------------------------------------------------- with the simulator

TEST_F(Terminal, OverARealConnection_FaultsAreSurvived)
{
    rxsim::CSharedReceiver shared{rxsim::CReceiver(1), {}};
    CEvent stop(nullptr, TRUE, FALSE, nullptr);
    loopback::CPort port;
    port.Listen(1);
    std::vector<std::unique_ptr<loopback::CWorker>> servers;
    {
        fieldterm::CTerminal terminal(
            [&]
            {
                auto link = link::Connect("127.0.0.1", port.Number(), Long, m_cancel);
                const SOCKET peer = port.Accept();
                servers.push_back(std::make_unique<loopback::CWorker>(
                    [&shared, &stop, peer] { rxsim::Serve(*link::Accepted(peer, stop), shared, stop); }));
                return link;
            },
            1000, m_log);
        const auto error = [&terminal] { return loopback::ErrorOf([&] { terminal.Execute("ident"); }); };
        const std::pair<const char*, unsigned long> faults[] = {
            {"silence", ERROR_TIMEOUT}, {"half", ERROR_TIMEOUT}, {"drop", ERROR_GRACEFUL_DISCONNECT}};
        for (const auto& [fault, expected] : faults)
        {
            terminal.Execute("fault " + std::string(fault));
            EXPECT_EQ(error(), expected) << fault;
            EXPECT_EQ(terminal.Execute("ident"), CTexts{"RXSIM,1.0,0042"}) << fault;
        }
    }
    stop.Set();
}
}   // namespace
