#include "summary/ContentIndexCacheReader.h"

#include "files/FileStamp.h"
#include "summary/ContentIndexCacheNames.h"

#include <mrlio/MrlIOException.h>

#include <cstdint>
#include <limits>

namespace Kvt::Mrl::MrlIO {

namespace {

using Service::XML::XmlElement;

/// False too if a number of the stamp is no whole number; one that isn't there counts as 0.
bool readStamp(XmlElement element, FileStamp& stamp)
{
    bool isReadable = true;
    FileStamp::forEachNumber(stamp, [&](const char* name, auto& number) {
        const XmlElement text = element.child(name);
        isReadable = isReadable && (!text || text.readInteger(number));
    });
    return isReadable;
}

void addMiniStep(XmlElement element, SummaryReportStepInfo& reportStep)
{
    constexpr int noNumber = std::numeric_limits<int>::min();
    int number = noNumber;
    std::int64_t offset = -1;
    for (XmlElement child = element.firstChild(); child; child = child.next()) {
        if (child.name() == CacheNames::number)
            child.readInteger(number);
        else if (child.name() == CacheNames::offset)
            child.readInteger(offset);
    }
    if (number == noNumber)
        throw SummaryReaderException("SummaryContentIndexCache::addMiniStep: mini step number not specified");
    // No keyword stands in front of a file's beginning.
    if (offset < 0)
        throw SummaryReaderException("SummaryContentIndexCache::addMiniStep: mini step offset not specified");
    reportStep.addMiniStep(number, std::streampos(offset));
}

} // namespace

ContentIndexCacheReader::ContentIndexCacheReader(const std::string& directory, const std::vector<std::string>& files)
    : directory_(directory),
      indexer_(files)
{
    for (const std::string& file : files)
        expectedFiles_.insert(Service::FileName(file).GetFileName());
}

Service::XML::PassingElements ContentIndexCacheReader::passingReportSteps()
{
    return {{CacheNames::contentIndex, CacheNames::reportStep},
            [this](Element contentIndex, Element reportStep) { meetReportStep(contentIndex, reportStep); }};
}

bool ContentIndexCacheReader::read(Element document)
{
    Element element = document.firstChild();
    int version = 0;
    if (element.name() != CacheNames::version || !element.readInteger(version) || version != CacheNames::currentVersion)
        return false;
    element = element.next();
    if (element.name() != CacheNames::numVectors || !element.readInteger(numVectors_) || numVectors_ < 0)
        return false;
    element = element.next();
    if (element.name() != CacheNames::files || !readFiles(element))
        return false;
    element = element.next();
    if (element.name() != CacheNames::contentIndex)
        return false;
    if (element != contentIndex_) {
        reportSteps_.clear(); // of some other element
        return true;
    }
    if (failure_)
        std::rethrow_exception(failure_);
    return true;
}

/// A data file that the cache doesn't list means that the data have grown.
bool ContentIndexCacheReader::readFiles(Element files)
{
    for (Element child = files.firstChild(); child; child = child.next()) {
        if (child.name() == CacheNames::file && !validateFile(child))
            return false;
    }
    return expectedFiles_.empty();
}

bool ContentIndexCacheReader::validateFile(Element file)
{
    const std::string name(file.child(CacheNames::fileName).text());
    FileStamp stored;
    if (!readStamp(file.child(CacheNames::fileStamp), stored) || expectedFiles_.erase(name) == 0)
        return false;
    Service::FileName dataFile;
    dataFile.SetFileName(name);
    dataFile.SetDirectory(directory_);
    FileStamp present;
    return dataFile.IsFile() && FileStamp::read(dataFile, present) && present == stored;
}

/// A failure has to wait: it counts only in a document that is well-formed to its end and a valid cache otherwise.
void ContentIndexCacheReader::meetReportStep(Element contentIndex, Element element)
{
    if (!contentIndex_)
        contentIndex_ = contentIndex;
    if (failure_ || contentIndex != contentIndex_)
        return;
    try {
        addReportStep(element);
    } catch (...) {
        failure_ = std::current_exception();
    }
}

void ContentIndexCacheReader::addReportStep(Element element)
{
    std::shared_ptr<SummaryReportStepInfo> reportStep;
    element.forEachDescendant(CacheNames::fileName, [&](Element fileName) {
        reportStep = std::make_shared<SummaryReportStepInfo>(dataFile(fileName.text()));
    });
    if (!reportStep)
        throw SummaryReaderException(
            "SummaryContentIndexCache::addReportStep: report step has not been initialialized");
    element.forEachDescendant(CacheNames::miniStep, [&](Element miniStep) { addMiniStep(miniStep, *reportStep); });
    reportSteps_.push_back(std::move(reportStep));
}

std::shared_ptr<const Service::FileName> ContentIndexCacheReader::dataFile(std::string_view name)
{
    if (lastFile_ && name == lastName_)
        return lastFile_;
    lastName_ = name;
    if (!indexer_.isKnown(lastName_))
        throw SummaryReaderException("SummaryContentIndexCache::addReportStep: inconsistent file list");
    Service::FileName file;
    file.SetFileName(lastName_);
    file.SetDirectory(directory_);
    lastFile_ = std::make_shared<const Service::FileName>(file);
    return lastFile_;
}

} // namespace Kvt::Mrl::MrlIO
