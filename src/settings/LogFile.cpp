#include "../os/Lock.h"

#include <vantor/LogFile.h>
#include <vantor/SystemTime.h>

#include <algorithm>
#include <cstdarg>

namespace vantor
{
namespace
{
constexpr wchar_t Mark = 0xFEFF;
constexpr LCID English = 1033;   // whatever the device's language: logs are read by people elsewhere

// Keeps other objects and processes from appending between the look for the end and the write there. What is locked is
// a byte that no file is long enough to have. Where locks are not to be had, the log goes without.
class CAppendLock
{
public:
    explicit CAppendLock(HANDLE file) : m_file(file)
    {
        m_locked = ::LockFileEx(m_file, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &m_range) != FALSE;
    }
    CAppendLock(const CAppendLock&) = delete;
    CAppendLock& operator=(const CAppendLock&) = delete;
    ~CAppendLock()
    {
        if (m_locked)
            ::UnlockFileEx(m_file, 0, 1, 0, &m_range);
    }

private:
    static OVERLAPPED LastByte()
    {
        OVERLAPPED range = {};
        range.Offset = 0xFFFFFFFE;
        range.OffsetHigh = 0x7FFFFFFF;
        return range;
    }

    HANDLE m_file;
    OVERLAPPED m_range = LastByte();
    bool m_locked;
};

// The records of a message: one for each line that is not empty.
ustring Records(ustring message, const ustring& stamp)
{
    message.erase(std::remove(message.begin(), message.end(), L'\r'), message.end());
    ustring records;
    for (std::size_t begin = 0; begin < message.size();)
    {
        const std::size_t end = std::min(message.find(L'\n', begin), message.size());
        if (end > begin)
        {
            records += L'[';
            records += stamp;
            records += L"] ";
            records.append(message, begin, end - begin);
            records += L"\r\n";
        }
        begin = end + 1;
    }
    return records;
}
}   // namespace

CLogFile::CLogFile() {}

CLogFile::~CLogFile() noexcept(false)
{
    CLogFile::Close();
}

void CLogFile::Close()
{
    CHandle::Close();
}

bool CLogFile::Open(const wchar_t* path)
try
{
    CFile::Open(path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                FILE_ATTRIBUTE_NORMAL | FILE_FLAG_WRITE_THROUGH, nullptr);
    if (GetLength() == 0)
    {
        unsigned int done = 0;
        CFile::Write(&Mark, sizeof Mark, done, nullptr);
        Flush();
    }
    else
        Seek(0, FILE_END);
    return true;
}
catch (...)
{
    if (IsCreated())
        ::CloseHandle(Detach());   // not Close, which may throw in its turn
    return false;
}

bool CLogFile::Write(const wchar_t* format, ...)
{
    const CLock guard(m_section);
    if (!IsCreated())
        return false;

    ustring message;
    std::va_list args;
    va_start(args, format);
    message.vsprintf(format, args);
    va_end(args);
    const ustring stamp = CSystemTime(CSystemTime::GetLocalTime()).Format(English, L"%Y/%B/%d, %H:%M:%S");
    const ustring records = Records(std::move(message), stamp);

    const CAppendLock lock(m_h);
    unsigned int done = 0;
    const bool cutInACharacter = Seek(0, FILE_END) % sizeof(wchar_t) != 0;
    if (!records.empty())
    {
        if (cutInACharacter)   // by a lost battery: a zero completes it, or nobody could read what follows
            CFile::Write("", 1, done, nullptr);
        CFile::Write(records.data(), static_cast<unsigned int>(records.size() * sizeof(wchar_t)), done, nullptr);
    }
    return true;
}

std::string CLogFile::Bin2Str(const void* data, unsigned int size)
{
    std::string text(static_cast<const char*>(data), size);
    std::replace_if(
        text.begin(), text.end(), [](char byte) { return static_cast<unsigned char>(byte) <= ' '; }, '$');
    return text;
}

std::string CLogFile::Bin2Hex(const void* data, unsigned int size)
{
    constexpr char digits[] = "0123456789ABCDEF";

    std::string text;
    if (size == 0)
        return text;
    text.reserve(std::size_t{3} * size);
    const auto* const bytes = static_cast<const unsigned char*>(data);
    for (unsigned int i = 0; i < size; ++i)
    {
        text += digits[bytes[i] >> 4];
        text += digits[bytes[i] & 0xF];
        text += ' ';
    }
    text.pop_back();
    return text;
}
}   // namespace vantor
