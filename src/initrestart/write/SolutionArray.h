#pragma once

/// \file
/// Arrays that reach a data file in pieces.

#include <mrlio/IGridPropertyArray.h>
#include <mrlio/SpecStatsData.h>

#include <iosfwd>
#include <memory>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// An array under way: start, any number of writes, finish, all with one and the same stream. What a piece needs to go
/// on where the last one stopped is kept here.
///
/// All three throw std::runtime_error "A problem was encountered writing the keyword NAME to file." if the stream
/// fails. What an array of values throws passes through; the values in front of it may stand in the file by then.
class IStreamOutSolutionArray
{
public:
    IStreamOutSolutionArray() = default;
    IStreamOutSolutionArray(const IStreamOutSolutionArray&) = delete;
    IStreamOutSolutionArray& operator=(const IStreamOutSolutionArray&) = delete;
    virtual ~IStreamOutSolutionArray() = default;

    /// Writes the header. The name is not checked.
    /// count    number of values in all pieces, which nothing compares with the values that follow
    /// throws   std::invalid_argument, with nothing written, for a count of 2147483648 or more
    virtual void start(std::ostream& stream, const std::string& name, unsigned count) = 0;

    /// Writes a piece: its matrix values and, with dual porosity, its fracture values behind them. In the formatted
    /// form pieces join on the lines; in the unformatted one each opens records of its own.
    /// throws   std::invalid_argument, with nothing written, for a piece of another type than the array, and for one
    ///          before start
    virtual void write(std::ostream& stream, const IGridPropertyArray<int>& values) = 0;
    virtual void write(std::ostream& stream, const IGridPropertyArray<double>& values) = 0;
    virtual void write(std::ostream& stream, const IGridPropertyArray<float>& values) = 0;
    virtual void write(std::ostream& stream, const IGridPropertyArray<std::string>& values) = 0;

    /// Ends the array and adds its row. The row's position is the stream's position in front of the header.
    virtual void finish(std::ostream& stream, SpecStatsData& rows) = 0;
};

/// A new array for values of type T: int, float, double or std::string.
template <class T>
std::unique_ptr<IStreamOutSolutionArray> makeSolutionArray(bool formatted);

/// Number of values that an array puts into a file: its size, twice with dual porosity.
/// throws std::invalid_argument for a negative size, and for a number that a header can't hold
template <class T>
int solutionArrayCount(const std::string& name, const IGridPropertyArray<T>& array);

} // namespace Kvt::Mrl::MrlIO
