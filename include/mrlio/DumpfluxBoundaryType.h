#pragma once

#include <mrlio/Export.h>
#include <mrlio/service/EnumInfo.h>
#include <mrlio/service/Namespaces.h>

#include <vector>

namespace Kvt::Mrl::MrlIO {

/// What a boundary flux dump imposes on the boundary of its region.
class MRLIO_EXPORT DumpfluxBoundaryType
{
public:
    enum Enum : int
    {
        UNKNOWN,
        FLUX,
        PRESSURE
    };

    /// The values with their labels, in ascending order.
    static const std::vector<Service::EnumInfo<DumpfluxBoundaryType>>& EnumInfos();
};

} // namespace Kvt::Mrl::MrlIO
