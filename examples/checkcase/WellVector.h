#pragma once

#include <mrlio/MrlIO.h>

#include <string>
#include <vector>

namespace checkcase {

/// What the summary holds of a well or group under a keyword, or without a name of the field: one value for each mini
/// step; empty if there is no such vector.
std::vector<float> wellVector(const Kvt::Mrl::MrlIO::ISimpleSummaryReader& summary, const std::string& keyword,
                              const std::string& well);

} // namespace checkcase
