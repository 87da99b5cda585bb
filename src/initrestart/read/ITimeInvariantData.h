#pragma once

#include <mrlio/PhaseType.h>
#include <mrlio/UnitSystemType.h>

#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// What the headers of a case say about its grids, the same for all report steps.
///
/// lgr   the local grid, empty for the global grid
class ITimeInvariantData
{
public:
    virtual ~ITimeInvariantData() = default;

    /// False for an unknown grid, and where the header has no sound dimensions.
    virtual bool gridDimension(int& nx, int& ny, int& nz, const std::string& lgr) const = 0;

    /// Cells of the grid, those of one medium for dual porosity; -1 without data.
    virtual int numCells(const std::string& lgr) const = 0;

    /// Elements of an array with a value for each cell: the cells of both media for dual porosity; -1 without data.
    virtual int arraySize(const std::string& lgr) const = 0;

    /// Active cells, those of both media for dual porosity; -1 without data.
    virtual int activeCells(const std::string& lgr) const = 0;

    /// Whether there are fewer active cells than elements in a full array.
    virtual bool hasInactiveCells(const std::string& lgr) const = 0;

    virtual bool isDualPorosity() const = 0;

    /// The local grids by order of appearance.
    virtual const std::vector<std::string>& LGRs() const = 0;

    virtual UnitSystemType::Enum unitSystem() const = 0;
    virtual PhaseType::Enum phases() const = 0;
};

/// Has the headers read when they are first asked for.
class ITimeInvariantDataSource
{
public:
    /// Lives as long as its source.
    virtual const ITimeInvariantData& getTimeInvariantData() = 0;

    virtual ~ITimeInvariantDataSource() = default;
};

} // namespace Kvt::Mrl::MrlIO
