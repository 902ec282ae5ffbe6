#pragma once

#include <QWidget>

#include "k4cmndlg/frame/Provided.h"
#include "k4cmndlg/k4cmndlg_export.h"

/// The calendar control of the suite, in which a person picks a day. A date is a day, a month and a
/// year; each of them may be 0, for none. A new calendar has none of them.
///
/// The pieces can be set in any order, and one of them never changes another: 31, then 3 gives 31
/// March, whatever month was there before. What a day comes to in its month is reckoned when it is
/// read or shown: 31 in a month of 30 days is 30 there, and 31 again in the next month. 29 February
/// stands for as long as no year is known.
/// setFocus() on it takes the keyboard to the days.
/// Ownership: the window that it is a child of. Threads: the user interface thread.
class K4CMNDLG_EXPORT K4CalendarCtrl : public QWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(K4CalendarCtrl)

 public:
    /// @param parent the window that it is a part of.
    explicit K4CalendarCtrl(QWidget* parent) : QWidget(parent) {}
    ~K4CalendarCtrl() override;

    /// The day that is chosen, 1 to 31 and never more than the month has; 0 for none.
    virtual int GetDay() const = 0;
    /// The month that is chosen, 1 to 12; 0 for none.
    virtual int GetMonth() const = 0;
    /// The year that is chosen, 1 to 9999; 0 for none.
    virtual int GetYear() const = 0;

    /// @name Sets a piece of the date. 0 takes it away, and so does what is no day (1 to 31), month
    /// (1 to 12) or year (1 to 9999) of the calendar.
    /// @{
    virtual void SetDay(int day) = 0;
    virtual void SetMonth(int month) = 0;
    virtual void SetYear(int year) = 0;
    /// @}

    /// Tells what the control is, in front of its window, and returns when that is read.
    virtual void AboutBox() = 0;

 Q_SIGNALS:
    /// A person has double-clicked on the calendar, or pressed Enter on a day of it.
    void DblClick();
};

namespace k4cmn {

/// Makes the calendars of dialogs. With nothing installed there are none.
/// Threads: the user interface thread.
class K4CMNDLG_EXPORT Calendars {
 public:
    virtual ~Calendars();

    /// Makes a control as a child of a window, which owns it.
    /// @param window not null. @return null if it can't be made.
    virtual K4CalendarCtrl* Create(QWidget* window) = 0;
};

}  // namespace k4cmn

K4_DECLARE_PROVIDED(K4CMNDLG_EXPORT, Calendars)
