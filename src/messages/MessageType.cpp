#include <mrlio/MessageType.h>

#include "core/EnumLabels.h"

namespace Kvt::Mrl::MrlIO {

namespace {

// Each row is the label of the value that is its index.
constexpr std::array<std::string_view, 6> messageTypes{"comment", "message", "warning", "problem", "error", "bug"};

static_assert(messageTypes.size() == MessageType::Bug + 1);

} // namespace

const std::vector<Service::EnumInfo<MessageType>>& MessageType::EnumInfos()
{
    static const auto* const types = makeEnumInfos<MessageType>(messageTypes);
    return *types;
}

} // namespace Kvt::Mrl::MrlIO
