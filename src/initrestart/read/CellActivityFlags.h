#pragma once

#include <mrlio/ICellActivitiesInfo.h>

#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The flags of one medium of a grid, for callers one by one and, since properties are spread by them again and again,
/// 64 at a time.
class CellActivityFlags
{
public:
    explicit CellActivityFlags(std::vector<bool> flags);

    /// As many flags of one value. They are made when they are asked for, since the number may come from a header that
    /// nothing else bears out.
    CellActivityFlags(std::int64_t size, bool value);

    std::int64_t size() const { return size_; }

    /// How many are set.
    std::int64_t count() const { return count_; }

    const std::vector<bool>& flags() const;

    /// The flags of cells 64 w to 64 w + 63 in word w, from the lowest bit on. Bits beyond the last cell are 0.
    const std::vector<std::uint64_t>& words() const;

    /// Those of an info: its own, or made from what it gives.
    static std::shared_ptr<const CellActivityFlags> of(const ICellActivitiesInfo& info, bool fracture);

private:
    void makeUniform() const;
    void pack() const;

    std::int64_t size_ = 0;
    std::int64_t count_ = 0;
    mutable std::once_flag uniform_;
    mutable std::vector<bool> flags_;
    mutable std::vector<std::uint64_t> words_;
};

} // namespace Kvt::Mrl::MrlIO
