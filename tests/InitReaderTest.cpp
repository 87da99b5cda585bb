#include "initrestart/read/GeneratedSpecFile.h"
#include "support/ReaderCase.h"

#include <mrlio/InitReader.h>
#include <mrlio/MrlIOException.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace Kvt::Mrl::MrlIO;
using namespace MrlIOTest;
using Service::HourMinuteSecondMillisecond;
using Service::YearMonthDay;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pair;
using Floats = std::vector<float>;

std::array<int, 3> dimensions(InitReader& reader, const std::string& lgr = {})
{
    std::array<int, 3> sizes{-1, -1, -1};
    const bool isKnown = reader.gridDimension(sizes[0], sizes[1], sizes[2], lgr);
    EXPECT_EQ(isKnown, sizes[0] != -1);
    return sizes;
}

constexpr std::array<int, 3> unknown{-1, -1, -1};

/// A global grid, two local ones with something between them, and more of the global grid behind.
ReaderCase caseWithLocalGrids(KeywordFileBuilder::Form form)
{
    ReaderCase files(form);
    files.heads({}).solution("PORV", {1, 0, 2, 3, 4, 5, 6, 7.25F});
    files.lgr("FIRST", {.nx = 1, .ny = 1, .nz = 3, .active = 3}).solution("PORV", {1, 1, 1}).endLgr();
    files.lgr("ALONGNAME", {.nx = 5, .ny = 1, .nz = 1, .active = 5}).solution("PORV", {1, 2, 3, 4, 5}).endLgr();
    files.data.strings("LGRJOIN", 9, {"FIRST", "ALONGNAME"}).keyword("TRANLL", {0.5F});
    files.data.keyword("LGRSGONE", std::vector<int>());
    files.solution("NTG", {-1, 1, 1, 1, 1, 1, 1, 1}).endSection();
    return files;
}

class InitReaderOfForm : public testing::TestWithParam<KeywordFileBuilder::Form>
{
protected:
    bool formatted() const { return GetParam() == KeywordFileBuilder::Text; }

    std::string initFile() const { return dir_.file(formatted() ? "CASE.FINIT" : "CASE.INIT"); }

    std::string specFile() const { return dir_.file(formatted() ? "CASE.FINSPEC" : "CASE.INSPEC"); }

    std::shared_ptr<InitReader> read(const std::string& spec) const
    {
        auto reader = InitReader::create();
        reader->read(initFile(), formatted(), spec, "");
        return reader;
    }

    TempDir dir_;
};

INSTANTIATE_TEST_SUITE_P(Forms, InitReaderOfForm,
                         testing::Values(KeywordFileBuilder::Binary, KeywordFileBuilder::Text));

TEST_P(InitReaderOfForm, WritesAnIndexThatEqualsTheScan)
{
    caseWithLocalGrids(GetParam()).data.writeTo(initFile());
    const auto scanned = read(specFile());
    EXPECT_EQ(scanned->getSpecFile(), specFile());
    EXPECT_FALSE(scanned->specFileExists());
    const auto indexed = read(specFile());
    EXPECT_TRUE(indexed->specFileExists());

    EXPECT_THAT(indexed->LGRs(), ElementsAre("FIRST", "ALONGNAME"));
    EXPECT_EQ(indexed->LGRs(), scanned->LGRs());
    for (const char* lgr : {"", "FIRST", "ALONGNAME"}) {
        SCOPED_TRACE(lgr);
        expectSameTable(indexed->rawData()->arrays(lgr), scanned->rawData()->arrays(lgr));
        EXPECT_EQ(dimensions(*indexed, lgr), dimensions(*scanned, lgr));
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir_.path()), {}), 2) << "temporary files left";
}

TEST_P(InitReaderOfForm, FindsInTheDataWhatTheIndexLacks)
{
    ReaderCase files = caseWithLocalGrids(GetParam());
    files.data.writeTo(initFile());
    files.index.writeTo(specFile());
    const auto reader = read(specFile());
    EXPECT_FALSE(reader->rawData()->hasArray("INTEHEAD"));
    EXPECT_EQ(dimensions(*reader), (std::array{2, 2, 2}));
    EXPECT_EQ(dimensions(*reader, "FIRST"), (std::array{1, 1, 3}));
    EXPECT_EQ(reader->numCells("ALONGNAME"), 5);
    EXPECT_EQ(dimensions(*reader, "NOWHERE"), unknown);
    EXPECT_EQ(reader->unitSystem(), UnitSystemType::FIELD);
    EXPECT_EQ(reader->phases(), PhaseType::OIL_WATER);
    EXPECT_EQ(reader->date(), YearMonthDay(2020, 5, 1));
    EXPECT_EQ(reader->time(), HourMinuteSecondMillisecond(6, 30, 15, 250));
    EXPECT_THAT(reader->LGRPairs(), ElementsAre(Pair("ALONGNAME", "FIRST")));
}

TEST_P(InitReaderOfForm, NeedsNoDataFileToOpen)
{
    ReaderCase files = caseWithLocalGrids(GetParam());
    KeywordFileBuilder(GetParam())
        .keyword("INTEHEAD", GridHead{.nx = 7}.intehead())
        .raw(files.index.bytes())
        .writeTo(specFile());
    const auto reader = read(specFile());
    EXPECT_TRUE(reader->rawData()->hasArray("PORV", "FIRST"));
    EXPECT_EQ(dimensions(*reader), (std::array{7, 2, 2})) << "the index file's own header serves";
    EXPECT_EQ(dimensions(*reader, "FIRST"), unknown);
    EXPECT_EQ(reader->date(), YearMonthDay(2020, 5, 1));
    Floats values;
    EXPECT_THROW(reader->rawData()->getAnyArray("PORV", values), RestartReaderException);
}

class InitReaderFixture : public testing::Test
{
protected:
    /// Reads the case without an index file.
    void scan(const ReaderCase& files)
    {
        files.data.writeTo(initFile_);
        reader_->read(initFile_, false, "", "");
    }

    TempDir dir_;
    std::string initFile_ = dir_.file("CASE.INIT");
    std::shared_ptr<InitReader> reader_ = InitReader::create();
};

TEST_F(InitReaderFixture, CountsTheLayersOfOneMedium)
{
    struct Case
    {
        const char* what;
        GridHead head;
        std::size_t volumes;
        std::array<int, 3> expected;
    };

    const Case cases[] = {
        {"layers of both, as our writers count", {.nz = 4, .active = 16, .dualPorosity = true}, 16, {2, 2, 2}},
        {"layers of one", {.nz = 2, .active = 16, .dualPorosity = true}, 16, {2, 2, 2}},
        {"an odd number of layers", {.nz = 3, .active = 12, .dualPorosity = true}, 12, {2, 2, 3}},
        {"one medium only", {.nz = 4, .active = 16}, 16, {2, 2, 4}},
        {"no volumes to tell", {.nz = 4, .active = 16, .dualPorosity = true}, 0, {2, 2, 4}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.what);
        ReaderCase files;
        files.heads(row.head);
        if (row.volumes > 0)
            files.solution("PORV", Floats(row.volumes, 1.0F));
        scan(files);
        EXPECT_EQ(dimensions(*reader_), row.expected);
        EXPECT_EQ(reader_->isDualPorosity(), row.head.dualPorosity);
    }
}

TEST_F(InitReaderFixture, HalvesTheLayersPerGrid)
{
    ReaderCase files;
    files.heads({.nz = 4, .active = 16, .dualPorosity = true}).solution("PORV", Floats(16, 1.0F));
    files.lgr("L", {.nx = 1, .ny = 1, .nz = 2, .active = 4}).solution("PORV", Floats(4, 1.0F)).endLgr();
    scan(files);
    EXPECT_EQ(dimensions(*reader_), (std::array{2, 2, 2}));
    EXPECT_EQ(dimensions(*reader_, "L"), (std::array{1, 1, 2}));
    EXPECT_EQ(reader_->getCellActivitiesInfo().numActive(true), 8);
    EXPECT_EQ(reader_->getCellActivitiesInfo("L").numActive(true), 2);
}

TEST_F(InitReaderFixture, TakesUnsoundDimensionsForNone)
{
    constexpr int most = std::numeric_limits<int>::max();
    for (const GridHead& head : {GridHead{.nx = -1}, GridHead{.nx = -2, .ny = -2}, GridHead{.nx = 65536, .ny = 65536},
                                 GridHead{.nx = most, .ny = most, .nz = most}}) {
        scan(ReaderCase().heads(head));
        EXPECT_EQ(dimensions(*reader_), unknown);
        EXPECT_EQ(reader_->numCells(), -1);
        EXPECT_EQ(reader_->getCellActivitiesInfo().numActive(false), 0);
    }
}

TEST_F(InitReaderFixture, TellsOfHeadersThatHoldTooLittleOrUnknownCodes)
{
    scan(ReaderCase().heads({.units = 9, .phases = -1}));
    EXPECT_EQ(static_cast<int>(reader_->unitSystem()), 4);
    EXPECT_EQ(static_cast<int>(reader_->phases()), 7);

    ReaderCase files;
    files.heads({.words = 14}).solution("PORV", Floats(8, 1.0F)).endSection();
    files.data.writeTo(initFile_);
    files.index.writeTo(dir_.file("CASE.INSPEC"));
    reader_->read(initFile_, false, dir_.file("CASE.INSPEC"), "");
    for (int attempt : {1, 2}) {
        try {
            reader_->numCells();
            ADD_FAILURE() << attempt;
        } catch (const RestartReaderException& fault) {
            EXPECT_STREQ(fault.what(), "INTEHEAD keyword contains less than 15 values");
        }
    }
    Floats porv;
    EXPECT_TRUE(reader_->rawData()->getAnyArray("PORV", porv)) << "arrays need no header";
}

TEST_F(InitReaderFixture, KnowsWhatItWasNotGiven)
{
    EXPECT_EQ(reader_->rawData(), nullptr);
    EXPECT_EQ(reader_->propertyData(), nullptr);
    EXPECT_EQ(reader_->numCells(), -1);
    EXPECT_EQ(reader_->getCellActivitiesInfo().numActive(false), 0);
    EXPECT_EQ(reader_->getCellCoarsenInfo(), nullptr);
    EXPECT_EQ(reader_->date(), YearMonthDay());
    EXPECT_TRUE(reader_->LGRs().empty());
    EXPECT_TRUE(reader_->LGRPairs().empty());

    ReaderCase files;
    scan(files.solution("PORV", {1}));
    EXPECT_EQ(reader_->numCells(), -1) << "no headers";
    EXPECT_EQ(reader_->date(), YearMonthDay());
    EXPECT_FALSE(reader_->isDualPorosity());
}

TEST_F(InitReaderFixture, ForgetsTheCaseWhenTheNextOneFails)
{
    ReaderCase files;
    scan(files.heads({}).solution("PORV", Floats(8, 1.0F)));
    EXPECT_EQ(reader_->numCells(), 8);
    const std::string empty = dir_.file("CASE.INSPEC");
    writeBytes(empty, "");
    EXPECT_THROW(reader_->read("", false, "", ""), RestartReaderException);
    EXPECT_EQ(reader_->rawData(), nullptr);
    scan(files);
    try {
        reader_->read(initFile_, false, empty, "");
        ADD_FAILURE() << "an empty index file was read";
    } catch (const RestartReaderException& fault) {
        EXPECT_THAT(fault.what(), HasSubstr("Error reading invalid or empty file " + empty));
    }
    EXPECT_EQ(reader_->rawData(), nullptr);
    EXPECT_EQ(reader_->numCells(), -1);
    EXPECT_FALSE(reader_->specFileExists());
}

TEST_F(InitReaderFixture, DoesWithoutAnIndexFileThatCannotBeWritten)
{
    ReaderCase().heads({}).data.writeTo(initFile_);
    reader_->read(initFile_, false, dir_.file("missing/CASE.INSPEC"), "");
    EXPECT_EQ(reader_->getSpecFile(), "");
    EXPECT_FALSE(reader_->specFileExists());
    EXPECT_EQ(reader_->numCells(), 8);

    // A name whose form isn't the one that is written would make the case unreadable from then on.
    const std::string otherForm = dir_.file("CASE.FINSPEC");
    reader_->read(initFile_, false, otherForm, "");
    EXPECT_EQ(reader_->getSpecFile(), "");
    EXPECT_FALSE(std::filesystem::exists(otherForm));
}

TEST_F(InitReaderFixture, WritesNoIndexOfDataThatChangedMeanwhile)
{
    const std::string specFile = dir_.file("CASE.INSPEC");
    ReaderCase files;
    files.heads({}).data.writeTo(initFile_);
    const DataFileStamps stamps({initFile_});
    InitSpecData index;
    index.read(std::vector<std::string>{initFile_});
    files.solution("PORV", {1}).data.writeTo(initFile_);
    EXPECT_EQ(writeSpecFile(specFile, false, index, stamps), "");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir_.path()), {}), 1);
    EXPECT_EQ(writeSpecFile(specFile, false, index, DataFileStamps({initFile_})), specFile);
}

TEST_F(InitReaderFixture, FindsCoarsenedCellsOfEachGrid)
{
    ReaderCase files;
    files.heads({.nz = 1, .active = 4}).solution("PORV", {1, 0, 0, 2});
    files.data.keyword("CORSNUM", {0, 3, 3, 3});
    files.lgr("L", {.nx = 1, .ny = 1, .nz = 1, .active = 1}).solution("PORV", {1}).endLgr();
    scan(files);
    const ICellCoarsenInfo* const info = reader_->getCellCoarsenInfo();
    ASSERT_NE(info, nullptr);
    int cell = -1;
    EXPECT_TRUE(info->representative(3, cell));
    EXPECT_EQ(cell, 3);
    EXPECT_EQ(reader_->getCellCoarsenInfo("L"), nullptr);
    EXPECT_EQ(reader_->getCellCoarsenInfo(), info) << "handed out objects stay";
}

} // namespace
