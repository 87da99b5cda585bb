#pragma once

#include <mrlio/Export.h>

#include <string>
#include <vector>

/// \file
/// Which cells of a grid were merged into one, and the interfaces through which readers come to know it.

namespace Kvt::Mrl::MrlIO {

/// The coarsened groups of one grid. Cells are counted from 0, those of the fracture behind those of the matrix. The
/// order of the virtual operations is part of the interface.
class MRLIO_EXPORT ICellCoarsenInfo
{
public:
    virtual int numGroups() const = 0;

    /// The groups' numbers, from 1, in ascending order.
    virtual void groups(std::vector<int>& out) const = 0;

    /// All cells of a group. False, with `out` as it was, for an unknown group.
    virtual bool cellsOfGroup(int group, std::vector<int>& out) const = 0;

    /// The cell that carries the group's data. False, with `out` as it was, for an unknown group.
    virtual bool representative(int group, int& out) const = 0;

    virtual ~ICellCoarsenInfo() = default;
};

class MRLIO_EXPORT ICellCoarsenInfoSource
{
public:
    /// Null for a grid that isn't coarsened. The result lives as long as its source.
    virtual const ICellCoarsenInfo* getCellCoarsenInfo(const std::string& lgr) = 0;

    virtual ~ICellCoarsenInfoSource() = default;
};

/// The number of the coarsened group of each cell, 0 for none.
class MRLIO_EXPORT ICORSNUMSource
{
public:
    /// returns   false, with `out` empty, if the grid has none
    virtual bool getCORSNUM(std::vector<int>& out, const std::string& lgr) const = 0;

    virtual ~ICORSNUMSource() = default;
};

} // namespace Kvt::Mrl::MrlIO
