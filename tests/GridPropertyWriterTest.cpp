#include "initrestart/write/GridPropertyWriterBase.h"
#include "service/FileStream.h"
#include "support/CellArrays.h"
#include "support/FullDisk.h"
#include "support/KeywordFileBuilder.h"

#include <mrlio/KeywordWriter.h>
#include <mrlio/SeqStreamWrapper.h>

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

using namespace Kvt::Mrl::MrlIO;
using MrlIOTest::CellArray;
using MrlIOTest::FullDisk;
using MrlIOTest::KeywordFileBuilder;
using MrlIOTest::numbersFrom;
using MrlIOTest::readBytes;
using MrlIOTest::TempDir;

namespace {

/// A writer into a section of a grid with the given volumes.
class SectionWriter
{
public:
    explicit SectionWriter(CellArray<float> porv, bool formatted = false, ArrayChecks checks = ArrayChecks::All)
        : porv_(std::move(porv)),
          spec_("G", porv_.size(), 1, 1, UnitSystemType::METRIC, GridSpec::GridType{}),
          section_(std::make_shared<StreamSection>(Service::FileName(dir_.file("CASE.INIT")), "G", formatted)),
          writer_(makeGridPropertyWriter(formatted,
                                         {.grid = spec_,
                                          .activeCells = std::make_shared<ActiveCells>(GridDef(spec_, porv_, true)),
                                          .section = section_,
                                          .rows = &rows,
                                          .checks = checks}))
    {}

    IGridPropertyWriter* operator->() { return writer_.get(); }

    std::string bytes() const { return readBytes(dir_.file("CASE_G.tmp")); }

    SpecStatsData rows;

private:
    TempDir dir_;
    CellArray<float> porv_;
    GridSpec spec_;
    std::shared_ptr<StreamSection> section_;
    std::unique_ptr<IGridPropertyWriter> writer_;
};

CellArray<float> allActive(std::size_t cells)
{
    return CellArray<float>(std::vector<float>(cells, 1.0f));
}

std::string errorOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const std::invalid_argument& error) {
        return std::string("argument: ") + error.what();
    } catch (const std::runtime_error& error) {
        return error.what();
    } catch (const std::exception& error) {
        return std::string("other: ") + error.what();
    }
    return "nothing thrown";
}

} // namespace

TEST(GridPropertyWriter, WritesWholeArraysOfEveryType)
{
    SectionWriter writer(allActive(1001));
    EXPECT_EQ(writer->count(), 1001);
    const auto integers = numbersFrom(1, 1001);
    const auto reals = numbersFrom(0.5f, 1001);
    const auto doubles = numbersFrom(0.25, 1001);
    const std::vector<std::string> texts(1001, "TEXT");
    KeywordFileBuilder expected;
    std::vector<int> places;
    for (int array = 0; array < 4; ++array) {
        places.push_back(static_cast<int>(expected.size()));
        switch (array) {
        case 0:
            writer->write("I", CellArray<int>(integers), false), expected.keyword("I", integers);
            break;
        case 1:
            writer->write("R", CellArray<float>(reals), true), expected.keyword("R", reals);
            break;
        case 2:
            writer->write("D", CellArray<double>(doubles), false), expected.keyword("D", doubles);
            break;
        default:
            writer->write("T", CellArray<std::string>(texts), true), expected.keyword("T", texts);
        }
        // The section is closed behind each array, so all of it is in the file.
        ASSERT_EQ(writer.bytes(), expected.bytes()) << array;
    }
    EXPECT_EQ(writer.rows.pointers, places);
    EXPECT_EQ(writer.rows.types, (std::vector<int>{2, 1, 0, 4}));
    EXPECT_EQ(writer.rows.maxima, (std::vector<double>{1001, 1000.5, 1000.25, 0}));
    EXPECT_EQ(writer.rows.minima, (std::vector<double>{1, 0.5, 0.25, 0}));
}

TEST(GridPropertyWriter, FormattedLinesEndWithLineBlockAndArray)
{
    SectionWriter writer(CellArray<float>(std::vector<float>(700, 1.0f), std::vector<float>(700, 1.0f)), true);
    const auto values = numbersFrom(1, 1400);
    writer->write("DUAL", CellArray<int>(numbersFrom(1, 700), numbersFrom(701, 700)), false);
    writer->write("NEXT", CellArray<int>(std::vector<int>(700, 5)), false);
    std::ostringstream expected;
    KeywordWriter keywords(expected, true, Service::FileName());
    keywords.write(KeywordINTE("DUAL", values));
    keywords.write(KeywordINTE("NEXT", std::vector<int>(700, 5)));
    EXPECT_EQ(writer.bytes(), expected.str());
}

TEST(GridPropertyWriter, LeavesOutInactiveCells)
{
    // Runs of active cells that end within, at and behind the borders of words and pieces.
    std::vector<float> porv(9000, 0.0f);
    std::vector<int> kept;
    for (const auto& [first, last] :
         std::vector<std::pair<int, int>>{{0, 1}, {63, 65}, {70, 71}, {128, 5000}, {8999, 9000}})
        for (int cell = first; cell < last; ++cell) {
            porv[static_cast<std::size_t>(cell)] = 2.0f;
            kept.push_back(cell);
        }
    const CellArray<int> values(numbersFrom(0, 9000));
    const std::string expected = KeywordFileBuilder().keyword("ARRAY", kept).bytes();
    for (const ArrayChecks checks : {ArrayChecks::All, ArrayChecks::None}) {
        SectionWriter writer(CellArray<float>(porv), false, checks);
        writer->write("ARRAY", values, true);
        EXPECT_EQ(writer.bytes(), expected);
        EXPECT_EQ(writer.rows.numbers[0], static_cast<int>(kept.size()));
        EXPECT_EQ(writer.rows.maxima[0], 8999);
    }

    SectionWriter none(CellArray<float>({0, 1e-31f, -1e-31f}));
    none->write("ARRAY", CellArray<int>({7, 8, 9}), true);
    EXPECT_EQ(none.bytes(), KeywordFileBuilder().header("ARRAY", 0, "INTE").bytes());
    EXPECT_EQ(none.rows.minima[0], 0);
    EXPECT_EQ(none.rows.maxima[0], 0);
}

TEST(GridPropertyWriter, RockVolumeAloneMakesACellActive)
{
    const GridSpec spec(2, 2, 1, UnitSystemType::METRIC, GridSpec::GridType{});
    const CellArray<float> porv({1, 0, 0, 1}, {0, 0, 1, 0});
    const CellArray<float> rockv({0, 5, 0, 0}, {0, 5, 5, 5});
    ActiveCells cells(GridDef(spec, porv, rockv, false));
    EXPECT_EQ(cells.matrix().activeCount(), 3);
    EXPECT_EQ(cells.fracture().activeCount(), 3);
    EXPECT_EQ(cells.count(), 6);

    const GridSpec wrapping(65536, 65536, 1, UnitSystemType::METRIC, GridSpec::GridType{});
    const CellArray<float> empty(std::vector<float>{});
    ActiveCells tooMany(GridDef(wrapping, empty, true));
    EXPECT_THROW(tooMany.count(), std::invalid_argument);
}

// A fracture value that is the first of all active cells counts as 0 in the extrema.
TEST(GridPropertyWriter, KeepsTheOddSeedOfFractureValues)
{
    struct Case
    {
        std::vector<float> porv;
        std::vector<float> fracturePorv;
        double min;
        double max;
    };

    const std::vector<Case> cases{
        {{1, 1, 1}, {1, 1, 1}, 10, 60}, // the matrix value of the same cell comes first
        {{0, 1, 1}, {1, 1, 1}, 0, 60},  // 40 is lost to the seed
        {{0, 1, 0}, {0, 0, 1}, 20, 60}, // fracture behind the first matrix value
        {{0, 0, 0}, {0, 0, 1}, 0, 0},   // 60 is the only value and lost
        {{0, 0, 0}, {0, 1, 1}, 0, 60},  //
    };
    for (const Case& row : cases) {
        SectionWriter writer(CellArray<float>(row.porv, row.fracturePorv));
        writer->write("ARRAY", CellArray<int>({10, 20, 30}, {40, 50, 60}), true);
        EXPECT_EQ(writer.rows.minima[0], row.min) << row.max;
        EXPECT_EQ(writer.rows.maxima[0], row.max) << row.min;
    }
}

TEST(GridPropertyWriter, RefusesArraysThatDoNotFit)
{
    SectionWriter writer(CellArray<float>(std::vector<float>(5000, 1.0f), std::vector<float>(5000, 1.0f)));
    const std::vector<int> whole(5000);
    writer->write("GOOD", CellArray<int>(whole), false);
    const std::string good = writer.bytes();
    const auto refused = [&](const std::string& name, const CellArray<int>& array) {
        return errorOf([&] { writer->write(name, array, false); });
    };
    EXPECT_EQ(refused("", CellArray<int>(whole)), "argument: Blank keywords are not supported");
    EXPECT_EQ(refused("NINECHARS", CellArray<int>(whole)),
              "argument: Invalid keyword name: NINECHARS.  Keyword names longer than 8 characters are not supported.");
    EXPECT_EQ(refused("SHORT", CellArray<int>(std::vector<int>(4999))),
              "argument: SHORT array is the wrong length: 4999 properties; expected 5000.");
    EXPECT_EQ(refused("CUT", CellArray<int>(std::vector<int>(4321)).claimSize(5000)),
              "argument: CUT matrix array size (4321) is inconsistent with grid dimensions (5000). ");
    EXPECT_EQ(refused("CUT", CellArray<int>(whole, std::vector<int>(4999))),
              "argument: CUT fracture array size (4999) is inconsistent with grid dimensions (5000). ");
    EXPECT_EQ(writer.bytes(), good);
    EXPECT_EQ(writer.rows.names, std::vector<std::string>{"GOOD"});
}

TEST(GridPropertyWriter, WithoutChecksTakesWhatItIsGiven)
{
    SectionWriter writer(allActive(4), true, ArrayChecks::None);
    writer->write("LONGERNAME", CellArray<int>({1, 2, 3}), false);
    const std::string text = " 'LONGERNAME'           3 'INTE'\n           1           2           3\n";
    EXPECT_EQ(writer.bytes(), text);
    // Nothing stays of an array that breaks off.
    EXPECT_THROW(writer->write("CUT", CellArray<int>({1, 2}).claimSize(4), false), std::out_of_range);
    EXPECT_THROW(writer->write("SHORT", CellArray<int>({1, 2, 3}), true), std::out_of_range);
    EXPECT_THROW(writer->write("HUGE", CellArray<int>({}, {}).claimSize(2000000000), false), std::invalid_argument);
    EXPECT_EQ(writer.bytes(), text);
    EXPECT_EQ(writer.rows.numbers, std::vector<int>{3});
}

TEST(GridPropertyWriter, AFullDiskLosesOneArrayOnly)
{
    SectionWriter writer(allActive(100000));
    const CellArray<float> values(std::vector<float>(100000, 1.5f));
    writer->write("FIRST", values, false);
    const std::string first = writer.bytes();
    {
        const FullDisk full(first.size() + 100000);
        EXPECT_EQ(errorOf([&] { writer->write("SECOND", values, false); }),
                  "Problem encountered writing property array : SECOND");
    }
    EXPECT_EQ(writer.bytes(), first);
    writer->write("THIRD", CellArray<int>(std::vector<int>(100000)), false);
    EXPECT_EQ(writer.bytes(), first + KeywordFileBuilder().keyword("THIRD", std::vector<int>(100000)).bytes());
    EXPECT_EQ(writer.rows.names, (std::vector<std::string>{"FIRST", "THIRD"}));
}

TEST(GridPropertyWriter, WritesIntoAStreamThatExistsAlready)
{
    const GridSpec spec(3, 1, 1, UnitSystemType::METRIC, GridSpec::GridType{});
    SpecStatsData rows;
    std::ostringstream out;
    const auto writerTo = [&](std::ostream& stream, ArrayChecks checks) {
        return makeGridPropertyWriter(false, {.grid = spec,
                                              .activeCells = nullptr,
                                              .section = std::make_shared<SeqStreamWrapper>(&stream, "", false),
                                              .rows = &rows,
                                              .checks = checks});
    };
    out << "in front";
    const auto writer = writerTo(out, ArrayChecks::All);
    // Such a stream can't be cut back, so the array is looked at first.
    EXPECT_THROW(writer->write("CUT", CellArray<int>({1}).claimSize(3), false), std::invalid_argument);
    writer->write("ARRAY", CellArray<int>({1, 2, 3}), false);
    writerTo(out, ArrayChecks::NameOnly)->write("CONNS", CellArray<int>({4, 5}), true);
    KeywordFileBuilder expected;
    expected.raw("in front").keyword("ARRAY", {1, 2, 3}).keyword("CONNS", {4, 5});
    EXPECT_EQ(out.str(), expected.bytes());
    EXPECT_EQ(rows.pointers, (std::vector<int>{8, 8 + 24 + 20}));

    out.setstate(std::ios_base::badbit);
    EXPECT_EQ(errorOf([&] {
                  writer->write("ARRAY", CellArray<int>({1, 2, 3}), false);
              }),
              "Problem encountered writing property header : ARRAY");
    Service::FileStream full("/dev/full", Service::FileMode::Write);
    full.setBufferSize(1);
    const CellArray<int> large(std::vector<int>(500000));
    EXPECT_EQ(errorOf([&] { writerTo(full, ArrayChecks::NameOnly)->write("ARRAY", large, false); }),
              "Problem encountered writing property array : ARRAY");
    EXPECT_EQ(rows.names.size(), 2U);
}
