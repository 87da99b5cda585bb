#include "summary/SummaryContentIndex.h"

#include "service/Delegates.h"
#include "summary/ContentIndexCacheWriter.h"

#include <mrlio/MrlIOException.h>
#include <mrlio/SummaryContentIndexCache.h>
#include <mrlio/service/Log.h>

#include <algorithm>

namespace Kvt::Mrl::MrlIO {

SummaryContentIndex::SummaryContentIndex(const std::string& directory, const std::string& baseName,
                                         ISummaryReader::ContentCacheBehaviour behaviour)
    : cacheFile_(SummaryContentIndexCache::cacheFileName(directory, baseName)),
      behaviour_(behaviour)
{}

void SummaryContentIndex::setFiles(const std::vector<std::string>& files)
{
    pendingFiles_ = files;
    if ((behaviour_ & ISummaryReader::ReadCache) == 0 || !cacheFile_.IsFile())
        return;
    takeStamps(files);
    try {
        if (SummaryContentIndexCache::load(cacheFile_, files, numVectors_, reportSteps_)) {
            pendingFiles_.clear();
            for (const auto& reportStep : reportSteps_)
                miniStepCount_ += reportStep->miniSteps().size();
            return;
        }
    } catch (const SummaryReaderException& broken) {
        // It must not close the case: the scan replaces it.
        Service::Log::SendLogMessage(broken.what(), Service::SeverityWarning);
    }
    stampedFiles_.clear();
    mayBeSaved_ = true;
}

void SummaryContentIndex::addFiles(std::vector<std::string>::const_iterator begin,
                                   std::vector<std::string>::const_iterator end)
{
    pendingFiles_.insert(pendingFiles_.end(), begin, end);
}

void SummaryContentIndex::restart(const std::vector<std::string>& files)
{
    forgetContent();
    stampedFiles_.clear();
    mayBeSaved_ = true;
    hasFailed_ = false;
    ++restarts_;
    pendingFiles_ = files;
}

const SummaryReportSteps& SummaryContentIndex::reportSteps() const
{
    return upToDate().reportSteps_;
}

std::size_t SummaryContentIndex::miniStepCount() const
{
    return upToDate().miniStepCount_;
}

int SummaryContentIndex::numVectors() const
{
    self().initializeNumVectors();
    return std::max(numVectors_, 0);
}

const std::vector<int>& SummaryContentIndex::miniTimeSteps() const
{
    SummaryContentIndex& index = upToDate();
    if (!index.hasMiniStepNumbers_)
        index.collectMiniStepNumbers();
    return miniStepNumbers_;
}

void SummaryContentIndex::collectMiniStepNumbers()
{
    miniStepNumbers_.clear();
    miniStepNumbers_.reserve(miniStepCount_);
    for (const auto& reportStep : reportSteps_) {
        for (const auto& miniStep : reportStep->miniSteps())
            miniStepNumbers_.push_back(miniStep->number());
    }
    hasMiniStepNumbers_ = true;
}

void SummaryContentIndex::initialize()
{
    if (pendingFiles_.empty())
        return;
    Service::DelegateBase guard(Service::onDestruction(*this, &SummaryContentIndex::clearAfterFailure));
    hasMiniStepNumbers_ = false;
    takeStamps(pendingFiles_);
    scanPendingFiles();
    if ((behaviour_ & ISummaryReader::WriteCache) != 0 && mayBeSaved_ && areStampsUnchanged())
        saveCache();
    pendingFiles_.clear();
    guard.Disarm();
}

void SummaryContentIndex::initializeNumVectors()
{
    if (numVectors_ < 0 && !pendingFiles_.empty())
        numVectors_ = countVectors(pendingFiles_.front());
}

void SummaryContentIndex::scanPendingFiles()
{
    SummaryScan scan(reportSteps_, numVectors_);
    for (const std::string& file : pendingFiles_) {
        if (!scan.scan(file))
            break;
        // A first file without PARAMS settles the number at 0, and PARAMS of a later file are refused: kept as it is.
        numVectors_ = std::max(numVectors_, 0);
    }
    numVectors_ = std::max(numVectors_, 0);
    mayBeSaved_ = mayBeSaved_ && !scan.hasMetCutFile();
    reportSteps_.remove_if([](const auto& reportStep) { return reportStep->miniSteps().empty(); });
    miniStepCount_ = 0;
    for (const auto& reportStep : reportSteps_)
        miniStepCount_ += reportStep->miniSteps().size();
}

void SummaryContentIndex::takeStamps(const std::vector<std::string>& files)
{
    if ((behaviour_ & ISummaryReader::WriteCache) == 0)
        return;
    for (const std::string& file : files) {
        StampedFile stamped{file, {}};
        mayBeSaved_ = FileStamp::read(stamped.name, stamped.stamp) && mayBeSaved_;
        stampedFiles_.push_back(std::move(stamped));
    }
}

bool SummaryContentIndex::areStampsUnchanged() const
{
    return std::ranges::all_of(stampedFiles_, [](const StampedFile& file) {
        FileStamp now;
        return FileStamp::read(file.name, now) && now == file.stamp;
    });
}

/// The stamps go out as they were before the scan: a file that grows just now makes the cache stale at once.
void SummaryContentIndex::saveCache() const
{
    FileStamps stamps;
    for (const StampedFile& file : stampedFiles_)
        stamps.insert_or_assign(file.name.GetFileName(), file.stamp);
    saveContentIndex(cacheFile_, numVectors_, reportSteps_, stamps);
}

void SummaryContentIndex::clearAfterFailure()
{
    forgetContent();
    hasFailed_ = true;
}

void SummaryContentIndex::forgetContent()
{
    pendingFiles_.clear();
    reportSteps_.clear();
    miniStepCount_ = 0;
    hasMiniStepNumbers_ = false;
    numVectors_ = -1;
}

} // namespace Kvt::Mrl::MrlIO
