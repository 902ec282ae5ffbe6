#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace k4cmn {

/// The pointer is an arrow for the life of a scope, if it is anything special: for what a person
/// answers while work waits for it. Threads: the user interface thread.
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

}  // namespace k4cmn
