#include "k4cmndlg/frame/DialogPrompt.h"

#include "k4cmndlg/frame/PlainPointer.h"

namespace k4cmn {

MessageAnswer DialogPrompt::Ask(const Message& message) {
    if (!m_window)
        return CautiousAnswer(message.buttons);
    const PlainPointer pointer;
    return WindowPrompt(m_window->isVisible() ? m_window.data() : m_window->parentWidget())
        .Ask(message);
}

}  // namespace k4cmn
