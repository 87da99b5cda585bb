/// A small reservoir simulator that writes its results through MrlIO as it runs.

#include "Options.h"
#include "Simulator.h"
#include "SummaryOutput.h"

#include <algorithm>
#include <cstdio>
#include <exception>
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
    int reportStep = 0;
    do {
        ++reportStep;
        simulateReportStep(options, simulator, output, std::min(end, reportStep * options.reportDays));
        printProgress(simulator, reportStep);
    } while (end - simulator.days() > shortestRest);
}

int complain(const std::exception& error, const char* advice, int exitStatus)
{
    std::fprintf(stderr, "waterflood: %s\n%s", error.what(), advice);
    return exitStatus;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    Options options;
    try {
        options = parseOptions(argumentCount, arguments);
    } catch (const std::exception& error) {
        return complain(error, usage, 2);
    }
    if (options.help) {
        std::fputs(usage, stdout);
        return 0;
    }
    try {
        run(options);
        return 0;
    } catch (const std::exception& error) {
        return complain(error, "", 1);
    }
}
