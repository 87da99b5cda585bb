#pragma once

#include <mrlio/Export.h>

#include <compare>

namespace Kvt::Mrl::Core::Service {
/// A date of the Gregorian calendar. A plain value, ordered by time.
class MRLIO_EXPORT YearMonthDay
{
public:
    /// No date: the year is 0, and so are month and day.
    YearMonthDay() = default;

    /// year         0 or above
    /// month, day   from 1; taken as int, so that a number out of range is seen and not cut to a narrower type
    /// throws       ServiceException if there is no such day
    YearMonthDay(long year, int month, int day);

    long Year() const { return year_; }

    unsigned short Month() const { return month_; }

    unsigned short Day() const { return day_; }

    auto operator<=>(const YearMonthDay&) const = default;

private:
    long year_ = 0;
    unsigned short month_ = 0;
    unsigned short day_ = 0;
};
} // namespace Kvt::Mrl::Core::Service
