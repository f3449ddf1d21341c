// usage: tcp_client PORT get PATH      prints the answer of a web server on the loopback address, its head included
//        tcp_client PORT echo COUNT    sends so many bytes and compares what comes back; prints the count
//
// For peers_test.py. Exit status 1: the link failed, and its error is printed.

#include <vantor/Exceptions.h>
#include <vantor/Object.h>
#include <vantor/Socket.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <io.h>
#include <string>

using namespace vantor;

namespace
{
constexpr unsigned long long Patience = 10000;

void Connect(CWSASocket& socket, unsigned short port)
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
    address.sin_port = ::htons(port);
    socket.Create(AF_INET, SOCK_STREAM, IPPROTO_TCP, nullptr, 0, WSA_FLAG_OVERLAPPED);
    socket.ConnectLL(&address, sizeof address, nullptr, nullptr, nullptr, nullptr);
}

bool IsReadable(CWSASocket& socket)
{
    fd_set read = {};
    fd_set write = {};
    fd_set except = {};
    FD_SET(socket.m_socket, &read);
    return CWSASocket::Select(read, write, except, Patience) == 1;
}

// Until the server closes the connection.
void Get(CWSASocket& socket, const std::string& path)
{
    const std::string request = "GET " + path + " HTTP/1.0\r\nHost: localhost\r\n\r\n";
    unsigned int count = 0;
    for (std::size_t at = 0; at < request.size(); at += count)
        socket.Send(&request[at], static_cast<unsigned int>(request.size() - at), count, 0, nullptr);
    socket.Shutdown(SD_SEND);

    char buffer[1500];
    unsigned long flags = 0;
    while (IsReadable(socket))
    {
        socket.Recv(buffer, sizeof buffer, count, flags, nullptr);
        if (count == 0)
            return;
        std::fwrite(buffer, 1, count, stdout);
    }
}

// Sends all of it overlapped, while it reads what comes back.
std::size_t Echo(CWSASocket& socket, std::size_t size)
{
    std::string sent(size, '\0');
    unsigned int random = 1;
    for (char& c : sent)
    {
        random = random * 1664525 + 1013904223;
        c = static_cast<char>(random >> 24);
    }
    CWSAOverlapped ov;
    unsigned int count = 0;
    socket.Send(sent.data(), static_cast<unsigned int>(size), count, 0, &ov);

    std::string received(size, '\0');
    std::size_t at = 0;
    while (at < size && IsReadable(socket))
    {
        unsigned long flags = 0;
        socket.Recv(&received[at], static_cast<unsigned int>(std::min<std::size_t>(size - at, 1 << 16)), count, flags,
                    nullptr);
        if (count == 0)
            break;
        at += count;
    }
    unsigned long flags = 0;
    socket.GetOverlappedResult(&ov, count, TRUE, flags);
    return received == sent ? count : 0;
}
}   // namespace

int main(int argc, char** argv)
{
    if (argc != 4)
        return 2;
    _setmode(_fileno(stdout), _O_BINARY);
    WSADATA data;
    ::WSAStartup(MAKEWORD(2, 2), &data);
    int result = 0;
    try
    {
        CWSASocket socket;
        Connect(socket, static_cast<unsigned short>(std::atoi(argv[1])));
        if (std::string(argv[2]) == "get")
            Get(socket, argv[3]);
        else
            std::printf("%lu\n", static_cast<unsigned long>(Echo(socket, std::strtoul(argv[3], nullptr, 10))));
    }
    catch (const CWinException& e)
    {
        std::printf("%ls %lu\n", e.GetFunction().c_str(), e.GetErrorCode());
        result = 1;
    }
    ::WSACleanup();
    return result;
}
