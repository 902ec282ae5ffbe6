#include "k4cmndlg/frame/CCriticalSection.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

using k4cmn::CriticalSectionLock;

TEST(CriticalSection, ThreadThatHoldsItMayTakeItAgain) {
    CCriticalSection section;
    EXPECT_EQ(section.Lock(), 1);
    EXPECT_EQ(section.Lock(750), 1);
    EXPECT_EQ(section.Unlock(), 1);
    EXPECT_EQ(section.Unlock(), 1);
}

TEST(CriticalSection, WaitIsCarriedAndNotHonoured) {
    CCriticalSection section;
    section.Lock();
    std::atomic<bool> asking{false};
    std::atomic<bool> released{false};
    std::atomic<int> result{-1};
    std::thread other([&] {
        asking = true;
        result = section.Lock(0);
        EXPECT_TRUE(released) << "the lock was given while another thread held it";
        section.Unlock();
    });
    while (!asking)
        std::this_thread::yield();
    released = true;
    section.Unlock();
    other.join();
    EXPECT_EQ(result, 1);
}

TEST(CriticalSection, ThreadsTakeTurns) {
    CCriticalSection section;
    int plain = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < 1000; ++round) {
                const CriticalSectionLock lock(section, 750);
                const CriticalSectionLock again(section);
                EXPECT_EQ(again.IsLocked(), 1);
                ++plain;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(plain, 4000);
}
