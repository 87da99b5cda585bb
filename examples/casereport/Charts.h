#pragma once

#include "PictureFolder.h"
#include "SvgChart.h"

#include <mrlio/MrlIO.h>

#include <string>
#include <vector>

namespace casereport {

/// The charts that a case's vectors give: field rates and totals, water cuts, wells, regions, blocks.
std::vector<Chart> makeCharts(const Kvt::Mrl::MrlIO::ISimpleSummaryReader& reader, const std::string& caseName);

/// Puts a picture of each into the folder.
void writeCharts(const Kvt::Mrl::MrlIO::ISimpleSummaryReader& reader, const std::string& caseName,
                 PictureFolder& folder);

} // namespace casereport
