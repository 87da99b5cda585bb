#include "SvgChart.h"

#include "SvgParts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <numeric>
#include <sstream>
#include <utility>

namespace casereport {

namespace {

constexpr double width = 960, height = 540;
constexpr double left = 92, right = 190, top = 74, bottom = 62;
constexpr double plotWidth = width - left - right, plotHeight = height - top - bottom;
constexpr std::size_t mostCurves = 16;
constexpr double mostDays = 2e6;         ///< of the time axis
constexpr double longestInDays = 80.0;   ///< a longer time axis counts in months
constexpr double smallPart = 1e-6;       ///< of a day, which rounding may take off a midnight
constexpr std::size_t mostPoints = 2000; ///< a curve of more is thinned; no screen shows the rest

struct Range
{
    double low = 0.0, high = 1.0;

    double fraction(double value) const { return (value - low) / (high - low); }
};

struct Scales
{
    Range days, values;
    double valueStep = 1.0;

    double x(double day) const { return left + plotWidth * days.fraction(day); }

    double y(double value) const { return top + plotHeight * (1.0 - values.fraction(value)); }
};

Range dayRange(const Chart& chart)
{
    Range range{0.0, 0.0};
    for (const Curve& curve : chart.curves)
        for (const auto& point : curve.points)
            range.high = std::max(range.high, point.first);
    if (range.high <= 0.0)
        range.high = 1.0;
    range.high = std::min(range.high, mostDays);
    return range;
}

/// Room for all values, from zero if they come near it.
Range valueRange(const Chart& chart)
{
    Range range{HUGE_VAL, -HUGE_VAL};
    for (const Curve& curve : chart.curves)
        for (const auto& point : curve.points)
            if (std::isfinite(point.second)) {
                range.low = std::min(range.low, point.second);
                range.high = std::max(range.high, point.second);
            }
    if (range.low > range.high)
        return {0.0, 1.0};
    if (range.low > 0.0 && range.low < 0.5 * range.high)
        range.low = 0.0;
    const double size = std::max(std::abs(range.low), std::abs(range.high));
    if (range.high - range.low < 1e-6 * size || size == 0.0) { // a constant, with no more than the noise of a float
        const double room = size > 0.0 ? 0.1 * size : 0.5;
        range.low -= room;
        range.high += room;
    }
    return range;
}

Scales makeScales(const Chart& chart)
{
    Scales scales;
    scales.days = dayRange(chart);
    scales.values = valueRange(chart);
    scales.valueStep = roundStep(scales.values.high - scales.values.low, 7);
    scales.values.low = scales.valueStep * std::floor(scales.values.low / scales.valueStep + 1e-9);
    scales.values.high = scales.valueStep * std::ceil(scales.values.high / scales.valueStep - 1e-9);
    return scales;
}

/// The power of a thousand in which an axis counts, so that its numbers stay short; mostly 0.
int axisPower(const Range& range)
{
    const double largest = std::max(std::abs(range.low), std::abs(range.high));
    const bool isShort = largest >= 1e-3 && largest < 1e7;
    return isShort ? 0 : 3 * static_cast<int>(std::floor(std::log10(largest) / 3.0));
}

std::string axisLabel(const std::string& units, int power)
{
    constexpr std::array<const char*, 10> raised{"⁰", "¹", "²", "³", "⁴", "⁵", "⁶", "⁷", "⁸", "⁹"};
    std::string label = units.empty() ? "fraction" : escapeXml(units);
    if (power == 0)
        return label;
    label += power < 0 ? " × 10⁻" : " × 10";
    for (const char digit : std::to_string(std::abs(power)))
        label += raised[static_cast<std::size_t>(digit - '0')];
    return label;
}

void drawValueAxis(std::ostream& out, const Chart& chart, const Scales& scales)
{
    const int power = axisPower(scales.values);
    const double one = std::pow(10.0, power);
    const int steps = static_cast<int>(std::lround((scales.values.high - scales.values.low) / scales.valueStep));
    for (int n = 0; n <= steps; ++n) {
        const double value = scales.values.low + n * scales.valueStep;
        const double y = scales.y(value);
        out << "<line class=\"grid\" x1=\"" << left << "\" x2=\"" << left + plotWidth << "\" y1=\"" << y << "\" y2=\""
            << y << "\"/>\n";
        drawText(out, left - 10, y + 4, "class=\"tick\" text-anchor=\"end\"",
                 numberText(value / one, scales.valueStep / one));
    }
    out << "<text class=\"axis\" text-anchor=\"middle\" transform=\"translate(24," << top + plotHeight / 2
        << ") rotate(-90)\">" << axisLabel(chart.units, power) << "</text>\n";
}

/// Months between two dates on the axis, so that there are at most about ten.
int monthsBetweenTicks(double days)
{
    for (int months : {1, 2, 3, 6, 12, 24, 60, 120, 240, 600})
        if (days / (30.4375 * months) <= 11.0)
            return months;
    return 1200;
}

struct Tick
{
    double days;
    std::string label;
};

/// Firsts of months, or of years.
std::vector<Tick> monthTicks(const Range& range, const CaseCalendar& calendar)
{
    const int months = monthsBetweenTicks(range.high - range.low);
    const auto first = calendar.dateAt(range.low);
    std::chrono::year_month month = months >= 12 ? first.year() / std::chrono::January : first.year() / first.month();
    std::vector<Tick> ticks;
    for (; calendar.daysAt(month / 1) <= range.high; month += std::chrono::months(months)) {
        const double days = calendar.daysAt(month / 1);
        if (days >= range.low)
            ticks.push_back({days, calendar.textAt(days + smallPart).substr(0, months >= 12 ? 4 : 7)});
    }
    return ticks;
}

/// Days, or full hours, for a range of some weeks at most.
std::vector<Tick> hourTicks(const Range& range, const CaseCalendar& calendar)
{
    constexpr int spacings[] = {1, 3, 6, 12, 24, 48, 120, 240};
    const double most = 24.0 * (range.high - range.low) / 7.0;
    const int* spacing = std::find_if(std::begin(spacings), std::end(spacings) - 1, [&](int h) { return h >= most; });
    const double firstMidnight = calendar.daysAt(calendar.dateAt(range.low));
    std::vector<Tick> ticks;
    for (int hours = 0; firstMidnight + hours / 24.0 <= range.high + smallPart; hours += *spacing) {
        const double days = firstMidnight + hours / 24.0;
        if (days < range.low - smallPart)
            continue;
        std::string label = calendar.textAt(days + smallPart);
        if (*spacing < 24)
            label = label.substr(5) + (hours % 24 < 10 ? " 0" : " ") + std::to_string(hours % 24) + ":00";
        ticks.push_back({days, std::move(label)});
    }
    return ticks;
}

void drawTimeAxis(std::ostream& out, const Scales& scales, const CaseCalendar& calendar)
{
    const bool isLong = scales.days.high - scales.days.low > longestInDays;
    for (const Tick& tick : isLong ? monthTicks(scales.days, calendar) : hourTicks(scales.days, calendar)) {
        const double x = scales.x(tick.days);
        out << "<line class=\"grid\" x1=\"" << x << "\" x2=\"" << x << "\" y1=\"" << top << "\" y2=\""
            << top + plotHeight + 5 << "\"/>\n";
        drawText(out, x, top + plotHeight + 22, "class=\"tick\" text-anchor=\"middle\"", tick.label);
    }
    drawText(out, left + plotWidth / 2, height - 16, "class=\"axis\" text-anchor=\"middle\"", "Date");
}

/// All points of a curve, or the smallest and the largest value of each run of them if there are many, so that peaks
/// stay.
std::vector<std::size_t> placesToDraw(const Curve& curve)
{
    const std::size_t stride = 1 + 2 * curve.points.size() / mostPoints;
    std::vector<std::size_t> places;
    const auto isLower = [&](std::size_t a, std::size_t b) { return curve.points[a].second < curve.points[b].second; };
    for (std::size_t first = 0; first < curve.points.size(); first += stride) {
        std::vector<std::size_t> run(std::min(stride, curve.points.size() - first));
        std::iota(run.begin(), run.end(), first);
        auto [low, high] = std::minmax_element(run.begin(), run.end(), isLower);
        const auto [from, to] = std::minmax(*low, *high);
        places.push_back(from);
        if (to != from)
            places.push_back(to);
    }
    return places;
}

/// The points to draw, in stretches between values that can't be drawn.
std::vector<std::vector<std::size_t>> stretches(const Curve& curve)
{
    std::vector<std::vector<std::size_t>> result(1);
    for (const std::size_t p : placesToDraw(curve))
        if (std::isfinite(curve.points[p].second))
            result.back().push_back(p);
        else if (!result.back().empty())
            result.emplace_back();
    return result;
}

void drawCurve(std::ostream& out, const Curve& curve, const Scales& scales, std::size_t n)
{
    for (const std::vector<std::size_t>& stretch : stretches(curve)) {
        if (stretch.size() == 1) {
            const auto& [day, value] = curve.points[stretch.front()];
            out << "<circle fill=\"" << curveColour(n) << "\" cx=\"" << scales.x(day) << "\" cy=\"" << scales.y(value)
                << "\" r=\"4\"/>\n";
        } else if (!stretch.empty()) {
            out << "<path class=\"curve\" " << curveStyle(n) << " d=\"";
            char command = 'M';
            for (const std::size_t p : stretch) {
                out << command << scales.x(curve.points[p].first) << " " << scales.y(curve.points[p].second);
                command = 'L';
            }
            out << "\"/>\n";
        }
    }
}

/// Beside the plot.
void drawCurveNames(std::ostream& out, const Chart& chart)
{
    std::vector<std::string> names;
    for (const Curve& curve : chart.curves)
        names.push_back(curve.label);
    const double x = left + plotWidth + 18;
    const double end = drawLegend(out, x, top + 10, plotHeight, names);
    if (chart.leftOut > 0)
        drawText(out, x, end, "class=\"legend\"", "and " + std::to_string(chart.leftOut) + " more");
}

} // namespace

void addCurve(Chart& chart, Curve curve)
{
    if (chart.curves.size() < mostCurves)
        chart.curves.push_back(std::move(curve));
    else
        ++chart.leftOut;
}

std::string drawChart(const Chart& chart, const CaseCalendar& calendar)
{
    const Scales scales = makeScales(chart);
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out.precision(6);
    beginSvg(out, width, height);
    drawText(out, left, 32, "class=\"title\"", escapeXml(chart.title));
    drawText(out, left, 54, "class=\"subtitle\"", escapeXml(chart.subtitle));
    drawValueAxis(out, chart, scales);
    drawTimeAxis(out, scales, calendar);
    out << "<rect class=\"frame\" x=\"" << left << "\" y=\"" << top << "\" width=\"" << plotWidth << "\" height=\""
        << plotHeight << "\"/>\n";
    for (std::size_t n = 0; n < chart.curves.size(); ++n)
        drawCurve(out, chart.curves[n], scales, n);
    drawCurveNames(out, chart);
    endSvg(out);
    return out.str();
}

} // namespace casereport
