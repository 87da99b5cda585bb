#pragma once

#include <mrlio/Export.h>

#include <compare>
#include <cstdint>
#include <limits>

namespace Kvt::Mrl::Core::Service {
/// A point in time of the civil (Gregorian) calendar, to the millisecond, without a time zone. It may be undefined.
/// A plain value: copies are independent, and an undefined time comes before all others.
class MRLIO_EXPORT Time
{
public:
    /// Lengths of the common units in the unit of operator+=, which is the millisecond.
    static constexpr std::int64_t MILLISECOND = 1;
    static constexpr std::int64_t SECOND = 1000 * MILLISECOND;
    static constexpr std::int64_t MINUTE = 60 * SECOND;
    static constexpr std::int64_t HOUR = 60 * MINUTE;
    static constexpr std::int64_t DAY = 24 * HOUR;

    /// An undefined time.
    Time() = default;

    /// year         0 to 32767
    /// month, day   from 1
    /// throws       ServiceException if there is no such day or no such time of day
    Time(int year, int month, int day, int hour, int minute, int second, int millisecond);

    /// Moves the time on by so many milliseconds, or back when negative. An undefined time stays undefined; a result
    /// outside the years 0 to 32767 is undefined.
    Time& operator+=(const std::int64_t& milliseconds);

    /// The parts of the time; all 0 when it is undefined.
    int GetYear() const;
    int GetMonth() const;
    int GetDay() const;
    int GetHour() const;
    int GetMinute() const;
    int GetSecond() const;
    int GetMillisecond() const;

    /// False for an undefined time and for MinTime().
    bool IsDef() const { return milliseconds_ != undefined; }

    /// The time that is before every defined one.
    static Time MinTime() { return {}; }

    /// The time that lies so many milliseconds behind the start of 1970.
    static Time FromEpoch(std::int64_t milliseconds);

    auto operator<=>(const Time&) const = default;

private:
    static constexpr std::int64_t undefined = std::numeric_limits<std::int64_t>::min();

    std::int64_t milliseconds_ = undefined; // since the start of 1970
};
} // namespace Kvt::Mrl::Core::Service
