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

/// Well, completion and block vectors of a local grid that refines the column of the second well three by three. The
/// simulator doesn't refine anything: pressures between cells are interpolated.
std::vector<SummaryVector> localVectors(const Reservoir& reservoir);

extern const char* const localGridName;

} // namespace waterflood
