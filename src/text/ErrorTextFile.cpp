#include "ErrorTextFile.h"

#include "../platform/Module.h"

#include <vantor/Exceptions.h>
#include <vantor/File.h>

#include <algorithm>
#include <cwchar>
#include <iterator>

// The file is UTF-16LE with the mark 0xFEFF. A line is a code (decimal, or hexadecimal behind "0x"), a comma, the
// message and a line feed; a last line without one does not count. A message may stand in quotes and hold \r, \n and \"
// as escapes.

namespace vantor
{
namespace
{
constexpr wchar_t Mark = 0xFEFF;
constexpr std::size_t NotFound = ustring::npos;

unsigned long ReadCode(const ustring& text)
{
    if (text.compareNoCase(L"0x", 2) == 0)
        return std::wcstoul(text.c_str() + 2, nullptr, 16);
    return std::wcstoul(text.c_str(), nullptr, 10);
}

void Unescape(ustring& message)
{
    message.replace(L"\\r", L"\r");
    message.replace(L"\\n", L"\n");
    message.replace(L"\\\"", L"\"");
    message.trim(L'"');
}

// The text that is read but not yet scanned. Remembers how far it was searched, so that a long line costs one walk
// however many chunks it comes in.
class CScanner
{
public:
    explicit CScanner(unsigned long code) : m_code(code) {}

    void Append(const wchar_t* chunk, std::size_t size)
    {
        m_rest.erase(0, m_line);
        m_searched -= m_line;
        if (m_comma != NotFound)
            m_comma -= m_line;
        m_line = 0;
        std::remove_copy(chunk, chunk + size, std::back_inserter(m_rest), L'\r');
    }

    // True once a complete line with the code is there.
    bool Find(ustring& message)
    {
        while (NextLine())
        {
            const std::size_t end = m_searched;
            ustring code = m_rest.substr(m_line, m_comma - m_line);
            if (ReadCode(code.trim(L' ')) == m_code)
            {
                message = m_rest.substr(m_comma + 1, end - m_comma - 1);
                message.trim(L' ');
                return true;
            }
            m_line = m_searched = end + 1;
            m_comma = NotFound;
        }
        return false;
    }

private:
    // Leaves m_searched on the line feed of the line that begins at m_line; false if more text is needed. Only line
    // feeds behind the line's first comma count, so a line without one runs on into the next.
    bool NextLine()
    {
        while (m_line < m_rest.size() && m_rest[m_line] == L'\n')
            m_searched = ++m_line;
        if (m_comma == NotFound)
        {
            m_comma = m_rest.find(L',', m_searched);
            m_searched = m_comma == NotFound ? m_rest.size() : m_comma + 1;
        }
        if (m_comma == NotFound)
            return false;
        const std::size_t end = m_rest.find(L'\n', m_searched);
        m_searched = end == NotFound ? m_rest.size() : end;
        return end != NotFound;
    }

    const unsigned long m_code;
    ustring m_rest;
    std::size_t m_line = 0;           // start of the line
    std::size_t m_comma = NotFound;   // its first comma
    std::size_t m_searched = 0;       // what is sought next does not stand before
};

ustring ErrorTextPath()
{
    ustring library, drive, dir, fname, ext, path;
    CFile::GetModuleFileNameW(LibraryModule(), library, true);
    CFile::SplitPath(library.c_str(), drive, dir, fname, ext);
    CFile::MakePath(path, drive.c_str(), dir.c_str(), L"Win32Errors.txt", nullptr);
    return path;
}

bool Scan(CFile& file, unsigned long code, ustring& text)
{
    wchar_t chunk[256];
    unsigned int done = 0;
    file.Read(chunk, sizeof Mark, done, nullptr);
    if (done != sizeof Mark || chunk[0] != Mark)
        return false;

    CScanner scanner(code);
    for (;;)
    {
        file.Read(chunk, sizeof chunk, done, nullptr);
        if (done == 0)
            return false;
        scanner.Append(chunk, done / sizeof *chunk);
        ustring message;
        if (scanner.Find(message))
        {
            Unescape(message);
            text = message;
            return true;
        }
    }
}
}   // namespace

bool FindErrorText(unsigned long code, ustring& text)
{
    bool found = false;
    try
    {
        CFile file(ErrorTextPath().c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
        try
        {
            found = Scan(file, code, text);
        }
        catch (...)   // not further out: where reading fails, the destructor's closing may fail too
        {
        }
    }
    catch (...)   // there is no file, or its closing failed
    {
    }
    return found;
}
}   // namespace vantor
