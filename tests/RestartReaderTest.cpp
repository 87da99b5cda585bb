#include "support/ReaderCase.h"

#include <mrlio/InitReader.h>
#include <mrlio/MrlIOException.h>
#include <mrlio/RestartReader.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace Kvt::Mrl::MrlIO;
using namespace MrlIOTest;
using Service::HourMinuteSecondMillisecond;
using Service::YearMonthDay;
using testing::ElementsAre;
using Files = std::vector<std::string>;
using Floats = std::vector<float>;

constexpr int hugeStep = 2000000000;

std::vector<int> validIndices(const RestartReader& reader, int from, int to)
{
    std::vector<int> indices;
    for (int i = from; i <= to; ++i) {
        if (reader.isValidIndex(i))
            indices.push_back(i);
    }
    return indices;
}

Floats pressure(RestartReader& reader, int index)
{
    Floats values;
    const IRawDataAccess* const access = reader.rawData(index);
    if (access == nullptr || !access->getAnyArray("PRESSURE", values))
        return {-1};
    return values;
}

void expectSameCase(RestartReader& read, RestartReader& expected)
{
    EXPECT_EQ(read.minIndex(), expected.minIndex());
    ASSERT_EQ(read.maxIndex(), expected.maxIndex());
    EXPECT_EQ(read.INTEHEADData(), expected.INTEHEADData());
    for (int i = expected.minIndex(); i <= expected.maxIndex(); ++i) {
        SCOPED_TRACE(i);
        ASSERT_EQ(read.isValidIndex(i), expected.isValidIndex(i));
        EXPECT_EQ(read.date(i), expected.date(i));
        EXPECT_EQ(read.time(i), expected.time(i));
        EXPECT_EQ(pressure(read, i), pressure(expected, i));
        if (read.rawData(i) == nullptr)
            continue;
        for (const char* lgr : {"", "A", "B"})
            expectSameTable(read.rawData(i)->arrays(lgr), expected.rawData(i)->arrays(lgr));
    }
    EXPECT_EQ(read.LGRs(), expected.LGRs());
}

class RestartReaderFixture : public testing::TestWithParam<KeywordFileBuilder::Form>
{
protected:
    static bool formatted() { return GetParam() == KeywordFileBuilder::Text; }

    std::string unified() const { return dir_.file(formatted() ? "CASE.FUNRST" : "CASE.UNRST"); }

    std::string split(int number) const
    {
        return dir_.file((formatted() ? "CASE.F000" : "CASE.X000") + std::to_string(number));
    }

    std::string specFile() const { return dir_.file(formatted() ? "CASE.FRSSPEC" : "CASE.RSSPEC"); }

    std::shared_ptr<RestartReader> read(const Files& files, const std::string& spec = {},
                                        std::shared_ptr<InitReader> init = {},
                                        const ICellActivitiesSource* source = nullptr) const
    {
        auto reader = RestartReader::create();
        reader->read(files, formatted(), spec, std::move(init), source);
        return reader;
    }

    /// Writes data and index of a unified case.
    void write(ReaderCase& files) const
    {
        files.endSection();
        files.data.writeTo(unified());
        files.index.writeTo(specFile());
    }

    std::shared_ptr<InitReader> initReader(const Floats& porv, const GridHead& head = {}) const
    {
        const std::string file = dir_.file(formatted() ? "CASE.FINIT" : "CASE.INIT");
        ReaderCase(GetParam()).heads(head).solution("PORV", porv).data.writeTo(file);
        auto reader = InitReader::create();
        reader->read(file, formatted(), "", "");
        return reader;
    }

    TempDir dir_;
};

INSTANTIATE_TEST_SUITE_P(Forms, RestartReaderFixture,
                         testing::Values(KeywordFileBuilder::Binary, KeywordFileBuilder::Text));

TEST_P(RestartReaderFixture, WritesAnIndexThatEqualsTheScanOfAUnifiedFile)
{
    const std::vector<std::vector<int>> sequences{{0, 10, 20}, {3, 3}, {4, -1, 4, -1}, {-1, 5}};
    for (const std::vector<int>& numbers : sequences) {
        SCOPED_TRACE(testing::PrintToString(numbers));
        std::filesystem::remove(specFile());
        ReaderCase files(GetParam());
        int day = 1;
        for (const int number : numbers) {
            // Older headers have the time of day in DOUBHEAD only.
            files.step(number, {.day = ++day, .words = day == 2 ? 411U : 100U}).solution("PRESSURE", {0.1F, -2.5F});
            files.lgr("B", {.nx = 1}).solution("SWAT", {0.5F}).endLgr();
            files.lgr("A", {.nx = 3}).solution("SWAT", {0.25F}).endLgr();
            files.solution("SGAS", {1.5F});
        }
        files.data.writeTo(unified());
        const auto scanned = read({unified()}, specFile());
        EXPECT_EQ(scanned->specFile(), specFile());
        EXPECT_FALSE(scanned->specFileExists());
        const auto indexed = read({unified()}, specFile());
        EXPECT_TRUE(indexed->specFileExists());
        expectSameCase(*indexed, *scanned);
        EXPECT_THAT(indexed->LGRs(), ElementsAre("B", "A"));
    }
}

TEST_P(RestartReaderFixture, WritesAnIndexThatEqualsTheScanOfSeparateFiles)
{
    // Without a step number inside, the name tells it.
    for (const int number : {3, 7})
        ReaderCase(GetParam())
            .heads({.day = number})
            .solution("PRESSURE", {static_cast<float>(number)})
            .data.writeTo(split(number));
    const auto scanned = read({split(3), split(7)}, specFile());
    const auto indexed = read({split(3), split(7)}, specFile());
    ASSERT_TRUE(indexed->specFileExists());
    expectSameCase(*indexed, *scanned);
    EXPECT_EQ(validIndices(*indexed, -1, 9), (std::vector{3, 7}));
    EXPECT_EQ(pressure(*indexed, 7), Floats{7});
    EXPECT_EQ(indexed->restartFile(7), split(7));
    EXPECT_EQ(indexed->caseName(), "CASE");

    const auto one = read({split(3)}, specFile());
    EXPECT_TRUE(one->isValidIndex(7));
    EXPECT_EQ(one->rawData(7), nullptr) << "its file isn't among those given";
    EXPECT_EQ(one->restartFile(7), "");
}

TEST_P(RestartReaderFixture, FindsInTheStepWhatTheIndexLacks)
{
    ReaderCase files(GetParam());
    files.step(0, {.day = 1}).solution("PRESSURE", {1, 2, 3});
    files.lgr("A", {.nx = 3, .active = 12}).solution("PRESSURE", {4}).endLgr();
    files.step(1, {.nx = 9, .day = 2, .words = 100}).solution("PRESSURE", {5});
    files.step(hugeStep, {.nx = 9, .day = 3}).solution("PRESSURE", {6});
    write(files);
    const auto reader = read({unified()}, specFile());
    EXPECT_EQ(reader->date(hugeStep), YearMonthDay(2020, 5, 3));
    EXPECT_EQ(reader->date(1), YearMonthDay(2020, 5, 2));
    EXPECT_EQ(reader->time(1), HourMinuteSecondMillisecond(12, 0, 0, 0)) << "from DOUBHEAD";
    EXPECT_EQ(reader->time(0), HourMinuteSecondMillisecond(6, 30, 15, 250));
    EXPECT_EQ(reader->numCells(), 8) << "the first step stands for all";
    EXPECT_EQ(reader->numCells("A"), 12);
    EXPECT_EQ(reader->unitSystem(), UnitSystemType::FIELD);
    EXPECT_EQ(reader->date(5), YearMonthDay());
    EXPECT_EQ(reader->rawData(5), nullptr);
    EXPECT_EQ(reader->propertyData(hugeStep + 1), nullptr);
}

TEST_P(RestartReaderFixture, ReadsOnlyTheHeadersThatAreAskedFor)
{
    ReaderCase files(GetParam());
    files.step(1).solution("PRESSURE", {1});
    // A DOUBHEAD that isn't one, of a local grid, whose time of day nobody can ask for.
    files.data.keyword("LGR", {"NEAR"}).keyword("DOUBHEAD", {1});
    files.lgr("NEAR", {.nx = 3}).solution("PRESSURE", {2}).endLgr();
    files.index.writeTo(specFile());
    files.data.writeTo(unified());
    const auto reader = read({unified()}, specFile());
    EXPECT_EQ(reader->numCells("NEAR"), 12);
    EXPECT_EQ(reader->date(1), YearMonthDay(2020, 5, 1));
}

TEST_P(RestartReaderFixture, FindsTheCopyOfASeparateStepThatTheIndexMeans)
{
    // A step that was written again stands behind its first copy.
    ReaderCase first(GetParam());
    first.step(1, {.nx = 9, .day = 8}).solution("PRESSURE", {1});
    ReaderCase files(GetParam());
    files.data.raw(first.data.bytes());
    files.step(1, {.day = 9}).solution("PRESSURE", {2}).endSection();
    files.data.writeTo(split(1));
    files.index.writeTo(specFile());
    const auto reader = read({split(1)}, specFile());
    EXPECT_EQ(pressure(*reader, 1), Floats{2});
    EXPECT_EQ(reader->date(1), YearMonthDay(2020, 5, 9));
    EXPECT_EQ(reader->numCells(), 8);
}

TEST_P(RestartReaderFixture, TakesStepsThatWereWrittenTwiceFromTheirOwnFiles)
{
    ReaderCase first(GetParam());
    first.step(1, {.day = 1}).solution("PRESSURE", {1}).endSection().data.writeTo(split(1));
    ReaderCase second(GetParam());
    second.step(2, {.day = 2}).solution("PRESSURE", {2}).step(2, {.day = 3}).solution("PRESSURE", {3}).endSection();
    second.data.writeTo(split(2));
    KeywordFileBuilder(GetParam()).raw(first.index.bytes()).raw(second.index.bytes()).writeTo(specFile());
    for (const std::string& spec : {specFile(), std::string()}) {
        const auto reader = read({split(1), split(2)}, spec);
        ASSERT_EQ(reader->maxIndex(), 2) << "known by their places now";
        for (int place = 0; place < 3; ++place) {
            EXPECT_EQ(pressure(*reader, place), Floats{static_cast<float>(place + 1)});
            EXPECT_EQ(reader->date(place), YearMonthDay(2020, 5, place + 1));
        }
    }
}

TEST_P(RestartReaderFixture, LooksAtNoOtherStepsData)
{
    ReaderCase files(GetParam());
    files.step(1).solution("PRESSURE", {1}).step(2, {.day = 2}).solution("PRESSURE", {2}).solution("SWAT", {3});
    const std::int64_t damaged = files.data.size();
    files.step(3, {.day = 3}).solution("PRESSURE", {4}).endSection();
    files.index.writeTo(specFile());
    std::string bytes = files.data.bytes();
    // The first headers are damaged, and the last step is missing.
    bytes.replace(60, 900, 900, formatted() ? '#' : '\x7f');
    bytes.resize(static_cast<std::size_t>(damaged));
    writeBytes(unified(), bytes);
    const auto reader = read({unified()}, specFile());
    EXPECT_EQ(reader->date(2), YearMonthDay(2020, 5, 2));
    EXPECT_EQ(pressure(*reader, 2), Floats{2});
    EXPECT_THROW(pressure(*reader, 3), RestartReaderException);
}

TEST_P(RestartReaderFixture, TakesWhatTheIndexKnowsWithoutTheData)
{
    ReaderCase files(GetParam());
    files.step(1, {}, {7, 6, 2021}).solution("PRESSURE", {1});
    files.step(2, {}, {8, 6, 2021, 0, 0, 0, 0, 0, 0, 23, 59, 59999000}).solution("PRESSURE", {2});
    files.step(3, {}, {31, 2, 2021, 0, 0, 0, 0, 0, 0, 24, 0, 0}).solution("PRESSURE", {3}).endSection();
    KeywordFileBuilder(GetParam())
        .keyword("INTEHEAD", GridHead{.nx = 5}.intehead())
        .raw(files.index.bytes())
        .writeTo(specFile());
    const auto reader = read({unified()}, specFile());
    EXPECT_EQ(reader->date(1), YearMonthDay(2021, 6, 7));
    EXPECT_EQ(reader->time(1), HourMinuteSecondMillisecond()) << "the data aren't asked for it";
    EXPECT_EQ(reader->time(2), HourMinuteSecondMillisecond(23, 59, 59, 999));
    EXPECT_EQ(reader->date(3), YearMonthDay()) << "no such day, and no data";
    EXPECT_EQ(reader->numCells(), 20);
    EXPECT_TRUE(reader->rawData(3)->hasArray("PRESSURE"));
    EXPECT_THROW(pressure(*reader, 3), RestartReaderException);
}

/// Asks for all that depends on what the files hold.
void askEverything(RestartReader& reader, std::size_t mostElements)
{
    reader.phases();
    for (int i = reader.minIndex(), asked = 0; i <= reader.maxIndex() && asked < 3; ++i, ++asked) {
        if (!reader.isValidIndex(i))
            continue;
        reader.date(i);
        reader.time(i);
        for (const char* lgr : {"", "A"}) {
            Floats values;
            for (const std::string& name : reader.propertyData(i)->properties(lgr).names())
                reader.propertyData(i)->getAnyArray(name, values, lgr);
            for (const std::string& name : reader.rawData(i)->arrays(lgr).names) {
                try {
                    reader.rawData(i)->getAnyArray(name, values, lgr);
                } catch (const MrlIOException&) {
                    continue; // texts, or damaged
                }
                EXPECT_LE(values.size(), mostElements) << name;
            }
        }
    }
}

TEST_P(RestartReaderFixture, DamagesAnywhereGiveTheLibrarysExceptionsAlone)
{
    KeywordFileBuilder data(GetParam());
    for (const int number : {1, 2}) {
        data.keyword("SEQNUM", {number}).keyword("INTEHEAD", GridHead{.active = 3, .words = 67}.intehead());
        data.logicals("LOGIHEAD", GridHead().logihead()).keyword("SWAT", {1.0F, 2.0F, 3.0F}).keyword("LGR", {"A"});
        data.keyword("INTEHEAD", GridHead{.nx = 1, .words = 67}.intehead()).keyword("SWAT", Floats(4));
        data.keyword("ENDLGR", std::vector<int>());
    }
    data.writeTo(unified());
    const auto init = initReader({1, 0, 1, 0, 1, 0, 0, 0}, {.active = 3});
    ASSERT_EQ(read({unified()}, specFile())->maxIndex(), 2); // which writes the index
    const auto ask = [&](const std::string& spec, std::size_t size) {
        try {
            askEverything(*read({unified()}, spec, init), size);
        } catch (const Service::Exception&) {
            // Any other one ends the test.
        }
    };
    askEverything(*read({unified()}, specFile(), init), data.bytes().size());
    const std::size_t stride = formatted() ? 53 : 17; // each place takes some milliseconds
    for (const std::string& file : {unified(), specFile()}) {
        const std::string sound = readBytes(file);
        for (std::size_t place = 0; place < sound.size(); place += stride) {
            std::string bytes = sound;
            bytes[place] = static_cast<char>(bytes[place] ^ (place % 2 == 0 ? 0x80 : 0x11));
            for (const std::string& content : {bytes, sound.substr(0, place)}) {
                writeBytes(file, content);
                ask(specFile(), data.bytes().size());
                if (file == unified())
                    ask("", data.bytes().size());
            }
        }
        writeBytes(file, sound);
    }
}

TEST_P(RestartReaderFixture, HasNoStepAfterAFailedRead)
{
    ReaderCase files(GetParam());
    files.step(1).solution("PRESSURE", {1});
    write(files);
    auto reader = read({unified()}, specFile());
    EXPECT_TRUE(reader->isValidIndex(1));
    const std::string missing = dir_.file("OTHER.UNRST");
    EXPECT_THROW(reader->read({missing}, false, "", nullptr, nullptr), RestartReaderException);
    EXPECT_FALSE(reader->isValidIndex(1));
    EXPECT_EQ(reader->minIndex(), -1);
    EXPECT_EQ(reader->rawData(1), nullptr);
    EXPECT_EQ(reader->date(1), YearMonthDay());
    EXPECT_EQ(reader->numCells(), -1);
    EXPECT_EQ(reader->getCellActivitiesInfo().numActive(false), 0);

    reader->read({}, false, "", nullptr, nullptr);
    EXPECT_EQ(reader->maxIndex(), -1);
    EXPECT_FALSE(reader->isValidIndex(0));
    EXPECT_FALSE(reader->isValidIndex(-1));
    EXPECT_EQ(reader->caseName(), "");
    EXPECT_EQ(reader->specFile(), "");
}

TEST_P(RestartReaderFixture, KeepsWhatItHandedOut)
{
    ReaderCase files(GetParam());
    for (int number = 0; number < 40; ++number)
        files.step(number, {.day = 1 + number % 31}).solution("PRESSURE", Floats(8, static_cast<float>(number)));
    write(files);
    const auto reader = read({unified()}, specFile());
    const YearMonthDay& first = reader->date(0);
    const IRawDataAccess* const raw = reader->rawData(0);
    const IPropertyDataAccess* const properties = reader->propertyData(0);
    for (int number = 39; number > 0; --number) {
        reader->date(number);
        ASSERT_TRUE(reader->propertyData(number)->hasProperty("PRESSURE"));
    }
    EXPECT_EQ(first, YearMonthDay(2020, 5, 1));
    EXPECT_EQ(reader->rawData(0), raw);
    EXPECT_EQ(reader->propertyData(0), properties);
    Floats values;
    EXPECT_TRUE(properties->getAnyArray("PRESSURE", values));
    EXPECT_EQ(values, Floats(8, 0.0F));
}

/// Every second cell.
class EverySecondCell : public ICellActivitiesSource
{
public:
    bool getCellActivities(std::vector<bool>& out, const std::string&, bool) const override
    {
        out = {true, false, true, false, true, false, true, false};
        return true;
    }
};

TEST_P(RestartReaderFixture, SpreadsActiveCells)
{
    ReaderCase files(GetParam());
    files.step(1, {.active = 4}).solution("PRESSURE", {1, 2, 3, 4});
    write(files);
    const float none = -3.4028235e38F;
    Floats values;
    const auto byVolumes = read({unified()}, specFile(), initReader({0, 1, 0, 1, 0, 1, 0, 1}));
    EXPECT_TRUE(byVolumes->propertyData(1)->getAnyArray("PRESSURE", values));
    EXPECT_EQ(values, (Floats{none, 1, none, 2, none, 3, none, 4}));

    const EverySecondCell source;
    const auto bySource = read({unified()}, specFile(), nullptr, &source);
    EXPECT_TRUE(bySource->propertyData(1)->getAnyArray("PRESSURE", values));
    EXPECT_EQ(values, (Floats{1, none, 2, none, 3, none, 4, none}));
    EXPECT_EQ(bySource->getCellCoarsenInfo(), nullptr);

    const auto neither = read({unified()}, specFile());
    try {
        neither->propertyData(1)->getAnyArray("PRESSURE", values);
        ADD_FAILURE() << "values without pore volumes";
    } catch (const RestartReaderException& fault) {
        EXPECT_STREQ(fault.what(), "RestartReader: cannot fetch PORV array from INIT file");
    }
}

TEST_P(RestartReaderFixture, CountsTheLayersOfOneMediumByTheInitData)
{
    ReaderCase files(GetParam());
    const GridHead head{.nz = 4, .active = 16, .dualPorosity = true};
    files.step(1, head).solution("PRESSURE", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16});
    write(files);
    const auto reader = read({unified()}, specFile(), initReader(Floats(16, 1.0F), head));
    EXPECT_EQ(reader->numCells(), 8);
    Floats values;
    EXPECT_TRUE(reader->propertyData(1)->getAnyArray("PRESSURE", values, "", true));
    EXPECT_EQ(values, (Floats{9, 10, 11, 12, 13, 14, 15, 16}));
    EXPECT_EQ(read({unified()}, specFile())->numCells(), 16) << "nothing tells that the layers count twice";
}

} // namespace
