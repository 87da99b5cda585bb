#include "initrestart/write/ActiveCells.h"

#include "core/Fail.h"
#include "initrestart/CellActivity.h"

#include <algorithm>
#include <array>
#include <bit>
#include <limits>
#include <stdexcept>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr int bitsPerWord = 64;

using Volumes = IGridPropertyArray<float>;
using Ask = void (Volumes::*)(int, int, float*) const;

/// rockv   null where there are no rock volumes
ActivityBits activityOf(int cells, Ask ask, const Volumes& porv, const Volumes* rockv)
{
    constexpr int pieceLength = 2048;
    std::array<float, pieceLength> pore;
    std::array<float, pieceLength> rock;
    ActivityBits bits;
    for (int first = 0, count = 0; first < cells; first += count) {
        count = std::min(pieceLength, cells - first);
        (porv.*ask)(first, count, pore.data());
        if (rockv != nullptr)
            (rockv->*ask)(first, count, rock.data());
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            bits.append(isActiveCell(pore[i], rockv != nullptr ? &rock[i] : nullptr));
    }
    return bits;
}

} // namespace

void ActivityBits::append(bool active)
{
    const int bit = size_ % bitsPerWord;
    if (bit == 0)
        words_.push_back(0);
    words_.back() |= std::uint64_t{active} << bit;
    activeCount_ += active ? 1 : 0;
    ++size_;
}

ActivityBits::Run ActivityBits::nextRun(int cell, int end, int mostCells) const
{
    end = std::min(end, size_);
    const std::int64_t first = find(cell, end, true);
    const std::int64_t behind = find(first, std::min<std::int64_t>(end, first + mostCells), false);
    return {static_cast<int>(first), static_cast<int>(behind - first)};
}

/// The first cell from `cell` on whose activity is this one; end if there is none in front of it, cell if that is
/// behind the end.
std::int64_t ActivityBits::find(std::int64_t cell, std::int64_t end, bool active) const
{
    while (cell < end) {
        const std::uint64_t word = words_[static_cast<std::size_t>(cell / bitsPerWord)];
        const std::uint64_t wanted = (active ? word : ~word) >> (cell % bitsPerWord);
        if (wanted != 0)
            return std::min<std::int64_t>(end, cell + std::countr_zero(wanted));
        cell = std::min<std::int64_t>(end, (cell / bitsPerWord + 1) * bitsPerWord);
    }
    return cell;
}

const ActivityBits& ActiveCells::matrix()
{
    findOut();
    return matrix_;
}

const ActivityBits& ActiveCells::fracture()
{
    findOut();
    return fracture_;
}

std::int64_t ActiveCells::count()
{
    return std::int64_t{matrix().activeCount()} + fracture().activeCount();
}

void ActiveCells::findOut()
{
    if (known_)
        return;
    const std::int64_t cells = cellCount(grid_.getGridSpec());
    if (cells > std::numeric_limits<int>::max())
        fail<std::invalid_argument>("The grid has too many cells: ", cells, ".");
    const Volumes& porv = grid_.getPorvArray();
    const Volumes* const rockv = grid_.getRockvArray();
    matrix_ = activityOf(static_cast<int>(cells), &Volumes::getValues, porv, rockv);
    if (porv.isDualPorosity()) {
        const bool hasFractureRock = rockv != nullptr && rockv->isDualPorosity();
        fracture_ =
            activityOf(static_cast<int>(cells), &Volumes::getFractureValues, porv, hasFractureRock ? rockv : nullptr);
    }
    known_ = true;
}

std::int64_t cellCount(const GridSpec& grid)
{
    std::int64_t layer = std::int64_t{grid.getNx()} * grid.getNy();
    // Three dimensions may pass 64 bits, too; nobody tells such numbers apart.
    if (layer > std::numeric_limits<std::int64_t>::max() / grid.getNz())
        return std::numeric_limits<std::int64_t>::max();
    return layer * grid.getNz();
}

} // namespace Kvt::Mrl::MrlIO
