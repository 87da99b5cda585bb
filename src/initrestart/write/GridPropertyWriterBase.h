#pragma once

/// \file
/// Writers of whole property arrays of one grid.

#include "initrestart/Extrema.h"
#include "initrestart/write/ActiveCells.h"
#include "initrestart/write/ArrayValues.h"

#include <mrlio/GridSpec.h>
#include <mrlio/IGridPropertyWriter.h>
#include <mrlio/SpecStatsData.h>
#include <mrlio/StreamSection.h>

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// What a writer looks at before it writes an array.
enum class ArrayChecks
{
    All,      ///< name, length, and every value is asked for
    NameOnly, ///< for arrays that don't belong to the grid's cells
    None
};

/// What a property writer writes for, and where to.
struct GridPropertyTarget
{
    GridSpec grid;
    /// Null for arrays that don't belong to the grid's cells: activeOnly leaves nothing out then.
    std::shared_ptr<ActiveCells> activeCells;
    /// Closed behind every array. A SeqStreamWrapper serves the sequential writers.
    std::shared_ptr<StreamSection> section;
    /// Gets a row per array that was written whole, with its position in the section's stream. Not owned.
    SpecStatsData* rows;
    ArrayChecks checks = ArrayChecks::All;
};

/// What the writers of both forms have in common: the checks, the extrema, the rows and the life of the section.
class GridPropertyWriterBase : public IGridPropertyWriter
{
public:
    explicit GridPropertyWriterBase(GridPropertyTarget target);
    ~GridPropertyWriterBase() override;

    int count() const override;
    void setBufferSize(int bufferSize) override;
    void write(const std::string& name, const IGridPropertyArray<std::string>& array, bool activeOnly) override;
    void write(const std::string& name, const IGridPropertyArray<int>& array, bool activeOnly) override;
    void write(const std::string& name, const IGridPropertyArray<float>& array, bool activeOnly) override;
    void write(const std::string& name, const IGridPropertyArray<double>& array, bool activeOnly) override;

protected:
    std::ostream& stream() { return target_.section->stream(); }

private:
    template <class T>
    void writeArray(const std::string& name, const IGridPropertyArray<T>& array, bool activeOnly);
    template <class T>
    ArraySelection select(const std::string& name, const IGridPropertyArray<T>& array, bool activeOnly) const;
    template <class T>
    Extrema writeAt(std::ostream& out, const std::string& name, const IGridPropertyArray<T>& array,
                    const ArraySelection& selection);
    void checkLength(const std::string& name, int size) const;
    void endArray(std::ostream& out, const std::string& name);
    void cutBack(std::int64_t position) noexcept;

    GridPropertyTarget target_;
    bool sectionCloses_;
};

/// A writer in either form.
std::unique_ptr<IGridPropertyWriter> makeGridPropertyWriter(bool formatted, GridPropertyTarget target);

} // namespace Kvt::Mrl::MrlIO
