#pragma once

#include <QEvent>
#include <cstdint>
#include <memory>

#include "k4cmndlg/k4cmndlg_export.h"

namespace k4cmn {

/// A window message: a number and two parameters, for one object of the toolkit.
/// A dialog gets it in CDialog::OnWindowMessage; any other object asks From() in its event() and
/// sets the result.
class K4CMNDLG_EXPORT WindowMessage final : public QEvent {
 public:
    /// A message that nobody has got yet. SendWindowMessage() and PostWindowMessage() make them;
    /// one that is made by hand goes the way of any event of the toolkit, and belongs to its queue
    /// once it is posted. Threads: any.
    /// @param message the number, @param wParam and @param lParam the parameters: what they mean is
    /// between sender and handler. A pointer among them is not owned.
    WindowMessage(std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam);
    ~WindowMessage() override;

    /// The type that the toolkit knows these events by: registered at the first call, and the same
    /// for all of them as long as the program runs. Threads: any.
    static QEvent::Type Type();
    /// The window message that an event is; null if it is any other event.
    static WindowMessage* From(QEvent* event);

    const std::uint32_t number;
    const std::uintptr_t wParam;
    const std::intptr_t lParam;
    std::intptr_t result = 0;

 private:
    friend std::intptr_t SendWindowMessage(QObject*, std::uint32_t, std::uintptr_t, std::intptr_t);
    struct Completion;
    std::shared_ptr<Completion> m_completion;
};

/// Sends a message and waits for its handler, also from another thread than the target's.
/// @return the handler's result; 0 if there is no handler, or the target goes before it answered.
K4CMNDLG_EXPORT std::intptr_t SendWindowMessage(QObject* target, std::uint32_t message,
                                                std::uintptr_t wParam = 0,
                                                std::intptr_t lParam = 0);

/// Queues a message for the target's thread and returns at once. Any thread.
K4CMNDLG_EXPORT void PostWindowMessage(QObject* target, std::uint32_t message,
                                       std::uintptr_t wParam = 0, std::intptr_t lParam = 0);

}  // namespace k4cmn
