#pragma once

#include <mrlio/UnitSystemType.h>
#include <mrlio/service/HourMinuteSecondMillisecond.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/Time.h>
#include <mrlio/service/YearMonthDay.h>

namespace Kvt::Mrl::MrlIO {

/// What stands for units where no grid has set any yet.
constexpr auto noUnitSystem = static_cast<UnitSystemType::Enum>(UnitSystemType::PVT_M + 1);

/// The unit of times in files per day: 24 for LAB, whose files count hours, 1 otherwise.
/// throws   std::runtime_error for noUnitSystem
double timeFactor(UnitSystemType::Enum units);

/// A date as a number of days, as restart headers hold it.
/// date     not the default one, which has no month
double dayNumber(const Service::YearMonthDay& date);

/// Second and millisecond as header words hold them: in one, as microseconds since the last full minute.
int microsecondsOfMinute(const Service::Time& time);

/// The start of a run, and the report step that is being written. A plain value.
class RestartClock
{
public:
    /// Report step 0, with no time elapsed; currentTime is undefined until setStart or setStep.
    RestartClock(const Service::YearMonthDay& startDate, const Service::HourMinuteSecondMillisecond& startTime);

    /// Back to step 0 at the start: all that an init file needs.
    /// throws   ServiceException for a date that the calendar lacks
    void setStart();

    /// throws   std::invalid_argument for a step outside 0 to 29999, and for an elapsed time that is negative, not a
    ///          number or leads out of the calendar; ServiceException as setStart does. Then nothing changes.
    void setStep(int reportStep, double elapsedDays);

    int reportStep() const { return reportStep_; }

    double elapsedDays() const { return elapsedDays_; }

    /// Start and elapsed days, to the nearest millisecond.
    const Service::Time& currentTime() const { return currentTime_; }

    /// The day number of the start, with the fraction of the day.
    double startDay() const;

private:
    Service::YearMonthDay startDate_;
    Service::HourMinuteSecondMillisecond startTime_;
    int reportStep_ = 0;
    double elapsedDays_ = 0.0;
    Service::Time currentTime_;
};

} // namespace Kvt::Mrl::MrlIO
