#pragma once

#include "Options.h"
#include "Reservoir.h"

namespace waterflood {

/// Writes the grid file of the case: geometry and active cells of its grids, and which cells of the local grid touch
/// which ones of the whole. Throws std::runtime_error if it can't be written, or is there and may not be replaced.
void writeGridFile(const Options& options, const Reservoir& reservoir);

} // namespace waterflood
