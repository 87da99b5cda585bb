#pragma once

#include <map>
#include <string>
#include <vector>

namespace casereport {

/// A place on the map.
struct Point
{
    double x = 0.0, y = 0.0;
};

/// A grid from above: where its pillars begin.
struct GridPlan
{
    int nx = 0, ny = 0;
    std::vector<Point> pillars; ///< (nx + 1) * (ny + 1), i fastest

    /// i and j count from 0.
    const Point& pillar(int i, int j) const
    {
        return pillars[static_cast<std::size_t>(i) + static_cast<std::size_t>(nx + 1) * static_cast<std::size_t>(j)];
    }

    /// The middle of a column's cells.
    Point middle(int i, int j) const;
};

/// The plans of a grid file's grids by name; the whole grid has the empty one. Grids that hold no pillars, or not as
/// many as they should, aren't among them. Throws MrlIOException if the file is damaged.
std::map<std::string, GridPlan> readGridPlans(const std::string& gridFile);

/// A plan with cells of 1 by 1, where there is no grid file.
GridPlan evenPlan(int nx, int ny);

} // namespace casereport
