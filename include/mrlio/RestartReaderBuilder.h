#pragma once

#include <mrlio/Export.h>
#include <mrlio/IRestartReaderBuilder.h>
#include <mrlio/InitReaderBuilder.h>
#include <mrlio/InitRestartReaderBuilderBase.h>

#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The builder of restart readers; see IRestartReaderBuilder. One thread at a time uses a builder.
class MRLIO_EXPORT RestartReaderBuilder : public IRestartReaderBuilder, private InitRestartReaderBuilderBase
{
public:
    /// Writes no index files, keeps all properties, logs nothing, takes the active cells from pore volumes.
    RestartReaderBuilder();
    ~RestartReaderBuilder() override;
    RestartReaderBuilder(const RestartReaderBuilder&) = default;
    RestartReaderBuilder& operator=(const RestartReaderBuilder&) = default;

    std::shared_ptr<RestartReader> build(std::vector<boost::filesystem::path> restartFiles) override;
    std::shared_ptr<RestartReader> build(std::vector<boost::filesystem::path> restartFiles,
                                         const boost::filesystem::path& initFile) override;
    std::shared_ptr<RestartReader> build(const boost::filesystem::path& restartFile,
                                         const boost::filesystem::path& initFile) override;
    std::shared_ptr<RestartReader> build(const ICaseFileFinder& finder) override;
    std::shared_ptr<RestartReader> build(const ICaseFileFinder& finder, DataFormat format) override;
    std::shared_ptr<RestartReader> build(const ICaseFileFinder& finder,
                                         std::shared_ptr<InitReader> initReader) override;
    std::shared_ptr<RestartReader> build(const ICaseFileFinder& finder, const ICaseFileFinder& initFinder) override;

    RestartReaderBuilder& withSpecFile() override;
    RestartReaderBuilder& withSpecFile(bool generate) override;
    RestartReaderBuilder& withoutSpecFile() override;
    RestartReaderBuilder& withPropertyCacheLimit(int limit) override;
    RestartReaderBuilder& withLogger(const ILog* logger) override;
    RestartReaderBuilder& withCellActivitiesSource(const ICellActivitiesSource* source) override;

private:
    class Assembly;

    const ICellActivitiesSource* cellActivitiesSource_ = nullptr;
};

} // namespace Kvt::Mrl::MrlIO
