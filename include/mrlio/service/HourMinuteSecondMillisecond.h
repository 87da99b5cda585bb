#pragma once

#include <mrlio/Export.h>

#include <compare>

namespace Kvt::Mrl::Core::Service {
/// A time of day to the millisecond. A plain value, ordered by hour, then minute, second and millisecond.
class MRLIO_EXPORT HourMinuteSecondMillisecond
{
public:
    /// Midnight: all four numbers 0.
    HourMinuteSecondMillisecond() = default;

    /// hour          0 to 23
    /// minute        0 to 59; a number above that is taken as it is, and only a negative one is refused
    /// second        0 to 59
    /// millisecond   0 to 999
    /// throws        ServiceException for the first that is refused: "HourMinuteSecondMillisecond: invalid hour value",
    ///               and the same with minute, second or millisecond
    HourMinuteSecondMillisecond(int hour, int minute, int second, int millisecond);

    int Hour() const { return hour_; }

    int Minute() const { return minute_; }

    int Second() const { return second_; }

    int Millisecond() const { return millisecond_; }

    auto operator<=>(const HourMinuteSecondMillisecond&) const = default;

private:
    int hour_ = 0;
    int minute_ = 0;
    int second_ = 0;
    int millisecond_ = 0;
};
} // namespace Kvt::Mrl::Core::Service
