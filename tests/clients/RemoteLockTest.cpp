#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <thread>

#include "k4cmndlg/clients/CK4CmnSS.h"
#include "tests/clients/RemoteClientTest.h"

namespace k4test {
namespace {

constexpr std::chrono::milliseconds kBriefly{20};
constexpr std::chrono::minutes kLongEnough{1};

/// A call of a client on a thread of its own.
struct LockRow {
    const char* name;
    std::function<int(std::unique_ptr<OpenedRemoteClient>&)> call;
    std::size_t stubs;  ///< how many it calls
};

const LockRow kWithout[] = {
    {"ConnectService", [](auto& client) { return client->ConnectService(); }, 1},
    {"DisconnectService", [](auto& client) { return client->DisconnectService(); }, 1},
};

const LockRow kUnder[] = {
    {"GetChangeFlagWithoutAWait", [](auto& client) { return client->GetChangeFlag(nullptr, 0); },
     1},
    {"GetConnectedPhoneEntries",
     [](auto& client) {
         std::vector<std::string> list;
         return client->GetConnectedPhoneEntries(list);
     },
     2},
    {"GetRemoteServices",
     [](auto& client) {
         std::vector<std::string> list;
         return client->GetRemoteServices(list);
     },
     2},
    {"GetLastError", [](auto& client) { return client->GetLastError().empty() ? 1 : 0; }, 0},
    {"Destructor",
     [](auto& client) {
         client.reset();
         return 1;
     },
     1},
};

void PrintTo(const LockRow& row, std::ostream* stream) {
    *stream << row.name;
}

class RemoteWithTheLockHeld : public RemoteClientTest,
                              public ::testing::WithParamInterface<LockRow> {
 protected:
    RemoteWithTheLockHeld() {
        m_rpc.onCall = [this](const std::string&) { ++m_stubs; };
    }
    ~RemoteWithTheLockHeld() override { m_rpc.onCall = nullptr; }

    /// Makes the call on another thread.
    std::future<int> Call() {
        return std::async(std::launch::async, [this] {
            m_began.set_value();
            return GetParam().call(m_other);
        });
    }

    std::atomic<std::size_t> m_stubs = 0;
    std::promise<void> m_began;
    std::unique_ptr<OpenedRemoteClient> m_other = std::make_unique<OpenedRemoteClient>();
};

class RemoteCallsWithoutALock : public RemoteWithTheLockHeld {};
class RemoteCallsUnderTheLock : public RemoteWithTheLockHeld {};

TEST_P(RemoteCallsWithoutALock, ComeBackWhileItIsHeld) {
    CK4CmnRS::m_cs.Lock();
    std::future<int> call = Call();
    const std::future_status status = call.wait_for(kLongEnough);
    CK4CmnRS::m_cs.Unlock();
    ASSERT_EQ(status, std::future_status::ready) << "waited for the lock";
    EXPECT_EQ(call.get(), 1);
    EXPECT_EQ(m_stubs, GetParam().stubs);
}

TEST_P(RemoteCallsUnderTheLock, ComeBackOnlyAfterItsRelease) {
    CK4CmnRS::m_cs.Lock();
    std::future<int> call = Call();
    m_began.get_future().wait();
    EXPECT_EQ(call.wait_for(kBriefly), std::future_status::timeout) << "didn't wait for the lock";
    EXPECT_EQ(m_stubs, 0U) << "called a stub before it had the lock";
    CK4CmnRS::m_cs.Unlock();
    ASSERT_EQ(call.wait_for(kLongEnough), std::future_status::ready);
    EXPECT_EQ(call.get(), 1);
    EXPECT_EQ(m_stubs, GetParam().stubs);
}

TEST_P(RemoteCallsUnderTheLock, DontWaitForTheLockOfTheSignService) {
    CK4CmnSS::m_cs.Lock();
    std::future<int> call = Call();
    const std::future_status status = call.wait_for(kLongEnough);
    CK4CmnSS::m_cs.Unlock();
    ASSERT_EQ(status, std::future_status::ready);
    EXPECT_EQ(call.get(), 1);
}

constexpr auto kByName = [](const auto& row) { return std::string(row.param.name); };

INSTANTIATE_TEST_SUITE_P(Remote, RemoteCallsWithoutALock, ::testing::ValuesIn(kWithout), kByName);
INSTANTIATE_TEST_SUITE_P(Remote, RemoteCallsUnderTheLock, ::testing::ValuesIn(kUnder), kByName);

class RemoteOnThreads : public RemoteClientTest {
 protected:
    RemoteOnThreads() {
        m_rpc.onCall = [this](const std::string&) {
            if (m_inside.fetch_add(1) != 0)
                m_overlap = true;
            std::this_thread::yield();
            m_inside.fetch_sub(1);
        };
    }
    ~RemoteOnThreads() override { m_rpc.onCall = nullptr; }

    template <class Work>
    static void OnThreads(Work work) {
        std::vector<std::thread> threads;
        for (int number = 0; number < 4; ++number)
            threads.emplace_back(work);
        for (std::thread& thread : threads)
            thread.join();
    }

    std::atomic<int> m_inside = 0;
    std::atomic<bool> m_overlap = false;
    std::atomic<int> m_failures = 0;
};

TEST_F(RemoteOnThreads, ObjectsComeAndGoAndKeepToOneCallAtATime) {
    m_rpc.replies["k4rsListServices"].text = "One\nTwo\n";
    OnThreads([this] {
        for (int round = 0; round < 50; ++round) {
            CK4CmnRS client;
            std::vector<std::string> list;
            std::uint32_t flag = 0;
            m_failures += client.GetChangeFlag(&flag, 0) != 1;
            m_failures += client.GetRemoteServices(list) != 1 || list.size() != 2;
            m_failures += client.GetConnectedPhoneEntries(list) != 1;
        }
    });
    EXPECT_FALSE(m_overlap);
    EXPECT_EQ(m_failures, 0);
}

TEST_F(RemoteOnThreads, ASharedObjectServesItsOperationsAndItsWords) {
    m_rpc.results["k4rsListServices"] = {1};
    OnThreads([this] {
        for (int round = 0; round < 100; ++round) {
            std::vector<std::string> list;
            m_failures += m_client.GetRemoteServices(list) != 0;
            m_failures += m_client.GetChangeFlag(nullptr, 0) != 1;
            const std::string words = m_client.GetLastError();
            m_failures += words != "" &&
                          words != "Could not get remote sign services list from remote service.";
        }
    });
    EXPECT_FALSE(m_overlap);
    EXPECT_EQ(m_failures, 0);
}

}  // namespace
}  // namespace k4test
