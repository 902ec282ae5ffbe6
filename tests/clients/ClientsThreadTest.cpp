#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "tests/clients/ClientOperations.h"

namespace k4test {
namespace {

constexpr int kThreads = 4;

/// A sign service that notices two calls at once.
class ClientsOnThreads : public ::testing::Test {
 protected:
    ClientsOnThreads() {
        m_rpc.onCall = [this](const std::string&) {
            if (m_inside.fetch_add(1) != 0)
                m_overlap = true;
            std::this_thread::yield();
            m_inside.fetch_sub(1);
        };
    }

    template <class Work>
    static void OnThreads(Work work) {
        std::vector<std::thread> threads;
        for (int number = 0; number < kThreads; ++number)
            threads.emplace_back([&work, number] { work(number); });
        for (std::thread& thread : threads)
            thread.join();
    }

    RecordingSSRpc m_rpc;
    k4cmn::ScopedProvider<K4SSRpc> m_provider{m_rpc};
    std::atomic<int> m_inside = 0;
    std::atomic<bool> m_overlap = false;
    std::atomic<int> m_failures = 0;
};

// The outputs of the table are shared by all threads too: only the lock keeps them apart.
TEST_F(ClientsOnThreads, EveryServiceOverloadOfOwnObjectsKeepsToOneCallAtATime) {
    for (const ClientOperation& operation : ClientOperations())
        operation.ScriptSuccess(m_rpc);
    OnThreads([this](int number) {
        CK4CmnSS client;
        for (int round = 0; round < 10; ++round) {
            const std::string service = (number + round) % 2 ? "Alpha" : "Beta";
            for (const ClientOperation& operation : ClientOperations())
                m_failures += operation.overService(client, service) != 1;
        }
    });
    EXPECT_FALSE(m_overlap);
    EXPECT_EQ(m_failures, 0);
}

TEST_F(ClientsOnThreads, ASharedObjectServesServiceOverloadsAndItsWords) {
    CK4CmnSS client;
    m_rpc.results["k4ssBlankSign"] = 1;
    OnThreads([&](int) {
        for (int round = 0; round < 100; ++round) {
            m_failures += client.StopSequence("Alpha", "Main") != 1;
            m_failures += client.BlankSign("Alpha", "Main") != 0;
            const std::string words = client.GetLastError();
            m_failures += words != "" && words != "Could not blank sign";
        }
    });
    EXPECT_FALSE(m_overlap);
    EXPECT_EQ(m_failures, 0);
}

TEST_F(ClientsOnThreads, BatchesUnderTheLockArentTornApart) {
    CK4CmnSS client;
    OnThreads([&](int number) {
        const std::string service = number % 2 ? "Alpha" : "Beta";
        for (int round = 0; round < 100; ++round) {
            const k4cmn::CriticalSectionLock lock(CK4CmnSS::m_cs);
            m_failures += client.ConnectService(service) != 1;
            m_failures += client.SetDimming("Main", K4_SIGN_DIM_MANUAL, round) != 1;
            m_failures += client.IsConnected(service) != 1;
        }
    });
    EXPECT_FALSE(m_overlap);
    EXPECT_EQ(m_failures, 0);
}

TEST_F(ClientsOnThreads, ObjectsComeAndGoBesideOthers) {
    OnThreads([&](int) {
        for (int round = 0; round < 50; ++round) {
            CK4CmnSS client;
            m_failures += client.PlayFile("Alpha", "Main", "A.SQ4", K4_PLAY_SEQ_CONTINUOUS, 0) != 1;
        }
    });
    EXPECT_FALSE(m_overlap);
    EXPECT_EQ(m_failures, 0);
}

class CriticalSection : public ::testing::Test {
 protected:
    /// Starts a thread that takes the lock once, handing it `wait` milliseconds.
    std::thread Taker(std::uint32_t wait) {
        std::unique_lock guard(m_mutex);
        m_trying = m_taken = false;
        return std::thread([this, wait] {
            Note(m_trying);
            const int result = m_section.Lock(wait);
            m_result = result;
            Note(m_taken);
            m_section.Unlock();
        });
    }
    /// Whether the flag came up before the deadline.
    bool ComesUp(const bool& flag, std::chrono::milliseconds deadline) {
        std::unique_lock guard(m_mutex);
        return m_changed.wait_for(guard, deadline, [&] { return flag; });
    }

    CCriticalSection m_section;
    bool m_trying = false;
    bool m_taken = false;
    int m_result = 0;

 private:
    void Note(bool& flag) {
        const std::lock_guard guard(m_mutex);
        flag = true;
        m_changed.notify_all();
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
};

constexpr std::chrono::milliseconds kLongBeyondTheWait{50};
constexpr std::chrono::minutes kLongEnough{1};

TEST_F(CriticalSection, TheWaitIsCarriedAndNotHonoured) {
    for (const std::uint32_t wait : {0U, 1U}) {
        ASSERT_EQ(m_section.Lock(), 1);
        std::thread taker = Taker(wait);
        EXPECT_TRUE(ComesUp(m_trying, kLongEnough));
        EXPECT_FALSE(ComesUp(m_taken, kLongBeyondTheWait)) << "gave up or got in";
        m_section.Unlock();
        EXPECT_TRUE(ComesUp(m_taken, kLongEnough));
        taker.join();
        EXPECT_EQ(m_result, 1);
    }
}

TEST_F(CriticalSection, IsRecursiveAndFreeOnlyAfterTheLastUnlock) {
    EXPECT_EQ(m_section.Lock(), 1);
    EXPECT_EQ(m_section.Lock(1), 1);
    EXPECT_EQ(m_section.Lock(750), 1);
    std::thread taker = Taker(1);
    EXPECT_EQ(m_section.Unlock(), 1);
    EXPECT_EQ(m_section.Unlock(), 1);
    EXPECT_TRUE(ComesUp(m_trying, kLongEnough));
    EXPECT_FALSE(ComesUp(m_taken, kLongBeyondTheWait));
    EXPECT_EQ(m_section.Unlock(), 1);
    EXPECT_TRUE(ComesUp(m_taken, kLongEnough));
    taker.join();
}

TEST_F(CriticalSection, AScopeHoldsItAndReportsSuccess) {
    std::thread taker;
    {
        const k4cmn::CriticalSectionLock lock(m_section, 1);
        EXPECT_EQ(lock.IsLocked(), 1);
        taker = Taker(1);
        EXPECT_TRUE(ComesUp(m_trying, kLongEnough));
        EXPECT_FALSE(ComesUp(m_taken, kLongBeyondTheWait));
    }
    EXPECT_TRUE(ComesUp(m_taken, kLongEnough));
    taker.join();
}

}  // namespace
}  // namespace k4test
