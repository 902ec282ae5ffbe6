#include <atomic>
#include <chrono>
#include <future>

#include "tests/clients/RemoteThreadFixture.h"

namespace k4test {
namespace {

/// Far less than one wait for the event lasts.
constexpr std::chrono::milliseconds kAtOnce{500};

class RemoteThreadEnd : public RemoteThreadTest {
 protected:
    /// Ends the object on this thread, which must not take long.
    void EndAtOnce() {
        const auto begin = std::chrono::steady_clock::now();
        m_thread.reset();
        EXPECT_LT(std::chrono::steady_clock::now() - begin, kAtOnce);
    }
    /// Ends the object on another thread, while this one doesn't handle messages.
    void EndElsewhere() {
        auto end = std::async(std::launch::async, [this] { m_thread.reset(); });
        EXPECT_EQ(end.wait_for(std::chrono::milliseconds(kPatience)), std::future_status::ready);
        end.get();
    }
    /// Has the thread send a message, for which this thread has no time.
    void BeginToSend() {
        m_thread->Initialize(&m_window, kChanged);
        Signal();
        AwaitResets(1);
    }
    void ExpectSilence() {
        Signal();
        HandleAll();
        EXPECT_TRUE(m_window.messages.empty());
    }
};

TEST_F(RemoteThreadEnd, OfOneThatWasNeverInitialized) {
    EndAtOnce();
}

TEST_F(RemoteThreadEnd, WhileItWaitsForTheEventIsAtOnceAndTheLast) {
    m_thread->Initialize(&m_window, kChanged);
    AwaitWaits(1);
    EndAtOnce();
    ExpectSilence();
}

TEST_F(RemoteThreadEnd, RightAfterInitializing) {
    for (int round = 0; round < 200; ++round) {
        OpenedRemoteThread thread;
        thread.Initialize(&m_window, kChanged);
    }
    ExpectSilence();
}

TEST_F(RemoteThreadEnd, OnTheWindowsThreadCallsOffTheMessageThatIsOnItsWay) {
    for (int round = 0; round < 200; ++round) {
        OpenedRemoteThread thread;
        thread.Initialize(&m_window, kChanged);
        Signal();
        AwaitResets(round + 1);
    }
    ExpectSilence();
}

TEST_F(RemoteThreadEnd, OnAnotherThreadDoesntWaitForABusyWindow) {
    BeginToSend();
    EndElsewhere();
    ExpectSilence();
}

TEST_F(RemoteThreadEnd, InsideTheHandler) {
    m_window.onMessage = [this] { EndAtOnce(); };
    m_thread->Initialize(&m_window, kChanged);
    Signal();
    ASSERT_TRUE(Come(1));
    Signal();
    HandleAll();
    EXPECT_EQ(m_window.messages.size(), 1U);
}

TEST_F(RemoteThreadEnd, InsideTheHandlerTogetherWithTheWindow) {
    auto window = std::make_unique<Listener>();
    bool handled = false;
    window->onMessage = [&] {
        m_thread.reset();
        window.reset();
        handled = true;
    };
    m_thread->Initialize(window.get(), kChanged);
    Signal();
    EXPECT_TRUE(QTest::qWaitFor([&] { return handled; }, kPatience));
}

TEST_F(RemoteThreadEnd, OnAnotherThreadWhileTheHandlerRuns) {
    m_window.onMessage = [this] { EndElsewhere(); };
    m_thread->Initialize(&m_window, kChanged);
    Signal();
    ASSERT_TRUE(Come(1));
    Signal();
    HandleAll();
    EXPECT_EQ(m_window.messages.size(), 1U);
}

TEST_F(RemoteThreadEnd, AfterTheWindowHasGone) {
    auto window = std::make_unique<Listener>();
    m_thread->Initialize(window.get(), kChanged);
    AwaitWaits(1);
    window.reset();
    Signal();
    AwaitResets(1);
    HandleAll();
    AwaitWaits(2);
    EndAtOnce();
}

TEST_F(RemoteThreadEnd, AfterTheWindowHasGoneWithTheMessageOnItsWay) {
    auto window = std::make_unique<Listener>();
    m_thread->Initialize(window.get(), kChanged);
    Signal();
    AwaitResets(1);
    window.reset();
    EndAtOnce();
    HandleAll();
}

TEST_F(RemoteThreadEnd, AfterTheThreadOfTheWindowHasEnded) {
    auto thread = std::make_unique<QThread>();
    m_window.moveToThread(thread.get());
    thread->start();
    m_thread->Initialize(&m_window, kChanged);
    AwaitWaits(1);
    thread->quit();
    thread->wait();
    Signal();
    AwaitResets(1);
    EndAtOnce();
    EXPECT_TRUE(m_window.messages.empty());
}

TEST_F(RemoteThreadEnd, AfterTheThreadOfTheWindowWasDestroyed) {
    auto thread = std::make_unique<QThread>();
    auto window = std::make_unique<Listener>();
    window->moveToThread(thread.get());
    thread->start();
    m_thread->Initialize(window.get(), kChanged);
    AwaitWaits(1);
    thread->quit();
    thread->wait();
    thread.reset();
    Signal();
    AwaitResets(1);
    EndAtOnce();
}

TEST_F(RemoteThreadEnd, WhileTheWindowsOwnThreadHandlesMessages) {
    QThread thread;
    m_window.moveToThread(&thread);
    std::atomic<int> count = 0;
    m_window.onMessage = [&] { ++count; };
    thread.start();
    for (int round = 0; round < 100; ++round) {
        m_thread = std::make_unique<OpenedRemoteThread>();
        m_thread->Initialize(&m_window, kChanged);
        const int before = count;
        while (count == before)
            Signal();
        m_thread.reset();
        // What had begun by then is through.
        const auto settle = [this] {
            QMetaObject::invokeMethod(
                &m_window, [] {}, Qt::BlockingQueuedConnection);
        };
        settle();
        const int settled = count;
        Signal();
        settle();
        EXPECT_EQ(count, settled);
    }
    thread.quit();
    thread.wait();
    EXPECT_GE(count, 100);
}

}  // namespace
}  // namespace k4test
