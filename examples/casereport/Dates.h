#pragma once

#include <mrlio/MrlIO.h>

#include <chrono>
#include <string>

namespace casereport {

/// Calendar days from a case's start and its elapsed days.
class CaseCalendar
{
public:
    explicit CaseCalendar(const Kvt::Mrl::MrlIO::Service::YearMonthDay& start);

    std::chrono::year_month_day dateAt(double days) const;
    double daysAt(std::chrono::year_month_day date) const;

    /// As in 2026-03-14.
    std::string textAt(double days) const;

private:
    std::chrono::sys_days start_;
};

} // namespace casereport
