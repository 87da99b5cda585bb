#include "summary/SummaryDataLoaderSimple.h"

#include "summary/ParamsColumns.h"

#include <mrlio/MrlIOException.h>

#include <algorithm>
#include <cstddef>

namespace Kvt::Mrl::MrlIO {

SummaryDataLoaderSimple::SummaryDataLoaderSimple(const SummarySpecData& spec, const SummaryContentIndex& index)
    : spec_(spec),
      index_(index),
      restarts_(index.restarts())
{}

std::shared_ptr<const std::vector<float>> SummaryDataLoaderSimple::getData(const SummaryVectorIDParams& id) const
{
    const int place = spec_.index(id);
    if (place < 0)
        return nullptr;
    bringUpToDate();
    return static_cast<std::size_t>(place) < table_->size() ? (*table_)[static_cast<std::size_t>(place)] : nullptr;
}

void SummaryDataLoaderSimple::contentIndexGrown()
{
    if (table_)
        hasNewData_ = true;
}

void SummaryDataLoaderSimple::bringUpToDate() const
{
    if (restarts_ != index_.restarts()) {
        table_.reset();
        restarts_ = index_.restarts();
    }
    if (!table_) {
        Table table;
        addData(table, index_.reportSteps().begin());
        table_ = std::move(table);
        hasNewData_ = false;
    } else if (hasNewData_) {
        grow();
    }
}

void SummaryDataLoaderSimple::grow() const
{
    hasNewData_ = false;
    const std::size_t length = table_->empty() ? 0 : table_->front()->size();
    try {
        const auto from = findReportStepBehind(index_.reportSteps(), length);
        if (!from)
            throw SummaryReaderException("SummaryDataLoaderSimple::getData: found inconsistent data");
        addData(*table_, *from);
    } catch (...) {
        for (const auto& slot : *table_)
            slot->resize(std::min(slot->size(), length));
        hasNewData_ = true;
        throw;
    }
}

void SummaryDataLoaderSimple::addData(Table& table, SummaryReportSteps::const_iterator from) const
{
    if (from == index_.reportSteps().end())
        return;
    const int vectors = index_.numVectors();
    while (table.size() < static_cast<std::size_t>(vectors))
        table.push_back(std::make_shared<std::vector<float>>());
    ParamsColumns::Columns columns;
    columns.reserve(table.size());
    for (const auto& slot : table) {
        slot->reserve(index_.miniStepCount());
        columns.push_back(slot.get());
    }
    ParamsColumns params(index_, {{0, vectors - 1}}, std::move(columns),
                         "SummaryDataLoaderSimple::addData: fails to read PARAMS in ");
    params.append(from);
}

} // namespace Kvt::Mrl::MrlIO
