#include <mrlio/DumpfluxHeaderData.h>

#include <stdexcept>

namespace Kvt::Mrl::MrlIO {

DumpfluxHeaderData::DumpfluxHeaderData(DumpfluxBoundaryType::Enum boundaryType, SimulatorType::Enum simulatorType,
                                       const std::string& restartName, int restartNumber, int simulatorVersion,
                                       int numberComponents, int maxNumberWells, SimulatorType::Enum sourceApplication)
    : boundaryType_(boundaryType),
      simulatorType_(simulatorType),
      sourceApplication_(sourceApplication),
      restartName_(restartName),
      restartNumber_(restartNumber),
      simulatorVersion_(simulatorVersion),
      numberComponents_(numberComponents),
      maxNumberWells_(maxNumberWells)
{
    isValid();
}

void DumpfluxHeaderData::isValid() const
{
    if (boundaryType_ == DumpfluxBoundaryType::UNKNOWN)
        throw std::invalid_argument("The boundary type is UNKNOWN, must be either FLUX or PRESSURE");
    if (simulatorType_ != SimulatorType::MA10 && simulatorType_ != SimulatorType::MB30)
        throw std::invalid_argument("The Simulator type is not either MA10 or MB30");
    // The text allows 0, which is refused, and is kept so.
    if (numberComponents_ == 0)
        throw std::invalid_argument("The number of components is zero. Set to -1 for black oil or a non-negative "
                                    "integer for a compositional model");
    if (simulatorType_ == SimulatorType::MB30 && maxNumberWells_ < 0)
        throw std::invalid_argument("The maximum number of well is less than zero. A non-negative integer is required");
}

} // namespace Kvt::Mrl::MrlIO
