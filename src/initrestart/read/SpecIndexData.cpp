#include "initrestart/read/SpecIndexData.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

void resizeColumns(SpecStatsData& rows, std::size_t count)
{
    rows.names.resize(count);
    rows.types.resize(count);
    rows.numbers.resize(count);
    rows.pointers.resize(count);
    rows.pointersB.resize(count);
    rows.minima.resize(count);
    rows.maxima.resize(count);
}

void moveRow(SpecStatsData& rows, std::size_t from, std::size_t to)
{
    rows.names[to] = std::move(rows.names[from]);
    rows.types[to] = rows.types[from];
    rows.numbers[to] = rows.numbers[from];
    rows.pointers[to] = rows.pointers[from];
    rows.pointersB[to] = rows.pointersB[from];
    rows.minima[to] = rows.minima[from];
    rows.maxima[to] = rows.maxima[from];
}

} // namespace

const SpecStatsData* SpecIndexData::find(const std::string& lgr) const
{
    if (lgr.empty())
        return &stats;
    const auto entry = lgrStats.find(lgr);
    return entry != lgrStats.end() ? entry->second.get() : nullptr;
}

SpecStatsData& SpecIndexData::local(const std::string& lgr)
{
    if (lgr.empty())
        return stats;
    std::shared_ptr<SpecStatsData>& entry = lgrStats[lgr];
    if (!entry) {
        entry = std::make_shared<SpecStatsData>();
        lgrNames.push_back(lgr);
    }
    return *entry;
}

void SpecIndexData::compact()
{
    compactRows(stats);
    for (const auto& [name, rows] : lgrStats)
        compactRows(*rows);
}

void compactRows(SpecStatsData& rows)
{
    resizeColumns(rows, std::min({rows.names.size(), rows.types.size(), rows.numbers.size(), rows.pointers.size(),
                                  rows.pointersB.size()}));
    std::size_t kept = 0;
    for (std::size_t row = 0; row < rows.names.size(); ++row) {
        if (rows.names[row].empty())
            continue;
        if (kept != row)
            moveRow(rows, row, kept);
        ++kept;
    }
    resizeColumns(rows, kept);
}

} // namespace Kvt::Mrl::MrlIO
