#include "support/TempDir.h"

#include <mrlio/GridFileFinder.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

using namespace Kvt::Mrl::MrlIO;
using MrlIOTest::TempDir;
using MrlIOTest::writeBytes;
using Finder = GridFileFinder;

namespace {

class GridFileFinderTest : public testing::Test
{
protected:
    void make(const std::vector<std::string>& names)
    {
        for (const std::string& name : names)
            writeBytes(dir.file(name), "");
    }

    Finder::FoundType find(const std::string& baseName, int type = 0, int format = 0) const
    {
        return Finder::findGridFile(dir.path(), baseName, Finder::GridType(type), Finder::FormatType(format));
    }

    std::string message(const std::string& baseName) const { return Finder::getMessage(find(baseName)); }

    TempDir dir;
};

void expectNothing(const Finder::FoundType& found)
{
    EXPECT_EQ(found.type, Finder::AnyGrid);
    EXPECT_EQ(found.fileName, "");
    EXPECT_EQ(found.egridCount + found.gridCount, 0);
    EXPECT_EQ(Finder::getMessage(found), "Cannot find EGRID or GRID file");
}

} // namespace

TEST_F(GridFileFinderTest, SelectsInOrderOfPreferenceAndCountsAll)
{
    const std::vector<std::string> byPreference = {"C.EGRID", "C.EGR", "C.FEGRID", "C.FEG",
                                                   "C.GRID",  "C.GRD", "C.FGRID",  "C.FGR"};
    make(byPreference);
    make({"C.GRIDS", "XC.EGRID", "CC.GRID", "C.INIT", "CEGRID"});
    std::filesystem::create_directory(dir.file("C.egrid"));

    int egrids = 4, grids = 4;
    for (const std::string& wanted : byPreference) {
        SCOPED_TRACE(wanted);
        const Finder::FoundType found = find("C");
        EXPECT_EQ(found.fileName, wanted);
        EXPECT_EQ(found.type, egrids > 0 ? Finder::EGRID : Finder::GRID);
        EXPECT_EQ(found.egridCount, egrids);
        EXPECT_EQ(found.gridCount, grids);
        std::filesystem::remove(dir.file(wanted));
        --(egrids > 0 ? egrids : grids);
    }
    expectNothing(find("C"));
}

TEST_F(GridFileFinderTest, TypeAndFormatNarrowTheSearch)
{
    make({"C.EGRID", "C.FEG", "C.GRD", "C.FGRID"});
    EXPECT_EQ(find("C", Finder::GRID).fileName, "C.GRD");
    EXPECT_EQ(find("C", Finder::GRID).egridCount, 0);
    EXPECT_EQ(find("C", Finder::GRID, Finder::Formatted).fileName, "C.FGRID");
    EXPECT_EQ(find("C", Finder::AnyGrid, Finder::Formatted).fileName, "C.FEG");
    EXPECT_EQ(find("C", Finder::AnyGrid, Finder::Formatted).gridCount, 1);
    for (const int beyond : {-1, 3}) {
        expectNothing(find("C", beyond));
        expectNothing(find("C", Finder::EGRID, beyond));
    }
}

TEST_F(GridFileFinderTest, SaysWhatItFound)
{
    make({"A.EGRID", "A.FEGRID", "B.EGRID", "B.GRID", "C.GRID", "D.egr", "E.GRID", "E.grid", "E.FGR"});
    EXPECT_EQ(message("A"), "Found 2 matching EGRID files - selected A.EGRID");
    EXPECT_EQ(message("B"), "Found 1 matching EGRID file and 1 matching GRID file - selected B.EGRID");
    EXPECT_EQ(message("C"), "Found GRID file");
    EXPECT_EQ(message("D"), "Found EGRID file");
    EXPECT_EQ(message("E"), "Found 3 matching GRID files - selected E.GRID");
    EXPECT_EQ(message("F"), "Cannot find EGRID or GRID file");
    EXPECT_EQ(Finder::getMessage({Finder::GridType(7), "X", 1, 0}), "");
    EXPECT_EQ(Finder::getMessage({Finder::GRID, "X", 2147483647, 2147483647}),
              "Found 2147483647 matching EGRID files and 2147483647 matching GRID files - selected X");
}

TEST_F(GridFileFinderTest, BaseNamesAreExpressions)
{
    make({"A-B.EGRID", "CASE(1).EGRID", "CASE1.EGRID", std::string(200, 'a') + ".EGRID", "line\nA.EGRID"});
    EXPECT_EQ(find("A.B").fileName, "A-B.EGRID");
    EXPECT_EQ(find("CASE(1)").fileName, "CASE1.EGRID");
    EXPECT_EQ(find("CASE\\(1\\)").fileName, "CASE(1).EGRID");
    EXPECT_EQ(find("A|nothing", Finder::EGRID, Finder::Unformatted).egridCount, 2)
        << "long and short count it once each";
    expectNothing(find("A")); // the second line of a name isn't its beginning
    for (const char* const wrong : {"C(", "[", "*", "a{2,1}", "(a*)*(a*)*(a*)*b"})
        expectNothing(find(wrong));
    expectNothing(Finder::findGridFile(dir.file("missing"), "A.B", Finder::AnyGrid, Finder::AnyFormat));
    expectNothing(Finder::findGridFile(dir.file("A-B.EGRID"), "A.B", Finder::AnyGrid, Finder::AnyFormat));
    expectNothing(Finder::findGridFile("", "A.B", Finder::AnyGrid, Finder::AnyFormat));
}

TEST(GridFileFinder, ExtensionsThereAndBack)
{
    const struct
    {
        Finder::GridType type;
        Finder::FormatType format;
        const char* upper[2];
        const char* lower[2];
    } rows[] = {
        {Finder::EGRID, Finder::Unformatted, {"EGRID", "EGR"}, {"egrid", "egr"}},
        {Finder::EGRID, Finder::Formatted, {"FEGRID", "FEG"}, {"fegrid", "feg"}},
        {Finder::GRID, Finder::Unformatted, {"GRID", "GRD"}, {"grid", "grd"}},
        {Finder::GRID, Finder::Formatted, {"FGRID", "FGR"}, {"fgrid", "fgr"}},
        {Finder::AnyGrid, Finder::Formatted, {"", ""}, {"", ""}},
        {Finder::EGRID, Finder::AnyFormat, {"", ""}, {"", ""}},
        {Finder::GridType(3), Finder::Formatted, {"", ""}, {"", ""}},
        {Finder::GRID, Finder::FormatType(-1), {"", ""}, {"", ""}},
    };

    for (const auto& row : rows) {
        for (const auto length : {Finder::Long, Finder::Short}) {
            const std::string upper = Finder::getExtension(row.type, row.format, length, Finder::Upper);
            EXPECT_EQ(upper, row.upper[length]);
            EXPECT_EQ(Finder::getExtension(row.type, row.format, length, Finder::Lower), row.lower[length]);
            EXPECT_EQ(Finder::getExtension(row.type, row.format, length, Finder::CaseType(9)), upper);
            for (const std::string& extension : {upper, std::string(row.lower[length])}) {
                const Finder::GridType back = upper.empty() ? Finder::AnyGrid : row.type;
                EXPECT_EQ(Finder::getGridTypeFromFileName("/a.GRID/CASE." + extension), back) << extension;
            }
        }
    }
    EXPECT_EQ(Finder::getExtension(Finder::GRID, Finder::Formatted, Finder::ExtensionType(2), Finder::Upper), "");
    for (const char* const other : {"CASE.GRIDS", "EGRID", "CASE.INIT", ""})
        EXPECT_EQ(Finder::getGridTypeFromFileName(other), Finder::AnyGrid) << other;
}
