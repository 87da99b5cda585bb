#include <mrlio/GridKeywords.h>

#include "core/Fail.h"
#include "core/UnformattedEncoder.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

namespace fileHead {
constexpr std::size_t gridType = 4, dualSystem = 5, originalType = 6;
} // namespace fileHead

namespace gridHead {
constexpr std::size_t gridType = 0, size = 1, item4 = 4, reservoirs = 24, domains = 25, radial = 26, hostMin = 27,
                      hostMax = 30;
} // namespace gridHead

namespace lgrilg {
constexpr std::size_t theta = 0, hostMin = 1, hostMaxReversed = 4, size = 8;
} // namespace lgrilg

namespace mapAxes {
constexpr std::size_t yend = 0, origin = 2, xend = 4;
} // namespace mapAxes

namespace coords {
constexpr std::size_t fewestItems = 4, activeCells = 4, hostCell = 5, coarsenedGroup = 6;
} // namespace coords

constexpr std::size_t cornerVertices = 8;
constexpr std::size_t itemsOfIndex3 = sizeof(Index3) / sizeof(int);
constexpr std::size_t itemsOfVertex2F = sizeof(Vertex2F) / sizeof(float);

/// A record that was made from a header may hold fewer items than its keyword has, or none.
void checkItems(std::size_t held, std::size_t needed, const char* where)
{
    if (held < needed)
        fail<std::invalid_argument>(where, ": the record holds ", held, " items, ", needed, " are needed");
}

int itemAt(const KeywordINTE& record, std::size_t item, const char* where)
{
    checkItems(record.array().size(), item + 1, where);
    return record.array()[item];
}

// Both views are types that may alias the items, with the layout of so many of them.
const Index3& indexAt(const KeywordINTE& record, std::size_t first, const char* where)
{
    checkItems(record.array().size(), first + itemsOfIndex3, where);
    return reinterpret_cast<const Index3&>(record.array()[first]);
}

const Vertex2F& vertexAt(const KeywordTmpl<ValueType::REAL>& record, std::size_t first, const char* where)
{
    checkItems(record.array().size(), first + itemsOfVertex2F, where);
    return reinterpret_cast<const Vertex2F&>(record.array()[first]);
}

/// The items are there.
void putIndex(std::vector<int>& items, std::size_t first, Index3 index)
{
    items[first] = index.x;
    items[first + 1] = index.y;
    items[first + 2] = index.z;
}

std::vector<int> zeros(int count)
{
    return std::vector<int>(static_cast<std::size_t>(count));
}

std::vector<int> zerosBehind(int item0, int item1, int count)
{
    std::vector<int> items = zeros(count);
    items[0] = item0;
    items[1] = item1;
    return items;
}

int checkedCoordsCount(int itemCount)
{
    if (itemCount < static_cast<int>(coords::fewestItems))
        fail<std::invalid_argument>("GridCOORDS", ": a record of ", itemCount, " items has no room for a cell");
    return itemCount;
}

} // namespace

EGridFILEHEAD::EGridFILEHEAD(const KeywordHeader& header) : ConcreteKeyword(header) {}

EGridFILEHEAD::EGridFILEHEAD(int item0, int item1, int item3, GridType gridType, DualSystemType dualSystem,
                             OriginalGridType originalType)
    : ConcreteKeyword(getKeywordName(), zeros(getKeywordArraySize()))
{
    array()[0] = item0;
    array()[1] = item1;
    array()[3] = item3;
    array()[fileHead::gridType] = gridType;
    array()[fileHead::dualSystem] = dualSystem;
    array()[fileHead::originalType] = originalType;
}

EGridGRIDHEAD::EGridGRIDHEAD(const KeywordHeader& header) : ConcreteKeyword(header) {}

EGridGRIDHEAD::EGridGRIDHEAD(GridType gridType, int nx, int ny, int nz, int item4)
    : ConcreteKeyword(getKeywordName(), zeros(getKeywordArraySize()))
{
    array()[gridHead::gridType] = gridType;
    putIndex(array(), gridHead::size, {nx, ny, nz});
    array()[gridHead::item4] = item4;
}

const Index3& EGridGRIDHEAD::getGridSize() const
{
    return indexAt(*this, gridHead::size, "EGridGRIDHEAD::getGridSize");
}

int EGridGRIDHEAD::getNumReservoirs() const
{
    return itemAt(*this, gridHead::reservoirs, "EGridGRIDHEAD::getNumReservoirs");
}

int EGridGRIDHEAD::getNumDomains() const
{
    return itemAt(*this, gridHead::domains, "EGridGRIDHEAD::getNumDomains");
}

bool EGridGRIDHEAD::isRadial() const
{
    return itemAt(*this, gridHead::radial, "EGridGRIDHEAD::isRadial") == 0;
}

const Index3& EGridGRIDHEAD::getHostCellMin() const
{
    return indexAt(*this, gridHead::hostMin, "EGridGRIDHEAD::getHostCellMin");
}

const Index3& EGridGRIDHEAD::getHostCellMax() const
{
    return indexAt(*this, gridHead::hostMax, "EGridGRIDHEAD::getHostCellMax");
}

void EGridGRIDHEAD::setStrGridHeadData(int reservoirs, int domains, int radial, const Index3& hostMin,
                                       const Index3& hostMax)
{
    checkItems(array().size(), gridHead::hostMax + itemsOfIndex3, "EGridGRIDHEAD::setStrGridHeadData");
    const Index3 newMax = hostMax; // it may be a view of the minimum, which is written first
    array()[gridHead::reservoirs] = reservoirs;
    array()[gridHead::domains] = domains;
    array()[gridHead::radial] = radial;
    putIndex(array(), gridHead::hostMin, hostMin);
    putIndex(array(), gridHead::hostMax, newMax);
}

EGridLGRLongName::EGridLGRLongName(const KeywordHeader& header) : ConcreteKeyword(header) {}

EGridLGRLongName::EGridLGRLongName(const std::string& name)
    : ConcreteKeyword(getKeywordName(), std::vector<std::string>{name})
{
    if (name.size() > longestStringElement)
        fail<std::invalid_argument>("EGridLGRLongName", ": a name of ", name.size(), " characters is too long");
    const int width = std::max(1, static_cast<int>(name.size()));
    valueTypeInfo(ValueTypeInfo(ValueType::C0nn, width));
}

GridLGR::GridLGR(const KeywordHeader& header) : ConcreteKeyword(header) {}

GridLGR::GridLGR(std::string first, std::string second)
    : ConcreteKeyword(getKeywordName(), std::vector<std::string>{std::move(first), std::move(second)})
{}

GridGRIDUNIT::GridGRIDUNIT(const KeywordHeader& header) : ConcreteKeyword(header) {}

GridGRIDUNIT::GridGRIDUNIT(const std::string& first, const std::string& second)
    : ConcreteKeyword(getKeywordName(), std::vector<std::string>{first, second})
{}

GridMAPAXES::GridMAPAXES(const KeywordHeader& header) : ConcreteKeyword(header) {}

GridMAPAXES::GridMAPAXES(float yendX, float yendY, float originX, float originY, float xendX, float xendY)
    : ConcreteKeyword(getKeywordName(), std::vector<float>{yendX, yendY, originX, originY, xendX, xendY})
{}

const Vertex2F& GridMAPAXES::yend() const
{
    return vertexAt(*this, mapAxes::yend, "GridMAPAXES::yend");
}

const Vertex2F& GridMAPAXES::origin() const
{
    return vertexAt(*this, mapAxes::origin, "GridMAPAXES::origin");
}

const Vertex2F& GridMAPAXES::xend() const
{
    return vertexAt(*this, mapAxes::xend, "GridMAPAXES::xend");
}

EGridACTNUM::EGridACTNUM(const KeywordHeader& header) : ConcreteKeyword(header) {}

EGridACTNUM::EGridACTNUM(std::vector<int> values) : ConcreteKeyword(getKeywordName())
{
    size(std::ssize(values));
    array() = std::move(values);
}

EGridNNCHEAD::EGridNNCHEAD(const KeywordHeader& header) : ConcreteKeyword(header) {}

EGridNNCHEAD::EGridNNCHEAD(int item0, int item1)
    : ConcreteKeyword(getKeywordName(), zerosBehind(item0, item1, getKeywordArraySize()))
{}

EGridNNCHEADA::EGridNNCHEADA(const KeywordHeader& header) : ConcreteKeyword(header) {}

EGridNNCHEADA::EGridNNCHEADA(int item0, int item1)
    : ConcreteKeyword(getKeywordName(), zerosBehind(item0, item1, getKeywordArraySize()))
{}

GridDIMENS::GridDIMENS(const KeywordHeader& header) : ConcreteKeyword(header) {}

GridDIMENS::GridDIMENS(int nx, int ny, int nz) : ConcreteKeyword(getKeywordName(), std::vector<int>{nx, ny, nz}) {}

const Index3& GridDIMENS::getGridSize() const
{
    return indexAt(*this, 0, "GridDIMENS::getGridSize");
}

GridLGRILG::GridLGRILG(const KeywordHeader& header) : ConcreteKeyword(header) {}

GridLGRILG::GridLGRILG(const Index3& hostMin, const Index3& hostMax)
    : ConcreteKeyword(getKeywordName(), zeros(getKeywordArraySize()))
{
    putIndex(array(), lgrilg::hostMin, hostMin);
    putIndex(array(), lgrilg::hostMaxReversed, {hostMax.z, hostMax.y, hostMax.x});
}

int GridLGRILG::getNTheta() const
{
    return itemAt(*this, lgrilg::theta, "GridLGRILG::getNTheta");
}

const Index3& GridLGRILG::getHostCellMin() const
{
    return indexAt(*this, lgrilg::hostMin, "GridLGRILG::getHostCellMin");
}

Index3 GridLGRILG::getHostCellMax() const
{
    const Index3& reversed = indexAt(*this, lgrilg::hostMaxReversed, "GridLGRILG::getHostCellMax");
    return {reversed.z, reversed.y, reversed.x};
}

const Index3& GridLGRILG::getGridSize() const
{
    return indexAt(*this, lgrilg::size, "GridLGRILG::getGridSize");
}

void GridLGRILG::setGridSize(const Index3& size)
{
    checkItems(array().size(), lgrilg::size + itemsOfIndex3, "GridLGRILG::setGridSize");
    putIndex(array(), lgrilg::size, size);
}

GridCOORDS::GridCOORDS(const KeywordHeader& header) : ConcreteKeyword(header) {}

GridCOORDS::GridCOORDS(int i, int j, int k, int cell, int itemCount)
    : ConcreteKeyword(getKeywordName(), zeros(checkedCoordsCount(itemCount)))
{
    putIndex(array(), 0, {i, j, k});
    array()[3] = cell;
}

void GridCOORDS::setActiveCells(int active)
{
    if (array().size() == coords::fewestItems)
        return;
    checkItems(array().size(), coords::activeCells + 1, "GridCOORDS::setActiveCells");
    array()[coords::activeCells] = active;
}

void GridCOORDS::setHostCellAndCoarsenedGroup(int host, int group)
{
    if (array().size() <= coords::coarsenedGroup)
        return;
    array()[coords::hostCell] = host;
    array()[coords::coarsenedGroup] = group;
}

GridCORNERS::GridCORNERS(const KeywordHeader& header) : ConcreteKeyword(header) {}

GridCORNERS::GridCORNERS(int) : ConcreteKeyword(getKeywordName(), std::vector<float>(3 * cornerVertices)) {}

void GridCORNERS::setVertices(int vertex, float x, float y, float z)
{
    if (vertex < 0 || vertex >= static_cast<int>(cornerVertices))
        fail<std::invalid_argument>("GridCORNERS::setVertices", ": there is no vertex ", vertex);
    const std::size_t first = 3 * static_cast<std::size_t>(vertex);
    checkItems(array().size(), first + 3, "GridCORNERS::setVertices");
    array()[first] = x;
    array()[first + 1] = y;
    array()[first + 2] = z;
}

} // namespace Kvt::Mrl::MrlIO
