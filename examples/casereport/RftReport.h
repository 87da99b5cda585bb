#pragma once

#include <mrlio/MrlIO.h>

#include <iosfwd>

namespace casereport {

/// What a file of well results holds: units, arrays, dates (some of them, if there are more than rows), and the wells
/// with what they do on the last date.
void printWellResults(std::ostream& out, const Kvt::Mrl::MrlIO::RFTReader& reader, int mostRows);

} // namespace casereport
