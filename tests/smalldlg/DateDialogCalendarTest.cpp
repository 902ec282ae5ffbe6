#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTableView>
#include <QTest>
#include <QToolButton>

#include "k4cmndlg/smalldlg/CK4CmnDlgDate.h"
#include "suite/calendar/CalendarControl.h"
#include "tests/support/DialogControls.h"
#include "tests/support/FontScale.h"
#include "tests/support/MessageQueue.h"
#include "tests/support/ModalDriver.h"

namespace k4test {
namespace {

using k4cmn::MessageButtons;
using k4cmn::MessageIcon;
using testing::ElementsAre;

constexpr int kOk = 1;
constexpr int kCancel = 2;
constexpr int kCalendar = 1145;

/// The dialog "Select Date" with the suite's calendar.
class DateDialogCalendar : public testing::Test {
 protected:
    template <class Steps>
    int Run(Steps steps) {
        return RunModal(m_dialog, [&] {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&m_dialog));
            steps();
        });
    }
    K4CalendarCtrl& Calendar() const { return *Item<K4CalendarCtrl>(m_dialog, kCalendar); }
    template <class Part>
    Part* PartOf() const {
        return Calendar().findChild<Part*>(QString(), Qt::FindDirectChildrenOnly);
    }
    void PressOnDays(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(Calendar().findChild<QTableView*>(), key, modifiers);
    }
    std::vector<int> Date() const {
        return {m_dialog.GetDay(), m_dialog.GetMonth(), m_dialog.GetYear()};
    }
    void ExpectError(const char* text) {
        m_messages.Expect({text, "Date Error", MessageButtons::Ok, MessageIcon::Exclamation});
    }

    MessageQueue m_messages;
    k4suite::EmbeddedCalendars m_calendars;
    k4cmn::ScopedProvider<k4cmn::Calendars> m_useCalendars{m_calendars};
    CK4CmnDlgDate m_dialog{nullptr};
};

TEST_F(DateDialogCalendar, GivesBackTheDateThatItStartedWith) {
    for (const std::vector<int>& date :
         {std::vector{31, 12, 2023}, {29, 2, 2024}, {31, 1, 2023}, {30, 4, 2023}, {1, 1, 1}}) {
        m_dialog.SetStartDate(date[0], date[1], date[2]);
        EXPECT_EQ(Run([&] { Click(m_dialog, kOk); }), IDOK);
        EXPECT_EQ(Date(), date);
    }
}

TEST_F(DateDialogCalendar, IsWorkedByKeysAlone) {
    m_dialog.SetStartDate(31, 12, 2023);
    EXPECT_EQ(Run([&] {
                  PressOnDays(Qt::Key_Right);
                  PressOnDays(Qt::Key_Return);
              }),
              IDOK);
    EXPECT_THAT(Date(), ElementsAre(1, 1, 2024));
}

TEST_F(DateDialogCalendar, ADayThatWasTakenAwayIsAskedFor) {
    m_dialog.SetStartDate(31, 12, 2023);
    ExpectError("A day must be selected.");
    ExpectError("A day must be selected.");
    EXPECT_EQ(Run([&] {
                  PressOnDays(Qt::Key_Delete);
                  Click(m_dialog, kOk);
                  EXPECT_THAT(Date(), ElementsAre(0, 12, 2023));
                  PressOnDays(Qt::Key_Enter);
                  PressOnDays(Qt::Key_Left);
                  PressOnDays(Qt::Key_Enter);
              }),
              IDOK);
    EXPECT_THAT(Date(), ElementsAre(30, 12, 2023));
}

TEST_F(DateDialogCalendar, ABlankMonthAndABlankYearAreAskedFor) {
    m_dialog.SetStartDate(31, 12, 2023);
    ExpectError("A month must be selected.");
    ExpectError("A year must be selected.");
    EXPECT_EQ(Run([&] {
                  QTest::keyClick(PartOf<QComboBox>(), Qt::Key_Home);
                  Click(m_dialog, kOk);
                  QTest::keyClick(PartOf<QComboBox>(), Qt::Key_Down);
                  auto* const year = PartOf<QSpinBox>();
                  year->selectAll();
                  QTest::keyClick(year, Qt::Key_Backspace);
                  QTest::keyClick(year, Qt::Key_Return);
                  EXPECT_THAT(Date(), ElementsAre(31, 1, 0));
                  QTest::keyClicks(year, QStringLiteral("1998"));
                  QTest::keyClick(year, Qt::Key_Return);
              }),
              IDOK);
    EXPECT_THAT(Date(), ElementsAre(31, 1, 1998));
}

TEST_F(DateDialogCalendar, CtrlAndEnterTellWhatTheCalendarIs) {
    m_dialog.SetStartDate(5, 5, 2005);
    m_messages.Expect(
        {"The calendar of the Kelda 4400 sign control suite.\n\nIt knows the days of "
         "the years 1 to 9999.",
         "About Calendar", MessageButtons::Ok, MessageIcon::Information});
    EXPECT_EQ(Run([&] {
                  PressOnDays(Qt::Key_Return, Qt::ControlModifier);
                  EXPECT_TRUE(m_dialog.isVisible());
                  Click(m_dialog, kCancel);
              }),
              IDCANCEL);
}

TEST_F(DateDialogCalendar, ADoubleClickOnADayPicksItAndCloses) {
    m_dialog.SetStartDate(5, 5, 2005);
    EXPECT_EQ(Run([&] {
                  auto* const days = Calendar().findChild<QTableView*>();
                  const QModelIndex cell =
                      days->currentIndex().siblingAtRow(days->currentIndex().row() + 1);
                  const QPoint place = days->visualRect(cell).center();
                  QTest::mouseClick(days->viewport(), Qt::LeftButton, {}, place);
                  QTest::mouseDClick(days->viewport(), Qt::LeftButton, {}, place);
              }),
              IDOK);
    EXPECT_THAT(Date(), ElementsAre(12, 5, 2005));
}

TEST_F(DateDialogCalendar, TheTabKeyGoesAsTheEyeDoesAndBeginsWithTheDays) {
    Run([&] {
        std::vector<std::string> stops;
        for (int at = 0; at < 8; ++at) {
            stops.push_back(QApplication::focusWidget()->accessibleName().toStdString());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        EXPECT_THAT(stops, ElementsAre("Days", "OK", "Cancel", "Previous Month", "Month", "Year",
                                       "Next Month", "Days"));
        Click(m_dialog, kCancel);
    });
}

TEST_F(DateDialogCalendar, FitsASmallScreenAtAnyFontSize) {
    for (const double factor : {0.8, 1.0, 1.5, 2.0}) {
        SCOPED_TRACE(factor);
        const FontScale scale(factor);
        CK4CmnDlgDate dialog(nullptr);
        dialog.SetStartDate(30, 9, 2000);
        RunModal(dialog, [&] {
            EXPECT_LE(dialog.width(), 800);
            EXPECT_LE(dialog.height(), 600);
            const auto* const calendar = Item<QWidget>(dialog, kCalendar);
            EXPECT_GE(calendar->width(), calendar->sizeHint().width());
            EXPECT_GE(calendar->height(), calendar->sizeHint().height());
            for (const int id : {kOk, kCancel}) {
                const auto* const button = Item<QPushButton>(dialog, id);
                EXPECT_TRUE(dialog.rect().contains(button->geometry())) << id;
                EXPECT_FALSE(button->geometry().intersects(calendar->geometry())) << id;
                EXPECT_GE(button->width(), button->sizeHint().width()) << id;
            }
            dialog.EndDialog(IDCANCEL);
        });
    }
}

}  // namespace
}  // namespace k4test
