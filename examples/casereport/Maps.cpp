#include "Maps.h"

#include "Dates.h"
#include "LayerCells.h"
#include "PropertyMap.h"
#include "Wells.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace casereport {

namespace {

using namespace Kvt::Mrl::MrlIO;

constexpr int usualSteps = 4;

/// What is worth knowing of a property beyond its name.
struct PropertyStyle
{
    const char* name;
    const char* title;
    const char* metricUnits;
    bool logarithmic;
    Palette palette;
};

constexpr PropertyStyle styles[] = {
    {"SWAT", "Water saturation", "", false, Palette::Water},
    {"SOIL", "Oil saturation", "", false, Palette::General},
    {"PRESSURE", "Pressure", "bar", false, Palette::General},
    {"PERMX", "Permeability in x", "mD", true, Palette::General},
    {"PERMY", "Permeability in y", "mD", true, Palette::General},
    {"PERMZ", "Permeability in z", "mD", true, Palette::General},
    {"PORO", "Porosity", "", false, Palette::General},
    {"PORV", "Pore volume", "m³", false, Palette::General},
    {"RPORV", "Pore volume", "m³", false, Palette::General},
    {"DEPTH", "Depth", "m", false, Palette::General},
};

PropertyStyle styleOf(const std::string& name)
{
    for (const PropertyStyle& style : styles)
        if (name == style.name)
            return style;
    return {name.c_str(), name.c_str(), "", false, Palette::General};
}

/// One property at one time.
struct Snapshot
{
    const IPropertyDataAccess* data;
    std::string when; ///< for the subtitle
};

std::vector<int> chosenSteps(const CellCase& cells, const MapChoice& choice, int last)
{
    std::vector<int> valid = cells.stepNumbers();
    valid.erase(std::upper_bound(valid.begin(), valid.end(), last), valid.end());
    std::vector<int> chosen;
    if (choice.steps.empty()) {
        const std::size_t count = std::min<std::size_t>(usualSteps, valid.size());
        for (std::size_t n = 0; n < count; ++n)
            chosen.push_back(valid[count == 1 ? 0 : n * (valid.size() - 1) / (count - 1)]);
    } else {
        std::copy_if(choice.steps.begin(), choice.steps.end(), std::back_inserter(chosen),
                     [&](int step) { return std::binary_search(valid.begin(), valid.end(), step); });
    }
    return chosen;
}

/// The property's times: one if it stands in the init file, else those of the steps.
std::vector<Snapshot> snapshotsOf(const CellCase& cells, const std::string& property, const std::vector<int>& steps)
{
    if (cells.initial() != nullptr && cells.initial()->propertyData() != nullptr &&
        cells.initial()->propertyData()->hasProperty(property))
        return {{cells.initial()->propertyData(), "initial"}};
    std::vector<Snapshot> snapshots;
    for (const int step : steps) {
        const IPropertyDataAccess* data = cells.steps()->propertyData(step);
        if (data != nullptr && data->hasProperty(property))
            snapshots.push_back({data, textOf(cells.steps()->date(step)) + ", report step " + std::to_string(step)});
    }
    return snapshots;
}

/// Over all times and grids, by the case's index: no property is read for it.
ColourScale makeScale(const std::vector<Snapshot>& snapshots, const std::string& property,
                      const std::vector<std::string>& grids)
{
    double low = std::numeric_limits<double>::max(), high = std::numeric_limits<double>::lowest();
    for (const Snapshot& snapshot : snapshots)
        for (const std::string& grid : grids) {
            ArrayInfo info;
            if (snapshot.data->getArrayInfo(property, info, grid)) {
                low = std::min(low, info.getMin());
                high = std::max(high, info.getMax());
            }
        }
    const PropertyStyle style = styleOf(property);
    return {low, high, style.logarithmic, style.palette};
}

std::vector<MapWell> mapWells(const CellCase& cells, const std::vector<int>& steps, const GridPlan& plan)
{
    std::vector<MapWell> wells;
    if (steps.empty())
        return wells;
    for (const CaseWell& well : wellsAt(*cells.steps(), steps.back()))
        if (well.i >= 1 && well.i <= plan.nx && well.j >= 1 && well.j <= plan.ny)
            wells.push_back({well.name, plan.middle(well.i - 1, well.j - 1), well.isInjector});
    return wells;
}

} // namespace

std::vector<std::string> writeMaps(const CellCase& cells, const MapChoice& choice, int lastStep, PictureFolder& folder)
{
    const LayerCells layer(cells, choice.layer);
    const std::vector<int> steps = chosenSteps(cells, choice, lastStep);
    const std::vector<MapWell> wells = mapWells(cells, steps, layer.plan());
    std::vector<std::string> missing;
    for (const std::string& property : choice.properties) {
        const std::vector<Snapshot> snapshots = snapshotsOf(cells, property, steps);
        if (snapshots.empty())
            missing.push_back(property);
        const PropertyStyle style = styleOf(property);
        for (std::size_t n = 0; n < snapshots.size(); ++n) {
            PropertyMap map{style.title == property ? property : style.title + (" (" + property + ")"),
                            "Case " + cells.caseName() + ", layer " + layer.numberText() + ", " + snapshots[n].when,
                            layer.isMetric() ? style.metricUnits : "",
                            layer.lengthUnits(),
                            makeScale(snapshots, property, layer.grids()),
                            layer.valuesOf(*snapshots[n].data, property),
                            layer.borders(),
                            wells,
                            layer.low(),
                            layer.high()};
            folder.add("map-" + property + "-" + std::to_string(n + 1), drawMap(map));
        }
    }
    return missing;
}

} // namespace casereport
