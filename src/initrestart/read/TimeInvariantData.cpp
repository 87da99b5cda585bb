#include "initrestart/read/TimeInvariantData.h"

#include <mrlio/RestartKeywordAccess.h>

#include <cstdint>
#include <limits>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr std::int64_t largest = std::numeric_limits<int>::max();

/// The product of the dimensions; -1 if one of them is negative or the product too large to count with.
std::int64_t cellCount(const GridInfo& grid)
{
    if (grid.nx < 0 || grid.ny < 0 || grid.nz < 0)
        return -1;
    const std::int64_t layer = static_cast<std::int64_t>(grid.nx) * grid.ny;
    if (layer > largest || layer * grid.nz > largest)
        return -1;
    return layer * grid.nz;
}

/// Some writers count the layers of both media in NZ, others those of one. They tell themselves apart by the number of
/// pore volumes, of which there is always one for each cell of each medium.
bool countsBothMedia(const GridInfo& grid, const std::string& lgr, const IRawDataAccess* initData)
{
    ArrayInfo porv;
    if (grid.nz % 2 != 0 || initData == nullptr || !initData->getArrayInfo("PORV", porv, lgr))
        return false;
    return porv.getSize() == cellCount(grid);
}

} // namespace

TimeInvariantData::TimeInvariantData(const std::vector<std::string>& lgrNames, StepHeaders& headers,
                                     const std::vector<int>& substitute, const IRawDataAccess* initData)
    : lgrNames_(lgrNames)
{
    std::vector<int> intehead;
    const bool isThere = headers.caseIntehead(intehead, substitute);
    if (isThere) {
        unitSystem_ = RestartKeywordAccess::getINTEHEADUnitSystem(intehead);
        phases_ = RestartKeywordAccess::getINTEHEADPhases(intehead);
    }
    const bool hasData = !headers.needsSubstitute(substitute);
    std::vector<bool> logihead;
    if (hasData && headers.logihead(logihead))
        dualPorosity_ = RestartKeywordAccess::getLOGIHEADIsDualPorosity(logihead);
    if (isThere)
        addGrid({}, intehead, initData);
    if (!hasData)
        return;
    for (const std::string& lgr : lgrNames_) {
        if (headers.intehead(intehead, lgr))
            addGrid(lgr, intehead, initData);
    }
}

void TimeInvariantData::addGrid(const std::string& lgr, const std::vector<int>& intehead,
                                const IRawDataAccess* initData)
{
    GridInfo grid;
    RestartKeywordAccess::getINTEHEADGridDims(intehead, grid.nx, grid.ny, grid.nz);
    grid.activeCells = RestartKeywordAccess::getINTEHEADActiveCells(intehead);
    if (dualPorosity_ && countsBothMedia(grid, lgr, initData))
        grid.nz /= 2;
    const std::int64_t cells = cellCount(grid);
    if (cells < 0)
        return;
    grid.numCells = static_cast<int>(cells);
    grids_.emplace(lgr, grid);
}

const GridInfo* TimeInvariantData::find(const std::string& lgr) const
{
    const auto grid = grids_.find(lgr);
    return grid == grids_.end() ? nullptr : &grid->second;
}

bool TimeInvariantData::gridDimension(int& nx, int& ny, int& nz, const std::string& lgr) const
{
    const GridInfo* grid = find(lgr);
    if (grid == nullptr)
        return false;
    nx = grid->nx;
    ny = grid->ny;
    nz = grid->nz;
    return true;
}

int TimeInvariantData::numCells(const std::string& lgr) const
{
    const GridInfo* grid = find(lgr);
    return grid == nullptr ? -1 : grid->numCells;
}

int TimeInvariantData::arraySize(const std::string& lgr) const
{
    const std::int64_t cells = numCells(lgr);
    if (!dualPorosity_ || cells < 0)
        return static_cast<int>(cells);
    return 2 * cells > largest ? -1 : static_cast<int>(2 * cells);
}

int TimeInvariantData::activeCells(const std::string& lgr) const
{
    const GridInfo* grid = find(lgr);
    return grid == nullptr ? -1 : grid->activeCells;
}

bool TimeInvariantData::hasInactiveCells(const std::string& lgr) const
{
    return activeCells(lgr) < arraySize(lgr);
}

} // namespace Kvt::Mrl::MrlIO
