// A serial port: its name, what is set before the first read, and what is said about a port that is not there.

#include <vantor/vantor.h>

#include <cstdio>

namespace
{
using namespace vantor;

void Print(const ustring& text)
{
    std::puts(ustring::WideCharToMultiByte(text, CP_UTF8, 0).c_str());
}

// COM1: to COM9: are names of their own, further ones are devices like all others.
ustring PortName(unsigned int number)
{
    ustring name;
    name.sprintf(number < 10 ? L"COM%u:" : L"\\\\.\\COM%u", number);
    return name;
}

void Open(CCommPort& port, const ustring& name)
{
    port.Open(name.c_str(), 0);
    DCB dcb;
    port.GetCommState(dcb);   // the last user's
    dcb.BaudRate = CBR_115200;
    dcb.ByteSize = 8;
    dcb.Parity = NOPARITY;
    dcb.StopBits = ONESTOPBIT;
    port.SetCommState(dcb);
    // A pause of 5 ms ends a read, and 500 ms without a byte; a write takes at most 500 ms and 1 ms a byte.
    port.SetCommTimeouts({5, 0, 500, 1, 500});
    port.PurgeComm(PURGE_RXCLEAR | PURGE_TXCLEAR);   // what came before nobody has asked for
}
}   // namespace

int main()
{
    for (const unsigned int number : {3, 12})
        Print(PortName(number));
    try
    {
        CCommPort port;
        Open(port, PortName(255));
        Print(L"open");
    }
    catch (const CWinException& e)
    {
        Print(e.GetFunction() + (e.GetErrorCode() == ERROR_FILE_NOT_FOUND ? L": there is no such port" : L" failed"));
    }
}
