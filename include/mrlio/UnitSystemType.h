#pragma once

#include <mrlio/Export.h>
#include <mrlio/service/EnumInfo.h>
#include <mrlio/service/Namespaces.h>

#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The unit systems that a case may be written in. Other values have no label.
class MRLIO_EXPORT UnitSystemType
{
public:
    enum Enum : int
    {
        METRIC,
        FIELD,
        LAB,
        PVT_M ///< labelled PVT-M
    };

    /// The values with their labels, in ascending order.
    static const std::vector<Service::EnumInfo<UnitSystemType>>& EnumInfos();
};

} // namespace Kvt::Mrl::MrlIO
