#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Makes room for the elements of a caller's array, but for no more than a few: the number is a claim until they have
/// come.
template <class T>
void reserveClaimed(std::vector<T>& elements, int claimed)
{
    constexpr int most = 64 * 1024;
    elements.reserve(static_cast<std::size_t>(std::clamp(claimed, 0, most)));
}

} // namespace Kvt::Mrl::MrlIO
