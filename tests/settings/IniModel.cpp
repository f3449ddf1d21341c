#include "IniModel.h"

#include <wchar.h>

namespace settings_test
{
namespace
{
bool Same(const std::wstring& a, const std::wstring& b)
{
    return ::_wcsicmp(a.c_str(), b.c_str()) == 0;
}

std::wstring FromUtf16(const std::string& bytes)
{
    std::wstring text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
    {
        const auto low = static_cast<unsigned char>(bytes[i]);
        const auto high = static_cast<unsigned char>(bytes[i + 1]);
        text += static_cast<wchar_t>(high << 8 | low);
    }
    return text;
}

std::string ToUtf16(const std::wstring& text)
{
    std::string bytes;
    for (const wchar_t ch : text)
    {
        bytes += static_cast<char>(ch & 0xFF);
        bytes += static_cast<char>(ch >> 8);
    }
    return bytes;
}

std::vector<std::wstring> CutIntoLines(const std::wstring& text)
{
    std::vector<std::wstring> lines;
    std::wstring line;
    bool begun = false;
    for (const wchar_t ch : text)
    {
        if (ch == L'\r')
            continue;
        begun = ch != L'\n';
        if (begun)
        {
            line += ch;
            continue;
        }
        lines.push_back(line);
        line.clear();
    }
    if (begun)
        lines.push_back(line);
    if (!lines.empty() && lines.back().empty())
        lines.pop_back();
    return lines;
}

std::wstring Decimal(int value)
{
    return std::to_wstring(value);
}
}   // namespace

CClassified Classify(const std::wstring& line)
{
    std::wstring s;
    for (const wchar_t ch : line)
    {
        if (ch == L';')
            break;
        s += ch;
    }
    std::size_t open = 0, close = 0;
    while (open < s.size() && s[open] != L'[')
        ++open;
    while (close < s.size() && s[close] != L']')
        ++close;
    if (open < s.size() && close < s.size() && open < close)
        return {true, s.substr(open + 1, close - open - 1), L""};

    std::vector<std::wstring> pieces(1);
    for (const wchar_t ch : s)
    {
        if (ch == 0)   // what is split is a terminated text
            break;
        if (ch == L'=')
            pieces.emplace_back();
        else
            pieces.back() += ch;
    }
    return {false, pieces[0], pieces.size() > 1 ? pieces[1] : L""};
}

std::wstring FromUtf8(const std::string& bytes)
{
    std::wstring text;
    for (std::size_t i = 0; i < bytes.size();)
    {
        const unsigned int lead = static_cast<unsigned char>(bytes[i++]);
        int more = 0;
        unsigned int code = lead;
        if (lead >= 0xF0)
        {
            more = 3;
            code = lead & 0x07;
        }
        else if (lead >= 0xE0)
        {
            more = 2;
            code = lead & 0x0F;
        }
        else if (lead >= 0xC0)
        {
            more = 1;
            code = lead & 0x1F;
        }
        for (; more > 0 && i < bytes.size(); --more)
            code = code << 6 | (static_cast<unsigned char>(bytes[i++]) & 0x3F);
        if (code >= 0x10000)
        {
            text += static_cast<wchar_t>(0xD800 + ((code - 0x10000) >> 10));
            text += static_cast<wchar_t>(0xDC00 + (code & 0x3FF));
        }
        else
            text += static_cast<wchar_t>(code);
    }
    return text;
}

std::string ToUtf8(const std::wstring& text)
{
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        unsigned int code = text[i];
        if (code >= 0xD800 && code < 0xDC00 && i + 1 < text.size())
            code = 0x10000 + ((code - 0xD800) << 10) + (static_cast<unsigned int>(text[++i]) - 0xDC00);
        if (code < 0x80)
        {
            bytes += static_cast<char>(code);
            continue;
        }
        int shift = 6;
        if (code < 0x800)
            bytes += static_cast<char>(0xC0 | code >> 6);
        else if (code < 0x10000)
        {
            bytes += static_cast<char>(0xE0 | code >> 12);
            shift = 12;
        }
        else
        {
            bytes += static_cast<char>(0xF0 | code >> 18);
            shift = 18;
        }
        for (shift -= 6; shift >= 0; shift -= 6)
            bytes += static_cast<char>(0x80 | (code >> shift & 0x3F));
    }
    return bytes;
}

void CIniModel::Load()
{
    m_unicode = m_disk.size() >= 2 && m_disk[0] == '\xFF' && m_disk[1] == '\xFE';
    if (m_unicode)
        m_lines = CutIntoLines(FromUtf16(m_disk.substr(2)));
    else
        m_lines = CutIntoLines(FromUtf8(m_disk.c_str()));   // up to a NUL
}

void CIniModel::Save()
{
    m_disk = m_unicode ? "\xFF\xFE" : "";
    for (const std::wstring& line : m_lines)
    {
        if (m_unicode)
            m_disk += ToUtf16(line + L"\r\n");
        else
            m_disk += ToUtf8(line) + "\r\n";
    }
}

std::vector<std::wstring> CIniModel::EnumSections()
{
    Load();
    std::vector<std::wstring> sections;
    for (const std::wstring& line : m_lines)
    {
        const CClassified c = Classify(line);
        if (c.header)
            sections.push_back(c.name);
    }
    return sections;
}

std::vector<std::wstring> CIniModel::EnumEntries(const std::wstring& section)
{
    Load();
    std::vector<std::wstring> keys;
    bool inside = false;
    for (const std::wstring& line : m_lines)
    {
        const CClassified c = Classify(line);
        if (c.header && inside)
            break;
        if (c.header)
            inside = Same(c.name, section);
        else if (inside)
            keys.push_back(c.name);
    }
    return keys;
}

std::wstring CIniModel::GetString(const std::wstring& section, const std::wstring& key,
                                  const std::wstring& defaultValue)
{
    Load();
    std::wstring current;
    for (const std::wstring& line : m_lines)
    {
        const CClassified c = Classify(line);
        if (c.header)
        {
            if (Same(current, section))
                return defaultValue;
            current = c.name;
        }
        else if (Same(current, section) && Same(c.name, key))
            return c.value;
    }
    return defaultValue;
}

int CIniModel::GetInt(const std::wstring& section, const std::wstring& key, int defaultValue)
{
    return static_cast<int>(::_wtol(GetString(section, key, Decimal(defaultValue)).c_str()));
}

void CIniModel::WriteString(const std::wstring& section, const std::wstring& key, const std::wstring& value)
{
    const std::wstring entry = key + L"=" + value;
    Load();
    std::wstring current;
    for (std::size_t i = 0; i < m_lines.size(); ++i)
    {
        const CClassified c = Classify(m_lines[i]);
        if (c.header)
        {
            if (Same(current, section))
            {
                m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(i), entry);
                Save();
                return;
            }
            current = c.name;
        }
        else if (Same(current, section) && Same(c.name, key))
        {
            m_lines[i] = entry;
            Save();
            return;
        }
    }
    if (!Same(current, section))
        m_lines.push_back(L"[" + section + L"]");
    m_lines.push_back(entry);
    Save();
}

void CIniModel::WriteInt(const std::wstring& section, const std::wstring& key, int value)
{
    WriteString(section, key, Decimal(value));
}

bool CIniModel::DeleteSection(const std::wstring& section)
{
    Load();
    std::vector<std::wstring> kept;
    bool found = false;
    bool deleting = false;
    for (const std::wstring& line : m_lines)
    {
        const CClassified c = Classify(line);
        if (c.header)
            deleting = !found && Same(c.name, section);
        found = found || deleting;
        if (!deleting)
            kept.push_back(line);
    }
    if (!found)
        return false;
    m_lines = kept;
    Save();
    return true;
}

bool CIniModel::DeleteEntry(const std::wstring& section, const std::wstring& key)
{
    Load();
    std::wstring current;
    for (std::size_t i = 0; i < m_lines.size(); ++i)
    {
        const CClassified c = Classify(m_lines[i]);
        if (c.header)
        {
            if (Same(current, section))
                return false;
            current = c.name;
        }
        else if (Same(current, section) && Same(c.name, key))
        {
            m_lines.erase(m_lines.begin() + static_cast<std::ptrdiff_t>(i));
            Save();
            return true;
        }
    }
    return false;
}
}   // namespace settings_test
