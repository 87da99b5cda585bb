#pragma once

#include "Grid.h"

#include <array>
#include <string>
#include <vector>

namespace waterflood {

/// A cell of the whole grid and its share in the value of a local cell.
struct Weight
{
    std::size_t cell = 0;
    double share = 0.0;
};

/// Some columns of a grid, its hosts, each refined into three by three. The simulator knows nothing of it: what the
/// files tell of local cells is worked out from the whole grid.
struct LocalGrid
{
    static constexpr int refinement = 3;

    std::string name;
    Grid grid;
    int firstI = 0, firstJ = 0, lastI = 0, lastJ = 0; ///< the host columns
    std::vector<std::size_t> hosts;                   ///< of each local cell
    std::vector<std::array<Weight, 4>> weights;       ///< of the cells between whose centres each local cell lies

    /// A value between those of the whole grid, of which value(cell) gives one.
    template <class Value>
    double interpolate(const Value& value, std::size_t localCell) const
    {
        double sum = 0.0;
        for (const Weight& weight : weights[localCell])
            sum += weight.share * value(weight.cell);
        return sum;
    }

    /// I or J of the local cell in the middle of a host column.
    int middleI(int hostI) const { return refinement * (hostI - firstI) + refinement / 2; }

    int middleJ(int hostJ) const { return refinement * (hostJ - firstJ) + refinement / 2; }
};

/// Refines a column and those around it, in all layers.
LocalGrid refineAround(const Grid& grid, const std::string& name, int i, int j);

/// A face between a local cell and a cell of the whole grid beside it.
struct LocalFace
{
    std::size_t localCell = 0, globalCell = 0;
    std::size_t ownerOfWhole = 0; ///< the cell of the whole grid behind whose face in this direction it lies
    int direction = 0;            ///< 0 or 1 (x, y)
};

/// All such faces between active cells, in the order of the local cells.
std::vector<LocalFace> outerFaces(const Grid& grid, const LocalGrid& local);

} // namespace waterflood
