#pragma once

#include <mrlio/MrlIO.h>

#include <iosfwd>

namespace casereport {

/// What a file of gradients holds, and on its last date the means along the wells.
void printGradients(std::ostream& out, const Kvt::Mrl::MrlIO::GRFTReader& reader);

/// What a file of history match data holds, and at its last time all values and derivatives.
void printMatchData(std::ostream& out, const Kvt::Mrl::MrlIO::HMDReader& reader);

} // namespace casereport
