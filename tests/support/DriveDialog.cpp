#include "tests/support/DriveDialog.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTimer>

#include "k4cmndlg/frame/CDialog.h"

namespace k4test {

namespace {

constexpr int kPoll = 2;         // milliseconds
constexpr int kPatience = 10000;  // until the dialog has to be active

}  // namespace

int DriveDialog(CDialog& dialog, const std::function<void()>& drive) {
    QElapsedTimer waited;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &dialog, [&] {
        if (!dialog.isActiveWindow()) {
            if (waited.elapsed() < kPatience)
                return;
            ADD_FAILURE() << "the dialog didn't become the active window";
        }
        poll.stop();
        drive();
        if (dialog.isVisible()) {
            ADD_FAILURE() << "the dialog was left open";
            dialog.EndDialog(IDCANCEL);
        }
    });
    waited.start();
    poll.start(kPoll);
    return dialog.DoModal();
}

}  // namespace k4test
