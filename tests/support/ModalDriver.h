#pragma once

#include <gtest/gtest.h>

#include <QTimer>
#include <chrono>

#include "k4cmndlg/frame/CDialog.h"

namespace k4test {

/// Runs a dialog by its own operation and, once its window is shown, the steps inside its event
/// loop. The steps end the dialog. One that stays open for ten seconds fails the test and is ended.
/// @return what the operation returned.
template <class Run, class Steps>
auto RunModalBy(CDialog& dialog, Run run, Steps steps) {
    QTimer whenShown;
    QObject::connect(&whenShown, &QTimer::timeout, &whenShown, [&] {
        if (!dialog.isVisible())
            return;
        whenShown.stop();
        steps();
    });
    QTimer tooLong;
    tooLong.setSingleShot(true);
    QObject::connect(&tooLong, &QTimer::timeout, &tooLong, [&] {
        ADD_FAILURE() << "the dialog stayed open";
        dialog.EndDialog(-99);
    });
    whenShown.start(std::chrono::milliseconds(0));
    tooLong.start(std::chrono::seconds(10));
    return run();
}

/// Runs a dialog by DoModal(), as RunModalBy() tells.
/// @return what DoModal() returned.
template <class Steps>
int RunModal(CDialog& dialog, Steps steps) {
    return RunModalBy(
        dialog, [&] { return dialog.DoModal(); }, steps);
}

}  // namespace k4test
