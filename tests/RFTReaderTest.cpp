#include "support/WellFile.h"

#include <mrlio/MrlIOException.h>
#include <mrlio/RFTReader.h>
#include <mrlio/RFTReaderEnvironment.h>

#include <boost/lexical_cast/bad_lexical_cast.hpp>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace MrlIOTest {
namespace {

using namespace Kvt::Mrl::MrlIO;
using Date = Service::YearMonthDay;
using Floats = std::vector<float>;

class RFTReaderTest : public ::testing::Test
{
protected:
    void read(const WellFile& file) { reader.read(folder.write(file)); }

    /// The values of a REAL array; one of -1 if there is none.
    template <class When>
    Floats values(const std::string& array, const std::string& well, const When& when) const
    {
        Floats found{5.0f};
        return reader.getArray(array, well, when, found) ? found : Floats{-1.0f};
    }

    WellCase folder{"RFT", "_rft_content_index__.xml"};
    RFTReader reader;
};

const Floats none{-1.0f};
constexpr std::size_t first = 0, second = 1;

/// Wells A and B at 10 days, A at 40 days.
WellFile fewReports(WellFile::Form form = WellFile::Binary)
{
    WellFile file(form);
    file.report(10.0f, 11, 1).keyword("PRESSURE", {99.0f});
    file.well("A").keyword("PRESSURE", {1.0f, 2.0f}).keyword("CONIPOS", {4, 5, 6}).logicals("OPEN", {1, 0});
    file.keyword("LONG", std::vector<double>{0.5}).strings("NAMES", 12, {"twelve signs"});
    file.report(10.0f, 11, 1).keyword("PRESSURE", {98.0f});
    file.well("B", "LGR1", "FRICTION").keyword("PRESSURE", {3.0f}).keyword("DEPTH", {7.0f, 8.0f});
    file.keyword("NONE", Floats{});
    file.report(40.0f, 10, 2).well("A").keyword("PRESSURE", {4.0f}).keyword("CONDEPTH", {9.0f});
    return file;
}

TEST_F(RFTReaderTest, GivesTheArraysOfEachWellAndDate)
{
    for (const auto form : {WellFile::Binary, WellFile::Text}) {
        const WellCase files(form == WellFile::Binary ? "RFT" : "FRFT", "_rft_content_index__.xml");
        reader.read(files.write(fewReports(form)));
        EXPECT_EQ(reader.RFTFile().GetFullName(), files.file());
        EXPECT_EQ(reader.wells(), (std::vector<std::string>{"A", "B"}));
        EXPECT_EQ(reader.times(), (Floats{10.0f, 40.0f}));
        EXPECT_EQ(values("PRESSURE", "A", first), (Floats{1.0f, 2.0f})) << "what stands outside of wells is dropped";
        EXPECT_EQ(values("PRESSURE", "B", Date(2030, 1, 11)), Floats{3.0f});
        EXPECT_EQ(values("PRESSURE", "A", Date(2030, 2, 10)), Floats{4.0f});
        EXPECT_EQ(values("NONE", "B", first), Floats{}) << "an array without values is one";
        EXPECT_EQ(values("PRESSURE", "B", second), none);
        std::vector<std::string> texts;
        EXPECT_TRUE(reader.getArray("WELLETC", "B", first, texts));
        EXPECT_EQ(texts, WellFile::wellEtc("B", "LGR1", "FRICTION"));
        EXPECT_TRUE(reader.getArray("NAMES", "A", first, texts));
        EXPECT_EQ(texts, std::vector<std::string>{"twelve signs"});
    }
}

TEST_F(RFTReaderTest, NumbersWiden)
{
    read(fewReports());
    std::vector<int> integers;
    std::vector<double> doubles;
    std::vector<bool> truths;
    EXPECT_TRUE(reader.getArray("OPEN", "A", first, truths));
    EXPECT_EQ(truths, (std::vector<bool>{true, false}));
    EXPECT_TRUE(reader.getArray("CONIPOS", "A", first, doubles));
    EXPECT_EQ(doubles, (std::vector<double>{4, 5, 6}));
    EXPECT_TRUE(reader.getArray("PRESSURE", "A", first, doubles));
    EXPECT_EQ(doubles, (std::vector<double>{1, 2}));
    EXPECT_THROW(reader.getArray("PRESSURE", "A", first, integers), MrlIOException);
    EXPECT_THROW(reader.getArray("PRESSURE", "A", first, truths), MrlIOException);
    EXPECT_THROW(reader.getArray("WELLETC", "A", first, doubles), MrlIOException);
    EXPECT_THROW(values("LONG", "A", first), MrlIOException);
}

TEST_F(RFTReaderTest, CountsFollowFromTheFirstArrayThatIsThere)
{
    WellFile file = fewReports();
    file.keyword("READEPTH", {1.0f, 2.0f, 3.0f}).keyword("SEGDEPTH", {1.0f, 2.0f, 3.0f, 4.0f});
    file.report(50.0f, 20, 2).well("A").keyword("CONIPOS", std::vector<int>{}).keyword("DEPTH", {1.0f});
    file.well("B").keyword("CONIPOS", {1.0f});
    read(file);
    EXPECT_EQ(reader.getNCON("A", first), 3);
    EXPECT_EQ(reader.getNCON("B", Date(2030, 1, 11)), 2);
    EXPECT_EQ(reader.getNCON("A", second), 1);
    EXPECT_EQ(reader.getNCON("A", 2), 0);
    EXPECT_EQ(reader.getNREA("A", second), 3);
    EXPECT_EQ(reader.getNSEG("A", Date(2030, 2, 10)), 4);
    EXPECT_EQ(reader.getNREA("A", first), -1);
    EXPECT_EQ(reader.getNCON("Z", first), -1);
    EXPECT_EQ(reader.getNCON("A", 3), -1);
    EXPECT_EQ(reader.getNSEG("A", Date(2031, 1, 1)), -1);
    EXPECT_THROW(reader.getNCON("B", 2), RFTReaderException);
}

TEST_F(RFTReaderTest, WhatIsNotThereIsNoFailure)
{
    read(fewReports());
    Floats found{5.0f};
    EXPECT_FALSE(reader.getArray("PRESSURE", "A", Date(2031, 1, 1), found));
    EXPECT_EQ(found, Floats{5.0f});
    EXPECT_FALSE(reader.getArray("PRESSURE", "A", 2, found));
    EXPECT_EQ(found, Floats{});
    EXPECT_EQ(values("PRESSURE", "Z", first), none);
    EXPECT_EQ(values("SWAT", "A", first), none);
    EXPECT_EQ(values("PRESSURE", "", first), none);
    EXPECT_EQ(reader.wellType("Z"), 4);
    EXPECT_EQ(reader.LGR("Z"), "");
    EXPECT_EQ(reader.LGR("B"), "LGR1");
    EXPECT_EQ(reader.arrayValueType("SWAT"), 8);
    EXPECT_TRUE(reader.RFTArrays("Z").empty());
    EXPECT_EQ(reader.RFTArrays("B"), (std::set<std::string>{"DEPTH", "PRESSURE"}));
}

TEST_F(RFTReaderTest, NameListsAreOnePerThread)
{
    read(fewReports());
    const std::vector<std::string>& names = reader.PLTArrayNames();
    EXPECT_EQ(names, std::vector<std::string>{"CONDEPTH"});
    WellFile other;
    other.well("A").keyword("CONPRES", {1.0f}).keyword("SEGDEPTH", {1.0f}).keyword("SWAT", {1.0f});
    const WellCase files("RFT", "_rft_content_index__.xml");
    RFTReader otherReader;
    otherReader.read(files.write(other));
    otherReader.PLTArrayNames();
    EXPECT_EQ(names, std::vector<std::string>{"CONPRES"});
    EXPECT_EQ(otherReader.basicArrayNames(), std::vector<std::string>{"WELLETC"});
    EXPECT_EQ(otherReader.RFTArrayNames(), std::vector<std::string>{"SWAT"});
    EXPECT_EQ(otherReader.segmentArrayNames(), std::vector<std::string>{"SEGDEPTH"});
}

TEST_F(RFTReaderTest, UnitsStandInTheirPlaces)
{
    read(fewReports());
    const auto expectUnit = [](int position, const std::string& unit) {
        EXPECT_EQ(unit, "U" + std::to_string(position));
    };
    expectUnit(0, reader.timeUnit());
    expectUnit(3, reader.depthUnit());
    expectUnit(4, reader.pressureUnit());
    expectUnit(7, reader.oilAndWaterFlowRateUnit());
    expectUnit(8, reader.gasFlowRateUnit());
    expectUnit(9, reader.localVolumetricFlowRateUnit());
    expectUnit(10, reader.flowVelocityUnit());
    expectUnit(12, reader.viscosityUnit());
    expectUnit(13, reader.polymerAndBrineConcentrationUnit());
    expectUnit(14, reader.polymerAndBrineFlowRateUnit());
    expectUnit(15, reader.adsorbedPolymerConcentrationUnit());
    expectUnit(16, reader.temperatureUnit());
    expectUnit(17, reader.massDensityUnit());
    expectUnit(18, reader.energyUnit());
}

TEST_F(RFTReaderTest, LaterBlocksAndDatesWin)
{
    WellFile file;
    file.report(1.0f).well("A").keyword("SWAT", {1.0f}).keyword("SGAS", {1.0f});
    file.report(0.5f).well("A").keyword("SWAT", {2.0f}); // no later than the report, so a part of it
    file.report(2.0f).well("A").keyword("SWAT", {3.0f});
    read(file);
    EXPECT_EQ(reader.dates().size(), 2u);
    EXPECT_EQ(values("SWAT", "A", first), Floats{2.0f});
    EXPECT_EQ(values("SGAS", "A", first), Floats{1.0f});
    for (int repeat = 0; repeat < 2; ++repeat)
        EXPECT_EQ(values("SWAT", "A", Date(2030, 1, 1)), Floats{3.0f}) << "of equal dates the last";
}

TEST_F(RFTReaderTest, FailingLoadLeavesWhatItHasRead)
{
    WellFile file;
    file.report(1.0f).well("A").keyword("SWAT", {1.0f, 2.0f});
    const auto damaged = static_cast<std::size_t>(file.size());
    file.keyword("SGAS", {3.0f, 4.0f}).keyword("SOIL", {5.0f});
    file.report(2.0f).well("A").keyword("SWAT", {6.0f});
    read(file);
    file.setInt32(damaged + 24, 5).writeTo(folder.file()); // a record of 5 bytes
    Floats found{5.0f};
    EXPECT_THROW(reader.getArray("SOIL", "A", first, found), MrlIOException);
    EXPECT_EQ(found, Floats{});
    EXPECT_EQ(values("SWAT", "A", first), (Floats{1.0f, 2.0f}));
    EXPECT_EQ(values("SOIL", "A", first), none) << "not read a second time";
    EXPECT_EQ(values("SWAT", "A", second), Floats{6.0f});
}

TEST_F(RFTReaderTest, TellsStaleIndexesByTheDateThatIsNotThere)
{
    read(fewReports());
    for (const char* offset : {"0", "1", "900000"}) {
        folder.editCache("<offset>36</offset>", std::string("<offset>") + offset + "</offset>");
        reader.read(folder.file());
        try {
            values("PRESSURE", "A", first);
            ADD_FAILURE() << offset;
        } catch (const MrlIOException& fault) {
            const std::string expected =
                offset == std::string("1") ? fault.what() : "RFTDataLoaderIncremental::loadData: error reading DATE";
            EXPECT_EQ(fault.what(), expected) << offset;
        }
        EXPECT_EQ(values("PRESSURE", "A", second), Floats{4.0f});
        folder.editCache(std::string("<offset>") + offset + "</offset>", "<offset>36</offset>");
    }
    std::filesystem::remove(folder.file());
    reader.read(folder.write(fewReports()));
    std::filesystem::remove(folder.file());
    EXPECT_THROW(values("PRESSURE", "A", first), RFTReaderException);
    folder.write(fewReports());
    EXPECT_EQ(values("PRESSURE", "A", first), (Floats{1.0f, 2.0f})) << "a file that can't be opened spoils nothing";
}

/// Nearly all of the file are holes, in the two records of one array.
TEST_F(RFTReaderTest, FilesOfTwoGibibytesOpenOncePerFlush)
{
    constexpr std::int32_t hole = 1 << 30;
    const std::string mark = WellFile::int32(hole);
    WellFile start = fewReports(), end;
    folder.write(start.header("HUGE", hole / 2, "REAL").raw(mark));
    end.raw(mark);
    end.report(50.0f, 20, 2).well("A").keyword("SWAT", {6.0f});
    for (const std::string& behindHole : {mark + mark, end.bytes()}) {
        std::filesystem::resize_file(folder.file(), std::filesystem::file_size(folder.file()) + hole);
        std::ofstream(folder.file(), std::ios::binary | std::ios::app) << behindHole;
    }
    for (int round = 0; round < 2; ++round) {
        reader.read(folder.file());
        EXPECT_EQ(values("SWAT", "A", 2), Floats{6.0f}) << "from beyond 2 GiB";
        EXPECT_THROW(reader.read(folder.file()), boost::bad_lexical_cast);
        EXPECT_EQ(reader.RFTFile().GetFileName(), "");
        RFTReaderEnvironment::flushContentIndexCache(folder.directory(), "CASE");
    }
}

TEST_F(RFTReaderTest, HoldsNoFileUnlessReadHasSucceeded)
{
    const auto expectNoFile = [this] {
        EXPECT_EQ(reader.RFTFile().GetFileName(), "");
        EXPECT_THROW(reader.wells(), RFTReaderException);
        EXPECT_THROW(values("SWAT", "A", first), RFTReaderException);
        EXPECT_THROW(reader.energyUnit(), RFTReaderException);
    };
    expectNoFile();
    read(fewReports());
    values("PRESSURE", "A", first);
    EXPECT_THROW(reader.read(folder.path("NONE.RFT")), RFTReaderException);
    expectNoFile();
    read(fewReports());
    EXPECT_THROW(reader.read(reader.wells().front()), RFTReaderException) << "a name that the reader itself holds";
    expectNoFile();
    read(fewReports());
    WellFile later;
    later.report(1.0f).well("C").keyword("PRESSURE", {7.0f});
    read(later);
    EXPECT_EQ(reader.wells(), std::vector<std::string>{"C"}) << "nothing is left of the file before";
    EXPECT_EQ(values("PRESSURE", "A", first), none);
    EXPECT_EQ(values("PRESSURE", "C", Date(2030, 1, 1)), Floats{7.0f});
}

} // namespace
} // namespace MrlIOTest
