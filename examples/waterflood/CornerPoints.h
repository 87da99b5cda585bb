#pragma once

#include "Grid.h"

#include <vector>

namespace waterflood {

/// The pillars of a grid: x, y and z of a point at the top and of one at the bottom of each, i fastest.
std::vector<float> pillars(const Grid& grid);

/// Depths of the cells' corners: for each layer its top and then its bottom; in each of these for each row of cells its
/// front and then its back; in each of these for each cell its left and then its right corner.
std::vector<float> cornerDepths(const Grid& grid);

/// 1 for each active cell and 0 for the others.
std::vector<int> activeFlags(const Grid& grid);

} // namespace waterflood
