#pragma once

#include "Simulator.h"

#include <mrlio/MrlIO.h>

namespace waterflood {

/// The connections of a well as the restart writers ask for them. Those of the well in the middle of the local grid go
/// to the local cells at its place.
class WellConnections : public Kvt::Mrl::MrlIO::IWellConnectionArray
{
public:
    WellConnections(const Simulator& simulator, std::size_t well);

    int size() const override;
    Kvt::Mrl::MrlIO::GridCellCoordinates getCell(int connection) const override;
    std::string getLgrName(int connection) const override;
    Kvt::Mrl::MrlIO::GridCellCoordinates getLgrCell(int connection) const override;
    bool isOpen(int connection) const override;

    bool isInLgr(int) const override { return local_ != nullptr; }

private:
    const Well& well_;
    const WellState& state_;
    const LocalGrid* local_; ///< null for wells outside of it
};

/// The segments of a multi-segment well: one from the surface to the top of the sand, then one down each layer, each of
/// which is fed by its connection and flows into the one above it.
class WellSegments : public Kvt::Mrl::MrlIO::IMSWSegmentData
{
public:
    WellSegments(const Simulator& simulator, std::size_t well);

    bool isSegmented() const override { return isSegmented_; }

    int connectionCount() const override { return layers_; }

    int getConnectionSegment(int connection) const override { return connection + 2; }

    int segmentCount() const override { return layers_ + 1; }

    int getUserIndex(int segment) const override { return segment + 1; }

    /// The branch.
    int getSegmentFourthValue(int) const override { return 1; }

    /// The segment that it flows into, 0 for none.
    int getSegmentSecondValue(int segment) const override { return segment; }

    int branchCount() const override { return 1; }

    /// The branch's first segment.
    int getBranchHead(int) const override { return 1; }

private:
    int layers_;
    bool isSegmented_;
};

/// Gives all wells to a restart writer, which is one of two classes with the same operations.
template <class RestartWriter>
void writeWells(RestartWriter& writer, const Simulator& simulator)
{
    using namespace Kvt::Mrl::MrlIO;
    for (std::size_t n = 0; n < simulator.wells().size(); ++n) {
        const Well& well = simulator.reservoir().wells[n];
        const WellState& state = simulator.wells()[n];
        const bool flows = state.waterRate + state.oilRate > 0.0;
        const WellSegments segments(simulator, n);
        writer.writeWellDataArray(well.name, well.injector ? WellType::WaterInjector : WellType::Producer,
                                  flows ? WellStatus::Open : WellStatus::Shut, WellConnections(simulator, n),
                                  &segments);
    }
}

} // namespace waterflood
