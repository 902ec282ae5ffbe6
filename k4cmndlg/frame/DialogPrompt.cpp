#include "k4cmndlg/frame/DialogPrompt.h"

#include <QGuiApplication>

namespace k4cmn {

namespace {

/// The pointer is an arrow for the life of a scope, if it is anything special.
class PlainPointer {
 public:
    PlainPointer() : m_isSpecial(QGuiApplication::overrideCursor() != nullptr) {
        if (m_isSpecial)
            QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~PlainPointer() {
        if (m_isSpecial)
            QGuiApplication::restoreOverrideCursor();
    }
    PlainPointer(const PlainPointer&) = delete;
    PlainPointer& operator=(const PlainPointer&) = delete;

 private:
    const bool m_isSpecial;
};

}  // namespace

MessageAnswer DialogPrompt::Ask(const Message& message) {
    if (!m_window)
        return CautiousAnswer(message.buttons);
    const PlainPointer pointer;
    return WindowPrompt(m_window->isVisible() ? m_window.data() : m_window->parentWidget())
        .Ask(message);
}

}  // namespace k4cmn
