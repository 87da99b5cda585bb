#include <mrlio/service/Exception.h>
#include <mrlio/service/HourMinuteSecondMillisecond.h>
#include <mrlio/service/Time.h>
#include <mrlio/service/YearMonthDay.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>

using namespace Kvt::Mrl::Core::Service;

TEST(YearMonthDay, RefusesDaysThatDoNotExist)
{
    struct Case
    {
        long year;
        int month;
        int day;
        bool exists;
    };

    const Case cases[] = {{2000, 2, 29, true},  {1900, 2, 29, false},    {2024, 2, 29, true},     {2023, 2, 29, false},
                          {2023, 4, 30, true},  {2023, 4, 31, false},    {2023, 12, 31, true},    {2023, 13, 1, false},
                          {2023, 0, 1, false},  {2023, 1, 0, false},     {2023, 1, 32, false},    {-1, 1, 1, false},
                          {2023, -1, 1, false}, {2023, 65537, 1, false}, {2023, 1, 65537, false}, {0, 1, 1, true}};
    for (const Case& c : cases) {
        if (c.exists)
            EXPECT_NO_THROW(YearMonthDay(c.year, c.month, c.day)) << c.year << '-' << c.month << '-' << c.day;
        else
            EXPECT_THROW(YearMonthDay(c.year, c.month, c.day), ServiceException)
                << c.year << '-' << c.month << '-' << c.day;
    }
    EXPECT_EQ(YearMonthDay().Year(), 0);
    EXPECT_LT(YearMonthDay(1999, 12, 31), YearMonthDay(2000, 1, 1));
    EXPECT_LT(YearMonthDay(2000, 1, 31), YearMonthDay(2000, 2, 1));
}

TEST(HourMinuteSecondMillisecond, NamesTheFirstNumberThatIsOutOfRange)
{
    EXPECT_NO_THROW(HourMinuteSecondMillisecond(23, 59, 59, 999));
    EXPECT_EQ(HourMinuteSecondMillisecond(0, 75, 0, 0).Minute(), 75) << "only negative minutes are refused";

    struct Case
    {
        int hour, minute, second, millisecond;
        const char* refused;
    };

    const Case cases[] = {{24, -1, 0, 0, "hour"},      {-1, 0, 0, 0, "hour"},   {0, -1, 60, 0, "minute"},
                          {0, 0, 60, -1, "second"},    {0, 0, -1, 0, "second"}, {0, 0, 0, 1000, "millisecond"},
                          {0, 0, 0, -1, "millisecond"}};
    for (const Case& c : cases) {
        try {
            HourMinuteSecondMillisecond(c.hour, c.minute, c.second, c.millisecond);
            ADD_FAILURE() << c.refused;
        } catch (const ServiceException& refusal) {
            EXPECT_EQ(refusal.what(), "HourMinuteSecondMillisecond: invalid " + std::string(c.refused) + " value");
        }
    }
    EXPECT_EQ(HourMinuteSecondMillisecond(), HourMinuteSecondMillisecond(0, 0, 0, 0));
}

TEST(Time, ArithmeticCrossesDaysMonthsAndTheEpoch)
{
    Time time(2024, 2, 28, 23, 59, 59, 999);
    time += Time::MILLISECOND;
    EXPECT_EQ(time, Time(2024, 2, 29, 0, 0, 0, 0));
    time += 366 * Time::DAY - Time::HOUR;
    EXPECT_EQ(time, Time(2025, 2, 28, 23, 0, 0, 0));

    Time early(1970, 1, 1, 0, 0, 0, 0);
    early += -1;
    EXPECT_EQ(early.GetYear(), 1969);
    EXPECT_EQ(early.GetMonth(), 12);
    EXPECT_EQ(early.GetDay(), 31);
    EXPECT_EQ(early.GetHour(), 23);
    EXPECT_EQ(early.GetMinute(), 59);
    EXPECT_EQ(early.GetSecond(), 59);
    EXPECT_EQ(early.GetMillisecond(), 999);
}

TEST(Time, UndefinedIsBeforeAllAndStaysSo)
{
    Time undefined;
    EXPECT_FALSE(undefined.IsDef() || Time::MinTime().IsDef());
    undefined += Time::DAY;
    EXPECT_FALSE(undefined.IsDef());
    EXPECT_EQ(undefined.GetYear() + undefined.GetMonth() + undefined.GetMillisecond(), 0);
    EXPECT_LT(Time::MinTime(), Time(0, 1, 1, 0, 0, 0, 0));

    for (const std::int64_t step :
         {std::numeric_limits<std::int64_t>::max(), 40000 * 365 * Time::DAY, -2100 * 366 * Time::DAY}) {
        Time time(2020, 1, 1, 0, 0, 0, 0);
        time += step;
        EXPECT_FALSE(time.IsDef()) << step;
    }
    EXPECT_THROW(Time(2023, 2, 29, 0, 0, 0, 0), ServiceException);
    EXPECT_THROW(Time(2023, 2, 28, 24, 0, 0, 0), ServiceException);
    EXPECT_THROW(Time(40000, 1, 1, 0, 0, 0, 0), ServiceException);
}
