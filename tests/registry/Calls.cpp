#include "Calls.h"

#include "support/ImportPatch.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

using support::CImportPatch;

namespace registry_test
{
namespace
{
struct CPlan
{
    std::string function;
    unsigned number;
    LSTATUS status;
    std::function<void()> action;
};

std::vector<CCall> g_calls;
std::vector<CPlan> g_plans;

CCall Call(const char* function, HKEY key, const wchar_t* text)
{
    CCall call;
    call.function = function;
    call.key = key;
    call.text = text;
    call.name = text ? text : L"";
    return call;
}

// Makes the call unless it is planned to fail, and keeps it.
template <class Function>
LSTATUS Make(CCall call, const Function& function)
{
    unsigned number = 1;
    for (const CCall& earlier : g_calls)
        number += earlier.function == call.function;
    const CPlan* plan = nullptr;
    for (const CPlan& one : g_plans)
    {
        if (one.function == call.function && one.number == number)
            plan = &one;
    }
    call.status = plan && plan->status != ERROR_SUCCESS ? plan->status : function(call);
    g_calls.push_back(call);
    if (plan && plan->action)
        plan->action();
    return call.status;
}

LSTATUS WINAPI OpenKey(HKEY root, const wchar_t* subKey, DWORD options, REGSAM access, HKEY* result)
{
    CCall call = Call("RegOpenKeyEx", root, subKey);
    call.options = options;
    call.access = access;
    return Make(call,
                [=](CCall& made)
                {
                    const LSTATUS status = ::RegOpenKeyExW(root, subKey, options, access, result);
                    made.opened = status == ERROR_SUCCESS ? *result : nullptr;
                    return status;
                });
}

LSTATUS WINAPI CreateKey(HKEY root, const wchar_t* subKey, DWORD reserved, wchar_t* keyClass, DWORD options,
                         REGSAM access, SECURITY_ATTRIBUTES* security, HKEY* result, DWORD* disposition)
{
    CCall call = Call("RegCreateKeyEx", root, subKey);
    call.reserved = reserved;
    call.keyClass = keyClass;
    call.options = options;
    call.access = access;
    call.security = security;
    return Make(call,
                [=](CCall& made)
                {
                    const LSTATUS status = ::RegCreateKeyExW(root, subKey, reserved, keyClass, options, access,
                                                             security, result, disposition);
                    made.opened = status == ERROR_SUCCESS ? *result : nullptr;
                    return status;
                });
}

LSTATUS WINAPI CloseKey(HKEY key)
{
    return Make(Call("RegCloseKey", key, nullptr), [=](CCall&) { return ::RegCloseKey(key); });
}

LSTATUS WINAPI QueryValue(HKEY key, const wchar_t* name, DWORD* reserved, DWORD* type, BYTE* data, DWORD* size)
{
    CCall call = Call("RegQueryValueEx", key, name);
    call.data = data;
    if (size)
        call.room = *size;
    return Make(call, [=](CCall&) { return ::RegQueryValueExW(key, name, reserved, type, data, size); });
}

LSTATUS WINAPI SetValue(HKEY key, const wchar_t* name, DWORD reserved, DWORD type, const BYTE* data, DWORD size)
{
    CCall call = Call("RegSetValueEx", key, name);
    call.reserved = reserved;
    call.type = type;
    call.data = data;
    call.room = size;
    return Make(call, [=](CCall&) { return ::RegSetValueExW(key, name, reserved, type, data, size); });
}

LSTATUS WINAPI DeleteValue(HKEY key, const wchar_t* name)
{
    return Make(Call("RegDeleteValue", key, name), [=](CCall&) { return ::RegDeleteValueW(key, name); });
}

LSTATUS WINAPI DeleteKey(HKEY root, const wchar_t* subKey)
{
    return Make(Call("RegDeleteKey", root, subKey), [=](CCall&) { return ::RegDeleteKeyW(root, subKey); });
}

LSTATUS WINAPI EnumKey(HKEY key, DWORD index, wchar_t* name, DWORD* length, DWORD* reserved, wchar_t* keyClass,
                       DWORD* classLength, FILETIME* time)
{
    CCall call = Call("RegEnumKeyEx", key, nullptr);
    call.index = index;
    call.room = *length;
    return Make(call, [=](CCall&)
                { return ::RegEnumKeyExW(key, index, name, length, reserved, keyClass, classLength, time); });
}

LSTATUS WINAPI EnumValue(HKEY key, DWORD index, wchar_t* name, DWORD* length, DWORD* reserved, DWORD* type, BYTE* data,
                         DWORD* size)
{
    CCall call = Call("RegEnumValue", key, nullptr);
    call.index = index;
    call.room = *length;
    return Make(call, [=](CCall&) { return ::RegEnumValueW(key, index, name, length, reserved, type, data, size); });
}
}   // namespace

struct CCalls::CPatches
{
    const CImportPatch openKey{&::RegOpenKeyExW, &OpenKey};
    const CImportPatch createKey{&::RegCreateKeyExW, &CreateKey};
    const CImportPatch closeKey{&::RegCloseKey, &CloseKey};
    const CImportPatch queryValue{&::RegQueryValueExW, &QueryValue};
    const CImportPatch setValue{&::RegSetValueExW, &SetValue};
    const CImportPatch deleteValue{&::RegDeleteValueW, &DeleteValue};
    const CImportPatch deleteKey{&::RegDeleteKeyW, &DeleteKey};
    const CImportPatch enumKey{&::RegEnumKeyExW, &EnumKey};
    const CImportPatch enumValue{&::RegEnumValueW, &EnumValue};
};

CCalls::CCalls() : m_patches(std::make_unique<CPatches>())
{
    Forget();
}

CCalls::~CCalls() = default;

void CCalls::Fail(const char* function, unsigned number, LSTATUS status)
{
    g_plans.push_back({function, number, status, nullptr});
}

void CCalls::After(const char* function, unsigned number, std::function<void()> action)
{
    g_plans.push_back({function, number, ERROR_SUCCESS, std::move(action)});
}

void CCalls::Forget()
{
    g_calls.clear();
    g_plans.clear();
}

const std::vector<CCall>& CCalls::All() const
{
    return g_calls;
}

std::vector<CCall> CCalls::Of(const char* function) const
{
    std::vector<CCall> calls;
    for (const CCall& call : g_calls)
    {
        if (call.function == function)
            calls.push_back(call);
    }
    return calls;
}

std::vector<std::string> CCalls::Functions() const
{
    std::vector<std::string> functions;
    for (const CCall& call : g_calls)
        functions.push_back(call.function);
    return functions;
}

void CCalls::ExpectKeysAreClosed() const
{
    std::set<HKEY> open;
    for (const CCall& call : g_calls)
    {
        const bool opens = call.function == "RegOpenKeyEx" || call.function == "RegCreateKeyEx";
        if (call.opened)
        {
            EXPECT_TRUE(open.insert(call.opened).second);
        }
        else if (call.function == "RegCloseKey")
        {
            EXPECT_EQ(1u, open.erase(call.key)) << "a key is closed that is not open";
        }
        else if (!opens && call.function != "RegDeleteKey")
        {
            EXPECT_EQ(1u, open.count(call.key)) << call.function << " of a key that is not open";
        }
    }
    EXPECT_EQ(0u, open.size()) << "keys stay open";
}
}   // namespace registry_test
