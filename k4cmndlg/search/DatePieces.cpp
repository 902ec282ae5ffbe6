#include "k4cmndlg/search/DatePieces.h"

#include "k4cmndlg/frame/Format.h"
#include "k4cmndlg/frame/LocalTime.h"

namespace k4cmn {

CalendarDay DayOf(std::int64_t seconds) {
    constexpr int kFirstYear = 1900;
    const std::tm local = LocalTime(seconds);
    return {local.tm_mday, local.tm_mon + 1, kFirstYear + local.tm_year};
}

std::string DateText(const CalendarDay& day) {
    return Format("%2d/%2d/%4d", day.month, day.day, day.year);
}

}  // namespace k4cmn
