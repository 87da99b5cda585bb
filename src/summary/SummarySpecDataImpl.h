#pragma once

#include "summary/InternedTexts.h"
#include "summary/VectorPlaces.h"

#include <mrlio/SummaryVectorIDParams.h>
#include <mrlio/service/HourMinuteSecondMillisecond.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/YearMonthDay.h>

#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// What a specification file says by itself, whatever its vectors are.
struct SpecDescription
{
    std::string path;
    bool formatted = false;
    std::vector<int> intehead;
    int nx = 0;
    int ny = 0;
    int nz = 0;
    std::uint32_t checksum = 0;
    bool hasTimeStampOrRunTime = false;
    std::string restart;
    Service::YearMonthDay startDate;
    Service::HourMinuteSecondMillisecond startTime;
    std::vector<std::string> lgrNames;
};

using PlaceRuns = std::vector<std::pair<int, int>>;
using PlaceRunsByKeyword = std::unordered_map<std::string, PlaceRuns>;

/// The content of a SummarySpecData, shared by its copies.
class SummarySpecDataImpl
{
public:
    SummarySpecDataImpl() : places(ids) {}

    SpecDescription description;
    std::vector<SummaryVectorIDParams> ids;
    VectorPlaces places;
    int timePlace = -1; // of the first vector named TIME
    PlaceRunsByKeyword runs;
    InternedTexts units; // one per vector, or empty
    InternedTexts measurements;

    /// Takes the vectors and makes the look-up by identity.
    void setVectors(std::vector<SummaryVectorIDParams> vectors);
};

} // namespace Kvt::Mrl::MrlIO
