// rxsim: a measuring receiver for those who have none at hand, on a TCP port of this machine, on a serial port, or
// both. Listening has no class in the library: it is done with the platform's calls, and the connections become links.

#include "Session.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>

namespace
{
using namespace vantor;

constexpr unsigned long Slice = 100;   // milliseconds: how long a stop waits for the listener at most

CEvent* g_stop = nullptr;

BOOL WINAPI OnControl(DWORD) noexcept
{
    g_stop->Set();
    return TRUE;
}

[[noreturn]] void Fail(unsigned int line, const wchar_t* function)
{
    throw CWinException(line, L".\\rxsim", function, static_cast<unsigned long>(::WSAGetLastError()));
}

// The levels of a file: the last number of each line, behind ";" or ",".
std::vector<double> ReadTrace(const std::string& path)
{
    CFile file(ustring(path, CP_UTF8, 0).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    std::string text(static_cast<std::size_t>(file.GetLength()), '\0');
    unsigned int done = 0;
    file.Read(text.data(), static_cast<unsigned int>(text.size()), done, nullptr);

    std::vector<ustring> lines;
    ustring::split(ustring(text, CP_UTF8, 0).c_str(), L'\n', lines, false);
    std::vector<double> levels;
    for (const ustring& line : lines)
    {
        const std::size_t number = line.find_first_of(L"0123456789.-", line.find_last_of(L";,") + 1);
        if (number != ustring::npos)
            levels.push_back(ustring::strtod(line.c_str() + number));
    }
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
            // The library counts what exceeds whole seconds in microseconds.
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

// The serial port's side runs on a thread of its own; what fails there ends the program.
struct CPortServer
{
    static unsigned long WINAPI Run(void* param) noexcept
    {
        auto& server = *static_cast<CPortServer*>(param);
        try
        {
            while (::WaitForSingleObject(*g_stop, 0) == WAIT_TIMEOUT)
                rxsim::Serve(*server.link, *server.shared, *g_stop);
            return 0;
        }
        catch (const CStdException& e)
        {
            std::fprintf(stderr, "rxsim: %s\n", link::Describe(e).c_str());
        }
        g_stop->Set();
        return 1;
    }

    std::unique_ptr<link::CLink> link;
    rxsim::CSharedReceiver* shared;
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

void Serve(const COptions& options)
{
    CEvent stop(nullptr, TRUE, FALSE, nullptr);
    g_stop = &stop;
    ::SetConsoleCtrlHandler(&OnControl, TRUE);

    std::vector<double> levels;
    if (!options.trace.empty())
        levels = ReadTrace(options.trace);
    rxsim::CSharedReceiver shared{levels.empty() ? rxsim::CReceiver(options.seed) : rxsim::CReceiver(levels), {}};

    CPortServer port{nullptr, &shared};
    CThread thread;
    if (!options.com.empty())
    {
        port.link = link::OpenPort(ustring(options.com, CP_UTF8, 0), options.baud, stop);
        std::printf("on %s\n", options.com.c_str());
        thread.Create(&CPortServer::Run, &port);
    }
    if (options.tcp >= 0)
    {
        const CListener listener(static_cast<unsigned short>(options.tcp));
        std::printf("on port %u\n", listener.Port());
        std::fflush(stdout);
        for (SOCKET socket; (socket = listener.Accept(stop)) != INVALID_SOCKET;)
        {
            const auto link = link::Accepted(socket, stop);
            rxsim::Serve(*link, shared, stop);
            if (options.once)
                break;
        }
        stop.Set();
    }
    std::fflush(stdout);
    if (thread.IsCreated())
        ::WaitForSingleObject(thread, INFINITE);
}
}   // namespace

int main(int count, char** arguments)
{
    COptions options;
    CLI::App app{"A measuring receiver for those who have none at hand."};
    auto* const tcp = app.add_option("--tcp", options.tcp, "TCP port of this machine; 0: any that is free")
                          ->check(CLI::Range(0, 65535));
    auto* const com = app.add_option("--com", options.com, "serial port: COM3:, from COM10 on \\\\.\\COM12");
    app.add_option("--baud", options.baud, "of the serial port")->capture_default_str();
    app.add_option("--trace", options.trace, "file with levels, the last number of each line, in dBm");
    app.add_option("--seed", options.seed, "of the levels that are made up")->capture_default_str();
    app.add_flag("--once", options.once, "end after the first connection")->needs(tcp);
    CLI11_PARSE(app, count, arguments);
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
        std::fprintf(stderr, "rxsim: %s\n", link::Describe(e).c_str());
    }
    return 1;
}
