// Wells of a report step: what is refused, what is kept, and the records that grids get.

#include "support/GridWriterHelpers.h"

#include "initrestart/write/WellRecords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <sstream>

using namespace MrlIOTest;
using namespace Kvt::Mrl::MrlIO;
using ::testing::ElementsAre;
using ::testing::StartsWith;

namespace {

constexpr int largest = std::numeric_limits<int>::max();

/// Says of each number what it is told to.
struct SegmentsOf : Segments
{
    explicit SegmentsOf(std::vector<int> userIndexes) : Segments(2), indexes(std::move(userIndexes)) {}

    bool isSegmented() const override { return segmented; }

    int connectionCount() const override { return connections; }

    int getUserIndex(int i) const override { return indexes.at(static_cast<std::size_t>(i)); }

    int branchCount() const override { return branches; }

    bool segmented = true;
    int connections = 1;
    std::vector<int> indexes;
    int branches = 2;
};

struct ClaimsSize : Connections
{
    explicit ClaimsSize(int number) : Connections({{{1, 1, 1}}}), claimed(number) {}

    int size() const override { return claimed; }

    int claimed;
};

struct InBlankGrid : Connections
{
    using Connections::Connections;

    bool isInLgr(int) const override { return true; }
};

const GridCellCoordinates a(1, 2, 3);
const GridCellCoordinates b(4, 5, 6);
const Connections one({{b}});

class WellRecordsTest : public ::testing::Test
{
protected:
    void add(const std::string& name, const Connections& connections, const IMSWSegmentData* segments = nullptr,
             WellStatus::Enum status = WellStatus::Open)
    {
        wells.add(name, WellType::Producer, status, connections, segments,
                  [this](const std::string& grid) { return grids.contains(grid); });
    }

    std::string refusal(const std::string& name, const Connections& connections,
                        const IMSWSegmentData* segments = nullptr)
    {
        return textOf<std::invalid_argument>([&] { add(name, connections, segments); });
    }

    /// Writes the records of a grid and reads them back.
    void write(const std::string& grid = "", int gridIndex = 0)
    {
        std::ostringstream out;
        KeywordWriter writer(out, false, Service::FileName("CASE.UNRST"));
        writeWellRecords(writer, wells, grid, gridIndex);
        const TempDir dir;
        writeBytes(dir.file("R"), out.str());
        KeywordFile file(dir.file("R"), false);
        order = file.names();
        for (const char* const keyword : {"ISEG", "ILBR", "IWEL", "ICON"})
            words[keyword] = file.occurrences(keyword) > 0 ? file.values<int>(keyword) : std::vector<int>();
        names = file.occurrences("ZWEL") > 0 ? file.values<std::string>("ZWEL") : std::vector<std::string>();
    }

    /// The words that aren't 0, by position.
    std::map<int, int> filled(const std::string& keyword) const
    {
        std::map<int, int> set;
        const std::vector<int>& all = words.at(keyword);
        for (std::size_t i = 0; i < all.size(); ++i)
            if (all[i] != 0)
                set[static_cast<int>(i)] = all[i];
        return set;
    }

    std::set<std::string> grids{"", "LGR1", "LGR2"};
    WellRegistry wells;
    std::string order;
    std::map<std::string, std::vector<int>> words;
    std::vector<std::string> names;
};

using Words = std::map<int, int>;

} // namespace

TEST_F(WellRecordsTest, AnOrdinaryWellHasThreeRecords)
{
    SegmentsOf segments({-1, -1}); // which say that they are none
    segments.segmented = false;
    segments.connections = 2;
    add("PRODUCER_1", Connections({{a, "", {}, false}, {{}}}), &segments);
    write();
    EXPECT_EQ(order, "IWEL ZWEL ICON");
    EXPECT_EQ(words["IWEL"].size(), 94U);
    EXPECT_EQ(filled("IWEL"), (Words{{0, 1}, {1, 2}, {4, 2}, {6, 1}, {10, 1}}));
    EXPECT_THAT(names, ElementsAre("PRODUCER", "_1"));
    EXPECT_EQ(words["ICON"].size(), 38U);
    // A connection without a cell tells its index by the complement: ~1.
    EXPECT_EQ(filled("ICON"), (Words{{0, 1}, {1, 1}, {2, 2}, {3, 3}, {13, 3}, {19, -2}, {24, 1}, {32, 3}}));
    write("LGR1", 1);
    EXPECT_EQ(order, "");
}

TEST_F(WellRecordsTest, SegmentsAndBranchesStandByWellAmongTheSegmentedOnes)
{
    SegmentsOf segments({1, 3});
    add("M1", one, &segments);
    add(std::string(72, 'P'), one);
    segments.indexes = {4, 2};
    segments.branches = 1;
    add("M2", one, &segments);
    write();
    EXPECT_EQ(order, "ISEG ILBR IWEL ZWEL ICON");
    EXPECT_EQ(words["ISEG"].size(), 32U);
    EXPECT_EQ(filled("ISEG"), (Words{{1, 20}, {3, 40}, {9, 21}, {11, 41}, {21, 21}, {23, 41}, {29, 20}, {31, 40}}));
    EXPECT_EQ(words["ILBR"].size(), 20U);
    EXPECT_EQ(filled("ILBR"), (Words{{0, 7}, {5, 7}, {9, 1}, {10, 7}}));
    EXPECT_EQ(words["IWEL"][70], 1);
    EXPECT_EQ(words["IWEL"][94 + 70], 0);
    EXPECT_EQ(words["IWEL"][2 * 94 + 70], 2);
    EXPECT_EQ(words["ICON"][14], 1);
    EXPECT_EQ(words["ICON"][19 + 14], 0);
    ASSERT_EQ(names.size(), 27U); // the longest name sets the strings of all
    EXPECT_EQ(names[0], "M1");
    EXPECT_EQ(names[1], "");
    EXPECT_EQ(names[17], "PPPPPPPP");
}

TEST_F(WellRecordsTest, AConnectionInALocalGridCountsInBoth)
{
    add("P", Connections({{a, "LGR1", {7, 8, 9}}, {b}, {a, "LGR2", {1, 1, 1}}}));
    write("LGR1", 1);
    EXPECT_EQ(filled("IWEL"), (Words{{0, 7}, {1, 8}, {4, 1}, {6, 1}, {10, 1}, {42, 1}}));
    EXPECT_EQ(filled("ICON"), (Words{{0, 1}, {1, 7}, {2, 8}, {3, 9}, {5, 1}, {13, 3}}));
    EXPECT_EQ(words["ICON"].size(), 3 * 19U); // the most connections of any well, in any grid
    write("LGR2", 2);
    EXPECT_EQ(words["ICON"][0], 3);
    write();
    EXPECT_EQ(words["IWEL"][4], 3);
    EXPECT_EQ(words["IWEL"][42], 0);
    EXPECT_EQ(words["ICON"][39], 1);
}

TEST_F(WellRecordsTest, ARowOfOneHostCellIsOneConnectionOfTheGlobalGrid)
{
    add("P", Connections({{a, "LGR1", {1, 1, 1}, false},
                          {a, "LGR1", {1, 1, 2}, true},
                          {a, "LGR1", {1, 1, 3}, false},
                          {a, "", {}, false}, // of another grid
                          {a, "", {}, false},
                          {b},
                          {a, "", {}, false}}));
    write("LGR1", 1);
    EXPECT_EQ(words["IWEL"][4], 3);
    write();
    EXPECT_EQ(words["IWEL"][4], 4);
    using Pair = std::pair<int, int>;
    std::vector<Pair> numberAndOpen;
    for (std::size_t i = 0; i < 4; ++i)
        numberAndOpen.emplace_back(words["ICON"][19 * i], words["ICON"][19 * i + 5]);
    EXPECT_THAT(numberAndOpen, ElementsAre(Pair(1, 1), Pair(4, 0), Pair(6, 1), Pair(7, 0)));
    EXPECT_EQ(wells.counts("").connections, 7U);
}

TEST_F(WellRecordsTest, FaultyWellsLeaveEverythingAsItWas)
{
    const SegmentsOf sound({1, 3});
    add("M", Connections({{a}}), &sound);
    EXPECT_EQ(refusal("", one), "Blank well names are not supported");
    const std::string longName(73, 'N');
    EXPECT_EQ(refusal(longName, one),
              "Invalid well name: " + longName + ".  Well names longer than 72 characters are not supported.");
    EXPECT_EQ(refusal("M", InBlankGrid({{a, "NONE", a}, {a}})), "Blank LGR names are not supported");
    EXPECT_EQ(refusal("M", Connections({{b}, {a, "NONE", a}})),
              "A well connection has been specified in grid: \"NONE\".  This grid has not been specified.");
    grids.erase("");
    EXPECT_EQ(refusal("M", one), "A well connection has been specified in the global grid." + std::string(34, ' ') +
                                     "This grid has not been specified.");
    grids.insert("");
    for (const bool isSegmented : {true, false}) {
        SegmentsOf uneven = sound;
        uneven.segmented = isSegmented;
        uneven.connections = 2;
        EXPECT_EQ(refusal("M", one, &uneven),
                  "Well connection grid data and connection segment data arrays are of different sizes.");
    }
    for (const int index : {0, std::numeric_limits<int>::min()}) {
        const SegmentsOf misnumbered({1, index});
        EXPECT_EQ(refusal("M", one, &misnumbered), "Invalid segment user index. Must be >=1.");
    }
    const SegmentsOf throwing({1});
    EXPECT_THROW(add("M", one, &throwing), std::out_of_range); // the program's own exception
    write();
    EXPECT_EQ(words["ISEG"].size(), 12U);
    EXPECT_EQ(words["IWEL"].size(), 94U);
    EXPECT_EQ(words["ICON"][1], 1);
    EXPECT_EQ(wells.counts("").namePieces, 1U);
}

TEST_F(WellRecordsTest, CountsThatMakeEndlessRecordsAreRefusedBeforeAnyIsTaken)
{
    SegmentsOf segments({largest, 1});
    EXPECT_THAT(refusal("M", one, &segments), StartsWith("Invalid well: M.  ISEG would hold 8589934588 words"));
    for (const int count : {-1, largest}) {
        SegmentsOf odd({1, 3});
        odd.branches = count;
        EXPECT_THAT(refusal("M", one, &odd), StartsWith("Invalid number of well branches: "));
        odd.segments = count;
        EXPECT_THAT(refusal("M", one, &odd), StartsWith("Invalid number of well segments: "));
        EXPECT_THAT(refusal("M", ClaimsSize(count)), StartsWith("Invalid number of well connections: "));
    }
    // One well of that kind has room, a second one too, a third one hasn't.
    segments.indexes = {1 << 24, 1};
    add("M1", one, &segments);
    add("M2", one, &segments);
    EXPECT_THAT(refusal("M3", one, &segments), StartsWith("Invalid well: M3.  ISEG"));
    add("M1", one);
    add("M3", one, &segments);
    EXPECT_EQ(wells.counts("").segmentedWells, 2U);
}

TEST_F(WellRecordsTest, ALaterCallForAWellReplacesItInItsPlace)
{
    const SegmentsOf segments({1, 3});
    add("FIRST", Connections({{a, "LGR1", a}}), &segments, WellStatus::Shut);
    add("SECOND", one);
    add("FIRST", Connections({{b}, {a}}));
    write();
    EXPECT_EQ(order, "IWEL ZWEL ICON");
    EXPECT_THAT(names, ElementsAre("FIRST", "SECOND"));
    EXPECT_EQ(words["IWEL"][4], 2);
    EXPECT_EQ(words["IWEL"][10], 1);
    EXPECT_EQ(wells.counts("LGR1").wells, 0U);
    EXPECT_EQ(wells.counts("").segments, 3U); // the largest numbers stay
    wells.clear();
    EXPECT_EQ(wells.counts("").wells + wells.counts("").segments, 0U);
}
