#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

#include "tests/clients/ClientTest.h"

namespace k4test {
namespace {

constexpr std::chrono::milliseconds kBriefly{20};
constexpr std::chrono::minutes kLongEnough{1};

/// Makes one call on a thread of its own and tells how far it has come.
class Caller {
 public:
    explicit Caller(std::function<int()> call)
        : m_call(std::move(call)), m_thread(&Caller::Run, this) {}
    ~Caller() { m_thread.join(); }
    Caller(const Caller&) = delete;
    Caller& operator=(const Caller&) = delete;

    /// Whether the thread has come to its call before the deadline.
    bool Began(std::chrono::milliseconds deadline) { return ComesUp(m_began, deadline); }
    /// Whether the call has come back before the deadline.
    bool CameBack(std::chrono::milliseconds deadline) { return ComesUp(m_back, deadline); }
    /// What the call gave. Only once it has come back.
    int Result() const { return m_result; }

 private:
    void Run() {
        Note(m_began);
        m_result = m_call();
        Note(m_back);
    }
    void Note(bool& flag) {
        const std::lock_guard guard(m_mutex);
        flag = true;
        m_changed.notify_all();
    }
    bool ComesUp(const bool& flag, std::chrono::milliseconds deadline) {
        std::unique_lock guard(m_mutex);
        return m_changed.wait_for(guard, deadline, [&] { return flag; });
    }

    std::function<int()> m_call;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_began = false;
    bool m_back = false;
    int m_result = -1;
    std::thread m_thread;  ///< last, so that it finds all others made
};

/// A call of a client, while another thread holds the lock.
struct LockRow {
    const char* name;
    std::function<int(std::unique_ptr<OpenedClient>&)> call;
    std::size_t stubs;  ///< how many it calls
};

void PrintTo(const LockRow& row, std::ostream* stream) {
    *stream << row.name;
}

class WithTheLockHeldElsewhere : public ClientTest, public ::testing::WithParamInterface<LockRow> {
 protected:
    WithTheLockHeldElsewhere() {
        m_rpc.onCall = [this](const std::string&) { ++m_stubs; };
    }
    ~WithTheLockHeldElsewhere() override { m_rpc.onCall = nullptr; }

    std::atomic<std::size_t> m_stubs = 0;
    std::unique_ptr<OpenedClient> m_other = std::make_unique<OpenedClient>();
};

class CallsWithoutALock : public WithTheLockHeldElsewhere {};
class CallsUnderTheLock : public WithTheLockHeldElsewhere {};

TEST_P(CallsWithoutALock, ComeBackWhileItIsHeld) {
    CK4CmnSS::m_cs.Lock();
    Caller caller([this] { return GetParam().call(m_other); });
    const bool cameBack = caller.CameBack(kLongEnough);
    const std::size_t stubs = m_stubs;
    CK4CmnSS::m_cs.Unlock();
    ASSERT_TRUE(cameBack) << "waited for the lock";
    EXPECT_EQ(stubs, GetParam().stubs);
    EXPECT_EQ(caller.Result(), 1);
}

TEST_P(CallsUnderTheLock, ComeBackOnlyAfterItsRelease) {
    CK4CmnSS::m_cs.Lock();
    Caller caller([this] { return GetParam().call(m_other); });
    EXPECT_TRUE(caller.Began(kLongEnough));
    EXPECT_FALSE(caller.CameBack(kBriefly)) << "didn't wait for the lock, or gave up";
    EXPECT_EQ(m_stubs, 0U) << "called a stub before it had the lock";
    CK4CmnSS::m_cs.Unlock();
    ASSERT_TRUE(caller.CameBack(kLongEnough));
    EXPECT_EQ(m_stubs, GetParam().stubs);
    EXPECT_EQ(caller.Result(), 1);
}

const LockRow kWithout[] = {
    {"PlainCommand", [](auto& client) { return client->StopSequence("Main"); }, 1},
    {"PlainRead", [](auto& client) { return client->GetChangeFlag("Main", nullptr); }, 1},
    {"ConnectService", [](auto& client) { return client->ConnectService("Alpha"); }, 2},
    {"IsConnected", [](auto& client) { return client->IsConnected("Alpha") == 0 ? 1 : 0; }, 1},
    {"Ping", [](auto& client) { return client->Ping(); }, 1},
    {"DisconnectService", [](auto& client) { return client->DisconnectService(); }, 1},
};

const LockRow kUnder[] = {
    {"ServiceCommand", [](auto& client) { return client->StopSequence("Alpha", "Main"); }, 3},
    {"ServiceRead",
     [](auto& client) { return client->GetDefaultSeqFlag("Alpha", "Main", nullptr); }, 3},
    {"ServiceScript", [](auto& client) { return client->EndScript("Alpha", "Main"); }, 2},
    {"ChangeFlagWithoutAWait",
     [](auto& client) { return client->GetChangeFlag("Alpha", "Main", nullptr, 0); }, 3},
    {"GetLastError", [](auto& client) { return client->GetLastError().empty() ? 1 : 0; }, 0},
    {"Destructor",
     [](auto& client) {
         client.reset();
         return 1;
     },
     1},
};

constexpr auto kByName = [](const auto& row) { return std::string(row.param.name); };

INSTANTIATE_TEST_SUITE_P(Client, CallsWithoutALock, ::testing::ValuesIn(kWithout), kByName);
INSTANTIATE_TEST_SUITE_P(Client, CallsUnderTheLock, ::testing::ValuesIn(kUnder), kByName);

}  // namespace
}  // namespace k4test
