#pragma once

#include <mrlio/Export.h>
#include <mrlio/ISummaryDataLoader.h>
#include <mrlio/service/Directory.h>
#include <mrlio/service/Namespaces.h>

#include <memory>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// Process-wide settings of the summary readers. Any thread may use it.
class MRLIO_EXPORT SummaryReaderEnvironment
{
public:
    /// The factory from which a reader takes its loader at its first need of data: SummaryDataLoaderIncrementalFactory
    /// unless another one was set. The reference is valid until the next setDataAccessorFactory().
    static const ISummaryDataLoaderFactory& getDataAccessorFactory();

    /// Sets the factory for loaders made from now on; null means the default. A factory in use on another thread lives
    /// until its loader is made.
    static void setDataAccessorFactory(std::unique_ptr<ISummaryDataLoaderFactory> factory);

    /// Removes the content index cache of a case. To be called before a case's files are rewritten. Never fails: what
    /// goes wrong is logged.
    static void flushContentIndexCache(const Service::Directory& directory, const std::string& baseName);
};

} // namespace Kvt::Mrl::MrlIO
