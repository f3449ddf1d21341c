#include "Loopback.h"

namespace
{
using namespace vantor;
using loopback::CPair;
using loopback::CPort;
using loopback::CWorker;
using loopback::ErrorOf;
using loopback::Long;

class TcpLink : public loopback::CTest
{
};

// A port whose queue of connections is full: further ones neither come about nor are refused.
class CDeafPort : public CPort
{
public:
    CDeafPort()
    {
        Listen(1);
        for (CWSASocket& socket : m_queue)
        {
            socket.Create(AF_INET, SOCK_STREAM, IPPROTO_TCP, nullptr, 0, 0);
            unsigned long unblocked = 1;
            socket.IoctlSocket(static_cast<long>(FIONBIO), unblocked);
            ::connect(socket.m_socket, reinterpret_cast<const sockaddr*>(&Address()), sizeof(sockaddr_in));
        }
    }

private:
    CWSASocket m_queue[8];
};

TEST_F(TcpLink, Connect_DottedAddress_Connects)
{
    CPort port;
    port.Listen(1);
    EXPECT_TRUE(link::Connect("127.0.0.1", port.Number(), Long, m_cancel) != nullptr);
}

TEST_F(TcpLink, Connect_Name_IsLookedUp)
{
    CPort port;
    port.Listen(1);
    EXPECT_TRUE(link::Connect("localhost", port.Number(), Long, m_cancel) != nullptr);
}

TEST_F(TcpLink, Connect_NobodyListens_IsRefused)
{
    CPort port;
    EXPECT_EQ(ErrorOf([&] { link::Connect("127.0.0.1", port.Number(), Long, m_cancel); }),
              static_cast<unsigned long>(WSAECONNREFUSED));
}

TEST_F(TcpLink, Connect_NobodyAnswers_TimesOut)
{
    CDeafPort port;
    EXPECT_EQ(ErrorOf([&] { link::Connect("127.0.0.1", port.Number(), 50, m_cancel); }),
              static_cast<unsigned long>(ERROR_TIMEOUT));
}

TEST_F(TcpLink, Connect_EventIsSetMeanwhile_IsCancelled)
{
    CDeafPort port;
    CWorker worker([this] { m_cancel.Set(); });
    EXPECT_EQ(ErrorOf([&] { link::Connect("127.0.0.1", port.Number(), Long, m_cancel); }),
              static_cast<unsigned long>(ERROR_CANCELLED));
}

TEST_F(TcpLink, Receive_BytesAreThere_GivesThem)
{
    CPair pair(m_cancel);
    pair.SendFromPeer("OK\r\n");
    EXPECT_EQ(pair.link->Receive(Long), "OK\r\n");
}

TEST_F(TcpLink, Receive_NothingComes_IsEmpty)
{
    CPair pair(m_cancel);
    EXPECT_EQ(pair.link->Receive(1), "");
}

TEST_F(TcpLink, Receive_AfterATimeOut_GivesWhatCameLater)
{
    CPair pair(m_cancel);
    pair.link->Receive(0);
    pair.SendFromPeer("late");
    EXPECT_EQ(pair.link->Receive(Long), "late");
}

TEST_F(TcpLink, Receive_BytesComeWhileItWaits_GivesThem)
{
    CPair pair(m_cancel);
    CWorker worker([&pair] { pair.SendFromPeer("now"); });
    EXPECT_EQ(pair.link->Receive(Long), "now");
}

TEST_F(TcpLink, Receive_EventIsSet_IsCancelled)
{
    CPair pair(m_cancel);
    m_cancel.Set();
    EXPECT_EQ(ErrorOf([&] { pair.link->Receive(Long); }), static_cast<unsigned long>(ERROR_CANCELLED));
}

TEST_F(TcpLink, Receive_EventIsSetMeanwhile_IsCancelled)
{
    CPair pair(m_cancel);
    CWorker worker([this] { m_cancel.Set(); });
    EXPECT_EQ(ErrorOf([&] { pair.link->Receive(Long); }), static_cast<unsigned long>(ERROR_CANCELLED));
}

TEST_F(TcpLink, Receive_AfterACancelledOne_LosesNothing)
{
    CPair pair(m_cancel);
    m_cancel.Set();
    EXPECT_NE(ErrorOf([&] { pair.link->Receive(Long); }), 0UL);
    m_cancel.Reset();
    pair.SendFromPeer("still here");
    EXPECT_EQ(pair.link->Receive(Long), "still here");
}

TEST_F(TcpLink, Receive_OtherSideHasEnded_IsAGracefulDisconnect)
{
    CPair pair(m_cancel);
    pair.peer.Close();
    EXPECT_EQ(ErrorOf([&] { pair.link->Receive(Long); }), static_cast<unsigned long>(ERROR_GRACEFUL_DISCONNECT));
}

TEST_F(TcpLink, Receive_OtherSideEndsWhileItWaits_IsAGracefulDisconnect)
{
    CPair pair(m_cancel);
    pair.link->Receive(0);   // one is under way now
    pair.peer.Close();
    EXPECT_EQ(ErrorOf([&] { pair.link->Receive(Long); }), static_cast<unsigned long>(ERROR_GRACEFUL_DISCONNECT));
}

TEST_F(TcpLink, Send_MoreThanTheSystemBuffers_ArrivesWholeAndInOrder)
{
    std::string bytes(16 * 1024 * 1024, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(i * i / 251);
    CPair pair(m_cancel);
    std::string received;
    CWorker reader(
        [&]
        {
            std::string piece(1 << 20, '\0');
            for (int size; (size = ::recv(pair.peer.m_socket, piece.data(), 1 << 20, 0)) > 0;)
                received.append(piece, 0, static_cast<std::size_t>(size));
        });
    pair.link->Send(bytes);
    pair.link->Drop();
    reader.End();
    EXPECT_TRUE(received == bytes) << received.size();
}

TEST_F(TcpLink, Send_CancelledWhileTheOtherSideReadsNothing_EndsTheConnection)
{
    CPair pair(m_cancel);
    m_cancel.Set();
    EXPECT_EQ(ErrorOf([&] { pair.link->Send(std::string(64 * 1024 * 1024, 'x')); }),
              static_cast<unsigned long>(ERROR_CANCELLED));
    EXPECT_EQ(ErrorOf([&] { pair.link->Send("x"); }), static_cast<unsigned long>(WSAENOTSOCK));
}

TEST_F(TcpLink, Drop_EndsTheConnectionForTheOtherSide)
{
    CPair pair(m_cancel);
    pair.link->Drop();
    char byte = 0;
    EXPECT_EQ(::recv(pair.peer.m_socket, &byte, 1, 0), 0);
}

TEST_F(TcpLink, Drop_WhileAReceiveIsUnderWay_EndsTheConnection)
{
    CPair pair(m_cancel);
    pair.link->Receive(0);
    pair.link->Drop();
    char byte = 0;
    EXPECT_EQ(::recv(pair.peer.m_socket, &byte, 1, 0), 0);
}

TEST_F(TcpLink, Drop_WhatWasSentBefore_Arrives)
{
    CPair pair(m_cancel);
    pair.link->Send("bye");
    pair.link->Drop();
    char bytes[4] = {};
    EXPECT_EQ(::recv(pair.peer.m_socket, bytes, 3, MSG_WAITALL), 3);
    EXPECT_STREQ(bytes, "bye");
}

TEST_F(TcpLink, Destructor_EndsTheConnection)
{
    CPair pair(m_cancel);
    pair.link.reset();
    char byte = 0;
    EXPECT_EQ(::recv(pair.peer.m_socket, &byte, 1, 0), 0);
}
}   // namespace
