#include "support/TempDir.h"

#include <mrlio/MorvaneAsciiReader.h>
#include <mrlio/MrlIOException.h>
#include <mrlio/ValueType.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <limits>

using namespace Kvt::Mrl::MrlIO;
using MrlIOTest::TempDir;
using MrlIOTest::writeBytes;

namespace {

const std::string inClass = "Kvt::Mrl::MrlIO::MorvaneAsciiReader::";

struct Reader : MorvaneAsciiReader
{
    using MorvaneAsciiReader::readKeywordHeader;
    using MorvaneAsciiReader::seekToStartOfData;
    using MorvaneAsciiReader::skipBlanksAndNumericLinesToFindNextHeaderLine;
};

std::string header(const std::string& name, const std::string& count, const std::string& type)
{
    std::string line = " '        '             '    '\n";
    line.replace(2, name.size(), name);
    line.replace(23 - count.size(), count.size(), count);
    line.replace(25, type.size(), type);
    return line;
}

std::string header(const std::string& name, std::int64_t count, const std::string& type)
{
    return header(name, std::to_string(count), type);
}

template <class Call>
std::string failureOf(Call call)
{
    try {
        call();
    } catch (const MrlIOException& error) {
        return error.what();
    }
    return "no exception";
}

class FormattedReaderTest : public testing::Test
{
protected:
    /// A new file each time: file systems are slow to close one that has been emptied and written again.
    void writeFile(const std::string& text)
    {
        std::remove(path.c_str());
        writeBytes(path, text);
    }

    void open(const std::string& text)
    {
        writeFile(text);
        ASSERT_TRUE(reader.setFilename(path));
    }

    void append(const std::string& text) { std::ofstream(path, std::ios::binary | std::ios::app) << text; }

    KeywordHeader next()
    {
        KeywordHeader h;
        EXPECT_TRUE(reader.readNextKeywordHeader(h));
        return h;
    }

    std::string namesOfWalk()
    {
        std::string names;
        for (KeywordHeader h; reader.readNextKeywordHeader(h);)
            names += h.name() + " ";
        return names;
    }

    template <class T>
    std::vector<T> values(const KeywordHeader& h, std::int64_t first = -1, std::int64_t last = -1)
    {
        std::vector<T> out;
        EXPECT_TRUE(reader.readDataVector(h, out, first, last));
        return out;
    }

    template <class T>
    std::string readFailure(const KeywordHeader& h, std::int64_t first = -1, std::int64_t last = -1)
    {
        std::vector<T> out;
        return failureOf([&] { reader.readDataVector(h, out, first, last); });
    }

    /// The failure of a reading into elements of the header's type.
    std::string readFailure(const KeywordHeader& h)
    {
        switch (h.valueType()) {
        case ValueType::DOUB:
            return readFailure<double>(h);
        case ValueType::REAL:
            return readFailure<float>(h);
        case ValueType::INTE:
        case ValueType::LOGI:
            return readFailure<int>(h);
        default:
            return readFailure<std::string>(h);
        }
    }

    std::string lineTail(int line) const { return "\nFile : " + path + "\nLine : " + std::to_string(line); }

    std::string keywordTail(int line, const std::string& name, const std::string& type) const
    {
        return "\nFile  : " + path + "\nLine  : " + std::to_string(line) + "\nVector: " + name + "\nType  : " + type;
    }

    TempDir dir;
    std::string path = dir.file("CASE.FUNRST");
    Reader reader;
};

const std::string sample = header("SEQNUM", 1, "INTE") + "          10\n" +                        //
                           header("POROS", 5, "REAL") + "   0.1000000E+00   0.2\n -.3E1 +4 5.\n" + //
                           header("TIMES", 2, "DOUB") + "  0.15000000000000D+01 1e400\n" +         //
                           header("FLAGS", 3, "LOGI") + "  T  F\n  T\n" +                          //
                           header("NAMES", 3, "CHAR") + " 'PROD    ' '  A B'\n bare\n" +           //
                           header("NOTES", 0, "MESS") +                                            //
                           header("WIDE", 2, "C016") + " 'A NAME OF 16 CHR' ''\n" + header("END", 0, "CHAR");

} // namespace

TEST_F(FormattedReaderTest, readsEveryTypeWhateverTheLineEnds)
{
    std::string withReturns;
    for (char c : sample)
        withReturns += c == '\n' ? "\r\n" : std::string(1, c);
    const std::string variants[] = {sample, withReturns, sample.substr(0, sample.size() - 1),
                                    " \n\t\n   1 2 3\n#\n" + sample + "\n \n"};
    for (const std::string& text : variants) {
        open(text);
        const KeywordHeader seqnum = next(), poros = next(), times = next(), flags = next(), names = next();
        const KeywordHeader notes = next(), wide = next(), end = next();
        EXPECT_EQ(namesOfWalk(), "");
        EXPECT_EQ(text.substr(static_cast<std::size_t>(poros.keywordLargePos()), 10), " 'POROS   ");
        EXPECT_EQ(text.substr(static_cast<std::size_t>(end.keywordLargePos()), 10), " 'END     ");
        EXPECT_EQ(wide.valueTypeInfo().intData(), 16);
        EXPECT_EQ(values<std::string>(wide), (std::vector<std::string>{"A NAME OF 16 CHR", ""}));
        EXPECT_EQ(values<std::string>(notes), std::vector<std::string>());
        EXPECT_EQ(values<std::string>(names), (std::vector<std::string>{"PROD", "A B", "bare"}));
        EXPECT_EQ(values<int>(flags), (std::vector<int>{1, 0, 1}));
        EXPECT_EQ(values<double>(times), (std::vector<double>{1.5, std::numeric_limits<double>::infinity()}));
        EXPECT_EQ(values<float>(poros), (std::vector<float>{0.1f, 0.2f, -3.0f, 4.0f, 5.0f}));
        EXPECT_EQ(values<int>(seqnum), std::vector<int>{10});
        EXPECT_EQ(values<float>(poros, 1, 2), (std::vector<float>{0.2f, -3.0f}));
        EXPECT_EQ(values<std::string>(names, 2, -1), std::vector<std::string>{"bare"});
        EXPECT_EQ(values<int>(flags, -1, 0), std::vector<int>{1});
    }
}

TEST_F(FormattedReaderTest, countsAreInTheNotationOfStrtol)
{
    const std::pair<const char*, std::int64_t> cases[] = {
        {"010", 8}, {"0x10", 16}, {"-7", 7}, {"", 0}, {"+3", 3}, {"12 x", 12}, {"99999999999", 99999999999}, //
    };
    for (const auto& [count, size] : cases) {
        open(header("A", count, "REAL"));
        EXPECT_EQ(next().size(), size) << count;
    }
}

TEST_F(FormattedReaderTest, tellsWhatIsWrongWithAHeaderLine)
{
    const std::string parse = inClass + "parseKeywordHeaderLine: ";
    const std::pair<std::string, std::string> cases[] = {
        {" 'A       '           1 'REAL", parse + "line too short to contain keyword header"},
        {header("", 1, "REAL"), parse + "empty array name"},
        {header("A", "12x", "REAL"), parse + "invalid array length         12x"},
        {header("A", "0x", "REAL"), parse + "invalid array length          0x"},
        {header("A", "123456789012", "REAL"), "no exception"},
        {header("A", 1, "X231"), parse + "header size should be negative"},
        {header("A", 1, "QQQ"),
         "Kvt::Mrl::MrlIO::ValueTypeInfo::ValueTypeInfo: string cannot be parsed into ValueTypeInfo: \"QQQ\""},
        {header("A", -1, "X231") + header("B", 1, "REAL"), parse + "header name does not match X231 header"},
        {header("A", -1, "X231") + header("A", -1, "REAL"), parse + "header size should be positive"},
        {header("A", -1, "X231") + header("A", 0, "X231"), parse + "header size should be positive"},
    };
    for (const auto& [line, message] : cases) {
        open("\n 1 2\n" + line);
        const bool second = line.size() > 40;
        KeywordHeader h;
        const std::string tail = message == "no exception" ? "" : lineTail(second ? 4 : 3);
        EXPECT_EQ(failureOf([&] { reader.readNextKeywordHeader(h); }), message + tail) << line;
    }
}

TEST_F(FormattedReaderTest, tellsWhatIsWrongWithValues)
{
    struct Case
    {
        const char* type;
        int count;
        const char* data;
        const char* message;
    };

    const char* early = ": array terminated early";
    const char* unreadable = ": data cannot be read";
    const Case cases[] = {
        {"LOGI", 2, " T TRUE\n", unreadable},
        {"LOGI", 2, " T 1\n", unreadable},
        {"LOGI", 2, " T", early},
        {"LOGI", 2, " T\n", unreadable},
        {"INTE", 2, " 1\n", unreadable},
        {"INTE", 2, " 1", early},
        {"INTE", 2, " 1.5 2\n", unreadable},
        {"INTE", 1, " 2147483648\n", unreadable},
        {"INTE", 1, " -2147483649\n", unreadable},
        {"INTE", 1, " -\n", unreadable},
        {"INTE", 1, "", early},
        {"REAL", 2, " 1.5D+02 1\n", unreadable},
        {"REAL", 1, " 1.5E\n", unreadable},
        {"REAL", 1, " inf\n", unreadable},
        {"REAL", 1, " 1E400\n", unreadable},
        {"REAL", 2, " 1.5", early},
        {"DOUB", 1, " 1.5x\n", unreadable},
        {"DOUB", 1, " 1D2D3\n", unreadable},
        {"DOUB", 2, " 1.5\n  ", unreadable},
        {"DOUB", 2, " 1.5", early},
        {"CHAR", 2, " 'A", early},
        {"CHAR", 2, " bare", early},
    };
    for (const Case& c : cases) {
        // Without its line end the header itself is what the file ends with.
        const std::string line = header("KEY", c.count, c.type);
        open(header("FIRST", 0, "INTE") + (*c.data ? line + c.data : line.substr(0, line.size() - 1)));
        next();
        const KeywordHeader h = next();
        EXPECT_EQ(readFailure(h), inClass + "readKeywordData" + c.message + keywordTail(2, "KEY", c.type)) << c.data;
    }
}

TEST_F(FormattedReaderTest, refusesOtherElementsThanTheTypeHas)
{
    open(header("KEY", 1, "C008") + " 'A'\n");
    KeywordHeader h = next();
    EXPECT_EQ(readFailure<int>(h),
              inClass + "readKeywordData: header and data type mismatch" + keywordTail(1, "KEY", "C0nn"));
    h.valueType(static_cast<ValueType::Enum>(8));
    EXPECT_EQ(readFailure<float>(h), inClass + "readArrayImpl: unhandled type" + keywordTail(1, "KEY", ""));
    h.valueType(ValueType::X231);
    EXPECT_EQ(readFailure<double>(h), inClass + "readArrayImpl: unhandled type" + keywordTail(1, "KEY", "X231"));
}

TEST_F(FormattedReaderTest, stringsMayBeQuotedOrBare)
{
    const std::pair<std::string, std::string> cases[] = {
        {" ' A B ' x\n", "A B"}, {" don't x\n", "don't"}, {"\n\n\t' \n '\n'x'", "\n"},
        {"'' x\n", ""},          {" 'A'x\n", "A"},        {" '12345\n78' x", "12345\n78"},
    };
    for (const auto& [data, first] : cases) {
        open(header("KEY", 2, "CHAR") + data);
        const KeywordHeader h = next();
        EXPECT_EQ(values<std::string>(h), (std::vector<std::string>{first, "x"})) << data;
        EXPECT_EQ(values<std::string>(h, 1, 1), std::vector<std::string>{"x"}) << data;
    }
    open(header("KEY", 1, "CHAR") + "  ' open ");
    EXPECT_EQ(values<std::string>(next()), std::vector<std::string>{"open"});

    const std::string read = "`anonymous-namespace'::readString: ", skip = "`anonymous-namespace'::skipNextString: ";
    open(header("KEY", 2, "CHAR") + " 'A   \n   B' 'C'\n");
    EXPECT_EQ(readFailure<std::string>(next()), read + "improperly quoted string \"A   \n   B\"");
    open(header("KEY", 2, "CHAR") + " 'A' '");
    EXPECT_EQ(readFailure<std::string>(next()), read + "failed to get line");
    open(header("KEY", 3, "CHAR") + " 'A' \n");
    const KeywordHeader h = next();
    EXPECT_EQ(readFailure<std::string>(h), read + "failed to skip whitespace");
    EXPECT_EQ(readFailure<std::string>(h, 2, 2), skip + "failed to skip whitespace");
}

TEST_F(FormattedReaderTest, damagedValuesStopAWalkAsTheyStopAReading)
{
    const std::string inData = inClass + "readKeywordData";
    for (const std::string type : {"LOGI", "CHAR", "MESS", "C0nn"}) {
        open(header("KEY", 3, type == "C0nn" ? "C008" : type) + " T\n F");
        next();
        KeywordHeader following;
        EXPECT_EQ(failureOf([&] { reader.readNextKeywordHeader(following); }),
                  inData + ": array terminated early" + keywordTail(1, "KEY", type));
    }
}

TEST_F(FormattedReaderTest, aLetterInNumericDataEndsTheScanButNotTheReading)
{
    open(header("KEY", 2, "DOUB") + " 1.0\nNAN\n" + header("NEXT", 0, "INTE"));
    KeywordHeader h = next();
    KeywordHeader following;
    EXPECT_EQ(failureOf([&] { reader.readNextKeywordHeader(following); }),
              inClass + "parseKeywordHeaderLine: line too short to contain keyword header" + lineTail(3));
    EXPECT_TRUE(std::isnan(values<double>(h)[1]));
    EXPECT_TRUE(reader.isValidHeader(h));
}

TEST_F(FormattedReaderTest, aHeaderIsACheckedReference)
{
    open(sample);
    next();
    const KeywordHeader poros = next();
    const auto failureAfter = [&](const std::string& name, int count, const char* type) {
        writeBytes(path, header("SEQNUM", 1, "INTE") + "          10\n" + header(name, count, type) + " 1 2 3 4 5 6\n");
        return readFailure<float>(poros);
    };
    const std::string seek = inClass + "seekToStartOfData: keyword header ";
    EXPECT_EQ(failureAfter("OTHER", 5, "REAL"), seek + "name does not match");
    EXPECT_EQ(failureAfter("POROS", 5, "INTE"), seek + "value type does not match");
    EXPECT_EQ(failureAfter("POROS", 6, "REAL"), seek + "size does not match");
    EXPECT_FALSE(reader.isValidHeader(poros));
    EXPECT_EQ(failureAfter("POROS", 5, "REAL"), "no exception");

    KeywordHeader unsized = poros;
    unsized.size(-1);
    EXPECT_TRUE(reader.isValidHeader(unsized));
    KeywordHeader moved = poros;
    moved.keywordLargePos(100000);
    EXPECT_EQ(readFailure<float>(moved), inClass + "readKeywordHeader: failed to get line" + keywordTail(1, "", ""));
    moved.keywordLargePos(-1);
    EXPECT_EQ(readFailure<float>(moved), inClass + "seekToStartOfData: error seeking in file");
}

TEST_F(FormattedReaderTest, theWalkGoesOnFromWhereItIsPut)
{
    open(sample);
    EXPECT_EQ(namesOfWalk(), "SEQNUM POROS TIMES FLAGS NAMES NOTES WIDE END ");
    KeywordHeader start;
    reader.setCurrentHeader(start);
    const KeywordHeader seqnum = next();
    KeywordHeader poros = next();
    next();
    values<int>(seqnum);
    EXPECT_EQ(next().name(), "FLAGS");
    reader.setCurrentHeader(poros);
    EXPECT_EQ(next().name(), "TIMES");
    open(sample);
    values<int>(seqnum);
    EXPECT_EQ(next().name(), "SEQNUM");
}

TEST_F(FormattedReaderTest, withoutAFileThereIsNothingToRead)
{
    EXPECT_FALSE(reader.setFilename(dir.file("missing")));
    EXPECT_FALSE(reader.setFilename(dir.path()));
    EXPECT_TRUE(reader.eof());
    KeywordHeader h("KEY", 1, ValueType::REAL, std::int64_t{0});
    const std::string tail = "\nFile  : \nLine  : 1\nVector: KEY\nType  : REAL";
    EXPECT_EQ(failureOf([&] { reader.readNextKeywordHeader(h); }),
              inClass + "readNextSingleKeywordHeader: no file open");
    EXPECT_EQ(readFailure<float>(h), inClass + "readKeywordData: no file open" + tail);
    EXPECT_EQ(failureOf([&] { reader.readKeywordHeader(h); }), inClass + "readKeywordHeader: no file open" + tail);
    EXPECT_FALSE(reader.isValidHeader(h));
    open(sample);
    EXPECT_FALSE(reader.setFilename(dir.file("missing")));
    EXPECT_EQ(reader.getFileName(), "");
}

TEST_F(FormattedReaderTest, doubleHeadersAreFolded)
{
    const std::string second = header("BIG", 2, "INTE");
    open(header("A", 0, "INTE") + header("BIG", -1, "X231") + second + " 7 8\n" + header("END", 0, "REAL"));
    next();
    const KeywordHeader big = next();
    EXPECT_EQ(big.size(), 2147483650);
    EXPECT_EQ(big.valueType(), ValueType::INTE);
    EXPECT_EQ(big.keywordLargePos(), 31);
    EXPECT_EQ(big.second_keywordLargePos(), 62);
    EXPECT_EQ(values<int>(big, 1, 1), std::vector<int>{8});
    EXPECT_EQ(next().name(), "END");

    // One line can state such a count as well; the reference is checked by the remainder.
    open(header("BIG", 2147483650, "INTE") + " 7 8\n");
    EXPECT_EQ(values<int>(next(), 0, 1), (std::vector<int>{7, 8}));
}

TEST_F(FormattedReaderTest, aWalkGoesOnInAGrowingFile)
{
    KeywordHeader h;
    open("");
    EXPECT_FALSE(reader.readNextKeywordHeader(h));
    EXPECT_TRUE(reader.eof());
    append(header("A", 2, "REAL") + " 1.0");
    EXPECT_EQ(next().name(), "A");
    EXPECT_FALSE(reader.eof());
    EXPECT_FALSE(reader.readNextKeywordHeader(h));
    append(" 2.0\n 'B   ");
    EXPECT_NE(failureOf([&] { reader.readNextKeywordHeader(h); }).find("line too short"), std::string::npos);
    EXPECT_TRUE(reader.eof());
    append("    '           2 'LOGI'\n T");
    KeywordHeader b = next();
    EXPECT_EQ(b.name(), "B");
    EXPECT_NE(failureOf([&] { reader.readNextKeywordHeader(h); }).find("terminated early"), std::string::npos);
    EXPECT_TRUE(reader.eof());
    append(" F\n" + header("C", -1, "X231"));
    h = KeywordHeader();
    EXPECT_FALSE(reader.readNextKeywordHeader(h));
    EXPECT_FALSE(reader.readNextKeywordHeader(h));
    append(header("C", 3, "INTE"));
    ASSERT_TRUE(reader.readNextKeywordHeader(h));
    EXPECT_EQ(h.size(), 2147483651);
    EXPECT_EQ(values<int>(b), (std::vector<int>{1, 0}));
    EXPECT_FALSE(reader.readNextKeywordHeader(h));
}

/// The single steps of the walk, with the same header in hand all along, as a caller that waits for the second half does.
TEST_F(FormattedReaderTest, aHalfOfADoubleHeaderIsMetAgain)
{
    open(header("C", -1, "X231"));
    KeywordHeader h;
    ASSERT_TRUE(reader.readNextSingleKeywordHeader(h));
    EXPECT_FALSE(reader.readNextSingleKeywordHeader(h));
    ASSERT_TRUE(reader.readNextSingleKeywordHeader(h));
    EXPECT_EQ(h.valueType(), ValueType::X231);
    EXPECT_EQ(h.size(), 1);
    append(header("C", 3, "INTE"));
    ASSERT_TRUE(reader.readNextSingleKeywordHeader(h));
    EXPECT_EQ(h.size(), 2147483651);
    EXPECT_EQ(h.keywordLargePos(), 0);
}

TEST_F(FormattedReaderTest, aHostileCountAllocatesNothing)
{
    for (const char* type : {"REAL", "DOUB", "INTE", "LOGI", "CHAR"}) {
        open(header("KEY", -99999999, "X231") + header("KEY", "0x7fffffff", type) + " 1\n");
        const KeywordHeader h = next();
        KeywordHeader following;
        std::vector<float> reals;
        std::vector<double> doubles;
        std::vector<int> integers;
        std::vector<std::string> strings;
        failureOf([&] { reader.readDataVector(h, reals); });
        failureOf([&] { reader.readDataVector(h, doubles); });
        failureOf([&] { reader.readDataVector(h, integers); });
        failureOf([&] { reader.readDataVector(h, strings); });
        failureOf([&] { reader.readNextKeywordHeader(following); });
        EXPECT_LE(reals.capacity() * 4 + doubles.capacity() * 8 + integers.capacity() * 4 + strings.capacity() * 32,
                  std::size_t{1} << 20);
    }
    // The largest count that a double header can state doesn't fit into 64 bits.
    open(header("KEY", "-0xffffffff", "X231") + header("KEY", "0x1ffffffff", "LOGI") + " 1\n");
    KeywordHeader h = next();
    EXPECT_NE(failureOf([&] { values<int>(h); }), "no exception");
    EXPECT_NE(failureOf([&] { reader.readNextKeywordHeader(h); }), "no exception");
}

TEST_F(FormattedReaderTest, damagedFilesGiveResultsOrToldFaults)
{
    const auto walkAndRead = [&](const std::string& text) {
        open(text);
        int keywords = 0;
        failureOf([&] {
            for (KeywordHeader h; reader.readNextKeywordHeader(h); ++keywords) {
                ASSERT_LT(keywords, 20);
                failureOf([&] { values<int>(h, -1, 1); });
                failureOf([&] { values<float>(h); });
                failureOf([&] { values<double>(h); });
                failureOf([&] { values<std::string>(h); });
            }
        });
    };
    for (std::size_t length = 0; length <= sample.size(); ++length)
        walkAndRead(sample.substr(0, length));
    for (std::size_t place = 0; place < sample.size(); ++place) {
        for (int flip : {0x01, 0x10, 0x20, 0x40, 0x80, 0xff}) {
            std::string text = sample;
            text[place] = static_cast<char>(text[place] ^ flip);
            walkAndRead(text);
        }
    }
}

TEST_F(FormattedReaderTest, linesAndTokensMayBeLongerThanTheWindow)
{
    const std::string numbers = " " + std::string(700000, '0') + "12 ";
    std::string text = header("LONG", 3, "INTE") + "5" + numbers + "7\n" + std::string(600000, ' ') + "\n";
    const std::size_t second = text.size();
    text += std::string(300000, ' ') + header("TEXT", 2, "CHAR") + "'" + std::string(500000, 'x') + "' y";
    open(text);
    const KeywordHeader h = next();
    EXPECT_EQ(values<int>(h), (std::vector<int>{5, 12, 7}));
    EXPECT_EQ(values<int>(h, 2, 2), std::vector<int>{7});
    std::string line;
    std::int64_t position = 0;
    ASSERT_TRUE(reader.skipBlanksAndNumericLinesToFindNextHeaderLine(h, line, position));
    EXPECT_EQ(position, static_cast<std::int64_t>(second));
    EXPECT_EQ(line.size(), 300030u);
}

TEST_F(FormattedReaderTest, longArraysGrowStepByStep)
{
    constexpr int count = 300000;
    std::string text = header("KEY", count, "INTE");
    for (int i = 0; i < count; ++i)
        text += (i % 6 == 0 ? "\n " : " ") + std::to_string(i < count / 2 ? 1000000 + i : i % 10);
    open(text);
    const KeywordHeader h = next();
    const std::vector<int> all = values<int>(h);
    for (int i = 0; i < count; ++i)
        ASSERT_EQ(all[static_cast<std::size_t>(i)], i < count / 2 ? 1000000 + i : i % 10);
    int slice[2] = {};
    EXPECT_TRUE(reader.readDataArray(h, slice, 250007, 250008));
    EXPECT_EQ(slice[0] * 10 + slice[1], 78);
}

TEST_F(FormattedReaderTest, largeRealsBecomeInfiniteWhereFloatEnds)
{
    const float infinity = std::numeric_limits<float>::infinity(), largest = std::numeric_limits<float>::max();
    open(header("KEY", 6, "REAL") + " 1E39 -1E39 3.4028235E+38 -3.4028235E+38 3.4028236E+38 1E-60\n");
    EXPECT_EQ(values<float>(next()), (std::vector<float>{infinity, -infinity, largest, -largest, infinity, 0.0f}));
}
