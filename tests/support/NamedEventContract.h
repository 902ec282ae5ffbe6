#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "k4cmndlg/frame/contracts/NamedEvent.h"

/// What every implementation of NamedEvents keeps.
///
/// To run it against an implementation, include this header in one source file of a test and name a
/// maker there, in this namespace, which gives events that no other test uses:
///
///     std::shared_ptr<k4cmn::NamedEvents> Make() { ... }
///     INSTANTIATE_TEST_SUITE_P(Shared, NamedEventContract, ::testing::Values(&Make));
namespace k4test {

using NamedEventsMaker = std::shared_ptr<k4cmn::NamedEvents> (*)();

class NamedEventContract : public ::testing::TestWithParam<NamedEventsMaker> {
 protected:
    using Event = k4cmn::NamedEvent;
    using Wait = k4cmn::NamedEvent::Wait;

    static constexpr std::uint32_t kLong = 60'000;
    static constexpr std::chrono::milliseconds kBriefly{20};

    std::unique_ptr<Event> Open(const std::string& name = "Event") {
        std::unique_ptr<Event> event = m_events->CreateOrOpen(name);
        EXPECT_TRUE(event) << name;
        return event;
    }
    /// Waits on a thread of its own.
    static std::future<Wait> Waiting(Event& event, std::uint32_t milliseconds = kLong) {
        return std::async(std::launch::async,
                          [&event, milliseconds] { return event.WaitFor(milliseconds); });
    }

    std::shared_ptr<k4cmn::NamedEvents> m_events = GetParam()();
};

TEST_P(NamedEventContract, IsNotSignalledAtFirst) {
    EXPECT_EQ(Open()->WaitFor(0), Wait::TimedOut);
}

TEST_P(NamedEventContract, StaysSignalledUntilItIsReset) {
    const auto event = Open();
    EXPECT_EQ(event->Set(), 1);
    EXPECT_EQ(event->WaitFor(0), Wait::Signalled);
    EXPECT_EQ(event->WaitFor(kLong), Wait::Signalled);
    EXPECT_EQ(event->Reset(), 1);
    EXPECT_EQ(event->WaitFor(0), Wait::TimedOut);
    EXPECT_EQ(event->WaitFor(1), Wait::TimedOut);
}

TEST_P(NamedEventContract, SignalledTwiceIsSignalledOnce) {
    const auto event = Open();
    event->Set();
    event->Set();
    EXPECT_EQ(event->WaitFor(0), Wait::Signalled);
    event->Reset();
    EXPECT_EQ(event->WaitFor(0), Wait::TimedOut);
}

TEST_P(NamedEventContract, ResettingOneThatIsntSignalledChangesNothing) {
    const auto event = Open();
    EXPECT_EQ(event->Reset(), 1);
    EXPECT_EQ(event->WaitFor(0), Wait::TimedOut);
    event->Set();
    EXPECT_EQ(event->WaitFor(0), Wait::Signalled);
}

TEST_P(NamedEventContract, AWaitLastsAsLongAsItSays) {
    const auto event = Open();
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(event->WaitFor(50), Wait::TimedOut);
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(49));
}

TEST_P(NamedEventContract, PartiesOfOneNameShareIt) {
    const auto service = Open();
    const auto listener = Open();
    service->Set();
    EXPECT_EQ(listener->WaitFor(0), Wait::Signalled);
    const auto late = Open();
    EXPECT_EQ(late->WaitFor(0), Wait::Signalled);
    listener->Reset();
    EXPECT_EQ(listener->WaitFor(0), Wait::TimedOut);
    EXPECT_EQ(late->WaitFor(0), Wait::TimedOut);
}

TEST_P(NamedEventContract, ASignalReachesAPartyThoughAnotherHasResetIt) {
    const auto service = Open();
    const auto quick = Open();
    const auto slow = Open();
    service->Set();
    EXPECT_EQ(quick->WaitFor(0), Wait::Signalled);
    quick->Reset();
    EXPECT_EQ(quick->WaitFor(0), Wait::TimedOut);
    EXPECT_EQ(slow->WaitFor(0), Wait::Signalled);
    EXPECT_EQ(slow->WaitFor(0), Wait::TimedOut) << "heard of it";
    EXPECT_EQ(Open()->WaitFor(0), Wait::TimedOut) << "came later";
}

TEST_P(NamedEventContract, ASignalBetweenTwoOwnResetsIsFound) {
    const auto service = Open();
    const auto listener = Open();
    for (int round = 0; round < 5000; ++round) {
        service->Set();
        ASSERT_EQ(listener->WaitFor(0), Wait::Signalled) << round;
        listener->Reset();
        ASSERT_EQ(listener->WaitFor(0), Wait::TimedOut) << round;
    }
}

TEST_P(NamedEventContract, OtherNamesAreOtherEvents) {
    const auto one = Open("One");
    const auto other = Open("one");
    const auto third = Open("One.1_-");
    one->Set();
    EXPECT_EQ(other->WaitFor(0), Wait::TimedOut);
    EXPECT_EQ(third->WaitFor(0), Wait::TimedOut);
}

TEST_P(NamedEventContract, LivesAsLongAsAnyPartyHoldsIt) {
    auto first = Open();
    const auto second = Open();
    first->Set();
    first.reset();
    EXPECT_EQ(second->WaitFor(0), Wait::Signalled);
    EXPECT_EQ(Open()->WaitFor(0), Wait::Signalled);
}

TEST_P(NamedEventContract, SettingWakesAllWhoWait) {
    const auto service = Open();
    std::vector<std::unique_ptr<Event>> parties;
    std::vector<std::future<Wait>> waits;
    for (int count = 0; count < 4; ++count) {
        parties.push_back(Open());
        waits.push_back(Waiting(*parties.back()));
        EXPECT_EQ(waits.back().wait_for(kBriefly), std::future_status::timeout);
    }
    service->Set();
    service->Reset();
    for (std::future<Wait>& wait : waits)
        EXPECT_EQ(wait.get(), Wait::Signalled);
}

TEST_P(NamedEventContract, AbandoningEndsThePresentWaitAndAllLaterOnes) {
    const auto event = Open();
    const auto other = Open();
    std::future<Wait> wait = Waiting(*event);
    std::future<Wait> otherWait = Waiting(*other);
    EXPECT_EQ(wait.wait_for(kBriefly), std::future_status::timeout);
    event->Abandon();
    EXPECT_EQ(wait.get(), Wait::Abandoned);
    EXPECT_EQ(event->WaitFor(kLong), Wait::Abandoned);
    other->Set();
    EXPECT_EQ(event->WaitFor(0), Wait::Abandoned);
    EXPECT_EQ(otherWait.get(), Wait::Signalled) << "of the signal alone";
}

TEST_P(NamedEventContract, AbandoningDoesntSignal) {
    const auto event = Open();
    const auto other = Open();
    for (int count = 0; count < 5000; ++count)
        event->Abandon();
    EXPECT_EQ(other->WaitFor(0), Wait::TimedOut);
    event->Set();
    EXPECT_EQ(other->WaitFor(0), Wait::Signalled);
}

// Each listener takes as many signals as there are, in whatever order the threads run: at the end
// none waits for a signal that was given before.
TEST_P(NamedEventContract, NoListenerMissesTheLastSignal) {
    constexpr int kRounds = 300;
    std::atomic<int> value = 0;
    std::vector<std::thread> listeners;
    std::atomic<int> lost = 0;
    std::vector<std::unique_ptr<Event>> parties;
    for (int count = 0; count < 3; ++count)
        parties.push_back(Open());
    for (const auto& party : parties) {
        listeners.emplace_back([&, event = party.get()] {
            while (value < kRounds) {
                if (event->WaitFor(10'000) != Wait::Signalled) {
                    ++lost;
                    return;
                }
                event->Reset();
            }
        });
    }
    const auto service = Open();
    for (int round = 0; round < kRounds; ++round) {
        ++value;
        service->Set();
    }
    for (std::thread& listener : listeners)
        listener.join();
    EXPECT_EQ(lost, 0);
}

}  // namespace k4test
