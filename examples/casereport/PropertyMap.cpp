#include "PropertyMap.h"

#include "SvgParts.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <sstream>

namespace casereport {

namespace {

constexpr double width = 680, height = 640;
constexpr double left = 76, right = 136, top = 76, bottom = 60;
constexpr double barWidth = 20, barGap = 24;
constexpr int colourCount = 128; ///< that a map tells apart; each is one path, which keeps the picture small

/// From places on the map to places in the picture, with the same scale in both directions.
class Frame
{
public:
    explicit Frame(const PropertyMap& map) : low_(map.low), high_(map.high)
    {
        const double spanX = std::max(high_.x - low_.x, 1e-9), spanY = std::max(high_.y - low_.y, 1e-9);
        scale_ = std::min((width - left - right) / spanX, (height - top - bottom) / spanY);
        plotWidth_ = scale_ * spanX;
        plotHeight_ = scale_ * spanY;
    }

    double x(double place) const { return left + scale_ * (place - low_.x); }

    double y(double place) const { return top + plotHeight_ - scale_ * (place - low_.y); }

    double plotWidth() const { return plotWidth_; }

    double plotHeight() const { return plotHeight_; }

private:
    Point low_, high_;
    double scale_ = 1.0, plotWidth_ = 0.0, plotHeight_ = 0.0;
};

void drawAxes(std::ostream& out, const PropertyMap& map, const Frame& frame)
{
    const double step = roundStep(std::max(map.high.x - map.low.x, map.high.y - map.low.y), 8);
    const double under = top + frame.plotHeight();
    for (double n = std::ceil(map.low.x / step - 1e-9); n * step <= map.high.x + 1e-9 * step; ++n) {
        const double x = frame.x(n * step);
        out << "<line class=\"mark\" x1=\"" << x << "\" x2=\"" << x << "\" y1=\"" << under << "\" y2=\"" << under + 5
            << "\"/>\n";
        drawText(out, x, under + 20, "class=\"tick\" text-anchor=\"middle\"", numberText(n * step, step));
    }
    for (double n = std::ceil(map.low.y / step - 1e-9); n * step <= map.high.y + 1e-9 * step; ++n) {
        const double y = frame.y(n * step);
        out << "<line class=\"mark\" x1=\"" << left - 5 << "\" x2=\"" << left << "\" y1=\"" << y << "\" y2=\"" << y
            << "\"/>\n";
        drawText(out, left - 10, y + 4, "class=\"tick\" text-anchor=\"end\"", numberText(n * step, step));
    }
    const std::string units = map.lengthUnits.empty() ? "cells" : escapeXml(map.lengthUnits);
    drawText(out, left + frame.plotWidth() / 2, under + 42, "class=\"axis\" text-anchor=\"middle\"", "x, " + units);
    out << "<text class=\"axis\" text-anchor=\"middle\" transform=\"translate(22," << top + frame.plotHeight() / 2
        << ") rotate(-90)\">y, " << units << "</text>\n";
}

/// A stroke of the same colour closes the seams between neighbours.
void drawCell(std::ostream& out, const MapCell& cell, const Frame& frame)
{
    char command = 'M';
    for (const Point& corner : cell.corners) {
        out << command << frame.x(corner.x) << " " << frame.y(corner.y);
        command = 'L';
    }
    out << "Z";
}

void drawSheet(std::ostream& out, const std::vector<MapCell>& cells, const ColourScale& scale, const Frame& frame)
{
    std::map<long, std::vector<const MapCell*>> byColour;
    for (const MapCell& cell : cells)
        byColour[std::lround(scale.fraction(cell.value) * (colourCount - 1))].push_back(&cell);
    for (const auto& [number, members] : byColour) {
        const std::string colour = scale.colourAt(static_cast<double>(number) / (colourCount - 1));
        out << "<path fill=\"" << colour << "\" stroke=\"" << colour << "\" stroke-width=\"1\" d=\"";
        for (const MapCell* cell : members)
            drawCell(out, *cell, frame);
        out << "\"/>\n";
    }
}

void drawBorders(std::ostream& out, const PropertyMap& map, const Frame& frame)
{
    out << "<path class=\"border\" d=\"";
    for (const auto& [from, to] : map.borders)
        out << "M" << frame.x(from.x) << " " << frame.y(from.y) << "L" << frame.x(to.x) << " " << frame.y(to.y);
    out << "\"/>\n";
}

void drawWells(std::ostream& out, const PropertyMap& map, const Frame& frame)
{
    for (const MapWell& well : map.wells) {
        const double x = frame.x(well.place.x), y = frame.y(well.place.y);
        if (well.isInjector)
            out << "<path class=\"well\" d=\"M" << x - 7 << " " << y - 5 << "h14l-7 12z\"/>\n";
        else
            out << "<circle class=\"well\" cx=\"" << x << "\" cy=\"" << y << "\" r=\"5.5\"/>\n";
        drawText(out, x, y - 11, "class=\"name\" text-anchor=\"middle\"", escapeXml(well.name));
    }
}

void drawColourBar(std::ostream& out, const PropertyMap& map, const Frame& frame)
{
    constexpr int stops = 32;
    const double x = left + frame.plotWidth() + barGap, barHeight = frame.plotHeight();
    out << "<defs><linearGradient id=\"bar\" x1=\"0\" y1=\"1\" x2=\"0\" y2=\"0\">";
    for (int n = 0; n <= stops; ++n) {
        const double fraction = static_cast<double>(n) / stops;
        out << "<stop offset=\"" << fraction << "\" stop-color=\"" << map.scale.colourAt(fraction) << "\"/>";
    }
    out << "</linearGradient></defs>\n<rect class=\"frame\" style=\"fill:url(#bar)\" x=\"" << x << "\" y=\"" << top
        << "\" width=\"" << barWidth << "\" height=\"" << barHeight << "\"/>\n";
    for (const ColourScale::Tick& tick : map.scale.ticks()) {
        const double y = top + barHeight * (1.0 - tick.fraction);
        out << "<line class=\"mark\" x1=\"" << x + barWidth << "\" x2=\"" << x + barWidth + 5 << "\" y1=\"" << y
            << "\" y2=\"" << y << "\"/>\n";
        drawText(out, x + barWidth + 9, y + 4, "class=\"tick\"", tick.label);
    }
    drawText(out, x, top - 10, "class=\"axis\"", map.units.empty() ? "fraction" : escapeXml(map.units));
}

} // namespace

std::string drawMap(const PropertyMap& map)
{
    const Frame frame(map);
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out.precision(6);
    beginSvg(out, width, top + frame.plotHeight() + bottom);
    out << "<style>.mark{stroke:#888}.border{fill:none;stroke:#333;stroke-width:1.2;stroke-linecap:round}"
           ".well{fill:#222;stroke:#fff;stroke-width:1.5}"
           ".name{font-size:12px;font-weight:bold;paint-order:stroke;stroke:#fff;stroke-width:3px}</style>\n";
    drawText(out, left, 30, "class=\"title\"", escapeXml(map.title));
    drawText(out, left, 52, "class=\"subtitle\"", escapeXml(map.subtitle));
    for (const std::vector<MapCell>& sheet : map.sheets)
        drawSheet(out, sheet, map.scale, frame);
    drawBorders(out, map, frame);
    out << "<rect class=\"frame\" x=\"" << left << "\" y=\"" << top << "\" width=\"" << frame.plotWidth()
        << "\" height=\"" << frame.plotHeight() << "\"/>\n";
    drawAxes(out, map, frame);
    drawWells(out, map, frame);
    drawColourBar(out, map, frame);
    endSvg(out);
    return out.str();
}

} // namespace casereport
