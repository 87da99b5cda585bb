#include <mrlio/HMDReaderEnvironment.h>

#include "wellresults/hmd/HMDContentIndex.h"

#include <atomic>

namespace Kvt::Mrl::MrlIO {

namespace {

std::atomic<bool> lastLoadUsesXMLCache = false;

} // namespace

void HMDReaderEnvironment::flushContentIndexCache(const Service::Directory& directory, const std::string& root)
{
    ContentCache::flush(hmdContentIndexCache, directory, root);
}

bool HMDReaderEnvironment::getLastLoadUsesXMLCache()
{
    return lastLoadUsesXMLCache;
}

void HMDReaderEnvironment::setLastLoadUsesXMLCache(bool usesCache)
{
    lastLoadUsesXMLCache = usesCache;
}

} // namespace Kvt::Mrl::MrlIO
