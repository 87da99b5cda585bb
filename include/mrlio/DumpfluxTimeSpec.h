#pragma once

#include <mrlio/Export.h>

namespace Kvt::Mrl::MrlIO {

/// The time range of one block of a dumpflux file, with the averages of the reservoir at its end in the units of the
/// grid. A plain value, checked at construction.
class MRLIO_EXPORT DumpfluxTimeSpec
{
public:
    /// startTime, endTime   days since the start of the case
    /// throws               std::invalid_argument if the end lies before the start, if either isn't a number, or if
    ///                      either is negative. The averages are stored as they are.
    DumpfluxTimeSpec(double startTime, double endTime, int reportNumber, double averageReservoirPressure,
                     double averageReservoirRs, double averageReservoirRv);

    double getStartTime() const { return startTime_; }

    double getEndTime() const { return endTime_; }

    int getReportNumber() const { return reportNumber_; }

    double getAverageReservoirPressure() const { return averageReservoirPressure_; }

    double getAverageReservoirRs() const { return averageReservoirRs_; }

    double getAverageReservoirRv() const { return averageReservoirRv_; }

private:
    double startTime_;
    double endTime_;
    int reportNumber_;
    double averageReservoirPressure_;
    double averageReservoirRs_;
    double averageReservoirRv_;
};

} // namespace Kvt::Mrl::MrlIO
