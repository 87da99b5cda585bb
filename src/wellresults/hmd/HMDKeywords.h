#pragma once

#include "wellresults/KeywordScan.h"

#include <mrlio/MrlIOException.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <string>
#include <vector>

/// \file
/// The keywords of history match data that scan and load understand. A file holds
///
///     CODESTAT ... GRADWELL GRADGRUP ...              the preamble
///     TIMESTEP                                        begins a report
///         NAMES or GNAMES, HMHEADI, DERIVS, VALUES    of a well or a group and a parameter
///         ...
///     TIMESTEP ...

namespace Kvt::Mrl::MrlIO {

namespace HMDKeyword {
inline constexpr const char* CODESTAT = "CODESTAT";
inline constexpr const char* TIMESTEP = "TIMESTEP";
inline constexpr const char* GRADWELL = "GRADWELL";
inline constexpr const char* GRADGRUP = "GRADGRUP";
inline constexpr const char* NAMES = "NAMES";
inline constexpr const char* GNAMES = "GNAMES";
inline constexpr const char* HMHEADI = "HMHEADI";
inline constexpr const char* DERIVS = "DERIVS";
inline constexpr const char* VALUES = "VALUES";
} // namespace HMDKeyword

using HMDWalk = KeywordScan<HMDReaderException>;

bool isFormattedHMD(const Service::FileName& file);

struct HMDTimeStep
{
    double time;
    double step;
};

/// The TIMESTEP at which a walk stands.
/// throws   HMDReaderException if it is too short
HMDTimeStep readTimeStep(HMDWalk& walk);

/// The NAMES or GNAMES at which a walk stands, with a well or a group in NamesText::owner; good as long as the walk's
/// strings.
/// parameter   becomes the name of the parameter that stands beside it
/// throws      HMDReaderException if the keyword is too short, or the name of the well or group is empty
const std::vector<std::string>& readNames(HMDWalk& walk, std::string& parameter);

} // namespace Kvt::Mrl::MrlIO
