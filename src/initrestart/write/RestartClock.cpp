#include "initrestart/write/RestartClock.h"

#include "core/Fail.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>

namespace Kvt::Mrl::MrlIO {

namespace {

using Service::Time;

constexpr int lastReportStep = 29999;
constexpr double hoursPerDay = 24.0;
constexpr double daysPerYear = 365.0;
constexpr std::array<int, 12> daysBeforeMonth{0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};

Time startOf(const Service::YearMonthDay& date, const Service::HourMinuteSecondMillisecond& time)
{
    // A year that int can't hold stays one that the calendar lacks.
    const auto year = static_cast<int>(std::min<long>(date.Year(), std::numeric_limits<int>::max()));
    return {year, date.Month(), date.Day(), time.Hour(), time.Minute(), time.Second(), time.Millisecond()};
}

/// Undefined when the days lead out of the calendar.
/// days   0 or above, infinite ones too
Time timeAfter(Time start, double days)
{
    const double milliseconds = std::round(days * static_cast<double>(Time::DAY));
    if (!(milliseconds < 0x1p63))
        return {};
    return start += static_cast<std::int64_t>(milliseconds);
}

} // namespace

double timeFactor(UnitSystemType::Enum units)
{
    if (units == noUnitSystem)
        throw std::runtime_error("Unit system has not been set when converting time.");
    return units == UnitSystemType::LAB ? hoursPerDay : 1.0;
}

double dayNumber(const Service::YearMonthDay& date)
{
    if (date.Month() == 0)
        throw std::invalid_argument("The start date has not been set.");
    const auto year = static_cast<double>(date.Year());
    const double leapCycles = std::floor(year * 0.25);
    double days = (year - 4.0 * leapCycles) * daysPerYear + (4.0 * leapCycles * 365.25 + 1.0) +
                  daysBeforeMonth.at(date.Month() - std::size_t{1});
    // The years that aren't leap years get the day. Programs that read these numbers expect them so; it is kept.
    if (date.Month() > 1 && date.Year() % 4 != 0)
        days += 1.0;
    return date.Day() - 1 + days;
}

int microsecondsOfMinute(const Service::Time& time)
{
    return (time.GetSecond() * 1000 + time.GetMillisecond()) * 1000;
}

RestartClock::RestartClock(const Service::YearMonthDay& startDate,
                           const Service::HourMinuteSecondMillisecond& startTime)
    : startDate_(startDate),
      startTime_(startTime)
{}

void RestartClock::setStart()
{
    setStep(0, 0.0);
}

void RestartClock::setStep(int reportStep, double elapsedDays)
{
    if (reportStep < 0 || reportStep > lastReportStep)
        fail<std::invalid_argument>("Report step is invalid: ", reportStep,
                                    ".  Must be in range 0 <= report step <= ", lastReportStep, ".");
    const Time time = elapsedDays >= 0.0 ? timeAfter(startOf(startDate_, startTime_), elapsedDays) : Time();
    if (!time.IsDef())
        fail<std::invalid_argument>("Elapsed time is invalid: ", elapsedDays, ".  Must be >= 0.0.");
    reportStep_ = reportStep;
    elapsedDays_ = elapsedDays;
    currentTime_ = time;
}

double RestartClock::startDay() const
{
    const std::int64_t sinceMidnight = startTime_.Hour() * Time::HOUR + startTime_.Minute() * Time::MINUTE +
                                       startTime_.Second() * Time::SECOND + startTime_.Millisecond();
    return dayNumber(startDate_) + static_cast<double>(sinceMidnight) / static_cast<double>(Time::DAY);
}

} // namespace Kvt::Mrl::MrlIO
