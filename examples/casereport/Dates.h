#pragma once

#include <mrlio/MrlIO.h>

#include <chrono>
#include <string>

namespace casereport {

/// As in 2026-03-14.
std::string textOf(const Kvt::Mrl::MrlIO::Service::YearMonthDay& date);

/// Calendar dates from a case's start and its elapsed time.
class CaseCalendar
{
public:
    explicit CaseCalendar(const Kvt::Mrl::MrlIO::ISummaryReader& reader);

    /// Days from a time of the case, which laboratory units give in hours.
    double days(float time) const { return static_cast<double>(time) / unitsPerDay_; }

    /// Days so far off that no date can be told count as the last that can.
    std::chrono::year_month_day dateAt(double days) const;
    double daysAt(std::chrono::year_month_day date) const;

    /// As in 2026-03-14.
    std::string textAt(double days) const;

private:
    std::chrono::sys_days start_;
    double startOfDay_; ///< when the case starts within its first day, as a fraction of it
    double unitsPerDay_;
};

} // namespace casereport
