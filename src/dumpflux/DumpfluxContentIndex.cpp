#include "dumpflux/DumpfluxContentIndex.h"

#include "core/Fail.h"
#include "dumpflux/DumpfluxKeywordAccess.h"
#include "dumpflux/DumpfluxLayout.h"
#include "dumpflux/DumpfluxWalk.h"

#include <algorithm>
#include <array>
#include <functional>

namespace Kvt::Mrl::MrlIO {

namespace {

using namespace DumpfluxLayout;
using Access = DumpfluxKeywordAccess;

constexpr const char* inLoad = "DumpfluxContentIndex::loadDumpfluxContentIndex";

/// What each keyword adds to the index.
class Scan
{
public:
    Scan(DumpfluxContentIndex& index, DumpfluxWalk& walk) : index_(index), walk_(walk) {}

    void run();

private:
    struct Reaction
    {
        const char* keyword;
        void (Scan::*meet)();
    };

    static const std::array<Reaction, 12> reactions;

    void meet();
    void meetFluxType();
    void meetRestart();
    void meetRestNumb();
    void meetIntHead();
    void requireSameBoundaryType(const std::vector<int>& intehead) const;
    void meetLogiHead();
    void meetIntTime();
    void meetDoubTime();
    void meetWellName();
    void meetWellArray();
    void meetDataArray();
    void noticeRangeData();

    void pass() {}

    DumpfluxContentIndex& index_;
    DumpfluxWalk& walk_;
};

const std::array<Scan::Reaction, 12> Scan::reactions{{{FLUXTYPE, &Scan::meetFluxType},
                                                      {RESTART, &Scan::meetRestart},
                                                      {RESTNUMB, &Scan::meetRestNumb},
                                                      {INTEHEAD, &Scan::meetIntHead},
                                                      {LOGIHEAD, &Scan::meetLogiHead},
                                                      {DOUBHEAD, &Scan::pass},
                                                      {INDXFLUX, &Scan::pass},
                                                      {ITIME, &Scan::meetIntTime},
                                                      {DTIME, &Scan::meetDoubTime},
                                                      {WELLNAME, &Scan::meetWellName},
                                                      {WELLFLOW, &Scan::meetWellArray},
                                                      {WELLCOMP, &Scan::meetWellArray}}};

void Scan::run()
{
    walk_.skimHeaders();
    while (walk_.next())
        meet();
    if (!index_.lastPositions.empty())
        index_.lastPositions.back() = -1;
    if (index_.reportNumbers.size() != index_.positions.size())
        fail<DumpfluxReaderException>(inLoad, ": Not the same number of ITIME and DTIME keywords");
}

void Scan::meet()
{
    const auto reaction = std::ranges::find(reactions, walk_.name(), &Reaction::keyword);
    if (reaction != reactions.end())
        (this->*reaction->meet)();
    else
        meetDataArray();
}

void Scan::meetFluxType()
{
    const auto& names = walk_.strings();
    index_.simulatorType = Access::getSIMULATORTYPEPriv(names);
    index_.boundaryType = Access::getBOUNDARYTYPEPriv(names);
}

void Scan::meetRestart()
{
    index_.restartName = Access::getRESTARTPriv(walk_.strings());
}

void Scan::meetRestNumb()
{
    index_.restartNumber = Access::getRESTNUMPriv(walk_.integers());
}

/// What it means depends on the simulator, so that it is of full use only behind FLUXTYPE.
void Scan::meetIntHead()
{
    const auto& values = walk_.integers();
    index_.simulatorVersion = Access::getINTEHEADSimulationversionPriv(values, index_.simulatorType);
    index_.unitSystem = Access::getUnitSystemPriv(values);
    Access::getGridDimsPriv(values, index_.nx, index_.ny, index_.nz);
    requireSameBoundaryType(values);
    if (index_.simulatorType == Keywords::SimulatorType::MB30) {
        index_.numComponents = Access::getNumberComponentsPriv(values);
        index_.maximumNumberWells = Access::getMaximumNumberWellsPriv(values, index_.simulatorType);
    }
}

void Scan::requireSameBoundaryType(const std::vector<int>& intehead) const
{
    constexpr auto unknown = DumpfluxBoundaryType::UNKNOWN;
    if (index_.simulatorType != Keywords::SimulatorType::MA10 || index_.boundaryType == unknown)
        return;
    const auto type = Access::getINTEHEADBoundaryTypePriv(intehead, index_.simulatorType);
    if (type != unknown && type != index_.boundaryType)
        walk_.failReading(INTEHEAD, "; inconsistent boundary type between FLUXTYPE and INTEHEAD sections");
}

void Scan::meetLogiHead()
{
    index_.isRadial = Access::getRadialPriv(walk_.integers());
}

void Scan::meetIntTime()
{
    index_.reportNumbers.push_back(Access::getReportNumberPriv(walk_.integers()));
}

void Scan::meetDoubTime()
{
    const auto& values = walk_.doubles();
    index_.positions.push_back(walk_.header().keywordLargePos());
    index_.lastPositions.push_back(index_.positions.back());
    index_.startTimes.push_back(Access::getSTARTTIMEPriv(values));
    index_.endTimes.push_back(Access::getENDTIMEPriv(values));
    index_.averagePressure.push_back(Access::getAveragePressurePriv(values));
    index_.averageRs.push_back(Access::getAverageRsPriv(values));
    index_.averageRv.push_back(Access::getAverageRvPriv(values));
}

void Scan::meetWellName()
{
    const auto& names = walk_.strings();
    index_.wellNames.insert(names.begin(), names.end());
    noticeRangeData();
}

void Scan::meetWellArray()
{
    index_.wellDataArrayNames.insert(walk_.name());
    noticeRangeData();
}

void Scan::meetDataArray()
{
    index_.dataArrayNames.insert(walk_.name());
    noticeRangeData();
}

void Scan::noticeRangeData()
{
    if (!index_.lastPositions.empty())
        index_.lastPositions.back() = walk_.header().keywordLargePos();
}

} // namespace

DumpfluxContentIndex::DumpfluxContentIndex(const Service::FileName& dump)
{
    if (!dump.IsFile())
        return;
    file = dump;
    // The text names another operation. Kept so.
    DumpfluxWalk walk = walkDumpflux(inLoad, file, "DumpfluxReaderImpl::loadHeaderData");
    Scan(*this, walk).run();
    noticeOrder();
}

void DumpfluxContentIndex::noticeOrder()
{
    // NaN has no place in any order.
    const auto goesBackwards = std::not_fn(std::less_equal<double>());
    const auto isOrdered = [&](const std::vector<double>& times) {
        return std::ranges::adjacent_find(times, goesBackwards) == times.end();
    };
    isOrdered_ = isOrdered(startTimes) && isOrdered(endTimes);
}

std::ptrdiff_t DumpfluxContentIndex::rangeAt(double time) const
{
    if (startTimes.empty())
        return -1;
    if (time == startTimes.front())
        return 0;
    const auto count = std::ssize(startTimes);
    // Where the ends are in order, none before the first one behind the time can be meant.
    auto range = isOrdered_ ? std::ranges::upper_bound(endTimes, time) - endTimes.begin() : std::ptrdiff_t{0};
    for (; range < count; ++range) {
        const auto place = static_cast<std::size_t>(range);
        if (startTimes[place] <= time && endTimes[place] > time)
            return range;
        if (isOrdered_)
            break; // all further ones start even later
    }
    return time == endTimes.back() ? count - 1 : -1;
}

} // namespace Kvt::Mrl::MrlIO
