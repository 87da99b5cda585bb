#pragma once

#include <mrlio/CaseFileFinder.h>
#include <mrlio/Export.h>
#include <mrlio/FileIdentifiers.h>
#include <mrlio/ILog.h>
#include <mrlio/InitReader.h>

#include <boost/filesystem/path.hpp>

#include <memory>

namespace Kvt::Mrl::MrlIO {

/// Finds the files of a case and makes a reader of its init file.
///
/// No exception leaves a build: what went wrong is logged at level error. A build gives null if there is no init file,
/// and a reader that holds nothing if the files can't be read. The settings, which may be chained, hold for the builds
/// that follow. The order of the virtual operations is part of the interface.
class MRLIO_EXPORT IInitReaderBuilder
{
public:
    using DataFormat = FileIdentifiers::DataFormat;

    /// Index file and grid file are looked for beside the init file, which may be missing if there is an index file.
    virtual std::shared_ptr<InitReader> build(const boost::filesystem::path& initFile) = 0;

    /// specFile   used if it is there, and otherwise written if index files are; may be empty
    /// gridFile   kept with the reader; may be empty
    virtual std::shared_ptr<InitReader> build(const boost::filesystem::path& initFile,
                                              const boost::filesystem::path& specFile,
                                              const boost::filesystem::path& gridFile) = 0;

    /// Of several init files the newest is taken, and the index file of its form.
    virtual std::shared_ptr<InitReader> build(const ICaseFileFinder& finder) = 0;

    /// format   the forms among which to look; whether unified doesn't matter
    virtual std::shared_ptr<InitReader> build(const ICaseFileFinder& finder, DataFormat format) = 0;

    /// Whether an index file is written for a case that has none; not so by default. An index file that is there is
    /// used in any case. One that is written for a case which still grows hides everything that comes later, since
    /// nothing compares it with the data: it has to be deleted then.
    virtual IInitReaderBuilder& withSpecFile() = 0;
    virtual IInitReaderBuilder& withSpecFile(bool generate) = 0;
    virtual IInitReaderBuilder& withoutSpecFile() = 0;

    /// See InitReader::create.
    virtual IInitReaderBuilder& withPropertyCacheLimit(int limit) = 0;

    /// logger   not owned, to live as long as it is set; null for none
    virtual IInitReaderBuilder& withLogger(const ILog* logger) = 0;

    virtual ~IInitReaderBuilder() = default;
};

} // namespace Kvt::Mrl::MrlIO
