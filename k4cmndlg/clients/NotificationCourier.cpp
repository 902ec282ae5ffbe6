#include "k4cmndlg/clients/NotificationCourier.h"

#include <QObject>
#include <QPointer>
#include <QThread>
#include <condition_variable>
#include <mutex>
#include <new>
#include <utility>

#include "k4cmndlg/frame/WindowMessage.h"

namespace k4cmn {

/// What the owner, the thread and the window's thread tell each other.
struct NotificationCourier::State {
    mutable std::mutex guard;
    std::condition_variable changed;
    bool started = false;
    bool stopped = false;
    bool ended = false;
    bool onItsWay = false;  ///< a message has been given to the relay and isn't handled yet

    void Note(bool& flag, bool value) {
        const std::lock_guard lock(guard);
        flag = value;
        changed.notify_all();
    }
    bool IsStopped() const {
        const std::lock_guard lock(guard);
        return stopped;
    }
};

/// The courier's end on the window's thread.
class NotificationCourier::Relay final : public QObject {
 public:
    Relay(QObject* window, std::uint32_t message, std::shared_ptr<State> state)
        : m_window(window), m_message(message), m_state(std::move(state)) {
        moveToThread(window->thread());
    }

    std::uint32_t Message() const { return m_message; }

    bool event(QEvent* event) override {
        if (!WindowMessage::From(event))
            return QObject::event(event);
        // The handler may stop the courier and so delete this object.
        const std::shared_ptr<State> state = m_state;
        if (state->IsStopped())
            return true;
        if (m_window)
            SendWindowMessage(m_window, m_message);
        state->Note(state->onItsWay, false);
        return true;
    }

 private:
    QPointer<QObject> m_window;
    std::uint32_t m_message;
    std::shared_ptr<State> m_state;
};

// With the relay goes what waits for it in the queue. A thread that runs no more has no queue that
// anybody reads, and what lives there may be deleted from elsewhere.
void NotificationCourier::RelayDeleter::operator()(Relay* relay) const {
    const QThread* thread = relay->thread();
    if (!thread || thread == QThread::currentThread() || thread->isFinished())
        delete relay;
    else
        relay->deleteLater();
}

NotificationCourier::NotificationCourier(QObject* window, std::uint32_t message)
    : m_state(std::make_shared<State>()),
      m_relay(window ? new Relay(window, message, m_state) : nullptr) {}

NotificationCourier::~NotificationCourier() {
    Stop();
}

bool NotificationCourier::Start() {
    m_state->Note(m_state->started, true);
    const std::lock_guard lock(m_state->guard);
    return !m_state->ended && !m_state->stopped;
}

void NotificationCourier::Stop() {
    m_state->Note(m_state->stopped, true);
}

bool NotificationCourier::IsStopped() const {
    return m_state->IsStopped();
}

bool NotificationCourier::AwaitStart() {
    std::unique_lock lock(m_state->guard);
    m_state->changed.wait(lock, [this] { return m_state->started || m_state->stopped; });
    return !m_state->stopped;
}

void NotificationCourier::Send() {
    if (!m_relay || IsStopped())
        return;
    m_state->Note(m_state->onItsWay, true);
    try {
        PostWindowMessage(m_relay.get(), m_relay->Message());
    } catch (const std::bad_alloc&) {
        return;
    }
    std::unique_lock lock(m_state->guard);
    m_state->changed.wait(lock, [this] { return !m_state->onItsWay || m_state->stopped; });
}

void NotificationCourier::Pause(std::chrono::milliseconds time) {
    std::unique_lock lock(m_state->guard);
    m_state->changed.wait_for(lock, time, [this] { return m_state->stopped; });
}

void NotificationCourier::Ended() {
    m_state->Note(m_state->ended, true);
}

}  // namespace k4cmn
