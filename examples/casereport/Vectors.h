#pragma once

#include <mrlio/MrlIO.h>

#include <string>
#include <vector>

namespace casereport {

using Kvt::Mrl::MrlIO::SummaryVectorIDParams;

/// All vectors of a keyword, in the order of the spec file.
std::vector<SummaryVectorIDParams> vectorsOf(const Kvt::Mrl::MrlIO::ISummaryReader& reader, const std::string& keyword);

/// The vectors that a text asks for: KEYWORD for all of them, KEYWORD:NAME or KEYWORD:NUMBER for one.
std::vector<SummaryVectorIDParams> vectorsNamed(const Kvt::Mrl::MrlIO::ISummaryReader& reader, const std::string& text);

/// What tells a vector from others of its keyword: well, group, number, local grid; empty for field vectors.
std::string placeOf(const SummaryVectorIDParams& vector);

/// Keyword and place, as in WOPR:PROD1.
std::string labelOf(const SummaryVectorIDParams& vector);

} // namespace casereport
