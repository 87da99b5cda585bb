#pragma once

#include <mrlio/GridDef.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The active cells of one medium of a grid, one bit a cell.
class ActivityBits
{
public:
    /// A run of neighbouring cells.
    struct Run
    {
        int first;
        int count;
    };

    /// Adds the cell behind the last one.
    void append(bool active);

    /// Number of cells that are active.
    int activeCount() const { return activeCount_; }

    /// Number of cells.
    int size() const { return size_; }

    /// The first run of active cells from cell on and in front of end, cut to mostCells; a count of 0 if there is none.
    Run nextRun(int cell, int end, int mostCells) const;

private:
    std::int64_t find(std::int64_t cell, std::int64_t end, bool active) const;

    std::vector<std::uint64_t> words_;
    int size_ = 0;
    int activeCount_ = 0;
};

/// Which cells of a grid are active, matrix and fracture apart. Found out at the first question and kept: that reads
/// pore volumes and rock volumes once. Without dual porosity there are no fracture cells.
class ActiveCells
{
public:
    /// grid   copied; what it points to must live until the last question
    explicit ActiveCells(const GridDef& grid) : grid_(grid) {}

    const GridDef& grid() const { return grid_; }

    /// All four throw std::invalid_argument for a grid of more cells than an int can count, and what the arrays of
    /// volumes throw.
    const ActivityBits& matrix();
    const ActivityBits& fracture();

    /// Active cells of matrix and fracture together.
    std::int64_t count();

private:
    void findOut();

    GridDef grid_;
    bool known_ = false;
    ActivityBits matrix_;
    ActivityBits fracture_;
};

/// Number of cells of a grid, which GridSpec::getNoCells gives in 32 bits only.
std::int64_t cellCount(const GridSpec& grid);

} // namespace Kvt::Mrl::MrlIO
