#include "apps/workbench/TourHands.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include "k4cmndlg/frame/CDialog.h"

namespace workbench {

QWidget* Control(QWidget& dialog, int id) {
    auto* frame = qobject_cast<CDialog*>(&dialog);
    return frame ? frame->GetDlgItem(id) : nullptr;
}

void Click(QWidget& dialog, int id) {
    if (auto* button = qobject_cast<QAbstractButton*>(Control(dialog, id)))
        QTest::mouseClick(button, Qt::LeftButton, {},
                          QPoint(button->height() / 2, button->height() / 2));
}

void Type(QWidget& dialog, int id, const QString& text) {
    if (auto* edit = qobject_cast<QLineEdit*>(Control(dialog, id))) {
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, text);
        QTest::keyClick(edit, Qt::Key_Tab);
    }
}

bool Until(const std::function<bool()>& holds, int milliseconds) {
    return QTest::qWaitFor(holds, milliseconds);
}

bool TriggerAndDrive(QAction& action, const std::function<void(QWidget&)>& drive) {
    bool driven = false;
    bool overdue = false;
    // The window runs inside trigger(); both timers fire within its event loop.
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        QWidget* window = QApplication::activeModalWidget();
        if (!window || !window->isVisible())
            return;
        // A person types once the window has the keys: before, a field isn't told that it is left.
        if (!window->isActiveWindow()) {
            window->activateWindow();
            return;
        }
        poll.stop();
        driven = true;
        drive(*window);
    });
    QTimer watchdog;
    QObject::connect(&watchdog, &QTimer::timeout, &watchdog, [&] {
        overdue = true;
        poll.stop();
        watchdog.setInterval(100);
        if (QWidget* window = QApplication::activeModalWidget())
            window->close();
    });
    poll.start(20);
    watchdog.start(60000);
    action.trigger();
    return driven && !overdue;
}

}  // namespace workbench
