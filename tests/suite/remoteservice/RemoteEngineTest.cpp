#include <gmock/gmock.h>

#include <filesystem>

#include "k4cmndlg/clients/CK4CmnRS.h"
#include "tests/suite/remoteservice/RemoteRig.h"

namespace {

using k4suite::DialState;
using k4suite::Fault;
using k4suite::LineFault;
using k4suite::RemoteEngine;
using k4test::RemoteRig;
using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::IsEmpty;
using Phase = DialState::Phase;
using Texts = std::vector<std::string>;

class RemoteEngineTest : public testing::Test {
 protected:
    RemoteRig m_rig;
    RemoteEngine& Engine() { return *m_rig.engine; }
};

TEST_F(RemoteEngineTest, KnowsThePhoneBookAndStartsWithoutALink) {
    ASSERT_EQ(Engine().PhoneBook().size(), 2U);
    EXPECT_EQ(Engine().PhoneBook()[0].name, "Harbor");
    EXPECT_THAT(Engine().Links(), IsEmpty());
    EXPECT_THAT(Engine().Services(), IsEmpty());
    EXPECT_THAT(Engine().Problems(), IsEmpty());
    EXPECT_FALSE(m_rig.WasTold());
}

TEST_F(RemoteEngineTest, ALinkThatComesUpBringsItsServicesAndIsTold) {
    const std::uint32_t handle = Engine().Dial("Harbor");
    EXPECT_EQ(Engine().StateOf(handle).phase, Phase::Dialing);
    m_rig.clock.Advance(milliseconds(2999));
    EXPECT_THAT(m_rig.UpEntries(), IsEmpty());
    EXPECT_FALSE(m_rig.WasTold());
    m_rig.clock.Advance(milliseconds(1));
    EXPECT_THAT(m_rig.UpEntries(), ElementsAre("Harbor"));
    EXPECT_TRUE(m_rig.WasTold());
    EXPECT_THAT(Engine().Services(), ElementsAre("Pier", "Lighthouse"));
    EXPECT_FALSE(m_rig.WasTold()) << "told once";
}

TEST_F(RemoteEngineTest, ServicesComeInTheOrderOfThePhoneBook) {
    m_rig.BringUp("Airport");
    m_rig.BringUp("Harbor");
    EXPECT_THAT(Engine().Services(), ElementsAre("Pier", "Lighthouse", "Gate 1"));
}

TEST_F(RemoteEngineTest, HangingUpIsTold) {
    const std::uint32_t handle = m_rig.BringUp("Harbor");
    m_rig.WasTold();
    EXPECT_TRUE(Engine().HangUp(handle));
    EXPECT_TRUE(m_rig.WasTold());
    EXPECT_THAT(Engine().Services(), IsEmpty());
    EXPECT_FALSE(Engine().HangUp(handle));
    EXPECT_FALSE(m_rig.WasTold());
}

TEST_F(RemoteEngineTest, ALineThatFailsTakesItsLinkDownAndIsTold) {
    const std::uint32_t handle = m_rig.BringUp("Harbor");
    m_rig.WasTold();
    EXPECT_TRUE(Engine().SetLineFault("harbor", LineFault::NoDialTone));
    EXPECT_TRUE(m_rig.WasTold());
    EXPECT_EQ(Engine().StateOf(handle), (DialState{Phase::Failed, LineFault::NoDialTone}));
    EXPECT_FALSE(Engine().SetLineFault("No such entry", LineFault::Busy));
}

TEST_F(RemoteEngineTest, ADiallingThatFailsIsNoChange) {
    Engine().SetLineFault("Harbor", LineFault::Busy);
    const std::uint32_t flag = Engine().ChangeFlag();
    const std::uint32_t handle = m_rig.BringUp("Harbor");
    EXPECT_EQ(Engine().StateOf(handle), (DialState{Phase::Failed, LineFault::Busy}));
    EXPECT_EQ(Engine().ChangeFlag(), flag);
    EXPECT_FALSE(m_rig.WasTold());
}

TEST_F(RemoteEngineTest, LinesAreShownFromTheFirstDialToTheLastHangingUp) {
    using k4suite::PhoneLine;
    const PhoneLine airport{"Airport", 0, {}, LineFault::None};
    EXPECT_THAT(Engine().Lines(),
                ElementsAre(PhoneLine{"Harbor", 0, {}, LineFault::None}, airport));
    const std::uint32_t handle = Engine().Dial("harbor");
    EXPECT_THAT(
        Engine().Lines(),
        ElementsAre(PhoneLine{"Harbor", handle, {Phase::Dialing}, LineFault::None}, airport));
    m_rig.clock.Advance(RemoteEngine::kDialingTime);
    EXPECT_THAT(Engine().Lines(),
                ElementsAre(PhoneLine{"Harbor", handle, {Phase::Up}, LineFault::None}, airport));
    Engine().SetLineFault("Harbor", LineFault::Busy);
    EXPECT_EQ(Engine().Lines()[0],
              (PhoneLine{"Harbor", handle, {Phase::Failed, LineFault::Busy}, LineFault::Busy}));
    Engine().HangUp(Engine().Lines()[0].handle);
    Engine().SetLineFault("Harbor", LineFault::None);
    EXPECT_THAT(Engine().Lines(),
                ElementsAre(PhoneLine{"Harbor", 0, {}, LineFault::None}, airport));
}

TEST_F(RemoteEngineTest, AnEntryThatDoesntExistCantBeDialled) {
    EXPECT_EQ(Engine().Dial("North"), 0U) << "a service, not an entry";
    EXPECT_EQ(Engine().Dial(""), 0U);
    EXPECT_EQ(Engine().StateOf(0).phase, Phase::Unknown);
}

TEST_F(RemoteEngineTest, TheTimeOfDiallingCanBeSet) {
    Engine().SetDialingTime(milliseconds(0));
    const std::uint32_t handle = Engine().Dial("Harbor");
    EXPECT_EQ(Engine().StateOf(handle).phase, Phase::Up);
    EXPECT_TRUE(m_rig.WasTold());
}

TEST_F(RemoteEngineTest, TheChangeFlagDiffersFromStartToStart) {
    const std::uint32_t before = Engine().ChangeFlag();
    m_rig.clock.Advance(milliseconds(1000));
    m_rig.Restart();
    EXPECT_NE(Engine().ChangeFlag(), before);
}

TEST_F(RemoteEngineTest, LinksDontSurviveAndDownLoadEventsDo) {
    m_rig.BringUp("Harbor");
    const char path[] = "A:\\list.DL4";
    ASSERT_EQ(
        m_rig.rpc->k4rsAddDownLoadEvent(path, sizeof path, 8 << 6 | 5, (2027 << 4 | 1) << 5 | 15),
        0);
    m_rig.Restart();
    EXPECT_THAT(Engine().Links(), IsEmpty());
    ASSERT_EQ(Engine().DownLoads().size(), 1U);
    EXPECT_EQ(Engine().DownLoads()[0], (k4suite::DownLoadEvent{"A:\\list.DL4", 2027, 1, 15, 8, 5}));
}

TEST_F(RemoteEngineTest, DownLoadEventsAreCounted) {
    for (std::size_t count = 1; count <= 3; ++count) {
        ASSERT_TRUE(Engine().AddDownLoadEvent({"A:\\list.DL4", 2027, 1, 15, 8, 5}));
        EXPECT_EQ(Engine().DownLoads().size(), count);
    }
}

TEST_F(RemoteEngineTest, WithoutAnEventItRunsAndSaysSo) {
    class NoEvents final : public k4cmn::NamedEvents {
        std::unique_ptr<k4cmn::NamedEvent> CreateOrOpen(const std::string&) override {
            return nullptr;
        }
    } none;
    RemoteEngine engine(m_rig.settings, m_rig.folder / "other.ini", m_rig.clock, none);
    EXPECT_THAT(engine.Problems(),
                ElementsAre("The event \"K4RemoteNotificationEvent\" can't be made: nobody is told "
                            "when a link changes."));
    engine.SetDialingTime(milliseconds(0));
    engine.Dial("Harbor");
    EXPECT_EQ(engine.Links().size(), 1U);
}

TEST_F(RemoteEngineTest, ProblemsOfAllKindsAreTold) {
    m_rig.settings.services.push_back({"A\nB", "Harbor", {}, {}});
    m_rig.folder.Write("downloads.ini", "[DownLoad1]\nPath=one\n");
    m_rig.Restart();
    EXPECT_EQ(Engine().Problems().size(), 2U);
}

/// The client over the engine.
class RemoteClientOverEngine : public RemoteEngineTest {
 protected:
    k4cmn::ScopedProvider<K4rsRpc> m_provider{*m_rig.rpc};
    CK4CmnRS m_client;
    Texts m_list;
};

TEST_F(RemoteClientOverEngine, ListsWhatIsConnectedAndWhatCanBeReached) {
    m_rig.BringUp("Airport");
    m_rig.BringUp("Harbor");
    EXPECT_EQ(m_client.GetConnectedPhoneEntries(m_list), 1);
    EXPECT_THAT(m_list, ElementsAre("Harbor", "Airport"));
    EXPECT_EQ(m_client.GetRemoteServices(m_list), 1);
    EXPECT_THAT(m_list, ElementsAre("Harbor", "Airport", "Pier", "Lighthouse", "Gate 1"));
}

TEST_F(RemoteClientOverEngine, AListBeyondTheBufferIsCutBehindAWholeName) {
    k4suite::MachineSettings settings;
    for (int number = 10; number < 50; ++number)
        settings.services.push_back({"Service number " + std::to_string(number), "Line", {}, {}});
    m_rig.settings = settings;
    RemoteEngine engine(settings, m_rig.folder / "other.ini", m_rig.clock, m_rig.events);
    k4suite::RemoteRpc rpc(engine);
    const k4cmn::ScopedProvider<K4rsRpc> provider(rpc);
    engine.SetDialingTime(milliseconds(0));
    engine.Dial("Line");
    EXPECT_EQ(m_client.GetRemoteServices(m_list), 1);
    ASSERT_EQ(m_list.size(), 260U / 18);
    EXPECT_EQ(m_list.back(), "Service number 23");
}

TEST_F(RemoteClientOverEngine, AnUnreachableServiceIsUnavailable) {
    Engine().SetFault(Fault::Unreachable());
    EXPECT_EQ(m_client.GetChangeFlag(nullptr, 750), 0);
    EXPECT_EQ(m_client.GetLastError(), "Remote service unavailable.");
    EXPECT_EQ(m_client.GetConnectedPhoneEntries(m_list), 0);
    EXPECT_EQ(m_client.GetLastError(), "Remote service unavailable.");
}

TEST_F(RemoteClientOverEngine, AServiceThatCameBackIsConnectedAnew) {
    std::uint32_t flag = 0;
    ASSERT_EQ(m_client.GetChangeFlag(&flag, 750), 1);
    Engine().SetFault(Fault::Unreachable());
    Engine().ClearFaults();
    EXPECT_NE(m_rig.rpc->k4rsGetChangeFlag(&flag), 0) << "the connection went with the service";
    EXPECT_EQ(m_client.GetChangeFlag(&flag, 750), 1);
    EXPECT_EQ(m_rig.rpc->k4rsGetChangeFlag(&flag), 0);
}

TEST_F(RemoteClientOverEngine, AStubThatFailsFailsAlone) {
    struct Row {
        const char* stub;
        const char* words;
        std::function<int()> call;
    };
    const Row rows[] = {
        {"k4rsGetChangeFlag", "Could not get change flag from service.",
         [this] { return m_client.GetChangeFlag(nullptr, 0); }},
        {"k4rsListConnectedPhoneEntries", "Could not get phone entries list from service.",
         [this] { return m_client.GetConnectedPhoneEntries(m_list); }},
        {"k4rsListServices", "Could not get remote sign services list from remote service.",
         [this] { return m_client.GetRemoteServices(m_list); }},
    };
    for (const Row& failing : rows) {
        Engine().ClearFaults();
        Engine().SetFault(Fault::FailingStub(failing.stub));
        for (const Row& row : rows) {
            EXPECT_EQ(row.call(), &row == &failing ? 0 : 1) << row.stub;
            EXPECT_EQ(m_client.GetLastError(), &row == &failing ? row.words : "") << row.stub;
        }
    }
}

TEST_F(RemoteClientOverEngine, ASlowServiceTakesItsTime) {
    std::vector<milliseconds> waits;
    Engine().SetWaiter([&](milliseconds wait) { waits.push_back(wait); });
    Engine().SetFault(Fault::Slow(milliseconds(250)));
    EXPECT_EQ(m_client.GetConnectedPhoneEntries(m_list), 1);
    EXPECT_THAT(waits, ElementsAre(milliseconds(250), milliseconds(250))) << "connect and list";
}

}  // namespace
