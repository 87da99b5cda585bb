#include "WellChecks.h"

#include "WellVector.h"

#include <algorithm>
#include <numeric>

namespace checkcase {

namespace {

using namespace Kvt::Mrl::MrlIO;

constexpr double floatTolerance = 2e-6;

/// The step of a date; -1 if there is none.
int stepAt(RestartReader& steps, const Service::YearMonthDay& date)
{
    for (std::int64_t step = 0; step <= steps.maxIndex(); ++step)
        if (steps.isValidIndex(static_cast<int>(step)) && steps.date(static_cast<int>(step)) == date)
            return static_cast<int>(step);
    return -1;
}

/// The cells that a well goes through: their grids, and their places in these.
struct WellCells
{
    std::vector<std::string> grids;
    std::vector<std::size_t> places;
};

WellCells cellsOf(const RFTReader& wells, RestartReader& steps, const std::string& well, std::size_t date)
{
    std::vector<int> i, j, k;
    WellCells cells;
    wells.getArray("CONIPOS", well, date, i);
    wells.getArray("CONJPOS", well, date, j);
    wells.getArray("CONKPOS", well, date, k);
    wells.getArray("HOSTGRID", well, date, cells.grids);
    for (std::size_t n = 0; n < std::min({i.size(), j.size(), k.size(), cells.grids.size()}); ++n) {
        int nx = 0, ny = 0, nz = 0;
        steps.gridDimension(nx, ny, nz, cells.grids[n]);
        cells.places.push_back(static_cast<std::size_t>(i[n] - 1 + nx * (j[n] - 1 + ny * (k[n] - 1))));
    }
    return cells;
}

void compareProperty(const std::string& what, const std::vector<double>& values, const WellCells& cells,
                     const std::string& property, const IPropertyDataAccess& data, Comparison& comparison)
{
    comparison.expect(what + ": not a value for each connection", values.size() == cells.places.size());
    for (std::size_t n = 0; n < std::min(values.size(), cells.places.size()); ++n) {
        std::vector<double> all;
        if (data.getAnyArray(property, all, cells.grids[n]) && cells.places[n] < all.size())
            comparison.expectSame(what, values[n], all[cells.places[n]], floatTolerance);
        else
            comparison.expect(what + ": there is no such cell", false);
    }
}

} // namespace

void compareWithCells(const RFTReader& wells, RestartReader& steps, Comparison& comparison)
{
    for (std::size_t n = 0; n < wells.dates().size(); ++n) {
        const int step = stepAt(steps, wells.dates()[n]);
        const IPropertyDataAccess* data = step < 0 ? nullptr : steps.propertyData(step);
        comparison.expect("no restart step for the well results of index " + std::to_string(n), data != nullptr);
        for (const std::string& well : wells.wells())
            for (const std::string property : {"PRESSURE", "SWAT"}) {
                std::vector<double> values;
                if (data != nullptr && wells.getArray(property, well, n, values))
                    compareProperty(property + " of " + well + " at step " + std::to_string(step), values,
                                    cellsOf(wells, steps, well, n), property, *data, comparison);
            }
    }
}

void compareWithSummary(const RFTReader& wells, const ISimpleSummaryReader& summary, Comparison& comparison)
{
    struct Plan
    {
        const char* array;
        const char* production;
        const char* injection; ///< null for what isn't injected
    };

    constexpr Plan plans[] = {{"CONORAT", "WOPR", nullptr}, {"CONWRAT", "WWPR", "WWIR"}};
    const std::vector<float>& days = summary.timeStepDays();
    const auto rate = [&](const char* keyword, const std::string& well, std::size_t place) {
        const std::vector<float> values = wellVector(summary, keyword, well);
        return place < values.size() ? double{values[place]} : 0.0;
    };
    for (std::size_t n = 0; n < wells.times().size(); ++n) {
        const auto found = std::find(days.begin(), days.end(), wells.times()[n]);
        const auto place = static_cast<std::size_t>(found - days.begin());
        comparison.expect("no summary step on day " + std::to_string(wells.times()[n]), found != days.end());
        for (const std::string& well : wells.wells())
            for (const Plan& plan : plans) {
                std::vector<double> rates;
                wells.getArray(plan.array, well, n, rates);
                const double injected = plan.injection != nullptr ? rate(plan.injection, well, place) : 0.0;
                comparison.expectSame(std::string(plan.array) + " of " + well + " at date " + std::to_string(n),
                                      std::accumulate(rates.begin(), rates.end(), 0.0),
                                      rate(plan.production, well, place) - injected, floatTolerance);
            }
    }
}

} // namespace checkcase
