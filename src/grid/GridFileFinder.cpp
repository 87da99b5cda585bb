#include <mrlio/GridFileFinder.h>

#include <mrlio/service/Directory.h>

#include "service/Text.h"

#include <algorithm>
#include <boost/regex.hpp>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace Kvt::Mrl::MrlIO {

namespace {

struct GridExtension
{
    GridFileFinder::GridType type;
    GridFileFinder::FormatType format;
    GridFileFinder::ExtensionType length;
    const char* text;
    const char* pattern;
};

using enum GridFileFinder::GridType;
using enum GridFileFinder::FormatType;
using enum GridFileFinder::ExtensionType;

/// In order of preference: the first that is there is selected.
constexpr GridExtension extensions[] = {
    {EGRID, Unformatted, Long, "EGRID", "\\.[Ee][Gg][Rr][Ii][Dd]$"},
    {EGRID, Unformatted, Short, "EGR", "\\.[Ee][Gg][Rr]$"},
    {EGRID, Formatted, Long, "FEGRID", "\\.[Ff][Ee][Gg][Rr][Ii][Dd]$"},
    {EGRID, Formatted, Short, "FEG", "\\.[Ff][Ee][Gg]$"},
    {GRID, Unformatted, Long, "GRID", "\\.[Gg][Rr][Ii][Dd]$"},
    {GRID, Unformatted, Short, "GRD", "\\.[Gg][Rr][Dd]$"},
    {GRID, Formatted, Long, "FGRID", "\\.[Ff][Gg][Rr][Ii][Dd]$"},
    {GRID, Formatted, Short, "FGR", "\\.[Ff][Gg][Rr]$"},
};

/// All files of the directory, sorted by name; none if it is no directory.
std::vector<std::string> filesIn(const std::string& directory)
{
    std::vector<std::string> names;
    Service::Directory place;
    place.Set(directory, false);
    if (place.IsDirectory())
        place.Find("^", false, true, false, false, false, names);
    return names;
}

std::vector<std::string> matching(const std::vector<std::string>& names, const std::string& pattern)
{
    const auto flags =
        Service::Directory::IsCaseSensitive() ? boost::regex::perl : boost::regex::perl | boost::regex::icase;
    const boost::regex expression(pattern, flags);
    std::vector<std::string> found;
    for (const std::string& name : names) {
        // A line feed in a name doesn't begin a new line for ^ and $.
        if (boost::regex_search(name, expression, boost::match_single_line))
            found.push_back(name);
    }
    return found;
}

/// throws  std::runtime_error for a base name that is no expression, or costs too much to match
GridFileFinder::FoundType selectFile(const std::vector<std::string>& names, const std::string& baseName,
                                     GridFileFinder::GridType type, GridFileFinder::FormatType format)
{
    GridFileFinder::FoundType selected;
    for (const GridExtension& extension : extensions) {
        if ((type != AnyGrid && type != extension.type) || (format != AnyFormat && format != extension.format))
            continue;
        const std::vector<std::string> found = matching(names, "^" + baseName + extension.pattern);
        if (found.empty())
            continue;
        if (selected.type == AnyGrid) {
            selected.type = extension.type;
            selected.fileName = found.front();
        }
        (extension.type == EGRID ? selected.egridCount : selected.gridCount) += static_cast<int>(found.size());
    }
    return selected;
}

std::string counted(int count, const char* kind)
{
    return std::to_string(count) + " matching " + kind + " file" + (count == 1 ? "" : "s");
}

} // namespace

GridFileFinder::FoundType GridFileFinder::findGridFile(const std::string& directory, const std::string& baseName,
                                                       GridType type, FormatType format)
{
    try {
        return selectFile(filesIn(directory), baseName, type, format);
    } catch (const std::runtime_error&) {
        return {};
    }
}

std::string GridFileFinder::getMessage(const FoundType& found)
{
    if (std::int64_t{found.egridCount} + found.gridCount < 2) {
        switch (found.type) {
        case AnyGrid:
            return "Cannot find EGRID or GRID file";
        case EGRID:
            return "Found EGRID file";
        case GRID:
            return "Found GRID file";
        }
        return {};
    }
    std::string message = "Found ";
    if (found.egridCount > 0)
        message += counted(found.egridCount, "EGRID") + (found.gridCount > 0 ? " and " : "");
    if (found.gridCount > 0)
        message += counted(found.gridCount, "GRID");
    return message + " - selected " + found.fileName;
}

std::string GridFileFinder::getExtension(GridType type, FormatType format, ExtensionType extension, CaseType letters)
{
    const auto* const row = std::find_if(std::begin(extensions), std::end(extensions), [&](const GridExtension& one) {
        return one.type == type && one.format == format && one.length == extension;
    });
    if (row == std::end(extensions))
        return {};
    std::string text = row->text;
    if (letters == Lower)
        Service::StringToLower(text);
    return text;
}

GridFileFinder::GridType GridFileFinder::getGridTypeFromFileName(const Service::FileName& file)
{
    const auto* const row = std::find_if(std::begin(extensions), std::end(extensions), [&](const GridExtension& one) {
        return Service::NoCaseStringEqual(file.GetExtension(), one.text);
    });
    return row == std::end(extensions) ? AnyGrid : row->type;
}

} // namespace Kvt::Mrl::MrlIO
