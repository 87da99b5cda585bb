#include "summary/VectorPlaces.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr int freeCell = -1;

std::size_t hashOf(const SummaryVectorIDParams& id)
{
    std::uint64_t hash = std::hash<std::string>{}(id.getVectorName());
    const auto mix = [&hash](std::uint64_t value) {
        hash = (hash ^ value) * 0x9E3779B97F4A7C15u;
        hash ^= hash >> 32;
    };
    mix(std::hash<std::string>{}(id.getWgname()));
    if (!id.getLgrName().empty())
        mix(std::hash<std::string>{}(id.getLgrName()));
    for (const int number : {id.getNum(), id.getNumlx(), id.getNumly(), id.getNumlz()})
        mix(static_cast<std::uint64_t>(number));
    return hash;
}

} // namespace

VectorPlaces::VectorPlaces(const std::vector<SummaryVectorIDParams>& ids)
    : cells_(std::bit_ceil(2 * ids.size() + 1), freeCell)
{
    for (std::size_t i = 0; i < ids.size(); ++i) {
        int& cell = cells_[cellOf(ids, ids[i])];
        if (cell == freeCell)
            cell = static_cast<int>(i);
    }
}

int VectorPlaces::find(const std::vector<SummaryVectorIDParams>& ids, const SummaryVectorIDParams& id) const
{
    return cells_[cellOf(ids, id)];
}

std::size_t VectorPlaces::cellOf(const std::vector<SummaryVectorIDParams>& ids, const SummaryVectorIDParams& id) const
{
    const std::size_t mask = cells_.size() - 1;
    std::size_t cell = hashOf(id) & mask;
    while (cells_[cell] != freeCell && ids[static_cast<std::size_t>(cells_[cell])] != id)
        cell = (cell + 1) & mask;
    return cell;
}

} // namespace Kvt::Mrl::MrlIO
