#pragma once

#include <mrlio/Export.h>
#include <mrlio/service/EnumInfo.h>
#include <mrlio/service/Namespaces.h>

#include <vector>

namespace Kvt::Mrl::MrlIO {

/// How a well is modelled.
class MRLIO_EXPORT WellModelType
{
public:
    enum Enum : int
    {
        STANDARD, ///< one pressure in the whole bore
        FRICTION, ///< with friction along the bore
        MULTISEG, ///< cut into segments
        RIVER     ///< a river, cut into reaches
    };

    /// The values with their labels, in ascending order.
    static const std::vector<Service::EnumInfo<WellModelType>>& EnumInfos();
};

} // namespace Kvt::Mrl::MrlIO
