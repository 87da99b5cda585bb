#include "support/ReaderCase.h"

#include <mrlio/InitRestartReaderBuilders.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace Kvt::Mrl::MrlIO;
using namespace MrlIOTest;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using Path = boost::filesystem::path;
using Paths = std::vector<Path>;
constexpr auto text = KeywordFileBuilder::Text;

/// Keeps what is logged as an error; the other levels are off.
class ErrorLog : public ILog
{
public:
    bool isDebugEnabled() const override { return false; }

    bool isWarningEnabled() const override { return false; }

    bool isInfoEnabled() const override { return false; }

    bool isErrorEnabled() const override { return true; }

    bool isFatalEnabled() const override { return false; }

    void debug(const std::string&) const override {}

    void warning(const std::string&) const override {}

    void info(const std::string&) const override {}

    void error(const std::string& line) const override { lines.push_back(line); }

    void fatal(const std::string&) const override {}

    mutable std::vector<std::string> lines;
};

class ReaderBuilder : public testing::Test
{
protected:
    ReaderBuilder() { builders_.withLogger(&log_); }

    std::string file(const std::string& name) const { return dir_.file(name); }

    CaseFileFinder finder(const std::string& name = "CASE") const { return CaseFileFinder(name, dir_.path()); }

    void writeInit(const std::string& name, const GridHead& head = {}, KeywordFileBuilder::Form form = {}) const
    {
        ReaderCase(form).heads(head).solution("PORV", std::vector<float>(8, 1.0F)).data.writeTo(file(name));
    }

    void writeSteps(const std::string& name, const std::vector<int>& steps, KeywordFileBuilder::Form form = {}) const
    {
        ReaderCase files(form);
        for (const int step : steps)
            files.step(step).solution("PRESSURE", std::vector<float>(8, 1.0F));
        files.data.writeTo(file(name));
    }

    Kvt::Mrl::MrlIO::InitReaderBuilder& init() { return builders_.InitReaderBuilder(); }

    Kvt::Mrl::MrlIO::RestartReaderBuilder& restart() { return builders_.RestartReaderBuilder(); }

    TempDir dir_;
    ErrorLog log_;
    InitRestartReaderBuilders builders_;
};

TEST_F(ReaderBuilder, TellsWhichFileIsMissing)
{
    const std::string lost = file("LOST.INIT");
    EXPECT_EQ(init().build(Path()), nullptr);
    EXPECT_EQ(init().build(Path(lost)), nullptr);
    EXPECT_EQ(init().build(Path(lost), Path(), Path()), nullptr);
    EXPECT_EQ(init().build(finder("LOST")), nullptr);
    EXPECT_THAT(log_.lines, ElementsAre("Init file not found : ", "Init file not found : " + lost,
                                        "Init file not found : " + lost, StartsWith("Init file not found : ")));
    log_.lines.clear();

    writeSteps("CASE.UNRST", {1});
    const Path steps = file("CASE.UNRST");
    EXPECT_EQ(restart().build(Paths()), nullptr);
    EXPECT_EQ(restart().build(finder("LOST")), nullptr);
    EXPECT_EQ(restart().build(Path(), Path(lost)), nullptr);
    EXPECT_EQ(restart().build(steps, Path()), nullptr);
    EXPECT_THAT(log_.lines, ElementsAre("No restart files provided", "No restart files provided",
                                        "No restart file provided", "No init file provided"));
    log_.lines.clear();

    EXPECT_EQ(restart().build(Paths{steps}), nullptr);
    EXPECT_EQ(restart().build(Paths{steps}, Path(lost)), nullptr);
    EXPECT_EQ(restart().build(finder(), finder("LOST")), nullptr);
    EXPECT_THAT(log_.lines, ElementsAre(testing::_, "Failed to create init reader for case CASE", testing::_,
                                        "Failed to create init reader for " + lost, testing::_,
                                        "Failed to create init reader for case LOST"));
}

TEST_F(ReaderBuilder, GivesAReaderThatHoldsNothingForDamagedFiles)
{
    writeInit("CASE.INIT");
    writeSteps("CASE.UNRST", {1});
    writeBytes(file("CASE.INSPEC"), "");
    writeBytes(file("CASE.RSSPEC"), "");
    const auto reader = restart().build(finder());
    ASSERT_NE(reader, nullptr);
    EXPECT_FALSE(reader->isValidIndex(1));
    ASSERT_NE(reader->getInitReader(), nullptr);
    EXPECT_EQ(reader->getInitReader()->rawData(), nullptr);
    const std::string emptyFile = "Error reading invalid or empty file ";
    EXPECT_THAT(log_.lines, ElementsAre("failed to create init reader : " + emptyFile + file("CASE.INSPEC"),
                                        "failed to create restart reader : " + emptyFile + file("CASE.RSSPEC")));
}

TEST_F(ReaderBuilder, LetsNoExceptionOut)
{
    writeBytes(file("CASE.UNRST"), "neither form of a keyword file");
    writeBytes(file("CASE.INIT"), "nor this");
    EXPECT_NE(init().build(Path(file("CASE.INIT"))), nullptr);
    EXPECT_NE(restart().build(finder()), nullptr);
    EXPECT_THAT(log_.lines, testing::SizeIs(3));
}

TEST_F(ReaderBuilder, WritesIndexFilesOnlyWhenAsked)
{
    writeInit("CASE.INIT");
    writeSteps("CASE.UNRST", {1, 2});
    ASSERT_NE(restart().build(finder()), nullptr);
    EXPECT_FALSE(std::filesystem::exists(file("CASE.RSSPEC")));
    init().build(Path(file("CASE.INIT")), Path(file("CASE.INSPEC")), Path());
    EXPECT_FALSE(std::filesystem::exists(file("CASE.INSPEC")));

    builders_.withSpecFile();
    const auto scanned = restart().build(finder());
    EXPECT_EQ(scanned->specFile(), file("CASE.RSSPEC"));
    EXPECT_EQ(scanned->getInitReader()->getSpecFile(), file("CASE.INSPEC"));
    builders_.withoutSpecFile();
    const auto indexed = restart().build(finder());
    EXPECT_TRUE(indexed->specFileExists()) << "an index file that is there is used";
    EXPECT_TRUE(indexed->getInitReader()->specFileExists());
    EXPECT_EQ(indexed->maxIndex(), 2);

    std::filesystem::remove(file("CASE.INIT"));
    const auto withoutData = init().build(Path(file("CASE.INIT")));
    ASSERT_NE(withoutData, nullptr) << "the index file belongs to it";
    EXPECT_EQ(withoutData->numCells(), 8);
    EXPECT_THAT(log_.lines, IsEmpty());
}

TEST_F(ReaderBuilder, KeepsTheFormsApart)
{
    writeInit("CASE.INIT");
    writeInit("CASE.FINIT", {}, text);
    writeSteps("CASE.FUNRST", {1}, text);
    builders_.withSpecFile();
    const auto reader = restart().build(Path(file("CASE.FUNRST")), Path(file("CASE.FINIT")));
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->specFile(), file("CASE.FRSSPEC"));
    EXPECT_EQ(reader->getInitReader()->getSpecFile(), file("CASE.FINSPEC"));
    EXPECT_EQ(init().build(Path(file("CASE.INIT")))->getSpecFile(), file("CASE.INSPEC")) << "not the other form's";
    const auto formatted =
        init().build(finder(), FileIdentifiers::DataFormat::AnyFormattedUnified().withFormatted(true));
    ASSERT_NE(formatted, nullptr);
    EXPECT_EQ(formatted->getInitFile(), file("CASE.FINIT"));
    EXPECT_TRUE(formatted->specFileExists());
    std::vector<float> volumes;
    EXPECT_TRUE(formatted->propertyData()->getAnyArray("PORV", volumes));
    EXPECT_EQ(volumes, std::vector<float>(8, 1.0F));
}

TEST_F(ReaderBuilder, TakesInitDataFromElsewhere)
{
    writeSteps("CASE.X0002", {2});
    writeSteps("CASE.X0001", {1});
    writeInit("BASE.INIT");
    const auto byFinder = restart().build(finder(), finder("BASE"));
    ASSERT_NE(byFinder, nullptr);
    EXPECT_THAT(byFinder->restartFiles(), ElementsAre(file("CASE.X0001"), file("CASE.X0002")));
    EXPECT_EQ(byFinder->getInitReader()->caseName(), "BASE");
    EXPECT_EQ(restart().build(finder(), byFinder->getInitReader())->getInitReader(), byFinder->getInitReader());
    const auto asGiven = restart().build(Paths{file("CASE.X0002"), file("CASE.X0001")}, Path(file("BASE.INIT")));
    ASSERT_NE(asGiven, nullptr);
    EXPECT_THAT(asGiven->restartFiles(), ElementsAre(file("CASE.X0002"), file("CASE.X0001")));
    const auto withoutInit = restart().build(finder(), std::shared_ptr<InitReader>());
    ASSERT_NE(withoutInit, nullptr);
    EXPECT_EQ(withoutInit->maxIndex(), 2);
    EXPECT_THAT(log_.lines, IsEmpty());
}

} // namespace
