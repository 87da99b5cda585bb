#pragma once

#include "summary/SummaryContentIndex.h"

#include <mrlio/ISummaryDataLoader.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Reads every PARAMS whole at the first request, and keeps the values of all vectors. Told that there are new data, it
/// adds them at the next request.
class SummaryDataLoaderSimple final : public ISummaryDataLoader
{
public:
    SummaryDataLoaderSimple(const SummarySpecData& spec, const SummaryContentIndex& index);

    std::shared_ptr<const std::vector<float>> getData(const SummaryVectorIDParams& id) const override;
    void contentIndexGrown() override;

private:
    using Table = std::vector<std::shared_ptr<std::vector<float>>>; // by place

    void bringUpToDate() const;
    void grow() const;
    void addData(Table& table, SummaryReportSteps::const_iterator from) const;

    const SummarySpecData& spec_;
    const SummaryContentIndex& index_;
    mutable bool hasNewData_ = false;
    mutable std::optional<Table> table_; // none until the first request
    mutable std::uint64_t restarts_;     // of the index when the table was filled
};

} // namespace Kvt::Mrl::MrlIO
