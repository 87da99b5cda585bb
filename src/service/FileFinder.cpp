#include <mrlio/service/FileFinder.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace Kvt::Mrl::Core::Service {
namespace {

using Filter = std::shared_ptr<const PathFilter>;
using Entries = std::vector<PathCacheEntry>;

bool passes(const PathCacheEntry& entry, const Filter& filter)
{
    return filter && filter->Accept(entry);
}

const PathCacheEntry* firstPassing(const Entries& entries, const Filter& filter)
{
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const auto& e) { return passes(e, filter); });
    return found == entries.end() ? nullptr : &*found;
}

} // namespace

struct FilteredFileFinder::FilteredFileFinderImpl
{
    std::string name;
    std::string root;
    Filter rootFilter;
    Entries entries; // those that pass the root filter
};

IFileFinder::~IFileFinder() = default;
IFilteredFileFinder::~IFilteredFileFinder() = default;

FilteredFileFinder::FilteredFileFinder(const std::string& name, const IFileCatalog& catalog, const Filter& rootFilter)
{
    auto impl = std::make_shared<FilteredFileFinderImpl>();
    impl->name = name;
    impl->root = catalog.GetRoot();
    impl->rootFilter = rootFilter;
    const Entries& all = catalog.GetEntries();
    std::copy_if(all.begin(), all.end(), std::back_inserter(impl->entries),
                 [&](const auto& entry) { return !rootFilter || rootFilter->Accept(entry); });
    impl_ = std::move(impl);
}

FilteredFileFinder::FilteredFileFinder(const FilteredFileFinder&) = default;
FilteredFileFinder& FilteredFileFinder::operator=(const FilteredFileFinder&) = default;
FilteredFileFinder::~FilteredFileFinder() = default;

std::string FilteredFileFinder::GetName() const
{
    return impl_->name;
}

std::shared_ptr<const PathFilter> FilteredFileFinder::GetRootFilter() const
{
    return impl_->rootFilter;
}

std::string FilteredFileFinder::GetFile(const Filter& filter) const
{
    const PathCacheEntry* const entry = firstPassing(impl_->entries, filter);
    return entry != nullptr ? entry->GetPath() : std::string();
}

std::vector<std::string> FilteredFileFinder::GetFiles(const Filter& filter) const
{
    std::vector<std::string> files;
    for (const PathCacheEntry& entry : impl_->entries) {
        if (passes(entry, filter))
            files.push_back(entry.GetPath());
    }
    return files;
}

std::string FilteredFileFinder::GetFileInFilterPriority(const PathFilterList& filters) const
{
    for (const Filter& filter : filters) {
        if (const PathCacheEntry* const entry = firstPassing(impl_->entries, filter))
            return entry->GetPath();
    }
    return {};
}

std::vector<std::string> FilteredFileFinder::GetFilesInFilterPriority(const PathFilterList& filters) const
{
    for (const Filter& filter : filters) {
        if (auto files = GetFiles(filter); !files.empty())
            return files;
    }
    return {};
}

std::vector<std::string> FilteredFileFinder::GetAllSingleFilesInFilterPriority(const PathFilterList& filters) const
{
    std::vector<std::string> files;
    for (const Filter& filter : filters) {
        if (const PathCacheEntry* const entry = firstPassing(impl_->entries, filter))
            files.push_back(entry->GetPath());
    }
    return files;
}

std::vector<std::vector<std::string>>
FilteredFileFinder::GetAllFilesInFilterPriority(const PathFilterList& filters) const
{
    std::vector<std::vector<std::string>> groups;
    for (const Filter& filter : filters) {
        if (auto files = GetFiles(filter); !files.empty())
            groups.push_back(std::move(files));
    }
    return groups;
}

const std::vector<PathCacheEntry>& FilteredFileFinder::GetEntries() const
{
    return impl_->entries;
}

const std::string& FilteredFileFinder::GetRoot() const
{
    return impl_->root;
}

} // namespace Kvt::Mrl::Core::Service
