#pragma once

#include <mrlio/Export.h>
#include <mrlio/service/EnumInfo.h>
#include <mrlio/service/Namespaces.h>

#include <vector>

namespace Kvt::Mrl::MrlIO {

/// How severe a message of a run is. The label of a value is the name of its element in the message file.
class MRLIO_EXPORT MessageType
{
public:
    enum Enum : int
    {
        Comment,
        Message,
        Warning,
        Problem,
        Error,
        Bug
    };

    /// The values with their labels, in ascending order.
    static const std::vector<Service::EnumInfo<MessageType>>& EnumInfos();
};

} // namespace Kvt::Mrl::MrlIO
