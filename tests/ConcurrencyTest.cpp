#include "support/SummaryCase.h"
#include "support/SummaryWriterHelpers.h"
#include "support/Threads.h"

#include <mrlio/CaseFileFinder.h>
#include <mrlio/FileFinders.h>
#include <mrlio/MorvaneAsciiWriter.h>
#include <mrlio/MorvaneWriterCreator.h>
#include <mrlio/MrlIOException.h>
#include <mrlio/SimpleSummaryReader.h>
#include <mrlio/SummaryReaderEnvironment.h>
#include <mrlio/SummaryVectorNameToType.h>

#include <gtest/gtest.h>

#include <atomic>
#include <functional>

namespace {

using namespace Kvt::Mrl::MrlIO;
using namespace MrlIOTest;
using Kvt::Mrl::Core::Service::Log;

constexpr int threadCount = 4;
constexpr int rounds = 8;

void onThreads(const std::function<void(int)>& work)
{
    MrlIOTest::onThreads(threadCount, work);
}

/// First of all, so that each thread may be the first user of the tables.
TEST(Concurrency, TablesAreFirstUsedOnSeveralThreads)
{
    onThreads([](int number) {
        std::string label;
        EXPECT_TRUE(Service::findLabel<ValueType>(ValueType::CHAR, label));
        EXPECT_EQ(label, "CHAR");
        EXPECT_TRUE(Service::findLabel<SummaryVectorType>(SummaryVectorNameToType::getType("WBHP"), label));
        EXPECT_FALSE(UnitSystemType::EnumInfos().empty());
        EXPECT_TRUE(FileIdentifiers::Summary::isUnified("CASE.UNSMRY"));
        EXPECT_EQ(FileIdentifiers::Restart::extractIndex("CASE.Y0001"), 10001);
        EXPECT_FALSE(FileIdentifiers::getAllFilters({}).empty());
        const auto& factory = SummaryReaderEnvironment::getDataAccessorFactory();
        EXPECT_NE(dynamic_cast<const SummaryDataLoaderIncrementalFactory*>(&factory), nullptr) << number;
    });
}

class ConcurrentKeywordFiles : public ::testing::TestWithParam<MorvaneWriterCreator::FileType>
{
protected:
    bool isFormatted() const { return GetParam() == MorvaneWriterCreator::Formatted; }

    /// What a thread writes differs from what the others write in names, texts and numbers.
    void writeFile(const std::string& path, int number) const
    {
        const auto writer = MorvaneWriterCreator::create(path.c_str(), GetParam());
        ASSERT_NE(writer, nullptr);
        KeywordCHAR texts("ZWEL" + std::to_string(number), std::vector<std::string>(300, textOf(number)));
        KeywordTmpl<ValueType::REAL> reals("PRES", std::vector<float>(2500, static_cast<float>(number) + 0.5f));
        KeywordTmpl<ValueType::DOUB> doubles("ZCORN", std::vector<double>(1001, number * 1.25));
        KeywordINTE integers("INTEHEAD", std::vector<int>(1500, -number));
        KeywordTmpl<ValueType::C0nn> names("NAMES", {"A NAME OF THREAD " + std::to_string(number), ""});
        EXPECT_TRUE(writer->writeKeyword(texts) && writer->writeKeyword(reals) && writer->writeKeyword(doubles));
        EXPECT_TRUE(writer->writeKeyword(integers) && writer->writeKeyword(names) && writer->endWrite());
    }

    void checkFile(const std::string& path, int number) const
    {
        const auto reader = MorvaneReaderUtils::createReader(path, isFormatted());
        ASSERT_NE(reader, nullptr);
        EXPECT_EQ(nextArray<std::string>(*reader), std::vector<std::string>(300, textOf(number)));
        EXPECT_EQ(nextArray<float>(*reader), std::vector<float>(2500, static_cast<float>(number) + 0.5f));
        EXPECT_EQ(nextArray<double>(*reader), std::vector<double>(1001, number * 1.25));
        EXPECT_EQ(nextArray<int>(*reader), std::vector<int>(1500, -number));
        EXPECT_EQ(nextArray<std::string>(*reader).front(), "A NAME OF THREAD " + std::to_string(number));
    }

    std::string complaintOf(const std::string& path) const
    {
        const auto reader = MorvaneReaderUtils::createReader(path, isFormatted());
        KeywordHeader header;
        EXPECT_TRUE(reader->readNextKeywordHeader(header));
        return refusal<MrlIOException>([&] {
            std::vector<float> values;
            reader->readDataVector(header, values);
        });
    }

    TempDir folder_;

private:
    static std::string textOf(int number) { return "WELL-" + std::to_string(number * 11); }

    template <class T>
    static std::vector<T> nextArray(MorvaneReader& reader)
    {
        std::vector<T> values;
        KeywordHeader header;
        if (reader.readNextKeywordHeader(header)) {
            // Slices pass over values, through other buffers than a reading of the whole.
            std::vector<T> last;
            reader.readDataVector(header, last, header.size() - 1, -1);
            reader.readDataVector(header, values);
            EXPECT_EQ(last.front(), values.back());
        }
        return values;
    }
};

TEST_P(ConcurrentKeywordFiles, SeparateReadersAndWritersDoNotMeet)
{
    onThreads([this](int number) {
        const std::string path = folder_.file("CASE" + std::to_string(number));
        for (int round = 0; round < rounds; ++round) {
            writeFile(path, number + round);
            checkFile(path, number + round);
        }
    });
}

TEST_P(ConcurrentKeywordFiles, OneFileServesManyReaders)
{
    const std::string path = folder_.file("CASE");
    writeFile(path, 3);
    onThreads([&](int) {
        for (int round = 0; round < rounds; ++round)
            checkFile(path, 3);
    });
}

/// Each thread gets the complaint that its own file brings about when nothing else runs.
TEST_P(ConcurrentKeywordFiles, DamagedFilesAreReportedToTheirOwnThread)
{
    std::vector<std::string> paths;
    std::vector<std::string> complaints;
    for (int number = 0; number < threadCount; ++number) {
        paths.push_back(folder_.file("DAMAGED" + std::to_string(number)));
        KeywordFileBuilder file(isFormatted() ? Form::Text : Form::Binary);
        file.header("KEY" + std::to_string(number), 5, "REAL").raw("x\n").writeTo(paths.back());
        complaints.push_back(complaintOf(paths.back()));
    }
    onThreads([&](int number) {
        const auto place = static_cast<std::size_t>(number);
        for (int round = 0; round < rounds; ++round)
            EXPECT_EQ(complaintOf(paths[place]), complaints[place]);
    });
}

INSTANTIATE_TEST_SUITE_P(Forms, ConcurrentKeywordFiles,
                         ::testing::Values(MorvaneWriterCreator::Formatted, MorvaneWriterCreator::Unformatted),
                         [](const auto& form) { return std::string(form.param ? "Unformatted" : "Formatted"); });

/// Which of the two layouts a value gets is open, but it is one of them.
TEST(Concurrency, StrictModeMaySwitchWhileOthersWrite)
{
    const TempDir folder;
    onThreads([&folder](int number) {
        const std::string path = folder.file("STRICT" + std::to_string(number));
        for (int round = 0; round < 4 * rounds; ++round) {
            MorvaneAsciiWriter::setStrict((round + number) % 2 == 0);
            MorvaneAsciiWriter writer;
            KeywordTmpl<ValueType::REAL> keyword("PRES", std::vector<float>(9, 1.5f));
            EXPECT_TRUE(writer.setFilename(path, false) && writer.writeKeyword(keyword) && writer.endWrite());
            const auto reader = MorvaneReaderUtils::createAndInitReader(path, true);
            ASSERT_NE(reader, nullptr);
            KeywordHeader header;
            ASSERT_TRUE(reader->readNextKeywordHeader(header));
            std::vector<float> values;
            reader->readDataVector(header, values);
            for (const float value : values)
                EXPECT_TRUE(value == 1.5f || value == 0.15f) << value;
        }
    });
    MorvaneAsciiWriter::setStrict(false);
}

TEST(Concurrency, FindersAreSharedAndMadeAnew)
{
    const TempDir folder;
    for (const char* name : {"CASE.UNSMRY", "CASE.S0001", "CASE.S0002", "CASE.SMSPEC", "CASE.X0001", "OTHER.UNSMRY"})
        writeBytes(folder.file(name), "x");
    const CaseFileFinder shared("case", folder.path());
    onThreads([&](int) {
        for (int round = 0; round < rounds; ++round) {
            const CaseFileFinder own("CASE", folder.path());
            for (const CaseFileFinder& finder : {shared, own}) {
                const auto split = FileIdentifiers::DataFormat::UnformattedNotUnified();
                EXPECT_EQ(FileFinders::Summary::findSpecFile(finder, {}), folder.file("CASE.SMSPEC"));
                EXPECT_EQ(FileFinders::Summary::findSummaryFiles(finder, split).size(), 2u);
                EXPECT_EQ(FileFinders::Restart::findRestartFiles(finder, {}).size(), 1u);
            }
        }
    });
}

void writeCase(const std::string& directory, bool formatted, float value)
{
    MrlWriterDefaultParams params;
    params.unified = true;
    params.overwriteData = params.overwriteSpec = true;
    const GridSpec grid(1, 1, 1, UnitSystemType::METRIC, GridSpec::Radial);
    SummaryWriter writer(directory, "CASE", grid, {2026, 3, 14}, formatted, params, true);
    writer.addArraySpec(VectorSpec{{"FOPR", "", 0, "SM3/DAY"}, {"WOPR", "P1", 1, "SM3/DAY"}});
    writer.writeArray(Values{value, -value});
    writer.nextMiniStep(1, true);
    writer.writeArray(Values{value + 1, -value});
    writer.close();
}

/// A whole life of a case on each thread: written, read through a cache that is made and then used, and again
/// rewritten.
TEST(Concurrency, SeparateCasesAreWrittenAndReadThroughTheirCaches)
{
    onThreads([](int number) {
        const TempDir folder;
        for (int round = 0; round < 2; ++round) {
            const auto value = static_cast<float>(number * 10 + round);
            SummaryReaderEnvironment::flushContentIndexCache(folder.path(), "CASE");
            writeCase(folder.path(), number % 2 == 1, value);
            const CaseFileFinder finder("CASE", folder.path());
            const auto files = FileFinders::Summary::findSummaryFiles(finder, {});
            const auto spec = std::make_shared<SummarySpecData>(FileFinders::Summary::findSpecFile(finder, {}));
            for (int reading = 0; reading < 3; ++reading) {
                const auto reader =
                    SimpleSummaryReader::create(spec, files, folder.path(), "CASE", ISummaryReader::ReadWriteCache);
                const auto values = reader->getValues(reader->allVectorIDs()[2]);
                ASSERT_NE(values, nullptr);
                EXPECT_EQ(*values, (std::vector<float>{value, value + 1}));
                EXPECT_EQ(reader->timeStepDays(), (std::vector<float>{0, 1}));
            }
        }
    });
}

TEST(Concurrency, BrokenCachesAreRemovedOnEachThread)
{
    onThreads([](int) {
        const SummaryCase summaryCase;
        const auto spec = summaryCase.spec();
        SummaryDataBuilder data;
        data.reportStep().miniStep(0, valuesAt(1));
        const std::string file = summaryCase.write("CASE.UNSMRY", data);
        for (int round = 0; round < rounds; ++round) {
            writeBytes(summaryCase.cachePath(), "<summaryContentIndex><version>1</vers");
            const auto reader =
                SimpleSummaryReader::create(spec, {file}, summaryCase.directory(), "CASE", ISummaryReader::ReadCache);
            EXPECT_FALSE(summaryCase.hasCache());
            EXPECT_EQ(reader->timeStepDays(), std::vector<float>{1});
        }
    });
}

TEST(Concurrency, LogIsRedirectedWhileItIsWrittenTo)
{
    std::atomic<int> received{0};
    std::atomic<int> wrong{0};
    onThreads([&](int number) {
        for (int round = 0; round < 50 * rounds; ++round) {
            if (number == 0) {
                // Each receiver owns something, so that one freed too early would show.
                Log::SetSink([&, expected = std::string(40, 'x')](const std::string& text, auto) {
                    ++(text == expected ? received : wrong);
                });
            } else {
                Log::SendLogMessage(std::string(40, 'x').c_str(), Kvt::Mrl::Core::Service::SeverityInformation);
            }
        }
    });
    Log::SendLogMessage(std::string(40, 'x').c_str(), Kvt::Mrl::Core::Service::SeverityInformation);
    Log::SetSink(nullptr);
    EXPECT_GT(received, 0);
    EXPECT_EQ(wrong, 0);
}

} // namespace
