/// A small reservoir simulator that writes its results through MrlIO as it runs.

#include "Options.h"
#include "Simulator.h"
#include "SummaryOutput.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <thread>

namespace {

using namespace waterflood;

constexpr double daysAYear = 365.25;
constexpr double shortestRest = 1e-6; ///< days; anything less at a report step's end is rounding

void simulateReportStep(const Options& options, Simulator& simulator, SummaryOutput& output, double end)
{
    while (end - simulator.days() > shortestRest) {
        simulator.step(std::min(end - simulator.days(), options.longestStep));
        output.record(simulator);
        if (options.pace.count() > 0)
            std::this_thread::sleep_for(options.pace);
    }
    output.endReportStep();
}

void printProgress(const Simulator& simulator, int reportStep)
{
    std::printf("report step %4d  day %7.1f  oil recovery %5.1f %%  water balance error %.1e\n", reportStep,
                simulator.days(), 100.0 * (1.0 - simulator.oilInPlace() / simulator.initialOilInPlace()),
                simulator.balanceError());
    std::fflush(stdout);
}

void run(const Options& options)
{
    Simulator simulator(makeFiveSpot(options.nx, options.ny, options.nz, options.seed));
    SummaryOutput output(options, simulator.reservoir());
    output.record(simulator);
    const double end = options.years * daysAYear;
    for (int reportStep = 1; end - simulator.days() > shortestRest; ++reportStep) {
        simulateReportStep(options, simulator, output, std::min(end, reportStep * options.reportDays));
        printProgress(simulator, reportStep);
    }
}

} // namespace

int main(int argumentCount, char** arguments)
{
    try {
        const Options options = parseOptions(argumentCount, arguments);
        if (options.help)
            std::fputs(usage, stdout);
        else
            run(options);
        return 0;
    } catch (const std::invalid_argument& error) {
        std::fprintf(stderr, "waterflood: %s\n%s", error.what(), usage);
        return 2;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "waterflood: %s\n", error.what());
        return 1;
    }
}
