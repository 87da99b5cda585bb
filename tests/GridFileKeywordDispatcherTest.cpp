#include "support/GridWriterHelpers.h"
#include "support/KeywordFileBuilder.h"

#include <mrlio/GridFileKeywordDispatcher.h>
#include <mrlio/KeywordWriter.h>
#include <mrlio/MorvaneReaderUtils.h>
#include <mrlio/MrlIOException.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

using namespace Kvt::Mrl::MrlIO;
using MrlIOTest::KeywordFile;
using MrlIOTest::KeywordFileBuilder;
using MrlIOTest::TempDir;

namespace {

/// Overrides every operation and notes each call.
class Recorder : public GridFileKeywordDispatcher
{
public:
    using GridFileKeywordDispatcher::processKeyword;

    void processKeywordHeader(const KeywordHeader& header) override { note("header " + header.name()); }

    void processUnknownKeyword(const KeywordHeader& header) override { note("unknown " + header.name()); }

    void logPushMessageContext(const std::string& context) override { note("+" + context); }

    void logPopMessageContext() override { note("-"); }

    void logError(const std::string& message) override { note("error " + message); }

    void finalize() override { note("end"); }

    std::string calls;

private:
    void note(const std::string& call) { calls += call + "|"; }

public:
#define NOTE(Record, keyword, valueType, count, form)                                                                  \
    void processKeyword(Record& record) override                                                                       \
    {                                                                                                                  \
        note(#Record " " + record.name() + " " + std::to_string(record.array().size()));                               \
    }
    MRLIO_GRID_KEYWORDS(NOTE)
#undef NOTE
};

/// Hears of headers alone.
class Headers : public GridFileKeywordDispatcher
{
public:
    void processKeywordHeader(const KeywordHeader& header) override { names += header.name() + " "; }

    void finalize() override { names += "."; }

    std::string names;
};

/// The array of each keyword, the last one of each name, and all texts.
class Contents : public GridFileKeywordDispatcher
{
public:
    using GridFileKeywordDispatcher::getReader;
    using GridFileKeywordDispatcher::processKeyword;

    void logPopMessageContext() override { ++pops; }

    void finalize() override { isFinished = true; }

    int pops = 0;
    bool isFinished = false;
    std::map<std::string, std::vector<int>> numbers;
    std::map<std::string, std::vector<float>> reals;
    std::string texts;

private:
    template <class Record>
    void keep(Record& record)
    {
        if (Record::getKeywordArraySize() < 0)
            readData(record);
        if constexpr (std::is_base_of_v<KeywordINTE, Record>)
            numbers[record.name()] = record.array();
        else if constexpr (std::is_base_of_v<KeywordCHAR, Record>)
            texts += record.getConcatenatedName() + "|";
        else
            reals[record.name()] = record.array();
    }

public:
#define KEEP(Record, keyword, valueType, count, form)                                                                  \
    void processKeyword(Record& record) override                                                                       \
    {                                                                                                                  \
        keep(record);                                                                                                  \
    }
    MRLIO_GRID_KEYWORDS(KEEP)
#undef KEEP
};

/// One keyword with a head's count and type, whose data it can't give.
class GivesNoData : public MorvaneReader
{
public:
    bool eof() override { return isRead_; }

    bool setFilename(const std::string&) override { return true; }

    void setCurrentHeader(KeywordHeader&) override {}

    bool readNextSingleKeywordHeader(KeywordHeader& header) override
    {
        header = KeywordHeader("MAPAXES", 6, ValueType::REAL, std::int64_t{0});
        return !std::exchange(isRead_, true);
    }

    bool isValidHeader(const KeywordHeader&) override { return true; }

protected:
    bool readArray(const KeywordHeader&, std::string*, std::int64_t, std::int64_t) override { return false; }

    bool readArray(const KeywordHeader&, float*, std::int64_t, std::int64_t) override { return false; }

    bool readArray(const KeywordHeader&, double*, std::int64_t, std::int64_t) override { return false; }

    bool readArray(const KeywordHeader&, int*, std::int64_t, std::int64_t) override { return false; }

private:
    bool isRead_ = false;
};

std::unique_ptr<MorvaneReader> readerOf(const TempDir& dir, const KeywordFileBuilder& file)
{
    file.writeTo(dir.file("CASE.EGRID"));
    return MorvaneReaderUtils::createReader(dir.file("CASE.EGRID"), false);
}

std::string callsOn(const KeywordFileBuilder& file)
{
    const TempDir dir;
    Recorder recorder;
    recorder.processFile(readerOf(dir, file).get());
    return recorder.calls;
}

void put(KeywordFileBuilder& file, const std::string& name, ValueType::Enum type, int count)
{
    const auto items = static_cast<std::size_t>(count);
    if (type == ValueType::INTE)
        file.keyword(name, std::vector<int>(items));
    else if (type == ValueType::REAL)
        file.keyword(name, std::vector<float>(items));
    else
        file.keyword(name, std::vector<std::string>(items));
}

} // namespace

TEST(GridFileKeywordDispatcher, EveryKeywordReachesItsOwnOperation)
{
    KeywordFileBuilder file;
    std::string wanted, names;
#define ADD(Record, keyword, valueType, count, form)                                                                   \
    put(file, keyword, ValueType::valueType, count < 0 ? 2 : count);                                                   \
    wanted += std::string("+") + keyword + "|" + #Record + " " + keyword + " " +                                       \
              std::to_string(count < 0 ? 0 : count) + "|-|";                                                           \
    names += std::string(keyword) + " ";
    MRLIO_GRID_KEYWORDS(ADD)
#undef ADD
    EXPECT_EQ(callsOn(file), wanted + "end|") << "fixed counts come with their data, the others without";

    const TempDir dir;
    Headers headers;
    headers.processFile(readerOf(dir, file).get());
    EXPECT_EQ(headers.names, names + ".");
    headers.processFile(readerOf(dir, KeywordFileBuilder()).get());
    EXPECT_EQ(headers.names, names + "..") << "a file without keywords ends at once";
}

TEST(GridFileKeywordDispatcher, BadHeadersAreLoggedAndPassed)
{
    const std::vector<int> shortHead(99), head(100);
    const std::string count = "error Incorrect number of items specified in the header of keyword ";
    const std::string type = "error Incorrect data type specified in the header of keyword ";
    EXPECT_EQ(callsOn(KeywordFileBuilder().keyword("GRIDHEAD", shortHead).keyword("GRIDHEAD", head)),
              "+GRIDHEAD|" + count + "GRIDHEAD|-|+GRIDHEAD|EGridGRIDHEAD GRIDHEAD 100|-|end|");
    EXPECT_EQ(callsOn(KeywordFileBuilder().keyword("MAPAXES", {1, 2, 3, 4, 5, 6})),
              "+MAPAXES|" + type + "MAPAXES|-|end|");
    EXPECT_EQ(callsOn(KeywordFileBuilder().keyword("MAPAXES", {1, 2, 3})), "+MAPAXES|" + count + "MAPAXES|-|end|");
    EXPECT_EQ(callsOn(KeywordFileBuilder().keyword("ZCORN", {"NONSENSE"}).keyword("zcorn", {1.0F})),
              "+ZCORN|EGridZCORN ZCORN 0|-|+zcorn|unknown zcorn|-|end|");

    GivesNoData reader;
    Recorder recorder;
    recorder.processFile(&reader);
    EXPECT_EQ(recorder.calls, "+MAPAXES|error Failed to parse keyword MAPAXES|-|end|");
}

TEST(GridFileKeywordDispatcher, ExceptionsPassAndLeaveTheReaderKnown)
{
    const TempDir dir;
    Contents contents;
    EXPECT_THROW(contents.getReader(), std::invalid_argument);
    EXPECT_THROW(contents.processFile(nullptr), std::invalid_argument);
    EGridZCORN outside(std::vector<float>(8));
    EXPECT_THROW(contents.readData(outside), std::invalid_argument);

    const auto wrongType = readerOf(dir, KeywordFileBuilder().keyword("ENDGRID", {0}).keyword("ZCORN", {"NONSENSE"}));
    EXPECT_THROW(contents.processFile(wrongType.get()), MrlIOException);
    EXPECT_EQ(contents.pops, 1);
    EXPECT_FALSE(contents.isFinished);
    EXPECT_EQ(&contents.getReader(), wrongType.get());

    const auto cutOff = readerOf(dir, KeywordFileBuilder().keyword("RADAXIS", std::vector<float>(6)).cutTail(5));
    EXPECT_THROW(contents.processFile(cutOff.get()), MrlIOException) << "data that are read at once";

    const auto sound = readerOf(dir, KeywordFileBuilder().keyword("ZCORN", {1.5F, 2.5F}));
    contents.processFile(sound.get());
    EXPECT_EQ(contents.reals["ZCORN"], (std::vector<float>{1.5F, 2.5F}));
    EXPECT_TRUE(contents.isFinished);
    EXPECT_THROW(contents.getReader(), std::invalid_argument);
}

TEST(GridFileKeywordDispatcher, DamagesAnywhereGiveTheReadersExceptionsAlone)
{
    const TempDir dir;
    KeywordFileBuilder file;
    file.keyword("MAPUNITS", {"METRES"})
        .keyword("LGRILG", std::vector<int>(11))
        .keyword("CORNERS", std::vector<float>(24));
    file.keyword("ZCORN", std::vector<float>(16)).keyword("HOSTNUM", {1, 2, 3}).keyword("ENDGRID", std::vector<int>());
    for (std::size_t place = 0; place < file.bytes().size(); place += 3) {
        KeywordFileBuilder flipped = file;
        flipped.setByte(place, file.bytes()[place] ^ (place % 2 == 0 ? 0x80 : 0x11));
        for (const KeywordFileBuilder& damaged : {flipped, KeywordFileBuilder(file).cutTail(place)}) {
            const auto reader = readerOf(dir, damaged);
            Contents contents;
            try {
                if (reader != nullptr)
                    contents.processFile(reader.get());
            } catch (const MrlIOException&) {
                EXPECT_FALSE(contents.isFinished) << place;
            }
            EXPECT_LE(contents.reals["ZCORN"].size() + contents.numbers["HOSTNUM"].size(), file.bytes().size());
        }
    }
}

namespace {

void writeGrids(KeywordWriter writer, const std::vector<float>& depths)
{
    using Head = EGridFILEHEAD;
    writer.write(Head(3, 2007, 0, Head::GridType(0), Head::DualSystemType(0), Head::OriginalGridType(1)));
    writer.write(GridMAPUNITS("METRES"));
    writer.write(GridMAPAXES(0.0F, 1.0F, 500000.0F, 6000000.0F, 1.0F, 0.0F));
    writer.write(GridGRIDUNIT("METRES", "MAP"));
    EGridGRIDHEAD head(EGridGRIDHEAD::GridType(1), 20, 10, 6, 0);
    writer.write(head);
    writer.write(EGridCOORD({0.0F, 0.5F, 2000.0F}));
    writer.write(EGridZCORN(depths));
    writer.write(EGridACTNUM({1, 0, 1}));
    writer.write(EGridENDGRID(EGridENDGRID::getKeywordName()));
    writer.write(EGridLGRLongName("A LOCAL GRID"));
    writer.write(EGridLGRPARNT(""));
    writer.write(EGridLGRSGRID(EGridLGRSGRID::getKeywordName(), {"NONE"}));
    head.setStrGridHeadData(1, 1, 0, {3, 3, 1}, {4, 4, 2});
    writer.write(head);
    writer.write(EGridHOSTNUM({0, 41, 1199}));
    writer.write(EGridENDGRID(EGridENDGRID::getKeywordName()));
    writer.write(EGridENDLGR(EGridENDLGR::getKeywordName()));
    writer.write(EGridNNC1({1, 2})); // as they are to stand in the file
    writer.write(GridNNC2(GridNNC2::getKeywordName(), {10, 11}));
}

} // namespace

TEST(GridFileKeywordDispatcher, WrittenGridsReadBackInBothForms)
{
    // Depths fill several records of data, with a last one of one value.
    std::vector<float> depths(2001);
    for (std::size_t i = 0; i < depths.size(); ++i)
        depths[i] = 2000.0F + 0.25F * static_cast<float>(i);
    for (const bool formatted : {false, true}) {
        SCOPED_TRACE(formatted);
        const TempDir dir;
        const std::string path = dir.file(formatted ? "CASE.FEGRID" : "CASE.EGRID");
        {
            std::ofstream out(path, std::ios::binary);
            writeGrids(KeywordWriter(out, formatted, path), depths);
        }
        const auto reader = MorvaneReaderUtils::createAndInitReader(path, formatted);
        ASSERT_NE(reader, nullptr);
        Contents grids;
        grids.processFile(reader.get());
        EXPECT_EQ(grids.texts, "METRES|METRESMAP|A LOCAL GRID||NONE|");
        EXPECT_EQ(grids.numbers["FILEHEAD"][1], 2007);
        EXPECT_EQ(grids.numbers["GRIDHEAD"][30], 4) << "of the second grid";
        EXPECT_EQ(grids.reals["MAPAXES"][3], 6000000.0F);
        EXPECT_EQ(grids.reals["COORD"], (std::vector<float>{0.0F, 0.5F, 2000.0F}));
        EXPECT_EQ(grids.reals["ZCORN"], depths);
        EXPECT_EQ(grids.numbers["ACTNUM"], (std::vector<int>{1, 0, 1}));
        EXPECT_EQ(grids.numbers["HOSTNUM"], (std::vector<int>{0, 41, 1199}));
        EXPECT_EQ(grids.numbers["NNC1"], (std::vector<int>{0, 1}));
        EXPECT_EQ(grids.numbers["NNC2"], (std::vector<int>{10, 11}));
        const auto stored = KeywordFile(path, formatted).values<int>("HOSTNUM");
        EXPECT_EQ(stored, (std::vector<int>{1, 42, 1200})) << "the file itself counts from 1";
    }
}
