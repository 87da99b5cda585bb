#pragma once

#include "CellOutput.h"
#include "FluxOutput.h"
#include "GradientOutput.h"
#include "MessageOutput.h"
#include "RftOutput.h"
#include "SummaryOutput.h"

namespace waterflood {

/// All files of the case. The summary is the last to be told of a report step, and the last to be closed: who follows
/// it finds in the other files what belongs to the steps that it has.
class CaseOutput
{
public:
    /// Makes the files, with what there is before the first step.
    CaseOutput(const Options& options, const Simulator& simulator);

    /// Takes in a time step that has just been done.
    void recordStep(const Simulator& simulator);

    void endReportStep(const Simulator& simulator, int reportStep);

    void finish(const Simulator& simulator);

    /// In place of finish, for a run that can't go on.
    void breakOff(const Simulator& simulator, const std::string& reason) noexcept;

private:
    SubRegion region_;
    SummaryOutput summary_;
    std::unique_ptr<CellOutput> cells_;
    RftOutput wells_;
    FluxOutput fluxes_;
    MessageOutput messages_;
    std::unique_ptr<GradientOutput> gradients_; ///< null if they aren't wanted
};

} // namespace waterflood
