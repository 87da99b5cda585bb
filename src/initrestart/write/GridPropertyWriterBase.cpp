#include "initrestart/write/GridPropertyWriterBase.h"

#include "core/Fail.h"
#include "initrestart/SpecIndexFile.h"
#include "initrestart/write/SolutionArrayWriters.h"
#include "service/FileStream.h"

#include <mrlio/KeywordWriter.h>
#include <mrlio/SeqStreamWrapper.h>

#include <exception>
#include <limits>
#include <ostream>
#include <stdexcept>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr int mostValues = std::numeric_limits<int>::max();

void requireHeader(bool success, const std::string& name)
{
    if (!success)
        fail<std::runtime_error>("Problem encountered writing property header : ", name);
}

void requireArray(bool success, const std::string& name)
{
    if (!success)
        fail<std::runtime_error>("Problem encountered writing property array : ", name);
}

/// Asks for every value, for the sake of what the array throws.
template <class T>
void probe(const IGridPropertyArray<T>& array, const ArraySelection& selection)
{
    Extrema ignored;
    ArrayValues<T> values(array, selection, ignored);
    while (!values.next().empty()) {}
}

} // namespace

GridPropertyWriterBase::GridPropertyWriterBase(GridPropertyTarget target)
    : target_(std::move(target)),
      sectionCloses_(dynamic_cast<const SeqStreamWrapper*>(target_.section.get()) == nullptr)
{}

GridPropertyWriterBase::~GridPropertyWriterBase() = default;

int GridPropertyWriterBase::count() const
{
    return target_.grid.getNoCells();
}

void GridPropertyWriterBase::setBufferSize(int bufferSize)
{
    target_.section->setBufferSize(bufferSize);
}

void GridPropertyWriterBase::write(const std::string& name, const IGridPropertyArray<std::string>& array,
                                   bool activeOnly)
{
    writeArray(name, array, activeOnly);
}

void GridPropertyWriterBase::write(const std::string& name, const IGridPropertyArray<int>& array, bool activeOnly)
{
    writeArray(name, array, activeOnly);
}

void GridPropertyWriterBase::write(const std::string& name, const IGridPropertyArray<float>& array, bool activeOnly)
{
    writeArray(name, array, activeOnly);
}

void GridPropertyWriterBase::write(const std::string& name, const IGridPropertyArray<double>& array, bool activeOnly)
{
    writeArray(name, array, activeOnly);
}

template <class T>
void GridPropertyWriterBase::writeArray(const std::string& name, const IGridPropertyArray<T>& array, bool activeOnly)
{
    const ArraySelection selection = select(name, array, activeOnly);
    std::ostream& out = target_.section->stream();
    const std::int64_t position = out.tellp();
    requireHeader(position >= 0, name);
    Extrema extrema;
    try {
        extrema = writeAt(out, name, array, selection);
        endArray(out, name);
    } catch (...) {
        cutBack(position);
        throw;
    }
    appendRow(*target_.rows, name, valueTypeOf<T>, static_cast<int>(selection.count()), position, extrema.min(),
              extrema.max());
}

template <class T>
ArraySelection GridPropertyWriterBase::select(const std::string& name, const IGridPropertyArray<T>& array,
                                              bool activeOnly) const
{
    const ArrayChecks checks = target_.checks;
    if (checks != ArrayChecks::None)
        KeywordWriter::validateKeywordName(name);
    ArraySelection selection{.cells = array.size(), .dualPorosity = array.isDualPorosity()};
    if (checks == ArrayChecks::All) {
        checkLength(name, selection.cells);
        selection.checkedName = &name;
    }
    if (activeOnly && target_.activeCells != nullptr) {
        selection.activeCells = target_.activeCells.get();
        selection.cells = selection.activeCells->matrix().size();
    }
    if (selection.count() < 0 || selection.count() > mostValues)
        fail<std::invalid_argument>("Invalid number of values for array: ", name, ": ", selection.count(), ".");
    return selection;
}

void GridPropertyWriterBase::checkLength(const std::string& name, int size) const
{
    const std::int64_t expected = cellCount(target_.grid);
    if (size != expected)
        fail<std::invalid_argument>(name.c_str(), " array is the wrong length: ", size, " properties; expected ",
                                    expected, ".");
}

/// Checks on the way what can be cut back.
template <class T>
Extrema GridPropertyWriterBase::writeAt(std::ostream& out, const std::string& name, const IGridPropertyArray<T>& array,
                                        const ArraySelection& selection)
{
    if (selection.checkedName != nullptr && dynamic_cast<Service::FileStream*>(&out) == nullptr)
        probe(array, selection);
    requireHeader(writeHeader(name, static_cast<std::int32_t>(selection.count()), valueTypeOf<T>), name);
    Extrema extrema;
    ArrayValues<T> values(array, selection, extrema);
    requireArray(writeValues(values), name);
    return extrema;
}

/// A section is emptied into its file before it is closed, while it can still be cut back.
void GridPropertyWriterBase::endArray(std::ostream& out, const std::string& name)
{
    if (sectionCloses_)
        out.flush();
    requireArray(out.good(), name);
    target_.section->close();
    requireArray(!out.fail(), name);
}

/// Other streams than files keep what they have.
void GridPropertyWriterBase::cutBack(std::int64_t position) noexcept
{
    try {
        if (auto* const file = dynamic_cast<Service::FileStream*>(&target_.section->stream()))
            file->truncateTo(position);
        target_.section->close();
    } catch (const std::exception&) {
        // The first fault is the one to tell.
    }
}

namespace {

/// W   AsciiSolutionArrayWriter or BinarySolutionArrayWriter
template <class W>
class GridPropertyWriter final : public GridPropertyWriterBase
{
public:
    using GridPropertyWriterBase::GridPropertyWriterBase;

private:
    bool writeHeader(const std::string& name, std::int32_t count, int type) override
    {
        return output_.start(stream(), name, count, static_cast<ValueType::Enum>(type));
    }

    bool writeValues(ArrayValues<std::string>& values) override { return writePieces(values); }

    bool writeValues(ArrayValues<int>& values) override { return writePieces(values); }

    bool writeValues(ArrayValues<float>& values) override { return writePieces(values); }

    bool writeValues(ArrayValues<double>& values) override { return writePieces(values); }

    template <class T>
    bool writePieces(ArrayValues<T>& values)
    {
        for (auto piece = values.next(); !piece.empty(); piece = values.next())
            if (!output_.write(piece))
                return false;
        return output_.finish();
    }

    W output_;
};

using AsciiGridPropertyWriter = GridPropertyWriter<AsciiSolutionArrayWriter>;
using BinaryGridPropertyWriter = GridPropertyWriter<BinarySolutionArrayWriter>;

} // namespace

std::unique_ptr<IGridPropertyWriter> makeGridPropertyWriter(bool formatted, GridPropertyTarget target)
{
    if (formatted)
        return std::make_unique<AsciiGridPropertyWriter>(std::move(target));
    return std::make_unique<BinaryGridPropertyWriter>(std::move(target));
}

} // namespace Kvt::Mrl::MrlIO
