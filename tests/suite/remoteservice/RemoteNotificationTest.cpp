#include <gmock/gmock.h>

#include <QTest>
#include <memory>

#include "k4cmndlg/clients/CK4CmnRS.h"
#include "k4cmndlg/clients/CK4CmnRemoteThread.h"
#include "k4cmndlg/frame/WindowMessage.h"
#include "suite/EmbeddedSuite.h"
#include "suite/remoteservice/RemoteEngine.h"
#include "suite/settings/MachineSettings.h"
#include "tests/suite/platform/SharedEventProcess.h"
#include "tests/suite/remoteservice/RemoteRig.h"

namespace {

using k4suite::DataHome;
using k4suite::EmbeddedSuite;
using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

constexpr std::uint32_t kChanged = 1034;
constexpr int kPatience = 30'000;

/// A window that lists the connected entries anew at each notification.
class EntriesWindow : public QObject {
 public:
    EntriesWindow() { m_thread.Initialize(this, kChanged); }

    Texts entries;
    int notifications = 0;

    bool event(QEvent* event) override {
        if (!k4cmn::WindowMessage::From(event))
            return QObject::event(event);
        ++notifications;
        entries.clear();
        EXPECT_EQ(CK4CmnRS().GetConnectedPhoneEntries(entries), 1);
        return true;
    }

 private:
    CK4CmnRemoteThread m_thread;
};

class RemoteNotificationTest : public testing::Test {
 protected:
    RemoteNotificationTest() {
        EXPECT_TRUE(WriteMachineSettings(m_home, k4test::RemoteSettings()));
        m_suite = std::make_unique<EmbeddedSuite>(m_home, "test");
    }

    template <class Condition>
    static bool Comes(Condition condition) {
        return QTest::qWaitFor(condition, kPatience);
    }

    k4test::TempFolder m_folder;
    DataHome m_home{m_folder / "home"};
    std::unique_ptr<EmbeddedSuite> m_suite;
};

TEST_F(RemoteNotificationTest, AWindowFollowsTheLinks) {
    EntriesWindow window;
    m_suite->Remote()->SetDialingTime(milliseconds(20));
    const std::uint32_t harbor = m_suite->Remote()->Dial("Harbor");
    EXPECT_TRUE(Comes([&] { return window.entries == Texts{"Harbor"}; }));
    const std::uint32_t airport = m_suite->Remote()->Dial("Airport");
    EXPECT_TRUE(Comes([&] { return window.entries == (Texts{"Harbor", "Airport"}); }));
    m_suite->Remote()->HangUp(harbor);
    EXPECT_TRUE(Comes([&] { return window.entries == Texts{"Airport"}; }));
    m_suite->Remote()->HangUp(airport);
    EXPECT_TRUE(Comes([&] { return window.entries.empty(); }));
}

TEST_F(RemoteNotificationTest, ASignalOfAnotherProcessReachesTheWindow) {
    EntriesWindow window;
    k4test::SharedEventProcess peer(m_home.Path(), kRemoteNotificationEvent);
    EXPECT_EQ(peer.Ask("set"), "1");
    EXPECT_TRUE(Comes([&] { return window.notifications == 1; }));
}

TEST_F(RemoteNotificationTest, AnotherProcessHearsOfALink) {
    k4test::SharedEventProcess peer(m_home.Path(), kRemoteNotificationEvent);
    EXPECT_EQ(peer.Ask("wait 60000"), "waiting");
    m_suite->Remote()->SetDialingTime(milliseconds(1));
    m_suite->Remote()->Dial("Harbor");
    EXPECT_EQ(peer.Answer(), "signalled");
}

TEST_F(RemoteNotificationTest, TheClientIsServedWhileTheSuiteStands) {
    Texts list;
    EXPECT_EQ(CK4CmnRS().GetRemoteServices(list), 1);
    m_suite.reset();
    CK4CmnRS client;
    EXPECT_EQ(client.GetRemoteServices(list), 0);
    EXPECT_EQ(client.GetLastError(), "Remote service unavailable.");
    EXPECT_FALSE(k4cmn::Provided<k4cmn::NamedEvents>::Current().CreateOrOpen("Event"));
}

TEST_F(RemoteNotificationTest, WhereAnotherRunsTheServicesThereIsTheEventAndNoEngine) {
    K4rsRpc* const ofFirst = k4cmn::Provided<K4rsRpc>::Install(nullptr);
    {
        EmbeddedSuite second(m_home, "second");
        EXPECT_EQ(second.Remote(), nullptr);
        EXPECT_EQ(CK4CmnRS().GetChangeFlag(nullptr, 0), 0);
        const auto event =
            k4cmn::Provided<k4cmn::NamedEvents>::Current().CreateOrOpen(kRemoteNotificationEvent);
        ASSERT_TRUE(event);
        m_suite->Remote()->SetDialingTime(milliseconds(0));
        m_suite->Remote()->Dial("Harbor");
        EXPECT_EQ(event->WaitFor(0), k4cmn::NamedEvent::Wait::Signalled);
    }
    k4cmn::Provided<K4rsRpc>::Install(ofFirst);
}

TEST_F(RemoteNotificationTest, DownLoadEventsAreKeptInTheHome) {
    K4rsRpc& rpc = k4cmn::Provided<K4rsRpc>::Current();
    ASSERT_EQ(rpc.k4rsConnect(""), 0);
    const char path[] = "A:\\list.DL4";
    EXPECT_EQ(rpc.k4rsAddDownLoadEvent(path, sizeof path, 8 << 6 | 5, (2027 << 4 | 1) << 5 | 15),
              0);
    EXPECT_EQ(rpc.k4rsDisconnect(), 0);
    EXPECT_TRUE(std::filesystem::exists(m_home.Path() / "state/remote/downloads.ini"));
    m_suite.reset();
    m_suite = std::make_unique<EmbeddedSuite>(m_home, "test");
    EXPECT_EQ(m_suite->Remote()->DownLoads().size(), 1U);
    EXPECT_THAT(m_suite->Problems(), IsEmpty());
}

}  // namespace
