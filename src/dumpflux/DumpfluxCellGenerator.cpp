#include "dumpflux/DumpfluxCellGenerator.h"

#include "core/Fail.h"

#include <mrlio/MrlIOException.h>

#include <cstdint>

namespace Kvt::Mrl::MrlIO {

namespace {

/// The place of a 1-based index in a row of `length`, counted from 1.
std::int64_t placeIn(std::int64_t index, std::int64_t length)
{
    const std::int64_t remainder = index % length;
    return remainder != 0 ? remainder : length;
}

/// The row of `length` that a 1-based index stands in, counted from 1.
std::int64_t rowOf(std::int64_t index, std::int64_t length)
{
    return index / length + (index % length != 0 ? 1 : 0);
}

} // namespace

const std::shared_ptr<DumpfluxCell>& DumpfluxCellGenerator::cell(int index)
{
    const auto place = cells_.lower_bound(index);
    if (place != cells_.end() && place->first == index)
        return place->second;
    return cells_.emplace_hint(place, index, makeCell(index))->second;
}

/// Files with impossible dimensions or indexes get cells by the same arithmetic.
std::shared_ptr<DumpfluxCell> DumpfluxCellGenerator::makeCell(int index) const
{
    if (nx_ == 0 || ny_ == 0)
        fail<MrlIOException>("DumpfluxCellGenerator::makeCell", ": grid dimensions are ", nx_, " x ", ny_);
    const std::int64_t layer = std::int64_t{nx_} * ny_;
    return std::make_shared<DumpfluxCell>(static_cast<int>(placeIn(index, nx_)),
                                          static_cast<int>(rowOf(placeIn(index, layer), nx_)),
                                          static_cast<int>(rowOf(index, layer)));
}

} // namespace Kvt::Mrl::MrlIO
