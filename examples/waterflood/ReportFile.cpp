#include "ReportFile.h"

#include <filesystem>
#include <sstream>
#include <stdexcept>

namespace waterflood {

using namespace Kvt::Mrl::MrlIO;

std::string pathOf(const Options& options, const char* extension)
{
    return (std::filesystem::path(options.directory) / (options.caseName + extension)).string();
}

ReportFile::ReportFile(const Options& options, const char* unformatted, const char* formatted)
    : path_(pathOf(options, options.formatted ? formatted : unformatted)),
      formatted_(options.formatted)
{
    if (!options.overwrite && std::filesystem::exists(path_))
        throw std::runtime_error(path_ + " already exists");
    file_.open(path_, std::ios::binary);
}

void ReportFile::append(const std::function<void(KeywordWriter&)>& writeReport)
{
    std::ostringstream report(std::ios::binary);
    KeywordWriter writer(report, formatted_, Service::FileName(path_));
    writeReport(writer);
    file_ << report.str() << std::flush;
    if (!file_)
        throw std::runtime_error("can't write " + path_);
}

} // namespace waterflood
