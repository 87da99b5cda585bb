#include <mrlio/GridSpec.h>

#include "core/Fail.h"

#include <mrlio/service/EnumInfo.h>
#include <mrlio/service/Namespaces.h>

#include <stdexcept>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr UnitSystemType::Enum noUnits = static_cast<UnitSystemType::Enum>(4);

} // namespace

GridSpec::GridSpec(const std::string& lgrName, int nx, int ny, int nz, UnitSystemType::Enum units, GridType type)
    : lgrName_(lgrName),
      nx_(nx),
      ny_(ny),
      nz_(nz),
      units_(units),
      type_(type)
{
    if (units_ == noUnits) {
        std::string label;
        Service::findLabel<UnitSystemType>(units_, label);
        fail<std::invalid_argument>("Invalid grid units: ", label);
    }
    // The text says "> 1" although a dimension of 1 is accepted, and is kept so.
    if (nx_ < 1 || ny_ < 1 || nz_ < 1)
        fail<std::invalid_argument>("Invalid grid dimensions. (", nx_, ", ", ny_, ", ", nz_, "). ",
                                    "All dimensions must be > 1.");
}

GridSpec::GridSpec(int nx, int ny, int nz, UnitSystemType::Enum units, GridType type)
    : GridSpec(std::string(), nx, ny, nz, units, type)
{}

int GridSpec::getNoCells() const
{
    return static_cast<int>(static_cast<unsigned>(nx_) * static_cast<unsigned>(ny_) * static_cast<unsigned>(nz_));
}

} // namespace Kvt::Mrl::MrlIO
