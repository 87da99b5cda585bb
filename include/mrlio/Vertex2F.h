#pragma once

#include <cstddef>
#include <type_traits>

namespace Kvt::Mrl::MrlIO {

/// A point of the map plane. Units and origin are those of the array it was taken from.
///
/// The keyword records show two neighbouring items of their arrays as one Vertex2F, so it has the layout of float[2].
struct [[gnu::may_alias]] Vertex2F
{
    float x = 0.0F;
    float y = 0.0F;

    friend constexpr bool operator==(const Vertex2F&, const Vertex2F&) = default;
};

static_assert(sizeof(Vertex2F) == 2 * sizeof(float) && alignof(Vertex2F) == alignof(float));
static_assert(std::is_standard_layout_v<Vertex2F> && std::is_trivially_copyable_v<Vertex2F>);
static_assert(offsetof(Vertex2F, x) == 0 && offsetof(Vertex2F, y) == sizeof(float));

} // namespace Kvt::Mrl::MrlIO
