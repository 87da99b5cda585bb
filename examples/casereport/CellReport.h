#pragma once

#include "CellCase.h"

#include <iosfwd>

namespace casereport {

/// What a case tells of its cells: the grids, the arrays of the init file and of the last report step, the report steps
/// (some of them, if there are more than rows), and the wells.
void printCells(std::ostream& out, const CellCase& cells, int mostRows);

} // namespace casereport
