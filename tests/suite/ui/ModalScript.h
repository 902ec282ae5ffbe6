#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDeadlineTimer>
#include <QTimer>
#include <functional>

namespace k4test {

/// Does something with the next modal window of a kind once it is shown, while the code under test
/// waits in it. One that never shows fails the test.
template <class Window>
class ModalScript {
 public:
    explicit ModalScript(std::function<void(Window&)> action) : m_action(std::move(action)) {
        m_timer.callOnTimeout([this] { Look(); });
        m_timer.start(0);
    }
    ~ModalScript() { EXPECT_TRUE(m_isDone) << "the window was never shown"; }
    ModalScript(const ModalScript&) = delete;
    ModalScript& operator=(const ModalScript&) = delete;

 private:
    void Look() {
        auto* const window = qobject_cast<Window*>(QApplication::activeModalWidget());
        if (!window || !window->isVisible())
            return;
        m_timer.stop();
        m_isDone = true;
        m_action(*window);
    }

    std::function<void(Window&)> m_action;
    QTimer m_timer;
    bool m_isDone = false;
};

/// Runs the event loop until a condition holds. @return whether it did in time.
inline bool Until(const std::function<bool()>& condition) {
    const QDeadlineTimer deadline(20'000);
    while (!condition() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    return condition();
}

}  // namespace k4test
