#include "k4cmndlg/clients/CK4CmnRemoteThread.h"

#include <QObject>
#include <chrono>
#include <system_error>

#include "k4cmndlg/clients/NotificationCourier.h"
#include "k4cmndlg/clients/contracts/K4rsRpc.h"

namespace {

using k4cmn::NamedEvent;
using k4cmn::NamedEvents;

/// How long one wait for the event lasts.
constexpr std::chrono::milliseconds kWait{1000};

NamedEvent::Wait WaitFor(NamedEvent& event) {
    try {
        return event.WaitFor(static_cast<std::uint32_t>(kWait.count()));
    } catch (...) {
        return NamedEvent::Wait::Failed;
    }
}

void Reset(NamedEvent& event) {
    try {
        event.Reset();
    } catch (...) {
        // Like a reset that fails: the message is sent all the same.
    }
}

}  // namespace

CK4CmnRemoteThread::CK4CmnRemoteThread() = default;

CK4CmnRemoteThread::~CK4CmnRemoteThread() {
    End();
}

int CK4CmnRemoteThread::Initialize(QObject* window, std::uint32_t message) {
    End();
    pWnd = window;
    nMessage = message;
    try {
        Create();
    } catch (...) {
        // Without a thread or an event nobody is told.
    }
    Start();
    return 1;
}

/// Makes the thread, which waits to be resumed, and the event.
void CK4CmnRemoteThread::Create() {
    m_courier = std::make_unique<k4cmn::NotificationCourier>(pWnd, nMessage);
    try {
        hThread = std::thread([this] {
            if (m_courier->AwaitStart())
                NotificationThread(this);
            m_courier->Ended();
        });
    } catch (const std::system_error&) {
        // The event is made all the same, as a party to it.
    }
    hEvent = k4cmn::Provided<NamedEvents>::Current().CreateOrOpen(kRemoteNotificationEvent);
    bSuspended = hThread.joinable() && hEvent ? 1 : 0;
}

int CK4CmnRemoteThread::Start() {
    return !bSuspended || m_courier->Start() ? 1 : 0;
}

std::uint32_t CK4CmnRemoteThread::NotificationThread(CK4CmnRemoteThread* object) {
    k4cmn::NotificationCourier& courier = *object->m_courier;
    NamedEvent& event = *object->hEvent;
    while (!courier.IsStopped()) {
        switch (WaitFor(event)) {
            case NamedEvent::Wait::Signalled:
                Reset(event);
                courier.Send();
                break;
            case NamedEvent::Wait::TimedOut:
                break;
            case NamedEvent::Wait::Abandoned:
                return 0;
            case NamedEvent::Wait::Failed:
                // As long as a wait would have lasted, so as not to ask without end.
                courier.Pause(kWait);
                break;
        }
    }
    return 0;
}

void CK4CmnRemoteThread::End() {
    bSuspended = 0;
    if (m_courier)
        m_courier->Stop();
    if (hEvent)
        hEvent->Abandon();
    if (hThread.joinable())
        hThread.join();
    hEvent.reset();
    m_courier.reset();
}
