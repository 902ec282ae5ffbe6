#pragma once

#include <QDate>

#include "k4cmndlg/smalldlg/contracts/K4CalendarCtrl.h"
#include "suite/calendar/CalendarDate.h"

class QCalendarWidget;
class QComboBox;
class QHBoxLayout;
class QKeyEvent;
class QMouseEvent;
class QTableView;
class QToolButton;

namespace k4suite {

class YearBox;

/// The calendar control: the days of a month, above them the month and the year, either of which
/// may be blank, with a button for the month before and after. The week begins as the locale has
/// it, and today stands out.
///
/// Where month or year is blank the days are those of the month that was shown last, at first of
/// today's. A person who picks a day picks the month and the year that it is shown in. Another
/// month keeps the day.
///
/// Keys among the days: the arrows, Home and End pick a day, Space the one that the keyboard is at,
/// Delete and Backspace take the day away, Page Up and Page Down go to another month, with Ctrl to
/// another year, Enter acts as a double click. The wheel goes to another month.
class CalendarControl final : public K4CalendarCtrl {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CalendarControl)

 public:
    explicit CalendarControl(QWidget* parent);
    ~CalendarControl() override;

    int GetDay() const override { return m_date.Day(); }
    int GetMonth() const override { return m_date.Month(); }
    int GetYear() const override { return m_date.Year(); }
    void SetDay(int day) override;
    void SetMonth(int month) override;
    void SetYear(int year) override;
    void AboutBox() override;

 protected:
    void focusInEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QHBoxLayout* MakeHead(const QDate& today);
    QToolButton* MakeStep(Qt::ArrowType arrow, const QString& name);
    void MakeDays(const QDate& today);
    void NameMonths();

    void Pick(const QDate& date);
    void TurnTo(int year, int month);
    bool OnKey(const QKeyEvent& key);
    bool OnDoubleClick(const QMouseEvent& click);
    void Show();
    void ShowDay();

    CalendarDate m_date;
    QDate m_page;  ///< a day of the month that is shown
    QComboBox* m_month = nullptr;
    YearBox* m_year = nullptr;
    QCalendarWidget* m_days = nullptr;
    QTableView* m_view = nullptr;  ///< the table inside m_days
    bool m_isShowing = false;      ///< the parts are being set, and tell of it
};

/// Makes them for the library's windows.
class EmbeddedCalendars final : public k4cmn::Calendars {
 public:
    K4CalendarCtrl* Create(QWidget* window) override;
};

}  // namespace k4suite
