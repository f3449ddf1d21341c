#include "Receiver.h"

#include <vantor/vantor.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>

namespace rxsim
{
using namespace vantor;

namespace
{
struct CRange
{
    const char* name;
    long lowest, highest;
};
constexpr CRange Ranges[] = {{"interval", 1, 10000}, {"points", 2, 1001}, {"start", 9, 6000000}, {"stop", 9, 6000000}};

std::vector<std::string> Words(const std::string& line)
{
    std::vector<std::string> words;
    for (std::size_t at = line.find_first_not_of(' '); at != line.npos;)
    {
        const std::size_t end = line.find(' ', at);
        words.push_back(line.substr(at, end - at));
        at = line.find_first_not_of(' ', end);
    }
    return words;
}

// Eight characters and three, as on cards of old.
bool IsFileName(const std::string& name)
{
    const std::size_t dot = name.find('.');
    const std::string stem = name.substr(0, dot);
    const std::string extension = dot == name.npos ? "" : name.substr(dot + 1);
    const auto isPlain = [](unsigned char ch) { return ch < 128 && (std::isalnum(ch) || ch == '_' || ch == '-'); };
    return !stem.empty() && stem.size() <= 8 && extension.size() <= 3 &&
           std::all_of(stem.begin(), stem.end(), isPlain) && std::all_of(extension.begin(), extension.end(), isPlain);
}

bool IsWholeNumber(const std::string& text)
{
    return !text.empty() && text.size() <= 9 && text.find_first_not_of("0123456789") == text.npos;
}

std::string Fixed(double value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.1f", value);
    return text;
}
}   // namespace

std::string Reply(EReply row)
{
    return ustring::WideCharToMultiByte(CCommException::m_aINT2UI[row].replyText, CP_UTF8, 0);
}

std::string CReceiver::Execute(const std::string& command)
{
    const CWords words = Words(command);
    const std::string name = words.empty() ? "" : words[0];
    if (name == "ident")
        return "OK RXSIM,1.0,0042";
    if (name == "echo")
        return words.size() < 2 ? Reply(eFirstMissed) : "OK " + words[1];
    if (name == "get")
        return Get(words);
    if (name == "set")
        return Set(words);
    if (name == "sweep")
        return Sweep(words);
    if (name == "save")
        return Save(words);
    if (name == "read")
        return Read(words);
    if (name == "list")
        return List();
    if (name == "remove")
        return Remove(words);
    return Reply(eWrongCommand);
}

std::string CReceiver::Get(const CWords& words) const
{
    if (words.size() < 2)
        return Reply(eFirstMissed);
    const auto parameter = m_parameters.find(words[1]);
    return parameter == m_parameters.end() ? Reply(eWrongFirst) : "OK " + std::to_string(parameter->second);
}

std::string CReceiver::Set(const CWords& words)
{
    if (words.size() < 2)
        return Reply(eFirstMissed);
    const auto range = std::find_if(std::begin(Ranges), std::end(Ranges),
                                    [&words](const CRange& each) { return words[1] == each.name; });
    if (range == std::end(Ranges))
        return Reply(eWrongFirst);
    if (words.size() < 3)
        return Reply(eValueMissed);
    if (!IsWholeNumber(words[2]))
        return Reply(eWrongSecond);
    if (m_sweeping)
        return Reply(eInProgress);
    const long value = std::stol(words[2]);
    if (value < range->lowest || value > range->highest)
        return Reply(eOutOfRange);
    m_parameters[words[1]] = value;
    return "OK";
}

std::string CReceiver::Sweep(const CWords& words)
{
    if (words.size() < 2)
        return Reply(eFirstMissed);
    if (words[1] == "start")
    {
        if (m_sweeping)
            return Reply(eInProgress);
        m_sweeping = true;
        m_count = 0;
        return "OK";
    }
    if (words[1] == "stop")
    {
        if (!m_sweeping)
            return Reply(eNotSupported);
        m_sweeping = false;
        return "OK " + std::to_string(m_count);
    }
    return Reply(eWrongFirst);
}

std::string CReceiver::NextReading()
{
    const long index = m_count++ % m_parameters.at("points");
    const long frequency = Frequency(index);
    return "L " + std::to_string(index) + " " + std::to_string(frequency) + " " + Fixed(Level(frequency));
}

std::string CReceiver::Save(const CWords& words)
{
    if (words.size() < 2)
        return Reply(eFirstMissed);
    if (!IsFileName(words[1]))
        return Reply(eWrongFileName);
    if (m_card.count(words[1]) != 0)
        return Reply(eFileExists);
    std::string& content = m_card[words[1]];
    for (long index = 0; index < m_parameters.at("points"); ++index)
        content += std::to_string(Frequency(index)) + ";" + Fixed(Level(Frequency(index))) + "\r\n";
    return "OK";
}

std::string CReceiver::Read(const CWords& words) const
{
    if (words.size() < 2)
        return Reply(eFirstMissed);
    const auto file = m_card.find(words[1]);
    if (file == m_card.end())
        return Reply(eFileOpenError);
    const std::string& content = file->second;
    const auto lines = std::count(content.begin(), content.end(), '\n');
    return "OK *" + std::to_string(lines) + "\r\n" + content.substr(0, content.size() - 2);
}

std::string CReceiver::List() const
{
    std::string answer = "OK *" + std::to_string(m_card.size());
    for (const auto& [name, content] : m_card)
        answer += "\r\n" + name + ";" + std::to_string(content.size());
    return answer;
}

std::string CReceiver::Remove(const CWords& words)
{
    if (words.size() < 2)
        return Reply(eFirstMissed);
    return m_card.erase(words[1]) == 0 ? Reply(eCannotRemove) : "OK";
}

long CReceiver::Frequency(long index) const
{
    const long start = m_parameters.at("start");
    const long long span = m_parameters.at("stop") - start;
    return start + static_cast<long>(span * index / (m_parameters.at("points") - 1));
}

// Made up: noise around -95 dBm, and two transmitters, at 94.3 and at 101.1 MHz.
double CReceiver::Level(long frequency)
{
    if (!m_trace.empty())
        return m_trace[m_traceAt++ % m_trace.size()];
    double level = -95.0 + static_cast<double>(m_random() % 31) / 10;
    for (const auto& [centre, height] : {std::pair(94300.0, 52.0), std::pair(101100.0, 38.0)})
    {
        const double distance = (static_cast<double>(frequency) - centre) / 400;
        level += height / (1 + distance * distance);
    }
    return level;
}
}   // namespace rxsim
