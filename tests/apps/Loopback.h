// Two ends of a real connection within one test program.

#ifndef VANTOR_TEST_LOOPBACK_H
#define VANTOR_TEST_LOOPBACK_H

#include <Link.h>

#include <gtest/gtest.h>

#include <functional>

namespace loopback
{
constexpr unsigned long Long = 30000;   // milliseconds; only a failing test waits that long

// Winsock while it lives, and an event that nobody has set.
class CTest : public ::testing::Test
{
protected:
    CTest()
    {
        WSADATA data;
        ::WSAStartup(MAKEWORD(2, 2), &data);
    }
    ~CTest() noexcept override { ::WSACleanup(); }

    vantor::CEvent m_cancel{nullptr, TRUE, FALSE, nullptr};
};

// A socket with a port of its own on the loopback address; it refuses connections until Listen is called.
class CPort
{
public:
    CPort()
    {
        m_socket.Create(AF_INET, SOCK_STREAM, IPPROTO_TCP, nullptr, 0, WSA_FLAG_OVERLAPPED);
        m_address.sin_family = AF_INET;
        m_address.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
        int size = sizeof m_address;
        EXPECT_EQ(::bind(m_socket.m_socket, reinterpret_cast<sockaddr*>(&m_address), size), 0);
        EXPECT_EQ(::getsockname(m_socket.m_socket, reinterpret_cast<sockaddr*>(&m_address), &size), 0);
    }

    void Listen(int backlog) { EXPECT_EQ(::listen(m_socket.m_socket, backlog), 0); }
    unsigned short Number() const { return ::ntohs(m_address.sin_port); }
    const sockaddr_in& Address() const { return m_address; }
    SOCKET Accept() { return ::accept(m_socket.m_socket, nullptr, nullptr); }

private:
    vantor::CWSASocket m_socket;
    sockaddr_in m_address = {};
};

// One end of a connection as a link, its peer as a socket.
struct CPair
{
    explicit CPair(vantor::CEvent& cancel)
    {
        CPort port;
        port.Listen(1);
        link = link::Connect("127.0.0.1", port.Number(), Long, cancel);
        peer.m_socket = port.Accept();
    }

    void SendFromPeer(const std::string& bytes)
    {
        unsigned int sent = 0;
        peer.Send(bytes.data(), static_cast<unsigned int>(bytes.size()), sent, 0, nullptr);
    }

    std::unique_ptr<link::CLink> link;
    vantor::CWSASocket peer;
};

// Runs a function on a thread; waits for its end.
class CWorker
{
public:
    explicit CWorker(std::function<void()> work) : m_work(std::move(work)) { m_thread.Create(&Run, this); }
    ~CWorker() { End(); }
    void End() { ::WaitForSingleObject(m_thread, INFINITE); }

private:
    static unsigned long WINAPI Run(void* param) noexcept
    {
        static_cast<CWorker*>(param)->m_work();
        return 0;
    }

    std::function<void()> m_work;
    vantor::CThread m_thread;
};

// The error of what the action throws; 0 if it throws nothing.
inline unsigned long ErrorOf(const std::function<void()>& action)
try
{
    action();
    return 0;
}
catch (const vantor::CWinException& e)
{
    return e.GetErrorCode();
}
}   // namespace loopback

#endif
