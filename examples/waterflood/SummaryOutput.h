#pragma once

#include "Options.h"
#include "Simulator.h"

#include <memory>

namespace waterflood {

/// Writes the summary of a case while it is simulated. A report step is begun by its first record, and ended by
/// endReportStep, behind which all of it stands on the disk.
class SummaryOutput
{
public:
    SummaryOutput(const Options& options, const Reservoir& reservoir);
    ~SummaryOutput();

    void record(const Simulator& simulator);
    void endReportStep();

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace waterflood
