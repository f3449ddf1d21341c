// A socket's life: creation, closing, and what the object holds in between.

#include "Loopback.h"
#include "support/Failure.h"
#include "support/ImportPatch.h"
#include "support/Slots.h"

#include <vantor/Socket.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

using namespace vantor;
using namespace links_test;
using support::CImportPatch;

namespace
{
struct CCreation
{
    int af;
    int type;
    int protocol;
    WSAPROTOCOL_INFOW* info;
    GROUP group;
    DWORD flags;
};
CCreation g_creation;

struct COption
{
    SOCKET socket;
    int level;
    int name;
    std::string value;
};
std::vector<COption> g_options;

std::vector<std::string> g_calls;
std::vector<SOCKET> g_closed;

SOCKET WSAAPI RecordingCreation(int af, int type, int protocol, WSAPROTOCOL_INFOW* info, GROUP group, DWORD flags)
{
    g_calls.push_back("WSASocket");
    g_creation = {af, type, protocol, info, group, flags};
    return ::WSASocketW(AF_INET, SOCK_STREAM, IPPROTO_TCP, nullptr, 0, 0);
}

SOCKET WSAAPI FailingCreation(int, int, int, WSAPROTOCOL_INFOW*, GROUP, DWORD)
{
    ::WSASetLastError(WSAEMFILE);
    return INVALID_SOCKET;
}

int WSAAPI RecordingOption(SOCKET socket, int level, int name, const char* value, int length)
{
    g_calls.push_back("setsockopt");
    g_options.push_back({socket, level, name, std::string(value, static_cast<std::size_t>(length))});
    return ::setsockopt(socket, level, name, value, length);
}

int WSAAPI FailingOption(SOCKET, int, int, const char*, int)
{
    ::WSASetLastError(WSAENOPROTOOPT);
    return SOCKET_ERROR;
}

int WSAAPI OddOption(SOCKET, int, int, const char*, int)
{
    return 1;   // neither success nor SOCKET_ERROR
}

int WSAAPI RecordingClose(SOCKET socket)
{
    g_calls.push_back("closesocket");
    g_closed.push_back(socket);
    return ::closesocket(socket);
}

int WSAAPI FailingClose(SOCKET socket)
{
    g_closed.push_back(socket);
    ::WSASetLastError(WSAEWOULDBLOCK);
    return SOCKET_ERROR;
}

int WSAAPI OddClose(SOCKET socket)
{
    ::closesocket(socket);
    return 1;
}

int WSAAPI WinsocksOwnError()
{
    return WSAENOBUFS;
}

SOCKET WSAAPI FailingCreationWithTheSystemsError(int, int, int, WSAPROTOCOL_INFOW*, GROUP, DWORD)
{
    ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return INVALID_SOCKET;
}

struct CAppending : CWSASocket
{
    virtual void Appended() {}
};

class Socket : public Winsock
{
protected:
    Socket()
    {
        g_options.clear();
        g_calls.clear();
        g_closed.clear();
    }
};
}   // namespace

TEST(SocketBeforeStartup, Create_Throws)
{
    CWSASocket socket;

    EXPECT_FAILURE(42, L".\\Socket", L"WSASocket", WSANOTINITIALISED,
                   socket.Create(AF_INET, SOCK_STREAM, IPPROTO_TCP, nullptr, 0, 0));

    EXPECT_FALSE(socket.IsCreated());
}

TEST(SocketBeforeStartup, ConstructionAndDestruction_NeedNoWinsock)
{
    EXPECT_NO_THROW(const CWSASocket socket);
}

TEST(SocketBeforeStartup, Close_OfAnEmptyObject_CallsNothing)
{
    CWSASocket socket;
    const CImportPatch option(&::setsockopt, &FailingOption);
    const CImportPatch close(&::closesocket, &FailingClose);

    EXPECT_NO_THROW(socket.Close());

    EXPECT_EQ(INVALID_SOCKET, socket.m_socket);
}

TEST_F(Socket, Construction_IsEmpty)
{
    const CWSASocket socket;

    EXPECT_FALSE(socket.IsCreated());
    EXPECT_EQ(~SOCKET{0}, socket.m_socket);
}

TEST_F(Socket, IsCreated_AsksForTheEmptyValueOnly)
{
    CWSASocket socket;
    socket.m_socket = 0;

    EXPECT_TRUE(socket.IsCreated());

    socket.m_socket = INVALID_SOCKET;
}

TEST_F(Socket, Create_HoldsASocketOfTheSystem)
{
    CWSASocket socket;

    socket.Create(AF_INET, SOCK_DGRAM, IPPROTO_UDP, nullptr, 0, 0);

    EXPECT_TRUE(socket.IsCreated());
    int type = 0;
    int length = sizeof type;
    ASSERT_EQ(0, ::getsockopt(socket.m_socket, SOL_SOCKET, SO_TYPE, reinterpret_cast<char*>(&type), &length));
    EXPECT_EQ(SOCK_DGRAM, type);
}

TEST_F(Socket, Create_PassesItsArguments)
{
    CWSASocket socket;
    WSAPROTOCOL_INFOW info = {};
    const CImportPatch patch(&::WSASocketW, &RecordingCreation);

    socket.Create(11, 12, 13, &info, 14, 15);

    EXPECT_EQ(11, g_creation.af);
    EXPECT_EQ(12, g_creation.type);
    EXPECT_EQ(13, g_creation.protocol);
    EXPECT_EQ(&info, g_creation.info);
    EXPECT_EQ(14u, g_creation.group);
    EXPECT_EQ(15u, g_creation.flags);
}

TEST_F(Socket, Create_WhenOneIsHeld_ClosesItFirst)
{
    CWSASocket socket;
    CreateTcp(socket);
    const SOCKET old = socket.m_socket;
    const CImportPatch create(&::WSASocketW, &RecordingCreation);
    const CImportPatch close(&::closesocket, &RecordingClose);

    CreateTcp(socket);

    EXPECT_EQ((std::vector<std::string>{"closesocket", "WSASocket"}), g_calls);
    EXPECT_EQ(std::vector<SOCKET>{old}, g_closed);
}

TEST_F(Socket, Create_OnFailure_Throws)
{
    CWSASocket socket;
    const CImportPatch patch(&::WSASocketW, &FailingCreation);

    EXPECT_FAILURE(42, L".\\Socket", L"WSASocket", WSAEMFILE, CreateTcp(socket));
}

TEST_F(Socket, Create_OnFailure_LeavesTheObjectEmptyAndTheOldSocketClosed)
{
    CWSASocket socket;
    CreateTcp(socket);
    const SOCKET old = socket.m_socket;

    EXPECT_NE(0u, ErrorOf([&] { socket.Create(-1, SOCK_STREAM, IPPROTO_TCP, nullptr, 0, 0); }));

    EXPECT_FALSE(socket.IsCreated());
    EXPECT_FALSE(IsSocket(old));
}

TEST_F(Socket, Create_WhenTheOldOneDoesNotClose_MakesNoNewOne)
{
    CWSASocket socket;
    CreateTcp(socket);
    ::closesocket(socket.m_socket);
    const CImportPatch create(&::WSASocketW, &RecordingCreation);

    EXPECT_FAILURE(56, L".\\Socket", L"setsockopt", WSAENOTSOCK, CreateTcp(socket));

    EXPECT_TRUE(g_calls.empty());
    EXPECT_FALSE(socket.IsCreated());
}

TEST_F(Socket, Failures_CarryWinsocksCode)
{
    CWSASocket socket;
    const CImportPatch create(&::WSASocketW, &FailingCreationWithTheSystemsError);
    const CImportPatch lastError(&::WSAGetLastError, &WinsocksOwnError);

    EXPECT_FAILURE(42, L".\\Socket", L"WSASocket", WSAENOBUFS, CreateTcp(socket));
}

TEST_F(Socket, Close_ClosesTheSocketAndEmptiesTheObject)
{
    CWSASocket socket;
    CreateTcp(socket);
    const SOCKET held = socket.m_socket;

    socket.Close();

    EXPECT_FALSE(IsSocket(held));
    EXPECT_EQ(INVALID_SOCKET, socket.m_socket);
}

TEST_F(Socket, Close_Twice_ClosesOnce)
{
    CWSASocket socket;
    CreateTcp(socket);
    const CImportPatch close(&::closesocket, &RecordingClose);

    socket.Close();
    socket.Close();

    EXPECT_EQ(1u, g_closed.size());
}

TEST_F(Socket, Close_SwitchesLingeringOff)
{
    CWSASocket socket;
    CreateTcp(socket);
    const SOCKET held = socket.m_socket;
    const CImportPatch option(&::setsockopt, &RecordingOption);

    socket.Close();

    ASSERT_EQ(1u, g_options.size());
    EXPECT_EQ(held, g_options[0].socket);
    EXPECT_EQ(0xFFFF, g_options[0].level);
    EXPECT_EQ(0xFFFFFF7Fu, static_cast<unsigned int>(g_options[0].name));
    EXPECT_EQ(std::string("\x01\0\0\0", 4), g_options[0].value);
}

TEST_F(Socket, Close_SwitchesLingeringOffBeforeItCloses)
{
    CWSASocket socket;
    CreateTcp(socket);
    const CImportPatch option(&::setsockopt, &RecordingOption);
    const CImportPatch close(&::closesocket, &RecordingClose);

    socket.Close();

    EXPECT_EQ((std::vector<std::string>{"setsockopt", "closesocket"}), g_calls);
}

TEST_F(Socket, Close_ReturnsWithoutWaitingAndSendsTheRest)
{
    CConnection connection;
    const linger wait = {1, 60};
    connection.local.SetSockOptLL(SOL_SOCKET, SO_LINGER, &wait, sizeof wait);
    unsigned int sent = 0;
    connection.local.Send("rest", 4, sent, 0, nullptr);

    connection.local.Close();

    EXPECT_EQ("rest", connection.PeerReceives(5));
}

TEST_F(Socket, Close_OfASocketThatIsGone_Throws)
{
    CWSASocket socket;
    CreateTcp(socket);
    ::closesocket(socket.m_socket);

    EXPECT_FAILURE(56, L".\\Socket", L"setsockopt", WSAENOTSOCK, socket.Close());

    EXPECT_FALSE(socket.IsCreated());
}

TEST_F(Socket, Close_WhenLingeringCannotBeSwitchedOff_AbandonsTheSocket)
{
    CWSASocket socket;
    CreateTcp(socket);
    const SOCKET held = socket.m_socket;
    {
        const CImportPatch option(&::setsockopt, &FailingOption);
        const CImportPatch close(&::closesocket, &RecordingClose);
        EXPECT_FAILURE(56, L".\\Socket", L"setsockopt", WSAENOPROTOOPT, socket.Close());
    }

    EXPECT_TRUE(g_closed.empty());
    EXPECT_TRUE(IsSocket(held));
    EXPECT_FALSE(socket.IsCreated());
    ::closesocket(held);
}

TEST_F(Socket, Close_AfterAFailedClose_DoesNothing)
{
    CWSASocket socket;
    CreateTcp(socket);
    const SOCKET held = socket.m_socket;
    const CImportPatch option(&::setsockopt, &FailingOption);
    EXPECT_THROW(socket.Close(), CWinException);

    EXPECT_NO_THROW(socket.Close());

    ::closesocket(held);
}

TEST_F(Socket, Close_WhenTheSocketDoesNotClose_Throws)
{
    CWSASocket socket;
    CreateTcp(socket);
    const SOCKET held = socket.m_socket;
    const CImportPatch close(&::closesocket, &FailingClose);

    EXPECT_FAILURE(59, L".\\Socket", L"closesocket", WSAEWOULDBLOCK, socket.Close());

    EXPECT_EQ(std::vector<SOCKET>{held}, g_closed);
    ::closesocket(held);
}

TEST_F(Socket, Close_WhenTheSocketDoesNotClose_LeavesTheObjectEmpty)
{
    CWSASocket socket;
    CreateTcp(socket);
    const SOCKET held = socket.m_socket;
    const CImportPatch close(&::closesocket, &FailingClose);

    EXPECT_THROW(socket.Close(), CWinException);

    EXPECT_FALSE(socket.IsCreated());
    ::closesocket(held);
}

TEST_F(Socket, Close_TakesOnlySocketErrorForAFailure)
{
    CWSASocket socket;
    CreateTcp(socket);
    const CImportPatch option(&::setsockopt, &OddOption);
    const CImportPatch close(&::closesocket, &OddClose);

    EXPECT_NO_THROW(socket.Close());
}

TEST_F(Socket, Destructor_ClosesTheSocket)
{
    SOCKET held;
    {
        CWSASocket socket;
        CreateTcp(socket);
        held = socket.m_socket;
    }

    EXPECT_FALSE(IsSocket(held));
}

TEST_F(Socket, Destructor_ClosesAsCloseDoes)
{
    const CImportPatch option(&::setsockopt, &RecordingOption);
    const CImportPatch close(&::closesocket, &RecordingClose);
    {
        CWSASocket socket;
        CreateTcp(socket);
    }

    EXPECT_EQ((std::vector<std::string>{"setsockopt", "closesocket"}), g_calls);
}

TEST_F(Socket, Destructor_ThroughAPointer_ClosesTheSocketOfADerivedClass)
{
    CWSASocket* const socket = new CAppending;
    CreateTcp(*socket);
    const SOCKET held = socket->m_socket;

    delete socket;

    EXPECT_FALSE(IsSocket(held));
}

TEST_F(Socket, Destructor_OnFailure_Throws)
{
    const CImportPatch close(&::closesocket, &FailingClose);

    EXPECT_FAILURE(59, L".\\Socket", L"closesocket", WSAEWOULDBLOCK, {
        CWSASocket socket;
        CreateTcp(socket);
    });

    ASSERT_EQ(1u, g_closed.size());
    ::closesocket(g_closed[0]);
}

TEST_F(Socket, Adopted_SocketIsClosedWithTheObject)
{
    const SOCKET made = ::socket(AF_INET, SOCK_STREAM, 0);
    {
        CWSASocket socket;
        socket.m_socket = made;
    }

    EXPECT_FALSE(IsSocket(made));
}

TEST(SocketLayout, Record_IsTheVirtualTableAndTheSocket)
{
    const CWSASocket socket;

    EXPECT_EQ(2 * sizeof(void*), sizeof(CWSASocket));
    EXPECT_EQ(static_cast<std::ptrdiff_t>(sizeof(void*)),
              reinterpret_cast<const char*>(&socket.m_socket) - reinterpret_cast<const char*>(&socket));
}

TEST(SocketLayout, Destructor_StandsFirst)
{
    support::ExpectSlots("_ZTVN6vantor10CWSASocketE", {"_ZN6vantor10CWSASocketD1Ev", "_ZN6vantor10CWSASocketD0Ev"});
}

// A pointer to a virtual member holds the slot's offset, plus one.
TEST(SocketLayout, Destructor_IsTheOnlyVirtualOperation)
{
    void (CAppending::*const appended)() = &CAppending::Appended;
    std::size_t slot = 0;
    std::memcpy(&slot, &appended, sizeof slot);

    EXPECT_EQ(2 * sizeof(void*) + 1, slot);
}

TEST(SocketLayout, Sockets_AreNotCopied)
{
    EXPECT_FALSE(std::is_copy_constructible_v<CWSASocket>);
    EXPECT_FALSE(std::is_copy_assignable_v<CWSASocket>);
}
