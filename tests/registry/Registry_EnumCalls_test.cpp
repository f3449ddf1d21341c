// How the enumerations ask the system, and what they make of its errors.

#include "Calls.h"
#include "OwnKey.h"

using namespace vantor;
using namespace registry_test;

namespace
{
// The functions that list, by turns for keys and for values.
struct CKind
{
    const char* call;
    bool (*list)(HKEY, const wchar_t*, Texts&) noexcept;
};

void PrintTo(const CKind& kind, std::ostream* out)
{
    *out << kind.call;
}

class RegistryEnumCalls : public RegistryTest, public testing::WithParamInterface<CKind>
{
protected:
    RegistryEnumCalls()
    {
        for (const wchar_t* name : {L"a", L"b", L"c"})
        {
            MakeKey(m_own.Below(name));
            Store(name, REG_NONE, "");
        }
    }

    Texts List(bool expected)
    {
        Texts names = {L"before"};
        EXPECT_EQ(expected, GetParam().list(HKEY_CURRENT_USER, m_path, names));
        return names;
    }

    CCalls m_calls;
};
}   // namespace

TEST_P(RegistryEnumCalls, Key_IsOpenedForReading)
{
    List(true);
    const std::vector<CCall> opened = m_calls.Of("RegOpenKeyEx");
    ASSERT_EQ(1u, opened.size());
    EXPECT_EQ(HKEY_CURRENT_USER, opened[0].key);
    EXPECT_EQ(m_path, opened[0].name);
    EXPECT_EQ(0x20019u, opened[0].access);
    EXPECT_EQ(0u, opened[0].options);
}

TEST_P(RegistryEnumCalls, Names_AreAskedForByIndexUntilThereIsNone)
{
    List(true);
    const std::vector<CCall> asked = m_calls.Of(GetParam().call);
    ASSERT_EQ(4u, asked.size());
    for (DWORD index = 0; index < 4; ++index)
        EXPECT_EQ(index, asked[index].index);
}

TEST_P(RegistryEnumCalls, Room_Is256CharactersEachTime)
{
    List(true);
    for (const CCall& asked : m_calls.Of(GetParam().call))
        EXPECT_EQ(256u, asked.room);
}

TEST_P(RegistryEnumCalls, NothingElse_IsAsked)
{
    List(true);
    const std::string call = GetParam().call;
    EXPECT_EQ((std::vector<std::string>{"RegOpenKeyEx", call, call, call, call, "RegCloseKey"}), m_calls.Functions());
}

TEST_P(RegistryEnumCalls, Key_IsClosed)
{
    List(true);
    m_calls.ExpectKeysAreClosed();
}

TEST_P(RegistryEnumCalls, Error_EndsTheListWithTrue)
{
    m_calls.Fail(GetParam().call, 3, ERROR_ACCESS_DENIED);
    EXPECT_EQ((Texts{L"a", L"b"}), List(true));
}

TEST_P(RegistryEnumCalls, ErrorAtTheFirstName_IsAnEmptyListWithTrue)
{
    m_calls.Fail(GetParam().call, 1, ERROR_INVALID_PARAMETER);
    EXPECT_EQ(Texts(), List(true));
}

TEST_P(RegistryEnumCalls, NameThatHasNoRoom_EndsTheListWithTrue)
{
    m_calls.Fail(GetParam().call, 2, ERROR_MORE_DATA);
    EXPECT_EQ(Texts{L"a"}, List(true));
}

TEST_P(RegistryEnumCalls, Error_ClosesTheKey)
{
    m_calls.Fail(GetParam().call, 2, ERROR_ACCESS_DENIED);
    List(true);
    m_calls.ExpectKeysAreClosed();
}

TEST_P(RegistryEnumCalls, KeyThatCannotBeOpened_IsFalseWithoutNames)
{
    m_calls.Fail("RegOpenKeyEx", 1, ERROR_ACCESS_DENIED);
    EXPECT_EQ(Texts(), List(false));
}

TEST_P(RegistryEnumCalls, KeyThatCannotBeOpened_IsNotClosed)
{
    m_calls.Fail("RegOpenKeyEx", 1, ERROR_ACCESS_DENIED);
    List(false);
    EXPECT_EQ(std::vector<std::string>{"RegOpenKeyEx"}, m_calls.Functions());
}

INSTANTIATE_TEST_SUITE_P(Kinds, RegistryEnumCalls,
                         testing::Values(CKind{"RegEnumKeyEx", &RegEnumSubKeys},
                                         CKind{"RegEnumValue", &RegEnumValues}));
