#include "files/FilterTables.h"

#include <mrlio/FileIdentifiers.h>

#include <algorithm>

namespace Kvt::Mrl::MrlIO {
namespace {

using DataFormat = FileIdentifiers::DataFormat;
using Service::PathFilterList;

std::map<DataFormat, PathFilterList> combinedForUsableFormats(std::initializer_list<FilterFunction> kinds)
{
    std::map<DataFormat, PathFilterList> lists;
    for (const DataFormat format : usableFormats()) {
        for (const FilterFunction kind : kinds)
            append(lists[format], kind(format));
    }
    return lists;
}

} // namespace

const PathFilterList& FileIdentifiers::getAllFilters(DataFormat format)
{
    static const auto& lists = *new std::map<DataFormat, PathFilterList>(combinedForUsableFormats(
        {&Summary::specFileExtensionFilters, &Summary::summaryFileExtensionFilters, &Restart::specFileExtensionFilters,
         &Restart::initSpecFileExtensionFilters, &Restart::restartFileExtensionFilters,
         &Restart::initFileExtensionFilters, &RFT::fileExtensionFilters, &GRFT::fileExtensionFilters,
         &HMD::fileExtensionFilters, &Dumpflux::fileExtensionFilters, &Streamlines::solutionFileExtensionFilters,
         &Streamlines::specFileExtensionFilters, &Grid::fileExtensionFilters}));
    const auto found = lists.find(format);
    if (found != lists.end())
        return found->second;
    Summary::specFileExtensionFilters(format); // one of these two, the first in the list, refuses the format
    return Summary::summaryFileExtensionFilters(format);
}

bool FileIdentifiers::doesPassAnyFilter(const std::string& name, const PathFilterList& filters)
{
    const Service::PathCacheEntry entry(name);
    return std::any_of(filters.begin(), filters.end(),
                       [&](const auto& filter) { return filter && filter->Accept(entry); });
}

bool FileIdentifiers::doesPassAllFilter(const std::string& name, const PathFilterList& filters)
{
    const Service::PathCacheEntry entry(name);
    return std::all_of(filters.begin(), filters.end(),
                       [&](const auto& filter) { return filter && filter->Accept(entry); });
}

bool FileIdentifiers::isFormatted(const std::string& name)
{
    return doesPassAnyFilter(name, getAllFilters(DataFormat::FormattedAnyUnified()));
}

bool FileIdentifiers::isUnformatted(const std::string& name)
{
    return doesPassAnyFilter(name, getAllFilters(DataFormat::UnformattedAnyUnified()));
}

} // namespace Kvt::Mrl::MrlIO
