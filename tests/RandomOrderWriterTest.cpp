#include "core/RetryWait.h"
#include "support/GridWriterHelpers.h"

#include <mrlio/InitReader.h>
#include <mrlio/InitWriter.h>
#include <mrlio/RestartReader.h>
#include <mrlio/RestartWriter.h>
#include <mrlio/SequentialInitWriter.h>
#include <mrlio/SequentialRestartWriter.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Kvt::Mrl::MrlIO;
using namespace MrlIOTest;
using testing::ElementsAre;

namespace {

const Service::YearMonthDay start(2026, 1, 31);
const Service::HourMinuteSecondMillisecond sixOClock(6, 0, 0, 0);

GridSpec grid(const std::string& name, int nx, int ny, int nz)
{
    return {name, nx, ny, nz, UnitSystemType::METRIC, GridSpec::GridType{}};
}

const Cells<float> porv24({0, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1}, std::vector<float>(12, 2.0F));
const Cells<float> porv4({1, 1, 1, 0});
const Cells<float> rockv4({0, 0, 0, 1});
const Cells<float> poro({count(1.0F, 12), count(21.0F, 12)});
const Cells<std::string> texts({"a", "b", "c", "it's"});
const Connections connections({{{1, 1, 1}, "A", {2, 1, 1}}, {{3, 1, 1}}});

/// The grids of all cases here: the global one, and A and a grid with a long name inside it.
template <class Writer>
void declareGrids(Writer& writer)
{
    writer.addGridSpec(grid("A", 2, 2, 1));
    writer.addGridSpec(grid("", 3, 2, 2));
    writer.addGridSpec(grid("LOCAL GRID B", 2, 2, 1));
}

void writeGlobal(IGridPropertyWriter& writer)
{
    writer.write("PORO", poro, true);
    writer.write("SWAT", poro, false);
}

void writeLocal(IGridPropertyWriter& writer)
{
    writer.write("PORO", Cells<double>({1, 2, 3, 4}), true);
    writer.write("TEXTS", texts, false);
}

class RandomOrderTest : public testing::TestWithParam<std::tuple<bool, bool>>
{
protected:
    RandomOrderTest()
    {
        params.unified = std::get<1>(GetParam());
        params.simulatorValue = 300;
    }

    bool formatted() const { return std::get<0>(GetParam()); }

    InitWriter initWriter() const { return {folder.path(), "CASE", start, sixOClock, formatted(), params, false}; }

    RestartWriter restartWriter() const
    {
        return {folder.path(), "CASE", start, sixOClock, formatted(), params, false};
    }

    void expectSameFiles(const char* names) const
    {
        EXPECT_EQ(fileNames(folder), names);
        ASSERT_EQ(fileNames(folder), fileNames(sequential));
        for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
            const std::string name = entry.path().filename().string();
            EXPECT_TRUE(readBytes(folder.file(name)) == readBytes(sequential.file(name))) << name;
        }
    }

    MrlWriterDefaultParams params;
    TempDir folder;
    TempDir sequential; // where a sequential writer writes the same
};

INSTANTIATE_TEST_SUITE_P(Forms, RandomOrderTest, testing::Combine(testing::Bool(), testing::Bool()),
                         [](const auto& form) {
                             return std::string(std::get<0>(form.param) ? "Formatted" : "Unformatted") +
                                    (std::get<1>(form.param) ? "Unified" : "Separate");
                         });

TEST_P(RandomOrderTest, InitFilesAreThoseOfTheSequentialWriter)
{
    const Cells<float> transmissibilities({1, 2, 3, 4, 5});
    InitWriter writer = initWriter();
    declareGrids(writer);
    writer.open();
    writer.getNNCPropertyWriter("A").write("TRANNNC", transmissibilities, false);
    writeLocal(writer.getPropertyWriter("LOCAL GRID B", porv4, rockv4));
    IGridPropertyWriter& global = writer.getPropertyWriter(porv24);
    global.write("PORO", poro, true);
    writeLocal(writer.getPropertyWriter("A", porv4));
    writer.getPropertyWriter(porv24).write("SWAT", poro, false);
    EXPECT_EQ(&global, &writer.getPropertyWriter("", porv4));
    writer.close(0);

    SequentialInitWriter other(sequential.path(), "CASE", start, sixOClock, formatted(), params, false);
    declareGrids(other);
    other.open(100);
    other.sequenceStart();
    other.sequenceStartGrid("", porv24, -1);
    writeGlobal(*other.sequenceGetCurrentGridWriter());
    other.sequenceEndGrid();
    other.sequenceStartGrid("A", porv4, -1);
    writeLocal(*other.sequenceGetCurrentGridWriter());
    other.sequenceEndGrid();
    other.sequenceStartGrid("LOCAL GRID B", porv4, &rockv4, -1);
    writeLocal(*other.sequenceGetCurrentGridWriter());
    other.sequenceEndGrid();
    other.sequenceNNCStart();
    for (const char* name : {"", "A", "LOCAL GRID B"}) {
        other.sequenceNNCStartGrid(name);
        if (name == std::string("A"))
            other.sequenceWriteSolutionArray("TRANNNC", transmissibilities, false);
        other.sequenceNNCEndGrid();
    }
    other.close();
    expectSameFiles(formatted() ? "CASE.FINIT CASE.FINSPEC" : "CASE.INIT CASE.INSPEC");
}

TEST_P(RandomOrderTest, RestartFilesAreThoseOfTheSequentialWriter)
{
    const Segments segments(2);
    RestartWriter writer = restartWriter();
    SequentialRestartWriter other(sequential.path(), "CASE", start, sixOClock, formatted(), params, false, true);
    for (int step : {0, 3}) {
        declareGrids(writer);
        writer.open(step, 0.1 * step);
        writeLocal(writer.getSolutionWriter("A", porv4, 2));
        writer.writeWellDataArray("WELL", WellType::Producer, WellStatus::Open, connections, &segments);
        writeGlobal(writer.getSolutionWriter(porv24));
        writer.close(1 << 20);

        declareGrids(other);
        other.open(step, 0.1 * step, 0);
        other.writeWellDataArray("WELL", WellType::Producer, WellStatus::Open, connections, &segments);
        other.sequenceStart();
        other.sequenceStartGrid("", porv24, -1);
        writeGlobal(*other.sequenceGetCurrentGridWriter());
        other.sequenceEndGrid();
        other.sequenceStartGrid("A", porv4, 2);
        writeLocal(*other.sequenceGetCurrentGridWriter());
        other.sequenceEndGrid();
        other.sequenceStartGrid("LOCAL GRID B", false, 8); // asked for by nobody: all its cells count
        other.sequenceEndGrid();
        other.close();
    }
    const bool unified = params.unified;
    expectSameFiles(formatted() ? unified ? "CASE.FRSSPEC CASE.FUNRST" : "CASE.F0000 CASE.F0003 CASE.FRSSPEC"
                    : unified   ? "CASE.RSSPEC CASE.UNRST"
                                : "CASE.RSSPEC CASE.X0000 CASE.X0003");
}

TEST_P(RandomOrderTest, PositionsBehindTwoGigabytesAreSplit)
{
    params.unified = true;
    RestartWriter writer = restartWriter();
    declareGrids(writer);
    const std::string path = folder.file(formatted() ? "CASE.FUNRST" : "CASE.UNRST");
    writeBytes(path, "");
    std::filesystem::resize_file(path, (std::uintmax_t{1} << 31) - 1); // takes no space on the disk
    writer.open(1, 1.0);
    writeGlobal(writer.getSolutionWriter(porv24));
    writer.close(0);
    const auto rows = KeywordFile(folder.file(formatted() ? "CASE.FRSSPEC" : "CASE.RSSPEC"), formatted()).sections()[0];
    EXPECT_THAT(rows.pointersB, ElementsAre(1, 1));
    const auto reader = MorvaneReaderUtils::createReader(path, formatted());
    for (std::size_t row : {0u, 1u}) {
        const std::int64_t position = KeywordHeader::getLargePos(rows.pointers[row], rows.pointersB[row]);
        EXPECT_TRUE(
            reader->isValidHeader(KeywordHeader(rows.names[row], rows.numbers[row], ValueType::REAL, position)));
    }
}

TEST_P(RandomOrderTest, AnArrayThatFailsLeavesTheOthersWhole)
{
    InitWriter writer(folder.path(), "CASE", start, sixOClock, formatted(), params, true); // finds out on the way
    declareGrids(writer);
    writer.open();
    IGridPropertyWriter& global = writer.getPropertyWriter(porv24);
    writeGlobal(global);
    Cells<int> broken(count(0, 500000));
    broken.badCell = 499999;
    EXPECT_THROW(global.write("BROKEN", broken, false), std::exception);
    global.write("NTG", Cells<float>({1, 2}), false);
    writer.close(0);
    KeywordFile data(folder.file(formatted() ? "CASE.FINIT" : "CASE.INIT"), formatted());
    EXPECT_THAT(data.names(), testing::StartsWith("INTEHEAD LOGIHEAD DOUBHEAD PORO SWAT NTG LGR "));
    EXPECT_TRUE(
        data.hasAll(KeywordFile(folder.file(formatted() ? "CASE.FINSPEC" : "CASE.INSPEC"), formatted()).sections()));
}

/// The values of a property, by the matrix or the fracture.
template <class Access>
std::vector<float> valuesOf(const Access* access, const char* name, const std::string& lgr, bool fracture)
{
    std::vector<float> values;
    EXPECT_TRUE(access != nullptr && access->getAnyArray(name, values, lgr, fracture)) << name << lgr << fracture;
    return values;
}

TEST_P(RandomOrderTest, ReadersFindWhatWasWrittenWithAndWithoutIndexFile)
{
    InitWriter init = initWriter();
    declareGrids(init);
    init.open();
    init.getPropertyWriter(porv24).write("PORV", porv24, false);
    init.getPropertyWriter(porv24).write("PORO", poro, true);
    const Cells<float> porvOfA({1, 1, 1, 0}, {1, 1, 1, 1});
    init.getPropertyWriter("A", porvOfA).write("PORV", porvOfA, false);
    init.close(0);
    RestartWriter restart = restartWriter();
    for (int step : {0, 3}) {
        declareGrids(restart);
        restart.open(step, 1.5 * step);
        restart.writeWellDataArray("WELL", WellType::Producer, WellStatus::Open, connections);
        writeGlobal(restart.getSolutionWriter(porv24));
        const Cells<float> saturationsOfA({5, 6, 7, 8}, {9, 10, 11, 12});
        restart.getSolutionWriter("A", porvOfA, -1).write("SWAT", saturationsOfA, true);
        restart.close(0);
    }
    const std::vector<float> active(poro.matrix.begin() + 2, poro.matrix.end());
    const std::string prefix = folder.file(formatted() ? "CASE.F" : "CASE.");
    const std::string step = folder.file(formatted() ? "CASE.F000" : "CASE.X000");
    const std::vector<std::string> files =
        params.unified ? std::vector{prefix + "UNRST"} : std::vector{step + "0", step + "3"};
    for (bool withIndex : {true, false}) {
        const auto initReader = InitReader::create();
        initReader->read(prefix + "INIT", formatted(), withIndex ? prefix + "INSPEC" : "", "");
        EXPECT_EQ(initReader->numCells(), 12); // not 24: the file has two media
        EXPECT_TRUE(initReader->isDualPorosity());
        EXPECT_THAT(initReader->LGRs(), ElementsAre("A", "LOCAL GRID B"));
        EXPECT_EQ(valuesOf(initReader->propertyData(), "PORO", "", true), poro.fracture);
        std::vector<float> values = valuesOf(initReader->propertyData(), "PORO", "", false);
        EXPECT_EQ(std::vector<float>(values.begin() + 2, values.end()), active);

        const auto reader = RestartReader::create();
        reader->read(files, formatted(), withIndex ? prefix + "RSSPEC" : "", initReader, nullptr);
        EXPECT_TRUE(reader->isValidIndex(0) && reader->isValidIndex(3) && !reader->isValidIndex(1));
        EXPECT_EQ(reader->date(3), Service::YearMonthDay(2026, 2, 4));
        EXPECT_EQ(reader->time(3), Service::HourMinuteSecondMillisecond(18, 0, 0, 0));
        EXPECT_EQ(reader->getCellActivitiesInfo("A").numActive(false), 3);
        for (int index : {0, 3}) {
            EXPECT_EQ(valuesOf(reader->propertyData(index), "SWAT", "", false), poro.matrix);
            EXPECT_EQ(valuesOf(reader->propertyData(index), "SWAT", "", true), poro.fracture);
            EXPECT_THAT(valuesOf(reader->propertyData(index), "SWAT", "A", false),
                        testing::AllOf(testing::SizeIs(4), testing::Contains(7.0F)));
            std::vector<int> wells;
            EXPECT_EQ(reader->rawData(index)->getAnyArray("IWEL", wells), index == 3 && !withIndex);
        }
    }
}

class SectionTest : public testing::Test
{
protected:
    InitWriter initWriter() const { return {folder.path(), "CASE", start, sixOClock, false, {}, false}; }

    RestartWriter restartWriter(const MrlWriterDefaultParams& params) const
    {
        return {folder.path(), "CASE", start, sixOClock, false, params, false};
    }

    TempDir folder;
};

TEST_F(SectionTest, WritersAreGivenForDeclaredGridsOfAnOpenWriterOnly)
{
    InitWriter writer = initWriter();
    declareGrids(writer);
    const auto closed = [&] { return textOf<std::runtime_error>([&] { writer.getPropertyWriter(porv24); }); };
    const std::string told = "Unable to get property writer: the InitWriter must be opened first.";
    EXPECT_EQ(closed(), told);
    writer.open();
    EXPECT_EQ(textOf<std::runtime_error>([&] { writer.open(); }), "Unable to open InitWriter: already open.");
    EXPECT_EQ(textOf<std::invalid_argument>([&] { writer.getPropertyWriter("X", porv24); }),
              "Cannot get writer for grid: \"X\". It must be defined first.");
    EXPECT_EQ(textOf<std::invalid_argument>([&] { writer.getNNCPropertyWriter("X"); }),
              "Cannot get NNC writer for grid: \"X\". It must be defined first.");
    EXPECT_THROW(writer.getPropertyWriter(porv4), std::invalid_argument);
    writer.close(0);
    EXPECT_EQ(closed(), told);
    EXPECT_EQ(fileNames(folder), ""); // nothing was asked for, nothing is written

    RestartWriter restart = restartWriter({});
    EXPECT_EQ(textOf<std::runtime_error>([&] { restart.getSolutionWriter(porv24); }),
              "Unable to get solution writer: the RestartWriter must be opened first.");
    EXPECT_EQ(textOf<std::runtime_error>(
                  [&] { restart.writeWellDataArray("W", WellType::Producer, WellStatus::Open, connections); }),
              "Unable to write well data array: the RestartWriter must be opened first.");
}

TEST_F(SectionTest, GridsThatWouldShareATemporaryFileAreRefused)
{
    InitWriter writer = initWriter();
    for (const char* name : {"", "FFM", "A", "A_NNC", "_NNC", "A/B"})
        writer.addGridSpec(grid(name, 2, 2, 1));
    writer.open();
    const auto refuses = [&](const char* name) {
        return textOf<std::invalid_argument>([&] { writer.getPropertyWriter(name, porv4); }) != "";
    };
    EXPECT_FALSE(refuses("FFM"));
    EXPECT_TRUE(refuses(""));
    EXPECT_FALSE(refuses("A_NNC"));
    EXPECT_THROW(writer.getNNCPropertyWriter("A"), std::invalid_argument);
    writer.getNNCPropertyWriter("");
    EXPECT_TRUE(refuses("_NNC"));
    EXPECT_TRUE(refuses("A/B"));
    EXPECT_EQ(fileNames(folder), "CASE_A_NNC.tmp CASE_FFM.tmp CASE__NNC.tmp");
    writer.close(0);
    EXPECT_EQ(fileNames(folder), "CASE.INIT CASE.INSPEC");
}

TEST_F(SectionTest, ASecondWriterOfTheCaseDoesntGetTheTemporaryFile)
{
    setRetryWait([](std::chrono::milliseconds) {});
    InitWriter first = initWriter();
    declareGrids(first);
    first.open();
    writeGlobal(first.getPropertyWriter(porv24));
    RestartWriter second = restartWriter({});
    declareGrids(second);
    second.open(1, 1.0);
    EXPECT_THAT(textOf<std::runtime_error>([&] { second.getSolutionWriter(porv24); }),
                testing::StartsWith("Problem encountered opening file on StreamSection : "));
    second.close(0);
    setRetryWait(nullptr);
    first.close(0);
    EXPECT_EQ(fileNames(folder), "CASE.INIT CASE.INSPEC");
    EXPECT_EQ(KeywordFile(folder.file("CASE.INIT"), false).occurrences("PORO"), 1u);
}

TEST_F(SectionTest, ANameThatCloseHasSetFreeMayBelongToAnotherProcess)
{
    struct OtherProcess : HeaderEntries
    {
        void getIntegerHeader(const std::string& gridName, std::map<int, int>&) const override
        {
            if (gridName == "A") // the section of the global grid is in the data file by now
                writeBytes(section, "new");
        }

        std::string section;
    } other;

    other.section = folder.file("CASE_FFM.tmp");
    InitWriter writer = initWriter();
    writer.setRestartHeaderInfoCallback(&other);
    declareGrids(writer);
    writer.open();
    writeGlobal(writer.getPropertyWriter(porv24));
    writer.close(0);
    EXPECT_EQ(readBytes(other.section), "new");
}

TEST_F(SectionTest, AFailedCloseEndsTheStepAndTheNextOneIsSound)
{
    RestartWriter writer = restartWriter({});
    HeaderEntries entries;
    entries.integers = {{94, 1}};
    writer.setRestartHeaderInfoCallback(&entries);
    declareGrids(writer);
    writer.open(1, 1.0);
    writeGlobal(writer.getSolutionWriter(porv24));
    EXPECT_EQ(textOf<std::runtime_error>([&] { writer.close(0); }),
              "Attempt to re-assign '-2345' to header[94] that is already assigned: 1");
    EXPECT_EQ(fileNames(folder), "CASE.X0001");

    writer.setRestartHeaderInfoCallback(nullptr);
    writer.addGridSpec(grid("A", 2, 2, 1));
    writer.open(2, 2.0);
    writeLocal(writer.getSolutionWriter("A", porv4, -1));
    EXPECT_EQ(textOf<std::runtime_error>([&] { writer.close(0); }),
              "No global grid has been defined.  No files will be output.");

    declareGrids(writer);
    writer.open(3, 3.0);
    writer.writeWellDataArray("W", WellType::Producer, WellStatus::Open, connections);
    writer.close(0); // a step of wells alone
    EXPECT_EQ(fileNames(folder), "CASE.RSSPEC CASE.X0001 CASE.X0003");
    EXPECT_EQ(KeywordFile(folder.file("CASE.X0003"), false).occurrences("ZWEL"), 2u);
    EXPECT_EQ(KeywordFile(folder.file("CASE.RSSPEC"), false).occurrences("INTEHEAD"), 1u);
}

TEST_F(SectionTest, AVanishedDirectoryAndAFullDiskEndTheStepOnly)
{
    setRetryWait([](std::chrono::milliseconds) {});
    MrlWriterDefaultParams params;
    params.unified = true;
    RestartWriter writer = restartWriter(params);
    declareGrids(writer);
    writer.open(1, 1.0);
    writeGlobal(writer.getSolutionWriter(porv24));
    std::filesystem::remove_all(folder.path());
    EXPECT_NE(textOf<std::runtime_error>([&] { writeLocal(writer.getSolutionWriter("A", porv4, -1)); }), "");
    EXPECT_NE(textOf<std::runtime_error>([&] { writer.close(0); }), "");
    setRetryWait(nullptr);

    std::filesystem::create_directory(folder.path());
    std::filesystem::create_symlink("/dev/full", folder.file("CASE.UNRST"));
    declareGrids(writer);
    writer.open(2, 2.0);
    writeGlobal(writer.getSolutionWriter(porv24));
    EXPECT_EQ(textOf<std::runtime_error>([&] { writer.close(0); }),
              "Problem encountered adding a section to file : " + folder.file("CASE.UNRST"));
    EXPECT_EQ(fileNames(folder), "CASE.UNRST") << "no temporary file stays, and no row of what isn't there";

    std::filesystem::remove(folder.file("CASE.UNRST"));
    declareGrids(writer);
    writer.open(3, 3.0);
    writeGlobal(writer.getSolutionWriter(porv24));
    writer.close(0);
    EXPECT_EQ(fileNames(folder), "CASE.RSSPEC CASE.UNRST");
    EXPECT_TRUE(KeywordFile(folder.file("CASE.UNRST"), false)
                    .hasAll(KeywordFile(folder.file("CASE.RSSPEC"), false).sections()));
}

TEST_F(SectionTest, AnOpenWriterThatGoesLeavesNoFile)
{
    {
        InitWriter writer = initWriter();
        declareGrids(writer);
        writer.open();
        writeGlobal(writer.getPropertyWriter(porv24));
        EXPECT_EQ(fileNames(folder), "CASE_FFM.tmp");
    }
    EXPECT_EQ(fileNames(folder), "");
}

TEST_F(SectionTest, TheStepsOfAnEarlierRunAreDeletedOnce)
{
    MrlWriterDefaultParams params;
    params.overwriteData = true;
    for (const char* name : {"CASE.X0007", "CASE.Z9999", "CASE.X00071", "OTHER_CASE.X0007"})
        writeBytes(folder.file(name), "old");
    RestartWriter writer = restartWriter(params);
    EXPECT_THROW(writer.open(-1, 0.0), std::invalid_argument);
    EXPECT_TRUE(std::filesystem::exists(folder.file("CASE.X0007")));
    for (int step : {1, 2}) {
        declareGrids(writer);
        writer.open(step, 1.0);
        writeGlobal(writer.getSolutionWriter(porv24));
        writer.close(0);
    }
    EXPECT_EQ(fileNames(folder), "CASE.RSSPEC CASE.X0001 CASE.X0002 CASE.X00071 OTHER_CASE.X0007");
    writer.addGridSpec(grid("", 1, 1, 1));
    EXPECT_EQ(textOf<std::invalid_argument>([&] { writer.open(0, 0.0); }),
              "Files of type CASE\\.[XYZ]\\d{4} already exist.");
}

} // namespace
