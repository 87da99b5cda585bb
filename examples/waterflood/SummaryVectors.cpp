#include "SummaryVectors.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace waterflood {

namespace {

constexpr const char* blank = ":+:+:+:+";
constexpr const char* rateUnits = "SM3/DAY";
constexpr const char* volumeUnits = "SM3";
constexpr const char* pressureUnits = "BARSA";

using WellFilter = std::function<bool(const Well&)>;
using WellValue = double (*)(const Well&, const WellState&);

double oilProduction(const Well& well, const WellState& state)
{
    return well.injector ? 0.0 : state.oilRate;
}

double waterProduction(const Well& well, const WellState& state)
{
    return well.injector ? 0.0 : state.waterRate;
}

double waterInjection(const Well& well, const WellState& state)
{
    return well.injector ? state.waterRate : 0.0;
}

double oilProduced(const Well& well, const WellState& state)
{
    return well.injector ? 0.0 : state.oilTotal;
}

double waterProduced(const Well& well, const WellState& state)
{
    return well.injector ? 0.0 : state.waterTotal;
}

double waterInjected(const Well& well, const WellState& state)
{
    return well.injector ? state.waterTotal : 0.0;
}

double liquidProduction(const Well& well, const WellState& state)
{
    return oilProduction(well, state) + waterProduction(well, state);
}

double sumOverWells(const Simulator& simulator, const WellFilter& filter, WellValue value)
{
    double sum = 0.0;
    for (std::size_t n = 0; n < simulator.wells().size(); ++n)
        if (filter(simulator.reservoir().wells[n]))
            sum += value(simulator.reservoir().wells[n], simulator.wells()[n]);
    return sum;
}

double ratio(double part, double whole)
{
    return whole > 0.0 ? part / whole : 0.0;
}

/// What fields, groups and wells have in common; the keyword begins with the letter of the kind.
struct FlowVector
{
    const char* keyword;
    const char* units;
    const char* measurement;
    WellValue value;
};

constexpr std::array<FlowVector, 7> flowVectors{{
    {"OPR", rateUnits, "O:Oil_Production_Rate", oilProduction},
    {"WPR", rateUnits, "O:Water_Production_Rate", waterProduction},
    {"LPR", rateUnits, "O:Liquid_Production_Rate", liquidProduction},
    {"WIR", rateUnits, "O:Water_Injection_Rate", waterInjection},
    {"OPT", volumeUnits, "O:Oil_Production_Total", oilProduced},
    {"WPT", volumeUnits, "O:Water_Production_Total", waterProduced},
    {"WIT", volumeUnits, "O:Water_Injection_Total", waterInjected},
}};

void addFlows(std::vector<SummaryVector>& vectors, char letter, const std::string& name, const WellFilter& filter)
{
    for (const FlowVector& flow : flowVectors)
        vectors.push_back(
            {letter + std::string(flow.keyword), name, 0, flow.units, flow.measurement,
             [filter, value = flow.value](const Simulator& s) { return sumOverWells(s, filter, value); }});
    vectors.push_back({letter + std::string("WCT"), name, 0, "", "O:Water_Cut", [filter](const Simulator& s) {
                           return ratio(sumOverWells(s, filter, waterProduction),
                                        sumOverWells(s, filter, liquidProduction));
                       }});
}

using CellFilter = std::function<bool(std::size_t)>;

double meanPressure(const Simulator& simulator, const CellFilter& filter)
{
    double weighted = 0.0, volume = 0.0;
    for (std::size_t cell = 0; cell < simulator.pressures().size(); ++cell)
        if (filter(cell)) {
            weighted += simulator.pressures()[cell] * simulator.poreVolume(cell);
            volume += simulator.poreVolume(cell);
        }
    return ratio(weighted, volume);
}

double inPlace(const Simulator& simulator, const CellFilter& filter, bool water)
{
    double sum = 0.0;
    for (std::size_t cell = 0; cell < simulator.pressures().size(); ++cell)
        if (filter(cell)) {
            const double saturation = simulator.waterSaturations()[cell];
            sum += simulator.poreVolume(cell) * (water ? saturation : 1.0 - saturation);
        }
    return sum;
}

void addField(std::vector<SummaryVector>& vectors)
{
    addFlows(vectors, 'F', blank, [](const Well&) { return true; });
    vectors.push_back({"FPR", blank, 0, pressureUnits, "O:Pressure",
                       [](const Simulator& s) { return meanPressure(s, [](std::size_t) { return true; }); }});
    vectors.push_back(
        {"FOIP", blank, 0, volumeUnits, "O:Oil_In_Place", [](const Simulator& s) { return s.oilInPlace(); }});
    vectors.push_back(
        {"FWIP", blank, 0, volumeUnits, "O:Water_In_Place", [](const Simulator& s) { return s.waterInPlace(); }});
    vectors.push_back({"FOE", blank, 0, "", "O:Oil_Recovery",
                       [](const Simulator& s) { return 1.0 - s.oilInPlace() / s.initialOilInPlace(); }});
}

void addGroups(std::vector<SummaryVector>& vectors, const Reservoir& reservoir)
{
    std::vector<std::string> groups;
    for (const Well& well : reservoir.wells)
        if (std::find(groups.begin(), groups.end(), well.group) == groups.end())
            groups.push_back(well.group);
    for (const std::string& group : groups)
        addFlows(vectors, 'G', group, [group](const Well& well) { return well.group == group; });
}

void addWells(std::vector<SummaryVector>& vectors, const Reservoir& reservoir)
{
    for (std::size_t n = 0; n < reservoir.wells.size(); ++n) {
        const std::string& name = reservoir.wells[n].name;
        addFlows(vectors, 'W', name, [name](const Well& well) { return well.name == name; });
        vectors.push_back({"WBHP", name, 0, pressureUnits, "O:Bottom_Hole_Pressure",
                           [n](const Simulator& s) { return s.wells()[n].bottomHolePressure; }});
    }
}

int naturalNumber(std::size_t cell)
{
    return static_cast<int>(cell) + 1;
}

void addCompletions(std::vector<SummaryVector>& vectors, const Reservoir& reservoir)
{
    for (std::size_t n = 0; n < reservoir.wells.size(); ++n)
        for (int k = 0; k < reservoir.grid.nz; ++k) {
            const Well& well = reservoir.wells[n];
            const int number = naturalNumber(reservoir.grid.cell(well.i, well.j, k));
            const auto connection = static_cast<std::size_t>(k);
            if (well.injector) {
                vectors.push_back({"CWIR", well.name, number, rateUnits, "O:Water_Injection_Rate",
                                   [=](const Simulator& s) { return s.wells()[n].connections[connection].water; }});
                continue;
            }
            vectors.push_back({"COPR", well.name, number, rateUnits, "O:Oil_Production_Rate",
                               [=](const Simulator& s) { return -s.wells()[n].connections[connection].oil; }});
            vectors.push_back({"CWPR", well.name, number, rateUnits, "O:Water_Production_Rate",
                               [=](const Simulator& s) { return -s.wells()[n].connections[connection].water; }});
        }
}

/// Water from one region into another through the faces between them, cubic metres a day.
double flowBetween(const Simulator& simulator, int from, int to)
{
    const Reservoir& reservoir = simulator.reservoir();
    const Grid& grid = reservoir.grid;
    double sum = 0.0;
    for (int k = 0; k < grid.nz; ++k)
        for (int j = 0; j < grid.ny; ++j)
            for (int i = 0; i < grid.nx; ++i) {
                const std::size_t cell = grid.cell(i, j, k);
                const std::size_t neighbours[2] = {i + 1 < grid.nx ? grid.cell(i + 1, j, k) : cell,
                                                   j + 1 < grid.ny ? grid.cell(i, j + 1, k) : cell};
                for (int d = 0; d < 2; ++d) {
                    const int here = reservoir.regions[cell], there = reservoir.regions[neighbours[d]];
                    if (here == from && there == to)
                        sum += simulator.waterFlux(cell, d);
                    else if (here == to && there == from)
                        sum -= simulator.waterFlux(cell, d);
                }
            }
    return sum;
}

void addRegions(std::vector<SummaryVector>& vectors, const Reservoir& reservoir)
{
    for (int region = 1; region <= reservoir.regionCount; ++region) {
        const CellFilter filter = [cells = reservoir.regions, region](std::size_t cell) {
            return cells[cell] == region;
        };
        vectors.push_back({"RPR", blank, region, pressureUnits, "O:Pressure",
                           [filter](const Simulator& s) { return meanPressure(s, filter); }});
        vectors.push_back({"ROIP", blank, region, volumeUnits, "O:Oil_In_Place",
                           [filter](const Simulator& s) { return inPlace(s, filter, false); }});
        vectors.push_back({"RWIP", blank, region, volumeUnits, "O:Water_In_Place",
                           [filter](const Simulator& s) { return inPlace(s, filter, true); }});
    }
    // The number of a flow between two regions holds both of them.
    for (int from = 1; from < reservoir.regionCount; ++from)
        for (int to = from + 1; to <= reservoir.regionCount; ++to)
            vectors.push_back({"RWFR", blank, from + 32768 * (to + 10), rateUnits, "O:Water_Flow_Rate",
                               [from, to](const Simulator& s) { return flowBetween(s, from, to); }});
}

void addBlocks(std::vector<SummaryVector>& vectors, const Reservoir& reservoir)
{
    const Well &from = reservoir.wells[refinedWell], &to = reservoir.wells.front();
    const int middle = reservoir.grid.nz / 2;
    const int steps = 4;
    for (int n = 0; n <= steps; ++n) {
        const std::size_t cell =
            reservoir.grid.cell(from.i + (to.i - from.i) * n / steps, from.j + (to.j - from.j) * n / steps, middle);
        vectors.push_back({"BPR", blank, naturalNumber(cell), pressureUnits, "O:Pressure",
                           [cell](const Simulator& s) { return s.pressures()[cell]; }});
        vectors.push_back({"BWSAT", blank, naturalNumber(cell), "", "O:Water_Saturation",
                           [cell](const Simulator& s) { return s.waterSaturations()[cell]; }});
    }
}

void addPerformance(std::vector<SummaryVector>& vectors)
{
    vectors.push_back({"TIMESTEP", blank, 0, "DAYS", "O:Time_Step", [](const Simulator& s) { return s.lastStep(); }});
    vectors.push_back({"FLINEARS", blank, 0, "", "O:Linear_Iterations",
                       [](const Simulator& s) { return static_cast<double>(s.lastIterations()); }});
}

} // namespace

std::vector<SummaryVector> globalVectors(const Reservoir& reservoir)
{
    std::vector<SummaryVector> vectors;
    addField(vectors);
    addGroups(vectors, reservoir);
    addWells(vectors, reservoir);
    addCompletions(vectors, reservoir);
    addRegions(vectors, reservoir);
    addBlocks(vectors, reservoir);
    addPerformance(vectors);
    // The vectors of a keyword in a row: readers then fetch them in one piece.
    std::stable_sort(vectors.begin(), vectors.end(),
                     [](const SummaryVector& a, const SummaryVector& b) { return a.keyword < b.keyword; });
    return vectors;
}

std::vector<SummaryVector> localVectors(const Reservoir& reservoir)
{
    const Well& well = reservoir.wells[refinedWell];
    const LocalGrid& local = *reservoir.localGrid;
    const int middleI = local.middleI(well.i), middleJ = local.middleJ(well.j);
    std::vector<SummaryVector> vectors;
    for (int offset : {-1, 0, 1}) {
        const std::size_t cell = local.grid.cell(middleI + offset, middleJ + offset, 0);
        SummaryVector block{"LBPR", blank, 0, pressureUnits, "O:Pressure", [cell](const Simulator& s) {
                                const auto pressure = [&s](std::size_t host) { return s.pressures()[host]; };
                                return s.reservoir().localGrid->interpolate(pressure, cell);
                            }};
        block.localI = middleI + offset + 1;
        block.localJ = middleJ + offset + 1;
        block.localK = 1;
        vectors.push_back(std::move(block));
    }
    for (int k = 0; k < local.grid.nz; ++k) {
        const auto connection = static_cast<std::size_t>(k);
        SummaryVector completion{
            "LCOPR", well.name, 0, rateUnits, "O:Oil_Production_Rate", [connection](const Simulator& s) {
                return -s.wells()[refinedWell].connections[connection].oil;
            }};
        completion.localI = middleI + 1;
        completion.localJ = middleJ + 1;
        completion.localK = k + 1;
        vectors.push_back(std::move(completion));
    }
    vectors.push_back({"LWOPR", well.name, 0, rateUnits, "O:Oil_Production_Rate",
                       [](const Simulator& s) { return s.wells()[refinedWell].oilRate; }});
    return vectors;
}

} // namespace waterflood
