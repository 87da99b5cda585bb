#include <mrlio/service/SimulatorType.h>

namespace Kvt::Mrl::Core::Keywords {

const std::vector<Service::EnumInfo<SimulatorType>>& SimulatorType::EnumInfos()
{
    static const auto* const types = new std::vector<Service::EnumInfo<SimulatorType>>{{MA10, "MA10"}, {MB30, "MB30"}};
    return *types;
}

} // namespace Kvt::Mrl::Core::Keywords
