#include "initrestart/write/HeaderArrays.h"

#include "core/Fail.h"
#include "initrestart/SpecIndexFile.h"

#include <algorithm>
#include <limits>
#include <map>
#include <stdexcept>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

namespace Positions = HeaderPositions;
namespace Doubhead = HeaderPositions::Doubhead;
namespace Intehead = HeaderPositions::Intehead;
namespace Logihead = HeaderPositions::Logihead;

constexpr int lastClientIndex = 4194303; // so that an array takes no more than 32 MiB

/// An array under construction, in which no word that has a value takes a second one.
template <class T>
class HeaderArray
{
public:
    HeaderArray(std::size_t size, T unset) : unset_(unset), values_(size, unset) {}

    template <class Value>
    void setAll(const std::map<int, Value>& entries)
    {
        if (entries.empty())
            return;
        checkIndex(entries.begin()->first);
        checkIndex(entries.rbegin()->first);
        const auto needed = static_cast<std::size_t>(entries.rbegin()->first) + 1;
        values_.resize(std::max(values_.size(), needed), unset_);
        for (const auto& [index, value] : entries)
            set(static_cast<std::size_t>(index), value);
    }

    void set(std::size_t index, T value)
    {
        if (values_[index] != unset_)
            fail<std::runtime_error>("Attempt to re-assign '", value, "' to header[", index,
                                     "] that is already assigned: ", values_[index]);
        values_[index] = value;
    }

    void setCount(std::size_t index, std::size_t count) { set(index, static_cast<T>(count)); }

    std::vector<T> take() { return std::move(values_); }

private:
    static void checkIndex(int index)
    {
        if (index < 0 || index > lastClientIndex)
            fail<std::invalid_argument>("Invalid header index: ", index,
                                        ".  Must be in range 0 <= index <= ", lastClientIndex, ".");
    }

    T unset_;
    std::vector<T> values_;
};

int unitCode(const GridSpec& grid)
{
    const int units = grid.getUnits();
    if (units < UnitSystemType::METRIC || units > UnitSystemType::PVT_M)
        fail<std::runtime_error>("Invalid grid units: ", units);
    return units + 1;
}

int layerCount(const GridSpec& grid, bool dualPorosity)
{
    if (!dualPorosity)
        return grid.getNz();
    if (grid.getNz() > std::numeric_limits<int>::max() / 2)
        fail<std::invalid_argument>("Invalid number of layers for dual porosity: ", grid.getNz(), ".");
    return 2 * grid.getNz();
}

void setGrid(HeaderArray<int>& header, const GridSpec& grid, const GridLayout& layout)
{
    header.set(Intehead::unitSystem, unitCode(grid));
    header.set(Intehead::nx, grid.getNx());
    header.set(Intehead::ny, grid.getNy());
    header.set(Intehead::nz, layerCount(grid, layout.dualPorosity));
    header.set(Intehead::activeCells, layout.activeCount);
    header.set(Intehead::gridType, grid.getType());
}

/// Step 0 holds no well records, and doesn't count the wells either; the sizes of the records stand in every file.
void setWells(HeaderArray<int>& header, const WellCounts& wells, int reportStep)
{
    if (reportStep != 0) {
        header.setCount(Intehead::wells, wells.wells);
        header.setCount(Intehead::mostConnections, wells.connections);
        header.setCount(Intehead::multiSegmentWells, wells.segmentedWells);
    }
    header.setCount(Intehead::wellWords, Positions::Iwel::size);
    header.setCount(Intehead::wellNames, wells.namePieces);
    header.setCount(Intehead::connectionWords, Positions::Icon::size);
    header.setCount(Intehead::mostSegments, wells.segments);
    header.setCount(Intehead::mostBranches, wells.branches);
    header.setCount(Intehead::segmentWords, Positions::Iseg::size);
    header.setCount(Intehead::branchWords, Positions::Ilbr::size);
}

void setTime(HeaderArray<int>& header, const Service::Time& time)
{
    header.set(Intehead::day, time.GetDay());
    header.set(Intehead::month, time.GetMonth());
    header.set(Intehead::year, time.GetYear());
    header.set(Intehead::hour, time.GetHour());
    header.set(Intehead::minute, time.GetMinute());
    header.set(Intehead::microseconds, microsecondsOfMinute(time));
}

std::vector<int> integerHeader(const HeaderSource& source)
{
    HeaderArray<int> header(Intehead::size, Positions::unsetWord);
    std::map<int, int> entries;
    if (source.info != nullptr)
        source.info->getIntegerHeader(source.gridName, entries);
    header.setAll(entries);
    setGrid(header, *source.grid, source.layout);
    setWells(header, source.wells, source.clock.reportStep());
    setTime(header, source.clock.currentTime());
    header.set(Intehead::simulator, source.simulatorValue);
    return header.take();
}

std::vector<int> logicalHeader(const HeaderSource& source)
{
    HeaderArray<int> header(Logihead::size, 0);
    std::map<int, bool> entries;
    if (source.info != nullptr)
        source.info->getLogicalHeader(source.gridName, entries);
    header.setAll(entries);
    header.set(Logihead::dualPorosity, source.layout.dualPorosity ? 1 : 0);
    return header.take();
}

std::vector<double> doubleHeader(const HeaderSource& source)
{
    HeaderArray<double> header(Doubhead::size, 0.0);
    std::map<int, double> entries;
    if (source.info != nullptr)
        source.info->getDoubleHeader(source.gridName, entries);
    header.setAll(entries);
    if (source.isRestart) {
        const double factor = timeFactor(source.grid->getUnits());
        const double startDay = source.clock.startDay();
        const double elapsedDays = source.clock.elapsedDays();
        header.set(Doubhead::time, factor * elapsedDays);
        header.set(Doubhead::startTime, factor * startDay);
        header.set(Doubhead::currentTime, factor * (startDay + elapsedDays));
    }
    return header.take();
}

} // namespace

GridHeaders makeGridHeaders(const HeaderSource& source)
{
    if (source.grid == nullptr)
        fail<std::runtime_error>("Grid spec not found for grid: \"", source.gridName, "\".");
    return {integerHeader(source), logicalHeader(source), doubleHeader(source)};
}

void writeLgrBlock(KeywordWriter& writer, const std::string& gridName)
{
    writeGridName(writer, "LGR", gridName);
    writer.write(KeywordINTE("LGRHEADI", std::vector<int>(Positions::lgrIntegerSize)));
    writer.write(KeywordTmpl<ValueType::LOGI>("LGRHEADQ", std::vector<int>(Positions::lgrLogicalSize)));
    writer.write(KeywordTmpl<ValueType::DOUB>("LGRHEADD", std::vector<double>(Positions::lgrDoubleSize)));
}

void writeGridHeaders(KeywordWriter& writer, const GridHeaders& headers)
{
    writer.write(KeywordINTE("INTEHEAD", headers.integers));
    writer.write(KeywordTmpl<ValueType::LOGI>("LOGIHEAD", headers.logicals));
    writer.write(KeywordTmpl<ValueType::DOUB>("DOUBHEAD", headers.doubles));
}

} // namespace Kvt::Mrl::MrlIO
