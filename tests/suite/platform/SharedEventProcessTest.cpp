#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <memory>
#include <vector>

#include "suite/platform/SharedEvents.h"
#include "tests/suite/platform/SharedEventProcess.h"
#include "tests/support/TempFolder.h"

namespace k4test {
namespace {

using k4suite::DataHome;
using k4suite::SharedEvents;
using Wait = k4cmn::NamedEvent::Wait;

constexpr std::uint32_t kLong = 60'000;

class SharedEventProcesses : public testing::Test {
 protected:
    std::unique_ptr<SharedEventProcess> Peer() {
        return std::make_unique<SharedEventProcess>(m_folder.Path(), "Event");
    }
    /// A peer that waits.
    std::unique_ptr<SharedEventProcess> WaitingPeer() {
        auto peer = Peer();
        EXPECT_EQ(peer->Ask("wait 60000"), "waiting");
        EXPECT_TRUE(peer->FallsAsleep());
        return peer;
    }
    bool IsThere() const {
        return std::filesystem::exists("/dev/shm" + m_events.MemoryName("Event"));
    }

    TempFolder m_folder;
    SharedEvents m_events{DataHome(m_folder.Path())};
};

TEST_F(SharedEventProcesses, ASignalIsSeenInAnotherProcess) {
    const auto peer = Peer();
    const auto event = m_events.CreateOrOpen("Event");
    EXPECT_EQ(peer->Ask("set"), "1");
    EXPECT_EQ(event->WaitFor(0), Wait::Signalled);
    event->Reset();
    EXPECT_EQ(peer->Ask("wait 0"), "waiting");
    EXPECT_EQ(peer->Answer(), "signalled") << "it hasn't heard of it yet";
    EXPECT_EQ(peer->Ask("wait 0"), "waiting");
    EXPECT_EQ(peer->Answer(), "timed out");
    EXPECT_EQ(peer->End(), 0);
}

TEST_F(SharedEventProcesses, ASignalWakesAllProcessesThatWait) {
    const auto first = WaitingPeer();
    const auto second = WaitingPeer();
    const auto event = m_events.CreateOrOpen("Event");
    event->Set();
    EXPECT_EQ(first->Answer(), "signalled");
    EXPECT_EQ(second->Answer(), "signalled");
}

TEST_F(SharedEventProcesses, AnotherProcessWakesAThreadThatWaits) {
    const auto peer = Peer();
    const auto event = m_events.CreateOrOpen("Event");
    auto wait = std::async(std::launch::async, [&] { return event->WaitFor(kLong); });
    EXPECT_EQ(wait.wait_for(std::chrono::milliseconds(20)), std::future_status::timeout);
    peer->Say("set");
    EXPECT_EQ(wait.get(), Wait::Signalled);
}

TEST_F(SharedEventProcesses, AbandoningHereLeavesTheWaitsOfOthers) {
    const auto peer = WaitingPeer();
    m_events.CreateOrOpen("Event")->Abandon();
    EXPECT_TRUE(peer->FallsAsleep());
    const auto event = m_events.CreateOrOpen("Event");
    event->Set();
    EXPECT_EQ(peer->Answer(), "signalled");
}

TEST_F(SharedEventProcesses, OneThatIsKilledWhileItWaitsLeavesTheOthersGoingOn) {
    const auto event = m_events.CreateOrOpen("Event");
    const auto other = WaitingPeer();
    WaitingPeer()->Kill();
    event->Set();
    EXPECT_EQ(other->Answer(), "signalled");
    event->Reset();
    EXPECT_EQ(event->WaitFor(0), Wait::TimedOut);
}

TEST_F(SharedEventProcesses, OnesThatAreKilledWhileTheySignalLeaveTheEventWhole) {
    const auto event = m_events.CreateOrOpen("Event");
    for (int round = 0; round < 10; ++round) {
        const auto peer = Peer();
        EXPECT_EQ(peer->Ask("hammer 4000000000"), "hammering");
        EXPECT_EQ(event->WaitFor(kLong), Wait::Signalled);
        peer->Kill();
        event->Reset();
        EXPECT_EQ(event->WaitFor(0), Wait::TimedOut);
        event->Set();
        EXPECT_EQ(event->WaitFor(0), Wait::Signalled);
        event->Reset();
    }
}

TEST_F(SharedEventProcesses, ASignalOfProcessesThatWereAllKilledIsForgotten) {
    const auto peer = Peer();
    EXPECT_EQ(peer->Ask("set"), "1");
    peer->Kill();
    EXPECT_TRUE(IsThere()) << "nobody was there to take it away";
    EXPECT_EQ(m_events.CreateOrOpen("Event")->WaitFor(0), Wait::TimedOut);
    EXPECT_FALSE(IsThere());
}

TEST_F(SharedEventProcesses, ItGoesWithTheLastProcess) {
    const auto first = Peer();
    const auto second = Peer();
    EXPECT_EQ(first->Ask("set"), "1");
    EXPECT_EQ(first->End(), 0);
    EXPECT_EQ(second->Ask("wait 0"), "waiting");
    EXPECT_EQ(second->Answer(), "signalled");
    EXPECT_EQ(second->End(), 0);
    EXPECT_FALSE(IsThere());
}

TEST_F(SharedEventProcesses, ProcessesOfAnotherHomeHearNothing) {
    const TempFolder elsewhere;
    SharedEventProcess stranger(elsewhere.Path(), "Event");
    const auto event = m_events.CreateOrOpen("Event");
    event->Set();
    EXPECT_EQ(stranger.Ask("wait 0"), "waiting");
    EXPECT_EQ(stranger.Answer(), "timed out");
}

}  // namespace
}  // namespace k4test
