#include "dumpflux/DumpfluxRegionManager.h"

#include "core/Fail.h"
#include "dumpflux/DumpfluxLayout.h"
#include "dumpflux/DumpfluxWalk.h"

#include <mrlio/MrlIOException.h>

#include <algorithm>

namespace Kvt::Mrl::MrlIO {

namespace {

using namespace DumpfluxLayout;

constexpr const char* inRead = "DumpfluxRegionManager::read";
// The text of a failed read has a blank ahead of the colon. Kept so.
constexpr const char* inReadArray = "DumpfluxRegionManager::read ";

void copy(std::span<const int> from, std::vector<int>& to)
{
    to.assign(from.begin(), from.end());
}

/// places   in ascending order
void gather(std::span<const double> values, const std::vector<std::uint32_t>& places, double sign, double* out)
{
    if (places.empty())
        return;
    if (places.back() - places.front() + 1 == places.size()) { // without gaps, as in a dump of a single region
        for (const double value : values.subspan(places.front(), places.size()))
            *out++ = sign * value;
        return;
    }
    for (const std::uint32_t place : places)
        *out++ = sign * values[place];
}

template <class T>
bool none(std::vector<T>& outer, std::vector<T>& inner)
{
    outer.clear();
    inner.clear();
    return false;
}

} // namespace

DumpfluxRegionManager::DumpfluxRegionManager(const DumpfluxContentIndex& index)
    : index_(index),
      generator_(index.nx, index.ny)
{
    if (index_.file.FileExists())
        read();
}

DumpfluxRegionManager::~DumpfluxRegionManager() = default;

void DumpfluxRegionManager::read()
{
    DumpfluxWalk walk = walkDumpflux(inReadArray, index_.file, inRead);
    do {
        if (!walk.next())
            fail<DumpfluxReaderException>(inRead, ": reader initialized but INDXFLUX array not found");
    } while (walk.name() != INDXFLUX);
    if (!walk.reader().readDataVector(walk.header(), table_))
        walk.failReading(walk.name());
    if (table_.size() % IndexColumn::count != 0)
        fail<DumpfluxReaderException>(inRead,
                                      ": reader initialized but the size of INDXFLUX array has an invalid number "
                                      "of items - it is not divisible by 6");
    numConnections_ = table_.size() / IndexColumn::count;
    for (const std::size_t number : {IndexColumn::firstRegion, IndexColumn::secondRegion}) {
        // Connections of one region mostly stand together.
        for (auto last = regions_.end(); const int region : column(number))
            last = regions_.insert(last, region);
    }
}

std::span<const int> DumpfluxRegionManager::column(std::size_t number) const
{
    return std::span<const int>(table_).subspan(number * numConnections_, numConnections_);
}

const std::set<int>& DumpfluxRegionManager::regions() const
{
    return regions_;
}

int DumpfluxRegionManager::numConnections() const
{
    return static_cast<int>(numConnections_);
}

bool DumpfluxRegionManager::cells(Cells& first, Cells& second)
{
    makeCells(column(IndexColumn::firstCell), firstCells_);
    makeCells(column(IndexColumn::secondCell), secondCells_);
    first = firstCells_;
    second = secondCells_;
    return numConnections_ != 0;
}

bool DumpfluxRegionManager::cells(Indexes& first, Indexes& second) const
{
    copy(column(IndexColumn::firstCell), first);
    copy(column(IndexColumn::secondCell), second);
    return numConnections_ != 0;
}

bool DumpfluxRegionManager::cells(int number, Cells& outer, Cells& inner)
{
    Region* const region = find(number);
    if (region == nullptr)
        return none(outer, inner);
    makeCells(region->outer, region->outerCells);
    makeCells(region->inner, region->innerCells);
    outer = region->outerCells;
    inner = region->innerCells;
    return !outer.empty();
}

bool DumpfluxRegionManager::cells(int number, Indexes& outer, Indexes& inner)
{
    const Region* const region = find(number);
    if (region == nullptr)
        return none(outer, inner);
    outer = region->outer;
    inner = region->inner;
    return !outer.empty();
}

bool DumpfluxRegionManager::rawData(Cells& first, Cells& second, Indexes& direction, Indexes& firstRegion,
                                    Indexes& secondRegion, std::vector<bool>& required)
{
    columns(direction, firstRegion, secondRegion, required);
    return cells(first, second);
}

bool DumpfluxRegionManager::rawData(Indexes& first, Indexes& second, Indexes& direction, Indexes& firstRegion,
                                    Indexes& secondRegion, std::vector<bool>& required) const
{
    columns(direction, firstRegion, secondRegion, required);
    return cells(first, second);
}

void DumpfluxRegionManager::columns(Indexes& direction, Indexes& firstRegion, Indexes& secondRegion,
                                    std::vector<bool>& required) const
{
    copy(column(IndexColumn::direction), direction);
    copy(column(IndexColumn::firstRegion), firstRegion);
    copy(column(IndexColumn::secondRegion), secondRegion);
    required.clear();
    for (const int value : column(IndexColumn::required))
        required.push_back(value == 1);
}

bool DumpfluxRegionManager::values(int number, std::span<const double> values, std::vector<double>& ofRegion)
{
    const bool isFlux = index_.boundaryType == DumpfluxBoundaryType::FLUX;
    const bool isPressure = index_.boundaryType == DumpfluxBoundaryType::PRESSURE;
    const Region* const region = find(number);
    if (region == nullptr || (!isFlux && !isPressure) || values.size() != (isFlux ? 1 : 2) * numConnections_) {
        ofRegion.clear();
        return false;
    }
    // Fluxes are turned to flow out of the region. Pressures are those of the outer cells, and the second half of the
    // values belongs to the second cells.
    const auto ofFirst = isFlux ? values : values.subspan(numConnections_);
    const double sign = isFlux ? -1.0 : 1.0;
    ofRegion.resize(region->outer.size());
    gather(ofFirst, region->asFirst, 1.0, ofRegion.data());
    gather(values, region->asSecond, sign, ofRegion.data() + region->asFirst.size());
    return !ofRegion.empty();
}

/// Null for a number that no connection names.
DumpfluxRegionManager::Region* DumpfluxRegionManager::find(int number)
{
    if (!regions_.contains(number))
        return nullptr;
    const auto [place, isNew] = found_.try_emplace(number);
    if (isNew)
        fill(number, place->second);
    return &place->second;
}

void DumpfluxRegionManager::fill(int number, Region& region) const
{
    const auto take = [&](std::size_t regionColumn, std::size_t outerColumn, std::size_t innerColumn,
                          std::vector<std::uint32_t>& connections) {
        const auto regions = column(regionColumn);
        for (std::size_t connection = 0; connection < numConnections_; ++connection) {
            if (regions[connection] != number)
                continue;
            connections.push_back(static_cast<std::uint32_t>(connection));
            region.outer.push_back(column(outerColumn)[connection]);
            region.inner.push_back(column(innerColumn)[connection]);
        }
    };
    take(IndexColumn::firstRegion, IndexColumn::secondCell, IndexColumn::firstCell, region.asFirst);
    take(IndexColumn::secondRegion, IndexColumn::firstCell, IndexColumn::secondCell, region.asSecond);
}

/// Does nothing if they have been made before.
void DumpfluxRegionManager::makeCells(std::span<const int> indexes, Cells& cells)
{
    if (cells.size() == indexes.size())
        return;
    Cells made;
    made.reserve(indexes.size());
    for (const int index : indexes)
        made.push_back(generator_.cell(index));
    cells = std::move(made);
}

} // namespace Kvt::Mrl::MrlIO
