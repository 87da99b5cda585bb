#pragma once

#include "service/XmlDocument.h"
#include "summary/SummaryFileIndexer.h"
#include "summary/SummaryScan.h"

#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <exception>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Takes the content index out of a cache while it is parsed, so that its report steps are never in memory twice, and
/// checks the rest of it afterwards.
class ContentIndexCacheReader
{
public:
    /// The cache has to be valid for exactly these data files, in its own directory.
    ContentIndexCacheReader(const std::string& directory, const std::vector<std::string>& files);

    /// What the parse is to hand to this object, which has to outlive it.
    Service::XML::PassingElements passingReportSteps();

    /// To be called after the parse. False if the cache is stale, of another version or not what a cache looks like.
    /// throws  SummaryReaderException for report steps and mini steps that make no sense
    bool read(Service::XML::XmlElement document);

    int numVectors() const { return numVectors_; }

    SummaryReportSteps takeReportSteps() { return std::move(reportSteps_); }

private:
    using Element = Service::XML::XmlElement;

    bool readFiles(Element files);
    bool validateFile(Element file);
    void meetReportStep(Element contentIndex, Element element);
    void addReportStep(Element element);
    std::shared_ptr<const Service::FileName> dataFile(std::string_view name);

    std::string directory_;
    SummaryFileIndexer indexer_;
    std::unordered_set<std::string> expectedFiles_; // not met in the cache yet
    int numVectors_ = -1;
    Element contentIndex_; // whose report steps were met
    SummaryReportSteps reportSteps_;
    std::exception_ptr failure_; // at the first report step that makes no sense; those behind it aren't looked at
    std::string lastName_;       // report steps of one file follow one another
    std::shared_ptr<const Service::FileName> lastFile_;
};

} // namespace Kvt::Mrl::MrlIO
