// A program that is not linked to vantor.dll loads and unloads it: nothing may stay behind.

#include "support/Leaks.h"

#include <vantor/Platform.h>

#include <gtest/gtest.h>

using namespace support;

namespace
{
constexpr int Rounds = 1000;

bool LoadAndUnload()
{
    const HMODULE library = ::LoadLibraryW(L"vantor.dll");
    return library && ::FreeLibrary(library);
}

// The translator comes to life in the library, with its mutex and its exit handler, which runs at the unload.
bool LoadUseAndUnload()
{
    const HMODULE library = ::LoadLibraryW(L"vantor.dll");
    if (!library)
        return false;
    using Ref = void* (*)();
    const auto ref = reinterpret_cast<Ref>(
        reinterpret_cast<void*>(::GetProcAddress(library, "_ZN6vantor19CTranslatorInstance3RefEv")));
    const bool used = ref && ref() != nullptr;
    return ::FreeLibrary(library) && used;
}

// The system's own libraries stay loaded: what they keep for themselves at each load is not this library's.
void KeepTheSystemsLibraries()
{
    for (const wchar_t* name : {L"user32.dll", L"gdi32.dll", L"ole32.dll", L"oleaut32.dll", L"shell32.dll",
                                L"ws2_32.dll", L"msimg32.dll", L"comctl32.dll"})
        ::LoadLibraryW(name);
}

void ExpectNothingStaysBehind(bool (*round)())
{
    KeepTheSystemsLibraries();
    for (int i = 0; i < 10; ++i)
        ASSERT_TRUE(round());
    const CResources before;
    for (int i = 0; i < Rounds; ++i)
        ASSERT_TRUE(round());
    EXPECT_EQ(before, CResources());
}
}   // namespace

TEST(Loading, AtTheStart_TheLibraryIsNotLoaded)
{
    EXPECT_EQ(nullptr, ::GetModuleHandleW(L"vantor.dll"));
}

TEST(Loading, Unload_TakesTheLibraryAway)
{
    ASSERT_TRUE(LoadUseAndUnload());
    EXPECT_EQ(nullptr, ::GetModuleHandleW(L"vantor.dll"));
}

TEST(Loading, AThousandTimes_LeavesNothingBehind)
{
    ExpectNothingStaysBehind(&LoadAndUnload);
}

TEST(Loading, AThousandTimesWithTheTranslatorUsed_LeavesNothingBehind)
{
    ExpectNothingStaysBehind(&LoadUseAndUnload);
}
