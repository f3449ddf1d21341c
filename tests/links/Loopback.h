// Both ends of connections on the loopback address: the library's socket, and a peer by the platform's own calls.

#ifndef VANTOR_TEST_LINKS_LOOPBACK_H
#define VANTOR_TEST_LINKS_LOOPBACK_H

#include <vantor/Exceptions.h>
#include <vantor/Socket.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace links_test
{
constexpr DWORD Patience = 10000;   // milliseconds after which a test fails instead of hanging

// Winsock for the length of a test. The sockets of a test are its local variables, so they close before it ends.
class Winsock : public ::testing::Test
{
protected:
    Winsock()
    {
        WSADATA data;
        EXPECT_EQ(0, ::WSAStartup(MAKEWORD(2, 2), &data));
    }
    ~Winsock() override { ::WSACleanup(); }
};

inline sockaddr_in Loopback(unsigned short port)
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
    address.sin_port = ::htons(port);
    return address;
}

// A socket with a port of its own, which nobody else gets while it lives. Connections to it are refused until it
// listens.
class CBoundSocket
{
public:
    explicit CBoundSocket(int type = SOCK_STREAM) : m_socket(::socket(AF_INET, type, 0)), m_address(Loopback(0))
    {
        int length = sizeof m_address;
        EXPECT_EQ(0, ::bind(m_socket, reinterpret_cast<const sockaddr*>(&m_address), length));
        EXPECT_EQ(0, ::getsockname(m_socket, reinterpret_cast<sockaddr*>(&m_address), &length));
    }
    CBoundSocket(const CBoundSocket&) = delete;
    CBoundSocket& operator=(const CBoundSocket&) = delete;
    ~CBoundSocket() { ::closesocket(m_socket); }

    void Listen() const { EXPECT_EQ(0, ::listen(m_socket, SOMAXCONN)); }
    SOCKET Socket() const { return m_socket; }
    const sockaddr_in& Address() const { return m_address; }

private:
    SOCKET m_socket;
    sockaddr_in m_address;
};

inline void CreateTcp(vantor::CWSASocket& socket)
{
    socket.Create(AF_INET, SOCK_STREAM, IPPROTO_TCP, nullptr, 0, WSA_FLAG_OVERLAPPED);
}

inline void Connect(vantor::CWSASocket& socket, const sockaddr_in& address)
{
    socket.ConnectLL(&address, sizeof address, nullptr, nullptr, nullptr, nullptr);
}

inline void MakeNonBlocking(vantor::CWSASocket& socket)
{
    unsigned long on = 1;
    socket.IoctlSocket(FIONBIO, on);
}

inline bool IsSocket(SOCKET socket)
{
    int type = 0;
    int length = sizeof type;
    return ::getsockopt(socket, SOL_SOCKET, SO_TYPE, reinterpret_cast<char*>(&type), &length) == 0;
}

// A TCP connection: `local` is the library's, `peer` the platform's.
class CConnection
{
public:
    CConnection()
    {
        CBoundSocket listener;
        listener.Listen();
        CreateTcp(local);
        Connect(local, listener.Address());
        peer = ::accept(listener.Socket(), nullptr, nullptr);
        EXPECT_NE(INVALID_SOCKET, peer);
    }
    CConnection(const CConnection&) = delete;
    CConnection& operator=(const CConnection&) = delete;
    ~CConnection() noexcept(false) { ClosePeer(); }

    void ClosePeer()
    {
        if (peer != INVALID_SOCKET)
            ::closesocket(peer);
        peer = INVALID_SOCKET;
    }
    // Ends the connection without a farewell.
    void ResetByPeer()
    {
        const linger atOnce = {1, 0};
        ::setsockopt(peer, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&atOnce), sizeof atOnce);
        ClosePeer();
    }
    void PeerSends(const std::string& bytes) const
    {
        EXPECT_EQ(static_cast<int>(bytes.size()), ::send(peer, bytes.data(), static_cast<int>(bytes.size()), 0));
    }
    // Waits for that many bytes.
    std::string PeerReceives(std::size_t count) const
    {
        std::string bytes(count, '\0');
        std::size_t done = 0;
        while (done < count)
        {
            const int piece = ::recv(peer, &bytes[done], static_cast<int>(count - done), 0);
            if (piece <= 0)
                break;
            done += static_cast<std::size_t>(piece);
        }
        bytes.resize(done);
        return bytes;
    }

    vantor::CWSASocket local;
    SOCKET peer = INVALID_SOCKET;
};

// Waits until the socket has something to read, or its end.
inline void WaitUntilReadable(SOCKET socket)
{
    fd_set read = {};
    FD_SET(socket, &read);
    timeval limit = {static_cast<long>(Patience / 1000), 0};
    EXPECT_EQ(1, ::select(0, &read, nullptr, nullptr, &limit));
}

// What the library throws, as the platform's number; 0 if nothing.
inline unsigned long ErrorOf(const std::function<void()>& action)
{
    try
    {
        action();
    }
    catch (const vantor::CWinException& e)
    {
        return e.GetErrorCode();
    }
    return 0;
}
}   // namespace links_test

#endif
