#pragma once

#include "initrestart/write/RestartClock.h"

#include <mrlio/KeywordWriter.h>

#include <vector>

/// \file
/// What stands in the index files INSPEC and RSSPEC in front of the sections of the grids.

namespace Kvt::Mrl::MrlIO {

/// INTEHEAD, which leads a new index file, once.
/// integers   that of the global grid, as it stands in the data file
void writeIndexHeader(KeywordWriter& writer, const std::vector<int>& integers);

/// TIME and ITIME, which lead each report step of an RSSPEC.
/// formatted   the form of the files
/// throws      std::runtime_error for noUnitSystem, before anything is written
void writeIndexTime(KeywordWriter& writer, const RestartClock& clock, UnitSystemType::Enum units, bool formatted);

} // namespace Kvt::Mrl::MrlIO
