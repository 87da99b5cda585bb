#pragma once

#include "SvgChart.h"

#include <mrlio/MrlIO.h>

#include <string>
#include <vector>

namespace casereport {

/// The charts that a case's vectors give: field rates and totals, water cuts, wells, regions, blocks.
std::vector<Chart> makeCharts(const Kvt::Mrl::MrlIO::ISimpleSummaryReader& reader, const std::string& caseName);

/// Writes a file per chart and an index.html that shows them all; gives the names of the pictures. Throws
/// std::runtime_error if a file can't be written. Pictures appear whole: they are written aside and renamed.
std::vector<std::string> writeCharts(const Kvt::Mrl::MrlIO::ISimpleSummaryReader& reader, const std::string& caseName,
                                     const std::string& directory);

} // namespace casereport
