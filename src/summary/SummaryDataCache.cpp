#include "summary/SummaryDataCache.h"

#include <mrlio/MrlIOException.h>

#include <cstddef>

namespace Kvt::Mrl::MrlIO {

const std::vector<float>& SummaryDataCache::timeStepDays()
{
    if (!hasTimeStepDays_) {
        const auto times = loader_.getData(spec_.timesVectorID());
        timeStepDays_ = times ? *times : std::vector<float>();
        hasTimeStepDays_ = true;
    }
    return timeStepDays_;
}

const std::vector<float>& SummaryDataCache::reportStepDays()
{
    if (!hasReportStepDays_) {
        reportStepDays_ = lastTimes();
        hasReportStepDays_ = true;
    }
    return reportStepDays_;
}

/// By running count, since the number of a mini step may come again in another report step.
std::vector<float> SummaryDataCache::lastTimes()
{
    std::vector<float> last;
    const std::size_t miniSteps = index_.miniStepCount();
    const std::vector<float>& times = timeStepDays();
    if (times.size() != miniSteps)
        return last;
    last.reserve(index_.reportSteps().size());
    std::size_t passed = 0;
    for (const auto& reportStep : index_.reportSteps()) {
        if (reportStep->miniSteps().empty())
            throw SummaryReaderException("SummaryDataCache::reportStepDays: empty report step");
        passed += reportStep->miniSteps().size();
        last.push_back(times[passed - 1]);
    }
    return last;
}

void SummaryDataCache::reset()
{
    hasTimeStepDays_ = false;
    hasReportStepDays_ = false;
}

} // namespace Kvt::Mrl::MrlIO
