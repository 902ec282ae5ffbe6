#include <memory>
#include <stdexcept>

#include "tests/clients/ClientTest.h"

namespace k4test {
namespace {

using Names = std::vector<std::string>;

constexpr const char* kUnavailable = "Sign service unavailable.";

class ConnectService : public ClientTest {};
class IsConnected : public ClientTest {};
class DisconnectService : public ClientTest {};
class GetSignList : public ClientTest {};
class GetLastError : public ClientTest {};
class ClientLife : public ClientTest {};

TEST_F(ConnectService, MapsTheNamesOfThisMachineAndNoOther) {
    struct Row {
        const char* given;
        const char* passed;
    };
    constexpr Row rows[] = {
        {"", "."},
        {"Local", "."},
        {"LOCAL", "."},
        {"local", "."},
        {"lOcAl", "."},
        {".", "."},
        {"Alpha", "Alpha"},
        {"Locals", "Locals"},
        {"Loca", "Loca"},
        {" Local", " Local"},
        {"localhost", "localhost"},
        {"Loc\xC3\xA4l", "Loc\xC3\xA4l"},
        {"MYLOCAL", "MYLOCAL"},
        {"@ocal", "@ocal"},
    };
    for (const Row& row : rows) {
        m_rpc.calls.clear();
        m_rpc.connectedTo.clear();
        EXPECT_EQ(m_client.ConnectService(row.given), 1) << row.given;
        const std::string passed = row.passed;
        EXPECT_EQ(m_rpc.calls, (Calls{"k4ssIsServer(" + passed + ")",
                                      "k4ssConnectSignAsUser(" + passed + ", null, null, null)"}));
    }
}

TEST_F(ConnectService, LiveConnectionCostsOneIsServerAndOnePing) {
    ASSERT_EQ(m_client.ConnectService("Alpha"), 1);
    m_rpc.calls.clear();
    EXPECT_EQ(m_client.ConnectService("Alpha"), 1);
    EXPECT_EQ(m_rpc.calls, (Calls{"k4ssIsServer(Alpha)", "k4ssPing()"}));
}

TEST_F(ConnectService, AnyNonZeroAnswerOfIsServerMeansYes) {
    for (const std::int32_t answer : {1, -1, 256}) {
        m_rpc.calls.clear();
        m_rpc.results["k4ssIsServer"] = answer;
        EXPECT_EQ(m_client.ConnectService("Alpha"), 1);
        EXPECT_EQ(m_rpc.Count("k4ssConnectSignAsUser"), 0U) << answer;
    }
}

TEST_F(ConnectService, HandsTheThreeTextsThrough) {
    EXPECT_EQ(m_client.ConnectService("Alpha", "user", nullptr, "domain"), 1);
    EXPECT_EQ(m_rpc.calls.back(), "k4ssConnectSignAsUser(Alpha, user, null, domain)");
}

TEST_F(ConnectService, IgnoresTheThreeTextsOnALiveConnection) {
    m_client.ConnectService("Alpha");
    m_rpc.calls.clear();
    EXPECT_EQ(m_client.ConnectService("Alpha", "user", "word", "domain"), 1);
    EXPECT_EQ(m_rpc.Count("k4ssConnectSignAsUser"), 0U);
}

TEST_F(ConnectService, MovesToAnotherServiceWithoutDisconnecting) {
    m_client.ConnectService("Alpha");
    m_rpc.calls.clear();
    EXPECT_EQ(m_client.ConnectService("Beta"), 1);
    EXPECT_EQ(m_rpc.calls,
              (Calls{"k4ssIsServer(Beta)", "k4ssConnectSignAsUser(Beta, null, null, null)"}));
    EXPECT_EQ(m_rpc.connectedTo, "Beta");
}

TEST_F(ConnectService, DeadLinkIsConnectedAgain) {
    m_client.ConnectService("Alpha");
    m_rpc.calls.clear();
    m_rpc.results["k4ssPing"] = 1;
    EXPECT_EQ(m_client.ConnectService("Alpha"), 1);
    EXPECT_EQ(m_rpc.calls, (Calls{"k4ssIsServer(Alpha)", "k4ssPing()",
                                  "k4ssConnectSignAsUser(Alpha, null, null, null)"}));
}

TEST_F(ConnectService, DeadLinkThatCantBeConnectedIsUnavailable) {
    m_client.ConnectService("Alpha");
    m_rpc.results["k4ssPing"] = 1;
    m_rpc.results["k4ssConnectSignAsUser"] = 1;
    EXPECT_EQ(m_client.ConnectService("Alpha"), 0);
    EXPECT_EQ(m_client.GetLastError(), kUnavailable);
}

TEST_F(ConnectService, FailsWithItsWordsWhateverTheCode) {
    for (const std::int32_t code : {1, -1, 1722}) {
        m_rpc.results["k4ssConnectSignAsUser"] = code;
        EXPECT_EQ(m_client.ConnectService("Alpha"), 0);
        EXPECT_EQ(m_client.GetLastError(), kUnavailable);
    }
}

TEST_F(ConnectService, SuccessClearsTheWords) {
    m_rpc.results["k4ssConnectSignAsUser"] = 1;
    m_client.ConnectService("Alpha");
    m_rpc.results.clear();
    EXPECT_EQ(m_client.ConnectService("Alpha"), 1);
    EXPECT_EQ(m_client.GetLastError(), "");
    m_rpc.results["k4ssStopSequence"] = 1;
    m_client.StopSequence("Main");
    EXPECT_EQ(m_client.ConnectService("Alpha"), 1) << "on the live connection";
    EXPECT_EQ(m_client.GetLastError(), "");
}

TEST_F(ConnectService, FailureIsFollowedByAFreshTry) {
    m_rpc.results["k4ssConnectSignAsUser"] = 1;
    EXPECT_EQ(m_client.GetPhotocellStatus("Alpha", "Main", nullptr), 0);
    m_rpc.results.clear();
    EXPECT_EQ(m_client.GetPhotocellStatus("Alpha", "Main", nullptr), 1);
}

TEST_F(ConnectService, WithoutAServiceInstalledItIsUnavailable) {
    k4cmn::Provided<K4SSRpc>::Install(nullptr);
    CK4CmnSS client;
    EXPECT_EQ(client.ConnectService(""), 0);
    EXPECT_EQ(client.GetLastError(), kUnavailable);
    EXPECT_EQ(client.DisconnectService(), 0);
    EXPECT_EQ(client.IsConnected("."), 0);
    EXPECT_EQ(client.SetDimming("Main", K4_SIGN_DIM_MANUAL, 1), 0);
    EXPECT_EQ(client.GetLastError(), "Could not set dimming mode");
    k4cmn::Provided<K4SSRpc>::Install(&m_rpc);
}

TEST_F(ConnectService, AnExceptionOfAStubIsANoOrAFailure) {
    for (const char* thrower : {"k4ssIsServer", "k4ssPing"}) {
        m_rpc.connectedTo = "Alpha";
        m_rpc.onCall = [&](const std::string& stub) {
            if (stub == thrower)
                throw std::runtime_error("thrown by a test");
        };
        EXPECT_EQ(m_client.IsConnected("Alpha"), 0) << thrower;
        EXPECT_EQ(m_client.ConnectService("Alpha"), 1) << thrower;
    }
    m_rpc.connectedTo.clear();
    m_rpc.onCall = [](const std::string&) { throw std::runtime_error("thrown by a test"); };
    EXPECT_EQ(m_client.ConnectService("Alpha"), 0);
    EXPECT_EQ(m_client.GetLastError(), kUnavailable);
    EXPECT_EQ(m_client.DisconnectService(), 0);
    m_rpc.onCall = nullptr;
}

TEST_F(IsConnected, AsksForTheNameAsGiven) {
    m_client.IsConnected("Local");
    m_client.IsConnected("");
    EXPECT_EQ(m_rpc.calls, (Calls{"k4ssIsServer(Local)", "k4ssIsServer()"}));
}

TEST_F(IsConnected, ANoCostsNoPing) {
    EXPECT_EQ(m_client.IsConnected("Alpha"), 0);
    EXPECT_EQ(m_rpc.calls, Calls{"k4ssIsServer(Alpha)"});
}

TEST_F(IsConnected, AYesIsProvenByAPing) {
    m_rpc.connectedTo = "Alpha";
    EXPECT_EQ(m_client.IsConnected("Alpha"), 1);
    m_rpc.results["k4ssPing"] = 3;
    EXPECT_EQ(m_client.IsConnected("Alpha"), 0);
    EXPECT_EQ(m_rpc.Names(), (Names{"k4ssIsServer", "k4ssPing", "k4ssIsServer", "k4ssPing"}));
}

TEST_F(IsConnected, LeavesTheWordsAsTheyAre) {
    m_rpc.results["k4ssStopSequence"] = 1;
    m_client.StopSequence("Main");
    m_client.IsConnected("Alpha");
    m_rpc.connectedTo = "Alpha";
    m_client.IsConnected("Alpha");
    EXPECT_EQ(m_client.GetLastError(), "Could not stop sequence");
}

TEST_F(IsConnected, PingSucceedsOnZeroAlone) {
    EXPECT_EQ(m_client.Ping(), 1);
    for (const std::int32_t code : {1, -1}) {
        m_rpc.results["k4ssPing"] = code;
        EXPECT_EQ(m_client.Ping(), 0) << code;
    }
}

TEST_F(DisconnectService, ReportsWhatTheStubReportsWithoutWords) {
    EXPECT_EQ(m_client.DisconnectService(), 1);
    m_rpc.results["k4ssDisconnectSign"] = 1;
    EXPECT_EQ(m_client.DisconnectService(), 0);
    EXPECT_EQ(m_client.GetLastError(), "");
}

TEST_F(DisconnectService, LeavesTheWordsAsTheyAre) {
    m_rpc.results["k4ssStopSequence"] = 1;
    m_client.StopSequence("Main");
    EXPECT_EQ(m_client.DisconnectService(), 1);
    EXPECT_EQ(m_client.GetLastError(), "Could not stop sequence");
}

TEST_F(DisconnectService, IsCalledAlsoWithoutAConnection) {
    m_client.DisconnectService();
    EXPECT_EQ(m_rpc.calls, Calls{"k4ssDisconnectSign()"});
}

TEST_F(GetSignList, GivesTheNamesBetweenRunsOfNewlinesAndTabs) {
    struct Row {
        const char* reply;
        Names names;
    };
    const Row rows[] = {
        {"One\n\tTwo\n\tThree\n\n", {"One", "Two", "Three"}},
        {"", {}},
        {"\n\t\n\t", {}},
        {"One", {"One"}},
        {"\n\nOne\nTwo", {"One", "Two"}},
        {"One\t\t\tTwo\n\n\nThree", {"One", "Two", "Three"}},
        {"With blank\n  led\n", {"With blank", "  led"}},
        {"One\r\nTwo\r\n", {"One\r", "Two\r"}},
        {"Z\xC3\xBCrich\n", {"Z\xC3\xBCrich"}},
    };
    for (const Row& row : rows) {
        m_rpc.replies["k4ssListSigns"].text = row.reply;
        Names names;
        EXPECT_EQ(m_client.GetSignList(names), 1) << row.reply;
        EXPECT_EQ(names, row.names) << row.reply;
    }
}

TEST_F(GetSignList, GivesTheStub512BytesAndALengthOfZero) {
    m_rpc.lastLengthBefore = 99;
    Names names;
    m_client.GetSignList(names);
    EXPECT_EQ(m_rpc.lastCapacity, 512U);
    EXPECT_EQ(m_rpc.lastLengthBefore, 0U);
}

TEST_F(GetSignList, AppendsBehindWhatTheListHolds) {
    m_rpc.replies["k4ssListSigns"].text = "New\nNewer\n";
    Names names = {"Old", "New"};
    EXPECT_EQ(m_client.GetSignList(names), 1);
    EXPECT_EQ(names, (Names{"Old", "New", "New", "Newer"}));
}

TEST_F(GetSignList, FailureLeavesTheList) {
    m_rpc.replies["k4ssListSigns"].text = "New\n";
    m_rpc.results["k4ssListSigns"] = 1;
    Names names = {"Old"};
    EXPECT_EQ(m_client.GetSignList(names), 0);
    EXPECT_EQ(names, Names{"Old"});
    EXPECT_EQ(m_client.GetLastError(), "Could not get sign list from service.");
}

TEST_F(GetSignList, FailedConnectionLeavesTheList) {
    m_rpc.replies["k4ssListSigns"].text = "New\n";
    m_rpc.results["k4ssConnectSignAsUser"] = 1;
    Names names = {"Old"};
    EXPECT_EQ(m_client.GetSignList("Alpha", names), 0);
    EXPECT_EQ(names, Names{"Old"});
    EXPECT_EQ(m_rpc.Count("k4ssListSigns"), 0U);
    EXPECT_EQ(m_client.GetLastError(), kUnavailable);
}

TEST_F(GetLastError, IsEmptyAtFirst) {
    EXPECT_EQ(m_client.GetLastError(), "");
}

TEST_F(GetLastError, ReadTwiceGivesTheSame) {
    m_rpc.results["k4ssBlankSign"] = 1;
    m_client.BlankSign("Main");
    EXPECT_EQ(m_client.GetLastError(), "Could not blank sign");
    EXPECT_EQ(m_client.GetLastError(), "Could not blank sign");
}

TEST_F(GetLastError, IsEmptyAfterAFailureAndASuccess) {
    m_rpc.results["k4ssBlankSign"] = 1;
    m_client.BlankSign("Main");
    m_client.StopSequence("Main");
    EXPECT_EQ(m_client.GetLastError(), "");
}

TEST_F(GetLastError, IsTheObjectsOwn) {
    CK4CmnSS other;
    m_rpc.results["k4ssBlankSign"] = 1;
    m_client.BlankSign("Main");
    EXPECT_EQ(other.GetLastError(), "");
    other.StopSequence("Main");
    EXPECT_EQ(m_client.GetLastError(), "Could not blank sign");
}

TEST_F(GetLastError, CanBeReadByWhoHoldsTheLock) {
    const k4cmn::CriticalSectionLock lock(CK4CmnSS::m_cs);
    EXPECT_EQ(m_client.GetLastError(), "");
}

TEST_F(ClientLife, MakingOneCallsNothing) {
    EXPECT_TRUE(m_rpc.calls.empty());
}

TEST_F(ClientLife, DestroyingOneDropsTheConnectionOfAllAndTheNextCallConnectsAgain) {
    auto other = std::make_unique<CK4CmnSS>();
    ASSERT_EQ(m_client.ConnectService("Alpha"), 1);
    m_rpc.calls.clear();
    other.reset();
    EXPECT_EQ(m_rpc.calls, Calls{"k4ssDisconnectSign()"});
    EXPECT_EQ(m_client.IsConnected("Alpha"), 0);
    EXPECT_EQ(m_client.StopSequence("Alpha", "Main"), 1);
    EXPECT_EQ(m_rpc.connectedTo, "Alpha");
}

TEST_F(ClientLife, IsDestroyedThroughItsBase) {
    std::unique_ptr<CObject> object = std::make_unique<CK4CmnSS>();
    object.reset();
    EXPECT_EQ(m_rpc.calls, Calls{"k4ssDisconnectSign()"});
}

TEST_F(ClientLife, ABatchUnderTheLockConnectsOnce) {
    const k4cmn::CriticalSectionLock lock(CK4CmnSS::m_cs);
    ASSERT_EQ(m_client.ConnectService("Alpha"), 1);
    EXPECT_EQ(m_client.StopSequence("Main"), 1);
    EXPECT_EQ(m_client.BlankSign("Main"), 1);
    EXPECT_EQ(m_rpc.Names(), (Names{"k4ssIsServer", "k4ssConnectSignAsUser", "k4ssStopSequence",
                                    "k4ssBlankSign"}));
}

}  // namespace
}  // namespace k4test
