#include "wellresults/hmd/HMDReportLoad.h"

#include "wellresults/MatchParameter.h"

#include <memory>
#include <utility>
#include <variant>
#include <vector>

namespace Kvt::Mrl::MrlIO {

namespace {

/// How far a later TIMESTEP of the same report may lie behind the first, since simulators round the time anew.
constexpr double tolerance = 1.000000001;

} // namespace

HMDReportLoad::HMDReportLoad(const Service::FileName& file, HMDIndexers& indexers)
    : walk_("HMDDataLoaderIncremental::loadData", file, isFormattedHMD(file)),
      indexers_(indexers)
{}

void HMDReportLoad::loadPreamble(StoredArrays& arrays)
{
    loadUntil(std::nullopt, arrays);
}

void HMDReportLoad::loadReport(std::int64_t offset, double time, StoredArrays& arrays)
{
    walk_.startAt(HMDKeyword::TIMESTEP, offset);
    loadUntil(time, arrays);
}

/// Of a negative time the tolerance makes an earlier one, so that the report ends where its own time is repeated; that
/// is kept so.
void HMDReportLoad::loadUntil(std::optional<double> time, StoredArrays& arrays)
{
    while (walk_.next()) {
        const std::string& name = walk_.name();
        if (name == HMDKeyword::CODESTAT) {
            walk_.strings();
        } else if (name == HMDKeyword::TIMESTEP) {
            const double next = readTimeStep(walk_).time;
            if (!time || next > *time * tolerance)
                return;
        } else if (name == HMDKeyword::NAMES) {
            holdNames(wellNames_);
        } else if (name == HMDKeyword::GNAMES) {
            holdNames(groupNames_);
        } else if (name == HMDKeyword::HMHEADI) {
            startParameter(arrays);
        } else {
            arrays.store(indexers_.key(name, parameter_, owner_),
                         walk_.storedArray("HMDDataLoaderIncremental::readDataVector"));
        }
    }
}

void HMDReportLoad::holdNames(HeldNames& held)
{
    const std::vector<std::string>& names = readNames(walk_, pendingParameter_);
    owner_ = indexers_.owners.index(names[NamesText::owner]);
    held.owner = owner_;
    held.names = std::make_shared<std::vector<std::string>>(names);
}

void HMDReportLoad::startParameter(StoredArrays& arrays)
{
    const std::vector<int>& numbers = walk_.integers();
    parameter_ = indexers_.parameters.index(takeParameter(walk_, numbers, pendingParameter_));
    storeHeld(wellNames_, arrays);
    storeHeld(groupNames_, arrays);
    arrays.store(indexers_.key(HMDKeyword::HMHEADI, parameter_, owner_), std::make_shared<std::vector<int>>(numbers));
}

/// Each under the owner that it brought itself.
void HMDReportLoad::storeHeld(HeldNames& held, StoredArrays& arrays)
{
    if (!std::holds_alternative<std::monostate>(held.names))
        arrays.store(indexers_.key(held.keyword, parameter_, held.owner), std::exchange(held.names, {}));
}

} // namespace Kvt::Mrl::MrlIO
