// Sockets. The application starts Winsock itself (WSAStartup).
//
//     CWSASocket socket;
//     socket.Create(AF_INET, SOCK_STREAM, IPPROTO_TCP, nullptr, 0, 0);
//     socket.ConnectLL(&address, sizeof address, nullptr, nullptr, nullptr, nullptr);
//     unsigned int sent = 0;
//     socket.Send("*IDN?\r\n", 7, sent, 0, nullptr);

#ifndef VANTOR_SOCKET_H
#define VANTOR_SOCKET_H

#include <vantor/Platform.h>

struct _QualityOfService;
struct _WSABUF;
struct _WSAPROTOCOL_INFOW;

namespace vantor
{
// Owns a socket. Each member is the Winsock call of that name; what fails throws CWinException with Winsock's error
// code. Send and Recv may be called from one thread each, all else from one thread at a time.
class VANTOR_API CWSASocket
{
public:
    CWSASocket() noexcept;
    CWSASocket(const CWSASocket&) = delete;
    CWSASocket& operator=(const CWSASocket&) = delete;
    virtual ~CWSASocket() noexcept(false);   // the only virtual operation; closes

    bool IsCreated() const noexcept { return m_socket != INVALID_SOCKET; }

    // Closes what is open first. The arguments are those of WSASocketW. The object is empty after a failure.
    void Create(int af, int type, int protocol, _WSAPROTOCOL_INFOW* info, unsigned int group, unsigned long flags);
    // Returns at once; data that is still to be sent is sent in the background. The object is empty afterwards, also
    // after a failure; if lingering cannot be switched off, the socket then stays open and belongs to nobody.
    void Close();
    void Shutdown(int how);

    // Winsock's own arguments. A socket that does not block throws WSAEWOULDBLOCK here, as every other failure: the
    // connection comes about all the same, and Select tells when.
    void ConnectLL(const void* addr, unsigned int addrLen, _WSABUF* callerData, _WSABUF* calleeData,
                   _QualityOfService* sqos, _QualityOfService* gqos);
    void SetSockOptLL(int level, int name, const void* value, unsigned int length);
    // The length that was written is not reported.
    void GetSockOptLL(int level, int name, void* value, unsigned int length);
    void IoctlSocket(long command, unsigned long& argument);

    // True when done; false while an overlapped operation is still running (ov is null for blocking use). The count of
    // bytes and the flags are those that the system reported, in every case, also when the call throws. The buffer
    // belongs to the system as long as the operation runs.
    bool Send(const void* buffer, unsigned int length, unsigned int& sent, unsigned long flags, _OVERLAPPED* ov);
    bool Recv(void* buffer, unsigned int length, unsigned int& received, unsigned long& flags, _OVERLAPPED* ov);
    // False while the operation runs, if wait is false.
    bool GetOverlappedResult(_OVERLAPPED* ov, unsigned int& transferred, int wait, unsigned long& flags);

    // The number of sockets that are ready, 0 when the time is up. Unused sets are empty ones. timeout: milliseconds,
    // 0xFFFFFFFF for no limit. What exceeds whole seconds counts as microseconds, not as milliseconds: 1500 waits for
    // 1 s and 500 us, 999 for less than a millisecond.
    static int Select(fd_set& read, fd_set& write, fd_set& except, unsigned long long timeout);

    // Public for Select's sets, and to give the object a socket that accept() made. INVALID_SOCKET: none.
    SOCKET m_socket;
};
}   // namespace vantor

#endif
