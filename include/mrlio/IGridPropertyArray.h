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

    /// Gives count values from cell first on, as getValue would one by one. The writers ask this way, so override it
    /// where the values lie in memory: a call for each cell costs as much as writing the value.
    virtual void getValues(int first, int count, T* out) const
    {
        for (int i = 0; i < count; ++i)
            out[i] = getValue(first + i);
    }

    /// The same for fracture values.
    virtual void getFractureValues(int first, int count, T* out) const
    {
        for (int i = 0; i < count; ++i)
            out[i] = getFractureValue(first + i);
    }
};

} // namespace Kvt::Mrl::MrlIO
