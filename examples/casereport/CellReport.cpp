#include "CellReport.h"

#include "Dates.h"
#include "Labels.h"
#include "Wells.h"

#include <iomanip>
#include <ostream>

namespace casereport {

namespace {

using namespace Kvt::Mrl::MrlIO;

std::string nameOf(const std::string& grid)
{
    return grid.empty() ? "whole grid" : "local grid " + grid;
}

std::string dateText(const Service::YearMonthDay& date, const Service::HourMinuteSecondMillisecond& time)
{
    char text[32];
    std::snprintf(text, sizeof text, " %02d:%02d", time.Hour(), time.Minute());
    return textOf(date) + text;
}

/// An init reader and a restart reader answer the same questions about grids.
template <class Reader>
void printGrids(std::ostream& out, Reader& reader)
{
    out << "  " << labelOf<UnitSystemType>(reader.unitSystem()) << ", " << labelOf<PhaseType>(reader.phases())
        << (reader.isDualPorosity() ? ", dual porosity\n" : ", single porosity\n");
    std::vector<std::string> grids{""};
    grids.insert(grids.end(), reader.LGRs().begin(), reader.LGRs().end());
    for (const std::string& grid : grids) {
        int nx = 0, ny = 0, nz = 0;
        if (reader.gridDimension(nx, ny, nz, grid))
            out << "  " << nameOf(grid) << ": " << nx << " x " << ny << " x " << nz << ", "
                << reader.getCellActivitiesInfo(grid).numActive(false) << " of " << reader.numCells(grid)
                << " cells active\n";
    }
}

/// From the case's index: no array is read.
void printArrays(std::ostream& out, const IRawDataAccess& data, const std::string& grid)
{
    const SpecStatsData& arrays = data.arrays(grid);
    out << "\n  arrays of the " << nameOf(grid) << ":\n  " << std::left << std::setw(10) << "name" << std::setw(6)
        << "type" << std::right << std::setw(10) << "count" << std::setw(14) << "smallest" << std::setw(14) << "largest"
        << "\n";
    for (std::size_t n = 0; n < arrays.names.size(); ++n)
        out << "  " << std::left << std::setw(10) << arrays.names[n] << std::setw(6)
            << labelOf<ValueType>(static_cast<ValueType::Enum>(arrays.types[n])) << std::right << std::setw(10)
            << arrays.numbers[n] << std::defaultfloat << std::setprecision(6) << std::setw(14) << arrays.minima[n]
            << std::setw(14) << arrays.maxima[n] << "\n";
}

void printInitial(std::ostream& out, InitReader& reader)
{
    out << "\nInitial properties, " << dateText(reader.date(), reader.time()) << "\n";
    printGrids(out, reader);
    printArrays(out, *reader.rawData(), "");
    for (const std::string& grid : reader.LGRs())
        printArrays(out, *reader.rawData(), grid);
}

void printSteps(std::ostream& out, RestartReader& reader, const std::vector<int>& steps, std::size_t mostRows)
{
    out << "\nReport steps: " << steps.size() << "\n  " << std::right << std::setw(6) << "step"
        << "  date              arrays\n";
    const std::size_t stride = (steps.size() + mostRows - 1) / mostRows;
    for (std::size_t n = 0; n < steps.size(); ++n) {
        if ((steps.size() - 1 - n) % stride != 0)
            continue;
        const IRawDataAccess* data = reader.rawData(steps[n]);
        out << "  " << std::right << std::setw(6) << steps[n] << "  "
            << dateText(reader.date(steps[n]), reader.time(steps[n])) << std::setw(8)
            << (data != nullptr ? data->arrays().names.size() : 0) << "\n";
    }
}

void printWells(std::ostream& out, const RestartReader& reader, int step, const std::string& grid)
{
    const std::vector<CaseWell> wells = wellsAt(reader, step, grid);
    if (wells.empty())
        return;
    out << "\n  wells in the " << nameOf(grid) << ":\n";
    for (const CaseWell& well : wells)
        out << "  " << std::left << std::setw(10) << well.name << std::setw(10)
            << (well.isInjector ? "injector" : "producer") << std::setw(6) << (well.isOpen ? "open" : "shut")
            << std::right << "from cell " << std::setw(4) << well.i << std::setw(5) << well.j << std::setw(4)
            << well.connections << " connections" << (well.segmentedNumber > 0 ? ", multi-segment" : "") << "\n";
}

} // namespace

void printCells(std::ostream& out, const CellCase& cells, int mostRows)
{
    if (cells.initial() != nullptr && cells.initial()->rawData() != nullptr)
        printInitial(out, *cells.initial());
    if (cells.steps() != nullptr) {
        RestartReader& reader = *cells.steps();
        const std::vector<int>& steps = cells.stepNumbers();
        printSteps(out, reader, steps, static_cast<std::size_t>(mostRows));
        std::vector<std::string> grids{""};
        grids.insert(grids.end(), reader.LGRs().begin(), reader.LGRs().end());
        for (const std::string& grid : grids)
            if (!steps.empty() && reader.rawData(steps.back()) != nullptr) {
                printArrays(out, *reader.rawData(steps.back()), grid);
                printWells(out, reader, steps.back(), grid);
            }
    }
    if (!cells.trouble().empty())
        out << "\n" << cells.trouble() << "\n";
}

} // namespace casereport
