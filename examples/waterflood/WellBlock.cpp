#include "WellBlock.h"

#include "WellTables.h"
#include "WriterSettings.h"

#include <chrono>
#include <cmath>

namespace waterflood {

namespace {

using namespace Kvt::Mrl::MrlIO;

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

} // namespace

void beginWellBlock(KeywordWriter& writer, const Simulator& simulator, std::size_t well)
{
    const WellConnections connections(simulator, well);
    writer.write(Reals("TIME", {static_cast<float>(simulator.days())}));
    writer.write(Integers("DATE", dateAt(simulator.days())));
    writer.write(Words("WELLETC", wellWords(simulator.reservoir().wells[well], connections.getLgrName(0))));
    writePlaces(writer, connections);
}

} // namespace waterflood
