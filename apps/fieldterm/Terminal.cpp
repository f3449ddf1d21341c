#include "Terminal.h"

#include <cstdlib>

namespace fieldterm
{
using namespace vantor;

namespace
{
constexpr wchar_t Place[] = L".\\Terminal";
constexpr unsigned long MostLines = 100000;   // that an answer may announce

[[noreturn]] void FailByTime(unsigned int line)
{
    throw CWinException(line, Place, L"fieldterm::CTerminal::Execute", ERROR_TIMEOUT);
}

bool BeginsWith(const std::string& text, const char* with)
{
    return text.rfind(with, 0) == 0;
}
}   // namespace

// Writes all that passes into the log, as hexadecimal bytes and as text.
class CTerminal::CLoggedLink : public link::CLink
{
public:
    CLoggedLink(std::unique_ptr<link::CLink> inner, CLogFile& log) : m_inner(std::move(inner)), m_log(log) {}
    ~CLoggedLink() noexcept(false) override {}

    std::string Receive(unsigned long time) override
    {
        std::string bytes = m_inner->Receive(time);
        if (!bytes.empty())
            Log("<", bytes);
        return bytes;
    }

    void Send(const std::string& bytes) override
    {
        Log(">", bytes);
        m_inner->Send(bytes);
    }

    void Drop() override { m_inner->Drop(); }

private:
    void Log(const char* direction, const std::string& bytes)
    {
        const auto size = static_cast<unsigned int>(bytes.size());
        m_log.Write(L"%S %S  %S", direction, CLogFile::Bin2Hex(bytes.data(), size).c_str(),
                    CLogFile::Bin2Str(bytes.data(), size).c_str());
    }

    std::unique_ptr<link::CLink> m_inner;
    CLogFile& m_log;
};

CTerminal::CTerminal(CConnect connect, unsigned long time, CLogFile& log)
    : m_connect(std::move(connect)), m_time(time), m_log(log)
{
}

void CTerminal::Connect()
{
    if (m_link)
        return;
    m_link = std::make_unique<CLoggedLink>(m_connect(), m_log);
    m_lines.emplace(*m_link);
    m_late = false;
}

void CTerminal::Disconnect()
{
    m_lines.reset();
    m_link.reset();
}

std::vector<std::string> CTerminal::Execute(const std::string& command)
try
{
    Connect();
    if (m_late)
        Resynchronise();
    m_late = true;   // until the answer is there
    m_lines->Send(command);
    std::vector<std::string> answer = Answer(::GetTickCount());
    m_late = false;
    return answer;
}
catch (const CWinException& e)
{
    // A time-out, a cancelled wait or a line too long leaves the connection as it is.
    const unsigned long error = e.GetErrorCode();
    if (error != ERROR_TIMEOUT && error != ERROR_CANCELLED && error != ERROR_INVALID_DATA)
        Disconnect();
    throw;
}

// An echo with a word of its own: whatever comes before that is from before.
void CTerminal::Resynchronise()
{
    const std::string token = "sync" + std::to_string(++m_token);
    m_lines->Send("");   // ends what half a line may have begun on the other side
    m_lines->Send("echo " + token);
    const unsigned long start = ::GetTickCount();
    while (NextAnswer(start) != "OK " + token)
        ;
    m_late = false;
}

// The next line that is no reading.
std::string CTerminal::NextAnswer(unsigned long start)
{
    std::string line;
    for (;;)
    {
        if (!m_lines->Receive(line, link::Left(start, m_time)))
            FailByTime(107);
        if (!BeginsWith(line, "L "))
            return line;
        m_readings.push_back(line);
    }
}

std::vector<std::string> CTerminal::Answer(unsigned long start)
{
    const std::string first = NextAnswer(start);
    if (!BeginsWith(first, "OK") || (first.size() > 2 && first[2] != ' '))
    {
        m_late = !BeginsWith(first, "{");   // something else may be followed by an answer
        throw CCommException(120, Place, L"fieldterm::CTerminal::Execute", ustring(first, CP_UTF8, 0).c_str(),
                             L"Receiver");
    }
    std::vector<std::string> lines;
    if (!BeginsWith(first, "OK *"))
    {
        if (first.size() > 3)
            lines.push_back(first.substr(3));
        return lines;
    }
    const unsigned long count = std::strtoul(first.c_str() + 4, nullptr, 10);
    if (count > MostLines)
        throw CWinException(132, Place, L"fieldterm::CTerminal::Execute", ERROR_INVALID_DATA);
    while (lines.size() < count)
        lines.push_back(NextAnswer(::GetTickCount()));   // each has the whole time
    return lines;
}

std::string CTerminal::NextReading(unsigned long time)
{
    Connect();
    if (m_readings.empty())
    {
        std::string line;
        const unsigned long start = ::GetTickCount();
        do
        {
            if (!m_lines->Receive(line, link::Left(start, time)))
                FailByTime(147);
        } while (!BeginsWith(line, "L "));
        return line;
    }
    std::string reading = std::move(m_readings.front());
    m_readings.erase(m_readings.begin());
    return reading;
}
}   // namespace fieldterm
