/// A small reservoir simulator that writes its results through MrlIO as it runs.

#include "CaseOutput.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <thread>

namespace {

using namespace waterflood;

constexpr double daysAYear = 365.25;
constexpr double shortestRest = 1e-6; ///< days; anything less at a report step's end is rounding

void simulateUntil(double end, const Options& options, Simulator& simulator, CaseOutput& output)
{
    while (end - simulator.days() > shortestRest) {
        simulator.step(std::min(end - simulator.days(), options.longestStep));
        output.recordStep(simulator);
        if (options.pace.count() > 0)
            std::this_thread::sleep_for(options.pace);
    }
}

void printProgress(const Simulator& simulator, int reportStep)
{
    std::printf("report step %4d  day %7.1f  oil recovery %5.1f %%  water balance error %.1e\n", reportStep,
                simulator.days(), 100.0 * (1.0 - simulator.oilInPlace() / simulator.initialOilInPlace()),
                simulator.balanceError());
    std::fflush(stdout);
}

Reservoir makeReservoir(const Options& options)
{
    Reservoir reservoir = makeFiveSpot(options.nx, options.ny, options.nz, options.seed);
    if (options.localGrid)
        reservoir.localGrid = makeLocalGrid(reservoir);
    return reservoir;
}

void simulate(const Options& options, Simulator& simulator, CaseOutput& output)
{
    const double end = options.years * daysAYear;
    int reportStep = 0;
    do {
        ++reportStep;
        simulateUntil(std::min(end, reportStep * options.reportDays), options, simulator, output);
        output.endReportStep(simulator, reportStep);
        printProgress(simulator, reportStep);
    } while (end - simulator.days() > shortestRest);
    output.finish(simulator);
}

void run(const Options& options)
{
    Simulator simulator(makeReservoir(options));
    CaseOutput output(options, simulator);
    try {
        simulate(options, simulator, output);
    } catch (const std::exception& error) {
        output.breakOff(simulator, error.what());
        throw;
    }
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
