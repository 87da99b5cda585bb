#pragma once

#include <mrlio/Export.h>
#include <mrlio/service/Directory.h>
#include <mrlio/service/Namespaces.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

class RFTContentIndex;

/// What the readers of well test results (RFTReader) share in a process. Any thread may use it.
class MRLIO_EXPORT RFTReaderEnvironment
{
public:
    RFTReaderEnvironment() = delete;

    /// Removes the content index cache of a case, <root>_rft_content_index__.xml. To be called before the case's file is
    /// rewritten, and to get rid of a damaged cache. Never fails: what goes wrong is logged.
    static void flushContentIndexCache(const Service::Directory& directory, const std::string& root);

private:
    friend class RFTContentIndex;

    /// Whether the last content index of the process came from its cache.
    static bool getLastLoadUsesXMLCache();
    static void setLastLoadUsesXMLCache(bool usesCache);
};

} // namespace Kvt::Mrl::MrlIO
