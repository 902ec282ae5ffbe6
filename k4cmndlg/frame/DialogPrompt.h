#pragma once

#include <QPointer>
#include <QWidget>

#include "k4cmndlg/frame/Prompt.h"
#include "k4cmndlg/frame/contracts/MessagePresenter.h"

namespace k4cmn {

/// Asks in front of a window that may go while somebody is asked: from then on the cautious answer
/// is given. A window that isn't shown hands its messages to its parent. While a message stands,
/// the pointer is an arrow also where work waits for the answer. Ownership: the window isn't owned.
/// Threads: the user interface thread.
class DialogPrompt final : public Prompt {
 public:
    explicit DialogPrompt(QWidget& window) : m_window(&window) {}
    DialogPrompt(const DialogPrompt&) = delete;
    DialogPrompt& operator=(const DialogPrompt&) = delete;

    MessageAnswer Ask(const Message& message) override;

 private:
    QPointer<QWidget> m_window;
};

}  // namespace k4cmn
