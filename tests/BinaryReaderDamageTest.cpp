#include "support/KeywordFileBuilder.h"
#include "support/TempDir.h"

#include <mrlio/MorvaneBinaryReader.h>
#include <mrlio/MrlIOException.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <limits>

namespace {

using namespace Kvt::Mrl::MrlIO;
using namespace MrlIOTest;

const std::string reader = "Kvt::Mrl::MrlIO::MorvaneBinaryReader::";
const std::string inHeader = reader + "readKeywordHeader";
const std::string inNext = reader + "readNextSingleKeywordHeader";
const std::string inSeek = reader + "seekToStartOfData";
const std::string inData = reader + "readKeywordData";
const std::string inBlock = "DataSectionReaderImpl::readDataBlock";
const std::string inSection = "DataSectionReaderImpl::read";

/// Shows the operations that derived classes may use.
class OpenReader : public MorvaneBinaryReader
{
public:
    using MorvaneBinaryReader::readArray;
    using MorvaneBinaryReader::readKeywordHeader;
    using MorvaneBinaryReader::seekToStartOfData;
};

std::string failureOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const MrlIOException& fault) {
        return fault.what();
    }
    return "no failure";
}

class BinaryReaderDamageTest : public testing::Test
{
protected:
    void open(const KeywordFileBuilder& file)
    {
        file.writeTo(path_);
        ASSERT_TRUE(reader_.setFilename(path_));
    }

    std::string tail(std::int64_t offset) const { return "\nFile  : " + path_ + "\nOffset: " + std::to_string(offset); }

    /// What stops a walk that gives the header anew in each step.
    std::string walkFailure(const KeywordFileBuilder& file)
    {
        open(file);
        return failureOf([this] {
            KeywordHeader header;
            while (reader_.readNextKeywordHeader(header))
                header = KeywordHeader();
        });
    }

    template <class T>
    std::string readFailure(const KeywordHeader& header, std::int64_t first = -1, std::int64_t last = -1)
    {
        return failureOf([&] {
            std::vector<T> values;
            reader_.readDataVector(header, values, first, last);
        });
    }

    TempDir folder_;
    std::string path_ = folder_.file("CASE.UNRST");
    OpenReader reader_;
};

TEST_F(BinaryReaderDamageTest, NamesWhatIsWrongWithAHeader)
{
    const auto header = [] { return KeywordFileBuilder().header("TIME", 1, "REAL"); };

    const struct
    {
        KeywordFileBuilder file;
        std::string message;
    } cases[] = {
        {header().cutTail(24), "no failure"},
        {header().cutTail(21), "no failure"},
        {header().setByte(3, 17), "no failure"},
        {header().cutTail(20), inHeader + ": failed to read keyword name"},
        {header().cutTail(13), inHeader + ": failed to read keyword name"},
        {KeywordFileBuilder().header("", 1, "REAL"), inHeader + ": empty array name"},
        {header().setByte(4, 0), inHeader + ": empty array name"},
        {header().cutTail(12), inHeader + ": failed to read array size"},
        {header().cutTail(8), inHeader + ": failed to read keyword type"},
        {header().cutTail(4), inHeader + ": failed to read end code"},
        {header().cutTail(1), inHeader + ": failed to read end code"},
        {header().setByte(23, 15), inHeader + ": failed to read end code"},
        {KeywordFileBuilder().header("TIME", 1, "RE L"),
         "Kvt::Mrl::MrlIO::ValueTypeInfo::ValueTypeInfo: string cannot be parsed into ValueTypeInfo: \"RE L\""},
        {KeywordFileBuilder().header("BIG", 1, "X231"), inHeader + ": header size should be negative"},
        {KeywordFileBuilder().header("BIG", -1, "X231").header("BAG", 1, "REAL"),
         inHeader + ": header name does not match X231 header"},
        {KeywordFileBuilder().header("BIG", -1, "X231").header("BIG", -1, "REAL"),
         inHeader + ": header size should be positive"},
        {KeywordFileBuilder().header("BIG", -1, "X231").header("BIG", 0, "X231"),
         inHeader + ": header size should be positive"},
    };

    for (const auto& c : cases)
        EXPECT_EQ(walkFailure(c.file), c.message == "no failure" ? c.message : c.message + tail(0)) << c.message;
}

TEST_F(BinaryReaderDamageTest, ShowsTheOffsetThatTheHeaderHolds)
{
    KeywordFileBuilder file;
    file.keyword("FIRST", {1}).keyword("SECOND", {2}).header("BAD", 1, "NONE");
    open(file);
    KeywordHeader header;
    EXPECT_TRUE(reader_.readNextKeywordHeader(header));
    EXPECT_TRUE(reader_.readNextKeywordHeader(header));
    EXPECT_NE(failureOf([&] { reader_.readNextKeywordHeader(header); }).find(tail(36)), std::string::npos);

    open(KeywordFileBuilder().keyword("FIRST", {1}).header("BAD", 2, "X231"));
    header = KeywordHeader();
    EXPECT_TRUE(reader_.readNextKeywordHeader(header));
    EXPECT_EQ(failureOf([&] { reader_.readNextKeywordHeader(header); }),
              inHeader + ": header size should be negative" + tail(36));
}

TEST_F(BinaryReaderDamageTest, ChecksTheRecordsThatAWalkPasses)
{
    const auto records = [](int count, const std::string& type = "REAL") {
        return KeywordFileBuilder().header("DATA", count, type).record("8 bytes.").record("4444");
    };
    const auto behind = [](KeywordFileBuilder file) { return file.header("BEHIND", 0, "INTE"); };

    const struct
    {
        KeywordFileBuilder file;
        std::string message;
    } cases[] = {
        {behind(records(3)), "no failure"},
        {behind(records(2)), "no failure"}, // what follows is no header, which ends a walk quietly
        {behind(records(1)), inNext + ": too many values to read"},
        {behind(records(2, "X231")), inHeader + ": header size should be negative" + tail(0)},
        {records(4), inNext + ": failed to read data block size at start of data block"},
        {records(3).cutTail(14), inNext + ": failed to read data block size at end of data block"},
        {records(3).cutTail(1), inNext + ": failed to read data block size at end of data block"},
        {records(3).setByte(39, 7), inNext + ": data block size at start and end of data block do not match"},
        {records(3).setByte(27, 4), inNext + ": data block size at start and end of data block do not match"},
        {records(3).setInt32(24, -8), inNext + ": negative data block size"},
        {records(3).setInt32(24, std::numeric_limits<int>::min()), inNext + ": negative data block size"},
        {records(std::numeric_limits<int>::min()), inNext + ": failed to read data block size at start of data block"},
        {behind(records(0, "C0-1").cutTail(28)), "no failure"},
        {behind(records(1, "C0-1")),
         "Kvt::Mrl::MrlIO::ValueTypeImplementationDetails::binaryStorageSize: invalid C0nn size"},
    };

    for (std::size_t i = 0; i < std::size(cases); ++i)
        EXPECT_EQ(walkFailure(cases[i].file), cases[i].message) << i;

    KeywordHeader negative("DATA", -1, ValueType::REAL, std::int64_t{0});
    open(records(3));
    reader_.setCurrentHeader(negative);
    EXPECT_EQ(failureOf([&] { reader_.readNextKeywordHeader(negative); }),
              inNext + ": failed to read specified number of bytes from file");
}

TEST_F(BinaryReaderDamageTest, RefusesAStaleHeader)
{
    open(KeywordFileBuilder().keyword("A", {1}).keyword("TIME", {1.0f, 2.0f}));
    const auto at = [](const char* name, std::int64_t size, ValueType::Enum type, std::int64_t position) {
        return KeywordHeader(name, size, type, position);
    };

    const struct
    {
        KeywordHeader header;
        std::string message;
    } cases[] = {
        {at("TIME", 2, ValueType::REAL, 36), "no failure"},
        {at("TIME", -1, ValueType::REAL, 36), "no failure"},
        {at("TIME", 2147483648, ValueType::REAL, 36), "no failure"},
        {at("TIME", 4294967298, ValueType::REAL, 36), "no failure"},
        {at("time", 2, ValueType::REAL, 36), inSeek + ": keyword header name does not match"},
        {at("TIME", 2, ValueType::INTE, 36), inSeek + ": keyword header value type does not match"},
        {at("TIME", 3, ValueType::REAL, 36), inSeek + ": keyword header size does not match"},
        {at("TIME", 2, ValueType::REAL, 37), inSeek + ": failed to read keyword header"},
        {at("TIME", 2, ValueType::REAL, 1'000'000), inSeek + ": failed to read keyword header"},
        {at("TIME", 2, ValueType::REAL, std::numeric_limits<std::int64_t>::max()),
         inSeek + ": failed to read keyword header"},
        {at("TIME", 2, ValueType::REAL, -1), inSeek + ": error seeking in file"},
    };

    for (const auto& c : cases) {
        EXPECT_EQ(failureOf([&] { reader_.seekToStartOfData(c.header); }), c.message) << c.message;
        EXPECT_EQ(reader_.isValidHeader(c.header), c.message == "no failure") << c.message;
    }
    KeywordHeader nowhere("", -1, static_cast<ValueType::Enum>(8), std::int64_t{-5});
    reader_.setCurrentHeader(nowhere);
    EXPECT_EQ(failureOf([&] { reader_.readNextKeywordHeader(nowhere); }), inHeader + ": error reading file" + tail(-5));
}

TEST_F(BinaryReaderDamageTest, TakesEachTypeIntoItsOwnKindOnly)
{
    const std::string mismatch = inData + ": header and data type mismatch";
    for (int type = -1; type <= 8; ++type) {
        const KeywordHeader header("X", 1, static_cast<ValueType::Enum>(type), std::int64_t{0});
        const std::string noData = reader + "readArrayImpl: unhandled type";
        const bool known = type >= ValueType::DOUB && type <= ValueType::C0nn;
        const std::string refused = known ? mismatch : noData;
        const std::string accepted = inData + ": no file open";
        EXPECT_EQ(readFailure<int>(header), type == ValueType::INTE || type == ValueType::LOGI ? accepted : refused);
        EXPECT_EQ(readFailure<float>(header), type == ValueType::REAL ? accepted : refused);
        EXPECT_EQ(readFailure<double>(header), type == ValueType::DOUB ? accepted : refused);
        EXPECT_EQ(readFailure<std::string>(header), known && type >= ValueType::CHAR ? accepted : refused);
    }
    KeywordHeader header;
    EXPECT_EQ(failureOf([&] { reader_.readNextKeywordHeader(header); }), inNext + ": no file open");
    EXPECT_EQ(failureOf([&] { reader_.seekToStartOfData(header); }), inSeek + ": no file open");
    EXPECT_EQ(failureOf([&] { reader_.readKeywordHeader(header); }), inHeader + ": no file open\nFile  : \nOffset: 0");
}

TEST_F(BinaryReaderDamageTest, ChecksTheRecordsThatASliceTouches)
{
    const auto data = [](int count = 5) {
        return KeywordFileBuilder().header("DATA", count, "INTE").record("0...1...2...").record("3...4...");
    };

    const struct
    {
        KeywordFileBuilder file;
        std::int64_t first;
        std::int64_t last;
        std::string message;
    } cases[] = {
        {data(), 0, 4, "no failure"},
        {data().setByte(43, 8), 0, 1, "no failure"}, // the end of the record is not reached
        {data().setByte(43, 8), 1, 2, inBlock + ": data block size at start and end of data block do not match"},
        {data().setByte(43, 8), 3, 3, inBlock + ": data block size at start and end of data block do not match"},
        {data().cutTail(1), 4, 4, inBlock + ": failed to read data block size at end of data block"},
        {data().cutTail(5), 3, 3, "no failure"},
        {data().cutTail(5), 3, 4, inBlock + ": failed to read array from file"},
        {data().cutTail(13), 4, 4, inBlock + ": failed to read data block size at start of data block"},
        {data().cutTail(20), 1, 2, inBlock + ": failed to read data block size at end of data block"},
        {data().setByte(47, 6), 3, 3, inBlock + ": data block size is not multiple of value size"},
        {data().setInt32(44, -8), 3, 3, inBlock + ": negative data block size"},
        {data(4), 0, 3, inSection + ": failed to read specified number of values from file"},
        {data(2), 0, 1, "no failure"}, // a first record that holds more is taken as it is
        {data().cutTail(16).keyword("NEXT", {1}), 0, 4,
         inSection + ": failed to read specified number of values from file"},
    };

    for (std::size_t i = 0; i < std::size(cases); ++i) {
        open(cases[i].file);
        KeywordHeader header;
        ASSERT_TRUE(reader_.readNextKeywordHeader(header));
        EXPECT_EQ(readFailure<int>(header, cases[i].first, cases[i].last), cases[i].message) << i;
    }
    open(KeywordFileBuilder().header("NONE", 1, "C000").record(""));
    KeywordHeader header;
    ASSERT_TRUE(reader_.readNextKeywordHeader(header));
    EXPECT_EQ(readFailure<std::string>(header), inBlock + ": data block size is not multiple of value size");
    header.valueTypeInfo(ValueTypeInfo(ValueType::C0nn, 256));
    open(KeywordFileBuilder().header("NONE", 1, "C001").record(std::string(256, 'x')));
    EXPECT_EQ(readFailure<std::string>(header), inBlock + ": failed to read array from file");
}

TEST_F(BinaryReaderDamageTest, AllocatesNothingForALyingCount)
{
    const auto expectRefused = [this](std::int64_t multiple, std::int64_t remainder, const char* type, auto values) {
        open(KeywordFileBuilder().header("LIE", multiple, "X231").header("LIE", remainder, type).record(""));
        KeywordHeader header;
        ASSERT_TRUE(reader_.readNextKeywordHeader(header));
        EXPECT_EQ(header.size(), -multiple * 2147483648LL + remainder);
        EXPECT_EQ(failureOf([&] { reader_.readDataVector(header, values); }),
                  inBlock + ": failed to read data block size at start of data block");
        EXPECT_LE(values.capacity() * sizeof(values[0]), 256u * 1024u);
        EXPECT_EQ(failureOf([&] { reader_.readNextKeywordHeader(header); }),
                  inNext + ": failed to read data block size at start of data block");
    };
    expectRefused(-512, 0, "REAL", std::vector<float>());
    expectRefused(-2147483648LL, 5, "DOUB", std::vector<double>());
    expectRefused(-2147483648LL, 2147483647, "INTE", std::vector<int>());
    expectRefused(-512, 1, "C099", std::vector<std::string>());
}

TEST_F(BinaryReaderDamageTest, AllocatesNoMoreThanTheFileHoldsForALyingRecord)
{
    for (const std::size_t held : {4u, 4'000'000u}) {
        KeywordFileBuilder file;
        file.header("LIE", 2147483647, "REAL").raw(KeywordFileBuilder::int32(2147483640)).raw(std::string(held, '1'));
        open(file);
        KeywordHeader header;
        ASSERT_TRUE(reader_.readNextKeywordHeader(header));
        std::vector<float> values;
        EXPECT_EQ(failureOf([&] { reader_.readDataVector(header, values); }),
                  inBlock + ": failed to read array from file");
        EXPECT_LE(values.capacity() * sizeof(float), held + 64u * 1024u);
        EXPECT_TRUE(reader_.eof());
    }
}

TEST_F(BinaryReaderDamageTest, FailsWhereAFileHasShrunk)
{
    open(KeywordFileBuilder().keyword("HEAD", {1}).keyword("DATA", std::vector<float>(100'000, 1.0f)));
    KeywordHeader head;
    KeywordHeader data;
    ASSERT_TRUE(reader_.readNextKeywordHeader(head) && reader_.readNextKeywordHeader(data));
    std::filesystem::resize_file(path_, 200'000);
    EXPECT_EQ(readFailure<float>(data), inBlock + ": failed to read array from file");
    EXPECT_EQ(readFailure<float>(data, 5, 6), "no failure");
    std::filesystem::resize_file(path_, 0);
    EXPECT_EQ(readFailure<int>(head), inSeek + ": failed to read keyword header");
    EXPECT_NE(failureOf([&] { reader_.readNextKeywordHeader(head); }), "no failure");
}

/// A keyword of each kind, a double header among them.
KeywordFileBuilder smallFile()
{
    KeywordFileBuilder file;
    file.keyword("I", {1, 2}).keyword("R", {1.5f}).blockLength(1).keyword("D", {1.0, 2.0}).keyword("C", {"AB", "CD"});
    file.strings("S", 3, {"abc"}).logicals("L", {1}).header("B", 0, "X231").keyword("B", {7, 8});
    return file;
}

/// Reads everything there is and gives it as text, which ends in "end", or for an exception in "cut" at the end of the
/// file and in "fault" elsewhere.
std::string contentOf(const std::string& path)
{
    MorvaneBinaryReader file;
    std::string content;
    if (!file.setFilename(path))
        return "no file";
    const auto readAll = [&](const KeywordHeader& header, auto values) {
        file.readDataVector(header, values);
        content += header.name() + ":";
        for (const auto& value : values) {
            if constexpr (std::is_same_v<decltype(values), std::vector<std::string>>)
                content += value + ",";
            else
                content += std::to_string(value) + ",";
        }
    };
    try {
        for (KeywordHeader header; file.readNextKeywordHeader(header);) {
            switch (header.valueType()) {
            case ValueType::REAL:
                readAll(header, std::vector<float>());
                break;
            case ValueType::DOUB:
                readAll(header, std::vector<double>());
                break;
            case ValueType::INTE:
            case ValueType::LOGI:
                readAll(header, std::vector<int>());
                break;
            default:
                readAll(header, std::vector<std::string>());
            }
        }
    } catch (const MrlIOException&) {
        return content + (file.eof() ? "cut" : "fault");
    }
    return content + "end";
}

TEST_F(BinaryReaderDamageTest, ReadsWhatIsCompleteInEveryPrefix)
{
    const std::string bytes = smallFile().bytes();
    const std::string whole = "I:1,2,R:1.500000,D:1.000000,2.000000,C:AB,CD,S:abc,L:1,B:7,8,end";
    std::size_t longest = 0;
    for (std::size_t length = 0; length <= bytes.size(); ++length) {
        std::filesystem::remove(path_); // rewriting in place would wait for the disk
        writeBytes(path_, bytes.substr(0, length));
        std::string content = contentOf(path_);
        EXPECT_FALSE(content.ends_with("fault")) << length;
        content.resize(content.size() - 3);
        EXPECT_TRUE(whole.starts_with(content)) << length << " " << content;
        EXPECT_GE(content.size(), longest) << length;
        longest = content.size();
    }
    EXPECT_EQ(contentOf(path_), whole);
}

TEST_F(BinaryReaderDamageTest, SurvivesEveryDamagedByte)
{
    const KeywordFileBuilder file = smallFile();
    for (std::size_t i = 0; i < file.bytes().size(); ++i) {
        for (const int mask : {0x01, 0x10, 0x80, 0xff}) {
            std::filesystem::remove(path_);
            KeywordFileBuilder(file).setByte(i, file.bytes()[i] ^ mask).writeTo(path_);
            EXPECT_NO_THROW(contentOf(path_)) << i << " " << mask;
        }
    }
}

} // namespace
