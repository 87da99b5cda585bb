#include "initrestart/write/WellRegistry.h"

#include "core/Fail.h"
#include "initrestart/HeaderPositions.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

namespace Positions = HeaderPositions;

constexpr std::size_t longestName = 72;
constexpr std::size_t mostWords = std::size_t{1} << 27;

const std::string globalGrid;

void checkName(const std::string& name)
{
    if (name.empty())
        throw std::invalid_argument("Blank well names are not supported");
    if (name.size() > longestName)
        fail<std::invalid_argument>("Invalid well name: ", name, ".  Well names longer than ", longestName,
                                    " characters are not supported.");
}

/// The count of a caller's things, each of which takes so many words. Checked before anything is done per thing.
int checkedCount(const char* things, int count, std::size_t words)
{
    if (count < 0 || static_cast<std::size_t>(count) > mostWords / words)
        fail<std::invalid_argument>("Invalid number of ", things, ": ", count, ".");
    return count;
}

/// The local grid of each connection, empty for those with the global grid.
std::vector<std::string> lgrNames(const IWellConnectionArray& connections)
{
    std::vector<std::string> names(
        static_cast<std::size_t>(checkedCount("well connections", connections.size(), Positions::Icon::size)));
    for (std::size_t i = 0; i < names.size(); ++i) {
        const int connection = static_cast<int>(i);
        if (!connections.isInLgr(connection))
            continue;
        names[i] = connections.getLgrName(connection);
        if (names[i].empty())
            throw std::invalid_argument("Blank LGR names are not supported");
    }
    return names;
}

void checkGrids(const std::vector<std::string>& names, const WellRegistry::IsGridDeclared& isDeclared)
{
    for (const std::string& name : names)
        if (!name.empty() && !isDeclared(name))
            fail<std::invalid_argument>("A well connection has been specified in grid: \"", name,
                                        "\".  This grid has not been specified.");
    if (!isDeclared(globalGrid))
        throw std::invalid_argument("A well connection has been specified in the global grid."
                                    "                                  This grid has not been specified.");
}

/// All connections stand under the global grid, in a row of one host cell only once, those with local grids there too.
void takeConnections(Well& well, const IWellConnectionArray& connections, const std::vector<std::string>& grids,
                     const IMSWSegmentData* segments)
{
    for (std::size_t i = 0; i < grids.size(); ++i) {
        const int index = static_cast<int>(i);
        const int segment = segments != nullptr ? segments->getConnectionSegment(index) : 0;
        WellConnection connection{connections.getCell(index), connections.isOpen(index), index, segment};
        std::vector<WellConnection>& global = well.connections[globalGrid];
        if (i > 0 && grids[i] == grids[i - 1] && global.back().cell == connection.cell)
            global.back().isOpen |= connection.isOpen;
        else
            global.push_back(connection);
        if (grids[i].empty())
            continue;
        connection.cell = connections.getLgrCell(index);
        well.connections[grids[i]].push_back(connection);
    }
}

void takeSegments(Well& well, const IMSWSegmentData& data)
{
    const int segmentCount = checkedCount("well segments", data.segmentCount(), Positions::Iseg::size);
    for (int i = 0; i < segmentCount; ++i) {
        const int userIndex = data.getUserIndex(i);
        if (userIndex < 1)
            throw std::invalid_argument("Invalid segment user index. Must be >=1.");
        well.segments.push_back({userIndex, data.getSegmentSecondValue(i), data.getSegmentFourthValue(i)});
    }
    const int branchCount = checkedCount("well branches", data.branchCount(), Positions::Ilbr::size);
    for (int branch = 0; branch < branchCount; ++branch)
        well.branchHeads.push_back(data.getBranchHead(branch));
}

void checkWords(const Well& well, const char* keyword, std::size_t words)
{
    if (words > mostWords)
        fail<std::invalid_argument>("Invalid well: ", well.name, ".  ", keyword, " would hold ", words,
                                    " words, more than ", mostWords, ".");
}

} // namespace

void WellRegistry::add(const std::string& name, WellType::Enum type, WellStatus::Enum status,
                       const IWellConnectionArray& connections, const IMSWSegmentData* segments,
                       const IsGridDeclared& isDeclared)
{
    checkName(name);
    const std::vector<std::string> grids = lgrNames(connections);
    checkGrids(grids, isDeclared);
    Well well{.name = name, .type = type, .status = status};
    well.isSegmented = segments != nullptr && segments->isSegmented();
    if (segments != nullptr && std::cmp_not_equal(segments->connectionCount(), grids.size()))
        throw std::invalid_argument("Well connection grid data and connection segment data arrays are of different"
                                    " sizes.");
    takeConnections(well, connections, grids, well.isSegmented ? segments : nullptr);
    if (well.isSegmented)
        takeSegments(well, *segments);
    const Maxima maxima = maximaWith(well, grids.size());
    checkRecordSizes(maxima, well);
    record(std::move(well));
    maxima_ = maxima;
}

void WellRegistry::clear()
{
    *this = WellRegistry();
}

WellCounts WellRegistry::counts(const std::string& gridName) const
{
    WellCounts counts;
    for (const Well* well : wellsOf(gridName)) {
        ++counts.wells;
        counts.segmentedWells += well->isSegmented ? 1U : 0U;
    }
    counts.connections = maxima_.connections;
    counts.segments = maxima_.segments;
    counts.branches = maxima_.branches;
    counts.namePieces = maxima_.namePieces;
    return counts;
}

std::vector<const Well*> WellRegistry::wellsOf(const std::string& gridName) const
{
    std::vector<const Well*> wells;
    for (const Well& well : wells_)
        if (well.connections.contains(gridName))
            wells.push_back(&well);
    return wells;
}

WellRegistry::Maxima WellRegistry::maximaWith(const Well& well, std::size_t connectionCount) const
{
    Maxima maxima = maxima_;
    maxima.connections = std::max(maxima.connections, connectionCount);
    for (const WellSegment& segment : well.segments)
        maxima.segments = std::max(maxima.segments, static_cast<std::size_t>(segment.userIndex));
    maxima.branches = std::max(maxima.branches, well.branchHeads.size());
    maxima.namePieces = std::max(maxima.namePieces, (well.name.size() + wellNamePiece - 1) / wellNamePiece);
    return maxima;
}

const Well* WellRegistry::find(const std::string& name) const
{
    const auto place = places_.find(name);
    return place == places_.end() ? nullptr : &wells_[place->second];
}

std::size_t WellRegistry::segmentedCountWith(const Well& well) const
{
    const Well* earlier = find(well.name);
    const std::size_t others = segmentedCount_ - (earlier != nullptr && earlier->isSegmented ? 1U : 0U);
    return others + (well.isSegmented ? 1U : 0U);
}

void WellRegistry::checkRecordSizes(const Maxima& maxima, const Well& well) const
{
    const std::size_t wellCount = wells_.size() + (find(well.name) == nullptr ? 1U : 0U);
    const std::size_t segmentedCount = segmentedCountWith(well);
    checkWords(well, "ISEG", Positions::Iseg::size * maxima.segments * segmentedCount);
    checkWords(well, "ILBR", Positions::Ilbr::size * maxima.branches * segmentedCount);
    checkWords(well, "IWEL", Positions::Iwel::size * wellCount);
    checkWords(well, "ICON", Positions::Icon::size * maxima.connections * wellCount);
}

void WellRegistry::record(Well&& well)
{
    segmentedCount_ = segmentedCountWith(well);
    const auto place = places_.find(well.name);
    if (place != places_.end()) {
        wells_[place->second] = std::move(well);
        return;
    }
    wells_.push_back(std::move(well));
    places_.emplace(wells_.back().name, wells_.size() - 1);
}

} // namespace Kvt::Mrl::MrlIO
