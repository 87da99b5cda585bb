#include "initrestart/write/WellRecords.h"

#include "initrestart/HeaderPositions.h"
#include "service/Text.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace Kvt::Mrl::MrlIO {

namespace {

namespace Icon = HeaderPositions::Icon;
namespace Ilbr = HeaderPositions::Ilbr;
namespace Iseg = HeaderPositions::Iseg;
namespace Iwel = HeaderPositions::Iwel;

constexpr int connectionDirection = 3;

/// The wells of one grid with what the sizes of the records follow from.
struct GridWells
{
    std::vector<const Well*> wells;
    std::vector<const Well*> segmented;
    WellCounts counts;
    std::string gridName;

    GridWells(const WellRegistry& registry, const std::string& grid)
        : wells(registry.wellsOf(grid)),
          counts(registry.counts(grid)),
          gridName(grid)
    {
        std::copy_if(wells.begin(), wells.end(), std::back_inserter(segmented),
                     [](const Well* well) { return well->isSegmented; });
    }

    const std::vector<WellConnection>& connections(const Well& well) const { return well.connections.at(gridName); }
};

template <class Keyword, class T>
void writeArray(KeywordWriter& writer, const char* name, std::vector<T> values)
{
    Keyword keyword(name);
    keyword.size(std::ssize(values));
    keyword.array() = std::move(values);
    writer.write(keyword);
}

std::vector<int> segmentWords(const GridWells& grid)
{
    const std::size_t wellSize = grid.counts.segments * Iseg::size;
    std::vector<int> words(wellSize * grid.segmented.size());
    for (std::size_t place = 0; place < grid.segmented.size(); ++place)
        for (const WellSegment& segment : grid.segmented[place]->segments) {
            int* const record = &words[place * wellSize + static_cast<std::size_t>(segment.userIndex - 1) * Iseg::size];
            record[Iseg::second] = segment.second;
            record[Iseg::fourth] = segment.fourth;
        }
    return words;
}

std::vector<int> branchWords(const GridWells& grid)
{
    const std::size_t wellSize = grid.counts.branches * Ilbr::size;
    std::vector<int> words(wellSize * grid.segmented.size());
    for (std::size_t place = 0; place < grid.segmented.size(); ++place) {
        const std::vector<int>& heads = grid.segmented[place]->branchHeads;
        for (std::size_t branch = 0; branch < heads.size(); ++branch) {
            int* const record = &words[place * wellSize + branch * Ilbr::size];
            record[Ilbr::head] = heads[branch];
            record[Ilbr::number] = static_cast<int>(branch);
        }
    }
    return words;
}

std::vector<int> wellWords(const GridWells& grid, int gridIndex)
{
    std::vector<int> words(Iwel::size * grid.wells.size());
    int segmentedNumber = 0;
    for (std::size_t place = 0; place < grid.wells.size(); ++place) {
        const Well& well = *grid.wells[place];
        const std::vector<WellConnection>& connections = grid.connections(well);
        int* const record = &words[place * Iwel::size];
        record[Iwel::firstI] = static_cast<int>(connections.front().cell.getI());
        record[Iwel::firstJ] = static_cast<int>(connections.front().cell.getJ());
        record[Iwel::connections] = static_cast<int>(connections.size());
        record[Iwel::type] = well.type;
        record[Iwel::status] = well.status;
        record[Iwel::grid] = gridIndex;
        record[Iwel::segmentedNumber] = well.isSegmented ? ++segmentedNumber : 0;
    }
    return words;
}

std::vector<std::string> nameStrings(const GridWells& grid)
{
    std::vector<std::string> strings;
    strings.reserve(grid.wells.size() * grid.counts.namePieces);
    for (const Well* well : grid.wells) {
        std::vector<std::string> pieces;
        Service::StringSplit(well->name, wellNamePiece, pieces);
        pieces.resize(grid.counts.namePieces);
        std::move(pieces.begin(), pieces.end(), std::back_inserter(strings));
    }
    return strings;
}

void fillConnection(int* record, const WellConnection& connection)
{
    const GridCellCoordinates& cell = connection.cell;
    record[Icon::number] = cell.isCellValid() ? connection.index + 1 : ~connection.index;
    record[Icon::i] = static_cast<int>(cell.getI());
    record[Icon::j] = static_cast<int>(cell.getJ());
    record[Icon::k] = static_cast<int>(cell.getK());
    record[Icon::open] = connection.isOpen ? 1 : 0;
    record[Icon::direction] = connectionDirection;
    record[Icon::segment] = connection.segment;
}

std::vector<int> connectionWords(const GridWells& grid)
{
    const std::size_t wellSize = grid.counts.connections * Icon::size;
    std::vector<int> words(wellSize * grid.wells.size());
    for (std::size_t place = 0; place < grid.wells.size(); ++place) {
        int* record = &words[place * wellSize];
        for (const WellConnection& connection : grid.connections(*grid.wells[place])) {
            fillConnection(record, connection);
            record += Icon::size;
        }
    }
    return words;
}

void writeIfAny(KeywordWriter& writer, const char* name, std::vector<int> words)
{
    if (!words.empty())
        writeArray<KeywordINTE>(writer, name, std::move(words));
}

} // namespace

void writeWellRecords(KeywordWriter& writer, const WellRegistry& wells, const std::string& gridName, int gridIndex)
{
    const GridWells grid(wells, gridName);
    if (grid.wells.empty())
        return;
    writeIfAny(writer, "ISEG", segmentWords(grid));
    writeIfAny(writer, "ILBR", branchWords(grid));
    writeArray<KeywordINTE>(writer, "IWEL", wellWords(grid, gridIndex));
    writeArray<KeywordCHAR>(writer, "ZWEL", nameStrings(grid));
    writeArray<KeywordINTE>(writer, "ICON", connectionWords(grid));
}

} // namespace Kvt::Mrl::MrlIO
