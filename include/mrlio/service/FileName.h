#pragma once

#include <mrlio/Export.h>
#include <mrlio/service/Time.h>

#include <compare>
#include <cstdint>
#include <string>

namespace Kvt::Mrl::Core::Service {
/// The name of a file in its three parts: directory, root name and extension. The file need not exist.
///
/// The extension begins behind the last dot of the file name. A root that was set by SetRootName may hold dots of its
/// own. A plain value: copies are independent, and two names are equal when their parts are. The operations that look
/// at the file ask the system at each call and never throw for what they find there.
class MRLIO_EXPORT FileName
{
public:
    /// A name of which all parts are empty.
    FileName() = default;

    /// Takes a path apart, as Set(path, true) does. Not explicit, so that a path serves where a name is wanted.
    FileName(const std::string& path);
    FileName(const char* path);

    /// name            what the name becomes: a path, or the name of a file
    /// withDirectory   true: the directory is taken from name too, and a name without one has none afterwards;
    ///                 false: name is that of a file, and the directory stays
    void Set(const std::string& name, bool withDirectory);

    /// Doubled and trailing slashes and "/." steps are left out; "/" stays. An empty text takes the directory away.
    void SetDirectory(const std::string& directory);
    void SetRootName(const std::string& rootName);
    /// extension   without the dot; an empty one takes the dot away
    void SetExtension(const std::string& extension);
    /// fileName   root name and extension in one; the directory stays
    void SetFileName(const std::string& fileName);
    /// The same with the two parts given apart.
    void SetFileName(const std::string& rootName, const std::string& extension);

    /// Directory, root name and extension. The name of a clean absolute path is that path.
    std::string GetFullName() const;
    /// Root name and extension, without the directory.
    std::string GetFileName() const;

    const std::string& GetDirectory() const { return directory_; }

    const std::string& GetRootName() const { return rootName_; }

    /// Without the dot.
    const std::string& GetExtension() const { return extension_; }

    /// True if anything of that name is there: a file, a folder or something else.
    bool FileExists() const;
    /// True if the name, or what a link of that name points to, is a plain file; false for a folder.
    bool IsFile() const;
    /// The length in bytes, -1 if the file can't be found.
    std::int64_t FileLength() const;
    /// time   becomes the time of the last change in UTC, so that it doesn't depend on the user's time zone; undefined
    ///        when the result is false
    /// false if the file can't be found.
    bool TimeLastModified(Time& time) const;

    /// True if names that differ in the case of letters belong to different files on this system.
    static bool IsCaseSensitive();

    /// By directory, then root name, then extension.
    auto operator<=>(const FileName&) const = default;

private:
    std::string directory_;
    std::string rootName_;
    std::string extension_;
    bool hasDot_ = false; // told apart from an empty extension, so that "name." stays what it is
};
} // namespace Kvt::Mrl::Core::Service
