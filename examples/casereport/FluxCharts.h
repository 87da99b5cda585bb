#pragma once

#include "Dates.h"
#include "PictureFolder.h"

#include <mrlio/MrlIO.h>

#include <string>

namespace casereport {

/// Puts a picture of each region into the folder: what flows out of it over time.
void writeFluxCharts(const Kvt::Mrl::MrlIO::DumpfluxReader& reader, const CaseCalendar& calendar,
                     const std::string& caseName, PictureFolder& folder);

} // namespace casereport
