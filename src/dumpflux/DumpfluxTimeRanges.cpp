#include "dumpflux/DumpfluxTimeRanges.h"

#include <cmath>
#include <stdexcept>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr double tolerance = 1e-5;

/// Relative to the new time unless that is about zero.
bool isSameTime(double time, double earlier)
{
    if (time == earlier)
        return true; // also where the difference is no number, as between infinite times
    double difference = time - earlier;
    if (std::fabs(time) > tolerance)
        difference /= time;
    return std::fabs(difference) < tolerance;
}

bool isWithin(double time, const DumpfluxTimeSpec& range)
{
    return time > range.getStartTime() && time < range.getEndTime();
}

/// A range that has one bound in common with an earlier one, and goes beyond it at the other end, breaks none of the
/// rules. That is kept so.
void checkPair(const DumpfluxTimeSpec& added, const DumpfluxTimeSpec& earlier)
{
    const double start = added.getStartTime();
    const double end = added.getEndTime();
    if (isWithin(start, earlier) || isWithin(end, earlier))
        throw std::invalid_argument("The TimeSpec ranges can not overlap previous entries to the dumpflux file. This "
                                    "entry has not been written.");
    if (isSameTime(start, earlier.getStartTime()) && isSameTime(end, earlier.getEndTime()))
        throw std::invalid_argument("The same time range can not be specified twice in the same dumpflux file. This "
                                    "entry has not been written.");
    if (earlier.getStartTime() > start && end > earlier.getEndTime())
        throw std::invalid_argument("A time range can not completely overlap a previously added time range. This "
                                    "entry has not been written.");
}

} // namespace

void DumpfluxTimeRanges::check(const DumpfluxTimeSpec& timeSpec) const
{
    for (const DumpfluxTimeSpec& earlier : timeSpecs_)
        checkPair(timeSpec, earlier);
}

} // namespace Kvt::Mrl::MrlIO
