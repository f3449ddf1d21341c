#include "Link.h"

#include <algorithm>

namespace link
{
using namespace vantor;

namespace
{
constexpr unsigned long Slice = 50;       // milliseconds of one read: how long a cancelled wait goes on at most
constexpr unsigned long BytesApart = 5;   // milliseconds: a longer pause ends a read
constexpr std::size_t Piece = 256;        // bytes of one write, for the same reason as slices

[[noreturn]] void Fail(unsigned int line, const wchar_t* function, unsigned long error)
{
    throw CWinException(line, L".\\PortLink", function, error);
}

// Plain reads with a short time-out, since the device's ports know no others.
class CPortLink : public CLink
{
public:
    CPortLink(const ustring& port, unsigned long baud, CEvent& cancel) : m_port(port.c_str(), 0), m_cancel(cancel)
    {
        DCB dcb;
        m_port.GetCommState(dcb);
        dcb.BaudRate = baud;
        dcb.ByteSize = 8;
        dcb.Parity = NOPARITY;
        dcb.StopBits = ONESTOPBIT;
        // No flow control, and nothing of what another program has left: every byte passes as it is.
        dcb.fBinary = TRUE;
        dcb.fParity = FALSE;
        dcb.fOutxCtsFlow = FALSE;
        dcb.fOutxDsrFlow = FALSE;
        dcb.fDtrControl = DTR_CONTROL_ENABLE;
        dcb.fDsrSensitivity = FALSE;
        dcb.fOutX = FALSE;
        dcb.fInX = FALSE;
        dcb.fErrorChar = FALSE;
        dcb.fNull = FALSE;
        dcb.fRtsControl = RTS_CONTROL_ENABLE;
        dcb.fAbortOnError = FALSE;
        m_port.SetCommState(dcb);
        SetReadTime(Slice);
        m_port.PurgeComm(PURGE_RXCLEAR | PURGE_TXCLEAR);
    }

    std::string Receive(unsigned long time) override
    {
        const unsigned long start = ::GetTickCount();
        for (;;)
        {
            ThrowIfCancelled();
            const unsigned long left = Left(start, time);
            SetReadTime(std::clamp(left, 1UL, Slice));
            unsigned int done = 0;
            m_port.Read(m_buffer, sizeof m_buffer, done, nullptr);
            if (done != 0 || left == 0)
                return std::string(m_buffer, done);
        }
    }

    void Send(const std::string& bytes) override
    {
        for (std::size_t sent = 0; sent < bytes.size();)
        {
            ThrowIfCancelled();
            const std::size_t size = std::min(bytes.size() - sent, Piece);
            unsigned int done = 0;
            m_port.Write(bytes.data() + sent, static_cast<unsigned int>(size), done, nullptr);
            if (done == 0)
                Fail(60, L"WriteFile", ERROR_TIMEOUT);
            sent += done;
        }
    }

    void Drop() override {}

private:
    void ThrowIfCancelled()
    {
        if (::WaitForSingleObject(m_cancel, 0) == WAIT_OBJECT_0)
            Fail(42, L"link::CLink", ERROR_CANCELLED);
    }

    // A read waits that long for bytes, and ends soon after the last of those that come in one go.
    void SetReadTime(unsigned long time)
    {
        if (time == m_readTime)
            return;
        m_port.SetCommTimeouts({BytesApart, 0, time, 1, 1000});
        m_readTime = time;
    }

    CCommPort m_port;
    CEvent& m_cancel;
    unsigned long m_readTime = 0;
    char m_buffer[1024];
};
}   // namespace

std::unique_ptr<CLink> OpenPort(const ustring& port, unsigned long baud, CEvent& cancel)
{
    return std::make_unique<CPortLink>(port, baud, cancel);
}
}   // namespace link
