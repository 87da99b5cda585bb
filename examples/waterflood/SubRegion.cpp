#include "SubRegion.h"

#include <algorithm>

namespace waterflood {

SubRegion subRegionAround(const Grid& grid, const Well& well)
{
    const int reachI = grid.nx / 4, reachJ = grid.ny / 4;
    return {std::max(0, well.i - reachI), std::max(0, well.j - reachJ), std::min(grid.nx - 1, well.i + reachI),
            std::min(grid.ny - 1, well.j + reachJ)};
}

std::vector<BoundaryFace> boundaryFaces(const Grid& grid, const SubRegion& region)
{
    std::vector<BoundaryFace> faces;
    const auto add = [&](int i, int j, int k, int direction) {
        const int besideI = i + (direction == 0 ? 1 : 0), besideJ = j + (direction == 1 ? 1 : 0);
        if (besideI == grid.nx || besideJ == grid.ny || region.contains(i, j) == region.contains(besideI, besideJ))
            return;
        const std::size_t cell = grid.cell(i, j, k), neighbour = grid.cell(besideI, besideJ, k);
        if (grid.active[cell] && grid.active[neighbour])
            faces.push_back({cell, neighbour, direction, region.contains(i, j)});
    };
    for (int k = 0; k < grid.nz; ++k)
        for (int j = 0; j < grid.ny; ++j)
            for (int i = 0; i < grid.nx; ++i)
                for (int direction : {0, 1})
                    add(i, j, k, direction);
    return faces;
}

Volumes balanceOf(const Simulator& simulator, const SubRegion& region)
{
    const Reservoir& reservoir = simulator.reservoir();
    const Grid& grid = reservoir.grid;
    Volumes sum;
    for (int k = 0; k < grid.nz; ++k)
        for (int j = region.firstJ; j <= region.lastJ; ++j)
            for (int i = region.firstI; i <= region.lastI; ++i) {
                const std::size_t cell = grid.cell(i, j, k);
                const double saturation = simulator.waterSaturations()[cell];
                sum.oil += simulator.poreVolume(cell) * (1.0 - saturation);
                sum.water += simulator.poreVolume(cell) * saturation;
            }
    for (std::size_t n = 0; n < reservoir.wells.size(); ++n)
        if (region.contains(reservoir.wells[n].i, reservoir.wells[n].j)) {
            const double sign = reservoir.wells[n].injector ? -1.0 : 1.0;
            sum.oil += sign * simulator.wells()[n].oilTotal;
            sum.water += sign * simulator.wells()[n].waterTotal;
        }
    return sum;
}

} // namespace waterflood
