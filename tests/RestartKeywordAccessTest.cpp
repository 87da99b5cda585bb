#include <mrlio/ArrayInfo.h>
#include <mrlio/HiddenRestartProps.h>
#include <mrlio/MrlIOException.h>
#include <mrlio/RestartKeywordAccess.h>
#include <mrlio/service/Exception.h>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <vector>

using namespace Kvt::Mrl::MrlIO;
using Access = RestartKeywordAccess;
using Clock = Service::HourMinuteSecondMillisecond;
using Service::YearMonthDay;

namespace {

/// Words that tell their own positions.
std::vector<int> numbered(std::size_t count)
{
    std::vector<int> words(count);
    for (std::size_t i = 0; i < count; ++i)
        words[i] = static_cast<int>(i);
    return words;
}

std::vector<int> intehead(std::size_t count, std::initializer_list<std::pair<std::size_t, int>> words)
{
    std::vector<int> array(count, -2345);
    for (const auto& [position, word] : words)
        array.at(position) = word;
    return array;
}

std::string failure(const std::function<void()>& call)
{
    try {
        call();
    } catch (const RestartReaderException& fault) {
        return fault.what();
    }
    return "no failure";
}

std::vector<double> doubhead(double start, double now)
{
    std::vector<double> items(162, 0.0);
    items[160] = start;
    items[161] = now;
    return items;
}

} // namespace

TEST(RestartKeywordAccess, EachWordNeedsAnArrayThatReachesIt)
{
    const std::string tooShort = "Number of values in RESTART/INIT keyword is less than expected";

    struct Case
    {
        int position;
        int (*get)(const std::vector<int>&);
        std::string refusal;
        int value; // of the word that holds its own position
    };

    const auto nz = [](const std::vector<int>& array) {
        int x = 0, y = 0, z = 0;
        Access::getINTEHEADGridDims(array, x, y, z);
        EXPECT_EQ(x, 8);
        EXPECT_EQ(y, 9);
        return z;
    };
    const auto units = [](const std::vector<int>& array) -> int { return Access::getINTEHEADUnitSystem(array); };
    const auto phases = [](const std::vector<int>& array) -> int { return Access::getINTEHEADPhases(array); };
    const Case cases[] = {{2, units, "INTEHEAD keyword contains less than 3 values", UnitSystemType::FIELD},
                          {10, nz, "INTEHEAD keyword contains less than 11 values", 10},
                          {11, Access::getINTEHEADActiveCells, tooShort, 11},
                          {14, phases, "INTEHEAD keyword contains less than 15 values", 7},
                          {16, Access::getINTEHEAD_NWELL, tooShort, 16},
                          {17, Access::getINTEHEAD_NCWMA, tooShort, 17},
                          {24, Access::getINTEHEAD_NIWEL, tooShort, 24},
                          {27, Access::getINTEHEAD_NZWEL, tooShort, 27},
                          {32, Access::getINTEHEAD_NICON, tooShort, 32},
                          {251, Access::getINTEHEAD_NRIVER, tooShort, 251},
                          {0, Access::getITIMEIndex, tooShort, 0},
                          {0, Access::getSEQNUM, tooShort, 0}};
    for (const Case& c : cases) {
        const auto position = static_cast<std::size_t>(c.position);
        EXPECT_EQ(c.get(numbered(position + 1)), c.value) << c.position;
        EXPECT_EQ(failure([&] { c.get(numbered(position)); }), c.refusal) << c.position;
    }

    std::vector<bool> logihead(15);
    logihead[14] = true;
    EXPECT_TRUE(Access::getLOGIHEADIsDualPorosity(logihead));
    logihead.pop_back();
    EXPECT_EQ(failure([&] { Access::getLOGIHEADIsDualPorosity(logihead); }), tooShort);
    EXPECT_EQ(failure([] { Access::getTIME({}); }), tooShort);
    EXPECT_EQ(failure([] { Access::getLGRNAME({}); }), tooShort);
}

TEST(RestartKeywordAccess, UnknownUnitsAndPhasesGetTheInvalidValue)
{
    for (const int word : {0, 5, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        EXPECT_EQ(Access::getINTEHEADUnitSystem({0, 0, word}), 4) << word;
    for (const int word : {0, 8, -2345})
        EXPECT_EQ(Access::getINTEHEADPhases(intehead(15, {{14, word}})), 7) << word;
    EXPECT_EQ(Access::getINTEHEADUnitSystem({0, 0, 4}), UnitSystemType::PVT_M);
    EXPECT_EQ(Access::getINTEHEADPhases(intehead(15, {{14, 7}})), PhaseType::OIL_WATER_GAS);
}

TEST(RestartKeywordAccess, DatesAreCheckedByTheCalendar)
{
    YearMonthDay date;
    Access::getINTEHEADDate(intehead(67, {{64, 29}, {65, 2}, {66, 2024}}), date);
    EXPECT_EQ(date, YearMonthDay(2024, 2, 29));
    EXPECT_EQ(failure([&] {
                  Access::getINTEHEADDate(intehead(67, {{64, 29}, {65, 2}, {66, 2023}}), date);
              }),
              "Cannot get the date from INTEHEAD keyword.");
    EXPECT_EQ(failure([&] { Access::getINTEHEADDate(numbered(66), date); }),
              "INTEHEAD keyword contains less than 67 values");

    EXPECT_FALSE(Access::getITIMEDate({1, 2, 3}, date));
    EXPECT_THROW(Access::getITIMEDate({1, -2345, -2345, -2345}, date), Service::ServiceException);
    EXPECT_EQ(date, YearMonthDay(2024, 2, 29)) << "touched by a refusal";
    EXPECT_TRUE(Access::getITIMEDate({7, 31, 12, 1999}, date));
    EXPECT_EQ(date, YearMonthDay(1999, 12, 31));
}

TEST(RestartKeywordAccess, ClockWordsOfInteheadAndItime)
{
    struct Case
    {
        int hour, minute, microseconds;
        bool inIntehead, inItime;
    };

    const Case cases[] = {{23, 59, 59999999, true, true},
                          {24, 0, 0, false, false},
                          {0, 60, 0, false, true},
                          {0, 0, 60000000, false, false},
                          {-2345, -2345, -2345, false, false},
                          {0, 0, -1, false, false}};
    for (const Case& c : cases) {
        Clock time;
        const auto header = intehead(411, {{206, c.hour}, {207, c.minute}, {410, c.microseconds}});
        EXPECT_EQ(Access::getINTEHEADTime(header, time), c.inIntehead) << c.hour << ':' << c.minute;
        const auto itime = intehead(13, {{10, c.hour}, {11, c.minute}, {12, c.microseconds}});
        if (c.inItime)
            EXPECT_TRUE(Access::getITIMETime(itime, time)) << c.hour << ':' << c.minute;
        else
            EXPECT_THROW(Access::getITIMETime(itime, time), Service::ServiceException) << c.hour << ':' << c.minute;
    }
    Clock time(1, 2, 3, 4);
    EXPECT_FALSE(Access::getINTEHEADTime(intehead(410, {{206, 5}, {207, 6}}), time));
    EXPECT_FALSE(Access::getITIMETime(intehead(12, {{10, 5}, {11, 6}}), time));
    EXPECT_EQ(time, Clock(1, 2, 3, 4)) << "touched by a refusal";
    EXPECT_TRUE(Access::getITIMETime(intehead(13, {{10, 5}, {11, 6}, {12, 7008999}}), time));
    EXPECT_EQ(time, Clock(5, 6, 7, 8));
}

TEST(RestartKeywordAccess, TimeOfDayFromDoubhead)
{
    constexpr double day = 86400.0;
    constexpr double infinity = std::numeric_limits<double>::infinity();

    struct Case
    {
        double start, now;
        bool lab;
        Clock expected;
    };

    const Case sound[] = {{0.0, 0.5, false, {12, 0, 0, 0}},
                          {0.0, 737000.0 + 45296.007 / day, false, {12, 34, 56, 7}},
                          {0.0, 59.9999999 / day, false, {0, 1, 0, 0}},
                          {100.0, 102.5, true, {2, 30, 0, 0}},
                          {0.0, 23.999999999, true, {23, 59, 59, 999}}};
    for (const Case& c : sound) {
        Clock time(1, 1, 1, 1);
        Access::getDOUBHEADTime(doubhead(c.start, c.now), c.lab, time);
        EXPECT_EQ(time, c.expected) << c.now << ' ' << c.lab;
    }

    const Case refused[] = {{0, 24.0, true, {}},
                            {10, 0, true, {}},
                            {1e300, 0, true, {}},
                            {0, infinity, true, {}},
                            {infinity, infinity, true, {}},
                            {0, -0.3, false, {}},
                            {0, infinity, false, {}},
                            {0, 1e12, false, {}},
                            {0, std::nan(""), false, {}},
                            {0, std::nan(""), true, {}}};
    for (const Case& c : refused) {
        Clock time;
        EXPECT_THROW(Access::getDOUBHEADTime(doubhead(c.start, c.now), c.lab, time), Service::ServiceException)
            << c.start << ' ' << c.now << ' ' << c.lab;
    }

    Clock time(1, 2, 3, 4);
    Access::getDOUBHEADTime(std::vector<double>(161, 0.5), false, time);
    EXPECT_EQ(time, Clock(1, 2, 3, 4));
}

TEST(HiddenRestartProps, KnowsItsNamesToTheLetter)
{
    EXPECT_EQ(HiddenRestartProps::hiddenGridProps().size(), 52u) << "a name twice, or one missing";
    EXPECT_FALSE(HiddenRestartProps::isNotAPropertyArray(""));
    EXPECT_TRUE(HiddenRestartProps::isNotAPropertyArray("ICAQNUM"));
    for (const char* property : {"PRESSURE", "PORV", "icaqnum", "ICAQNU", "SOMETHIN"})
        EXPECT_FALSE(HiddenRestartProps::isNotAPropertyArray(property)) << property;
}

TEST(ArrayInfo, NothingWorthShowing)
{
    struct Case
    {
        ValueType::Enum type;
        int size;
        double min, max;
        bool isNull;
    };

    const Case cases[] = {{ValueType::REAL, 1, -1e20, -1e20, true}, {ValueType::DOUB, 1, -1e20, -9.9999e19, false},
                          {ValueType::REAL, 1, -1e20, 0, false},    {ValueType::INTE, 1, -999, -999, true},
                          {ValueType::INTE, 1, -999, 1, false},     {ValueType::INTE, 1, -1e20, -1e20, false},
                          {ValueType::LOGI, 1, -999, -999, false},  {ValueType::CHAR, 1, 0, 0, false},
                          {ValueType::CHAR, 0, 0, 0, true},         {ValueType::REAL, 0, 1, 2, true}};
    for (const Case& c : cases) {
        ArrayInfo info;
        info.setType(c.type);
        info.setSize(c.size);
        info.setMin(c.min);
        info.setMax(c.max);
        EXPECT_EQ(info.isNull(), c.isNull) << c.type << ' ' << c.min << ' ' << c.max;
    }
}
