#include "initrestart/write/SolutionArray.h"

#include "core/Fail.h"
#include "initrestart/SpecIndexFile.h"
#include "initrestart/write/ArrayValues.h"
#include "initrestart/write/SolutionArrayWriters.h"

#include <cstdint>
#include <limits>
#include <ostream>
#include <stdexcept>
#include <type_traits>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr int mostValues = std::numeric_limits<int>::max();

/// W   AsciiSolutionArrayWriter or BinarySolutionArrayWriter
template <class T, class W>
class StreamOutSolutionArray final : public IStreamOutSolutionArray
{
public:
    void start(std::ostream& stream, const std::string& name, unsigned count) override;

    void write(std::ostream& stream, const IGridPropertyArray<int>& values) override { writePiece(stream, values); }

    void write(std::ostream& stream, const IGridPropertyArray<double>& values) override { writePiece(stream, values); }

    void write(std::ostream& stream, const IGridPropertyArray<float>& values) override { writePiece(stream, values); }

    void write(std::ostream& stream, const IGridPropertyArray<std::string>& values) override
    {
        writePiece(stream, values);
    }

    void finish(std::ostream& stream, SpecStatsData& rows) override;

private:
    template <class U>
    void writePiece(std::ostream& stream, const IGridPropertyArray<U>& values);
    void requireStarted() const;
    void require(bool success) const;

    W output_;
    bool started_ = false;
    std::int64_t position_ = 0;
    std::string name_;
    int count_ = 0;
    Extrema extrema_;
};

template <class T, class W>
void StreamOutSolutionArray<T, W>::start(std::ostream& stream, const std::string& name, unsigned count)
{
    if (count > static_cast<unsigned>(mostValues))
        fail<std::invalid_argument>("Invalid number of values for array: ", name, ": ", count, ".");
    name_ = name;
    count_ = static_cast<int>(count);
    extrema_ = {};
    position_ = stream.tellp();
    started_ = true;
    require(stream.good() && output_.start(stream, name_, count_, valueTypeOf<T>));
}

template <class T, class W>
template <class U>
void StreamOutSolutionArray<T, W>::writePiece(std::ostream& stream, const IGridPropertyArray<U>& values)
{
    requireStarted();
    if constexpr (std::is_same_v<T, U>) {
        require(stream.good());
        ArrayValues<T> pieces(values, {.cells = values.size(), .dualPorosity = values.isDualPorosity()}, extrema_);
        for (auto piece = pieces.next(); !piece.empty(); piece = pieces.next())
            require(output_.write(piece));
    } else {
        fail<std::invalid_argument>("Values of another type than array: ", name_, ".");
    }
}

template <class T, class W>
void StreamOutSolutionArray<T, W>::finish(std::ostream& stream, SpecStatsData& rows)
{
    requireStarted();
    started_ = false;
    require(stream.good() && output_.finish());
    appendRow(rows, name_, valueTypeOf<T>, count_, position_, extrema_.min(), extrema_.max());
}

template <class T, class W>
void StreamOutSolutionArray<T, W>::requireStarted() const
{
    if (!started_)
        throw std::invalid_argument("The array has not been started.");
}

template <class T, class W>
void StreamOutSolutionArray<T, W>::require(bool success) const
{
    if (!success)
        fail<std::runtime_error>("A problem was encountered writing the keyword ", name_, " to file.");
}

} // namespace

template <class T>
std::unique_ptr<IStreamOutSolutionArray> makeSolutionArray(bool formatted)
{
    if (formatted)
        return std::make_unique<StreamOutSolutionArray<T, AsciiSolutionArrayWriter>>();
    return std::make_unique<StreamOutSolutionArray<T, BinarySolutionArrayWriter>>();
}

template <class T>
int solutionArrayCount(const std::string& name, const IGridPropertyArray<T>& array)
{
    const std::int64_t size = array.size();
    const std::int64_t count = array.isDualPorosity() ? 2 * size : size;
    if (count < 0 || count > mostValues)
        fail<std::invalid_argument>("Invalid number of values for array: ", name, ": ", count, ".");
    return static_cast<int>(count);
}

template std::unique_ptr<IStreamOutSolutionArray> makeSolutionArray<int>(bool);
template std::unique_ptr<IStreamOutSolutionArray> makeSolutionArray<float>(bool);
template std::unique_ptr<IStreamOutSolutionArray> makeSolutionArray<double>(bool);
template std::unique_ptr<IStreamOutSolutionArray> makeSolutionArray<std::string>(bool);
template int solutionArrayCount(const std::string&, const IGridPropertyArray<int>&);
template int solutionArrayCount(const std::string&, const IGridPropertyArray<float>&);
template int solutionArrayCount(const std::string&, const IGridPropertyArray<double>&);
template int solutionArrayCount(const std::string&, const IGridPropertyArray<std::string>&);

} // namespace Kvt::Mrl::MrlIO
