#include "apps/workbench/TourHands.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>
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

void Choose(QWidget& dialog, int id, int index) {
    if (auto* combo = qobject_cast<QComboBox*>(Control(dialog, id))) {
        combo->setFocus();
        QTest::keyClick(combo, Qt::Key_Home);
        for (int step = 0; step < index; ++step)
            QTest::keyClick(combo, Qt::Key_Down);
    }
}

void ClickTab(QWidget& sheet, int page) {
    if (const auto* tabs = sheet.findChild<QTabWidget*>())
        QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {},
                          tabs->tabBar()->tabRect(page).center());
}

QString FieldText(QWidget& dialog, int id) {
    const QWidget* field = Control(dialog, id);
    return field ? field->property("text").toString() : QString();
}

bool Until(const std::function<bool()>& holds, int milliseconds) {
    return QTest::qWaitFor(holds, milliseconds);
}

bool TriggerAndDrive(QAction& action, const std::function<void(QWidget&)>& drive) {
    return OpenAndDrive([&action] { action.trigger(); }, drive);
}

bool OpenAndDrive(const std::function<void()>& open, const std::function<void(QWidget&)>& drive) {
    const QWidget* const below = QApplication::activeModalWidget();
    bool driven = false;
    bool overdue = false;
    // The window runs inside open(); both timers fire within its event loop.
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        QWidget* window = QApplication::activeModalWidget();
        if (!window || window == below || !window->isVisible())
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
        QWidget* window = QApplication::activeModalWidget();
        if (window && window != below)
            window->close();
    });
    poll.start(20);
    watchdog.start(60000);
    open();
    return driven && !overdue;
}

}  // namespace workbench
