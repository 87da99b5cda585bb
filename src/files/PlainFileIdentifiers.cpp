#include "files/FilterTables.h"

#include <mrlio/FileIdentifiers.h>

namespace Kvt::Mrl::MrlIO {
namespace {

using DataFormat = FileIdentifiers::DataFormat;
using Service::PathFilterList;

constexpr DataFormat anyFormat = DataFormat::DefaultAll();
constexpr DataFormat formatted = DataFormat::FormattedAnyUnified();
constexpr DataFormat unformatted = DataFormat::UnformattedAnyUnified();

constexpr std::initializer_list<FilterFunction> streamlinesKinds = {
    &FileIdentifiers::Streamlines::solutionFileExtensionFilters,
    &FileIdentifiers::Streamlines::specFileExtensionFilters};

} // namespace

// Dumpflux

const PathFilterList& FileIdentifiers::Dumpflux::fileExtensionFilters(DataFormat format)
{
    static const auto& filters = *new PlainFilters{extensions::dumpflux};
    return filters.choose(format);
}

std::string FileIdentifiers::Dumpflux::defaultDumpfluxFileExtension(DataFormat format)
{
    return extensions::ofNewFile(extensions::dumpflux, format.isFormatted());
}

bool FileIdentifiers::Dumpflux::isDumpfluxFile(const std::string& name)
{
    return isAnyOf(name, {&fileExtensionFilters}, anyFormat);
}

bool FileIdentifiers::Dumpflux::isFormatted(const std::string& name)
{
    return isAnyOf(name, {&fileExtensionFilters}, formatted);
}

bool FileIdentifiers::Dumpflux::isUnformatted(const std::string& name)
{
    return isAnyOf(name, {&fileExtensionFilters}, unformatted);
}

// GRFT

const PathFilterList& FileIdentifiers::GRFT::fileExtensionFilters(DataFormat format)
{
    static const auto& filters = *new PlainFilters{extensions::grft};
    return filters.choose(format);
}

bool FileIdentifiers::GRFT::isGRFTFile(const std::string& name)
{
    return isAnyOf(name, {&fileExtensionFilters}, anyFormat);
}

bool FileIdentifiers::GRFT::isFormatted(const std::string& name)
{
    return isAnyOf(name, {&fileExtensionFilters}, formatted);
}

bool FileIdentifiers::GRFT::isUnformatted(const std::string& name)
{
    return isAnyOf(name, {&fileExtensionFilters}, unformatted);
}

// Grid

const PathFilterList& FileIdentifiers::Grid::fileEGridExtensionFilters(DataFormat format)
{
    static const auto& filters = *new PlainFilters{extensions::egrid};
    return filters.choose(format);
}

const PathFilterList& FileIdentifiers::Grid::fileGridExtensionFilters(DataFormat format)
{
    static const auto& filters = *new PlainFilters{extensions::grid};
    return filters.choose(format);
}

const PathFilterList& FileIdentifiers::Grid::fileExtensionFilters(DataFormat format)
{
    static const auto& filters = *new PlainFilters{extensions::grid, extensions::egrid};
    return filters.choose(format);
}

bool FileIdentifiers::Grid::isGridFile(const std::string& name)
{
    return isAnyOf(name, {&fileExtensionFilters}, anyFormat);
}

bool FileIdentifiers::Grid::isFormatted(const std::string& name)
{
    return isAnyOf(name, {&fileExtensionFilters}, formatted);
}

bool FileIdentifiers::Grid::isUnformatted(const std::string& name)
{
    return isAnyOf(name, {&fileExtensionFilters}, unformatted);
}

// HMD

const PathFilterList& FileIdentifiers::HMD::fileExtensionFilters(DataFormat format)
{
    static const auto& filters = *new PlainFilters{extensions::hmd};
    return filters.choose(format);
}

bool FileIdentifiers::HMD::isHMDFile(const std::string& name)
{
    return isAnyOf(name, {&fileExtensionFilters}, anyFormat);
}

bool FileIdentifiers::HMD::isFormatted(const std::string& name)
{
    return isAnyOf(name, {&fileExtensionFilters}, formatted);
}

bool FileIdentifiers::HMD::isUnformatted(const std::string& name)
{
    return isAnyOf(name, {&fileExtensionFilters}, unformatted);
}

// RFT

const PathFilterList& FileIdentifiers::RFT::fileExtensionFilters(DataFormat format)
{
    static const auto& filters = *new PlainFilters{extensions::rft};
    return filters.choose(format);
}

bool FileIdentifiers::RFT::isRFTFile(const std::string& name)
{
    return isAnyOf(name, {&fileExtensionFilters}, anyFormat);
}

bool FileIdentifiers::RFT::isFormatted(const std::string& name)
{
    return isAnyOf(name, {&fileExtensionFilters}, formatted);
}

bool FileIdentifiers::RFT::isUnformatted(const std::string& name)
{
    return isAnyOf(name, {&fileExtensionFilters}, unformatted);
}

// Streamlines

const PathFilterList& FileIdentifiers::Streamlines::specFileExtensionFilters(DataFormat format)
{
    static const auto& filters = *new PlainFilters{extensions::streamlinesSpec};
    return filters.choose(format);
}

const PathFilterList& FileIdentifiers::Streamlines::solutionFileExtensionFilters(DataFormat format)
{
    static const auto& filters = *new PlainFilters(extensions::streamlinesSolution);
    return filters.choose(format);
}

bool FileIdentifiers::Streamlines::isSolutionFile(const std::string& name)
{
    return isAnyOf(name, {&solutionFileExtensionFilters}, anyFormat);
}

bool FileIdentifiers::Streamlines::isSpecFile(const std::string& name)
{
    return isAnyOf(name, {&specFileExtensionFilters}, anyFormat);
}

bool FileIdentifiers::Streamlines::isStreamlinesFile(const std::string& name)
{
    return isAnyOf(name, streamlinesKinds, anyFormat);
}

bool FileIdentifiers::Streamlines::isFormatted(const std::string& name)
{
    return isAnyOf(name, streamlinesKinds, formatted);
}

bool FileIdentifiers::Streamlines::isUnformatted(const std::string& name)
{
    return isAnyOf(name, streamlinesKinds, unformatted);
}

} // namespace Kvt::Mrl::MrlIO
