#pragma once

#include "dumpflux/DumpfluxCellGenerator.h"
#include "dumpflux/DumpfluxContentIndex.h"

#include <mrlio/DumpfluxCell.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <span>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The connections of a dump, and what one region sees of them. What it finds out for a region it keeps, so that a
/// further question costs copies only. Questions fill their results and are false if there are no connections.
class DumpfluxRegionManager
{
public:
    using Cells = std::vector<std::shared_ptr<DumpfluxCell>>;
    using Indexes = std::vector<int>;

    /// index    has to outlive the manager
    /// throws   DumpfluxReaderException if the file is there, but has no sound list of connections; MrlIOException if
    ///          it is damaged
    explicit DumpfluxRegionManager(const DumpfluxContentIndex& index);

    virtual ~DumpfluxRegionManager();
    DumpfluxRegionManager(const DumpfluxRegionManager&) = delete;
    DumpfluxRegionManager& operator=(const DumpfluxRegionManager&) = delete;

    virtual const std::set<int>& regions() const;
    virtual int numConnections() const;

    /// The cells of all connections, as objects and as indexes.
    virtual bool cells(Cells& first, Cells& second);
    virtual bool cells(Indexes& first, Indexes& second) const;

    /// The same for the connections of the region of that number; false, too, for an unknown one.
    virtual bool cells(int number, Cells& outer, Cells& inner);
    virtual bool cells(int number, Indexes& outer, Indexes& inner);

    virtual bool rawData(Cells& first, Cells& second, Indexes& direction, Indexes& firstRegion, Indexes& secondRegion,
                         std::vector<bool>& required);
    virtual bool rawData(Indexes& first, Indexes& second, Indexes& direction, Indexes& firstRegion,
                         Indexes& secondRegion, std::vector<bool>& required) const;

    /// Turns the values of all connections into those that a region sees.
    /// False, with `ofRegion` empty, for an unknown region, a wrong number of values and an unknown boundary type.
    virtual bool values(int number, std::span<const double> values, std::vector<double>& ofRegion);

private:
    /// The connections of a region, and the cells at their ends: those of `asFirst` come first.
    struct Region
    {
        std::vector<std::uint32_t> asFirst;  // those that have it as their first region
        std::vector<std::uint32_t> asSecond; // those that have it as their second region
        Indexes outer;
        Indexes inner;
        Cells outerCells; // empty until asked for
        Cells innerCells;
    };

    void read();
    std::span<const int> column(std::size_t number) const;
    Region* find(int number);
    void fill(int number, Region& region) const;
    void makeCells(std::span<const int> indexes, Cells& cells);
    void columns(Indexes& direction, Indexes& firstRegion, Indexes& secondRegion, std::vector<bool>& required) const;

    const DumpfluxContentIndex& index_;
    std::vector<int> table_; // column behind column
    std::size_t numConnections_ = 0;
    std::set<int> regions_;
    std::map<int, Region> found_;
    Cells firstCells_; // empty until asked for
    Cells secondCells_;
    DumpfluxCellGenerator generator_;
};

} // namespace Kvt::Mrl::MrlIO
