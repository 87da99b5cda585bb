#pragma once

#include "Options.h"
#include "ReportFile.h"
#include "Simulator.h"

namespace waterflood {

/// Writes what was met along the wells: for each report date and well the cells that it penetrates, with pressures and
/// saturations, the rates of its connections, and of a multi-segment well what flows through its segments. Throws
/// std::runtime_error if the file can't be written, or is there and may not be replaced.
class RftOutput
{
public:
    explicit RftOutput(const Options& options);

    void writeReport(const Simulator& simulator);

private:
    ReportFile file_;
};

} // namespace waterflood
