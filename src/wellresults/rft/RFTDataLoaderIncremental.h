#pragma once

#include "wellresults/DatedDataLoader.h"
#include "wellresults/Indexers.h"
#include "wellresults/rft/IRFTDataLoader.h"
#include "wellresults/rft/RFTContentIndex.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Reads a date, for all wells at once, when it is first asked for, and keeps it.
class RFTDataLoaderIncremental final : public IRFTDataLoader, private DatedDataLoader<RFTFamily, RFTContentIndex>
{
public:
    using DatedDataLoader::DatedDataLoader;

    bool getArray(const std::string& array, const std::string& well, std::size_t dateIndex,
                  std::vector<bool>& values) override;
    bool getArray(const std::string& array, const std::string& well, std::size_t dateIndex,
                  std::vector<std::string>& values) override;
    bool getArray(const std::string& array, const std::string& well, std::size_t dateIndex,
                  std::vector<int>& values) override;
    bool getArray(const std::string& array, const std::string& well, std::size_t dateIndex,
                  std::vector<float>& values) override;
    bool getArray(const std::string& array, const std::string& well, std::size_t dateIndex,
                  std::vector<double>& values) override;
    void getArrayOfType(const std::string& array, const std::string& well, std::size_t dateIndex,
                        std::shared_ptr<std::vector<float>>& values) override;
    void getArrayOfType(const std::string& array, const std::string& well, std::size_t dateIndex,
                        std::shared_ptr<std::vector<int>>& values) override;

private:
    void readReport(Walk& walk, StoredArrays& arrays) override;
    ArrayKey keyOf(const std::string& array, const std::string& well);

    NameIndexer wells_;
    NameIndexer arrays_;
};

} // namespace Kvt::Mrl::MrlIO
