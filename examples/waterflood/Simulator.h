#pragma once

#include "PressureSystem.h"
#include "Reservoir.h"

#include <vector>

namespace waterflood {

/// Flow between a well and one of its cells, cubic metres a day, positive into the reservoir.
struct ConnectionFlow
{
    std::size_t cell = 0;
    double water = 0.0, oil = 0.0;
};

/// What a well does over one time step, and has done so far.
struct WellState
{
    double bottomHolePressure = 0.0;
    WellControl control = WellControl::Pressure;
    std::vector<ConnectionFlow> connections;
    double waterRate = 0.0, oilRate = 0.0;   ///< net; positive for injectors and producers alike
    double waterTotal = 0.0, oilTotal = 0.0; ///< cubic metres since the start
};

/// Two-phase flow by implicit pressure and explicit saturation with two-point fluxes: a step solves the pressure, takes
/// the fluxes of both phases upwind, and moves the saturations by them, no further than is stable.
class Simulator
{
public:
    explicit Simulator(Reservoir reservoir);

    /// Advances by at most wantedDays and gives the days done. Throws std::runtime_error if the water balance is off by
    /// more than a part in 10^8 or a saturation leaves its range.
    double step(double wantedDays);

    double days() const { return days_; }

    double lastStep() const { return lastStep_; }

    int lastIterations() const { return lastIterations_; }

    const Reservoir& reservoir() const { return reservoir_; }

    const std::vector<double>& pressures() const { return pressures_; }

    const std::vector<double>& waterSaturations() const { return saturations_; }

    const std::vector<WellState>& wells() const { return wells_; }

    double poreVolume(std::size_t cell) const;
    double waterInPlace() const;
    double oilInPlace() const;

    double initialOilInPlace() const { return initialOil_; }

    /// Largest relative error of the water balance seen so far.
    double balanceError() const { return balanceError_; }

    /// Water and oil through the face between a cell and its neighbour in direction 0, 1 or 2, cubic metres a day.
    double waterFlux(std::size_t cell, int direction) const { return waterFlux_[direction][cell]; }

    double oilFlux(std::size_t cell, int direction) const { return oilFlux_[direction][cell]; }

    /// Cubic metres a day at a viscosity of one centipoise, per bar, through the same face.
    double transmissibility(std::size_t cell, int direction) const { return transmissibility_[direction][cell]; }

private:
    template <class Action>
    void forEachFace(const Action& action) const;

    void computeTransmissibilities();
    void initialise();
    void initialiseWells();
    void updateMobilities();
    void extrapolatePressures(double stepDays);
    void solvePressure(double stepDays);
    void assembleCells(double stepDays);
    void assembleFaces();
    void assembleWell(std::size_t well);
    bool switchViolatedControls();
    double connectionFactor(std::size_t well, std::size_t connection) const;
    double headAt(std::size_t connection) const;
    void computeFluxes();
    void computeWellFlows(std::size_t well);
    double travelSpeed(std::size_t a, std::size_t b) const;
    double stableStep() const;
    void moveSaturations(double stepDays);
    void checkBalance();

    Reservoir reservoir_;
    PressureSystem system_;
    std::vector<double> depths_, pressures_, previousPressures_, saturations_, referencePoreVolumes_;
    std::vector<double> waterMobility_, oilMobility_, fractionalFlow_, fractionalFlowSlope_;
    std::vector<double> trend_; ///< change of the pressures a day over the last step
    std::vector<double> transmissibility_[3], waterFlux_[3], oilFlux_[3];
    std::vector<double> wellFactors_; ///< connection factor of each well and layer, without mobility
    std::vector<WellState> wells_;
    double days_ = 0.0, lastStep_ = 0.0, nextStep_ = 0.05;
    int lastIterations_ = 0;
    double initialWater_ = 0.0, initialOil_ = 0.0, balanceError_ = 0.0;
};

} // namespace waterflood
