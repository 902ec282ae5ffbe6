#pragma once

namespace k4suite {

/// A date of which any piece may be missing, in the Gregorian calendar, which is taken to be as old
/// as the years are. A piece never changes another one: what a day comes to is reckoned when it is
/// asked for. One thread.
class CalendarDate {
 public:
    static constexpr int kLastYear = 9999;

    /// 1 to 31 and never more than the month has; 0 for none. February has 29 days in no year.
    int Day() const;
    /// 1 to 12; 0 for none.
    int Month() const { return m_month; }
    /// 1 to kLastYear; 0 for none.
    int Year() const { return m_year; }

    /// @name What is out of the piece's range takes it away.
    /// @{
    void SetDay(int day);
    void SetMonth(int month);
    void SetYear(int year);
    /// @}

 private:
    int m_day = 0;  ///< as it was set, whatever month and year are
    int m_month = 0;
    int m_year = 0;
};

}  // namespace k4suite
