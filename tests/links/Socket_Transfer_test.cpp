// Connecting, options, and blocking sends and receives: what reaches the system and what it hands out.

#include "Loopback.h"
#include "support/Failure.h"
#include "support/ImportPatch.h"

#include <vantor/Socket.h>

#include <gtest/gtest.h>

#include <string>

using namespace vantor;
using namespace links_test;
using support::CImportPatch;

namespace
{
// What a fake was called with, and what it does then.
struct CCall
{
    SOCKET socket;
    const void* first;   // address, value or buffer
    int level;
    int name;
    long long length;
    const void* pointers[4];
    DWORD buffers;
    DWORD flags;
    bool completion;
};
CCall g_call;

struct CAnswer
{
    int result;
    int error;
    bool reports;   // writes the count
    DWORD count;
    DWORD flags;
};
CAnswer g_answer;

int WSAAPI FakeConnect(SOCKET socket, const sockaddr* address, int length, WSABUF* caller, WSABUF* callee, QOS* sqos,
                       QOS* gqos)
{
    g_call = {};
    g_call.socket = socket;
    g_call.first = address;
    g_call.length = length;
    g_call.pointers[0] = caller;
    g_call.pointers[1] = callee;
    g_call.pointers[2] = sqos;
    g_call.pointers[3] = gqos;
    return g_answer.result;
}

int WSAAPI FakeShutdown(SOCKET socket, int how)
{
    g_call = {};
    g_call.socket = socket;
    g_call.name = how;
    return g_answer.result;
}

int WSAAPI FakeSetOption(SOCKET socket, int level, int name, const char* value, int length)
{
    g_call = {};
    g_call.socket = socket;
    g_call.level = level;
    g_call.name = name;
    g_call.first = value;
    g_call.length = length;
    return g_answer.result;
}

int WSAAPI FakeGetOption(SOCKET socket, int level, int name, char* value, int* length)
{
    g_call = {};
    g_call.socket = socket;
    g_call.level = level;
    g_call.name = name;
    g_call.first = value;
    g_call.length = *length;
    *length = 1;
    return g_answer.result;
}

int WSAAPI FakeIoctl(SOCKET socket, long command, u_long* argument)
{
    g_call = {};
    g_call.socket = socket;
    g_call.length = command;
    g_call.first = argument;
    return g_answer.result;
}

int Answer(DWORD* count)
{
    if (g_answer.reports)
        *count = g_answer.count;
    ::WSASetLastError(g_answer.error);
    return g_answer.result;
}

int WSAAPI FakeSend(SOCKET socket, WSABUF* buffers, DWORD number, DWORD* count, DWORD flags, OVERLAPPED* ov,
                    LPWSAOVERLAPPED_COMPLETION_ROUTINE completion)
{
    g_call = {};
    g_call.socket = socket;
    g_call.first = buffers[0].buf;
    g_call.length = buffers[0].len;
    g_call.buffers = number;
    g_call.flags = flags;
    g_call.pointers[0] = ov;
    g_call.completion = completion != nullptr;
    return Answer(count);
}

int WSAAPI FakeRecv(SOCKET socket, WSABUF* buffers, DWORD number, DWORD* count, DWORD* flags, OVERLAPPED* ov,
                    LPWSAOVERLAPPED_COMPLETION_ROUTINE completion)
{
    g_call = {};
    g_call.socket = socket;
    g_call.first = buffers[0].buf;
    g_call.length = buffers[0].len;
    g_call.buffers = number;
    g_call.flags = *flags;
    g_call.pointers[0] = ov;
    g_call.completion = completion != nullptr;
    *flags = g_answer.flags;
    return Answer(count);
}

using SocketTransfer = Winsock;

// A holder of a number that is no socket, for calls that do not reach the system.
class CFakeHandle
{
public:
    CFakeHandle() { socket.m_socket = 0x77; }
    ~CFakeHandle() noexcept(false) { socket.m_socket = INVALID_SOCKET; }
    CWSASocket socket;
};

// Sends or receives against a fake whose answer is given.
struct COutcome
{
    bool done = false;
    unsigned int count = 99;
    unsigned long flags = 0;
    unsigned long error = 0;
};

COutcome FakedSend(const CAnswer& answer)
{
    g_answer = answer;
    CFakeHandle fake;
    const CImportPatch patch(&::WSASend, &FakeSend);
    COutcome outcome;
    outcome.error = ErrorOf([&] { outcome.done = fake.socket.Send("x", 1, outcome.count, 0, nullptr); });
    return outcome;
}

COutcome FakedRecv(const CAnswer& answer)
{
    g_answer = answer;
    CFakeHandle fake;
    const CImportPatch patch(&::WSARecv, &FakeRecv);
    COutcome outcome;
    char buffer[4];
    outcome.error = ErrorOf([&] { outcome.done = fake.socket.Recv(buffer, 4, outcome.count, outcome.flags, nullptr); });
    return outcome;
}
}   // namespace

TEST_F(SocketTransfer, ConnectLL_PassesItsArguments)
{
    g_answer = {};
    CFakeHandle fake;
    const sockaddr_in address = Loopback(9);
    WSABUF caller = {};
    WSABUF callee = {};
    QOS sqos = {};
    QOS gqos = {};
    const CImportPatch patch(&::WSAConnect, &FakeConnect);

    fake.socket.ConnectLL(&address, 17, &caller, &callee, &sqos, &gqos);

    EXPECT_EQ(SOCKET{0x77}, g_call.socket);
    EXPECT_EQ(&address, g_call.first);
    EXPECT_EQ(17, g_call.length);
    EXPECT_EQ(&caller, g_call.pointers[0]);
    EXPECT_EQ(&callee, g_call.pointers[1]);
    EXPECT_EQ(&sqos, g_call.pointers[2]);
    EXPECT_EQ(&gqos, g_call.pointers[3]);
}

TEST_F(SocketTransfer, ConnectLL_TakesOnlySocketErrorForAFailure)
{
    g_answer = {1, WSAECONNREFUSED, false, 0, 0};
    CFakeHandle fake;
    const CImportPatch patch(&::WSAConnect, &FakeConnect);

    EXPECT_NO_THROW(Connect(fake.socket, Loopback(9)));
}

TEST_F(SocketTransfer, Shutdown_OfSending_EndsThePeersStream)
{
    CConnection connection;

    connection.local.Shutdown(SD_SEND);

    char buffer[1];
    EXPECT_EQ(0, ::recv(connection.peer, buffer, 1, 0));
}

TEST_F(SocketTransfer, Shutdown_OfSending_StillReceives)
{
    CConnection connection;
    connection.local.Shutdown(SD_SEND);
    connection.PeerSends("late");

    char buffer[4];
    unsigned int received = 0;
    unsigned long flags = 0;
    EXPECT_TRUE(connection.local.Recv(buffer, 4, received, flags, nullptr));

    EXPECT_EQ("late", std::string(buffer, received));
}

TEST_F(SocketTransfer, Shutdown_TakesOnlySocketErrorForAFailure)
{
    g_answer = {2, WSAENOTCONN, false, 0, 0};
    CFakeHandle fake;
    const CImportPatch patch(&::shutdown, &FakeShutdown);

    EXPECT_NO_THROW(fake.socket.Shutdown(3));

    EXPECT_EQ(3, g_call.name);
}

TEST_F(SocketTransfer, SetSockOptLL_ChangesTheOption)
{
    CWSASocket socket;
    CreateTcp(socket);
    const int on = 1;

    socket.SetSockOptLL(SOL_SOCKET, SO_KEEPALIVE, &on, sizeof on);

    int value = 0;
    int length = sizeof value;
    ASSERT_EQ(0, ::getsockopt(socket.m_socket, SOL_SOCKET, SO_KEEPALIVE, reinterpret_cast<char*>(&value), &length));
    EXPECT_NE(0, value);
}

TEST_F(SocketTransfer, SetSockOptLL_PassesItsArguments)
{
    g_answer = {};
    CFakeHandle fake;
    const char value[3] = {};
    const CImportPatch patch(&::setsockopt, &FakeSetOption);

    fake.socket.SetSockOptLL(5, 6, value, sizeof value);

    EXPECT_EQ(SOCKET{0x77}, g_call.socket);
    EXPECT_EQ(5, g_call.level);
    EXPECT_EQ(6, g_call.name);
    EXPECT_EQ(value, g_call.first);
    EXPECT_EQ(3, g_call.length);
}

TEST_F(SocketTransfer, SetSockOptLL_TakesOnlySocketErrorForAFailure)
{
    g_answer = {1, WSAENOPROTOOPT, false, 0, 0};
    CFakeHandle fake;
    const CImportPatch patch(&::setsockopt, &FakeSetOption);

    EXPECT_NO_THROW(fake.socket.SetSockOptLL(5, 6, "", 1));
}

TEST_F(SocketTransfer, GetSockOptLL_ReadsTheOption)
{
    CWSASocket socket;
    CreateTcp(socket);

    int type = 0;
    socket.GetSockOptLL(SOL_SOCKET, SO_TYPE, &type, sizeof type);

    EXPECT_EQ(SOCK_STREAM, type);
}

TEST_F(SocketTransfer, GetSockOptLL_PassesItsArguments)
{
    g_answer = {};
    CFakeHandle fake;
    char value[3] = {};
    const CImportPatch patch(&::getsockopt, &FakeGetOption);

    fake.socket.GetSockOptLL(5, 6, value, sizeof value);

    EXPECT_EQ(SOCKET{0x77}, g_call.socket);
    EXPECT_EQ(5, g_call.level);
    EXPECT_EQ(6, g_call.name);
    EXPECT_EQ(value, g_call.first);
    EXPECT_EQ(3, g_call.length);
}

TEST_F(SocketTransfer, GetSockOptLL_DoesNotReportTheLengthThatWasWritten)
{
    g_answer = {};
    CFakeHandle fake;
    char value[3] = {};
    unsigned int length = 3;
    const CImportPatch patch(&::getsockopt, &FakeGetOption);

    fake.socket.GetSockOptLL(5, 6, value, length);

    EXPECT_EQ(3u, length);
}

TEST_F(SocketTransfer, GetSockOptLL_TakesOnlySocketErrorForAFailure)
{
    g_answer = {1, WSAENOPROTOOPT, false, 0, 0};
    CFakeHandle fake;
    char value[1];
    const CImportPatch patch(&::getsockopt, &FakeGetOption);

    EXPECT_NO_THROW(fake.socket.GetSockOptLL(5, 6, value, 1));
}

TEST_F(SocketTransfer, IoctlSocket_HandsTheArgumentOut)
{
    CConnection connection;
    connection.PeerSends("waiting");
    WaitUntilReadable(connection.local.m_socket);

    unsigned long waiting = 0;
    connection.local.IoctlSocket(FIONREAD, waiting);

    EXPECT_EQ(7u, waiting);
}

TEST_F(SocketTransfer, IoctlSocket_PassesItsArguments)
{
    g_answer = {};
    CFakeHandle fake;
    unsigned long argument = 8;
    const CImportPatch patch(&::ioctlsocket, &FakeIoctl);

    fake.socket.IoctlSocket(-5, argument);

    EXPECT_EQ(SOCKET{0x77}, g_call.socket);
    EXPECT_EQ(-5, g_call.length);
    EXPECT_EQ(&argument, g_call.first);
}

TEST_F(SocketTransfer, IoctlSocket_TakesOnlySocketErrorForAFailure)
{
    g_answer = {1, WSAEOPNOTSUPP, false, 0, 0};
    CFakeHandle fake;
    unsigned long argument = 0;
    const CImportPatch patch(&::ioctlsocket, &FakeIoctl);

    EXPECT_NO_THROW(fake.socket.IoctlSocket(1, argument));
}

TEST_F(SocketTransfer, Send_ReachesThePeer)
{
    CConnection connection;
    unsigned int sent = 99;

    EXPECT_TRUE(connection.local.Send("*IDN?\r\n", 7, sent, 0, nullptr));

    EXPECT_EQ(7u, sent);
    EXPECT_EQ("*IDN?\r\n", connection.PeerReceives(7));
}

TEST_F(SocketTransfer, Send_OfNothing_Works)
{
    CConnection connection;
    unsigned int sent = 99;

    EXPECT_TRUE(connection.local.Send("", 0, sent, 0, nullptr));

    EXPECT_EQ(0u, sent);
}

TEST_F(SocketTransfer, Send_PassesItsArguments)
{
    g_answer = {};
    CFakeHandle fake;
    const char text[] = "text";
    unsigned int sent = 0;
    const CImportPatch patch(&::WSASend, &FakeSend);

    fake.socket.Send(text, 4, sent, 0x8001, nullptr);

    EXPECT_EQ(SOCKET{0x77}, g_call.socket);
    EXPECT_EQ(text, g_call.first);
    EXPECT_EQ(4, g_call.length);
    EXPECT_EQ(1u, g_call.buffers);
    EXPECT_EQ(0x8001u, g_call.flags);
    EXPECT_FALSE(g_call.completion);
}

TEST_F(SocketTransfer, Send_WhenItBlocks_GivesNoOverlappedRecord)
{
    FakedSend({0, 0, true, 1, 0});

    EXPECT_EQ(nullptr, g_call.pointers[0]);
}

TEST_F(SocketTransfer, Send_GivesTheCallersOverlappedRecord)
{
    g_answer = {};
    CFakeHandle fake;
    OVERLAPPED ov = {};
    unsigned int sent = 0;
    const CImportPatch patch(&::WSASend, &FakeSend);

    fake.socket.Send("x", 1, sent, 0, &ov);

    EXPECT_EQ(&ov, g_call.pointers[0]);
}

TEST_F(SocketTransfer, Send_OnSuccess_HandsTheCountOut)
{
    const COutcome outcome = FakedSend({0, 0, true, 5, 0});

    EXPECT_TRUE(outcome.done);
    EXPECT_EQ(5u, outcome.count);
}

TEST_F(SocketTransfer, Send_WhilePending_HandsTheCountOut)
{
    const COutcome outcome = FakedSend({SOCKET_ERROR, WSA_IO_PENDING, true, 5, 0});

    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(0u, outcome.error);
    EXPECT_EQ(5u, outcome.count);
}

TEST_F(SocketTransfer, Send_OnFailure_HandsTheCountOut)
{
    const COutcome outcome = FakedSend({SOCKET_ERROR, WSAECONNABORTED, true, 5, 0});

    EXPECT_EQ(static_cast<unsigned long>(WSAECONNABORTED), outcome.error);
    EXPECT_EQ(5u, outcome.count);
}

TEST_F(SocketTransfer, Send_WhenTheSystemReportsNoCount_HandsOutNone)
{
    EXPECT_EQ(0u, FakedSend({SOCKET_ERROR, WSA_IO_PENDING, false, 0, 0}).count);
}

TEST_F(SocketTransfer, Send_TakesIncompleteForAFailure)
{
    EXPECT_EQ(static_cast<unsigned long>(WSA_IO_INCOMPLETE),
              FakedSend({SOCKET_ERROR, WSA_IO_INCOMPLETE, true, 0, 0}).error);
}

TEST_F(SocketTransfer, Send_TakesOnlySocketErrorForAFailure)
{
    const COutcome outcome = FakedSend({1, WSAECONNABORTED, true, 5, 0});

    EXPECT_TRUE(outcome.done);
    EXPECT_EQ(0u, outcome.error);
}

TEST_F(SocketTransfer, Recv_HandsOutWhatIsThere)
{
    CConnection connection;
    connection.PeerSends("OK 1\r\n");
    char buffer[100];
    unsigned int received = 99;
    unsigned long flags = 0;

    EXPECT_TRUE(connection.local.Recv(buffer, sizeof buffer, received, flags, nullptr));

    EXPECT_EQ("OK 1\r\n", std::string(buffer, received));
}

TEST_F(SocketTransfer, Recv_WhenThePeerIsGone_EndsWithNothing)
{
    CConnection connection;
    connection.ClosePeer();
    char buffer[1];
    unsigned int received = 99;
    unsigned long flags = 0;

    EXPECT_TRUE(connection.local.Recv(buffer, 1, received, flags, nullptr));

    EXPECT_EQ(0u, received);
}

TEST_F(SocketTransfer, Recv_PassesTheFlagsIn)
{
    CConnection connection;
    connection.PeerSends("x");
    char buffer[1] = {};
    unsigned int received = 0;
    unsigned long flags = MSG_PEEK;
    connection.local.Recv(buffer, 1, received, flags, nullptr);

    flags = 0;
    connection.local.Recv(buffer, 1, received, flags, nullptr);

    EXPECT_EQ("x", std::string(buffer, received));
}

TEST_F(SocketTransfer, Recv_PassesItsArguments)
{
    g_answer = {};
    CFakeHandle fake;
    char buffer[4];
    unsigned int received = 0;
    unsigned long flags = 0x8002;
    const CImportPatch patch(&::WSARecv, &FakeRecv);

    fake.socket.Recv(buffer, 3, received, flags, nullptr);

    EXPECT_EQ(SOCKET{0x77}, g_call.socket);
    EXPECT_EQ(buffer, g_call.first);
    EXPECT_EQ(3, g_call.length);
    EXPECT_EQ(1u, g_call.buffers);
    EXPECT_EQ(0x8002u, g_call.flags);
    EXPECT_FALSE(g_call.completion);
}

TEST_F(SocketTransfer, Recv_WhenItBlocks_GivesNoOverlappedRecord)
{
    FakedRecv({0, 0, true, 1, 0});

    EXPECT_EQ(nullptr, g_call.pointers[0]);
}

TEST_F(SocketTransfer, Recv_GivesTheCallersOverlappedRecord)
{
    g_answer = {};
    CFakeHandle fake;
    OVERLAPPED ov = {};
    char buffer[1];
    unsigned int received = 0;
    unsigned long flags = 0;
    const CImportPatch patch(&::WSARecv, &FakeRecv);

    fake.socket.Recv(buffer, 1, received, flags, &ov);

    EXPECT_EQ(&ov, g_call.pointers[0]);
}

TEST_F(SocketTransfer, Recv_OnSuccess_HandsCountAndFlagsOut)
{
    const COutcome outcome = FakedRecv({0, 0, true, 3, 0x8000});

    EXPECT_TRUE(outcome.done);
    EXPECT_EQ(3u, outcome.count);
    EXPECT_EQ(0x8000u, outcome.flags);
}

TEST_F(SocketTransfer, Recv_WhilePending_HandsCountAndFlagsOut)
{
    const COutcome outcome = FakedRecv({SOCKET_ERROR, WSA_IO_PENDING, true, 3, 0x8000});

    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(0u, outcome.error);
    EXPECT_EQ(3u, outcome.count);
    EXPECT_EQ(0x8000u, outcome.flags);
}

TEST_F(SocketTransfer, Recv_OnFailure_HandsCountAndFlagsOut)
{
    const COutcome outcome = FakedRecv({SOCKET_ERROR, WSAEMSGSIZE, true, 3, 0x8000});

    EXPECT_EQ(static_cast<unsigned long>(WSAEMSGSIZE), outcome.error);
    EXPECT_EQ(3u, outcome.count);
    EXPECT_EQ(0x8000u, outcome.flags);
}

TEST_F(SocketTransfer, Recv_WhenTheSystemReportsNoCount_HandsOutNone)
{
    EXPECT_EQ(0u, FakedRecv({SOCKET_ERROR, WSA_IO_PENDING, false, 0, 0}).count);
}

// Faked: Wine reports a reset to a receive that is under way, but to one that begins later only the end.
TEST_F(SocketTransfer, Recv_AfterThePeersReset_Throws)
{
    g_answer = {SOCKET_ERROR, WSAECONNRESET, false, 0, 0};
    CFakeHandle fake;
    char buffer[1];
    unsigned int received = 0;
    unsigned long flags = 0;
    const CImportPatch patch(&::WSARecv, &FakeRecv);

    EXPECT_FAILURE(144, L".\\Socket", L"WSARecv", WSAECONNRESET, fake.socket.Recv(buffer, 1, received, flags, nullptr));
}

TEST_F(SocketTransfer, Recv_TakesIncompleteForAFailure)
{
    EXPECT_EQ(static_cast<unsigned long>(WSA_IO_INCOMPLETE),
              FakedRecv({SOCKET_ERROR, WSA_IO_INCOMPLETE, true, 0, 0}).error);
}

TEST_F(SocketTransfer, Recv_TakesOnlySocketErrorForAFailure)
{
    const COutcome outcome = FakedRecv({1, WSAECONNRESET, true, 3, 0});

    EXPECT_TRUE(outcome.done);
    EXPECT_EQ(0u, outcome.error);
}

TEST_F(SocketTransfer, Recv_OfADatagramThatIsTooLong_ThrowsAndHandsOutWhatFits)
{
    CBoundSocket sender(SOCK_DGRAM);
    CBoundSocket receiver(SOCK_DGRAM);
    CFakeHandle borrowed;
    borrowed.socket.m_socket = receiver.Socket();
    ASSERT_EQ(8, ::sendto(sender.Socket(), "datagram", 8, 0, reinterpret_cast<const sockaddr*>(&receiver.Address()),
                          sizeof(sockaddr_in)));
    char buffer[4] = {};
    unsigned int received = 99;
    unsigned long flags = 0;

    EXPECT_FAILURE(144, L".\\Socket", L"WSARecv", WSAEMSGSIZE,
                   borrowed.socket.Recv(buffer, 4, received, flags, nullptr));

    EXPECT_EQ("data", std::string(buffer, 4));
}
