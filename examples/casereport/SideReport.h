#pragma once

#include "PictureFolder.h"
#include "SideFiles.h"
#include "WellProfiles.h"

#include <iosfwd>
#include <string>

namespace casereport {

/// What lies beside summary and cells: well results, derivatives, flows, messages. A file that proves to be damaged is complained of,
/// and doesn't keep the others from being shown.
void printSideFiles(std::ostream& out, const SideFiles& files, int mostRows);

/// Pictures of well results, and of derivatives and flows if there is a summary, which has the dates that the others lack.
///
/// summary   may be null
/// out       for what can't be drawn
void drawSideFiles(const SideFiles& files, const ProfileChoice& choice,
                   const Kvt::Mrl::MrlIO::ISimpleSummaryReader* summary, const std::string& caseName,
                   PictureFolder& folder, std::ostream& out);

} // namespace casereport
