#pragma once

/// \file
/// Large restart cases, written by hand once per program.

#include <cstdint>
#include <string>
#include <vector>

namespace bench {

/// A unified restart file of many small steps with its index file.
struct StepsCase
{
    static constexpr int arrays = 20;
    static constexpr int cells = 500;

    int steps;
    std::string dataFile;
    std::string specFile;
};

/// Written at the first call with that number of steps.
const StepsCase& stepsCase(int steps);

std::string arrayName(int array);

/// One step of a grid of which half the cells are inactive, with the init file that says so, and their index files.
struct HalfActiveCase
{
    static constexpr int nx = 200, ny = 200, nz = 100;
    static constexpr int cells = nx * ny * nz;

    std::vector<bool> active;
    std::string initFile, initSpecFile;
    std::string dataFile, specFile;
    std::int64_t pressurePosition;
    int activeCount;
};

/// scattered   active cells lie here and there; otherwise in runs of some hundreds
const HalfActiveCase& halfActiveCase(bool scattered);

} // namespace bench
