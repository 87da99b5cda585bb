#pragma once

#include <mrlio/Export.h>
#include <mrlio/service/EnumInfo.h>
#include <mrlio/service/Namespaces.h>

#include <vector>

namespace Kvt::Mrl::MrlIO {

/// What a summary vector belongs to. The value 21, one past HEATER, has no label and stands for none of them.
class MRLIO_EXPORT SummaryVectorType
{
public:
    enum Enum : int
    {
        AQUIFER,
        AQUIFER_LIST,
        BLOCK,
        COMPLETION,
        FIELD,
        GROUP,
        INTER_REGION_FLOW,
        LOCAL_GRID_BLOCK,
        LOCAL_GRID_COMPLETION,
        LOCAL_GRID_WELL,
        NETWORK_NODE,
        REGION,
        SIMULATOR_PERFORMANCE,
        TIME,
        WELL,
        WELL_SEGMENT,
        REACH,
        BRANCH,
        RIVER,
        EDGE,
        HEATER
    };

    /// The values with their labels, in ascending order.
    static const std::vector<Service::EnumInfo<SummaryVectorType>>& EnumInfos();
};

} // namespace Kvt::Mrl::MrlIO
