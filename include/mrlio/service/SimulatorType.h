#pragma once

#include <mrlio/Export.h>
#include <mrlio/service/EnumInfo.h>

#include <vector>

namespace Kvt::Mrl::Core::Keywords {

/// The simulator that wrote a file, as file headers name it.
class MRLIO_EXPORT SimulatorType
{
public:
    enum Enum : int
    {
        MA10 = 0,    ///< the black-oil simulator
        MB30 = 1,    ///< the compositional simulator
        Unknown = 11 ///< a name that none of the others has; it has no label itself
    };

    /// The values with their labels.
    static const std::vector<Service::EnumInfo<SimulatorType>>& EnumInfos();
};

} // namespace Kvt::Mrl::Core::Keywords
