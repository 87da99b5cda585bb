#pragma once

#include <mrlio/Export.h>
#include <mrlio/ICellActivitiesInfo.h>
#include <mrlio/ICellCoarsenInfo.h>
#include <mrlio/IPropertyDataAccess.h>
#include <mrlio/IRawDataAccess.h>
#include <mrlio/PhaseType.h>
#include <mrlio/UnitSystemType.h>
#include <mrlio/service/HourMinuteSecondMillisecond.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/YearMonthDay.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Kvt::Mrl::MrlIO {

class InitReaderImpl;

/// Reads the init file of a case: the arrays that don't change with time. InitReaderBuilder finds the files and makes
/// the reader.
///
/// Opening takes one small index file, where the case has one, or else one pass over the init file. Everything else is
/// read when it is first asked for, and no file stays open in between. What the reader hands out by pointer or
/// reference is its own and lives until the next read or the reader's end.
///
/// Local grids are named as in the file; an empty name is the global grid. A reader belongs to one thread: also the
/// questions that look harmless fill it. They throw RestartReaderException or MrlIOException where the data that they
/// need are damaged.
class MRLIO_EXPORT InitReader : public ICellCoarsenInfoSource
{
public:
    /// No limit.
    static constexpr int cache_limit_default = -1;

    /// A reader that has read nothing yet.
    /// propertyCacheLimit   how many properties stay loaded, the oldest being released first; 0 or below for all
    static std::shared_ptr<InitReader> create(int propertyCacheLimit = cache_limit_default);

    /// Null if the grid isn't coarsened, which is known by its array CORSNUM.
    const ICellCoarsenInfo* getCellCoarsenInfo(const std::string& lgr = {}) override;

    ~InitReader() override;
    InitReader(const InitReader&) = delete;
    InitReader& operator=(const InitReader&) = delete;

    /// Opens a case, in place of the one that was read before.
    ///
    /// initFile    touched only if there is no index file; the arrays are read from it later
    /// formatted   the form of the init file, and of an index file that is written
    /// specFile    the index file. One that exists is read, its form following from its name, and is believed: nothing
    ///             compares it with the init file. For one that doesn't exist the init file is scanned, and the index
    ///             is written under that name, unless it can't be or the init file changed meanwhile. Empty for none.
    /// gridFile    the case's grid file, kept with the reader; may be empty
    /// throws      RestartReaderException "No INIT file given" for an empty name, and for an index file or init file
    ///             that is empty, missing or damaged (MrlIOException for some damages). The reader holds nothing then.
    void read(const std::string& initFile, bool formatted, const std::string& specFile, const std::string& gridFile);

    /// The grid properties, with one value per cell. Null before a read and after one that failed.
    const IPropertyDataAccess* propertyData();

    /// The arrays as the file holds them. Null where propertyData is.
    const IRawDataAccess* rawData();

    /// Cells in each direction. In a case with dual porosity they count one medium, also where the file counts the
    /// layers of both.
    /// returns   false, with the numbers as they were, if the grid or its dimensions aren't known
    bool gridDimension(int& nx, int& ny, int& nz, const std::string& lgr = {});

    /// The product of the dimensions; -1 if they aren't known.
    int numCells(const std::string& lgr = {});

    /// Also false if the file doesn't tell.
    bool isDualPorosity();

    /// Values that the file doesn't define come as one beyond the enumerators.
    PhaseType::Enum phases();
    UnitSystemType::Enum unitSystem();

    /// The local grids, in file order.
    const std::vector<std::string>& LGRs();

    /// The pairs of local grids that have arrays between them, the names of each pair sorted. The first question walks
    /// the headers of the init file and reads these arrays.
    std::vector<std::pair<std::string, std::string>> LGRPairs();

    /// The start of the simulation; a default value if the file doesn't tell. The time is midnight then.
    Service::YearMonthDay date();
    Service::HourMinuteSecondMillisecond time();

    /// The init file's name without directory and extension.
    std::string caseName() const;

    /// As given to read.
    std::string getInitFile() const;

    /// The index file that was read or written; empty if there is none.
    std::string getSpecFile() const;

    /// Whether the index file was there; false if the reader wrote it itself.
    bool specFileExists() const;

    /// The active cells of a grid, by its pore and rock volumes; an empty info for an unknown grid.
    /// throws   RestartReaderException if there are inactive cells, but no pore volumes
    const ICellActivitiesInfo& getCellActivitiesInfo(const std::string& lgr = {});

private:
    explicit InitReader(int propertyCacheLimit);

    std::unique_ptr<InitReaderImpl> impl_;
};

} // namespace Kvt::Mrl::MrlIO
