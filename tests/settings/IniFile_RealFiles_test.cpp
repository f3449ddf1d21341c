// INI files that the machine has: each is copied, and one value of the copy changed.

#include "IniModel.h"
#include "IniTest.h"

#include <algorithm>

using namespace vantor;
using namespace settings_test;

namespace
{
// The first two are the system's own, wherever it is; behind Z: stands the host of a Wine machine.
const wchar_t* const Masks[] = {L"C:\\windows\\win.ini",
                                L"C:\\windows\\system.ini",
                                L"C:\\windows\\inf\\*.inf",
                                L"Z:\\usr\\share\\applications\\*.desktop",
                                L"Z:\\etc\\xdg\\autostart\\*.desktop",
                                L"Z:\\etc\\*.ini",
                                L"Z:\\etc\\*.conf",
                                L"Z:\\usr\\share\\wine\\*.inf"};

std::vector<std::wstring> Paths()
{
    std::vector<std::wstring> paths;
    for (const std::wstring mask : Masks)
    {
        WIN32_FIND_DATAW entry;
        const HANDLE search = ::FindFirstFileW(mask.c_str(), &entry);
        if (search == INVALID_HANDLE_VALUE)
            continue;
        do
        {
            if (!(entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY))
                paths.push_back(mask.substr(0, mask.rfind(L'\\') + 1) + entry.cFileName);
        } while (::FindNextFileW(search, &entry));
        ::FindClose(search);
    }
    return paths;
}

bool IsText(const std::string& bytes)
{
    return !bytes.empty() && bytes.compare(0, 2, "\xFF\xFE") != 0 && bytes.find('\0') == bytes.npos &&
           ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), static_cast<int>(bytes.size()), nullptr,
                                 0);
}

std::vector<std::wstring> LinesOf(const std::wstring& text)
{
    std::vector<std::wstring> lines(1);
    for (const wchar_t ch : text)
    {
        if (ch == L'\n')
            lines.emplace_back();
        else if (ch != L'\r')
            lines.back() += ch;
    }
    // What follows the last line's end is no line; and an empty last line goes.
    for (int i = 0; i < 2 && !lines.empty() && lines.back().empty(); ++i)
        lines.pop_back();
    return lines;
}

struct CEntry
{
    std::wstring section, key, value;
    std::size_t line;
};

bool Same(const std::wstring& a, const std::wstring& b)
{
    return ::_wcsicmp(a.c_str(), b.c_str()) == 0;
}

// Every entry with a key that nothing before it hides: its section and its key occur there for the first time.
std::vector<CEntry> Entries(const std::vector<std::wstring>& lines)
{
    std::vector<CEntry> entries;
    std::vector<std::wstring> sections(1);
    std::size_t begin = 0;   // of the section in the entries
    bool hidden = false;
    for (std::size_t line = 0; line < lines.size(); ++line)
    {
        const CClassified c = Classify(lines[line]);
        const auto isName = [&](const std::wstring& section) { return Same(section, c.name); };
        const auto isKey = [&](const CEntry& entry) { return Same(entry.key, c.name); };
        if (c.header)
        {
            hidden = std::any_of(sections.begin(), sections.end(), isName);
            sections.push_back(c.name);
            begin = entries.size();
        }
        else if (!hidden && !c.name.empty() &&
                 std::none_of(entries.begin() + static_cast<std::ptrdiff_t>(begin), entries.end(), isKey))
            entries.push_back({sections.back(), c.name, c.value, line});
    }
    return entries;
}

// Read as people read it: a header is a line in brackets, an entry a line with an equals sign, a comment a line that
// begins with a semicolon. False if CIniFile is to read a line differently.
bool ReadConventionally(const std::vector<std::wstring>& lines, std::vector<std::wstring>& sections,
                        std::vector<CEntry>& entries)
{
    std::wstring section;
    for (std::size_t i = 0; i < lines.size(); ++i)
    {
        const std::wstring& line = lines[i];
        if (line.empty() || line[0] == L';')
            continue;
        const bool header = line.front() == L'[' && line.back() == L']';
        const std::wstring inner = header ? line.substr(1, line.size() - 2) : line;
        if (inner.find_first_of(L"[];") != inner.npos)
            return false;
        if (header)
        {
            if (std::find_if(sections.begin(), sections.end(), [&](const std::wstring& s) { return Same(s, inner); }) !=
                sections.end())
                return false;
            section = inner;
            sections.push_back(section);
            continue;
        }
        const std::size_t equals = line.find(L'=');
        if (equals == line.npos)
            continue;
        const CEntry entry = {section, line.substr(0, equals), line.substr(equals + 1), i};
        if (entry.value.find(L'=') == entry.value.npos &&
            std::none_of(entries.begin(), entries.end(),
                         [&](const CEntry& other)
                         { return Same(other.section, section) && Same(other.key, entry.key); }))
            entries.push_back(entry);
    }
    return true;
}

// At most as many as wanted, from everywhere.
std::vector<CEntry> Some(const std::vector<CEntry>& all, std::size_t wanted)
{
    std::vector<CEntry> some;
    const std::size_t step = (all.size() + wanted - 1) / wanted;
    for (std::size_t i = step / 2; i < all.size(); i += step)
        some.push_back(all[i]);
    return some;
}

std::wstring Joined(const std::vector<std::wstring>& lines)
{
    std::wstring text;
    for (const std::wstring& line : lines)
        text += line + L"\r\n";
    return text;
}

struct CRealFile
{
    std::string path;
    std::wstring text;
    std::vector<std::wstring> lines;
};

std::vector<CRealFile> RealFiles()
{
    std::vector<CRealFile> files;
    for (const std::wstring& path : Paths())
    {
        std::string bytes = support::ReadBytes(path.c_str());
        if (bytes.size() > 50000)
            bytes.resize(bytes.rfind('\n', 50000) + 1);   // the head of a large one
        if (IsText(bytes))
        {
            const std::wstring text = FromUtf8(bytes);
            files.push_back({ToUtf8(path), text, LinesOf(text)});
        }
    }
    return files;
}

class IniFileRealFiles : public IniTest
{
};
}   // namespace

TEST_F(IniFileRealFiles, TheSystemsOwnAreThere)
{
    const std::vector<CRealFile> files = RealFiles();
    const auto has = [&](const char* path)
    { return std::any_of(files.begin(), files.end(), [&](const CRealFile& file) { return file.path == path; }); };
    EXPECT_TRUE(has("C:\\windows\\win.ini"));
    EXPECT_TRUE(has("C:\\windows\\system.ini"));
}

TEST_F(IniFileRealFiles, AChangedValue_ChangesItsLineAlone)
{
    for (const CRealFile& file : RealFiles())
    {
        for (const CEntry& entry : Some(Entries(file.lines), 3))
        {
            std::vector<std::wstring> wanted = file.lines;
            wanted[entry.line] = entry.key + L"=changed";

            Open(ToUtf8(file.text)).WriteString(entry.section.c_str(), entry.key.c_str(), L"changed");
            EXPECT_TRUE(ToUtf8(Joined(wanted)) == Bytes()) << file.path << ", line " << entry.line + 1;
            Close();

            Open(MarkedUtf16(file.text)).WriteString(entry.section.c_str(), entry.key.c_str(), L"changed");
            EXPECT_TRUE(MarkedUtf16(Joined(wanted)) == Bytes()) << file.path << " in UTF-16, line " << entry.line + 1;
            Close();
        }
    }
}

TEST_F(IniFileRealFiles, SectionsAndValues_AreThoseOfAnotherReader)
{
    std::size_t files = 0;
    for (const CRealFile& file : RealFiles())
    {
        std::vector<std::wstring> sections;
        std::vector<CEntry> entries;
        if (!ReadConventionally(file.lines, sections, entries))
            continue;
        ++files;
        CIniFile& ini = Open(ToUtf8(file.text));
        EXPECT_EQ(Texts(sections.begin(), sections.end()), Sections(ini)) << file.path;
        for (const CEntry& entry : Some(entries, 50))
        {
            const ustring value = ini.GetString(entry.section.c_str(), entry.key.c_str(), L"not found");
            EXPECT_TRUE(value == entry.value) << file.path << ", line " << entry.line + 1;
        }
        Close();
    }
    EXPECT_GE(files, 2u);
}
