#include <mrlio/GRFTReaderEnvironment.h>

#include "wellresults/grft/GRFTContentIndex.h"

#include <atomic>

namespace Kvt::Mrl::MrlIO {

namespace {

std::atomic<bool> lastLoadUsesXMLCache = false;

} // namespace

void GRFTReaderEnvironment::flushContentIndexCache(const Service::Directory& directory, const std::string& root)
{
    ContentCache::flush(grftContentIndexCache, directory, root);
}

bool GRFTReaderEnvironment::getLastLoadUsesXMLCache()
{
    return lastLoadUsesXMLCache;
}

void GRFTReaderEnvironment::setLastLoadUsesXMLCache(bool usesCache)
{
    lastLoadUsesXMLCache = usesCache;
}

} // namespace Kvt::Mrl::MrlIO
