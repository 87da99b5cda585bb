#include <mrlio/GridKeywords.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

using namespace Kvt::Mrl::MrlIO;

namespace {

/// Position and value of every item that isn't 0.
std::string itemsOf(const KeywordINTE& record)
{
    std::string items;
    for (std::size_t i = 0; i < record.array().size(); ++i) {
        if (record.array()[i] != 0)
            items += std::to_string(i) + ":" + std::to_string(record.array()[i]) + " ";
    }
    return items;
}

template <class Record>
void expectHeader(const Record& record, std::int64_t count)
{
    EXPECT_EQ(record.name(), Record::getKeywordName());
    EXPECT_EQ(record.valueType(), Record::getKeywordValueType()) << record.name();
    EXPECT_EQ(record.size(), count) << record.name();
    EXPECT_EQ(std::ssize(record.array()), count) << record.name();
}

void expectRefused(const std::function<void()>& action, const std::string& what)
{
    EXPECT_THROW(action(), std::invalid_argument) << what;
}

template <class Record>
Record withoutData()
{
    return Record(KeywordHeader(Record::getKeywordName(), 1000, Record::getKeywordValueType(), std::int64_t{24}));
}

// A caller may take a record for any class of its ladder.
template <class Record, class... Ladder>
constexpr bool isOn = (std::is_base_of_v<Ladder, Record> && ...);

static_assert(isOn<EGridHOSTNUM, ConcreteKeyword<EGridHOSTNUM_traits>, KeywordINTE, KeywordTmpl<2>, KeywordHeader>);
static_assert(isOn<EGridCOORD, ConcreteKeyword<EGridCOORD_traits>, KeywordTmpl<1>>);
static_assert(isOn<GridMAPUNITS, ConcreteKeyword<GridMAPUNITS_traits>, KeywordCHAR, KeywordTmpl<4>>);
static_assert(isOn<EGridLGRLongName, ConcreteKeyword<EGridLGRLong_traits>, KeywordTmpl<6>>);
static_assert(std::is_same_v<EGridENDGRID, ConcreteKeyword<EGridENDGRID_traits>>);
static_assert(std::is_same_v<ConcreteKeyword<GridXYZCORN_traits>, ConcreteKeyword<EGridXYZCORN_traits>>);
static_assert(!std::is_same_v<GridNNCHEADA, EGridNNCHEADA>);

} // namespace

TEST(GridKeyword, HeadsPutEachValueIntoItsItem)
{
    using Head = EGridFILEHEAD;
    const Head file(11, 12, 13, Head::GridType(14), Head::DualSystemType(15), Head::OriginalGridType(16));
    expectHeader(file, 100);
    EXPECT_EQ(itemsOf(file), "0:11 1:12 3:13 4:14 5:15 6:16 ");

    EGridGRIDHEAD head(EGridGRIDHEAD::GridType(1), 20, 30, 40, 5);
    expectHeader(head, 100);
    EXPECT_TRUE(head.isRadial()) << "by the item's zero";
    head.setStrGridHeadData(2, 3, 7, {4, 5, 6}, {8, 9, 10});
    EXPECT_EQ(itemsOf(head), "0:1 1:20 2:30 3:40 4:5 24:2 25:3 26:7 27:4 28:5 29:6 30:8 31:9 32:10 ");
    EXPECT_FALSE(head.isRadial());
    EXPECT_EQ(head.getNumReservoirs(), 2);
    EXPECT_EQ(head.getNumDomains(), 3);
    EXPECT_EQ(head.getHostCellMin(), (Index3{4, 5, 6}));

    expectHeader(EGridNNCHEAD(3, 4), 10);
    EXPECT_EQ(itemsOf(EGridNNCHEAD(3, 4)), "0:3 1:4 ");
    expectHeader(EGridNNCHEADA(3, 4), 10);
    EXPECT_EQ(itemsOf(EGridNNCHEADA(3, 4)), "0:3 1:4 ");
    EXPECT_EQ(GridNNCHEADA::getKeywordArraySize(), -1);
}

TEST(GridKeyword, ViewsFollowTheItems)
{
    EGridGRIDHEAD head(EGridGRIDHEAD::GridType(1), 1, 2, 3, 0);
    const Index3& size = head.getGridSize();
    head.array()[2] = 77;
    EXPECT_EQ(size, (Index3{1, 77, 3}));
    head.setStrGridHeadData(1, 1, 0, {1, 2, 3}, {4, 5, 6});
    head.setStrGridHeadData(1, 1, 0, head.getHostCellMax(), head.getHostCellMin());
    EXPECT_EQ(head.getHostCellMin(), (Index3{4, 5, 6})) << "two views of its own items change places";
    EXPECT_EQ(head.getHostCellMax(), (Index3{1, 2, 3}));

    EXPECT_EQ(GridDIMENS(4, 5, 6).getGridSize(), (Index3{4, 5, 6}));
    const GridMAPAXES axes(1, 2, 3, 4, 5, 6);
    EXPECT_EQ(axes.yend(), (Vertex2F{1, 2}));
    EXPECT_EQ(axes.origin(), (Vertex2F{3, 4}));
    EXPECT_EQ(axes.xend(), (Vertex2F{5, 6}));
}

TEST(GridKeyword, LocalGridsOfTheOlderKindHoldTheirMaximumBackwards)
{
    GridLGRILG box({1, 2, 3}, {4, 5, 6});
    box.setGridSize({7, 8, 9});
    expectHeader(box, 11);
    EXPECT_EQ(box.array(), (std::vector<int>{0, 1, 2, 3, 6, 5, 4, 0, 7, 8, 9}));
    EXPECT_EQ(box.getHostCellMin(), (Index3{1, 2, 3}));
    EXPECT_EQ(box.getHostCellMax(), (Index3{4, 5, 6}));
    EXPECT_EQ(box.getGridSize(), (Index3{7, 8, 9}));
    box.array()[0] = 4;
    EXPECT_EQ(box.getNTheta(), 4);
}

TEST(GridKeyword, CellsOfTheOlderKindTakeWhatTheyHaveRoomFor)
{
    const std::map<int, std::vector<int>> wanted = {
        {4, {1, 2, 3, 4}},
        {5, {1, 2, 3, 4, 5}},
        {6, {1, 2, 3, 4, 5, 0}},
        {7, {1, 2, 3, 4, 5, 6, 7}},
        {9, {1, 2, 3, 4, 5, 6, 7, 0, 0}},
    };
    for (const auto& [count, items] : wanted) {
        GridCOORDS cell(1, 2, 3, 4, count);
        cell.setActiveCells(5);
        cell.setHostCellAndCoarsenedGroup(6, 7);
        expectHeader(cell, count);
        EXPECT_EQ(cell.array(), items);
    }
    for (const int count : {3, 0, -1})
        expectRefused([=] { GridCOORDS(1, 2, 3, 4, count); }, std::to_string(count));

    GridCORNERS corners(3);
    expectHeader(corners, 24);
    corners.setVertices(7, 1.0F, 2.0F, 3.0F);
    EXPECT_EQ(corners.array()[21], 1.0F);
    EXPECT_EQ(corners.array()[23], 3.0F);
    for (const int vertex : {-1, 8, 715827883})
        expectRefused([&] { corners.setVertices(vertex, 0, 0, 0); }, std::to_string(vertex));
}

TEST(GridKeyword, ARecordFromAHeaderHoldsNoDataAndSaysSo)
{
    auto head = withoutData<EGridGRIDHEAD>();
    auto box = withoutData<GridLGRILG>();
    auto cell = withoutData<GridCOORDS>();
    auto corners = withoutData<GridCORNERS>();
    const auto axes = withoutData<GridMAPAXES>();
    EXPECT_EQ(head.size(), 1000);
    EXPECT_EQ(head.keywordLargePos(), 24);
    EXPECT_TRUE(head.array().empty());

    const std::function<void()> actions[] = {
        [&] { head.getGridSize(); },
        [&] { head.getNumReservoirs(); },
        [&] { head.getNumDomains(); },
        [&] { head.isRadial(); },
        [&] { head.getHostCellMin(); },
        [&] { head.getHostCellMax(); },
        [&] { head.setStrGridHeadData(1, 1, 1, {}, {}); },
        [&] { box.getNTheta(); },
        [&] { box.getHostCellMin(); },
        [&] { box.getHostCellMax(); },
        [&] { box.getGridSize(); },
        [&] { box.setGridSize({}); },
        [&] { cell.setActiveCells(1); },
        [&] { corners.setVertices(0, 0, 0, 0); },
        [&] { axes.yend(); },
        [&] { axes.origin(); },
        [&] { axes.xend(); },
        [] { withoutData<GridDIMENS>().getGridSize(); },
    };
    for (const auto& action : actions)
        expectRefused(action, std::to_string(&action - actions));
    cell.setHostCellAndCoarsenedGroup(1, 2);
    EXPECT_TRUE(cell.array().empty());

    head.array().resize(32);
    expectRefused([&] { head.getHostCellMax(); }, "one item short");
    head.array().resize(33);
    EXPECT_EQ(head.getHostCellMax(), Index3());
}

TEST(GridKeyword, TextsAndArraysCountWhatTheyHold)
{
    expectHeader(EGridLGR("LOCAL"), 1);
    expectHeader(EGridLGRPARNT(""), 1);
    expectHeader(EGridNAME("A NAME LONGER THAN EIGHT"), 1);
    expectHeader(GridMAPUNITS("METRES"), 1);
    expectHeader(GridGRIDUNIT("METRES", "MAP"), 2);
    expectHeader(GridLGR("LOCAL", "HOST"), 2);
    EXPECT_EQ(GridLGR("LOCAL", "HOST").array(), (std::vector<std::string>{"LOCAL", "HOST"}));
    expectHeader(EGridACTNUM({1, 0, 1}), 3);
    expectHeader(EGridZCORN(std::vector<float>(8)), 8);
    expectHeader(EGridNNC1(std::vector<int>()), 0);

    for (const std::size_t length : {0U, 1U, 9U, 99U}) {
        const EGridLGRLongName name(std::string(length, 'x'));
        expectHeader(name, 1);
        EXPECT_EQ(name.valueTypeInfo().intData(), std::max<int>(1, static_cast<int>(length)));
    }
    expectRefused([] { EGridLGRLongName(std::string(100, 'x')); }, "a width of three digits");
}

TEST(GridKeyword, IndexesAreShiftedInTheGridRecordsOnly)
{
    EXPECT_EQ(EGridHOSTNUM({1}).getShift(), -1);
    EXPECT_EQ(EGridFACENODS({1}).getShift(), -1);
    EXPECT_EQ(EGridSPLITC().getShift(), -1);
    EXPECT_EQ(GridNNC1().getShift(), -1);
    EXPECT_EQ(GridNNA2().getShift(), -1);
    EXPECT_EQ(EGridNNC1({1}).getShift(), 0);
    EXPECT_EQ(EGridNNA2({1}).getShift(), 0);
    EXPECT_EQ(GridNNCHEAD().getShift(), 0);
    EXPECT_EQ(EGridCOORDTYP().getShift(), 0);
    EXPECT_EQ(EGridCORSNUM({1}).getShift(), 0);
    EXPECT_EQ(EGridEXTCELL().getShift(), 0);
}
