// Much data and many connections.

#include "Loopback.h"
#include "support/Leaks.h"

#include <vantor/Object.h>
#include <vantor/Socket.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <thread>
#include <vector>

using namespace vantor;
using namespace links_test;

namespace
{
using SocketStream = Winsock;

constexpr std::uint64_t StreamLength = 100'000'000;
constexpr unsigned int BlockLength = 0x40000;

// FNV-1a of 64 bits.
class CHash
{
public:
    void Add(const unsigned char* bytes, std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i)
            m_value = (m_value ^ bytes[i]) * 0x100000001B3u;
    }
    std::uint64_t Value() const { return m_value; }

private:
    std::uint64_t m_value = 0xCBF29CE484222325u;
};

// Sends pseudo-random bytes and receives the other end's at the same time, all of it overlapped.
class CStream
{
public:
    CStream(CWSASocket& socket, std::uint64_t seed) : m_socket(socket), m_random(seed) {}

    // An exception must not leave the thread.
    void Run()
    {
        m_error = ErrorOf([&] { Exchange(); });
    }
    unsigned long Error() const { return m_error; }
    std::uint64_t Sent() const { return m_sent.Value(); }
    std::uint64_t Received() const { return m_received.Value(); }

private:
    void Exchange()
    {
        StartSend();
        StartRecv();
        while (m_toSend != 0 || m_toReceive != 0)
        {
            const HANDLE events[] = {m_sendOv.hEvent, m_recvOv.hEvent};
            switch (::WaitForMultipleObjects(2, events, FALSE, Patience))
            {
            case WAIT_OBJECT_0:
                EndSend();
                break;
            case WAIT_OBJECT_0 + 1:
                if (!EndRecv())
                    return;
                break;
            default:
                return;   // it hangs; the hashes will not agree
            }
        }
    }
    void StartSend()
    {
        for (unsigned char& byte : m_out)
        {
            m_random ^= m_random << 13;
            m_random ^= m_random >> 7;
            m_random ^= m_random << 17;
            byte = static_cast<unsigned char>(m_random >> 24);
        }
        m_begin = 0;
        m_end = static_cast<unsigned int>(std::min<std::uint64_t>(m_out.size(), m_toSend));
        m_sent.Add(m_out.data(), m_end);
        Send();
    }
    void Send()
    {
        unsigned int sent = 0;
        m_socket.Send(&m_out[m_begin], m_end - m_begin, sent, 0, &m_sendOv);   // the event tells, in any case
    }
    void EndSend()
    {
        unsigned int sent = 0;
        unsigned long flags = 0;
        if (!m_socket.GetOverlappedResult(&m_sendOv, sent, FALSE, flags))
            return;
        m_toSend -= sent;
        m_begin += sent;
        if (m_begin != m_end)
            Send();
        else if (m_toSend != 0)
            StartSend();
        else
            m_sendOv.ResetEvent();   // it would stay signalled
    }
    void StartRecv()
    {
        unsigned int received = 0;
        m_recvFlags = 0;
        m_socket.Recv(m_in.data(), static_cast<unsigned int>(m_in.size()), received, m_recvFlags, &m_recvOv);
    }
    bool EndRecv()
    {
        unsigned int received = 0;
        unsigned long flags = 0;
        if (!m_socket.GetOverlappedResult(&m_recvOv, received, FALSE, flags))
            return true;
        m_received.Add(m_in.data(), received);
        m_toReceive -= std::min<std::uint64_t>(received, m_toReceive);
        if (m_toReceive != 0)
            StartRecv();
        else
            m_recvOv.ResetEvent();
        return received != 0;
    }

    CWSASocket& m_socket;
    std::uint64_t m_random;
    unsigned long m_error = 0;
    std::uint64_t m_toSend = StreamLength;
    std::uint64_t m_toReceive = StreamLength;
    CHash m_sent;
    CHash m_received;
    CWSAOverlapped m_sendOv;
    CWSAOverlapped m_recvOv;
    unsigned int m_begin = 0;
    unsigned int m_end = 0;
    unsigned long m_recvFlags = 0;
    std::vector<unsigned char> m_out = std::vector<unsigned char>(BlockLength);
    std::vector<unsigned char> m_in = std::vector<unsigned char>(BlockLength);
};

void ConnectAndClose()
{
    CConnection connection;
    unsigned int sent = 0;
    connection.local.Send("x", 1, sent, 0, nullptr);
}

void BeRefused(const CBoundSocket& closed)
{
    CWSASocket socket;
    CreateTcp(socket);
    EXPECT_EQ(static_cast<unsigned long>(WSAECONNREFUSED), ErrorOf([&] { Connect(socket, closed.Address()); }));
}

void ReceiveOverlappedAndClose()
{
    CConnection connection;
    CWSAOverlapped ov;
    char buffer[1];
    unsigned int received = 0;
    unsigned long flags = 0;
    EXPECT_FALSE(connection.local.Recv(buffer, 1, received, flags, &ov));
    connection.local.Close();
    EXPECT_EQ(WAIT_OBJECT_0, ::WaitForSingleObject(ov.hEvent, Patience));
}
}   // namespace

TEST_F(SocketStream, OverlappedBothWays_ArrivesUnharmed)
{
    CConnection connection;
    CWSASocket other;
    other.m_socket = connection.peer;
    connection.peer = INVALID_SOCKET;
    CStream here(connection.local, 1);
    CStream there(other, 2);

    std::thread thread([&] { there.Run(); });
    here.Run();
    thread.join();

    EXPECT_EQ(0u, here.Error());
    EXPECT_EQ(0u, there.Error());
    EXPECT_EQ(here.Sent(), there.Received());
    EXPECT_EQ(there.Sent(), here.Received());
}

TEST_F(SocketStream, ThousandConnections_LeaveNothingBehind)
{
    ConnectAndClose();
    const support::CResources before;

    for (int round = 0; round < 1000; ++round)
        ConnectAndClose();

    EXPECT_EQ(before, support::CResources());
}

TEST_F(SocketStream, ThousandRefusals_LeaveNothingBehind)
{
    const CBoundSocket closed;
    BeRefused(closed);
    const support::CResources before;

    for (int round = 0; round < 1000; ++round)
        BeRefused(closed);

    EXPECT_EQ(before, support::CResources());
}

TEST_F(SocketStream, ThousandCancelledReceives_LeaveNothingBehind)
{
    ReceiveOverlappedAndClose();
    const support::CResources before;

    for (int round = 0; round < 1000; ++round)
        ReceiveOverlappedAndClose();

    EXPECT_EQ(before, support::CResources());
}
