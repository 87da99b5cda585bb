#pragma once

#include <mrlio/ISummaryVectorArray.h>
#include <mrlio/UnitSystemType.h>

#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// One vector: its columns in the arrays of SMSPEC.
struct SummaryVectorRow
{
    std::string keyword;
    std::string name;
    int num = 0;
    std::string units;
    std::string measurement;
    int x = 0;
    int y = 0;
    int z = 0;
};

/// The vectors of one grid, and their values in the current mini step.
struct SummaryGridVectors
{
    std::string grid; ///< empty for the global grid
    std::vector<SummaryVectorRow> rows;
    bool hasMeasurements = false;
    std::vector<float> values; ///< good while isWritten
    bool isWritten = false;
};

/// The vectors of a case in the order of its records: the two times, those of the global grid, those of the local grids
/// as they were added.
class SummaryWriterVectors
{
public:
    /// longNames   keywords may be of any length
    SummaryWriterVectors(UnitSystemType::Enum units, bool longNames);

    /// throws   std::invalid_argument, with nothing changed, if the grid is known or its description can't be written
    void add(const std::string& grid, const ISummaryVectorArraySpec& spec);

    /// throws   std::invalid_argument, with nothing changed, if the grid isn't known, the size differs or the
    ///          description can't be written
    void update(const std::string& grid, const ISummaryVectorArraySpec& spec);

    /// Null for a grid that wasn't added. Stays good until the end of this object.
    SummaryGridVectors* find(const std::string& grid);

    /// The grids in the order of the records; the first of them is the pair of times.
    const std::vector<std::unique_ptr<SummaryGridVectors>>& blocks() const { return blocks_; }

    /// Number of vectors, the two times included.
    std::size_t count() const;

    bool hasLocalGrid() const;

    /// Calls use(block, row) for each vector in the order of the records.
    template <class Use>
    void forEachRow(Use&& use) const
    {
        for (const auto& block : blocks_)
            for (const SummaryVectorRow& row : block->rows)
                use(*block, row);
    }

    /// True if the current mini step has values of any grid.
    bool isAnyWritten() const;

    /// The first grid in the order of the records that has no values in the current mini step; null if all have.
    const SummaryGridVectors* firstMissing() const;

    /// Begins a mini step without values.
    void clearWritten();

    /// The values of a record. The first vector is the time elapsed in days, the second in years; in LAB units they are
    /// hours and days.
    std::vector<float> record(float elapsedDays) const;

private:
    std::vector<SummaryVectorRow> describedRows(const std::string& grid, const ISummaryVectorArraySpec& spec,
                                                int size) const;

    UnitSystemType::Enum units_;
    bool longNames_;
    std::vector<std::unique_ptr<SummaryGridVectors>> blocks_;
    std::unordered_map<std::string, SummaryGridVectors*> byName_;
};

} // namespace Kvt::Mrl::MrlIO
