#pragma once

#include <mrlio/Export.h>
#include <mrlio/SummaryReportStepInfo.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <list>
#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The XML file beside the summary data files of a case that saves a reader the walk through all their headers. It
/// names every data file with its length and its time of last change, and is worth nothing once one of them differs.
/// Stateless; any thread may use it, on different cache files.
class MRLIO_EXPORT SummaryContentIndexCache
{
public:
    /// The cache of the case baseName in that directory. A base name with dots stays whole.
    static Service::FileName cacheFileName(const std::string& directory, const std::string& baseName);

    /// Reads a cache that is valid for exactly these data files, in whatever order. They are looked for in the cache's
    /// directory.
    /// False if files is empty or there is no such cache, if it is stale, of another version or not what a cache looks
    /// like; a cache that is no well-formed XML is removed, too, with a line to the log.
    /// throws  SummaryReaderException if a report step names no file of the case or a mini step lacks number or offset
    /// The outputs are touched only when the result is true.
    static bool load(const Service::FileName& cache, const std::vector<std::string>& files, int& numVectors,
                     std::list<std::shared_ptr<SummaryReportStepInfo>>& reportSteps);

    /// Writes the cache, over an older one, with length and time of each data file as they are now.
    /// False, with a line to the log, if it can't be written.
    static bool save(const Service::FileName& cache, int numVectors,
                     const std::list<std::shared_ptr<SummaryReportStepInfo>>& reportSteps);

    /// Removes the cache if there is one. A failure costs a line in the log.
    static void flushCacheFile(const Service::FileName& cache);
};

} // namespace Kvt::Mrl::MrlIO
