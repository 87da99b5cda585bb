#pragma once

#include "initrestart/read/StepWalk.h"

#include <mrlio/SpecStatsData.h>

#include <map>
#include <memory>
#include <string>

/// \file
/// The arrays between two local grids, of which an index file knows nothing.

namespace Kvt::Mrl::MrlIO {

/// The rows of each pair of local grids, by pairKey.
using LgrPairMap = std::map<std::string, std::shared_ptr<SpecStatsData>>;

/// "A + B", the two names in sorted order.
std::string pairKey(const std::string& lgr, const std::string& lgr2);

/// Finds the arrays between local grids in one step: those from an LGRJOIN, which names the two grids, up to the next
/// LGR, ENDLGR or LGRSGONE. LGRJOIN itself is the first of them. The rows have minima and maxima, so that each of these
/// arrays is read.
/// reader   on the step's file, standing anywhere
/// throws   MrlIOException for a damaged file
LgrPairMap readLgrPairs(MorvaneReader& reader, const StepRange& range);

} // namespace Kvt::Mrl::MrlIO
