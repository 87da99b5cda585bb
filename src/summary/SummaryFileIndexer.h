#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Tells whether a file name from a cache can belong to the data files of a case.
class SummaryFileIndexer
{
public:
    explicit SummaryFileIndexer(const std::vector<std::string>& files);

    /// A single unified file is known by its name. Of numbered files every number from 1 to one above the highest
    /// counts as known, whether it is there or not: kept as it is, since the reader notices a file that isn't there.
    bool isKnown(const std::string& name) const;

private:
    std::string unifiedName_; // empty if there are several files
    std::int64_t highestNumber_ = -1;
};

} // namespace Kvt::Mrl::MrlIO
