#pragma once

#include "summary/SummaryContentIndex.h"

#include <mrlio/ISummaryDataLoader.h>

#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The two time axes of a case. The vectors live as long as the cache and are refilled in place: references to them are
/// in the hands of callers.
class SummaryDataCache
{
public:
    SummaryDataCache(const SummarySpecData& spec, const SummaryContentIndex& index, const ISummaryDataLoader& loader)
        : spec_(spec),
          index_(index),
          loader_(loader)
    {}

    /// The values of TIME, one per mini step; empty in a case without.
    const std::vector<float>& timeStepDays();
    /// The value of TIME at the last mini step of each report step.
    const std::vector<float>& reportStepDays();

    /// Both are refilled when they are asked for next.
    void reset();

private:
    std::vector<float> lastTimes();

    const SummarySpecData& spec_;
    const SummaryContentIndex& index_;
    const ISummaryDataLoader& loader_;
    std::vector<float> timeStepDays_;
    std::vector<float> reportStepDays_;
    bool hasTimeStepDays_ = false;
    bool hasReportStepDays_ = false;
};

} // namespace Kvt::Mrl::MrlIO
