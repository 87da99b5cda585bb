#pragma once

#include <mrlio/DumpfluxBoundaryType.h>
#include <mrlio/UnitSystemType.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/SimulatorType.h>

#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Picks single values out of the arrays of a dump. All operations throw DumpfluxReaderException if the array that they
/// are given is too short.
class DumpfluxKeywordAccess
{
public:
    using Simulator = Keywords::SimulatorType::Enum;

    DumpfluxKeywordAccess() = delete;

    // FLUXTYPE. Unknown names give Unknown and UNKNOWN.
    static Simulator getSIMULATORTYPEPriv(const std::vector<std::string>& fluxType);
    static DumpfluxBoundaryType::Enum getBOUNDARYTYPEPriv(const std::vector<std::string>& fluxType);

    // DTIME
    static double getSTARTTIMEPriv(const std::vector<double>& dtime);
    static double getENDTIMEPriv(const std::vector<double>& dtime);
    static double getAveragePressurePriv(const std::vector<double>& dtime);
    static double getAverageRsPriv(const std::vector<double>& dtime);
    static double getAverageRvPriv(const std::vector<double>& dtime);

    // INTEHEAD
    static void getGridDimsPriv(const std::vector<int>& intehead, int& nx, int& ny, int& nz);
    /// 4, which has no label, for an unknown code.
    static UnitSystemType::Enum getUnitSystemPriv(const std::vector<int>& intehead);
    /// -1 unless the simulator is MA10.
    static int getINTEHEADSimulationversionPriv(const std::vector<int>& intehead, Simulator simulator);
    static int getNumberComponentsPriv(const std::vector<int>& intehead);
    /// throws   DumpfluxReaderException, too, for MA10
    static int getMaximumNumberWellsPriv(const std::vector<int>& intehead, Simulator simulator);
    /// UNKNOWN unless the simulator is MA10.
    static DumpfluxBoundaryType::Enum getINTEHEADBoundaryTypePriv(const std::vector<int>& intehead,
                                                                  Simulator simulator);

    // The others
    static std::string getRESTARTPriv(const std::vector<std::string>& restart);
    static int getRESTNUMPriv(const std::vector<int>& restnumb);
    static bool getRadialPriv(const std::vector<int>& logihead);
    static int getReportNumberPriv(const std::vector<int>& itime);
};

} // namespace Kvt::Mrl::MrlIO
