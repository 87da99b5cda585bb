#pragma once

#include <mrlio/Export.h>
#include <mrlio/service/FileFinder.h>
#include <mrlio/service/Namespaces.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// Finds the files of one case.
class MRLIO_EXPORT ICaseFileFinder : public virtual Service::IFilteredFileFinder,
                                     public virtual Service::IFileFinder,
                                     public virtual Service::IFileCatalog
{};

/// Finds the files whose root name is the case name, in any letter case. The directory is read once, when the finder is
/// made: files written later show up only through a new finder. Copies are cheap and independent of the original.
class MRLIO_EXPORT CaseFileFinder : public ICaseFileFinder, public Service::FilteredFileFinder
{
public:
    /// directory  stands in front of all results as it is given; empty means the current one and adds nothing.
    ///            A missing or unreadable directory counts as one without files.
    CaseFileFinder(const std::string& caseName, const std::string& directory);

    /// Takes the files from an existing catalog, which may be gone afterwards.
    CaseFileFinder(const std::string& caseName, const Service::IFileCatalog& catalog);
};

} // namespace Kvt::Mrl::MrlIO
