#include "Thrower.h"

#include <vantor/Socket.h>

#include <algorithm>
#include <climits>

namespace vantor
{
namespace
{
constexpr CThrower Fail{L".\\Socket"};

unsigned long Error()
{
    return static_cast<unsigned long>(::WSAGetLastError());
}
}   // namespace

CWSASocket::CWSASocket() noexcept : m_socket(INVALID_SOCKET) {}

CWSASocket::~CWSASocket() noexcept(false)
{
    Close();
}

void CWSASocket::Create(int af, int type, int protocol, _WSAPROTOCOL_INFOW* info, unsigned int group,
                        unsigned long flags)
{
    Close();
    m_socket = ::WSASocketW(af, type, protocol, info, group, flags);
    if (m_socket == INVALID_SOCKET)
        Fail(42, L"WSASocket", Error());
}

void CWSASocket::Close()
{
    if (m_socket == INVALID_SOCKET)
        return;
    const SOCKET socket = m_socket;
    m_socket = INVALID_SOCKET;   // whatever happens

    const int on = 1;
    if (::setsockopt(socket, SOL_SOCKET, SO_DONTLINGER, reinterpret_cast<const char*>(&on), sizeof on) == SOCKET_ERROR)
        Fail(56, L"setsockopt", Error());
    if (::closesocket(socket) == SOCKET_ERROR)
        Fail(59, L"closesocket", Error());
}

void CWSASocket::Shutdown(int how)
{
    if (::shutdown(m_socket, how) == SOCKET_ERROR)
        Fail(72, L"shutdown", Error());
}

void CWSASocket::ConnectLL(const void* addr, unsigned int addrLen, _WSABUF* callerData, _WSABUF* calleeData,
                           _QualityOfService* sqos, _QualityOfService* gqos)
{
    if (::WSAConnect(m_socket, static_cast<const sockaddr*>(addr), static_cast<int>(addrLen), callerData, calleeData,
                     sqos, gqos) == SOCKET_ERROR)
        Fail(84, L"WSAConnect", Error());
}

void CWSASocket::SetSockOptLL(int level, int name, const void* value, unsigned int length)
{
    if (::setsockopt(m_socket, level, name, static_cast<const char*>(value), static_cast<int>(length)) == SOCKET_ERROR)
        Fail(91, L"setsockopt", Error());
}

void CWSASocket::GetSockOptLL(int level, int name, void* value, unsigned int length)
{
    int size = static_cast<int>(length);
    if (::getsockopt(m_socket, level, name, static_cast<char*>(value), &size) == SOCKET_ERROR)
        Fail(99, L"getsockopt", Error());
}

void CWSASocket::IoctlSocket(long command, unsigned long& argument)
{
    if (::ioctlsocket(m_socket, command, &argument) == SOCKET_ERROR)
        Fail(106, L"ioctlsocket", Error());
}

bool CWSASocket::Send(const void* buffer, unsigned int length, unsigned int& sent, unsigned long flags, _OVERLAPPED* ov)
{
    WSABUF data = {length, static_cast<char*>(const_cast<void*>(buffer))};   // only read
    DWORD count = 0;
    const int result = ::WSASend(m_socket, &data, 1, &count, flags, ov, nullptr);
    sent = count;
    if (result != SOCKET_ERROR)
        return true;
    const unsigned long error = Error();
    if (error != WSA_IO_PENDING)
        Fail(124, L"WSASend", error);
    return false;
}

bool CWSASocket::Recv(void* buffer, unsigned int length, unsigned int& received, unsigned long& flags, _OVERLAPPED* ov)
{
    WSABUF data = {length, static_cast<char*>(buffer)};
    DWORD count = 0;
    const int result = ::WSARecv(m_socket, &data, 1, &count, &flags, ov, nullptr);
    received = count;
    if (result != SOCKET_ERROR)
        return true;
    const unsigned long error = Error();
    if (error != WSA_IO_PENDING)
        Fail(144, L"WSARecv", error);
    return false;
}

bool CWSASocket::GetOverlappedResult(_OVERLAPPED* ov, unsigned int& transferred, int wait, unsigned long& flags)
{
    DWORD count = 0;
    const BOOL done = ::WSAGetOverlappedResult(m_socket, ov, &count, wait, &flags);
    transferred = count;
    if (done)
        return true;
    const unsigned long error = Error();
    if (error != WSA_IO_INCOMPLETE)
        Fail(164, L"WSAGetOverlappedResult", error);
    return false;
}

int CWSASocket::Select(fd_set& read, fd_set& write, fd_set& except, unsigned long long timeout)
{
    timeval time;
    time.tv_sec = static_cast<long>(std::min<unsigned long long>(timeout / 1000, LONG_MAX));
    time.tv_usec = static_cast<long>(timeout % 1000);   // unscaled: applications have tuned their time-outs to it
    const int ready = ::select(0, &read, &write, &except, timeout == INFINITE ? nullptr : &time);
    if (ready == SOCKET_ERROR)
        Fail(175, L"select", Error());
    return ready;
}
}   // namespace vantor
