#pragma once

#include <mrlio/Export.h>
#include <mrlio/service/Directory.h>
#include <mrlio/service/Namespaces.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

class HMDContentIndex;

/// What the readers of history match data (HMDReader) share in a process. Any thread may use it.
class MRLIO_EXPORT HMDReaderEnvironment
{
public:
    HMDReaderEnvironment() = delete;

    /// Removes the content index cache of a case, <root>_hmd_content_index__.xml. To be called before the case's file is
    /// rewritten, and to get rid of a damaged cache. Never fails: what goes wrong is logged.
    static void flushContentIndexCache(const Service::Directory& directory, const std::string& root);

private:
    friend class HMDContentIndex;

    /// Whether the last content index of the process came from its cache.
    static bool getLastLoadUsesXMLCache();
    static void setLastLoadUsesXMLCache(bool usesCache);
};

} // namespace Kvt::Mrl::MrlIO
