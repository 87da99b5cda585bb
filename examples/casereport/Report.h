#pragma once

#include <mrlio/MrlIO.h>

#include <iosfwd>
#include <string>
#include <vector>

namespace casereport {

/// Which files of the case are there, by kind and form.
void printFiles(std::ostream& out, const std::string& directory, const std::string& caseName);

/// Grid, dates, steps, and how many vectors of each kind there are with their keywords and units.
void printSummary(std::ostream& out, const Kvt::Mrl::MrlIO::ISimpleSummaryReader& reader);

/// Vectors over time, a row per report step or, if there are more of these than rows, of some of them.
void printTable(std::ostream& out, const Kvt::Mrl::MrlIO::ISimpleSummaryReader& reader,
                const std::vector<std::string>& vectors, int mostRows);

} // namespace casereport
