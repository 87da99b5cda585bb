#pragma once

#include <cstddef>
#include <vector>

namespace waterflood {

/// A grid of equal cells between vertical pillars. Its layers follow the top of the sand, a dome; some of its cells
/// hold no sand and take no part in anything. Indexes count from 0, i fastest. Lengths in metres.
struct Grid
{
    int nx = 40, ny = 40, nz = 5;
    double dx = 25.0, dy = 25.0, dz = 5.0;
    double originX = 0.0, originY = 0.0; ///< where the first pillar stands
    double topDepth = 2000.0;            ///< of the crest
    double crestX = 0.0, crestY = 0.0;
    std::vector<bool> active;

    std::size_t cellCount() const
    {
        return static_cast<std::size_t>(nx) * static_cast<std::size_t>(ny) * static_cast<std::size_t>(nz);
    }

    std::size_t cell(int i, int j, int k) const
    {
        return static_cast<std::size_t>(i) +
               static_cast<std::size_t>(nx) *
                   (static_cast<std::size_t>(j) + static_cast<std::size_t>(ny) * static_cast<std::size_t>(k));
    }

    std::size_t activeCount() const;

    /// Depth of the top of the sand at a place of the map.
    double topAt(double x, double y) const;

    /// Depth of a cell's centre.
    double depth(std::size_t cell) const;

    double cellVolume() const { return dx * dy * dz; }
};

} // namespace waterflood
