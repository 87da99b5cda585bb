#include <mrlio/DSPFileUtil.h>

#include "messages/ShellLink.h"

#include <boost/filesystem.hpp>
#include <optional>

namespace Kvt::Mrl::MrlIO {

namespace {

namespace fs = boost::filesystem;

/// The kind of what stands there, links followed. A path with a zero byte, which the system would see cut short, names
/// nothing.
fs::file_status statusOf(const std::string& path)
{
    if (path.find('\0') != std::string::npos)
        return fs::file_status(fs::file_not_found);
    boost::system::error_code ignored;
    return fs::status(path, ignored);
}

bool isDirectory(const std::string& path)
{
    return fs::is_directory(statusOf(path));
}

std::optional<std::string> targetOf(const std::string& shortcut)
{
    boost::system::error_code error;
    if (!fs::is_symlink(fs::symlink_status(shortcut, error)))
        return shellLinkTarget(shortcut);
    const fs::path target = fs::canonical(shortcut, error);
    return error ? std::nullopt : std::optional(target.string());
}

} // namespace

DSPFileUtil::DSPFileUtil(const std::string& caseRoot) : path_(caseRoot + "_DSP.INC") {}

bool DSPFileUtil::isDSPCase()
{
    checkIt();
    return !path_.empty();
}

std::string DSPFileUtil::getDSPFilename()
{
    checkIt();
    return path_;
}

void DSPFileUtil::checkIt()
{
    if (checked_)
        return;
    checked_ = true;
    if (isDirectory(path_))
        return;
    path_ += ".lnk";
    if (!fs::exists(statusOf(path_))) {
        path_.clear();
        return;
    }
    if (const std::optional<std::string> target = targetOf(path_))
        path_ = isDirectory(*target) ? *target : std::string();
}

} // namespace Kvt::Mrl::MrlIO
