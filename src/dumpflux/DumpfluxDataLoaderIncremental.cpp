#include "dumpflux/DumpfluxDataLoaderIncremental.h"

#include "core/Fail.h"
#include "dumpflux/DumpfluxLayout.h"

#include <mrlio/KeywordHeader.h>
#include <mrlio/MrlIOException.h>

#include <cstddef>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

using namespace DumpfluxLayout;

constexpr const char* inLoadData = "DumpfluxDataLoaderIncremental::loadData";

} // namespace

/// What a time range holds on wells. The names may stand behind the arrays, so these are read last.
struct DumpfluxDataLoaderIncremental::WellBlock
{
    std::vector<std::string> names;
    std::vector<KeywordHeader> arrays;
    std::string lastKeyword; // that the walk gave
};

DumpfluxDataLoaderIncremental::DumpfluxDataLoaderIncremental(const DumpfluxContentIndex& index)
    : index_(index),
      ranges_(index.positions.size())
{}

bool DumpfluxDataLoaderIncremental::values(const std::string& array, double time, std::span<const double>& values)
{
    values = {};
    if (const auto* const arrays = arraysAt(time))
        values = arrays->find(arrays_.index(array));
    return !values.empty();
}

bool DumpfluxDataLoaderIncremental::wellValues(const std::string& well, const std::string& array, double time,
                                               std::span<const double>& values)
{
    values = {};
    if (const auto* const arrays = arraysAt(time))
        values = arrays->find(arrays_.index(array), wells_.index(well));
    return !values.empty();
}

/// Null for a time in no time range.
const DumpfluxDataArrays* DumpfluxDataLoaderIncremental::arraysAt(double time)
{
    const std::ptrdiff_t range = index_.rangeAt(time);
    if (range < 0)
        return nullptr;
    const auto& arrays = ranges_[static_cast<std::size_t>(range)];
    if (!arrays)
        loadData(static_cast<std::size_t>(range));
    return arrays.get();
}

void DumpfluxDataLoaderIncremental::loadData(std::size_t range)
{
    DumpfluxWalk walk = walkDumpflux(inLoadData, index_.file);
    ranges_[range] = std::make_shared<DumpfluxDataArrays>();
    walk.startAt(DTIME, index_.positions[range]);
    WellBlock block;
    loadArrays(walk, index_.lastPositions[range], *ranges_[range], block);
    loadWells(walk, *ranges_[range], block);
}

/// The walk ends where the range is known to end: a step further would cost another pass over the last one's records.
void DumpfluxDataLoaderIncremental::loadArrays(DumpfluxWalk& walk, std::int64_t lastPosition,
                                               DumpfluxDataArrays& arrays, WellBlock& block)
{
    while (walk.header().keywordLargePos() != lastPosition && walk.next() && walk.name() != DTIME) {
        const std::string& name = walk.name();
        block.lastKeyword = name;
        if (index_.dataArrayNames.contains(name)) {
            std::vector<double> values;
            if (!walk.reader().readDataVector(walk.header(), values))
                walk.failReading(name);
            arrays.store(arrays_.index(name), std::move(values));
        } else if (name == WELLNAME)
            block.names = walk.strings();
        else if (index_.wellDataArrayNames.contains(name))
            block.arrays.push_back(walk.header());
    }
}

void DumpfluxDataLoaderIncremental::loadWells(DumpfluxWalk& walk, DumpfluxDataArrays& arrays, const WellBlock& block)
{
    if (block.names.empty())
        return;
    std::vector<double> values;
    for (const KeywordHeader& header : block.arrays) {
        // The text names the last keyword of the walk, not this one. Kept so.
        if (!walk.reader().readDataVector(header, values))
            walk.failReading(block.lastKeyword);
        const std::size_t length = valuesPerWell(header.name());
        if (length == 0)
            continue;
        if (values.size() % length != 0 || values.size() / length > block.names.size())
            fail<DumpfluxReaderException>(inLoadData, ": ", values.size(), " values of ", header.name(), " for ",
                                          block.names.size(), " wells");
        const int array = arrays_.index(header.name());
        auto well = block.names.begin();
        for (auto rest = values.begin(); rest != values.end(); rest += static_cast<std::ptrdiff_t>(length))
            arrays.store(array, wells_.index(*well++), {rest, rest + static_cast<std::ptrdiff_t>(length)});
    }
}

/// 0 for an array that can't be cut.
std::size_t DumpfluxDataLoaderIncremental::valuesPerWell(const std::string& array) const
{
    if (array == WELLFLOW)
        return ratesPerWell;
    return index_.numComponents > 0 ? ratesPerComponent * static_cast<std::size_t>(index_.numComponents) : 0;
}

} // namespace Kvt::Mrl::MrlIO
