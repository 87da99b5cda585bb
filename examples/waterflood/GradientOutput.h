#pragma once

#include "Options.h"
#include "ParameterRuns.h"
#include "ReportFile.h"
#include "SummaryVectors.h"

#include <memory>

namespace waterflood {

/// Writes how the results depend on the parameters of the model, in two files: the gradients of pressures and
/// saturations along the wells, and for history matches the quantities of wells and field with their derivatives.
class GradientOutput
{
public:
    GradientOutput(const Options& options, const Reservoir& reservoir);

    /// Takes in a time step that has just been done.
    void record(const Simulator& simulator);

    /// Lets the other runs catch up and writes a report.
    void endReportStep(const Simulator& simulator);

    /// With all runs at the same time.
    void writeReport(const Simulator& simulator);

private:
    /// Of a well, or of the field, in the order of the names that stand ahead of all reports.
    struct Quantities
    {
        std::string owner;
        std::vector<SummaryVector> vectors;
    };

    void writePreamble(Kvt::Mrl::MrlIO::KeywordWriter& writer) const;
    void writeWell(Kvt::Mrl::MrlIO::KeywordWriter& writer, const Simulator& simulator, std::size_t well) const;
    void writeQuantities(Kvt::Mrl::MrlIO::KeywordWriter& writer, const Simulator& simulator, const char* names,
                         const Quantities& quantities) const;

    ParameterRuns runs_;
    std::vector<double> days_; ///< at which time steps have ended since the last report
    Quantities field_;
    std::vector<Quantities> wells_;
    ReportFile gradientFile_, matchFile_;
};

/// Null if the options don't ask for gradients. Files of an earlier run go then, if this one may replace them: they would
/// tell of another model.
std::unique_ptr<GradientOutput> makeGradientOutput(const Options& options, const Reservoir& reservoir);

} // namespace waterflood
