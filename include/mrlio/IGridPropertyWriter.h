#pragma once

#include <mrlio/Export.h>
#include <mrlio/IGridPropertyArray.h>

#include <cstdint>
#include <string>

namespace Kvt::Mrl::MrlIO {

template <class T>
class ArrayValues;

/// Writes whole property arrays of one grid, in file order. Init and restart writers give it; it belongs to them and
/// lives until the writer is closed (in the sequential writers, until the grid is ended).
///
/// Neither copyable nor movable. The order of the virtual operations is part of the interface.
class MRLIO_EXPORT IGridPropertyWriter
{
public:
    IGridPropertyWriter() = default;
    IGridPropertyWriter(const IGridPropertyWriter&) = delete;
    IGridPropertyWriter& operator=(const IGridPropertyWriter&) = delete;
    virtual ~IGridPropertyWriter() = default;

    /// The grid's number of cells; 1 in a writer of connections, whose arrays have any length.
    virtual int count() const = 0;

    /// Bytes of the buffer in front of the grid's temporary file; takes effect at the next array in the random-order
    /// writers, and never in the sequential ones. Below 1, and above 1 MiB, stands for 1 MiB.
    virtual void setBufferSize(int bufferSize) = 0;

    /// Writes an array: all values of the matrix and, if the array has dual porosity, all values of the fracture behind
    /// them.
    ///
    /// name         1 to 8 characters
    /// array        one value per cell of the grid; asked for in ascending order, once where the writer has a file of
    ///              its own to cut back, twice where it hasn't
    /// activeOnly   leave out the values of inactive cells: those without pore volume and without rock volume; has no
    ///              effect in a writer of connections
    /// throws       std::invalid_argument if the name is refused, or the array has another length than the grid or throws
    ///              at one of its cells; with checks switched off none of this is looked at, and what the array throws
    ///              passes through. std::runtime_error if writing fails. The file is cut back to the place where the
    ///              array began, so that the array can be written anew; where that fails, too, it ends within the array.
    virtual void write(const std::string& name, const IGridPropertyArray<std::string>& array, bool activeOnly) = 0;
    virtual void write(const std::string& name, const IGridPropertyArray<int>& array, bool activeOnly) = 0;
    virtual void write(const std::string& name, const IGridPropertyArray<float>& array, bool activeOnly) = 0;
    virtual void write(const std::string& name, const IGridPropertyArray<double>& array, bool activeOnly) = 0;

protected:
    /// The header of an array in the writer's form.
    /// type   a value of ValueType::Enum
    virtual bool writeHeader(const std::string& name, std::int32_t count, int type) = 0;

    /// The values of an array in the writer's form, taken piece by piece. True when the stream is good.
    virtual bool writeValues(ArrayValues<std::string>& values) = 0;
    virtual bool writeValues(ArrayValues<int>& values) = 0;
    virtual bool writeValues(ArrayValues<float>& values) = 0;
    virtual bool writeValues(ArrayValues<double>& values) = 0;
};

} // namespace Kvt::Mrl::MrlIO
