#include <mrlio/service/YearMonthDay.h>

#include <mrlio/service/Exception.h>

#include "service/CivilDate.h"

namespace Kvt::Mrl::Core::Service {
YearMonthDay::YearMonthDay(long year, int month, int day)
{
    if (!isDate(year, month, day))
        throw ServiceException("YearMonthDay: no such day: year " + std::to_string(year) + ", month " +
                               std::to_string(month) + ", day " + std::to_string(day));
    year_ = year;
    month_ = static_cast<unsigned short>(month);
    day_ = static_cast<unsigned short>(day);
}
} // namespace Kvt::Mrl::Core::Service
