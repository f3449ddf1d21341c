// The line between handheld and receiver, the same over TCP and over a serial port: bytes with a time-out, cancelled by
// an event.
//
//     CEvent cancel(nullptr, TRUE, FALSE, nullptr);
//     const auto link = link::Connect("127.0.0.1", 5025, 3000, cancel);
//     link::CLines lines(*link);
//     lines.Send("ident");
//     std::string answer;
//     if (lines.Receive(answer, 2000)) ...                 // false: no answer within two seconds

#ifndef VANTOR_APPS_LINK_H
#define VANTOR_APPS_LINK_H

#include <vantor/vantor.h>

#include <memory>
#include <string>

namespace link
{
// What fails throws CWinException: ERROR_CANCELLED as soon as the event is set, ERROR_GRACEFUL_DISCONNECT when the
// other side has ended the connection. One thread at a time.
class CLink
{
public:
    CLink() = default;
    CLink(const CLink&) = delete;
    CLink& operator=(const CLink&) = delete;
    virtual ~CLink() noexcept(false) {}

    // What has come, as soon as something has; empty when the time (milliseconds) is up.
    virtual std::string Receive(unsigned long time) = 0;
    virtual void Send(const std::string& bytes) = 0;
    // Ends the connection; a serial line has none, and stays.
    virtual void Drop() = 0;
};

// Throws ERROR_TIMEOUT if nobody answers within the time (milliseconds). The host is a dotted address, or a name:
// asking for that takes the system as long as it likes, and cannot be cancelled.
std::unique_ptr<CLink> Connect(const char* host, unsigned short port, unsigned long time, vantor::CEvent& cancel);
// Takes a connection that accept() made.
std::unique_ptr<CLink> Accepted(SOCKET socket, vantor::CEvent& cancel);
// The port's name as the platform has it: "COM3:", on the desktop from COM10 on "\\\\.\\COM12". 8 bits, no parity, one
// stop bit.
std::unique_ptr<CLink> OpenPort(const vantor::ustring& port, unsigned long baud, vantor::CEvent& cancel);

// Lines that end with CR LF, LF alone understood. A line of more than 4096 bytes, CR included, is none: it throws
// ERROR_INVALID_DATA once, and is skipped to its end.
class CLines
{
public:
    explicit CLines(CLink& link) : m_link(link) {}

    bool Receive(std::string& line, unsigned long time);   // false when the time (milliseconds) is up
    void Send(const std::string& line);

private:
    bool Take(std::string& line);

    CLink& m_link;
    std::string m_received;
    bool m_skipping = false;   // the rest of a line that is too long
};

// Milliseconds that are left of a time span that began at `start` (GetTickCount); 0 when it is over.
unsigned long Left(unsigned long start, unsigned long time);

// For a person: what failed, in words, with the place where it did.
std::string Describe(const vantor::CStdException& e);
}   // namespace link

#endif
