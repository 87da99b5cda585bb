#pragma once

#include "wellresults/CacheSections.h"
#include "wellresults/hmd/HMDArrayNameCategorizer.h"
#include "wellresults/hmd/HMDKeywords.h"

#include <mrlio/GRFTParameter.h>

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// What a file of history match data holds. There are no dates, no units, and no lists of arrays per well.
struct HMDContent
{
    bool isFileEncoded = false;

    // One per report, in file order: its time and step, and where its TIMESTEP stands.
    std::vector<double> times;
    std::vector<double> timeSteps;
    std::vector<std::int64_t> offsets;

    std::set<HMDParameter> parameters; // of equal ones the type that came first
    std::set<std::string> wellNames;
    std::set<std::string> groupNames;
    std::vector<std::string> wellQuantities;
    std::vector<std::string> groupQuantities;

    HMDArrayNamesCollections arrayNames;
    ArrayTypes arrayTypes; // where a name is met first

    void addReport(const HMDTimeStep& report, std::int64_t offset)
    {
        times.push_back(report.time);
        timeSteps.push_back(report.step);
        offsets.push_back(offset);
    }
};

} // namespace Kvt::Mrl::MrlIO
