#include <mrlio/SimpleSummaryReader.h>

#include "core/Fail.h"
#include "summary/DataLoaderFactory.h"
#include "summary/SummaryContentIndex.h"
#include "summary/SummaryDataCache.h"

#include <mrlio/MrlIOException.h>
#include <mrlio/service/Log.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <stdexcept>

namespace Kvt::Mrl::MrlIO {

/// The files, their index, and what has been read of them. Loader and axes are made when they are asked for first.
class SimpleSummaryReaderImpl
{
public:
    SimpleSummaryReaderImpl(const SummarySpecData& spec, const std::vector<std::string>& files,
                            const std::string& directory, const std::string& baseName,
                            ISummaryReader::ContentCacheBehaviour behaviour);

    const std::vector<std::string>& files() const { return files_; }

    const SummaryContentIndex& index() const { return index_; }

    bool readNewData(const std::vector<std::string>& files);
    const ISummaryDataLoader& loader();
    SummaryDataCache& dataCache();

private:
    const SummarySpecData& spec_;
    std::vector<std::string> files_;
    SummaryContentIndex index_;
    std::unique_ptr<ISummaryDataLoader> loader_;
    std::optional<SummaryDataCache> dataCache_;
};

SimpleSummaryReaderImpl::SimpleSummaryReaderImpl(const SummarySpecData& spec, const std::vector<std::string>& files,
                                                 const std::string& directory, const std::string& baseName,
                                                 ISummaryReader::ContentCacheBehaviour behaviour)
    : spec_(spec),
      files_(files),
      index_(directory, baseName, behaviour)
{
    index_.setFiles(files_);
    if (!index_.reportSteps().empty() && spec_.allVectorIDs().size() != static_cast<std::size_t>(index_.numVectors()))
        throw SummaryReaderException("array length in spec file inconsistent with those in the data file");
}

bool SimpleSummaryReaderImpl::readNewData(const std::vector<std::string>& files)
{
    if (!spec_.isInitialized())
        throw SummaryReaderException("no data set has been read");
    if (files.size() == files_.size())
        return false;
    if (files.size() < files_.size())
        throw SummaryReaderException("existing summary files missing");
    const auto [known, other] = std::ranges::mismatch(files_, files);
    if (known != files_.end())
        fail<SummaryReaderException>("inconsistent set of summary files: ", *other);

    std::vector<std::string> allFiles = files;
    if (index_.hasFailed())
        index_.restart(allFiles);
    else
        index_.addFiles(other, files.end());
    files_.swap(allFiles);
    if (loader_)
        loader_->contentIndexGrown();
    if (dataCache_)
        dataCache_->reset();
    return true;
}

const ISummaryDataLoader& SimpleSummaryReaderImpl::loader()
{
    if (!loader_)
        loader_ = makeDataLoader(spec_, index_);
    return *loader_;
}

SummaryDataCache& SimpleSummaryReaderImpl::dataCache()
{
    if (!dataCache_)
        dataCache_.emplace(spec_, index_, loader());
    return *dataCache_;
}

namespace {

/// The answer of a question to the data files; a failure costs a line in the log and leaves nothing to answer.
template <class T, class Ask>
const std::vector<T>& askOrLog(const std::vector<T>& nothing, Ask ask)
{
    try {
        return ask();
    } catch (const std::runtime_error& failure) {
        Service::Log::SendLogMessage(failure.what(), Service::SeverityError);
        return nothing;
    }
}

} // namespace

SimpleSummaryReader::SimpleSummaryReader(const std::shared_ptr<SummarySpecData>& spec,
                                         const std::vector<std::string>& files, const std::string& directory,
                                         const std::string& baseName, ISummaryReader::ContentCacheBehaviour behaviour)
    : SummaryReaderBase(spec),
      impl_(std::make_unique<SimpleSummaryReaderImpl>(specData(), files, directory, baseName, behaviour))
{}

SimpleSummaryReader::~SimpleSummaryReader() = default;

std::unique_ptr<SimpleSummaryReader> SimpleSummaryReader::create(const std::shared_ptr<SummarySpecData>& spec,
                                                                 const std::vector<std::string>& files,
                                                                 const std::string& directory,
                                                                 const std::string& baseName,
                                                                 ISummaryReader::ContentCacheBehaviour behaviour)
{
    return std::unique_ptr<SimpleSummaryReader>(new SimpleSummaryReader(spec, files, directory, baseName, behaviour));
}

bool SimpleSummaryReader::readNewData(const std::vector<std::string>& files)
{
    return impl_->readNewData(files);
}

std::vector<std::string> SimpleSummaryReader::summaryFiles() const
{
    return impl_->files();
}

const ISummaryDataLoader& SimpleSummaryReader::dataAccessor() const
{
    return impl_->loader();
}

const std::vector<float>& SimpleSummaryReader::timeStepDays() const
{
    static const std::vector<float> nothing;
    return askOrLog(
        nothing, [this]() -> const auto& { return impl_->dataCache().timeStepDays(); });
}

const std::vector<int>& SimpleSummaryReader::miniTimeSteps() const
{
    static const std::vector<int> nothing;
    return askOrLog(
        nothing, [this]() -> const auto& { return impl_->index().miniTimeSteps(); });
}

const std::vector<float>& SimpleSummaryReader::reportStepDays() const
{
    static const std::vector<float> nothing;
    return askOrLog(
        nothing, [this]() -> const auto& { return impl_->dataCache().reportStepDays(); });
}

} // namespace Kvt::Mrl::MrlIO
