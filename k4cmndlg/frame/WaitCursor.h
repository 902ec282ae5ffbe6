#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace k4cmn {

/// Shows that the program is busy, for the life of a scope. Threads: the user interface thread.
class WaitCursor {
 public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

}  // namespace k4cmn
