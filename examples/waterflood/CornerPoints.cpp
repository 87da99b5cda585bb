#include "CornerPoints.h"

namespace waterflood {

namespace {

double pillarX(const Grid& grid, int i)
{
    return grid.originX + grid.dx * i;
}

double pillarY(const Grid& grid, int j)
{
    return grid.originY + grid.dy * j;
}

} // namespace

std::vector<float> pillars(const Grid& grid)
{
    std::vector<float> points;
    for (int j = 0; j <= grid.ny; ++j)
        for (int i = 0; i <= grid.nx; ++i) {
            const double x = pillarX(grid, i), y = pillarY(grid, j), top = grid.topAt(x, y);
            for (const double value : {x, y, top, x, y, top + grid.dz * grid.nz})
                points.push_back(static_cast<float>(value));
        }
    return points;
}

std::vector<float> cornerDepths(const Grid& grid)
{
    std::vector<float> depths;
    depths.reserve(8 * grid.cellCount());
    for (int surface = 0; surface < 2 * grid.nz; ++surface)
        for (int row = 0; row < 2 * grid.ny; ++row)
            for (int corner = 0; corner < 2 * grid.nx; ++corner) {
                // Left and right corners of neighbours share a pillar, and so do fronts and backs, tops and bottoms.
                const double top = grid.topAt(pillarX(grid, (corner + 1) / 2), pillarY(grid, (row + 1) / 2));
                depths.push_back(static_cast<float>(top + grid.dz * ((surface + 1) / 2)));
            }
    return depths;
}

std::vector<int> activeFlags(const Grid& grid)
{
    return {grid.active.begin(), grid.active.end()};
}

} // namespace waterflood
