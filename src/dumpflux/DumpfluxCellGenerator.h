#pragma once

#include <mrlio/DumpfluxCell.h>

#include <map>
#include <memory>

namespace Kvt::Mrl::MrlIO {

/// Makes the cells of a grid, one object per cell.
class DumpfluxCellGenerator
{
public:
    DumpfluxCellGenerator(int nx, int ny) : nx_(nx), ny_(ny) {}

    /// index    counted from 1, I fastest
    /// throws   MrlIOException if a dimension is 0
    const std::shared_ptr<DumpfluxCell>& cell(int index);

private:
    std::shared_ptr<DumpfluxCell> makeCell(int index) const;

    int nx_;
    int ny_;
    std::map<int, std::shared_ptr<DumpfluxCell>> cells_;
};

} // namespace Kvt::Mrl::MrlIO
