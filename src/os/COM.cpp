#include "Thrower.h"

#include <vantor/COM.h>

#include <objbase.h>

namespace vantor
{
namespace
{
constexpr CThrower Fail{L".\\COM"};
}

CCOMInitializer::CCOMInitializer(bool throwOnError) : m_bInitialized(false)
{
    const HRESULT result = ::CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    if (SUCCEEDED(result))   // S_FALSE, initialised before, is to be balanced, too
        m_bInitialized = true;
    else if (throwOnError)
        Fail(9, L"CoInitialize", static_cast<unsigned long>(result));
}

CCOMInitializer::~CCOMInitializer()
{
    if (m_bInitialized)
        ::CoUninitialize();
}
}   // namespace vantor
