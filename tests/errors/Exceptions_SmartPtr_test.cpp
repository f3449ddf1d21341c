#include "support/Leaks.h"

#include <vantor/Exceptions.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <type_traits>
#include <vector>

using namespace vantor;

namespace
{
class CCounted
{
public:
    explicit CCounted(int number = 0) : value(number) { ++s_alive; }
    CCounted(const CCounted&) = delete;
    CCounted& operator=(const CCounted&) = delete;
    virtual ~CCounted()
    {
        --s_alive;
        ++s_deleted;
    }

    const int value;

    static std::atomic<int> s_alive;
    static std::atomic<int> s_deleted;
};

std::atomic<int> CCounted::s_alive{0};
std::atomic<int> CCounted::s_deleted{0};

class CDerived : public CCounted
{
public:
    ~CDerived() override { ++s_derivedDeleted; }

    static int s_derivedDeleted;
};

int CDerived::s_derivedDeleted = 0;

using CPtr = CSmartPtr<CCounted>;

class SmartPtr : public ::testing::Test
{
protected:
    SmartPtr() { CCounted::s_alive = CCounted::s_deleted = CDerived::s_derivedDeleted = 0; }
};
}   // namespace

TEST_F(SmartPtr, Release_OfTheOnlyHandle_DeletesTheObject)
{
    {
        const CPtr p(new CCounted);
        EXPECT_EQ(0, CCounted::s_deleted);
    }
    EXPECT_EQ(1, CCounted::s_deleted);
}

TEST_F(SmartPtr, Release_OfAllButTheLastCopy_DeletesNothing)
{
    auto* first = new CPtr(new CCounted);
    auto* second = new CPtr(*first);
    const CPtr third(*second);
    delete first;
    delete second;
    EXPECT_EQ(0, CCounted::s_deleted);
    EXPECT_EQ(1, CCounted::s_alive);
}

TEST_F(SmartPtr, Release_OfTheLastOfSeveralCopies_DeletesTheObjectOnce)
{
    auto* first = new CPtr(new CCounted);
    auto* second = new CPtr(*first);
    auto* third = new CPtr(*first);
    delete second;
    delete first;
    delete third;
    EXPECT_EQ(1, CCounted::s_deleted);
}

TEST_F(SmartPtr, Release_DeletesThroughTheVirtualDestructor)
{
    {
        const CPtr p(new CDerived);
    }
    EXPECT_EQ(1, CDerived::s_derivedDeleted);
}

TEST_F(SmartPtr, Handle_HasAVirtualDestructor)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<CPtr>);
}

TEST_F(SmartPtr, Copy_SharesTheObject)
{
    const CPtr p(new CCounted);
    const CPtr copy(p);
    EXPECT_EQ(p.get(), copy.get());
    EXPECT_EQ(1, CCounted::s_alive);
}

TEST_F(SmartPtr, Access_ReachesTheObject)
{
    auto* object = new CCounted(42);
    const CPtr p(object);
    EXPECT_EQ(object, p.get());
    EXPECT_EQ(object, &*p);
    EXPECT_EQ(42, p->value);
    EXPECT_TRUE(static_cast<bool>(p));
}

TEST_F(SmartPtr, Access_ToANullObject_GivesNull)
{
    const CPtr p(nullptr);
    EXPECT_EQ(nullptr, p.get());
    EXPECT_EQ(nullptr, p.operator->());
    EXPECT_FALSE(static_cast<bool>(p));
}

TEST_F(SmartPtr, Copies_OfANullObject_AreReleasedInPeace)
{
    auto* p = new CPtr(nullptr);
    CPtr copy(*p);
    delete p;
    EXPECT_FALSE(static_cast<bool>(copy));
}

TEST_F(SmartPtr, Default_HoldsNothing)
{
    const CPtr p;
    const CPtr copy(p);
    EXPECT_FALSE(static_cast<bool>(p));
    EXPECT_FALSE(static_cast<bool>(copy));
}

TEST_F(SmartPtr, Bool_IsExplicit)
{
    EXPECT_FALSE((std::is_convertible_v<CPtr, bool>));
    EXPECT_FALSE((std::is_convertible_v<CCounted*, CPtr>));
}

TEST_F(SmartPtr, Assign_ReleasesTheOldObjectAndSharesTheNew)
{
    CPtr p(new CCounted(1));
    const CPtr other(new CCounted(2));
    p = other;
    EXPECT_EQ(1, CCounted::s_deleted);
    EXPECT_EQ(2, p->value);
    EXPECT_EQ(other.get(), p.get());
}

TEST_F(SmartPtr, Assign_KeepsAnOldObjectThatHasAnotherHandle)
{
    CPtr p(new CCounted(1));
    const CPtr keeper(p);
    p = CPtr(new CCounted(2));
    EXPECT_EQ(0, CCounted::s_deleted);
    EXPECT_EQ(1, keeper->value);
}

TEST_F(SmartPtr, Assign_ToItself_KeepsTheObject)
{
    {
        CPtr p(new CCounted(1));
        const CPtr& same = p;
        p = same;
        EXPECT_EQ(0, CCounted::s_deleted);
        EXPECT_EQ(1, p->value);
    }
    EXPECT_EQ(1, CCounted::s_deleted);
}

TEST_F(SmartPtr, Assign_OfAHandleToTheSameObject_KeepsTheObject)
{
    CPtr p(new CCounted(1));
    const CPtr copy(p);
    p = copy;
    EXPECT_EQ(0, CCounted::s_deleted);
    EXPECT_EQ(1, p->value);
}

TEST_F(SmartPtr, Assign_OfAnEmptyHandle_ReleasesTheObject)
{
    CPtr p(new CCounted(1));
    p = CPtr();
    EXPECT_EQ(1, CCounted::s_deleted);
    EXPECT_FALSE(static_cast<bool>(p));
}

TEST_F(SmartPtr, Copies_OnSeveralThreads_DeleteTheObjectOnce)
{
    constexpr int threadCount = 8;
    constexpr int rounds = 5000;
    auto* p = new CPtr(new CCounted(1));
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i)
    {
        threads.emplace_back(
            [own = CPtr(*p)]() mutable
            {
                for (int round = 0; round < rounds; ++round)
                {
                    const CPtr copy(own);
                    own = copy;
                }
            });
    }
    delete p;
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(1, CCounted::s_deleted);
}

TEST_F(SmartPtr, Life_LeavesNothingBehind)
{
    const auto live = []
    {
        const CPtr p(new CCounted);
        CPtr copy(p);
        copy = CPtr(nullptr);
        copy = CPtr(new CCounted);
    };
    live();
    const support::CResources before;
    live();
    EXPECT_EQ(before, support::CResources());
}
