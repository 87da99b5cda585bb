#pragma once

#include <mrlio/GridCellCoordinates.h>
#include <mrlio/IMSWSegmentData.h>
#include <mrlio/IWellConnectionArray.h>
#include <mrlio/WellStatus.h>
#include <mrlio/WellType.h>

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Characters of one string in ZWEL, which holds a name in several.
constexpr std::size_t wellNamePiece = 8;

/// A connection as one grid's records show it.
struct WellConnection
{
    GridCellCoordinates cell;
    bool isOpen = false;
    int index = 0; ///< in the caller's array
    int segment = 0;
};

struct WellSegment
{
    int userIndex = 0; ///< from 1
    int second = 0;
    int fourth = 0;
};

struct Well
{
    std::string name;
    WellType::Enum type = WellType::Unknown;
    WellStatus::Enum status = WellStatus::Shut;
    bool isSegmented = false;
    std::map<std::string, std::vector<WellConnection>> connections{}; ///< by grid, the global one under an empty name
    std::vector<WellSegment> segments{};
    std::vector<int> branchHeads{};
};

/// What the headers of one grid tell of the wells. The first two concern the grid, the others all wells.
struct WellCounts
{
    std::size_t wells = 0;
    std::size_t segmentedWells = 0;
    std::size_t connections = 0; ///< the most that a well has, as the caller counts them
    std::size_t segments = 0;    ///< the largest user number of a segment
    std::size_t branches = 0;    ///< the most that a well has
    std::size_t namePieces = 0;  ///< pieces of 8 characters in the longest name
};

/// The wells of the report step that is being written, in the order in which they were first named.
class WellRegistry
{
public:
    using IsGridDeclared = std::function<bool(const std::string& gridName)>;

    /// Records a well, or what has changed of a well that stands here already: it keeps its place.
    /// segments     null for an ordinary well
    /// isDeclared   asked for the global grid, whose name is empty, and for each local grid that is named
    /// throws       std::invalid_argument for whatever is wrong with the well, and for numbers of connections, segments
    ///              and branches that make records of more than 134217728 words; then nothing changes, and neither does
    ///              it when one of the interfaces throws
    void add(const std::string& name, WellType::Enum type, WellStatus::Enum status,
             const IWellConnectionArray& connections, const IMSWSegmentData* segments,
             const IsGridDeclared& isDeclared);

    void clear();

    WellCounts counts(const std::string& gridName) const;

    /// The wells that have connections in a grid, good until the next change.
    std::vector<const Well*> wellsOf(const std::string& gridName) const;

private:
    /// The largest numbers met so far, which stay when the well that brought them is replaced.
    struct Maxima
    {
        std::size_t connections = 0;
        std::size_t segments = 0;
        std::size_t branches = 0;
        std::size_t namePieces = 0;
    };

    Maxima maximaWith(const Well& well, std::size_t connectionCount) const;
    const Well* find(const std::string& name) const;
    std::size_t segmentedCountWith(const Well& well) const;
    void checkRecordSizes(const Maxima& maxima, const Well& well) const;
    void record(Well&& well);

    std::vector<Well> wells_;
    std::map<std::string, std::size_t> places_; // in wells_, by name
    std::size_t segmentedCount_ = 0;
    Maxima maxima_;
};

} // namespace Kvt::Mrl::MrlIO
