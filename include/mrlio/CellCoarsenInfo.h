#pragma once

#include <mrlio/Export.h>
#include <mrlio/ICellCoarsenInfo.h>

#include <memory>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The coarsened groups of a grid in memory. Never changed after construction: copies are cheap and share their
/// content, and several threads may read one object.
class MRLIO_EXPORT CellCoarsenInfo : public ICellCoarsenInfo
{
public:
    /// The last cell of a group that has pore volume or else rock volume represents it. A group without any volume is
    /// represented by cell 0, whether that is one of its cells or not: kept, since programs rely on it.
    ///
    /// porv      pore volumes; with dual porosity those of the matrix and behind them those of the fracture
    /// corsnum   the number of each cell's group, in the same order; numbers below 1 for none
    /// rockv     rock volumes in the same order; null if there are none
    /// throws    RestartReaderException unless all have the same length
    CellCoarsenInfo(const std::vector<float>& porv, const std::vector<int>& corsnum, const std::vector<float>* rockv);

    CellCoarsenInfo(const CellCoarsenInfo& other);
    CellCoarsenInfo& operator=(const CellCoarsenInfo& other);
    ~CellCoarsenInfo() override;

    int numGroups() const override;
    void groups(std::vector<int>& out) const override;
    bool cellsOfGroup(int group, std::vector<int>& out) const override;
    bool representative(int group, int& out) const override;

private:
    class Impl;

    std::shared_ptr<const Impl> impl_;
};

} // namespace Kvt::Mrl::MrlIO
