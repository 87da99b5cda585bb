#pragma once

#include <mrlio/Export.h>
#include <mrlio/ICellActivitiesInfo.h>
#include <mrlio/ICellCoarsenInfo.h>
#include <mrlio/IPropertyDataAccess.h>
#include <mrlio/IRawDataAccess.h>
#include <mrlio/InitReader.h>
#include <mrlio/PhaseType.h>
#include <mrlio/UnitSystemType.h>
#include <mrlio/service/HourMinuteSecondMillisecond.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/YearMonthDay.h>

#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

class RestartReaderImpl;

/// Reads the report steps of a case, from one unified restart file or from one file per step. RestartReaderBuilder
/// finds the files and makes the reader.
///
/// A report index is the number of the report step, as long as these increase through the case; otherwise the steps are
/// counted from 0 in file order. The numbers may have gaps: see isValidIndex.
///
/// Opening takes one small index file, where the case has one, or else one pass over all data. Everything else is read
/// when it is first asked for, at a cost that doesn't depend on the number of steps, and no file stays open in between.
/// What the reader hands out by pointer or reference is its own and lives until the next read or the reader's end.
///
/// Local grids are named as in the file; an empty name is the global grid. A reader belongs to one thread: also the
/// questions that look harmless fill it. They throw RestartReaderException or MrlIOException where the data that they
/// need are damaged.
class MRLIO_EXPORT RestartReader
{
public:
    /// No limit.
    static constexpr int cache_limit_default = -1;

    /// A reader that has read nothing yet.
    /// propertyCacheLimit   how many properties of all steps stay loaded, the oldest being released first; 0 or below
    ///                      for all
    static std::shared_ptr<RestartReader> create(int propertyCacheLimit = cache_limit_default);

    ~RestartReader();
    RestartReader(const RestartReader&) = delete;
    RestartReader& operator=(const RestartReader&) = delete;

    /// Opens a case, in place of the one that was read before.
    ///
    /// restartFiles   a unified file, or the files of the steps in order of time; may be empty, for a case without steps
    /// formatted      the form of an index file that is written; that of each data file follows from its name
    /// specFile       the index file. One that exists is read, its form following from its name, and is believed:
    ///                nothing compares it with the data, none of which are touched. For one that doesn't exist all data
    ///                are scanned, and the index is written under that name, unless it can't be or the data changed
    ///                meanwhile. Empty for none.
    /// initReader     pore volumes and coarsening of the case; shared. Null if there is no init file.
    /// source         tells the active cells in place of the pore volumes; not owned, to live as long as the reader.
    ///                Null for none.
    /// throws         RestartReaderException for an index file or restart file that is empty, missing or damaged
    ///                (MrlIOException for some damages). No index is valid then, those of an earlier read included.
    void read(const std::vector<std::string>& restartFiles, bool formatted, const std::string& specFile,
              std::shared_ptr<InitReader> initReader, const ICellActivitiesSource* source);

    /// The first and the last report index; -1 without steps.
    int minIndex() const;
    int maxIndex() const;

    /// Whether there is a step of that index.
    bool isValidIndex(int index) const;

    /// The arrays of a step as the file holds them. Null for an invalid index, and for a step of which the file isn't
    /// among the restart files.
    const IRawDataAccess* rawData(int index);

    /// The grid properties of a step, with one value per cell. Null where rawData is.
    const IPropertyDataAccess* propertyData(int index);

    /// When the step was; default values for an invalid index and where the data don't tell. The data are asked only if
    /// the index has no date: with a date and no time of day in the index, the time is midnight.
    const Service::YearMonthDay& date(int index);
    const Service::HourMinuteSecondMillisecond& time(int index);

    /// The file that holds the step; empty for an invalid index, and where none of the restart files does.
    std::string restartFile(int index) const;

    /// As given to read.
    const std::vector<std::string>& restartFiles() const;

    /// The index file that was read or written; empty if there is none.
    std::string specFile() const;

    /// Whether the index file was there; false if the reader wrote it itself.
    bool specFileExists() const;

    /// The first restart file's name without directory and extension.
    std::string caseName() const;

    /// The first INTEHEAD of the case; empty if there is none.
    std::vector<int> INTEHEADData() const;

    /// What the headers of the first step that has them tell of the whole case: dimensions and local grids as in
    /// InitReader. Local grids that appear later aren't seen.
    bool gridDimension(int& nx, int& ny, int& nz, const std::string& lgr = {});
    int numCells(const std::string& lgr = {});
    const std::vector<std::string>& LGRs();
    bool isDualPorosity();
    PhaseType::Enum phases();
    UnitSystemType::Enum unitSystem();

    /// The active cells of a grid; an empty info for an unknown grid.
    /// throws   RestartReaderException if there are inactive cells, but no pore volumes and no source
    const ICellActivitiesInfo& getCellActivitiesInfo(const std::string& lgr = {});

    /// Null if the grid isn't coarsened, and without an init reader.
    const ICellCoarsenInfo* getCellCoarsenInfo(const std::string& lgr = {});

    /// As given to read; may be null.
    std::shared_ptr<InitReader> getInitReader() const;

private:
    explicit RestartReader(int propertyCacheLimit);

    std::unique_ptr<RestartReaderImpl> impl_;
};

} // namespace Kvt::Mrl::MrlIO
