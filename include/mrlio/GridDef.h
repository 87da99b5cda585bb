#pragma once

#include <mrlio/Export.h>
#include <mrlio/GridSpec.h>
#include <mrlio/IGridPropertyArray.h>

namespace Kvt::Mrl::MrlIO {

/// A grid as the writers of cell data take it: its description with the pore volumes and, where the rock has any, the
/// rock volumes.
///
/// It keeps pointers to the arguments of its constructor and owns none of them: they must outlive it and its copies, so
/// never hand it a temporary.
class MRLIO_EXPORT GridDef
{
public:
    /// skipChecks   true: trust the array. Otherwise its size is compared with the grid and each of its values is read
    ///              once, which costs a virtual call or two a cell.
    /// throws       std::invalid_argument if the array doesn't hold a value for each cell of the grid
    GridDef(const GridSpec& spec, const IGridPropertyArray<float>& porv, bool skipChecks);

    /// The same with rock volumes.
    /// throws       std::invalid_argument also if only one of the two arrays is of dual porosity
    GridDef(const GridSpec& spec, const IGridPropertyArray<float>& porv, const IGridPropertyArray<float>& rockv,
            bool skipChecks);

    const GridSpec& getGridSpec() const { return *gridSpec_; }

    const IGridPropertyArray<float>& getPorvArray() const { return *porvArray_; }

    /// Null if the grid has no rock volumes.
    const IGridPropertyArray<float>* getRockvArray() const { return rockvArray_; }

private:
    void checkArrays() const;

    const GridSpec* gridSpec_;
    const IGridPropertyArray<float>* porvArray_;
    const IGridPropertyArray<float>* rockvArray_;
};

} // namespace Kvt::Mrl::MrlIO
