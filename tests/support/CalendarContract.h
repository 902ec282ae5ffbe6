#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

#include "k4cmndlg/smalldlg/contracts/K4CalendarCtrl.h"

/// What every implementation of K4CalendarCtrl keeps.
///
/// To run it against an implementation, include this header in one source file of a test and name a
/// maker there, in this namespace:
///
///     std::shared_ptr<k4cmn::Calendars> Make() { ... }
///     INSTANTIATE_TEST_SUITE_P(Embedded, CalendarContract, ::testing::Values(&Make));
namespace k4test {

using CalendarsMaker = std::shared_ptr<k4cmn::Calendars> (*)();

class CalendarContract : public ::testing::TestWithParam<CalendarsMaker> {
 protected:
    using Date = std::array<int, 3>;

    CalendarContract() : m_calendars(GetParam()()), m_calendar(m_calendars->Create(&m_window)) {}

    void Set(const Date& date) {
        m_calendar->SetDay(date[0]);
        m_calendar->SetMonth(date[1]);
        m_calendar->SetYear(date[2]);
    }
    Date Get() const {
        return {m_calendar->GetDay(), m_calendar->GetMonth(), m_calendar->GetYear()};
    }

    QWidget m_window;
    std::shared_ptr<k4cmn::Calendars> m_calendars;
    K4CalendarCtrl* m_calendar;
};

TEST_P(CalendarContract, IsAPartOfItsWindowAndBeginsWithoutADate) {
    ASSERT_NE(m_calendar, nullptr);
    EXPECT_EQ(m_calendar->parentWidget(), &m_window);
    EXPECT_EQ(Get(), (Date{0, 0, 0}));
}

TEST_P(CalendarContract, GivesTheDateThatWasSet) {
    for (const Date& date :
         {Date{1, 1, 1}, Date{31, 12, 9999}, Date{29, 2, 2024}, Date{28, 2, 1900},
          Date{15, 10, 1582}, Date{10, 10, 1582}, Date{31, 1, 100}}) {
        Set(date);
        EXPECT_EQ(Get(), date);
    }
}

TEST_P(CalendarContract, TakesThePiecesInAnyOrderWhateverWasThereBefore) {
    const std::vector<Date> dates{{31, 1, 2023}, {28, 2, 2023},  {29, 2, 2024},
                                  {30, 4, 2023}, {31, 12, 1999}, {0, 0, 0}};
    std::array<int, 3> order{0, 1, 2};
    do {
        for (const Date& before : dates) {
            for (const Date& date : dates) {
                Set(before);
                for (const int piece : order) {
                    if (piece == 0)
                        m_calendar->SetDay(date[0]);
                    else if (piece == 1)
                        m_calendar->SetMonth(date[1]);
                    else
                        m_calendar->SetYear(date[2]);
                }
                EXPECT_EQ(Get(), date) << "after " << before[0] << "." << before[1];
            }
        }
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST_P(CalendarContract, AnyPieceMayBeMissing) {
    for (const Date& date : {Date{0, 5, 2010}, Date{9, 0, 2010}, Date{9, 5, 0}, Date{31, 0, 0},
                             Date{0, 2, 0}, Date{0, 0, 2010}}) {
        Set({8, 8, 2008});
        Set(date);
        EXPECT_EQ(Get(), date);
    }
}

TEST_P(CalendarContract, WhatIsNoPieceOfADateTakesItAway) {
    constexpr int kLowest = -2147483647 - 1;
    for (const int day : {-1, 32, 100, 2147483647, kLowest}) {
        Set({8, 8, 2008});
        m_calendar->SetDay(day);
        EXPECT_EQ(Get(), (Date{0, 8, 2008})) << day;
    }
    for (const int month : {-1, 13, 256, 2147483647, kLowest}) {
        Set({8, 8, 2008});
        m_calendar->SetMonth(month);
        EXPECT_EQ(Get(), (Date{8, 0, 2008})) << month;
    }
    for (const int year : {-1, 10000, 65536, 2147483647, kLowest}) {
        Set({8, 8, 2008});
        m_calendar->SetYear(year);
        EXPECT_EQ(Get(), (Date{8, 8, 0})) << year;
    }
}

TEST_P(CalendarContract, ADayThatTheMonthHasntGotIsItsLastOne) {
    Set({31, 1, 2023});
    const std::array<int, 12> lengths{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int month = 1; month <= 12; ++month) {
        m_calendar->SetMonth(month);
        EXPECT_EQ(m_calendar->GetDay(), lengths[static_cast<std::size_t>(month - 1)]) << month;
    }
    EXPECT_EQ(Get(), (Date{31, 12, 2023})) << "the day that was set is back";
    Set({31, 2, 2023});
    EXPECT_EQ(m_calendar->GetDay(), 28);
    m_calendar->SetYear(2000);
    EXPECT_EQ(m_calendar->GetDay(), 29);
    m_calendar->SetYear(1900);
    EXPECT_EQ(m_calendar->GetDay(), 28);
    m_calendar->SetYear(0);
    EXPECT_EQ(m_calendar->GetDay(), 29) << "there may be such a year";
    m_calendar->SetMonth(0);
    EXPECT_EQ(m_calendar->GetDay(), 31);
}

}  // namespace k4test
