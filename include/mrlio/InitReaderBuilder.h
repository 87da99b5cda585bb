#pragma once

#include <mrlio/Export.h>
#include <mrlio/IInitReaderBuilder.h>
#include <mrlio/InitRestartReaderBuilderBase.h>

#include <memory>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// The builder of init readers; see IInitReaderBuilder. One thread at a time uses a builder.
class MRLIO_EXPORT InitReaderBuilder : public IInitReaderBuilder, private InitRestartReaderBuilderBase
{
public:
    /// Writes no index files, keeps all properties, logs nothing.
    InitReaderBuilder();
    ~InitReaderBuilder() override;
    InitReaderBuilder(const InitReaderBuilder&) = default;
    InitReaderBuilder& operator=(const InitReaderBuilder&) = default;

    std::shared_ptr<InitReader> build(const boost::filesystem::path& initFile) override;
    std::shared_ptr<InitReader> build(const boost::filesystem::path& initFile, const boost::filesystem::path& specFile,
                                      const boost::filesystem::path& gridFile) override;
    std::shared_ptr<InitReader> build(const ICaseFileFinder& finder) override;
    std::shared_ptr<InitReader> build(const ICaseFileFinder& finder, DataFormat format) override;

    InitReaderBuilder& withSpecFile() override;
    InitReaderBuilder& withSpecFile(bool generate) override;
    InitReaderBuilder& withoutSpecFile() override;
    InitReaderBuilder& withPropertyCacheLimit(int limit) override;
    InitReaderBuilder& withLogger(const ILog* logger) override;

private:
    std::shared_ptr<InitReader> buildBeside(const std::string& initFile, const ICaseFileFinder& finder) const;
    std::shared_ptr<InitReader> createReader(const std::string& initFile, const std::string& specFile,
                                             const std::string& gridFile) const;
    std::shared_ptr<InitReader> reportMissing(const std::string& initFile) const;
};

} // namespace Kvt::Mrl::MrlIO
