#include "dumpflux/DumpfluxKeywordAccess.h"

#include "dumpflux/DumpfluxLayout.h"
#include "service/Text.h"
#include "wellresults/ValueCount.h"

#include <mrlio/MrlIOException.h>
#include <mrlio/service/EnumInfo.h>

#include <algorithm>

namespace Kvt::Mrl::MrlIO {

namespace {

using namespace DumpfluxLayout;
using SimulatorType = Keywords::SimulatorType;

template <class T>
const T& valueAt(const char* keyword, const std::vector<T>& values, std::size_t position)
{
    requireValues<DumpfluxReaderException>(keyword, values.size(), position + 1);
    return values[position];
}

/// Two texts say "1 values". They are kept so.
int firstOf1Values(const char* keyword, const std::vector<int>& values)
{
    if (values.empty())
        throw DumpfluxReaderException(std::string(keyword) + " keyword contains less than 1 values");
    return values.front();
}

/// The value of X that a file names; `other` for a name that none has.
template <class X>
typename X::Enum valueNamed(std::string name, typename X::Enum other)
{
    Service::StringTrimBlank(name, true, true);
    Service::findEnum<X>(name, other);
    return other;
}

} // namespace

DumpfluxKeywordAccess::Simulator DumpfluxKeywordAccess::getSIMULATORTYPEPriv(const std::vector<std::string>& fluxType)
{
    return valueNamed<SimulatorType>(valueAt(FLUXTYPE, fluxType, FluxType::simulator), SimulatorType::Unknown);
}

DumpfluxBoundaryType::Enum DumpfluxKeywordAccess::getBOUNDARYTYPEPriv(const std::vector<std::string>& fluxType)
{
    return valueNamed<DumpfluxBoundaryType>(valueAt(FLUXTYPE, fluxType, FluxType::boundary),
                                            DumpfluxBoundaryType::UNKNOWN);
}

double DumpfluxKeywordAccess::getSTARTTIMEPriv(const std::vector<double>& dtime)
{
    return valueAt(DTIME, dtime, DoubTime::start);
}

double DumpfluxKeywordAccess::getENDTIMEPriv(const std::vector<double>& dtime)
{
    return valueAt(DTIME, dtime, DoubTime::end);
}

double DumpfluxKeywordAccess::getAveragePressurePriv(const std::vector<double>& dtime)
{
    return valueAt(DTIME, dtime, DoubTime::averagePressure);
}

double DumpfluxKeywordAccess::getAverageRsPriv(const std::vector<double>& dtime)
{
    return valueAt(DTIME, dtime, DoubTime::averageRs);
}

double DumpfluxKeywordAccess::getAverageRvPriv(const std::vector<double>& dtime)
{
    return valueAt(DTIME, dtime, DoubTime::averageRv);
}

void DumpfluxKeywordAccess::getGridDimsPriv(const std::vector<int>& intehead, int& nx, int& ny, int& nz)
{
    nz = valueAt(INTEHEAD, intehead, IntHead::gridDimensions + 2);
    ny = intehead[IntHead::gridDimensions + 1];
    nx = intehead[IntHead::gridDimensions];
}

UnitSystemType::Enum DumpfluxKeywordAccess::getUnitSystemPriv(const std::vector<int>& intehead)
{
    constexpr int unknown = UnitSystemType::PVT_M + 1;
    const int code = valueAt(INTEHEAD, intehead, IntHead::unitSystem);
    return static_cast<UnitSystemType::Enum>(code >= 1 && code <= unknown ? code - 1 : unknown);
}

int DumpfluxKeywordAccess::getINTEHEADSimulationversionPriv(const std::vector<int>& intehead, Simulator simulator)
{
    return simulator == SimulatorType::MA10 ? valueAt(INTEHEAD, intehead, IntHead::simulatorVersion) : -1;
}

int DumpfluxKeywordAccess::getNumberComponentsPriv(const std::vector<int>& intehead)
{
    return valueAt(INTEHEAD, intehead, IntHead::numberComponents);
}

int DumpfluxKeywordAccess::getMaximumNumberWellsPriv(const std::vector<int>& intehead, Simulator simulator)
{
    if (simulator == SimulatorType::MA10)
        throw DumpfluxReaderException("Only valid for MB30 simulators");
    static_assert(IntHead::maximumNumberWells == 0);
    return firstOf1Values(INTEHEAD, intehead);
}

DumpfluxBoundaryType::Enum DumpfluxKeywordAccess::getINTEHEADBoundaryTypePriv(const std::vector<int>& intehead,
                                                                              Simulator simulator)
{
    if (simulator != SimulatorType::MA10)
        return DumpfluxBoundaryType::UNKNOWN;
    const auto type = static_cast<DumpfluxBoundaryType::Enum>(valueAt(INTEHEAD, intehead, IntHead::boundaryType));
    std::string label;
    return Service::findLabel<DumpfluxBoundaryType>(type, label) ? type : DumpfluxBoundaryType::UNKNOWN;
}

std::string DumpfluxKeywordAccess::getRESTARTPriv(const std::vector<std::string>& restart)
{
    requireValues<DumpfluxReaderException>(RESTART, restart.size(), 1);
    std::string name;
    for (const std::string& piece : restart)
        name += piece;
    return name;
}

/// The text names the keyword without its last letter. Kept so.
int DumpfluxKeywordAccess::getRESTNUMPriv(const std::vector<int>& restnumb)
{
    return valueAt("RESTNUM", restnumb, 0);
}

bool DumpfluxKeywordAccess::getRadialPriv(const std::vector<int>& logihead)
{
    return valueAt(LOGIHEAD, logihead, LogiHead::radial) != 0;
}

/// The text names another keyword. Kept so.
int DumpfluxKeywordAccess::getReportNumberPriv(const std::vector<int>& itime)
{
    static_assert(IntTime::reportNumber == 0);
    return firstOf1Values(LOGIHEAD, itime);
}

} // namespace Kvt::Mrl::MrlIO
