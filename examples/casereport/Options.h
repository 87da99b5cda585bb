#pragma once

#include "Maps.h"
#include "WellProfiles.h"

#include <chrono>
#include <string>
#include <vector>

namespace casereport {

/// What the command line asks for.
struct Options
{
    std::string directory;
    std::string caseName;
    std::vector<std::string> vectors; ///< for the table, as vectorsNamed takes them; empty for a choice of ours
    std::string chartDirectory;       ///< for all pictures; empty for none
    MapChoice maps{{"SWAT", "PRESSURE", "PERMX"}, 0, {}};
    ProfileChoice profiles;
    int tableRows = 25;
    bool follow = false;
    bool cache = true; ///< use and write the summary's content cache
    std::chrono::milliseconds interval{500};
    std::chrono::seconds patience{30}; ///< how long a followed case may stand still
    bool help = false;
};

/// Throws std::invalid_argument with a text for the user if something can't be understood.
Options parseOptions(int argumentCount, const char* const* arguments);

extern const char* const usage;

} // namespace casereport
