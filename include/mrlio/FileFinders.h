#pragma once

#include <mrlio/CaseFileFinder.h>
#include <mrlio/Export.h>
#include <mrlio/FileIdentifiers.h>

#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Looks up the files of a case by kind, among those that the finder knows.
///
/// Where a case has one kind of file in several forms, the one modified last wins, and on equal times the one that
/// comes first in the filter list of FileIdentifiers. Only then is the disk looked at. Split files (one for each report
/// step) come as a list in the finder's order, and are judged as one form by the first of them.
///
/// Nothing found gives an empty result. Formats that exclude everything throw as in FileIdentifiers.
class MRLIO_EXPORT FileFinders
{
public:
    using DataFormat = FileIdentifiers::DataFormat;

    FileFinders() = delete;

    class MRLIO_EXPORT Dumpflux
    {
    public:
        static std::string findFile(const ICaseFileFinder& finder, DataFormat format);
    };

    class MRLIO_EXPORT GRFT
    {
    public:
        static std::string findFile(const ICaseFileFinder& finder, DataFormat format);
    };

    class MRLIO_EXPORT Grid
    {
    public:
        /// On equal times a file of the GRID kind comes before one of the EGRID kind.
        static std::string findFile(const ICaseFileFinder& finder, DataFormat format);
    };

    class MRLIO_EXPORT HMD
    {
    public:
        static std::string findFile(const ICaseFileFinder& finder, DataFormat format);
    };

    class MRLIO_EXPORT RFT
    {
    public:
        static std::string findFile(const ICaseFileFinder& finder, DataFormat format);
    };

    class MRLIO_EXPORT Restart
    {
    public:
        static std::string findInitFile(const ICaseFileFinder& finder, DataFormat format);
        static std::string findInitSpecFile(const ICaseFileFinder& finder, DataFormat format);
        static std::string findSpecFile(const ICaseFileFinder& finder, DataFormat format);
        static std::vector<std::string> findRestartFiles(const ICaseFileFinder& finder, DataFormat format);
    };

    class MRLIO_EXPORT Streamlines
    {
    public:
        static std::string findSpecFile(const ICaseFileFinder& finder, DataFormat format);
        static std::vector<std::string> findSolutionFiles(const ICaseFileFinder& finder, DataFormat format);
    };

    class MRLIO_EXPORT Summary
    {
    public:
        static std::string findSpecFile(const ICaseFileFinder& finder, DataFormat format);
        static std::vector<std::string> findSummaryFiles(const ICaseFileFinder& finder, DataFormat format);
        static std::string findHDFFile(const ICaseFileFinder& finder);
    };

private:
    using FilterFunction = const Service::PathFilterList& (*)(DataFormat);

    static std::string findSingleOutputFile(const Service::IFileFinder& finder, FilterFunction filters,
                                            DataFormat format);
    static std::vector<std::string> findOutputFiles(const Service::IFileFinder& finder, FilterFunction filters,
                                                    DataFormat format);
};

} // namespace Kvt::Mrl::MrlIO
