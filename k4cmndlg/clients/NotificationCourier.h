#pragma once

#include <QtGlobal>
#include <chrono>
#include <cstdint>
#include <memory>

class QObject;

namespace k4cmn {

/// Carries a message to a window for a thread beside the window's, one at a time, and can be
/// stopped at any moment: no send holds up whoever stops it, whether the window is busy, gone, or
/// in the middle of the handler.
///
/// The message travels by way of an object of the courier's own, which lives on the window's
/// thread: that one hands it to the window, unless the courier has been stopped or the window has
/// gone in the meantime.
///
/// The thread uses AwaitStart(), Send(), Pause() and Ended(); its owner the others, on any thread.
/// The thread must have ended before the courier goes.
class NotificationCourier {
    Q_DISABLE_COPY_MOVE(NotificationCourier)

 public:
    /// @param window gets the message; must live while this is made. Null: nobody does.
    NotificationCourier(QObject* window, std::uint32_t message);
    ~NotificationCourier();

    /// Lets the thread run. @return whether it still can: it hasn't ended or been stopped.
    bool Start();
    /// Calls off what is on its way and wakes the thread. From its return on no message is begun;
    /// one that is in the window's hands already runs to its end.
    void Stop();
    bool IsStopped() const;

    /// Waits for Start(). @return false if Stop() came.
    bool AwaitStart();
    /// Sends the message, both parameters 0, and waits until the window has handled it.
    void Send();
    /// Lets time go by, or less if Stop() comes.
    void Pause(std::chrono::milliseconds time);
    /// The thread runs no more.
    void Ended();

 private:
    struct State;
    class Relay;
    struct RelayDeleter {
        void operator()(Relay* relay) const;
    };

    std::shared_ptr<State> m_state;
    std::unique_ptr<Relay, RelayDeleter> m_relay;  ///< on the window's thread
};

}  // namespace k4cmn
