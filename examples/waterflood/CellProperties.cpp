#include "CellProperties.h"

namespace waterflood {

const CellProperty poreVolumes{
    "PORV", CellProperty::Real, CellProperty::Part, true, [](const Simulator& s, std::size_t cell) {
        const Reservoir& reservoir = s.reservoir();
        return reservoir.grid.active[cell] ? reservoir.grid.cellVolume() * reservoir.rock.porosity[cell] : 0.0;
    }};

const std::vector<CellProperty>& initialProperties()
{
    using Property = CellProperty;
    static const std::vector<CellProperty> table{
        {"DEPTH", Property::Real, Property::Between, true,
         [](const Simulator& s, std::size_t cell) { return s.reservoir().grid.depth(cell); }},
        {"DZ", Property::Real, Property::Same, true,
         [](const Simulator& s, std::size_t) { return s.reservoir().grid.dz; }},
        {"PORO", Property::Real, Property::Same, false,
         [](const Simulator& s, std::size_t cell) { return s.reservoir().rock.porosity[cell]; }},
        {"PERMX", Property::Real, Property::Same, false,
         [](const Simulator& s, std::size_t cell) { return s.reservoir().rock.permeability[cell]; }},
        {"PERMZ", Property::Real, Property::Same, false,
         [](const Simulator& s, std::size_t cell) {
             return s.reservoir().rock.verticalRatio * s.reservoir().rock.permeability[cell];
         }},
        {"FIPNUM", Property::Integer, Property::Same, false,
         [](const Simulator& s, std::size_t cell) { return static_cast<double>(s.reservoir().regions[cell]); }},
    };
    return table;
}

const std::vector<CellProperty>& stepProperties()
{
    using Property = CellProperty;
    static const std::vector<CellProperty> table{
        {"PRESSURE", Property::Real, Property::Between, false,
         [](const Simulator& s, std::size_t cell) { return s.pressures()[cell]; }},
        {"SWAT", Property::Real, Property::Between, false,
         [](const Simulator& s, std::size_t cell) { return s.waterSaturations()[cell]; }},
        {"SOIL", Property::Real, Property::Between, false,
         [](const Simulator& s, std::size_t cell) { return 1.0 - s.waterSaturations()[cell]; }},
        {"RPORV", Property::Double, Property::Part, false,
         [](const Simulator& s, std::size_t cell) { return s.poreVolume(cell); }},
    };
    return table;
}

std::vector<FileGrid> fileGrids(const Reservoir& reservoir)
{
    std::vector<FileGrid> grids{{"", &reservoir.grid, nullptr}};
    if (reservoir.localGrid)
        grids.push_back({reservoir.localGrid->name, &reservoir.localGrid->grid, &*reservoir.localGrid});
    return grids;
}

double valueIn(const FileGrid& grid, const CellProperty& property, const Simulator& simulator, std::size_t cell)
{
    const auto valueOfHost = [&](std::size_t host) { return property.value(simulator, host); };
    if (grid.local == nullptr)
        return valueOfHost(cell);
    if (property.locally == CellProperty::Between)
        return grid.local->interpolate(valueOfHost, cell);
    const double parts = property.locally == CellProperty::Part ? LocalGrid::refinement * LocalGrid::refinement : 1.0;
    return valueOfHost(grid.local->hosts[cell]) / parts;
}

std::list<CellValues<float>> poreVolumesOf(const std::vector<FileGrid>& grids, const Simulator& simulator)
{
    std::list<CellValues<float>> porv;
    for (const FileGrid& grid : grids)
        porv.push_back(valuesOf<float>(grid, poreVolumes, simulator));
    return porv;
}

float transmissibility(const LocalFace& face, const Simulator& simulator)
{
    return static_cast<float>(simulator.transmissibility(face.ownerOfWhole, face.direction) / LocalGrid::refinement);
}

void writeProperties(Kvt::Mrl::MrlIO::IGridPropertyWriter& writer, const FileGrid& grid,
                     const std::vector<CellProperty>& properties, const Simulator& simulator)
{
    for (const CellProperty& property : properties) {
        const bool activeOnly = !property.everyCell;
        if (property.type == CellProperty::Real)
            writer.write(property.name, valuesOf<float>(grid, property, simulator), activeOnly);
        else if (property.type == CellProperty::Double)
            writer.write(property.name, valuesOf<double>(grid, property, simulator), activeOnly);
        else
            writer.write(property.name, valuesOf<int>(grid, property, simulator), activeOnly);
    }
}

} // namespace waterflood
