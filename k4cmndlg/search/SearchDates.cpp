#include "k4cmndlg/search/SearchDates.h"

#include <algorithm>
#include <chrono>

#include "k4cmndlg/frame/LocalTime.h"

namespace k4cmn {

namespace {

constexpr std::int64_t kSecondsOfADay = 86400;

CalendarDay DayOf(const std::tm& time) {
    return {time.tm_mday, time.tm_mon + 1, time.tm_year + 1900};
}

}  // namespace

std::optional<std::int64_t> DayNumber(const CalendarDay& day) {
    namespace chrono = std::chrono;
    constexpr std::int64_t kLatestYear = 30000;  // behind that of every file, and a chrono::year
    if (day.day < 1 || day.month < 1 || day.year < 1)
        return std::nullopt;
    const std::int64_t months = std::int64_t{day.year} * 12 + day.month - 1;
    const chrono::year year(static_cast<int>(std::min(months / 12, kLatestYear)));
    const chrono::month month(static_cast<unsigned>(months % 12 + 1));
    return chrono::sys_days(year / month / 1).time_since_epoch().count() + std::int64_t{day.day} -
           1;
}

std::int64_t DaysElapsed(std::int64_t now, std::int64_t then) {
    constexpr std::int64_t kFarthest = std::int64_t{1} << 61;  // the difference of two still fits
    return (std::clamp(now, -kFarthest, kFarthest) - std::clamp(then, -kFarthest, kFarthest)) /
           kSecondsOfADay;
}

int MonthsElapsed(const std::tm& now, const std::tm& then) {
    if (then.tm_year > now.tm_year)
        return 0;
    const int elapsed = (now.tm_year - then.tm_year) * 12 + now.tm_mon - then.tm_mon;
    return elapsed > 0 && now.tm_mday > then.tm_mday ? elapsed + 1 : elapsed;
}

SearchDates::SearchDates(const SearchCriteria& criteria, std::int64_t now)
    : m_filter(criteria.dateFilter),
      m_mode(criteria.dateMode),
      m_days(criteria.days),
      m_months(criteria.months),
      m_firstDay(DayNumber(criteria.firstDate)),
      m_lastDay(DayNumber(criteria.lastDate)),
      m_now(now),
      m_today(LocalTime(now)) {}

bool SearchDates::Passes(std::int64_t modified) const {
    if (m_filter != DATE_MODIFIED)
        return true;
    switch (m_mode) {
        case DATE_BETWEEN:
            return IsBetween(modified);
        case DATE_MONTHS:
            return MonthsElapsed(m_today, LocalTime(modified)) <= m_months;
        case DATE_DAYS:
            return DaysElapsed(m_now, modified) <= m_days;
        default:
            return true;
    }
}

// Days are compared, and not moments: a day may begin later than at midnight, and its last second
// come twice, where the clocks change by night.
bool SearchDates::IsBetween(std::int64_t modified) const {
    if (!m_firstDay || !m_lastDay)
        return false;
    const std::optional<std::int64_t> day = DayNumber(DayOf(LocalTime(modified)));
    return day && *m_firstDay <= *day && *day <= *m_lastDay;
}

}  // namespace k4cmn
