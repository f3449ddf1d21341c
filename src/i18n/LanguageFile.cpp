#include "../os/Thrower.h"

#include <vantor/Translator.h>

namespace vantor
{
namespace
{
constexpr CThrower Fail{L".\\Translator"};

constexpr wchar_t Mark = 0xFEFF;
constexpr wchar_t LineEnd[] = L"]\n";   // of a record's two lines

// The characters of a file without its mark, read in blocks of 512 bytes. An odd last byte is dropped.
ustring ReadText(CFile& file)
{
    constexpr wchar_t function[] = L"vantor::CLanguageFile::LoadLanguageFile";

    ustring text;
    wchar_t block[256];
    unsigned int done = 0;
    do
    {
        if (file.GetLength() < sizeof Mark)
            Fail(51, function, ERROR_INVALID_DATA);
        file.Read(block, sizeof block, done, nullptr);
        const std::size_t size = done / sizeof *block;
        if (!text.empty())
            text.append(block, size);
        else if (size > 0 && block[0] == Mark)
            text.assign(block + 1, size - 1);
        else
            Fail(57, function, ERROR_INVALID_DATA);
    } while (done == sizeof block);
    return text;
}

// CR LF and lone CR become LF.
void NormaliseLineEnds(ustring& text)
{
    std::size_t kept = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        const bool joined = text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n';
        if (!joined)
            text[kept++] = text[i] == L'\r' ? L'\n' : text[i];
    }
    text.resize(kept);
}

// Cuts one line of a record off the text: everything up to a "]" and line feed that the text ends with or that a "["
// follows. Other pairs of them belong to the line. Line feeds before it and its opening bracket are dropped.
ustring NextLine(const ustring& text, std::size_t& pos)
{
    const std::size_t begin = pos;
    std::size_t end = text.find(LineEnd, pos);
    while (end != ustring::npos && end + 2 < text.size() && text[end + 2] != L'[')
        end = text.find(LineEnd, end + 2);
    pos = end == ustring::npos ? text.size() : end + 2;
    if (end == ustring::npos)
        end = text.size();

    std::size_t first = begin;
    while (first < end && text[first] == L'\n')
        ++first;
    if (first < end && text[first] == L'[')
        ++first;
    return text.substr(first, end - first);
}

// Gathers what is written: a call of the system for each line would take most of the time.
class CWriter
{
public:
    explicit CWriter(CFile& file) : m_file(file) { m_text = Mark; }

    void Line(const ustring& text)
    {
        m_text += L'[';
        m_text += text;
        m_text += LineEnd;
        if (m_text.size() > 0x4000)
            Flush();
    }

    void Flush()
    {
        unsigned int done = 0;
        m_file.Write(m_text.data(), static_cast<unsigned int>(m_text.size() * sizeof(wchar_t)), done, nullptr);
        m_text.clear();
    }

private:
    CFile& m_file;
    ustring m_text;
};
// Runs an operation on an open file. If it fails, the file is closed without another word: an exception of the
// destructor on top of the first would end the program, and where a card is pulled out every call fails.
template <class Operation>
void OnFile(CFile& file, Operation operation)
{
    try
    {
        operation();
    }
    catch (...)
    {
        if (file.IsCreated())
            ::CloseHandle(file.Detach());
        throw;
    }
    file.Close();
}
}   // namespace

bool CLanguageFile::LoadLanguageFile(const wchar_t* path)
try
{
    CFile file(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    OnFile(file, [&] { LoadLanguageFile(file); });
    return true;
}
catch (const CWinException& e)
{
    if (e.GetErrorCode() != ERROR_FILE_NOT_FOUND && e.GetErrorCode() != ERROR_PATH_NOT_FOUND)
        throw;
    return false;
}

void CLanguageFile::SaveLanguageFile(const wchar_t* path)
{
    CFile file(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    OnFile(file, [&] { SaveLanguageFile(file); });
}

void CLanguageFile::LoadLanguageFile(CFile& file)
{
    file.Seek(0, FILE_BEGIN);
    clear();
    ustring text = ReadText(file);
    NormaliseLineEnds(text);
    for (std::size_t pos = 0; pos < text.size();)
    {
        ustring key = NextLine(text, pos);
        if (pos == text.size())
            break;   // a key without a value

        // Files are written in the table's order, so the next key belongs at its end.
        insert_or_assign(end(), std::move(key), NextLine(text, pos));
    }
}

void CLanguageFile::SaveLanguageFile(CFile& file)
{
    file.Seek(0, FILE_BEGIN);
    file.SetLength(0);
    CWriter writer(file);
    for (const auto& [source, translation] : *this)
    {
        writer.Line(source);
        writer.Line(translation);
    }
    writer.Flush();
    file.Close();
}
}   // namespace vantor
