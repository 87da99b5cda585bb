// The header arrays with which grids start in init and restart files, the clock behind them, and the index's leader.

#include "support/GridWriterHelpers.h"
#include "support/KeywordFileBuilder.h"

#include "initrestart/write/HeaderArrays.h"
#include "initrestart/write/IndexLeader.h"

#include <mrlio/service/Exception.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

using namespace MrlIOTest;
using namespace Kvt::Mrl::MrlIO;
using ::testing::HasSubstr;

namespace {

constexpr int unset = -2345;

struct Entries : HeaderEntries
{
    void getLogicalHeader(const std::string&, std::map<int, bool>& values) const override { values = logicals; }

    void getDoubleHeader(const std::string&, std::map<int, double>& values) const override { values = doubles; }

    std::map<int, bool> logicals;
    std::map<int, double> doubles;
};

/// Those words of an array that differ from what an empty one holds.
template <class T>
std::map<int, T> setWords(const std::vector<T>& words, T empty)
{
    std::map<int, T> set;
    for (std::size_t i = 0; i < words.size(); ++i)
        if (words[i] != empty)
            set[static_cast<int>(i)] = words[i];
    return set;
}

using Words = std::map<int, int>;
using Doubles = std::map<int, double>;

class RestartHeadersTest : public ::testing::Test
{
protected:
    RestartHeadersTest()
    {
        clock.setStart();
        source.info = &entries;
    }

    Words integers() const { return setWords(makeGridHeaders(source).integers, unset); }

    Doubles doubles() const { return setWords(makeGridHeaders(source).doubles, 0.0); }

    std::string refusal() const
    {
        return textOf<std::runtime_error>([&] { makeGridHeaders(source); });
    }

    RestartClock clock{{2026, 2, 28}, {22, 30, 0, 0}};
    GridSpec grid{2, 3, 4, UnitSystemType::METRIC, GridSpec::Radial};
    GridSpec otherGrid = grid;
    Entries entries;
    HeaderSource source{.gridName = "", .grid = &grid, .clock = clock};
};

} // namespace

TEST_F(RestartHeadersTest, GridTimeAndWellsFillTheirWords)
{
    clock.setStep(7, 1.5 / 24 + 61.25 / 86400);
    source.layout = {.activeCount = 40, .dualPorosity = true};
    source.wells = {.wells = 3, .segmentedWells = 1, .connections = 6, .segments = 20, .branches = 2, .namePieces = 9};
    source.simulatorValue = 600;
    Words expected{{2, 1},    {8, 2},   {9, 3},   {10, 8},  {11, 40}, {13, 4},    {16, 3},       {17, 6},
                   {24, 94},  {27, 9},  {32, 19}, {64, 1},  {65, 3},  {66, 2026}, {94, 600},     {175, 1},
                   {176, 20}, {177, 2}, {178, 4}, {180, 5}, {206, 0}, {207, 1},   {410, 1250000}};
    const GridHeaders headers = makeGridHeaders(source);
    EXPECT_EQ(headers.integers.size(), 411U);
    EXPECT_EQ(setWords(headers.integers, unset), expected);
    EXPECT_EQ(headers.logicals.size(), 15U);
    EXPECT_EQ(setWords(headers.logicals, 0), (Words{{14, 1}}));
    EXPECT_EQ(headers.doubles, std::vector<double>(162)) << "an init file tells no times";

    clock.setStep(0, 1.5 / 24 + 61.25 / 86400);
    for (const int wellCount : {16, 17, 175})
        expected.erase(wellCount);
    EXPECT_EQ(integers(), expected) << "step 0 counts no wells";
}

TEST_F(RestartHeadersTest, WordsOfTheLibraryTakeNoOtherValue)
{
    for (const int index : {2, 8, 9, 10, 11, 13, 24, 27, 32, 64, 65, 66, 94, 176, 177, 178, 180, 206, 207, 410}) {
        entries.integers = {{index, 77}};
        EXPECT_THAT(refusal(), HasSubstr("' to header[" + std::to_string(index) + "] that is already assigned: 77"));
    }
    entries.integers = {{8, 77}};
    EXPECT_EQ(refusal(), "Attempt to re-assign '2' to header[8] that is already assigned: 77");
    entries.integers = {{8, unset}, {16, 5}, {17, 6}, {175, 7}}; // step 0 leaves the last three free
    EXPECT_EQ(integers()[175], 7);
    clock.setStep(1, 0.0);
    EXPECT_THAT(refusal(), HasSubstr("header[16]"));

    entries.integers.clear();
    entries.logicals = {{14, true}};
    EXPECT_EQ(refusal(), "Attempt to re-assign '0' to header[14] that is already assigned: 1");
    entries.logicals = {{14, false}, {3, true}};
    entries.doubles = {{0, 1.5}, {161, 2.5}};
    EXPECT_EQ(setWords(makeGridHeaders(source).logicals, 0), (Words{{3, 1}}));
    EXPECT_EQ(doubles(), entries.doubles);
    source.isRestart = true;
    EXPECT_EQ(refusal(), "Attempt to re-assign '0' to header[0] that is already assigned: 1.5");
}

TEST_F(RestartHeadersTest, EntriesBehindTheEndMakeAnArrayLonger)
{
    entries.integers = {{500, 1}};
    entries.logicals = {{15, true}};
    entries.doubles = {{4194303, 2.5}};
    const GridHeaders headers = makeGridHeaders(source);
    EXPECT_EQ(headers.integers.size(), 501U);
    EXPECT_EQ(headers.integers[499], unset);
    EXPECT_EQ(headers.logicals.size(), 16U);
    EXPECT_EQ(headers.doubles.size(), 4194304U);
    for (const int index : {-1, std::numeric_limits<int>::min(), 4194304, std::numeric_limits<int>::max()}) {
        entries.integers = {{0, 1}, {index, 1}};
        EXPECT_THROW(makeGridHeaders(source), std::invalid_argument) << index;
    }
}

TEST_F(RestartHeadersTest, GridsThatHaveNoHeaderAreRefused)
{
    source.grid = nullptr;
    source.gridName = "LGR1";
    EXPECT_EQ(refusal(), "Grid spec not found for grid: \"LGR1\".");
    source.grid = &otherGrid;
    otherGrid = GridSpec(1, 1, 1, static_cast<UnitSystemType::Enum>(7), GridSpec::Radial);
    EXPECT_EQ(refusal(), "Invalid grid units: 7");
    otherGrid = GridSpec(1, 1, 1 << 30, UnitSystemType::LAB, GridSpec::Radial);
    EXPECT_EQ(integers()[10], 1 << 30);
    source.layout.dualPorosity = true;
    EXPECT_THROW(makeGridHeaders(source), std::invalid_argument);
}

TEST_F(RestartHeadersTest, RestartDoublesCountDaysOrHours)
{
    source.isRestart = true;
    clock.setStep(3, 2.25);
    const double start = 740056 + 0.9375; // 2024 * 365.25 + 1 + 2 * 365 + 31 + 1 + 27 days, and 22.5 hours
    EXPECT_EQ(doubles(), (Doubles{{0, 2.25}, {160, start}, {161, start + 2.25}}));
    otherGrid = GridSpec(1, 1, 1, UnitSystemType::LAB, GridSpec::Radial);
    source.grid = &otherGrid;
    EXPECT_EQ(doubles(), (Doubles{{0, 54.0}, {160, 24 * start}, {161, 24 * (start + 2.25)}}));

    EXPECT_EQ(dayNumber({2000, 12, 31}), 730501.0 + 364);
    EXPECT_EQ(dayNumber({2001, 1, 31}), 730501.0 + 365 + 30);
    EXPECT_EQ(dayNumber({2001, 2, 1}), 730501.0 + 365 + 32) << "the day that leap years lack here";
    EXPECT_EQ(dayNumber({0, 1, 1}), 1.0);
    EXPECT_THROW(dayNumber({}), std::invalid_argument);
}

TEST(RestartClock, RefusesStepsAndTimesBeforeItMoves)
{
    RestartClock clock({2026, 1, 1}, {});
    clock.setStep(29999, 1.0);
    const Service::Time time = clock.currentTime();
    for (const int step : {-1, 30000})
        EXPECT_EQ(textOf<std::invalid_argument>([&] { clock.setStep(step, 0.0); }),
                  "Report step is invalid: " + std::to_string(step) + ".  Must be in range 0 <= report step <= 29999.");
    EXPECT_EQ(textOf<std::invalid_argument>([&] { clock.setStep(1, -0.5); }),
              "Elapsed time is invalid: -0.5.  Must be >= 0.0.");
    // From the calendar's end on, whatever an integer of milliseconds could hold.
    for (const double days : {12e6, 106751991168.0, 1e308, HUGE_VAL, std::nan("")})
        EXPECT_THROW(clock.setStep(1, days), std::invalid_argument) << days;
    EXPECT_EQ(clock.reportStep(), 29999);
    EXPECT_EQ(clock.elapsedDays(), 1.0);
    EXPECT_EQ(clock.currentTime(), time);
    EXPECT_THROW(RestartClock({}, {}).setStart(), Service::ServiceException);
    EXPECT_THROW(RestartClock({(1L << 32) + 2026, 1, 1}, {}).setStart(), Service::ServiceException);
}

TEST(RestartClock, TakesTheNearestMillisecond)
{
    RestartClock clock({2024, 2, 29}, {23, 59, 59, 999});
    Service::Time expected(2024, 2, 29, 23, 59, 59, 999);
    for (int tenths = 0; tenths < 40; ++tenths, expected += Service::Time::DAY / 10) {
        clock.setStep(1, tenths * 0.1);
        EXPECT_EQ(clock.currentTime(), expected) << tenths;
    }
    EXPECT_EQ(microsecondsOfMinute(clock.currentTime()), 59999000);
}

TEST_F(RestartHeadersTest, RecordsOfLocalGridsAndOfTheIndexLeader)
{
    clock.setStep(12, 0.5);
    KeywordFileBuilder expected;
    expected.strings("LGR", 9, {"LGR_OF_NI"}).keyword("LGRHEADI", std::vector<int>(45));
    expected.logicals("LGRHEADQ", std::vector<int>(5)).keyword("LGRHEADD", std::vector<double>(5));
    expected.keyword("INTEHEAD", {1}).logicals("LOGIHEAD", {0, 1}).keyword("DOUBHEAD", {2.0});
    expected.keyword("INTEHEAD", {1, 2}).keyword("TIME", {12.0});
    expected.keyword("ITIME", {12, 1, 3, 2026, unset, 0, 1, unset, unset, unset, 10, 30, 0});

    std::ostringstream out;
    KeywordWriter writer(out, false, Service::FileName("CASE.UNRST"));
    writeLgrBlock(writer, "LGR_OF_NI");
    writeGridHeaders(writer, {{1}, {0, 1}, {2.0}});
    writeIndexHeader(writer, {1, 2});
    writeIndexTime(writer, clock, UnitSystemType::LAB, true);
    EXPECT_EQ(textOf<std::runtime_error>([&] { writeIndexTime(writer, clock, noUnitSystem, false); }),
              "Unit system has not been set when converting time.");
    EXPECT_EQ(out.str(), expected.bytes());
}
