#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTableView>
#include <QTest>
#include <QTextCharFormat>
#include <QToolButton>
#include <QWheelEvent>
#include <array>
#include <string>

#include "suite/calendar/CalendarControl.h"
#include "tests/support/DrivenClock.h"
#include "tests/support/FontScale.h"
#include "tests/support/MessageQueue.h"

namespace k4test {
namespace {

using testing::ElementsAre;

/// The calendar control in a window, on 15 January 2027, a Friday.
class Calendar : public testing::Test {
 protected:
    using Date = std::array<int, 3>;

    Calendar() {
        window.resize(calendar->sizeHint());
        calendar->resize(calendar->sizeHint());
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        calendar->setFocus();
    }

    void Set(int newDay, int newMonth, int newYear) {
        calendar->SetDay(newDay);
        calendar->SetMonth(newMonth);
        calendar->SetYear(newYear);
    }
    Date Get() const { return {calendar->GetDay(), calendar->GetMonth(), calendar->GetYear()}; }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(view, key, modifiers);
    }
    /// The first cell with a text, from a row on.
    QModelIndex Cell(int text, int fromRow = 1) const {
        const QAbstractItemModel& cells = *view->model();
        for (int row = fromRow; row < cells.rowCount(); ++row) {
            for (int column = 0; column < cells.columnCount(); ++column) {
                if (cells.index(row, column).data().toInt() == text)
                    return cells.index(row, column);
            }
        }
        ADD_FAILURE() << "no such cell: " << text;
        return {};
    }
    QPoint Middle(const QModelIndex& cell) const { return view->visualRect(cell).center(); }
    void Click(const QModelIndex& cell, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(view->viewport(), button, {}, Middle(cell));
    }
    void DoubleClick(const QModelIndex& cell, Qt::MouseButton button = Qt::LeftButton) {
        const QPoint place = Middle(cell);
        QTest::mouseClick(view->viewport(), button, {}, place);
        QTest::mouseDClick(view->viewport(), button, {}, place);
    }
    /// The day that is marked; 0 if none is.
    int Marked() const {
        const QModelIndexList selected = view->selectionModel()->selectedIndexes();
        return selected.isEmpty() ? 0 : selected.first().data().toInt();
    }
    std::string MonthText() const { return month->currentText().toStdString(); }
    std::string YearText() const { return year->text().toStdString(); }
    Date Shown() const { return {Marked(), days->monthShown(), days->yearShown()}; }
    void Wheel(int degrees) {
        QWheelEvent turn(QPointF(50, 50), view->viewport()->mapToGlobal(QPointF(50, 50)), QPoint(),
                         QPoint(0, degrees), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                         false);
        QCoreApplication::sendEvent(view->viewport(), &turn);
    }
    QToolButton* Step(const char* name) const {
        for (QToolButton* button : calendar->findChildren<QToolButton*>()) {
            if (button->accessibleName() == QLatin1String(name))
                return button;
        }
        ADD_FAILURE() << name;
        return nullptr;
    }

    MessageQueue messages;
    DrivenClock clock;
    k4cmn::ScopedProvider<k4cmn::Clock> useClock{clock};
    QWidget window;
    k4suite::CalendarControl* calendar = new k4suite::CalendarControl(&window);  // the window's
    QCalendarWidget* days = calendar->findChild<QCalendarWidget*>();
    QTableView* view = days->findChild<QTableView*>();
    QComboBox* month = calendar->findChild<QComboBox*>(QString(), Qt::FindDirectChildrenOnly);
    QSpinBox* year = calendar->findChild<QSpinBox*>(QString(), Qt::FindDirectChildrenOnly);
    QSignalSpy chosen{calendar, &K4CalendarCtrl::DblClick};
};

// What is shown ----------------------------------------------------------------------------------

TEST_F(Calendar, WithoutADateItShowsTodaysMonthAndNothingChosen) {
    EXPECT_EQ(Shown(), (Date{0, 1, 2027}));
    EXPECT_EQ(MonthText(), "");
    EXPECT_EQ(YearText(), "");
    EXPECT_EQ(Get(), (Date{0, 0, 0}));
}

TEST_F(Calendar, ShowsTheDateThatItIsGiven) {
    Set(31, 3, 2024);
    EXPECT_EQ(Shown(), (Date{31, 3, 2024}));
    EXPECT_EQ(MonthText(), "March");
    EXPECT_EQ(YearText(), "2024");
    Set(1, 1, 1);
    EXPECT_EQ(Shown(), (Date{1, 1, 1}));
    EXPECT_EQ(YearText(), "1");
    Set(31, 12, 9999);
    EXPECT_EQ(Shown(), (Date{31, 12, 9999}));
}

TEST_F(Calendar, EachMissingPieceIsBlank) {
    Set(0, 5, 2010);
    EXPECT_EQ(Shown(), (Date{0, 5, 2010}));
    Set(9, 0, 2011);
    EXPECT_EQ(MonthText(), "");
    EXPECT_EQ(Shown(), (Date{9, 5, 2011})) << "the month that was shown last";
    Set(9, 6, 0);
    EXPECT_EQ(YearText(), "");
    EXPECT_EQ(Shown(), (Date{9, 6, 2011}));
}

TEST_F(Calendar, TheDayThatIsMarkedIsTheOneThatIsRead) {
    Set(31, 2, 2023);
    EXPECT_EQ(Shown(), (Date{28, 2, 2023}));
    calendar->SetMonth(3);
    EXPECT_EQ(Shown(), (Date{31, 3, 2023}));
}

TEST_F(Calendar, NoDayStaysNoDayWhenLooksChange) {
    Set(0, 5, 2010);
    days->setFirstDayOfWeek(Qt::Wednesday);
    EXPECT_EQ(Marked(), 0);
    const FontScale scale(1.5);
    EXPECT_EQ(Marked(), 0);
    calendar->setEnabled(false);
    calendar->setEnabled(true);
    EXPECT_EQ(Marked(), 0);
}

TEST_F(Calendar, TodayStandsOut) {
    EXPECT_EQ(days->dateTextFormat(QDate(2027, 1, 15)).fontWeight(), int{QFont::Bold});
    EXPECT_EQ(days->dateTextFormat().size(), 1);
}

TEST_F(Calendar, TheWeekAndTheMonthsAreThoseOfTheLocale) {
    calendar->setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(days->firstDayOfWeek(), Qt::Sunday);
    Set(1, 3, 2024);
    EXPECT_EQ(MonthText(), "March");
    calendar->setLocale(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(days->firstDayOfWeek(), Qt::Monday);
    EXPECT_EQ(MonthText(), "M\xC3\xA4rz");
    EXPECT_EQ(Get(), (Date{1, 3, 2024}));
}

// Keys -------------------------------------------------------------------------------------------

TEST_F(Calendar, TheArrowsPickADay) {
    Set(28, 2, 2024);
    Press(Qt::Key_Right);
    EXPECT_EQ(Get(), (Date{29, 2, 2024}));
    Press(Qt::Key_Right);
    EXPECT_EQ(Get(), (Date{1, 3, 2024}));
    EXPECT_EQ(Shown(), (Date{1, 3, 2024}));
    EXPECT_EQ(MonthText(), "March");
    Press(Qt::Key_Up);
    EXPECT_EQ(Get(), (Date{23, 2, 2024}));
    Press(Qt::Key_Down);
    Press(Qt::Key_Left);
    EXPECT_EQ(Get(), (Date{29, 2, 2024}));
    Press(Qt::Key_Home);
    EXPECT_EQ(Get(), (Date{1, 2, 2024}));
    Press(Qt::Key_End);
    EXPECT_EQ(Get(), (Date{29, 2, 2024}));
}

TEST_F(Calendar, TheArrowsEndWithTheYears) {
    Set(31, 12, 9999);
    Press(Qt::Key_Right);
    Press(Qt::Key_Down);
    EXPECT_EQ(Get(), (Date{31, 12, 9999}));
    Set(1, 1, 1);
    Press(Qt::Key_Left);
    Press(Qt::Key_Up);
    EXPECT_EQ(Get(), (Date{1, 1, 1}));
}

TEST_F(Calendar, DeleteAndBackspaceTakeTheDayAwayAndSpaceBringsItBack) {
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Backspace}) {
        Set(12, 7, 2020);
        Press(key);
        EXPECT_EQ(Get(), (Date{0, 7, 2020}));
        EXPECT_EQ(Shown(), (Date{0, 7, 2020}));
        EXPECT_EQ(MonthText(), "July");
        Press(Qt::Key_Space);
        EXPECT_EQ(Get(), (Date{12, 7, 2020})) << "the keyboard stood there";
        EXPECT_EQ(Marked(), 12);
        Press(key);
        Press(Qt::Key_Right);
        EXPECT_EQ(Get(), (Date{13, 7, 2020}));
    }
}

TEST_F(Calendar, PickingFromBlankMonthAndYearTakesThoseThatAreShown) {
    Press(Qt::Key_Space);
    EXPECT_EQ(Get(), (Date{15, 1, 2027})) << "today";
    EXPECT_EQ(MonthText(), "January");
    EXPECT_EQ(YearText(), "2027");
}

TEST_F(Calendar, PageUpAndPageDownGoToAnotherMonthWithTheDay) {
    Set(31, 1, 2023);
    Press(Qt::Key_PageDown);
    EXPECT_EQ(Get(), (Date{28, 2, 2023}));
    EXPECT_EQ(Shown(), (Date{28, 2, 2023}));
    Press(Qt::Key_PageDown);
    EXPECT_EQ(Get(), (Date{31, 3, 2023})) << "the day is back";
    Press(Qt::Key_PageUp);
    Press(Qt::Key_PageUp);
    Press(Qt::Key_PageUp);
    EXPECT_EQ(Get(), (Date{31, 12, 2022}));
    Press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(Get(), (Date{31, 12, 2023}));
    Press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(Get(), (Date{31, 12, 2022}));
}

TEST_F(Calendar, AnotherMonthPicksNoDay) {
    Set(0, 1, 2023);
    Press(Qt::Key_PageDown);
    EXPECT_EQ(Get(), (Date{0, 2, 2023}));
    EXPECT_EQ(Shown(), (Date{0, 2, 2023}));
    Set(0, 12, 9999);
    Press(Qt::Key_PageDown);
    EXPECT_EQ(Get(), (Date{0, 12, 9999}));
    Set(0, 1, 1);
    Press(Qt::Key_PageUp);
    EXPECT_EQ(Get(), (Date{0, 1, 1}));
    Press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(Get(), (Date{0, 1, 1}));
    Set(0, 3, 9999);
    Press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(Get(), (Date{0, 3, 9999}));
}

TEST_F(Calendar, EnterActsAsADoubleClickAndGoesNoFurther) {
    struct : QWidget {
        int keys = 0;
        void keyPressEvent(QKeyEvent*) override { ++keys; }
    } above;
    Set(1, 1, 2020);
    calendar->setParent(&above);
    Press(Qt::Key_Return);
    Press(Qt::Key_Enter);
    QTest::keyClick(view, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(chosen.count(), 3);
    EXPECT_EQ(above.keys, 0);
    Press(Qt::Key_Escape);
    Press(Qt::Key_F1);
    EXPECT_EQ(above.keys, 2) << "a dialog's keys reach it";
    EXPECT_EQ(Get(), (Date{1, 1, 2020}));
    calendar->setParent(&window);
}

TEST_F(Calendar, DigitsAndLettersDoNothing) {
    Set(9, 9, 2009);
    QTest::keyClicks(view, QStringLiteral("1234567890abc"));
    EXPECT_EQ(Get(), (Date{9, 9, 2009}));
}

// The mouse --------------------------------------------------------------------------------------

TEST_F(Calendar, AClickPicksTheDay) {
    Set(0, 7, 2020);
    Click(Cell(18));
    EXPECT_EQ(Get(), (Date{18, 7, 2020}));
    EXPECT_EQ(Marked(), 18);
    EXPECT_EQ(chosen.count(), 0);
}

TEST_F(Calendar, AClickOnTheDayThatWasTakenAwayPicksItAgain) {
    Set(18, 7, 2020);
    Press(Qt::Key_Delete);
    Click(Cell(18));
    EXPECT_EQ(Get(), (Date{18, 7, 2020}));
    EXPECT_EQ(Marked(), 18);
}

TEST_F(Calendar, AClickOnADayOfTheNextMonthTurnsToIt) {
    Set(5, 7, 2020);
    Click(Cell(1, 4));
    EXPECT_EQ(Get(), (Date{1, 8, 2020}));
    EXPECT_EQ(Shown(), (Date{1, 8, 2020}));
}

TEST_F(Calendar, OtherButtonsAndTheNamesOfTheDaysPickNothing) {
    Set(5, 7, 2020);
    Click(Cell(18), Qt::RightButton);
    Click(view->model()->index(0, 2));
    DoubleClick(Cell(5), Qt::RightButton);
    DoubleClick(view->model()->index(0, 2));
    EXPECT_EQ(Get(), (Date{5, 7, 2020}));
    EXPECT_EQ(chosen.count(), 0);
}

TEST_F(Calendar, ADoubleClickPicksAndTells) {
    Set(0, 7, 2020);
    Date told{};
    QObject::connect(calendar, &K4CalendarCtrl::DblClick, calendar, [&] { told = Get(); });
    DoubleClick(Cell(18));
    EXPECT_EQ(chosen.count(), 1);
    EXPECT_EQ(told, (Date{18, 7, 2020}));
}

TEST_F(Calendar, ADoubleClickThatTurnsTheMonthTellsNothing) {
    Set(5, 7, 2020);
    DoubleClick(Cell(1, 4));
    EXPECT_EQ(chosen.count(), 0);
    EXPECT_EQ(calendar->GetMonth(), 8);
}

TEST_F(Calendar, TheWheelGoesToAnotherMonth) {
    Set(31, 1, 2023);
    Wheel(-120);
    EXPECT_EQ(Get(), (Date{28, 2, 2023}));
    EXPECT_EQ(MonthText(), "February");
    Wheel(120);
    EXPECT_EQ(Get(), (Date{31, 1, 2023}));
}

TEST_F(Calendar, TheWheelEndsWithTheYears) {
    Set(7, 12, 9999);
    Wheel(-120);
    EXPECT_EQ(Get(), (Date{7, 12, 9999}));
    EXPECT_EQ(Shown(), (Date{7, 12, 9999}));
    Set(7, 1, 1);
    Wheel(120);
    EXPECT_EQ(Shown(), (Date{7, 1, 1}));
    calendar->SetMonth(0);
    Wheel(120);
    EXPECT_EQ(Shown(), (Date{7, 1, 1})) << "the month is still none";
    EXPECT_EQ(Get(), (Date{7, 0, 1}));
}

// Month and year ---------------------------------------------------------------------------------

TEST_F(Calendar, TheButtonsStepThroughTheMonths) {
    Set(0, 1, 2023);
    QTest::mouseClick(Step("Previous Month"), Qt::LeftButton);
    EXPECT_EQ(Get(), (Date{0, 12, 2022}));
    QTest::keyClick(Step("Next Month"), Qt::Key_Space);
    EXPECT_EQ(Get(), (Date{0, 1, 2023}));
}

TEST_F(Calendar, AMonthIsChosenAndTakenAwayByKeys) {
    Set(31, 1, 2023);
    month->setFocus();
    QTest::keyClick(month, Qt::Key_Down);
    EXPECT_EQ(Get(), (Date{28, 2, 2023}));
    EXPECT_EQ(Shown(), (Date{28, 2, 2023}));
    QTest::keyClick(month, Qt::Key_Home);
    EXPECT_EQ(Get(), (Date{31, 0, 2023}));
    EXPECT_EQ(month->count(), 13);
}

TEST_F(Calendar, AYearIsTyped) {
    Set(29, 2, 2024);
    year->setFocus();
    year->selectAll();
    QTest::keyClicks(year, QStringLiteral("1999"));
    EXPECT_EQ(Get(), (Date{28, 2, 1999}));
    EXPECT_EQ(YearText(), "1999");
    EXPECT_EQ(Shown(), (Date{28, 2, 1999}));
    QTest::keyClicks(year, QStringLiteral("5"));
    EXPECT_EQ(YearText(), "1999") << "no more than four digits";
}

TEST_F(Calendar, AnEmptyYearIsNone) {
    Set(5, 5, 2024);
    year->setFocus();
    year->selectAll();
    QTest::keyClick(year, Qt::Key_Delete);
    EXPECT_EQ(Get(), (Date{5, 5, 0}));
    EXPECT_EQ(YearText(), "");
    calendar->setFocus();
    EXPECT_EQ(YearText(), "") << "also when the field is left";
    EXPECT_EQ(Get(), (Date{5, 5, 0}));
    year->setFocus();
    QTest::keyClicks(year, QStringLiteral("0"));
    calendar->setFocus();
    EXPECT_EQ(Get(), (Date{5, 5, 0}));
    EXPECT_EQ(YearText(), "");
}

TEST_F(Calendar, AYearIsStepped) {
    Set(5, 5, 2024);
    year->setFocus();
    QTest::keyClick(year, Qt::Key_Up);
    EXPECT_EQ(Get(), (Date{5, 5, 2025}));
    QTest::keyClick(year, Qt::Key_PageDown);
    EXPECT_EQ(Get(), (Date{5, 5, 2015}));
    calendar->SetYear(5);
    QTest::keyClick(year, Qt::Key_PageDown);
    EXPECT_EQ(Get(), (Date{5, 5, 1})) << "stepping doesn't take it away";
    calendar->SetYear(0);
    QTest::keyClick(year, Qt::Key_Down);
    EXPECT_EQ(Get(), (Date{5, 5, 2027})) << "this year";
    calendar->SetYear(9999);
    QTest::keyClick(year, Qt::Key_Up);
    EXPECT_EQ(Get(), (Date{5, 5, 9999}));
}

// The rest ---------------------------------------------------------------------------------------

TEST_F(Calendar, TellsWhatItIsInFrontOfItsWindow) {
    messages.Expect(
        {"The calendar of the Kelda 4400 sign control suite.\n\nIt knows the days of "
         "the years 1 to 9999.",
         "About Calendar", k4cmn::MessageButtons::Ok, k4cmn::MessageIcon::Information});
    calendar->AboutBox();
}

TEST_F(Calendar, TheTabKeyReachesEveryPart) {
    QWidget* const parts[] = {view, Step("Previous Month"), month, year, Step("Next Month")};
    for (std::size_t at = 0; at < std::size(parts); ++at) {
        EXPECT_EQ(QApplication::focusWidget(), parts[at]) << at;
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(QApplication::focusWidget(), view);
}

TEST_F(Calendar, EveryPartHasAnAccessibleName) {
    EXPECT_EQ(view->accessibleName().toStdString(), "Days");
    EXPECT_EQ(month->accessibleName().toStdString(), "Month");
    EXPECT_EQ(year->accessibleName().toStdString(), "Year");
}

TEST_F(Calendar, EveryDayHasItsRoomAtAnyFontSize) {
    for (const double factor : {0.8, 1.0, 2.0}) {
        const FontScale scale(factor);
        k4suite::CalendarControl other(nullptr);
        other.SetMonth(9);
        other.SetYear(2000);
        EXPECT_LE(other.sizeHint().width(), 700);
        EXPECT_LE(other.sizeHint().height(), 500);
        other.resize(other.minimumSizeHint());
        other.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&other));
        auto* const cells = other.findChild<QTableView*>();
        const QFontMetrics metrics(cells->font());
        for (int column = 0; column < 7; ++column) {
            const QString name = cells->model()->index(0, column).data().toString();
            EXPECT_GE(cells->columnWidth(column), metrics.horizontalAdvance(name)) << factor;
            EXPECT_GE(cells->columnWidth(column), metrics.horizontalAdvance(QStringLiteral("30")));
        }
        EXPECT_GE(cells->rowHeight(1), metrics.height()) << factor;
        const auto* const months =
            other.findChild<QComboBox*>(QString(), Qt::FindDirectChildrenOnly);
        EXPECT_GE(months->width(), months->minimumSizeHint().width()) << factor;
        const auto* const years = other.findChild<QSpinBox*>(QString(), Qt::FindDirectChildrenOnly);
        EXPECT_GE(years->width(), metrics.horizontalAdvance(QStringLiteral("9999"))) << factor;
    }
}

}  // namespace
}  // namespace k4test
