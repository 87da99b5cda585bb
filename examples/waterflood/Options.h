#pragma once

#include <chrono>
#include <string>

namespace waterflood {

/// What the command line asks for.
struct Options
{
    std::string directory;
    std::string caseName;
    int nx = 40, ny = 40, nz = 5;
    double years = 10.0;
    double reportDays = 365.25 / 12.0;
    double longestStep = 10.0; ///< days
    unsigned seed = 1;
    std::chrono::milliseconds pace{0}; ///< waited after each step, so that others can watch
    bool formatted = false;
    bool unified = true;
    bool localGrid = false;
    bool randomOrder = false; ///< grids side by side through the random-order writers
    bool gradients = false;   ///< derivatives by parameters of the model, which takes a run for each
    bool overwrite = false;
    bool help = false;
};

/// Throws std::invalid_argument with a text for the user if something can't be understood.
Options parseOptions(int argumentCount, const char* const* arguments);

extern const char* const usage;

} // namespace waterflood
