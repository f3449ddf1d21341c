#include "../i18n/LibraryTexts.h"
#include "Copies.h"
#include "ErrorTextFile.h"

#include "../../res/resource.h"

#include <vantor/Exceptions.h>

#include <memory>

namespace vantor
{
namespace
{
struct LocalFreer
{
    void operator()(void* block) const noexcept { ::LocalFree(block); }
};

bool SystemMessage(unsigned long code, ustring& text)
{
    wchar_t* message = nullptr;
    constexpr DWORD flags = FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_FROM_SYSTEM;
    if (::FormatMessageW(flags, nullptr, code, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
                         reinterpret_cast<wchar_t*>(&message), 0, nullptr) == 0)
        return false;
    const std::unique_ptr<void, LocalFreer> owner(message);
    text = message;
    return true;
}
}   // namespace

CWinException::CWinException(unsigned int line, const wchar_t* fileName, const wchar_t* function,
                             unsigned long errorCode)
    : CStdException(line, fileName, function), m_errorCode(errorCode)
{
}

CSmartPtr<CStdException> CWinException::Clone()
{
    return CloneOf(*this);
}

void CWinException::Throw() const
{
    ThrowCopyOf(this);
}

bool CWinException::GetSource(ustring& out) const
{
    return LoadLibraryText(IDS_SOURCE_WIN32, out);
}

bool CWinException::GetErrorMessage(ustring& out) const
try
{
    if (SystemMessage(m_errorCode, out) || FindErrorText(m_errorCode, out))
        return true;
    out.sprintf(L"Unknown error: %d (0x%X).", static_cast<int>(m_errorCode), static_cast<unsigned int>(m_errorCode));
    return false;
}
catch (...)   // a text getter never throws
{
    return false;
}
}   // namespace vantor
