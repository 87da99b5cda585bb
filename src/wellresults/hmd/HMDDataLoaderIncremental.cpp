#include "wellresults/hmd/HMDDataLoaderIncremental.h"

#include "wellresults/hmd/HMDContentIndex.h"
#include "wellresults/hmd/HMDReportLoad.h"

#include <limits>

namespace Kvt::Mrl::MrlIO {

namespace {

/// Stands for the preamble in place of the index of a report.
constexpr std::size_t preambleIndex = std::numeric_limits<std::size_t>::max();

} // namespace

HMDDataLoaderIncremental::HMDDataLoaderIncremental(const HMDContentIndex& index)
    : index_(index),
      reports_(index.content().times.size())
{}

bool HMDDataLoaderIncremental::getArray(const std::string& array, const HMDParameter& parameter,
                                        const std::string& name, std::size_t timeIndex, std::vector<double>& values)
{
    return getArrayImpl(array, parameter, name, timeIndex, values);
}

bool HMDDataLoaderIncremental::getArray(const std::string& array, const HMDParameter& parameter,
                                        const std::string& name, std::size_t timeIndex, std::vector<float>& values)
{
    return getArrayImpl(array, parameter, name, timeIndex, values);
}

bool HMDDataLoaderIncremental::getArray(const std::string& array, const HMDParameter& parameter,
                                        const std::string& name, std::size_t timeIndex,
                                        std::vector<std::string>& values)
{
    return getArrayImpl(array, parameter, name, timeIndex, values);
}

bool HMDDataLoaderIncremental::getArray(const std::string& array, const HMDParameter& parameter,
                                        const std::string& name, std::size_t timeIndex, std::vector<int>& values)
{
    return getArrayImpl(array, parameter, name, timeIndex, values);
}

bool HMDDataLoaderIncremental::getArray(const std::string& array, std::vector<std::string>& values)
{
    return getArray(array, HMDParameter(), std::string(), preambleIndex, values);
}

bool HMDDataLoaderIncremental::getArray(const std::string& array, std::vector<int>& values)
{
    return getArray(array, HMDParameter(), std::string(), preambleIndex, values);
}

template <class T>
bool HMDDataLoaderIncremental::getArrayImpl(const std::string& array, const HMDParameter& parameter,
                                            const std::string& name, std::size_t timeIndex, std::vector<T>& values)
{
    values.clear(); // the loading may fail
    return copyTo(find(array, parameter, name, timeIndex), values);
}

/// What has no parameter or no owner is found by a default parameter and an empty name, which no file holds.
const StoredArray& HMDDataLoaderIncremental::find(const std::string& array, const HMDParameter& parameter,
                                                  const std::string& name, std::size_t timeIndex)
{
    static const StoredArray nothing;
    if (timeIndex != preambleIndex && timeIndex >= reports_.size())
        return nothing;
    Slot& slot = timeIndex == preambleIndex ? preamble_ : reports_[timeIndex];
    if (!slot)
        loadData(timeIndex, slot);
    const int parameterId = parameter == HMDParameter() ? -1 : indexers_.parameters.index(parameter);
    const int owner = name.empty() ? -1 : indexers_.owners.index(name);
    return slot->find(indexers_.key(array, parameterId, owner));
}

/// The slot is filled before the report is read: if that fails, what has been read stays, and there is no second
/// attempt.
void HMDDataLoaderIncremental::loadData(std::size_t timeIndex, Slot& slot)
{
    HMDReportLoad load(index_.file(), indexers_);
    slot = std::make_unique<StoredArrays>();
    const HMDContent& content = index_.content();
    if (timeIndex == preambleIndex)
        load.loadPreamble(*slot);
    else
        load.loadReport(content.offsets[timeIndex], content.times[timeIndex], *slot);
}

} // namespace Kvt::Mrl::MrlIO
