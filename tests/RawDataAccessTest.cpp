#include "initrestart/read/RawDataAccess.h"
#include "support/StepFile.h"

#include <mrlio/MrlIOException.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

namespace {

using namespace Kvt::Mrl::MrlIO;
using namespace MrlIOTest;

template <class T>
std::vector<T> read(const IRawDataAccess& access, const std::string& name, const std::string& lgr = {},
                    const std::string& lgr2 = {})
{
    std::vector<T> out(3);
    EXPECT_TRUE(access.getAnyArray(name, out, lgr, lgr2)) << name;
    return out;
}

/// The text of a failure, of the access or of the converter.
template <class T>
std::string failure(const IRawDataAccess& access, const std::string& name)
{
    std::vector<T> out(3);
    try {
        access.getAnyArray(name, out);
    } catch (const MrlIOException& exception) {
        EXPECT_TRUE(out.empty());
        return exception.what();
    }
    return "read";
}

TEST(RawDataAccess, ConvertsWhereNothingIsLostAndRefusesTheRest)
{
    using Strings = std::vector<std::string>;
    for (const auto form : {KeywordFileBuilder::Binary, KeywordFileBuilder::Text}) {
        StepFile file(form);
        file.add("DOUBLES", {1.5, -2.0}).add("REALS", {0.5f, 4.0f}).add("INTS", {7, 0, -1});
        file.row("FLAGS", ValueType::LOGI, 3).content.logicals("FLAGS", {1, 0, 1});
        file.add("CHARS", Strings{"A", "BC"});
        file.row("WIDE", ValueType::C0nn, 2).content.strings("WIDE", 12, {"twelve chars", "b"});
        file.row("NOTHING", ValueType::MESS, 0).content.header("NOTHING", 0, "MESS");
        const RawDataAccess access = file.access();
        EXPECT_EQ(read<double>(access, "DOUBLES"), (std::vector<double>{1.5, -2.0}));
        EXPECT_EQ(read<float>(access, "REALS"), (std::vector<float>{0.5f, 4.0f}));
        EXPECT_EQ(read<double>(access, "REALS"), (std::vector<double>{0.5, 4.0}));
        EXPECT_EQ(read<int>(access, "INTS"), (std::vector<int>{7, 0, -1}));
        EXPECT_EQ(read<float>(access, "INTS"), (std::vector<float>{7, 0, -1}));
        EXPECT_EQ(read<bool>(access, "INTS"), (std::vector<bool>{true, false, true}));
        EXPECT_EQ(read<double>(access, "FLAGS"), (std::vector<double>{1, 0, 1}));
        EXPECT_EQ(read<bool>(access, "FLAGS"), (std::vector<bool>{true, false, true}));
        EXPECT_EQ(read<std::string>(access, "CHARS"), (Strings{"A", "BC"}));
        EXPECT_EQ(read<std::string>(access, "WIDE"), (Strings{"twelve chars", "b"}));
        EXPECT_EQ(read<std::string>(access, "NOTHING"), Strings());

        const std::string refused = "MrlI0::ArrayConverter: can not convert ";
        const std::string doubles = refused + typeid(std::vector<double>).name() + " to ";
        EXPECT_EQ(failure<float>(access, "DOUBLES"), doubles + typeid(std::vector<float>).name());
        EXPECT_EQ(failure<bool>(access, "REALS").rfind(refused, 0), 0u);
        EXPECT_EQ(failure<std::string>(access, "FLAGS").rfind(refused, 0), 0u);
        EXPECT_EQ(failure<double>(access, "WIDE").rfind(refused, 0), 0u);
    }
}

TEST(RawDataAccess, FindsTheFirstArrayOfANameInItsGrid)
{
    StepFile file;
    file.add("SWAT", {1}).add("SWAT", {2}).add("SWAT", std::vector<int>{3}, "LGR1");
    file.index.stats.maxima[0] = 8.0;
    const RawDataAccess access = file.access();
    EXPECT_EQ(read<int>(access, "SWAT"), std::vector<int>{1});
    EXPECT_EQ(read<int>(access, "SWAT", "LGR1"), std::vector<int>{3});

    ArrayInfo info;
    ASSERT_TRUE(access.getArrayInfo("SWAT", info));
    EXPECT_EQ(info.getMax(), 8.0);
    for (const auto& [name, lgr] : {std::pair("SGAS", ""), std::pair("SWAT", "LGR2"), std::pair("swat", "")}) {
        std::vector<int> out{1};
        EXPECT_FALSE(access.getAnyArray(name, out, lgr));
        EXPECT_TRUE(out.empty());
        EXPECT_FALSE(access.hasArray(name, lgr));
        EXPECT_FALSE(access.getArrayInfo(name, info, lgr));
        EXPECT_EQ(info.getMax(), 8.0);
    }
    EXPECT_TRUE(access.arrays("LGR2").names.empty());
}

TEST(RawDataAccess, GivesArraysBetweenTwoLocalGridsInAnyOrder)
{
    StepFile file;
    file.row("LGR", ValueType::CHAR, 1, "B").content.keyword("LGR", {"B"});
    file.content.keyword("LGRJOIN", {"B", "A"}).keyword("TRANNNC", {0.5f, 0.25f}).keyword("ENDLGR", {0});
    const RawDataAccess access = file.access();
    EXPECT_EQ(read<float>(access, "TRANNNC", "A", "B"), (std::vector<float>{0.5f, 0.25f}));
    EXPECT_TRUE(access.hasArray("TRANNNC", "B", "A"));
    EXPECT_FALSE(access.hasArray("TRANNNC", "B"));
    EXPECT_FALSE(access.hasArray("TRANNNC", "B", "C"));
}

TEST(RawDataAccess, ReadsBehindTwoGigabytes)
{
    StepFile file;
    file.add("SWAT", {1});
    const RawDataAccess access = file.access();
    const std::int64_t place = (std::int64_t{3} << 31) + 5;
    std::filesystem::resize_file(file.path(), static_cast<std::uintmax_t>(place));
    std::ofstream(file.path(), std::ios::app | std::ios::binary) << file.content.bytes();
    setRowPosition(file.index.stats, 0, place);
    EXPECT_EQ(file.index.stats.pointers[0], 5);
    EXPECT_EQ(read<int>(access, "SWAT"), std::vector<int>{1});
}

TEST(RawDataAccess, RefusesRowsThatDisagreeWithTheFile)
{
    struct
    {
        const char* what;
        std::function<void(SpecStatsData&)> change;
    } const cases[] = {
        {"another name at the place", [](auto& rows) { rows.pointers[1] = rows.pointers[0]; }},
        {"inside a keyword", [](auto& rows) { rows.pointers[1] += 4; }},
        {"far behind the end", [](auto& rows) { rows.pointersB[1] = 2147483647; }},
        {"negative place", [](auto& rows) { rows.pointersB[1] = -1; }},
        {"negative count", [](auto& rows) { rows.numbers[1] = -3; }},
        {"a count that no file of this size holds", [](auto& rows) { rows.numbers[1] = 2147483647; }},
        {"another type", [](auto& rows) { rows.types[1] = ValueType::DOUB; }},
        {"strings of own width in place of numbers", [](auto& rows) { rows.types[1] = ValueType::C0nn; }},
    };

    for (const auto& [what, change] : cases) {
        SCOPED_TRACE(what);
        StepFile file;
        file.add("SGAS", {1.0f}).add("SWAT", {1.0f, 2.0f});
        const RawDataAccess access = file.access();
        change(file.index.stats);
        const std::string told =
            "Kvt::Mrl::MrlIO::RawDataAccess::getAnyArray: fails to read array SWAT from " + file.path() + "\n";
        EXPECT_EQ(failure<bool>(access, "SWAT").substr(0, told.size()), told) << "before any conversion";
        EXPECT_EQ(read<float>(access, "SGAS"), std::vector<float>{1.0f}) << "the access survives";
    }
}

TEST(RawDataAccess, NoticesThatTheFileWasReplaced)
{
    StepFile file;
    file.add("SGAS", {1.0f}).add("SWAT", {1.0f, 2.0f});
    const RawDataAccess access = file.access();
    const std::pair<const char*, KeywordFileBuilder> others[] = {
        {"shorter arrays in front", KeywordFileBuilder().keyword("SWAT", {1.0f, 2.0f})},
        {"fewer elements", KeywordFileBuilder().keyword("SGAS", {1.0f}).keyword("SWAT", {1.0f})},
        {"another type", KeywordFileBuilder().keyword("SGAS", {1.0f}).keyword("SWAT", {1, 2})}};
    for (const auto& [what, content] : others) {
        content.writeTo(file.path());
        EXPECT_THAT(failure<float>(access, "SWAT"), testing::HasSubstr(": fails to read array SWAT from ")) << what;
    }
    KeywordFileBuilder().keyword("SGAS", {1.0f}).keyword("SWAT", {3.0f, 4.0f}).writeTo(file.path());
    EXPECT_EQ(read<float>(access, "SWAT"), (std::vector<float>{3.0f, 4.0f})) << "a case of the same layout";
}

TEST(RawDataAccess, TellsWhyAFileGivesNoReader)
{
    StepFile file;
    file.add("SWAT", {1.0f}).row("BIG", ValueType::X231, 0);
    const RawDataAccess access = file.access();
    const std::string where = "Kvt::Mrl::MrlIO::RawDataAccess::getAnyArray";
    EXPECT_EQ(failure<float>(access, "BIG"), where + ": unhandled data type 7");
    writeBytes(file.path(), "");
    EXPECT_EQ(failure<float>(access, "SWAT"), where + ": fails to open file " + file.path());
    std::filesystem::remove(file.path());
    EXPECT_EQ(failure<float>(access, "BIG"), where + ": fails to open file " + file.path()) << "before all else";
    EXPECT_TRUE(access.hasArray("SWAT")) << "listing needs no file";
}

} // namespace
