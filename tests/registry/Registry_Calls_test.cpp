// What reaches the system: rights, types and sizes; and that each key is closed again, whatever fails.

#include "Calls.h"
#include "OwnKey.h"
#include "support/Leaks.h"

#include <functional>
#include <utility>

using namespace vantor;
using namespace registry_test;
using support::CResources;

namespace
{
const HKEY User = HKEY_CURRENT_USER;

// The functions report by their results, only.
static_assert(noexcept(RegGetValue(HKEY(), L"", L"", std::declval<ustring&>(), L"")));
static_assert(noexcept(RegGetValue(HKEY(), L"", L"", std::declval<unsigned long&>(), 0UL)));
static_assert(noexcept(RegGetValue(HKEY(), L"", L"", std::declval<Bytes&>())));
static_assert(noexcept(RegWriteValue(HKEY(), L"", L"", L"")));
static_assert(noexcept(RegWriteValue(HKEY(), L"", L"", 0UL)));
static_assert(noexcept(vantor::RegDeleteValueW(HKEY(), L"", L"")));
static_assert(noexcept(RegCreateKey(HKEY(), L"")));
static_assert(noexcept(vantor::RegDeleteKeyW(HKEY(), L"")));
static_assert(noexcept(RegEnumSubKeys(HKEY(), L"", std::declval<Texts&>())));
static_assert(noexcept(RegEnumValues(HKEY(), L"", std::declval<Texts&>())));
static_assert(noexcept(RegGetDefaultKeyName(L"", L"", L"", std::declval<ustring&>())));

// One of the functions that open a key to read from it, or to change it.
struct CUse
{
    const char* name;
    std::function<bool(const wchar_t* path)> call;
    std::vector<std::string> calls;   // of the system, where all goes well
};

void PrintTo(const CUse& use, std::ostream* out)
{
    *out << use.name;
}

const CUse GetText = {"GetText",
                      [](const wchar_t* path)
                      {
                          ustring text;
                          return RegGetValue(User, path, L"text", text, L"default");
                      },
                      {"RegOpenKeyEx", "RegQueryValueEx", "RegQueryValueEx", "RegCloseKey"}};
const CUse GetNumber = {"GetNumber",
                        [](const wchar_t* path)
                        {
                            unsigned long number;
                            return RegGetValue(User, path, L"number", number, 0);
                        },
                        {"RegOpenKeyEx", "RegQueryValueEx", "RegQueryValueEx", "RegCloseKey"}};
const CUse GetBytes = {"GetBytes",
                       [](const wchar_t* path)
                       {
                           Bytes bytes;
                           return RegGetValue(User, path, L"bytes", bytes);
                       },
                       {"RegOpenKeyEx", "RegQueryValueEx", "RegQueryValueEx", "RegCloseKey"}};
const CUse WriteText = {"WriteText",
                        [](const wchar_t* path) { return RegWriteValue(User, path, L"text", L"new"); },
                        {"RegCreateKeyEx", "RegSetValueEx", "RegCloseKey"}};
const CUse WriteNumber = {"WriteNumber",
                          [](const wchar_t* path) { return RegWriteValue(User, path, L"number", 8UL); },
                          {"RegCreateKeyEx", "RegSetValueEx", "RegCloseKey"}};
const CUse DeleteValue = {"DeleteValue",
                          [](const wchar_t* path) { return vantor::RegDeleteValueW(User, path, L"text"); },
                          {"RegCreateKeyEx", "RegDeleteValue", "RegCloseKey"}};
const CUse CreateKey = {
    "CreateKey", [](const wchar_t* path) { return RegCreateKey(User, path); }, {"RegCreateKeyEx", "RegCloseKey"}};
const CUse DeleteKey = {
    "DeleteKey", [](const wchar_t* path) { return vantor::RegDeleteKeyW(User, path); }, {"RegDeleteKey"}};

// With a key that holds what each of the functions is to read.
class RegistryCalls : public RegistryTest, public testing::WithParamInterface<CUse>
{
protected:
    RegistryCalls()
    {
        Store(L"text", REG_SZ, Utf16Sz(L"text"));
        Store(L"number", REG_DWORD, DwordBytes(7));
        Store(L"bytes", REG_BINARY, "bytes");
    }

    bool Use() { return GetParam().call(m_path); }

    CCalls m_calls;
};

class RegistryReading : public RegistryCalls
{
};
class RegistryChanging : public RegistryCalls
{
};

class RegistryWriting : public RegistryTest
{
protected:
    CCalls m_calls;
};
}   // namespace

// ---- All of them

TEST_P(RegistryCalls, Calls_AreMadeOnceEach)
{
    EXPECT_TRUE(Use());
    EXPECT_EQ(GetParam().calls, m_calls.Functions());
}

TEST_P(RegistryCalls, SubKey_IsSoughtBelowTheRoot)
{
    Use();
    EXPECT_EQ(User, m_calls.All().at(0).key);
    EXPECT_EQ(m_path, m_calls.All().at(0).name);
}

TEST_P(RegistryCalls, Key_IsClosedOnce)
{
    Use();
    m_calls.ExpectKeysAreClosed();
}

TEST_P(RegistryCalls, AnyCallThatFails_IsFalse)
{
    const std::vector<std::string>& calls = GetParam().calls;
    for (std::size_t at = 0; at < calls.size(); ++at)
    {
        if (calls[at] == "RegCloseKey")
            continue;
        m_calls.Forget();
        const bool second = at != 0 && calls[at] == calls[at - 1];
        m_calls.Fail(calls[at].c_str(), second ? 2 : 1, ERROR_ACCESS_DENIED);
        EXPECT_FALSE(Use()) << "call " << at;
    }
}

TEST_P(RegistryCalls, AnyCallThatFails_IsTheLastBeforeTheKeyIsClosed)
{
    const std::vector<std::string>& calls = GetParam().calls;
    for (std::size_t at = 0; at < calls.size(); ++at)
    {
        if (calls[at] == "RegCloseKey")
            continue;
        m_calls.Forget();
        const bool second = at != 0 && calls[at] == calls[at - 1];
        m_calls.Fail(calls[at].c_str(), second ? 2 : 1, ERROR_ACCESS_DENIED);
        Use();
        std::vector<std::string> expected(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(at) + 1);
        if (at != 0)
            expected.push_back("RegCloseKey");
        EXPECT_EQ(expected, m_calls.Functions());
        m_calls.ExpectKeysAreClosed();
    }
}

INSTANTIATE_TEST_SUITE_P(Uses, RegistryCalls,
                         testing::Values(GetText, GetNumber, GetBytes, WriteText, WriteNumber, DeleteValue, CreateKey,
                                         DeleteKey));

TEST_F(RegistryWriting, Handles_AreAsManyAsBefore)
{
    const std::vector<CUse> uses = {GetText,     GetNumber,   GetBytes,  WriteText,
                                    WriteNumber, DeleteValue, CreateKey, DeleteKey};
    const auto useAll = [&]
    {
        for (const CUse& use : uses)
        {
            use.call(m_path);
            use.call(m_own.Below(L"missing").c_str());
        }
    };
    useAll();
    const CResources before;
    useAll();
    EXPECT_EQ(before.handles, CResources().handles);
}

// ---- Those that read

TEST_P(RegistryReading, Key_IsOpenedToQueryValuesAndForNoMore)
{
    Use();
    const CCall opened = m_calls.All().at(0);
    EXPECT_EQ(1u, opened.access);
    EXPECT_EQ(0u, opened.options);
}

TEST_P(RegistryReading, TypeAndSize_AreAskedForBeforeTheData)
{
    Use();
    const std::vector<CCall> queries = m_calls.Of("RegQueryValueEx");
    ASSERT_EQ(2u, queries.size());
    EXPECT_EQ(nullptr, queries[0].data);
    EXPECT_NE(nullptr, queries[1].data);
}

TEST_P(RegistryReading, MissingKey_IsNotClosed)
{
    EXPECT_FALSE(GetParam().call(m_own.Below(L"missing").c_str()));
    EXPECT_EQ(std::vector<std::string>{"RegOpenKeyEx"}, m_calls.Functions());
}

TEST_P(RegistryReading, MissingValue_ClosesTheKey)
{
    MakeKey(m_own.Below(L"empty"));
    EXPECT_FALSE(GetParam().call(m_own.Below(L"empty").c_str()));
    m_calls.ExpectKeysAreClosed();
}

TEST_P(RegistryReading, WrongType_IsNotReadAndClosesTheKey)
{
    for (const wchar_t* name : {L"text", L"number", L"bytes"})
        Store(name, REG_QWORD, DwordBytes(7));
    EXPECT_FALSE(Use());
    EXPECT_EQ(1u, m_calls.Of("RegQueryValueEx").size());
    m_calls.ExpectKeysAreClosed();
}

TEST_F(RegistryWriting, NumberOfAnotherSize_IsNotReadAndClosesTheKey)
{
    Store(L"v", REG_DWORD, DwordBytes(7) + DwordBytes(0));
    unsigned long number;
    EXPECT_FALSE(RegGetValue(User, m_path, L"v", number, 0));
    EXPECT_EQ(1u, m_calls.Of("RegQueryValueEx").size());
    m_calls.ExpectKeysAreClosed();
}

TEST_F(RegistryWriting, NumberThatIsRead_GoesWhereTheCallerWantsIt)
{
    Store(L"v", REG_DWORD, DwordBytes(7));
    unsigned long number;
    EXPECT_TRUE(RegGetValue(User, m_path, L"v", number, 0));
    EXPECT_EQ(&number, m_calls.Of("RegQueryValueEx").at(1).data);
    EXPECT_EQ(4u, m_calls.Of("RegQueryValueEx").at(1).room);
}

INSTANTIATE_TEST_SUITE_P(Uses, RegistryReading, testing::Values(GetText, GetNumber, GetBytes));

// ---- Those that change the key

TEST_P(RegistryChanging, Key_IsOpenedToQueryAndSetValuesAndForNoMore)
{
    Use();
    EXPECT_EQ(3u, m_calls.All().at(0).access);
}

TEST_P(RegistryChanging, Key_IsMadeWithoutClassOptionsOrSecurity)
{
    Use();
    const CCall made = m_calls.All().at(0);
    EXPECT_EQ(nullptr, made.keyClass);
    EXPECT_EQ(nullptr, made.security);
    EXPECT_EQ(0u, made.options);
    EXPECT_EQ(0u, made.reserved);
}

INSTANTIATE_TEST_SUITE_P(Uses, RegistryChanging, testing::Values(WriteText, WriteNumber, DeleteValue, CreateKey));

// ---- What is written

TEST_F(RegistryWriting, Text_IsWrittenWithItsTerminator)
{
    RegWriteValue(User, m_path, L"v", L"text");
    const CCall set = m_calls.Of("RegSetValueEx").at(0);
    EXPECT_EQ(L"v", set.name);
    EXPECT_EQ(1u, set.type);
    EXPECT_EQ(10u, set.room);
}

TEST_F(RegistryWriting, NullText_IsWrittenAsATerminator)
{
    RegWriteValue(User, m_path, L"v", static_cast<const wchar_t*>(nullptr));
    const CCall set = m_calls.Of("RegSetValueEx").at(0);
    EXPECT_EQ(1u, set.type);
    EXPECT_EQ(2u, set.room);
    EXPECT_NE(nullptr, set.data);
}

TEST_F(RegistryWriting, Number_IsWrittenIn4Bytes)
{
    RegWriteValue(User, m_path, L"v", 7UL);
    const CCall set = m_calls.Of("RegSetValueEx").at(0);
    EXPECT_EQ(L"v", set.name);
    EXPECT_EQ(4u, set.type);
    EXPECT_EQ(4u, set.room);
}

TEST_F(RegistryWriting, NullNames_ReachTheSystemAsNull)
{
    RegWriteValue(User, m_path, nullptr, L"text");
    EXPECT_EQ(nullptr, m_calls.Of("RegSetValueEx").at(0).text);
}
