#pragma once

#include <mrlio/Export.h>
#include <mrlio/UnitSystemType.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// What a writer must know of a grid beside its cell data: name, dimensions, units and kind. A plain value, checked at
/// construction.
class MRLIO_EXPORT GridSpec
{
public:
    /// The kind of a grid goes into the file headers as it is; any number may be cast to it.
    enum GridType : int
    {
        Radial = 4 ///< cells in rings about an axis
    };

    /// lgrName      name of a local grid; empty for the global grid
    /// nx, ny, nz   number of cells in each direction, at least 1
    /// throws       std::invalid_argument for the value of units that stands for none (4), and for a dimension below 1
    GridSpec(const std::string& lgrName, int nx, int ny, int nz, UnitSystemType::Enum units, GridType type);

    /// The same for the global grid.
    GridSpec(int nx, int ny, int nz, UnitSystemType::Enum units, GridType type);

    const std::string& getLgrName() const { return lgrName_; }

    int getNx() const { return nx_; }

    int getNy() const { return ny_; }

    int getNz() const { return nz_; }

    UnitSystemType::Enum getUnits() const { return units_; }

    GridType getType() const { return type_; }

    /// The low 32 bits of nx * ny * nz, so 0 for 65536 x 65536 x 1. Whoever sizes a buffer multiplies the dimensions in
    /// 64 bits.
    int getNoCells() const;

private:
    std::string lgrName_;
    int nx_;
    int ny_;
    int nz_;
    UnitSystemType::Enum units_;
    GridType type_;
};

} // namespace Kvt::Mrl::MrlIO
