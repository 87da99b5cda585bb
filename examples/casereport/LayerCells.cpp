#include "LayerCells.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace casereport {

using namespace Kvt::Mrl::MrlIO;

namespace {

bool isPlanOf(const std::map<std::string, GridPlan>& plans, const std::string& grid, int nx, int ny)
{
    const auto plan = plans.find(grid);
    return plan != plans.end() && plan->second.nx == nx && plan->second.ny == ny;
}

} // namespace

LayerCells::LayerCells(const CellCase& cells, int layer) : layer_(layer)
{
    std::map<std::string, GridPlan> plans;
    if (!cells.gridFile().empty())
        plans = readGridPlans(cells.gridFile());
    if (cells.steps() != nullptr && cells.steps()->numCells() > 0)
        addLayers(*cells.steps(), plans);
    else if (cells.initial() != nullptr)
        addLayers(*cells.initial(), plans);
    if (layers_.empty())
        throw std::runtime_error("the case has no cells in layer " + std::to_string(layer));
}

/// An init reader and a restart reader answer the same questions about grids.
template <class Reader>
void LayerCells::addLayers(Reader& reader, const std::map<std::string, GridPlan>& plans)
{
    int nx = 0, ny = 0;
    if (!reader.gridDimension(nx, ny, layerCount_))
        return;
    if (layer_ == 0)
        layer_ = (layerCount_ + 1) / 2;
    isMetric_ = reader.unitSystem() == UnitSystemType::METRIC;
    hasGridFile_ = isPlanOf(plans, "", nx, ny);
    addLayer(reader, "", hasGridFile_ ? plans.at("") : evenPlan(nx, ny));
    for (const std::string& grid : reader.LGRs()) {
        int layers = 0;
        // Without a plan nobody knows where to draw a local grid.
        if (hasGridFile_ && reader.gridDimension(nx, ny, layers, grid) && layers == layerCount_ &&
            isPlanOf(plans, grid, nx, ny))
            addLayer(reader, grid, plans.at(grid));
    }
}

template <class Reader>
void LayerCells::addLayer(Reader& reader, const std::string& grid, const GridPlan& plan)
{
    const std::size_t size = static_cast<std::size_t>(plan.nx) * static_cast<std::size_t>(plan.ny);
    const std::size_t first = size * static_cast<std::size_t>(layer_ - 1);
    const std::vector<bool>& active = reader.getCellActivitiesInfo(grid).activeCells(false);
    if (active.size() < first + size)
        return;
    const auto begin = active.begin() + static_cast<std::ptrdiff_t>(first);
    layers_.push_back({grid, plan, first, {begin, begin + static_cast<std::ptrdiff_t>(size)}});
}

std::vector<std::string> LayerCells::grids() const
{
    std::vector<std::string> names;
    for (const Layer& layer : layers_)
        names.push_back(layer.grid);
    return names;
}

std::string LayerCells::numberText() const
{
    return std::to_string(layer_) + " of " + std::to_string(layerCount_);
}

std::vector<std::vector<MapCell>> LayerCells::valuesOf(const IPropertyDataAccess& data,
                                                       const std::string& property) const
{
    std::vector<std::vector<MapCell>> sheets;
    for (const Layer& layer : layers_) {
        std::vector<double> values;
        if (!data.getAnyArray(property, values, layer.grid))
            continue;
        std::vector<MapCell> sheet;
        for (int j = 0; j < layer.plan.ny; ++j)
            for (int i = 0; i < layer.plan.nx; ++i) {
                const std::size_t cell = layer.firstCell + static_cast<std::size_t>(i) +
                                         static_cast<std::size_t>(layer.plan.nx) * static_cast<std::size_t>(j);
                if (layer.isActive(i, j) && cell < values.size() && std::isfinite(values[cell]))
                    sheet.push_back({{layer.plan.pillar(i, j), layer.plan.pillar(i + 1, j),
                                      layer.plan.pillar(i + 1, j + 1), layer.plan.pillar(i, j + 1)},
                                     values[cell]});
            }
        sheets.push_back(std::move(sheet));
    }
    return sheets;
}

bool LayerCells::Layer::isActive(int i, int j) const
{
    return i >= 0 && i < plan.nx && j >= 0 && j < plan.ny &&
           active[static_cast<std::size_t>(i) + static_cast<std::size_t>(plan.nx) * static_cast<std::size_t>(j)];
}

void LayerCells::Layer::addBorders(std::vector<std::pair<Point, Point>>& lines) const
{
    for (int j = 0; j <= plan.ny; ++j)
        for (int i = 0; i <= plan.nx; ++i) {
            if (i < plan.nx && isActive(i, j) != isActive(i, j - 1))
                lines.emplace_back(plan.pillar(i, j), plan.pillar(i + 1, j));
            if (j < plan.ny && isActive(i, j) != isActive(i - 1, j))
                lines.emplace_back(plan.pillar(i, j), plan.pillar(i, j + 1));
        }
}

std::vector<std::pair<Point, Point>> LayerCells::borders() const
{
    std::vector<std::pair<Point, Point>> lines;
    for (const Layer& layer : layers_)
        layer.addBorders(lines);
    return lines;
}

Point LayerCells::low() const
{
    Point corner = plan().pillars.front();
    for (const Point& pillar : plan().pillars)
        corner = {std::min(corner.x, pillar.x), std::min(corner.y, pillar.y)};
    return corner;
}

Point LayerCells::high() const
{
    Point corner = plan().pillars.front();
    for (const Point& pillar : plan().pillars)
        corner = {std::max(corner.x, pillar.x), std::max(corner.y, pillar.y)};
    return corner;
}

} // namespace casereport
