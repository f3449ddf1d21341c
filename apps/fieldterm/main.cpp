// fieldterm: talks to a receiver over TCP or a serial port. Commands come from the command line or, without any, line
// by line from the input. "watch N" prints the next N readings of a sweep.

#include "CommandLine.h"
#include "Terminal.h"

#include <cstdio>
#include <iostream>

namespace
{
using namespace vantor;

// Set by Ctrl-C: whatever is waited for ends with an exception.
CEvent& Cancel()
{
    static CEvent cancel(nullptr, TRUE, FALSE, nullptr);
    return cancel;
}

BOOL WINAPI OnControl(DWORD) noexcept
{
    Cancel().Set();
    return TRUE;
}

struct COptions
{
    std::string tcp, com, log;
    unsigned int baud = 115200;
    unsigned long time = 2000;
    std::vector<std::string> commands;
};

std::unique_ptr<link::CLink> Connect(const COptions& options)
{
    if (!options.com.empty())
        return link::OpenPort(ustring(options.com, CP_UTF8, 0), options.baud, Cancel());
    const std::size_t colon = options.tcp.rfind(':');
    return link::Connect(options.tcp.substr(0, colon).c_str(),
                         static_cast<unsigned short>(std::stoul(options.tcp.substr(colon + 1))), options.time,
                         Cancel());
}

std::string CheckHost(const std::string& text)
{
    const std::size_t colon = text.rfind(':');
    const std::string port = colon == text.npos ? "" : text.substr(colon + 1);
    const bool isNumber = !port.empty() && port.size() < 6 && port.find_first_not_of("0123456789") == port.npos;
    return isNumber && colon != 0 && std::stoul(port) < 65536 ? "" : "HOST:PORT is wanted, not " + text;
}

class CConsole
{
public:
    explicit CConsole(fieldterm::CTerminal& terminal) : m_terminal(terminal) {}

    // False when there is nothing more to do.
    bool Execute(const std::string& command)
    try
    {
        std::printf("> %s\n", command.c_str());
        if (command.rfind("watch ", 0) == 0)
            Watch(command.substr(6));
        else
            Print(m_terminal.Execute(command));
        return true;
    }
    catch (const CWinException& e)
    {
        Report(e);
        return e.GetErrorCode() != ERROR_CANCELLED;
    }
    catch (const CStdException& e)
    {
        Report(e);
        return true;
    }

    bool HasFailed() const { return m_failed; }

private:
    void Watch(const std::string& number)
    {
        constexpr unsigned long longestInterval = 15000;   // milliseconds; a receiver's is at most ten seconds
        const bool isNumber =
            !number.empty() && number.size() < 10 && number.find_first_not_of("0123456789") == number.npos;
        if (!isNumber)
        {
            std::puts("! watch wants a number");
            m_failed = true;
        }
        for (unsigned long count = isNumber ? std::stoul(number) : 0; count > 0; --count)
            Print({m_terminal.NextReading(longestInterval)});
    }

    static void Print(const std::vector<std::string>& lines)
    {
        for (const std::string& line : lines)
            std::printf("  %s\n", line.c_str());
        if (lines.empty())
            std::puts("  done");
        std::fflush(stdout);
    }

    void Report(const CStdException& e)
    {
        std::printf("! %s\n", link::Describe(e).c_str());
        std::fflush(stdout);
        m_failed = true;
    }

    fieldterm::CTerminal& m_terminal;
    bool m_failed = false;
};

int Run(const COptions& options)
{
    ::SetConsoleCtrlHandler(&OnControl, TRUE);

    CLogFile log;
    if (!options.log.empty() && !log.Open(ustring(options.log, CP_UTF8, 0).c_str()))
    {
        std::fprintf(stderr, "fieldterm: the log %s cannot be opened\n", options.log.c_str());
        return 2;
    }
    fieldterm::CTerminal terminal([&options] { return Connect(options); }, options.time, log);
    CConsole console(terminal);
    if (!options.commands.empty())
    {
        for (const std::string& command : options.commands)
        {
            if (!console.Execute(command))
                break;
        }
    }
    else
    {
        for (std::string line; std::getline(std::cin, line);)
        {
            if (!line.empty() && line.back() == '\r')
                line.pop_back();
            if (!line.empty() && !console.Execute(line))
                break;
        }
    }
    return console.HasFailed() ? 1 : 0;
}
}   // namespace

int wmain(int count, wchar_t** arguments)
{
    COptions options;
    CLI::App app{"Talks to a receiver. Ends with 1 if a command failed.", "fieldterm"};
    auto* const tcp = app.add_option("--tcp", options.tcp, "HOST:PORT")->check(CheckHost);
    auto* const com =
        app.add_option("--com", options.com, "serial port: COM3:, from COM10 on \\\\.\\COM12")->excludes(tcp);
    app.add_option("--baud", options.baud, "of the serial port")->capture_default_str();
    app.add_option("--timeout", options.time, "milliseconds for each answer")
        ->check(CLI::Range(1UL, 600000UL))
        ->capture_default_str();
    app.add_option("--log", options.log, "file that the traffic is appended to");
    app.add_option("commands", options.commands, "what the receiver is told; without any: the lines of the input");
    if (const int result = command_line::Parse(app, count, arguments))
        return result < 0 ? 0 : result;
    if (tcp->empty() && com->empty())
    {
        std::fputs("fieldterm: needs --tcp or --com (--help says more)\n", stderr);
        return 2;
    }

    WSADATA data;
    ::WSAStartup(MAKEWORD(2, 2), &data);
    ::SetConsoleOutputCP(CP_UTF8);
    try
    {
        return Run(options);
    }
    catch (const CStdException& e)
    {
        std::fprintf(stderr, "fieldterm: %s\n", link::Describe(e).c_str());
    }
    catch (const std::exception& e)
    {
        std::fprintf(stderr, "fieldterm: %s\n", e.what());
    }
    return 2;
}
