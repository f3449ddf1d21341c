// What the system refuses, for real: each call's row, and what is left afterwards.

#include "Loopback.h"
#include "support/Failure.h"

#include <vantor/Socket.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace vantor;
using namespace links_test;

namespace
{
using SocketFailures = Winsock;

constexpr int UnknownOption = 0x7654;

void Send(CWSASocket& socket)
{
    unsigned int sent = 0;
    socket.Send("x", 1, sent, 0, nullptr);
}

void Recv(CWSASocket& socket)
{
    char buffer[16];
    unsigned int received = 0;
    unsigned long flags = 0;
    socket.Recv(buffer, sizeof buffer, received, flags, nullptr);
}

int SelectForReading(SOCKET socket)
{
    fd_set read = {};
    fd_set write = {};
    fd_set except = {};
    FD_SET(socket, &read);
    return CWSASocket::Select(read, write, except, 0);
}
}   // namespace

TEST_F(SocketFailures, Shutdown_OfAnEmptyObject_Throws)
{
    CWSASocket socket;

    EXPECT_FAILURE(72, L".\\Socket", L"shutdown", WSAENOTSOCK, socket.Shutdown(SD_BOTH));
}

TEST_F(SocketFailures, Shutdown_WithoutAConnection_Throws)
{
    CWSASocket socket;
    CreateTcp(socket);

    EXPECT_FAILURE(72, L".\\Socket", L"shutdown", WSAENOTCONN, socket.Shutdown(SD_BOTH));

    EXPECT_TRUE(socket.IsCreated());
}

TEST_F(SocketFailures, ConnectLL_OfAnEmptyObject_Throws)
{
    CWSASocket socket;

    EXPECT_FAILURE(84, L".\\Socket", L"WSAConnect", WSAENOTSOCK, Connect(socket, Loopback(9)));
}

TEST_F(SocketFailures, ConnectLL_ToAPortThatNobodyListensOn_Throws)
{
    const CBoundSocket closed;
    CWSASocket socket;
    CreateTcp(socket);

    EXPECT_FAILURE(84, L".\\Socket", L"WSAConnect", WSAECONNREFUSED, Connect(socket, closed.Address()));

    EXPECT_TRUE(socket.IsCreated());
}

TEST_F(SocketFailures, ConnectLL_WithoutBlocking_ThrowsAlthoughTheConnectionComesAbout)
{
    CBoundSocket listener;
    listener.Listen();
    CWSASocket socket;
    CreateTcp(socket);
    MakeNonBlocking(socket);

    EXPECT_FAILURE(84, L".\\Socket", L"WSAConnect", WSAEWOULDBLOCK, Connect(socket, listener.Address()));

    fd_set read = {};
    fd_set write = {};
    fd_set except = {};
    FD_SET(socket.m_socket, &write);
    EXPECT_EQ(1, CWSASocket::Select(read, write, except, Patience));
}

TEST_F(SocketFailures, ConnectLL_WhenConnected_Throws)
{
    CBoundSocket listener;
    listener.Listen();
    CConnection connection;

    EXPECT_FAILURE(84, L".\\Socket", L"WSAConnect", WSAEISCONN, Connect(connection.local, listener.Address()));
}

TEST_F(SocketFailures, SetSockOptLL_OfAnEmptyObject_Throws)
{
    CWSASocket socket;
    const int value = 1;

    EXPECT_FAILURE(91, L".\\Socket", L"setsockopt", WSAENOTSOCK,
                   socket.SetSockOptLL(SOL_SOCKET, SO_KEEPALIVE, &value, sizeof value));
}

TEST_F(SocketFailures, SetSockOptLL_OfAnUnknownOption_Throws)
{
    CWSASocket socket;
    CreateTcp(socket);
    const int value = 1;

    EXPECT_FAILURE(91, L".\\Socket", L"setsockopt", WSAENOPROTOOPT,
                   socket.SetSockOptLL(SOL_SOCKET, UnknownOption, &value, sizeof value));
}

TEST_F(SocketFailures, SetSockOptLL_WithoutAValue_Throws)
{
    CWSASocket socket;
    CreateTcp(socket);

    EXPECT_FAILURE(91, L".\\Socket", L"setsockopt", WSAEFAULT,
                   socket.SetSockOptLL(SOL_SOCKET, SO_KEEPALIVE, nullptr, 4));
}

TEST_F(SocketFailures, GetSockOptLL_OfAnEmptyObject_Throws)
{
    CWSASocket socket;
    int value = 0;

    EXPECT_FAILURE(99, L".\\Socket", L"getsockopt", WSAENOTSOCK,
                   socket.GetSockOptLL(SOL_SOCKET, SO_TYPE, &value, sizeof value));
}

TEST_F(SocketFailures, GetSockOptLL_OfAnUnknownOption_Throws)
{
    CWSASocket socket;
    CreateTcp(socket);
    int value = 0;

    EXPECT_FAILURE(99, L".\\Socket", L"getsockopt", WSAENOPROTOOPT,
                   socket.GetSockOptLL(SOL_SOCKET, UnknownOption, &value, sizeof value));
}

TEST_F(SocketFailures, GetSockOptLL_IntoABufferThatIsTooShort_Throws)
{
    CWSASocket socket;
    CreateTcp(socket);
    char value[1];

    EXPECT_FAILURE(99, L".\\Socket", L"getsockopt", WSAEFAULT,
                   socket.GetSockOptLL(SOL_SOCKET, SO_LINGER, value, sizeof value));
}

TEST_F(SocketFailures, IoctlSocket_OfAnEmptyObject_Throws)
{
    CWSASocket socket;
    unsigned long argument = 0;

    EXPECT_FAILURE(106, L".\\Socket", L"ioctlsocket", WSAENOTSOCK, socket.IoctlSocket(FIONREAD, argument));
}

TEST_F(SocketFailures, IoctlSocket_WithAnUnknownCommand_Throws)
{
    CWSASocket socket;
    CreateTcp(socket);
    unsigned long argument = 0;

    EXPECT_FAILURE(106, L".\\Socket", L"ioctlsocket", WSAEOPNOTSUPP, socket.IoctlSocket(0x12345678, argument));
}

TEST_F(SocketFailures, Send_OfAnEmptyObject_Throws)
{
    CWSASocket socket;

    EXPECT_FAILURE(124, L".\\Socket", L"WSASend", WSAENOTSOCK, Send(socket));
}

TEST_F(SocketFailures, Send_WithoutAConnection_Throws)
{
    CWSASocket socket;
    CreateTcp(socket);

    const unsigned long error = ErrorOf([&] { Send(socket); });

    EXPECT_TRUE(error == WSAENOTCONN || error == WSAECONNRESET) << error;   // the latter by Wine
}

TEST_F(SocketFailures, Send_AfterShutdown_Throws)
{
    CConnection connection;
    connection.local.Shutdown(SD_SEND);

    EXPECT_FAILURE(124, L".\\Socket", L"WSASend", WSAESHUTDOWN, Send(connection.local));
}

TEST_F(SocketFailures, Send_AfterThePeersReset_Throws)
{
    CConnection connection;
    connection.ResetByPeer();
    WaitUntilReadable(connection.local.m_socket);

    EXPECT_FAILURE(124, L".\\Socket", L"WSASend", WSAECONNRESET, Send(connection.local));

    EXPECT_TRUE(connection.local.IsCreated());
}

TEST_F(SocketFailures, Send_WithoutBlockingUntilThePeersBufferIsFull_Throws)
{
    CConnection connection;
    MakeNonBlocking(connection.local);
    const std::vector<char> block(1 << 20);
    unsigned int sent = 0;

    EXPECT_FAILURE(124, L".\\Socket", L"WSASend", WSAEWOULDBLOCK, {
        for (int megabytes = 0; megabytes < 1000; ++megabytes)
            connection.local.Send(block.data(), static_cast<unsigned int>(block.size()), sent, 0, nullptr);
    });

    EXPECT_EQ(0u, sent);
}

TEST_F(SocketFailures, Recv_OfAnEmptyObject_Throws)
{
    CWSASocket socket;

    EXPECT_FAILURE(144, L".\\Socket", L"WSARecv", WSAENOTSOCK, Recv(socket));
}

TEST_F(SocketFailures, Recv_WithoutAConnection_Throws)
{
    CWSASocket socket;
    CreateTcp(socket);

    EXPECT_FAILURE(144, L".\\Socket", L"WSARecv", WSAENOTCONN, Recv(socket));
}

TEST_F(SocketFailures, Recv_AfterShutdown_Throws)
{
    CConnection connection;
    connection.local.Shutdown(SD_RECEIVE);

    EXPECT_FAILURE(144, L".\\Socket", L"WSARecv", WSAESHUTDOWN, Recv(connection.local));
}

TEST_F(SocketFailures, Recv_WithoutBlockingWhenNothingIsThere_Throws)
{
    CConnection connection;
    MakeNonBlocking(connection.local);

    EXPECT_FAILURE(144, L".\\Socket", L"WSARecv", WSAEWOULDBLOCK, Recv(connection.local));
}

TEST_F(SocketFailures, GetOverlappedResult_WithoutARecord_Throws)
{
    CConnection connection;
    unsigned int transferred = 0;
    unsigned long flags = 0;

    EXPECT_FAILURE(164, L".\\Socket", L"WSAGetOverlappedResult", WSA_INVALID_PARAMETER,
                   connection.local.GetOverlappedResult(nullptr, transferred, FALSE, flags));
}

TEST_F(SocketFailures, Select_OfEmptySets_Throws)
{
    fd_set read = {};
    fd_set write = {};
    fd_set except = {};

    EXPECT_FAILURE(175, L".\\Socket", L"select", WSAEINVAL, CWSASocket::Select(read, write, except, 0));
}

TEST_F(SocketFailures, Select_OfWhatIsNoSocket_Throws)
{
    EXPECT_FAILURE(175, L".\\Socket", L"select", WSAENOTSOCK, SelectForReading(0x7654));
}
