#include "support/SummaryCase.h"

#include <mrlio/MrlIOException.h>
#include <mrlio/SimpleSummaryReader.h>
#include <mrlio/SummaryReaderEnvironment.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace Kvt::Mrl::MrlIO;
using namespace MrlIOTest;
using Values = std::vector<float>;

std::unique_ptr<ISummaryDataLoaderFactory> factoryOf(bool simple)
{
    if (simple)
        return std::make_unique<SummaryDataLoaderSimpleFactory>();
    return std::make_unique<SummaryDataLoaderIncrementalFactory>();
}

/// Runs with both loaders.
class SummaryReader : public ::testing::TestWithParam<bool>
{
protected:
    SummaryReader() { SummaryReaderEnvironment::setDataAccessorFactory(factoryOf(GetParam())); }

    ~SummaryReader() override { SummaryReaderEnvironment::setDataAccessorFactory(nullptr); }

    /// Writes CASE.S000n: a report step of the mini steps of these times.
    std::string step(int number, const std::vector<float>& times) const
    {
        SummaryDataBuilder data;
        data.reportStep();
        for (const float time : times)
            data.miniStep(static_cast<int>(time), valuesAt(time));
        return case_.write("CASE.S000" + std::to_string(number), data);
    }

    std::unique_ptr<SimpleSummaryReader> open(const std::vector<std::string>& files,
                                              ISummaryReader::ContentCacheBehaviour behaviour = ISummaryReader::NoCache)
    {
        return SimpleSummaryReader::create(case_.spec(), files, case_.directory(), "CASE", behaviour);
    }

    static Values get(const ISummaryReader& reader, const SummaryVectorIDParams& id)
    {
        const auto values = reader.getValues(id);
        return values ? *values : Values{-1};
    }

    static Values column(int place, const std::vector<float>& times)
    {
        Values values;
        for (const float time : times)
            values.push_back(valuesAt(time)[static_cast<std::size_t>(place)]);
        return values;
    }

    static std::string loaderName() { return GetParam() ? "SummaryDataLoaderSimple" : "SummaryDataLoaderIncremental"; }

    SummaryCase case_;
    LogCollector log_;
};

INSTANTIATE_TEST_SUITE_P(Loaders, SummaryReader, ::testing::Bool(),
                         [](const auto& param) { return param.param ? "Simple" : "Incremental"; });

TEST_P(SummaryReader, GivesTheValuesOfEachVectorOverAllFiles)
{
    const auto reader = open({step(1, {1, 2}), step(2, {3})});
    EXPECT_EQ(get(*reader, woprOf("P1")), column(1, {1, 2, 3}));
    EXPECT_EQ(get(*reader, woprOf("P3")), column(4, {1, 2, 3}));
    EXPECT_EQ(get(*reader, {"FOPR", "", 0, "", -1, -1, -1}), column(3, {1, 2, 3}));
    EXPECT_EQ(reader->timeStepDays(), (Values{1, 2, 3}));
    EXPECT_EQ(reader->reportStepDays(), (Values{2, 3}));
    EXPECT_EQ(reader->miniTimeSteps(), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(reader->getValues(woprOf("P9")), nullptr);
    EXPECT_TRUE(log_.lines.empty());
    EXPECT_TRUE(reader->isValid());
    EXPECT_EQ(reader->unit(woprOf("P1")), "SM3/DAY");
    EXPECT_EQ(reader->index(reader->timeVectorID()), 0);
}

TEST_P(SummaryReader, ReadsFormattedDataTheSame)
{
    SummaryDataBuilder data(Form::Text);
    data.reportStep().miniStep(0, valuesAt(0.5f)).reportStep().miniStep(1, valuesAt(1.5f));
    const auto reader = open({case_.write("CASE.FUNSMRY", data)});
    EXPECT_EQ(get(*reader, woprOf("P3")), column(4, {0.5f, 1.5f}));
    EXPECT_EQ(reader->reportStepDays(), (Values{0.5f, 1.5f}));
}

TEST_P(SummaryReader, ReadsManyMiniStepsOfManyVectorsInSeveralRecords)
{
    // More than are gathered at a time, over the edges of records and batches.
    constexpr int vectors = 2100, miniSteps = 700;
    std::vector<std::string> keywords(vectors, "BPR"), units(vectors, "BARSA");
    std::vector<int> nums;
    for (int i = 0; i < vectors; ++i)
        nums.push_back(i);
    keywords[0] = keywords[999] = keywords[2050] = "TIME";
    const auto spec = std::make_shared<SummarySpecData>(
        case_.write("BIG.SMSPEC",
                    KeywordFileBuilder().keyword("KEYWORDS", keywords).keyword("NUMS", nums).keyword("UNITS", units)));
    SummaryDataBuilder data;
    for (int miniStep = 0; miniStep < miniSteps; ++miniStep) {
        if (miniStep % 100 == 0)
            data.reportStep();
        Values values;
        for (int i = 0; i < vectors; ++i)
            values.push_back(static_cast<float>(miniStep * 10000 + i));
        data.miniStep(miniStep, values);
    }
    const auto reader = SimpleSummaryReader::create(spec, {case_.write("BIG.UNSMRY", data)}, case_.directory(), "BIG",
                                                    ISummaryReader::NoCache);
    for (const int place : {0, 1, 998, 999, 1000, 2050, 2099}) {
        const auto values = reader->getValues(spec->allVectorIDs()[static_cast<std::size_t>(place)]);
        ASSERT_TRUE(values);
        ASSERT_EQ(values->size(), static_cast<std::size_t>(miniSteps));
        for (int miniStep = 0; miniStep < miniSteps; ++miniStep)
            ASSERT_EQ((*values)[static_cast<std::size_t>(miniStep)], static_cast<float>(miniStep * 10000 + place));
    }
}

TEST_P(SummaryReader, ReadsInterleavedKeywordsOfVeryManyVectors)
{
    // Wider than a row of what is gathered, in runs of one vector each.
    constexpr int vectors = 140001;
    std::vector<std::string> keywords, units(vectors);
    std::vector<int> nums;
    Values values;
    for (int i = 0; i < vectors; ++i) {
        keywords.push_back(i % 2 == 0 ? "BPR" : "BWSAT");
        nums.push_back(i);
        values.push_back(static_cast<float>(i));
    }
    const auto spec = std::make_shared<SummarySpecData>(
        case_.write("WIDE.SMSPEC",
                    KeywordFileBuilder().keyword("KEYWORDS", keywords).keyword("NUMS", nums).keyword("UNITS", units)));
    SummaryDataBuilder data;
    data.reportStep().miniStep(0, values).miniStep(1, values);
    const auto reader = SimpleSummaryReader::create(spec, {case_.write("WIDE.UNSMRY", data)}, case_.directory(), "WIDE",
                                                    ISummaryReader::NoCache);
    for (int place = 0; place < vectors; place += 999) {
        const auto value = static_cast<float>(place);
        ASSERT_EQ(get(*reader, spec->allVectorIDs()[static_cast<std::size_t>(place)]), (Values{value, value}));
    }
}

TEST_P(SummaryReader, ServesAKeywordFromMemoryOnceItWasRead)
{
    const std::string file = step(1, {1, 2});
    const auto reader = open({file});
    const auto first = reader->getValues(woprOf("P1"));
    std::filesystem::remove(file);
    EXPECT_EQ(reader->getValues(woprOf("P1")), first);
    EXPECT_EQ(get(*reader, woprOf("P3")), column(4, {1, 2})) << "all vectors of the keyword came with it";
    EXPECT_FALSE(reader->isValid());
}

TEST_P(SummaryReader, GrowsWithTheFilesThatAreAdded)
{
    std::vector<std::string> files{step(1, {1, 2})};
    const auto reader = open(files, ISummaryReader::ReadWriteCache);
    const auto held = reader->getValues(woprOf("P2"));
    const auto& times = reader->timeStepDays();
    const auto& numbers = reader->miniTimeSteps();
    const auto& reportTimes = reader->reportStepDays();

    EXPECT_FALSE(reader->readNewData(files));
    files.push_back(step(2, {3}));
    EXPECT_TRUE(reader->readNewData(files));
    files.push_back(step(3, {4, 5}));
    EXPECT_TRUE(reader->readNewData(files)) << "a second addition before the first was read";
    EXPECT_EQ(get(*reader, woprOf("P2")), column(2, {1, 2, 3, 4, 5}));
    EXPECT_EQ(held->size(), 5u) << "the vector grows under its holders";
    EXPECT_EQ(&reader->timeStepDays(), &times);
    EXPECT_EQ(times, (Values{1, 2, 3, 4, 5}));
    EXPECT_EQ(&reader->miniTimeSteps(), &numbers);
    EXPECT_EQ(numbers.size(), 5u);
    EXPECT_EQ(&reader->reportStepDays(), &reportTimes);
    EXPECT_EQ(reportTimes, (Values{2, 3, 5}));
    EXPECT_EQ(reader->summaryFiles(), files);

    LogCollector quiet;
    const auto cached = open(files, ISummaryReader::ReadCache);
    EXPECT_EQ(cached->miniTimeSteps().size(), 5u);
}

TEST_P(SummaryReader, TakesNewFilesBeforeAnyDataWereAskedFor)
{
    std::vector<std::string> files;
    const auto reader = open(files);
    EXPECT_TRUE(reader->isValid());
    EXPECT_TRUE(reader->miniTimeSteps().empty());
    files.push_back(step(1, {1}));
    EXPECT_TRUE(reader->readNewData(files));
    EXPECT_EQ(get(*reader, woprOf("P1")), column(1, {1}));
    files.push_back(step(2, {2}));
    EXPECT_TRUE(reader->readNewData(files));
    EXPECT_EQ(get(*reader, woprOf("P1")), column(1, {1, 2}));
}

TEST_P(SummaryReader, RefusesAListThatDoesNotContinueItsOwn)
{
    const std::vector<std::string> files{step(1, {1}), step(2, {2})};
    const auto reader = open(files);
    const auto failure = [&reader](const std::vector<std::string>& newFiles) -> std::string {
        try {
            return reader->readNewData(newFiles) ? "true" : "false";
        } catch (const SummaryReaderException& exception) {
            return exception.what();
        }
    };
    EXPECT_EQ(failure({files[0]}), "existing summary files missing");
    EXPECT_EQ(failure({files[0], "other", "more"}), "inconsistent set of summary files: other");
    EXPECT_EQ(failure({"other", "names"}), "false");
    EXPECT_EQ(reader->summaryFiles(), files);
    EXPECT_EQ(get(*reader, woprOf("P1")), column(1, {1, 2}));

    const auto inMemory = std::make_shared<SummarySpecData>(case_.spec()->allVectorIDs());
    const auto other = SimpleSummaryReader::create(inMemory, files, case_.directory(), "CASE", ISummaryReader::NoCache);
    EXPECT_THROW(other->readNewData({}), SummaryReaderException);
}

TEST_P(SummaryReader, GoesOnWhereReadingFailed)
{
    std::vector<std::string> files{step(1, {1, 2}), step(2, {3}), step(3, {4})};
    const auto reader = open(files);
    std::filesystem::rename(files[1], case_.path("away"));
    EXPECT_EQ(reader->getValues(woprOf("P1")), nullptr);
    ASSERT_EQ(log_.lines.size(), 1u);
    EXPECT_EQ(log_.lines[0], (LogCollector::Line{loaderName() + "::addData: fails to read PARAMS in " + files[1], 3}));
    EXPECT_TRUE(reader->timeStepDays().empty());
    EXPECT_TRUE(reader->reportStepDays().empty());
    std::filesystem::rename(case_.path("away"), files[1]);
    EXPECT_EQ(get(*reader, woprOf("P1")), column(1, {1, 2, 3, 4}));
    EXPECT_EQ(get(*reader, woprOf("P3")), column(4, {1, 2, 3, 4}));
    EXPECT_EQ(reader->reportStepDays(), (Values{2, 3, 4}));

    // A growth that fails leaves what was there before.
    files.push_back(step(4, {5, 6}));
    files.push_back(step(5, {7}));
    reader->readNewData(files);
    reader->miniTimeSteps();
    const std::string wholeFile = readBytes(files[3]);
    writeBytes(files[3], wholeFile.substr(0, wholeFile.size() - 6)); // one of its two mini steps stays whole
    EXPECT_EQ(reader->getValues(woprOf("P3")), nullptr);
    EXPECT_TRUE(log_.has(loaderName() + "::addData: fails to read PARAMS in " + files[3] + "\n", 3));
    writeBytes(files[3], wholeFile);
    EXPECT_EQ(get(*reader, woprOf("P1")), column(1, {1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(get(*reader, woprOf("P3")), column(4, {1, 2, 3, 4, 5, 6, 7}));
}

TEST_P(SummaryReader, StartsAfreshWithTheFilesAfterAFailedScan)
{
    std::vector<std::string> files{step(1, {1, 2})};
    const auto reader = open(files);
    const auto held = reader->getValues(woprOf("P1"));
    files.push_back(case_.write("CASE.S0002", SummaryDataBuilder().miniStep(9, valuesAt(9))));
    EXPECT_TRUE(reader->readNewData(files));
    EXPECT_TRUE(reader->miniTimeSteps().empty());
    EXPECT_TRUE(log_.has("adding mini step to an unspecified report step", 3));
    EXPECT_FALSE(reader->readNewData(files));
    EXPECT_TRUE(reader->miniTimeSteps().empty()) << "empty until files are added";

    // Meanwhile the run was started anew: what was read before must not be mixed with it.
    step(1, {5});
    step(2, {6});
    files.push_back(step(3, {7}));
    EXPECT_TRUE(reader->readNewData(files));
    EXPECT_EQ(get(*reader, woprOf("P1")), column(1, {5, 6, 7}));
    EXPECT_EQ(reader->timeStepDays(), (Values{5, 6, 7}));
    EXPECT_EQ(*held, column(1, {1, 2}));
}

TEST_P(SummaryReader, GivesWhatIsCompleteOfAHalfWrittenFile)
{
    SummaryDataBuilder data;
    data.blockLength(2);
    data.reportStep().miniStep(0, valuesAt(0)).miniStep(1, valuesAt(1));
    const std::string path = case_.path("CASE.UNSMRY");
    for (std::size_t length = 0; length <= data.bytes().size(); length += 3) {
        writeBytes(path, data.bytes().substr(0, length));
        const auto reader = open({path});
        Values expected;
        for (int miniStep = 0; miniStep < 2; ++miniStep) {
            if (static_cast<std::size_t>(data.ends[static_cast<std::size_t>(miniStep)]) <= length)
                expected.push_back(valuesAt(static_cast<float>(miniStep))[4]);
        }
        // Without mini steps the simple loader knows no vectors.
        ASSERT_EQ(get(*reader, woprOf("P3")), expected.empty() && GetParam() ? Values{-1} : expected) << length;
    }
    EXPECT_TRUE(log_.lines.empty());
}

TEST_P(SummaryReader, AnswersEveryFlippedByteWithAResultOrItsException)
{
    SummaryDataBuilder data;
    data.reportStep().miniStep(0, valuesAt(0)).miniStep(1, valuesAt(1));
    const std::string path = case_.path("CASE.UNSMRY");
    for (std::size_t i = 0; i < data.bytes().size(); ++i) {
        auto damaged = data;
        damaged.setByte(i, damaged.bytes()[i] ^ 0x41).writeTo(path);
        try {
            const auto values = open({path})->getValues(woprOf("P3"));
            EXPECT_TRUE(!values || values->size() <= 2) << i;
        } catch (const MrlIOException&) {}
    }
}

TEST_P(SummaryReader, ReadsBehindTwoGibibytes)
{
    // A sparse file: a far mini step behind a hole that one record of another keyword spans.
    constexpr std::int64_t hole = 2147483640;
    SummaryDataBuilder start, end;
    start.reportStep().miniStep(1, valuesAt(1));
    start.header("HOLE", hole / 4, "INTE").raw(KeywordFileBuilder::int32(hole));
    const std::int64_t behind = start.size() + hole;
    end.raw(KeywordFileBuilder::int32(hole));
    end.reportStep().miniStep(2, valuesAt(2));
    const std::string path = case_.write("CASE.UNSMRY", start);
    std::filesystem::resize_file(path, static_cast<std::uintmax_t>(behind));
    std::ofstream(path, std::ios::binary | std::ios::app) << end.bytes();
    open({path}, ISummaryReader::WriteCache);
    ASSERT_TRUE(case_.hasCache());
    EXPECT_EQ(get(*open({path}, ISummaryReader::ReadCache), woprOf("P3")), column(4, {1, 2}));
    EXPECT_TRUE(log_.lines.empty());
}

TEST_P(SummaryReader, RefusesDataOfAnotherSpecification)
{
    SummaryDataBuilder data;
    data.reportStep().miniStep(0, {1, 2, 3, 4, 5, 6});
    try {
        open({case_.write("CASE.UNSMRY", data)});
        FAIL();
    } catch (const SummaryReaderException& exception) {
        EXPECT_STREQ(exception.what(), "array length in spec file inconsistent with those in the data file");
    }
    EXPECT_THROW(open({case_.path("NONE.UNSMRY")}), SummaryReaderException);
    EXPECT_THROW(SimpleSummaryReader::create(nullptr, {}, "", "", ISummaryReader::NoCache), std::invalid_argument);
}

TEST_P(SummaryReader, HasNoAxesWithoutATimeVector)
{
    const auto spec = std::make_shared<SummarySpecData>(
        case_.write("CASE.SMSPEC", KeywordFileBuilder().keyword("KEYWORDS", {"FOPR"}).keyword("UNITS", {""})));
    SummaryDataBuilder data;
    data.reportStep().miniStep(0, {1});
    const auto reader = SimpleSummaryReader::create(spec, {case_.write("CASE.UNSMRY", data)}, case_.directory(), "CASE",
                                                    ISummaryReader::NoCache);
    EXPECT_TRUE(reader->timeStepDays().empty());
    EXPECT_TRUE(reader->reportStepDays().empty());
    EXPECT_EQ(reader->miniTimeSteps().size(), 1u);
    EXPECT_TRUE(log_.lines.empty());
}

TEST_P(SummaryReader, TakesReportTimesByPositionWhereNumbersComeAgain)
{
    const auto reader = open({step(1, {1, 2}), step(2, {2}), step(3, {1, 3})});
    EXPECT_EQ(reader->miniTimeSteps(), (std::vector<int>{1, 2, 2, 1, 3}));
    SummaryDataBuilder data;
    data.reportStep().miniStep(1, valuesAt(10)).reportStep().miniStep(1, valuesAt(20));
    EXPECT_EQ(open({case_.write("CASE.UNSMRY", data)})->reportStepDays(), (Values{10, 20}));
}

TEST_P(SummaryReader, UsesTheFactoryOfItsFirstNeed)
{
    struct Nothing : ISummaryDataLoader
    {
        std::shared_ptr<const Values> getData(const SummaryVectorIDParams&) const override { return nullptr; }

        void contentIndexGrown() override {}
    };

    struct NothingFactory : ISummaryDataLoaderFactory
    {
        ISummaryDataLoader* create(const SummarySpecData&, const SummaryContentIndex&) const override
        {
            return new Nothing;
        }
    };

    const std::vector<std::string> files{step(1, {1})};
    const auto before = open(files);
    const auto after = open(files);
    EXPECT_NE(before->getValues(woprOf("P1")), nullptr);
    SummaryReaderEnvironment::setDataAccessorFactory(std::make_unique<NothingFactory>());
    EXPECT_NE(before->getValues(woprOf("P1")), nullptr);
    EXPECT_EQ(after->getValues(woprOf("P1")), nullptr);
    SummaryReaderEnvironment::setDataAccessorFactory(nullptr);
    EXPECT_NE(
        dynamic_cast<const SummaryDataLoaderIncrementalFactory*>(&SummaryReaderEnvironment::getDataAccessorFactory()),
        nullptr);
}

} // namespace
