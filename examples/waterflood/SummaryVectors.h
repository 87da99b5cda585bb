#pragma once

#include "Simulator.h"

#include <functional>
#include <string>
#include <vector>

namespace waterflood {

/// One summary vector: how it is named and where its value comes from.
struct SummaryVector
{
    std::string keyword;
    std::string name; ///< well or group; blank for none
    int number = 0;   ///< region, or cell in natural order from 1
    std::string units;
    std::string measurement;
    std::function<double(const Simulator&)> value;
    int localI = 0, localJ = 0, localK = 0; ///< cell in the local grid, from 1
};

/// Field, group, well, completion, region, block and performance vectors of the whole grid.
std::vector<SummaryVector> globalVectors(const Reservoir& reservoir);

/// Well, completion and block vectors of the local grid, which the reservoir must have.
std::vector<SummaryVector> localVectors(const Reservoir& reservoir);

} // namespace waterflood
