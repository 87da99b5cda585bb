#pragma once

#include "initrestart/read/StepHeaders.h"

#include <mrlio/service/HourMinuteSecondMillisecond.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/YearMonthDay.h>

namespace Kvt::Mrl::MrlIO {

/// When a step was; default values where its headers don't tell.
struct TimeVariantData
{
    Service::YearMonthDay date;
    Service::HourMinuteSecondMillisecond time;
};

/// Takes date and time of day from INTEHEAD, and a time of day that isn't there from DOUBHEAD.
/// throws   RestartReaderException or MrlIOException if the headers can't be read or INTEHEAD holds no date
TimeVariantData readTimeVariantData(StepHeaders& headers);

} // namespace Kvt::Mrl::MrlIO
