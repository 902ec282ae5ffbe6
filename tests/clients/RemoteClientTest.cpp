#include "tests/clients/RemoteClientTest.h"

#include <memory>
#include <stdexcept>
#include <type_traits>

#include "k4cmndlg/clients/CK4CmnSS.h"

namespace k4test {
namespace {

class RemoteLife : public RemoteClientTest {};
class RemoteConnectService : public RemoteClientTest {};
class RemoteChangeFlag : public RemoteClientTest {};
class RemoteLastError : public RemoteClientTest {};
class RemoteLists : public RemoteClientTest, public ::testing::WithParamInterface<RemoteListRow> {
 protected:
    int List(Texts& list) { return (m_client.*GetParam().list)(list); }
    std::string Stub() const { return GetParam().stub; }
    std::string StubCall() const { return Stub() + "()"; }
};

TEST_F(RemoteLife, MakingOneCallsNothing) {
    EXPECT_TRUE(m_rpc.calls.empty());
    EXPECT_EQ(m_client.GetLastError(), "");
}

TEST_F(RemoteLife, DestroyingOneDropsTheConnectionOfAllAndTheNextCallConnectsAgain) {
    m_rpc.needsConnection = true;
    ASSERT_EQ(m_client.ConnectService(), 1);
    m_rpc.calls.clear();
    { const CK4CmnRS other; }
    EXPECT_EQ(m_rpc.calls, Calls{"k4rsDisconnect()"});
    EXPECT_FALSE(m_rpc.isConnected);
    EXPECT_EQ(m_client.GetChangeFlag(nullptr, 0), 1);
    EXPECT_TRUE(m_rpc.isConnected);
}

TEST_F(RemoteLife, DisconnectsAlsoWithoutAConnectionAndWhateverTheStubSays) {
    m_rpc.results["k4rsDisconnect"] = {1};
    { const CK4CmnRS other; }
    EXPECT_EQ(m_rpc.calls, Calls{"k4rsDisconnect()"});
}

TEST_F(RemoteLife, IsDestroyedThroughItsBase) {
    std::unique_ptr<CObject> object = std::make_unique<CK4CmnRS>();
    object.reset();
    EXPECT_EQ(m_rpc.calls, Calls{"k4rsDisconnect()"});
}

TEST_F(RemoteLife, TheLockIsOfItsOwn) {
    EXPECT_NE(&CK4CmnRS::m_cs, &CK4CmnSS::m_cs);
}

TEST_F(RemoteConnectService, ConnectsToThisSystemWithADot) {
    EXPECT_EQ(m_client.ConnectService(), 1);
    EXPECT_EQ(m_rpc.calls, Calls{"k4rsConnect(.)"});
}

TEST_F(RemoteConnectService, ConnectsAgainThoughAConnectionExists) {
    m_client.ConnectService();
    m_client.ConnectService();
    EXPECT_EQ(m_rpc.calls, (Calls{"k4rsConnect(.)", "k4rsConnect(.)"}));
}

TEST_F(RemoteConnectService, FailsWithItsWordsWhateverTheCode) {
    for (const std::int32_t code : {1, -1, 1722}) {
        m_rpc.results["k4rsConnect"] = {code};
        EXPECT_EQ(m_client.ConnectService(), 0) << code;
        EXPECT_EQ(m_client.GetLastError(), kUnavailable) << code;
    }
}

TEST_F(RemoteConnectService, SuccessClearsTheWords) {
    m_rpc.results["k4rsConnect"] = {1, 0};
    m_client.ConnectService();
    EXPECT_EQ(m_client.ConnectService(), 1);
    EXPECT_EQ(m_client.GetLastError(), "");
}

TEST_F(RemoteConnectService, DisconnectingSucceedsOnZeroAloneAndLeavesTheWords) {
    EXPECT_EQ(m_client.DisconnectService(), 1);
    m_rpc.results["k4rsConnect"] = {1};
    m_client.ConnectService();
    for (const std::int32_t code : {1, -1}) {
        m_rpc.results["k4rsDisconnect"] = {code};
        EXPECT_EQ(m_client.DisconnectService(), 0) << code;
    }
    m_rpc.results["k4rsDisconnect"] = {0};
    EXPECT_EQ(m_client.DisconnectService(), 1);
    EXPECT_EQ(m_client.GetLastError(), kUnavailable);
}

TEST_F(RemoteConnectService, WithoutAServiceInstalledItIsUnavailable) {
    k4cmn::Provided<K4rsRpc>::Install(nullptr);
    {
        OpenedRemoteClient client;
        Texts list = {"Old"};
        EXPECT_EQ(client.ConnectService(), 0);
        EXPECT_EQ(client.GetLastError(), kUnavailable);
        EXPECT_EQ(client.DisconnectService(), 0);
        EXPECT_EQ(client.GetChangeFlag(nullptr, 750), 0);
        EXPECT_EQ(client.GetLastError(), kUnavailable);
        EXPECT_EQ(client.GetConnectedPhoneEntries(list), 0);
        EXPECT_EQ(client.GetRemoteServices(list), 0);
        EXPECT_EQ(client.GetLastError(), kUnavailable);
        EXPECT_EQ(list, Texts{"Old"});
    }
    K4rsRpc& absent = k4cmn::Provided<K4rsRpc>::Current();
    EXPECT_NE(absent.k4rsAddDownLoadEvent("a", 2, 0, 0), 0);
    EXPECT_NE(absent.k4rsGetChangeFlag(nullptr), 0);
    EXPECT_NE(absent.k4rsListConnectedPhoneEntries(nullptr, 0, nullptr), 0);
    EXPECT_NE(absent.k4rsListServices(nullptr, 0, nullptr), 0);
    k4cmn::Provided<K4rsRpc>::Install(&m_rpc);
}

TEST_F(RemoteConnectService, AnExceptionOfAStubIsAFailure) {
    m_rpc.onCall = [](const std::string&) { throw std::runtime_error("thrown by a test"); };
    Texts list;
    EXPECT_EQ(m_client.ConnectService(), 0);
    EXPECT_EQ(m_client.GetLastError(), kUnavailable);
    EXPECT_EQ(m_client.DisconnectService(), 0);
    EXPECT_EQ(m_client.GetChangeFlag(nullptr, 0), 0);
    EXPECT_EQ(m_client.GetConnectedPhoneEntries(list), 0);
    { const CK4CmnRS other; }
    m_rpc.onCall = [](const std::string& stub) {
        if (stub != "k4rsConnect")
            throw 1;
    };
    EXPECT_EQ(m_client.GetChangeFlag(nullptr, 0), 0);
    EXPECT_EQ(m_client.GetLastError(), kNoFlag);
    EXPECT_EQ(m_client.GetRemoteServices(list), 0);
    EXPECT_EQ(m_client.GetLastError(),
              "Could not get remote sign services list from remote service.");
    m_rpc.onCall = nullptr;
}

// What GetChangeFlag() does, by the results of its stub and of connecting.
TEST_F(RemoteChangeFlag, AsksFirstAndConnectsOnlyWhenThatFails) {
    const std::string flag = "k4rsGetChangeFlag()";
    const std::string connect = "k4rsConnect(.)";
    struct Row {
        const char* name;
        std::vector<std::int32_t> flagResults;
        std::int32_t connectResult;
        Calls calls;
        int result;
        const char* words;
    };
    const Row rows[] = {
        {"live connection", {0}, 0, {flag}, 1, ""},
        {"live connection, and nobody to connect to", {0}, 1, {flag}, 1, ""},
        {"dead connection, live service", {1, 0}, 0, {flag, connect, flag}, 1, ""},
        {"service gone", {1, 0}, 1, {flag, connect}, 0, kUnavailable},
        {"second failure", {1, 1}, 0, {flag, connect, flag}, 0, kNoFlag},
        {"other codes", {-5, 1722}, 0, {flag, connect, flag}, 0, kNoFlag},
    };
    for (const Row& row : rows) {
        m_rpc.calls.clear();
        m_rpc.results = {{"k4rsGetChangeFlag", row.flagResults},
                         {"k4rsConnect", {row.connectResult}}};
        std::uint32_t word = 0;
        EXPECT_EQ(m_client.GetChangeFlag(&word, 750), row.result) << row.name;
        EXPECT_EQ(m_rpc.calls, row.calls) << row.name;
        EXPECT_EQ(m_client.GetLastError(), row.words) << row.name;
    }
}

TEST_F(RemoteChangeFlag, AConnectionThatAnotherObjectDroppedIsRepaired) {
    m_rpc.needsConnection = true;
    m_rpc.replies["k4rsGetChangeFlag"].word = 99;
    std::uint32_t word = 0;
    EXPECT_EQ(m_client.GetChangeFlag(&word, 0), 1);
    EXPECT_EQ(word, 99U);
    EXPECT_EQ(m_rpc.Count("k4rsConnect"), 1U);
    EXPECT_EQ(m_client.GetChangeFlag(&word, 0), 1);
    EXPECT_EQ(m_rpc.Count("k4rsConnect"), 1U) << "the connection lives";
}

TEST_F(RemoteChangeFlag, HandsTheCallersPointerThrough) {
    EXPECT_EQ(m_client.GetChangeFlag(nullptr, 750), 1);
    EXPECT_EQ(m_rpc.calls, Calls{"k4rsGetChangeFlag(null)"});
    std::uint32_t word = kUntouched;
    m_rpc.replies["k4rsGetChangeFlag"].word = 0xFFFFFFFF;
    EXPECT_EQ(m_client.GetChangeFlag(&word, 750), 1);
    EXPECT_EQ(word, 0xFFFFFFFFU);
}

TEST_F(RemoteChangeFlag, LeavesAWordThatTheServiceDoesntWrite) {
    m_rpc.results["k4rsConnect"] = {1};
    m_rpc.results["k4rsGetChangeFlag"] = {1};
    std::uint32_t word = kUntouched;
    EXPECT_EQ(m_client.GetChangeFlag(&word, 750), 0);
    EXPECT_EQ(word, kUntouched);
}

TEST_P(RemoteLists, ConnectAndAskOnceEach) {
    Texts list;
    EXPECT_EQ(List(list), 1);
    EXPECT_EQ(List(list), 1);
    EXPECT_EQ(m_rpc.calls, (Calls{"k4rsConnect(.)", StubCall(), "k4rsConnect(.)", StubCall()}));
    EXPECT_TRUE(list.empty());
}

TEST_P(RemoteLists, GiveTheStub261BytesAndALengthOfZero) {
    Texts list;
    List(list);
    EXPECT_EQ(m_rpc.lastCapacity, 261U);
    EXPECT_EQ(m_rpc.lastLengthBefore, 0U);
}

TEST_P(RemoteLists, AppendTheTokensBetweenRunsOfNewlinesAndTabs) {
    struct Row {
        const char* reply;
        Texts tokens;
    };
    const Row rows[] = {
        {"", {}},
        {"\n\t\n\t", {}},
        {"One", {"One"}},
        {"One\nTwo\n", {"One", "Two"}},
        {"One\tTwo", {"One", "Two"}},
        {"\n\nOne\t\n\tTwo\t\t", {"One", "Two"}},
        {"With blank\n  led\n", {"With blank", "  led"}},
        {"One\r\nTwo", {"One\r", "Two"}},
        {"Z\xC3\xBCrich\nOne\nOne", {"Z\xC3\xBCrich", "One", "One"}},
    };
    for (const Row& row : rows) {
        m_rpc.replies[Stub()].text = row.reply;
        Texts list = {"Old"};
        Texts expected = {"Old"};
        expected.insert(expected.end(), row.tokens.begin(), row.tokens.end());
        EXPECT_EQ(List(list), 1) << row.reply;
        EXPECT_EQ(list, expected) << row.reply;
    }
}

TEST_P(RemoteLists, WithoutAServiceLeaveTheListAndCallNoStub) {
    m_rpc.replies[Stub()].text = "New\n";
    m_rpc.results["k4rsConnect"] = {1};
    Texts list = {"Old"};
    EXPECT_EQ(List(list), 0);
    EXPECT_EQ(list, Texts{"Old"});
    EXPECT_EQ(m_rpc.calls, Calls{"k4rsConnect(.)"});
    EXPECT_EQ(m_client.GetLastError(), kUnavailable);
}

TEST_P(RemoteLists, FailWithTheirWordsWhateverTheCodeAndLeaveTheList) {
    m_rpc.replies[Stub()].text = "New\n";
    for (const std::int32_t code : {1, -1, 1722}) {
        m_rpc.results[Stub()] = {code};
        Texts list = {"Old"};
        EXPECT_EQ(List(list), 0) << code;
        EXPECT_EQ(list, Texts{"Old"}) << code;
        EXPECT_EQ(m_client.GetLastError(), GetParam().words) << code;
    }
}

TEST_P(RemoteLists, SuccessClearsTheWordsAlsoWithoutAToken) {
    m_rpc.results["k4rsConnect"] = {1, 0};
    Texts list;
    List(list);
    EXPECT_EQ(List(list), 1);
    EXPECT_EQ(m_client.GetLastError(), "");
    m_rpc.results[Stub()] = {1, 0};
    List(list);
    EXPECT_EQ(List(list), 1);
    EXPECT_EQ(m_client.GetLastError(), "");
}

TEST_P(RemoteLists, FailureIsFollowedByAFreshTry) {
    m_rpc.results["k4rsConnect"] = {1, 0};
    Texts list;
    EXPECT_EQ(List(list), 0);
    EXPECT_EQ(List(list), 1);
}

INSTANTIATE_TEST_SUITE_P(Remote, RemoteLists, ::testing::ValuesIn(kRemoteLists),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(RemoteLastError, ReadTwiceGivesTheSame) {
    m_rpc.results["k4rsConnect"] = {1};
    m_client.ConnectService();
    EXPECT_EQ(m_client.GetLastError(), kUnavailable);
    EXPECT_EQ(m_client.GetLastError(), kUnavailable);
}

TEST_F(RemoteLastError, IsTheObjectsOwn) {
    OpenedRemoteClient other;
    m_rpc.results["k4rsConnect"] = {1, 0};
    m_client.ConnectService();
    EXPECT_EQ(other.GetLastError(), "");
    other.ConnectService();
    EXPECT_EQ(m_client.GetLastError(), kUnavailable);
}

TEST_F(RemoteLastError, CanBeReadByWhoHoldsTheLock) {
    const k4cmn::CriticalSectionLock lock(CK4CmnRS::m_cs);
    EXPECT_EQ(m_client.GetLastError(), "");
    EXPECT_EQ(m_client.GetChangeFlag(nullptr, 0), 1) << "the lock is recursive";
}

}  // namespace
}  // namespace k4test
