#pragma once

#include "dumpflux/DumpfluxContentIndex.h"
#include "dumpflux/DumpfluxDataArrays.h"
#include "dumpflux/DumpfluxWalk.h"
#include "dumpflux/IDumpfluxDataLoader.h"
#include "wellresults/Indexers.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Reads a time range at the first question for one of its arrays, whole, and keeps it. A range whose load fails keeps
/// what had been read until then and isn't read again.
class DumpfluxDataLoaderIncremental final : public IDumpfluxDataLoader
{
public:
    /// index   has to outlive the loader
    explicit DumpfluxDataLoaderIncremental(const DumpfluxContentIndex& index);

    bool values(const std::string& array, double time, std::span<const double>& values) override;
    bool wellValues(const std::string& well, const std::string& array, double time,
                    std::span<const double>& values) override;

private:
    struct WellBlock;

    const DumpfluxDataArrays* arraysAt(double time);
    void loadData(std::size_t range);
    void loadArrays(DumpfluxWalk& walk, std::int64_t lastPosition, DumpfluxDataArrays& arrays, WellBlock& block);
    void loadWells(DumpfluxWalk& walk, DumpfluxDataArrays& arrays, const WellBlock& block);
    std::size_t valuesPerWell(const std::string& array) const;

    const DumpfluxContentIndex& index_;
    std::vector<std::shared_ptr<DumpfluxDataArrays>> ranges_; // null until asked for
    NameIndexer wells_;
    NameIndexer arrays_;
};

} // namespace Kvt::Mrl::MrlIO
