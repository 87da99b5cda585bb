#pragma once

#include <mrlio/MrlIO.h>

#include <iosfwd>

namespace casereport {

/// What a flux file holds: regions, connections, time ranges, arrays and wells, and what flows out of each region over
/// time, in rows for some of the time ranges if there are more.
void printFluxes(std::ostream& out, const Kvt::Mrl::MrlIO::DumpfluxReader& reader, int mostRows);

} // namespace casereport
