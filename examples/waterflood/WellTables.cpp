#include "WellTables.h"

namespace waterflood {

namespace {

using namespace Kvt::Mrl::MrlIO;

const LocalGrid* localGridOf(const Reservoir& reservoir, std::size_t well)
{
    return reservoir.localGrid && well == refinedWell ? &*reservoir.localGrid : nullptr;
}

/// Cells count from 1 in files. Each connection is to the layer of its number.
GridCellCoordinates cellAt(int i, int j, int connection)
{
    return {static_cast<unsigned>(i + 1), static_cast<unsigned>(j + 1), static_cast<unsigned>(connection + 1)};
}

} // namespace

WellConnections::WellConnections(const Simulator& simulator, std::size_t well)
    : well_(simulator.reservoir().wells[well]),
      state_(simulator.wells()[well]),
      local_(localGridOf(simulator.reservoir(), well))
{}

int WellConnections::size() const
{
    return static_cast<int>(state_.connections.size());
}

GridCellCoordinates WellConnections::getCell(int connection) const
{
    return cellAt(well_.i, well_.j, connection);
}

std::string WellConnections::getLgrName(int) const
{
    return local_ != nullptr ? local_->name : std::string();
}

GridCellCoordinates WellConnections::getLgrCell(int connection) const
{
    if (local_ == nullptr)
        return {};
    return cellAt(local_->middleI(well_.i), local_->middleJ(well_.j), connection);
}

bool WellConnections::isOpen(int connection) const
{
    const ConnectionFlow& flow = state_.connections[static_cast<std::size_t>(connection)];
    return flow.water != 0.0 || flow.oil != 0.0;
}

WellSegments::WellSegments(const Simulator& simulator, std::size_t well)
    : layers_(static_cast<int>(simulator.wells()[well].connections.size())),
      isSegmented_(simulator.reservoir().wells[well].multiSegment)
{}

} // namespace waterflood
