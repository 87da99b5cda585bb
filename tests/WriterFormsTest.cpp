#include "core/FormattedEncoder.h"
#include "core/KeywordEncoder.h"
#include "core/NumberText.h"
#include "support/TempDir.h"

#include <mrlio/KeywordTmpl.h>
#include <mrlio/MorvaneAsciiWriter.h>
#include <mrlio/MorvaneBinaryWriter.h>
#include <mrlio/MorvaneWriterCreator.h>

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

using namespace Kvt::Mrl::MrlIO;
using namespace std::string_literals;
using MrlIOTest::readBytes;
using MrlIOTest::TempDir;
using MrlIOTest::writeBytes;

namespace {

using Real = KeywordTmpl<1>;
using Doub = KeywordTmpl<0>;
using Logi = KeywordTmpl<3>;
using Mess = KeywordTmpl<5>;
using Word = KeywordTmpl<6>;

class ShiftedINTE : public KeywordINTE
{
public:
    ShiftedINTE(const std::vector<int>& values, int shift) : KeywordINTE("SHIFTED", values), shift_(shift) {}

    int getShift() const override { return shift_; }

private:
    int shift_;
};

template <class Record>
std::string encoded(const Record& keyword, bool formatted)
{
    std::ostringstream out;
    EXPECT_TRUE(KeywordEncoder(out, formatted).write(keyword));
    return out.str();
}

std::string word32(std::int64_t value)
{
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(static_cast<std::uint64_t>(value) >> shift & 0xff);
    return bytes;
}

std::string record(const std::string& data)
{
    const std::string mark = word32(std::ssize(data));
    return mark + data + mark;
}

std::string header(const std::string& name, std::int64_t count, const std::string& type)
{
    return record(name + word32(count) + type);
}

/// Lengths of the records behind the first header record, negative where the two marks differ.
std::vector<int> dataRecords(const std::string& bytes)
{
    std::vector<int> lengths;
    for (std::size_t at = 24; at + 4 <= bytes.size();) {
        const std::string mark = bytes.substr(at, 4);
        const int length = static_cast<unsigned char>(mark[2]) * 256 + static_cast<unsigned char>(mark[3]);
        at += 4 + static_cast<std::size_t>(length);
        lengths.push_back(bytes.compare(at, 4, mark) == 0 && word32(length) == mark ? length : -length);
        at += 4;
    }
    return lengths;
}

std::vector<std::string> lines(const std::string& text)
{
    std::vector<std::string> result;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        result.push_back(line);
    return result;
}

/// Lengths of the value lines, run together: "4x68 17" for four lines of 68 characters and one of 17.
std::string lineLengths(const std::string& text)
{
    std::string result;
    const auto all = lines(text);
    for (std::size_t i = 1; i < all.size();) {
        std::size_t same = 1;
        while (i + same < all.size() && all[i + same].size() == all[i].size())
            ++same;
        if (!result.empty())
            result += ' ';
        result.append(std::to_string(same)).append("x").append(std::to_string(all[i].size()));
        i += same;
    }
    return result;
}

Word words(int width, const std::vector<std::string>& values)
{
    Word keyword("WORDS", values);
    keyword.valueTypeInfo(ValueTypeInfo(ValueType::C0nn, width));
    return keyword;
}

class StrictMode
{
public:
    StrictMode() { MorvaneAsciiWriter::setStrict(true); }

    StrictMode(const StrictMode&) = delete;
    StrictMode& operator=(const StrictMode&) = delete;

    ~StrictMode() { MorvaneAsciiWriter::setStrict(false); }
};

std::string printed(const char* format, auto value)
{
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), format, value);
    return text.data();
}

} // namespace

TEST(WriterForms, UnformattedBytesOfEachType)
{
    EXPECT_EQ(encoded(Real("PORO", {1.0F, -2.5F}), false),
              header("PORO    ", 2, "REAL") + record("\x3f\x80\0\0\xc0\x20\0\0"s));
    EXPECT_EQ(encoded(Doub("TIME", {-2.0}), false), header("TIME    ", 1, "DOUB") + record("\xc0\0\0\0\0\0\0\0"s));
    EXPECT_EQ(encoded(KeywordINTE("INTEHEAD", {258, -2}), false),
              header("INTEHEAD", 2, "INTE") + record("\0\0\1\2\xff\xff\xff\xfe"s));
    EXPECT_EQ(encoded(Logi("FLAGS", {1, -1, 0, 7}), false),
              header("FLAGS   ", 4, "LOGI") + record("\0\0\0\1\xff\xff\xff\xff\0\0\0\0\0\0\0\7"s));
    EXPECT_EQ(encoded(KeywordCHAR("NAMES", {"P1", "EIGHTCHR", "NINECHARS", ""}), false),
              header("NAMES   ", 4, "CHAR") + record("P1      EIGHTCHRNINECHAR        "));
    EXPECT_EQ(encoded(Mess("NOTE", {"TEXT"}), false), header("NOTE    ", 1, "MESS") + record("TEXT    "));
}

TEST(WriterForms, FormattedLinesOfEachType)
{
    EXPECT_EQ(encoded(Real("PORO", {1.0F, -0.25F, 1e-30F, 3.4028235e38F, 0.0F}), true),
              " 'PORO    '           5 'REAL'\n"
              "    1.0000000E+00   -2.5000000E-01    1.0000000E-30    3.4028235E+38\n"
              "    0.0000000E+00\n");
    EXPECT_EQ(encoded(Doub("TIME", {1.0, -1e-308, 1e300}), true),
              " 'TIME    '           3 'DOUB'\n"
              "    1.0000000000000E+00  -1.0000000000000E-308   1.0000000000000E+300\n");
    EXPECT_EQ(encoded(KeywordINTE("I", {1, -2147483648, 2147483647}), true), " 'I       '           3 'INTE'\n"
                                                                             "           1 -2147483648  2147483647\n");
    EXPECT_EQ(encoded(Logi("FLAGS", {1, 0, -1, 2}), true), " 'FLAGS   '           4 'LOGI'\n"
                                                           "  T  F  F  F\n");
    EXPECT_EQ(encoded(Mess("NOTE", {"TEXT"}), true), " 'NOTE    '           1 'MESS'\n"
                                                     " 'TEXT    '\n");
}

TEST(WriterForms, FormattedCharItemsHaveAtMost15Characters)
{
    EXPECT_EQ(
        encoded(KeywordCHAR("NAMES", {"", "NINECHARS", "TWELVE_CHARS", "THIRTEENCHARS", "FOURTEEN_CHARS", "a\0b"s}),
                true),
        " 'NAMES   '           6 'CHAR'\n"
        " '        ' 'NINECHARS' 'TWELVE_CHARS' 'THIRTEENCHARS 'FOURTEEN_CHAR 'a       '\n");
}

TEST(WriterForms, ArraysAreCutIntoBlocks)
{
    using Lengths = std::vector<int>;
    const std::vector<std::pair<std::size_t, Lengths>> numberCases = {
        {0, {}}, {1, {4}}, {1000, {4000}}, {1001, {4000, 4}}, {2000, {4000, 4000}}};
    for (const auto& [count, lengths] : numberCases) {
        EXPECT_EQ(dataRecords(encoded(KeywordINTE("I", std::vector<int>(count, 5)), false)), lengths) << count;
        EXPECT_EQ(dataRecords(encoded(ShiftedINTE(std::vector<int>(count, 5), 1), false)), lengths) << count;
        EXPECT_EQ(dataRecords(encoded(Real("R", std::vector<float>(count)), false)), lengths) << count;
    }
    EXPECT_EQ(dataRecords(encoded(Doub("D", std::vector<double>(1001)), false)), (Lengths{8000, 8}));
    EXPECT_EQ(dataRecords(encoded(KeywordCHAR("C", std::vector<std::string>(105)), false)), (Lengths{840}));
    EXPECT_EQ(dataRecords(encoded(KeywordCHAR("C", std::vector<std::string>(106)), false)), (Lengths{840, 8}));
}

TEST(WriterForms, LinesEndBehindFullLinesAndBlocks)
{
    EXPECT_EQ(lineLengths(encoded(Real("R", {}), true)), "");
    EXPECT_EQ(lineLengths(encoded(Real("R", std::vector<float>(1001)), true)), "250x68 1x17");
    EXPECT_EQ(lineLengths(encoded(Doub("D", std::vector<double>(1001)), true)), "333x69 2x23");
    EXPECT_EQ(lineLengths(encoded(KeywordINTE("I", std::vector<int>(1012)), true)), "166x72 1x48 2x72");
    EXPECT_EQ(lineLengths(encoded(Logi("L", std::vector<int>(26)), true)), "1x75 1x3");
    EXPECT_EQ(lineLengths(encoded(Logi("L", std::vector<int>(1025)), true)), "41x75");
    EXPECT_EQ(lineLengths(encoded(KeywordCHAR("C", std::vector<std::string>(106)), true)), "15x77 1x11");
}

TEST(WriterForms, PiecesOfAFormattedArrayJoinOnTheLines)
{
    const std::vector<int> values(1003, 1);
    const std::span<const int> all(values);
    std::ostringstream pieces;
    FormattedArrayEncoder encoder(pieces, 6, 1000);
    for (const auto& [from, to] :
         std::vector<std::pair<std::size_t, std::size_t>>{{0, 7}, {7, 12}, {12, 999}, {999, 1003}})
        EXPECT_TRUE(encoder.writeIntegers(all.subspan(from, to - from), 0));
    EXPECT_TRUE(encoder.finish());
    const std::string whole = encoded(KeywordINTE("I", values), true);
    EXPECT_EQ(pieces.str(), whole.substr(whole.find('\n') + 1));
}

TEST(WriterForms, ShiftIsTakenOffAndWrapsAround)
{
    const int lowest = std::numeric_limits<int>::min();
    EXPECT_EQ(encoded(ShiftedINTE({1, lowest}, 1), false).substr(24), record("\0\0\0\0\x7f\xff\xff\xff"s));
    EXPECT_EQ(encoded(ShiftedINTE({0, 2147483647}, -1), false).substr(24), record("\0\0\0\1\x80\0\0\0"s));
    EXPECT_EQ(lines(encoded(ShiftedINTE({0, 2147483647}, -1), true)).at(1), "           1 -2147483648");
}

TEST(WriterForms, LongCountsGoIntoTwoHeaders)
{
    const KeywordHeader keyword("HUGE", 3, ValueType::REAL, std::int64_t{0});
    const auto written = [&](std::uint64_t count, bool formatted) {
        std::ostringstream out;
        EXPECT_TRUE(KeywordEncoder(out, formatted).writeHeader(keyword, count));
        return out.str();
    };
    EXPECT_EQ(written(2147483647, false), header("HUGE    ", 2147483647, "REAL"));
    EXPECT_EQ(written(2147483648, false), header("HUGE    ", -1, "X231") + header("HUGE    ", 0, "REAL"));
    EXPECT_EQ(written(std::uint64_t{3} * 2147483648 + 5, false),
              header("HUGE    ", -3, "X231") + header("HUGE    ", 5, "REAL"));
    EXPECT_EQ(written(4294967297, true), " 'HUGE    '          -2 'X231'\n 'HUGE    '           1 'REAL'\n");
}

TEST(WriterForms, ATypeWithoutTextIsRefused)
{
    std::ostringstream out;
    const Real untyped{KeywordHeader()};
    EXPECT_FALSE(KeywordEncoder(out, false).write(untyped));
    EXPECT_EQ(out.str(), "");
}

TEST(WriterForms, NumbersLookAsPrintfMakesThem)
{
    std::mt19937_64 random(20261121);
    std::array<char, 32> text{};
    const auto check = [&](std::uint64_t bits) {
        const auto narrow = static_cast<std::uint32_t>(bits);
        const auto real = std::bit_cast<float>(narrow);
        const auto doub = std::bit_cast<double>(bits);
        const int inte = static_cast<int>(narrow) >> (bits >> 59);
        ASSERT_EQ(std::string(text.data(), printReal(text.data(), real)), printed(" %16.7E", double{real}));
        ASSERT_EQ(std::string(text.data(), printDouble(text.data(), doub)), printed(" %22.13E", doub));
        ASSERT_EQ(std::string(text.data(), printInteger(text.data(), inte)), printed(" %11d", inte));
    };
    for (int i = 0; i < 200000; ++i)
        ASSERT_NO_FATAL_FAILURE(check(random()));
    for (const double value : {0.0, -0.0, HUGE_VAL, -HUGE_VAL, std::nan(""), -std::nan(""), 5e-324, 9.99999999999995}) {
        ASSERT_NO_FATAL_FAILURE(check(std::bit_cast<std::uint64_t>(value)));
        ASSERT_NO_FATAL_FAILURE(check(std::bit_cast<std::uint32_t>(static_cast<float>(value))));
    }
}

TEST(WriterForms, StrictModeMovesThePointAndLeavesTheExponent)
{
    const StrictMode strict;
    const std::vector<std::pair<float, std::string>> reals = {
        {-12.345678F, "   -0.12345678E+01"}, {0.0F, "    0.00000000E+00"},      {8.0e9F, "    0.80000000E+09"},
        {1.5e-9F, "    0.15000000E-09"},     {-HUGE_VALF, "             -INF"}, {std::nanf(""), "              NAN"}};
    for (const auto& [value, item] : reals)
        EXPECT_EQ(lines(encoded(Real("R", {value}), true)).at(1), item);
    EXPECT_EQ(lineLengths(encoded(Real("R", std::vector<float>(5)), true)), "1x72 1x18");
    EXPECT_EQ(lines(encoded(Doub("D", {-1.0, 25.0}), true)).at(1), "   -0.10000000000000E+00    0.25000000000000E+01");
    EXPECT_EQ(encoded(Real("R", {1e30F}), false).substr(24), record("\x71\x49\xf2\xca"s));
}

TEST(WriterForms, StrictModeRefusesExponentsOfTenAndMore)
{
    const StrictMode strict;
    for (const double value : {1e10, -1e10, 1e-10, 1e300, 1e-300}) {
        std::ostringstream out;
        try {
            KeywordEncoder(out, true).write(Doub("D", {1.0, 2.0, 3.0, 4.0, value, 5.0}));
            ADD_FAILURE() << value;
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ(error.what(), "Can't use 'strict' - exponent overflow");
        }
        EXPECT_EQ(lines(out.str()).back(), "    0.40000000000000E+00") << value;
    }
}

TEST(WriterForms, WidthsOfWords)
{
    const TempDir dir;

    struct Case
    {
        int given;
        std::vector<std::string> values;
        int stored;
        std::string unformatted;
        std::string formatted;
    };

    const std::vector<Case> cases = {
        {-1,
         {"ABC", "LONGERNAME"},
         10,
         header("WORDS   ", 2, "C010") + record("ABC       LONGERNAME"),
         " 'WORDS   '           2 'C010'\n 'ABC       ' 'LONGERNAME'\n"},
        {16,
         {"ABCDEFGHIJ", "X"},
         16,
         header("WORDS   ", 2, "C016") + record("ABCDEFGHIJX         "),
         " 'WORDS   '           2 'C016'\n 'ABCDEFGHIJ      ' 'X               '\n"},
        {4,
         {"ABCDEF"},
         4,
         header("WORDS   ", 1, "C004") + record("ABCDEF"),
         " 'WORDS   '           1 'C004'\n 'ABCDEF'\n"},
        {16, {}, 16, header("WORDS   ", 0, "C016"), " 'WORDS   '           0 'C016'\n"},
    };
    for (const Case& one : cases) {
        for (const bool formatted : {false, true}) {
            const auto type = formatted ? MorvaneWriterCreator::Formatted : MorvaneWriterCreator::Unformatted;
            const auto writer = MorvaneWriterCreator::create(dir.file("W").c_str(), type);
            Word keyword = words(one.given, one.values);
            EXPECT_TRUE(writer->writeKeyword(keyword) && writer->endWrite());
            EXPECT_EQ(readBytes(dir.file("W")), formatted ? one.formatted : one.unformatted);
            EXPECT_EQ(keyword.valueTypeInfo().intData(), one.stored);
        }
    }
}

TEST(WriterForms, WordsPerLineComeFromTheLongestString)
{
    const TempDir dir;
    const auto lengths = [&](int given, std::size_t longest) {
        MorvaneAsciiWriter writer;
        EXPECT_TRUE(writer.setFilename(dir.file("W"), false));
        Word keyword = words(given, std::vector<std::string>(8, std::string(longest, 'x')));
        EXPECT_TRUE(writer.writeKeyword(keyword) && writer.endWrite());
        return lineLengths(readBytes(dir.file("W")));
    };
    EXPECT_EQ(lengths(-1, 8), "1x77 1x11");
    EXPECT_EQ(lengths(-1, 16), "2x76");
    EXPECT_EQ(lengths(-1, 32), "4x70");
    EXPECT_EQ(lengths(-1, 77), "8x80");
    EXPECT_EQ(lengths(20, 8), "1x161 1x23");
}

TEST(WriterForms, ImpossibleWidthsAreRefusedBeforeAnythingIsWritten)
{
    const TempDir dir;
    const std::string none = "Word size for C0nn data type must be > 0";

    struct Case
    {
        bool formatted;
        int given;
        std::vector<std::string> values;
        std::string text;
    };

    const std::vector<Case> cases = {
        {false, -1, {"", ""}, none},
        {true, -1, {"", ""}, none},
        {true, 0, {}, none},
        {false, 100, {"A"}, "Word size for C0nn data type must be <= 99"},
        {false, -1, {std::string(100, 'x')}, "Word size for C0nn data type must be <= 99"},
        {true, -1, {std::string(78, 'x')}, "Word size for C0nn data type must be <= 77"},
        {true, 16, {std::string(78, 'x')}, "Word size for C0nn data type must be <= 77"},
        {true, 78, {"A"}, "Word size for C0nn data type must be <= 77"},
    };
    for (const Case& one : cases) {
        const auto type = one.formatted ? MorvaneWriterCreator::Formatted : MorvaneWriterCreator::Unformatted;
        const auto writer = MorvaneWriterCreator::create(dir.file("W").c_str(), type);
        Word keyword = words(one.given, one.values);
        try {
            writer->writeKeyword(keyword);
            ADD_FAILURE() << one.given;
        } catch (const std::invalid_argument& error) {
            EXPECT_EQ(error.what(), one.text);
        }
        EXPECT_TRUE(writer->endWrite());
        EXPECT_EQ(readBytes(dir.file("W")), "");
    }
}

TEST(WriterForms, AnEmptyUnformattedWordArrayNeedsNoWidth)
{
    const TempDir dir;
    MorvaneBinaryWriter writer;
    ASSERT_TRUE(writer.setFilename(dir.file("W"), false));
    Word keyword = words(0, {});
    EXPECT_TRUE(writer.writeKeyword(keyword) && writer.endWrite());
    EXPECT_EQ(readBytes(dir.file("W")), header("WORDS   ", 0, "C0-1"));
}

TEST(WriterForms, TheArrayDecidesTheCountAndNamesGoUnchecked)
{
    Real keyword("TENLETTERS");
    keyword.array() = {1.0F};
    keyword.size(-1);
    EXPECT_EQ(encoded(keyword, false).substr(0, 24), header("TENLETTE", 1, "REAL"));
    EXPECT_EQ(lines(encoded(keyword, true)).at(0), " 'TENLETTERS'           1 'REAL'");
}

TEST(WriterFiles, ANewFileIsEmptiedAndAppendingGoesOn)
{
    const TempDir dir;
    const std::string name = dir.file("CASE.FINIT");
    writeBytes(name, "what was there before");
    const auto writer = MorvaneWriterCreator::create(name.c_str(), MorvaneWriterCreator::Formatted);
    ASSERT_NE(writer, nullptr);
    EXPECT_EQ(writer->getFileName(), name);
    Logi first("A", {1});
    KeywordINTE second("B", {2});
    EXPECT_TRUE(writer->writeKeyword(first));
    EXPECT_FALSE(writer->setFilename(dir.file("OTHER"), false));
    EXPECT_FALSE(writer->endWrite());
    EXPECT_TRUE(writer->setFilename(name, true));
    EXPECT_TRUE(writer->writeKeyword(second) && writer->endWrite());
    EXPECT_EQ(readBytes(name), " 'A       '           1 'LOGI'\n  T\n 'B       '           1 'INTE'\n           2\n");
}

TEST(WriterFiles, FailuresShowInTheResults)
{
    const TempDir dir;
    EXPECT_EQ(MorvaneWriterCreator::create(dir.file("missing/CASE.INIT").c_str(), MorvaneWriterCreator::Unformatted),
              nullptr);
    MorvaneBinaryWriter writer;
    Real keyword("R", {1.0F});
    EXPECT_FALSE(writer.setFilename(dir.path(), false));
    EXPECT_EQ(writer.getFileName(), dir.path());
    EXPECT_FALSE(writer.writeKeyword(keyword));
    EXPECT_FALSE(writer.endWrite());
    EXPECT_TRUE(writer.setFilename(dir.file("CASE.INIT"), false));
    EXPECT_TRUE(writer.writeKeyword(keyword) && writer.endWrite());
    EXPECT_FALSE(writer.endWrite());
}

TEST(WriterFiles, AFullDiskShowsAtTheEndAtTheLatest)
{
    for (const auto type : {MorvaneWriterCreator::Formatted, MorvaneWriterCreator::Unformatted}) {
        for (const std::size_t count : {std::size_t{1}, std::size_t{2000000}}) {
            const auto writer = MorvaneWriterCreator::create("/dev/full", type);
            ASSERT_NE(writer, nullptr);
            KeywordINTE keyword("I", std::vector<int>(count));
            EXPECT_EQ(writer->writeKeyword(keyword), count == 1);
            EXPECT_FALSE(writer->endWrite());
        }
    }
}
