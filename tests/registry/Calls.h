// The registry calls that the library makes, in order, for the length of a scope. They reach the system unless they are
// made to fail.
//
//     CCalls calls;
//     calls.Fail("RegSetValue", 2, ERROR_DISK_FULL);      // the second one
//     RegWriteValue(...);
//     EXPECT_EQ(3u, calls.Of("RegCreateKeyEx").at(0).access);

#ifndef VANTOR_TEST_REGISTRY_CALLS_H
#define VANTOR_TEST_REGISTRY_CALLS_H

#include <vantor/Platform.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace registry_test
{
// What a call has no argument for stays as it is here.
struct CCall
{
    std::string function;
    HKEY key = nullptr;
    std::wstring name;            // of the key or the value; empty for null
    const void* text = nullptr;   // the pointer to it
    const wchar_t* keyClass = nullptr;
    const void* security = nullptr;
    DWORD reserved = 0;
    DWORD options = 0;
    REGSAM access = 0;
    DWORD index = 0;
    DWORD type = ~0u;   // of a value that is set
    const void* data = nullptr;
    DWORD room = ~0u;        // of the buffer, in the call's own unit; the size of what is set
    HKEY opened = nullptr;   // 0 unless the call succeeds
    LSTATUS status = 0;
};

class CCalls
{
public:
    CCalls();
    CCalls(const CCalls&) = delete;
    CCalls& operator=(const CCalls&) = delete;
    ~CCalls();

    // The number-th call (from 1) of this name fails and does not reach the system.
    void Fail(const char* function, unsigned number, LSTATUS status);
    // Runs after the number-th call of this name.
    void After(const char* function, unsigned number, std::function<void()> action);

    void Forget();   // calls and plans

    const std::vector<CCall>& All() const;
    std::vector<CCall> Of(const char* function) const;
    std::vector<std::string> Functions() const;
    // Each key that was opened is closed again, exactly once, after its last use; and no other.
    void ExpectKeysAreClosed() const;

private:
    struct CPatches;
    std::unique_ptr<CPatches> m_patches;
};
}   // namespace registry_test

#endif
