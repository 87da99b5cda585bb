#pragma once

#include <mrlio/MrlIO.h>

#include <string>
#include <vector>

namespace casereport {

/// What flows out of a region through all of its connections together, by one array of a flux file.
struct NetFlow
{
    std::string array;
    std::vector<double> rates; ///< one for each time range
    double total = 0.0;        ///< of all time ranges: rate times days
    std::size_t connections = 0;
};

/// The regions whose flows are worth showing: 0 is what lies around all others, if there are any.
std::vector<int> regionsToShow(const Kvt::Mrl::MrlIO::DumpfluxReader& reader);

/// A flow for each array of the file; none if the file holds pressures.
std::vector<NetFlow> netFlowsOut(const Kvt::Mrl::MrlIO::DumpfluxReader& reader, int region);

/// In which units the rates are, and what comes together by them.
std::string rateUnits(const Kvt::Mrl::MrlIO::DumpfluxReader& reader);
std::string volumeUnits(const Kvt::Mrl::MrlIO::DumpfluxReader& reader);

} // namespace casereport
