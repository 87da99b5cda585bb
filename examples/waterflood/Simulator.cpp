#include "Simulator.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <stdexcept>

namespace waterflood {

namespace {

constexpr double darcy = 0.008527;     ///< millidarcy metre bar / centipoise in cubic metres a day
constexpr double gravity = 9.80665e-5; ///< bars per metre and kilogram per cubic metre
constexpr double pressureTolerance = 1e-7;
constexpr double stabilityFactor = 0.95;
constexpr double largestGrowth = 1.5; ///< of the step from one to the next
constexpr double allowedBalanceError = 1e-8;
constexpr double saturationSlack = 1e-6;
constexpr int mostControlSwitches = 8;

double harmonic(double a, double b)
{
    return 2.0 * a * b / (a + b);
}

} // namespace

Simulator::Simulator(Reservoir reservoir) : reservoir_(std::move(reservoir)), system_(reservoir_.grid)
{
    computeTransmissibilities();
    initialise();
}

template <class Action>
void Simulator::forEachFace(const Action& action) const
{
    const Grid& grid = reservoir_.grid;
    for (int k = 0; k < grid.nz; ++k)
        for (int j = 0; j < grid.ny; ++j)
            for (int i = 0; i < grid.nx; ++i) {
                const std::size_t cell = grid.cell(i, j, k);
                if (!grid.active[cell])
                    continue;
                if (i + 1 < grid.nx && grid.active[grid.cell(i + 1, j, k)])
                    action(cell, grid.cell(i + 1, j, k), 0);
                if (j + 1 < grid.ny && grid.active[grid.cell(i, j + 1, k)])
                    action(cell, grid.cell(i, j + 1, k), 1);
                if (k + 1 < grid.nz && grid.active[grid.cell(i, j, k + 1)])
                    action(cell, grid.cell(i, j, k + 1), 2);
            }
}

void Simulator::computeTransmissibilities()
{
    const Grid& grid = reservoir_.grid;
    const Rock& rock = reservoir_.rock;
    const double shape[3] = {grid.dy * grid.dz / grid.dx, grid.dx * grid.dz / grid.dy, grid.dx * grid.dy / grid.dz};
    for (int d = 0; d < 3; ++d) {
        transmissibility_[d].assign(grid.cellCount(), 0.0);
        waterFlux_[d].assign(grid.cellCount(), 0.0);
        oilFlux_[d].assign(grid.cellCount(), 0.0);
    }
    forEachFace([&](std::size_t cell, std::size_t neighbour, int d) {
        const double ratio = d == 2 ? rock.verticalRatio : 1.0;
        transmissibility_[d][cell] =
            darcy * shape[d] * ratio * harmonic(rock.permeability[cell], rock.permeability[neighbour]);
    });
}

/// Oil in hydrostatic balance over connate water. Cells without sand keep a pressure of 0.
void Simulator::initialise()
{
    const Grid& grid = reservoir_.grid;
    const std::size_t count = grid.cellCount();
    pressures_.assign(count, 0.0);
    referencePoreVolumes_.assign(count, 0.0);
    depths_.resize(count);
    waterMobility_.resize(count);
    oilMobility_.resize(count);
    fractionalFlow_.resize(count);
    fractionalFlowSlope_.resize(count);
    saturations_.assign(count, reservoir_.fluids.connateWater);
    for (std::size_t cell = 0; cell < count; ++cell) {
        depths_[cell] = grid.depth(cell);
        if (!grid.active[cell])
            continue;
        pressures_[cell] =
            reservoir_.initialPressure + gravity * reservoir_.fluids.oilDensity * (depths_[cell] - grid.topDepth);
        referencePoreVolumes_[cell] = grid.cellVolume() * reservoir_.rock.porosity[cell];
    }
    initialiseWells();
    initialWater_ = waterInPlace();
    initialOil_ = oilInPlace();
}

/// Each well is open to all layers, with the connection factor of a well in the middle of a square cell.
void Simulator::initialiseWells()
{
    const Grid& grid = reservoir_.grid;
    const double drainage = 0.14 * std::hypot(grid.dx, grid.dy);
    for (const Well& well : reservoir_.wells) {
        WellState state;
        state.control = well.control;
        state.bottomHolePressure = reservoir_.initialPressure;
        for (int k = 0; k < grid.nz; ++k) {
            const std::size_t cell = grid.cell(well.i, well.j, k);
            state.connections.push_back({cell});
            wellFactors_.push_back(darcy * 2.0 * std::numbers::pi * reservoir_.rock.permeability[cell] * grid.dz /
                                   std::log(drainage / well.radius));
        }
        wells_.push_back(std::move(state));
    }
}

double Simulator::poreVolume(std::size_t cell) const
{
    const Rock& rock = reservoir_.rock;
    return referencePoreVolumes_[cell] * (1.0 + rock.compressibility * (pressures_[cell] - rock.referencePressure));
}

double Simulator::waterInPlace() const
{
    double sum = 0.0;
    for (std::size_t cell = 0; cell < saturations_.size(); ++cell)
        sum += poreVolume(cell) * saturations_[cell];
    return sum;
}

double Simulator::oilInPlace() const
{
    double sum = 0.0;
    for (std::size_t cell = 0; cell < saturations_.size(); ++cell)
        sum += poreVolume(cell) * (1.0 - saturations_[cell]);
    return sum;
}

double Simulator::step(double wantedDays)
{
    const double days = std::min(wantedDays, nextStep_);
    previousPressures_ = pressures_;
    updateMobilities();
    extrapolatePressures(days);
    solvePressure(days);
    computeFluxes();
    const double stable = stableStep();
    // The fluxes hardly change with the step's length, so a step that proves too long is taken again, shorter.
    if (days > stable) {
        pressures_ = previousPressures_;
        nextStep_ = stabilityFactor * stable;
        return step(wantedDays);
    }
    moveSaturations(days);
    days_ += days;
    lastStep_ = days;
    trend_.resize(pressures_.size());
    for (std::size_t cell = 0; cell < pressures_.size(); ++cell)
        trend_[cell] = (pressures_[cell] - previousPressures_[cell]) / days;
    nextStep_ = std::min(largestGrowth * std::max(days, nextStep_), stabilityFactor * stable);
    checkBalance();
    return days;
}

/// Pressures mostly go on as they did, which saves the solver work.
void Simulator::extrapolatePressures(double stepDays)
{
    if (trend_.empty())
        return;
    for (std::size_t cell = 0; cell < pressures_.size(); ++cell)
        pressures_[cell] += stepDays * trend_[cell];
}

void Simulator::updateMobilities()
{
    for (std::size_t cell = 0; cell < saturations_.size(); ++cell) {
        waterMobility_[cell] = reservoir_.fluids.waterMobility(saturations_[cell]);
        oilMobility_[cell] = reservoir_.fluids.oilMobility(saturations_[cell]);
        fractionalFlow_[cell] = waterMobility_[cell] / (waterMobility_[cell] + oilMobility_[cell]);
        fractionalFlowSlope_[cell] = reservoir_.fluids.fractionalFlowSlope(saturations_[cell]);
    }
}

void Simulator::solvePressure(double stepDays)
{
    for (int attempt = 0; attempt < mostControlSwitches; ++attempt) {
        system_.clear();
        assembleCells(stepDays);
        assembleFaces();
        for (std::size_t well = 0; well < wells_.size(); ++well)
            assembleWell(well);
        lastIterations_ = system_.solve(pressures_, pressureTolerance);
        for (std::size_t well = 0; well < wells_.size(); ++well)
            computeWellFlows(well);
        if (!switchViolatedControls())
            return;
    }
}

void Simulator::assembleCells(double stepDays)
{
    for (std::size_t cell = 0; cell < pressures_.size(); ++cell) {
        if (!reservoir_.grid.active[cell]) {
            system_.addToDiagonal(cell, 1.0); // a row of its own, solved by 0
            continue;
        }
        const double storage = referencePoreVolumes_[cell] * reservoir_.rock.compressibility / stepDays;
        system_.addToDiagonal(cell, storage);
        system_.addToRightSide(cell, storage * previousPressures_[cell]);
    }
}

/// Upstream cells come from the potentials of the last step, so that the system is linear and symmetric.
void Simulator::assembleFaces()
{
    const Fluids& fluids = reservoir_.fluids;
    forEachFace([&](std::size_t cell, std::size_t neighbour, int d) {
        const double drop = depths_[neighbour] - depths_[cell];
        const double difference = previousPressures_[cell] - previousPressures_[neighbour];
        const double waterHead = gravity * fluids.waterDensity * drop, oilHead = gravity * fluids.oilDensity * drop;
        const double water =
            transmissibility_[d][cell] * waterMobility_[difference + waterHead >= 0.0 ? cell : neighbour];
        const double oil = transmissibility_[d][cell] * oilMobility_[difference + oilHead >= 0.0 ? cell : neighbour];
        waterFlux_[d][cell] = water;
        oilFlux_[d][cell] = oil;
        system_.connect(cell, d, water + oil);
        system_.addToRightSide(cell, -(water * waterHead + oil * oilHead));
        system_.addToRightSide(neighbour, water * waterHead + oil * oilHead);
    });
}

double Simulator::connectionFactor(std::size_t well, std::size_t connection) const
{
    const std::size_t cell = wells_[well].connections[connection].cell;
    return wellFactors_[well * static_cast<std::size_t>(reservoir_.grid.nz) + connection] *
           (waterMobility_[cell] + oilMobility_[cell]);
}

/// Weight of the column in the well between the top connection and this one: water in injectors, near enough in
/// producers.
double Simulator::headAt(std::size_t connection) const
{
    return gravity * reservoir_.fluids.waterDensity * reservoir_.grid.dz * static_cast<double>(connection);
}

void Simulator::assembleWell(std::size_t well)
{
    const WellState& state = wells_[well];
    const Well& description = reservoir_.wells[well];
    PressureSystem::RateCoupling coupling;
    double headSum = 0.0;
    for (std::size_t n = 0; n < state.connections.size(); ++n) {
        coupling.cells.push_back(state.connections[n].cell);
        coupling.factors.push_back(connectionFactor(well, n));
        coupling.sum += coupling.factors.back();
        headSum += coupling.factors.back() * headAt(n);
    }
    const double rate = description.injector ? description.targetRate : -description.targetRate;
    const bool byRate = state.control == WellControl::Rate;
    // Under rate control the bottom hole pressure is the one at which the connections add up to the rate.
    const double base = byRate ? (rate - headSum) / coupling.sum : description.pressureLimit;
    for (std::size_t n = 0; n < coupling.cells.size(); ++n) {
        system_.addToRightSide(coupling.cells[n], coupling.factors[n] * (base + headAt(n)));
        if (!byRate)
            system_.addToDiagonal(coupling.cells[n], coupling.factors[n]);
    }
    if (byRate)
        system_.addRateCoupling(std::move(coupling));
}

void Simulator::computeWellFlows(std::size_t well)
{
    WellState& state = wells_[well];
    const Well& description = reservoir_.wells[well];
    double factorSum = 0.0, weighted = 0.0;
    for (std::size_t n = 0; n < state.connections.size(); ++n) {
        const double factor = connectionFactor(well, n);
        factorSum += factor;
        weighted += factor * (pressures_[state.connections[n].cell] - headAt(n));
    }
    const double rate = description.injector ? description.targetRate : -description.targetRate;
    state.bottomHolePressure =
        state.control == WellControl::Rate ? (rate + weighted) / factorSum : description.pressureLimit;
    const double sign = description.injector ? 1.0 : -1.0;
    state.waterRate = state.oilRate = 0.0;
    for (std::size_t n = 0; n < state.connections.size(); ++n) {
        ConnectionFlow& flow = state.connections[n];
        const double total = connectionFactor(well, n) * (state.bottomHolePressure + headAt(n) - pressures_[flow.cell]);
        flow.water = description.injector && total > 0.0 ? total : total * fractionalFlow_[flow.cell];
        flow.oil = total - flow.water;
        state.waterRate += sign * flow.water; // a connection may flow against the others
        state.oilRate += sign * flow.oil;
    }
}

/// A well under rate control that leaves its pressure limit goes on under pressure control, and comes back once the
/// limit would take it above its rate.
bool Simulator::switchViolatedControls()
{
    bool switched = false;
    for (std::size_t well = 0; well < wells_.size(); ++well) {
        const Well& description = reservoir_.wells[well];
        if (description.control != WellControl::Rate)
            continue;
        WellState& state = wells_[well];
        const double beyond = description.injector ? state.bottomHolePressure - description.pressureLimit
                                                   : description.pressureLimit - state.bottomHolePressure;
        const double total = state.waterRate + state.oilRate;
        if (state.control == WellControl::Rate && beyond > 1e-6) {
            state.control = WellControl::Pressure;
            switched = true;
        } else if (state.control == WellControl::Pressure && total > description.targetRate * (1.0 + 1e-6)) {
            state.control = WellControl::Rate;
            switched = true;
        }
    }
    return switched;
}

void Simulator::computeFluxes()
{
    const Fluids& fluids = reservoir_.fluids;
    forEachFace([&](std::size_t cell, std::size_t neighbour, int d) {
        const double drop = depths_[neighbour] - depths_[cell];
        const double difference = pressures_[cell] - pressures_[neighbour];
        waterFlux_[d][cell] *= difference + gravity * fluids.waterDensity * drop;
        oilFlux_[d][cell] *= difference + gravity * fluids.oilDensity * drop;
    });
}

/// How fast saturations travel between two neighbours, as a multiple of the flow: the steepest of the fractional flow
/// curve's slopes at both and of the chord between them.
double Simulator::travelSpeed(std::size_t a, std::size_t b) const
{
    const double chord = std::abs(saturations_[a] - saturations_[b]) > 1e-9
                             ? (fractionalFlow_[a] - fractionalFlow_[b]) / (saturations_[a] - saturations_[b])
                             : 0.0;
    return std::max({chord, fractionalFlowSlope_[a], fractionalFlowSlope_[b]});
}

/// No saturation may travel through a cell within a step: pore volume over what flows through, at the speed of travel.
double Simulator::stableStep() const
{
    std::vector<double> through(pressures_.size(), 0.0);
    forEachFace([&](std::size_t cell, std::size_t neighbour, int d) {
        const double flow = std::abs(waterFlux_[d][cell]) + std::abs(oilFlux_[d][cell]);
        const double travel = flow * travelSpeed(cell, neighbour);
        through[cell] += travel;
        through[neighbour] += travel;
    });
    for (const WellState& well : wells_)
        for (const ConnectionFlow& flow : well.connections)
            through[flow.cell] += (std::abs(flow.water) + std::abs(flow.oil)) * fractionalFlowSlope_[flow.cell];
    double longest = std::numeric_limits<double>::max();
    for (std::size_t cell = 0; cell < through.size(); ++cell)
        if (through[cell] > 0.0)
            longest = std::min(longest, 2.0 * poreVolume(cell) / through[cell]);
    return longest;
}

void Simulator::moveSaturations(double stepDays)
{
    const Rock& rock = reservoir_.rock;
    std::vector<double> gain(saturations_.size(), 0.0);
    forEachFace([&](std::size_t cell, std::size_t neighbour, int d) {
        gain[cell] -= waterFlux_[d][cell];
        gain[neighbour] += waterFlux_[d][cell];
    });
    for (WellState& well : wells_) {
        for (const ConnectionFlow& flow : well.connections)
            gain[flow.cell] += flow.water;
        well.waterTotal += well.waterRate * stepDays;
        well.oilTotal += well.oilRate * stepDays;
    }
    for (std::size_t cell = 0; cell < saturations_.size(); ++cell) {
        if (!reservoir_.grid.active[cell])
            continue;
        const double before = referencePoreVolumes_[cell] *
                              (1.0 + rock.compressibility * (previousPressures_[cell] - rock.referencePressure));
        saturations_[cell] = (before * saturations_[cell] + stepDays * gain[cell]) / poreVolume(cell);
    }
}

void Simulator::checkBalance()
{
    double expected = initialWater_;
    for (std::size_t well = 0; well < wells_.size(); ++well)
        expected += reservoir_.wells[well].injector ? wells_[well].waterTotal : -wells_[well].waterTotal;
    const double error = std::abs(waterInPlace() - expected) / expected;
    balanceError_ = std::max(balanceError_, error);
    if (!(error < allowedBalanceError))
        throw std::runtime_error("the water balance is off");
    const auto [lowest, highest] = std::minmax_element(saturations_.begin(), saturations_.end());
    if (*lowest < reservoir_.fluids.connateWater - 0.01 - saturationSlack || *highest > 1.0 + saturationSlack)
        throw std::runtime_error("a saturation has left its range");
}

} // namespace waterflood
