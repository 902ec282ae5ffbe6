#include <algorithm>
#include <atomic>
#include <stdexcept>

#include "tests/clients/RemoteThreadFixture.h"

namespace k4test {
namespace {

using k4cmn::NamedEvent;
using Steps = std::vector<std::string>;

TEST_F(RemoteThreadTest, ASignalIsOneMessageWithBothParametersZero) {
    EXPECT_EQ(m_thread->Initialize(&m_window, kChanged), 1);
    EXPECT_EQ(m_events.made, (Steps{"K4RemoteNotificationEvent", "K4RemoteNotificationEvent"}));
    AwaitWaits(1);
    Signal();
    ASSERT_TRUE(Come(1));
    AwaitNextWait();
    HandleAll();
    EXPECT_EQ(m_window.messages, (std::vector<Message>{{1034, 0, 0}}));
    EXPECT_EQ(m_window.thread, QThread::currentThreadId());
}

TEST_F(RemoteThreadTest, EachSignalThatIsHandledIsOneMessage) {
    m_thread->Initialize(&m_window, kChanged);
    for (std::size_t count = 1; count <= 20; ++count) {
        Signal();
        ASSERT_TRUE(Come(count));
    }
    AwaitNextWait();
    HandleAll();
    EXPECT_EQ(m_window.messages.size(), 20U);
}

TEST_F(RemoteThreadTest, TwoSignalsBeforeTheThreadWakesAreOneMessage) {
    Signal();
    Signal();
    m_thread->Initialize(&m_window, kChanged);
    ASSERT_TRUE(Come(1));
    AwaitNextWait();
    HandleAll();
    EXPECT_EQ(m_window.messages.size(), 1U);
}

TEST_F(RemoteThreadTest, WithoutASignalNoMessageComes) {
    m_thread->Initialize(&m_window, kChanged);
    AwaitWaits(1);
    m_service->Reset();
    AwaitNextWait();
    HandleAll();
    EXPECT_TRUE(m_window.messages.empty());
}

TEST_F(RemoteThreadTest, TheEventIsResetBeforeTheMessageIsSent) {
    m_window.onMessage = [this] { m_events.AddStep(kRemoteNotificationEvent, "message"); };
    m_thread->Initialize(&m_window, kChanged);
    Signal();
    ASSERT_TRUE(Come(1));
    EXPECT_EQ(m_events.Steps(kRemoteNotificationEvent), (Steps{"signalled", "reset", "message"}));
}

TEST_F(RemoteThreadTest, ASignalWhileTheWindowHandlesTheMessageIsNotLost) {
    m_window.onMessage = [this] {
        if (m_window.messages.size() == 1)
            Signal();
    };
    m_thread->Initialize(&m_window, kChanged);
    Signal();
    ASSERT_TRUE(Come(2));
    AwaitNextWait();
    HandleAll();
    EXPECT_EQ(m_window.messages.size(), 2U);
}

TEST_F(RemoteThreadTest, TheThreadWaitsUntilTheHandlerIsThroughAlsoInALoopOfItsOwn) {
    std::size_t inside = 0;
    m_window.onMessage = [&] {
        m_window.onMessage = nullptr;
        Signal();
        const int waits = Waits();
        HandleAll();
        inside = m_window.messages.size();
        EXPECT_EQ(Waits(), waits) << "went on waiting for the event";
    };
    m_thread->Initialize(&m_window, kChanged);
    Signal();
    ASSERT_TRUE(Come(2));
    EXPECT_EQ(inside, 1U);
}

TEST_F(RemoteThreadTest, SignalsForABusyWindowAreOneMessageMore) {
    m_thread->Initialize(&m_window, kChanged);
    Signal();
    AwaitResets(1);
    for (int count = 0; count < 5; ++count)
        Signal();
    ASSERT_TRUE(Come(2));
    AwaitNextWait();
    HandleAll();
    EXPECT_EQ(m_window.messages.size(), 2U);
}

TEST_F(RemoteThreadTest, TwoListenersHearOfEachSignal) {
    Listener other;
    OpenedRemoteThread otherThread;
    m_thread->Initialize(&m_window, kChanged);
    otherThread.Initialize(&other, kChanged + 1);
    for (std::size_t count = 1; count <= 20; ++count) {
        Signal();
        ASSERT_TRUE(Come(count));
        ASSERT_TRUE(QTest::qWaitFor([&] { return other.messages.size() >= count; }, kPatience));
    }
    EXPECT_EQ(other.messages.back(), (Message{1035, 0, 0}));
}

TEST_F(RemoteThreadTest, AWindowOfAnotherThreadGetsItThere) {
    QThread thread;
    m_window.moveToThread(&thread);
    std::atomic<bool> came = false;
    m_window.onMessage = [&] { came = true; };
    thread.start();
    m_thread->Initialize(&m_window, kChanged);
    Signal();
    EXPECT_TRUE(QTest::qWaitFor([&] { return came.load(); }, kPatience));
    m_thread.reset();
    thread.quit();
    thread.wait();
    EXPECT_NE(m_window.thread, QThread::currentThreadId());
}

TEST_F(RemoteThreadTest, WithoutAWindowNobodyIsToldAndTheThreadGoesOn) {
    EXPECT_EQ(m_thread->Initialize(nullptr, kChanged), 1);
    Signal();
    AwaitResets(1);
    Signal();
    AwaitResets(2);
}

TEST_F(RemoteThreadTest, InitializedAgainTheNewWindowTakesThePlaceOfTheFormer) {
    Listener former;
    m_thread->Initialize(&former, kChanged);
    Signal();
    AwaitResets(1);
    EXPECT_EQ(m_thread->Initialize(&m_window, kChanged + 7), 1);
    Signal();
    ASSERT_TRUE(Come(1));
    HandleAll();
    EXPECT_TRUE(former.messages.empty());
    EXPECT_EQ(m_window.messages, (std::vector<Message>{{1041, 0, 0}}));
}

TEST_F(RemoteThreadTest, StartSucceedsWithNothingToStartAndWithWhatRuns) {
    EXPECT_EQ(m_thread->Start(), 1);
    m_thread->Initialize(&m_window, kChanged);
    EXPECT_EQ(m_thread->Start(), 1);
    Signal();
    EXPECT_TRUE(Come(1));
}

/// Events whose waits end as a test says.
class ScriptedEvents final : public k4cmn::NamedEvents {
    class Party final : public NamedEvent {
     public:
        explicit Party(ScriptedEvents& events) : m_events(events) {}
        int Set() override { return 1; }
        int Reset() override {
            ++m_events.resets;
            if (m_events.resetThrows)
                throw std::runtime_error("thrown by a test");
            return 0;
        }
        Wait WaitFor(std::uint32_t) override {
            ++m_events.waits;
            return m_events.wait();
        }
        void Abandon() override {}

     private:
        ScriptedEvents& m_events;
    };

 public:
    std::function<NamedEvent::Wait()> wait;
    std::function<void()> onMake;
    bool makesNone = false;
    bool resetThrows = false;
    std::atomic<int> waits = 0;
    std::atomic<int> resets = 0;

    std::unique_ptr<NamedEvent> CreateOrOpen(const std::string&) override {
        if (onMake)
            onMake();
        return makesNone ? nullptr : std::make_unique<Party>(*this);
    }
};

class RemoteThreadFailures : public RemoteThreadTest {
 protected:
    ScriptedEvents m_scripted;
    k4cmn::ScopedProvider<k4cmn::NamedEvents> m_failing{m_scripted};
};

TEST_F(RemoteThreadFailures, WithoutAnEventItIsInitializedAllTheSame) {
    m_scripted.makesNone = true;
    EXPECT_EQ(m_thread->Initialize(&m_window, kChanged), 1);
    EXPECT_EQ(m_thread->Start(), 1) << "nothing to start";
    HandleAll();
    EXPECT_TRUE(m_window.messages.empty());
}

TEST_F(RemoteThreadFailures, WithNothingInstalledItIsInitializedAllTheSame) {
    k4cmn::Provided<k4cmn::NamedEvents>::Install(nullptr);
    EXPECT_EQ(m_thread->Initialize(&m_window, kChanged), 1);
    k4cmn::Provided<k4cmn::NamedEvents>::Install(&m_scripted);
}

TEST_F(RemoteThreadFailures, AnExceptionWhileTheEventIsMadeIsNone) {
    m_scripted.onMake = [] { throw std::runtime_error("thrown by a test"); };
    EXPECT_EQ(m_thread->Initialize(&m_window, kChanged), 1);
    EXPECT_EQ(m_thread->Start(), 1);
}

TEST_F(RemoteThreadFailures, AnAbandonedEventEndsTheThreadWhichCantBeStartedAgain) {
    m_scripted.wait = [] { return NamedEvent::Wait::Abandoned; };
    EXPECT_EQ(m_thread->Initialize(&m_window, kChanged), 1);
    Await([this] { return m_thread->Start() == 0; });
    EXPECT_EQ(m_scripted.waits, 1);
    EXPECT_TRUE(m_window.messages.empty());
}

TEST_F(RemoteThreadFailures, AfterAFailedWaitItGoesOnWithoutAskingAllTheTime) {
    m_scripted.wait = [this] {
        return m_scripted.waits == 2 ? NamedEvent::Wait::Signalled : NamedEvent::Wait::Failed;
    };
    m_thread->Initialize(&m_window, kChanged);
    ASSERT_TRUE(Come(1));
    EXPECT_EQ(m_scripted.resets, 1);
    EXPECT_LE(m_scripted.waits, 3);
}

TEST_F(RemoteThreadFailures, AnExceptionOfAWaitIsAFailedWait) {
    m_scripted.wait = [this]() -> NamedEvent::Wait {
        if (m_scripted.waits == 1)
            throw std::runtime_error("thrown by a test");
        return NamedEvent::Wait::Signalled;
    };
    m_window.onMessage = [this] { m_thread.reset(); };
    m_thread->Initialize(&m_window, kChanged);
    EXPECT_TRUE(Come(1));
}

TEST_F(RemoteThreadFailures, AResetThatFailsDoesntKeepTheMessage) {
    m_scripted.wait = [] { return NamedEvent::Wait::Signalled; };
    m_thread->Initialize(&m_window, kChanged);
    EXPECT_TRUE(Come(3));
}

TEST_F(RemoteThreadFailures, AnExceptionOfAResetDoesntKeepTheMessageEither) {
    m_scripted.resetThrows = true;
    m_scripted.wait = [] { return NamedEvent::Wait::Signalled; };
    m_thread->Initialize(&m_window, kChanged);
    EXPECT_TRUE(Come(3));
}

}  // namespace
}  // namespace k4test
