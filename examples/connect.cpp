// Connecting with a time-out, to a listener within this program; and to one that is no longer there.

#include <vantor/vantor.h>

#include <cstdio>

namespace
{
using namespace vantor;

// Listening has no class of its own: it is done with the platform's calls.
sockaddr_in Listen(CWSASocket& listener)
{
    listener.Create(AF_INET, SOCK_STREAM, IPPROTO_TCP, nullptr, 0, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
    int size = sizeof address;
    ::bind(listener.m_socket, reinterpret_cast<sockaddr*>(&address), size);
    ::getsockname(listener.m_socket, reinterpret_cast<sockaddr*>(&address), &size);   // the port that it was given
    ::listen(listener.m_socket, 1);
    return address;
}

// The error, 0 if there is none.
unsigned long Connect(CWSASocket& socket, const sockaddr_in& address, unsigned int seconds)
try
{
    socket.Create(AF_INET, SOCK_STREAM, IPPROTO_TCP, nullptr, 0, WSA_FLAG_OVERLAPPED);
    unsigned long unblocked = 1;
    socket.IoctlSocket(static_cast<long>(FIONBIO), unblocked);
    socket.ConnectLL(&address, sizeof address, nullptr, nullptr, nullptr, nullptr);
    return 0;
}
catch (const CWinException& e)
{
    if (e.GetErrorCode() != WSAEWOULDBLOCK)
        return e.GetErrorCode();
    fd_set read = {}, write = {}, except = {};
    FD_SET(socket.m_socket, &write);    // has room for bytes: it is connected
    FD_SET(socket.m_socket, &except);   // it is not, and will not be
    if (CWSASocket::Select(read, write, except, seconds * 1000ULL) == 0)
        return ERROR_TIMEOUT;
    unsigned long error = 0;
    socket.GetSockOptLL(SOL_SOCKET, SO_ERROR, &error, sizeof error);
    return error;
}
}   // namespace

int main()
{
    WSADATA data;
    ::WSAStartup(MAKEWORD(2, 2), &data);
    CWSASocket listener, socket;
    const sockaddr_in address = Listen(listener);
    std::printf("error %lu\n", Connect(socket, address, 3));
    listener.Close();
    std::printf("error %lu\n", Connect(socket, address, 3));
}
