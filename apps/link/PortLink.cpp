#include "Link.h"

#include <algorithm>

namespace link
{
using namespace vantor;

namespace
{
constexpr unsigned long Slice = 50;   // milliseconds of one read: how long a cancelled wait goes on at most

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
        dcb.fBinary = TRUE;
        m_port.SetCommState(dcb);
        SetReadTime(Slice);
        m_port.PurgeComm(PURGE_RXCLEAR | PURGE_TXCLEAR);
    }

    std::string Receive(unsigned long time) override
    {
        const unsigned long start = ::GetTickCount();
        for (;;)
        {
            if (::WaitForSingleObject(m_cancel, 0) == WAIT_OBJECT_0)
                Fail(42, L"link::CLink", ERROR_CANCELLED);
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
            unsigned int done = 0;
            m_port.Write(bytes.data() + sent, static_cast<unsigned int>(bytes.size() - sent), done, nullptr);
            if (done == 0)
                Fail(60, L"WriteFile", ERROR_TIMEOUT);
            sent += done;
        }
    }

    void Drop() override {}

private:
    // A read returns what is there, or waits that long for the first byte.
    void SetReadTime(unsigned long time)
    {
        if (time == m_readTime)
            return;
        m_port.SetCommTimeouts({MAXDWORD, MAXDWORD, time, 1, 1000});
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
