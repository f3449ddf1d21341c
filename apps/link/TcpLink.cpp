#include "Link.h"

#include <cstring>
#include <utility>

namespace link
{
using namespace vantor;

namespace
{
constexpr unsigned long SendTime = 5000;   // milliseconds until a side that takes nothing counts as gone
constexpr unsigned long PollTime = 10;     // between two looks at a connection that is coming about

[[noreturn]] void Fail(unsigned int line, const wchar_t* function, unsigned long error)
{
    throw CWinException(line, L".\\TcpLink", function, error);
}

class CTcpLink : public CLink
{
public:
    CTcpLink(SOCKET socket, CEvent& cancel) : m_cancel(cancel) { m_socket.m_socket = socket; }

    ~CTcpLink() noexcept(false) override { CTcpLink::Drop(); }

    // One receive is under way at a time. It outlives a time-out, so that nothing is lost that comes later.
    std::string Receive(unsigned long time) override
    {
        if (::WaitForSingleObject(m_cancel, 0) == WAIT_OBJECT_0)
            FailAsCancelled();
        if (!m_receiving)
        {
            unsigned int done = 0;
            m_flags = 0;
            m_receive.ResetEvent();
            if (m_socket.Recv(m_buffer, sizeof m_buffer, done, m_flags, &m_receive))
                return Taken(done);
            m_receiving = true;
        }
        if (!Await(m_receive.hEvent, time))
            return std::string();
        m_receiving = false;
        return Taken(Result(m_receive));
    }

    void Send(const std::string& bytes) override
    {
        unsigned int done = 0;
        m_send.ResetEvent();
        if (m_socket.Send(bytes.data(), static_cast<unsigned int>(bytes.size()), done, 0, &m_send))
            return;
        bool sent = false;
        try
        {
            sent = Await(m_send.hEvent, SendTime);
        }
        catch (const CStdException&)   // the bytes belong to the system until the socket is closed
        {
            Drop();
            throw;
        }
        if (!sent)
        {
            Drop();
            Fail(66, L"WSASend", ERROR_TIMEOUT);
        }
        Result(m_send);
    }

    void Drop() override
    {
        const bool receiving = std::exchange(m_receiving, false);
        try
        {
            m_socket.Close();
        }
        catch (const CStdException&)   // it is closed all the same
        {
        }
        if (receiving)
            ::WaitForSingleObject(m_receive.hEvent, SendTime);   // the buffer is the system's until then
    }

private:
    [[noreturn]] static void FailAsCancelled() { Fail(92, L"link::CLink", ERROR_CANCELLED); }

    bool Await(HANDLE operation, unsigned long time)
    {
        const HANDLE events[] = {m_cancel, operation};
        switch (::WaitForMultipleObjects(2, events, FALSE, time))
        {
        case WAIT_OBJECT_0:
            FailAsCancelled();
        case WAIT_OBJECT_0 + 1:
            return true;
        case WAIT_TIMEOUT:
            return false;
        default:
            Fail(96, L"WaitForMultipleObjects", ::GetLastError());
        }
    }

    unsigned int Result(CWSAOverlapped& operation)
    {
        unsigned int done = 0;
        unsigned long flags = 0;
        m_socket.GetOverlappedResult(&operation, done, TRUE, flags);
        return done;
    }

    std::string Taken(unsigned int size)
    {
        if (size == 0)
            Fail(111, L"WSARecv", ERROR_GRACEFUL_DISCONNECT);
        return std::string(m_buffer, size);
    }

    CEvent& m_cancel;
    CWSAOverlapped m_receive, m_send;
    char m_buffer[4096];
    unsigned long m_flags = 0;
    bool m_receiving = false;
    CWSASocket m_socket;
};

sockaddr_in Address(const char* host, unsigned short port)
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = ::htons(port);
    address.sin_addr.s_addr = ::inet_addr(host);
    if (address.sin_addr.s_addr == INADDR_NONE)
    {
        const hostent* const found = ::gethostbyname(host);
        if (!found || found->h_addrtype != AF_INET)
            Fail(133, L"gethostbyname", static_cast<unsigned long>(::WSAGetLastError()));
        std::memcpy(&address.sin_addr, found->h_addr_list[0], sizeof address.sin_addr);
    }
    return address;
}

// Waits until a connection that was begun is there.
void AwaitConnection(CWSASocket& socket, unsigned long time, CEvent& cancel)
{
    const unsigned long start = ::GetTickCount();
    for (;;)
    {
        fd_set read = {};
        fd_set write = {};
        fd_set except = {};
        FD_SET(socket.m_socket, &write);
        FD_SET(socket.m_socket, &except);
        if (CWSASocket::Select(read, write, except, 0) != 0)
        {
            int error = 0;
            socket.GetSockOptLL(SOL_SOCKET, SO_ERROR, &error, sizeof error);
            if (error != 0 || except.fd_count != 0)
                Fail(155, L"WSAConnect", error != 0 ? static_cast<unsigned long>(error) : WSAECONNREFUSED);
            return;
        }
        if (Left(start, time) == 0)
            Fail(159, L"WSAConnect", ERROR_TIMEOUT);
        vantor::Sleep(PollTime, cancel);
    }
}
}   // namespace

std::unique_ptr<CLink> Connect(const char* host, unsigned short port, unsigned long time, CEvent& cancel)
{
    const sockaddr_in address = Address(host, port);
    CWSASocket socket;
    socket.Create(AF_INET, SOCK_STREAM, IPPROTO_TCP, nullptr, 0, WSA_FLAG_OVERLAPPED);

    unsigned long unblocked = 1;
    socket.IoctlSocket(static_cast<long>(FIONBIO), unblocked);
    try
    {
        socket.ConnectLL(&address, sizeof address, nullptr, nullptr, nullptr, nullptr);
    }
    catch (const CWinException& e)
    {
        if (e.GetErrorCode() != WSAEWOULDBLOCK)
            throw;
        AwaitConnection(socket, time, cancel);
    }
    unblocked = 0;
    socket.IoctlSocket(static_cast<long>(FIONBIO), unblocked);

    auto link = Accepted(socket.m_socket, cancel);
    socket.m_socket = INVALID_SOCKET;   // the link's now
    return link;
}

std::unique_ptr<CLink> Accepted(SOCKET socket, CEvent& cancel)
{
    return std::make_unique<CTcpLink>(socket, cancel);
}
}   // namespace link
