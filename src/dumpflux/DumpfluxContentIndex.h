#pragma once

#include <mrlio/DumpfluxBoundaryType.h>
#include <mrlio/UnitSystemType.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/SimulatorType.h>

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// What a dump tells about itself, and where its time ranges stand: the result of one walk over the file, in which only
/// the small keywords are read. It doesn't change afterwards.
struct DumpfluxContentIndex
{
    /// Stays empty if the file isn't there.
    /// throws   MrlIOException if the file is damaged or begins with no keyword
    explicit DumpfluxContentIndex(const Service::FileName& dump);

    /// The time range that a time lies in, found by exact comparison; -1 for none. Of ranges that overlap the first one
    /// counts. A range that ends where it starts holds nothing, unless it is the first or the last.
    std::ptrdiff_t rangeAt(double time) const;

    Service::FileName file;

    // One entry per time range, in file order.
    std::vector<double> startTimes;
    std::vector<double> endTimes;
    std::vector<double> averagePressure;
    std::vector<double> averageRs;
    std::vector<double> averageRv;
    std::vector<int> reportNumbers;
    std::vector<std::int64_t> positions;     // of DTIME
    std::vector<std::int64_t> lastPositions; // of the last keyword with data of the range; -1 while it may still grow

    DumpfluxBoundaryType::Enum boundaryType = DumpfluxBoundaryType::UNKNOWN;
    Keywords::SimulatorType::Enum simulatorType = Keywords::SimulatorType::Unknown;
    std::string restartName;
    int restartNumber = -1;
    int simulatorVersion = -1;
    UnitSystemType::Enum unitSystem = static_cast<UnitSystemType::Enum>(4);
    int numComponents = -1;
    int maximumNumberWells = -1;
    int nx = -1;
    int ny = -1;
    int nz = -1;
    bool isRadial = false;
    std::set<std::string> dataArrayNames;
    std::set<std::string> wellDataArrayNames;
    std::set<std::string> wellNames;

private:
    void noticeOrder();

    bool isOrdered_ = false; // neither starts nor ends go backwards
};

} // namespace Kvt::Mrl::MrlIO
