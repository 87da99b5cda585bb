#include "core/EnumLabels.h"

#include <mrlio/DumpfluxBoundaryType.h>
#include <mrlio/PhaseType.h>
#include <mrlio/SummaryVectorType.h>
#include <mrlio/UnitSystemType.h>
#include <mrlio/WellModelType.h>

namespace Kvt::Mrl::MrlIO {

namespace {

using std::string_view;

// Each row is the label of the value that is its index.
constexpr std::array<string_view, 4> unitSystems{"METRIC", "FIELD", "LAB", "PVT-M"};
constexpr std::array<string_view, 7> phases{"OIL",     "WATER",     "OIL_WATER",    "GAS",
                                            "OIL_GAS", "GAS_WATER", "OIL_WATER_GAS"};
constexpr std::array<string_view, 4> wellModels{"STANDARD", "FRICTION", "MULTISEG", "RIVER"};
constexpr std::array<string_view, 3> dumpfluxBoundaries{"UNKNOWN", "FLUX", "PRESSURE"};
constexpr std::array<string_view, 21> summaryVectors{"AQUIFER",
                                                     "AQUIFER_LIST",
                                                     "BLOCK",
                                                     "COMPLETION",
                                                     "FIELD",
                                                     "GROUP",
                                                     "INTER_REGION_FLOW",
                                                     "LOCAL_GRID_BLOCK",
                                                     "LOCAL_GRID_COMPLETION",
                                                     "LOCAL_GRID_WELL",
                                                     "NETWORK_NODE",
                                                     "REGION",
                                                     "SIMULATOR_PERFORMANCE",
                                                     "TIME",
                                                     "WELL",
                                                     "WELL_SEGMENT",
                                                     "REACH",
                                                     "BRANCH",
                                                     "RIVER",
                                                     "EDGE",
                                                     "HEATER"};

static_assert(unitSystems.size() == UnitSystemType::PVT_M + 1);
static_assert(phases.size() == PhaseType::OIL_WATER_GAS + 1);
static_assert(wellModels.size() == WellModelType::RIVER + 1);
static_assert(dumpfluxBoundaries.size() == DumpfluxBoundaryType::PRESSURE + 1);
static_assert(summaryVectors.size() == SummaryVectorType::HEATER + 1);

} // namespace

const std::vector<Service::EnumInfo<UnitSystemType>>& UnitSystemType::EnumInfos()
{
    static const auto* const types = makeEnumInfos<UnitSystemType>(unitSystems);
    return *types;
}

const std::vector<Service::EnumInfo<PhaseType>>& PhaseType::EnumInfos()
{
    static const auto* const types = makeEnumInfos<PhaseType>(phases);
    return *types;
}

const std::vector<Service::EnumInfo<WellModelType>>& WellModelType::EnumInfos()
{
    static const auto* const types = makeEnumInfos<WellModelType>(wellModels);
    return *types;
}

const std::vector<Service::EnumInfo<DumpfluxBoundaryType>>& DumpfluxBoundaryType::EnumInfos()
{
    static const auto* const types = makeEnumInfos<DumpfluxBoundaryType>(dumpfluxBoundaries);
    return *types;
}

const std::vector<Service::EnumInfo<SummaryVectorType>>& SummaryVectorType::EnumInfos()
{
    static const auto* const types = makeEnumInfos<SummaryVectorType>(summaryVectors);
    return *types;
}

} // namespace Kvt::Mrl::MrlIO
