#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>
#include <QThread>
#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

#include "k4cmndlg/clients/CK4CmnRemoteThread.h"
#include "k4cmndlg/clients/contracts/K4rsRpc.h"
#include "k4cmndlg/frame/WindowMessage.h"
#include "tests/support/MemoryEvents.h"

namespace k4test {

/// The message that a dialog of remote services uses.
constexpr std::uint32_t kChanged = 1034;
constexpr int kPatience = 30'000;

/// One whose protected operations a test may call.
class OpenedRemoteThread : public CK4CmnRemoteThread {
 public:
    using CK4CmnRemoteThread::Start;
};

/// A window, as far as messages go.
class Listener : public QObject {
 public:
    struct Message {
        std::uint32_t number = 0;
        std::uintptr_t wParam = 0;
        std::intptr_t lParam = 0;
        bool operator==(const Message&) const = default;
    };

    std::vector<Message> messages;
    std::function<void()> onMessage;  ///< runs inside the handler
    Qt::HANDLE thread = nullptr;

    bool event(QEvent* event) override {
        const auto* message = k4cmn::WindowMessage::From(event);
        if (!message)
            return QObject::event(event);
        messages.push_back({message->number, message->wParam, message->lParam});
        thread = QThread::currentThreadId();
        // The handler may take this object away.
        if (const auto handler = onMessage)
            handler();
        return true;
    }
};

/// Listeners over events of the test's own; this thread is the window's.
class RemoteThreadTest : public ::testing::Test {
 protected:
    using Message = Listener::Message;

    RemoteThreadTest() : m_service(m_events.CreateOrOpen(kRemoteNotificationEvent)) {}

    /// Signals as the remote service does.
    void Signal() { m_service->Set(); }
    /// Handles messages until so many have come.
    bool Come(std::size_t count) {
        return QTest::qWaitFor([&] { return m_window.messages.size() >= count; }, kPatience);
    }
    /// Waits, without handling a message, until the thread waits for the event once more.
    void AwaitNextWait() {
        const int before = Waits();
        AwaitWaits(before + 1);
    }
    void AwaitWaits(int count) {
        Await([&] { return Waits() >= count; });
    }
    int Waits() { return m_events.Waits(kRemoteNotificationEvent, 1000); }
    /// Waits, without handling a message, until the thread has reset the event so many times: it
    /// then sends.
    void AwaitResets(std::ptrdiff_t count) {
        const auto resets = [this] {
            const auto steps = m_events.Steps(kRemoteNotificationEvent);
            return std::count(steps.begin(), steps.end(), "reset");
        };
        Await([&] { return resets() >= count; });
    }
    /// Waits for something without handling a message.
    template <class Condition>
    static void Await(Condition condition) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(kPatience);
        while (!condition()) {
            if (std::chrono::steady_clock::now() > end) {
                ADD_FAILURE() << "waited in vain";
                return;
            }
            std::this_thread::yield();
        }
    }
    /// Handles all messages that are on their way.
    static void HandleAll() {
        for (int round = 0; round < 10; ++round)
            QCoreApplication::processEvents();
    }

    MemoryEvents m_events;
    k4cmn::ScopedProvider<k4cmn::NamedEvents> m_provider{m_events};
    std::unique_ptr<k4cmn::NamedEvent> m_service;
    Listener m_window;
    std::unique_ptr<OpenedRemoteThread> m_thread = std::make_unique<OpenedRemoteThread>();
};

}  // namespace k4test
