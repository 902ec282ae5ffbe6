#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <thread>

#include "k4cmndlg/clients/CK4CmnRS.h"
#include "k4cmndlg/clients/contracts/K4rsRpc.h"
#include "tests/support/CountedMemory.h"

namespace k4test {
namespace {

/// A remote service that takes no memory: connecting gives `connectResult`,
/// and its lists are `text`.
class PlainRSRpc final : public K4rsRpc {
    using Word = std::uint32_t;
    using Result = std::int32_t;

 public:
    Result connectResult = 0;
    const char* text = "";

    Result k4rsConnect(const char*) override { return connectResult; }
    Result k4rsDisconnect() override { return 0; }
    Result k4rsGetChangeFlag(Word* flag) override {
        *flag = 7;
        return 0;
    }
    Result k4rsListConnectedPhoneEntries(char* buffer, Word capacity, Word*) override {
        std::strncpy(buffer, text, capacity);
        return 0;
    }
    Result k4rsListServices(char* buffer, Word capacity, Word* length) override {
        return k4rsListConnectedPhoneEntries(buffer, capacity, length);
    }
    Result k4rsAddDownLoadEvent(const char*, Word, Word, Word) override { return 0; }
};

class RemoteAllocations : public ::testing::Test {
 protected:
    PlainRSRpc m_rpc;
    k4cmn::ScopedProvider<K4rsRpc> m_provider{m_rpc};
    CK4CmnRS m_client;
};

TEST_F(RemoteAllocations, AreCountedHere) {
    const std::size_t before = Allocations();
    // Of a length that no optimiser knows.
    const std::string text(before + 100, 'x');
    EXPECT_GT(Allocations(), before);
}

TEST_F(RemoteAllocations, PollingTheChangeFlagMakesNone) {
    std::uint32_t flag = 0;
    const std::size_t before = Allocations();
    const int result = m_client.GetChangeFlag(&flag, 750);
    const std::size_t made = Allocations() - before;
    EXPECT_EQ(result, 1);
    EXPECT_EQ(flag, 7U);
    EXPECT_EQ(made, 0U);
}

TEST_F(RemoteAllocations, AnEmptyListMakesNone) {
    std::vector<std::string> list;
    const std::size_t before = Allocations();
    const int result = m_client.GetConnectedPhoneEntries(list);
    const std::size_t made = Allocations() - before;
    EXPECT_EQ(result, 1);
    EXPECT_EQ(made, 0U);
}

TEST_F(RemoteAllocations, AListThatFindsNoMemoryFailsWholeAndLeavesTheLockFree) {
    m_rpc.text =
        "an entry with a name of some length\nanother entry of a length\na third one of some "
        "length\n";
    std::vector<std::string> list = {"Old"};
    const std::size_t before = Allocations();
    ASSERT_EQ(m_client.GetConnectedPhoneEntries(list), 1);
    const std::size_t needed = Allocations() - before;
    ASSERT_GE(needed, 4U);
    for (std::size_t failing = 1; failing <= needed; ++failing) {
        list = {"Old"};
        list.shrink_to_fit();
        FailAllocation(failing);
        const int result = m_client.GetConnectedPhoneEntries(list);
        const bool hasFailed = AllocationsUntilFailure() == 0;
        FailAllocation(0);
        EXPECT_TRUE(hasFailed) << failing;
        EXPECT_EQ(result, 0) << failing;
        EXPECT_EQ(list, std::vector<std::string>{"Old"}) << failing;
        // Would hang here with the lock still held.
        std::string words;
        std::thread([&] { words = m_client.GetLastError(); }).join();
        EXPECT_EQ(words, "Could not get phone entries list from service.");
    }
}

TEST_F(RemoteAllocations, WordsThatFindNoMemoryAreEmptyAndTheFailureStands) {
    m_rpc.connectResult = 1;
    std::vector<std::string> list;
    FailAllocation(1);
    const int result = m_client.GetRemoteServices(list);
    const bool hasFailed = AllocationsUntilFailure() == 0;
    FailAllocation(0);
    EXPECT_TRUE(hasFailed) << "took no memory";
    EXPECT_EQ(result, 0);
    EXPECT_EQ(m_client.GetLastError(), "");
}

}  // namespace
}  // namespace k4test
