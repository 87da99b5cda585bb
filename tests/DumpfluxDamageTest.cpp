#include "support/DumpfluxCase.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <tuple>
#include <vector>

namespace {

using namespace Kvt::Mrl::MrlIO;
using namespace MrlIOTest;
using Doubles = std::vector<double>;
using Integers = std::vector<int>;
using Strings = std::vector<std::string>;

/// What an attempt to read a file of this content throws.
std::string failureOf(const DumpfluxCase& dump)
{
    DumpfluxReader reader;
    return thrownBy([&] { reader.read(dump.write()); });
}

TEST(DumpfluxDamage, ShortArraysAreNamed)
{
    const std::tuple<const char*, std::size_t, const char*> rows[] = {
        {"FLUXTYPE", 0, "FLUXTYPE keyword contains less than 1 value"},
        {"FLUXTYPE", 1, "FLUXTYPE keyword contains less than 2 values"},
        {"RESTART", 0, "RESTART keyword contains less than 1 value"},
        {"RESTNUMB", 0, "RESTNUM keyword contains less than 1 value"},
        {"INTEHEAD", 1, "INTEHEAD keyword contains less than 2 values"},
        {"INTEHEAD", 2, "INTEHEAD keyword contains less than 3 values"},
        {"INTEHEAD", 10, "INTEHEAD keyword contains less than 11 values"},
        {"INTEHEAD", 209, "INTEHEAD keyword contains less than 210 values"},
        {"LOGIHEAD", 4, "LOGIHEAD keyword contains less than 5 values"},
        {"ITIME", 0, "LOGIHEAD keyword contains less than 1 values"},
        {"DTIME", 0, "DTIME keyword contains less than 1 value"},
        {"DTIME", 1, "DTIME keyword contains less than 2 values"},
        {"DTIME", 4, "DTIME keyword contains less than 5 values"},
        {"ITIME", 1, "DumpfluxContentIndex::loadDumpfluxContentIndex: Not the same number of ITIME and DTIME keywords"},
        {"DTIME", 5,
         "DumpfluxContentIndex::loadDumpfluxContentIndex: Not the same number of ITIME and DTIME keywords"}};
    for (const auto& [keyword, count, text] : rows) {
        DumpfluxCase dump;
        dump.head();
        const std::string name = keyword;
        if (name == "DTIME")
            dump.array(name, Doubles(count));
        else if (name == "FLUXTYPE" || name == "RESTART")
            dump.array(name, Strings(count, "MA10"));
        else
            dump.array(name, Integers(count));
        EXPECT_EQ(failureOf(dump), text);
    }
}

TEST(DumpfluxDamage, HeadersThatContradictEachOtherAreRefused)
{
    const char* const text = "DumpfluxContentIndex::loadDumpfluxContentIndex: error reading INTEHEAD; inconsistent "
                             "boundary type between FLUXTYPE and INTEHEAD sections";
    const std::tuple<const char*, const char*, int, const char*> rows[] = {
        {"MA10", "PRESSURE", 1, text}, {"MA10", "FLUX", 2, text}, {"MA10", "FLUX", 3, "-"},
        {"MA10", "FLUX", -2345, "-"},  {"MA10", "OTHER", 2, "-"}, {"MB30", "PRESSURE", 1, "-"}};
    for (const auto& [simulator, boundary, code, expected] : rows) {
        Integers intehead = dumpfluxIntehead();
        intehead[209] = code;
        DumpfluxCase dump;
        EXPECT_EQ(failureOf(dump.head(simulator, boundary, intehead)), expected) << simulator << boundary << code;
    }
}

TEST(DumpfluxDamage, ConnectionsFailWhenTheyAreAskedFor)
{
    DumpfluxCase without, odd, good;
    without.head().range(0, 1);
    odd.head().array("INDXFLUX", Integers(7, 1)).range(0, 1);
    const std::tuple<const DumpfluxCase*, const char*> rows[] = {
        {&without, "DumpfluxRegionManager::read: reader initialized but INDXFLUX array not found"},
        {&odd,
         "DumpfluxRegionManager::read: reader initialized but the size of INDXFLUX array has an invalid number of "
         "items - it is not divisible by 6"}};
    DumpfluxReader reader;
    for (const auto& [dump, text] : rows) {
        reader.read(dump->write());
        EXPECT_EQ(thrownBy([&] { reader.numConnections(); }), text);
        EXPECT_EQ(thrownBy([&] { reader.regions(); }), text) << "each time";
    }
    reader.read(good.head().joints({{1, 2, 1, 2}}).write());
    EXPECT_EQ(reader.numConnections(), 1);
}

TEST(DumpfluxDamage, AFailedLoadKeepsWhatItHad)
{
    for (const std::size_t size : {4u, 6u, 15u}) { // numbers for two wells, so that none is right
        DumpfluxCase dump;
        dump.head().joints({{1, 2, 1, 2}}).range(0, 1).array("GOOD", Doubles{1});
        dump.array("WELLFLOW", Doubles(size)).array("WELLNAME", Strings{"A", "B"}).range(1, 2);
        dump.array("SINGLE", std::vector<float>{1}).array("LATE", Doubles{2}).range(2, 3).array("LATE", Doubles{3});
        DumpfluxReader reader;
        reader.read(dump.write());
        Doubles values;
        Integers first, second;
        EXPECT_THROW(reader.getWellArray("A", "WELLFLOW", 0, values), DumpfluxReaderException) << size;
        EXPECT_FALSE(reader.getWellArray("A", "WELLFLOW", 0, values)) << "it isn't tried again";
        EXPECT_TRUE(reader.getArray("GOOD", 0, values, first, second));
        EXPECT_THROW(reader.getArray("LATE", 1, values, first, second), MrlIOException);
        EXPECT_FALSE(reader.getArray("LATE", 1, values, first, second));
        EXPECT_TRUE(reader.getArray("LATE", 2, values, first, second));
    }
}

/// The file is exchanged between the walk over it and the load of a range.
TEST(DumpfluxDamage, ChangedFilesAreNoticed)
{
    DumpfluxCase start;
    start.head().joints({{1, 2, 1, 2}});
    const std::string path = start.write();
    Doubles values;
    Integers first, second;
    const auto readAfter = [&](const auto& exchange) {
        // WATFLUX is known, but the last range lacks it as yet.
        DumpfluxCase before = start, after = start;
        before.array("WATFLUX", Doubles{1}).range(0, 1).array("OILFLUX", Doubles{1}).file.writeTo(path);
        DumpfluxReader reader;
        reader.read(path);
        after.array("WATFLUX", Doubles{1});
        exchange(after);
        after.file.writeTo(path);
        return thrownBy([&] { reader.getArray("WATFLUX", 0, values, first, second); });
    };
    EXPECT_EQ(readAfter([](DumpfluxCase& file) { file.array("ITIME", Integers(10)).array("XTIME", Doubles(10)); }),
              "DumpfluxDataLoaderIncremental::loadData: error reading DTIME");
    EXPECT_EQ(readAfter([](DumpfluxCase& file) {
                  file.range(0, 1).array("OILFLUX", Doubles{1}).array("WATFLUX", Doubles(5000, 0.5));
              }),
              "-");
    EXPECT_EQ(values, Doubles(5000, 0.5)) << "the last range has grown";
    for (const int count : {4000000, 2147483647})
        EXPECT_NE(readAfter([&](DumpfluxCase& file) { file.range(0, 1).file.header("OILFLUX", count, "DOUB"); }), "-");
    DumpfluxReader reader;
    start.range(0, 1).file.writeTo(path);
    reader.read(path);
    std::filesystem::remove(path);
    EXPECT_EQ(thrownBy([&] { reader.getArray("WATFLUX", 0, values, first, second); }),
              "DumpfluxDataLoaderIncremental::loadData: reader not initialized");
    EXPECT_EQ(reader.numConnections(), 0);
}

TEST(DumpfluxDamage, NoCutAndNoWrongByteDoesHarm)
{
    for (const auto form : {KeywordFileBuilder::Binary, KeywordFileBuilder::Text}) {
        DumpfluxCase dump(form);
        dump.head().joints({{1, 2, 1, 2}, {3, 2, 2, 1}}).range(0, 1).array("WATFLUX", Doubles{1, 2});
        dump.array("WELLNAME", Strings{"A"}).array("WELLFLOW", Doubles(5, 1.0)).range(1, 2);
        const std::string path = dump.write();
        const std::string whole = dump.file.bytes();
        DumpfluxReader reader;
        Doubles values;
        DumpfluxReader::Cells outer, inner;
        const auto tryBytes = [&](const std::string& bytes) {
            writeBytes(path, bytes);
            thrownBy([&] { reader.read(path); });
            thrownBy([&] { reader.getArray("WATFLUX", 0, values, outer, inner, 1); });
            thrownBy([&] { reader.getWellArray("A", "WELLFLOW", 0, values); });
        };
        const std::size_t step = form == KeywordFileBuilder::Binary ? 7 : 31;
        for (std::size_t place = 0; place < whole.size(); place += step) {
            tryBytes(whole.substr(0, place));
            std::string changed = whole;
            changed[place] = static_cast<char>(changed[place] ^ 0x81);
            tryBytes(changed);
        }
        tryBytes(whole);
        EXPECT_EQ(values.size(), 5u);
    }
}

} // namespace
