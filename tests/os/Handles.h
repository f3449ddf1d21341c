// What the tests of the handle classes share: names of a process's own, and handles that refuse to be closed.

#ifndef VANTOR_TEST_OS_HANDLES_H
#define VANTOR_TEST_OS_HANDLES_H

#include <vantor/Platform.h>
#include <vantor/Strings.h>

namespace os_test
{
// A name for a kernel object that no other test uses at the same time.
inline vantor::ustring UniqueName(const wchar_t* kind)
{
    static unsigned int counter = 0;
    vantor::ustring name;
    name.sprintf(L"vantor.os.%s.%u.%u", kind, static_cast<unsigned int>(::GetCurrentProcessId()), ++counter);
    return name;
}

inline bool IsOpen(HANDLE h)
{
    DWORD flags;
    return ::GetHandleInformation(h, &flags) != FALSE;
}

// Takes the signal of an event that resets itself.
inline bool IsSignalled(HANDLE h)
{
    return ::WaitForSingleObject(h, 0) == WAIT_OBJECT_0;
}

// While it lives, closing the handle fails with ERROR_INVALID_HANDLE; at its end it closes the handle itself.
class CProtectedHandle
{
public:
    explicit CProtectedHandle(HANDLE h) : m_h(h)
    {
        ::SetHandleInformation(h, HANDLE_FLAG_PROTECT_FROM_CLOSE, HANDLE_FLAG_PROTECT_FROM_CLOSE);
    }
    CProtectedHandle(const CProtectedHandle&) = delete;
    CProtectedHandle& operator=(const CProtectedHandle&) = delete;
    ~CProtectedHandle()
    {
        ::SetHandleInformation(m_h, HANDLE_FLAG_PROTECT_FROM_CLOSE, 0);
        ::CloseHandle(m_h);
    }

private:
    HANDLE m_h;
};
}   // namespace os_test

#endif
