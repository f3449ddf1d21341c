// A log that survives a pulled battery, and binary data as text for it.
//
//     CLogFile log;
//     log.Open(L"\\Storage\\link.log");                                  // made if it is missing; false: no log
//     log.Write(L"sent %S", CLogFile::Bin2Hex(frame, size).c_str());    // [2013/March/05, 14:07:00] sent 02 2A 3F 03

#ifndef VANTOR_LOGFILE_H
#define VANTOR_LOGFILE_H

#include <vantor/File.h>

#include <string>

namespace vantor
{
// Appends records "[time] text" in UTF-16, stamped with the local time in English. Each is on the medium when Write
// returns. Write may be called from any thread; Open and Close belong to set-up and tear-down. Several objects, also of
// several processes, may append to one file: each waits while another one writes its message.
class VANTOR_API CLogFile : public CFile
{
public:
    CLogFile();
    ~CLogFile() noexcept(false) override;

    void Close() override;

    // Appends to the file, or makes it. False if that fails; the log is closed then.
    bool Open(const wchar_t* path);

    // printf formatting as in ustring::sprintf. Each line that is not empty becomes a record, all with one stamp; the
    // records of one message stay together. False if the log is not open. What fails throws CWinException; a failed
    // write may leave a part of the message in the file. Where a cut file ends in the middle of a character, a zero
    // byte completes that first.
    bool Write(const wchar_t* format, ...);

    // Every byte from 0 to 32 becomes "$".
    static std::string Bin2Str(const void* data, unsigned int size);
    // "0A 1B FF"
    static std::string Bin2Hex(const void* data, unsigned int size);

private:
    CCriticalSection m_section;
};
}   // namespace vantor

#endif
