#pragma once

#include <cstddef>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// Throws an E if an array that a keyword has to have is too short.
/// size    the values that it has
/// count   the values that are needed
template <class E>
void requireValues(const std::string& keyword, std::size_t size, std::size_t count)
{
    if (size < count)
        throw E(keyword + " keyword contains less than " + std::to_string(count) + (count == 1 ? " value" : " values"));
}

} // namespace Kvt::Mrl::MrlIO
