#include "../platform/Calls.h"

#include <vantor/IniFile.h>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace vantor
{
namespace
{
constexpr wchar_t Mark = 0xFEFF;
constexpr wchar_t LineEnd[] = L"\r\n";

// What a line is, as views of it: most lines that a walk passes are only looked at.
struct CLineParts
{
    explicit CLineParts(std::wstring_view line)
    {
        const std::wstring_view text = line.substr(0, line.find(L';'));
        const std::size_t open = text.find(L'[');
        const std::size_t close = text.find(L']');
        isSection = open < close && close != text.npos;
        if (isSection)
        {
            name = text.substr(open + 1, close - open - 1);
            return;
        }
        const std::wstring_view entry = text.substr(0, text.find(L'\0'));
        const std::size_t equals = entry.find(L'=');
        name = entry.substr(0, equals);
        if (equals == entry.npos)
            return;
        value = entry.substr(equals + 1);
        value = value.substr(0, value.find(L'='));
    }

    bool IsSection(const wchar_t* wanted) const { return isSection && IsNamed(wanted); }

    // As _wcsicmp finds it, for which a name ends at a NUL.
    bool IsNamed(const wchar_t* wanted) const
    {
        const std::size_t length = std::min(name.find(L'\0'), name.size());
        return ::_wcsnicmp(name.data(), wanted, length) == 0 && wanted[length] == 0;
    }

    bool isSection;
    std::wstring_view name, value;
};

using CLines = std::list<ustring>;

// Cuts a text at its line feeds. One at its end begins no line, and one empty last line is dropped.
CLines Lines(ustring text)
{
    text.erase(std::remove(text.begin(), text.end(), L'\r'), text.end());
    CLines lines;
    for (std::size_t begin = 0; begin < text.size();)
    {
        const std::size_t end = std::min(text.find(L'\n', begin), text.size());
        lines.emplace_back().assign(text, begin, end - begin);
        begin = end + 1;
    }
    if (!lines.empty() && lines.back().empty())
        lines.pop_back();
    return lines;
}

// Where an entry stands; without one, where its section ends, or, outside of it, the end.
struct CPlace
{
    CLines::iterator line;
    bool found;
    bool inSection;
};

// The first header of this name; the end if there is none.
CLines::iterator FindSection(CLines& lines, const wchar_t* section)
{
    return std::find_if(lines.begin(), lines.end(),
                        [section](const ustring& line) { return CLineParts(line).IsSection(section); });
}

CPlace FindEntry(CLines& lines, const wchar_t* section, const wchar_t* key)
{
    bool inSection = *section == 0;
    auto line = lines.begin();
    for (; line != lines.end(); ++line)
    {
        const CLineParts parts(*line);
        if (parts.isSection)
        {
            if (inSection)
                break;
            inSection = parts.IsNamed(section);
        }
        else if (inSection && parts.IsNamed(key))
            return {line, true, true};
    }
    return {line, false, inSection};
}

std::string ReadAll(CFile& file)
{
    std::string bytes;
    char block[512];
    unsigned int done = 0;
    file.Seek(0, FILE_BEGIN);
    while (file.Read(block, sizeof block, done, nullptr), done != 0)
        bytes.append(block, done);
    return bytes;
}
}   // namespace

CIniFile::CIniFile(const wchar_t* fileName)
    : m_fileName(fileName),
      m_unicode(false),
      m_file(m_fileName.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
             FILE_ATTRIBUTE_NORMAL, nullptr)
{
}

CIniFile::~CIniFile() noexcept(false) {}

void CIniFile::EnumSections(std::vector<ustring>& sections)
{
    sections.clear();
    Load();
    for (const ustring& line : m_lines)
    {
        const CLineParts parts(line);
        if (parts.isSection)
            sections.emplace_back().assign(parts.name);
    }
}

void CIniFile::EnumEntries(const wchar_t* section, std::vector<ustring>& keys)
{
    const ustring wanted = section;   // the vector may hold it
    keys.clear();
    Load();
    const auto header = FindSection(m_lines, wanted.c_str());
    if (header == m_lines.end())
        return;
    for (auto line = std::next(header); line != m_lines.end(); ++line)
    {
        const CLineParts parts(*line);
        if (parts.isSection)
            return;
        keys.emplace_back().assign(parts.name);
    }
}

ustring CIniFile::GetString(const wchar_t* section, const wchar_t* key, const wchar_t* defaultValue)
{
    Load();
    const CPlace place = FindEntry(m_lines, OrEmpty(section), OrEmpty(key));
    if (!place.found)
        return defaultValue;
    return std::wstring(CLineParts(*place.line).value);
}

int CIniFile::GetInt(const wchar_t* section, const wchar_t* key, int defaultValue)
{
    ustring text;
    text.sprintf(L"%d", defaultValue);
    return static_cast<int>(::_wtol(GetString(section, key, text.c_str()).c_str()));
}

bool CIniFile::WriteString(const wchar_t* section, const wchar_t* key, const wchar_t* value)
{
    ustring entry = ustring(key) + L'=' + value;
    Load();
    const CPlace place = FindEntry(m_lines, OrEmpty(section), OrEmpty(key));
    if (place.found)
        *place.line = std::move(entry);
    else
    {
        if (!place.inSection)
            m_lines.push_back(L'[' + ustring(section) + L']');
        m_lines.insert(place.line, std::move(entry));
    }
    Save();
    return true;
}

bool CIniFile::WriteInt(const wchar_t* section, const wchar_t* key, int value)
{
    ustring text;
    text.sprintf(L"%d", value);
    return WriteString(section, key, text.c_str());
}

bool CIniFile::DeleteSection(const wchar_t* section)
{
    Load();
    const auto header = FindSection(m_lines, OrEmpty(section));
    if (header == m_lines.end())
        return false;
    const auto next =
        std::find_if(std::next(header), m_lines.end(), [](const ustring& line) { return CLineParts(line).isSection; });
    m_lines.erase(header, next);
    Save();
    return true;
}

bool CIniFile::DeleteEntry(const wchar_t* section, const wchar_t* key)
{
    Load();
    const CPlace place = FindEntry(m_lines, OrEmpty(section), OrEmpty(key));
    if (!place.found)
        return false;
    m_lines.erase(place.line);
    Save();
    return true;
}

void CIniFile::Load()
{
    const std::string bytes = ReadAll(m_file);
    m_unicode = bytes.compare(0, 2, "\xFF\xFE") == 0;
    ustring text;
    if (m_unicode)
    {
        text.resize(bytes.size() / sizeof(wchar_t) - 1);
        std::memcpy(text.data(), bytes.data() + sizeof(wchar_t), text.size() * sizeof(wchar_t));
    }
    else
        text = ustring::MultiByteToWideChar(bytes.c_str(), 0xFFFFFFFF, CP_UTF8, 0);
    m_lines = Lines(std::move(text));
}

void CIniFile::Save()
{
    // All that can fail without the file comes first, and then one call of the system for all lines.
    ustring text;
    if (m_unicode)
        text = Mark;
    for (const ustring& line : m_lines)
    {
        text += line;
        text += LineEnd;
    }
    const std::string narrow = m_unicode ? std::string() : ustring::WideCharToMultiByte(text, CP_UTF8, 0);
    const void* const bytes = m_unicode ? static_cast<const void*>(text.data()) : narrow.data();
    const std::size_t size = m_unicode ? text.size() * sizeof(wchar_t) : narrow.size();

    m_file.SetLength(0);
    m_file.Seek(0, FILE_BEGIN);
    unsigned int done = 0;
    if (size != 0)
        m_file.Write(bytes, static_cast<unsigned int>(size), done, nullptr);
}

CIniFile::EType CIniFile::TranslateSection(const ustring& line, ustring& name, ustring& value)
{
    const CLineParts parts(line);
    ustring newName, newValue;   // first both: name or value may be the line
    newName.assign(parts.name);
    newValue.assign(parts.value);
    name.swap(newName);
    value.swap(newValue);
    return parts.isSection ? eSection : eEntry;
}
}   // namespace vantor
