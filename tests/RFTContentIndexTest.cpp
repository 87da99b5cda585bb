#include "wellresults/rft/RFTContentIndex.h"

#include "support/SummaryCase.h"
#include "support/WellFile.h"

#include <mrlio/RFTReaderEnvironment.h>

#include <boost/lexical_cast/bad_lexical_cast.hpp>
#include <functional>
#include <gtest/gtest.h>

namespace MrlIOTest {
namespace {

using namespace Kvt::Mrl::MrlIO;
using Category = RFTArrayNameCategorizer;
using Names = std::set<std::string>;

class RFTContentIndexTest : public ::testing::Test
{
protected:
    RFTContentIndex open() const { return RFTContentIndex(folder.file()); }

    std::string failure() const
    {
        try {
            open();
        } catch (const RFTReaderException& fault) {
            return fault.what();
        }
        return "none";
    }

    WellCase folder{"RFT", "_rft_content_index__.xml"};
};

/// Two reports, three wells; arrays outside of wells, and of other types than at first.
WellFile twoReports(WellFile::Form form = WellFile::Binary)
{
    WellFile file(form);
    file.keyword("EARLY", {1});
    file.report(0.1f, 2, 1, 2030).well("B", "LGR1", "MULTISEG").keyword("DEPTH", {1.0f}).keyword("SEGDEPTH", {1.0f});
    file.report(0.1f, 2, 1, 2030).well("A").keyword("DEPTH", {2.0f}).keyword("CONIPOS", {1});
    file.report(0.05f, 1, 1, 2030).keyword("CONPRES", {1.0f});
    file.report(31.5f, 1, 2, 2030).well("A", "OTHER", "NONSENSE").keyword("DEPTH", std::vector<double>{3.0});
    return file;
}

TEST(RFTArrayNames, CategoryFollowsFromTheName)
{
    const std::pair<Category::CategoryType, std::vector<std::string>> rows[] = {
        {Category::Basic,
         {"WELLETC", "CONIPOS", "CONJPOS", "CONKPOS", "HOSTGRID", "CO", "S", "B", "RE", "depth", "TEMP2", ""}},
        {Category::RFT, {"DEPTH", "PRESSURE", "SWAT", "SGAS", "SOIL", "TEMP"}},
        {Category::PLT, {"CONDEPTH", "CON", "CONIPOS2", "WELLPLT"}},
        {Category::Segment, {"SEGDEPTH", "SE", "BRANCH", "BR", "READEPTH", "REA"}},
    };
    RFTArrayNamesCollections collections;
    for (const auto& [category, names] : rows) {
        for (const std::string& name : names) {
            EXPECT_EQ(Category::categoryPriv(name), category) << name;
            collections.addArrayName(name);
            EXPECT_TRUE(collections.names(static_cast<std::size_t>(category)).contains(name)) << name;
        }
    }
    for (const int category : {5, -1}) {
        try {
            collections.addArrayName("X", static_cast<Category::CategoryType>(category));
            ADD_FAILURE() << category;
        } catch (const RFTReaderException& fault) {
            EXPECT_EQ(fault.what(),
                      "RFTArrayNamesCollections::addArrayName: unhandled array type " + std::to_string(category));
        }
    }
}

/// What twoReports() holds, from whatever source.
void expectTwoReports(const RFTContentIndex& index, const std::vector<std::int64_t>& offsets)
{
    using Date = Kvt::Mrl::Core::Service::YearMonthDay;
    EXPECT_EQ(index.dates(), (std::vector<Date>{Date(2030, 1, 2), Date(2030, 2, 1)}));
    EXPECT_EQ(index.times(), (std::vector<float>{0.1f, 31.5f}));
    EXPECT_EQ(index.offsets(), offsets);
    EXPECT_EQ(index.wells().size(), 2u);
    EXPECT_EQ(index.wellInfo("B").type, WellModelType::MULTISEG);
    EXPECT_EQ(index.wellInfo("B").lgr, "LGR1");
    EXPECT_EQ(index.wellInfo("A").lgr, "") << "the first WELLETC of a well counts";
    EXPECT_EQ(index.wellInfo("Z").type, 4);
    EXPECT_EQ(index.arrayNames("A").names(Category::Basic), (Names{"CONIPOS", "WELLETC"}));
    EXPECT_EQ(index.arrayNames("A").names(Category::PLT), Names{"CONPRES"}) << "a well goes on up to the next one";
    EXPECT_EQ(index.arrayNames("B").names(Category::Segment), Names{"SEGDEPTH"});
    EXPECT_EQ(index.arrayNames("Z").names(Category::Basic), Names{});
    EXPECT_EQ(index.arrayNames("").names(Category::Basic), (Names{"CONIPOS", "EARLY", "WELLETC"}));
    EXPECT_EQ(index.arrayNames("").names(Category::RFT), Names{"DEPTH"});
    EXPECT_EQ(index.arrayValueType("DEPTH"), ValueType::REAL);
    EXPECT_EQ(index.arrayValueType("WELLETC"), ValueType::CHAR);
    EXPECT_EQ(index.arrayValueType("DATE"), 8);
    EXPECT_EQ(index.unit(WellUnit::timeUnit), "U0");
    EXPECT_EQ(index.unit(WellUnit::flowVelocityUnit), "U10");
    EXPECT_EQ(index.unit(WellUnit::energyUnit), "U18");
}

TEST_F(RFTContentIndexTest, ScanAndCacheTellTheSame)
{
    for (const auto form : {WellFile::Binary, WellFile::Text}) {
        const WellCase files(form == WellFile::Binary ? "RFT" : "FRFT", "_rft_content_index__.xml");
        const WellFile content = twoReports(form);
        files.write(content);
        const std::vector<std::int64_t> offsets{content.datePositions[0], content.datePositions[3]};
        expectTwoReports(RFTContentIndex(files.file()), offsets);
        files.editCache(">U4<", ">EDITED<");
        const RFTContentIndex fromCache(files.file());
        expectTwoReports(fromCache, offsets);
        EXPECT_EQ(fromCache.unit(WellUnit::pressureUnit), "EDITED");
    }
}

TEST_F(RFTContentIndexTest, RefusesFilesThatAreNone)
{
    const auto scan = [](const std::string& text) { return "RFTContentIndex::extractContentIndex: " + text; };
    auto texts = WellFile::wellEtc("A");
    const auto shortened = [&texts](int count) { return std::vector(texts.begin(), texts.begin() + count); };
    const std::pair<std::function<void(WellFile&)>, std::string> rows[] = {
        {[](WellFile&) {}, scan("reader not initialized")},
        {[](WellFile& f) { f.keyword("TIME", std::vector<float>{}); }, "TIME keyword contains less than 1 value"},
        {[](WellFile& f) { f.keyword("TIME", {1.0f}); }, scan("TIME must be followed by DATE, not ")},
        {[](WellFile& f) { f.keyword("TIME", {1.0f}).keyword("SWAT", {1.0f}); },
         scan("TIME must be followed by DATE, not SWAT")},
        {[](WellFile& f) {
             f.keyword("TIME", {1.0f}).keyword("DATE", {1, 2});
         },
         "DATE keyword contains less than 3 values"},
        {[](WellFile& f) { f.report(1.0f, 30, 2, 2030); }, scan("error reading DATE")},
        {[&](WellFile& f) { f.keyword("WELLETC", shortened(1)); }, "WELLETC keyword contains less than 2values"},
        {[&](WellFile& f) { f.keyword("WELLETC", shortened(6)); }, "WELLETC keyword contains less than 7values"},
        {[&](WellFile& f) { f.keyword("WELLETC", shortened(10)); }, "WELLETC keyword contains less than 11values"},
        {[&](WellFile& f) { f.well("A").keyword("WELLETC", shortened(3)); },
         "WELLETC keyword contains less than 7values"},
        {[](WellFile& f) { f.well("A", "", "standard"); }, "RFTContentIndex::addWell: unknown well type standard"},
    };
    for (const auto& [fill, text] : rows) {
        WellFile file;
        fill(file);
        folder.write(file);
        EXPECT_EQ(failure(), text);
        EXPECT_FALSE(folder.hasCache()) << text;
    }
    EXPECT_THROW(RFTContentIndex(folder.path("NONE.RFT")), RFTReaderException);
    EXPECT_THROW(RFTContentIndex(""), RFTReaderException);
    folder.write(twoReports().cutTail(2));
    EXPECT_THROW(open(), MrlIOException);
    EXPECT_FALSE(folder.hasCache());
}

TEST_F(RFTContentIndexTest, OldFilesLackUnits)
{
    WellFile file;
    auto texts = WellFile::wellEtc("A");
    texts.resize(13);
    file.keyword("WELLETC", texts).keyword("TIME", {-999.9f}).keyword("SWAT", {1.0f});
    folder.write(file);
    const RFTContentIndex index = open();
    EXPECT_EQ(index.unit(WellUnit::viscosityUnit), "U12");
    EXPECT_EQ(index.unit(WellUnit::polymerAndBrineConcentrationUnit), "");
    EXPECT_TRUE(index.dates().empty()) << "a time that isn't above -999.9 is none";
}

TEST_F(RFTContentIndexTest, CacheKeepsItsLayout)
{
    WellFile file;
    file.report(0.1f, 2, 1, 2030).well("A<\xE9", "", "RIVER").keyword("SWAT", {1.0f});
    folder.write(file);
    open();
    std::string cache = folder.cache();
    const auto stamp = cache.find("<fileStamp>"), units = cache.find("<units>");
    const auto unitsEnd = cache.find("</units>");
    EXPECT_NE(cache.find("<length>" + std::to_string(file.size()) + "</length>"), std::string::npos);
    EXPECT_NE(cache.find("<viscosityUnit>U12</viscosityUnit>"), std::string::npos);
    cache = cache.substr(0, stamp) + cache.substr(units, 7) + cache.substr(unitsEnd);
    cache.erase(cache.find("<!--"), cache.find("-->") + 3 - cache.find("<!--"));
    std::erase_if(cache, [](char c) { return c == '\r' || c == '\n' || c == ' '; });
    EXPECT_EQ(cache,
              R"(<?xmlversion="1.0"encoding="UTF-8"standalone="no"?>)"
              R"(<RFTContentIndexxmlns="http://kvt.example/Mrl/MrlIO/RFTContentIndex">)"
              "<version>2</version><file><fileName>CASE.RFT</fileName><units></units><arrays>"
              R"(<basicArrays><arrayname="WELLETC"type="CHAR"/></basicArrays>)"
              R"(<RFTArrays><arrayname="SWAT"type="REAL"/></RFTArrays><PLTArrays/><segmentArrays/></arrays>)"
              "<wells><well><name>A&lt;\xC3\xA9</name><wellType>RIVER</wellType><arrays>"
              R"(<basicArrays><arrayname="WELLETC"/></basicArrays><RFTArrays><arrayname="SWAT"/></RFTArrays>)"
              "<PLTArrays/><segmentArrays/></arrays></well></wells><dates><date><year>2030</year><month>1</month>"
              "<day>2</day><time>0.100000001</time><offset>" +
                  std::to_string(file.datePositions[0]) + "</offset></date></dates></RFTContentIndex>");
    EXPECT_TRUE(open().wells().contains("A<\xE9"));
}

TEST_F(RFTContentIndexTest, BelievesTheCacheOfAnUnchangedFileOnly)
{
    const std::pair<const char*, const char*> edits[] = {
        {"<version>2<", "<version>3<"},     {"<version>2<", "<version>two<"},
        {"<version>", "<other/><version>"}, {">CASE.RFT<", ">CASE.FRFT<"},
        {"<length>", "<length>1"},          {"<second>", "<second>1"},
        {"<units>", "<other/><units>"},     {"\"EARLY\"", "\"\""},
        {"type=\"INTE\"", "type=\"\""},     {"<name>A</name>", "<name></name>"},
        {"<wells>", "<other/><wells>"},     {"<file>", "<other/><file>"},
    };
    const WellFile content = twoReports();
    folder.write(content);
    for (const auto& [from, to] : edits) {
        open();
        folder.editCache("<timeUnit>U0<", "<timeUnit>EDITED<");
        EXPECT_EQ(open().unit(WellUnit::timeUnit), "EDITED");
        folder.editCache(from, to);
        expectTwoReports(open(), {content.datePositions[0], content.datePositions[3]});
        expectTwoReports(open(), {content.datePositions[0], content.datePositions[3]});
    }
}

TEST_F(RFTContentIndexTest, DamagedCachesThrowUntilTheyAreFlushed)
{
    const auto expectThrow = [this]<class E>(E*, const char* from, const char* to) {
        open();
        folder.editCache(from, to);
        EXPECT_THROW(open(), E) << to;
        EXPECT_THROW(open(), E) << to;
        RFTReaderEnvironment::flushContentIndexCache(folder.directory(), "CASE");
        EXPECT_FALSE(folder.hasCache());
        EXPECT_NO_THROW(open());
    };
    folder.write(twoReports());
    boost::bad_lexical_cast* const noNumber = nullptr;
    RFTReaderException* const ofTheReader = nullptr;
    MrlIOException* const ofXml = nullptr;
    expectThrow(noNumber, "<length>", "<length>99999999999");
    expectThrow(noNumber, "<month>", "<month>x");
    expectThrow(noNumber, "<time>", "<time>x");
    expectThrow(noNumber, "<offset>", "<offset>99999999999999999999");
    expectThrow(ofTheReader, "type=\"INTE\"", "type=\"INT\"");
    expectThrow(ofTheReader, ">MULTISEG<", ">MULTI<");
    expectThrow(ofXml, "</wells>", "");
    expectThrow(ofXml, "<name>A<", "<name>\xE2\x82\xAC<");
}

TEST_F(RFTContentIndexTest, LargeFilesCacheLeavesTheFormattedSisterAlone)
{
    folder.write(twoReports());
    open();
    folder.editCache("<length>", "<length>99999999999");
    twoReports(WellFile::Text).writeTo(folder.path("CASE.FRFT"));
    EXPECT_EQ(RFTContentIndex(folder.path("CASE.FRFT")).dates().size(), 2u);
    EXPECT_NE(folder.cache().find(">CASE.FRFT<"), std::string::npos) << "the two share one cache";
    EXPECT_EQ(open().dates().size(), 2u);
}

TEST_F(RFTContentIndexTest, RefusedCachesLeaveWhatWasRead)
{
    const std::pair<const char*, const char*> edits[] = {
        {"<time>31.5<", "<time>-31.5<"}, {"<month>2</month>", "<month>13</month>"}, {"<time>31.5</time>", ""}};
    folder.write(twoReports());
    for (const auto& [from, to] : edits) {
        open();
        folder.editCache(from, to);
        EXPECT_EQ(open().times(), (std::vector<float>{0.1f, 0.1f, 31.5f})) << to;
        RFTReaderEnvironment::flushContentIndexCache(folder.directory(), "CASE");
    }
}

TEST_F(RFTContentIndexTest, SomeFilesCachesAreNeverTaken)
{
    WellFile negativeTime;
    negativeTime.report(-1.0f).well("A").report(2.0f).well("A");
    WellFile noName;
    noName.report(1.0f).well("").report(2.0f).well("A");
    for (const WellFile& file : {negativeTime, noName}) {
        folder.write(file);
        open();
        folder.editCache("<timeUnit>U0<", "<timeUnit>EDITED<");
        const RFTContentIndex index = open();
        EXPECT_EQ(index.unit(WellUnit::timeUnit), "U0");
        EXPECT_EQ(index.dates().size(), 2u);
    }
}

TEST_F(RFTContentIndexTest, UnwritableCacheCostsALogLine)
{
    const std::string line = "RFTContentIndexCache: cannot create content cache file " + folder.cacheFile();
    WellFile file;
    file.report(1.0f).well("A\x01");
    folder.write(file);
    {
        const LogCollector log;
        EXPECT_EQ(open().dates().size(), 1u);
        EXPECT_TRUE(log.has(line, 2));
    }
    folder.write(twoReports());
    std::filesystem::create_directory(folder.cacheFile());
    const LogCollector log;
    EXPECT_EQ(open().dates().size(), 2u);
    EXPECT_TRUE(log.has(line, 2));
    RFTReaderEnvironment::flushContentIndexCache(folder.directory(), "CASE");
    EXPECT_EQ(log.lines.size(), 1u) << "a folder is no cache to remove";
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.directory()), {}), 2) << "nothing else stays";
}

TEST_F(RFTContentIndexTest, NamesWithDotsHaveTheirOwnCaches)
{
    const std::string name = folder.path("CASE.V2.RFT");
    twoReports().writeTo(name);
    EXPECT_EQ(RFTContentIndex(name).dates().size(), 2u);
    EXPECT_TRUE(std::filesystem::exists(folder.path("CASE.V2_rft_content_index__.xml")));
    RFTReaderEnvironment::flushContentIndexCache(folder.directory(), "CASE.V2");
    EXPECT_FALSE(std::filesystem::exists(folder.path("CASE.V2_rft_content_index__.xml")));
}

} // namespace
} // namespace MrlIOTest
