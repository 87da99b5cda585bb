#include "ParameterRuns.h"

#include <future>

namespace waterflood {

namespace {

constexpr double change = 0.01; ///< of a factor of 1: large beside the errors of the solver, but still a small one

constexpr Parameter parameters[] = {
    {"PERMMULT", 1, 1, &Rock::permeability},
    {"POROMULT", 2, 1, &Rock::porosity},
};

Reservoir changed(Reservoir reservoir, const Parameter& parameter)
{
    for (double& value : reservoir.rock.*parameter.property)
        value *= 1.0 + change;
    return reservoir;
}

/// In one time step, or in more if this run is stable with shorter ones only.
void stepUntil(double day, Simulator& simulator)
{
    constexpr double shortestRest = 1e-6; // days; anything less is rounding
    while (day - simulator.days() > shortestRest)
        simulator.step(day - simulator.days());
}

} // namespace

ParameterRuns::Run::Run(const Parameter& changedOne, Reservoir reservoir)
    : parameter(changedOne),
      simulator(std::move(reservoir))
{}

ParameterRuns::ParameterRuns(const Reservoir& base)
{
    for (const Parameter& parameter : parameters)
        runs_.emplace_back(parameter, changed(base, parameter));
}

void ParameterRuns::follow(const std::vector<double>& days)
{
    std::vector<std::future<void>> threads;
    for (Run& run : runs_)
        threads.push_back(std::async(std::launch::async, [&run, &days] {
            for (const double day : days)
                stepUntil(day, run.simulator);
        }));
    for (std::future<void>& thread : threads)
        thread.get();
}

double ParameterRuns::derivative(std::size_t n, const Simulator& base,
                                 const std::function<double(const Simulator&)>& value) const
{
    return (value(runs_[n].simulator) - value(base)) / change;
}

} // namespace waterflood
