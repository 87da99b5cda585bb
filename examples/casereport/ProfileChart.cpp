#include "ProfileChart.h"

#include "SvgParts.h"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace casereport {

namespace {

constexpr double left = 84, right = 160, top = 100, bottom = 62;
constexpr double panelWidth = 210, panelHeight = 378, gap = 34;

struct Axis
{
    double low = 0.0, high = 1.0, step = 1.0;

    double fraction(double value) const { return (value - low) / (high - low); }

    int steps() const { return static_cast<int>(std::lround((high - low) / step)); }

    double tick(int n) const { return low + n * step; }
};

/// Round numbers around a range of values, however narrow it is.
Axis roundAxis(double low, double high, int mostSteps)
{
    if (low > high)
        return {};
    const double size = std::max(std::abs(low), std::abs(high));
    if (high - low < 1e-6 * size || size == 0.0) {
        const double room = size > 0.0 ? 0.01 * size : 0.5;
        low -= room;
        high += room;
    }
    Axis axis;
    axis.step = roundStep(high - low, mostSteps);
    axis.low = axis.step * std::floor(low / axis.step + 1e-9);
    axis.high = axis.step * std::ceil(high / axis.step - 1e-9);
    return axis;
}

/// Of the first or the second number of all points.
template <class Part>
Axis axisOf(const std::vector<ProfilePanel>& panels, const Part& part, int mostSteps)
{
    double low = HUGE_VAL, high = -HUGE_VAL;
    for (const ProfilePanel& panel : panels)
        for (const Profile& profile : panel.profiles)
            for (const auto& point : profile.points) {
                low = std::min(low, part(point));
                high = std::max(high, part(point));
            }
    return roundAxis(low, high, mostSteps);
}

double panelLeft(std::size_t n)
{
    return left + static_cast<double>(n) * (panelWidth + gap);
}

double depthPlace(const Axis& depths, double depth)
{
    return top + panelHeight * depths.fraction(depth);
}

void drawDepthAxis(std::ostream& out, const ProfileChart& chart, const Axis& depths)
{
    for (int n = 0; n <= depths.steps(); ++n)
        drawText(out, left - 10, depthPlace(depths, depths.tick(n)) + 4, "class=\"tick\" text-anchor=\"end\"",
                 numberText(depths.tick(n), depths.step));
    out << "<text class=\"axis\" text-anchor=\"middle\" transform=\"translate(24," << top + panelHeight / 2
        << ") rotate(-90)\">Depth" << (chart.depthUnits.empty() ? "" : ", " + escapeXml(chart.depthUnits))
        << "</text>\n";
}

void drawGrid(std::ostream& out, double x, const Axis& values, const Axis& depths)
{
    for (int n = 0; n <= depths.steps(); ++n) {
        const double y = depthPlace(depths, depths.tick(n));
        out << "<line class=\"grid\" x1=\"" << x << "\" x2=\"" << x + panelWidth << "\" y1=\"" << y << "\" y2=\"" << y
            << "\"/>\n";
    }
    for (int n = 0; n <= values.steps(); ++n) {
        const double place = x + panelWidth * values.fraction(values.tick(n));
        out << "<line class=\"grid\" x1=\"" << place << "\" x2=\"" << place << "\" y1=\"" << top << "\" y2=\""
            << top + panelHeight + 5 << "\"/>\n";
        drawText(out, place, top + panelHeight + 22, "class=\"tick\" text-anchor=\"middle\"",
                 numberText(values.tick(n), values.step));
    }
}

void drawProfile(std::ostream& out, double x, const Profile& profile, const Axis& values, const Axis& depths)
{
    std::ostringstream path, marks;
    path.precision(6);
    marks.precision(6);
    char command = 'M';
    for (const auto& [value, depth] : profile.points) {
        const double px = x + panelWidth * values.fraction(value), py = depthPlace(depths, depth);
        path << command << px << " " << py;
        marks << "<circle fill=\"" << curveColour(profile.number) << "\" cx=\"" << px << "\" cy=\"" << py
              << "\" r=\"3.5\"/>\n";
        command = 'L';
    }
    out << "<path class=\"curve\" " << curveStyle(profile.number) << " d=\"" << path.str() << "\"/>\n" << marks.str();
}

void drawPanel(std::ostream& out, double x, const ProfilePanel& panel, const Axis& depths)
{
    const Axis values = axisOf(
        {panel}, [](const auto& point) { return point.first; }, 4);
    drawText(out, x, top - 12, "class=\"axis\"", escapeXml(panel.title));
    drawGrid(out, x, values, depths);
    drawText(out, x + panelWidth / 2, top + panelHeight + 46, "class=\"axis\" text-anchor=\"middle\"",
             panel.units.empty() ? "fraction" : escapeXml(panel.units));
    out << "<rect class=\"frame\" x=\"" << x << "\" y=\"" << top << "\" width=\"" << panelWidth << "\" height=\""
        << panelHeight << "\"/>\n";
    for (const Profile& profile : panel.profiles)
        drawProfile(out, x, profile, values, depths);
}

} // namespace

std::string drawProfiles(const ProfileChart& chart)
{
    const Axis depths = axisOf(
        chart.panels, [](const auto& point) { return point.second; }, 8);
    const double end = panelLeft(chart.panels.size()) - gap;
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out.precision(6);
    beginSvg(out, end + right, top + panelHeight + bottom);
    drawText(out, left, 32, "class=\"title\"", escapeXml(chart.title));
    drawText(out, left, 54, "class=\"subtitle\"", escapeXml(chart.subtitle));
    drawDepthAxis(out, chart, depths);
    for (std::size_t n = 0; n < chart.panels.size(); ++n)
        drawPanel(out, panelLeft(n), chart.panels[n], depths);
    drawLegend(out, end + 18, top + 10, panelHeight, chart.names);
    endSvg(out);
    return out.str();
}

} // namespace casereport
