// COM belongs to a thread: what depends on it runs on a thread that nothing else has used.

#ifndef VANTOR_TEST_SERVICES_THREADS_H
#define VANTOR_TEST_SERVICES_THREADS_H

#include <vantor/Platform.h>

#include <objbase.h>

#include <thread>

template <class Function>
void OnNewThread(Function function)
{
    std::thread(function).join();
}

// A thread has no COM if it may still choose its apartment.
inline bool HasNoCOM()
{
    const HRESULT single = ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    if (SUCCEEDED(single))
        ::CoUninitialize();
    const HRESULT multi = ::CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    if (SUCCEEDED(multi))
        ::CoUninitialize();
    return single == S_OK && multi == S_OK;
}

inline bool IsInApartment(DWORD apartment)
{
    const DWORD other = apartment == COINIT_MULTITHREADED ? COINIT_APARTMENTTHREADED : COINIT_MULTITHREADED;
    const HRESULT same = ::CoInitializeEx(nullptr, apartment);
    if (SUCCEEDED(same))
        ::CoUninitialize();
    const HRESULT changed = ::CoInitializeEx(nullptr, other);
    if (SUCCEEDED(changed))
        ::CoUninitialize();
    return same == S_FALSE && changed == RPC_E_CHANGED_MODE;
}

#endif
