#include "Terminal.h"

#include <utility>

namespace fieldterm
{
using namespace vantor;

namespace
{
constexpr wchar_t Place[] = L".\\Terminal";
constexpr unsigned long MostLines = 100000;   // that an answer may announce
constexpr std::size_t MostReadings = 10000;   // that are kept

[[noreturn]] void FailByTime(unsigned int line)
{
    throw CWinException(line, Place, L"fieldterm::CTerminal::Execute", ERROR_TIMEOUT);
}

// Of "OK *count"; a garbled one is more than anybody may announce.
unsigned long LineCount(const std::string& text)
{
    if (text.empty() || text.size() > 9 || text.find_first_not_of("0123456789") != text.npos)
        return MostLines + 1;
    return std::stoul(text);
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

void CTerminal::Disconnect()
{
    m_lines.reset();
    m_link.reset();
}

// Makes the connection if there is none, and gives it up if the operation fails in a way that a connection does not
// survive. Time-outs, cancelled waits and lines too long leave it as it is.
template <class Operation>
auto CTerminal::OnConnection(Operation operation) -> decltype(operation())
try
{
    if (!m_link)
    {
        m_link = std::make_unique<CLoggedLink>(m_connect(), m_log);
        m_lines.emplace(*m_link);
        m_late = false;
    }
    return operation();
}
catch (const CWinException& e)
{
    const unsigned long error = e.GetErrorCode();
    if (error != ERROR_TIMEOUT && error != ERROR_CANCELLED && error != ERROR_INVALID_DATA)
        Disconnect();
    throw;
}

// Nobody knows how much of a line that failed has gone.
void CTerminal::Send(const std::string& line)
try
{
    m_lines->Send(line);
}
catch (const CStdException&)
{
    Disconnect();
    throw;
}

std::string CTerminal::Receive(unsigned long start, unsigned long time)
{
    std::string line;
    if (!m_lines->Receive(line, link::Left(start, time)))
        FailByTime(96);
    return line;
}

std::vector<std::string> CTerminal::Execute(const std::string& command)
{
    return OnConnection(
        [&]
        {
            if (m_late)
                Resynchronise();
            m_late = true;   // until the answer is there
            Send(command);
            std::vector<std::string> answer = Answer(::GetTickCount());
            m_late = false;
            return answer;
        });
}

// An echo with a word of its own: whatever comes before that is from before.
void CTerminal::Resynchronise()
{
    const std::string token = "sync" + std::to_string(++m_token);
    Send("");   // ends what half a line may have begun on the other side
    Send("echo " + token);
    const unsigned long start = ::GetTickCount();
    while (NextAnswer(start) != "OK " + token)
        ;
    m_late = false;
}

// The next line that is no reading. Readings that come faster than they are taken do not stop the clock.
std::string CTerminal::NextAnswer(unsigned long start)
{
    for (;;)
    {
        std::string line = Receive(start, m_time);
        if (!BeginsWith(line, "L "))
            return line;
        m_readings.push_back(std::move(line));
        if (m_readings.size() > MostReadings)
            m_readings.pop_front();
        if (link::Left(start, m_time) == 0)
            FailByTime(139);
    }
}

std::vector<std::string> CTerminal::Answer(unsigned long start)
{
    const std::string first = NextAnswer(start);
    const bool isOk = first == "OK" || BeginsWith(first, "OK ");
    const bool hasLines = BeginsWith(first, "OK *");
    const unsigned long count = hasLines ? LineCount(first.substr(4)) : 0;
    if (!isOk || count > MostLines)
    {
        m_late = !BeginsWith(first, "{");   // something else may be followed by an answer
        throw CCommException(152, Place, L"fieldterm::CTerminal::Execute", ustring(first, CP_UTF8, 0).c_str(),
                             L"Receiver");
    }
    std::vector<std::string> lines;
    if (!hasLines && first.size() > 3)
        lines.push_back(first.substr(3));
    while (lines.size() < count)
        lines.push_back(NextAnswer(::GetTickCount()));   // each has the whole time
    return lines;
}

std::string CTerminal::NextReading(unsigned long time)
{
    if (!m_readings.empty())
    {
        std::string reading = std::move(m_readings.front());
        m_readings.pop_front();
        return reading;
    }
    return OnConnection(
        [&]
        {
            const unsigned long start = ::GetTickCount();
            for (;;)
            {
                std::string line = Receive(start, time);
                if (BeginsWith(line, "L "))
                    return line;
                if (link::Left(start, time) == 0)
                    FailByTime(181);
            }
        });
}
}   // namespace fieldterm
