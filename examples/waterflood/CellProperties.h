#pragma once

#include "Simulator.h"

#include <mrlio/MrlIO.h>

#include <functional>
#include <list>
#include <stdexcept>
#include <string>
#include <vector>

namespace waterflood {

/// The grids of the case as its files know them: the whole one, whose name is empty, then the local one if there is
/// one.
struct FileGrid
{
    std::string name;
    const Grid* cells = nullptr;
    const LocalGrid* local = nullptr; ///< null for the whole grid
};

/// They point into the reservoir.
std::vector<FileGrid> fileGrids(const Reservoir& reservoir);

/// One property of the cells as files hold it.
struct CellProperty
{
    enum Type
    {
        Real,
        Double,
        Integer
    };

    /// What a local cell has of its host's value.
    enum Locally
    {
        Same,
        Between, ///< a value between those of the cells around it
        Part     ///< its share of the volume
    };

    const char* name;
    Type type;
    Locally locally;
    bool everyCell; ///< in the files also of inactive cells
    double (*value)(const Simulator& simulator, std::size_t cell);
};

/// Pore volumes: what tells active cells from inactive ones.
extern const CellProperty poreVolumes;

/// What doesn't change with time, without the pore volumes.
const std::vector<CellProperty>& initialProperties();

/// What a report step holds.
const std::vector<CellProperty>& stepProperties();

double valueIn(const FileGrid& grid, const CellProperty& property, const Simulator& simulator, std::size_t cell);

/// Values as the library's writers ask for them: each by its place, so that no array has to be built. Grids have single
/// porosity here.
template <class T>
class CellValues : public Kvt::Mrl::MrlIO::IGridPropertyArray<T>
{
public:
    CellValues(std::size_t count, std::function<T(std::size_t)> value) : count_(count), value_(std::move(value)) {}

    int size() const override { return static_cast<int>(count_); }

    T getValue(int cell) const override { return value_(static_cast<std::size_t>(cell)); }

    T getFractureValue(int) const override { throw std::logic_error("there are no fractures"); }

    bool isDualPorosity() const override { return false; }

private:
    std::size_t count_;
    std::function<T(std::size_t)> value_;
};

/// A property of a grid. What it is given must outlive it.
template <class T>
CellValues<T> valuesOf(const FileGrid& grid, const CellProperty& property, const Simulator& simulator)
{
    return {grid.cells->cellCount(),
            [&](std::size_t cell) { return static_cast<T>(valueIn(grid, property, simulator, cell)); }};
}

/// The pore volumes of all grids: a writer uses them until it is closed, so each stays where it is.
std::list<CellValues<float>> poreVolumesOf(const std::vector<FileGrid>& grids, const Simulator& simulator);

/// The transmissibility of a local grid's outer face: its share of the face between the host and the neighbour.
float transmissibility(const LocalFace& face, const Simulator& simulator);

/// Writes properties of a grid through the library's writer of that grid.
void writeProperties(Kvt::Mrl::MrlIO::IGridPropertyWriter& writer, const FileGrid& grid,
                     const std::vector<CellProperty>& properties, const Simulator& simulator);

} // namespace waterflood
