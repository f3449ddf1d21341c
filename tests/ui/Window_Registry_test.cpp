// The registry from window handles to objects. It does not ask whether a handle is a window's.

#include <vantor/Window.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <thread>
#include <vector>

using namespace vantor;

namespace
{
constexpr int Threads = 8;

// One that no window has.
HWND Number(std::uintptr_t number)
{
    return reinterpret_cast<HWND>(std::uintptr_t{0x7F000000} + number);
}

// Runs the action with the numbers 0 to 7, on eight threads that all start at once.
template <class Action>
void RunAtOnce(const Action& action)
{
    std::atomic<int> ready = 0;
    std::vector<std::thread> threads;
    for (unsigned int number = 0; number < Threads; ++number)
    {
        threads.emplace_back(
            [&action, &ready, number]
            {
                ++ready;
                while (ready < Threads)
                    std::this_thread::yield();
                action(number);
            });
    }
    for (std::thread& thread : threads)
        thread.join();
}

class WindowRegistry : public ::testing::Test
{
protected:
    ~WindowRegistry() override
    {
        CWnd::UnregisterInstance(Number(1));
        CWnd::UnregisterInstance(nullptr);
    }

    CWnd m_first;
    CWnd m_second;
};
}   // namespace

TEST_F(WindowRegistry, RegisteredHandle_IsFound)
{
    EXPECT_TRUE(CWnd::RegisterInstance(Number(1), &m_first));
    EXPECT_EQ(&m_first, CWnd::FindInstance(Number(1)));
}

TEST_F(WindowRegistry, UnknownHandle_IsNotFound)
{
    CWnd::RegisterInstance(Number(1), &m_first);
    EXPECT_EQ(nullptr, CWnd::FindInstance(Number(2)));
}

TEST_F(WindowRegistry, SecondObjectForAHandle_IsRefused)
{
    CWnd::RegisterInstance(Number(1), &m_first);
    EXPECT_FALSE(CWnd::RegisterInstance(Number(1), &m_second));
}

TEST_F(WindowRegistry, SecondObjectForAHandle_LeavesTheFirst)
{
    CWnd::RegisterInstance(Number(1), &m_first);
    CWnd::RegisterInstance(Number(1), &m_second);
    EXPECT_EQ(&m_first, CWnd::FindInstance(Number(1)));
}

TEST_F(WindowRegistry, SameObjectForAHandleAgain_IsRefused)
{
    CWnd::RegisterInstance(Number(1), &m_first);
    EXPECT_FALSE(CWnd::RegisterInstance(Number(1), &m_first));
}

TEST_F(WindowRegistry, OneObject_MayHaveSeveralHandles)
{
    CWnd::RegisterInstance(Number(1), &m_first);
    EXPECT_TRUE(CWnd::RegisterInstance(Number(2), &m_first));
    EXPECT_TRUE(CWnd::UnregisterInstance(Number(2)));
}

TEST_F(WindowRegistry, Unregister_RemovesTheEntry)
{
    CWnd::RegisterInstance(Number(1), &m_first);
    EXPECT_TRUE(CWnd::UnregisterInstance(Number(1)));
    EXPECT_EQ(nullptr, CWnd::FindInstance(Number(1)));
}

TEST_F(WindowRegistry, Unregister_OfAnUnknownHandle_IsFalse)
{
    EXPECT_FALSE(CWnd::UnregisterInstance(Number(1)));
}

TEST_F(WindowRegistry, Unregister_LeavesTheOtherHandles)
{
    CWnd::RegisterInstance(Number(1), &m_first);
    CWnd::RegisterInstance(Number(2), &m_second);
    CWnd::UnregisterInstance(Number(2));
    EXPECT_EQ(&m_first, CWnd::FindInstance(Number(1)));
}

TEST_F(WindowRegistry, UnregisteredHandle_CanBeRegisteredAnew)
{
    CWnd::RegisterInstance(Number(1), &m_first);
    CWnd::UnregisterInstance(Number(1));
    EXPECT_TRUE(CWnd::RegisterInstance(Number(1), &m_second));
    EXPECT_EQ(&m_second, CWnd::FindInstance(Number(1)));
}

TEST_F(WindowRegistry, NullHandle_IsOneAsAnyOther)
{
    EXPECT_EQ(nullptr, CWnd::FindInstance(nullptr));
    EXPECT_TRUE(CWnd::RegisterInstance(nullptr, &m_first));
    EXPECT_FALSE(CWnd::RegisterInstance(nullptr, &m_second));
    EXPECT_EQ(&m_first, CWnd::FindInstance(nullptr));
    EXPECT_TRUE(CWnd::UnregisterInstance(nullptr));
    EXPECT_FALSE(CWnd::UnregisterInstance(nullptr));
}

TEST_F(WindowRegistry, EightThreadsAtOnce_EachFindItsOwnEntries)
{
    CWnd objects[Threads];
    std::atomic<int> wrong = 0;
    RunAtOnce(
        [&](unsigned int number)
        {
            CWnd* const own = &objects[number];
            for (unsigned int round = 0; round < 500; ++round)
            {
                const HWND handle = Number(0x1000 * (number + 1) + round);
                if (!CWnd::RegisterInstance(handle, own))
                    ++wrong;
                if (CWnd::FindInstance(handle) != own)
                    ++wrong;
                if (round % 2 == 0 &&
                    !CWnd::UnregisterInstance(handle))   // the others stay for the next threads to step over
                    ++wrong;
            }
            for (unsigned int round = 1; round < 500; round += 2)
            {
                if (!CWnd::UnregisterInstance(Number(0x1000 * (number + 1) + round)))
                    ++wrong;
            }
        });
    EXPECT_EQ(0, wrong);
}

TEST_F(WindowRegistry, EightThreadsWithOneHandle_HaveOneWinnerInEachRound)
{
    CWnd objects[Threads];
    constexpr unsigned int rounds = 200;
    std::atomic<int> winners[rounds] = {};
    std::atomic<CWnd*> winner[rounds] = {};
    RunAtOnce(
        [&](unsigned int number)
        {
            for (unsigned int round = 0; round < rounds; ++round)
            {
                if (CWnd::RegisterInstance(Number(0x10000 + round), &objects[number]))
                {
                    ++winners[round];
                    winner[round] = &objects[number];
                }
            }
        });
    for (unsigned int round = 0; round < rounds; ++round)
    {
        ASSERT_EQ(1, winners[round]) << "round " << round;
        ASSERT_EQ(winner[round], CWnd::FindInstance(Number(0x10000 + round))) << "round " << round;
        CWnd::UnregisterInstance(Number(0x10000 + round));
    }
}
