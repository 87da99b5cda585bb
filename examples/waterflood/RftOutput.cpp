#include "RftOutput.h"

#include "WellTables.h"
#include "WriterSettings.h"

#include <chrono>
#include <cmath>
#include <filesystem>
#include <sstream>
#include <stdexcept>

namespace waterflood {

namespace {

using namespace Kvt::Mrl::MrlIO;

using Integers = KeywordINTE;
using Reals = KeywordTmpl<ValueType::REAL>;
using Words = KeywordCHAR;

/// Day, month and year.
std::vector<int> dateAt(double days)
{
    const Service::YearMonthDay start = startDate();
    const std::chrono::sys_days first = std::chrono::year(static_cast<int>(start.Year())) /
                                        std::chrono::month(start.Month()) / std::chrono::day(start.Day());
    const std::chrono::year_month_day date = first + std::chrono::days(static_cast<int>(std::floor(days)));
    return {static_cast<int>(static_cast<unsigned>(date.day())), static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(date.year())};
}

/// What the report is about, and in which units: blank words are of no use to readers.
std::vector<std::string> wellWords(const Well& well, const std::string& localGrid)
{
    return {"DAYS",    well.name, localGrid, "METRES", "BARSA", "",   well.multiSegment ? "MULTISEG" : "STANDARD",
            "SM3/DAY", "SM3/DAY", "RM3/DAY", "M/SEC",  "",      "CP", "KG/SM3",
            "KG/DAY",  "KG/KG",   "C",       "KG/M3",  "KJ"};
}

/// A value of each connection.
template <class Value>
Reals perConnection(const char* name, const WellState& state, const Value& value)
{
    std::vector<float> values;
    for (const ConnectionFlow& connection : state.connections)
        values.push_back(static_cast<float>(value(connection)));
    return {name, values};
}

/// Which cells the well goes through: those of the local grid where it is completed there.
void writePlaces(KeywordWriter& writer, const WellConnections& connections)
{
    std::vector<int> i, j, k;
    std::vector<std::string> grids;
    for (int n = 0; n < connections.size(); ++n) {
        const bool isLocal = connections.isInLgr(n);
        const GridCellCoordinates cell = isLocal ? connections.getLgrCell(n) : connections.getCell(n);
        i.push_back(static_cast<int>(cell.getI()));
        j.push_back(static_cast<int>(cell.getJ()));
        k.push_back(static_cast<int>(cell.getK()));
        grids.push_back(isLocal ? connections.getLgrName(n) : std::string());
    }
    writer.write(Integers("CONIPOS", i));
    writer.write(Integers("CONJPOS", j));
    writer.write(Integers("CONKPOS", k));
    writer.write(Words("HOSTGRID", grids));
}

/// What a tool that is let down the well would measure in the rock.
void writeFormation(KeywordWriter& writer, const Simulator& simulator, const WellState& state)
{
    const auto depth = [&](const ConnectionFlow& c) { return simulator.reservoir().grid.depth(c.cell); };
    writer.write(perConnection("DEPTH", state, depth));
    writer.write(perConnection("PRESSURE", state, [&](const auto& c) { return simulator.pressures()[c.cell]; }));
    writer.write(perConnection("SWAT", state, [&](const auto& c) { return simulator.waterSaturations()[c.cell]; }));
    writer.write(perConnection("SGAS", state, [](const auto&) { return 0.0; }));
}

/// What flows out of the rock into the well; negative for what is injected.
void writeInflow(KeywordWriter& writer, const Simulator& simulator, const WellState& state)
{
    const auto depth = [&](const ConnectionFlow& c) { return simulator.reservoir().grid.depth(c.cell); };
    writer.write(perConnection("CONDEPTH", state, depth));
    writer.write(perConnection("CONORAT", state, [](const ConnectionFlow& c) { return 0.0 - c.oil; }));
    writer.write(perConnection("CONWRAT", state, [](const ConnectionFlow& c) { return 0.0 - c.water; }));
    writer.write(perConnection("CONGRAT", state, [](const ConnectionFlow&) { return 0.0; }));
}

/// The first segment lies above the sand and carries what all the others do; each of these, one in a layer, what comes
/// in there and below.
void writeSegments(KeywordWriter& writer, const Simulator& simulator, const WellState& state)
{
    const Grid& grid = simulator.reservoir().grid;
    const std::size_t layers = state.connections.size();
    std::vector<float> depths(layers + 1), oilRates(layers + 1), waterRates(layers + 1);
    double oil = 0.0, water = 0.0;
    for (std::size_t n = layers; n > 0; --n) {
        oil -= state.connections[n - 1].oil;
        water -= state.connections[n - 1].water;
        depths[n] = static_cast<float>(grid.depth(state.connections[n - 1].cell));
        oilRates[n] = static_cast<float>(oil);
        waterRates[n] = static_cast<float>(water);
    }
    depths[0] = static_cast<float>(grid.depth(state.connections.front().cell) - grid.dz / 2.0);
    oilRates[0] = oilRates[1];
    waterRates[0] = waterRates[1];
    writer.write(Reals("SEGDEPTH", depths));
    writer.write(Reals("SEGORAT", oilRates));
    writer.write(Reals("SEGWRAT", waterRates));
}

void writeWell(KeywordWriter& writer, const Simulator& simulator, std::size_t n)
{
    const Well& well = simulator.reservoir().wells[n];
    const WellState& state = simulator.wells()[n];
    const WellConnections connections(simulator, n);
    writer.write(Reals("TIME", {static_cast<float>(simulator.days())}));
    writer.write(Integers("DATE", dateAt(simulator.days())));
    writer.write(Words("WELLETC", wellWords(well, connections.getLgrName(0))));
    writePlaces(writer, connections);
    writeFormation(writer, simulator, state);
    writeInflow(writer, simulator, state);
    if (well.multiSegment)
        writeSegments(writer, simulator, state);
}

} // namespace

RftOutput::RftOutput(const Options& options)
    : path_((std::filesystem::path(options.directory) / (options.caseName + (options.formatted ? ".FRFT" : ".RFT")))
                .string()),
      formatted_(options.formatted)
{
    if (!options.overwrite && std::filesystem::exists(path_))
        throw std::runtime_error(path_ + " already exists");
    file_.open(path_, std::ios::binary);
}

/// The report goes to the file in one piece, so that it ends behind a whole report for whoever looks at it meanwhile.
void RftOutput::writeReport(const Simulator& simulator)
{
    std::ostringstream report(std::ios::binary);
    KeywordWriter writer(report, formatted_, Service::FileName(path_));
    for (std::size_t n = 0; n < simulator.wells().size(); ++n)
        writeWell(writer, simulator, n);
    file_ << report.str() << std::flush;
    if (!file_)
        throw std::runtime_error("can't write " + path_);
}

} // namespace waterflood
