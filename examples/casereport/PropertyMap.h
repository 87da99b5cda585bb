#pragma once

#include "ColourScale.h"
#include "GridPlan.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace casereport {

/// A cell from above with its value.
struct MapCell
{
    std::array<Point, 4> corners; ///< round the cell
    double value = 0.0;
};

struct MapWell
{
    std::string name;
    Point place;
    bool isInjector = false;
};

/// One layer of a property. Cells that aren't listed stay blank.
struct PropertyMap
{
    std::string title;
    std::string subtitle;
    std::string units;
    std::string lengthUnits; ///< of the places; empty if they count cells
    ColourScale scale;
    std::vector<std::vector<MapCell>> sheets;     ///< one for each grid; later ones cover earlier ones
    std::vector<std::pair<Point, Point>> borders; ///< lines around the cells
    std::vector<MapWell> wells;
    Point low, high; ///< corners of the area that is shown
};

/// An SVG document: the map true to scale, with its wells and a colour bar.
std::string drawMap(const PropertyMap& map);

} // namespace casereport
