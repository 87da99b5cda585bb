#pragma once

#include "core/ValueTypeLayout.h"
#include "initrestart/Extrema.h"
#include "initrestart/write/ActiveCells.h"

#include <mrlio/IGridPropertyArray.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <type_traits>

namespace Kvt::Mrl::MrlIO {

/// Which values of an array are wanted.
struct ArraySelection
{
    /// Cells of the array, or of the grid when the activity selects.
    int cells = 0;
    bool dualPorosity = false;
    /// The activity that selects; null for the values of all cells.
    ActiveCells* activeCells = nullptr;
    /// The array's name if each cell is asked for, be it selected or not, and a cell that throws is told of.
    const std::string* checkedName = nullptr;

    /// Number of values that are selected.
    std::int64_t count() const;
};

/// The values of an array on their way to a file, in pieces: the matrix, then, with dual porosity, the fracture as if it
/// were more of the same. Each piece but the last fills whole blocks of a file, so that pieces that are encoded one by
/// one make one run of blocks.
template <class T>
class ArrayValues
{
public:
    /// extrema   fold the values; goes on where it stands
    ArrayValues(const IGridPropertyArray<T>& array, const ArraySelection& selection, Extrema& extrema);

    ArrayValues(const ArrayValues&) = delete;
    ArrayValues& operator=(const ArrayValues&) = delete;

    /// The next piece, valid until the next call; empty at the end.
    /// throws   what the array throws; std::invalid_argument with the place in its stead when it is to be checked
    std::span<const T> next();

private:
    static constexpr bool isText = std::is_same_v<T, std::string>;
    static constexpr std::size_t pieceLength = 4 * (isText ? stringBlockLength : numberBlockLength);

    void seedExtrema();
    const ActivityBits* activity() const;

    bool isChecked() const { return selection_.checkedName != nullptr; }

    bool hasMore();
    std::size_t take(std::span<T> room);
    std::size_t takeActive(std::span<T> room, const ActivityBits& active);
    void ask(int first, int count, T* out) const;
    [[noreturn]] void failAtCell(int first, int count) const;
    void fold(std::span<const T> values);

    const IGridPropertyArray<T>& array_;
    const ArraySelection selection_;
    Extrema& extrema_;
    bool inFracture_ = false;
    int cell_ = 0;
    std::int64_t delivered_ = 0;
    std::int64_t notFolded_ = -1; // number of the value, among those delivered, that extrema_ doesn't get
    std::array<T, pieceLength> piece_;
};

} // namespace Kvt::Mrl::MrlIO
