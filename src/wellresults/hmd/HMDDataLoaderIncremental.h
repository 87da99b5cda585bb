#pragma once

#include "wellresults/StoredArrays.h"
#include "wellresults/hmd/HMDIndexers.h"
#include "wellresults/hmd/HMDKeywords.h"
#include "wellresults/hmd/IHMDDataLoader.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

class HMDContentIndex;

/// Reads a report, for all wells, groups and parameters at once, when it is first asked for, and keeps it; the preamble
/// likewise.
class HMDDataLoaderIncremental final : public IHMDDataLoader
{
public:
    /// index   has to outlive the loader
    explicit HMDDataLoaderIncremental(const HMDContentIndex& index);

    bool getArray(const std::string& array, const HMDParameter& parameter, const std::string& name,
                  std::size_t timeIndex, std::vector<double>& values) override;
    bool getArray(const std::string& array, const HMDParameter& parameter, const std::string& name,
                  std::size_t timeIndex, std::vector<float>& values) override;
    bool getArray(const std::string& array, const HMDParameter& parameter, const std::string& name,
                  std::size_t timeIndex, std::vector<std::string>& values) override;
    bool getArray(const std::string& array, const HMDParameter& parameter, const std::string& name,
                  std::size_t timeIndex, std::vector<int>& values) override;
    bool getArray(const std::string& array, std::vector<std::string>& values) override;
    bool getArray(const std::string& array, std::vector<int>& values) override;

private:
    using Slot = std::unique_ptr<StoredArrays>; // null until loaded

    template <class T>
    bool getArrayImpl(const std::string& array, const HMDParameter& parameter, const std::string& name,
                      std::size_t timeIndex, std::vector<T>& values);

    const StoredArray& find(const std::string& array, const HMDParameter& parameter, const std::string& name,
                            std::size_t timeIndex);
    void loadData(std::size_t timeIndex, Slot& slot);

    const HMDContentIndex& index_;
    Slot preamble_;
    std::vector<Slot> reports_;
    HMDIndexers indexers_;
};

} // namespace Kvt::Mrl::MrlIO
