#include <mrlio/service/HourMinuteSecondMillisecond.h>

#include <mrlio/service/Exception.h>

#include "service/CivilDate.h"

namespace Kvt::Mrl::Core::Service {
HourMinuteSecondMillisecond::HourMinuteSecondMillisecond(int hour, int minute, int second, int millisecond)
    : hour_(hour),
      minute_(minute),
      second_(second),
      millisecond_(millisecond)
{
    if (!isTimeOfDay(hour, minute, second, millisecond))
        throw ServiceException("HourMinuteSecondMillisecond: no such time of day: hour " + std::to_string(hour) +
                               ", minute " + std::to_string(minute) + ", second " + std::to_string(second) +
                               ", millisecond " + std::to_string(millisecond));
}
} // namespace Kvt::Mrl::Core::Service
