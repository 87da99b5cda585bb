#include "Dates.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace casereport {

namespace {

constexpr double mostDays = 2e6; ///< more than five thousand years
constexpr double millisecondsPerDay = 86400000.0;

} // namespace

std::string textOf(const Kvt::Mrl::MrlIO::Service::YearMonthDay& date)
{
    char text[48];
    std::snprintf(text, sizeof text, "%04ld-%02u-%02u", date.Year(), unsigned{date.Month()}, unsigned{date.Day()});
    return text;
}

CaseCalendar::CaseCalendar(const Kvt::Mrl::MrlIO::ISummaryReader& reader)
    : start_(std::chrono::year(static_cast<int>(reader.startDate().Year())) /
             std::chrono::month(reader.startDate().Month()) / std::chrono::day(reader.startDate().Day())),
      unitsPerDay_(reader.unit(reader.timeVectorID()) == "HOURS" ? 24.0 : 1.0)
{
    const auto& time = reader.startTime();
    const int seconds = (time.Hour() * 60 + time.Minute()) * 60 + time.Second();
    startOfDay_ = (seconds * 1000.0 + time.Millisecond()) / millisecondsPerDay;
}

std::chrono::year_month_day CaseCalendar::dateAt(double days) const
{
    const double known = std::isnan(days) ? 0.0 : std::clamp(days, -mostDays, mostDays);
    return start_ + std::chrono::days(static_cast<int>(std::floor(known + startOfDay_)));
}

double CaseCalendar::daysAt(std::chrono::year_month_day date) const
{
    return static_cast<double>((std::chrono::sys_days(date) - start_).count()) - startOfDay_;
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
