// The order of the virtual operations, in this compiler's virtual tables.

#include "Workers.h"
#include "support/Slots.h"

#include <gtest/gtest.h>

#include <cstring>

using namespace vantor;
using support::ExpectSlots;
using support::Unnamed;

namespace
{
class CAppending : public CAPC
{
public:
    CAppending() : CAPC(0) {}

    unsigned long Invoke() override { return 1; }
    unsigned long Run() override { return 2; }
    virtual unsigned long Appended() { return 3; }
};

// What an application that was compiled long ago knows: positions.
class CPositions
{
public:
    virtual unsigned long First() = 0;
    virtual unsigned long Second() = 0;
    virtual unsigned long Third() = 0;
};
}   // namespace

TEST(SlotOrder, Thread_IsThatOfTheHandle)
{
    ExpectSlots("_ZTVN6vantor7CThreadE",
                {Unnamed, Unnamed, "_ZNK6vantor7CHandle9IsCreatedEv", "_ZN6vantor7CThread5CloseEv"});
}

TEST(SlotOrder, Apc_IsInvokeThenRun)
{
    ExpectSlots("_ZTVN6vantor4CAPCE", {"_ZN6vantor4CAPC6InvokeEv", Unnamed});
}

TEST(SlotOrder, Apc_HasNoSlotsBesideThose)
{
    CAppending object;
    CPositions* positions;
    CAPC* const base = &object;
    static_assert(sizeof positions == sizeof base);
    std::memcpy(&positions, &base, sizeof positions);

    EXPECT_EQ(positions->First(), 1u);
    EXPECT_EQ(positions->Second(), 2u);
    EXPECT_EQ(positions->Third(), 3u);
}
