#include <mrlio/DumpfluxWellData.h>

#include <stdexcept>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr std::size_t longestName = 8; // what a string of the file can hold

} // namespace

DumpfluxWellData::DumpfluxWellData(const std::string& name, const DumpfluxFlowData* flowData,
                                   const IDumpfluxWellComponentsArray* componentArray)
    : name_(name),
      flowData_(flowData),
      wellComponentArray_(componentArray)
{
    if (flowData == nullptr)
        throw std::invalid_argument("Well flow data must be supplied");
    if (name.empty() || name.size() > longestName)
        throw std::invalid_argument("A name for the well must be specified and must be no more than 8 characters long");
}

} // namespace Kvt::Mrl::MrlIO
