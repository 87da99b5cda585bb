#include <mrlio/InitReaderBuilder.h>

#include "initrestart/read/ReaderBuilderHelpers.h"
#include "service/PathText.h"

#include <mrlio/FileFinders.h>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr const char* creationFailure = "failed to create init reader : ";

} // namespace

InitReaderBuilder::InitReaderBuilder()
{
    propertyCacheLimit_ = InitReader::cache_limit_default;
}

InitReaderBuilder::~InitReaderBuilder() = default;

std::shared_ptr<InitReader> InitReaderBuilder::build(const boost::filesystem::path& initFile)
{
    return buildGuarded(log_, creationFailure, [&]() -> std::shared_ptr<InitReader> {
        if (initFile.empty())
            return reportMissing(initFile.string());
        return buildBeside(initFile.string(), finderBeside(initFile.string()));
    });
}

std::shared_ptr<InitReader> InitReaderBuilder::build(const boost::filesystem::path& initFile,
                                                     const boost::filesystem::path& specFile,
                                                     const boost::filesystem::path& gridFile)
{
    return buildGuarded(log_, creationFailure, [&] {
        const bool use = generateSpecFile_ || fileIsThere(specFile.string());
        return createReader(initFile.string(), use ? specFile.string() : std::string(), gridFile.string());
    });
}

std::shared_ptr<InitReader> InitReaderBuilder::build(const ICaseFileFinder& finder)
{
    return build(finder, DataFormat::DefaultAll());
}

std::shared_ptr<InitReader> InitReaderBuilder::build(const ICaseFileFinder& finder, DataFormat format)
{
    return buildGuarded(log_, creationFailure, [&]() -> std::shared_ptr<InitReader> {
        const std::string initFile = FileFinders::Restart::findInitFile(finder, format);
        if (initFile.empty())
            return reportMissing(Service::joinedPath(finder.GetRoot(), finder.GetName()));
        return buildBeside(initFile, finder);
    });
}

/// The index file has to be of the init file's form, since positions differ between the forms.
std::shared_ptr<InitReader> InitReaderBuilder::buildBeside(const std::string& initFile,
                                                           const ICaseFileFinder& finder) const
{
    const DataFormat format = DataFormat::getAnyUnifiedWithFormatted(FileIdentifiers::Restart::isFormatted(initFile));
    const std::string specFile =
        chooseSpecFile(FileFinders::Restart::findInitSpecFile(finder, format), generateSpecFile_, finder,
                       FileIdentifiers::Restart::defaultInitSpecFileExtension(format));
    return createReader(initFile, specFile, FileFinders::Grid::findFile(finder, DataFormat::DefaultAll()));
}

/// The reader holds nothing if its files can't be read.
std::shared_ptr<InitReader> InitReaderBuilder::createReader(const std::string& initFile, const std::string& specFile,
                                                            const std::string& gridFile) const
{
    if (initFile.empty() || (!fileIsThere(initFile) && !fileIsThere(specFile)))
        return reportMissing(initFile);
    auto reader = InitReader::create(propertyCacheLimit_);
    buildGuarded(log_, creationFailure, [&] {
        reader->read(initFile, FileIdentifiers::Restart::isFormatted(initFile), specFile, gridFile);
        return nullptr;
    });
    return reader;
}

std::shared_ptr<InitReader> InitReaderBuilder::reportMissing(const std::string& initFile) const
{
    log_.error("Init file not found : " + initFile);
    return nullptr;
}

InitReaderBuilder& InitReaderBuilder::withSpecFile()
{
    return withSpecFile(true);
}

InitReaderBuilder& InitReaderBuilder::withSpecFile(bool generate)
{
    generateSpecFile_ = generate;
    return *this;
}

InitReaderBuilder& InitReaderBuilder::withoutSpecFile()
{
    return withSpecFile(false);
}

InitReaderBuilder& InitReaderBuilder::withPropertyCacheLimit(int limit)
{
    propertyCacheLimit_ = limit;
    return *this;
}

InitReaderBuilder& InitReaderBuilder::withLogger(const ILog* logger)
{
    log_.setLogger(logger);
    return *this;
}

} // namespace Kvt::Mrl::MrlIO
