#pragma once

#include "Options.h"
#include "SubRegion.h"

#include <memory>

namespace waterflood {

/// Writes what flows between a region and the rest of the grid: its faces as connections, then for each report step the
/// mean rates through them since the last, and those of the wells. Throws std::invalid_argument if there is such a file
/// already, unless the options allow to replace it.
class FluxOutput
{
public:
    FluxOutput(const Options& options, const Simulator& simulator, const SubRegion& region);
    ~FluxOutput();

    /// Takes in the fluxes of a time step that has just been done.
    void record(const Simulator& simulator);

    void endReportStep(const Simulator& simulator, int reportStep);

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace waterflood
