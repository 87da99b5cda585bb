#pragma once

#include "Comparison.h"

#include <mrlio/MrlIO.h>

#include <string>

namespace checkcase {

/// What leaves one region has to come into another: the net flows out of all regions come to nothing.
void compareRegions(const Kvt::Mrl::MrlIO::DumpfluxReader& fluxes, Comparison& comparison);

/// What the wells have produced and injected in all, against the totals of the summary.
void compareWithSummary(const Kvt::Mrl::MrlIO::DumpfluxReader& fluxes,
                        const Kvt::Mrl::MrlIO::ISimpleSummaryReader& summary, Comparison& comparison);

/// What the regions have given to their surroundings, against what the run says of it in its message file.
void compareWithMessages(const Kvt::Mrl::MrlIO::DumpfluxReader& fluxes, const std::string& messageFile,
                         Comparison& comparison);

} // namespace checkcase
