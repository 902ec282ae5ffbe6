#pragma once

#include <QPointer>
#include <QWidget>

#include "k4cmndlg/frame/Prompt.h"
#include "k4cmndlg/frame/Provided.h"
#include "k4cmndlg/k4cmndlg_export.h"

namespace k4cmn {

/// Shows a message to a person and gives the answer.
/// Threads: the user interface thread. Show() returns when the person has answered.
class K4CMNDLG_EXPORT MessagePresenter {
 public:
    virtual ~MessagePresenter();

    /// @param parent the window that the message belongs to, or null.
    virtual MessageAnswer Show(QWidget* parent, const Message& message) = 0;
};

/// A prompt that is bound to a window: what dialogs hand to logic that asks. Where the window goes
/// while somebody is asked, the cautious answer is given from then on, and nothing is shown.
/// The window is not owned; the prompt is made on the stack for one action.
class K4CMNDLG_EXPORT WindowPrompt final : public Prompt {
 public:
    /// @param window null for messages that belong to none.
    explicit WindowPrompt(QWidget* window) : m_hasWindow(window != nullptr), m_window(window) {}
    MessageAnswer Ask(const Message& message) override;

 private:
    const bool m_hasWindow;
    const QPointer<QWidget> m_window;
};

}  // namespace k4cmn

K4_DECLARE_PROVIDED(K4CMNDLG_EXPORT, MessagePresenter)
