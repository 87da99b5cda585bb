#pragma once

#include <mrlio/Export.h>

#include <compare>
#include <string>
#include <vector>

namespace Kvt::Mrl::Core::Service {
/// The name of a directory, which need not exist. A plain value: copies are independent, and two are equal when their
/// names are. The operations that look at the file system do so at each call.
class MRLIO_EXPORT Directory
{
public:
    /// A directory without a name. It stands for no place; completed, it becomes the base.
    Directory() = default;

    /// Set(path, true). Not explicit, so that a path serves where a directory is wanted.
    Directory(const std::string& path);
    Directory(const char* path);

    /// path     becomes the name; doubled and trailing slashes and "/." steps are left out, "/" stays
    /// check    true: look at what stands there
    /// throws   with check, DirectoryException if something that isn't a directory has this name, and ServiceException
    ///          if the path can't name anything on this system (too long, a zero byte in it, links in a circle). The
    ///          directory is unchanged then.
    void Set(const std::string& path, bool check);

    const std::string& Name() const { return name_; }

    /// True if it exists and is a directory.
    bool IsDirectory() const;

    /// True if the place depends on the current directory. So does the directory without a name.
    bool IsRelativePath() const;

    /// Puts base before a relative path; an absolute one stays.
    void MakeComplete(const Directory& base);

    /// Lists entries whose bare name matches a regular expression anywhere in it; use ^ and $ to bind its ends.
    /// pattern          a Perl-style regular expression; escaping is the caller's affair
    /// ignoreCase       letters match in either case
    /// files, folders   which kinds are listed; a link counts as what it points to, and as a file when that is missing
    /// recursive        folders are searched too; links to folders are not followed
    /// fullNames        list whole paths and not bare names
    /// names            emptied, then filled in byte order; a directory or folder that is missing or unreadable adds
    ///                  nothing
    /// throws           std::runtime_error if the pattern is no regular expression
    void Find(const std::string& pattern, bool ignoreCase, bool files, bool folders, bool recursive, bool fullNames,
              std::vector<std::string>& names) const;

    /// Removes the plain files and links of this directory whose name matches pattern, as in Find. A missing directory
    /// gives nothing to remove.
    /// throws   boost::filesystem::filesystem_error at the first file that can't be removed, std::runtime_error if the
    ///          pattern is no regular expression
    void DeleteContent(const std::string& pattern, bool ignoreCase) const;

    /// The process's current directory; without a name if it has gone.
    static Directory Current();

    /// True if names that differ in the case of letters belong to different entries on this system.
    static bool IsCaseSensitive();

    auto operator<=>(const Directory&) const = default;

private:
    std::string name_;
};
} // namespace Kvt::Mrl::Core::Service
