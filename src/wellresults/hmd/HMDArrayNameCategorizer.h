#pragma once

#include "wellresults/ArrayNames.h"

#include <mrlio/MrlIOException.h>

#include <array>
#include <cstddef>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// Sorts the arrays of history match data by name, and tells what they depend on.
class HMDArrayNameCategorizer
{
public:
    enum CategoryType : int
    {
        Preamble,
        Variable,
        Gradient,
        Unlisted // a name that such files don't have: no category, and so refused by the collections
    };

    static constexpr std::size_t categoryCount = 3;
    static constexpr std::array<const char*, categoryCount> cacheElements{"preambles", "variables", "gradients"};
    static constexpr const char* collectionsName = "HMDArrayNamesCollections";
    using Exception = HMDReaderException;

    static CategoryType categoryPriv(const std::string& name);

    /// The number of a parameter as it counts for an array: -1 if the array doesn't depend on parameters.
    static int modifyParameterIdPriv(const std::string& name, int id);

    /// The number of a well or a group likewise.
    static int modifyWellGroupIdPriv(const std::string& name, int id);
};

using HMDArrayNamesCollections = ArrayNamesCollections<HMDArrayNameCategorizer>;

} // namespace Kvt::Mrl::MrlIO
