#include <mrlio/SummaryContentIndexCache.h>

#include "service/FileUtils.h"
#include "service/XmlDocument.h"
#include "service/XmlInitialise.h"
#include "summary/ContentIndexCacheNames.h"
#include "summary/ContentIndexCacheReader.h"
#include "summary/ContentIndexCacheWriter.h"

#include <mrlio/service/Log.h>

#include <boost/filesystem/operations.hpp>

#include <exception>

namespace Kvt::Mrl::MrlIO {

namespace {

void warn(const std::string& text)
{
    Service::Log::SendLogMessage(text.c_str(), Service::SeverityWarning);
}

bool parse(const Service::FileName& cache, const Service::XML::PassingElements& passing,
           Service::XML::XmlDocument& document, Service::XML::ParserErrorHandler& errors)
{
    try {
        Service::XML::Initialise::Init();
        return document.parse(cache.GetFullName(), errors, passing) && !errors.getSawErrors();
    } catch (const std::exception& failure) {
        errors.addFatalError(failure.what());
        return false;
    }
}

void removeBroken(const Service::FileName& cache, const Service::XML::ParserErrorHandler& errors)
{
    const std::string name = cache.GetFullName();
    warn("SummaryContentIndexCache: invalid content cache file " + name + ". Deleting file.");
    for (const std::string* error : {&errors.getLastError(), &errors.getLastFatalError()}) {
        if (!error->empty())
            warn(*error);
    }
    boost::system::error_code unknown;
    if (name.empty() || !boost::filesystem::exists(boost::filesystem::status(name, unknown)))
        return;
    try {
        boost::filesystem::remove(name);
    } catch (const boost::filesystem::filesystem_error& failure) {
        warn("failed to remove " + name + " : " + failure.what());
    }
}

} // namespace

Service::FileName SummaryContentIndexCache::cacheFileName(const std::string& directory, const std::string& baseName)
{
    Service::FileName name;
    name.SetFileName(baseName + std::string(CacheNames::fileSuffix));
    name.SetDirectory(directory);
    return name;
}

bool SummaryContentIndexCache::load(const Service::FileName& cache, const std::vector<std::string>& files,
                                    int& numVectors, std::list<std::shared_ptr<SummaryReportStepInfo>>& reportSteps)
{
    if (files.empty() || !cache.IsFile())
        return false;
    Service::XML::XmlDocument document;
    Service::XML::ParserErrorHandler errors;
    ContentIndexCacheReader reader(cache.GetDirectory(), files);
    if (!parse(cache, reader.passingReportSteps(), document, errors)) {
        removeBroken(cache, errors);
        return false;
    }
    if (!reader.read(document.root()))
        return false;
    numVectors = reader.numVectors();
    reportSteps = reader.takeReportSteps();
    return true;
}

bool SummaryContentIndexCache::save(const Service::FileName& cache, int numVectors,
                                    const std::list<std::shared_ptr<SummaryReportStepInfo>>& reportSteps)
{
    return saveContentIndex(cache, numVectors, reportSteps, {});
}

void SummaryContentIndexCache::flushCacheFile(const Service::FileName& cache)
{
    try {
        if (cache.IsFile())
            Service::FileUtils::Remove(cache);
    } catch (const std::exception&) {
        warn("SummaryContentIndexCache: content cache file can not be removed");
    }
}

} // namespace Kvt::Mrl::MrlIO
