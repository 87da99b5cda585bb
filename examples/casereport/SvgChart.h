#pragma once

#include "Dates.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace casereport {

struct Curve
{
    std::string label;
    std::vector<std::pair<double, double>> points; ///< days since the start of the case, value
};

struct Chart
{
    std::string title;
    std::string subtitle;
    std::string units;
    std::vector<Curve> curves;
    std::size_t leftOut = 0; ///< curves for which there was no room
};

/// Puts a curve into the chart, if there is room for one more that can be told apart from the others.
void addCurve(Chart& chart, Curve curve);

/// An SVG document of lines over a time axis with dates, a legend and a grid in round numbers.
std::string drawChart(const Chart& chart, const CaseCalendar& calendar);

} // namespace casereport
