#include "k4cmndlg/frame/WindowMessage.h"

#include <QCoreApplication>
#include <QThread>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>

namespace k4cmn {

namespace {

/// How often a waiting sender looks whether the target's thread is still there.
constexpr std::chrono::milliseconds kThreadCheck{100};

}  // namespace

/// Where the sender on another thread waits.
struct WindowMessage::Completion {
    std::mutex guard;
    std::condition_variable changed;
    bool done = false;
    std::intptr_t result = 0;

    void Complete(std::intptr_t answer) {
        const std::lock_guard lock(guard);
        result = answer;
        done = true;
        changed.notify_all();
    }

    /// Waits for the answer, or for the thread that should give it to end: a thread that has ended
    /// leaves its queue unread, with the message in it.
    /// The thread is looked at under the lock, which its destruction takes too (by Complete).
    std::intptr_t Wait(const QThread& thread) {
        std::unique_lock lock(guard);
        while (!done && !thread.isFinished())
            changed.wait_for(lock, kThreadCheck);
        return result;
    }
};

namespace {

// Counts the messages handed to other threads. The toolkit's queue already orders them; this says
// so once more in terms that a thread checker, which can't see into the toolkit, understands.
std::atomic<std::uint32_t> handedOver{0};

void HandOver(QObject* target, WindowMessage* message) {
    handedOver.fetch_add(1, std::memory_order_release);
    QCoreApplication::postEvent(target, message);
}

}  // namespace

WindowMessage::WindowMessage(std::uint32_t message, std::uintptr_t wParameter,
                             std::intptr_t lParameter)
    : QEvent(Type()), number(message), wParam(wParameter), lParam(lParameter) {}

WindowMessage::~WindowMessage() {
    // The toolkit deletes a message when it has been handled, and also when its target goes with
    // the message still in the queue. So whoever waits is always told.
    if (m_completion)
        m_completion->Complete(result);
}

QEvent::Type WindowMessage::Type() {
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

WindowMessage* WindowMessage::From(QEvent* event) {
    static_cast<void>(handedOver.load(std::memory_order_acquire));
    return event->type() == Type() ? static_cast<WindowMessage*>(event) : nullptr;
}

std::intptr_t SendWindowMessage(QObject* target, std::uint32_t message, std::uintptr_t wParam,
                                std::intptr_t lParam) {
    QThread* thread = target ? target->thread() : nullptr;
    if (thread == QThread::currentThread()) {
        WindowMessage direct(message, wParam, lParam);
        QCoreApplication::sendEvent(target, &direct);
        return direct.result;
    }
    if (!thread || thread->isFinished())
        return 0;
    const auto completion = std::make_shared<WindowMessage::Completion>();
    const QMetaObject::Connection going = QObject::connect(
        thread, &QObject::destroyed, thread, [completion] { completion->Complete(0); },
        Qt::DirectConnection);
    auto* queued = new WindowMessage(message, wParam, lParam);
    queued->m_completion = completion;
    HandOver(target, queued);
    const std::intptr_t answer = completion->Wait(*thread);
    QObject::disconnect(going);
    return answer;
}

void PostWindowMessage(QObject* target, std::uint32_t message, std::uintptr_t wParam,
                       std::intptr_t lParam) {
    if (target)
        HandOver(target, new WindowMessage(message, wParam, lParam));
}

}  // namespace k4cmn
