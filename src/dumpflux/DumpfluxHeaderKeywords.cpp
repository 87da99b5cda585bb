#include "dumpflux/DumpfluxHeaderKeywords.h"

#include "core/Fail.h"
#include "dumpflux/DumpfluxLayout.h"
#include "dumpflux/ReserveClaimed.h"
#include "service/Text.h"

#include <mrlio/UnitSystemType.h>
#include <mrlio/service/EnumInfo.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

namespace {

using Core::Keywords::SimulatorType;
namespace Layout = DumpfluxLayout;

constexpr std::size_t pieceLength = 8;
constexpr double unusedDouble = 1e21;

/// Empty for a value without a label.
template <class X>
std::string labelOf(typename X::Enum value)
{
    std::string label;
    Service::findLabel<X>(value, label);
    return label;
}

std::string upperCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), Service::toUpper);
    return text;
}

std::vector<std::string> fluxType(const DumpfluxHeaderData& header)
{
    std::vector<std::string> names(Layout::FluxType::size);
    names[Layout::FluxType::simulator] = labelOf<SimulatorType>(header.getSimulatorType());
    names[Layout::FluxType::boundary] = labelOf<DumpfluxBoundaryType>(header.getBoundaryType());
    names[Layout::FluxType::sourceApplication] = upperCase(labelOf<SimulatorType>(header.getSourceApplication()));
    return names;
}

/// At least one piece, since readers ask for a first one.
std::vector<std::string> piecesOf(const std::string& name)
{
    std::vector<std::string> pieces;
    Service::StringSplit(name, pieceLength, pieces);
    if (pieces.empty())
        pieces.emplace_back();
    return pieces;
}

int unitCode(const GridSpec& grid)
{
    const int units = grid.getUnits();
    if (units < UnitSystemType::METRIC || units > UnitSystemType::PVT_M)
        fail<std::invalid_argument>("Invalid grid units: ", units);
    return units + 1;
}

void setSimulatorWords(std::vector<int>& words, const DumpfluxHeaderData& header)
{
    namespace IntHead = Layout::IntHead;
    if (header.getSimulatorType() == SimulatorType::MB30) {
        words.assign(IntHead::sizeMB30, IntHead::unset);
        words[IntHead::maximumNumberWells] = header.getMaxNumberWells();
        words[IntHead::numberComponents] = header.getNumberComponents();
        words[IntHead::simulatorMark] = IntHead::markOfMB30;
    } else {
        words.assign(IntHead::sizeMA10, IntHead::unset);
        words[IntHead::simulatorVersion] = header.getSimulatorVersion();
        const bool isFlux = header.getBoundaryType() == DumpfluxBoundaryType::FLUX;
        words[IntHead::boundaryType] = isFlux ? DumpfluxBoundaryType::FLUX : DumpfluxBoundaryType::PRESSURE;
    }
}

std::vector<int> integers(const DumpfluxHeaderSource& source)
{
    std::vector<int> words;
    setSimulatorWords(words, source.header);
    words[Layout::IntHead::unitSystem] = unitCode(source.grid);
    words[Layout::IntHead::gridDimensions] = source.grid.getNx();
    words[Layout::IntHead::gridDimensions + 1] = source.grid.getNy();
    words[Layout::IntHead::gridDimensions + 2] = source.grid.getNz();
    return words;
}

std::vector<int> logicals(const GridSpec& grid)
{
    std::vector<int> words(Layout::LogiHead::size, 0);
    words[Layout::LogiHead::radial] = grid.getType() == GridSpec::Radial ? 1 : 0;
    return words;
}

std::vector<DumpfluxConnection> fetchConnections(const IDumpfluxConnectionArray& connections)
{
    const int count = connectionCount(connections);
    std::vector<DumpfluxConnection> fetched;
    reserveClaimed(fetched, count);
    for (int i = 0; i < count; ++i)
        fetched.push_back(connections.get(i));
    return fetched;
}

std::vector<int> connectionColumns(const std::vector<DumpfluxConnection>& connections)
{
    namespace Column = Layout::IndexColumn;
    const std::size_t length = connections.size();
    std::vector<int> columns(Column::count * length);
    int* row = columns.data();
    for (const DumpfluxConnection& connection : connections) {
        row[Column::firstCell * length] = connection.getFirstCellIndex();
        row[Column::secondCell * length] = connection.getSecondCellIndex();
        row[Column::direction * length] = connection.getDirection();
        row[Column::firstRegion * length] = connection.getFirstRegion();
        row[Column::secondRegion * length] = connection.getSecondRegion();
        row[Column::required * length] = connection.getRequired() ? 1 : 0;
        ++row;
    }
    return columns;
}

} // namespace

int connectionCount(const IDumpfluxConnectionArray& connections)
{
    const int count = connections.size();
    if (count <= 0)
        throw std::invalid_argument("No connections to write");
    return count;
}

DumpfluxHeaderKeywords::DumpfluxHeaderKeywords(const DumpfluxHeaderSource& source)
    : fluxType_(Layout::FLUXTYPE, fluxType(source.header)),
      restart_(Layout::RESTART, piecesOf(source.header.getRestartName())),
      restartNumber_(Layout::RESTNUMB, {source.header.getRestartNumber()}),
      integers_(Layout::INTEHEAD, integers(source)),
      logicals_(Layout::LOGIHEAD, logicals(source.grid)),
      doubles_(Layout::DOUBHEAD, {unusedDouble}),
      connections_(Layout::INDXFLUX, connectionColumns(fetchConnections(source.connections)))
{}

void DumpfluxHeaderKeywords::write(KeywordWriter& out) const
{
    out.write(fluxType_);
    out.write(restart_);
    out.write(restartNumber_);
    out.write(integers_);
    out.write(logicals_);
    out.write(doubles_);
    out.write(connections_);
}

} // namespace Kvt::Mrl::MrlIO
