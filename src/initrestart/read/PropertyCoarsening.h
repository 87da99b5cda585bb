#pragma once

#include <mrlio/ICellCoarsenInfo.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Where a cell stands among the `count` values of one medium; nothing for a cell of the other medium, or of none.
inline std::optional<std::size_t> placeOfCell(int cell, std::size_t count, bool fracture)
{
    std::int64_t place = cell;
    const auto values = static_cast<std::int64_t>(count);
    if (place >= values && fracture)
        place -= values;
    if (place < 0 || place >= values)
        return std::nullopt;
    return static_cast<std::size_t>(place);
}

/// Gives all cells of a group the value of its representative: group by group in ascending order and in place, so that
/// a representative from another group passes on what that group was given.
///
/// values     one per cell of a medium
/// coarsen    null for a grid that isn't coarsened
/// fracture   which medium: cells of the fracture are counted behind those of the matrix
template <class T>
void spreadCoarsened(std::vector<T>& values, const ICellCoarsenInfo* coarsen, bool fracture)
{
    if (coarsen == nullptr || coarsen->numGroups() == 0)
        return;
    std::vector<int> groups;
    std::vector<int> cells;
    coarsen->groups(groups);
    for (const int group : groups) {
        int representative = 0;
        if (!coarsen->representative(group, representative) || !coarsen->cellsOfGroup(group, cells))
            continue;
        const auto from = placeOfCell(representative, values.size(), fracture);
        if (!from)
            continue;
        for (const int cell : cells)
            if (const auto to = placeOfCell(cell, values.size(), fracture); to && *to != *from)
                values[*to] = values[*from];
    }
}

} // namespace Kvt::Mrl::MrlIO
