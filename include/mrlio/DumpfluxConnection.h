#pragma once

#include <mrlio/Export.h>

namespace Kvt::Mrl::MrlIO {

/// A connection of two cells through which a boundary between two regions goes. A plain value, unchecked.
class MRLIO_EXPORT DumpfluxConnection
{
public:
    /// firstCellIndex, secondCellIndex   cells of the grid, counted from 1 with I fastest and K slowest
    /// direction                         stored as it is
    /// firstRegion, secondRegion         the regions of these cells
    /// required                          stored as 1 or 0
    DumpfluxConnection(int firstCellIndex, int secondCellIndex, int direction, int firstRegion, int secondRegion,
                       bool required)
        : firstCellIndex_(firstCellIndex),
          secondCellIndex_(secondCellIndex),
          direction_(direction),
          firstRegion_(firstRegion),
          secondRegion_(secondRegion),
          required_(required)
    {}

    int getFirstCellIndex() const { return firstCellIndex_; }

    int getSecondCellIndex() const { return secondCellIndex_; }

    int getDirection() const { return direction_; }

    int getFirstRegion() const { return firstRegion_; }

    int getSecondRegion() const { return secondRegion_; }

    bool getRequired() const { return required_; }

private:
    int firstCellIndex_;
    int secondCellIndex_;
    int direction_;
    int firstRegion_;
    int secondRegion_;
    bool required_;
};

} // namespace Kvt::Mrl::MrlIO
