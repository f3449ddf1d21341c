// rxsim: a measuring receiver for those who have none at hand, on a TCP port of this machine, on a serial port, or
// both. Listening has no class in the library: it is done with the platform's calls, and the connections become links.

#include "CommandLine.h"
#include "Session.h"

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <sstream>

namespace
{
using namespace vantor;

constexpr unsigned long Slice = 100;   // milliseconds: how long a stop waits for the listener at most

// Set by Ctrl-C, and when a side can not go on.
CEvent& Stop()
{
    static CEvent stop(nullptr, TRUE, FALSE, nullptr);
    return stop;
}

BOOL WINAPI OnControl(DWORD) noexcept
{
    Stop().Set();
    return TRUE;
}

void Report(const CStdException& e)
{
    std::fprintf(stderr, "rxsim: %s\n", link::Describe(e).c_str());
}

[[noreturn]] void Fail(unsigned int line, const wchar_t* function)
{
    throw CWinException(line, L".\\rxsim", function, static_cast<unsigned long>(::WSAGetLastError()));
}

// The levels of a file: what stands behind the last ";" or "," of each line, if it is a number.
std::vector<double> ReadTrace(const std::string& path)
{
    CFile file(ustring(path, CP_UTF8, 0).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    std::string text(static_cast<std::size_t>(file.GetLength()), '\0');
    unsigned int done = 0;
    file.Read(text.data(), static_cast<unsigned int>(text.size()), done, nullptr);

    std::istringstream lines(text);
    std::vector<double> levels;
    for (std::string line; std::getline(lines, line);)
    {
        const char* const last = line.c_str() + line.find_last_of(";,") + 1;
        char* end = nullptr;
        const double level = std::strtod(last, &end);
        if (end != last)
            levels.push_back(level);
    }
    if (levels.empty())
        throw CWinException(58, L".\\rxsim", L"ReadTrace", ERROR_INVALID_DATA);
    return levels;
}

// Takes connections one after the other.
class CListener
{
public:
    explicit CListener(unsigned short port)
    {
        m_socket.Create(AF_INET, SOCK_STREAM, IPPROTO_TCP, nullptr, 0, WSA_FLAG_OVERLAPPED);
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_port = ::htons(port);
        address.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
        if (::bind(m_socket.m_socket, reinterpret_cast<sockaddr*>(&address), sizeof address) == SOCKET_ERROR)
            Fail(66, L"bind");
        if (::listen(m_socket.m_socket, SOMAXCONN) == SOCKET_ERROR)
            Fail(68, L"listen");
    }

    unsigned short Port() const
    {
        sockaddr_in address = {};
        int size = sizeof address;
        if (::getsockname(m_socket.m_socket, reinterpret_cast<sockaddr*>(&address), &size) == SOCKET_ERROR)
            Fail(76, L"getsockname");
        return ::ntohs(address.sin_port);
    }

    // INVALID_SOCKET as soon as the event is set.
    SOCKET Accept(CEvent& stop) const
    {
        while (::WaitForSingleObject(stop, 0) == WAIT_TIMEOUT)
        {
            fd_set read = {};
            fd_set write = {};
            fd_set except = {};
            FD_SET(m_socket.m_socket, &read);
            // Not for Select to wait: a stop has to end it.
            if (CWSASocket::Select(read, write, except, 0) == 0)
            {
                ::WaitForSingleObject(stop, Slice);
                continue;
            }
            const SOCKET socket = ::accept(m_socket.m_socket, nullptr, nullptr);
            if (socket == INVALID_SOCKET)
                Fail(96, L"accept");
            return socket;
        }
        return INVALID_SOCKET;
    }

private:
    CWSASocket m_socket;
};

// Serves a link until the stop; what fails ends a session, not the program.
void ServeAll(link::CLink& link, rxsim::CSharedReceiver& shared)
{
    try
    {
        rxsim::Serve(link, shared, Stop());
    }
    catch (const CStdException& e)
    {
        Report(e);
    }
}

// The serial port's side, on a thread of its own.
class CPortServer
{
public:
    CPortServer(std::unique_ptr<link::CLink> link, rxsim::CSharedReceiver& shared)
        : m_link(std::move(link)), m_shared(shared)
    {
        m_thread.Create(&Run, this);
    }
    CPortServer(const CPortServer&) = delete;
    CPortServer& operator=(const CPortServer&) = delete;
    ~CPortServer() noexcept(false) { ::WaitForSingleObject(m_thread, INFINITE); }

private:
    static unsigned long WINAPI Run(void* param) noexcept
    {
        auto& server = *static_cast<CPortServer*>(param);
        while (::WaitForSingleObject(Stop(), FailureTime) == WAIT_TIMEOUT)
            ServeAll(*server.m_link, server.m_shared);
        return 0;
    }

    static constexpr unsigned long FailureTime = 1000;   // milliseconds between two tries

    std::unique_ptr<link::CLink> m_link;
    rxsim::CSharedReceiver& m_shared;
    CThread m_thread;
};

struct COptions
{
    int tcp = -1;
    std::string com;
    unsigned int baud = 115200;
    std::string trace;
    unsigned int seed = 1;
    bool once = false;
};

void ServeTcp(const CListener& listener, rxsim::CSharedReceiver& shared, bool once)
{
    for (SOCKET socket; (socket = listener.Accept(Stop())) != INVALID_SOCKET;)
    {
        ServeAll(*link::Accepted(socket, Stop()), shared);
        if (once)
            return;
    }
}

void Serve(const COptions& options)
{
    ::SetConsoleCtrlHandler(&OnControl, TRUE);
    rxsim::CSharedReceiver shared{
        options.trace.empty() ? rxsim::CReceiver(options.seed) : rxsim::CReceiver(ReadTrace(options.trace)), {}};
    std::optional<CListener> listener;
    if (options.tcp >= 0)
    {
        listener.emplace(static_cast<unsigned short>(options.tcp));
        std::printf("on port %u\n", listener->Port());
    }
    std::optional<CPortServer> port;
    if (!options.com.empty())
    {
        port.emplace(link::OpenPort(ustring(options.com, CP_UTF8, 0), options.baud, Stop()), shared);
        std::printf("on %s\n", options.com.c_str());
    }
    std::fflush(stdout);
    if (!listener)
        return;   // and wait for the port's side
    try
    {
        ServeTcp(*listener, shared, options.once);
    }
    catch (...)
    {
        Stop().Set();
        throw;
    }
    Stop().Set();
}
}   // namespace

int wmain(int count, wchar_t** arguments)
{
    COptions options;
    CLI::App app{"A measuring receiver for those who have none at hand.", "rxsim"};
    auto* const tcp = app.add_option("--tcp", options.tcp, "TCP port of this machine; 0: any that is free")
                          ->check(CLI::Range(0, 65535));
    auto* const com = app.add_option("--com", options.com, "serial port: COM3:, from COM10 on \\\\.\\COM12");
    app.add_option("--baud", options.baud, "of the serial port")->capture_default_str();
    app.add_option("--trace", options.trace, "file with levels, the last number of each line, in dBm");
    app.add_option("--seed", options.seed, "of the levels that are made up")->capture_default_str();
    app.add_flag("--once", options.once, "end after the first connection")->needs(tcp);
    if (const int result = command_line::Parse(app, count, arguments))
        return result < 0 ? 0 : result;
    if (tcp->empty() && com->empty())
    {
        std::fputs("rxsim: needs --tcp or --com (--help says more)\n", stderr);
        return 2;
    }

    WSADATA data;
    ::WSAStartup(MAKEWORD(2, 2), &data);
    try
    {
        Serve(options);
        return 0;
    }
    catch (const CStdException& e)
    {
        Report(e);
    }
    return 1;
}
