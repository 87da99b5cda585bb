#include <mrlio/FileIdentifiers.h>

#include <cstring>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {
using namespace Kvt::Mrl::MrlIO;
using Ids = FileIdentifiers;
using Format = FileIdentifiers::DataFormat;
using FilterFunction = const Service::PathFilterList& (*)(Format);

/// Formats with no choice left open can't be named by a caller, but reach the lists through expandDefaults.
Format withFlags(unsigned flags)
{
    Format format;
    std::memcpy(static_cast<void*>(&format), &flags, sizeof flags);
    return format;
}

/// The names of `names` that the filters accept, filter by filter.
std::string accepted(const Service::PathFilterList& filters, const std::vector<std::string>& names)
{
    std::string result;
    for (const auto& filter : filters) {
        for (const std::string& name : names) {
            if (filter->Accept(Service::PathCacheEntry("some.dir/CASE" + name)))
                result += name + " ";
        }
        result += "/ ";
    }
    return result;
}

std::string refusal(FilterFunction filters, unsigned flags)
{
    try {
        filters(withFlags(flags));
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "accepted";
}

std::vector<unsigned> expanded(unsigned flags)
{
    std::vector<Format> formats = {withFlags(99)};
    withFlags(flags).expandDefaults(formats);
    std::vector<unsigned> result;
    for (const Format format : formats)
        result.push_back(format.flags());
    EXPECT_EQ(result.at(0), 99u) << "what was there before must stay";
    result.erase(result.begin());
    return result;
}

TEST(DataFormat, NamedValuesAndChangesSetTheirFlags)
{
    EXPECT_EQ(Format::get(true, false).flags(), 9u);
    EXPECT_EQ(Format::get(false, true).flags(), 6u);
    EXPECT_EQ(Format::getAnyFormattedWithUnified(true).flags(), 7u);
    EXPECT_EQ(Format::getAnyUnifiedWithFormatted(false).flags(), 14u);
    EXPECT_EQ(Format().flags(), Format::DefaultAll().flags());

    Format format = Format::UnformattedNotUnified();
    EXPECT_EQ(format.setFormatted(true).setAnyUnified().flags(), 13u);
    EXPECT_EQ(format.flags(), 10u) << "set... must leave the object alone";
    EXPECT_EQ(&format.withUnified(true), &format);
    EXPECT_EQ(format.withDefaultFormatted().flags(), 7u);
    EXPECT_TRUE(format.isUnified() && format.isDefaultFormatted());
    EXPECT_FALSE(format.isFormatted() || format.isUnformatted() || format.isDefaultUnified());
    EXPECT_LT(Format::FormattedUnified(), Format::UnformattedUnified());
}

TEST(DataFormat, ExpansionPutsUnformattedAndSplitFirst)
{
    const std::pair<unsigned, std::vector<unsigned>> rows[] = {
        {15, {10, 9, 6, 5}}, {7, {6, 5}}, {11, {10, 9}}, {13, {9, 5}}, {14, {10, 6}}, {12, {8, 4}},
        {3, {2, 1}},         {5, {5}},    {0, {0}},      {1, {1}},     {31, {31}},
    };
    for (const auto& [flags, wanted] : rows)
        EXPECT_EQ(expanded(flags), wanted) << flags;
}

TEST(FileIdentifiers, PlainListsKeepTheirOrder)
{
    const struct
    {
        FilterFunction filters;
        std::vector<std::string> unformattedThenFormatted;
        std::size_t unformattedCount;
    } rows[] = {
        {&Ids::Dumpflux::fileExtensionFilters, {".FLUX", ".FFLUX"}, 1},
        {&Ids::GRFT::fileExtensionFilters, {".GRFT", ".GFT", ".FGRFT", ".FGF"}, 2},
        {&Ids::Grid::fileEGridExtensionFilters, {".EGRID", ".EGR", ".FEGRID", ".FEG"}, 2},
        {&Ids::Grid::fileGridExtensionFilters, {".GRID", ".GRD", ".FGRID", ".FGR"}, 2},
        {&Ids::HMD::fileExtensionFilters, {".HMD", ".FHMD", ".FHM"}, 1},
        {&Ids::RFT::fileExtensionFilters, {".RFT", ".FRFT", ".FRT"}, 1},
        {&Ids::Restart::initFileExtensionFilters, {".INIT", ".INI", ".FINIT", ".FIN"}, 2},
        {&Ids::Restart::defaultInitFileExtensionFilters, {".INIT", ".FINIT"}, 1},
        {&Ids::Restart::initSpecFileExtensionFilters, {".INSPEC", ".ISS", ".FINSPEC", ".FIS"}, 2},
        {&Ids::Restart::specFileExtensionFilters, {".RSSPEC", ".RSS", ".FRSSPEC", ".FRS"}, 2},
        {&Ids::Summary::specFileExtensionFilters, {".SMSPEC", ".SMS", ".FSMSPEC", ".FSM"}, 2},
        {&Ids::Streamlines::specFileExtensionFilters, {".SLNSPEC", ".FSLNSPEC"}, 1},
        {&Ids::Streamlines::solutionFileExtensionFilters, {".SLN0012", ".FSLN0012"}, 1},
    };

    for (const auto& row : rows) {
        const auto& names = row.unformattedThenFormatted;
        std::string all, unformatted, formatted;
        for (std::size_t i = 0; i < names.size(); ++i) {
            all += names[i] + " / ";
            (i < row.unformattedCount ? unformatted : formatted) += names[i] + " / ";
        }
        EXPECT_EQ(accepted(row.filters(withFlags(3)), names), all);
        EXPECT_EQ(accepted(row.filters(withFlags(2 + 8)), names), unformatted) << "unified bits don't count";
        EXPECT_EQ(accepted(row.filters(withFlags(1)), names), formatted);
    }
}

TEST(FileIdentifiers, SplitAndUnifiedListsFollowTheExpansion)
{
    const std::vector<std::string> restart = {".X0001", ".Y0001", ".z0001", ".X01",    ".F0001",
                                              ".H01",   ".UNRST", ".URS",   ".FUNRST", ".fur"};
    const std::string split = ".X0001 .Y0001 .z0001 / .X01 / ";
    EXPECT_EQ(accepted(Ids::Restart::restartFileExtensionFilters(Format::DefaultAll()), restart),
              split + ".F0001 / .H01 / .UNRST / .URS / .FUNRST / .fur / ");
    EXPECT_EQ(accepted(Ids::Restart::restartFileExtensionFilters(withFlags(14)), restart), split + ".UNRST / .URS / ");
    EXPECT_EQ(accepted(Ids::Restart::unifiedFilters(), restart), ".UNRST / .URS / .FUNRST / .fur / ");
    EXPECT_EQ(&Ids::Restart::unformattedFilters(), &Ids::Restart::restartFileExtensionFilters(withFlags(14)));
    EXPECT_EQ(accepted(Ids::Restart::restartFileExtensionFiltersUnexpanded(withFlags(9)), restart), ".F0001 / .H01 / ");

    const std::vector<std::string> summary = {".S0001",   ".U99", ".A0001", ".C0001",  ".UNSMRY", ".USY",
                                              ".FUNSMRY", ".FUS", ".S001",  ".S00001", ".SX001"};
    EXPECT_EQ(accepted(Ids::Summary::summaryFileExtensionFilters(Format::DefaultAll()), summary),
              ".S0001 / .U99 / .A0001 .C0001 / / .UNSMRY / .USY / .FUNSMRY / .FUS / ");
    EXPECT_EQ(accepted(Ids::Summary::hdfFileExtensionFilters(), {".H5", ".S0001"}), ".H5 / ");
}

TEST(FileIdentifiers, AllFiltersComeInTheOrderOfTheKinds)
{
    const std::vector<std::string> names = {".SMSPEC", ".S0001",   ".UNSMRY",  ".RSSPEC", ".INSPEC",
                                            ".UNRST",  ".INIT",    ".RFT",     ".GRFT",   ".HMD",
                                            ".FLUX",   ".SLN0001", ".SLNSPEC", ".GRID",   ".EGRID"};
    std::string found;
    for (const auto& filter : Ids::getAllFilters(Format::UnformattedAnyUnified())) {
        for (const std::string& name : names)
            found += filter->Accept(Service::PathCacheEntry("C" + name)) ? name : "";
    }
    EXPECT_EQ(found, ".SMSPEC.S0001.UNSMRY.RSSPEC.INSPEC.UNRST.INIT.RFT.GRFT.HMD.FLUX.SLN0001.SLNSPEC.GRID.EGRID");
    EXPECT_EQ(accepted(Ids::Grid::fileExtensionFilters(withFlags(3)), {".FGR", ".EGRID", ".FEG", ".GRID"}),
              ".GRID / / / .FGR / .EGRID / / / .FEG / ");
}

TEST(FileIdentifiers, RefusesFormatsThatExcludeEverythingEachTime)
{
    const std::string text = "invalid DataFormat flags : FileIdentifiers::";

    const struct
    {
        FilterFunction filters;
        unsigned flags;
        std::string wanted;
    } rows[] = {
        {&Ids::Dumpflux::fileExtensionFilters, 0, text + "Dumpflux::fileExtensionFilters"},
        {&Ids::GRFT::fileExtensionFilters, 4, text + "GRFT::fileExtensionFilters"},
        {&Ids::Grid::fileEGridExtensionFilters, 8, text + "Grid::fileEGridExtensionFilters"},
        {&Ids::Grid::fileGridExtensionFilters, 12, text + "Grid::fileGridExtensionFilters"},
        {&Ids::Grid::fileExtensionFilters, 4, text + "Grid::fileGridExtensionFilters"},
        {&Ids::HMD::fileExtensionFilters, 4, "invalid DataFormat flags - FileIdentifiers::HMD::fileExtensionFilters"},
        {&Ids::RFT::fileExtensionFilters, 4, text + "RFT::fileExtensionFilters"},
        {&Ids::Restart::initFileExtensionFilters, 4, text + "Restart::initFileExtensionFilters"},
        {&Ids::Restart::defaultInitFileExtensionFilters, 4, text + "Restart::defaultInitFileExtensionFilters"},
        {&Ids::Restart::initSpecFileExtensionFilters, 4, text + "Restart::initSpecFileExtensionFilters"},
        {&Ids::Restart::specFileExtensionFilters, 4, text + "Restart::specFileExtensionFilters"},
        {&Ids::Summary::specFileExtensionFilters, 4, text + "Summary::specFileExtensionFilters"},
        {&Ids::Streamlines::specFileExtensionFilters, 4, text + "Streamlines::specFileExtensionFilters"},
        {&Ids::Streamlines::solutionFileExtensionFilters, 4, text + "Streamlines::solutionFileExtensionFilters"},
        {&Ids::Restart::restartFileExtensionFilters, 3, text + "Restart::restartFileExtensionFiltersUnexpanded"},
        {&Ids::Restart::restartFileExtensionFiltersUnexpanded, 15,
         text + "Restart::restartFileExtensionFiltersUnexpanded"},
        {&Ids::Summary::summaryFileExtensionFilters, 12, text + "Summary::summaryFileExtensionFiltersUnexpanded"},
        {&Ids::Summary::summaryFileExtensionFilters, 31, text + "Summary::summaryFileExtensionFiltersUnexpanded"},
        {&Ids::getAllFilters, 12, text + "Summary::specFileExtensionFilters"},
        {&Ids::getAllFilters, 1, text + "Summary::summaryFileExtensionFiltersUnexpanded"},
    };

    for (int round = 0; round < 2; ++round) {
        for (const auto& row : rows)
            EXPECT_EQ(refusal(row.filters, row.flags), row.wanted) << row.flags;
    }
}

TEST(FileIdentifiers, PredicatesKnowKindFormAndUnity)
{
    EXPECT_TRUE(Ids::isFormatted("/a.b/CASE.FUNSMRY") && Ids::isUnformatted("case.x0001"));
    EXPECT_FALSE(Ids::isFormatted("CASE.UNSMRY") || Ids::isUnformatted("CASE.H5") || Ids::isFormatted("CASE.H5"));
    EXPECT_TRUE(Ids::Summary::isSummaryFile("c.s0001") && !Ids::Summary::isSummaryFile("c.SMSPEC"));
    EXPECT_TRUE(Ids::Summary::isAnySummaryFile("c.SMSPEC") && !Ids::Summary::isAnySummaryFile("c.H5"));
    EXPECT_TRUE(Ids::Summary::isFormatted("c.FSMSPEC") && Ids::Summary::isUnformatted("c.T0001"));
    EXPECT_TRUE(Ids::Summary::isUnified("c.funsmry") && !Ids::Summary::isUnified("c.S0001"));
    EXPECT_TRUE(Ids::Restart::isUnified("c.URS") && !Ids::Restart::isUnified("c.INIT"));
    for (const char* const name : {"c.INIT", "c.INSPEC", "c.X0001", "c.RSSPEC"}) {
        EXPECT_TRUE(Ids::Restart::isAnyInitRestartFile(name) && Ids::Restart::isUnformatted(name)) << name;
        EXPECT_FALSE(Ids::Restart::isFormatted(name)) << name;
    }
    EXPECT_FALSE(Ids::Restart::isRestartFile("CASE.Z12345")) << "more than four digits pass no filter";
    EXPECT_FALSE(Ids::Restart::isRestartFile("") || Ids::Restart::isRestartFile("X0001"));
    EXPECT_TRUE(Ids::Streamlines::isStreamlinesFile("c.fsln0001") && Ids::Streamlines::isFormatted("c.FSLNSPEC"));
    EXPECT_TRUE(Ids::Grid::isGridFile("c.egr") && Ids::RFT::isRFTFile("c.FRT") && Ids::HMD::isHMDFile("c.FHM"));
    EXPECT_FALSE(Ids::doesPassAnyFilter("c.RFT", {}));
    EXPECT_TRUE(Ids::doesPassAllFilter("c.RFT", {}));
    EXPECT_FALSE(Ids::doesPassAllFilter("c.RFT", Ids::RFT::fileExtensionFilters(Format())));
}

TEST(FileIdentifiers, DefaultExtensionsAreFormattedOnlyByChoice)
{
    EXPECT_EQ(Ids::Dumpflux::defaultDumpfluxFileExtension(Format::FormattedUnified()), "FFLUX");
    EXPECT_EQ(Ids::Restart::defaultInitFileExtension(Format::DefaultAll()), "INIT");
    EXPECT_EQ(Ids::Restart::defaultInitSpecFileExtension(Format::FormattedAnyUnified()), "FINSPEC");
    EXPECT_EQ(Ids::Restart::defaultRestartSpecFileExtension(withFlags(0)), "RSSPEC");
}

TEST(FileIdentifiers, StepNumbersOfExtensions)
{
    const std::vector<std::string> letters = {"FGH", "XYZ"};

    const struct
    {
        const char* name;
        int index;
        const char* extension;
    } rows[] = {
        {"CASE.X0012", 12, "X0012"},
        {"CASE.Y0012", 10012, "Y0012"},
        {"CASE.Z0012", 20012, "Z0012"},
        {"CASE.Z12345", 32345, "Z12345"},
        {"CASE.Y12345", -1, "Y12345"},
        {"CASE.Y12", 112, "Y12"},
        {"case.h0001", 20001, "h0001"},
        {"a.X0001/CASE.x0002", 2, "x0002"},
        {"CASE.X123", -1, "X123"},
        {"CASE.Z123", -1, "Z123"},
        {"CASE.X12A", -1, "X12A"},
        {"CASE.X", -1, "X"},
        {"CASE.Q0012", -1, "Q0012"},
        {"CASE.", -1, ""},
        {"CASE", -1, ""},
        {"", -1, ""},
        {"CASE.Z2147463647", 2147483647, "Z2147463647"},
        {"CASE.Z2147463648", -1, "Z2147463648"},
        {"CASE.Z99999999999999999999", -1, "Z99999999999999999999"},
        {"CASE.Z00000000000000000000000012", 20012, "Z00000000000000000000000012"},
    };

    for (const auto& row : rows) {
        std::string extension = "before";
        EXPECT_EQ(Ids::extractIndex(row.name, extension, letters), row.index) << row.name;
        EXPECT_EQ(extension, row.extension) << row.name;
    }
    std::string extension;
    EXPECT_EQ(Ids::Restart::extractIndex("c.G0003"), 10003);
    EXPECT_EQ(Ids::Restart::extractIndex("c.S0003"), -1);
    EXPECT_EQ(Ids::Summary::extractIndex("c.b0003", extension), 10003);
    EXPECT_EQ(Ids::Summary::extractIndex("c.UNSMRY", extension), -1);
}
} // namespace
