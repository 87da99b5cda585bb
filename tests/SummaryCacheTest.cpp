#include "support/SummaryCase.h"

#include "summary/ContentIndexCacheWriter.h"
#include "summary/SummaryContentIndex.h"

#include <mrlio/MrlIOException.h>
#include <mrlio/SummaryContentIndexCache.h>
#include <mrlio/SummaryReaderEnvironment.h>

#include <boost/regex.hpp>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace Kvt::Mrl::MrlIO;
using namespace MrlIOTest;
using Cache = SummaryContentIndexCache;

class SummaryCache : public ::testing::Test
{
protected:
    SummaryCache()
    {
        first_.reportStep().miniStep(0, {1, 2}).miniStep(1, {3, 4}).writeTo(files_[0]);
        SummaryDataBuilder().reportStep().miniStep(2, {5, 6}).writeTo(files_[1]);
    }

    Service::FileName cache() const { return Cache::cacheFileName(case_.directory(), "CASE"); }

    /// Scans the files and writes the cache.
    void makeCache() const
    {
        SummaryContentIndex index(case_.directory(), "CASE", ISummaryReader::WriteCache);
        index.setFiles(files_);
        ASSERT_GE(index.miniStepCount(), 3u);
        ASSERT_TRUE(case_.hasCache());
    }

    bool load(const std::vector<std::string>& files)
    {
        numVectors_ = -7;
        reportSteps_.assign(1, nullptr);
        return Cache::load(cache(), files, numVectors_, reportSteps_);
    }

    bool isUntouched() const { return numVectors_ == -7 && reportSteps_.size() == 1 && !reportSteps_.front(); }

    /// The cache with each match of a pattern replaced.
    void edit(const std::string& pattern, const std::string& replacement) const
    {
        makeCache();
        const std::string before = readBytes(case_.cachePath());
        const std::string after = boost::regex_replace(before, boost::regex(pattern), replacement);
        ASSERT_NE(after, before) << pattern;
        writeBytes(case_.cachePath(), after);
    }

    std::string loadFailure()
    {
        try {
            load(files_);
        } catch (const SummaryReaderException& exception) {
            EXPECT_TRUE(isUntouched());
            return exception.what();
        }
        return "";
    }

    static void touch(const std::string& file)
    {
        std::filesystem::last_write_time(file, std::filesystem::last_write_time(file) - std::chrono::seconds(1));
    }

    SummaryCase case_;
    std::vector<std::string> files_{case_.path("CASE.S0001"), case_.path("CASE.S0002")};
    SummaryDataBuilder first_;
    int numVectors_ = 0;
    SummaryReportSteps reportSteps_;
};

TEST_F(SummaryCache, GivesBackWhatWasSavedForTheSameFilesInAnyOrder)
{
    makeCache();
    ASSERT_TRUE(load({files_[1], files_[0]}));
    EXPECT_EQ(numVectors_, 2);
    ASSERT_EQ(reportSteps_.size(), 2u);
    const auto& step = *reportSteps_.front();
    EXPECT_EQ(step.fileName().GetFullName(), files_[0]);
    ASSERT_EQ(step.miniSteps().size(), 2u);
    EXPECT_EQ(step.miniSteps().back()->number(), 1);
    EXPECT_EQ(step.miniSteps().back()->position(), std::streampos(first_.paramsPositions[1]));
}

TEST_F(SummaryCache, WritesTheAgreedLayout)
{
    makeCache();
    std::string text = readBytes(case_.cachePath());
    EXPECT_EQ(text.find("\n"), text.find("\r\n") + 1);
    text = boost::regex_replace(text, boost::regex(">\\s+<"), "><");
    text = boost::regex_replace(text, boost::regex("<(year|month|day|hour|minute|second)>\\d+</\\1>"), "<$1/>");
    const std::string number = std::to_string(first_.paramsPositions[0]);
    const auto has = [&text](const std::string& part) { return text.find(part) != std::string::npos; };
    EXPECT_TRUE(has("<summaryContentIndex xmlns=\"http://kvt.example/Mrl/MrlIO/SummaryContentIndex\"><!--Do not modify"
                    " this file.  This contains cache data"))
        << text;
    EXPECT_TRUE(has("next time the summary data is loaded--><version>1</version><numVectors>2</numVectors><files><file>"
                    "<fileName>CASE.S0001</fileName><fileStamp><year/><month/><day/><hour/><minute/><second/><length>" +
                    std::to_string(first_.size()) +
                    "</length></fileStamp></file><file><fileName>CASE.S0002</fileName>"))
        << text;
    EXPECT_TRUE(has("</files><contentIndex><reportStep><fileName>CASE.S0001</fileName><miniStep><number>0</number>"
                    "<offset>" +
                    number + "</offset></miniStep><miniStep>"))
        << text;
}

TEST_F(SummaryCache, IsNamedAfterTheCaseWithItsDots)
{
    EXPECT_EQ(Cache::cacheFileName("/tmp/x", "A.B").GetFullName(), "/tmp/x/A.B_summary_content_index__.xml");
}

TEST_F(SummaryCache, IsStaleWhenAFileHasChangedOrTheListHas)
{
    makeCache();
    EXPECT_FALSE(load({}));
    EXPECT_FALSE(load({files_[0]}));
    EXPECT_FALSE(load({files_[0], files_[1], case_.path("CASE.S0003")}));
    ASSERT_TRUE(load(files_));
    touch(files_[1]);
    EXPECT_FALSE(load(files_));
    EXPECT_TRUE(isUntouched());
    makeCache();
    case_.append("CASE.S0002", SummaryDataBuilder().miniStep(3, {7, 8}));
    EXPECT_FALSE(load(files_));
    makeCache();
    std::filesystem::remove(files_[0]);
    EXPECT_FALSE(load(files_));
    EXPECT_TRUE(isUntouched());
    EXPECT_TRUE(case_.hasCache()) << "a stale cache is left for the next scan to replace";
}

TEST_F(SummaryCache, RefusesWhatIsNotItsOwnLayoutAndLeavesItAlone)
{
    const std::vector<std::pair<std::string, std::string>> edits{
        {"<version>1", "<version>2"},
        {"<version>1", "<version>1x"},
        {"<version>1", "<version>99999999999999999999"},
        {"<version>.*?</version>", ""},
        {"(</?)numVectors", "$1vectors"},
        {"<numVectors>2", "<numVectors>"},
        {"<numVectors>2", "<numVectors>2.5"},
        {"<numVectors>2", "<numVectors>4294967298"},
        {"<numVectors>2", "<numVectors>-2"},
        {"(</?)files>", "$1FILES>"},
        {"(</?)contentIndex", "$1index"},
        {"<length>", "<length>1"},
        {"<length>", "<length>1844674407370955161"},
        {"<year>", "<year>x"},
        {"CASE\\.S0001", "CASE.S0009"},
    };
    for (const auto& [pattern, replacement] : edits) {
        edit(pattern, replacement);
        EXPECT_FALSE(load(files_)) << pattern << " -> " << replacement;
        EXPECT_TRUE(isUntouched());
        EXPECT_TRUE(case_.hasCache()) << pattern;
    }
}

TEST_F(SummaryCache, RefusesReportStepsThatMakeNoSense)
{
    const std::string noStep = "SummaryContentIndexCache::addReportStep: report step has not been initialialized";
    const std::string noNumber = "SummaryContentIndexCache::addMiniStep: mini step number not specified";
    const std::string noOffset = "SummaryContentIndexCache::addMiniStep: mini step offset not specified";
    const std::vector<std::vector<std::string>> edits{
        {"<reportStep>\\s*<fileName>CASE.S0001", "<reportStep><fileName>CASE.S0004",
         "SummaryContentIndexCache::addReportStep: inconsistent file list"},
        {"<reportStep>\\s*<fileName>CASE.S0001", "<reportStep><fileName>CASE.S0000",
         "SummaryContentIndexCache::addReportStep: inconsistent file list"},
        {"<reportStep>\\s*<fileName>CASE.S0001</fileName>", "<reportStep>", noStep},
        {"<reportStep>[\\s\\S]*?</reportStep>", "<reportStep/>", noStep},
        {"<number>\\d*</number>", "", noNumber},
        {"<number>", "<number>x", noNumber},
        {"<number>", "<number>3000000000", noNumber},
        {"<offset>\\d*</offset>", "", noOffset},
        {"<offset>", "<offset>99999999999999999999", noOffset},
        {"<offset>", "<offset>-", noOffset},
        {"<number>", "<number>-", "SummaryReportStepInfo::addMiniStep: mini step number less than 0"},
        {"<number>1", "<number>0", "SummaryReportStepInfo::addMiniStep: non-unique mini step number"},
    };
    for (const auto& row : edits) {
        edit(row[0], row[1]);
        if (row[1] == "<number>-") // the first number is 0
            edit("<number>0", "<number>-3");
        EXPECT_EQ(loadFailure(), row[2]) << row[0] << " -> " << row[1];
    }
    // One number above the highest counts as known.
    edit("<reportStep>\\s*<fileName>CASE.S0001", "<reportStep><fileName>CASE.S0003");
    EXPECT_TRUE(load(files_));
}

TEST_F(SummaryCache, TellsTheFirstBadReportStepOfAnOtherwiseValidCache)
{
    // The first mini step has no number, and the second report step names an unknown file.
    const std::string steps = "<number>0([\\s\\S]*<fileName>)CASE.S0002";
    const std::string bad = "<number>x$1CASE.S0009";
    edit(steps, bad);
    EXPECT_EQ(loadFailure(), "SummaryContentIndexCache::addMiniStep: mini step number not specified");
    EXPECT_TRUE(case_.hasCache());
    edit("<version>1([\\s\\S]*)" + steps, "<version>2$1<number>x$2CASE.S0009");
    EXPECT_FALSE(load(files_));
    edit("<length>([\\s\\S]*)" + steps, "<length>1$1<number>x$2CASE.S0009");
    EXPECT_FALSE(load(files_));
    EXPECT_TRUE(case_.hasCache());
    edit(steps + "([\\s\\S]*)</summaryContentIndex>", bad + "$2</index>");
    EXPECT_FALSE(load(files_));
    EXPECT_FALSE(case_.hasCache());
    EXPECT_TRUE(isUntouched());
}

TEST_F(SummaryCache, TakesReportStepsOfTheFirstContentIndexOnly)
{
    const std::string end = "</summaryContentIndex>";
    const std::string bad = "<contentIndex><reportStep/></contentIndex>";
    edit(end, "<contentIndex><reportStep><fileName>CASE.S0001</fileName></reportStep></contentIndex>" + bad + end);
    ASSERT_TRUE(load(files_));
    EXPECT_EQ(reportSteps_.size(), 2u);
    edit("<contentIndex>", "<contentIndex/><contentIndex>");
    ASSERT_TRUE(load(files_));
    EXPECT_EQ(reportSteps_.size(), 0u);
    edit("<contentIndex>", "<contentIndex/>" + bad + "<contentIndex>");
    ASSERT_TRUE(load(files_));
    EXPECT_EQ(reportSteps_.size(), 0u);
    edit("<files>", bad + "<files>");
    EXPECT_FALSE(load(files_));
    EXPECT_TRUE(isUntouched());
}

TEST_F(SummaryCache, ABrokenOneDoesNotCloseTheCase)
{
    edit("<number>", "<number>x");
    LogCollector log;
    SummaryContentIndex index(case_.directory(), "CASE", ISummaryReader::ReadWriteCache);
    index.setFiles(files_);
    EXPECT_EQ(index.miniStepCount(), 3u);
    EXPECT_TRUE(log.has("SummaryContentIndexCache::addMiniStep: mini step number not specified", 2));
    EXPECT_TRUE(load(files_)) << "the scan has replaced it";
}

TEST_F(SummaryCache, IsDeletedWhereItIsNoWellFormedXml)
{
    makeCache();
    const std::string whole = readBytes(case_.cachePath());
    const std::size_t documentEnd = whole.rfind('>') + 1;
    for (std::size_t length = 0; length < documentEnd; ++length) {
        LogCollector log;
        writeBytes(case_.cachePath(), whole.substr(0, length));
        ASSERT_FALSE(load(files_)) << length;
        ASSERT_FALSE(case_.hasCache()) << length;
        ASSERT_TRUE(isUntouched());
        ASSERT_GE(log.lines.size(), 1u);
        ASSERT_EQ(log.lines.front(), (LogCollector::Line{"SummaryContentIndexCache: invalid content cache file " +
                                                             case_.cachePath() + ". Deleting file.",
                                                         2}));
    }
}

TEST_F(SummaryCache, SurvivesWrongEncodingsAndEntityBombs)
{
    makeCache();
    const std::string whole = readBytes(case_.cachePath());
    const std::size_t root = whole.find("<summaryContentIndex");
    std::string bomb = "<!DOCTYPE x [<!ENTITY a0 \"aaaaaaaaaa\">";
    for (int i = 1; i < 12; ++i) {
        const std::string before = "&a" + std::to_string(i - 1) + ";";
        bomb += "<!ENTITY a" + std::to_string(i) + " \"";
        for (int times = 0; times < 10; ++times)
            bomb += before;
        bomb += "\">";
    }
    bomb += "]>";
    const std::string bombed = boost::regex_replace(whole.substr(root), boost::regex("<version>1"), "<version>&a11;");
    const std::vector<std::string> contents{
        "\xFF\xFE" + whole,
        "<?xml version=\"1.0\" encoding=\"NO-SUCH\"?>" + whole.substr(root),
        boost::regex_replace(whole, boost::regex("CASE"), "CAS\xFF"),
        std::string(1000, '\0'),
        bomb + bombed,
        "<!DOCTYPE x SYSTEM \"file:///etc/passwd\" [<!ENTITY f SYSTEM \"file:///etc/passwd\">]><x>&f;</x>",
        std::string(200000, '<'),
    };
    for (const std::string& content : contents) {
        writeBytes(case_.cachePath(), content);
        EXPECT_FALSE(load(files_)) << content.substr(0, 60);
        EXPECT_TRUE(isUntouched());
    }
    std::string deep;
    for (int i = 0; i < 100000; ++i)
        deep += "<a>";
    for (int i = 0; i < 100000; ++i)
        deep += "</a>";
    writeBytes(case_.cachePath(), deep);
    EXPECT_FALSE(load(files_));
}

TEST_F(SummaryCache, SavesOnlyWhatIsTrueOfTheFilesThatWereScanned)
{
    SummaryReportSteps steps;
    steps.push_back(std::make_shared<SummaryReportStepInfo>(Service::FileName(files_[0])));
    steps.back()->addMiniStep(4, std::streampos(8589934593));
    FileStamp old;
    ASSERT_TRUE(FileStamp::read(Service::FileName(files_[0]), old));
    ASSERT_TRUE(Cache::save(cache(), 2, steps));
    ASSERT_TRUE(load({files_[0]}));
    EXPECT_EQ(reportSteps_.front()->miniSteps().front()->position(), std::streampos(8589934593));
    // The stamp from before the scan goes out, so that a file that grew meanwhile makes the cache stale.
    case_.append("CASE.S0001", SummaryDataBuilder().miniStep(5, {1, 2}));
    ASSERT_TRUE(saveContentIndex(cache(), 2, steps, {{"CASE.S0001", old}}));
    EXPECT_FALSE(load({files_[0]}));
}

TEST_F(SummaryCache, CoversAGrownCaseUnlessAnEarlierFileHasChanged)
{
    makeCache();
    for (const bool changed : {false, true}) {
        SummaryContentIndex index(case_.directory(), "CASE", ISummaryReader::ReadWriteCache);
        index.setFiles(files_);
        EXPECT_EQ(index.miniStepCount(), 3u);
        if (changed)
            touch(files_[0]);
        const std::string name = changed ? "CASE.S0004" : "CASE.S0003";
        const std::vector<std::string> added{case_.write(name, SummaryDataBuilder().reportStep().miniStep(3, {7, 8}))};
        index.addFiles(added.begin(), added.end());
        EXPECT_EQ(index.miniStepCount(), 4u);
        EXPECT_EQ(load({files_[0], files_[1], added[0]}), !changed);
    }
}

TEST_F(SummaryCache, KnowsASingleUnifiedFileByItsName)
{
    const std::string unified = case_.write("CASE.UNSMRY", first_);
    SummaryContentIndex index(case_.directory(), "CASE", ISummaryReader::WriteCache);
    index.setFiles({unified});
    ASSERT_EQ(index.miniStepCount(), 2u);
    EXPECT_TRUE(load({unified}));
    const std::string text = readBytes(case_.cachePath());
    writeBytes(case_.cachePath(), boost::regex_replace(text, boost::regex("<reportStep>\\s*<fileName>CASE.UNSMRY"),
                                                       "<reportStep><fileName>OTHER.UNSMRY"));
    EXPECT_THROW(load({unified}), SummaryReaderException);
}

TEST_F(SummaryCache, ThatCannotBeWrittenOrRemovedCostsALogLine)
{
    LogCollector log;
    const auto nowhere = Cache::cacheFileName(case_.path("none"), "CASE");
    EXPECT_FALSE(Cache::save(nowhere, 1, {}));
    EXPECT_EQ(log.lines,
              (std::vector{LogCollector::Line{
                  "SummaryContentIndexCache: cannot create content cache file " + nowhere.GetFullName(), 2}}));
    Cache::flushCacheFile(nowhere);
    EXPECT_EQ(log.lines.size(), 1u);
    makeCache();
    SummaryReaderEnvironment::flushContentIndexCache(Service::Directory(case_.directory()), "CASE");
    EXPECT_FALSE(case_.hasCache());
}

} // namespace
