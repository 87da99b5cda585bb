#pragma once

#include <mrlio/Export.h>
#include <mrlio/service/PathCacheEntry.h>

#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::Core::Service {

/// A list of the files of one directory.
class MRLIO_EXPORT IFileCatalog
{
public:
    virtual ~IFileCatalog();

    /// The files, each with the directory in front (see FileCatalog), sorted by file name as bytes.
    /// The reference is good as long as the catalog.
    virtual const std::vector<PathCacheEntry>& GetEntries() const = 0;

    /// The directory, as it was given.
    virtual const std::string& GetRoot() const = 0;

protected:
    IFileCatalog() = default;
    IFileCatalog(const IFileCatalog&) = default;
    IFileCatalog& operator=(const IFileCatalog&) = default;
};

/// A catalog that holds its list. Copies share the list, which never changes.
class MRLIO_EXPORT FileCatalogBase : public virtual IFileCatalog
{
public:
    ~FileCatalogBase() override;
    FileCatalogBase(const FileCatalogBase&);
    FileCatalogBase& operator=(const FileCatalogBase&);

    const std::vector<PathCacheEntry>& GetEntries() const override { return *entries_; }

    const std::string& GetRoot() const override { return root_; }

protected:
    /// entries  never null
    FileCatalogBase(const std::string& root, std::shared_ptr<const std::vector<PathCacheEntry>> entries);

private:
    std::string root_;
    std::shared_ptr<const std::vector<PathCacheEntry>> entries_;
};

/// The files of a directory at the time when the catalog was made; the disk isn't looked at again. Folders aren't
/// listed.
class MRLIO_EXPORT FileCatalog final : public FileCatalogBase
{
public:
    /// Lists the directory in one pass, without looking at the single files. A directory that is missing or can't be
    /// read gives an empty catalog.
    /// directory          each entry is this text, "/" and the name; if it is empty, the current directory is listed
    ///                    and the entries are bare names
    /// withSymbolicLinks  lists symbolic links too, whatever they point to
    FileCatalog(const std::string& directory, bool withSymbolicLinks);
};

} // namespace Kvt::Mrl::Core::Service
