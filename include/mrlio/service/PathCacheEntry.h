#pragma once

#include <mrlio/Export.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace Kvt::Mrl::Core::Service {

/// One path, split once so that many filters can look at its pieces. A plain value; the pieces are views into it and
/// live as long as it.
class MRLIO_EXPORT PathCacheEntry
{
public:
    /// Takes a path of any kind, with a directory or without. The disk isn't looked at. Not explicit, so that a path
    /// serves where an entry is wanted.
    PathCacheEntry(const std::string& path);
    PathCacheEntry(std::string&& path) noexcept;

    /// The whole path, as it was given.
    const std::string& GetPath() const { return path_; }

    /// The name behind the last slash.
    std::string_view GetFileName() const { return std::string_view(path_).substr(nameBegin_); }

    /// The file name up to its last dot, or all of it if it has none.
    std::string_view GetRootName() const { return GetFileName().substr(0, extensionBegin_ - nameBegin_); }

    /// The file name from its last dot on, the dot included; empty if it has none.
    std::string_view GetExtension() const { return std::string_view(path_).substr(extensionBegin_); }

private:
    void split() noexcept;

    std::string path_;
    std::size_t nameBegin_ = 0;
    std::size_t extensionBegin_ = 0;
};

} // namespace Kvt::Mrl::Core::Service
