// Serial ports: files with the communications calls of the platform.
//
//     CCommPort port(L"COM3:", 0);
//     DCB dcb;
//     port.GetCommState(dcb);
//     dcb.BaudRate = CBR_115200;
//     port.SetCommState(dcb);
//     port.SetCommTimeouts({0, 0, 500, 0, 500});      // or a read may wait for ever
//     unsigned int done = 0;
//     port.Write("*IDN?\r\n", 7, done, nullptr);

#ifndef VANTOR_COMMPORT_H
#define VANTOR_COMMPORT_H

#include <vantor/File.h>

namespace vantor
{
// Owns a port's handle. Opening changes no setting of the port; each member is the platform's call of that name, and
// throws CWinException if that fails. A break is set with EscapeCommFunction(SETBREAK).
class VANTOR_API CCommPort : public CFile
{
public:
    CCommPort();
    // Opens an existing port for reading and writing, exclusively. flags: 0, or FILE_FLAG_OVERLAPPED.
    CCommPort(const wchar_t* port, unsigned long flags);

    using CFile::Open;

    // Virtual operations in slot order, behind those of CFile; derived classes append theirs.

    // As the constructor does; closes what is open first.
    virtual void Open(const wchar_t* port, unsigned long flags);

    // Queue sizes in bytes.
    void SetupComm(unsigned long inQueue, unsigned long outQueue);
    void PurgeComm(unsigned long flags);
    void EscapeCommFunction(unsigned long function);
    void ClearCommError(unsigned long& errors, _COMSTAT& stat);
    void ClearCommBreak();
    void GetCommModemStatus(unsigned long& status);
    void GetCommProperties(_COMMPROP& prop);
    void GetCommState(_DCB& dcb);         // fills in DCBlength
    void SetCommState(const _DCB& dcb);   // as it stands, DCBlength included
    void GetCommMask(unsigned long& mask);
    void SetCommMask(unsigned long mask);
    void SetCommTimeouts(const _COMMTIMEOUTS& t);   // milliseconds
    void GetCommTimeouts(_COMMTIMEOUTS& t);
    void TransmitCommChar(char c);
    // True when an event is there; false while an overlapped wait is running. `mask` is written when that ends, so it
    // must live as long.
    bool WaitCommEvent(unsigned long& mask, _OVERLAPPED* ov);
};
}   // namespace vantor

#endif
