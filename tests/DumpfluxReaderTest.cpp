#include "support/DumpfluxCase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace {

using namespace Kvt::Mrl::MrlIO;
using namespace MrlIOTest;
using testing::ElementsAre;
using testing::IsEmpty;
using Doubles = std::vector<double>;
using Integers = std::vector<int>;
using Strings = std::vector<std::string>;

// The first two connections join regions 1 and 2 from either side, the third lies inside region 2.
const std::vector<Joint> joints{{1, 2, 1, 2}, {13, 12, 2, 1, 2}, {24, 23, 2, 2, 0}};

/// A time range of [0, 10) with a value for each connection.
DumpfluxCase fluxCase(const std::string& boundary = "FLUX", const Doubles& values = {5, 7, 11},
                      Integers intehead = dumpfluxIntehead())
{
    intehead[209] = boundary == "PRESSURE" ? 2 : 1;
    DumpfluxCase dump;
    dump.head("MA10", boundary, intehead).joints(joints).range(0, 10).array("WATFLUX", values);
    return dump;
}

struct Answer
{
    bool isGood;
    Doubles values{-1};
    Integers first{-1};
    Integers second{-1};
};

Answer ask(const DumpfluxReader& reader, double time = 0)
{
    Answer answer;
    answer.isGood = reader.getArray("WATFLUX", time, answer.values, answer.first, answer.second);
    return answer;
}

Answer askRegion(const DumpfluxReader& reader, int region, double time = 0)
{
    Answer answer;
    answer.isGood = reader.getArray("WATFLUX", time, answer.values, answer.first, answer.second, region);
    return answer;
}

class DumpfluxForms : public testing::TestWithParam<KeywordFileBuilder::Form>
{};

TEST_P(DumpfluxForms, TellWhatTheyHold)
{
    DumpfluxCase dump(GetParam());
    dump.head().joints(joints).range(0, 10, 4).array("OILFLUX", Doubles{1, 2, 3}).range(10, 30, 5);
    dump.array("WATFLUX", Doubles{4, 5, 6}).array("WELLFLOW", Doubles(10, 0.5)).array("WELLNAME", Strings{"P2", "P1"});
    DumpfluxReader reader;
    reader.read(dump.write());

    EXPECT_EQ(reader.formatted(), GetParam() == KeywordFileBuilder::Text);
    EXPECT_EQ(reader.simulatorType(), Keywords::SimulatorType::MA10);
    EXPECT_EQ(reader.boundaryType(), DumpfluxBoundaryType::FLUX);
    EXPECT_EQ(reader.unitSystem(), UnitSystemType::FIELD);
    EXPECT_EQ(std::tuple(reader.simulatorVersion(), reader.numComponents(), reader.maximumNumberWells()),
              std::tuple(2, -1, -1));
    EXPECT_EQ(std::tuple(reader.restartName(), reader.restartNumber(), reader.radialGeometry(), reader.numCells()),
              std::tuple("LONGCASENAME", 17, true, 24));
    EXPECT_THAT(reader.startTimes(), ElementsAre(0, 10));
    EXPECT_THAT(reader.endTimes(), ElementsAre(10, 30));
    EXPECT_THAT(reader.averageReservoirPressure(), ElementsAre(100, 110));
    EXPECT_THAT(reader.averageReservoirRs(), ElementsAre(10, 20));
    EXPECT_THAT(reader.averageReservoirRv(), ElementsAre(1, 11));
    EXPECT_THAT(reader.reportNumbers(), ElementsAre(4, 5));
    EXPECT_THAT(reader.dataArrayNames(), ElementsAre("OILFLUX", "WATFLUX"));
    EXPECT_THAT(reader.wellDataArrayNames(), ElementsAre("WELLFLOW"));
    EXPECT_THAT(reader.wellNames(), ElementsAre("P1", "P2"));
    EXPECT_THAT(reader.regions(), ElementsAre(1, 2));
    EXPECT_EQ(reader.numConnections(), 3);
    EXPECT_THAT(ask(reader, 10).values, ElementsAre(4, 5, 6));
    EXPECT_FALSE(ask(reader, 9).isGood) << "an array of another time range";
}

INSTANTIATE_TEST_SUITE_P(Both, DumpfluxForms, testing::Values(KeywordFileBuilder::Binary, KeywordFileBuilder::Text));

TEST(DumpfluxReader, GivesTheConnectionsAsTheyStand)
{
    const DumpfluxCase dump = fluxCase();
    DumpfluxReader reader;
    reader.read(dump.write());
    const Answer all = ask(reader);
    EXPECT_TRUE(all.isGood);
    EXPECT_THAT(all.values, ElementsAre(5, 7, 11));
    EXPECT_THAT(all.first, ElementsAre(1, 13, 24));
    EXPECT_THAT(all.second, ElementsAre(2, 12, 23));

    Integers first, second, direction, firstRegion, secondRegion;
    std::vector<bool> required;
    EXPECT_TRUE(reader.getRawIndxFluxData(first, second, direction, firstRegion, secondRegion, required));
    EXPECT_EQ(first, all.first);
    EXPECT_EQ(second, all.second);
    EXPECT_THAT(direction, ElementsAre(1, 2, 3));
    EXPECT_THAT(firstRegion, ElementsAre(1, 2, 2));
    EXPECT_THAT(secondRegion, ElementsAre(2, 1, 2));
    EXPECT_THAT(required, ElementsAre(true, false, false)) << "only 1 means required";
}

TEST(DumpfluxReader, TurnsFluxesOutOfTheRegion)
{
    const DumpfluxCase dump = fluxCase();
    DumpfluxReader reader;
    reader.read(dump.write());
    const Answer one = askRegion(reader, 1);
    EXPECT_TRUE(one.isGood);
    EXPECT_THAT(one.values, ElementsAre(5, -7));
    EXPECT_THAT(one.first, ElementsAre(2, 13));
    EXPECT_THAT(one.second, ElementsAre(1, 12));

    const Answer two = askRegion(reader, 2);
    EXPECT_THAT(two.values, ElementsAre(7, 11, -5, -11)) << "the inner connection comes from both sides";
    EXPECT_THAT(two.first, ElementsAre(12, 23, 1, 24));
    EXPECT_THAT(two.second, ElementsAre(13, 24, 2, 23));
    EXPECT_THAT(askRegion(reader, 2).values, ElementsAre(7, 11, -5, -11)) << "and again";

    const Answer none = askRegion(reader, 3);
    EXPECT_FALSE(none.isGood);
    EXPECT_THAT(none.values, IsEmpty());
    EXPECT_THAT(none.first, IsEmpty());
}

TEST(DumpfluxReader, GivesARegionThePressuresOfItsOuterCells)
{
    const DumpfluxCase dump = fluxCase("PRESSURE", {5, 7, 11, 50, 70, 110});
    DumpfluxReader reader;
    reader.read(dump.write());
    EXPECT_THAT(askRegion(reader, 1).values, ElementsAre(50, 7));
    EXPECT_THAT(askRegion(reader, 2).values, ElementsAre(70, 110, 5, 11));
    EXPECT_THAT(ask(reader).values, ElementsAre(5, 7, 11, 50, 70, 110));
}

TEST(DumpfluxReader, RefusesValuesThatDontFitTheConnections)
{
    const std::tuple<const char*, Doubles> rows[] = {
        {"FLUX", {1, 2, 3, 4}}, {"FLUX", {1, 2}}, {"PRESSURE", {1, 2, 3}}, {"STRANGE", {1, 2, 3}}, {"FLUX", {}}};
    for (const auto& [boundary, values] : rows) {
        SCOPED_TRACE(std::string(boundary) + " " + std::to_string(values.size()));
        const DumpfluxCase dump = fluxCase(boundary, values);
        DumpfluxReader reader;
        reader.read(dump.write());
        const Answer answer = askRegion(reader, 1);
        EXPECT_FALSE(answer.isGood);
        EXPECT_THAT(answer.values, IsEmpty());
        EXPECT_THAT(answer.first, ElementsAre(2, 13)) << "cells come all the same";
        EXPECT_EQ(ask(reader).isGood, !values.empty());
    }
}

/// Ranges in order and out of it, with gaps, overlapping, empty and reversed ones, against the rule in its plain form.
TEST(DumpfluxReader, FindsTheFirstTimeRangeThatHoldsATime)
{
    std::mt19937 random(1);
    const auto some = [&random](int count) { return static_cast<double>(random() % static_cast<unsigned>(count)); };
    for (int round = 0; round < 80; ++round) {
        const bool inOrder = round % 2 == 0;
        std::vector<std::pair<double, double>> ranges;
        DumpfluxCase dump;
        dump.head().joints({{1, 2, 1, 2}});
        double next = some(3);
        for (int i = round % 7; i >= 0; --i) {
            const double start = inOrder ? next : some(9);
            const double end = inOrder ? start + some(3) : some(20) == 0 ? std::nan("") : some(9);
            dump.range(start, end).array("WATFLUX", Doubles{static_cast<double>(ranges.size())});
            ranges.emplace_back(start, end);
            next = end + some(2);
        }
        const auto expected = [&ranges](double time) -> Doubles {
            if (time == ranges.front().first)
                return {0};
            for (std::size_t i = 0; i < ranges.size(); ++i)
                if (ranges[i].first <= time && ranges[i].second > time)
                    return {static_cast<double>(i)};
            return time == ranges.back().second ? Doubles{static_cast<double>(ranges.size() - 1)} : Doubles{};
        };
        DumpfluxReader reader;
        reader.read(dump.write());
        for (double asked = -0.5; asked < 16; asked += 0.5)
            EXPECT_EQ(ask(reader, asked).values, expected(asked)) << asked << " in round " << round;
        EXPECT_FALSE(ask(reader, std::nan("")).isGood);
    }
}

TEST(DumpfluxReader, MakesOneCellPerIndex)
{
    DumpfluxCase dump;
    dump.head().joints({{1, 3, 1, 2}, {3, 4, 1, 2}, {12, 13, 1, 2}, {16, 24, 1, 2}});
    DumpfluxReader reader;
    reader.read(dump.write());
    Doubles values;
    DumpfluxReader::Cells first, second, outer, inner;
    EXPECT_FALSE(reader.getArray("WATFLUX", 0, values, first, second)) << "no time range";
    Strings places;
    for (const auto* cells : {&first, &second})
        for (const auto& cell : *cells)
            places.push_back(std::to_string(100 * cell->I() + 10 * cell->J() + cell->K()));
    EXPECT_THAT(places, ElementsAre("111", "311", "341", "122", "311", "121", "112", "342"));
    EXPECT_EQ(second[0], first[1]) << "one and the same cell";

    EXPECT_FALSE(reader.getArray("WATFLUX", 0, values, outer, inner, 2));
    EXPECT_EQ(outer, first) << "and the same for the region";
    EXPECT_EQ(inner, second);
    Integers direction, firstRegion, secondRegion;
    std::vector<bool> required;
    EXPECT_TRUE(reader.getRawIndxFluxData(outer, inner, direction, firstRegion, secondRegion, required));
    EXPECT_EQ(inner, second);
}

TEST(DumpfluxReader, NeedsNoGridForAnythingButCells)
{
    const DumpfluxCase dump = fluxCase("FLUX", {5, 7, 11}, dumpfluxIntehead(0, 4, 2));
    DumpfluxReader reader;
    reader.read(dump.write());
    EXPECT_TRUE(askRegion(reader, 1).isGood);
    Doubles values;
    DumpfluxReader::Cells first, second;
    EXPECT_THROW(reader.getArray("WATFLUX", 0, values, first, second), MrlIOException);
    EXPECT_THROW(reader.getArray("WATFLUX", 0, values, first, second, 1), MrlIOException);

    constexpr int most = 2147483647;
    const std::tuple<int, int, int, const char*> rows[] = {
        {-1, 0, 5, "-1"},     {most, 1, 1, "2147483647"}, {-3, 4, 2, "-24"},         {0, most, most, "0"},
        {most, 2, 1, "none"}, {most, most, 4, "none"},    {most, most, most, "none"}};
    for (const auto& [nx, ny, nz, cells] : rows) {
        const DumpfluxCase odd = fluxCase("FLUX", {5, 7, 11}, dumpfluxIntehead(nx, ny, nz));
        reader.read(odd.write());
        std::string found = "none";
        thrownBy([&] { found = std::to_string(reader.numCells()); });
        EXPECT_EQ(found, cells);
        const bool hasCells = thrownBy([&] { reader.getArray("WATFLUX", 0, values, first, second); }) == "-";
        EXPECT_EQ(hasCells, nx != 0 && ny != 0) << "whatever they are good for";
    }
}

TEST(DumpfluxReader, CutsWellArraysIntoWells)
{
    DumpfluxCase dump;
    Doubles flow(10), comp(12);
    for (std::size_t i = 0; i < comp.size(); ++i)
        (i < 10 ? flow[i] : comp[i]) = comp[i] = static_cast<double>(i);
    dump.head("MB30", "PRESSURE").range(0, 1).array("WELLFLOW", flow).array("WELLNAME", Strings{"B", "A", "C"});
    dump.array("WELLCOMP", comp).range(1, 2).array("WELLFLOW", flow);
    dump.range(2, 3).array("WELLNAME", Strings{"A", "A"}).array("WELLFLOW", flow);
    DumpfluxReader reader;
    reader.read(dump.write());
    EXPECT_EQ(std::tuple(reader.numComponents(), reader.maximumNumberWells(), reader.simulatorVersion()),
              std::tuple(2, 9, -1));

    Doubles values;
    EXPECT_TRUE(reader.getWellArray("A", "WELLFLOW", 0, values));
    EXPECT_THAT(values, ElementsAre(5, 6, 7, 8, 9));
    EXPECT_TRUE(reader.getWellArray("B", "WELLCOMP", 0.5, values));
    EXPECT_THAT(values, ElementsAre(0, 1, 2, 3, 4, 5));
    EXPECT_TRUE(reader.getWellArray("A", "WELLFLOW", 3, values));
    EXPECT_THAT(values, ElementsAre(5, 6, 7, 8, 9)) << "of a well that stands twice, the last";
    const std::tuple<const char*, const char*, double> missing[] = {
        {"C", "WELLFLOW", 0}, {"A", "WELLFLOW", 1}, {"", "WELLFLOW", 0}, {"B", "WELLCOMP", 2}, {"A", "WELLFLOW", 4}};
    for (const auto& [well, array, time] : missing) {
        EXPECT_FALSE(reader.getWellArray(well, array, time, values)) << well << array << time;
        EXPECT_THAT(values, IsEmpty());
    }
}

TEST(DumpfluxReader, CutsNothingByImpossibleNumbersOfComponents)
{
    const std::tuple<const char*, int, bool> rows[] = {
        {"MA10", 2, true}, {"MB30", 0, true}, {"MB30", -2, true}, {"MB30", 1 << 30, false}};
    for (const auto& [simulator, components, loads] : rows) {
        SCOPED_TRACE(std::string(simulator) + " " + std::to_string(components));
        Integers intehead = dumpfluxIntehead();
        intehead[1] = components;
        DumpfluxCase dump;
        dump.head(simulator, "FLUX", intehead).range(0, 1).array("WELLNAME", Strings{"A"});
        dump.array("WELLFLOW", Doubles(5, 1.0)).array("WELLCOMP", Doubles(12));
        DumpfluxReader reader;
        reader.read(dump.write());
        EXPECT_EQ(reader.numComponents(), simulator == std::string("MB30") ? components : -1);
        Doubles values;
        EXPECT_EQ(thrownBy([&] { reader.getWellArray("A", "WELLCOMP", 0, values); }) == "-", loads);
        EXPECT_FALSE(reader.getWellArray("A", "WELLCOMP", 0, values));
        EXPECT_TRUE(reader.getWellArray("A", "WELLFLOW", 0, values));
    }
}

TEST(DumpfluxReader, FindsTimeRangesBeyondTwoGibibytes)
{
    constexpr std::int32_t hole = 1 << 30;
    const std::string mark = KeywordFileBuilder::int32(hole);
    DumpfluxCase dump = fluxCase(), end;
    dump.file.header("HUGE", hole / 4, "DOUB").raw(mark);
    end.file.raw(mark);
    end.range(10, 20).array("WATFLUX", Doubles{1, 2, 3});
    const std::string path = dump.write();
    for (const std::string& behindHole : {mark + mark, end.file.bytes()}) {
        std::filesystem::resize_file(path, std::filesystem::file_size(path) + hole);
        std::ofstream(path, std::ios::binary | std::ios::app) << behindHole;
    }
    DumpfluxReader reader;
    reader.read(path);
    EXPECT_THAT(ask(reader, 15).values, ElementsAre(1, 2, 3));
}

TEST(DumpfluxReader, HoldsWhatTheLastReadFound)
{
    const DumpfluxCase dump = fluxCase();
    const std::string path = dump.write();
    DumpfluxReader reader;
    const auto expectEmpty = [&reader](const std::string& name) {
        SCOPED_TRACE(name);
        EXPECT_EQ(reader.file().GetFileName(), name);
        EXPECT_EQ(reader.simulatorType(), 11);
        EXPECT_EQ(reader.boundaryType(), DumpfluxBoundaryType::UNKNOWN);
        EXPECT_EQ(reader.unitSystem(), 4);
        EXPECT_EQ(std::tuple(reader.numCells(), reader.numConnections(), reader.restartNumber()),
                  std::tuple(-1, 0, -1));
        EXPECT_THAT(reader.startTimes(), IsEmpty());
        EXPECT_THAT(reader.regions(), IsEmpty());
        EXPECT_FALSE(ask(reader).isGood);
        EXPECT_FALSE(askRegion(reader, 1).isGood);
    };
    expectEmpty("");
    EXPECT_TRUE(reader.formatted()) << "whatever isn't the name of an unformatted dump";
    reader.read(path);
    EXPECT_EQ(reader.file().GetFullName(), path);
    EXPECT_TRUE(askRegion(reader, 1).isGood);
    const std::string array = *reader.dataArrayNames().begin();
    reader.read(*reader.dataArrayNames().begin()); // no such file
    expectEmpty(array);
    reader.read(path + "x");
    expectEmpty("CASE.FLUXx");
    reader.read(path);
    writeBytes(path, "");
    EXPECT_EQ(thrownBy([&] { reader.read(path); }), "DumpfluxReaderImpl::loadHeaderData: reader not initialized");
    expectEmpty("");
    dump.file.writeTo(path + ".DAT");
    reader.read(path + ".DAT");
    EXPECT_TRUE(reader.formatted());
    EXPECT_TRUE(ask(reader).isGood) << "read as unformatted all the same";
}

} // namespace
