// Cancelling: a receive that an event calls off and that loses nothing, while windows are painted; a wait cut short.

#include <vantor/vantor.h>

#include <cstdio>

namespace
{
using namespace vantor;

void ConnectToItself(CWSASocket& socket)
{
    socket.Create(AF_INET, SOCK_DGRAM, IPPROTO_UDP, nullptr, 0, WSA_FLAG_OVERLAPPED);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
    int size = sizeof address;
    ::bind(socket.m_socket, reinterpret_cast<sockaddr*>(&address), size);
    ::getsockname(socket.m_socket, reinterpret_cast<sockaddr*>(&address), &size);   // its port
    socket.ConnectLL(&address, sizeof address, nullptr, nullptr, nullptr, nullptr);
}

struct CWait : CAPC
{
    CWait(HANDLE stop, HANDLE done) : CAPC(QS_PAINT), events{stop, done} {}
    unsigned long Run() override { return ::WaitForMultipleObjects(2, events, FALSE, 5000); }

    const HANDLE events[2];
};
}   // namespace

int main()
try
{
    WSADATA data;
    ::WSAStartup(MAKEWORD(2, 2), &data);
    CWSASocket socket;
    ConnectToItself(socket);
    CEvent stop(nullptr, TRUE, FALSE, nullptr);   // stays set once it is

    char text[16] = {};
    unsigned int size = 0;
    unsigned long flags = 0;
    CWSAOverlapped received;
    std::printf("%s\n", socket.Recv(text, sizeof text, size, flags, &received) ? "done at once" : "under way");
    stop.Set();
    std::printf("%s\n", CWait(stop, received.hEvent).Invoke() == WAIT_OBJECT_0 ? "called off" : "not called off");
    stop.Reset();
    socket.Send("-93.5", 5, size, 0, nullptr);   // the receive is still under way
    if (CWait(stop, received.hEvent).Invoke() == WAIT_OBJECT_0 + 1)
        socket.GetOverlappedResult(&received, size, FALSE, flags);
    std::printf("%u bytes: %s\n", size, text);
    stop.Set();
    MsgSleep(60000, stop);
}
catch (const CWinException& e)
{
    std::printf("%s\n", e.GetErrorCode() == ERROR_CANCELLED ? "the wait was cut short" : "something else failed");
}
