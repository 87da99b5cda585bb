#pragma once

#include <cstdint>

namespace Kvt::Mrl::Core::Service {
/// A day of the Gregorian calendar, carried back before its introduction.
struct CivilDate
{
    std::int64_t year;
    int month; // from 1
    int day;   // from 1
};

constexpr bool isLeapYear(std::int64_t year)
{
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

/// month   1 to 12
constexpr int daysInMonth(std::int64_t year, int month)
{
    constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && isLeapYear(year) ? 29 : days[month - 1];
}

/// True for the days there are from the year 0 on.
constexpr bool isDate(std::int64_t year, int month, int day)
{
    return year >= 0 && month >= 1 && month <= 12 && day >= 1 && day <= daysInMonth(year, month);
}

constexpr bool isTimeOfDay(int hour, int minute, int second, int millisecond)
{
    return hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60 && millisecond >= 0 &&
           millisecond < 1000;
}
} // namespace Kvt::Mrl::Core::Service
