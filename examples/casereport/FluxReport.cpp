#include "FluxReport.h"

#include "Labels.h"
#include "NetFlow.h"

#include <algorithm>
#include <array>
#include <iomanip>
#include <ostream>

namespace casereport {

namespace {

using namespace Kvt::Mrl::MrlIO;

template <class Things>
void printList(std::ostream& out, const char* heading, const Things& things)
{
    out << "  " << heading << ":";
    for (const auto& thing : things)
        out << " " << thing;
    out << "\n";
}

void printContent(std::ostream& out, const DumpfluxReader& reader)
{
    int nx = 0, ny = 0, nz = 0;
    reader.gridDimension(nx, ny, nz);
    out << "\nBoundary " << labelOf<DumpfluxBoundaryType>(reader.boundaryType()) << ", for "
        << labelOf<Keywords::SimulatorType>(reader.simulatorType()) << ", "
        << labelOf<UnitSystemType>(reader.unitSystem()) << ", grid " << nx << " x " << ny << " x " << nz << "\n  "
        << reader.numConnections() << " connections, " << reader.startTimes().size() << " time ranges\n";
    printList(out, "regions", reader.regions());
    printList(out, "arrays", reader.dataArrayNames());
    printList(out, "arrays of wells", reader.wellDataArrayNames());
    printList(out, "wells", reader.wellNames());
}

void printRanges(std::ostream& out, const DumpfluxReader& reader, const std::vector<NetFlow>& flows,
                 std::size_t mostRows)
{
    const std::size_t count = reader.startTimes().size(), stride = (count + mostRows - 1) / mostRows;
    for (std::size_t n = 0; n < count; ++n) {
        if ((count - 1 - n) % stride != 0)
            continue;
        out << "  " << std::setprecision(1) << std::setw(10) << reader.startTimes()[n] << std::setw(10)
            << reader.endTimes()[n] << std::setw(8) << reader.reportNumbers()[n] << std::setw(15)
            << reader.averageReservoirPressure()[n] << std::setprecision(3);
        for (const NetFlow& flow : flows)
            out << std::setw(16) << flow.rates[n];
        out << "\n";
    }
}

void printRegion(std::ostream& out, const DumpfluxReader& reader, int region, std::size_t mostRows)
{
    const std::vector<NetFlow> flows = netFlowsOut(reader, region);
    if (flows.empty())
        return;
    out << "\n  net flow out of region " << region << ", " << rateUnits(reader) << ":\n  " << std::right
        << std::setw(10) << "from day" << std::setw(10) << "to day" << std::setw(8) << "report" << std::setw(15)
        << "mean pressure";
    for (const NetFlow& flow : flows)
        out << std::setw(16) << flow.array;
    out << "\n" << std::fixed;
    printRanges(out, reader, flows, mostRows);
    out << "  in all, " << std::left << std::setw(35) << volumeUnits(reader) << std::right << std::setprecision(1);
    for (const NetFlow& flow : flows)
        out << std::setw(16) << flow.total;
    out << "\n";
}

void printWells(std::ostream& out, const DumpfluxReader& reader)
{
    constexpr std::array<const char*, 5> columns{"oil", "water", "gas", "volume", "energy"};
    if (reader.startTimes().empty() || reader.wellNames().empty())
        return;
    out << "\n  wells in the last time range, " << rateUnits(reader) << ":\n  " << std::left << std::setw(10) << "well"
        << std::right;
    for (const char* column : columns)
        out << std::setw(12) << column;
    out << "\n" << std::fixed << std::setprecision(3);
    for (const std::string& well : reader.wellNames()) {
        std::vector<double> rates;
        if (!reader.getWellArray(well, "WELLFLOW", reader.startTimes().back(), rates))
            continue;
        out << "  " << std::left << std::setw(10) << well << std::right;
        for (const double rate : rates)
            out << std::setw(12) << rate;
        out << "\n";
    }
}

} // namespace

void printFluxes(std::ostream& out, const DumpfluxReader& reader, int mostRows)
{
    printContent(out, reader);
    for (const int region : regionsToShow(reader))
        printRegion(out, reader, region, static_cast<std::size_t>(mostRows));
    printWells(out, reader);
}

} // namespace casereport
