#pragma once

#include "files/FileStamp.h"
#include "summary/SummaryScan.h"

#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <string>
#include <unordered_map>

namespace Kvt::Mrl::MrlIO {

/// Stamps of data files by their names without directory.
using FileStamps = std::unordered_map<std::string, FileStamp>;

/// Writes the cache as SummaryContentIndexCache::save does. Files without a stamp in stamps are written with the one
/// that they have now.
bool saveContentIndex(const Service::FileName& cache, int numVectors, const SummaryReportSteps& reportSteps,
                      const FileStamps& stamps);

} // namespace Kvt::Mrl::MrlIO
