#pragma once

#include "summary/SummaryContentIndex.h"

#include <mrlio/ISummaryDataLoader.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Reads the vectors of one keyword together at the first request for one of them: they nearly always lie side by side
/// and are nearly always wanted together. Keeps them, and reads only what the index has gained at later requests.
class SummaryDataLoaderIncremental final : public ISummaryDataLoader
{
public:
    SummaryDataLoaderIncremental(const SummarySpecData& spec, const SummaryContentIndex& index);

    std::shared_ptr<const std::vector<float>> getData(const SummaryVectorIDParams& id) const override;

    /// Nothing to do: each request compares what it has with the index.
    void contentIndexGrown() override {}

private:
    using Slot = std::shared_ptr<std::vector<float>>;

    void addData(const std::string& keyword, std::size_t already, SummaryReportSteps::const_iterator from) const;
    std::vector<float>& prepareSlot(std::size_t place, std::size_t already) const;
    void forgetDataOfOtherIndex() const;

    const SummarySpecData& spec_;
    const SummaryContentIndex& index_;
    mutable std::vector<Slot> slots_; // one per vector, null until asked for
    mutable std::uint64_t restarts_;  // of the index when the slots were filled
};

} // namespace Kvt::Mrl::MrlIO
