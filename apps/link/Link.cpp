#include "Link.h"

#include <algorithm>
#include <utility>

namespace link
{
using namespace vantor;

namespace
{
constexpr std::size_t LongestLine = 4096;

[[noreturn]] void Fail(unsigned int line, const wchar_t* function, unsigned long error)
{
    throw CWinException(line, L".\\Link", function, error);
}
}   // namespace

bool CLines::Take(std::string& line)
{
    for (;;)
    {
        const std::size_t end = m_received.find('\n');
        const bool isTooLong = std::min(end, m_received.size()) > LongestLine;
        if (end == m_received.npos && !isTooLong && !m_skipping)
            return false;
        line = m_received.substr(0, end);
        m_received.erase(0, line.size() + 1);
        const bool wasSkipping = std::exchange(m_skipping, end == line.npos);
        if (isTooLong && !wasSkipping)
            Fail(25, L"link::CLines::Receive", ERROR_INVALID_DATA);
        if (m_skipping)
            return false;
        if (wasSkipping)
            continue;
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        return true;
    }
}

bool CLines::Receive(std::string& line, unsigned long time)
{
    const unsigned long start = ::GetTickCount();
    while (!Take(line))
    {
        const unsigned long left = Left(start, time);
        const std::string bytes = m_link.Receive(left);
        if (bytes.empty() && left == 0)
            return false;
        m_received += bytes;
    }
    return true;
}

void CLines::Send(const std::string& line)
{
    m_link.Send(line + "\r\n");
}

unsigned long Left(unsigned long start, unsigned long time)
{
    const unsigned long passed = ::GetTickCount() - start;   // as unsigned numbers: the counter may wrap
    return passed < time ? time - passed : 0;
}

std::string Describe(const CStdException& e)
{
    const CStdException::CExInfo info(e);
    ustring text = info.GetErrorMessageUI();
    CTranslatorInstance::Ref().XlateEx(text);
    text.trim({L'\r', L'\n', L' '});
    ustring whole;
    whole.sprintf(L"%s: %s (%s)", info.GetSource().c_str(), text.c_str(), info.GetFunction().c_str());
    return ustring::WideCharToMultiByte(whole, CP_UTF8, 0);
}
}   // namespace link
