#pragma once

#include "wellresults/DatedContent.h"
#include "wellresults/KeywordScan.h"
#include "wellresults/ReportWalk.h"
#include "wellresults/StoredArrays.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Keeps the arrays of a file by report. The first question about a report opens the file, reads the report whole and
/// closes the file; nothing is evicted. If that fails, what was read until then stays, and the report isn't read again.
///
/// Index is the content index that tells where the reports stand: file(), times(), offsets().
/// Family tells, besides what DatedContent asks for:
///     isFormatted(file)       the form of a file, by its name
///     lastTimeOf(time)        of the report with that time; a TIME above it begins the next one
///     loadName                "RFTDataLoaderIncremental::loadData": begins the texts ...
///     readName                "RFTDataLoaderIncremental::readDataVector"
///     typeName                "RFTDataLoaderIncremental::getArrayOfType"
template <class Family, class Index>
class DatedDataLoader
{
public:
    /// index   has to outlive the loader
    explicit DatedDataLoader(const Index& index) : index_(index), reports_(index.times().size()) {}

    DatedDataLoader(const DatedDataLoader&) = delete;
    DatedDataLoader& operator=(const DatedDataLoader&) = delete;
    virtual ~DatedDataLoader() = default;

protected:
    using Walk = ReportWalk<typename Family::Exception>;

    /// Replaces `values` by an array of a report. False, with `values` empty, if it isn't there.
    template <class T>
    bool copyArray(std::size_t report, const ArrayKey& key, std::vector<T>& values)
    {
        values.clear();
        return copyTo(find(report, key), values);
    }

    /// The stored array itself; null if it isn't there.
    template <class T>
    std::shared_ptr<std::vector<T>> sharedArray(std::size_t report, const ArrayKey& key)
    {
        return sharedVector<T, typename Family::Exception>(find(report, key), Family::typeName);
    }

    /// Reads the keyword at which a walk stands.
    static StoredArray readArray(Walk& walk) { return walk.array(Family::readName); }

private:
    /// Stores the arrays over which the walk goes.
    virtual void readReport(Walk& walk, StoredArrays& arrays) = 0;

    const StoredArray& find(std::size_t report, const ArrayKey& key)
    {
        static const StoredArray nothing;
        if (report >= reports_.size())
            return nothing;
        if (!reports_[report])
            load(report);
        return reports_[report]->find(key);
    }

    void load(std::size_t report)
    {
        KeywordScan<typename Family::Exception> scan(Family::loadName, index_.file(),
                                                     Family::isFormatted(index_.file()));
        reports_[report] = std::make_unique<StoredArrays>();
        scan.startAt(ReportKeyword::DATE, index_.offsets()[report]);
        Walk walk(scan, Family::lastTimeOf(index_.times()[report]));
        readReport(walk, *reports_[report]);
    }

    const Index& index_;
    std::vector<std::unique_ptr<StoredArrays>> reports_; // null until it is asked for
};

} // namespace Kvt::Mrl::MrlIO
