#include "FluxChecks.h"

#include "WellVector.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>

namespace checkcase {

namespace {

using namespace Kvt::Mrl::MrlIO;

constexpr double doubleTolerance = 1e-10;
constexpr double floatTolerance = 2e-6;
constexpr double solverTolerance = 1e-4; ///< pressures are solved for no more exactly
constexpr double textRounding = 0.05;

struct Total
{
    double sum = 0.0, size = 0.0; ///< of the volumes and of their absolute values
};

/// Over all connections of a region and all time ranges.
Total totalOut(const DumpfluxReader& fluxes, const std::string& array, int region)
{
    Total total;
    for (std::size_t n = 0; n < fluxes.startTimes().size(); ++n) {
        const double days = fluxes.endTimes()[n] - fluxes.startTimes()[n];
        std::vector<double> rates;
        std::vector<int> outer, inner;
        fluxes.getArray(array, fluxes.startTimes()[n], rates, outer, inner, region);
        for (const double rate : rates) {
            total.sum += rate * days;
            total.size += std::abs(rate) * days;
        }
    }
    return total;
}

double wellTotal(const DumpfluxReader& fluxes, const std::string& well, std::size_t phase)
{
    double sum = 0.0;
    for (std::size_t n = 0; n < fluxes.startTimes().size(); ++n) {
        std::vector<double> rates;
        if (fluxes.getWellArray(well, "WELLFLOW", fluxes.startTimes()[n], rates) && phase < rates.size())
            sum += rates[phase] * (fluxes.endTimes()[n] - fluxes.startTimes()[n]);
    }
    return sum;
}

} // namespace

void compareRegions(const DumpfluxReader& fluxes, Comparison& comparison)
{
    comparison.expect("no arrays of fluxes", fluxes.startTimes().empty() || !fluxes.dataArrayNames().empty());
    for (const std::string& array : fluxes.dataArrayNames()) {
        Total all;
        for (const int region : fluxes.regions()) {
            const Total total = totalOut(fluxes, array, region);
            all.sum += total.sum;
            all.size += total.size;
        }
        comparison.expect(array + ": nothing flows", all.size > 0.0);
        comparison.expectSame(array + ": sum over the regions", all.size + all.sum, all.size, doubleTolerance);
    }
}

void compareWithSummary(const DumpfluxReader& fluxes, const ISimpleSummaryReader& summary, Comparison& comparison)
{
    const auto last = [&](const char* keyword, const std::string& well) {
        const std::vector<float> values = wellVector(summary, keyword, well);
        return values.empty() ? 0.0 : double{values.back()};
    };
    comparison.expect("no wells in the flux file", fluxes.startTimes().empty() || !fluxes.wellNames().empty());
    for (const std::string& well : fluxes.wellNames()) {
        constexpr std::size_t oil = 0, water = 1;
        comparison.expectSame("oil of " + well, wellTotal(fluxes, well, oil), last("WOPT", well), floatTolerance);
        comparison.expectSame("water of " + well, wellTotal(fluxes, well, water),
                              last("WWPT", well) - last("WWIT", well), floatTolerance);
    }
}

void compareWithMessages(const DumpfluxReader& fluxes, const std::string& messageFile, Comparison& comparison)
{
    std::ifstream file(messageFile);
    bool isFound = false;
    for (std::string line; std::getline(file, line);) {
        int region = 0;
        double oil = 0.0, water = 0.0;
        if (std::sscanf(line.c_str(), " Region %d has given %lf sm3 of oil and %lf sm3 of water", &region, &oil,
                        &water) != 3)
            continue;
        isFound = true;
        const std::string what = " out of region " + std::to_string(region);
        comparison.expectSame("oil" + what, totalOut(fluxes, "FLUXOIL", region).sum, oil, solverTolerance,
                              textRounding);
        comparison.expectSame("water" + what, totalOut(fluxes, "FLUXWAT", region).sum, water, solverTolerance,
                              textRounding);
    }
    comparison.expect("the messages say nothing of a region", isFound);
}

} // namespace checkcase
