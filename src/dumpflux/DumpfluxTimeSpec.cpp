#include <mrlio/DumpfluxTimeSpec.h>

#include <stdexcept>

namespace Kvt::Mrl::MrlIO {

DumpfluxTimeSpec::DumpfluxTimeSpec(double startTime, double endTime, int reportNumber, double averageReservoirPressure,
                                   double averageReservoirRs, double averageReservoirRv)
    : startTime_(startTime),
      endTime_(endTime),
      reportNumber_(reportNumber),
      averageReservoirPressure_(averageReservoirPressure),
      averageReservoirRs_(averageReservoirRs),
      averageReservoirRv_(averageReservoirRv)
{
    if (!(startTime <= endTime)) // so that a time that is no number fails, too
        throw std::invalid_argument("The end time can not be less than the start time");
    if (startTime < 0.0 || endTime < 0.0)
        throw std::invalid_argument("The start and end times must be non-negative");
}

} // namespace Kvt::Mrl::MrlIO
