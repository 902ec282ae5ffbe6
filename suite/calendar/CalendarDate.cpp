#include "suite/calendar/CalendarDate.h"

#include <algorithm>
#include <chrono>

namespace k4suite {

namespace {

constexpr int kLeapYear = 2000;

int DaysOf(int month, int year) {
    using namespace std::chrono;
    const year_month_day_last last(
        std::chrono::year(year), month_day_last(std::chrono::month(static_cast<unsigned>(month))));
    return static_cast<int>(static_cast<unsigned>(last.day()));
}

int Within(int value, int last) {
    return value >= 1 && value <= last ? value : 0;
}

}  // namespace

int CalendarDate::Day() const {
    return m_month == 0 ? m_day : std::min(m_day, DaysOf(m_month, m_year ? m_year : kLeapYear));
}

void CalendarDate::SetDay(int day) {
    m_day = Within(day, 31);
}

void CalendarDate::SetMonth(int month) {
    m_month = Within(month, 12);
}

void CalendarDate::SetYear(int year) {
    m_year = Within(year, kLastYear);
}

}  // namespace k4suite
