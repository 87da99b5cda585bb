#pragma once

#include "core/VectorGrowth.h"
#include "initrestart/read/CellActivityFlags.h"

#include <mrlio/ArrayConverter.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

/// \file
/// The values of a property in memory.

namespace Kvt::Mrl::MrlIO {

/// What stands in cells that have no data: the lowest finite number, or the empty text.
template <class T>
T fillValue()
{
    if constexpr (std::is_arithmetic_v<T>)
        return std::numeric_limits<T>::lowest();
    else
        return T();
}

/// Spreads values over cells: each active cell takes the next one, the others the fill value.
template <class T>
class ValueSpread
{
public:
    /// values   one for each active cell
    ValueSpread(const CellActivityFlags& active, const std::vector<T>& values, T fill)
        : active_(active),
          next_(values.data()),
          fill_(std::move(fill))
    {}

    /// out   its content is replaced
    void run(std::vector<T>& out)
    {
        constexpr std::int64_t wordBits = 64;
        const std::vector<std::uint64_t>& words = active_.words();
        const std::int64_t cells = active_.size();
        VectorFiller<T> filler(out, cells, cells);
        static_assert(VectorFiller<T>::step % wordBits == 0);
        for (std::int64_t start = 0; start < cells; start += filler.step) {
            const std::int64_t count = std::min(filler.step, cells - start);
            T* place = filler.next(count);
            for (std::int64_t cell = 0; cell < count; cell += wordBits, place += wordBits)
                spreadWord(words[static_cast<std::size_t>((start + cell) / wordBits)], place,
                           std::min(wordBits, count - cell));
        }
    }

private:
    void spreadWord(std::uint64_t word, T* place, std::int64_t cells)
    {
        const int active = std::popcount(word);
        if (active == cells) {
            std::copy_n(next_, cells, place);
        } else {
            std::fill_n(place, cells, fill_);
            const T* value = next_;
            for (; word != 0; word &= word - 1)
                place[std::countr_zero(word)] = *value++;
        }
        next_ += active;
    }

    const CellActivityFlags& active_;
    const T* next_;
    T fill_;
};

/// The values of one medium as the file holds them, either one per cell or one per active cell with the flags by which
/// they are spread. That takes less memory than spread values would, and spreading costs a caller no more than copying.
template <class T>
class PropertyValues
{
public:
    /// One for each cell.
    explicit PropertyValues(std::vector<T> values) : values_(std::move(values)) {}

    /// One for each cell that is active.
    PropertyValues(std::vector<T> values, std::shared_ptr<const CellActivityFlags> active)
        : values_(std::move(values)),
          active_(std::move(active))
    {}

    /// Without fill values, or with them.
    const std::vector<T>& values() const { return values_; }

    /// One value per cell, in the element type of `out`.
    /// throws   MrlIOException for a type that isn't converted; `out` is empty then
    template <class U>
    void copyTo(std::vector<U>& out) const
    {
        if constexpr (std::is_same_v<T, U>) {
            spread(values_, fillValue<T>(), out);
        } else if (active_ == nullptr) {
            ArrayConverter::convert(values_, out);
        } else {
            std::vector<U> converted;
            out.clear();
            ArrayConverter::convert(values_, converted);
            if constexpr (std::is_convertible_v<T, U>)
                spread(converted, static_cast<U>(fillValue<T>()), out);
        }
    }

private:
    template <class U>
    void spread(const std::vector<U>& values, U fill, std::vector<U>& out) const
    {
        if (active_ != nullptr) {
            ValueSpread<U>(*active_, values, std::move(fill)).run(out);
            return;
        }
        VectorFiller<U> filler(out, std::ssize(values), std::ssize(values));
        for (std::int64_t start = 0; start < std::ssize(values); start += filler.step) {
            const std::int64_t count = std::min(filler.step, std::ssize(values) - start);
            std::copy_n(values.data() + start, count, filler.next(count));
        }
    }

    std::vector<T> values_;
    std::shared_ptr<const CellActivityFlags> active_; // null for one value per cell
};

} // namespace Kvt::Mrl::MrlIO
