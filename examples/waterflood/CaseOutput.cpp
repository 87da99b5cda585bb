#include "CaseOutput.h"

#include "GridOutput.h"

#include <exception>

namespace waterflood {

namespace {

/// A box around the injector, whose oil the water drives out into the rest.
SubRegion regionOf(const Reservoir& reservoir)
{
    return subRegionAround(reservoir.grid, reservoir.wells.front());
}

} // namespace

CaseOutput::CaseOutput(const Options& options, const Simulator& simulator)
    : region_(regionOf(simulator.reservoir())),
      summary_(options, simulator.reservoir()),
      cells_(options.randomOrder ? makeRandomOrderOutput(options) : makeSequentialOutput(options)),
      wells_(options),
      fluxes_(options, simulator, region_),
      messages_(options, simulator, region_),
      gradients_(makeGradientOutput(options, simulator.reservoir()))
{
    writeGridFile(options, simulator.reservoir());
    cells_->writeInitial(simulator);
    cells_->writeStep(simulator, 0);
    wells_.writeReport(simulator);
    if (gradients_)
        gradients_->writeReport(simulator);
    summary_.record(simulator);
}

void CaseOutput::recordStep(const Simulator& simulator)
{
    fluxes_.record(simulator);
    messages_.watch(simulator);
    if (gradients_)
        gradients_->record(simulator);
    summary_.record(simulator);
}

void CaseOutput::endReportStep(const Simulator& simulator, int reportStep)
{
    cells_->writeStep(simulator, reportStep);
    wells_.writeReport(simulator);
    fluxes_.endReportStep(simulator, reportStep);
    messages_.endReportStep(simulator, reportStep);
    if (gradients_)
        gradients_->endReportStep(simulator);
    summary_.endReportStep();
}

void CaseOutput::finish(const Simulator& simulator)
{
    messages_.finish(simulator);
}

void CaseOutput::breakOff(const Simulator& simulator, const std::string& reason) noexcept
{
    try {
        messages_.breakOff(simulator, reason);
    } catch (const std::exception&) {
        return; // the reason is what counts, and the caller tells of it
    }
}

} // namespace waterflood
