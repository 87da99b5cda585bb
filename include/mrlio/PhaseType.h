#pragma once

#include <mrlio/Export.h>
#include <mrlio/service/EnumInfo.h>
#include <mrlio/service/Namespaces.h>

#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The phases that a case holds. A value plus one is the set of phases as bits: oil 1, water 2, gas 4.
class MRLIO_EXPORT PhaseType
{
public:
    enum Enum : int
    {
        OIL,
        WATER,
        OIL_WATER,
        GAS,
        OIL_GAS,
        GAS_WATER,
        OIL_WATER_GAS
    };

    /// The values with their labels, in ascending order.
    static const std::vector<Service::EnumInfo<PhaseType>>& EnumInfos();
};

} // namespace Kvt::Mrl::MrlIO
