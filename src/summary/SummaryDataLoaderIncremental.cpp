#include "summary/SummaryDataLoaderIncremental.h"

#include "summary/ParamsColumns.h"

#include <mrlio/service/AssertFailure.h>

namespace Kvt::Mrl::MrlIO {

SummaryDataLoaderIncremental::SummaryDataLoaderIncremental(const SummarySpecData& spec,
                                                           const SummaryContentIndex& index)
    : spec_(spec),
      index_(index),
      slots_(spec.allVectorIDs().size()),
      restarts_(index.restarts())
{}

std::shared_ptr<const std::vector<float>> SummaryDataLoaderIncremental::getData(const SummaryVectorIDParams& id) const
{
    const int place = spec_.index(id);
    if (place < 0)
        return nullptr;
    forgetDataOfOtherIndex();
    const Slot& slot = slots_[static_cast<std::size_t>(place)];
    const std::size_t already = slot ? slot->size() : 0;
    if (!slot || already < index_.miniStepCount()) {
        const auto from = findReportStepBehind(index_.reportSteps(), already);
        if (!from)
            Service::AssertFailure("inconsistent data", nullptr);
        addData(id.getVectorName(), already, *from);
    }
    if (!slot)
        Service::AssertFailure("data not fetched", nullptr);
    return slot;
}

void SummaryDataLoaderIncremental::addData(const std::string& keyword, std::size_t already,
                                           SummaryReportSteps::const_iterator from) const
{
    const auto& ranges = spec_.indexRange(keyword);
    if (ranges.empty())
        Service::AssertFailure(("index ranges cannot be found for vector " + keyword).c_str(), nullptr);
    ParamsColumns::Columns columns;
    for (const auto& [first, last] : ranges) {
        for (int place = first; place <= last; ++place)
            columns.push_back(&prepareSlot(static_cast<std::size_t>(place), already));
    }
    ParamsColumns params(index_, ranges, std::move(columns),
                         "SummaryDataLoaderIncremental::addData: fails to read PARAMS in ");
    params.append(from);
}

std::vector<float>& SummaryDataLoaderIncremental::prepareSlot(std::size_t place, std::size_t already) const
{
    Slot& slot = slots_[place];
    if (!slot && already == 0)
        slot = std::make_shared<std::vector<float>>();
    if (!slot || slot->size() != already)
        Service::AssertFailure("inconsistent data", nullptr);
    slot->reserve(index_.miniStepCount());
    return *slot;
}

/// Holders of the vectors keep what they have.
void SummaryDataLoaderIncremental::forgetDataOfOtherIndex() const
{
    if (restarts_ == index_.restarts())
        return;
    slots_.assign(slots_.size(), nullptr);
    restarts_ = index_.restarts();
}

} // namespace Kvt::Mrl::MrlIO
