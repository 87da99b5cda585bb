#include "initrestart/read/StepRanges.h"

#include "initrestart/SpecIndexFile.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>

namespace Kvt::Mrl::MrlIO {

namespace {

struct Span
{
    std::int64_t first = std::numeric_limits<std::int64_t>::max();
    std::int64_t last = -1; // without rows

    void add(const SpecStatsData& rows)
    {
        for (std::size_t row = 0; row < rows.names.size(); ++row) {
            const std::int64_t position = rowPosition(rows, row);
            if (position < 0)
                continue;
            first = std::min(first, position);
            last = std::max(last, position);
        }
    }
};

Span spanOf(const SpecIndexData& step)
{
    Span span;
    span.add(step.stats);
    for (const auto& [name, rows] : step.lgrStats)
        span.add(*rows);
    return span;
}

/// Where to start looking for the SEQNUM in front of `position`. Any place before it would do; the nearer the better.
std::int64_t placeBefore(std::int64_t position, const RestartSpecData& index, int step)
{
    for (auto entry = index.steps().find(step); entry != index.steps().begin();) {
        const Span previous = spanOf(*(--entry)->second);
        if (previous.last < 0)
            continue;
        // The rows of an index that doesn't fit its file may overlap, and those of an earlier run may lie anywhere.
        if (previous.last < position)
            return previous.last;
        return previous.first < position ? previous.first : 0;
    }
    return 0;
}

} // namespace

StepRange rangeInOwnFile(const SpecIndexData& step)
{
    const Span span = spanOf(step);
    return {.begin = 0, .firstRow = span.last < 0 ? 0 : span.first, .seqnum = -1};
}

StepRange rangeInUnifiedFile(const RestartSpecData& index, int step)
{
    const SpecIndexData& data = *index.step(step);
    const Span span = spanOf(data);
    if (span.last < 0)
        return {.begin = -1};
    return {.begin = placeBefore(span.first, index, step), .firstRow = span.first, .seqnum = data.seqnum};
}

} // namespace Kvt::Mrl::MrlIO
