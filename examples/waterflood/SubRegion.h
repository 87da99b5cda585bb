#pragma once

#include "Simulator.h"

#include <vector>

namespace waterflood {

/// Some columns of the grid, from top to bottom, that might be simulated on their own: such a run needs to know what
/// came through their outer faces while the whole was simulated.
struct SubRegion
{
    static constexpr int number = 1;       ///< in the files
    static constexpr int surroundings = 0; ///< number of all the rest

    int firstI = 0, firstJ = 0, lastI = 0, lastJ = 0;

    bool contains(int i, int j) const { return i >= firstI && i <= lastI && j >= firstJ && j <= lastJ; }
};

/// A box with a well in its middle, half as wide as the grid.
SubRegion subRegionAround(const Grid& grid, const Well& well);

/// A face between an active cell and its active neighbour in direction 0 or 1 (x, y), one of which is in the region.
struct BoundaryFace
{
    std::size_t cell = 0, neighbour = 0;
    int direction = 0;
    bool cellIsInside = false; ///< otherwise the neighbour is
};

/// All of them, in the order of the cells.
std::vector<BoundaryFace> boundaryFaces(const Grid& grid, const SubRegion& region);

/// Cubic metres.
struct Volumes
{
    double oil = 0.0, water = 0.0;
};

/// What lies in the region, with what its wells have taken out of it, less what they have put into it. It changes by
/// what comes through the faces alone.
Volumes balanceOf(const Simulator& simulator, const SubRegion& region);

} // namespace waterflood
