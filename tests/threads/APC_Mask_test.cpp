// Which messages a mask lets through: the whole table.

#include "Workers.h"

#include <gtest/gtest.h>

#include <set>
#include <type_traits>

using namespace vantor;
using namespace threads_test;

namespace
{
class CMask : public CAPC
{
public:
    explicit CMask(unsigned long wakeMask) : CAPC(wakeMask) {}

    unsigned long Run() override { return 0; }
    unsigned long Stored() const { return m_dwWakeMask; }
};

std::set<unsigned int> MessagesOf(unsigned long bit)
{
    switch (bit)
    {
    case 0x01:
        return {0x100, 0x101, 0x104, 0x105};
    case 0x02:
        return {0x200};
    case 0x04:
        return {0x201, 0x202, 0x203, 0x204, 0x205, 0x206, 0x207, 0x208, 0x209};
    case 0x10:
        return {0x113};
    case 0x20:
        return {0x0F};
    default:
        return {};
    }
}

// From here on all messages belong to bit 0x08.
constexpr unsigned int FirstOfUsers = 0x400;

// How many of the 0x10000 messages differ from the table, and the first of them.
::testing::AssertionResult FollowsTheTable(unsigned long mask)
{
    std::set<unsigned int> allowed;
    for (unsigned long bit = 1; bit <= 0x20; bit <<= 1)
    {
        if (mask & bit)
        {
            const std::set<unsigned int> messages = MessagesOf(bit);
            allowed.insert(messages.begin(), messages.end());
        }
    }
    const CMask call(mask);
    for (unsigned int message = 0; message <= 0xFFFF; ++message)
    {
        const bool expected = message >= FirstOfUsers ? (mask & 0x08) != 0 : allowed.count(message) != 0;
        if (call.TestMessage(message) != expected)
            return ::testing::AssertionFailure() << std::hex << "message 0x" << message << " is "
                                                 << (expected ? "refused" : "allowed") << " by mask 0x" << mask;
    }
    return ::testing::AssertionSuccess();
}
}   // namespace

TEST(ApcMask, Construction_StoresTheMask)
{
    EXPECT_EQ(CMask(0x2B).Stored(), 0x2Bu);
    EXPECT_EQ(CMask(0xFFFFFFFF).Stored(), 0xFFFFFFFFu);
}

TEST(ApcMask, Layout_IsTheTableAndTheMask)
{
    struct CExpected
    {
        void* table;
        unsigned long mask;
    };

    EXPECT_EQ(sizeof(CAPC), sizeof(CExpected));
}

TEST(ApcMask, Destructor_IsNotVirtual)
{
    EXPECT_FALSE(std::has_virtual_destructor_v<CAPC>);
}

TEST(ApcMask, TestMessage_ForEveryMaskAndMessage_FollowsTheTable)
{
    for (unsigned long mask = 0; mask < 64; ++mask)
        EXPECT_TRUE(FollowsTheTable(mask));
}

TEST(ApcMask, TestMessage_OfBitsBeyondTheTable_AllowsNothingMore)
{
    EXPECT_TRUE(FollowsTheTable(0xFFFFFFC0));
    EXPECT_TRUE(FollowsTheTable(0xFFFFFFFF));
}

TEST(ApcMask, TestMessage_BeyondSixteenBits_BelongsToPostedMessages)
{
    for (const unsigned int message : {0x10000u, 0x10100u, 0x1000Fu, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu})
    {
        EXPECT_TRUE(CMask(0x08).TestMessage(message)) << message;
        EXPECT_FALSE(CMask(0x37).TestMessage(message)) << message;
    }
}
