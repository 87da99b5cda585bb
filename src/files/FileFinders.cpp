#include <mrlio/FileFinders.h>

#include <compare>
#include <cstdint>
#include <sys/stat.h>

namespace Kvt::Mrl::MrlIO {
namespace {

/// When a file was last changed, as exactly as the file system keeps it. The default is the start of 1970, which no
/// file dated so or earlier beats.
struct ChangeTime
{
    std::int64_t seconds = 0;
    std::int64_t nanoseconds = 0;

    auto operator<=>(const ChangeTime&) const = default;
};

/// Returns true, with `best` moved on, if the file can be looked at and is newer than `best`.
bool isNewer(const std::string& file, ChangeTime& best)
{
    struct stat status;
    if (::stat(file.c_str(), &status) != 0)
        return false;
    const ChangeTime time{status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
    if (time <= best)
        return false;
    best = time;
    return true;
}

} // namespace

std::string FileFinders::findSingleOutputFile(const Service::IFileFinder& finder, FilterFunction filters,
                                              DataFormat format)
{
    const std::vector<std::string> candidates = finder.GetAllSingleFilesInFilterPriority(filters(format));
    if (candidates.empty())
        return {};
    if (candidates.size() == 1)
        return candidates.front();
    const std::string* best = &candidates.front();
    ChangeTime bestTime;
    for (const std::string& candidate : candidates) {
        if (isNewer(candidate, bestTime))
            best = &candidate;
    }
    return *best;
}

std::vector<std::string> FileFinders::findOutputFiles(const Service::IFileFinder& finder, FilterFunction filters,
                                                      DataFormat format)
{
    std::vector<std::vector<std::string>> groups = finder.GetAllFilesInFilterPriority(filters(format));
    if (groups.empty())
        return {};
    std::size_t best = 0;
    ChangeTime bestTime;
    for (std::size_t i = 0; i < groups.size() && groups.size() > 1; ++i) {
        if (!groups[i].empty() && isNewer(groups[i].front(), bestTime))
            best = i;
    }
    return std::move(groups[best]);
}

std::string FileFinders::Dumpflux::findFile(const ICaseFileFinder& finder, DataFormat format)
{
    return findSingleOutputFile(finder, &FileIdentifiers::Dumpflux::fileExtensionFilters, format);
}

std::string FileFinders::GRFT::findFile(const ICaseFileFinder& finder, DataFormat format)
{
    return findSingleOutputFile(finder, &FileIdentifiers::GRFT::fileExtensionFilters, format);
}

std::string FileFinders::Grid::findFile(const ICaseFileFinder& finder, DataFormat format)
{
    return findSingleOutputFile(finder, &FileIdentifiers::Grid::fileExtensionFilters, format);
}

std::string FileFinders::HMD::findFile(const ICaseFileFinder& finder, DataFormat format)
{
    return findSingleOutputFile(finder, &FileIdentifiers::HMD::fileExtensionFilters, format);
}

std::string FileFinders::RFT::findFile(const ICaseFileFinder& finder, DataFormat format)
{
    return findSingleOutputFile(finder, &FileIdentifiers::RFT::fileExtensionFilters, format);
}

std::string FileFinders::Restart::findInitFile(const ICaseFileFinder& finder, DataFormat format)
{
    return findSingleOutputFile(finder, &FileIdentifiers::Restart::initFileExtensionFilters, format);
}

std::string FileFinders::Restart::findInitSpecFile(const ICaseFileFinder& finder, DataFormat format)
{
    return findSingleOutputFile(finder, &FileIdentifiers::Restart::initSpecFileExtensionFilters, format);
}

std::string FileFinders::Restart::findSpecFile(const ICaseFileFinder& finder, DataFormat format)
{
    return findSingleOutputFile(finder, &FileIdentifiers::Restart::specFileExtensionFilters, format);
}

std::vector<std::string> FileFinders::Restart::findRestartFiles(const ICaseFileFinder& finder, DataFormat format)
{
    return findOutputFiles(finder, &FileIdentifiers::Restart::restartFileExtensionFilters, format);
}

std::string FileFinders::Streamlines::findSpecFile(const ICaseFileFinder& finder, DataFormat format)
{
    return findSingleOutputFile(finder, &FileIdentifiers::Streamlines::specFileExtensionFilters, format);
}

std::vector<std::string> FileFinders::Streamlines::findSolutionFiles(const ICaseFileFinder& finder, DataFormat format)
{
    return findOutputFiles(finder, &FileIdentifiers::Streamlines::solutionFileExtensionFilters, format);
}

std::string FileFinders::Summary::findSpecFile(const ICaseFileFinder& finder, DataFormat format)
{
    return findSingleOutputFile(finder, &FileIdentifiers::Summary::specFileExtensionFilters, format);
}

std::vector<std::string> FileFinders::Summary::findSummaryFiles(const ICaseFileFinder& finder, DataFormat format)
{
    return findOutputFiles(finder, &FileIdentifiers::Summary::summaryFileExtensionFilters, format);
}

std::string FileFinders::Summary::findHDFFile(const ICaseFileFinder& finder)
{
    const FilterFunction filters = [](DataFormat) -> const Service::PathFilterList& {
        return FileIdentifiers::Summary::hdfFileExtensionFilters();
    };
    return findSingleOutputFile(finder, filters, DataFormat::DefaultAll());
}

} // namespace Kvt::Mrl::MrlIO
