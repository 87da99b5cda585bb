#include "core/HeaderAt.h"
#include "initrestart/Extrema.h"
#include "initrestart/SpecIndexFile.h"
#include "initrestart/read/LgrPairs.h"
#include "initrestart/read/SpecData.h"
#include "initrestart/read/StepWalk.h"
#include "support/KeywordFileBuilder.h"

#include <mrlio/MorvaneReaderUtils.h>
#include <mrlio/MrlIOException.h>

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <functional>
#include <limits>
#include <sstream>

using namespace Kvt::Mrl::MrlIO;
using MrlIOTest::KeywordFileBuilder;
using MrlIOTest::TempDir;
using Clock = Service::HourMinuteSecondMillisecond;
using Service::YearMonthDay;
using Strings = std::vector<std::string>;

namespace {

constexpr bool binary = false;

KeywordFileBuilder builder(bool formatted)
{
    return KeywordFileBuilder(formatted ? KeywordFileBuilder::Text : KeywordFileBuilder::Binary);
}

std::vector<int> intehead(int day)
{
    std::vector<int> words(411, 0);
    words[2] = 1;
    words[64] = day;
    words[65] = 3;
    words[66] = 2021;
    words[206] = 7;
    return words;
}

std::vector<int> itime(int step)
{
    return {step, 1, 3, 2021, 0, 0, 0, 0, 0, 0, 7, 30, 15250999};
}

/// A table of one array.
KeywordFileBuilder& table(KeywordFileBuilder& spec, const std::string& name, int position = 0)
{
    return spec.keyword("NAME", Strings{name})
        .keyword("TYPE", {"REAL"})
        .keyword("NUMBER", {3})
        .keyword("POINTER", {position})
        .keyword("POINTERB", {-2345})
        .keyword("ARRAYMAX", {2.5})
        .keyword("ARRAYMIN", {-0.5f});
}

KeywordFileBuilder& step(KeywordFileBuilder& spec, int number)
{
    return table(spec.keyword("TIME", {number + 0.5}).keyword("ITIME", itime(number)), "PRESSURE");
}

/// A step of a data file: a global grid, a local one with a long name, and arrays between it and another.
KeywordFileBuilder& dataStep(KeywordFileBuilder& data, int number)
{
    std::vector<double> doubhead(162, 0.0);
    doubhead[0] = number + 0.25;
    const float shift = static_cast<float>(number);
    return data.keyword("SEQNUM", {number})
        .keyword("INTEHEAD", intehead(number % 28 + 1))
        .keyword("DOUBHEAD", doubhead)
        .logicals("LOGIHEAD", {0, 1, 0})
        .keyword("PRESSURE", {3.0f, -1.0f + shift, 2.0f})
        .strings("LONGTEXT", 16, {"a text of 16 ..."})
        .strings("LGR", 12, {"REFINED_WELL"})
        .keyword("INTEHEAD", intehead(28))
        .keyword("SWAT", {0.25f})
        .keyword("ENDLGR", std::vector<int>{})
        .keyword("NNCHEADA", {1, 2})
        .strings("LGRJOIN", 12, {"REFINED_WELL", "A"})
        .keyword("NNCL", {5 + number, 9})
        .keyword("LGRSGONE", std::vector<int>{})
        .keyword("EMPTY", std::vector<float>{});
}

std::string failure(const std::function<void()>& call)
{
    try {
        call();
    } catch (const RestartReaderException& fault) {
        const std::string text = fault.what();
        return text.substr(0, text.find('\n'));
    } catch (const MrlIOException&) {
        return "of the reader";
    }
    return "";
}

class SpecIndex : public testing::Test
{
protected:
    void readSpec(const KeywordFileBuilder& file, bool formatted = binary)
    {
        const std::string name = dir.file(formatted ? "C.FRSSPEC" : "C.RSSPEC");
        file.writeTo(name);
        data.read(Service::FileName(name));
    }

    void scan(const KeywordFileBuilder& file, const char* fileName = "C.UNRST")
    {
        file.writeTo(dir.file(fileName));
        data.read(Strings{dir.file(fileName)});
    }

    std::vector<int> steps() const
    {
        std::vector<int> indexes;
        for (const auto& [index, any] : data.steps())
            indexes.push_back(index);
        return indexes;
    }

    TempDir dir;
    RestartSpecData data;
};

} // namespace

TEST_F(SpecIndex, FileIsReadIntoStepsAndGrids)
{
    for (const bool formatted : {false, true}) {
        KeywordFileBuilder spec = builder(formatted);
        step(spec.keyword("INTEHEAD", {1, 2, 3}), 4);
        table(spec, "SECOND", 7).keyword("LGRNAME", {"FINE"});
        table(spec, "SWAT", 9).keyword("LGRSGONE", Strings{});
        table(spec, "THIRD", 8).keyword("INTEHEAD", {9});
        step(spec.keyword("OTHER", {1}), 7).keyword("ARRAYMIN", {1.0});
        readSpec(spec, formatted);

        EXPECT_EQ(data.inteheadData(), std::vector<int>({1, 2, 3}));
        ASSERT_EQ(steps(), std::vector<int>({4, 7}));
        const SpecIndexData& first = *data.step(4);
        EXPECT_EQ(first.time, 4.5);
        EXPECT_TRUE(first.hasDate && first.hasTime);
        EXPECT_EQ(first.date, YearMonthDay(2021, 3, 1));
        EXPECT_EQ(first.timeOfDay, Clock(7, 30, 15, 250));
        EXPECT_EQ(first.stats, (SpecStatsData{{"PRESSURE", "SECOND", "THIRD"},
                                              {1, 1, 1},
                                              {3, 3, 3},
                                              {0, 7, 8},
                                              {0, 0, 0},
                                              {-0.5, -0.5, -0.5},
                                              {2.5, 2.5, 2.5}}));
        EXPECT_EQ(first.lgrNames, Strings{"FINE"});
        ASSERT_NE(first.find("FINE"), nullptr);
        EXPECT_EQ(first.find("FINE")->names, Strings{"SWAT"});
        EXPECT_EQ(first.find("fine"), nullptr);
        EXPECT_EQ(data.step(5), nullptr);
        EXPECT_TRUE(data.step(7)->lgrNames.empty());
    }
}

TEST_F(SpecIndex, TablesOfDamagedFilesAreMadeRectangular)
{
    KeywordFileBuilder spec;
    spec.keyword("TIME", {0.0}).keyword("ITIME", {3});
    spec.keyword("NAME", {"A", "", "C", "D", "E"}).keyword("TYPE", {"INTE", "REAL", "C0nn", "REA", "MESS"});
    spec.keyword("NUMBER", {1, 2, 3, 4, 5, 6}).keyword("POINTER", {5, 5, 5, 5}).keyword("POINTERB", {1, 1, 1, -2345});
    spec.keyword("ARRAYMIN", {-1.0}).keyword("ARRAYMAX", {1.0, 2.0, 3.0, 4.0, 5.0, 6.0});
    readSpec(spec);
    ASSERT_NE(data.step(3), nullptr);
    const SpecStatsData& rows = data.step(3)->stats;
    EXPECT_EQ(rows, (SpecStatsData{{"A", "C", "D"},
                                   {ValueType::INTE, ValueType::C0nn, ValueType::DOUB},
                                   {1, 3, 4},
                                   {5, 5, 5},
                                   {1, 1, 0},
                                   {-1.0, 0.0, 0.0},
                                   {1.0, 3.0, 4.0}}));
    EXPECT_EQ(rowPosition(rows, 0), 2147483653);
    EXPECT_FALSE(data.step(3)->hasDate || data.step(3)->hasTime);
}

TEST_F(SpecIndex, StepsStandUnderTheirNumbersWhereTheseIncrease)
{
    struct Case
    {
        std::vector<int> numbers;
        int minIndex, maxIndex;
        std::vector<int> indexes;
    };

    const Case cases[] = {{{2, 5, 9}, 2, 9, {2, 5, 9}},   {{0, 2000000000}, 0, 2000000000, {0, 2000000000}},
                          {{3, 3}, 0, 1, {0, 1}},         {{9, 2, 5}, 0, 2, {0, 1, 2}},
                          {{-1, 4, -7, 6}, 4, 6, {4, 6}}, {{4, -1, 4}, 0, 2, {0, 2}},
                          {{-1, -1}, -1, -1, {}}};
    for (const Case& c : cases) {
        KeywordFileBuilder spec;
        KeywordFileBuilder file;
        for (const int number : c.numbers) {
            step(spec, number);
            file.keyword("SEQNUM", {number}).keyword("PRESSURE", {1.0f});
        }
        for (const bool fromData : {false, true}) {
            fromData ? scan(file) : readSpec(spec);
            EXPECT_EQ(data.minIndex(), c.minIndex) << testing::PrintToString(c.numbers);
            EXPECT_EQ(data.maxIndex(), c.maxIndex) << testing::PrintToString(c.numbers);
            EXPECT_EQ(steps(), c.indexes) << testing::PrintToString(c.numbers);
        }
    }
}

TEST_F(SpecIndex, SpecFileCutAnywhereKeepsWhatItHolds)
{
    for (const bool formatted : {false, true}) {
        KeywordFileBuilder spec = builder(formatted);
        const std::int64_t firstStep = step(spec, 1).size();
        step(spec, 2);
        const std::size_t stride = formatted ? 7 : 1;
        while (spec.size() > 10) {
            const std::string fault = failure([&] { readSpec(spec.cutTail(stride), formatted); });
            EXPECT_TRUE(fault.empty() || fault.starts_with("Error reading invalid or empty file")) << spec.size();
            if (spec.size() < firstStep)
                continue;
            ASSERT_NE(data.step(1), nullptr) << spec.size();
            EXPECT_EQ(data.step(1)->stats.names, Strings{"PRESSURE"}) << spec.size();
        }
    }
}

TEST_F(SpecIndex, FaultsOfSpecFilesAreTold)
{
    const std::string process = "Kvt::Mrl::MrlIO::RestartSpecData::processIndexFileKeywordHeader: error reading ";
    const std::string empty = "Error reading invalid or empty file " + dir.file("C.RSSPEC");
    KeywordFileBuilder damaged;
    damaged.keyword("TIME", {1.0}).keyword("NUMBER", {1, 2}).setInt32(24 + 16 + 24, 4).keyword("NAME", {"A"});
    KeywordFileBuilder passed;
    passed.keyword("TIME", {1.0}).keyword("OTHER", {1, 2}).setInt32(24 + 16 + 24 + 12, 4).keyword("NAME", {"A"});
    const std::pair<KeywordFileBuilder, std::string> cases[] = {
        {KeywordFileBuilder(), empty},
        {KeywordFileBuilder().keyword("INTEHEAD", {1}), empty},
        {KeywordFileBuilder().keyword("INTEHEAD", std::vector<int>{}), "Error reading INTEHEAD"},
        {KeywordFileBuilder().keyword("INTEHEAD", {1.0f}), "Error reading INTEHEAD"},
        {KeywordFileBuilder().keyword("TIME", {1.0f}), process + "TIME"},
        {KeywordFileBuilder().keyword("TIME", std::vector<double>{}), process + "TIME"},
        {KeywordFileBuilder().keyword("TIME", {1.0}).keyword("ITIME", {1.0}), process + "ITIME"},
        {KeywordFileBuilder().keyword("NAME", {1}), "Error reading NAME"},
        {KeywordFileBuilder().keyword("ARRAYMIN", {1}), "Error reading ARRAYMIN"},
        {damaged, "Error reading NUMBER"},
        {passed, "of the reader"},
        {KeywordFileBuilder().keyword("LGRNAME", {1}), ""},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(failure([&] { readSpec(row.first); }), row.second);
        EXPECT_EQ(data.minIndex(), -1);
    }
    EXPECT_EQ(failure([&] { data.read(Service::FileName(dir.file("NONE.RSSPEC"))); }),
              "Error reading invalid or empty file " + dir.file("NONE.RSSPEC"));
}

TEST_F(SpecIndex, ScanFindsRowsDatesAndExtrema)
{
    for (const bool formatted : {false, true}) {
        KeywordFileBuilder file = builder(formatted);
        dataStep(dataStep(file, 2), 5);
        scan(file, formatted ? "C.FUNRST" : "C.UNRST");
        ASSERT_EQ(steps(), std::vector<int>({2, 5}));
        EXPECT_EQ(data.inteheadData(), intehead(3));
        const SpecIndexData& second = *data.step(5);
        EXPECT_EQ(second.time, 5.25);
        EXPECT_EQ(second.date, YearMonthDay(2021, 3, 6)) << "the local grid's INTEHEAD counts";
        EXPECT_EQ(second.timeOfDay, Clock(7, 0, 0, 0));
        const SpecStatsData& rows = second.stats;
        EXPECT_EQ(rows.names, Strings({"SEQNUM", "INTEHEAD", "DOUBHEAD", "LOGIHEAD", "PRESSURE", "LONGTEXT", "NNCHEADA",
                                       "LGRJOIN", "NNCL", "LGRSGONE", "EMPTY"}));
        EXPECT_EQ(rows.minima[0], 5.0);
        EXPECT_EQ(rows.maxima[1], 2021.0);
        EXPECT_EQ(rows.types[4], ValueType::REAL);
        EXPECT_EQ(rows.numbers[4], 3);
        EXPECT_EQ(rows.minima[4], 2.0);
        EXPECT_EQ(rows.maxima[4], 4.0);
        EXPECT_EQ(rows.minima[5], 0.0);
        ASSERT_NE(second.find("REFINED_WELL"), nullptr);
        EXPECT_EQ(second.find("REFINED_WELL")->names, Strings({"LGR", "INTEHEAD", "SWAT", "ENDLGR"}));
    }
}

TEST_F(SpecIndex, WrittenIndexEqualsTheScan)
{
    for (const bool formatted : {false, true}) {
        KeywordFileBuilder file = builder(formatted);
        dataStep(file, 3).writeTo(dir.file(formatted ? "C.FINIT" : "C.INIT"));
        InitSpecData scanned;
        scanned.read(Strings{dir.file(formatted ? "C.FINIT" : "C.INIT")});

        const Service::FileName specName(dir.file(formatted ? "C.FINSPEC" : "C.INSPEC"));
        std::ofstream stream(specName.GetFullName(), std::ios::binary);
        KeywordWriter writer(stream, formatted, specName);
        writer.write(KeywordINTE("INTEHEAD", scanned.inteheadData()));
        writeSpecSection(writer, "", scanned.index()->stats);
        writeSpecSection(writer, "REFINED_WELL", *scanned.index()->find("REFINED_WELL"));
        writeEmptyKeyword(writer, "LGRSGONE");
        stream.close();

        InitSpecData read;
        read.read(specName);
        EXPECT_EQ(read.inteheadData(), scanned.inteheadData());
        EXPECT_EQ(read.index()->stats, scanned.index()->stats);
        EXPECT_EQ(read.index()->lgrNames, scanned.index()->lgrNames);
        EXPECT_EQ(*read.index()->find("REFINED_WELL"), *scanned.index()->find("REFINED_WELL"));
    }
}

TEST_F(SpecIndex, StepNumbersComeFromFileNamesWithoutSeqnum)
{
    const KeywordFileBuilder without = KeywordFileBuilder().keyword("PRESSURE", {1.0f});
    without.writeTo(dir.file("C.X0012"));
    without.writeTo(dir.file("C.DATA"));
    KeywordFileBuilder().keyword("SEQNUM", {40}).keyword("PRESSURE", {1.0f}).writeTo(dir.file("C.X0020"));
    data.read(Strings{dir.file("C.X0012"), dir.file("C.DATA"), dir.file("C.X0020")});
    EXPECT_EQ(steps(), std::vector<int>({12, 40}));
    EXPECT_FALSE(data.step(12)->hasDate);
    data.read(Strings());
    EXPECT_TRUE(steps().empty());
    EXPECT_EQ(data.maxIndex(), -1);
}

TEST_F(SpecIndex, ScanTakesTheTimeOfDayFromDoubheadWhereInteheadHasNone)
{
    std::vector<int> shortHeader = intehead(1);
    shortHeader.resize(100);
    std::vector<double> doubhead(162, 0.0);
    for (const auto& [now, units, expected] : {std::tuple{2.5, 1, true}, {2.5, 3, true}, {30.0, 3, false}}) {
        shortHeader[2] = units;
        doubhead[161] = now;
        scan(
            KeywordFileBuilder().keyword("SEQNUM", {1}).keyword("INTEHEAD", shortHeader).keyword("DOUBHEAD", doubhead));
        ASSERT_NE(data.step(1), nullptr);
        EXPECT_TRUE(data.step(1)->hasDate);
        EXPECT_EQ(data.step(1)->hasTime, expected) << now << ' ' << units;
        const Clock time = units == 3 ? Clock(2, 30, 0, 0) : Clock(12, 0, 0, 0);
        EXPECT_EQ(data.step(1)->timeOfDay, expected ? time : Clock()) << now << ' ' << units;
    }
}

TEST_F(SpecIndex, FaultsOfDataFilesAreTold)
{
    const std::string empty = "Error reading invalid or empty file " + dir.file("C.UNRST");
    KeywordFileBuilder giant;
    giant.keyword("SEQNUM", {1}).header("GIANT", -1, "X231").header("GIANT", 0, "REAL");
    const std::pair<KeywordFileBuilder, std::string> cases[] = {
        {KeywordFileBuilder(), empty},
        {KeywordFileBuilder().keyword("SEQNUM", {1.0f}), "Error reading SEQNUM"},
        {KeywordFileBuilder().keyword("SEQNUM", std::vector<int>{}),
         "Number of values in RESTART/INIT keyword is less than expected"},
        {KeywordFileBuilder().keyword("INTEHEAD", std::vector<int>{}), "Error reading INTEHEAD"},
        {KeywordFileBuilder().keyword("INTEHEAD", {1, 2}), "INTEHEAD keyword contains less than 67 values"},
        {KeywordFileBuilder().keyword("INTEHEAD", intehead(32)), "Cannot get the date from INTEHEAD keyword."},
        {KeywordFileBuilder().keyword("DOUBHEAD", std::vector<double>{}), "Error reading DOUBHEAD"},
        {KeywordFileBuilder().keyword("LGR", {1}), "Error reading LGR"},
        {giant, "Cannot handle size of GIANT"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(failure([&] { scan(row.first); }), row.second);
        EXPECT_TRUE(steps().empty());
    }
    EXPECT_EQ(failure([&] { data.read(Strings{dir.file("NONE.UNRST")}); }),
              "Error reading invalid or empty file " + dir.file("NONE.UNRST"));
}

TEST_F(SpecIndex, ScanRefusesAFileThatEndsInsideAKeyword)
{
    for (const bool formatted : {false, true}) {
        KeywordFileBuilder file = builder(formatted);
        const std::int64_t behindSeqnum = file.keyword("SEQNUM", {1}).size();
        file.keyword("PRESSURE", {1.0f, 2.0f});
        // Nothing can be told of less than a record mark or of a last number that has lost digits.
        const std::int64_t fewest = behindSeqnum + (formatted ? 2 : 4);
        file.cutTail(formatted ? file.bytes().size() - file.bytes().rfind(' ') : 1);
        for (std::int64_t length = file.size(); length > behindSeqnum; --length, file.cutTail(1)) {
            const std::string fault = failure([&] { scan(file, formatted ? "C.FUNRST" : "C.UNRST"); });
            EXPECT_EQ(fault, length >= fewest ? "of the reader" : "") << formatted << ' ' << length;
            EXPECT_EQ(steps().empty(), !fault.empty()) << formatted << ' ' << length;
        }
    }
}

TEST_F(SpecIndex, LocalPairsAreFoundInTheirOwnStep)
{
    for (const bool formatted : {false, true}) {
        KeywordFileBuilder file = builder(formatted);
        dataStep(file, 1);
        const std::int64_t last = file.size();
        dataStep(file.keyword("SEQNUM", {2}), 3);
        const std::string name = dir.file("C.UNRST");
        file.writeTo(name);
        const auto reader = MorvaneReaderUtils::createReader(name, formatted);

        for (const auto& [range, value] : {std::pair{StepRange{}, 6.0}, {StepRange{0, file.size(), 3}, 8.0}}) {
            const LgrPairMap pairs = readLgrPairs(*reader, range);
            ASSERT_EQ(pairs.size(), 1u);
            EXPECT_EQ(pairs.begin()->first, pairKey("REFINED_WELL", "A"));
            EXPECT_EQ(pairs.begin()->first, "A + REFINED_WELL");
            EXPECT_EQ(pairs.begin()->second->names, Strings({"LGRJOIN", "NNCL"}));
            EXPECT_EQ(pairs.begin()->second->minima[1], value);
        }
        EXPECT_TRUE(readLgrPairs(*reader, {last, last, 2}).empty()) << "arrays of the next step";
        EXPECT_TRUE(readLgrPairs(*reader, {0, file.size(), 2}).empty()) << "another step stands at the row";
        EXPECT_TRUE(readLgrPairs(*reader, {-1, 0, 1}).empty());
        EXPECT_TRUE(readLgrPairs(*reader, {file.size() + 5, file.size() + 9, 1}).empty());
    }
}

TEST_F(SpecIndex, HeaderAtAPositionHasItsWidth)
{
    for (const bool formatted : {false, true}) {
        KeywordFileBuilder file = builder(formatted);
        const std::int64_t position = dataStep(file, 1).size();
        dataStep(file, 2);
        KeywordFileBuilder prefix = builder(formatted);
        dataStep(prefix, 1).keyword("SEQNUM", {2});
        file.writeTo(dir.file("C.UNRST"));
        const auto reader = MorvaneReaderUtils::createReader(dir.file("C.UNRST"), formatted);
        for (KeywordHeader header; reader->readNextKeywordHeader(header);) {
            const KeywordHeader found = headerAt(*reader, header.name(), header.keywordLargePos());
            EXPECT_EQ(found.valueTypeInfo().intData(), header.valueTypeInfo().intData()) << header.name();
            EXPECT_EQ(found.size(), header.size()) << header.name();
        }
        EXPECT_EQ(headerAt(*reader, "SEQNUM", position).size(), 1);
        EXPECT_THROW(headerAt(*reader, "SEQNUM", 0 - position), MrlIOException);
        EXPECT_THROW(headerAt(*reader, "SEQNUM", position + 3), MrlIOException);
        EXPECT_THROW(headerAt(*reader, "INTEHEAD", position), MrlIOException);
    }
}

TEST(Extrema, AreThoseOfAPlainLoopAtAnyLengthAndInAnyPieces)
{
    const float nan = std::nanf("");
    for (std::size_t length = 1; length < 150; ++length) {
        std::vector<float> floats(length, 0.0f);
        std::vector<int> integers(length, 0);
        for (const std::size_t place : {std::size_t{0}, length / 2, length - 1}) {
            floats[place] = -7.0f;
            integers[place] = -7;
            Extrema ofFloats;
            ofFloats.add(std::span<const float>(floats).first(length / 3));
            ofFloats.add(std::span<const float>(floats).subspan(length / 3));
            Extrema ofIntegers;
            ofIntegers.add(std::span<const int>(integers));
            EXPECT_EQ(ofFloats.min(), -7.0) << length << ' ' << place;
            EXPECT_EQ(ofIntegers.min(), -7.0) << length << ' ' << place;
            EXPECT_EQ(ofFloats.max(), length == 1 ? -7.0 : 0.0) << length << ' ' << place;
            floats[place] = nan;
            integers[place] = std::numeric_limits<int>::max();
            Extrema withNan;
            withNan.add(std::span<const float>(floats));
            EXPECT_EQ(std::isnan(withNan.max()), place == 0) << length;
            Extrema withLargest;
            withLargest.add(std::span<const int>(integers));
            EXPECT_EQ(withLargest.max(), 2147483647.0) << length << ' ' << place;
            floats[place] = 0.0f;
            integers[place] = 0;
        }
    }
}
