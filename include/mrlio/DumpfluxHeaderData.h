#pragma once

#include <mrlio/DumpfluxBoundaryType.h>
#include <mrlio/Export.h>
#include <mrlio/service/SimulatorType.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// What a dumpflux file tells of the run that wrote it, the same for all its time ranges. A plain value, checked at
/// construction.
class MRLIO_EXPORT DumpfluxHeaderData
{
public:
    using SimulatorType = Core::Keywords::SimulatorType;

    /// boundaryType        FLUX or PRESSURE
    /// simulatorType       MA10 or MB30: the simulator that the file is meant for
    /// restartName         the case to restart from; may be empty. Names of more than 8 characters are stored in pieces
    ///                     of 8, and lose the blanks at the ends of a piece.
    /// restartNumber       the report step to restart from
    /// simulatorVersion    stored for MA10 only
    /// numberComponents    -1 for black oil, else the number of components, at least 1. The file holds it for MB30
    ///                     only.
    /// maxNumberWells      stored for MB30 only, at least 0 there; no check holds the wells of a file against it
    /// sourceApplication   the program that writes; a kind without a name leaves the name blank
    /// throws              std::invalid_argument for other values. 0 components are refused although the text calls them
    ///                     allowed.
    DumpfluxHeaderData(DumpfluxBoundaryType::Enum boundaryType, SimulatorType::Enum simulatorType,
                       const std::string& restartName, int restartNumber, int simulatorVersion, int numberComponents,
                       int maxNumberWells, SimulatorType::Enum sourceApplication);

    DumpfluxBoundaryType::Enum getBoundaryType() const { return boundaryType_; }

    SimulatorType::Enum getSimulatorType() const { return simulatorType_; }

    SimulatorType::Enum getSourceApplication() const { return sourceApplication_; }

    const std::string& getRestartName() const { return restartName_; }

    int getRestartNumber() const { return restartNumber_; }

    int getSimulatorVersion() const { return simulatorVersion_; }

    int getNumberComponents() const { return numberComponents_; }

    int getMaxNumberWells() const { return maxNumberWells_; }

private:
    void isValid() const;

    DumpfluxBoundaryType::Enum boundaryType_;
    SimulatorType::Enum simulatorType_;
    SimulatorType::Enum sourceApplication_;
    std::string restartName_;
    int restartNumber_;
    int simulatorVersion_;
    int numberComponents_;
    int maxNumberWells_;
};

} // namespace Kvt::Mrl::MrlIO
