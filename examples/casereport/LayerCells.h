#pragma once

#include "CellCase.h"
#include "PropertyMap.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace casereport {

/// The active cells of one layer of a case: of the whole grid and, over it, of the local grids with as many layers.
class LayerCells
{
public:
    /// layer   from 1; 0 for the one in the middle
    /// Throws std::runtime_error if the case has no such layer, or no cells at all.
    LayerCells(const CellCase& cells, int layer);

    /// The whole grid from above.
    const GridPlan& plan() const { return layers_.front().plan; }

    /// The names of the grids, the whole one's, which is empty, as the first.
    std::vector<std::string> grids() const;

    /// As in 3 of 5.
    std::string numberText() const;

    bool isMetric() const { return isMetric_; }

    /// Of the plan's places; empty if the case has no grid file, in which case they count cells.
    std::string lengthUnits() const { return hasGridFile_ && isMetric_ ? "m" : ""; }

    /// The layer's cells with their values, a sheet for each grid that has the property.
    std::vector<std::vector<MapCell>> valuesOf(const Kvt::Mrl::MrlIO::IPropertyDataAccess& data,
                                               const std::string& property) const;

    /// The lines between active cells and what isn't active, or doesn't belong to the same grid.
    std::vector<std::pair<Point, Point>> borders() const;

    /// Corners of the area that the whole grid covers.
    Point low() const;
    Point high() const;

private:
    /// The layer in one grid.
    struct Layer
    {
        std::string grid;
        GridPlan plan;
        std::size_t firstCell = 0; ///< its place in the grid's arrays
        std::vector<bool> active;

        bool isActive(int i, int j) const;
        void addBorders(std::vector<std::pair<Point, Point>>& lines) const;
    };

    template <class Reader>
    void addLayers(Reader& reader, const std::map<std::string, GridPlan>& plans);
    template <class Reader>
    void addLayer(Reader& reader, const std::string& grid, const GridPlan& plan);

    int layer_, layerCount_ = 0;
    bool hasGridFile_ = false, isMetric_ = false;
    std::vector<Layer> layers_;
};

} // namespace casereport
