#include "RftReport.h"

#include "Dates.h"
#include "Labels.h"

#include <algorithm>
#include <iomanip>
#include <numeric>
#include <ostream>
#include <set>

namespace casereport {

namespace {

using namespace Kvt::Mrl::MrlIO;

/// The arrays of one category, each with its type.
void printArrays(std::ostream& out, const char* category, const std::vector<std::string>& names,
                 const RFTReader& reader)
{
    if (names.empty())
        return;
    out << "  " << std::left << std::setw(10) << category << std::right;
    for (const std::string& name : names)
        out << " " << name << ":" << labelOf<ValueType>(reader.arrayValueType(name));
    out << "\n";
}

void printContent(std::ostream& out, const RFTReader& reader)
{
    out << "\nWell results: " << reader.wells().size() << " wells, " << reader.dates().size() << " dates\n  units:";
    std::set<std::string> units{reader.timeUnit(), reader.depthUnit(), reader.pressureUnit(),
                                reader.oilAndWaterFlowRateUnit(), reader.gasFlowRateUnit()};
    units.erase("");
    for (const std::string& unit : units)
        out << " " << unit;
    out << "\n";
    // Each list is of the reader's making and stays as it is until the next of the same category is asked for.
    printArrays(out, "basic", reader.basicArrayNames(), reader);
    printArrays(out, "RFT", reader.RFTArrayNames(), reader);
    printArrays(out, "PLT", reader.PLTArrayNames(), reader);
    printArrays(out, "segments", reader.segmentArrayNames(), reader);
}

void printDates(std::ostream& out, const RFTReader& reader, std::size_t mostRows)
{
    const auto& dates = reader.dates();
    const std::size_t stride = (dates.size() + mostRows - 1) / mostRows;
    for (std::size_t n = 0; n < dates.size(); ++n) {
        if ((dates.size() - 1 - n) % stride != 0)
            continue;
        out << "  " << textOf(dates[n]) << std::fixed << std::setprecision(1) << std::setw(10) << reader.times()[n]
            << " " << reader.timeUnit() << ":";
        for (const std::string& well : reader.wells())
            if (std::vector<std::string> about; reader.getArray("WELLETC", well, n, about))
                out << " " << well;
        out << "\n";
    }
}

double sumOf(const RFTReader& reader, const char* array, const std::string& well, std::size_t date)
{
    std::vector<double> values;
    reader.getArray(array, well, date, values);
    return std::accumulate(values.begin(), values.end(), 0.0);
}

/// On the last date of the file. The connections' rates come to that of the well.
void printWells(std::ostream& out, const RFTReader& reader)
{
    const std::size_t last = reader.dates().size() - 1;
    out << "\n  wells on " << textOf(reader.dates()[last]) << ":\n  " << std::left << std::setw(10) << "well"
        << std::setw(10) << "type" << std::setw(10) << "grid" << std::right << std::setw(12) << "connections"
        << std::setw(10) << "segments" << std::setw(12) << "pressure" << std::setw(12) << "oil" << std::setw(12)
        << "water"
        << "\n"
        << std::setw(64) << reader.pressureUnit() << std::setw(12) << reader.oilAndWaterFlowRateUnit() << std::setw(12)
        << reader.oilAndWaterFlowRateUnit() << "\n"
        << std::setprecision(3);
    for (const std::string& well : reader.wells()) {
        const int connections = std::max(0, reader.getNCON(well, last));
        out << "  " << std::left << std::setw(10) << well << std::setw(10)
            << labelOf<WellModelType>(reader.wellType(well)) << std::setw(10) << reader.LGR(well) << std::right
            << std::setw(12) << connections << std::setw(10) << std::max(0, reader.getNSEG(well, last)) << std::setw(12)
            << sumOf(reader, "PRESSURE", well, last) / std::max(1, connections) << std::setw(12)
            << sumOf(reader, "CONORAT", well, last) << std::setw(12) << sumOf(reader, "CONWRAT", well, last) << "\n";
    }
}

} // namespace

void printWellResults(std::ostream& out, const RFTReader& reader, int mostRows)
{
    printContent(out, reader);
    if (reader.dates().empty())
        return;
    printDates(out, reader, static_cast<std::size_t>(mostRows));
    printWells(out, reader);
}

} // namespace casereport
