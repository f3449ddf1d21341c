// "Win32Errors.txt" in memory, with a system that has no message for any code, so that every message comes from the
// file or from nowhere.
//
//     CErrorTexts file(Utf16File(L"16, Sixteen\n"));
//     EXPECT_EQ(ustring(L"Sixteen"), Lookup(16));

#ifndef VANTOR_TEST_ERRORTEXTS_H
#define VANTOR_TEST_ERRORTEXTS_H

#include "support/ImportPatch.h"
#include "support/Print.h"

#include <vantor/Exceptions.h>

#include <optional>
#include <string>
#include <vector>

namespace errors
{
// One at a time. Other files are opened and read as ever.
class CErrorTexts
{
public:
    // Nothing for `bytes` is a missing file.
    explicit CErrorTexts(std::optional<std::string> bytes);
    CErrorTexts(const CErrorTexts&) = delete;
    CErrorTexts& operator=(const CErrorTexts&) = delete;
    ~CErrorTexts();

    bool IsClosed() const;   // as often as it was opened
    void Forget();           // what was recorded so far

    std::optional<std::string> bytes;
    std::vector<vantor::ustring> opened;                      // paths, in order
    std::vector<DWORD> asked;                                 // bytes that each read asked for
    std::size_t failingRead = static_cast<std::size_t>(-1);   // its index: the read that fails
    DWORD mostBytes = 0xFFFFFFFF;                             // a read gives no more than this
    bool failingClose = false;                                // closed all the same
    void (*onRead)() = nullptr;

private:
    static HANDLE WINAPI Create(LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES sa, DWORD disposition,
                                DWORD flags, HANDLE hTemplate);
    static BOOL WINAPI Read(HANDLE file, LPVOID buffer, DWORD size, LPDWORD done, LPOVERLAPPED ov);

    static BOOL WINAPI Close(HANDLE handle);

    HANDLE Handle() const;

    static CErrorTexts* s_current;

    int m_open = 0;   // times
    std::size_t m_position = 0;
    const support::CImportPatch m_message;
    const support::CImportPatch m_create;
    const support::CImportPatch m_read;
    const support::CImportPatch m_close;
};

// A FormatMessageW that knows no code.
DWORD WINAPI NoSystemMessage(DWORD flags, LPCVOID source, DWORD code, DWORD language, LPWSTR buffer, DWORD size,
                             va_list* arguments);

// The bytes of the text behind the byte-order mark.
std::string Utf16File(const std::wstring& text);

// What an exception with the code says; nothing if there is no message for the code.
std::optional<vantor::ustring> Lookup(unsigned long code);
}   // namespace errors

#endif
