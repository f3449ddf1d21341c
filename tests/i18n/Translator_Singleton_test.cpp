// The singleton that rises again: with types of the test's own, and, for the end of the process, in small programs.

#include "support/ChildProcess.h"
#include "support/TempFolder.h"

#include <vantor/Translator.h>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <new>
#include <set>
#include <string>
#include <type_traits>

using namespace vantor;

namespace
{
// Numbered, so that each test has a type, and by it an instance, of its own.
template <int Number>
struct CCounted
{
    CCounted()
    {
        ++created;
        for (int i = 0; i < 100; ++i)
            ::SwitchToThread();   // gives the others time to come in
    }
    virtual ~CCounted() = default;

    int value = 0;
    static inline std::atomic<int> created{0};
};

struct CHomeless
{
    virtual ~CHomeless() = default;
    static void* operator new(std::size_t, const std::nothrow_t&) noexcept
    {
        ++attempts;
        return allowed ? ::operator new(sizeof(CHomeless)) : nullptr;
    }
    static void operator delete(void* memory) { ::operator delete(memory); }

    int value = 0;
    static inline bool allowed = false;
    static inline int attempts = 0;
};

using CRaced = CCounted<3>;
HANDLE g_start;

DWORD WINAPI Race(void* seen)
{
    ::WaitForSingleObject(g_start, INFINITE);
    *static_cast<CRaced**>(seen) = &CPhoenixSingleton<CRaced>::Ref();
    return 0;
}
}   // namespace

TEST(PhoenixSingleton, Ref_GivesTheSameObjectEachTime)
{
    using Singleton = CPhoenixSingleton<CCounted<1>>;
    Singleton::Ref().value = 7;
    EXPECT_EQ(&Singleton::Ref(), &Singleton::Ref());
    EXPECT_EQ(7, Singleton::Ref().value);
    EXPECT_EQ(1, CCounted<1>::created);
}

TEST(PhoenixSingleton, Object_IsNotMadeBeforeItIsUsed)
{
    EXPECT_EQ(0, CCounted<2>::created);
    CPhoenixSingleton<CCounted<2>>::Ref();
    EXPECT_EQ(1, CCounted<2>::created);
}

TEST(PhoenixSingleton, Ref_GivesAPlainReference)
{
    EXPECT_TRUE((std::is_same_v<CTranslator&, decltype(CPhoenixSingleton<CTranslator>::Ref())>));
}

TEST(PhoenixSingleton, EightThreadsAtOnce_MakeOneObject)
{
    constexpr int count = 8;
    g_start = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HANDLE threads[count];
    CRaced* seen[count] = {};
    for (int i = 0; i < count; ++i)
        threads[i] = ::CreateThread(nullptr, 0, Race, &seen[i], 0, nullptr);
    ::SetEvent(g_start);
    ::WaitForMultipleObjects(count, threads, TRUE, INFINITE);
    for (const HANDLE thread : threads)
        ::CloseHandle(thread);
    ::CloseHandle(g_start);

    EXPECT_EQ(1, CRaced::created);
    EXPECT_EQ(std::set<CRaced*>{&CPhoenixSingleton<CRaced>::Ref()}, std::set<CRaced*>(seen, seen + count));
}

TEST(PhoenixSingleton, WithoutMemory_OneStaticObjectStandsIn)
{
    CHomeless::allowed = false;
    CHomeless::attempts = 0;
    CHomeless& standIn = CPhoenixSingleton<CHomeless>::Ref();
    standIn.value = 5;
    EXPECT_EQ(&standIn, &CPhoenixSingleton<CHomeless>::Ref());
    EXPECT_EQ(5, CPhoenixSingleton<CHomeless>::Ref().value);
    EXPECT_EQ(3, CHomeless::attempts);
}

TEST(PhoenixSingleton, MemoryAgain_MakesTheRealObject)
{
    CHomeless::allowed = false;
    CHomeless& standIn = CPhoenixSingleton<CHomeless>::Ref();
    CHomeless::allowed = true;
    EXPECT_NE(&standIn, &CPhoenixSingleton<CHomeless>::Ref());
    EXPECT_EQ(&CPhoenixSingleton<CHomeless>::Ref(), &CPhoenixSingleton<CHomeless>::Ref());
}

TEST(PhoenixSingleton, UsedAfterItsEnd_RisesAgainFresh)
{
    const CChildProcess process(L"\"" + support::ModuleFolder() + L"\\i18n_phoenix.exe\"");
    EXPECT_EQ(0u, process.exitCode);
    const std::string expected = "born died with 1 born seen with 0 seen with 2 ";
    EXPECT_EQ(expected, process.output.substr(0, expected.size()));
}

// Although the language file is there and was loaded: it is looked for once.
TEST(PhoenixSingleton, TranslatorUsedAfterItsEnd_IsFreshAndEmpty)
{
    const support::CTempFolder folder;
    const ustring program = folder.File(L"program.exe");
    ASSERT_TRUE(::CopyFileW((support::ModuleFolder() + L"\\i18n_last_word_main.exe").c_str(), program.c_str(), TRUE));
    folder.Write(L"program.lng", "\xFF\xFE" + support::Utf16(L"[Open]\n[Ouvrir]\n"));
    const CChildProcess process(L"\"" + program + L"\"");
    EXPECT_EQ(0u, process.exitCode);
    EXPECT_EQ("known filled unknown empty ", process.output);
}
