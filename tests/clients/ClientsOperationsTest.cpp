#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <stdexcept>
#include <thread>

#include "tests/clients/ClientOperations.h"

namespace k4test {

using Calls = std::vector<std::string>;

class EveryOperation : public ::testing::TestWithParam<ClientOperation> {
 protected:
    EveryOperation() { Operation().ScriptSuccess(m_rpc); }

    const ClientOperation& Operation() const { return GetParam(); }
    /// What one connection of the service overload comes to, as often as the operation connects,
    /// and then the operation's own calls.
    Calls Expected(const Calls& first, const Calls& further) const {
        Calls calls = first;
        for (int again = 1; again < Operation().connects; ++again)
            calls.insert(calls.end(), further.begin(), further.end());
        calls.insert(calls.end(), Operation().stubs.begin(), Operation().stubs.end());
        return calls;
    }
    void ConnectTo(const std::string& service) {
        ASSERT_EQ(m_client.ConnectService(service), 1);
        m_rpc.calls.clear();
    }
    void FailOnce() {
        m_rpc.results["k4ssClearQueue"] = 1;
        m_client.ClearQueue("Main");
        m_rpc.results.erase("k4ssClearQueue");
        m_rpc.calls.clear();
        ASSERT_EQ(m_client.GetLastError(), "Could not clear queue");
    }

    RecordingSSRpc m_rpc;
    k4cmn::ScopedProvider<K4SSRpc> m_provider{m_rpc};
    CK4CmnSS m_client;
};

/// All but the scripts, which have no stub and so can't fail by one.
class EveryOperationWithAStub : public EveryOperation {};

std::vector<ClientOperation> OperationsWithAStub() {
    std::vector<ClientOperation> operations = ClientOperations();
    std::erase_if(operations, [](const auto& operation) { return operation.stubs.empty(); });
    return operations;
}

const Calls kAsked = {"k4ssIsServer(Alpha)", "k4ssPing()"};
const Calls kConnected = {"k4ssIsServer(Alpha)", "k4ssConnectSignAsUser(Alpha, null, null, null)"};
const Calls kRepaired = {"k4ssIsServer(Alpha)", "k4ssPing()",
                         "k4ssConnectSignAsUser(Alpha, null, null, null)"};

TEST(ClientOperations, TheTableHoldsTheSignListSixteenReadsAndEighteenCommands) {
    std::set<std::string> names;
    std::size_t reads = 0;
    for (const ClientOperation& operation : ClientOperations()) {
        names.insert(operation.name);
        reads += !operation.outputs.empty();
    }
    EXPECT_EQ(ClientOperations().size(), 1U + 16U + 18U);
    EXPECT_EQ(names.size(), ClientOperations().size());
    EXPECT_EQ(reads, 1U + 16U) << "a read without an output proves nothing";
    EXPECT_EQ(OperationsWithAStub().size(), ClientOperations().size() - 2) << "the two of scripts";
}

TEST_P(EveryOperation, PlainCallsItsStubsAlone) {
    EXPECT_EQ(Operation().plain(m_client), 1);
    EXPECT_EQ(m_rpc.calls, Operation().stubs);
}

TEST_P(EveryOperation, PlainSuccessClearsTheWordsOfTheFailureBefore) {
    FailOnce();
    EXPECT_EQ(Operation().plain(m_client), 1);
    EXPECT_EQ(m_client.GetLastError(), "");
}

TEST_P(EveryOperationWithAStub, PlainFailureGivesItsWordsWhateverTheCode) {
    for (const std::int32_t code : {1, -1, 2, 0x7FFFFFFF}) {
        m_rpc.calls.clear();
        m_rpc.results[Operation().FirstStub()] = code;
        EXPECT_EQ(Operation().plain(m_client), 0);
        EXPECT_EQ(m_client.GetLastError(), Operation().words);
        EXPECT_EQ(m_rpc.calls, Calls{Operation().stubs.front()});
    }
}

TEST_P(EveryOperation, ServiceOverloadConnectsWhereNothingIsConnected) {
    EXPECT_EQ(Operation().overService(m_client, "Alpha"), 1);
    EXPECT_EQ(m_rpc.calls, Expected(kConnected, kAsked));
    EXPECT_EQ(m_client.GetLastError(), "");
}

TEST_P(EveryOperation, BothOverloadsFillTheSameOutputsWithTheSame) {
    ResetClientOutputs();
    EXPECT_EQ(Operation().plain(m_client), 1);
    EXPECT_EQ(ClientOutputs(), Operation().outputs);
    ResetClientOutputs();
    EXPECT_EQ(Operation().overService(m_client, "Alpha"), 1);
    EXPECT_EQ(ClientOutputs(), Operation().outputs);
}

TEST_P(EveryOperation, ServiceOverloadPingsALiveConnection) {
    ConnectTo("Alpha");
    EXPECT_EQ(Operation().overService(m_client, "Alpha"), 1);
    EXPECT_EQ(m_rpc.calls, Expected(kAsked, kAsked));
}

TEST_P(EveryOperation, ServiceOverloadMovesFromAnotherService) {
    ConnectTo("Beta");
    EXPECT_EQ(Operation().overService(m_client, "Alpha"), 1);
    EXPECT_EQ(m_rpc.calls, Expected(kConnected, kAsked));
}

TEST_P(EveryOperation, ServiceOverloadRepairsADeadLink) {
    ConnectTo("Alpha");
    m_rpc.results["k4ssPing"] = 1;
    EXPECT_EQ(Operation().overService(m_client, "Alpha"), 1);
    EXPECT_EQ(m_rpc.calls, Expected(kRepaired, kRepaired));
}

TEST_P(EveryOperation, ServiceOverloadFailsWhereConnectingFails) {
    m_rpc.results["k4ssConnectSignAsUser"] = 1;
    EXPECT_EQ(Operation().overService(m_client, "Alpha"), 0);
    EXPECT_EQ(m_rpc.calls, kConnected);
    EXPECT_EQ(m_client.GetLastError(), "Sign service unavailable.");
}

TEST_P(EveryOperationWithAStub, ServiceOverloadFailsWithTheWordsOfThePlainOne) {
    m_rpc.results[Operation().FirstStub()] = 5;
    EXPECT_EQ(Operation().overService(m_client, "Alpha"), 0);
    EXPECT_EQ(m_client.GetLastError(), Operation().words);
    Calls upToTheFailure = Expected(kConnected, kAsked);
    upToTheFailure.resize(upToTheFailure.size() - (Operation().stubs.size() - 1));
    EXPECT_EQ(m_rpc.calls, upToTheFailure) << "tried again, went on or disconnected";
    EXPECT_EQ(m_rpc.connectedTo, "Alpha");
}

TEST_P(EveryOperation, ServiceOverloadTakesTheEmptyTextForThisMachine) {
    EXPECT_EQ(Operation().overService(m_client, ""), 1);
    ASSERT_FALSE(m_rpc.calls.empty());
    EXPECT_EQ(m_rpc.calls.front(), "k4ssIsServer(.)");
}

TEST_P(EveryOperationWithAStub, AnExceptionOfAStubIsAFailureAndLeavesTheLockFree) {
    m_rpc.onCall = [this](const std::string& stub) {
        if (stub == Operation().FirstStub())
            throw std::runtime_error("thrown by a test");
    };
    EXPECT_EQ(Operation().plain(m_client), 0);
    EXPECT_EQ(m_client.GetLastError(), Operation().words);
    EXPECT_EQ(Operation().overService(m_client, "Alpha"), 0);
    EXPECT_EQ(m_client.GetLastError(), Operation().words);

    // Would hang here with the lock still held.
    std::string words;
    std::thread([&] { words = m_client.GetLastError(); }).join();
    EXPECT_EQ(words, Operation().words);
}

constexpr auto kByName = [](const auto& row) { return std::string(row.param.name); };

INSTANTIATE_TEST_SUITE_P(Client, EveryOperation, ::testing::ValuesIn(ClientOperations()), kByName);
INSTANTIATE_TEST_SUITE_P(Client, EveryOperationWithAStub,
                         ::testing::ValuesIn(OperationsWithAStub()), kByName);

}  // namespace k4test
