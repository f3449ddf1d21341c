// Overlapped sends and receives in every state: done at once, running, done later, cancelled, given up by the peer.

#include "Loopback.h"
#include "support/Failure.h"
#include "support/ImportPatch.h"

#include <vantor/Object.h>
#include <vantor/Socket.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace vantor;
using namespace links_test;
using support::CImportPatch;

namespace
{
using SocketOverlapped = Winsock;

struct CResultCall
{
    SOCKET socket;
    OVERLAPPED* ov;
    BOOL wait;
    DWORD flags;
};
CResultCall g_call;

struct CAnswer
{
    BOOL result;
    int error;
    bool reports;
    DWORD count;
};
CAnswer g_answer;

BOOL WSAAPI FakeResult(SOCKET socket, OVERLAPPED* ov, DWORD* count, BOOL wait, DWORD* flags)
{
    g_call = {socket, ov, wait, *flags};
    if (g_answer.reports)
    {
        *count = g_answer.count;
        *flags = 0x8000;
    }
    ::WSASetLastError(g_answer.error);
    return g_answer.result;
}

// A receive of up to 16 bytes.
class CReceive
{
public:
    bool Start(CWSASocket& socket) { return socket.Recv(m_buffer, sizeof m_buffer, m_count, m_flags, &m_ov); }
    bool Result(CWSASocket& socket, bool wait) { return socket.GetOverlappedResult(&m_ov, m_count, wait, m_flags); }
    bool WaitForEvent() const { return ::WaitForSingleObject(m_ov.hEvent, Patience) == WAIT_OBJECT_0; }
    std::string Text() const { return std::string(m_buffer, m_count); }
    unsigned int Count() const { return m_count; }
    const OVERLAPPED& Record() const { return m_ov; }

private:
    CWSAOverlapped m_ov;
    char m_buffer[16] = {};
    unsigned int m_count = 99;
    unsigned long m_flags = 0;
};

// More than the buffers between two sockets hold.
std::vector<char> MoreThanFits()
{
    return std::vector<char>(std::size_t{32} << 20, 'x');
}

struct COutcome
{
    bool done = false;
    unsigned int count = 99;
    unsigned long flags = 0;
    unsigned long error = 0;
};

COutcome FakedResult(const CAnswer& answer)
{
    g_answer = answer;
    CWSASocket socket;
    OVERLAPPED ov = {};
    const CImportPatch patch(&::WSAGetOverlappedResult, &FakeResult);
    COutcome outcome;
    outcome.error =
        ErrorOf([&] { outcome.done = socket.GetOverlappedResult(&ov, outcome.count, FALSE, outcome.flags); });
    return outcome;
}
}   // namespace

TEST_F(SocketOverlapped, Recv_WhenNothingIsThere_IsPending)
{
    CConnection connection;
    CReceive receive;

    EXPECT_FALSE(receive.Start(connection.local));

    EXPECT_EQ(0u, receive.Count());
    connection.PeerSends("end");
    receive.WaitForEvent();
}

TEST_F(SocketOverlapped, Recv_WhenSomethingIsThere_IsDoneAtOnce)
{
    CConnection connection;
    connection.PeerSends("there");
    WaitUntilReadable(connection.local.m_socket);
    CReceive receive;

    EXPECT_TRUE(receive.Start(connection.local));

    EXPECT_EQ("there", receive.Text());
}

TEST_F(SocketOverlapped, Recv_DoneAtOnce_HasAResultToo)
{
    CConnection connection;
    connection.PeerSends("there");
    WaitUntilReadable(connection.local.m_socket);
    CReceive receive;
    receive.Start(connection.local);

    EXPECT_TRUE(receive.Result(connection.local, false));

    EXPECT_EQ("there", receive.Text());
}

TEST_F(SocketOverlapped, GetOverlappedResult_WhileItRuns_IsFalse)
{
    CConnection connection;
    CReceive receive;
    receive.Start(connection.local);

    EXPECT_FALSE(receive.Result(connection.local, false));

    EXPECT_EQ(0u, receive.Count());
    connection.PeerSends("end");
    receive.WaitForEvent();
}

TEST_F(SocketOverlapped, GetOverlappedResult_AfterTheEvent_HandsOutTheCount)
{
    CConnection connection;
    CReceive receive;
    receive.Start(connection.local);
    connection.PeerSends("answer");
    ASSERT_TRUE(receive.WaitForEvent());

    EXPECT_TRUE(receive.Result(connection.local, false));

    EXPECT_EQ("answer", receive.Text());
}

TEST_F(SocketOverlapped, GetOverlappedResult_WhenItMayWait_WaitsUntilItIsDone)
{
    CConnection connection;
    CReceive receive;
    receive.Start(connection.local);
    connection.PeerSends("answer");

    EXPECT_TRUE(receive.Result(connection.local, true));

    EXPECT_EQ("answer", receive.Text());
}

TEST_F(SocketOverlapped, Send_ThatFits_IsDoneAtOnce)
{
    CConnection connection;
    CWSAOverlapped ov;
    unsigned int sent = 99;

    EXPECT_TRUE(connection.local.Send("few", 3, sent, 0, &ov));

    EXPECT_EQ(3u, sent);
}

TEST_F(SocketOverlapped, Send_ThatDoesNotFit_IsPending)
{
    const std::vector<char> data = MoreThanFits();
    CConnection connection;
    CWSAOverlapped ov;
    unsigned int sent = 99;

    EXPECT_FALSE(connection.local.Send(data.data(), static_cast<unsigned int>(data.size()), sent, 0, &ov));

    EXPECT_EQ(0u, sent);
    connection.PeerReceives(data.size());
    ::WaitForSingleObject(ov.hEvent, Patience);
}

TEST_F(SocketOverlapped, Send_WhileItRuns_HasNoResult)
{
    const std::vector<char> data = MoreThanFits();
    CConnection connection;
    CWSAOverlapped ov;
    unsigned int sent = 99;
    unsigned long flags = 0;
    connection.local.Send(data.data(), static_cast<unsigned int>(data.size()), sent, 0, &ov);

    EXPECT_FALSE(connection.local.GetOverlappedResult(&ov, sent, FALSE, flags));

    connection.PeerReceives(data.size());
    ::WaitForSingleObject(ov.hEvent, Patience);
}

TEST_F(SocketOverlapped, Send_WhenThePeerHasTakenAll_HandsOutTheCount)
{
    const std::vector<char> data = MoreThanFits();
    CConnection connection;
    CWSAOverlapped ov;
    unsigned int sent = 99;
    unsigned long flags = 0;
    connection.local.Send(data.data(), static_cast<unsigned int>(data.size()), sent, 0, &ov);
    ASSERT_EQ(data.size(), connection.PeerReceives(data.size()).size());
    ASSERT_EQ(WAIT_OBJECT_0, ::WaitForSingleObject(ov.hEvent, Patience));

    EXPECT_TRUE(connection.local.GetOverlappedResult(&ov, sent, FALSE, flags));

    EXPECT_EQ(data.size(), sent);
}

TEST_F(SocketOverlapped, SendAndRecv_RunAtTheSameTime)
{
    CConnection connection;
    CReceive receive;
    receive.Start(connection.local);
    CWSAOverlapped ov;
    unsigned int sent = 0;

    connection.local.Send("question", 8, sent, 0, &ov);
    EXPECT_EQ("question", connection.PeerReceives(8));
    connection.PeerSends("answer");

    EXPECT_TRUE(receive.Result(connection.local, true));
    EXPECT_EQ("answer", receive.Text());
}

TEST_F(SocketOverlapped, Close_EndsAPendingReceive)
{
    CConnection connection;
    CReceive receive;
    receive.Start(connection.local);

    connection.local.Close();

    EXPECT_TRUE(receive.WaitForEvent());
    EXPECT_NE(0u, receive.Record().Internal);   // the status: cancelled, not done
    EXPECT_EQ(0u, receive.Record().InternalHigh);
}

TEST_F(SocketOverlapped, GetOverlappedResult_AfterClose_Throws)
{
    CConnection connection;
    CReceive receive;
    receive.Start(connection.local);
    connection.local.Close();
    ASSERT_TRUE(receive.WaitForEvent());

    EXPECT_THROW(receive.Result(connection.local, false), CWinException);
}

TEST_F(SocketOverlapped, GetOverlappedResult_OfACancelledReceive_Throws)
{
    CConnection connection;
    CReceive receive;
    receive.Start(connection.local);
    ASSERT_TRUE(::CancelIo(reinterpret_cast<HANDLE>(connection.local.m_socket)));
    ASSERT_TRUE(receive.WaitForEvent());

    EXPECT_FAILURE(164, L".\\Socket", L"WSAGetOverlappedResult", WSA_OPERATION_ABORTED,
                   receive.Result(connection.local, false));

    EXPECT_EQ(0u, receive.Count());
    EXPECT_TRUE(connection.local.IsCreated());
}

TEST_F(SocketOverlapped, Recv_AfterACancelledOne_WorksAgain)
{
    CConnection connection;
    CReceive cancelled;
    cancelled.Start(connection.local);
    ::CancelIo(reinterpret_cast<HANDLE>(connection.local.m_socket));
    ASSERT_TRUE(cancelled.WaitForEvent());
    CReceive receive;
    connection.PeerSends("again");
    receive.Start(connection.local);

    EXPECT_TRUE(receive.Result(connection.local, true));

    EXPECT_EQ("again", receive.Text());
}

TEST_F(SocketOverlapped, GetOverlappedResult_AfterThePeersReset_Throws)
{
    CConnection connection;
    CReceive receive;
    receive.Start(connection.local);
    connection.ResetByPeer();
    ASSERT_TRUE(receive.WaitForEvent());

    EXPECT_FAILURE(164, L".\\Socket", L"WSAGetOverlappedResult", WSAECONNRESET,
                   receive.Result(connection.local, false));
}

TEST_F(SocketOverlapped, GetOverlappedResult_WhenThePeerIsGone_IsDoneWithNothing)
{
    CConnection connection;
    CReceive receive;
    receive.Start(connection.local);
    connection.ClosePeer();
    ASSERT_TRUE(receive.WaitForEvent());

    EXPECT_TRUE(receive.Result(connection.local, false));

    EXPECT_EQ(0u, receive.Count());
}

TEST_F(SocketOverlapped, GetOverlappedResult_PassesItsArguments)
{
    g_answer = {TRUE, 0, true, 0};
    CWSASocket socket;
    socket.m_socket = 0x77;
    OVERLAPPED ov = {};
    unsigned int count = 0;
    unsigned long flags = 0x1234;
    const CImportPatch patch(&::WSAGetOverlappedResult, &FakeResult);

    socket.GetOverlappedResult(&ov, count, 2, flags);

    EXPECT_EQ(SOCKET{0x77}, g_call.socket);
    EXPECT_EQ(&ov, g_call.ov);
    EXPECT_EQ(2, g_call.wait);
    EXPECT_EQ(0x1234u, g_call.flags);
    socket.m_socket = INVALID_SOCKET;
}

TEST_F(SocketOverlapped, GetOverlappedResult_OnSuccess_HandsCountAndFlagsOut)
{
    const COutcome outcome = FakedResult({TRUE, 0, true, 7});

    EXPECT_TRUE(outcome.done);
    EXPECT_EQ(7u, outcome.count);
    EXPECT_EQ(0x8000u, outcome.flags);
}

TEST_F(SocketOverlapped, GetOverlappedResult_WhileItRuns_HandsCountAndFlagsOut)
{
    const COutcome outcome = FakedResult({FALSE, WSA_IO_INCOMPLETE, true, 7});

    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(0u, outcome.error);
    EXPECT_EQ(7u, outcome.count);
    EXPECT_EQ(0x8000u, outcome.flags);
}

TEST_F(SocketOverlapped, GetOverlappedResult_OnFailure_HandsCountAndFlagsOut)
{
    const COutcome outcome = FakedResult({FALSE, WSAECONNRESET, true, 7});

    EXPECT_EQ(static_cast<unsigned long>(WSAECONNRESET), outcome.error);
    EXPECT_EQ(7u, outcome.count);
    EXPECT_EQ(0x8000u, outcome.flags);
}

TEST_F(SocketOverlapped, GetOverlappedResult_WhenTheSystemReportsNoCount_HandsOutNone)
{
    EXPECT_EQ(0u, FakedResult({FALSE, WSA_IO_INCOMPLETE, false, 0}).count);
}

TEST_F(SocketOverlapped, GetOverlappedResult_TakesPendingForAFailure)
{
    EXPECT_EQ(static_cast<unsigned long>(WSA_IO_PENDING), FakedResult({FALSE, WSA_IO_PENDING, true, 0}).error);
}
