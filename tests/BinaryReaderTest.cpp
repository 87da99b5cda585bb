#include "support/KeywordFileBuilder.h"
#include "support/TempDir.h"

#include <mrlio/MorvaneBinaryReader.h>
#include <mrlio/MorvaneReaderUtils.h>
#include <mrlio/MrlIOException.h>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <limits>
#include <numeric>
#include <type_traits>
#include <unistd.h>

namespace {

using namespace Kvt::Mrl::MrlIO;
using namespace MrlIOTest;

class ShiftedRecord : public KeywordINTE
{
public:
    using KeywordINTE::KeywordINTE;

    int getShift() const override { return 5; }
};

class BinaryReaderTest : public testing::Test
{
protected:
    /// Puts the bytes into the file and opens a new reader on it.
    void open(const KeywordFileBuilder& file)
    {
        file.writeTo(path_);
        reader_ = std::make_unique<MorvaneBinaryReader>();
        ASSERT_TRUE(reader_->setFilename(path_));
    }

    std::vector<KeywordHeader> walk()
    {
        std::vector<KeywordHeader> headers;
        for (KeywordHeader header; reader_->readNextKeywordHeader(header);)
            headers.push_back(header);
        return headers;
    }

    KeywordHeader next()
    {
        KeywordHeader header;
        EXPECT_TRUE(reader_->readNextKeywordHeader(header));
        return header;
    }

    template <class T>
    std::vector<T> read(const KeywordHeader& header, std::int64_t first = -1, std::int64_t last = -1)
    {
        std::vector<T> values;
        EXPECT_TRUE(reader_->readDataVector(header, values, first, last));
        return values;
    }

    TempDir folder_;
    std::string path_ = folder_.file("CASE.UNRST");
    std::unique_ptr<MorvaneBinaryReader> reader_;
};

template <class T>
std::vector<T> numbered(std::size_t count)
{
    std::vector<T> values(count);
    for (std::size_t i = 0; i < count; ++i) {
        if constexpr (std::is_same_v<T, std::string>)
            values[i] = "W" + std::to_string(i);
        else
            values[i] = static_cast<T>(i) / 2;
    }
    return values;
}

TEST_F(BinaryReaderTest, ReadsEachElementKind)
{
    open(KeywordFileBuilder()
             .keyword("I", {1, -2, std::numeric_limits<int>::min()})
             .logicals("L", {1, 0, -1, 7})
             .keyword("R", {1.5f, -0.0f})
             .keyword("D", {1e300, -3.25})
             .keyword("C", {" left", "12345678", "", "in side"})
             .strings("S", 12, {"TWELVE CHARS", "x"})
             .header("M", 3, "MESS")
             .record(std::string("ab  cd\0x", 8) + "  e "));
    const auto headers = walk();
    ASSERT_EQ(headers.size(), 7u);
    EXPECT_TRUE(reader_->eof());
    EXPECT_EQ(headers[1].name(), "L");
    EXPECT_EQ(headers[1].keywordLargePos(), 44);
    EXPECT_EQ(headers[1].second_keywordLargePos(), 44);
    EXPECT_EQ(headers[5].valueTypeInfo().intData(), 12);
    EXPECT_EQ(read<int>(headers[0]), (std::vector<int>{1, -2, std::numeric_limits<int>::min()}));
    EXPECT_EQ(read<int>(headers[1]), (std::vector<int>{1, 0, -1, 7}));
    EXPECT_EQ(read<float>(headers[2]), (std::vector<float>{1.5f, -0.0f}));
    EXPECT_EQ(read<double>(headers[3]), (std::vector<double>{1e300, -3.25}));
    EXPECT_EQ(read<std::string>(headers[4]), (std::vector<std::string>{"left", "12345678", "", "in side"}));
    EXPECT_EQ(read<std::string>(headers[5]), (std::vector<std::string>{"TWELVE CHARS", "x"}));
    EXPECT_EQ(read<std::string>(headers[6]), (std::vector<std::string>{"ab", "cd", "e"}));
}

/// Whole arrays and slices around the edges of records.
template <class T>
class BinaryArrayTest : public BinaryReaderTest
{};

using ElementKinds = testing::Types<int, float, double, std::string>;
TYPED_TEST_SUITE(BinaryArrayTest, ElementKinds);

TYPED_TEST(BinaryArrayTest, ReadsArraysOfAnyLength)
{
    const std::size_t block = std::is_same_v<TypeParam, std::string> ? 105 : 1000;
    KeywordFileBuilder file;
    const std::size_t sizes[] = {0, 1, block - 1, block, block + 1, 2 * block, 20 * block + 3};
    for (const std::size_t size : sizes)
        file.keyword("ARRAY", numbered<TypeParam>(size));
    this->open(file.keyword("END", {1}));
    std::vector<TypeParam> values(3);
    for (const std::size_t size : sizes) {
        ASSERT_TRUE(this->reader_->readDataVector(this->next(), values));
        EXPECT_EQ(values, numbered<TypeParam>(size));
    }
    EXPECT_EQ(this->next().name(), "END");
}

TYPED_TEST(BinaryArrayTest, ReadsSlicesAcrossRecords)
{
    constexpr std::int64_t block = 7;
    const auto all = numbered<TypeParam>(3 * block + 2);
    this->open(KeywordFileBuilder().blockLength(block).keyword("ARRAY", all));
    const KeywordHeader header = this->next();
    for (std::int64_t first = 0; first < std::ssize(all); ++first)
        for (std::int64_t last = first; last < std::ssize(all); ++last)
            ASSERT_EQ(this->template read<TypeParam>(header, first, last),
                      std::vector<TypeParam>(all.begin() + first, all.begin() + last + 1))
                << first << " to " << last;
    EXPECT_EQ(this->template read<TypeParam>(header, -7, 0).size(), 1u);
    EXPECT_EQ(this->template read<TypeParam>(header, std::ssize(all) - 1, -7).size(), 1u);

    std::vector<TypeParam> buffer(4);
    EXPECT_TRUE(this->reader_->readDataArray(header, buffer.data() + 1, 6, 7));
    EXPECT_EQ(buffer, (std::vector<TypeParam>{TypeParam(), all[6], all[7], TypeParam()}));
}

TEST_F(BinaryReaderTest, ReadsALargeRecordIntoVectorsOfAnyHistory)
{
    const auto all = numbered<float>(1'500'000); // more than 4 MiB, in one record
    open(KeywordFileBuilder().blockLength(all.size()).keyword("ZCORN", all));
    const KeywordHeader header = next();
    for (const std::size_t size : {std::size_t{0}, std::size_t{5}, all.size(), all.size() + 1}) {
        std::vector<float> values(size, -1.0f);
        EXPECT_TRUE(reader_->readDataVector(header, values));
        EXPECT_TRUE(values == all) << size;
    }
    EXPECT_EQ(read<float>(header, 1'400'000, 1'400'001), (std::vector<float>{700'000.0f, 700'000.5f}));
}

TEST_F(BinaryReaderTest, RefusesSlicesOutsideTheArray)
{
    open(KeywordFileBuilder().keyword("FIVE", {1, 2, 3, 4, 5}).keyword("NONE", std::vector<int>()));
    const KeywordHeader five = next();
    const KeywordHeader none = next();
    const std::string where = "Kvt::Mrl::MrlIO::MorvaneReader::validateAndSetIndex";
    const std::string tooLarge = where + ": requested index is larger than array size";
    const std::string invalid = where + ": requested array index invalid";

    const struct
    {
        const KeywordHeader& header;
        std::int64_t first;
        std::int64_t last;
        std::string text;
    } cases[] = {
        {five, 5, 5, tooLarge},  {five, 0, 5, tooLarge},  {five, 4, 3, invalid},   {five, 1, 0, invalid},
        {none, 0, -1, tooLarge}, {none, -1, 0, tooLarge}, {none, -1, -2, invalid}, {KeywordHeader(), -1, -1, tooLarge}};

    for (const auto& c : cases) {
        std::vector<int> values{1, 2};
        try {
            reader_->readDataVector(c.header, values, c.first, c.last);
            ADD_FAILURE() << c.first << " " << c.last;
        } catch (const MrlIOException& fault) {
            EXPECT_EQ(fault.what(), c.text) << c.first << " " << c.last;
            EXPECT_TRUE(values.empty());
        }
    }
    std::vector<int> values{1};
    EXPECT_TRUE(reader_->readDataVector(none, values));
    EXPECT_TRUE(values.empty());
}

TEST_F(BinaryReaderTest, AddsTheShiftOfTheRecord)
{
    const int most = std::numeric_limits<int>::max();
    open(KeywordFileBuilder().keyword("INDEX", {1, 2, most}).keyword("NONE", std::vector<int>()));
    ShiftedRecord record(next());
    EXPECT_TRUE(reader_->readData(record));
    EXPECT_EQ(record.array(), (std::vector<int>{6, 7, std::numeric_limits<int>::min() + 4}));
    std::vector<int> values;
    EXPECT_TRUE(reader_->readDataVector(record, values, 1, 1));
    EXPECT_EQ(values, std::vector<int>{7});
    int buffer[2] = {0, 0};
    EXPECT_TRUE(reader_->readDataArray(record, buffer, 0, 0));
    EXPECT_EQ(buffer[0], 6);
    EXPECT_EQ(buffer[1], 0);
    const KeywordHeader& plain = record;
    EXPECT_EQ(read<int>(plain, 0, 0), std::vector<int>{1});
    ShiftedRecord none(next());
    EXPECT_TRUE(reader_->readData(none));
    EXPECT_TRUE(none.array().empty());
}

TEST_F(BinaryReaderTest, ReadsInAnyOrderAndGoesOnBehindAnyCurrentHeader)
{
    open(KeywordFileBuilder().keyword("TIME", {1.0f}).keyword("TIME", {2.0f, 3.0f}).keyword("TIME", {4.0f}));
    auto headers = walk();
    ASSERT_EQ(headers.size(), 3u);
    reader_->setCurrentHeader(headers[0]);
    EXPECT_EQ(next().size(), 2);
    EXPECT_EQ(read<float>(headers[0]), std::vector<float>{1.0f});
    EXPECT_EQ(next().keywordLargePos(), headers[2].keywordLargePos());
    KeywordHeader start;
    reader_->setCurrentHeader(start);
    EXPECT_EQ(read<float>(headers[2]), std::vector<float>{4.0f});
    EXPECT_EQ(next().keywordLargePos(), 0);
    EXPECT_EQ(read<float>(headers[1], 1, 1), std::vector<float>{3.0f});
    EXPECT_TRUE(reader_->isValidHeader(headers[2]));
    EXPECT_EQ(next().size(), 2);
}

TEST_F(BinaryReaderTest, NoticesThatTheFileWasRewritten)
{
    open(KeywordFileBuilder().keyword("OLDNAME", {1, 2}));
    const KeywordHeader header = next();
    EXPECT_TRUE(reader_->isValidHeader(header));
    for (const auto& file :
         {KeywordFileBuilder().keyword("NEWNAME", {1, 2}), KeywordFileBuilder().keyword("OLDNAME", {1}),
          KeywordFileBuilder().keyword("OLDNAME", {1.0f, 2.0f}), KeywordFileBuilder()}) {
        file.writeTo(path_);
        EXPECT_FALSE(reader_->isValidHeader(header));
        std::vector<int> values;
        EXPECT_THROW(reader_->readDataVector(header, values), MrlIOException);
    }
    KeywordFileBuilder().keyword("OLDNAME", {1, 2}).writeTo(path_);
    const auto atStart = MorvaneReaderUtils::createAndInitReader(path_, false);
    KeywordFileBuilder().keyword("NEWNAME", {1, 2}).writeTo(path_);
    EXPECT_FALSE(atStart->isValidHeader(header));
    KeywordHeader start;
    atStart->setCurrentHeader(start);
    KeywordFileBuilder().keyword("NEWER", {1, 2}).writeTo(path_);
    EXPECT_TRUE(atStart->readNextKeywordHeader(start));
    EXPECT_EQ(start.name(), "NEWER");
}

TEST_F(BinaryReaderTest, FollowsAGrowingFile)
{
    KeywordFileBuilder file;
    file.keyword("FIRST", {1, 2, 3}).keyword("SECOND", numbered<float>(1500));
    const std::string whole = file.bytes();
    open(KeywordFileBuilder());
    std::vector<std::string> names;
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        if (length > 0) {
            const int fd = ::open(path_.c_str(), O_WRONLY | O_APPEND);
            ASSERT_EQ(::write(fd, &whole[length - 1], 1), 1);
            ::close(fd);
        }
        if (length > 200 && length % 500 != 0 && length != whole.size())
            continue;
        try {
            KeywordHeader header;
            if (reader_->readNextKeywordHeader(header))
                names.push_back(header.name());
        } catch (const MrlIOException&) {
            EXPECT_TRUE(reader_->eof()) << length;
        }
    }
    EXPECT_EQ(names, (std::vector<std::string>{"FIRST", "SECOND"}));
    KeywordHeader header;
    EXPECT_FALSE(reader_->readNextKeywordHeader(header));
    EXPECT_FALSE(reader_->readNextKeywordHeader(header));
}

/// Some file systems show the place of what is still being written as zeros.
TEST_F(BinaryReaderTest, GoesOnWhereZerosHaveBecomeAKeyword)
{
    const KeywordFileBuilder file = KeywordFileBuilder().keyword("FIRST", {1}).keyword("SECOND", {2});
    for (const std::size_t known : {36u, 40u, 64u}) { // up to the header, its name, the data
        open(KeywordFileBuilder().raw(file.bytes().substr(0, known)).raw(std::string(72 - known, '\0')));
        EXPECT_EQ(next().name(), "FIRST");
        KeywordHeader header;
        try {
            while (reader_->readNextKeywordHeader(header)) {}
        } catch (const MrlIOException&) {}
        const int fd = ::open(path_.c_str(), O_WRONLY); // in place: the length stays
        ASSERT_EQ(::pwrite(fd, file.bytes().data(), 72, 0), 72);
        ::close(fd);
        EXPECT_NO_THROW(header.size(reader_->readNextKeywordHeader(header) ? 1 : 0)) << known;
        EXPECT_EQ(header.name(), "SECOND") << known;
    }
}

TEST_F(BinaryReaderTest, WaitsForTheSecondHalfOfADoubleHeader)
{
    KeywordFileBuilder file;
    file.keyword("A", {1}).header("BIG", 0, "X231");
    open(file);
    KeywordHeader current = next();
    KeywordHeader header;
    EXPECT_FALSE(reader_->readNextKeywordHeader(header));
    EXPECT_FALSE(reader_->readNextKeywordHeader(header));
    const std::int64_t second = file.size();
    file.keyword("BIG", {4, 5}).writeTo(path_);
    EXPECT_TRUE(reader_->readNextKeywordHeader(header));
    EXPECT_EQ(header.size(), 2);
    EXPECT_EQ(header.valueType(), ValueType::INTE);
    EXPECT_EQ(header.second_keywordLargePos(), second);
    EXPECT_EQ(header.keywordLargePos(), second - 24);
    EXPECT_EQ(read<int>(header), (std::vector<int>{4, 5}));
    EXPECT_FALSE(reader_->readNextKeywordHeader(header));

    reader_->setCurrentHeader(current);
    EXPECT_TRUE(reader_->readNextSingleKeywordHeader(header));
    EXPECT_EQ(header.valueType(), ValueType::X231);
    EXPECT_TRUE(reader_->readNextKeywordHeader(header)); // completes the half that it is given
    EXPECT_EQ(header.keywordLargePos(), second - 24);
}

/// A file of 2^31 + 2 integers in few, large records, nearly all of which are holes.
TEST_F(BinaryReaderTest, ReadsAcrossTwoToThe31Elements)
{
    constexpr std::int64_t count = std::int64_t{2147483648} + 2;
    constexpr std::int32_t longest = 2147483644;
    KeywordFileBuilder headers;
    headers.header("BIG", -1, "X231").header("BIG", 2, "INTE").writeTo(path_);
    const int fd = ::open(path_.c_str(), O_WRONLY);
    const auto put = [fd](std::int64_t position, const std::string& bytes) {
        ASSERT_EQ(::pwrite(fd, bytes.data(), bytes.size(), position), std::ssize(bytes));
    };
    std::int64_t position = 48;
    for (std::int64_t left = count * 4; left > 0; left -= longest) {
        const auto length = static_cast<std::int32_t>(std::min<std::int64_t>(left, longest));
        const std::string mark = KeywordFileBuilder::int32(length);
        put(position, mark + KeywordFileBuilder::int32(length));
        put(position + length, KeywordFileBuilder::int32(length % 1000) + mark);
        position += std::int64_t{length} + 8;
    }
    put(position, KeywordFileBuilder().keyword("BEHIND", {1.5f}).bytes());
    ::close(fd);

    reader_ = std::make_unique<MorvaneBinaryReader>();
    ASSERT_TRUE(reader_->setFilename(path_));
    const KeywordHeader big = next();
    EXPECT_EQ(big.size(), count);
    EXPECT_EQ(big.keywordLargePos(), 0);
    EXPECT_EQ(big.second_keywordLargePos(), 24);
    const KeywordHeader behind = next();
    EXPECT_EQ(behind.name(), "BEHIND");
    EXPECT_EQ(behind.keywordLargePos(), position);
    EXPECT_EQ(read<float>(behind), std::vector<float>{1.5f});
    EXPECT_EQ(read<int>(big, count - 7, count - 1), (std::vector<int>{644, 24, 0, 0, 0, 0, 24}));
    EXPECT_EQ(read<int>(big, longest / 4, longest / 4), std::vector<int>{longest});
}

TEST_F(BinaryReaderTest, LeavesNoFileBehindAFailedOpen)
{
    open(KeywordFileBuilder().keyword("A", {1}));
    KeywordHeader header = next();
    EXPECT_EQ(reader_->getFileName(), path_);
    EXPECT_FALSE(reader_->setFilename(folder_.file("missing")));
    EXPECT_EQ(reader_->getFileName(), "");
    EXPECT_TRUE(reader_->eof());
    EXPECT_FALSE(reader_->isValidHeader(header));
    EXPECT_NO_THROW(reader_->setCurrentHeader(header));
    EXPECT_FALSE(reader_->setFilename(folder_.path()));
    EXPECT_TRUE(reader_->setFilename(path_));
    EXPECT_TRUE(reader_->setFilename(reader_->getFileName()));
    EXPECT_EQ(next().name(), "A");
}

TEST(MorvaneReaderUtilsTest, TellsWhetherAFileBeginsWithAKeyword)
{
    const TempDir folder;
    const std::string path = folder.file("CASE.INIT");
    EXPECT_EQ(MorvaneReaderUtils::createReader("", false), nullptr);
    EXPECT_EQ(MorvaneReaderUtils::createReader(path, false), nullptr);
    EXPECT_EQ(MorvaneReaderUtils::createAndInitReader(path, true), nullptr);
    for (const std::string bytes : {"", "abc", "neither form"}) {
        writeBytes(path, bytes);
        EXPECT_NE(MorvaneReaderUtils::createReader(path, false), nullptr);
        EXPECT_EQ(MorvaneReaderUtils::createAndInitReader(path, false), nullptr);
    }
    KeywordFileBuilder().header("BAD", 1, "TYPE").writeTo(path);
    EXPECT_THROW(MorvaneReaderUtils::createAndInitReader(path, false), MrlIOException);
    for (const auto form : {KeywordFileBuilder::Binary, KeywordFileBuilder::Text}) {
        KeywordFileBuilder(form).keyword("INTEHEAD", {1, 2}).writeTo(path);
        const auto reader = MorvaneReaderUtils::createAndInitReader(path, form == KeywordFileBuilder::Text);
        ASSERT_NE(reader, nullptr);
        KeywordHeader header;
        EXPECT_TRUE(reader->readNextKeywordHeader(header));
        EXPECT_EQ(header.name(), "INTEHEAD");
    }
}

TEST(StorageSizeTest, CountsOneRecordMoreThanFullOnes)
{
    const struct
    {
        ValueType::Enum type;
        std::uint64_t count;
        std::uint64_t bytes;
    } cases[] = {{ValueType::C0nn, 0, 24},      {ValueType::REAL, 999, 4028},
                 {ValueType::REAL, 1000, 4040}, {ValueType::DOUB, 1001, 8048},
                 {ValueType::CHAR, 105, 880},   {ValueType::INTE, std::uint64_t{1} << 40, 4406842604152}};

    for (const auto& c : cases)
        EXPECT_EQ(MorvaneBinaryReader::computeKeywordStorageSize(c.type, c.count), c.bytes) << c.type << " " << c.count;
    for (const int type : {5, 6, 7, 8, -1})
        EXPECT_THROW(MorvaneBinaryReader::computeKeywordStorageSize(static_cast<ValueType::Enum>(type), 1),
                     MrlIOException);
}

/// What a program derives that has its data elsewhere.
class OwnReader : public MorvaneReader
{
public:
    explicit OwnReader(const std::string& name) { storeFileName(name); }

    bool eof() override { return true; }

    bool setFilename(const std::string&) override { return false; }

    void setCurrentHeader(KeywordHeader&) override {}

    bool readNextSingleKeywordHeader(KeywordHeader&) override { return false; }

    bool isValidHeader(const KeywordHeader&) override { return false; }

protected:
    bool readArray(const KeywordHeader&, std::string*, std::int64_t, std::int64_t) override { return false; }

    bool readArray(const KeywordHeader&, float*, std::int64_t, std::int64_t) override { return false; }

    bool readArray(const KeywordHeader&, double*, std::int64_t, std::int64_t) override { return false; }

    bool readArray(const KeywordHeader&, int* out, std::int64_t first, std::int64_t last) override
    {
        if (out != nullptr)
            std::iota(out, out + (last - first + 1), static_cast<int>(first));
        return out != nullptr;
    }
};

TEST(MorvaneReaderTest, ServesReadersOfOtherPrograms)
{
    OwnReader reader("own");
    ShiftedRecord record(KeywordHeader("X", 10, ValueType::INTE, std::int64_t{0}));
    std::vector<int> values{9, 9, 9};
    EXPECT_TRUE(reader.readDataVector(record, values, 2, 3));
    EXPECT_EQ(values, (std::vector<int>{7, 8}));
    record.size(0);
    EXPECT_FALSE(reader.readDataVector(record, values));
    const OwnReader copy(reader);
    EXPECT_EQ(copy.getFileName(), "own");
}

} // namespace
