#pragma once

#include <mrlio/SpecStatsData.h>
#include <mrlio/service/HourMinuteSecondMillisecond.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/YearMonthDay.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The table of contents of one report step, or of an init file.
struct SpecIndexData
{
    double time = 0.0; ///< as the file has it
    int seqnum = -1;   ///< -1 until known
    bool hasDate = false;
    bool hasTime = false;
    Service::YearMonthDay date;
    Service::HourMinuteSecondMillisecond timeOfDay;
    SpecStatsData stats;               ///< of the global grid
    std::vector<std::string> lgrNames; ///< in order of first appearance
    std::map<std::string, std::shared_ptr<SpecStatsData>> lgrStats;

    /// The rows of a grid, the global one for an empty name; null if there is no such grid.
    const SpecStatsData* find(const std::string& lgr) const;

    /// The rows of a local grid, which is added if it is new; of the global one for an empty name.
    SpecStatsData& local(const std::string& lgr);

    /// Brings the tables of all grids into the form that readers rely on; see compactRows.
    void compact();
};

/// Cuts the columns to the shortest one, extrema left out, and these to the same length, with 0 for what is missing.
/// Then takes rows without a name out.
void compactRows(SpecStatsData& rows);

} // namespace Kvt::Mrl::MrlIO
