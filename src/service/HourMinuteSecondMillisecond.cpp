#include <mrlio/service/HourMinuteSecondMillisecond.h>

#include <mrlio/service/Exception.h>

namespace Kvt::Mrl::Core::Service {
namespace {
constexpr bool isBelow(int value, unsigned limit)
{
    return static_cast<unsigned>(value) < limit;
}

void require(bool isValid, const char* failure)
{
    if (!isValid)
        throw ServiceException(failure);
}
} // namespace

HourMinuteSecondMillisecond::HourMinuteSecondMillisecond(int hour, int minute, int second, int millisecond)
    : hour_(hour),
      minute_(minute),
      second_(second),
      millisecond_(millisecond)
{
    require(isBelow(hour, 24), "HourMinuteSecondMillisecond: invalid hour value");
    // Minutes have no upper limit: kept, since callers pass on what older files hold.
    require(minute >= 0, "HourMinuteSecondMillisecond: invalid minute value");
    require(isBelow(second, 60), "HourMinuteSecondMillisecond: invalid second value");
    require(isBelow(millisecond, 1000), "HourMinuteSecondMillisecond: invalid millisecond value");
}
} // namespace Kvt::Mrl::Core::Service
