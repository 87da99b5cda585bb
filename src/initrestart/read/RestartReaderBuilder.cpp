#include <mrlio/RestartReaderBuilder.h>

#include "initrestart/read/ReaderBuilderHelpers.h"

#include <mrlio/FileFinders.h>

#include <string>
#include <utility>

namespace Kvt::Mrl::MrlIO {

/// Puts a reader together from what the builds were given.
class RestartReaderBuilder::Assembly
{
public:
    using Files = std::vector<std::string>;
    using Reader = std::shared_ptr<RestartReader>;

    explicit Assembly(const RestartReaderBuilder& builder) : settings_(builder) {}

    /// Runs a build, which no exception leaves.
    template <class Build>
    Reader run(Build&& build) const
    {
        return buildGuarded(settings_.log_, creationFailure, build);
    }

    /// buildInit   gives the init reader, null after a failure that it has logged
    template <class BuildInit>
    Reader build(const Files& files, const ICaseFileFinder& finder, BuildInit&& buildInit) const
    {
        if (files.empty())
            return reportFailure("No restart files provided");
        std::shared_ptr<InitReader> initReader = buildInit();
        return initReader ? createReader(files, finder, std::move(initReader)) : nullptr;
    }

    Reader buildWithInit(const Files& files, const ICaseFileFinder& finder,
                         std::shared_ptr<InitReader> initReader) const
    {
        if (files.empty())
            return reportFailure("No restart files provided");
        return createReader(files, finder, std::move(initReader));
    }

    /// Index file and init file stand beside the first restart file.
    Reader buildBeside(const Files& files) const
    {
        if (files.empty())
            return reportFailure("No restart files provided");
        const CaseFileFinder finder = finderBeside(files.front());
        return build(files, finder, [&] { return initOfCase(finder, DataFormat::DefaultAll()); });
    }

    Reader buildBeside(const Files& files, const std::string& initFile) const
    {
        if (files.empty())
            return reportFailure("No restart files provided");
        if (initFile.empty())
            return reportFailure("No init file provided");
        return build(files, finderBeside(files.front()), [&] { return initOfPath(initFile); });
    }

    std::shared_ptr<InitReader> initOfCase(const ICaseFileFinder& finder, DataFormat format) const
    {
        auto reader = initBuilder().build(finder, format);
        if (!reader)
            reportFailure("Failed to create init reader for case " + finder.GetName());
        return reader;
    }

    std::nullptr_t reportFailure(const std::string& text) const
    {
        settings_.log_.error(text);
        return nullptr;
    }

private:
    static constexpr const char* creationFailure = "failed to create restart reader : ";

    std::shared_ptr<InitReader> initOfPath(const std::string& initFile) const
    {
        auto reader = initBuilder().build(initFile);
        if (!reader)
            reportFailure("Failed to create init reader for " + initFile);
        return reader;
    }

    InitReaderBuilder initBuilder() const
    {
        InitReaderBuilder builder;
        builder.withLogger(&settings_.log_)
            .withPropertyCacheLimit(settings_.propertyCacheLimit_)
            .withSpecFile(settings_.generateSpecFile_);
        return builder;
    }

    /// The index file has to be of the restart files' form, since positions differ between the forms.
    std::string specFileOf(const ICaseFileFinder& finder, bool formatted) const
    {
        const DataFormat format = DataFormat::getAnyUnifiedWithFormatted(formatted);
        return chooseSpecFile(FileFinders::Restart::findSpecFile(finder, format), settings_.generateSpecFile_, finder,
                              FileIdentifiers::Restart::defaultRestartSpecFileExtension(format));
    }

    /// The reader has no steps if its files can't be read.
    Reader createReader(const Files& files, const ICaseFileFinder& finder, std::shared_ptr<InitReader> initReader) const
    {
        const bool formatted = FileIdentifiers::Restart::isFormatted(files.front());
        auto reader = RestartReader::create(settings_.propertyCacheLimit_);
        run([&]() -> Reader {
            reader->read(files, formatted, specFileOf(finder, formatted), std::move(initReader),
                         settings_.cellActivitiesSource_);
            return nullptr;
        });
        return reader;
    }

    const RestartReaderBuilder& settings_;
};

namespace {

std::vector<std::string> textsOf(const std::vector<boost::filesystem::path>& paths)
{
    std::vector<std::string> texts;
    texts.reserve(paths.size());
    for (const boost::filesystem::path& path : paths)
        texts.push_back(path.string());
    return texts;
}

} // namespace

RestartReaderBuilder::RestartReaderBuilder()
{
    propertyCacheLimit_ = RestartReader::cache_limit_default;
}

RestartReaderBuilder::~RestartReaderBuilder() = default;

std::shared_ptr<RestartReader> RestartReaderBuilder::build(std::vector<boost::filesystem::path> restartFiles)
{
    const Assembly assembly(*this);
    return assembly.run([&] { return assembly.buildBeside(textsOf(restartFiles)); });
}

std::shared_ptr<RestartReader> RestartReaderBuilder::build(std::vector<boost::filesystem::path> restartFiles,
                                                           const boost::filesystem::path& initFile)
{
    const Assembly assembly(*this);
    return assembly.run([&] { return assembly.buildBeside(textsOf(restartFiles), initFile.string()); });
}

std::shared_ptr<RestartReader> RestartReaderBuilder::build(const boost::filesystem::path& restartFile,
                                                           const boost::filesystem::path& initFile)
{
    const Assembly assembly(*this);
    return assembly.run([&]() -> Assembly::Reader {
        if (restartFile.empty())
            return assembly.reportFailure("No restart file provided");
        return assembly.buildBeside({restartFile.string()}, initFile.string());
    });
}

std::shared_ptr<RestartReader> RestartReaderBuilder::build(const ICaseFileFinder& finder)
{
    return build(finder, DataFormat::DefaultAll());
}

std::shared_ptr<RestartReader> RestartReaderBuilder::build(const ICaseFileFinder& finder, DataFormat format)
{
    const Assembly assembly(*this);
    return assembly.run([&] {
        return assembly.build(FileFinders::Restart::findRestartFiles(finder, format), finder,
                              [&] { return assembly.initOfCase(finder, format); });
    });
}

std::shared_ptr<RestartReader> RestartReaderBuilder::build(const ICaseFileFinder& finder,
                                                           std::shared_ptr<InitReader> initReader)
{
    const Assembly assembly(*this);
    return assembly.run([&] {
        return assembly.buildWithInit(FileFinders::Restart::findRestartFiles(finder, DataFormat::DefaultAll()), finder,
                                      std::move(initReader));
    });
}

std::shared_ptr<RestartReader> RestartReaderBuilder::build(const ICaseFileFinder& finder,
                                                           const ICaseFileFinder& initFinder)
{
    const Assembly assembly(*this);
    return assembly.run([&] {
        return assembly.build(FileFinders::Restart::findRestartFiles(finder, DataFormat::DefaultAll()), finder,
                              [&] { return assembly.initOfCase(initFinder, DataFormat::DefaultAll()); });
    });
}

RestartReaderBuilder& RestartReaderBuilder::withSpecFile()
{
    return withSpecFile(true);
}

RestartReaderBuilder& RestartReaderBuilder::withSpecFile(bool generate)
{
    generateSpecFile_ = generate;
    return *this;
}

RestartReaderBuilder& RestartReaderBuilder::withoutSpecFile()
{
    return withSpecFile(false);
}

RestartReaderBuilder& RestartReaderBuilder::withPropertyCacheLimit(int limit)
{
    propertyCacheLimit_ = limit;
    return *this;
}

RestartReaderBuilder& RestartReaderBuilder::withLogger(const ILog* logger)
{
    log_.setLogger(logger);
    return *this;
}

RestartReaderBuilder& RestartReaderBuilder::withCellActivitiesSource(const ICellActivitiesSource* source)
{
    cellActivitiesSource_ = source;
    return *this;
}

} // namespace Kvt::Mrl::MrlIO
