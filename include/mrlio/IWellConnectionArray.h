#pragma once

#include <mrlio/Export.h>
#include <mrlio/GridCellCoordinates.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// The connections of one well with the grids, counted from 0, in a program's own form. The order of the virtual
/// operations is part of the interface.
///
/// A connection with a local grid is recorded for that grid and, with its host cell, for the global one. There
/// neighbours in the order of the array that have grid and cell in common are one connection, open if any of them is.
///
/// Only used during the call that takes it.
class MRLIO_EXPORT IWellConnectionArray
{
public:
    virtual ~IWellConnectionArray() = default;

    /// A well without connections is part of no grid, and so of no file.
    virtual int size() const = 0;

    /// The cell of the global grid: the connected one, or the host of the connected local cell. The default value says
    /// that there is none.
    virtual GridCellCoordinates getCell(int connection) const = 0;

    /// The local grid of a connection for which isInLgr is true; not asked for otherwise.
    virtual std::string getLgrName(int connection) const = 0;

    /// The connected cell of that local grid.
    virtual GridCellCoordinates getLgrCell(int connection) const = 0;

    virtual bool isOpen(int connection) const = 0;
    virtual bool isInLgr(int connection) const = 0;
};

} // namespace Kvt::Mrl::MrlIO
