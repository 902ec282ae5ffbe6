#include "apps/workbench/SmallDialogTour.h"

#include <QAction>
#include <QApplication>
#include <QDate>
#include <QDialog>
#include <QStatusBar>
#include <QTest>

#include "apps/workbench/MainWindow.h"
#include "apps/workbench/TourHands.h"
#include "apps/workbench/TourRecord.h"
#include "k4cmndlg/frame/CDialog.h"
#include "k4cmndlg/frame/Format.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/smalldlg/CK4CmnDlgFontSel.h"

namespace workbench {

using k4cmn::Format;
using k4cmn::FromQt;

namespace {

// Control ids of the dialogs.
constexpr int kMessage = 1150;
constexpr int kRows = 1152;
constexpr int kCalendar = 1145;

std::string StatusText(const MainWindow& window) {
    return FromQt(window.statusBar()->currentMessage());
}

}  // namespace

SmallDialogTour::SmallDialogTour(MainWindow& window, TourRecord& record)
    : m_window(window), m_record(record) {}

void SmallDialogTour::Run() {
    TypeMessage();
    ChooseFont();
    ChooseDate();
}

bool SmallDialogTour::InDialog(const char* name, const std::function<void(QWidget&)>& drive) {
    QAction* action = m_window.DialogAction(name);
    if (!m_record.Step(action && action->isEnabled(), Format("the menu offers %s", name)))
        return false;
    return m_record.Step(TriggerAndDrive(*action, drive), Format("%s opened and closed", name));
}

void SmallDialogTour::TypeMessage() {
    InDialog("CK4CmnDlgQuickMsg", [&](QWidget& dialog) {
        QWidget* text = Control(dialog, kMessage);
        if (m_record.Step(text && dialog.windowTitle() == u"Quick Message",
                          "a quick message can be typed")) {
            text->setFocus();
            QTest::keyClicks(text, QStringLiteral("Gates open at six"));
            Type(dialog, kRows, QStringLiteral("16"));
        }
        m_record.Picture(dialog, "quick-message");
        Click(dialog, IDOK);
    });
}

void SmallDialogTour::ChooseFont() {
    InDialog("CK4CmnDlgFontSel", [&](QWidget& window) {
        auto* dialog = qobject_cast<CK4CmnDlgFontSel*>(&window);
        m_record.Step(dialog != nullptr, "it is the font dialog");
        m_record.Picture(window, "font");
        if (dialog)
            dialog->accept();
        else
            window.close();
    });
    m_record.Step(StatusText(m_window).starts_with("Chosen: "),
                  "the status bar tells the font: " + StatusText(m_window));
}

void SmallDialogTour::ChooseDate() {
    InDialog("CK4CmnDlgDate", [&](QWidget& dialog) {
        QWidget* calendar = Control(dialog, kCalendar);
        QWidget* days = QApplication::focusWidget();
        if (m_record.Step(calendar && days, "the calendar has the keys"))
            QTest::keyClick(days, Qt::Key_PageUp);
        m_record.Picture(dialog, "date");
        Click(dialog, IDOK);
    });
    const QDate lastMonth = QDate::currentDate().addMonths(-1);
    m_record.Step(StatusText(m_window) == "Chosen: " + FromQt(lastMonth.toString(Qt::ISODate)),
                  "the status bar tells the day: " + StatusText(m_window));
}

}  // namespace workbench
