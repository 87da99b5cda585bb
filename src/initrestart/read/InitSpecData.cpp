#include "initrestart/read/SpecData.h"

namespace Kvt::Mrl::MrlIO {

bool InitSpecData::processIndexFileKeywordHeader(MorvaneReader&, const KeywordHeader&)
{
    return false;
}

SpecStatsData* InitSpecData::currentStats()
{
    if (currentStats_ == nullptr)
        currentStats_ = &currentIndex()->stats;
    return currentStats_;
}

void InitSpecData::setCurrentStats(SpecStatsData* stats)
{
    currentStats_ = stats;
}

SpecIndexData* InitSpecData::currentIndex()
{
    if (!index_)
        index_ = std::make_shared<SpecIndexData>();
    return index_.get();
}

/// All files of an init case make one index.
void InitSpecData::startStep() {}

void InitSpecData::finishRead()
{
    if (index_)
        index_->compact();
    currentStats_ = nullptr;
}

void InitSpecData::clear()
{
    index_.reset();
    currentStats_ = nullptr;
}

} // namespace Kvt::Mrl::MrlIO
