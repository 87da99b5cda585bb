#include "initrestart/read/TimeVariantData.h"

#include <mrlio/RestartKeywordAccess.h>
#include <mrlio/UnitSystemType.h>
#include <mrlio/service/Exception.h>

#include <vector>

namespace Kvt::Mrl::MrlIO {

namespace {

void takeTimeFromDoubhead(StepHeaders& headers, bool lab, Service::HourMinuteSecondMillisecond& time)
{
    std::vector<double> doubhead;
    if (!headers.doubhead(doubhead))
        return;
    try {
        RestartKeywordAccess::getDOUBHEADTime(doubhead, lab, time);
    } catch (const Service::ServiceException&) {
        // No time of day, as in a scan; the date holds all the same.
    }
}

} // namespace

TimeVariantData readTimeVariantData(StepHeaders& headers)
{
    TimeVariantData data;
    std::vector<int> intehead;
    if (!headers.intehead(intehead, {}))
        return data;
    RestartKeywordAccess::getINTEHEADDate(intehead, data.date);
    if (!RestartKeywordAccess::getINTEHEADTime(intehead, data.time)) {
        const bool lab = RestartKeywordAccess::getINTEHEADUnitSystem(intehead) == UnitSystemType::LAB;
        takeTimeFromDoubhead(headers, lab, data.time);
    }
    return data;
}

} // namespace Kvt::Mrl::MrlIO
