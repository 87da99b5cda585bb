#pragma once

#include <mrlio/Export.h>

#include <string>
#include <vector>

/// \file
/// Which cells of a grid are active, and the interfaces through which readers come to know it.

namespace Kvt::Mrl::MrlIO {

/// The active cells of one grid. Cells are counted from 0, I fastest, then J, then K. The order of the virtual
/// operations is part of the interface.
class MRLIO_EXPORT ICellActivitiesInfo
{
public:
    /// One flag per cell; none for the fracture of a grid that has no dual porosity.
    virtual const std::vector<bool>& activeCells(bool fracture) const = 0;

    /// How many of them are set.
    virtual int numActive(bool fracture) const = 0;

    virtual ~ICellActivitiesInfo() = default;
};

class MRLIO_EXPORT ICellActivitiesInfoSource
{
public:
    /// The active cells of a local grid, or of the global one for an empty name; an empty info for an unknown grid. The
    /// result lives as long as its source.
    virtual const ICellActivitiesInfo& getCellActivitiesInfo(const std::string& lgr) = 0;

    virtual ~ICellActivitiesInfoSource() = default;
};

/// A program's own knowledge of the active cells, for readers that are to work without pore volumes.
class MRLIO_EXPORT ICellActivitiesSource
{
public:
    /// One flag per cell of the grid in `out`; the fracture's flags of a dual porosity grid are asked for on their own.
    /// returns   false if they aren't known: the reader then takes it that there are none
    virtual bool getCellActivities(std::vector<bool>& out, const std::string& lgr, bool fracture) const = 0;

    virtual ~ICellActivitiesSource() = default;
};

/// Pore volumes, of the matrix and behind them of the fracture.
class MRLIO_EXPORT IPORVSource
{
public:
    /// returns   false, with `out` empty, if the grid has none
    virtual bool getPORV(std::vector<float>& out, const std::string& lgr) const = 0;

    virtual ~IPORVSource() = default;
};

/// Rock volumes, in the order of the pore volumes.
class MRLIO_EXPORT IROCKVSource
{
public:
    /// returns   false, with `out` empty, if the grid has none
    virtual bool getROCKV(std::vector<float>& out, const std::string& lgr) const = 0;

    virtual ~IROCKVSource() = default;
};

} // namespace Kvt::Mrl::MrlIO
