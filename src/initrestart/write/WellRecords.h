#pragma once

#include "initrestart/write/WellRegistry.h"

#include <mrlio/KeywordWriter.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// The records of the wells that have connections in a grid: ISEG and ILBR if there are multi-segment wells, IWEL, ZWEL,
/// ICON. Nothing for a grid without wells. Files of report step 0 hold none, which is the caller's business.
/// gridIndex   the place of the grid in the order of writing, from 0
/// throws      as KeywordWriter::write does
void writeWellRecords(KeywordWriter& writer, const WellRegistry& wells, const std::string& gridName, int gridIndex);

} // namespace Kvt::Mrl::MrlIO
