#include "support/TempDir.h"

#include <mrlio/CaseFileFinder.h>
#include <mrlio/FileFinders.h>

#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {
using namespace Kvt::Mrl::MrlIO;
using MrlIOTest::TempDir;
using Names = std::vector<std::string>;
using Format = FileIdentifiers::DataFormat;

constexpr Format anyFormat = Format::DefaultAll();

/// A directory of empty files with chosen times of change.
class CaseDirectory : public ::testing::Test
{
protected:
    void add(const std::string& name, long seconds = 1000, long nanoseconds = 0)
    {
        MrlIOTest::writeBytes(directory_.file(name), "");
        const timespec time{seconds, nanoseconds};
        const timespec times[] = {time, time};
        ASSERT_EQ(::utimensat(AT_FDCWD, directory_.file(name).c_str(), times, 0), 0);
    }

    void addAll(const Names& names, long seconds)
    {
        for (const std::string& name : names)
            add(name, seconds);
    }

    CaseFileFinder finder(const std::string& caseName = "CASE") const
    {
        return CaseFileFinder(caseName, directory_.path());
    }

    std::string path(const std::string& name) const { return directory_.path() + "/" + name; }

    Names paths(const Names& names) const
    {
        Names result;
        for (const std::string& name : names)
            result.push_back(path(name));
        return result;
    }

    TempDir directory_;
};

TEST_F(CaseDirectory, CatalogListsFilesAndLinksSortedByBytes)
{
    addAll({"b.X0002", "b.X0001", "B.X0001", "a.x", "\xC3\xA9.x"}, 1000);
    std::filesystem::create_directory(directory_.file("folder.X0003"));
    std::filesystem::create_symlink("nowhere", directory_.file("link.X0001"));
    ASSERT_EQ(::mkfifo(directory_.file("pipe.X0001").c_str(), 0600), 0);

    const Service::FileCatalog catalog(directory_.path(), true);
    Names listed;
    for (const auto& entry : catalog.GetEntries())
        listed.push_back(entry.GetPath());
    EXPECT_EQ(listed, paths({"B.X0001", "a.x", "b.X0001", "b.X0002", "link.X0001", "\xC3\xA9.x"}));
    EXPECT_EQ(catalog.GetRoot(), directory_.path());
    EXPECT_EQ(Service::FileCatalog(directory_.path(), false).GetEntries().size(), 5u);
}

TEST_F(CaseDirectory, CatalogOfNoDirectoryIsEmpty)
{
    add("plain");
    EXPECT_TRUE(Service::FileCatalog(path("missing"), true).GetEntries().empty());
    EXPECT_TRUE(Service::FileCatalog(path("plain"), true).GetEntries().empty());
    EXPECT_EQ(FileFinders::Grid::findFile(CaseFileFinder("CASE", path("missing")), anyFormat), "");
}

TEST_F(CaseDirectory, OnlyFilesOfTheCaseInAnyLetterCaseAreFound)
{
    addAll({"case.smspec", "OTHER.UNRST", "CASE2.UNRST", "XCASE.UNRST", "CASE.A.UNRST", "CASE.UNRST.bak", "CASE"},
           1000);
    EXPECT_EQ(FileFinders::Summary::findSpecFile(finder(), anyFormat), path("case.smspec"));
    EXPECT_TRUE(FileFinders::Restart::findRestartFiles(finder(), anyFormat).empty());
    EXPECT_EQ(FileFinders::Restart::findRestartFiles(finder("case.a"), anyFormat), paths({"CASE.A.UNRST"}));
}

TEST_F(CaseDirectory, NewestOfSeveralSingleFilesWins)
{
    add("CASE.EGRID", 1000, 5);
    add("CASE.FEGRID", 1000, 6);
    EXPECT_EQ(FileFinders::Grid::findFile(finder(), anyFormat), path("CASE.FEGRID"));
    EXPECT_EQ(FileFinders::Grid::findFile(finder(), Format::UnformattedAnyUnified()), path("CASE.EGRID"));

    add("CASE.FEGRID", 1000, 5);
    EXPECT_EQ(FileFinders::Grid::findFile(finder(), anyFormat), path("CASE.EGRID"));
    add("CASE.FGRID", 1000, 5);
    EXPECT_EQ(FileFinders::Grid::findFile(finder(), anyFormat), path("CASE.FGRID"));
}

TEST_F(CaseDirectory, FilesThatVanishOrAreOfNoTimeBeatNothing)
{
    addAll({"CASE.INIT", "CASE.FINIT"}, -5);
    EXPECT_EQ(FileFinders::Restart::findInitFile(finder(), anyFormat), path("CASE.INIT"));

    addAll({"CASE.RFT", "CASE.FRFT"}, 1000);
    const CaseFileFinder early = finder();
    std::filesystem::remove(path("CASE.RFT"));
    EXPECT_EQ(FileFinders::RFT::findFile(early, anyFormat), path("CASE.FRFT"));
    std::filesystem::remove(path("CASE.FRFT"));
    EXPECT_EQ(FileFinders::RFT::findFile(early, anyFormat), path("CASE.RFT"));
    EXPECT_EQ(FileFinders::RFT::findFile(finder(), anyFormat), "");
}

TEST_F(CaseDirectory, GroupsAreJudgedByTheirFirstFile)
{
    addAll({"CASE.X0002", "CASE.X0003", "CASE.Y0000"}, 3000);
    add("CASE.X0001", 1000);
    add("CASE.UNRST", 2000);
    EXPECT_EQ(FileFinders::Restart::findRestartFiles(finder(), anyFormat), paths({"CASE.UNRST"}));
    EXPECT_EQ(FileFinders::Restart::findRestartFiles(finder(), Format::AnyFormattedNotUnified()),
              paths({"CASE.X0001", "CASE.X0002", "CASE.X0003", "CASE.Y0000"}));
    add("CASE.X0001", 2000);
    EXPECT_EQ(FileFinders::Restart::findRestartFiles(finder(), anyFormat).size(), 4u) << "split files win ties";

    addAll({"CASE.S0001", "CASE.UNSMRY"}, -1);
    EXPECT_EQ(FileFinders::Summary::findSummaryFiles(finder(), anyFormat), paths({"CASE.S0001"}));
}

TEST_F(CaseDirectory, FinderOperationsFollowFilterPriority)
{
    addAll({"CASE.A1", "CASE.A2", "CASE.B1", "case.b2", "CASE.C1", "OTHER.A1"}, 1000);
    const auto numbered = [](const char* letter) { return Service::NumberedStringExtensionFilter::Create(letter, 1); };
    const auto any = Service::OrFilter::Create({numbered("A"), nullptr, numbered("b")});
    const Service::PathFilterList list = {numbered("Q"), numbered("B"), nullptr, numbered("A")};
    const CaseFileFinder found = finder();

    EXPECT_EQ(found.GetFile(any), path("CASE.A1"));
    EXPECT_EQ(found.GetFiles(any), paths({"CASE.A1", "CASE.A2", "CASE.B1", "case.b2"}));
    EXPECT_EQ(found.GetFileInFilterPriority(list), path("CASE.B1"));
    EXPECT_EQ(found.GetFilesInFilterPriority(list), paths({"CASE.B1", "case.b2"}));
    EXPECT_EQ(found.GetAllSingleFilesInFilterPriority(list), paths({"CASE.B1", "CASE.A1"}));
    EXPECT_EQ(found.GetAllFilesInFilterPriority(list),
              (std::vector<Names>{paths({"CASE.B1", "case.b2"}), paths({"CASE.A1", "CASE.A2"})}));
    EXPECT_EQ(found.GetFile(numbered("Q")) + found.GetFile(nullptr), "");
    EXPECT_EQ(found.GetName(), "CASE");
    EXPECT_TRUE(found.GetRootFilter()->Accept(Service::PathCacheEntry("x/cAsE.Q")));
    EXPECT_EQ(found.GetEntries().size(), 5u) << "as a catalog it shows its own files";
}

TEST_F(CaseDirectory, CopiesOutliveOriginalAndCatalogAndSeeNoNewFiles)
{
    add("CASE.HMD");
    auto catalog = std::make_unique<Service::FileCatalog>(directory_.path(), true);
    auto original = std::make_unique<CaseFileFinder>("CASE", *catalog);
    catalog.reset();
    CaseFileFinder copy = finder("OTHER");
    copy = *original;
    const CaseFileFinder moved = std::move(*original);
    original.reset();
    add("CASE.RFT");
    EXPECT_EQ(FileFinders::HMD::findFile(copy, anyFormat), path("CASE.HMD"));
    EXPECT_EQ(FileFinders::HMD::findFile(moved, anyFormat), path("CASE.HMD"));
    EXPECT_EQ(FileFinders::RFT::findFile(copy, anyFormat), "");
}

TEST_F(CaseDirectory, ResultsKeepTheDirectoryAsGiven)
{
    addAll({"CASE.FLUX", "CASE.SLN0002", "CASE.SLN0001", "CASE.H5"}, 1000);
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(directory_.path());
    EXPECT_EQ(FileFinders::Dumpflux::findFile(CaseFileFinder("CASE", ""), anyFormat), "CASE.FLUX");
    EXPECT_EQ(FileFinders::Dumpflux::findFile(CaseFileFinder("CASE", "."), anyFormat), "./CASE.FLUX");
    std::filesystem::current_path(before);
    EXPECT_EQ(FileFinders::Streamlines::findSolutionFiles(finder(), anyFormat),
              paths({"CASE.SLN0001", "CASE.SLN0002"}));
    EXPECT_EQ(FileFinders::Summary::findHDFFile(finder()), path("CASE.H5"));
}
} // namespace
