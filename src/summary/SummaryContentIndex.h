#pragma once

#include "files/FileStamp.h"
#include "summary/SummaryScan.h"

#include <mrlio/ISummaryReader.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Which report steps and mini steps the summary data files of a case hold, and where their PARAMS stand. Data files
/// are scanned, or the cache read, at the first question that needs it; so the questions are const, and may throw what
/// a scan throws. After a failed scan the index is empty, with nothing pending.
class SummaryContentIndex
{
public:
    SummaryContentIndex(const std::string& directory, const std::string& baseName,
                        ISummaryReader::ContentCacheBehaviour behaviour);

    /// Takes the first list of files: from the cache if it is wanted and valid, else to be scanned.
    void setFiles(const std::vector<std::string>& files);

    /// Adds files behind all others, to be scanned.
    void addFiles(std::vector<std::string>::const_iterator begin, std::vector<std::string>::const_iterator end);

    /// Whether the last scan failed, so that only scanning all files again can help.
    bool hasFailed() const { return hasFailed_; }

    /// Forgets everything and takes all files of the case, to be scanned.
    void restart(const std::vector<std::string>& files);

    /// Counts the restarts: data that were read at another count don't belong to this index.
    std::uint64_t restarts() const { return restarts_; }

    const SummaryReportSteps& reportSteps() const;
    /// Mini steps of all report steps together.
    std::size_t miniStepCount() const;
    /// The length of every PARAMS; 0 if not known. Looks no further than the first PARAMS.
    int numVectors() const;
    /// The numbers of all mini steps in the order of the report steps. The reference stays valid, its content grows.
    const std::vector<int>& miniTimeSteps() const;

private:
    struct StampedFile
    {
        Service::FileName name;
        FileStamp stamp;
    };

    void initialize();
    void initializeNumVectors();
    void scanPendingFiles();
    void collectMiniStepNumbers();
    void takeStamps(const std::vector<std::string>& files);
    bool areStampsUnchanged() const;
    void saveCache() const;
    void clearAfterFailure();
    void forgetContent();

    /// Questions are const for their askers and bring the index up to date all the same. No index is a const object.
    SummaryContentIndex& self() const { return const_cast<SummaryContentIndex&>(*this); }

    SummaryContentIndex& upToDate() const
    {
        self().initialize();
        return self();
    }

    std::vector<std::string> pendingFiles_;
    Service::FileName cacheFile_;
    SummaryReportSteps reportSteps_;
    std::size_t miniStepCount_ = 0;
    std::vector<int> miniStepNumbers_;
    bool hasMiniStepNumbers_ = false;
    int numVectors_ = -1;
    ISummaryReader::ContentCacheBehaviour behaviour_;
    std::vector<StampedFile> stampedFiles_; // as they were before they were scanned
    bool mayBeSaved_ = true;                // until a cut file was met or a file couldn't be looked at
    bool hasFailed_ = false;
    std::uint64_t restarts_ = 0;
};

} // namespace Kvt::Mrl::MrlIO
