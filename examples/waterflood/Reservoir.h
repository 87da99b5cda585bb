#pragma once

/// \file
/// What is simulated: a dome of sand with oil and connate water, and the wells in it. Units: metres, days, bars,
/// millidarcies, centipoises, cubic metres.

#include "LocalGrid.h"

#include <optional>
#include <string>
#include <vector>

namespace waterflood {

/// Rock with a compressible pore volume; both fluids are incompressible, so that volumes balance exactly.
struct Rock
{
    std::vector<double> porosity;
    std::vector<double> permeability; ///< horizontal, millidarcies
    double verticalRatio = 0.1;       ///< vertical over horizontal permeability
    double compressibility = 8e-5;    ///< of the pore volume, per bar
    double referencePressure = 250.0; ///< bars
};

/// Corey curves between the end points, with the mobilities that follow from them.
struct Fluids
{
    double connateWater = 0.2, residualOil = 0.2;
    double waterEndPoint = 0.4, oilEndPoint = 0.9;
    double waterExponent = 2.5, oilExponent = 2.0;
    double waterViscosity = 0.5, oilViscosity = 2.0;
    double waterDensity = 1020.0, oilDensity = 850.0; ///< kilograms per cubic metre

    double waterMobility(double waterSaturation) const;
    double oilMobility(double waterSaturation) const;

    /// Slope of the water's share of the flow over the saturation: how much faster than the fluids a saturation
    /// travels.
    double fractionalFlowSlope(double waterSaturation) const;

private:
    double mobileFraction(double waterSaturation) const;
};

enum class WellControl
{
    Rate,
    Pressure
};

/// A vertical well through all layers of one column.
struct Well
{
    std::string name;
    std::string group;
    int i = 0, j = 0;
    bool injector = false;
    WellControl control = WellControl::Pressure;
    double targetRate = 0.0;    ///< cubic metres a day, positive for both kinds
    double pressureLimit = 0.0; ///< bottom hole: lowest for producers, highest for injectors
    double radius = 0.1;
    bool multiSegment = false; ///< in the files: a segment per layer; it flows like the others
};

struct Reservoir
{
    Grid grid;
    Rock rock;
    Fluids fluids;
    std::vector<Well> wells;
    std::vector<int> regions; ///< number of each cell's region, from 1
    int regionCount = 4;
    double initialPressure = 250.0;     ///< at the top of the sand
    std::optional<LocalGrid> localGrid; ///< in the files only
};

/// A five-spot: a water injector in the middle, producers towards the corners, two of them under rate and two under
/// pressure control. The permeability is log-normal, correlated over some cells and fixed by the seed. The sand ends
/// along a wavy line inside the grid, and a patch of it is shaled out.
Reservoir makeFiveSpot(int nx, int ny, int nz, unsigned seed);

/// Which of its wells stands in the middle of the local grid: PROD1.
constexpr std::size_t refinedWell = 1;

/// Refines the columns around that well.
LocalGrid makeLocalGrid(const Reservoir& reservoir);

} // namespace waterflood
