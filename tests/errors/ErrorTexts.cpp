#include "ErrorTexts.h"

#include "support/TempFolder.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace errors
{
namespace
{
constexpr std::wstring_view FileName = L"\\Win32Errors.txt";
}

CErrorTexts* CErrorTexts::s_current = nullptr;

CErrorTexts::CErrorTexts(std::optional<std::string> contents)
    : bytes(std::move(contents)),
      m_message(&::FormatMessageW, &NoSystemMessage),
      m_create(&::CreateFileW, &Create),
      m_read(&::ReadFile, &Read),
      m_close(&::CloseHandle, &Close)
{
    s_current = this;
}

CErrorTexts::~CErrorTexts()
{
    s_current = nullptr;
}

bool CErrorTexts::IsClosed() const
{
    return m_open == 0;
}

void CErrorTexts::Forget()
{
    opened.clear();
    asked.clear();
}

HANDLE WINAPI CErrorTexts::Create(LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES sa, DWORD disposition,
                                  DWORD flags, HANDLE hTemplate)
{
    const std::wstring_view name(path);
    if (name.size() < FileName.size() || name.substr(name.size() - FileName.size()) != FileName)
        return ::CreateFileW(path, access, share, sa, disposition, flags, hTemplate);

    CErrorTexts& self = *s_current;
    self.opened.emplace_back(path);
    if (!self.bytes)
    {
        ::SetLastError(ERROR_FILE_NOT_FOUND);
        return INVALID_HANDLE_VALUE;
    }
    self.m_position = 0;
    ++self.m_open;
    return self.Handle();
}

BOOL WINAPI CErrorTexts::Read(HANDLE file, LPVOID buffer, DWORD size, LPDWORD done, LPOVERLAPPED ov)
{
    CErrorTexts& self = *s_current;
    if (file != self.Handle())
        return ::ReadFile(file, buffer, size, done, ov);

    if (self.onRead)
        self.onRead();
    self.asked.push_back(size);
    *done = 0;
    if (self.asked.size() - 1 == self.failingRead)
    {
        ::SetLastError(ERROR_NOT_READY);
        return FALSE;
    }
    const std::size_t rest = self.bytes->size() - self.m_position;
    *done = static_cast<DWORD>(std::min<std::size_t>({rest, size, self.mostBytes}));
    std::memcpy(buffer, self.bytes->data() + self.m_position, *done);
    self.m_position += *done;
    return TRUE;
}

BOOL WINAPI CErrorTexts::Close(HANDLE handle)
{
    CErrorTexts& self = *s_current;
    if (handle != self.Handle())
        return ::CloseHandle(handle);
    --self.m_open;
    ::SetLastError(ERROR_NOT_READY);
    return !self.failingClose;
}

// No handle that the system would give out.
HANDLE CErrorTexts::Handle() const
{
    return const_cast<CErrorTexts*>(this);
}

DWORD WINAPI NoSystemMessage(DWORD, LPCVOID, DWORD, DWORD, LPWSTR, DWORD, va_list*)
{
    ::SetLastError(ERROR_MR_MID_NOT_FOUND);
    return 0;
}

std::string Utf16File(const std::wstring& text)
{
    return "\xFF\xFE" + support::Utf16(text);
}

std::optional<vantor::ustring> Lookup(unsigned long code)
{
    vantor::ustring message;
    if (!vantor::CWinException(1, L".\\File", L"CreateFile", code).GetErrorMessage(message))
        return std::nullopt;
    return message;
}
}   // namespace errors
