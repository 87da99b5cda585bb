#pragma once

#include <mrlio/Export.h>

namespace Kvt::Mrl::MrlIO {

/// One cell of a grid by its I, J and K, which count from 1. A plain value; the default one stands for no cell.
class MRLIO_EXPORT GridCellCoordinates
{
public:
    /// No cell: all three are 0.
    GridCellCoordinates() = default;

    /// throws   std::invalid_argument if one of them is 0
    GridCellCoordinates(unsigned i, unsigned j, unsigned k);

    unsigned getI() const { return i_; }

    unsigned getJ() const { return j_; }

    unsigned getK() const { return k_; }

    /// False for the default value only.
    bool isCellValid() const { return i_ != 0 && j_ != 0 && k_ != 0; }

    friend bool operator==(const GridCellCoordinates&, const GridCellCoordinates&) = default;

private:
    unsigned i_ = 0;
    unsigned j_ = 0;
    unsigned k_ = 0;
};

} // namespace Kvt::Mrl::MrlIO
