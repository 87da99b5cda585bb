#include "support/SummaryCase.h"

#include "summary/SummaryContentIndex.h"

#include <mrlio/MrlIOException.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace Kvt::Mrl::MrlIO;
using namespace MrlIOTest;

/// Report steps as lists of (mini step number, position of its PARAMS).
using Content = std::vector<std::vector<std::pair<int, std::int64_t>>>;

Content contentOf(const SummaryContentIndex& index)
{
    Content content;
    for (const auto& reportStep : index.reportSteps()) {
        auto& miniSteps = content.emplace_back();
        for (const auto& miniStep : reportStep->miniSteps())
            miniSteps.emplace_back(miniStep->number(), static_cast<std::int64_t>(std::streamoff(miniStep->position())));
    }
    return content;
}

class SummaryIndex : public ::testing::TestWithParam<Form>
{
protected:
    static Form form() { return GetParam(); }

    std::string dataFile(int step = 1) const
    {
        return case_.path((form() == Form::Text ? "CASE.A000" : "CASE.S000") + std::to_string(step));
    }

    SummaryContentIndex indexOf(const std::vector<std::string>& files,
                                ISummaryReader::ContentCacheBehaviour behaviour = ISummaryReader::NoCache) const
    {
        SummaryContentIndex index(case_.directory(), "CASE", behaviour);
        index.setFiles(files);
        return index;
    }

    SummaryContentIndex indexOf(const KeywordFileBuilder& content) const
    {
        content.writeTo(dataFile());
        return indexOf({dataFile()});
    }

    std::string failure(const KeywordFileBuilder& content) const
    {
        const auto index = indexOf(content);
        try {
            index.reportSteps();
        } catch (const SummaryReaderException& exception) {
            return exception.what();
        }
        return "";
    }

    SummaryDataBuilder data() const { return SummaryDataBuilder(form()); }

    /// Three mini steps in two report steps; the second PARAMS of several records in unformatted form.
    SummaryDataBuilder threeMiniSteps() const
    {
        auto content = data();
        content.blockLength(2);
        content.reportStep(5).miniStep(0, {1, 2, 3}).miniStep(1, {4, 5, 6}).reportStep(5).miniStep(2, {7, 8, 9});
        return content;
    }

    SummaryCase case_;
};

INSTANTIATE_TEST_SUITE_P(BothForms, SummaryIndex, ::testing::Values(Form::Binary, Form::Text),
                         [](const auto& param) { return param.param == Form::Text ? "Text" : "Binary"; });

TEST_P(SummaryIndex, FindsTheMiniStepsOfEachReportStep)
{
    const auto content = threeMiniSteps();
    const auto index = indexOf(content);
    const auto& at = content.paramsPositions;
    EXPECT_EQ(contentOf(index), (Content{{{0, at[0]}, {1, at[1]}}, {{2, at[2]}}}));
    EXPECT_EQ(index.numVectors(), 3);
    EXPECT_EQ(index.miniTimeSteps(), (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(index.miniStepCount(), 3u);
}

TEST_P(SummaryIndex, SortsMiniStepsAndSkipsWhatItDoesNotKnow)
{
    auto content = data();
    content.reportStep().miniStep(5, {1}).keyword("OTHER", {"A", "B"});
    content.reportStep().miniStep(9, {2}).miniStep(3, {3});
    content.miniStep(4, {4}).reportStep();
    const auto index = indexOf(content);
    const auto& at = content.paramsPositions;
    EXPECT_EQ(contentOf(index), (Content{{{5, at[0]}}, {{3, at[2]}, {4, at[3]}, {9, at[1]}}}));
    EXPECT_EQ(index.miniTimeSteps(), (std::vector<int>{5, 3, 4, 9}));
}

TEST_P(SummaryIndex, StopsWhereTheSequenceNumbersFall)
{
    auto first = data(), second = data(), third = data();
    first.reportStep(10).miniStep(0, {1}).keyword("SEQHDR", {1, 2}).keyword("MINISTEP", {1}).keyword("PARAMS", {1.0f});
    second.reportStep(9).miniStep(2, {1});
    third.reportStep(11).miniStep(3, {1});
    for (int i = 0; const auto* content : {&first, &second, &third})
        content->writeTo(dataFile(++i));
    const auto index = indexOf({dataFile(1), dataFile(2), dataFile(3)});
    EXPECT_EQ(index.miniTimeSteps(), (std::vector<int>{0, 1})) << "a SEQHDR of two values stops nothing";

    auto onlyFalling = data();
    onlyFalling.reportStep(10).reportStep(9).miniStep(0, {1});
    EXPECT_EQ(indexOf(onlyFalling).numVectors(), 1) << "looks for a PARAMS anywhere";
    const auto stopped = indexOf(onlyFalling);
    EXPECT_TRUE(stopped.reportSteps().empty());
    EXPECT_EQ(stopped.numVectors(), 0);
}

TEST_P(SummaryIndex, RefusesWhatMakesNoSense)
{
    const std::string in = " in " + dataFile();
    const std::string initialize = "SummaryContentIndex::initialize: ";

    struct Row
    {
        std::function<void(SummaryDataBuilder&)> build;
        std::string text;
    };

    const std::vector<Row> rows{
        {[](auto& d) { d.miniStep(0, {1}); }, initialize + "adding mini step to an unspecified report step"},
        {[](auto& d) { d.reportStep().keyword("PARAMS", {1.0f}); },
         initialize + "PARAMS not associated with a MINISTEP" + in},
        {[](auto& d) { d.reportStep().miniStep(0, {1}).keyword("PARAMS", {1.0f}); },
         initialize + "PARAMS not associated with a MINISTEP" + in},
        {[](auto& d) {
             d.reportStep().miniStep(0, {1}).miniStep(1, {1, 2});
         },
         initialize + "inconsistent PARAMS array length" + in},
        {[](auto& d) { d.reportStep().header("MINISTEP", 0, "INTE").keyword("PARAMS", {1.0f}); },
         "MINISTEP keyword contains less than 1 value"},
        {[](auto& d) { d.reportStep().miniStep(-1, {1}); },
         "SummaryReportStepInfo::addMiniStep: mini step number less than 0"},
        {[](auto& d) { d.reportStep().miniStep(1, {1}).miniStep(2, {1}).miniStep(1, {1}); },
         "SummaryReportStepInfo::addMiniStep: non-unique mini step number"},
    };
    for (const Row& row : rows) {
        auto content = data();
        row.build(content);
        EXPECT_EQ(failure(content), row.text);
    }
    auto realMiniStep = data();
    realMiniStep.reportStep().keyword("MINISTEP", {1.0f}).keyword("PARAMS", {1.0f});
    EXPECT_TRUE(failure(realMiniStep).starts_with(initialize + "error reading MINISTEP" + in + "\n"));
    auto realSequence = data();
    realSequence.keyword("SEQHDR", {1.0f});
    realSequence.miniStep(0, {1});
    EXPECT_EQ(indexOf(realSequence).miniStepCount(), 1u) << "a SEQHDR that can't be read begins a report step";
}

TEST_P(SummaryIndex, RefusesMissingFilesAndReportStepsInTwoFiles)
{
    const auto missing = indexOf({dataFile(7)});
    EXPECT_THROW(missing.numVectors(), SummaryReaderException);
    try {
        missing.reportSteps();
        FAIL();
    } catch (const SummaryReaderException& exception) {
        EXPECT_EQ(exception.what(), "SummaryContentIndex::initialize: file not found " + dataFile(7));
    }
    EXPECT_TRUE(missing.reportSteps().empty()) << "after a failure there is nothing pending";

    auto first = data(), second = data();
    first.reportStep().miniStep(0, {1}).writeTo(dataFile(1));
    second.miniStep(1, {1}).writeTo(dataFile(2));
    EXPECT_THROW(indexOf({dataFile(1), dataFile(2)}).reportSteps(), SummaryReaderException);
}

TEST_P(SummaryIndex, ReadsEveryPrefixUpToWhatIsComplete)
{
    const auto content = threeMiniSteps();
    const std::string whole = content.bytes();
    for (std::size_t length = 1; length <= whole.size(); ++length) {
        SCOPED_TRACE(length);
        writeBytes(dataFile(), whole.substr(0, length));
        const auto index = indexOf({dataFile()}, ISummaryReader::WriteCache);
        std::size_t complete = 0;
        while (complete < 3 && static_cast<std::size_t>(content.ends[complete]) <= length)
            ++complete;
        ASSERT_EQ(index.miniStepCount(), complete);
        const auto firstParams = static_cast<std::size_t>(content.paramsPositions[0]);
        // A header stands in 24 bytes or, as a line, in 30 characters.
        const bool hasParams = length >= firstParams + (form() == Form::Text ? 30 : 24);
        ASSERT_EQ(index.numVectors(), hasParams ? 3 : 0);
        const auto again = indexOf({dataFile()});
        ASSERT_EQ(again.numVectors(), index.numVectors()) << "the first PARAMS alone tells the same";
        if (length == whole.size() || length == static_cast<std::size_t>(content.ends[1])) {
            EXPECT_TRUE(case_.hasCache());
        } else if (form() == Form::Text ? whole[length - 1] != '\n' : length % 4 != 0) {
            EXPECT_FALSE(case_.hasCache()) << "a cut file leaves no cache";
        }
        std::filesystem::remove(case_.cachePath());
    }
}

TEST_P(SummaryIndex, ScansTheFilesBehindACutOneAndSavesNoCache)
{
    auto first = data(), second = data();
    first.reportStep().miniStep(0, {1, 2}).miniStep(1, {3, 4}).cutTail(5).writeTo(dataFile(1));
    second.reportStep().miniStep(1, {3, 4}).writeTo(dataFile(2));
    auto index = indexOf({dataFile(1), dataFile(2)}, ISummaryReader::ReadWriteCache);
    EXPECT_EQ(index.miniTimeSteps(), (std::vector<int>{0, 1}));
    EXPECT_FALSE(case_.hasCache());
    // What was lost in the first file stays lost to this index, so that it must never be saved.
    auto third = data();
    third.reportStep().miniStep(2, {5, 6}).writeTo(dataFile(3));
    const std::vector<std::string> added{dataFile(3)};
    index.addFiles(added.begin(), added.end());
    EXPECT_EQ(index.miniStepCount(), 3u);
    EXPECT_FALSE(case_.hasCache());
}

TEST_P(SummaryIndex, AnswersEveryFlippedByteWithAResultOrItsException)
{
    const std::string whole = threeMiniSteps().bytes();
    int failures = 0;
    for (std::size_t i = 0; i < whole.size(); ++i) {
        for (const int bit : {0x01, 0x10, 0x80}) {
            std::string damaged = whole;
            damaged[i] = static_cast<char>(damaged[i] ^ bit);
            writeBytes(dataFile(), damaged);
            const auto index = indexOf({dataFile()});
            try {
                EXPECT_LE(index.miniStepCount(), 3u);
            } catch (const MrlIOException&) {
                ++failures;
                EXPECT_TRUE(index.reportSteps().empty());
            }
        }
    }
    EXPECT_GT(failures, static_cast<int>(whole.size()) / 10);
}

class SummaryScanFraming : public SummaryIndex
{};

INSTANTIATE_TEST_SUITE_P(Binary, SummaryScanFraming, ::testing::Values(Form::Binary));

TEST_P(SummaryScanFraming, TellsDamageFromAFileThatEndsEarly)
{
    auto content = threeMiniSteps();
    const auto size = static_cast<std::size_t>(content.size());
    // The last record's end mark, the length of the record before it, and the end code of the last header.
    for (const std::size_t position :
         {size - 1, size - 9, size - 28 + 3, static_cast<std::size_t>(content.paramsPositions[2]) + 23}) {
        auto damaged = content;
        damaged.setByte(position, 3);
        const auto index = indexOf(damaged);
        EXPECT_THROW(index.reportSteps(), MrlIOException) << position;
    }
    // A file that shows a whole keyword of another's form behind the last one isn't cut: the walk just ends.
    auto foreign = content;
    foreign.raw("and some text");
    EXPECT_EQ(indexOf(foreign).miniStepCount(), 3u);
}

TEST_P(SummaryScanFraming, TakesAnEndInsideTheNextHeaderForACut)
{
    const auto content = threeMiniSteps();
    for (const std::size_t more : {1u, 3u, 4u, 11u, 12u, 23u}) {
        auto cut = content;
        cut.raw(SummaryDataBuilder().reportStep(6).bytes().substr(0, more)).writeTo(dataFile());
        const auto index = indexOf({dataFile()}, ISummaryReader::WriteCache);
        EXPECT_EQ(index.miniStepCount(), 3u) << more;
        EXPECT_FALSE(case_.hasCache()) << more;
    }
    auto doubleHeader = content;
    doubleHeader.header("PARAMS", -1, "X231").writeTo(dataFile());
    const auto index = indexOf({dataFile()}, ISummaryReader::WriteCache);
    EXPECT_EQ(index.miniStepCount(), 3u);
    EXPECT_FALSE(case_.hasCache());
}

class SummaryScanOfText : public SummaryIndex
{};

INSTANTIATE_TEST_SUITE_P(Text, SummaryScanOfText, ::testing::Values(Form::Text));

TEST_P(SummaryScanOfText, TellsADamagedHeaderLineFromTheLastUnfinishedOne)
{
    const auto content = threeMiniSteps();
    auto unfinished = content;
    unfinished.raw(" 'MINIST");
    EXPECT_EQ(indexOf(unfinished).miniStepCount(), 3u);
    auto damaged = content;
    damaged.raw(" 'MINIST\n");
    EXPECT_THROW(indexOf(damaged).reportSteps(), MrlIOException);
    // Damage in the middle stays damage, whatever the end of the file looks like.
    auto both = data();
    both.raw(content.bytes()).raw(" 'MINIST\n").raw(content.bytes()).raw(" 'MINIST");
    EXPECT_THROW(indexOf(both).reportSteps(), MrlIOException);
}

TEST_P(SummaryScanOfText, TrustsNoNumberThatTouchesTheEnd)
{
    auto sequence = data();
    sequence.reportStep(100).miniStep(0, {1}).writeTo(dataFile(1));
    auto cutSequence = data();
    cutSequence.reportStep(101).cutTail(2).writeTo(dataFile(2)); // reads as 10
    auto last = data();
    last.reportStep(102).miniStep(1, {1}).writeTo(dataFile(3));
    EXPECT_EQ(indexOf({dataFile(1), dataFile(2), dataFile(3)}).miniStepCount(), 2u);
}

} // namespace
