#pragma once

#include <mrlio/Export.h>
#include <mrlio/service/FileCatalog.h>
#include <mrlio/service/PathFilter.h>

#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::Core::Service {

/// Finds files by filters. Results are paths as the catalog lists them, in the order of the catalog. No file passes a
/// null filter. The disk isn't looked at. The order of the virtual operations is part of the contract.
class MRLIO_EXPORT IFileFinder
{
public:
    virtual ~IFileFinder();

    /// The first file that passes the filter; empty if there is none.
    virtual std::string GetFile(const std::shared_ptr<const PathFilter>& filter) const = 0;

    /// All files that pass the filter.
    virtual std::vector<std::string> GetFiles(const std::shared_ptr<const PathFilter>& filter) const = 0;

    /// The first file of the first filter that any file passes; empty if there is none.
    virtual std::string GetFileInFilterPriority(const PathFilterList& filters) const = 0;

    /// All files of the first filter that any file passes.
    virtual std::vector<std::string> GetFilesInFilterPriority(const PathFilterList& filters) const = 0;

    /// For each filter in order the first file that passes it; filters that no file passes add nothing.
    virtual std::vector<std::string> GetAllSingleFilesInFilterPriority(const PathFilterList& filters) const = 0;

    /// For each filter in order the list of the files that pass it; filters that no file passes add nothing.
    virtual std::vector<std::vector<std::string>> GetAllFilesInFilterPriority(const PathFilterList& filters) const = 0;

protected:
    IFileFinder() = default;
    IFileFinder(const IFileFinder&) = default;
    IFileFinder& operator=(const IFileFinder&) = default;
};

/// A finder that has a name and considers only files which pass its root filter.
class MRLIO_EXPORT IFilteredFileFinder
{
public:
    virtual ~IFilteredFileFinder();

    /// The name that the finder was given.
    virtual std::string GetName() const = 0;

    /// The filter that a file must pass to be considered at all.
    virtual std::shared_ptr<const PathFilter> GetRootFilter() const = 0;

protected:
    IFilteredFileFinder() = default;
    IFilteredFileFinder(const IFilteredFileFinder&) = default;
    IFilteredFileFinder& operator=(const IFilteredFileFinder&) = default;
};

/// The finder over a catalog. The files that pass the root filter are picked out once, when the finder is made; nothing
/// of the catalog is referred to afterwards. Copies share the picked files, and threads may share a finder.
///
/// As a catalog, the finder shows the files that it considers.
class MRLIO_EXPORT FilteredFileFinder : public virtual IFilteredFileFinder,
                                        public virtual IFileFinder,
                                        public virtual IFileCatalog
{
public:
    /// rootFilter  null lets every file of the catalog pass
    FilteredFileFinder(const std::string& name, const IFileCatalog& catalog,
                       const std::shared_ptr<const PathFilter>& rootFilter);
    ~FilteredFileFinder() override;
    FilteredFileFinder(const FilteredFileFinder&);
    FilteredFileFinder& operator=(const FilteredFileFinder&);

    std::string GetName() const override;
    std::shared_ptr<const PathFilter> GetRootFilter() const override;

    std::string GetFile(const std::shared_ptr<const PathFilter>& filter) const override;
    std::vector<std::string> GetFiles(const std::shared_ptr<const PathFilter>& filter) const override;
    std::string GetFileInFilterPriority(const PathFilterList& filters) const override;
    std::vector<std::string> GetFilesInFilterPriority(const PathFilterList& filters) const override;
    std::vector<std::string> GetAllSingleFilesInFilterPriority(const PathFilterList& filters) const override;
    std::vector<std::vector<std::string>> GetAllFilesInFilterPriority(const PathFilterList& filters) const override;

    const std::vector<PathCacheEntry>& GetEntries() const override;
    const std::string& GetRoot() const override;

private:
    struct FilteredFileFinderImpl;

    std::shared_ptr<const FilteredFileFinderImpl> impl_;
};

} // namespace Kvt::Mrl::Core::Service
