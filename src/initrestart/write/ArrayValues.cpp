#include "initrestart/write/ArrayValues.h"

#include "core/Fail.h"

#include <algorithm>
#include <exception>
#include <stdexcept>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

/// Moves the values of the active cells to the front, and gives their number.
template <class T>
std::size_t keepActive(std::span<T> values, int firstCell, const ActivityBits& active)
{
    const int end = firstCell + static_cast<int>(values.size());
    auto kept = values.begin();
    for (auto run = active.nextRun(firstCell, end, end); run.count > 0;
         run = active.nextRun(run.first + run.count, end, end)) {
        const auto from = values.begin() + (run.first - firstCell);
        kept = from == kept ? from + run.count : std::move(from, from + run.count, kept);
    }
    return static_cast<std::size_t>(kept - values.begin());
}

} // namespace

std::int64_t ArraySelection::count() const
{
    if (activeCells == nullptr)
        return std::int64_t{cells} * (dualPorosity ? 2 : 1);
    return dualPorosity ? activeCells->count() : activeCells->matrix().activeCount();
}

template <class T>
ArrayValues<T>::ArrayValues(const IGridPropertyArray<T>& array, const ArraySelection& selection, Extrema& extrema)
    : array_(array),
      selection_(selection),
      extrema_(extrema)
{
    if (selection_.activeCells != nullptr && selection_.dualPorosity)
        seedExtrema();
}

/// Cell by cell, and matrix in front of fracture, a fracture value that is the first of all has always been taken for a
/// 0 in the extrema: kept, so that files stay equal.
template <class T>
void ArrayValues<T>::seedExtrema()
{
    const ActivityBits& matrix = selection_.activeCells->matrix();
    const ActivityBits& fracture = selection_.activeCells->fracture();
    const auto firstMatrix = matrix.nextRun(0, matrix.size(), 1);
    const auto firstFracture = fracture.nextRun(0, fracture.size(), 1);
    if (firstFracture.count == 0 || (firstMatrix.count > 0 && firstMatrix.first <= firstFracture.first))
        return;
    const T zero{};
    fold(std::span<const T>(&zero, 1));
    notFolded_ = matrix.activeCount();
}

template <class T>
std::span<const T> ArrayValues<T>::next()
{
    std::size_t filled = 0;
    while (filled < pieceLength && hasMore())
        filled += take(std::span<T>(piece_).subspan(filled));
    const auto values = std::span<const T>(piece_).first(filled);
    const std::int64_t left = notFolded_ - delivered_;
    if (left >= 0 && left < std::ssize(values)) {
        fold(values.first(static_cast<std::size_t>(left)));
        fold(values.subspan(static_cast<std::size_t>(left) + 1));
    } else {
        fold(values);
    }
    delivered_ += std::ssize(values);
    return values;
}

/// Null if all values of this half are wanted.
template <class T>
const ActivityBits* ArrayValues<T>::activity() const
{
    if (selection_.activeCells == nullptr)
        return nullptr;
    return inFracture_ ? &selection_.activeCells->fracture() : &selection_.activeCells->matrix();
}

/// Goes over from the matrix to the fracture.
template <class T>
bool ArrayValues<T>::hasMore()
{
    if (cell_ == selection_.cells && selection_.dualPorosity && !inFracture_) {
        inFracture_ = true;
        cell_ = 0;
    }
    return cell_ < selection_.cells;
}

/// Fills the front of room and gives the number of values, 0 included.
template <class T>
std::size_t ArrayValues<T>::take(std::span<T> room)
{
    const ActivityBits* const active = activity();
    // Values of inactive cells, which may be anything, are asked for in checks only.
    if (active != nullptr && !isChecked())
        return takeActive(room, *active);
    const int first = cell_;
    const int count = std::min(static_cast<int>(room.size()), selection_.cells - first);
    ask(first, count, room.data());
    cell_ += count;
    const auto taken = static_cast<std::size_t>(count);
    return active == nullptr ? taken : keepActive(room.first(taken), first, *active);
}

template <class T>
std::size_t ArrayValues<T>::takeActive(std::span<T> room, const ActivityBits& active)
{
    const auto run = active.nextRun(cell_, selection_.cells, static_cast<int>(room.size()));
    cell_ = run.count == 0 ? selection_.cells : run.first + run.count;
    if (run.count > 0)
        ask(run.first, run.count, room.data());
    return static_cast<std::size_t>(run.count);
}

template <class T>
void ArrayValues<T>::ask(int first, int count, T* out) const
{
    try {
        inFracture_ ? array_.getFractureValues(first, count, out) : array_.getValues(first, count, out);
    } catch (const std::exception&) {
        if (!isChecked())
            throw;
        failAtCell(first, count);
    }
}

template <class T>
void ArrayValues<T>::failAtCell(int first, int count) const
{
    int cell = first;
    try {
        for (; cell < first + count - 1; ++cell)
            static_cast<void>(inFracture_ ? array_.getFractureValue(cell) : array_.getValue(cell));
    } catch (const std::exception&) {
        // This is the cell.
    }
    fail<std::invalid_argument>(selection_.checkedName->c_str(), inFracture_ ? " fracture" : " matrix", " array size (",
                                cell, ") is inconsistent with grid dimensions (", selection_.cells, "). ");
}

template <class T>
void ArrayValues<T>::fold(std::span<const T> values)
{
    if constexpr (!isText)
        extrema_.add(values);
}

template class ArrayValues<int>;
template class ArrayValues<float>;
template class ArrayValues<double>;
template class ArrayValues<std::string>;

} // namespace Kvt::Mrl::MrlIO
