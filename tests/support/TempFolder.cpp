#include "TempFolder.h"

#include <vantor/Platform.h>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>

namespace support
{
namespace
{
struct CloseFile
{
    void operator()(void* file) const { ::CloseHandle(file); }
};
using FilePtr = std::unique_ptr<void, CloseFile>;

FilePtr OpenFile(const wchar_t* path, DWORD access, DWORD disposition)
{
    const HANDLE file =
        ::CreateFileW(path, access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, disposition, 0, nullptr);
    return FilePtr(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

std::wstring TempPath()
{
    wchar_t path[MAX_PATH + 1];
    const DWORD length = ::GetTempPathW(MAX_PATH, path);
    return std::wstring(path, length);   // ends with a backslash
}

void RemoveTree(const std::wstring& folder)
{
    WIN32_FIND_DATAW entry;
    const HANDLE search = ::FindFirstFileW((folder + L"\\*").c_str(), &entry);
    if (search != INVALID_HANDLE_VALUE)
    {
        do
        {
            const std::wstring name = entry.cFileName;
            if (name == L"." || name == L"..")
                continue;
            const std::wstring path = folder + L'\\' + name;
            if (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
            {
                RemoveTree(path);
                continue;
            }
            if (entry.dwFileAttributes & FILE_ATTRIBUTE_READONLY)
                ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
            ::DeleteFileW(path.c_str());
        } while (::FindNextFileW(search, &entry));
        ::FindClose(search);
    }
    ::RemoveDirectoryW(folder.c_str());
}
}   // namespace

CTempFolder::CTempFolder()
{
    static std::atomic<unsigned> counter{0};
    const std::wstring stem = TempPath() + L"vantor." + std::to_wstring(::GetCurrentProcessId()) + L".";
    std::wstring path;
    do
        path = stem + std::to_wstring(++counter);
    while (!::CreateDirectoryW(path.c_str(), nullptr) && ::GetLastError() == ERROR_ALREADY_EXISTS);
    m_path = path.c_str();
}

CTempFolder::~CTempFolder()
{
    RemoveTree(m_path);
}

vantor::ustring CTempFolder::File(const wchar_t* name) const
{
    return (std::wstring(m_path) + L'\\' + name).c_str();
}

vantor::ustring CTempFolder::Write(const wchar_t* name, const std::string& bytes) const
{
    const vantor::ustring path = File(name);
    WriteBytes(path.c_str(), bytes);
    return path;
}

std::string ReadBytes(const wchar_t* path)
{
    std::string bytes;
    const FilePtr file = OpenFile(path, GENERIC_READ, OPEN_EXISTING);
    if (!file)
    {
        ADD_FAILURE() << "a file cannot be opened: error " << ::GetLastError();
        return bytes;
    }
    char block[4096];
    DWORD done = 0;
    BOOL read;
    while ((read = ::ReadFile(file.get(), block, sizeof block, &done, nullptr)) != FALSE && done != 0)
        bytes.append(block, done);
    if (!read)
        ADD_FAILURE() << "a file cannot be read: error " << ::GetLastError();
    return bytes;
}

void WriteBytes(const wchar_t* path, const std::string& bytes)
{
    const FilePtr file = OpenFile(path, GENERIC_WRITE, CREATE_ALWAYS);
    DWORD done = 0;
    if (!file || !::WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &done, nullptr) ||
        done != bytes.size())
        ADD_FAILURE() << "a file cannot be written: error " << ::GetLastError();
}

std::string Utf16(const std::wstring& text)
{
    std::string bytes;
    for (const wchar_t c : text)
    {
        bytes += static_cast<char>(c & 0xFF);
        bytes += static_cast<char>(c >> 8);
    }
    return bytes;
}

vantor::ustring ModuleFolder()
{
    wchar_t path[MAX_PATH + 1];
    const std::wstring whole(path, ::GetModuleFileNameW(nullptr, path, MAX_PATH));
    return whole.substr(0, whole.rfind(L'\\')).c_str();
}
}   // namespace support
