#include <mrlio/RFTReaderEnvironment.h>

#include "wellresults/rft/RFTContentIndex.h"

#include <atomic>

namespace Kvt::Mrl::MrlIO {

namespace {

std::atomic<bool> lastLoadUsesXMLCache = false;

} // namespace

void RFTReaderEnvironment::flushContentIndexCache(const Service::Directory& directory, const std::string& root)
{
    ContentCache::flush(rftContentIndexCache, directory, root);
}

bool RFTReaderEnvironment::getLastLoadUsesXMLCache()
{
    return lastLoadUsesXMLCache;
}

void RFTReaderEnvironment::setLastLoadUsesXMLCache(bool usesCache)
{
    lastLoadUsesXMLCache = usesCache;
}

} // namespace Kvt::Mrl::MrlIO
