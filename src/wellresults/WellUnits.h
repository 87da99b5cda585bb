#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

/// The strings of WELLETC that name units: the accessor of the public readers, its position in WELLETC, its element in
/// the caches. The strings behind position 11 came later: older files lack them.
#define MRLIO_WELL_UNITS(X)                                                                                            \
    X(timeUnit, 0, "timeUnit")                                                                                         \
    X(depthUnit, 3, "depthUnit")                                                                                       \
    X(pressureUnit, 4, "pressureUnit")                                                                                 \
    X(oilAndWaterFlowRateUnit, 7, "oilWaterRateUnit")                                                                  \
    X(gasFlowRateUnit, 8, "gasRateUnit")                                                                               \
    X(localVolumetricFlowRateUnit, 9, "volumetricRateUnit")                                                            \
    X(flowVelocityUnit, 10, "velocityUnit")                                                                            \
    X(viscosityUnit, 12, "viscosityUnit")                                                                              \
    X(polymerAndBrineConcentrationUnit, 13, "polymerAndBrineConcentrationUnit")                                        \
    X(polymerAndBrineFlowRateUnit, 14, "polymerAndBrineFlowRateUnit")                                                  \
    X(adsorbedPolymerConcentrationUnit, 15, "adsorbedPolymerConcentrationUnit")                                        \
    X(temperatureUnit, 16, "temperatureUnit")                                                                          \
    X(massDensityUnit, 17, "massDensityUnit")                                                                          \
    X(energyUnit, 18, "energyUnit")

namespace Kvt::Mrl::MrlIO {

/// The units that a file names, in the order of the list above.
struct WellUnit
{
    enum Enum : std::size_t
    {

#define MRLIO_X(accessor, position, element) accessor,
        MRLIO_WELL_UNITS(MRLIO_X)
#undef MRLIO_X
            count
    };
};

struct WellUnitRow
{
    std::size_t position;
    const char* cacheElement;
};

inline constexpr std::array<WellUnitRow, WellUnit::count> wellUnitRows{{
#define MRLIO_X(accessor, position, element) {position, element},
    MRLIO_WELL_UNITS(MRLIO_X)
#undef MRLIO_X
}};

using WellUnits = std::array<std::string, WellUnit::count>;

/// What else WELLETC tells.
namespace WellEtc {
inline constexpr const char* keyword = "WELLETC";
inline constexpr std::size_t wellName = 1;
inline constexpr std::size_t lgrName = 2;
inline constexpr std::size_t wellType = 6;
inline constexpr std::size_t lastRequired = 10; // what stands behind may be missing
} // namespace WellEtc

/// The string at a position.
/// throws   E if the array is shorter
template <class E>
const std::string& wellEtcText(const std::vector<std::string>& wellEtc, std::size_t position)
{
    // The missing blank belongs to the text.
    if (position >= wellEtc.size())
        throw E("WELLETC keyword contains less than " + std::to_string(position + 1) + "values");
    return wellEtc[position];
}

/// The units of a WELLETC.
/// throws   E if a required one is missing
template <class E>
WellUnits wellUnitsOf(const std::vector<std::string>& wellEtc)
{
    WellUnits units;
    for (std::size_t unit = 0; unit < units.size(); ++unit) {
        const std::size_t position = wellUnitRows[unit].position;
        if (position < wellEtc.size() || position <= WellEtc::lastRequired)
            units[unit] = wellEtcText<E>(wellEtc, position);
    }
    return units;
}

} // namespace Kvt::Mrl::MrlIO
