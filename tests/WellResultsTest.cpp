#include "support/WellFile.h"
#include "wellresults/CacheText.h"
#include "wellresults/Indexers.h"
#include "wellresults/KeywordScan.h"
#include "wellresults/NameSequence.h"

#include <mrlio/MrlIOException.h>

#include <boost/lexical_cast.hpp>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <limits>

namespace MrlIOTest {
namespace {

using namespace Kvt::Mrl::MrlIO;
using Date = Service::YearMonthDay;

TEST(WellIndexers, NumberKeysInTheOrderOfTheQuestions)
{
    NameIndexer names;
    const std::pair<const char*, int> questions[] = {{"B", 0}, {"A", 1}, {"A", 1}, {"C", 2}, {"B", 0}, {"", 3}};
    for (const auto& [name, index] : questions)
        EXPECT_EQ(names.index(name), index) << name;
}

TEST(WellIndexers, OfEqualDatesTheLastIsMeantFromWherever)
{
    const Date a(2030, 1, 1), b(2030, 1, 2), c(2030, 1, 3);
    const std::vector<Date> dates{a, b, b, a, c};
    for (const Date& before : dates) {
        for (const Date& after : dates) {
            DateIndexer indexer(dates);
            indexer.index(before);
            EXPECT_EQ(indexer.index(after), after == a ? 3 : after == b ? 2 : 4);
            EXPECT_EQ(indexer.index(Date(2031, 1, 1)), -1);
            EXPECT_EQ(indexer.index(before), before == a ? 3 : before == b ? 2 : 4);
        }
    }
    EXPECT_EQ(DateIndexer({}).index(a), -1);
}

TEST(WellNameSequence, WhatIsSeenTakesNoSpaceForTheNamesBeforeIt)
{
    SeenNumbers seen;
    for (const std::uint32_t number : {3u, 255u, 256u, 0xFFFFFFFFu, 0u}) {
        EXPECT_TRUE(seen.add(number)) << number;
        EXPECT_FALSE(seen.add(number)) << number;
    }
}

TEST(WellCacheText, KeepsEachByte)
{
    std::string all;
    for (int byte = 1; byte < 256; ++byte)
        all += static_cast<char>(byte);
    EXPECT_EQ(fromCacheText(toCacheText(all)), all);
    EXPECT_EQ(toCacheText("\xC4"), "\xC3\x84");
    for (const char* foreign : {"\xC4\x80", "\xE2\x82\xAC", "\xC3"})
        EXPECT_THROW(fromCacheText(foreign), MrlIOException) << foreign;
}

template <class Number>
void expectLikeLexicalCast(const char* text)
{
    Number expected{}, found{};
    const bool isNumber = boost::conversion::try_lexical_convert(std::string(text), expected);
    try {
        found = numberOf<Number>(text);
        EXPECT_TRUE(isNumber) << text;
    } catch (const boost::bad_lexical_cast&) {
        EXPECT_FALSE(isNumber) << text;
    }
    if (isNumber) {
        EXPECT_EQ(found, expected) << text;
    }
}

TEST(WellCacheText, NumbersAreThoseOfLexicalCast)
{
    for (const float value : {0.1f, 1e-45f, -0.0f, 3.4e38f, 16777216.0f, std::numeric_limits<float>::infinity()}) {
        EXPECT_EQ(numberText(value), boost::lexical_cast<std::string>(value));
        EXPECT_EQ(numberOf<float>(numberText(value)), value);
        EXPECT_EQ(numberText(double{value}), boost::lexical_cast<std::string>(double{value}));
    }
    for (const char* text : {"12", "+12", "-12", "+-12", "--12", "", "+", "-", " 12", "12 ", "1e3", "12x", "0x10",
                             "2147483648", "-2147483648", "99999999999999999999", "1.5", ".5", "1e999"}) {
        expectLikeLexicalCast<int>(text);
        expectLikeLexicalCast<std::int64_t>(text);
        expectLikeLexicalCast<float>(text);
    }
}

/// What a walk meets: each keyword with its short data, and how it ends.
std::string story(const std::string& file, bool skims)
{
    std::string told;
    try {
        KeywordScan<MrlIOException> scan("walk", file, false);
        NameSequence names{"TIME", "DATE"};
        if (skims)
            scan.skimHeaders();
        while (scan.next()) {
            const KeywordHeader header = scan.header();
            told += scan.name() + std::to_string(scan.number(names)) + ' ' + std::to_string(header.size()) + ' ' +
                    std::to_string(header.valueType()) + ' ' + std::to_string(header.valueTypeInfo().intData()) + '@' +
                    std::to_string(header.keywordLargePos());
            if (scan.name() == "TIME")
                told += ' ' + std::to_string(scan.floats().size());
            if (scan.name() == "DATE")
                told += ' ' + std::to_string(scan.integers().at(1));
            if (scan.name() == "WELLETC")
                told += ' ' + scan.strings(3).back() + std::to_string(scan.strings().size());
            told += '\n';
        }
        told += "end" + scan.name();
    } catch (const std::exception& fault) {
        told += fault.what();
    }
    return told;
}

TEST(WellHeaderSkimming, MeetsWhatAReaderMeets)
{
    const auto usual = [](WellFile& f) { f.report(1.0f).well("A").keyword("SWAT", {1.0f}); };
    const std::pair<const char*, std::function<void(WellFile&)>> endings[] = {
        {"plain", [](WellFile&) {}},
        {"another type, and back",
         [&](WellFile& f) { f.keyword("SWAT", {1}).keyword("SWAT", {"a"}), usual(f), usual(f); }},
        {"cut", [](WellFile& f) { f.cutTail(1); }},
        {"cut record", [](WellFile& f) { f.cutTail(7); }},
        {"cut header", [](WellFile& f) { f.cutTail(14); }},
        {"stray byte", [](WellFile& f) { f.raw("x"); }},
        {"other record", [](WellFile& f) { f.record("short"); }},
        {"many records", [](WellFile& f) { f.keyword("SWAT", std::vector<float>(2500)).header("TIME", 0, "REAL"); }},
        {"short records", [](WellFile& f) { f.header("SWAT", 2, "REAL").record("four").record("").record("five"); }},
        {"too long a record", [](WellFile& f) { f.header("SWAT", 1, "REAL").record("fourfour"); }},
        {"negative count", [](WellFile& f) { f.header("SWAT", -1, "REAL").record("four"); }},
        {"empty array", [](WellFile& f) { f.keyword("TIME", std::vector<float>{}); }},
        {"time of another type", [](WellFile& f) { f.keyword("TIME", {1}); }},
        {"date in two records", [](WellFile& f) { f.header("DATE", 2, "INTE").record("four").record("five"); }},
        {"damaged date", [](WellFile& f) { f.header("DATE", 2, "INTE").record("foury"); }},
        {"lower-case type", [](WellFile& f) { f.header("SWAT", 1, "real").record("four"); }},
        {"unknown type", [](WellFile& f) { f.header("SWAT", 1, "RAEL").record("four"); }},
        {"other strings", [](WellFile& f) { f.strings("SWAT", 12, {"a"}).strings("SWAT", 14, {"b"}); }},
        {"no name", [](WellFile& f) { f.header("", 1, "REAL").record("four"); }},
        {"name with blank", [](WellFile& f) { f.header(" SWAT", 1, "REAL").record("four"); }},
        {"two headers", [](WellFile& f) { f.header("SWAT", 0, "X231").header("SWAT", 1, "REAL").record("four"); }},
        {"half of two headers", [](WellFile& f) { f.header("SWAT", -1, "X231"); }},
    };
    const TempDir folder;
    for (const auto& [what, end] : endings) {
        WellFile file;
        usual(file), usual(file);
        end(file);
        for (const bool goesOn : {false, true}) {
            if (goesOn)
                usual(file);
            file.writeTo(folder.file("A.RFT"));
            EXPECT_EQ(story(folder.file("A.RFT"), true), story(folder.file("A.RFT"), false)) << what;
        }
    }
}

TEST(WellHeaderSkimming, LeavesAFileThatItCannotOpenToTheReader)
{
    const TempDir folder;
    WellFile().report(1.0f).keyword("SWAT", {1.0f}).writeTo(folder.file("A.RFT"));
    KeywordScan<MrlIOException> scan("walk", folder.file("A.RFT"), false);
    std::filesystem::remove(folder.file("A.RFT"));
    scan.skimHeaders();
    NameSequence names;
    for (const char* name : {"TIME", "DATE", "SWAT"}) {
        ASSERT_TRUE(scan.next()) << name;
        EXPECT_EQ(scan.name(), name);
        EXPECT_EQ(scan.number(names), names.number(name));
    }
    EXPECT_EQ(scan.floats(), std::vector<float>{1.0f});
    EXPECT_FALSE(scan.next());
}

} // namespace
} // namespace MrlIOTest
