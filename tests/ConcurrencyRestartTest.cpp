#include "support/GridWriterHelpers.h"
#include "support/KeywordFileBuilder.h"
#include "support/Threads.h"

#include <mrlio/CaseFileFinder.h>
#include <mrlio/GridFileKeywordDispatcher.h>
#include <mrlio/HiddenRestartProps.h>
#include <mrlio/InitRestartReaderBuilders.h>
#include <mrlio/InitWriter.h>
#include <mrlio/MorvaneReaderUtils.h>
#include <mrlio/RestartWriter.h>
#include <mrlio/SequentialRestartWriter.h>
#include <mrlio/service/Exception.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>

namespace {

using namespace Kvt::Mrl::MrlIO;
using namespace MrlIOTest;
using Service::YearMonthDay;

constexpr int threadCount = 4;
constexpr int rounds = 4;

const YearMonthDay start(2026, 1, 31);

class GridSize : public GridFileKeywordDispatcher
{
public:
    using GridFileKeywordDispatcher::processKeyword;

    void processKeyword(EGridGRIDHEAD& head) override { layers = head.getGridSize().z; }

    int layers = 0;
};

/// First of all, so that each thread may be the first user of the dispatcher's table.
TEST(ConcurrencyRestart, GridFilesAreFirstWalkedOnSeveralThreads)
{
    const TempDir folder;
    std::vector<int> head(100, 1);
    head[3] = 7;
    KeywordFileBuilder().keyword("GRIDHEAD", head).writeTo(folder.file("CASE.EGRID"));
    onThreads(threadCount, [&](int) {
        GridSize size;
        size.processFile(MorvaneReaderUtils::createReader(folder.file("CASE.EGRID"), false).get());
        EXPECT_EQ(size.layers, 7);
    });
}

/// A case of two grids whose values tell who has written them.
class NumberedCase
{
public:
    NumberedCase(const std::string& directory, int number) : directory_(directory), number_(number)
    {
        params_.unified = true;
        params_.overwriteData = params_.overwriteSpec = true;
    }

    void writeInit(bool formatted) const
    {
        InitWriter writer(directory_, "CASE", start, {}, formatted, params_, false);
        declareGrids(writer);
        writer.open();
        for (const GridSpec& grid : grids_) {
            IGridPropertyWriter& arrays = writer.getPropertyWriter(grid.getLgrName(), porv_);
            arrays.write("PORV", porv_, false);
            arrays.write("DEPTH", Cells<double>(count(number_ + 0.5, cells)), false);
        }
        writer.close(0);
    }

    /// Both grids of a step are open at once, each in a file of its own.
    void writeSteps(bool formatted) const
    {
        RestartWriter writer(directory_, "CASE", start, {}, formatted, params_, false);
        for (int step = 1; step <= steps; ++step) {
            declareGrids(writer);
            writer.open(step, step);
            for (int part = 0; part < 2; ++part)
                for (const GridSpec& grid : grids_)
                    writer.getSolutionWriter(grid.getLgrName(), porv_, -1).write(names_[part], values(step), true);
            writer.close(0);
        }
    }

    void appendSteps(int last) const
    {
        SequentialRestartWriter writer(directory_, "CASE", start, {}, false, params_, false, false);
        for (int step = 1; step <= last; ++step) {
            writer.addGridSpec(grids_.front());
            writer.open(step, step, 0);
            writer.sequenceStart();
            writer.sequenceStartGrid("", porv_, -1);
            for (const char* name : names_)
                writer.sequenceGetCurrentGridWriter()->write(name, values(step), true);
            writer.sequenceEndGrid();
            writer.sequenceEnd();
            writer.close();
        }
    }

    std::shared_ptr<RestartReader> read(bool generateIndex = false) const
    {
        InitRestartReaderBuilders builders;
        builders.withSpecFile(generateIndex).withPropertyCacheLimit(1);
        return builders.RestartReaderBuilder().build(CaseFileFinder("CASE", directory_));
    }

    void expectWhole(RestartReader& reader) const
    {
        EXPECT_EQ(reader.maxIndex(), steps);
        EXPECT_EQ(reader.LGRs(), std::vector<std::string>{"L1"});
        for (const GridSpec& grid : grids_) {
            const std::string& lgr = grid.getLgrName();
            std::vector<double> depths;
            EXPECT_TRUE(reader.getInitReader()->propertyData()->getAnyArray("DEPTH", depths, lgr));
            EXPECT_EQ(depths, count(number_ + 0.5, cells));
            EXPECT_EQ(reader.getCellActivitiesInfo(lgr).numActive(false), cells - 1);
            for (int step = 1; step <= steps; ++step)
                expectStep(reader, step, lgr);
        }
        EXPECT_FALSE(reader.rawData(1)->hasArray("PRESSURE", "NONE"));
        EXPECT_TRUE(reader.propertyData(1)->properties("NONE").names().empty());
    }

    void expectStep(RestartReader& reader, int step, const std::string& lgr = {}) const
    {
        for (const char* name : names_) {
            std::vector<float> read;
            EXPECT_TRUE(reader.rawData(step)->getAnyArray(name, read, lgr));
            EXPECT_EQ(read, (count(values(step).matrix[1], cells - 1)));
            EXPECT_TRUE(reader.propertyData(step)->hasProperty(name, lgr));
        }
    }

    static constexpr int steps = 3;

private:
    static constexpr int cells = 600;

    template <class Writer>
    void declareGrids(Writer& writer) const
    {
        for (const GridSpec& grid : grids_)
            writer.addGridSpec(grid);
    }

    /// The first cell isn't active.
    static std::vector<float> volumes()
    {
        std::vector<float> porv(cells, 1.0F);
        porv.front() = 0.0F;
        return porv;
    }

    Cells<float> values(int step) const { return count(static_cast<float>(1000 * number_ + step), cells); }

    std::string directory_;
    int number_;
    MrlWriterDefaultParams params_;
    Cells<float> porv_{volumes()};
    std::vector<GridSpec> grids_{{"", 20, 10, 3, UnitSystemType::METRIC, GridSpec::GridType{}},
                                 {"L1", 20, 10, 3, UnitSystemType::METRIC, GridSpec::GridType{}}};
    const char* names_[2] = {"PRESSURE", "SWAT"};
};

/// Temporary files of several grids are open in each of the folders.
TEST(ConcurrencyRestart, SeparateCasesAreWrittenAndRead)
{
    onThreads(threadCount, [](int number) {
        const TempDir folder;
        for (int round = 0; round < rounds; ++round) {
            const NumberedCase own(folder.path(), number + threadCount * round);
            own.writeInit(number % 2 == 1);
            own.writeSteps(number % 2 == 1);
            own.expectWhole(*own.read());
            EXPECT_EQ(fileNames(folder), number % 2 == 1 ? "CASE.FINIT CASE.FINSPEC CASE.FRSSPEC CASE.FUNRST"
                                                         : "CASE.INIT CASE.INSPEC CASE.RSSPEC CASE.UNRST");
        }
    });
}

/// The first reading of all makes the index files, which some of the readers do at the same time.
TEST(ConcurrencyRestart, OneCaseServesManyReaders)
{
    const TempDir folder;
    const NumberedCase shared(folder.path(), 3);
    shared.writeInit(false);
    shared.writeSteps(false);
    for (int round = 0; round < rounds; ++round) {
        for (const char* index : {"CASE.INSPEC", "CASE.RSSPEC"})
            std::filesystem::remove(folder.file(index));
        onThreads(threadCount, [&](int number) {
            const auto reader = shared.read(number != 0);
            ASSERT_NE(reader, nullptr);
            shared.expectWhole(*reader);
            EXPECT_TRUE(HiddenRestartProps::isNotAPropertyArray("INTEHEAD"));
        });
        EXPECT_EQ(fileNames(folder), "CASE.INIT CASE.INSPEC CASE.RSSPEC CASE.UNRST");
    }
}

/// A reader finds a part of the steps, or is told that a file is cut: by the index as by a scan. It never sees other
/// values than those of the step.
TEST(ConcurrencyRestart, CaseIsReadWhileStepsAreAppended)
{
    constexpr int last = 100;
    const TempDir folder;
    const NumberedCase growing(folder.path(), 3);
    const auto read = [&](bool byIndex) {
        const auto reader = RestartReader::create();
        reader->read({folder.file("CASE.UNRST")}, false, byIndex ? folder.file("CASE.RSSPEC") : "", nullptr, nullptr);
        EXPECT_LE(reader->maxIndex(), last);
        for (int step = std::max(1, reader->minIndex()); step <= reader->maxIndex(); ++step) {
            std::vector<float> saturations; // which come last, and may not stand in the file yet
            if (reader->isValidIndex(step) && reader->rawData(step)->getAnyArray("SWAT", saturations))
                growing.expectStep(*reader, step);
        }
        return reader->maxIndex();
    };
    std::atomic<bool> isWritten{false};
    onThreads(threadCount, [&](int number) {
        if (number == 0) {
            growing.appendSteps(last);
            isWritten = true;
        }
        for (int reading = 0; !isWritten && reading < 10000; ++reading) {
            try {
                read(number % 2 == 0);
            } catch (const Service::Exception&) {
                // Told of a cut file.
            }
        }
    });
    for (const bool byIndex : {false, true})
        EXPECT_EQ(read(byIndex), last);
}

} // namespace
