#include <mrlio/GridCellCoordinates.h>

#include "core/Fail.h"

#include <stdexcept>

namespace Kvt::Mrl::MrlIO {

GridCellCoordinates::GridCellCoordinates(unsigned i, unsigned j, unsigned k) : i_(i), j_(j), k_(k)
{
    // The text speaks of negative numbers, though 0 is what it refuses, and is kept so.
    if (!isCellValid())
        fail<std::invalid_argument>("Invalid coordinates : (", i, ",", j, ",", k, "). Coordinates cannot be < 0.");
}

} // namespace Kvt::Mrl::MrlIO
