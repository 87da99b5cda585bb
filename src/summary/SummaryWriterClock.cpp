#include "summary/SummaryWriterClock.h"

#include <ctime>
#include <stdexcept>

namespace Kvt::Mrl::MrlIO {

LocalTime systemLocalTime()
{
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    if (now == static_cast<std::time_t>(-1) || ::localtime_r(&now, &parts) == nullptr)
        throw std::runtime_error("could not convert calendar time to local time");
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec};
}

std::uint32_t sequenceStamp(const LocalTime& time)
{
    const auto number = [](int part) { return static_cast<std::uint32_t>(part); };
    const std::uint32_t months = 12U * number(time.year) + number(time.month);
    const std::uint32_t hours = (months * 31U + number(time.day)) * 24U + number(time.hour);
    const std::uint32_t minutes = hours * 60U + number(time.minute) - 23912576U;
    return minutes * 60U + number(time.second);
}

} // namespace Kvt::Mrl::MrlIO
