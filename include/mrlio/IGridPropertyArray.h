#pragma once

#include <mrlio/Export.h>

namespace Kvt::Mrl::MrlIO {

/// The interface through which a writer pulls cell data from its client, for T = int, float, double or std::string.
/// Cells count from 0, with I running fastest, then J, then K. The order of the virtual operations is fixed.
///
/// An implementation that is asked for a cell beyond its data throws a std::exception.
template <class T>
class MRLIO_EXPORT IGridPropertyArray
{
public:
    virtual ~IGridPropertyArray() = default;

    /// Number of cells.
    virtual int size() const = 0;

    /// The matrix value of a cell; the only value of a cell with single porosity.
    virtual T getValue(int cell) const = 0;

    /// The fracture value of a cell. Asked for only with dual porosity.
    virtual T getFractureValue(int cell) const = 0;

    virtual bool isDualPorosity() const = 0;
};

} // namespace Kvt::Mrl::MrlIO
