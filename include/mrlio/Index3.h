#pragma once

#include <cstddef>
#include <type_traits>

namespace Kvt::Mrl::MrlIO {

/// Three whole numbers in the directions I, J, K: a cell, or the dimensions of a grid. Any values are allowed; whether
/// they count from 0 or 1 is told by whoever hands one out.
///
/// The keyword records show three neighbouring items of their arrays as one Index3, so it has the layout of int[3].
struct [[gnu::may_alias]] Index3
{
    int x = 0;
    int y = 0;
    int z = 0;

    friend constexpr bool operator==(const Index3&, const Index3&) = default;
};

static_assert(sizeof(Index3) == 3 * sizeof(int) && alignof(Index3) == alignof(int));
static_assert(std::is_standard_layout_v<Index3> && std::is_trivially_copyable_v<Index3>);
static_assert(offsetof(Index3, x) == 0 && offsetof(Index3, y) == sizeof(int) && offsetof(Index3, z) == 2 * sizeof(int));

} // namespace Kvt::Mrl::MrlIO
