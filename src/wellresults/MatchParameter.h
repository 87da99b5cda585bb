#pragma once

#include "wellresults/KeywordScan.h"
#include "wellresults/ValueCount.h"

#include <mrlio/GRFTParameter.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

/// \file
/// How NAMES and HMHEADI, one behind the other, name a parameter of a history match.

namespace Kvt::Mrl::MrlIO {

/// The two texts of NAMES or of its kin: what the parameter belongs to, and the parameter.
namespace NamesText {
inline constexpr std::size_t owner = 0;
inline constexpr std::size_t parameter = 1;
inline constexpr std::size_t count = 2;
} // namespace NamesText

/// The texts of the NAMES or its kin at which a walk stands; good as long as the walk's strings.
/// throws   E if there are too few
template <class E>
const std::vector<std::string>& matchNames(KeywordScan<E>& walk)
{
    const std::vector<std::string>& names = walk.strings();
    requireValues<E>(walk.name(), names.size(), NamesText::count);
    return names;
}

/// The parameter of the HMHEADI at which a walk stands.
/// numbers       the data of that keyword
/// pendingName   the name of the NAMES before it; emptied
/// throws        E if HMHEADI is too short, or there was no name
template <class E>
GRFTParameter takeParameter(const KeywordScan<E>& walk, const std::vector<int>& numbers, std::string& pendingName)
{
    requireValues<E>(walk.name(), numbers.size(), 2);
    if (pendingName.empty())
        walk.failReading(walk.name(), " (undefined parameter name)");
    const int domain2 = numbers.size() > 2 && numbers[2] != 0 ? numbers[2] : -1;
    return {std::exchange(pendingName, {}), numbers[1], numbers[0], domain2};
}

template <class E>
GRFTParameter takeParameter(KeywordScan<E>& walk, std::string& pendingName)
{
    return takeParameter(walk, walk.integers(), pendingName);
}

} // namespace Kvt::Mrl::MrlIO
