#include "SlotOf.h"
#include "Threads.h"

#include "support/Failure.h"
#include "support/ImportPatch.h"
#include "support/Slots.h"

#include <vantor/COM.h>

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <type_traits>

using namespace vantor;
using support::CImportPatch;

namespace
{
constexpr unsigned long ChangedMode = 0x80010106;

int g_balanced;

void WINAPI CountingUninitialize()
{
    ++g_balanced;
    ::CoUninitialize();
}

// Counts the library's calls, not those of the test.
class CCountBalanced
{
public:
    CCountBalanced() : m_patch(&::CoUninitialize, &CountingUninitialize) { g_balanced = 0; }

private:
    CImportPatch m_patch;
};

void* g_reserved;
DWORD g_apartment;

HRESULT WINAPI RecordingInitialize(LPVOID reserved, DWORD apartment)
{
    g_reserved = reserved;
    g_apartment = apartment;
    return ::CoInitializeEx(reserved, apartment);
}

HRESULT WINAPI InitializeWithoutMemory(LPVOID, DWORD)
{
    ::SetLastError(ERROR_GEN_FAILURE);
    return E_OUTOFMEMORY;
}

struct CWithMore : CCOMInitializer
{
    using CCOMInitializer::CCOMInitializer;
    virtual void More() {}
};
}   // namespace

TEST(COMInitializer, Scope_IsInTheMultiThreadedApartment)
{
    OnNewThread(
        []
        {
            const CCOMInitializer com(true);
            EXPECT_TRUE(IsInApartment(COINIT_MULTITHREADED));
        });
}

TEST(COMInitializer, Platform_IsGivenNullAndZero)
{
    const CImportPatch patch(&::CoInitializeEx, &RecordingInitialize);
    g_reserved = &g_reserved;
    g_apartment = ~0u;
    OnNewThread([] { const CCOMInitializer com(true); });
    EXPECT_EQ(nullptr, g_reserved);
    EXPECT_EQ(0u, g_apartment);
}

TEST(COMInitializer, EndOfScope_LeavesTheThreadWithoutCOM)
{
    OnNewThread(
        []
        {
            {
                const CCOMInitializer com(true);
            }
            EXPECT_TRUE(HasNoCOM());
        });
}

TEST(COMInitializer, WithoutThrowing_ScopeIsInitialisedAllTheSame)
{
    OnNewThread(
        []
        {
            {
                const CCOMInitializer com(false);
                EXPECT_TRUE(IsInApartment(COINIT_MULTITHREADED));
            }
            EXPECT_TRUE(HasNoCOM());
        });
}

TEST(COMInitializer, EndOfTheInnerScope_LeavesTheOuterInitialised)
{
    OnNewThread(
        []
        {
            const CCOMInitializer outer(true);
            {
                const CCOMInitializer inner(true);
            }
            EXPECT_TRUE(IsInApartment(COINIT_MULTITHREADED));
        });
}

TEST(COMInitializer, NestedScopes_AreBalancedExactly)
{
    const CCountBalanced count;
    OnNewThread(
        []
        {
            {
                const CCOMInitializer outer(true);
                const CCOMInitializer inner(true);
            }
            EXPECT_TRUE(HasNoCOM());
        });
    EXPECT_EQ(2, g_balanced);
}

TEST(COMInitializer, ThreadThatIsInitialisedAlready_IsNoFailure)
{
    OnNewThread(
        []
        {
            ::CoInitializeEx(nullptr, COINIT_MULTITHREADED);
            EXPECT_NO_THROW(CCOMInitializer(true));
            ::CoUninitialize();
        });
}

TEST(COMInitializer, ThreadThatIsInitialisedAlready_StaysSo)
{
    const CCountBalanced count;
    OnNewThread(
        []
        {
            ::CoInitializeEx(nullptr, COINIT_MULTITHREADED);
            {
                const CCOMInitializer com(true);
            }
            EXPECT_TRUE(IsInApartment(COINIT_MULTITHREADED));
            ::CoUninitialize();
            EXPECT_TRUE(HasNoCOM());
        });
    EXPECT_EQ(1, g_balanced);
}

TEST(COMInitializer, OtherApartment_Throws)
{
    OnNewThread(
        []
        {
            ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
            EXPECT_FAILURE(9, L".\\COM", L"CoInitialize", ChangedMode, CCOMInitializer(true));
            ::CoUninitialize();
        });
}

TEST(COMInitializer, Failure_CarriesTheResultAndNotTheLastError)
{
    const CImportPatch patch(&::CoInitializeEx, &InitializeWithoutMemory);
    EXPECT_FAILURE(9, L".\\COM", L"CoInitialize", 0x8007000E, CCOMInitializer(true));
}

TEST(COMInitializer, OnFailure_TheThreadStaysInItsApartment)
{
    const CCountBalanced count;
    OnNewThread(
        []
        {
            ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
            EXPECT_THROW(CCOMInitializer(true), CWinException);
            EXPECT_TRUE(IsInApartment(COINIT_APARTMENTTHREADED));
            ::CoUninitialize();
        });
    EXPECT_EQ(0, g_balanced);
}

TEST(COMInitializer, WithoutThrowing_OtherApartmentIsSilent)
{
    OnNewThread(
        []
        {
            ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
            EXPECT_NO_THROW(CCOMInitializer(false));
            ::CoUninitialize();
        });
}

TEST(COMInitializer, WithoutThrowing_FailureIsNotBalanced)
{
    const CCountBalanced count;
    OnNewThread(
        []
        {
            ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
            {
                const CCOMInitializer com(false);
            }
            EXPECT_TRUE(IsInApartment(COINIT_APARTMENTTHREADED));
            ::CoUninitialize();
        });
    EXPECT_EQ(0, g_balanced);
}

TEST(COMInitializer, ExceptionThroughTheScope_IsBalanced)
{
    OnNewThread(
        []
        {
            try
            {
                const CCOMInitializer com(true);
                throw 1;
            }
            catch (int)
            {
            }
            EXPECT_TRUE(HasNoCOM());
        });
}

TEST(COMInitializer, DeletedThroughItsBase_IsBalanced)
{
    OnNewThread(
        []
        {
            std::unique_ptr<CCOMInitializer>(new CWithMore(true)).reset();
            EXPECT_TRUE(HasNoCOM());
        });
}

TEST(COMInitializer, CannotBeCopied)
{
    EXPECT_FALSE(std::is_copy_constructible_v<CCOMInitializer>);
    EXPECT_FALSE(std::is_copy_assignable_v<CCOMInitializer>);
}

TEST(COMInitializerSlots, BeginWithTheDestructor)
{
    support::ExpectSlots("_ZTVN6vantor15CCOMInitializerE",
                         {"_ZN6vantor15CCOMInitializerD1Ev", "_ZN6vantor15CCOMInitializerD0Ev"});
}

TEST(COMInitializerSlots, EndWithTheDestructor)
{
    EXPECT_EQ(2u, SlotOf(&CWithMore::More));
}
