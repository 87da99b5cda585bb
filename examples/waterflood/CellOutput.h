#pragma once

#include "Options.h"
#include "Simulator.h"

#include <memory>

namespace waterflood {

/// Writes what lies in the cells: the init file once, then the restart step of each report step. Behind each call all
/// that it wrote stands on the disk, the step's entry in the index file as the last.
class CellOutput
{
public:
    virtual ~CellOutput() = default;

    virtual void writeInitial(const Simulator& simulator) = 0;
    virtual void writeStep(const Simulator& simulator, int reportStep) = 0;
};

/// In one pass through each file, grid after grid.
std::unique_ptr<CellOutput> makeSequentialOutput(const Options& options);

/// Grids side by side, joined at the end. The files are the same.
std::unique_ptr<CellOutput> makeRandomOrderOutput(const Options& options);

} // namespace waterflood
