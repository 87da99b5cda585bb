#pragma once

#include <mrlio/DumpfluxTimeSpec.h>

#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The time ranges of a file in the order of its blocks.
class DumpfluxTimeRanges
{
public:
    /// throws   std::invalid_argument for a range that doesn't go together with one that is there
    /// cost     one comparison for each of them
    void check(const DumpfluxTimeSpec& timeSpec) const;

    void add(const DumpfluxTimeSpec& timeSpec) { timeSpecs_.push_back(timeSpec); }

    void removeLast() noexcept { timeSpecs_.pop_back(); }

private:
    std::vector<DumpfluxTimeSpec> timeSpecs_;
};

} // namespace Kvt::Mrl::MrlIO
