#pragma once

#include "Comparison.h"

#include <mrlio/MrlIO.h>

namespace checkcase {

/// A gradient has a value for each connection that its well has at the date in the well results, in the same cells.
void compareWithWells(const Kvt::Mrl::MrlIO::GRFTReader& gradients, const Kvt::Mrl::MrlIO::RFTReader& wells,
                      Comparison& comparison);

/// Both tell of the same wells and parameters, at the same times.
void compareWithGradients(const Kvt::Mrl::MrlIO::HMDReader& matchData, const Kvt::Mrl::MrlIO::GRFTReader& gradients,
                          Comparison& comparison);

/// The values of wells and field against the vectors of the summary.
void compareWithSummary(const Kvt::Mrl::MrlIO::HMDReader& matchData,
                        const Kvt::Mrl::MrlIO::ISimpleSummaryReader& summary, Comparison& comparison);

/// The rates of the wells come to those of the field, and so do their derivatives. In the end these depend on each
/// parameter.
void compareWithField(const Kvt::Mrl::MrlIO::HMDReader& matchData, Comparison& comparison);

} // namespace checkcase
