// What the summary writer puts into its files, and which calls it takes when.

#include "support/SummaryWriterHelpers.h"
#include "support/TempDir.h"

#include "summary/SummaryWriterImpl.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <locale>

using namespace MrlIOTest;
using ::testing::ElementsAre;

namespace {

const VectorSpec field{{.keyword = "FOPR", .name = "", .units = "SM3/DAY"}, {.keyword = "FOPT", .units = "SM3"}};
const VectorSpec local{{.keyword = "LBPR", .num = 7, .units = "BARSA", .x = 1, .y = 2, .z = 3}};
constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float infinite = std::numeric_limits<float>::infinity();

class SummaryWriterTest : public ::testing::Test
{
protected:
    SummaryWriterTest() { params.noTimeStamps = true; }

    std::unique_ptr<SummaryWriter> makeWriter(const RestartSpec* restart = nullptr)
    {
        return std::make_unique<SummaryWriter>(dir.path(), "CASE", grid, start, time, restart, formatted, params,
                                               writeINTEHEAD);
    }

    std::unique_ptr<SummaryWriterImpl> makeWriter(const LocalClock& clock)
    {
        return std::make_unique<SummaryWriterImpl>(
            SummaryWriterSetup{dir.path(), "CASE", grid, start, time, nullptr, formatted, params, writeINTEHEAD},
            clock);
    }

    std::string specLine(const std::string& keyword) const
    {
        return keywordLine(dir.file(formatted ? "CASE.FSMSPEC" : "CASE.SMSPEC"), keyword, formatted);
    }

    std::vector<std::string> data(const std::string& extension) const
    {
        return keywordLines(dir.file("CASE." + extension), formatted);
    }

    TempDir dir;
    MrlWriterDefaultParams params;
    GridSpec grid{2, 3, 4, UnitSystemType::METRIC, GridSpec::Radial};
    Service::YearMonthDay start{2026, 2, 28};
    Service::HourMinuteSecondMillisecond time;
    bool formatted = false;
    bool writeINTEHEAD = false;
};

} // namespace

TEST_F(SummaryWriterTest, SpecFileHoldsAllKeywordsInOrderInBothForms)
{
    params.simulatorValue = 100;
    writeINTEHEAD = true;
    time = {13, 14, 15, 16};
    const RestartSpec restart("THIRTEENCHARS", 5, 40, 100.0F);
    const std::string zeros(35 * 2, ' ');
    for (const bool form : {false, true}) {
        formatted = form;
        auto writer = makeWriter(&restart);
        VectorSpec measured{{"WOPR", "PROD", 3, "SM3/DAY", "O:Oil_Rate"}};
        measured.measured = true;
        writer->addArraySpec("LGR1", local);
        writer->addArraySpec(measured);
        writer.reset();

        std::string runTimes = "RUNTIMEI 2 4 5 0 0 0 0 0 0 0 0 0 0 0 0 8 6 2026";
        for (int i = 18; i < 50; ++i)
            runTimes += " 0";
        EXPECT_THAT(keywordLines(dir.file(form ? "CASE.FSMSPEC" : "CASE.SMSPEC"), form),
                    ElementsAre("INTEHEAD 1 100", "RESTART [THIRTEEN] [CHARS] [] [] [] [] [] [] []",
                                "DIMENS 4 2 3 4 0 4", "KEYWORDS [TIME] [YEARS] [WOPR] [LBPR]",
                                "WGNAMES [] [] [PROD] []", "NUMS 0 0 3 7", "LGRS [] [] [] [LGR1]", "NUMLX 0 0 0 1",
                                "NUMLY 0 0 0 2", "NUMLZ 0 0 0 3", "UNITS [DAYS] [YEARS] [SM3/DAY] [BARSA]",
                                "MEASRMNT [O:Simula] [tion_Tim] [e] [] [] [] [O:Oil_Ra] [te] [] [] [] []",
                                "STARTDAT 28 2 2026 13 14 15016000", "LGRNAMES [LGR1]", "LGRVEC 3", "LGRTIMES 0",
                                runTimes, "RUNTIMED 0 0 0 0 0"));
    }
}

TEST_F(SummaryWriterTest, BytesOfASmallCase)
{
    using namespace std::string_literals;
    const auto word = [](int value) {
        std::string bytes;
        for (const int shift : {24, 16, 8, 0})
            bytes += static_cast<char>(value >> shift);
        return bytes;
    };
    const auto keyword = [&](const std::string& header, int count, const std::string& type,
                             const std::string& payload) {
        const std::string length = word(static_cast<int>(payload.size()));
        return word(16) + header + word(count) + type + word(16) + length + payload + length;
    };
    auto writer = makeWriter();
    writer->addArraySpec(VectorSpec{{.keyword = "FPR", .units = "BARSA"}});
    writer->writeArray(Values{1.5F});
    writer->nextMiniStep(0.5F, false);
    writer->writeArray(Values{-2.0F});
    writer->close();

    const std::string firstValues = word(0) + word(0) + "\x3F\xC0\x00\x00"s;
    const std::string secondValues = "\x3F\x00\x00\x00"s + "\x3A\xB3\x6D\x84"s + "\xC0\x00\x00\x00"s;
    EXPECT_EQ(readBytes(dir.file("CASE.S0001")),
              keyword("SEQHDR  ", 1, "INTE", word(0)) + keyword("MINISTEP", 1, "INTE", word(0)) +
                  keyword("PARAMS  ", 3, "REAL", firstValues) + keyword("MINISTEP", 1, "INTE", word(1)) +
                  keyword("PARAMS  ", 3, "REAL", secondValues));

    const std::string blank(8, ' ');
    std::string runTimes = word(1) + word(0) + word(1);
    for (int i = 3; i < 50; ++i)
        runTimes += word(i == 15 ? 28 : i == 16 ? 2 : i == 17 ? 2026 : 0);
    EXPECT_EQ(readBytes(dir.file("CASE.SMSPEC")),
              keyword("RESTART ", 9, "CHAR", std::string(72, ' ')) +
                  keyword("DIMENS  ", 6, "INTE", word(3) + word(2) + word(3) + word(4) + word(0) + word(0)) +
                  keyword("KEYWORDS", 3, "CHAR", "TIME    YEARS   FPR     ") +
                  keyword("WGNAMES ", 3, "CHAR", blank + blank + blank) +
                  keyword("NUMS    ", 3, "INTE", word(0) + word(0) + word(0)) +
                  keyword("UNITS   ", 3, "CHAR", "DAYS    YEARS   BARSA   ") +
                  keyword("STARTDAT", 6, "INTE", word(28) + word(2) + word(2026) + word(0) + word(0) + word(0)) +
                  keyword("RUNTIMEI", 50, "INTE", runTimes) + keyword("RUNTIMED", 5, "DOUB", std::string(40, '\0')));
}

TEST_F(SummaryWriterTest, GlobalGridComesFirstInEitherOrder)
{
    VectorSpec placedField{{.keyword = "BPR", .num = 5, .x = 8, .y = 8, .z = 8}, {.keyword = "FOPT"}};
    for (const bool globalFirst : {true, false}) {
        params.overwriteData = params.overwriteSpec = true;
        auto writer = makeWriter();
        if (globalFirst)
            writer->addArraySpec(placedField);
        writer->addArraySpec("LGR2", local);
        if (!globalFirst)
            writer->addArraySpec(placedField);
        writer->addArraySpec("LGR1", VectorSpec{{.keyword = "LWOPR", .name = "P1", .x = 4}});
        EXPECT_EQ(writer->writeArray("LGR1", Values{40.0F}), 0);
        writer->writeArray("LGR2", Values{30.0F});
        writer->writeArray("", Values{10.0F, 20.0F});
        writer->close();
        EXPECT_EQ(specLine("KEYWORDS"), "KEYWORDS [TIME] [YEARS] [BPR] [FOPT] [LBPR] [LWOPR]");
        EXPECT_EQ(specLine("LGRS"), "LGRS [] [] [] [] [LGR2] [LGR1]");
        EXPECT_EQ(specLine("NUMLX"), "NUMLX 0 0 8 0 1 4");
        EXPECT_EQ(specLine("LGRNAMES"), "LGRNAMES [LGR2] [LGR1]");
        EXPECT_EQ(specLine("LGRVEC"), "LGRVEC 3 3");
        EXPECT_THAT(data("S0001"), ElementsAre("SEQHDR 0", "MINISTEP 0", "PARAMS 0 0 10 20 30 40"));
    }
}

TEST_F(SummaryWriterTest, LaboratoryUnitsCountInHours)
{
    grid = GridSpec(1, 1, 1, UnitSystemType::LAB, GridSpec::Radial);
    auto writer = makeWriter();
    writer->addArraySpec(VectorSpec{{.keyword = "FPR"}});
    writer->nextMiniStep(0.1F, false);
    writer->writeArray(Values{1.0F});
    writer->close();
    EXPECT_EQ(specLine("KEYWORDS"), "KEYWORDS [TIME] [DAYS] [FPR]");
    EXPECT_EQ(specLine("UNITS"), "UNITS [HOURS] [DAYS] []");
    EXPECT_THAT(data("S0001"), ElementsAre("SEQHDR 0", "MINISTEP 0", "PARAMS 2.4 0.1 1"));
}

TEST_F(SummaryWriterTest, NamesGoOutInTheirOwnWidth)
{
    const auto headerOf = [&](const std::string& name) {
        params.overwriteSpec = true;
        auto writer = makeWriter();
        writer->addArraySpec(VectorSpec{{.keyword = "WOPR", .name = name}});
        writer.reset();
        KeywordHeader header;
        const auto reader = MorvaneReaderUtils::createReader(dir.file("CASE.SMSPEC"), false);
        while (reader->readNextKeywordHeader(header) && header.name() != "WGNAMES" && header.name() != "NAMES") {}
        return header.name() + " " + std::to_string(header.valueTypeInfo().intData()) +
               valuesText<std::string>(*reader, header);
    };
    EXPECT_EQ(headerOf("EIGHTCHR"), "WGNAMES -1 [] [] [EIGHTCHR]");
    EXPECT_EQ(headerOf("NINECHARS"), "NAMES 9 [] [] [NINECHARS]");
    const std::string longest(72, 'N');
    EXPECT_EQ(headerOf(longest), "NAMES 72 [] [] [" + longest + "]");
    params.longNames = true;
    EXPECT_EQ(headerOf("P1"), "NAMES 8 [] [] [P1]");
}

TEST_F(SummaryWriterTest, MeasurementsHaveARowForEveryVector)
{
    VectorSpec measured{{.keyword = "LBPR", .measurement = "eight_ch"}};
    auto writer = makeWriter();
    writer->addArraySpec(VectorSpec{{.keyword = "FPR", .measurement = "not asked for"}});
    writer->addArraySpec("LGR1", measured);
    writer->nextMiniStep(0.0F, true);
    EXPECT_EQ(specLine("MEASRMNT"), "");

    measured.measured = true;
    writer->updateArraySpec("LGR1", measured);
    writer->nextMiniStep(0.0F, true);
    const std::string times = "MEASRMNT [O:Simula] [tion_Tim] [e] [] [] [] [] [] []";
    EXPECT_EQ(specLine("MEASRMNT"), times + " [eight_ch] [] []");

    measured.measured = false;
    writer->updateArraySpec("LGR1", measured);
    writer->nextMiniStep(0.0F, true);
    EXPECT_EQ(specLine("MEASRMNT"), times + " [eight_ch] [] []");
}

TEST_F(SummaryWriterTest, MiniStepsAreNumberedByTheirRecords)
{
    const RestartSpec restart("OLD", 3, 7, 10.0F);
    auto writer = makeWriter(&restart);
    writer->addArraySpec(field);
    EXPECT_EQ(writer->getElapsedTime(), 10.0F);
    EXPECT_EQ(writer->nextMiniStep(10.0F, false), 7); // no arrays, no record
    EXPECT_EQ(writer->writeArray(Values{1.0F, 2.0F}), 7);
    EXPECT_EQ(writer->nextMiniStep(11.0F, false), 8);
    writer->writeArray(Values{3.0F, 4.0F});
    writer->endMiniStep();
    EXPECT_EQ(writer->nextMiniStep(12.0F, false), 8); // kept so
    writer->close();
    writer->close();
    EXPECT_EQ(writer->openAtNextReportStep(12.0F), 9);
    EXPECT_EQ(writer->getReportStep(), 4);
    writer->writeArray(Values{5.0F, 6.0F});
    writer->close();
    EXPECT_THAT(data("S0003"), ElementsAre("SEQHDR 0", "MINISTEP 7", "PARAMS 10 0.0273785 1 2", "MINISTEP 8",
                                           "PARAMS 11 0.0301164 3 4"));
    EXPECT_THAT(data("S0004"), ElementsAre("SEQHDR 0", "MINISTEP 9", "PARAMS 12 0.0328542 5 6"));
    EXPECT_EQ(specLine("DIMENS"), "DIMENS 4 2 3 4 0 2");
}

TEST_F(SummaryWriterTest, CallsOutOfOrderAreRefused)
{
    auto writer = makeWriter();
    writer->addArraySpec(field);
    writer->addArraySpec("LGR1", local);
    EXPECT_EQ(invalid([&] { writer->addArraySpec(field); }), "Grid \"\" has already been specified");
    EXPECT_EQ(runtime([&] { writer->openAtNextReportStep(1.0F); }), "Unable to open SummaryWriter: already open.");

    EXPECT_EQ(invalid([&] { writer->writeArray("LGR2", Values{1.0F}); }), "Grid \"LGR2\" has not been specified.");
    EXPECT_EQ(invalid([&] { writer->writeArray(Values{1.0F}); }),
              "The size of the array to write (1)is invalid. It must be the same size as its specification (2).");
    writer->writeArray("LGR1", Values{1.0F});
    EXPECT_EQ(invalid([&] { writer->writeArray("LGR1", Values{1.0F}); }), "Grid \"LGR1\" has already been written.");
    EXPECT_EQ(runtime([&] { writer->nextMiniStep(1.0F, false); }),
              "Grid \"\" has been specified but not written at ministep 0");
    writer->writeArray(Values{1.0F, 2.0F});
    writer->endMiniStep();
    const std::string tooLate = "An array specification cannot be added once the writer has                          "
                                "    progressed beyond the first ministep";
    EXPECT_EQ(runtime([&] { writer->addArraySpec("LGR2", local); }), tooLate);
    EXPECT_EQ(runtime([&] {
                  writer->writeArray(Values{1.0F, 2.0F});
              }),
              "You cannot call writeArray after calling endMiniStep and before calling nextMiniStep");
    EXPECT_EQ(runtime([&] { writer->addArraySpec("LGR1", local); }), tooLate);

    writer->close();
    EXPECT_EQ(runtime([&] { writer->writeArray("LGR2", Values{}); }),
              "Unable to write array:  the SummaryWriter must be opened first.");
    EXPECT_EQ(runtime([&] { writer->nextMiniStep(-1.0F, false); }),
              "Unable to progress to next ministep:                          the SummaryWriter must be opened first.");
    EXPECT_EQ(runtime([&] { writer->endMiniStep(); }),
              "Unable to end ministep:                          the SummaryWriter must be opened first.");
    EXPECT_THAT(data("S0001"), ElementsAre("SEQHDR 0", "MINISTEP 0", "PARAMS 0 0 1 2 1"));
}

TEST_F(SummaryWriterTest, TimesMustNotFallAndBeFinite)
{
    auto writer = makeWriter();
    writer->nextMiniStep(1.5F, false);
    const std::string tail = " days).  Time cannot be earlier than the previous time step (1.5 days).";
    EXPECT_EQ(invalid([&] { writer->nextMiniStep(1.25F, false); }), "Invalid time specified (1.25" + tail);
    EXPECT_EQ(invalid([&] { writer->nextMiniStep(notANumber, false); }), "Invalid time specified (nan" + tail);
    EXPECT_EQ(invalid([&] { writer->nextMiniStep(infinite, false); }), "Invalid time specified (inf" + tail);
    EXPECT_EQ(writer->nextMiniStep(1.5F, false), 0);
    EXPECT_EQ(invalid([&] { writer->openAtNextReportStep(-1.0F); }), "Elapsed time is invalid: -1.  Must be >= 0.0.");
    writer->close();
    EXPECT_EQ(invalid([&] { writer->openAtNextReportStep(notANumber); }),
              "Elapsed time is invalid: nan.  Must be >= 0.0.");
    EXPECT_EQ(invalid([&] { writer->openAtNextReportStep(1.25F); }), "Invalid time specified (1.25" + tail);
    EXPECT_EQ(writer->openAtNextReportStep(1.5F), 1);
}

TEST_F(SummaryWriterTest, DescriptionsAreCheckedBeforeAnythingChanges)
{
    const std::string nine = "NINECHARS", longName(73, 'N');
    const std::vector<std::pair<Vector, std::string>> cases{
        {{.keyword = nine, .name = longName, .units = nine},
         "Invalid keyword: NINECHARS.  Keyword names longer than 8 characters are not supported."},
        {{.keyword = "WOPR", .name = longName, .units = nine},
         "Invalid units: NINECHARS.  Units longer than 8 characters are not supported."},
        {{.keyword = "WOPR", .name = longName},
         "Invalid name: " + longName + ".  Names longer than 72 characters are not supported."}};
    auto writer = makeWriter();
    writer->addArraySpec("LGR1", local);
    for (const auto& [vector, text] : cases) {
        EXPECT_EQ(invalid([&, &wrong = vector] { writer->addArraySpec(VectorSpec{wrong}); }), text);
        EXPECT_EQ(invalid([&, &wrong = vector] { writer->updateArraySpec("LGR1", VectorSpec{wrong}); }), text);
    }
    VectorSpec unplaced{{.keyword = "LBPR"}};
    unplaced.placed = false;
    const std::string noPlace = "The LGR positional array must be specified for LGR: LGR";
    EXPECT_EQ(invalid([&] { writer->addArraySpec("LGR2", unplaced); }), noPlace + "2");
    EXPECT_EQ(invalid([&] { writer->updateArraySpec("LGR1", unplaced); }), noPlace + "1");
    EXPECT_EQ(invalid([&] { writer->updateArraySpec(local); }), "Grid \"\" has not been specified using addArraySpec");
    EXPECT_EQ(invalid([&] { writer->updateArraySpec("LGR1", field); }),
              "ArraySpec for grid \"LGR1\" is a different size       (2)       to the original added using addArraySpec"
              "       (1)");
    writer->addArraySpec(unplaced); // the global grid needs no places
    writer->nextMiniStep(0.0F, false);
    EXPECT_EQ(specLine("KEYWORDS"), "KEYWORDS [TIME] [YEARS] [LBPR] [LBPR]");
    EXPECT_EQ(specLine("NUMS"), "NUMS 0 0 0 7");
    EXPECT_EQ(specLine("NUMLX"), "NUMLX 0 0 0 1");
}

TEST_F(SummaryWriterTest, ClientsThatThrowOrChangeTheirMindLeaveTheStepIntact)
{
    struct Growing : VectorSpec
    {
        using VectorSpec::VectorSpec;

        int size() const override { return asked++ == 0 ? 1 : 2; }

        mutable int asked = 0;
    };

    struct Failing : Values
    {
        using Values::Values;

        float value(int i) const override { return i == 0 ? -1.0F : throw std::out_of_range("no value"); }
    };

    auto writer = makeWriter();
    writer->addArraySpec(VectorSpec{{.keyword = "FPR"}});
    writer->updateArraySpec(Growing{{.keyword = "FOPR"}, {.keyword = "FOPT"}});
    writer->addArraySpec("LGR1", VectorSpec{{.keyword = "LBPR"}, {.keyword = "LBPR"}});
    writer->writeArray(Values{1.0F});
    EXPECT_THROW(writer->writeArray("LGR1", Failing{0.0F, 0.0F}), std::out_of_range);
    writer->writeArray("LGR1", Values{2.0F, 3.0F});
    writer->close();
    EXPECT_EQ(specLine("KEYWORDS"), "KEYWORDS [TIME] [YEARS] [FOPR] [LBPR] [LBPR]");
    EXPECT_THAT(data("S0001"), ElementsAre("SEQHDR 0", "MINISTEP 0", "PARAMS 0 0 1 2 3"));
}

TEST_F(SummaryWriterTest, UpdatesWaitForTheNextSpecFile)
{
    auto writer = makeWriter();
    writer->addArraySpec(VectorSpec{{.keyword = "BPR", .num = 1, .x = 8}});
    writer->addArraySpec("LGR1", local);
    writer->nextMiniStep(1.0F, false);
    writer->updateArraySpec(VectorSpec{{.keyword = "BOSAT", .name = "W", .num = 2, .units = "U", .x = 9}});
    writer->updateArraySpec("LGR1", VectorSpec{{.keyword = "LBOSAT", .num = 3, .x = 9}});
    writer->nextMiniStep(1.0F, false);
    EXPECT_EQ(specLine("KEYWORDS"), "KEYWORDS [TIME] [YEARS] [BPR] [LBPR]");
    writer->nextMiniStep(1.0F, true);
    EXPECT_EQ(specLine("KEYWORDS"), "KEYWORDS [TIME] [YEARS] [BOSAT] [LBOSAT]");
    EXPECT_EQ(specLine("WGNAMES"), "WGNAMES [] [] [W] []");
    EXPECT_EQ(specLine("NUMS"), "NUMS 0 0 2 3");
    EXPECT_EQ(specLine("NUMLX"), "NUMLX 0 0 8 9"); // those of the global grid stay
}

TEST_F(SummaryWriterTest, SpecFileFollowsTheVectorsAndTheRun)
{
    auto writer = makeWriter();
    writer->addArraySpec(field);
    writer->endMiniStep(); // writes the spec file, but no record: vectors may still be added
    writer->addArraySpec("LGR1", local);
    EXPECT_EQ(specLine("LGRNAMES"), "");
    writer->nextMiniStep(0.0F, false);
    writer->writeArray(Values{1.0F, 2.0F});
    writer->writeArray("LGR1", Values{3.0F});
    writer->nextMiniStep(1.0F, false);
    EXPECT_EQ(specLine("LGRNAMES"), "LGRNAMES [LGR1]");
    EXPECT_EQ(specLine("RUNTIMEI").substr(0, 15), "RUNTIMEI 1 0 1 ");
    writer->close();
    writer->openAtNextReportStep(2.0F);
    writer->writeArray(Values{4.0F, 5.0F});
    writer.reset(); // the open step is lost
    EXPECT_EQ(specLine("RUNTIMEI").substr(0, 15), "RUNTIMEI 2 0 2 ");
    EXPECT_THAT(data("S0002"), ElementsAre("no file"));
}

TEST_F(SummaryWriterTest, UnknownUnitsAreAFaultOfTheSpecFileOnly)
{
    grid = GridSpec(1, 1, 1, static_cast<UnitSystemType::Enum>(5), GridSpec::Radial);
    writeINTEHEAD = true;
    auto writer = makeWriter();
    writer->addArraySpec(field);
    writer->writeArray(Values{1.0F, 2.0F});
    writer->close();
    EXPECT_THAT(data("S0001"), ElementsAre("SEQHDR 0", "MINISTEP 0", "PARAMS 0 0 1 2"));
    EXPECT_EQ(specLine("DIMENS"), "");
}

TEST_F(SummaryWriterTest, ClockStampsTheRun)
{
    params.noTimeStamps = false;
    params.unified = true;
    std::vector<LocalTime> moments{{2026, 11, 21, 13, 45, 59}, {2026, 12, 31, 23, 59, 58}};
    std::size_t calls = 0;
    auto writer = makeWriter([&] { return moments[std::min(calls++, moments.size() - 1)]; });
    writer->addArraySpec("", field);
    for (int step = 0; step < 2; ++step) {
        writer->writeArray("", Values{1.0F, 2.0F});
        writer->close();
        writer->openAtNextReportStep(1.0F);
    }
    EXPECT_EQ(specLine("RUNTIMEI").substr(0, 57), "RUNTIMEI 1 0 2 2026 11 21 13 45 59 2026 12 31 23 59 58 1 ");
    // ((((12 * 2026 + 12) * 31 + 31) * 24 + 23) * 60 + 59 - 23912576) * 60 + 58, as a signed word
    const std::string stamp = "SEQHDR " + std::to_string(static_cast<int>(0xD5DA8BFEU));
    EXPECT_THAT(data("UNSMRY"), ElementsAre(::testing::_, "MINISTEP 0", "PARAMS 0 0 1 2", ::testing::_, "MINISTEP 1",
                                            "PARAMS 1 0.00273785 1 2"));
    EXPECT_EQ(data("UNSMRY")[0], stamp);
    EXPECT_EQ(data("UNSMRY")[3], stamp);
}

TEST_F(SummaryWriterTest, RecordsAfterAClockFailureHaveTheirHeader)
{
    params.noTimeStamps = false;
    bool broken = false;
    auto writer = makeWriter([&]() -> LocalTime {
        if (broken)
            throw std::runtime_error("could not convert calendar time to local time");
        return {2026, 1, 1, 0, 0, 0};
    });
    writer->addArraySpec("", field);
    writer->writeArray("", Values{1.0F, 2.0F});
    broken = true;
    EXPECT_EQ(runtime([&] { writer->close(); }), "could not convert calendar time to local time");
    broken = false;
    writer->close();
    EXPECT_EQ(data("S0001").size(), 3U);
    EXPECT_EQ(data("S0001")[0].substr(0, 7), "SEQHDR ");
    EXPECT_NE(specLine("DIMENS"), "");
}

TEST_F(SummaryWriterTest, DateOfTheLastStepEndsWithTheCalendar)
{
    const auto dateAfter = [&](const Service::YearMonthDay& date, float days) {
        params.overwriteSpec = true;
        start = date;
        auto writer = makeWriter();
        writer->nextMiniStep(days, false);
        writer.reset();
        const std::string line = specLine("RUNTIMEI");
        const std::size_t from = std::string("RUNTIMEI 2 0 1 0 0 0 0 0 0 0 0 0 0 0 0 ").size();
        return line.substr(from, line.size() - from - std::string(" 0").size() * 32);
    };
    time = {12, 0, 0, 0};
    EXPECT_EQ(dateAfter({2024, 2, 28}, 0.49F), "28 2 2024");
    EXPECT_EQ(dateAfter({2024, 2, 28}, 0.5F), "29 2 2024");
    EXPECT_EQ(dateAfter({9999, 12, 31}, 0.25F), "31 12 9999");
    EXPECT_EQ(dateAfter({9999, 12, 31}, 0.5F), "0 0 0");
    EXPECT_EQ(dateAfter({2024, 2, 28}, std::numeric_limits<float>::max()), "0 0 0");
    EXPECT_EQ(dateAfter({}, 1.0F), "0 0 0");
}

TEST_F(SummaryWriterTest, NumbersIgnoreTheGlobalLocale)
{
    struct Grouped : std::numpunct<char>
    {
        char do_decimal_point() const override { return ','; }

        char do_thousands_sep() const override { return '.'; }

        std::string do_grouping() const override { return "\3"; }
    };

    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Grouped));
    formatted = true;
    auto writer = makeWriter();
    writer->addArraySpec(VectorSpec{{.keyword = "FPR", .num = 1234567}});
    writer->nextMiniStep(1234.5F, false);
    EXPECT_EQ(invalid([&] { writer->nextMiniStep(0.5F, false); }),
              "Invalid time specified (0.5 days).  Time cannot be earlier than the previous time step (1234.5 days).");
    writer->writeArray(Values{12345.5F});
    writer->close();
    std::locale::global(before);
    EXPECT_EQ(specLine("NUMS"), "NUMS 0 0 1234567");
    EXPECT_THAT(data("A0001"), ElementsAre("SEQHDR 0", "MINISTEP 0", "PARAMS 1234.5 3.37988 12345.5"));
}
