#include "LocalGrid.h"

#include <algorithm>
#include <cstdlib>

namespace waterflood {

namespace {

/// Along one direction: the host, its neighbour on the side where the local cell lies, and that neighbour's share.
struct Between
{
    int host, neighbour;
    double share;
};

Between between(int local, int firstHost, int hostCount)
{
    const int host = firstHost + local / LocalGrid::refinement;
    const int offset = local % LocalGrid::refinement - LocalGrid::refinement / 2;
    const int neighbour = std::clamp(host + offset, 0, hostCount - 1);
    return {host, neighbour, neighbour == host ? 0.0 : std::abs(offset) / static_cast<double>(LocalGrid::refinement)};
}

/// Cells without sand have no values: the host stands in for them.
std::array<Weight, 4> weightsBetween(const Grid& grid, const Between& x, const Between& y, int k)
{
    const std::size_t host = grid.cell(x.host, y.host, k);
    std::array<Weight, 4> weights{{
        {host, (1.0 - x.share) * (1.0 - y.share)},
        {grid.cell(x.neighbour, y.host, k), x.share * (1.0 - y.share)},
        {grid.cell(x.host, y.neighbour, k), (1.0 - x.share) * y.share},
        {grid.cell(x.neighbour, y.neighbour, k), x.share * y.share},
    }};
    for (Weight& weight : weights)
        if (!grid.active[weight.cell])
            weight.cell = host;
    return weights;
}

Grid refinedGrid(const Grid& grid, const LocalGrid& local)
{
    constexpr int refinement = LocalGrid::refinement;
    Grid fine = grid;
    fine.nx = refinement * (local.lastI - local.firstI + 1);
    fine.ny = refinement * (local.lastJ - local.firstJ + 1);
    fine.dx = grid.dx / refinement;
    fine.dy = grid.dy / refinement;
    fine.originX = grid.originX + grid.dx * local.firstI;
    fine.originY = grid.originY + grid.dy * local.firstJ;
    fine.active.clear();
    return fine;
}

} // namespace

LocalGrid refineAround(const Grid& grid, const std::string& name, int i, int j)
{
    LocalGrid local;
    local.name = name;
    local.firstI = std::max(i - 1, 0);
    local.firstJ = std::max(j - 1, 0);
    local.lastI = std::min(i + 1, grid.nx - 1);
    local.lastJ = std::min(j + 1, grid.ny - 1);
    local.grid = refinedGrid(grid, local);
    for (int k = 0; k < local.grid.nz; ++k)
        for (int y = 0; y < local.grid.ny; ++y)
            for (int x = 0; x < local.grid.nx; ++x) {
                const Between alongX = between(x, local.firstI, grid.nx), alongY = between(y, local.firstJ, grid.ny);
                local.hosts.push_back(grid.cell(alongX.host, alongY.host, k));
                local.weights.push_back(weightsBetween(grid, alongX, alongY, k));
                local.grid.active.push_back(grid.active[local.hosts.back()]);
            }
    return local;
}

std::vector<LocalFace> outerFaces(const Grid& grid, const LocalGrid& local)
{
    std::vector<LocalFace> faces;
    const auto add = [&](std::size_t cell, std::size_t neighbour, std::size_t owner, int direction) {
        if (local.grid.active[cell] && grid.active[neighbour])
            faces.push_back({cell, neighbour, owner, direction});
    };
    for (int k = 0; k < local.grid.nz; ++k)
        for (int y = 0; y < local.grid.ny; ++y)
            for (int x = 0; x < local.grid.nx; ++x) {
                const std::size_t cell = local.grid.cell(x, y, k), host = local.hosts[cell];
                const int i = local.firstI + x / LocalGrid::refinement, j = local.firstJ + y / LocalGrid::refinement;
                if (x == 0 && i > 0)
                    add(cell, grid.cell(i - 1, j, k), grid.cell(i - 1, j, k), 0);
                if (x == local.grid.nx - 1 && i + 1 < grid.nx)
                    add(cell, grid.cell(i + 1, j, k), host, 0);
                if (y == 0 && j > 0)
                    add(cell, grid.cell(i, j - 1, k), grid.cell(i, j - 1, k), 1);
                if (y == local.grid.ny - 1 && j + 1 < grid.ny)
                    add(cell, grid.cell(i, j + 1, k), host, 1);
            }
    return faces;
}

} // namespace waterflood
