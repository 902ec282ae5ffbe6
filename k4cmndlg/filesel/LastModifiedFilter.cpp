#include "k4cmndlg/filesel/LastModifiedFilter.h"

#include "k4cmndlg/frame/LocalTime.h"

namespace k4cmn {

namespace {

constexpr std::int64_t kSecondsOfADay = 86400;
constexpr std::int64_t kDaysShown = 6;

constexpr int MonthNumber(const std::tm& time) {
    return time.tm_year * 12 + time.tm_mon;
}

}  // namespace

LastModifiedFilter::LastModifiedFilter(int index, std::int64_t now)
    : m_index(index), m_now(now), m_today(LocalTime(now)) {}

bool LastModifiedFilter::Passes(std::int64_t modified) const {
    switch (m_index) {
        case 0: {
            const std::tm day = LocalTime(modified);
            return MonthNumber(day) == MonthNumber(m_today) && day.tm_mday == m_today.tm_mday;
        }
        case 1:
            return m_now - kDaysShown * kSecondsOfADay < modified;
        case 2:
            return MonthNumber(LocalTime(modified)) == MonthNumber(m_today) - 1;
        case 3:
            return MonthNumber(LocalTime(modified)) == MonthNumber(m_today);
        default:
            return true;
    }
}

}  // namespace k4cmn
