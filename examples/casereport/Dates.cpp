#include "Dates.h"

#include <cmath>
#include <cstdio>

namespace casereport {

CaseCalendar::CaseCalendar(const Kvt::Mrl::MrlIO::Service::YearMonthDay& start)
    : start_(std::chrono::year(static_cast<int>(start.Year())) / std::chrono::month(start.Month()) /
             std::chrono::day(start.Day()))
{}

std::chrono::year_month_day CaseCalendar::dateAt(double days) const
{
    return start_ + std::chrono::days(static_cast<int>(std::floor(days)));
}

double CaseCalendar::daysAt(std::chrono::year_month_day date) const
{
    return static_cast<double>((std::chrono::sys_days(date) - start_).count());
}

std::string CaseCalendar::textAt(double days) const
{
    const auto date = dateAt(days);
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
    return text;
}

} // namespace casereport
