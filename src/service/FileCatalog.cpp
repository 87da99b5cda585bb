#include <mrlio/service/FileCatalog.h>

#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <utility>

namespace Kvt::Mrl::Core::Service {
namespace {

using Entries = std::vector<PathCacheEntry>;

/// Kind of the entry, as d_type values. Some file systems don't tell it with the name; they are asked for it.
unsigned char kindOf(const dirent& entry, int directory)
{
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type;
    struct stat status;
    if (::fstatat(directory, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) != 0)
        return DT_UNKNOWN;
    return S_ISREG(status.st_mode) ? DT_REG : S_ISLNK(status.st_mode) ? DT_LNK : DT_UNKNOWN;
}

bool comesBefore(const PathCacheEntry& a, const PathCacheEntry& b)
{
    return a.GetFileName() < b.GetFileName(); // string_view compares bytes as unsigned
}

std::shared_ptr<const Entries> readDirectory(const std::string& directory, bool withSymbolicLinks)
{
    auto entries = std::make_shared<Entries>();
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(::opendir(directory.empty() ? "." : directory.c_str()),
                                                     ::closedir);
    if (!stream)
        return entries;
    const std::string front = directory.empty() ? directory : directory + '/';
    while (const dirent* entry = ::readdir(stream.get())) {
        const unsigned char kind = kindOf(*entry, ::dirfd(stream.get()));
        if (kind == DT_REG || (withSymbolicLinks && kind == DT_LNK))
            entries->emplace_back(front + entry->d_name);
    }
    std::sort(entries->begin(), entries->end(), comesBefore);
    return entries;
}

} // namespace

IFileCatalog::~IFileCatalog() = default;

FileCatalogBase::FileCatalogBase(const std::string& root, std::shared_ptr<const Entries> entries)
    : root_(root),
      entries_(std::move(entries))
{}

FileCatalogBase::FileCatalogBase(const FileCatalogBase&) = default;
FileCatalogBase& FileCatalogBase::operator=(const FileCatalogBase&) = default;
FileCatalogBase::~FileCatalogBase() = default;

FileCatalog::FileCatalog(const std::string& directory, bool withSymbolicLinks)
    : FileCatalogBase(directory, readDirectory(directory, withSymbolicLinks))
{}

} // namespace Kvt::Mrl::Core::Service
