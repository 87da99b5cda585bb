#pragma once

/// \file
/// Large files of well results and of boundary fluxes, written by hand once per program.

#include <cstdint>
#include <string>
#include <vector>

namespace bench {

/// An RFT file.
struct WellCase
{
    static constexpr int dates = 2000, wells = 50, arrays = 20, connections = 30;
    static constexpr std::int64_t keywords = std::int64_t{dates} * wells * (arrays + 3); // with TIME, DATE, WELLETC

    std::string directory, name, file;
    std::vector<std::int64_t> datePositions; // of the first DATE keyword of each
};

const WellCase& wellCase();

/// A boundary flux dump of which all connections belong to region 1, on one side or the other.
struct FluxCase
{
    static constexpr int ranges = 1000, connections = 100000;

    std::string file;
    std::vector<std::int64_t> fluxPositions;   // where the FLUX keyword of each range stands
    std::vector<std::int32_t> outward, inward; // connections whose first, and whose second region is 1
};

const FluxCase& fluxCase();

} // namespace bench
