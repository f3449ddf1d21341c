// Calls of the device's DLLs that no import library offers, looked up when they are needed. Also compiled for the
// desktop, where the tests have DLLs of their own under these names.

#ifndef VANTOR_SRC_DEVICEMODULE_H
#define VANTOR_SRC_DEVICEMODULE_H

#include <vantor/Platform.h>

#include <cstdint>

namespace vantor::platform
{
// What names a call for GetProcAddress, which takes wide text on the device.
#ifdef UNDER_CE
using ProcedureName = const wchar_t*;
#define VANTOR_PROCEDURE(name) L##name
#else
using ProcedureName = const char*;
#define VANTOR_PROCEDURE(name) name
#endif

// A DLL that is loaded for the length of a scope. Where it is missing it has no calls.
class CDeviceModule
{
public:
    CDeviceModule() = default;
    explicit CDeviceModule(const wchar_t* name) : m_module(::LoadLibraryW(name)) {}
    CDeviceModule(const CDeviceModule&) = delete;
    CDeviceModule& operator=(const CDeviceModule&) = delete;
    ~CDeviceModule()
    {
        if (m_module)
            ::FreeLibrary(m_module);
    }

    template <class Call>
    Call* Find(ProcedureName name) const
    {
        return m_module ? reinterpret_cast<Call*>(reinterpret_cast<void*>(::GetProcAddress(m_module, name))) : nullptr;
    }
    template <class Call>
    Call* Find(WORD ordinal) const
    {
        return Find<Call>(reinterpret_cast<ProcedureName>(static_cast<std::uintptr_t>(ordinal)));
    }

private:
    HMODULE m_module = nullptr;
};
}   // namespace vantor::platform

#endif
