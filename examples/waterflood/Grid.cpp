#include "Grid.h"

#include <algorithm>

namespace waterflood {

std::size_t Grid::activeCount() const
{
    return static_cast<std::size_t>(std::count(active.begin(), active.end(), true));
}

double Grid::topAt(double x, double y) const
{
    constexpr double curvature = 6e-5;
    return topDepth + curvature * ((x - crestX) * (x - crestX) + (y - crestY) * (y - crestY));
}

double Grid::depth(std::size_t cell) const
{
    const auto columns = static_cast<std::size_t>(nx), rows = static_cast<std::size_t>(ny);
    const auto i = static_cast<double>(cell % columns), j = static_cast<double>(cell / columns % rows);
    const auto k = static_cast<double>(cell / (columns * rows));
    return topAt(originX + dx * (i + 0.5), originY + dy * (j + 0.5)) + dz * (k + 0.5);
}

} // namespace waterflood
