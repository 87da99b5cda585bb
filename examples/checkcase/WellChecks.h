#pragma once

#include "Comparison.h"

#include <mrlio/MrlIO.h>

namespace checkcase {

/// Pressures and saturations along the wells against those of the same cells in the restart step of the date.
void compareWithCells(const Kvt::Mrl::MrlIO::RFTReader& wells, Kvt::Mrl::MrlIO::RestartReader& steps,
                      Comparison& comparison);

/// The rates of each well's connections, taken together, against the rate of the well in the summary.
void compareWithSummary(const Kvt::Mrl::MrlIO::RFTReader& wells, const Kvt::Mrl::MrlIO::ISimpleSummaryReader& summary,
                        Comparison& comparison);

} // namespace checkcase
