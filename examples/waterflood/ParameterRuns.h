#pragma once

#include "Simulator.h"

#include <functional>

namespace waterflood {

/// What the model could be matched by: a number that all of some property is multiplied with.
struct Parameter
{
    const char* name;
    int type;   ///< which property
    int domain; ///< which part of the model
    std::vector<double> Rock::*property;
};

/// The model run once more for each parameter, with that one changed a little: derivatives are differences between
/// these runs and the base one. They take the same time steps, or the errors that these make would differ, too.
class ParameterRuns
{
public:
    explicit ParameterRuns(const Reservoir& base);

    std::size_t size() const { return runs_.size(); }

    const Parameter& parameter(std::size_t n) const { return runs_[n].parameter; }

    /// Goes on to the last of these days, at which the base run's time steps have ended; a thread for each run. Throws
    /// what has kept one of them from it.
    void follow(const std::vector<double>& days);

    /// Of a value by parameter n. The runs have to stand where the base one does.
    double derivative(std::size_t n, const Simulator& base, const std::function<double(const Simulator&)>& value) const;

private:
    struct Run
    {
        Run(const Parameter& changedOne, Reservoir reservoir);

        const Parameter& parameter;
        Simulator simulator;
    };

    std::vector<Run> runs_;
};

} // namespace waterflood
