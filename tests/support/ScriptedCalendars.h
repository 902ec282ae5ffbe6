#pragma once

#include <QPointer>
#include <string>
#include <vector>

#include "k4cmndlg/smalldlg/contracts/K4CalendarCtrl.h"

namespace k4test {

/// A calendar control that shows nothing, keeps what it was asked for, and has the date that a test
/// gives it. Nothing is made of a date: what was set is read.
class ScriptedCalendar final : public K4CalendarCtrl {
 public:
    explicit ScriptedCalendar(QWidget* parent) : K4CalendarCtrl(parent) {
        setFocusPolicy(Qt::StrongFocus);
    }

    std::vector<std::string> calls;
    int day = 0;
    int month = 0;
    int year = 0;
    mutable int reads = 0;

    /// What a person picks.
    void Pick(int newDay, int newMonth, int newYear) {
        day = newDay;
        month = newMonth;
        year = newYear;
    }

    int GetDay() const override { return Read(day); }
    int GetMonth() const override { return Read(month); }
    int GetYear() const override { return Read(year); }
    void SetDay(int value) override { Set("SetDay", day, value); }
    void SetMonth(int value) override { Set("SetMonth", month, value); }
    void SetYear(int value) override { Set("SetYear", year, value); }
    void AboutBox() override { calls.emplace_back("AboutBox"); }
    QSize sizeHint() const override { return {240, 180}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
    void mouseDoubleClickEvent(QMouseEvent*) override { Q_EMIT DblClick(); }

 private:
    int Read(int piece) const {
        ++reads;
        return piece;
    }
    void Set(const char* what, int& piece, int value) {
        calls.push_back(std::string(what) + "(" + std::to_string(value) + ")");
        piece = value;
    }
};

/// Makes scripted calendars, or fails to. Installed for the life of the object.
class ScriptedCalendars final : public k4cmn::Calendars {
 public:
    K4CalendarCtrl* Create(QWidget* window) override {
        ++asked;
        last = fails ? nullptr : new ScriptedCalendar(window);
        return last;
    }

    bool fails = false;
    int asked = 0;
    QPointer<ScriptedCalendar> last;  ///< the one that was made last

 private:
    k4cmn::ScopedProvider<k4cmn::Calendars> m_installed{*this};
};

}  // namespace k4test
