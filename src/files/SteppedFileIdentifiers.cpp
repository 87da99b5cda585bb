#include "files/FilterTables.h"

#include <mrlio/FileIdentifiers.h>

namespace Kvt::Mrl::MrlIO {
namespace {

using DataFormat = FileIdentifiers::DataFormat;
using Service::PathFilterList;

constexpr DataFormat anyFormat = DataFormat::DefaultAll();
constexpr DataFormat formatted = DataFormat::FormattedAnyUnified();
constexpr DataFormat unformatted = DataFormat::UnformattedAnyUnified();

const SteppedFilters& restartFilters()
{
    static const auto& filters = *new SteppedFilters(extensions::restart);
    return filters;
}

const SteppedFilters& summaryFilters()
{
    static const auto& filters = *new SteppedFilters(extensions::summary);
    return filters;
}

constexpr std::initializer_list<FilterFunction> restartKinds = {
    &FileIdentifiers::Restart::restartFileExtensionFilters, &FileIdentifiers::Restart::specFileExtensionFilters,
    &FileIdentifiers::Restart::initFileExtensionFilters, &FileIdentifiers::Restart::initSpecFileExtensionFilters};

constexpr std::initializer_list<FilterFunction> summaryKinds = {&FileIdentifiers::Summary::summaryFileExtensionFilters,
                                                                &FileIdentifiers::Summary::specFileExtensionFilters};

} // namespace

// Restart

const PathFilterList& FileIdentifiers::Restart::initFileExtensionFilters(DataFormat format)
{
    static const auto& filters = *new PlainFilters{extensions::init};
    return filters.choose(format);
}

const PathFilterList& FileIdentifiers::Restart::defaultInitFileExtensionFilters(DataFormat format)
{
    static const auto& filters = *new PlainFilters{extensions::defaultInit};
    return filters.choose(format);
}

const PathFilterList& FileIdentifiers::Restart::initSpecFileExtensionFilters(DataFormat format)
{
    static const auto& filters = *new PlainFilters{extensions::initSpec};
    return filters.choose(format);
}

const PathFilterList& FileIdentifiers::Restart::specFileExtensionFilters(DataFormat format)
{
    static const auto& filters = *new PlainFilters{extensions::restartSpec};
    return filters.choose(format);
}

const PathFilterList& FileIdentifiers::Restart::restartFileExtensionFilters(DataFormat format)
{
    return restartFilters().expanded(format);
}

const PathFilterList& FileIdentifiers::Restart::restartFileExtensionFiltersUnexpanded(DataFormat format)
{
    return restartFilters().unexpanded(format);
}

const PathFilterList& FileIdentifiers::Restart::unifiedFilters()
{
    return restartFileExtensionFilters(DataFormat::AnyFormattedUnified());
}

const PathFilterList& FileIdentifiers::Restart::unformattedFilters()
{
    return restartFileExtensionFilters(unformatted);
}

std::string FileIdentifiers::Restart::defaultInitFileExtension(DataFormat format)
{
    return extensions::ofNewFile(extensions::defaultInit, format.isFormatted());
}

std::string FileIdentifiers::Restart::defaultInitSpecFileExtension(DataFormat format)
{
    return extensions::ofNewFile(extensions::initSpec, format.isFormatted());
}

std::string FileIdentifiers::Restart::defaultRestartSpecFileExtension(DataFormat format)
{
    return extensions::ofNewFile(extensions::restartSpec, format.isFormatted());
}

bool FileIdentifiers::Restart::isInitFile(const std::string& name)
{
    return isAnyOf(name, {&initFileExtensionFilters}, anyFormat);
}

bool FileIdentifiers::Restart::isInitSpecFile(const std::string& name)
{
    return isAnyOf(name, {&initSpecFileExtensionFilters}, anyFormat);
}

bool FileIdentifiers::Restart::isRestartFile(const std::string& name)
{
    return isAnyOf(name, {&restartFileExtensionFilters}, anyFormat);
}

bool FileIdentifiers::Restart::isRestartSpecFile(const std::string& name)
{
    return isAnyOf(name, {&specFileExtensionFilters}, anyFormat);
}

bool FileIdentifiers::Restart::isAnyInitRestartFile(const std::string& name)
{
    return isAnyOf(name, restartKinds, anyFormat);
}

bool FileIdentifiers::Restart::isFormatted(const std::string& name)
{
    return isAnyOf(name, restartKinds, formatted);
}

bool FileIdentifiers::Restart::isUnformatted(const std::string& name)
{
    return isAnyOf(name, restartKinds, unformatted);
}

bool FileIdentifiers::Restart::isUnified(const std::string& name)
{
    return doesPassAnyFilter(name, unifiedFilters());
}

// Summary

const PathFilterList& FileIdentifiers::Summary::specFileExtensionFilters(DataFormat format)
{
    static const auto& filters = *new PlainFilters{extensions::summarySpec};
    return filters.choose(format);
}

const PathFilterList& FileIdentifiers::Summary::summaryFileExtensionFilters(DataFormat format)
{
    return summaryFilters().expanded(format);
}

const PathFilterList& FileIdentifiers::Summary::summaryFileExtensionFiltersUnexpanded(DataFormat format)
{
    return summaryFilters().unexpanded(format);
}

const PathFilterList& FileIdentifiers::Summary::hdfFileExtensionFilters()
{
    static const auto& filters =
        *new PathFilterList{Service::ExtensionFilter::Create(std::string(extensions::summaryHdf))};
    return filters;
}

bool FileIdentifiers::Summary::isSummaryFile(const std::string& name)
{
    return isAnyOf(name, {&summaryFileExtensionFilters}, anyFormat);
}

bool FileIdentifiers::Summary::isSummarySpecFile(const std::string& name)
{
    return isAnyOf(name, {&specFileExtensionFilters}, anyFormat);
}

bool FileIdentifiers::Summary::isAnySummaryFile(const std::string& name)
{
    return isAnyOf(name, summaryKinds, anyFormat);
}

bool FileIdentifiers::Summary::isFormatted(const std::string& name)
{
    return isAnyOf(name, summaryKinds, formatted);
}

bool FileIdentifiers::Summary::isUnformatted(const std::string& name)
{
    return isAnyOf(name, summaryKinds, unformatted);
}

bool FileIdentifiers::Summary::isUnified(const std::string& name)
{
    return doesPassAnyFilter(name, summaryFileExtensionFilters(DataFormat::AnyFormattedUnified()));
}

} // namespace Kvt::Mrl::MrlIO
