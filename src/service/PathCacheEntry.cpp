#include <mrlio/service/PathCacheEntry.h>

#include <utility>

namespace Kvt::Mrl::Core::Service {

PathCacheEntry::PathCacheEntry(const std::string& path) : path_(path)
{
    split();
}

PathCacheEntry::PathCacheEntry(std::string&& path) noexcept : path_(std::move(path))
{
    split();
}

void PathCacheEntry::split() noexcept
{
    const std::size_t slash = path_.rfind('/');
    nameBegin_ = slash == std::string::npos ? 0 : slash + 1;
    const std::size_t dot = GetFileName().rfind('.');
    extensionBegin_ = dot == std::string_view::npos ? path_.size() : nameBegin_ + dot;
}

} // namespace Kvt::Mrl::Core::Service
