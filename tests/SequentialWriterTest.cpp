#include "support/GridWriterHelpers.h"

#include <mrlio/SequentialInitWriter.h>
#include <mrlio/SequentialRestartWriter.h>

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <sys/mount.h>

using namespace Kvt::Mrl::MrlIO;
using namespace MrlIOTest;
using Service::HourMinuteSecondMillisecond;
using Service::YearMonthDay;
using testing::ElementsAre;

namespace {

constexpr int unset = -2345;

GridSpec grid(const std::string& name, int nx, int ny, int nz, UnitSystemType::Enum units = UnitSystemType::METRIC)
{
    return {name, nx, ny, nz, units, GridSpec::GridType{}};
}

const Cells<float> porv24({0, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1}, std::vector<float>(12, 2.0F));
const Cells<float> porv12({0, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1});
const Cells<float> porv4({1, 1, 1, 0});
const Cells<float> noVolumes({});

SequentialInitWriter initWriter(const TempDir& folder, bool formatted, const MrlWriterDefaultParams& params = {})
{
    return {folder.path(), "CASE", YearMonthDay(2026, 1, 31), HourMinuteSecondMillisecond(), formatted, params, false};
}

SequentialRestartWriter restartWriter(const TempDir& folder, bool formatted, const MrlWriterDefaultParams& params = {},
                                      bool skipChecks = false)
{
    return {
        folder.path(), "CASE", YearMonthDay(2026, 1, 31), HourMinuteSecondMillisecond(6, 0, 0, 0), formatted, params,
        skipChecks,    false};
}

/// A step with the arrays of the global grid and nothing else.
void writeStep(SequentialRestartWriter& writer, int step, double days)
{
    writer.addGridSpec(grid("", 3, 2, 2));
    writer.open(step, days, 0);
    writer.sequenceStart();
    writer.sequenceStartGrid("", porv12, -1);
    writer.sequenceGetCurrentGridWriter()->write("SWAT", Cells<float>(count(0.0F, 12)), true);
    writer.sequenceEndGrid();
    writer.sequenceEnd();
    writer.close();
}

class SequentialWriterTest : public testing::TestWithParam<bool>
{
protected:
    bool formatted() const { return GetParam(); }

    std::string path(const char* unformattedExtension) const
    {
        return folder.file(std::string("CASE.") + (formatted() ? "F" : "") + unformattedExtension);
    }

    TempDir folder;
};

INSTANTIATE_TEST_SUITE_P(Forms, SequentialWriterTest, testing::Bool(),
                         [](const auto& form) { return form.param ? "Formatted" : "Unformatted"; });

TEST_P(SequentialWriterTest, InitFileHoldsGridsAndConnections)
{
    SequentialInitWriter writer = initWriter(folder, formatted());
    writer.addGridSpec(grid("A LONG NAME", 2, 2, 1));
    writer.addGridSpec(grid("", 3, 2, 2)); // leads the file all the same
    writer.open(0);
    writer.sequenceStart();
    writer.sequenceStartGrid("", porv24, -1);
    writer.sequenceGetCurrentGridWriter()->write("PORO", Cells<float>(count(1.0F, 12), count(21.0F, 12)), true);
    writer.sequenceWriteSolutionArray("NTG", Cells<double>(count(1.0, 12), count(5.0, 12)), true);
    writer.sequenceEndGrid();
    writer.sequenceStartGrid("A LONG NAME", false, -1);
    EXPECT_EQ(writer.sequenceGetCurrentGridWriter(), nullptr);
    writer.sequenceStartSolutionArray("FIPNUM", 12, Cells<int>({}), false);
    writer.sequenceWriteSolutionValues(Cells<int>(count(1, 7)));
    writer.sequenceWriteSolutionValues(Cells<int>(count(8, 5)));
    writer.sequenceEndSolutionArray();
    writer.sequenceEndGrid();
    writer.sequenceEnd();
    writer.sequenceNNCStart();
    for (const char* name : {"", "A LONG NAME"}) {
        writer.sequenceNNCStartGrid(name);
        EXPECT_EQ(writer.sequenceGetCurrentGridWriter(), nullptr);
        writer.sequenceWriteSolutionArray("TRANNNC", Cells<float>({4, 3}), false);
        writer.sequenceNNCEndGrid();
    }
    writer.sequenceNNCEnd();
    writer.close();

    KeywordFile data(path("INIT"), formatted());
    EXPECT_EQ(data.names(), "INTEHEAD LOGIHEAD DOUBHEAD PORO NTG "
                            "LGR LGRHEADI LGRHEADQ LGRHEADD INTEHEAD LOGIHEAD DOUBHEAD FIPNUM LGRSGONE "
                            "TRANNNC LGR LGRHEADI LGRHEADQ LGRHEADD TRANNNC LGRSGONE");
    const auto integers = data.values<int>("INTEHEAD");
    EXPECT_THAT(std::vector<int>(integers.begin() + 8, integers.begin() + 12), ElementsAre(3, 2, 4, 22));
    EXPECT_EQ(integers[16], unset);
    EXPECT_EQ(data.values<int>("INTEHEAD", 1)[11], -1);
    EXPECT_EQ(data.values<float>("PORO").size(), 22u);
    EXPECT_EQ(data.values<double>("NTG").back(), 16.0);
    EXPECT_EQ(data.values<int>("FIPNUM"), count(1, 12));

    KeywordFile index(path("INSPEC"), formatted());
    const std::string section = "NAME TYPE NUMBER POINTER POINTERB ARRAYMAX ARRAYMIN";
    EXPECT_EQ(index.names(), "INTEHEAD " + section + " LGRNAME " + section + " LGRSGONE " + section + " LGRNAME " +
                                 section + " LGRSGONE");
    EXPECT_EQ(index.values<int>("INTEHEAD"), integers);
    EXPECT_THAT(index.values<std::string>("LGRNAME", 1), ElementsAre("A LONG NAME"));
    EXPECT_THAT(index.values<std::string>("TYPE"), ElementsAre("REAL", "DOUB"));
    const auto sections = index.sections();
    EXPECT_TRUE(data.hasAll(sections));
    EXPECT_THAT(sections[0].maxima, ElementsAre(32.0, 16.0));
    EXPECT_THAT(sections[1].maxima, ElementsAre(12.0));
    EXPECT_THAT(sections[3].names, ElementsAre("TRANNNC"));
}

TEST_P(SequentialWriterTest, UnifiedStepsFollowOneAnotherWithTheirWells)
{
    MrlWriterDefaultParams params;
    params.unified = true;
    SequentialRestartWriter writer = restartWriter(folder, formatted(), params);
    for (int step : {0, 1}) {
        writer.addGridSpec(grid("", 3, 2, 2, UnitSystemType::LAB));
        writer.addGridSpec(grid("LGR", 2, 2, 1, UnitSystemType::LAB));
        writer.open(step, 0.1 * step, 0);
        const GridCellCoordinates host(1, 1, 1);
        writer.writeWellDataArray("PRODUCER-1", WellType::Producer, WellStatus::Open,
                                  Connections({{host, "LGR", {2, 1, 1}}, {host, "LGR", {2, 2, 1}}, {{3, 1, 1}}}));
        const Segments segments(1);
        writer.writeWellDataArray("I", WellType::WaterInjector, WellStatus::Shut, Connections({{{2, 2, 2}}}),
                                  &segments);
        writer.sequenceStart();
        writer.sequenceStartGrid("", porv12, 77);
        writer.sequenceWriteSolutionArray("SWAT", Cells<float>(count(0.0F, 10)), false);
        writer.sequenceEndGrid();
        writer.sequenceStartGrid("LGR", porv4, -1);
        writer.sequenceEndGrid();
        writer.close();
    }

    KeywordFile data(path("UNRST"), formatted());
    const std::string headers = "INTEHEAD LOGIHEAD DOUBHEAD ";
    const std::string local = "LGR LGRHEADI LGRHEADQ LGRHEADD " + headers;
    EXPECT_EQ(data.names(), "SEQNUM " + headers + "STARTSOL SWAT ENDSOL " + local + "STARTSOL ENDSOL ENDLGR SEQNUM " +
                                headers + "ISEG ILBR IWEL ZWEL ICON STARTSOL SWAT ENDSOL " + local +
                                "IWEL ZWEL ICON STARTSOL ENDSOL ENDLGR");
    const auto integers = data.values<int>("INTEHEAD", 2);
    EXPECT_EQ(integers[11], 77);
    EXPECT_EQ(integers[16], 2);
    EXPECT_EQ(integers[17], 3);
    EXPECT_EQ(integers[175], 1);
    EXPECT_EQ(data.values<int>("INTEHEAD", 3)[16], 1);
    EXPECT_EQ(data.values<int>("IWEL")[4], 2); // two local connections in one host cell, and one beside it
    EXPECT_EQ(data.values<int>("IWEL")[42], 0);
    EXPECT_EQ(data.values<int>("IWEL", 1)[42], 1);
    EXPECT_THAT(data.values<std::string>("ZWEL"), ElementsAre("PRODUCER", "-1", "I", ""));
    EXPECT_DOUBLE_EQ(data.values<double>("DOUBHEAD", 2)[0], 2.4);

    KeywordFile index(path("RSSPEC"), formatted());
    const std::string section = "NAME TYPE NUMBER POINTER POINTERB ARRAYMAX ARRAYMIN";
    const std::string step = " TIME ITIME " + section + " LGRNAME " + section;
    EXPECT_EQ(index.names(), "INTEHEAD" + step + step);
    EXPECT_DOUBLE_EQ(index.values<double>("TIME", 1)[0], 2.4);
    EXPECT_THAT(index.values<int>("ITIME", 1),
                ElementsAre(1, 31, 1, 2026, unset, 0, formatted() ? 1 : 0, unset, unset, unset, 8, 24, 0));
    EXPECT_TRUE(data.hasAll(index.sections()));
}

TEST(SequentialRestartFilesTest, NamesFollowStepFormAndLetterCase)
{
    struct Case
    {
        int step;
        bool formatted;
        bool swapCase;
        const char* files;
    };

    for (const Case& c :
         {Case{7, false, false, "CASE.RSSPEC CASE.X0007"}, Case{29999, false, false, "CASE.RSSPEC CASE.Z9999"},
          Case{10000, true, false, "CASE.FRSSPEC CASE.G0000"}, Case{25000, true, true, "CASE.frsspec CASE.h5000"}}) {
        const TempDir folder;
        MrlWriterDefaultParams params;
        params.swapExtensionCase = c.swapCase;
        SequentialRestartWriter writer = restartWriter(folder, c.formatted, params);
        writeStep(writer, c.step, 1.0);
        EXPECT_EQ(fileNames(folder), c.files);
    }
}

TEST(SequentialRestartFilesTest, RefusesStepsAndTimesAndStaysAsItWas)
{
    const TempDir folder;
    SequentialRestartWriter writer = restartWriter(folder, false);
    writer.addGridSpec(grid("", 3, 2, 2));
    const auto refusal = [&](int step, double days) {
        return textOf<std::invalid_argument>([&] { writer.open(step, days, 0); });
    };
    const std::string range = ".  Must be in range 0 <= report step <= 29999.";
    EXPECT_EQ(refusal(-1, 0.0), "Report step is invalid: -1" + range);
    EXPECT_EQ(refusal(30000, 0.0), "Report step is invalid: 30000" + range);
    EXPECT_EQ(refusal(1, -0.5), "Elapsed time is invalid: -0.5.  Must be >= 0.0.");
    EXPECT_EQ(refusal(1, 1e300), "Elapsed time is invalid: 1e+300.  Must be >= 0.0.");
    EXPECT_NE(refusal(1, std::numeric_limits<double>::quiet_NaN()), "");
    writer.open(29999, 0.0, 0);
    EXPECT_EQ(textOf<std::runtime_error>([&] { writer.open(1, 0.0, 0); }),
              "Unable to open RestartWriter: already open.");
}

TEST(SequentialRestartFilesTest, SeparateFilesOfAnEarlierRunStopStepZero)
{
    const TempDir folder;
    writeBytes(folder.file("CASE.Z0001"), "old");
    writeBytes(folder.file("XCASE.X0001"), "of another case");
    SequentialRestartWriter writer = restartWriter(folder, false);
    EXPECT_EQ(textOf<std::invalid_argument>([&] { writeStep(writer, 0, 0.0); }),
              "Files of type CASE\\.[XYZ]\\d{4} already exist.");
    EXPECT_EQ(textOf<std::invalid_argument>([&] { writer.addGridSpec(grid("", 1, 1, 1)); }),
              "Grid: \"\" has already been defined."); // still that of the refused step
    SequentialRestartWriter later = restartWriter(folder, false);
    writeStep(later, 20001, 0.0); // appended to what is there
    EXPECT_EQ(readBytes(folder.file("CASE.Z0001")).substr(0, 3), "old");
    EXPECT_GT(readBytes(folder.file("CASE.Z0001")).size(), 1000u);
}

TEST(SequentialInitFilesTest, ExistingFilesAreKeptUnlessGivenAwayOnce)
{
    const TempDir folder;
    writeBytes(folder.file("CASE.INIT"), "old data");
    writeBytes(folder.file("CASE.INSPEC"), "old rows");
    SequentialInitWriter careful = initWriter(folder, false);
    EXPECT_EQ(textOf<std::runtime_error>([&] { careful.open(0); }),
              "File " + folder.file("CASE.INIT") + " already exists.");

    MrlWriterDefaultParams params;
    params.overwriteData = true;
    params.overwriteSpec = true;
    SequentialInitWriter writer = initWriter(folder, false, params);
    writer.addGridSpec(grid("", 2, 2, 1));
    writer.open(0);
    writer.sequenceStart();
    writer.sequenceStartGrid("", porv4, -1);
    writer.sequenceEndGrid();
    writer.close();
    EXPECT_EQ(KeywordFile(folder.file("CASE.INIT"), false).names(), "INTEHEAD LOGIHEAD DOUBHEAD");
    EXPECT_EQ(KeywordFile(folder.file("CASE.INSPEC"), false).occurrences("INTEHEAD"), 1u);
    EXPECT_EQ(textOf<std::runtime_error>([&] { writer.open(0); }),
              "File " + folder.file("CASE.INIT") + " already exists.");
}

TEST(SequentialInitFilesTest, NoFileIsMadeForNothing)
{
    const TempDir folder;
    SequentialInitWriter writer = initWriter(folder, false);
    writer.addGridSpec(grid("LGR", 2, 2, 1));
    writer.open(0);
    EXPECT_EQ(textOf<std::runtime_error>([&] { writer.sequenceStart(); }),
              "No global grid has been defined.  No files will be output.");
    EXPECT_THROW(writer.sequenceStartGrid("LGR", porv4, -1), std::invalid_argument);
    writer.close();
    writer.close();
    EXPECT_EQ(fileNames(folder), "");
}

TEST(SequentialInitGridsTest, DeclarationsAreChecked)
{
    const TempDir folder;
    SequentialInitWriter writer = initWriter(folder, false);
    writer.addGridSpec(grid("A", 1, 1, 1));
    const auto refusal = [&](const GridSpec& spec) {
        return textOf<std::invalid_argument>([&] { writer.addGridSpec(spec); });
    };
    EXPECT_EQ(refusal(grid("B", 1, 1, 1, UnitSystemType::PVT_M)),
              "Inconsistent grid units: PVT-M. Previous units supplied: METRIC");
    EXPECT_EQ(refusal(grid("A", 2, 1, 1)), "Grid: \"A\" has already been defined.");
    EXPECT_NE(refusal(grid(std::string(100, 'L'), 1, 1, 1)), "");
    EXPECT_EQ(refusal(grid(std::string(99, 'L'), 1, 1, 1)), "");
    SequentialInitWriter formatted = initWriter(folder, true);
    EXPECT_THROW(formatted.addGridSpec(grid(std::string(78, 'L'), 1, 1, 1)), std::invalid_argument);
    EXPECT_NO_THROW(formatted.addGridSpec(grid(std::string(77, 'L'), 1, 1, 1)));
}

TEST(SequentialOrderTest, CallsOutOfOrderAreRefusedAndChangeNothing)
{
    const TempDir folder;
    SequentialInitWriter writer = initWriter(folder, false);
    const Cells<int> values({1, 2, 3, 4});
    const auto refuses = [](const auto& call) {
        return textOf<std::invalid_argument>(call) != "" && textOf<std::invalid_argument>(call) != "another exception";
    };
    const auto startGrid = [&] { writer.sequenceStartGrid("", porv4, -1); };
    const auto startArray = [&] { writer.sequenceStartSolutionArray("A", 4, values, false); };
    const auto writeValues = [&] { writer.sequenceWriteSolutionValues(values); };
    const auto endArray = [&] { writer.sequenceEndSolutionArray(); };
    const auto endGrid = [&] { writer.sequenceEndGrid(); };
    const auto start = [&] { writer.sequenceStart(); };

    for (int state : {0, 1, 2}) { // closed, open, started
        if (state == 0) {
            EXPECT_TRUE(refuses(start));
        }
        if (state == 1) {
            writer.addGridSpec(grid("", 2, 2, 1));
            writer.open(0);
        }
        if (state == 2) {
            start();
        } else {
            EXPECT_TRUE(refuses(startGrid)) << state;
        }
        EXPECT_TRUE(refuses(startArray) && refuses(writeValues) && refuses(endArray) && refuses(endGrid)) << state;
    }
    EXPECT_EQ(textOf<std::invalid_argument>([&] { writer.sequenceStartGrid("X", porv4, -1); }),
              "Cannot get writer for grid: \"X\". It must be defined first.");
    EXPECT_TRUE(refuses([&] { writer.sequenceStartGrid("", porv12, -1); })); // not of this grid
    startGrid();
    EXPECT_TRUE(refuses(startGrid) && refuses([&] { writer.sequenceNNCEndGrid(); }) && refuses(writeValues));
    EXPECT_TRUE(refuses([&] { writer.sequenceStartSolutionArray("LONGER NAME", 4, values, false); }));
    EXPECT_TRUE(refuses([&] { writer.sequenceStartSolutionArray("A", -1, values, false); }));
    startArray();
    EXPECT_TRUE(refuses(startArray) && refuses(endGrid));
    EXPECT_TRUE(refuses([&] { writer.sequenceWriteSolutionValues(Cells<float>({1})); }));
    writeValues();
    endArray();
    endGrid();
    writer.close();
    EXPECT_EQ(KeywordFile(folder.file("CASE.INIT"), false).names(), "INTEHEAD LOGIHEAD DOUBHEAD A");
    EXPECT_EQ(KeywordFile(folder.file("CASE.INIT"), false).values<int>("A"), values.matrix);
}

TEST(SequentialOrderTest, ANewSequenceDropsWhatIsUnderWay)
{
    const TempDir folder;
    SequentialInitWriter writer = initWriter(folder, false);
    writer.addGridSpec(grid("", 2, 2, 1));
    writer.open(0);
    writer.sequenceStart();
    writer.sequenceStartGrid("", porv4, -1);
    writer.sequenceStartSolutionArray("A", 0, Cells<int>({}), false);
    writer.sequenceNNCStart();
    writer.sequenceNNCStartGrid("");
    writer.sequenceWriteSolutionArray("TRANNNC", Cells<float>({1}), false);
    writer.sequenceNNCEndGrid();
    writer.close();
    const auto sections = KeywordFile(folder.file("CASE.INSPEC"), false).sections();
    ASSERT_EQ(sections.size(), 1u);
    EXPECT_THAT(sections[0].names, ElementsAre("TRANNNC"));
}

TEST(SequentialFailureTest, AClientsHeaderEntriesMustNotMeetOnesOfTheLibrary)
{
    const TempDir folder;
    SequentialInitWriter writer = initWriter(folder, false);
    HeaderEntries entries;
    writer.setRestartHeaderInfoCallback(&entries);
    writer.addGridSpec(grid("", 2, 2, 1));
    writer.open(0);
    writer.sequenceStart();
    entries.integers = {{8, 5}};
    EXPECT_EQ(textOf<std::runtime_error>([&] { writer.sequenceStartGrid("", porv4, -1); }),
              "Attempt to re-assign '2' to header[8] that is already assigned: 5");
    entries.integers = {{500, 5}};
    writer.sequenceStartGrid("", porv4, -1); // nothing had been written yet
    writer.sequenceEndGrid();
    writer.close();
    EXPECT_EQ(KeywordFile(folder.file("CASE.INIT"), false).values<int>("INTEHEAD").size(), 501u);
    EXPECT_EQ(KeywordFile(folder.file("CASE.INSPEC"), false).values<int>("INTEHEAD").at(500), 5);
}

TEST_P(SequentialWriterTest, AnArrayThatThrowsLeavesNothingInTheFile)
{
    MrlWriterDefaultParams params;
    SequentialInitWriter writer = initWriter(folder, formatted(), params);
    writer.addGridSpec(grid("", 3, 2, 2));
    writer.open(0);
    writer.sequenceStart();
    writer.sequenceStartGrid("", porv12, -1);
    Cells<int> broken(count(0, 2000000));
    broken.badCell = 1999999;
    EXPECT_EQ(textOf<std::out_of_range>([&] { writer.sequenceWriteSolutionArray("BROKEN", broken, false); }),
              "bad cell");
    broken.matrix.resize(12);
    broken.badCell = 11;
    EXPECT_EQ(
        textOf<std::invalid_argument>([&] { writer.sequenceGetCurrentGridWriter()->write("BROKEN", broken, true); }),
        "BROKEN matrix array size (11) is inconsistent with grid dimensions (12). ");
    writer.sequenceWriteSolutionArray("SOUND", Cells<int>({1}), false);
    writer.sequenceEndGrid();
    writer.close();
    KeywordFile data(path("INIT"), formatted());
    EXPECT_EQ(data.names(), "INTEHEAD LOGIHEAD DOUBHEAD SOUND");
    EXPECT_TRUE(data.hasAll(KeywordFile(path("INSPEC"), formatted()).sections()));
}

TEST(SequentialFailureTest, AVanishedDirectoryIsToldAndTheWriterCanBeClosed)
{
    TempDir folder;
    MrlWriterDefaultParams params;
    params.unified = true;
    SequentialRestartWriter writer = restartWriter(folder, false, params);
    std::filesystem::remove_all(folder.path());
    EXPECT_EQ(textOf<std::runtime_error>([&] { writeStep(writer, 1, 1.0); }),
              "Problem encountered at restart get stream when opening file : " + folder.file("CASE.UNRST"));
    writer.close();

    std::filesystem::create_directory(folder.path());
    writer.addGridSpec(grid("", 2, 2, 1));
    writer.open(2, 2.0, 0);
    writer.sequenceStart();
    writer.sequenceStartGrid("", porv4, -1);
    std::filesystem::remove_all(folder.path());
    EXPECT_EQ(textOf<std::runtime_error>([&] { writer.sequenceEndGrid(); }),
              "Problem encountered at restart spec stream when opening file : " + folder.file("CASE.RSSPEC"));
    writer.close();
}

/// A file system of 64 KiB in a folder; not everybody may make one.
class SmallDisk
{
public:
    SmallDisk() : mounted_(::mount("tmpfs", folder.path().c_str(), "tmpfs", 0, "size=64k") == 0) {}

    ~SmallDisk()
    {
        if (mounted_)
            ::umount(folder.path().c_str());
    }

    bool isMounted() const { return mounted_; }

    const TempDir folder;

private:
    bool mounted_;
};

TEST_P(SequentialWriterTest, AFullDiskIsToldAndTheWriterCanBeClosed)
{
    const SmallDisk disk;
    if (!disk.isMounted())
        GTEST_SKIP() << "no rights to mount a small file system";
    MrlWriterDefaultParams params;
    params.unified = true;
    SequentialRestartWriter writer = restartWriter(disk.folder, formatted(), params);
    const Cells<double> large(count(0.0, 20000));
    writer.addGridSpec(grid("", 3, 2, 2));
    writer.open(1, 1.0, 1000);
    writer.sequenceStart();
    writer.sequenceStartGrid("", porv12, -1);
    EXPECT_EQ(textOf<std::runtime_error>([&] { writer.sequenceWriteSolutionArray("LARGE", large, false); }),
              "A problem was encountered writing the keyword LARGE to file.");
    writer.sequenceWriteSolutionArray("SMALL", Cells<int>({1}), false);
    writer.sequenceEndGrid();
    writer.close();
    KeywordFile data(disk.folder.file(formatted() ? "CASE.FUNRST" : "CASE.UNRST"), formatted());
    EXPECT_EQ(data.names(), "SEQNUM INTEHEAD LOGIHEAD DOUBHEAD STARTSOL SMALL ENDSOL");

    writer.addGridSpec(grid("", 3, 2, 2));
    writer.open(2, 2.0, 0); // a buffer that takes it all, until the system has to
    writer.sequenceStart();
    writer.sequenceStartGrid("", porv12, -1);
    writer.sequenceWriteSolutionArray("LARGE", large, false);
    EXPECT_EQ(textOf<std::runtime_error>([&] { writer.close(); }), "Problem closing file: " + data.fileName());
    EXPECT_THROW(writer.sequenceStart(), std::invalid_argument); // closed all the same
    writer.close();
}

} // namespace
