// Which files the summary writer makes, continues, replaces and refuses, and what it leaves behind when one fails.

#include "support/FullDisk.h"
#include "support/SummaryWriterHelpers.h"
#include "support/TempDir.h"

#include <mrlio/MorvaneAsciiWriter.h>
#include <mrlio/SimpleSummaryReader.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <set>
#include <unistd.h>

using namespace MrlIOTest;
using ::testing::ElementsAre;

namespace {

const VectorSpec pressure{{.keyword = "FPR", .units = "BARSA"}};
const GridSpec grid{1, 1, 1, UnitSystemType::METRIC, GridSpec::Radial};

class SummaryWriterFilesTest : public ::testing::Test
{
protected:
    SummaryWriterFilesTest() { params.noTimeStamps = true; }

    std::unique_ptr<SummaryWriter> makeWriter(const RestartSpec* restart = nullptr)
    {
        auto writer = std::make_unique<SummaryWriter>(dir.path(), root, grid, Service::YearMonthDay(2026, 1, 1),
                                                      restart, formatted, params, false);
        writer->addArraySpec(pressure);
        return writer;
    }

    static void writeReportStep(SummaryWriter& writer, float value)
    {
        writer.writeArray(Values{value});
        writer.close();
    }

    /// Report steps with a record each, from the given one on.
    void runSteps(int first, int count)
    {
        const RestartSpec restart("OLD", first, 0, 0.0F);
        auto writer = makeWriter(&restart);
        for (int step = 0; step < count; ++step) {
            if (step > 0)
                writer->openAtNextReportStep(0.0F);
            writeReportStep(*writer, static_cast<float>(first + step));
        }
    }

    std::set<std::string> files() const
    {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(dir.path()))
            names.insert(entry.path().filename().string());
        return names;
    }

    void plant(const std::string& name) const { writeBytes(dir.file(name), "old"); }

    TempDir dir;
    MrlWriterDefaultParams params;
    std::string root = "CASE";
    bool formatted = false;
};

} // namespace

TEST_F(SummaryWriterFilesTest, DirectoryMustExist)
{
    const auto refusedIn = [&](const std::string& path) {
        return invalid(
            [&] { SummaryWriter(path, "CASE", grid, Service::YearMonthDay(2026, 1, 1), false, params, false); });
    };
    plant("plain");
    EXPECT_EQ(refusedIn(dir.file("plain")),
              "Path points to an existing item that is not a directory: " + dir.file("plain"));
    EXPECT_EQ(refusedIn(dir.file("none")), "Directory " + dir.file("none") + " is not found.");
    const std::string endless(5000, 'x');
    EXPECT_EQ(refusedIn(endless), "Invalid directory path: " + endless);
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(dir.path());
    EXPECT_EQ(refusedIn("none"), "Directory " + dir.file("none") + " is not found.");
    EXPECT_EQ(refusedIn("./plain"), "Path points to an existing item that is not a directory: ./plain");
    SummaryWriter(".", "HERE", grid, Service::YearMonthDay(2026, 1, 1), false, params, false);
    std::filesystem::current_path(before);
    EXPECT_TRUE(files().contains("HERE.SMSPEC"));
}

TEST_F(SummaryWriterFilesTest, NamesFollowStepFormAndCase)
{
    struct Row
    {
        int firstStep;
        bool formatted, unified, swapped;
        std::set<std::string> names;
    };

    const std::vector<Row> rows{
        {1, false, false, false, {"CASE.SMSPEC", "CASE.S0001", "CASE.S0002"}},
        {1, true, false, false, {"CASE.FSMSPEC", "CASE.A0001", "CASE.A0002"}},
        {9999, false, false, false, {"CASE.SMSPEC", "CASE.S9999", "CASE.T0000"}},
        {19999, false, false, false, {"CASE.SMSPEC", "CASE.T9999", "CASE.U0000"}},
        {20005, false, false, false, {"CASE.SMSPEC", "CASE.U0005", "CASE.U0006"}},
        {9999, true, false, true, {"CASE.fsmspec", "CASE.a9999", "CASE.b0000"}},
        {29999, true, false, false, {"CASE.FSMSPEC", "CASE.C9999", "CASE.C10000"}},
        {1, false, true, false, {"CASE.SMSPEC", "CASE.UNSMRY"}},
        {1, true, true, true, {"CASE.fsmspec", "CASE.funsmry"}},
    };
    for (const Row& row : rows) {
        formatted = row.formatted;
        params.unified = row.unified;
        params.swapExtensionCase = row.swapped;
        runSteps(row.firstStep, 2);
        EXPECT_EQ(files(), row.names) << row.firstStep;
        for (const std::string& name : files())
            std::filesystem::remove(dir.file(name));
    }
}

TEST_F(SummaryWriterFilesTest, UnifiedFileGrowsFromStepToStep)
{
    params.unified = true;
    for (const bool form : {false, true}) {
        formatted = form;
        runSteps(1, 3);
        EXPECT_THAT(keywordLines(dir.file(form ? "CASE.FUNSMRY" : "CASE.UNSMRY"), form),
                    ElementsAre("SEQHDR 0", "MINISTEP 0", "PARAMS 0 0 1", "SEQHDR 0", "MINISTEP 1", "PARAMS 0 0 2",
                                "SEQHDR 0", "MINISTEP 2", "PARAMS 0 0 3"));
    }
}

TEST_F(SummaryWriterFilesTest, OldFilesAreRefusedWithoutPermission)
{
    const std::string exists = " already exists.";
    plant("CASE.SMSPEC");
    EXPECT_EQ(invalid([&] { makeWriter(); }), "File " + dir.file("CASE.SMSPEC") + exists);
    params.overwriteSpec = true;

    plant("CASE.T0000"); // no match for the pattern of old files
    plant("CASE.S00011");
    plant("CASE.A0003");
    plant("MYCASE.S0001");
    EXPECT_EQ(invalid([&] { runSteps(9999, 2); }), "File " + dir.file("CASE.T0000") + exists);
    EXPECT_EQ(keywordLines(dir.file("CASE.S9999")).size(), 3U);
    EXPECT_EQ(invalid([&] { runSteps(1, 1); }), "Files of type ^CASE\\.S\\d{4}$ already exist.");

    params.unified = true;
    runSteps(1, 2);
    const std::string bytes = readBytes(dir.file("CASE.UNSMRY"));
    EXPECT_EQ(invalid([&] { runSteps(1, 1); }), "File " + dir.file("CASE.UNSMRY") + exists);
    EXPECT_EQ(readBytes(dir.file("CASE.UNSMRY")), bytes);
}

TEST_F(SummaryWriterFilesTest, PermissionReplacesEachOldFileOnce)
{
    params.overwriteSpec = params.overwriteData = true;
    for (const char* name : {"CASE.S0001", "CASE.S0007", "CASE.T0000", "CASE.A0001", "CASE.s0001", "CASEX.S0001"})
        plant(name);
    runSteps(1, 1);
    EXPECT_EQ(files(), (std::set<std::string>{"CASE.SMSPEC", "CASE.S0001", "CASE.T0000", "CASE.A0001", "CASE.s0001",
                                              "CASEX.S0001"}));
    runSteps(9999, 2);
    EXPECT_THAT(keywordLines(dir.file("CASE.T0000")), ElementsAre("SEQHDR 0", "MINISTEP 1", "PARAMS 0 0 10000"));
    EXPECT_FALSE(files().contains("CASE.S0001"));

    params.unified = true;
    plant("CASE.UNSMRY");
    runSteps(1, 2);
    EXPECT_EQ(keywordLines(dir.file("CASE.UNSMRY")).size(), 6U);
}

TEST_F(SummaryWriterFilesTest, RootNameIsTakenLiterally)
{
    params.overwriteSpec = params.overwriteData = true;
    for (const std::string& name : {std::string("A.B"), std::string("RUN(1"), std::string("R[1]{2}^$|?*+\\")}) {
        root = name;
        plant("AxB.S0001");
        plant(name + ".S0005");
        runSteps(1, 1);
        EXPECT_TRUE(files().contains("AxB.S0001")) << name;
        EXPECT_FALSE(files().contains(name + ".S0005")) << name;
        EXPECT_EQ(keywordLines(dir.file(name + ".S0001")).size(), 3U) << name;
    }
    root = "A.B";
    params.overwriteData = false;
    params.swapExtensionCase = true;
    plant("A.B.s0003");
    EXPECT_EQ(invalid([&] { runSteps(1, 1); }), "Files of type ^A\\.B\\.s\\d{4}$ already exist.");
}

TEST_F(SummaryWriterFilesTest, FailedRecordIsCutBackAndCanBeRepeated)
{
    for (const bool form : {false, true}) {
        formatted = form;
        params.unified = form;
        const std::string name = dir.file(form ? "CASE.FUNSMRY" : "CASE.S0001");
        auto writer = makeWriter();
        writer->writeArray(Values{1.0F});
        writer->nextMiniStep(1.0F, false);
        const std::string whole = readBytes(name);
        writer->writeArray(Values{2.0F});
        {
            const FullDisk limit(whole.size() + 30);
            EXPECT_EQ(runtime([&] { writer->nextMiniStep(2.0F, false); }),
                      "A problem was encountered writing the keyword PARAMS to file.");
            EXPECT_EQ(readBytes(name), whole);
            EXPECT_EQ(runtime([&] { writer->close(); }),
                      "A problem was encountered writing the keyword PARAMS to file.");
        }
        EXPECT_EQ(writer->getMiniStep(), 1);
        EXPECT_EQ(writer->nextMiniStep(2.0F, false), 2);
        writer->close();
        EXPECT_THAT(keywordLines(name, form),
                    ElementsAre("SEQHDR 0", "MINISTEP 0", "PARAMS 0 0 1", "MINISTEP 1", "PARAMS 1 0.00273785 2"));
    }
}

TEST_F(SummaryWriterFilesTest, FailedHeaderIsWrittenAgain)
{
    params.unified = true;
    auto writer = makeWriter();
    writeReportStep(*writer, 1.0F);
    const std::string whole = readBytes(dir.file("CASE.UNSMRY"));
    writer->openAtNextReportStep(0.0F);
    writer->writeArray(Values{2.0F});
    {
        const FullDisk limit(whole.size() + 5);
        EXPECT_EQ(runtime([&] { writer->close(); }), "A problem was encountered writing the keyword SEQHDR to file.");
    }
    EXPECT_EQ(readBytes(dir.file("CASE.UNSMRY")), whole);
    writer->close();
    EXPECT_THAT(keywordLines(dir.file("CASE.UNSMRY")),
                ElementsAre("SEQHDR 0", "MINISTEP 0", "PARAMS 0 0 1", "SEQHDR 0", "MINISTEP 1", "PARAMS 0 0 2"));
}

TEST_F(SummaryWriterFilesTest, FilesThatDoNotOpenAreTriedAgain)
{
    params.overwriteData = params.unified = true;
    auto writer = makeWriter();
    std::filesystem::create_directory(dir.file("CASE.SMSPEC"));
    std::filesystem::create_directory(dir.file("CASE.UNSMRY"));
    writer->writeArray(Values{1.0F});
    EXPECT_EQ(runtime([&] { writer->nextMiniStep(1.0F, false); }),
              "Problem encountered opening file : " + dir.file("CASE.UNSMRY"));
    std::filesystem::remove(dir.file("CASE.UNSMRY"));
    plant("CASE.UNSMRY"); // still not this writer's, and still given away
    writer->nextMiniStep(1.0F, false);
    EXPECT_EQ(keywordLines(dir.file("CASE.UNSMRY")).size(), 3U); // a spec file in trouble stops no record

    std::filesystem::remove(dir.file("CASE.SMSPEC"));
    writer->nextMiniStep(2.0F, false);
    EXPECT_FALSE(keywordLines(dir.file("CASE.SMSPEC")).empty());
}

TEST_F(SummaryWriterFilesTest, SpecFileIsReplacedWhole)
{
    params.overwriteSpec = true;
    writeBytes(dir.file("CASE.SMSPEC"), std::string(100000, 'x'));
    auto writer = makeWriter();
    writer->nextMiniStep(0.0F, false);
    const std::string small = readBytes(dir.file("CASE.SMSPEC"));
    writer->updateArraySpec(VectorSpec{{.keyword = "FPR", .name = std::string(72, 'N')}});
    writer->nextMiniStep(0.0F, true);
    EXPECT_GT(readBytes(dir.file("CASE.SMSPEC")).size(), small.size());
    writer->updateArraySpec(pressure);
    writer->nextMiniStep(0.0F, true);
    EXPECT_EQ(readBytes(dir.file("CASE.SMSPEC")), small);

    plant("CASE.SMSPEC"); // somebody else wrote it meanwhile
    writer->nextMiniStep(0.0F, true);
    EXPECT_EQ(readBytes(dir.file("CASE.SMSPEC")), small);
}

TEST_F(SummaryWriterFilesTest, OldSpecFileStaysUntilTheNewOneIsWhole)
{
    auto writer = makeWriter();
    std::filesystem::create_directory(dir.file("elsewhere"));
    std::filesystem::create_symlink("elsewhere/spec", dir.file("CASE.SMSPEC"));
    plant("elsewhere/spec");
    writer->nextMiniStep(0.0F, false);
    const std::string old = readBytes(dir.file("CASE.SMSPEC"));
    {
        const FullDisk limit(old.size() / 2);
        writer->nextMiniStep(0.0F, true);
    }
    EXPECT_EQ(readBytes(dir.file("CASE.SMSPEC")), old);

    const int viewer = ::open(dir.file("CASE.SMSPEC").c_str(), O_RDONLY);
    writer->updateArraySpec(VectorSpec{{.keyword = "FOE", .units = "BARSA"}});
    writer->nextMiniStep(0.0F, true);
    std::string seen(old.size(), ' ');
    EXPECT_EQ(::pread(viewer, seen.data(), seen.size(), 0), static_cast<ssize_t>(seen.size()));
    ::close(viewer);
    EXPECT_EQ(seen, old);
    EXPECT_NE(readBytes(dir.file("elsewhere/spec")), old);
    EXPECT_TRUE(std::filesystem::is_symlink(dir.file("CASE.SMSPEC")));
    EXPECT_EQ(files(), (std::set<std::string>{"CASE.SMSPEC", "elsewhere"}));
    EXPECT_FALSE(std::filesystem::exists(dir.file("elsewhere/spec.new")));
}

TEST_F(SummaryWriterFilesTest, StrictModeStaysOnForTheProcess)
{
    makeWriter();
    EXPECT_FALSE(MorvaneAsciiWriter::isStrict());
    params.strict = params.overwriteSpec = true;
    makeWriter();
    params.strict = false;
    makeWriter();
    EXPECT_TRUE(MorvaneAsciiWriter::isStrict());
    MorvaneAsciiWriter::setStrict(false);
}

TEST_F(SummaryWriterFilesTest, ViewerSeesASoundCaseAtEachMoment)
{
    auto writer = makeWriter();
    VectorSpec wells{{.keyword = "LWOPR", .name = "P1", .units = "SM3/DAY", .measurement = "O:Oil Rate", .x = 1}};
    wells.measured = true;
    writer->addArraySpec("LGR1", wells);
    std::vector<float> pressures;
    for (int step = 1; step <= 4; ++step) {
        writer->writeArray(Values{static_cast<float>(step)});
        writer->writeArray("LGR1", Values{static_cast<float>(10 * step)});
        pressures.push_back(static_cast<float>(step));
        if (step % 2 == 1) {
            writer->nextMiniStep(static_cast<float>(step), false);
        } else {
            writer->close();
            writer->openAtNextReportStep(static_cast<float>(step));
        }
        const auto spec = std::make_shared<SummarySpecData>(dir.file("CASE.SMSPEC"));
        std::vector<std::string> names{dir.file("CASE.S0001")};
        if (step > 2)
            names.push_back(dir.file("CASE.S0002"));
        const auto reader = SimpleSummaryReader::create(spec, names, dir.path(), "CASE", ISummaryReader::NoCache);
        const auto& ids = spec->allVectorIDs();
        ASSERT_EQ(ids.size(), 4U);
        const auto values = reader->getValues(ids[2]), wellValues = reader->getValues(ids[3]);
        ASSERT_TRUE(values != nullptr && wellValues != nullptr);
        EXPECT_EQ(*values, pressures);
        EXPECT_EQ(wellValues->back(), 10.0F * pressures.back());
        EXPECT_EQ(ids[3].getLgrName(), "LGR1");
        EXPECT_EQ(spec->measurement(ids[3]), "O:Oil Rate");
    }
}
