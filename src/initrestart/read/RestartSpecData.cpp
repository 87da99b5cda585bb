#include "initrestart/read/SpecData.h"
#include "initrestart/read/SpecDataArrays.h"

#include <mrlio/RestartKeywordAccess.h>
#include <mrlio/service/Exception.h>

#include <cstddef>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr const char* readFailure = "Kvt::Mrl::MrlIO::RestartSpecData::processIndexFileKeywordHeader: error reading ";

/// Words that are no date or no time of day leave the case readable.
template <class Take>
bool takeIfSound(Take take)
{
    try {
        return take();
    } catch (const Service::ServiceException&) {
        return false;
    }
}

bool increases(const std::vector<std::shared_ptr<SpecIndexData>>& steps)
{
    int last = -1;
    for (const auto& step : steps) {
        if (step->seqnum < 0)
            continue;
        if (step->seqnum <= last)
            return false;
        last = step->seqnum;
    }
    return true;
}

} // namespace

bool RestartSpecData::processIndexFileKeywordHeader(MorvaneReader& reader, const KeywordHeader& header)
{
    if (header.name() == "TIME")
        readTime(reader, header);
    else if (header.name() == "ITIME")
        readItime(reader, header);
    else
        return false;
    return true;
}

void RestartSpecData::readTime(MorvaneReader& reader, const KeywordHeader& header)
{
    readFilledArray(reader, header, timeWords_, readFailure);
    startStep();
    currentIndex()->time = RestartKeywordAccess::getTIME(timeWords_);
}

void RestartSpecData::readItime(MorvaneReader& reader, const KeywordHeader& header)
{
    if (currentStep_ == nullptr)
        return;
    readFilledArray(reader, header, itimeWords_, readFailure);
    SpecIndexData& step = *currentStep_;
    step.seqnum = RestartKeywordAccess::getITIMEIndex(itimeWords_);
    step.hasDate = takeIfSound([&] { return RestartKeywordAccess::getITIMEDate(itimeWords_, step.date); });
    step.hasTime = takeIfSound([&] { return RestartKeywordAccess::getITIMETime(itimeWords_, step.timeOfDay); });
}

SpecStatsData* RestartSpecData::currentStats()
{
    if (currentStats_ == nullptr)
        currentStats_ = &currentIndex()->stats;
    return currentStats_;
}

void RestartSpecData::setCurrentStats(SpecStatsData* stats)
{
    currentStats_ = stats;
}

SpecIndexData* RestartSpecData::currentIndex()
{
    if (currentStep_ == nullptr)
        currentStep_ = stepsRead_.emplace_back(std::make_shared<SpecIndexData>()).get();
    return currentStep_;
}

void RestartSpecData::startStep()
{
    currentStep_ = nullptr;
    currentStats_ = nullptr;
}

void RestartSpecData::finishRead()
{
    // A step number may be anything up to two thousand million, hence a map. Steps without a number are no steps.
    const bool byNumber = increases(stepsRead_);
    for (int place = 0; place < std::ssize(stepsRead_); ++place) {
        auto& step = stepsRead_[static_cast<std::size_t>(place)];
        step->compact();
        if (step->seqnum >= 0)
            steps_.emplace_hint(steps_.end(), byNumber ? step->seqnum : place, std::move(step));
    }
    if (!byNumber) {
        minIndex_ = 0;
        maxIndex_ = static_cast<int>(stepsRead_.size()) - 1;
    } else if (!steps_.empty()) {
        minIndex_ = steps_.begin()->first;
        maxIndex_ = steps_.rbegin()->first;
    }
    startStep();
    stepsRead_ = {};
}

void RestartSpecData::clear()
{
    startStep();
    stepsRead_.clear();
    steps_.clear();
    minIndex_ = -1;
    maxIndex_ = -1;
}

const SpecIndexData* RestartSpecData::step(int index) const
{
    const auto entry = steps_.find(index);
    return entry != steps_.end() ? entry->second.get() : nullptr;
}

} // namespace Kvt::Mrl::MrlIO
