#pragma once

#include "CellCase.h"
#include "PictureFolder.h"

#include <string>
#include <vector>

namespace casereport {

/// Which maps are wanted.
struct MapChoice
{
    std::vector<std::string> properties;
    int layer = 0;          ///< from 1; 0 for the one in the middle
    std::vector<int> steps; ///< report steps; empty for some that are spread evenly
};

/// Puts maps of the properties into the folder: one of each property of the init file, one for each step of those that
/// change with time. Within a property the colours mean the same at all steps.
///
/// lastStep   steps beyond it don't count: the case may be growing
/// returns    names of properties that the case doesn't have
std::vector<std::string> writeMaps(const CellCase& cells, const MapChoice& choice, int lastStep, PictureFolder& folder);

} // namespace casereport
