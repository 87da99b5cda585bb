#include "Reservoir.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace waterflood {

namespace {

constexpr double typicalPermeability = 200.0;
constexpr double logPermeabilitySpread = 0.8;
constexpr double typicalPorosity = 0.2;

/// Running mean over 2 * reach + 1 values along one direction of the grid, cut off at the edges.
void smooth(std::vector<double>& field, std::size_t count, std::size_t stride, std::size_t length, int reach)
{
    std::vector<double> line(length);
    for (std::size_t start = 0; start < count; ++start) {
        if ((start / stride) % length != 0)
            continue;
        for (std::size_t n = 0; n < length; ++n)
            line[n] = field[start + n * stride];
        for (std::size_t n = 0; n < length; ++n) {
            const std::size_t from = n > static_cast<std::size_t>(reach) ? n - static_cast<std::size_t>(reach) : 0;
            const std::size_t to = std::min(length - 1, n + static_cast<std::size_t>(reach));
            double sum = 0.0;
            for (std::size_t m = from; m <= to; ++m)
                sum += line[m];
            field[start + n * stride] = sum / static_cast<double>(to - from + 1);
        }
    }
}

void standardise(std::vector<double>& field)
{
    double sum = 0.0, squares = 0.0;
    for (double value : field)
        sum += value;
    const double mean = sum / static_cast<double>(field.size());
    for (double& value : field) {
        value -= mean;
        squares += value * value;
    }
    const double spread = std::sqrt(squares / static_cast<double>(field.size()));
    for (double& value : field)
        value /= spread > 0.0 ? spread : 1.0;
}

/// The standard library's distributions may differ between compilers; a sum of twelve uniform numbers doesn't.
std::vector<double> correlatedNormalField(const Grid& grid, unsigned seed)
{
    std::mt19937 random(seed);
    std::vector<double> field(grid.cellCount());
    for (double& value : field) {
        value = -6.0;
        for (int n = 0; n < 12; ++n)
            value += static_cast<double>(random()) / 4294967296.0;
    }
    const auto nx = static_cast<std::size_t>(grid.nx), ny = static_cast<std::size_t>(grid.ny);
    for (int pass = 0; pass < 2; ++pass) {
        smooth(field, field.size(), 1, nx, 3);
        smooth(field, field.size(), nx, ny, 2);
    }
    standardise(field);
    return field;
}

Rock makeRock(const Grid& grid, unsigned seed)
{
    Rock rock;
    for (double value : correlatedNormalField(grid, seed)) {
        rock.permeability.push_back(typicalPermeability * std::exp(logPermeabilitySpread * value));
        rock.porosity.push_back(std::clamp(typicalPorosity + 0.03 * value, 0.08, 0.32));
    }
    return rock;
}

/// Quarters of the map, numbered from 1 to 4.
std::vector<int> makeRegions(const Grid& grid)
{
    std::vector<int> regions;
    regions.reserve(grid.cellCount());
    for (int k = 0; k < grid.nz; ++k)
        for (int j = 0; j < grid.ny; ++j)
            for (int i = 0; i < grid.nx; ++i)
                regions.push_back(1 + (2 * i >= grid.nx ? 1 : 0) + (2 * j >= grid.ny ? 2 : 0));
    return regions;
}

std::vector<Well> makeWells(const Grid& grid)
{
    const int left = (grid.nx + 1) / 6, front = (grid.ny + 1) / 6;
    const int right = grid.nx - 1 - left, back = grid.ny - 1 - front;
    return {
        {"INJ1", "INJECT", grid.nx / 2, grid.ny / 2, true, WellControl::Rate, 0.0, 450.0},
        {"PROD1", "WEST", left, front, false, WellControl::Pressure, 0.0, 200.0},
        {"PROD2", "EAST", right, front, false, WellControl::Rate, 0.0, 150.0},
        {"PROD3", "WEST", left, back, false, WellControl::Rate, 0.0, 150.0},
        {"PROD4", "EAST", right, back, false, WellControl::Pressure, 0.0, 200.0},
    };
}

/// Whether there is sand at a place of the map, whose coordinates run from -1 to 1, and in a layer, whose depth within
/// the sand runs from 0 to 1: inside a rounded square with a wavy edge, but not in a patch that widens downwards.
bool isSand(double u, double v, double depth)
{
    const double angle = std::atan2(v, u);
    const double edge = 0.93 + 0.05 * std::sin(3.0 * angle + 1.0) + 0.03 * std::cos(7.0 * angle);
    const bool inside = std::pow(u, 4) + std::pow(v, 4) < std::pow(edge, 4);
    const bool shale = std::hypot((u - 0.35) / 1.4, v + 0.3) < 0.06 + 0.08 * depth;
    return inside && !shale;
}

/// The columns of wells are sand from top to bottom, however coarse the grid is.
std::vector<bool> makeActiveCells(const Grid& grid, const std::vector<Well>& wells)
{
    std::vector<bool> active;
    for (int k = 0; k < grid.nz; ++k)
        for (int j = 0; j < grid.ny; ++j)
            for (int i = 0; i < grid.nx; ++i)
                active.push_back(
                    isSand((2.0 * i + 1.0) / grid.nx - 1.0, (2.0 * j + 1.0) / grid.ny - 1.0, (k + 0.5) / grid.nz));
    for (const Well& well : wells)
        for (int k = 0; k < grid.nz; ++k)
            active[grid.cell(well.i, well.j, k)] = true;
    return active;
}

/// A tenth of the pore volume is injected a year, and a quarter of that produced by each well under rate control.
void setRates(Reservoir& reservoir)
{
    const Grid& grid = reservoir.grid;
    const double sand = grid.cellVolume() * static_cast<double>(grid.activeCount());
    const double injection = 0.1 * typicalPorosity * sand / 365.25;
    for (Well& well : reservoir.wells)
        if (well.control == WellControl::Rate)
            well.targetRate = well.injector ? injection : 0.25 * injection;
}

} // namespace

double Fluids::mobileFraction(double waterSaturation) const
{
    return std::clamp((waterSaturation - connateWater) / (1.0 - connateWater - residualOil), 0.0, 1.0);
}

double Fluids::waterMobility(double waterSaturation) const
{
    return waterEndPoint * std::pow(mobileFraction(waterSaturation), waterExponent) / waterViscosity;
}

double Fluids::oilMobility(double waterSaturation) const
{
    return oilEndPoint * std::pow(1.0 - mobileFraction(waterSaturation), oilExponent) / oilViscosity;
}

double Fluids::fractionalFlowSlope(double waterSaturation) const
{
    const double range = 1.0 - connateWater - residualOil;
    const double s = mobileFraction(waterSaturation);
    const double water = waterMobility(waterSaturation), oil = oilMobility(waterSaturation);
    const double waterSlope = s > 0.0 ? water * waterExponent / s : 0.0;
    const double oilSlope = s < 1.0 ? -oil * oilExponent / (1.0 - s) : 0.0;
    const double total = water + oil;
    return (waterSlope * oil - water * oilSlope) / (total * total * range);
}

Reservoir makeFiveSpot(int nx, int ny, int nz, unsigned seed)
{
    Reservoir reservoir;
    reservoir.grid.nx = nx;
    reservoir.grid.ny = ny;
    reservoir.grid.nz = nz;
    reservoir.grid.crestX = 0.35 * reservoir.grid.dx * nx;
    reservoir.grid.crestY = 0.55 * reservoir.grid.dy * ny;
    reservoir.rock = makeRock(reservoir.grid, seed);
    reservoir.regions = makeRegions(reservoir.grid);
    reservoir.wells = makeWells(reservoir.grid);
    reservoir.wells.back().multiSegment = true;
    reservoir.grid.active = makeActiveCells(reservoir.grid, reservoir.wells);
    setRates(reservoir);
    return reservoir;
}

LocalGrid makeLocalGrid(const Reservoir& reservoir)
{
    const Well& well = reservoir.wells[refinedWell];
    return refineAround(reservoir.grid, "NEAR-P1", well.i, well.j);
}

} // namespace waterflood
