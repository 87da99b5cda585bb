#include "summary/SummaryWriterVectors.h"

#include "core/Fail.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr std::size_t longestKeyword = 8;
constexpr std::size_t longestUnits = 8;
constexpr std::size_t longestName = 72;

constexpr float daysPerYear = 365.25F;
constexpr float hoursPerDay = 24.0F;

/// A time that stands in front of every record.
struct TimeVector
{
    const char* keyword;
    const char* units;
    const char* measurement;
};

constexpr std::array<TimeVector, 2> timesInDays{{{"TIME", "DAYS", "O:Simulation_Time"}, {"YEARS", "YEARS", ""}}};
constexpr std::array<TimeVector, 2> timesInHours{{{"TIME", "HOURS", "O:Simulation_Time"}, {"DAYS", "DAYS", ""}}};

std::unique_ptr<SummaryGridVectors> timeBlock(UnitSystemType::Enum units)
{
    auto block = std::make_unique<SummaryGridVectors>();
    for (const TimeVector& time : units == UnitSystemType::LAB ? timesInHours : timesInDays)
        block->rows.push_back(
            {.keyword = time.keyword, .name = {}, .units = time.units, .measurement = time.measurement});
    return block;
}

void checkLength(const char* what, const std::string& text, const char* plural, std::size_t longest)
{
    if (text.size() > longest)
        fail<std::invalid_argument>("Invalid ", what, ": ", text, ".  ", plural, " longer than ", longest,
                                    " characters are not supported.");
}

/// What the three limited texts of a vector are; its numbers and its measurement can be anything.
SummaryVectorRow checkedRow(const ISummaryVectorArraySpec& spec, int i, bool longNames)
{
    SummaryVectorRow row;
    row.keyword = spec.keyword(i);
    if (!longNames)
        checkLength("keyword", row.keyword, "Keyword names", longestKeyword);
    row.units = spec.units(i);
    checkLength("units", row.units, "Units", longestUnits);
    row.name = spec.name(i);
    checkLength("name", row.name, "Names", longestName);
    return row;
}

void setPosition(SummaryVectorRow& row, int x, int y, int z)
{
    row.x = x;
    row.y = y;
    row.z = z;
}

} // namespace

SummaryWriterVectors::SummaryWriterVectors(UnitSystemType::Enum units, bool longNames)
    : units_(units),
      longNames_(longNames)
{
    blocks_.push_back(timeBlock(units));
}

void SummaryWriterVectors::add(const std::string& grid, const ISummaryVectorArraySpec& spec)
{
    if (find(grid) != nullptr)
        fail<std::invalid_argument>("Grid \"", grid, "\" has already been specified");
    auto block = std::make_unique<SummaryGridVectors>();
    block->grid = grid;
    block->rows = describedRows(grid, spec, spec.size());
    block->hasMeasurements = spec.hasMeasurements();

    if (blocks_.size() == blocks_.capacity())
        blocks_.reserve(2 * blocks_.size()); // so that the insertion can't fail behind the entry of the name
    byName_.emplace(grid, block.get());
    blocks_.insert(grid.empty() ? blocks_.begin() + 1 : blocks_.end(), std::move(block));
}

void SummaryWriterVectors::update(const std::string& grid, const ISummaryVectorArraySpec& spec)
{
    SummaryGridVectors* block = find(grid);
    if (block == nullptr)
        fail<std::invalid_argument>("Grid \"", grid, "\" has not been specified using addArraySpec");
    const int size = spec.size();
    if (std::cmp_not_equal(size, block->rows.size()))
        fail<std::invalid_argument>("ArraySpec for grid \"", grid, "\" is a different size       (", size,
                                    ")       to the original added using addArraySpec       (", block->rows.size(),
                                    ")");
    std::vector<SummaryVectorRow> rows = describedRows(grid, spec, size);
    const bool hasMeasurements = spec.hasMeasurements();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!hasMeasurements)
            rows[i].measurement = block->rows[i].measurement;
        if (grid.empty())
            setPosition(rows[i], block->rows[i].x, block->rows[i].y, block->rows[i].z);
    }
    block->rows = std::move(rows);
    block->hasMeasurements = block->hasMeasurements || hasMeasurements;
}

/// Asks the caller for everything before anything of the writer is changed.
std::vector<SummaryVectorRow> SummaryWriterVectors::describedRows(const std::string& grid,
                                                                  const ISummaryVectorArraySpec& spec, int size) const
{
    std::vector<SummaryVectorRow> rows;
    rows.reserve(static_cast<std::size_t>(std::max(size, 0)));
    for (int i = 0; i < size; ++i)
        rows.push_back(checkedRow(spec, i, longNames_));

    const ISummaryVectorPositions* positions = spec.positions();
    if (positions == nullptr && !grid.empty())
        fail<std::invalid_argument>("The LGR positional array must be specified for LGR: ", grid);
    const bool hasMeasurements = spec.hasMeasurements();
    for (int i = 0; i < size; ++i) {
        SummaryVectorRow& row = rows[static_cast<std::size_t>(i)];
        row.num = spec.num(i);
        if (hasMeasurements)
            row.measurement = spec.measurement(i);
        if (positions != nullptr)
            setPosition(row, positions->x(i), positions->y(i), positions->z(i));
    }
    return rows;
}

SummaryGridVectors* SummaryWriterVectors::find(const std::string& grid)
{
    const auto found = byName_.find(grid);
    return found == byName_.end() ? nullptr : found->second;
}

std::size_t SummaryWriterVectors::count() const
{
    std::size_t count = 0;
    for (const auto& block : blocks_)
        count += block->rows.size();
    return count;
}

bool SummaryWriterVectors::hasLocalGrid() const
{
    return !blocks_.back()->grid.empty(); // local grids come last
}

bool SummaryWriterVectors::isAnyWritten() const
{
    return std::any_of(blocks_.begin(), blocks_.end(), [](const auto& block) { return block->isWritten; });
}

const SummaryGridVectors* SummaryWriterVectors::firstMissing() const
{
    const auto missing =
        std::find_if(blocks_.begin() + 1, blocks_.end(), [](const auto& block) { return !block->isWritten; });
    return missing == blocks_.end() ? nullptr : missing->get();
}

void SummaryWriterVectors::clearWritten()
{
    for (const auto& block : blocks_)
        block->isWritten = false;
}

std::vector<float> SummaryWriterVectors::record(float elapsedDays) const
{
    std::vector<float> values;
    values.reserve(count());
    if (units_ == UnitSystemType::LAB)
        values = {elapsedDays * hoursPerDay, elapsedDays};
    else
        values = {elapsedDays, elapsedDays / daysPerYear};
    for (const auto& block : blocks_)
        if (block->isWritten)
            values.insert(values.end(), block->values.begin(), block->values.end());
    return values;
}

} // namespace Kvt::Mrl::MrlIO
