#pragma once

#include "wellresults/ArrayNames.h"

#include <mrlio/MrlIOException.h>

#include <array>
#include <cstddef>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// Sorts the arrays of well test results by name.
class RFTArrayNameCategorizer
{
public:
    enum CategoryType : int
    {
        Basic,
        RFT,
        PLT,
        Segment
    };

    static constexpr std::size_t categoryCount = 4;
    static constexpr std::array<const char*, categoryCount> cacheElements{"basicArrays", "RFTArrays", "PLTArrays",
                                                                          "segmentArrays"};
    static constexpr const char* collectionsName = "RFTArrayNamesCollections";
    using Exception = RFTReaderException;

    static CategoryType categoryPriv(const std::string& name);
};

using RFTArrayNamesCollections = ArrayNamesCollections<RFTArrayNameCategorizer>;

} // namespace Kvt::Mrl::MrlIO
