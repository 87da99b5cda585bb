#include "initrestart/read/Populator.h"

#include "core/Fail.h"

#include <mrlio/CellActivitiesInfo.h>
#include <mrlio/MrlIOException.h>

#include <utility>
#include <vector>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr const char* inReader = "RestartReader";

/// False if the grid has inactive cells, so that there is more to find out.
bool populateAllActive(std::shared_ptr<ICellActivitiesInfo>& out, const std::string& lgr,
                       const ITimeInvariantData& data)
{
    if (data.hasInactiveCells(lgr))
        return false;
    out = std::make_shared<CellActivitiesInfo>(data.numCells(lgr), true, data.isDualPorosity());
    return true;
}

/// What the program doesn't know is left empty.
std::vector<bool> flagsOf(const ICellActivitiesSource& source, const std::string& lgr, bool fracture)
{
    std::vector<bool> flags;
    if (!source.getCellActivities(flags, lgr, fracture))
        flags.clear();
    return flags;
}

/// Runs a fetch of an array. An exception in it says the same as a plain failure, and why.
template <class Fetch>
bool fetched(const char* failure, Fetch fetch)
try {
    return fetch();

} catch (const MrlIOException& cause) {
    fail<RestartReaderException>(inReader, failure, "\n", cause.what());
}

} // namespace

PopulatorFromSource::PopulatorFromSource(const ICellActivitiesSource& source,
                                         ITimeInvariantDataSource& timeInvariantData)
    : source_(source),
      timeInvariantData_(timeInvariantData)
{}

void PopulatorFromSource::populate(std::shared_ptr<ICellActivitiesInfo>& out, const std::string& lgr)
{
    const ITimeInvariantData& data = timeInvariantData_.getTimeInvariantData();
    if (populateAllActive(out, lgr, data))
        return;
    std::vector<bool> matrix = flagsOf(source_, lgr, false);
    std::vector<bool> fracture = data.isDualPorosity() ? flagsOf(source_, lgr, true) : std::vector<bool>();
    out = std::make_shared<CellActivitiesInfo>(std::move(matrix), std::move(fracture));
}

PopulatorFromINIT::PopulatorFromINIT(const IPORVSource& porv, const IROCKVSource& rockv,
                                     ITimeInvariantDataSource& timeInvariantData)
    : porv_(porv),
      rockv_(rockv),
      timeInvariantData_(timeInvariantData)
{}

void PopulatorFromINIT::populate(std::shared_ptr<ICellActivitiesInfo>& out, const std::string& lgr)
{
    constexpr const char* noPorv = ": cannot fetch PORV array from INIT file";
    constexpr const char* noRockv = ": cannot fetch ROCKV array from INIT file";
    const ITimeInvariantData& data = timeInvariantData_.getTimeInvariantData();
    if (populateAllActive(out, lgr, data))
        return;
    std::vector<float> porv;
    if (!fetched(noPorv, [&] { return porv_.getPORV(porv, lgr); }))
        fail<RestartReaderException>(inReader, noPorv);
    std::vector<float> rockv;
    // Most cases have no rock volumes, and none is no failure.
    if (!fetched(noRockv, [&] { return rockv_.getROCKV(rockv, lgr); }))
        rockv.clear();
    out = std::make_shared<CellActivitiesInfo>(porv, rockv.empty() ? nullptr : &rockv, data.isDualPorosity());
}

} // namespace Kvt::Mrl::MrlIO
