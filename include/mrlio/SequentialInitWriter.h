#pragma once

#include <mrlio/Export.h>
#include <mrlio/GridSpec.h>
#include <mrlio/IGridPropertyArray.h>
#include <mrlio/IGridPropertyWriter.h>
#include <mrlio/IRestartHeaderInfo.h>
#include <mrlio/MrlWriterDefaultParams.h>
#include <mrlio/service/HourMinuteSecondMillisecond.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/YearMonthDay.h>

#include <memory>
#include <string>

namespace Kvt::Mrl::MrlIO {

class SequentialRestartWriterImpl;

/// Writes the init file of a case (INIT, FINIT) and its index file (INSPEC, FINSPEC) in one forward pass: grid after
/// grid, and array after array or piece after piece of an array, so that no more than a piece has to stand in memory.
/// InitWriter takes the grids in any order.
///
///     SequentialInitWriter writer(directory, "CASE", YearMonthDay(2026, 1, 1), {}, false, params, false);
///     writer.addGridSpec(grid);                               // all grids, in the order of the file
///     writer.addGridSpec(localGrid);
///     writer.open(0);
///     writer.sequenceStart();
///     writer.sequenceStartGrid("", porv, -1);                 // the global grid comes first
///     writer.sequenceGetCurrentGridWriter()->write("PORO", poro, true);
///     writer.sequenceWriteSolutionArray("PERMX", permx, false);
///     writer.sequenceEndGrid();
///     writer.sequenceStartGrid("LGR1", localPorv, -1);
///     ...
///     writer.sequenceEndGrid();
///     writer.sequenceEnd();
///     writer.close();
///
/// Where a case has non-neighbour connections, a second pass over the grids follows sequenceEnd: sequenceNNCStart, the
/// grids with their arrays between sequenceNNCStartGrid and sequenceNNCEndGrid, sequenceNNCEnd.
///
/// Arrays of a grid are written in any mixture of three ways: whole (sequenceWriteSolutionArray), in pieces
/// (sequenceStartSolutionArray, sequenceWriteSolutionValues, sequenceEndSolutionArray), or by the grid's own writer,
/// which compares them with the grid and can leave inactive cells out.
///
/// open refuses to replace a data file unless params.overwriteData gives it away. An index file is continued unless
/// params.overwriteSpec gives it away: its old rows then stay in front of the new ones. Both permissions are spent when
/// they are used.
///
/// Nothing is written to a temporary place: after a run that failed the data file ends within a grid and the index file
/// at the grid before it. close is possible after any failure.
///
/// Pore volumes, rock volumes and the header callback must live until close. One thread at a time.
class MRLIO_EXPORT SequentialInitWriter
{
public:
    /// directory    where the files go; a relative one counts from the current directory
    /// rootName     name of the case; the extensions are added
    /// date, time   the start of the run
    /// formatted    text files rather than unformatted ones
    /// params       copied. Its strict mode, once on, makes text with exponents of 10 and above fail in the middle of
    ///              the file with "Can't use 'strict' - exponent overflow".
    /// skipChecks   trust the callers: no array is compared with its grid, and no name is looked at
    SequentialInitWriter(const std::string& directory, const std::string& rootName, const Service::YearMonthDay& date,
                         const Service::HourMinuteSecondMillisecond& time, bool formatted,
                         const MrlWriterDefaultParams& params, bool skipChecks);
    SequentialInitWriter(const SequentialInitWriter&) = delete;
    SequentialInitWriter& operator=(const SequentialInitWriter&) = delete;

    /// Closes the files. What then goes wrong is not reported.
    ~SequentialInitWriter();

    /// Declares a grid. The order of declaring is that of the file, except that the global grid always comes first.
    /// close forgets all grids.
    ///
    /// spec     copied; the units of all grids are the same
    /// throws   std::invalid_argument for other units than those of the first grid, a name that was declared before,
    ///          and one of more than 99 characters, or 77 in formatted files
    void addGridSpec(const GridSpec& spec);

    /// The source of further header values; not owned, must live until close; null for none. It stays in use until it is
    /// replaced.
    void setRestartHeaderInfoCallback(const IRestartHeaderInfo* headerInfo);

    /// Allows writing. The files are made when the sequence starts.
    ///
    /// bufferSize   bytes of the data file's buffer; below 1, and above 1 MiB, stands for 1 MiB
    /// throws       std::runtime_error if the writer is open, or the data file exists and params.overwriteData doesn't
    ///              give it away
    void open(int bufferSize);

    /// Closes the files and forgets grids and names, whatever was written; open may follow after addGridSpec. Does
    /// nothing on a closed writer. A writer that no sequence was started with makes no file.
    ///
    /// throws   std::runtime_error if what was written doesn't reach a file. The writer is closed then all the same.
    void close();

    /// Begins the pass over the grids: opens the data file.
    ///
    /// throws   std::invalid_argument if the writer is closed; std::runtime_error without a global grid, where no file
    ///          is made, and if the file can't be opened
    void sequenceStart();

    /// Ends the pass. It has nothing to do.
    void sequenceEnd();

    /// Begins a grid: writes its headers.
    ///
    /// name           as declared; empty for the global grid, which comes first
    /// porv, rockv    volumes of the cells, by which they are active; must live until close. rockv may be null.
    /// dualPorosity   in the form without pore volumes, which has no sequenceGetCurrentGridWriter
    /// activeCount    number of active cells for the headers; if negative, it is counted from the volumes, and written
    ///                as it is in the form without them
    /// throws         std::invalid_argument if the grid is not declared, another one has not been ended, no sequence
    ///                was started, or the volumes don't fit the grid; std::runtime_error if a value of the header
    ///                callback meets one of the library's, or writing fails
    void sequenceStartGrid(const std::string& name, const IGridPropertyArray<float>& porv, int activeCount);
    void sequenceStartGrid(const std::string& name, const IGridPropertyArray<float>& porv,
                           const IGridPropertyArray<float>* rockv, int activeCount);
    void sequenceStartGrid(const std::string& name, bool dualPorosity, int activeCount);

    /// Ends the grid and adds its rows to the index file.
    ///
    /// throws   std::invalid_argument without a grid, or if an array has not been ended; std::runtime_error if writing
    ///          fails or the index file can't be opened
    void sequenceEndGrid();

    /// Begins an array that comes in pieces.
    ///
    /// name               1 to 8 characters
    /// count              of elements for the header; nothing checks that so many follow
    /// typeTag            gives the type of the elements by its own type and is not looked at
    /// rememberPosition   kept for callers; it has no effect on the files
    /// throws             std::invalid_argument without a grid, if an array has not been ended, or for a bad name or
    ///                    count; std::runtime_error if writing fails
    void sequenceStartSolutionArray(const std::string& name, int count, const IGridPropertyArray<int>& typeTag,
                                    bool rememberPosition);
    void sequenceStartSolutionArray(const std::string& name, int count, const IGridPropertyArray<float>& typeTag,
                                    bool rememberPosition);
    void sequenceStartSolutionArray(const std::string& name, int count, const IGridPropertyArray<double>& typeTag,
                                    bool rememberPosition);
    void sequenceStartSolutionArray(const std::string& name, int count, const IGridPropertyArray<std::string>& typeTag,
                                    bool rememberPosition);

    /// Writes the next values of the array under way: all of the piece's matrix values and, with dual porosity, all its
    /// fracture values.
    ///
    /// throws   std::invalid_argument without such an array, or if it has another type; std::runtime_error if writing
    ///          fails; what the piece itself throws passes, and values before that one may stand in the file
    void sequenceWriteSolutionValues(const IGridPropertyArray<int>& values);
    void sequenceWriteSolutionValues(const IGridPropertyArray<float>& values);
    void sequenceWriteSolutionValues(const IGridPropertyArray<double>& values);
    void sequenceWriteSolutionValues(const IGridPropertyArray<std::string>& values);

    /// Ends the array that comes in pieces.
    /// throws   std::invalid_argument without such an array; std::runtime_error if writing fails
    void sequenceEndSolutionArray();

    /// Begins, writes and ends an array: one value per element, twice that with dual porosity. The number of cells is
    /// not compared with the grid.
    /// throws   as the three steps; nothing of the array stays in the file then, and the grid may go on without it
    void sequenceWriteSolutionArray(const std::string& name, const IGridPropertyArray<int>& array,
                                    bool rememberPosition);
    void sequenceWriteSolutionArray(const std::string& name, const IGridPropertyArray<float>& array,
                                    bool rememberPosition);
    void sequenceWriteSolutionArray(const std::string& name, const IGridPropertyArray<double>& array,
                                    bool rememberPosition);
    void sequenceWriteSolutionArray(const std::string& name, const IGridPropertyArray<std::string>& array,
                                    bool rememberPosition);

    /// The writer of the grid under way, valid until sequenceEndGrid. Null outside a grid, in the pass over the
    /// non-neighbour connections, and in a grid that was begun without pore volumes. Don't use it while an array that
    /// comes in pieces is under way.
    IGridPropertyWriter* sequenceGetCurrentGridWriter() const;

    /// The pass over the non-neighbour connections. Its grids have a short header and rows of their own in the index
    /// file.
    /// throws   as the operations of the first pass
    void sequenceNNCStart();
    void sequenceNNCStartGrid(const std::string& name);
    void sequenceNNCEndGrid();
    void sequenceNNCEnd();

private:
    std::unique_ptr<SequentialRestartWriterImpl> impl_;
};

} // namespace Kvt::Mrl::MrlIO
