#pragma once

#include "PictureFolder.h"

#include <mrlio/MrlIO.h>

#include <cstddef>
#include <optional>
#include <string>

namespace casereport {

/// The mean of a gradient over the cells of a well; none if it has none at the date of that index.
std::optional<double> meanGradient(const Kvt::Mrl::MrlIO::GRFTReader& reader, const std::string& gradient,
                                   const Kvt::Mrl::MrlIO::GRFTParameter& parameter, const std::string& well,
                                   std::size_t date);

/// The derivative of a quantity of a well or group; none if it has none at the time of that index.
std::optional<double> derivative(const Kvt::Mrl::MrlIO::HMDReader& reader, std::size_t quantity,
                                 const Kvt::Mrl::MrlIO::HMDParameter& parameter, const std::string& owner,
                                 std::size_t time);

/// Puts a picture for each of the first parameters into the folder: the mean derivative of the pressure of each well over
/// time.
void drawGradients(const Kvt::Mrl::MrlIO::GRFTReader& reader, const Kvt::Mrl::MrlIO::ISimpleSummaryReader& summary,
                   const std::string& caseName, PictureFolder& folder);

/// The same of the first quantity of the wells.
void drawMatchData(const Kvt::Mrl::MrlIO::HMDReader& reader, const Kvt::Mrl::MrlIO::ISimpleSummaryReader& summary,
                   const std::string& caseName, PictureFolder& folder);

} // namespace casereport
