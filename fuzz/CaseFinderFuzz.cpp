// Lines of any text as file names: what kind of file each is, and what finders make of a folder that holds them. A file
// that is found has to be there, belong to the case, and be of the kind that was looked for.
#include "support/Fuzzing.h"

#include <mrlio/CaseFileFinder.h>
#include <mrlio/FileFinders.h>
#include <mrlio/FileIdentifiers.h>

#include <set>
#include <vector>

namespace {

using namespace Kvt::Mrl::MrlIO;
using MrlIOFuzz::require;
using DataFormat = FileIdentifiers::DataFormat;

constexpr std::size_t mostBytes = 4096;
constexpr std::size_t mostFiles = 24;
constexpr std::size_t longestName = 200;

std::vector<DataFormat> allFormats()
{
    return {
        DataFormat::DefaultAll(),         DataFormat::FormattedAnyUnified(),   DataFormat::UnformattedAnyUnified(),
        DataFormat::FormattedUnified(),   DataFormat::FormattedNotUnified(),   DataFormat::AnyFormattedUnified(),
        DataFormat::UnformattedUnified(), DataFormat::UnformattedNotUnified(), DataFormat::AnyFormattedNotUnified()};
}

void checkName(const std::string& name)
{
    using Ids = FileIdentifiers;
    require(!(Ids::isFormatted(name) && Ids::isUnformatted(name)), "a file has one form");
    const bool isKnown = Ids::Dumpflux::isDumpfluxFile(name) || Ids::GRFT::isGRFTFile(name) ||
                         Ids::Grid::isGridFile(name) || Ids::HMD::isHMDFile(name) || Ids::RFT::isRFTFile(name) ||
                         Ids::Restart::isAnyInitRestartFile(name) || Ids::Streamlines::isStreamlinesFile(name) ||
                         Ids::Summary::isAnySummaryFile(name);
    require(isKnown == (Ids::isFormatted(name) || Ids::isUnformatted(name)), "a file of a known kind has a form");
    require(isKnown == Ids::doesPassAnyFilter(name, Ids::getAllFilters({})), "a file of a known kind is listed");
    std::string extension;
    require(Ids::Restart::extractIndex(name) >= -1, "a step is not negative");
    require(Ids::Summary::extractIndex(name, extension) >= -1, "a step is not negative");
    require(name.ends_with(extension), "the extension ends the name");
    require(Ids::extractIndex(name, extension, {"XYZ", "F", ""}) >= -1, "a step is not negative");
}

void checkFound(const CaseFileFinder& finder, const std::string& file, bool isOfKind)
{
    if (file.empty())
        return;
    require(isOfKind, "a found file is of the kind asked for");
    for (const auto& entry : finder.GetEntries()) {
        if (entry.GetPath() == file)
            return;
    }
    require(false, "a found file is one of the finder's");
}

void checkFinder(const CaseFileFinder& finder)
{
    using Ids = FileIdentifiers;
    using Find = FileFinders;
    const auto check = [&finder](const std::string& file, bool (*isOfKind)(const std::string&)) {
        checkFound(finder, file, isOfKind(file));
    };
    for (const DataFormat format : allFormats()) {
        check(Find::Dumpflux::findFile(finder, format), Ids::Dumpflux::isDumpfluxFile);
        check(Find::GRFT::findFile(finder, format), Ids::GRFT::isGRFTFile);
        check(Find::Grid::findFile(finder, format), Ids::Grid::isGridFile);
        check(Find::HMD::findFile(finder, format), Ids::HMD::isHMDFile);
        check(Find::RFT::findFile(finder, format), Ids::RFT::isRFTFile);
        check(Find::Restart::findInitFile(finder, format), Ids::Restart::isInitFile);
        check(Find::Restart::findInitSpecFile(finder, format), Ids::Restart::isInitSpecFile);
        check(Find::Restart::findSpecFile(finder, format), Ids::Restart::isRestartSpecFile);
        check(Find::Streamlines::findSpecFile(finder, format), Ids::Streamlines::isSpecFile);
        check(Find::Summary::findSpecFile(finder, format), Ids::Summary::isSummarySpecFile);
        for (const auto& file : Find::Restart::findRestartFiles(finder, format))
            check(file, Ids::Restart::isRestartFile);
        for (const auto& file : Find::Streamlines::findSolutionFiles(finder, format))
            check(file, Ids::Streamlines::isSolutionFile);
        for (const auto& file : Find::Summary::findSummaryFiles(finder, format))
            check(file, Ids::Summary::isSummaryFile);
    }
}

/// The lines that can be names of files.
std::set<std::string> fileNames(const std::vector<std::string>& lines)
{
    std::set<std::string> names;
    for (const std::string& line : lines) {
        const bool isName = !line.empty() && line.size() <= longestName && line != "." && line != "..";
        if (isName && line.find('/') == line.npos && line.find('\0') == line.npos && names.size() < mostFiles)
            names.insert(line);
    }
    return names;
}

std::vector<std::string> linesOf(std::string_view text)
{
    std::vector<std::string> lines;
    for (std::size_t end = 0; end != text.npos && lines.size() < mostBytes;) {
        end = text.find('\n');
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end == text.npos ? text.size() : end + 1);
    }
    return lines;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MrlIOFuzz::Scratch scratch;
    if (size > mostBytes)
        return 0;
    const std::vector<std::string> lines = linesOf(MrlIOFuzz::textOf(data, size));
    for (const std::string& line : lines)
        checkName(line);
    const std::set<std::string> names = fileNames(lines);
    for (const std::string& name : names)
        scratch.write(name, {});
    // The first line gives the case its name.
    const std::string caseName = lines.front().substr(0, lines.front().rfind('.'));
    MrlIOFuzz::succeeds([&] { checkFinder(CaseFileFinder(caseName, scratch.directory())); });
    for (const std::string& name : names)
        std::filesystem::remove(scratch.path(name));
    return 0;
}
