#pragma once

#include "PictureFolder.h"

#include <mrlio/MrlIO.h>

#include <string>
#include <vector>

namespace casereport {

/// Which profiles are wanted.
struct ProfileChoice
{
    std::vector<std::string> wells;                            ///< empty for all
    std::vector<Kvt::Mrl::MrlIO::Service::YearMonthDay> dates; ///< empty for some that are spread evenly
};

/// Puts a picture of each well into the folder: pressure, saturations and inflow against depth, a line for each date.
///
/// returns   wells and dates that were asked for, but that the file doesn't have
std::vector<std::string> writeProfiles(const Kvt::Mrl::MrlIO::RFTReader& reader, const ProfileChoice& choice,
                                       const std::string& caseName, PictureFolder& folder);

} // namespace casereport
