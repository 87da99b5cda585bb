#pragma once

#include <cstdint>
#include <functional>

namespace Kvt::Mrl::MrlIO {

/// A moment on the local clock; months and days count from 1.
struct LocalTime
{
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

/// Where a summary writer gets the time from.
using LocalClock = std::function<LocalTime()>;

/// The time now.
/// throws   std::runtime_error if the system can't tell
LocalTime systemLocalTime();

/// A number that tells the runs which wrote a case apart: the seconds of a calendar with months of 31 days, in 32 bits
/// that wrap around.
std::uint32_t sequenceStamp(const LocalTime& time);

} // namespace Kvt::Mrl::MrlIO
