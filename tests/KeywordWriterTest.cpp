#include <mrlio/KeywordWriter.h>
#include <mrlio/MorvaneAsciiWriter.h>

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>
#include <vector>

using namespace Kvt::Mrl::MrlIO;
using namespace std::string_literals;

namespace {

class CellIndexes : public KeywordINTE
{
public:
    using KeywordINTE::KeywordINTE;

    int getShift() const override { return -1; }
};

KeywordTmpl<6> words(int width, const std::vector<std::string>& values)
{
    KeywordTmpl<6> keyword("WORDS", values);
    keyword.valueTypeInfo(ValueTypeInfo(ValueType::C0nn, width));
    return keyword;
}

template <class Record>
std::string written(const Record& keyword, bool formatted)
{
    std::ostringstream out;
    KeywordWriter(out, formatted, Service::FileName("CASE.UNRST"s)).write(keyword);
    return out.str();
}

template <class Error>
std::string textOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const Error& error) {
        return error.what();
    }
    return "nothing thrown";
}

} // namespace

TEST(KeywordWriter, WritesConstRecordsOfEveryKind)
{
    std::ostringstream out;
    KeywordWriter writer(out, true, Service::FileName("CASE.FUNRST"s));
    const CellIndexes indexes("INDEXES", {0, 9});
    writer.write(KeywordTmpl<0>("DOUB", {1.0}));
    writer.write(KeywordTmpl<1>("REAL", {1.0F}));
    writer.write(KeywordTmpl<3>("LOGI", {1}));
    writer.write(KeywordTmpl<5>("MESS"));
    writer.write(words(3, {"A"}));
    writer.write(KeywordCHAR("CHAR", {"A"}));
    writer.write(KeywordINTE("INTE", {1}));
    writer.write(indexes);
    EXPECT_EQ(out.str(), " 'DOUB    '           1 'DOUB'\n    1.0000000000000E+00\n"
                         " 'REAL    '           1 'REAL'\n    1.0000000E+00\n"
                         " 'LOGI    '           1 'LOGI'\n  T\n"
                         " 'MESS    '           0 'MESS'\n"
                         " 'WORDS   '           1 'C003'\n 'A  '\n"
                         " 'CHAR    '           1 'CHAR'\n 'A       '\n"
                         " 'INTE    '           1 'INTE'\n           1\n"
                         " 'INDEXES '           2 'INTE'\n           1          10\n");
}

TEST(KeywordWriter, OneWidthGovernsWords)
{
    EXPECT_EQ(written(words(6, {"ABC", "LONGERNAME"}), false), "\0\0\0\x10WORDS   \0\0\0\2C006\0\0\0\x10\0\0\0\x0c"
                                                               "ABC   LONGER\0\0\0\x0c"s);
    EXPECT_EQ(written(words(24, {"A", "B", "C"}), true), " 'WORDS   '           3 'C024'\n"
                                                         " 'A                       ' 'B                       '\n"
                                                         " 'C                       '\n");
}

TEST(KeywordWriter, StringsGoByTheTypeOfTheirHeader)
{
    const KeywordTmpl<6> twelve = words(12, {"A LOCAL GRID", "B"});
    KeywordCHAR read(twelve);
    KeywordTmpl<5> note(twelve);
    KeywordTmpl<6> eights(KeywordHeader("NAMES", 2, ValueType::CHAR, std::int64_t{0}));
    read.array() = note.array() = eights.array() = twelve.array();
    for (const bool formatted : {false, true}) {
        EXPECT_EQ(written(read, formatted), written(twelve, formatted));
        EXPECT_EQ(written(note, formatted), written(twelve, formatted));
        EXPECT_EQ(written(eights, formatted), written(KeywordCHAR("NAMES", twelve.array()), formatted));
    }
    read.valueTypeInfo(ValueTypeInfo(ValueType::C0nn, 0));
    EXPECT_THROW(written(read, false), std::invalid_argument);
}

TEST(KeywordWriter, RefusesNamesBeforeWriting)
{
    EXPECT_NO_THROW(KeywordWriter::validateKeywordName("EIGHTCHR"));
    std::ostringstream out;
    KeywordWriter writer(out, false, Service::FileName());
    EXPECT_EQ(textOf<std::invalid_argument>([&] { writer.write(KeywordTmpl<1>("")); }),
              "Blank keywords are not supported");
    EXPECT_EQ(textOf<std::invalid_argument>([&] { writer.write(KeywordTmpl<1>("NINECHARS")); }),
              "Invalid keyword name: NINECHARS.  Keyword names longer than 8 characters are not supported.");
    EXPECT_EQ(out.str(), "");
}

TEST(KeywordWriter, RefusesWidthsBeforeWriting)
{
    const std::string none = "Word size for C0nn data type must be > 0";
    for (const bool formatted : {false, true}) {
        const int longest = formatted ? 77 : 99;
        for (const int width : {-1, 0, longest + 1}) {
            std::ostringstream out;
            KeywordWriter writer(out, formatted, Service::FileName());
            EXPECT_EQ(textOf<std::invalid_argument>([&] { writer.write(words(width, {})); }),
                      width < 1 ? none : "Word size for C0nn data type must be <= " + std::to_string(longest));
            EXPECT_EQ(out.str(), "");
        }
        EXPECT_NO_THROW(written(words(longest, {"ABC"}), formatted));
    }
}

TEST(KeywordWriter, ReportsAFailedStream)
{
    const Service::FileName file("/data/CASE.UNRST"s);
    for (const bool formatted : {false, true}) {
        std::ostream out(nullptr);
        KeywordWriter writer(out, formatted, file);
        EXPECT_EQ(writer.getFileName(), file);
        EXPECT_EQ(textOf<std::runtime_error>([&] { writer.write(KeywordCHAR("ZWEL", {"P1"})); }),
                  "A problem was encountered writing the keyword ZWEL to file.");
    }
}
