#pragma once

#include <QtGlobal>
#include <cstdint>
#include <memory>
#include <thread>

#include "k4cmndlg/frame/contracts/NamedEvent.h"
#include "k4cmndlg/k4cmndlg_export.h"

class QObject;

namespace k4cmn {
class NotificationCourier;
}

/// Tells a window when the remote service has signalled a change of its links: a thread that waits
/// for the named event "K4RemoteNotificationEvent" and sends the window a message, both parameters
/// 0, for each signal that it finds.
///
/// The event is reset before the message is sent, and the thread waits until the window has handled
/// it. So a signal that comes in meanwhile isn't lost, and signals that come in before the thread
/// wakes are told by one message.
///
/// The window calls the service on its own thread; this object knows no client.
///
/// Nothing is reported: where the thread or the event can't be made, no messages come.
///
/// Threads: an object belongs to one thread, which need not be the window's. The window may go
/// before the object does.
class K4CMNDLG_EXPORT CK4CmnRemoteThread {
    Q_DISABLE_COPY_MOVE(CK4CmnRemoteThread)

 public:
    CK4CmnRemoteThread();
    /// Ends the thread. From then on no message is sent, also none that waits for a busy window; a
    /// handler that has begun runs to its end. Never waits for the window, and may be called inside
    /// the handler.
    ~CK4CmnRemoteThread();

    /// Begins to tell a window. Called again, the window and the message take the place of the
    /// former ones.
    /// @param window not owned; null: nobody is told.
    /// @param message the number of the message.
    /// @return always 1.
    int Initialize(QObject* window, std::uint32_t message);

 protected:
    /// Lets the thread run, if Initialize() could make it and the event.
    /// @return 1, also where there is nothing to run; 0 if the thread has ended.
    int Start();
    /// The thread's body.
    /// @return 0, once the wait for the event has been abandoned.
    static std::uint32_t NotificationThread(CK4CmnRemoteThread* object);

 private:
    void Create();
    void End();

    std::thread hThread;
    std::uint32_t nMessage = 0;
    QObject* pWnd = nullptr;
    std::unique_ptr<k4cmn::NamedEvent> hEvent;
    std::int32_t bSuspended = 0;  ///< 1: the thread and the event exist, and Start() resumes it
    std::unique_ptr<k4cmn::NotificationCourier> m_courier;
};
