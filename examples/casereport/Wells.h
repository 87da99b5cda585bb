#pragma once

#include <mrlio/MrlIO.h>

#include <string>
#include <vector>

namespace casereport {

/// A well as a report step holds it.
struct CaseWell
{
    std::string name;
    int i = 0, j = 0; ///< of its first connection, from 1
    int connections = 0;
    bool isInjector = false;
    bool isOpen = false;
    int segmentedNumber = 0; ///< among the multi-segment wells, from 1; 0 for other wells
};

/// The wells of a step in a grid, the whole one for an empty name; none where the step holds none. Walks the headers of
/// the step's file up to it. Throws MrlIOException if the file is damaged.
std::vector<CaseWell> wellsAt(const Kvt::Mrl::MrlIO::RestartReader& steps, int step, const std::string& grid = {});

} // namespace casereport
