#pragma once

#include <mrlio/IGridPropertyArray.h>

#include <cstddef>
#include <stdexcept>
#include <utility>
#include <vector>

namespace MrlIOTest {

/// Cell values in memory. Asked for a cell beyond its data it throws std::out_of_range; its size can be made to lie.
template <class T>
class CellArray : public Kvt::Mrl::MrlIO::IGridPropertyArray<T>
{
public:
    explicit CellArray(std::vector<T> matrix) : CellArray(std::move(matrix), {}, false) {}

    CellArray(std::vector<T> matrix, std::vector<T> fracture) : CellArray(std::move(matrix), std::move(fracture), true)
    {}

    CellArray& claimSize(int size)
    {
        size_ = size;
        return *this;
    }

    int size() const override { return size_; }

    T getValue(int cell) const override { return matrix_.at(static_cast<std::size_t>(cell)); }

    T getFractureValue(int cell) const override { return fracture_.at(static_cast<std::size_t>(cell)); }

    bool isDualPorosity() const override { return isDualPorosity_; }

private:
    CellArray(std::vector<T> matrix, std::vector<T> fracture, bool isDualPorosity)
        : matrix_(std::move(matrix)),
          fracture_(std::move(fracture)),
          size_(static_cast<int>(matrix_.size())),
          isDualPorosity_(isDualPorosity)
    {}

    std::vector<T> matrix_;
    std::vector<T> fracture_;
    int size_;
    bool isDualPorosity_;
};

/// first, first + 1, first + 2 ...
template <class T = int>
std::vector<T> numbersFrom(T first, std::size_t count)
{
    std::vector<T> numbers(count);
    for (std::size_t i = 0; i < count; ++i)
        numbers[i] = first + static_cast<T>(i);
    return numbers;
}

} // namespace MrlIOTest
