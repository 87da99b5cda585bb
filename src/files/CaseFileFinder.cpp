#include <mrlio/CaseFileFinder.h>

namespace Kvt::Mrl::MrlIO {

CaseFileFinder::CaseFileFinder(const std::string& caseName, const std::string& directory)
    : CaseFileFinder(caseName, Service::FileCatalog(directory, true))
{}

CaseFileFinder::CaseFileFinder(const std::string& caseName, const Service::IFileCatalog& catalog)
    : Service::FilteredFileFinder(caseName, catalog, Service::FilenameExactNoCaseFilter::Create(caseName))
{}

} // namespace Kvt::Mrl::MrlIO
