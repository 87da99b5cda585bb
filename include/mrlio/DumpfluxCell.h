#pragma once

#include <mrlio/Export.h>

namespace Kvt::Mrl::MrlIO {

/// The place in the grid of a cell at a region's boundary, counted from 1 along each axis.
///
/// A DumpfluxReader makes one object for each cell index, so that two connections share a cell exactly if their
/// pointers are equal. The order of the virtual operations is part of the interface.
class MRLIO_EXPORT DumpfluxCell
{
public:
    DumpfluxCell(int i, int j, int k) : i_(i), j_(j), k_(k) {}

    virtual ~DumpfluxCell();

    virtual int I() const;
    virtual int J() const;
    virtual int K() const;

private:
    int i_;
    int j_;
    int k_;
};

} // namespace Kvt::Mrl::MrlIO
