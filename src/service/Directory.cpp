#include <mrlio/service/Directory.h>

#include <mrlio/service/Exception.h>
#include <mrlio/service/FileName.h>

#include "service/PathText.h"

#include <algorithm>
#include <boost/filesystem.hpp>
#include <boost/regex.hpp>
#include <cerrno>
#include <sys/stat.h>
#include <system_error>

namespace Kvt::Mrl::Core::Service {
namespace {
namespace fs = boost::filesystem;

class NamePattern
{
public:
    NamePattern(const std::string& pattern, bool ignoreCase)
        : expression_(pattern, ignoreCase ? boost::regex::perl | boost::regex::icase : boost::regex::perl)
    {}

    bool matches(const std::string& name) const
    {
        // A line feed in a name doesn't begin a new line for ^ and $.
        return boost::regex_search(name, expression_, boost::match_single_line);
    }

private:
    boost::regex expression_;
};

// Calls visit(entry) for each entry, in no order; ends quietly where the system refuses to go on.
template <typename Visit>
void forEachEntry(const fs::path& directory, Visit visit)
{
    boost::system::error_code error;
    fs::directory_iterator entry(directory, error);
    while (!error && entry != fs::directory_iterator()) {
        visit(*entry);
        entry.increment(error);
    }
}

// The same with the folders below. Boost's recursive iterator would end the whole walk at a folder that can't be read.
template <typename Visit>
void forEachEntryBelow(const fs::path& directory, Visit visit)
{
    std::vector<fs::path> waiting{directory};
    while (!waiting.empty()) {
        const fs::path folder = std::move(waiting.back());
        waiting.pop_back();
        forEachEntry(folder, [&](const fs::directory_entry& entry) {
            visit(entry);
            boost::system::error_code ignored;
            if (entry.symlink_status(ignored).type() == fs::directory_file)
                waiting.push_back(entry.path());
        });
    }
}

bool isFolder(const fs::directory_entry& entry)
{
    boost::system::error_code ignored;
    return entry.status(ignored).type() == fs::directory_file;
}

bool isFileOrLink(const fs::directory_entry& entry)
{
    boost::system::error_code ignored;
    const fs::file_type type = entry.symlink_status(ignored).type();
    return type == fs::regular_file || type == fs::symlink_file;
}

void examine(const std::string& path)
{
    if (path.find('\0') != std::string::npos)
        throw ServiceException("Directory: zero byte in path");
    struct stat status;
    if (::stat(path.c_str(), &status) == 0) {
        if (!S_ISDIR(status.st_mode))
            throw DirectoryException("Directory: not a directory: " + path);
    } else if (errno == ENAMETOOLONG || errno == ELOOP) {
        throw ServiceException("Directory: " + std::generic_category().message(errno) + ": " + path);
    }
}
} // namespace

Directory::Directory(const std::string& path)
{
    Set(path, true);
}

Directory::Directory(const char* path) : Directory(std::string(path)) {}

void Directory::Set(const std::string& path, bool check)
{
    std::string name = cleanedDirectory(path);
    if (check && !name.empty())
        examine(name);
    name_ = std::move(name);
}

bool Directory::IsDirectory() const
{
    struct stat status;
    return ::stat(name_.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool Directory::IsRelativePath() const
{
    return name_.empty() || name_.front() != '/';
}

void Directory::MakeComplete(const Directory& base)
{
    if (!IsRelativePath())
        return;
    // Joined first, so that a leading "." becomes a step that is cleaned away.
    name_ = cleanedDirectory(joinedPath(base.name_, name_));
}

void Directory::Find(const std::string& pattern, bool ignoreCase, bool files, bool folders, bool recursive,
                     bool fullNames, std::vector<std::string>& names) const
{
    const NamePattern wanted(pattern, ignoreCase);
    std::vector<std::string> found;
    const auto visit = [&](const fs::directory_entry& entry) {
        const std::string name = entry.path().filename().string();
        if (wanted.matches(name) && (isFolder(entry) ? folders : files))
            found.push_back(fullNames ? entry.path().string() : name);
    };
    if (recursive)
        forEachEntryBelow(name_, visit);
    else
        forEachEntry(name_, visit);
    std::sort(found.begin(), found.end());
    names = std::move(found);
}

void Directory::DeleteContent(const std::string& pattern, bool ignoreCase) const
{
    const NamePattern wanted(pattern, ignoreCase);
    std::vector<fs::path> doomed;
    forEachEntry(name_, [&](const fs::directory_entry& entry) {
        if (wanted.matches(entry.path().filename().string()) && isFileOrLink(entry))
            doomed.push_back(entry.path());
    });
    for (const fs::path& path : doomed)
        fs::remove(path);
}

Directory Directory::Current()
{
    boost::system::error_code error;
    Directory current;
    current.Set(fs::current_path(error).string(), false);
    return current;
}

bool Directory::IsCaseSensitive()
{
    return FileName::IsCaseSensitive();
}
} // namespace Kvt::Mrl::Core::Service
