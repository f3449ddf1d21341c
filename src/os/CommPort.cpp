#include "Thrower.h"

#include <vantor/CommPort.h>

namespace vantor
{
namespace
{
constexpr CThrower Fail{L".\\CommPort"};

constexpr unsigned long Access = GENERIC_READ | GENERIC_WRITE;
constexpr unsigned long Exclusive = 0;
}   // namespace

CCommPort::CCommPort() {}

CCommPort::CCommPort(const wchar_t* port, unsigned long flags)
    : CFile(port, Access, Exclusive, nullptr, OPEN_EXISTING, flags, nullptr)
{
}

void CCommPort::Open(const wchar_t* port, unsigned long flags)
{
    CFile::Open(port, Access, Exclusive, nullptr, OPEN_EXISTING, flags, nullptr);
}

void CCommPort::SetupComm(unsigned long inQueue, unsigned long outQueue)
{
    if (!::SetupComm(m_h, inQueue, outQueue))
        Fail(33, L"SetupComm");
}

void CCommPort::PurgeComm(unsigned long flags)
{
    if (!::PurgeComm(m_h, flags))
        Fail(40, L"PurgeComm");
}

void CCommPort::EscapeCommFunction(unsigned long function)
{
    if (!::EscapeCommFunction(m_h, function))
        Fail(47, L"EscapeCommFunction");
}

void CCommPort::ClearCommError(unsigned long& errors, _COMSTAT& stat)
{
    if (!::ClearCommError(m_h, &errors, &stat))
        Fail(54, L"ClearCommError");
}

void CCommPort::ClearCommBreak()
{
    if (!::ClearCommBreak(m_h))
        Fail(61, L"ClearCommBreak");
}

void CCommPort::GetCommModemStatus(unsigned long& status)
{
    if (!::GetCommModemStatus(m_h, &status))
        Fail(68, L"GetCommModemStatus");
}

void CCommPort::GetCommProperties(_COMMPROP& prop)
{
    if (!::GetCommProperties(m_h, &prop))
        Fail(75, L"GetCommProperties");
}

void CCommPort::GetCommState(_DCB& dcb)
{
    dcb.DCBlength = sizeof dcb;
    if (!::GetCommState(m_h, &dcb))
        Fail(83, L"GetCommState");
}

void CCommPort::SetCommState(const _DCB& dcb)
{
    DCB copy = dcb;
    if (!::SetCommState(m_h, &copy))
        Fail(91, L"SetCommState");
}

void CCommPort::GetCommMask(unsigned long& mask)
{
    if (!::GetCommMask(m_h, &mask))
        Fail(98, L"GetCommMask");
}

void CCommPort::SetCommMask(unsigned long mask)
{
    if (!::SetCommMask(m_h, mask))
        Fail(105, L"SetCommMask");
}

void CCommPort::SetCommTimeouts(const _COMMTIMEOUTS& t)
{
    COMMTIMEOUTS copy = t;
    if (!::SetCommTimeouts(m_h, &copy))
        Fail(114, L"SetCommTimeouts");
}

void CCommPort::GetCommTimeouts(_COMMTIMEOUTS& t)
{
    if (!::GetCommTimeouts(m_h, &t))
        Fail(121, L"GetCommTimeouts");
}

void CCommPort::TransmitCommChar(char c)
{
    if (!::TransmitCommChar(m_h, c))
        Fail(128, L"TransmitCommChar");
}

bool CCommPort::WaitCommEvent(unsigned long& mask, _OVERLAPPED* ov)
{
    if (::WaitCommEvent(m_h, &mask, ov))
        return true;
    const DWORD error = ::GetLastError();
    if (error != ERROR_IO_PENDING)
        Fail(136, L"WaitCommEvent", error);
    return false;
}
}   // namespace vantor
