#include "k4cmndlg/frame/WindowMessage.h"

#include <gmock/gmock.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QTest>
#include <QThread>
#include <atomic>
#include <memory>
#include <thread>
#include <vector>

#include "k4cmndlg/frame/CDialog.h"
#include "k4cmndlg/frame/WindowMessages.h"

using k4cmn::PostWindowMessage;
using k4cmn::SendWindowMessage;
using k4cmn::WindowMessage;
using testing::ElementsAre;

namespace {

constexpr std::uint32_t kNumber = k4cmn::WM_USER + 100;

/// An object of the toolkit that adds up what it is sent.
class Receiver : public QObject {
 public:
    std::vector<std::uint32_t> numbers;
    Qt::HANDLE thread = nullptr;

    bool event(QEvent* event) override {
        WindowMessage* message = WindowMessage::From(event);
        if (!message)
            return QObject::event(event);
        numbers.push_back(message->number);
        thread = QThread::currentThreadId();
        message->result = static_cast<std::intptr_t>(message->wParam) + message->lParam;
        return true;
    }
};

/// Something has been put into the queue of an IdleDispatcher.
std::atomic<bool> queued{false};

/// A dispatcher that handles nothing and tells when something has been put into the queue.
class IdleDispatcher : public QAbstractEventDispatcher {
 public:
    IdleDispatcher() { queued = false; }
    void wakeUp() override { queued = true; }

    bool processEvents(QEventLoop::ProcessEventsFlags) override { return false; }
    void registerSocketNotifier(QSocketNotifier*) override {}
    void unregisterSocketNotifier(QSocketNotifier*) override {}
    void registerTimer(int, qint64, Qt::TimerType, QObject*) override {}
    bool unregisterTimer(int) override { return false; }
    bool unregisterTimers(QObject*) override { return false; }
    QList<TimerInfo> registeredTimers(QObject*) const override { return {}; }
    int remainingTime(int) override { return -1; }
    void interrupt() override {}
};

/// A thread that is inside of something until a message waits for it, and then ends.
class BusyThread : public QThread {
 protected:
    void run() override {
        while (!queued)
            std::this_thread::yield();
    }
};

/// Waits for a thread of the test while the messages of this thread are handled.
void Join(std::thread& thread, const std::atomic<bool>& done) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return done.load(); }, 10000));
    thread.join();
}

class MessageDialog : public CDialog {
 public:
    MessageDialog() : CDialog(100, nullptr) {}
    std::vector<std::uint32_t> numbers;

 protected:
    std::intptr_t OnWindowMessage(std::uint32_t message, std::uintptr_t wParam,
                                  std::intptr_t lParam) override {
        numbers.push_back(message);
        return message == kNumber ? static_cast<std::intptr_t>(wParam) - lParam
                                  : CDialog::OnWindowMessage(message, wParam, lParam);
    }
};

}  // namespace

TEST(WindowMessage, SentOneIsHandledBeforeSendReturns) {
    Receiver receiver;
    EXPECT_EQ(SendWindowMessage(&receiver, kNumber, 40, 2), 42);
    EXPECT_THAT(receiver.numbers, ElementsAre(kNumber));
}

TEST(WindowMessage, PostedOnesAreHandledLaterInTheirOrder) {
    Receiver receiver;
    PostWindowMessage(&receiver, kNumber);
    PostWindowMessage(&receiver, kNumber + 1, 5, -5);
    EXPECT_TRUE(receiver.numbers.empty());
    QCoreApplication::sendPostedEvents(&receiver);
    EXPECT_THAT(receiver.numbers, ElementsAre(kNumber, kNumber + 1));
}

TEST(WindowMessage, NumbersOfAnySizeArrive) {
    Receiver receiver;
    EXPECT_EQ(SendWindowMessage(&receiver, 0xFFFFFFFF, 0, INTPTR_MIN), INTPTR_MIN);
    EXPECT_EQ(SendWindowMessage(&receiver, 0, UINTPTR_MAX, 0), -1);
    EXPECT_THAT(receiver.numbers, ElementsAre(0xFFFFFFFF, 0u));
}

TEST(WindowMessage, WithoutAHandlerTheResultIsZero) {
    QObject deaf;
    EXPECT_EQ(SendWindowMessage(&deaf, kNumber, 1, 1), 0);
}

TEST(WindowMessage, WithoutATargetNothingHappens) {
    EXPECT_EQ(SendWindowMessage(nullptr, kNumber), 0);
    PostWindowMessage(nullptr, kNumber);
}

TEST(WindowMessage, DialogHandlesItsOwnAndAnswersZeroToOthers) {
    MessageDialog dialog;
    EXPECT_EQ(SendWindowMessage(&dialog, kNumber, 50, 8), 42);
    EXPECT_EQ(SendWindowMessage(&dialog, kNumber + 1, 50, 8), 0);
    EXPECT_THAT(dialog.numbers, ElementsAre(kNumber, kNumber + 1));
}

TEST(WindowMessage, SentFromAnotherThreadItIsHandledOnTheTargets) {
    Receiver receiver;
    std::atomic<bool> done{false};
    std::intptr_t result = 0;
    std::thread sender([&] {
        result = SendWindowMessage(&receiver, kNumber, 40, 2);
        done = true;
    });
    Join(sender, done);
    EXPECT_EQ(result, 42);
    EXPECT_EQ(receiver.thread, QThread::currentThreadId());
}

TEST(WindowMessage, PostedFromAnotherThreadItReturnsAtOnce) {
    Receiver receiver;
    std::thread([&] { PostWindowMessage(&receiver, kNumber); }).join();
    EXPECT_TRUE(receiver.numbers.empty());
    QCoreApplication::sendPostedEvents(&receiver);
    EXPECT_THAT(receiver.numbers, ElementsAre(kNumber));
}

TEST(WindowMessage, ManyThreadsEachGetTheirOwnAnswer) {
    Receiver receiver;
    std::atomic<int> running{8};
    std::atomic<int> wrong{0};
    std::vector<std::thread> senders;
    for (std::uintptr_t sender = 0; sender < 8; ++sender) {
        senders.emplace_back([&, sender] {
            for (std::intptr_t round = 0; round < 200; ++round) {
                const auto sum = static_cast<std::intptr_t>(sender) * 1000 + round;
                if (SendWindowMessage(&receiver, kNumber, sender * 1000, round) != sum)
                    ++wrong;
            }
            --running;
        });
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return running == 0; }, 30000));
    for (std::thread& sender : senders)
        sender.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(receiver.numbers.size(), 1600u);
}

TEST(WindowMessage, TargetThatGoesBeforeItAnswersGivesZero) {
    IdleDispatcher dispatcher;  // a thread that never starts doesn't take it over
    QThread thread;
    thread.setEventDispatcher(&dispatcher);
    auto receiver = std::make_unique<Receiver>();
    receiver->moveToThread(&thread);
    std::intptr_t result = -1;
    std::thread sender([&] { result = SendWindowMessage(receiver.get(), kNumber, 40, 2); });
    while (!queued)
        std::this_thread::yield();
    receiver.reset();
    sender.join();
    EXPECT_EQ(result, 0);
}

TEST(WindowMessage, TargetWhoseThreadHasEndedGivesZero) {
    QThread thread;
    Receiver receiver;
    receiver.moveToThread(&thread);
    thread.start();
    thread.quit();
    thread.wait();
    EXPECT_EQ(SendWindowMessage(&receiver, kNumber, 40, 2), 0);
    EXPECT_TRUE(receiver.numbers.empty());
}

TEST(WindowMessage, ThreadThatEndsWhileASenderWaitsGivesZero) {
    BusyThread thread;
    thread.setEventDispatcher(new IdleDispatcher);
    Receiver receiver;
    receiver.moveToThread(&thread);
    thread.start();
    EXPECT_EQ(SendWindowMessage(&receiver, kNumber, 40, 2), 0);
    thread.wait();
    EXPECT_TRUE(receiver.numbers.empty());
}

TEST(WindowMessage, MessageToAnotherThreadsObjectIsHandledThere) {
    QThread thread;
    Receiver receiver;
    receiver.moveToThread(&thread);
    thread.start();
    EXPECT_EQ(SendWindowMessage(&receiver, kNumber, 40, 2), 42);
    EXPECT_NE(receiver.thread, QThread::currentThreadId());
    thread.quit();
    thread.wait();
}
