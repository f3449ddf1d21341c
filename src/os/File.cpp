#include "../platform/Calls.h"
#include "Thrower.h"

#include <vantor/File.h>

namespace vantor
{
namespace
{
constexpr CThrower Fail{L".\\File"};

constexpr unsigned long long Join(unsigned long high, unsigned long low)
{
    return static_cast<unsigned long long>(high) << 32 | low;
}

// Positions and lengths come in two halves. A low half of all ones is also how the calls report failure: it is one only
// if the last error says so.
constexpr unsigned long SuspectLow = 0xFFFFFFFF;

// Room for a path, and a terminator that even a path cut by the system keeps.
struct CPathBuffer
{
    wchar_t text[MAX_PATH + 1] = {};
};

// The first match of a directory search; false if there is none.
bool FindEntry(const wchar_t* path, WIN32_FIND_DATAW& entry)
{
    if (*OrEmpty(path) == 0)
        return false;
    const HANDLE search = ::FindFirstFileW(path, &entry);
    if (search == INVALID_HANDLE_VALUE)
        return false;
    ::FindClose(search);
    return true;
}

ustring PathInFolder(int folder, const wchar_t* fname, const wchar_t* ext)
{
    ustring base, path;
    CFile::GetSpecialFolderPath(folder, base);
    CFile::MakePath(path, nullptr, base.c_str(), fname, ext);
    return path;
}
}   // namespace

CFile::CFile() : CHandle(INVALID_HANDLE_VALUE) {}

CFile::CFile(const wchar_t* name, unsigned long access, unsigned long share, _SECURITY_ATTRIBUTES* sa,
             unsigned long disposition, unsigned long flags, void* hTemplate)
    : CFile()
{
    CFile::Open(name, access, share, sa, disposition, flags, hTemplate);
}

void CFile::Open(const wchar_t* name, unsigned long access, unsigned long share, _SECURITY_ATTRIBUTES* sa,
                 unsigned long disposition, unsigned long flags, void* hTemplate)
{
    Close();
    m_h = ::CreateFileW(name, access, share, sa, disposition, flags, hTemplate);
    if (m_h == m_hInvalid)
        Fail(41, L"CreateFile");
}

bool CFile::Read(void* buffer, unsigned int size, unsigned int& done, _OVERLAPPED* ov)
{
    DWORD count = 0;
    const BOOL read = ::ReadFile(m_h, buffer, size, &count, ov);
    done = count;
    if (!read)
    {
        const DWORD error = ::GetLastError();
        if (error != ERROR_IO_PENDING)
            Fail(54, L"ReadFile", error);
    }
    return read != FALSE;
}

bool CFile::Write(const void* buffer, unsigned int size, unsigned int& done, _OVERLAPPED* ov)
{
    DWORD count = 0;
    const BOOL written = ::WriteFile(m_h, buffer, size, &count, ov);
    done = count;
    if (!written)
    {
        const DWORD error = ::GetLastError();
        if (error != ERROR_IO_PENDING)
            Fail(67, L"WriteFile", error);
    }
    return written != FALSE;
}

void CFile::Flush()
{
    if (!::FlushFileBuffers(m_h))
        Fail(73, L"FlushFileBuffers");
}

unsigned long long CFile::GetPosition() const
{
    LONG high = 0;
    const DWORD low = ::SetFilePointer(m_h, 0, &high, FILE_CURRENT);
    if (low == SuspectLow && ::GetLastError() != NO_ERROR)
        Fail(83, L"SetFilePointer");
    return Join(static_cast<unsigned long>(high), low);
}

unsigned long long CFile::Seek(long long offset, unsigned long method)
{
    LONG high = static_cast<LONG>(offset >> 32);
    const DWORD low = ::SetFilePointer(m_h, static_cast<LONG>(offset), &high, method);
    if (low == SuspectLow && ::GetLastError() != NO_ERROR)
        Fail(94, L"SetFilePointer");
    return Join(static_cast<unsigned long>(high), low);
}

unsigned long long CFile::GetLength() const
{
    DWORD high = 0;
    const DWORD low = ::GetFileSize(m_h, &high);
    if (low == SuspectLow && ::GetLastError() != NO_ERROR)
        Fail(104, L"GetFileSize");
    return Join(high, low);
}

void CFile::SetLength(unsigned long long length)
{
    Seek(static_cast<long long>(length), FILE_BEGIN);
    if (!::SetEndOfFile(m_h))
        Fail(112, L"SetEndOfFile");
}

void CFile::Rename(const wchar_t* from, const wchar_t* to)
{
    if (!::MoveFileW(from, to))
        Fail(118, L"MoveFile");
}

void CFile::Remove(const wchar_t* path)
{
    if (!::DeleteFileW(path))
        Fail(124, L"DeleteFile");
}

bool CFile::FileExists(const wchar_t* path, bool& isFolder)
{
    WIN32_FIND_DATAW entry;
    const bool exists = FindEntry(path, entry);
    isFolder = exists && (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    return exists;
}

bool CFile::FileExists(const wchar_t* path)
{
    bool isFolder;
    return FileExists(path, isFolder);
}

bool CFile::FileExists(int folder, const wchar_t* fname, const wchar_t* ext, bool& isFolder)
{
    return FileExists(PathInFolder(folder, fname, ext).c_str(), isFolder);
}

bool CFile::FileExists(int folder, const wchar_t* fname, const wchar_t* ext)
{
    bool isFolder;
    return FileExists(folder, fname, ext, isFolder);
}

unsigned long long CFile::GetLength(const wchar_t* path)
{
    WIN32_FIND_DATAW entry;
    if (!FindEntry(path, entry))
        return ~0ULL;
    return Join(entry.nFileSizeHigh, entry.nFileSizeLow);
}

unsigned long long CFile::GetLength(int folder, const wchar_t* fname, const wchar_t* ext)
{
    return GetLength(PathInFolder(folder, fname, ext).c_str());
}

void CFile::GetSpecialFolderPath(int folder, ustring& out)
{
    CPathBuffer path;
    if (!platform::SpecialFolderPath(nullptr, path.text, folder, FALSE))
        Fail(331, L"SHGetSpecialFolderPath");
    out = path.text;
}

void CFile::GetModuleFileNameW(HINSTANCE module, ustring& out, bool fullPath)
{
    out.clear();
    CPathBuffer path;
    if (::GetModuleFileNameW(module, path.text, MAX_PATH) == 0)
        Fail(343, L"GetModuleFileName");
    if (fullPath)
    {
        out = path.text;
        return;
    }
    ustring drive, dir, ext;
    SplitPath(path.text, drive, dir, out, ext);
}

void CFile::GetTempPathW(ustring& out)
{
    out.clear();
    CPathBuffer path;
    if (::GetTempPathW(MAX_PATH, path.text) == 0)
        Fail(368, L"GetTempPath");
    out = path.text;
}

void CFile::GetTempFileNameW(const wchar_t* path, const wchar_t* prefix, unsigned int unique, ustring& out)
{
    CPathBuffer name;
    const UINT number = ::GetTempFileNameW(path, prefix, unique, name.text);
    const DWORD error = ::GetLastError();
    out.clear();   // only now: path and prefix may stand in it
    if (number == 0)
        Fail(384, L"GetTempFileName", error);
    out = name.text;
}
}   // namespace vantor
