#pragma once

#include <mrlio/Export.h>
#include <mrlio/ICellActivitiesInfo.h>

#include <memory>
#include <vector>

namespace Kvt::Mrl::MrlIO {

class CellActivityFlags;

/// The active cells of a grid in memory. Never changed after construction: copies are cheap and share their content,
/// and several threads may read one object.
class MRLIO_EXPORT CellActivitiesInfo : public ICellActivitiesInfo
{
public:
    /// Of no cells.
    CellActivitiesInfo();

    /// With these flags, one per cell, those of the fracture being empty without dual porosity.
    CellActivitiesInfo(const std::vector<bool>& matrix, const std::vector<bool>& fracture);
    CellActivitiesInfo(std::vector<bool>&& matrix, std::vector<bool>&& fracture);

    /// All cells active, or none of them. Costs no memory until the flags are asked for.
    /// cells   of the grid; with dual porosity those of one medium. Nothing for numbers below 0.
    CellActivitiesInfo(int cells, bool value, bool dualPorosity);

    /// A cell is active when its pore volume isn't zero or, in thermal runs, its rock volume isn't. Volumes up to 1e-30
    /// count as zero.
    ///
    /// porv            pore volumes; with dual porosity those of the matrix and behind them those of the fracture
    /// rockv           rock volumes in the same order; null if there are none
    /// dualPorosity    whether `porv` holds two media
    /// throws          RestartReaderException for an odd number of pore volumes with dual porosity, and for another
    ///                 number of rock volumes than of pore volumes
    CellActivitiesInfo(const std::vector<float>& porv, const std::vector<float>* rockv, bool dualPorosity);

    CellActivitiesInfo(const CellActivitiesInfo& other);
    CellActivitiesInfo& operator=(const CellActivitiesInfo& other);
    ~CellActivitiesInfo() override;

    /// The result lives as long as any copy of the info.
    const std::vector<bool>& activeCells(bool fracture) const override;

    int numActive(bool fracture) const override;

private:
    friend class CellActivityFlags;

    std::shared_ptr<const CellActivityFlags> matrix_;
    std::shared_ptr<const CellActivityFlags> fracture_;
};

} // namespace Kvt::Mrl::MrlIO
