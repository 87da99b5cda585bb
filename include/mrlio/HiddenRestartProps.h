#pragma once

#include <mrlio/Export.h>

#include <set>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// Which arrays of init and restart files are never properties of cells, however many values they have: headers, wells,
/// groups, aquifers and the marks between grids.
class MRLIO_EXPORT HiddenRestartProps
{
public:
    HiddenRestartProps() = delete;

    /// All their names; valid for the life of the process.
    static const std::set<std::string>& hiddenGridProps();

    /// Whether the name is one of them. Letter case counts.
    static bool isNotAPropertyArray(const std::string& name);
};

} // namespace Kvt::Mrl::MrlIO
