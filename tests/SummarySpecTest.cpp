#include "support/KeywordFileBuilder.h"
#include "support/SummaryCase.h"

#include <mrlio/MrlIOException.h>
#include <mrlio/SummarySpecData.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace Kvt::Mrl::MrlIO;
using namespace MrlIOTest;
using Runs = std::vector<std::pair<int, int>>;

class SummarySpec : public ::testing::Test
{
protected:
    SummarySpecData read(const KeywordFileBuilder& content, const char* name = "CASE.SMSPEC") const
    {
        return SummarySpecData(case_.write(name, content));
    }

    std::string failure(const KeywordFileBuilder& content) const
    {
        try {
            read(content);
        } catch (const SummaryReaderException& exception) {
            return exception.what();
        }
        return "";
    }

    SummaryCase case_;
};

SummaryVectorIDParams named(const std::string& keyword)
{
    return SummaryVectorIDParams::createFromVectorName(keyword);
}

TEST_F(SummarySpec, GivesWhatBothFormsSay)
{
    for (const Form form : {Form::Binary, Form::Text}) {
        auto content = smallSpec(form);
        content.keyword("INTEHEAD", {1, 100})
            .keyword("LGRNAMES", {"LGR1", "LGR2"})
            .keyword("RESTART", {"PARENT", "", "X"});
        content.header("LGRVEC", 0, "CHAR").keyword("RUNTIMEI", {1, 2});
        const auto spec = read(content, form == Form::Text ? "CASE.FSMSPEC" : "CASE.SMSPEC");
        EXPECT_TRUE(spec.isInitialized());
        EXPECT_EQ(spec.isFormatted(), form == Form::Text);
        EXPECT_EQ(spec.NX(), 10);
        EXPECT_EQ(spec.NY(), 20);
        EXPECT_EQ(spec.NZ(), 30);
        EXPECT_EQ(spec.INTEHEADData(), (std::vector<int>{1, 100}));
        EXPECT_EQ(spec.LGRs(), (std::vector<std::string>{"LGR1", "LGR2"}));
        EXPECT_EQ(spec.restart(), "PARENTX");
        EXPECT_TRUE(spec.hasTIMESTMPorRUNTIMEIKeyword());
        EXPECT_EQ(spec.startDate(), Service::YearMonthDay(2026, 3, 14));
        ASSERT_EQ(spec.allVectorIDs().size(), 5u);
        EXPECT_EQ(spec.allVectorIDs()[3].toDebugString(), "FOPR[][0][][-1][-1][-1]");
        EXPECT_EQ(spec.index(woprOf("P3")), 4);
        EXPECT_EQ(spec.index(woprOf("P4")), -1);
        EXPECT_EQ(spec.indexRange("WOPR"), (Runs{{1, 2}, {4, 4}}));
        EXPECT_TRUE(spec.indexRange("WWPR").empty());
        EXPECT_EQ(spec.unit(woprOf("P2")), "SM3/DAY");
        EXPECT_EQ(spec.unit(woprOf("P4")), "");
        EXPECT_EQ(&spec.unit(woprOf("P2")), &spec.unit(woprOf("P1")));
        EXPECT_EQ(spec.measurement(woprOf("P2")), "");
        EXPECT_EQ(spec.timesVectorID().getNum(), 0);
    }
}

TEST_F(SummarySpec, WithoutVectorsAndWithoutTimeStillAnswers)
{
    const auto spec = read(KeywordFileBuilder().keyword("RESTART", {"", "", ""}));
    EXPECT_TRUE(spec.allVectorIDs().empty());
    EXPECT_EQ(spec.restart(), "");
    EXPECT_EQ(spec.NX() + spec.NY() + spec.NZ(), 0);
    EXPECT_EQ(spec.startDate().Year(), 0);
    EXPECT_EQ(spec.timesVectorID(), named("TIME"));
    EXPECT_EQ(spec.index(spec.timesVectorID()), -1);
}

TEST_F(SummarySpec, InMemoryHasPlacesAndNothingElse)
{
    const SummarySpecData spec(std::vector{named("FOPR"), named("TIME"), named("FOPR"), named("TIME")});
    EXPECT_FALSE(spec.isInitialized());
    EXPECT_EQ(spec.index(named("FOPR")), 0);
    EXPECT_EQ(spec.index(spec.timesVectorID()), 1);
    EXPECT_TRUE(spec.indexRange("FOPR").empty());
    EXPECT_EQ(spec.unit(named("FOPR")), "");
    EXPECT_EQ(spec.getCRCChecksum(), 0u);
}

TEST_F(SummarySpec, FindsEachOfManyVectors)
{
    std::vector<SummaryVectorIDParams> ids;
    for (int number = 0; number < 20000; ++number)
        ids.emplace_back(number % 2 ? "BPR" : "COPR", "W" + std::to_string(number % 100), number / 4, "", number % 4,
                         -1, -1);
    const SummarySpecData spec(ids);
    for (std::size_t i = 0; i < ids.size(); ++i)
        ASSERT_EQ(spec.index(ids[i]), static_cast<int>(i));
}

TEST_F(SummarySpec, CopiesShareTheirContentBeyondTheOriginal)
{
    auto original = std::make_unique<SummarySpecData>(case_.write("CASE.SMSPEC", smallSpec()));
    SummarySpecData copy = *original;
    SummarySpecData assigned(std::vector{named("FOPR")});
    assigned = copy;
    original.reset();
    EXPECT_EQ(copy.index(woprOf("P3")), 4);
    EXPECT_EQ(assigned.unit(woprOf("P3")), "SM3/DAY");
    EXPECT_EQ(&assigned.unit(woprOf("P3")), &copy.unit(woprOf("P3")));
}

TEST_F(SummarySpec, RunsFollowTheKeywordsAsTheyStand)
{
    const auto spec = read(KeywordFileBuilder()
                               .keyword("KEYWORDS", {"", "", "A", "", "A", "A"})
                               .keyword("UNITS", {"", "", "", "", "", ""}));
    EXPECT_EQ(spec.indexRange(""), (Runs{{0, 1}, {3, 3}}));
    EXPECT_EQ(spec.indexRange("A"), (Runs{{2, 2}, {4, 5}}));
}

TEST_F(SummarySpec, ALaterArrayReplacesAnEarlierOne)
{
    const auto spec = read(KeywordFileBuilder()
                               .keyword("KEYWORDS", {"WOPR"})
                               .keyword("UNITS", {"X"})
                               .keyword("WGNAMES", {"OLD", "OLD2"})
                               .strings("NAMES", 20, {"A NAME OF MANY LETTERS"})
                               .keyword("RESTART", {"OLD"})
                               .keyword("RESTART", {"NEW"})
                               .keyword("INTEHEAD", {7})
                               .keyword("INTEHEAD", {7.5f}));
    EXPECT_EQ(spec.allVectorIDs().front().getWgname(), "A NAME OF MANY LETTE");
    EXPECT_EQ(spec.restart(), "NEW");
    EXPECT_EQ(spec.INTEHEADData(), std::vector{7}) << "an array that can't be read changes nothing";
}

TEST_F(SummarySpec, JoinsTheChunksOfAMeasurementAtTheirColumns)
{
    const auto measurementOf = [this](const std::vector<std::string>& chunks) {
        std::vector<std::string> both = chunks; // the same for two vectors
        both.insert(both.end(), chunks.begin(), chunks.end());
        const auto spec = read(
            KeywordFileBuilder().keyword("KEYWORDS", {"A", "B"}).keyword("UNITS", {"", ""}).keyword("MEASRMNT", both));
        EXPECT_EQ(spec.measurement(named("A")), spec.measurement(named("B")));
        return spec.measurement(named("B"));
    };
    EXPECT_EQ(measurementOf({"O:Simula", "tion_Tim", "e"}), "O:Simulation_Time");
    EXPECT_EQ(measurementOf({"AB", "", "C"}), "AB              C");
    EXPECT_EQ(measurementOf({"", "X"}), "        X");
    EXPECT_EQ(measurementOf({"", ""}), "");
}

TEST_F(SummarySpec, TakesTheStartFromThreeToSixNumbers)
{
    struct Row
    {
        std::vector<int> numbers;
        std::optional<Service::HourMinuteSecondMillisecond> time; // none if the start is refused
    };

    const Service::HourMinuteSecondMillisecond midnight;
    const std::vector<Row> rows{
        {{14, 3, 2026}, midnight},
        {{14, 3, 2026, 5}, midnight},
        {{14, 3, 2026, 5, 6}, midnight},
        {{14, 3, 2026, 5, 6, 7, 8}, midnight},
        {{14, 3, 2026, 5, 6, 7008999}, Service::HourMinuteSecondMillisecond(5, 6, 7, 8)},
        {{14, 65537, 2026}, std::nullopt},
        {{65550, 3, 2026}, std::nullopt},
        {{29, 2, 2026}, std::nullopt},
        {{0, 3, 2026}, std::nullopt},
        {{14, 3, 2026, 24, 0, 0}, std::nullopt},
        {{14, 3, 2026, 0, 0, 60000000}, std::nullopt},
        {{14, 3, 2026, 0, 0, -1000}, std::nullopt},
        {{14, 3, 2026, 0, 0, std::numeric_limits<int>::min()}, std::nullopt},
    };
    for (const Row& row : rows) {
        const auto content = KeywordFileBuilder().keyword("STARTDAT", row.numbers);
        if (row.time) {
            EXPECT_EQ(read(content).startTime(), *row.time);
            EXPECT_EQ(read(content).startDate(), Service::YearMonthDay(2026, 3, 14));
        } else {
            EXPECT_THROW(read(content), Service::ServiceException) << ::testing::PrintToString(row.numbers);
        }
    }
}

TEST_F(SummarySpec, RefusesArraysThatAreTooShort)
{
    EXPECT_EQ(failure(KeywordFileBuilder().header("DIMENS", 0, "INTE")), "DIMENS keyword contains less than 1 value");
    EXPECT_EQ(failure(KeywordFileBuilder().keyword("DIMENS", {1, 2})), "DIMENS keyword contains less than 4 value");
    EXPECT_EQ(failure(KeywordFileBuilder().keyword("STARTDAT", {1, 2})), "STARTDAT keyword contains less than 3 value");
    EXPECT_EQ(read(KeywordFileBuilder().keyword("DIMENS", {1, 2, 3})).NZ(), 0);
}

TEST_F(SummarySpec, RefusesArraysThatDoNotFitTheKeywords)
{
    const auto base = [] { return KeywordFileBuilder().keyword("KEYWORDS", {"A", "B"}); };
    const auto withUnits = [&base] { return base().keyword("UNITS", {"", ""}); };
    const auto text = [](const std::string& array) {
        return "SummarySpecData::read(): number of " + array + " inconsistent with DIMENS";
    };
    EXPECT_EQ(failure(base()), text("UNITS"));
    EXPECT_EQ(failure(KeywordFileBuilder().keyword("UNITS", {"X"})), text("UNITS"));
    EXPECT_EQ(failure(withUnits().keyword("WGNAMES", {"X"})), text("WGNAMES/NAMES"));
    EXPECT_EQ(failure(withUnits().keyword("LGRS", {"X"})), text("LGRS"));
    for (const char* array : {"NUMS", "NUMLX", "NUMLY", "NUMLZ"})
        EXPECT_EQ(failure(withUnits().keyword(array, {1})), text(array));
    EXPECT_EQ(failure(withUnits().keyword("MEASRMNT", {"a", "b", "c"})), text("MEASRMNT"));
    EXPECT_EQ(failure(KeywordFileBuilder().keyword("MEASRMNT", {"a"})), text("MEASRMNT"));
    EXPECT_EQ(failure(withUnits().header("NUMS", 0, "INTE").header("MEASRMNT", 0, "CHAR")), "");
    // Of several that don't fit the first in a fixed order is named.
    EXPECT_EQ(failure(base().keyword("MEASRMNT", {"a"}).keyword("NUMS", {1})), text("NUMS"));
}

TEST_F(SummarySpec, NamesTheArrayThatCannotBeRead)
{
    for (const char* array : {"KEYWORDS", "RESTART", "UNITS", "LGRNAMES", "MEASRMNT"}) {
        const std::string text = failure(KeywordFileBuilder().keyword(array, {1}));
        EXPECT_TRUE(text.starts_with(std::string("SummarySpecData::read(): error reading ") + array + "\n")) << text;
    }
    for (const char* array : {"DIMENS", "NUMS", "STARTDAT"}) {
        const std::string text = failure(KeywordFileBuilder().keyword(array, {1.0f}));
        EXPECT_TRUE(text.starts_with(std::string("SummarySpecData::read(): error reading ") + array + "\n")) << text;
    }
    const std::string missing = case_.path("NONE.SMSPEC");
    try {
        SummarySpecData spec(missing);
        FAIL();
    } catch (const SummaryReaderException& exception) {
        EXPECT_EQ(exception.what(), "SummarySpecData::read(): error reading " + missing);
    }
}

TEST_F(SummarySpec, ThrowsWhereItIsCutOff)
{
    const std::string whole = smallSpec().bytes();
    constexpr std::size_t behindDimens = 56, behindUnits = 324;
    ASSERT_EQ(whole.size(), 368u);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::string path = case_.path("CUT.SMSPEC");
        writeBytes(path, whole.substr(0, length));
        bool reads = true;
        try {
            SummarySpecData spec(path);
        } catch (const MrlIOException&) {
            reads = false;
        }
        // In front of a header a file just ends, but with KEYWORDS and without UNITS it makes no sense.
        bool isWhole = false;
        for (const std::size_t end : {std::size_t{0}, behindDimens, behindUnits})
            isWhole = isWhole || (length >= end && length < end + 4);
        EXPECT_EQ(reads, isWhole) << length;
    }
}

TEST_F(SummarySpec, AllocatesNothingForACountThatLies)
{
    EXPECT_NE(failure(KeywordFileBuilder().header("KEYWORDS", 2147483647, "CHAR")), "");
    EXPECT_NE(failure(KeywordFileBuilder().header("NUMS", -600, "X231").header("NUMS", 5, "INTE")), "");
}

TEST_F(SummarySpec, GivesTheChecksumOfTheFile)
{
    // Not a keyword file, which reads as a specification of nothing.
    EXPECT_EQ(read(KeywordFileBuilder().raw("123456789")).getCRCChecksum(), 0xCBF43926ul);
    EXPECT_EQ(read(KeywordFileBuilder()).getCRCChecksum(), 0ul);
    // The CRC of four bytes of ones is all ones: no sign must show.
    EXPECT_EQ(read(KeywordFileBuilder().raw("\xFF\xFF\xFF\xFF")).getCRCChecksum(), 0xFFFFFFFFul);
    // Longer than one piece, and no multiple of it.
    EXPECT_EQ(read(KeywordFileBuilder().raw(std::string(300001, 'a'))).getCRCChecksum(), 0x1397BCD4ul);
}

} // namespace
