#include "Copies.h"

#include <vantor/Exceptions.h>

#include <algorithm>
#include <iterator>

namespace vantor
{
const CCommException::INT2UI CCommException::m_aINT2UI[ReplyCount] = {
    {L"{2,,wrong command}", L"Wrong command"},
    {L"{2,,1st parameter missed}", L"1st parameter missed"},
    {L"{2,,wrong 1st parameter}", L"Wrong 1st parameter"},
    {L"{2,,2nd parameter missed}", L"2nd parameter missed"},
    {L"{2,,wrong 2nd parameter}", L"Wrong 2nd parameter"},
    {L"{2,,value missed}", L"Value missed"},
    {L"{2,,value out of range}", L"Value out of range"},
    {L"{2,,wrong file name}", L"Wrong file name"},
    {L"{2,,file open error}", L"File open error"},
    {L"{2,,file system not mounted}", L"File system not mounted"},
    {L"{2,,file read error}", L"File read error"},
    {L"{2,,file already exists}", L"File already exists"},
    {L"{2,,can't create file}", L"Can't create file"},
    {L"{2,,can't remove file}", L"Can't remove file"},
    {L"{2,,broken file}", L"Broken file"},
    {L"{2,,incompatible file version}", L"Incompatible file version"},
    {L"{2,,file write error}", L"File write error"},
    {L"{2,,data transfer open}", L"Data transfer open"},
    {L"{2,,data transfer error}", L"Data transfer error"},
    {L"{2,,wrong option name}", L"Wrong option name"},
    {L"{2,,bad option date}", L"Bad option date"},
    {L"{2,,bad option value}", L"Bad option value"},
    {L"{2,,option disabled}", L"Option disabled"},
    {L"{2,,terminated by user}", L"Terminated by user"},
    {L"{2,,wrong receiver id}", L"Wrong receiver id"},
    {L"{2,,access denied}", L"Access denied"},
    {L"{2,,operation in progress}", L"Operation in progress"},
    {L"{2,,no file system device}", L"No file system device"},
    {L"{2,,dup loop}", L"Dup loop"},
    {L"{2,,not supported}", L"Not supported"},
    {L"{2,,device is not accessible}", L"Device is not accessible"},
    {L"{2,,wrong hardware version}", L"Wrong hardware version"},
    {L"{2,,incompatible file version}", L"Incompatible file version"},
    {L"{2,,can't lock}", L"Can't lock"},
    {L"{2,,memory card is busy}", L"Memory card is busy"},
};

CCommException::CCommException(unsigned int line, const wchar_t* fileName, const wchar_t* function,
                               const wchar_t* errorMessage, const wchar_t* source)
    : CStdException(line, fileName, function), m_errorMessage(errorMessage), m_source(source)
{
}

CSmartPtr<CStdException> CCommException::Clone()
{
    return CloneOf(*this);
}

void CCommException::Throw() const
{
    ThrowCopyOf(this);
}

bool CCommException::GetSource(ustring& out) const
try
{
    out = m_source;
    return true;
}
catch (...)   // a text getter never throws
{
    return false;
}

bool CCommException::GetErrorMessage(ustring& out) const
try
{
    out = m_errorMessage;
    return true;
}
catch (...)   // a text getter never throws
{
    return false;
}

bool CCommException::GetErrorMessageUI(ustring& out) const
try
{
    if (!GetErrorMessage(out))
        return false;
    const auto row = std::find_if(std::begin(m_aINT2UI), std::end(m_aINT2UI),
                                  [&out](const INT2UI& known) { return out == known.replyText; });
    if (row != std::end(m_aINT2UI))
        out = row->uiText;
    return true;
}
catch (...)   // a text getter never throws
{
    return false;
}
}   // namespace vantor
