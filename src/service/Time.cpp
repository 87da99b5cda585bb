#include <mrlio/service/Time.h>

#include <mrlio/service/Exception.h>

#include "service/CivilDate.h"

#include <chrono>

namespace Kvt::Mrl::Core::Service {
namespace {
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr int largestYear = 32767;

constexpr std::int64_t startOfYear(int year)
{
    return sys_days{std::chrono::year{year} / 1 / 1}.time_since_epoch().count() * Time::DAY;
}

constexpr std::int64_t first = startOfYear(0);
constexpr std::int64_t last = startOfYear(largestYear) + (isLeapYear(largestYear) ? 366 : 365) * Time::DAY - 1;

constexpr std::int64_t dayNumber(std::int64_t milliseconds)
{
    return milliseconds / Time::DAY - (milliseconds % Time::DAY < 0 ? 1 : 0);
}

CivilDate dateOf(std::int64_t milliseconds)
{
    const sys_days days{std::chrono::days{dayNumber(milliseconds)}};
    const year_month_day date{days};
    return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day()))};
}

int partOfDay(std::int64_t milliseconds, std::int64_t unit, std::int64_t unitsInNext)
{
    const std::int64_t sinceMidnight = milliseconds - dayNumber(milliseconds) * Time::DAY;
    return static_cast<int>(sinceMidnight / unit % unitsInNext);
}
} // namespace

Time::Time(int year, int month, int day, int hour, int minute, int second, int millisecond)
{
    if (year > largestYear || !isDate(year, month, day) || !isTimeOfDay(hour, minute, second, millisecond))
        throw ServiceException("Time: no such day or time of day");
    const sys_days date{std::chrono::year{year} / month / day};
    milliseconds_ =
        date.time_since_epoch().count() * DAY + hour * HOUR + minute * MINUTE + second * SECOND + millisecond;
}

Time Time::FromEpoch(std::int64_t milliseconds)
{
    Time time;
    if (milliseconds >= first && milliseconds <= last)
        time.milliseconds_ = milliseconds;
    return time;
}

Time& Time::operator+=(const std::int64_t& milliseconds)
{
    if (!IsDef())
        return *this;
    std::int64_t sum = 0;
    const bool overflows = __builtin_add_overflow(milliseconds_, milliseconds, &sum);
    return *this = overflows ? Time() : FromEpoch(sum);
}

int Time::GetYear() const
{
    return IsDef() ? static_cast<int>(dateOf(milliseconds_).year) : 0;
}

int Time::GetMonth() const
{
    return IsDef() ? dateOf(milliseconds_).month : 0;
}

int Time::GetDay() const
{
    return IsDef() ? dateOf(milliseconds_).day : 0;
}

int Time::GetHour() const
{
    return IsDef() ? partOfDay(milliseconds_, HOUR, 24) : 0;
}

int Time::GetMinute() const
{
    return IsDef() ? partOfDay(milliseconds_, MINUTE, 60) : 0;
}

int Time::GetSecond() const
{
    return IsDef() ? partOfDay(milliseconds_, SECOND, 60) : 0;
}

int Time::GetMillisecond() const
{
    return IsDef() ? partOfDay(milliseconds_, MILLISECOND, 1000) : 0;
}
} // namespace Kvt::Mrl::Core::Service
