// Waiting for several sockets: the sets, the count, and the time value that reaches the system.

#include "Loopback.h"
#include "support/ImportPatch.h"

#include <vantor/Socket.h>

#include <gtest/gtest.h>

#include <cstring>
#include <thread>

using namespace vantor;
using namespace links_test;
using support::CImportPatch;

namespace
{
using SocketSelect = Winsock;

struct CSelectCall
{
    int number;
    const fd_set* sets[3];
    bool limited;
    timeval time;
};
CSelectCall g_call;
int g_answer;

int WSAAPI FakeSelect(int number, fd_set* read, fd_set* write, fd_set* except, PTIMEVAL time)
{
    g_call = {number, {read, write, except}, time != nullptr, time ? *time : timeval()};
    return g_answer;
}

CSelectCall SelectWith(unsigned long long timeout)
{
    g_answer = 0;
    const CImportPatch patch(&::select, &FakeSelect);
    fd_set read = {};
    fd_set write = {};
    fd_set except = {};
    CWSASocket::Select(read, write, except, timeout);
    return g_call;
}

struct CSets
{
    fd_set read = {};
    fd_set write = {};
    fd_set except = {};

    int Select(unsigned long long timeout) { return CWSASocket::Select(read, write, except, timeout); }
};
}   // namespace

TEST_F(SocketSelect, PassesZeroAndTheThreeSets)
{
    g_answer = 0;
    const CImportPatch patch(&::select, &FakeSelect);
    CSets sets;

    sets.Select(5);

    EXPECT_EQ(0, g_call.number);
    EXPECT_EQ(&sets.read, g_call.sets[0]);
    EXPECT_EQ(&sets.write, g_call.sets[1]);
    EXPECT_EQ(&sets.except, g_call.sets[2]);
}

TEST_F(SocketSelect, ReturnsTheSystemsNumber)
{
    g_answer = 42;
    const CImportPatch patch(&::select, &FakeSelect);
    CSets sets;

    EXPECT_EQ(42, sets.Select(5));
}

TEST_F(SocketSelect, TakesOnlySocketErrorForAFailure)
{
    g_answer = -2;
    const CImportPatch patch(&::select, &FakeSelect);
    CSets sets;

    EXPECT_EQ(-2, sets.Select(5));
}

TEST_F(SocketSelect, TimeoutOfZero_IsATimeValueOfZero)
{
    const CSelectCall call = SelectWith(0);

    EXPECT_TRUE(call.limited);
    EXPECT_EQ(0, call.time.tv_sec);
    EXPECT_EQ(0, call.time.tv_usec);
}

TEST_F(SocketSelect, WholeSeconds_AreSeconds)
{
    const CSelectCall call = SelectWith(3000);

    EXPECT_EQ(3, call.time.tv_sec);
    EXPECT_EQ(0, call.time.tv_usec);
}

// Deliberate: applications have tuned their time-outs to it.
TEST_F(SocketSelect, RestOfMilliseconds_CountsAsMicroseconds)
{
    const CSelectCall call = SelectWith(1500);

    EXPECT_EQ(1, call.time.tv_sec);
    EXPECT_EQ(500, call.time.tv_usec);
}

TEST_F(SocketSelect, LessThanASecond_CountsAsMicroseconds)
{
    const CSelectCall call = SelectWith(999);

    EXPECT_EQ(0, call.time.tv_sec);
    EXPECT_EQ(999, call.time.tv_usec);
}

TEST_F(SocketSelect, InfiniteTimeout_GivesNoTimeValue)
{
    EXPECT_FALSE(SelectWith(0xFFFFFFFF).limited);
}

TEST_F(SocketSelect, OneLessThanInfinite_IsATime)
{
    const CSelectCall call = SelectWith(0xFFFFFFFE);

    EXPECT_TRUE(call.limited);
    EXPECT_EQ(4294967, call.time.tv_sec);
    EXPECT_EQ(294, call.time.tv_usec);
}

TEST_F(SocketSelect, OneMoreThanInfinite_IsATime)
{
    const CSelectCall call = SelectWith(0x100000000);

    EXPECT_TRUE(call.limited);
    EXPECT_EQ(4294967, call.time.tv_sec);
    EXPECT_EQ(296, call.time.tv_usec);
}

// The value that means no limit is the 32-bit one, whatever its neighbours in 64 bits.
TEST_F(SocketSelect, LowHalfOfInfinite_IsATime)
{
    const CSelectCall call = SelectWith(0x1FFFFFFFF);

    EXPECT_TRUE(call.limited);
    EXPECT_EQ(8589934, call.time.tv_sec);
    EXPECT_EQ(591, call.time.tv_usec);
}

TEST_F(SocketSelect, MoreSecondsThanTheTimeValueHolds_AreNoShortTime)
{
    const CSelectCall call = SelectWith(0x100000000ull * 1000);

    EXPECT_TRUE(call.limited);
    EXPECT_GT(call.time.tv_sec, 4294967);
}

TEST_F(SocketSelect, WhenNothingIsReady_ReturnsNothing)
{
    CConnection connection;
    CSets sets;
    FD_SET(connection.local.m_socket, &sets.read);

    EXPECT_EQ(0, sets.Select(0));

    EXPECT_FALSE(FD_ISSET(connection.local.m_socket, &sets.read));
}

TEST_F(SocketSelect, WhenTheTimeIsUp_ReturnsNothing)
{
    CConnection connection;
    CSets sets;
    FD_SET(connection.local.m_socket, &sets.read);

    EXPECT_EQ(0, sets.Select(1));
}

TEST_F(SocketSelect, FindsASocketToReadFrom)
{
    CConnection connection;
    connection.PeerSends("x");
    CSets sets;
    FD_SET(connection.local.m_socket, &sets.read);

    EXPECT_EQ(1, sets.Select(Patience));

    EXPECT_TRUE(FD_ISSET(connection.local.m_socket, &sets.read));
}

TEST_F(SocketSelect, FindsASocketToWriteTo)
{
    CConnection connection;
    CSets sets;
    FD_SET(connection.local.m_socket, &sets.write);

    EXPECT_EQ(1, sets.Select(0));
}

TEST_F(SocketSelect, FindsAConnectionThatWasRefused)
{
    const CBoundSocket closed;
    CWSASocket socket;
    CreateTcp(socket);
    MakeNonBlocking(socket);
    EXPECT_EQ(static_cast<unsigned long>(WSAEWOULDBLOCK), ErrorOf([&] { Connect(socket, closed.Address()); }));
    CSets sets;
    FD_SET(socket.m_socket, &sets.except);

    EXPECT_EQ(1, sets.Select(Patience));
}

TEST_F(SocketSelect, CountsTheReadyOnes)
{
    CConnection first;
    CConnection second;
    CConnection silent;
    first.PeerSends("x");
    second.PeerSends("x");
    WaitUntilReadable(first.local.m_socket);
    WaitUntilReadable(second.local.m_socket);
    CSets sets;
    FD_SET(first.local.m_socket, &sets.read);
    FD_SET(second.local.m_socket, &sets.read);
    FD_SET(silent.local.m_socket, &sets.read);

    EXPECT_EQ(2, sets.Select(0));

    EXPECT_FALSE(FD_ISSET(silent.local.m_socket, &sets.read));
}

TEST_F(SocketSelect, WithoutALimit_WaitsUntilOneIsReady)
{
    CConnection connection;
    CSets sets;
    FD_SET(connection.local.m_socket, &sets.read);
    std::thread sender([&] { connection.PeerSends("x"); });

    EXPECT_EQ(1, sets.Select(0xFFFFFFFF));

    sender.join();
}
