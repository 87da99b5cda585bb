#include "RftOutput.h"

#include "WellBlock.h"

namespace waterflood {

namespace {

using namespace Kvt::Mrl::MrlIO;

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
    const WellState& state = simulator.wells()[n];
    beginWellBlock(writer, simulator, n);
    writeFormation(writer, simulator, state);
    writeInflow(writer, simulator, state);
    if (simulator.reservoir().wells[n].multiSegment)
        writeSegments(writer, simulator, state);
}

} // namespace

RftOutput::RftOutput(const Options& options) : file_(options, ".RFT", ".FRFT") {}

void RftOutput::writeReport(const Simulator& simulator)
{
    file_.append([&](KeywordWriter& writer) {
        for (std::size_t n = 0; n < simulator.wells().size(); ++n)
            writeWell(writer, simulator, n);
    });
}

} // namespace waterflood
