#pragma once

#include <mrlio/CaseFileFinder.h>
#include <mrlio/Export.h>
#include <mrlio/FileIdentifiers.h>
#include <mrlio/ICellActivitiesInfo.h>
#include <mrlio/ILog.h>
#include <mrlio/RestartReader.h>

#include <boost/filesystem/path.hpp>

#include <memory>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Finds the files of a case and makes a reader of its report steps, together with the init reader that it leans on.
///
/// No exception leaves a build: what went wrong is logged at level error. A build gives null if there are no restart
/// files, or no init file, and a reader without steps if the files can't be read. The settings, which may be chained,
/// hold for the builds that follow, and for the init readers that these make. The order of the virtual operations is
/// part of the interface.
class MRLIO_EXPORT IRestartReaderBuilder
{
public:
    using DataFormat = FileIdentifiers::DataFormat;

    /// The files in the order given. Index file and init file are looked for beside the first one, by its root name.
    virtual std::shared_ptr<RestartReader> build(std::vector<boost::filesystem::path> restartFiles) = 0;
    virtual std::shared_ptr<RestartReader> build(std::vector<boost::filesystem::path> restartFiles,
                                                 const boost::filesystem::path& initFile) = 0;

    /// One restart file: a unified one, or the one step that is wanted.
    virtual std::shared_ptr<RestartReader> build(const boost::filesystem::path& restartFile,
                                                 const boost::filesystem::path& initFile) = 0;

    /// Of restart files in several forms the newest are taken, and the index file of their form. Separate files come
    /// sorted by name.
    virtual std::shared_ptr<RestartReader> build(const ICaseFileFinder& finder) = 0;
    virtual std::shared_ptr<RestartReader> build(const ICaseFileFinder& finder, DataFormat format) = 0;

    /// initReader   shared with the reader; may be null
    virtual std::shared_ptr<RestartReader> build(const ICaseFileFinder& finder,
                                                 std::shared_ptr<InitReader> initReader) = 0;

    /// initFinder   finds the init file, where it belongs to another case or directory
    virtual std::shared_ptr<RestartReader> build(const ICaseFileFinder& finder, const ICaseFileFinder& initFinder) = 0;

    /// Whether index files are written for a case that has none; not so by default. An index file that is there is used
    /// in any case. One that is written for a case which still grows hides all later steps, since nothing compares it
    /// with the data: it has to be deleted then.
    virtual IRestartReaderBuilder& withSpecFile() = 0;
    virtual IRestartReaderBuilder& withSpecFile(bool generate) = 0;
    virtual IRestartReaderBuilder& withoutSpecFile() = 0;

    /// See RestartReader::create.
    virtual IRestartReaderBuilder& withPropertyCacheLimit(int limit) = 0;

    /// logger   not owned, to live as long as it is set; null for none
    virtual IRestartReaderBuilder& withLogger(const ILog* logger) = 0;

    /// source   tells the active cells in place of the pore volumes; not owned, to live as long as the readers. Null
    ///          for none.
    virtual IRestartReaderBuilder& withCellActivitiesSource(const ICellActivitiesSource* source) = 0;

    virtual ~IRestartReaderBuilder() = default;
};

} // namespace Kvt::Mrl::MrlIO
