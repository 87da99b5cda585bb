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

class SectionWriterImpl;

/// Writes the init file of a case (INIT, FINIT) and its index file (INSPEC, FINSPEC), the grids in any order and at the
/// same time. Each grid is written to a temporary file beside the result (CASE_FFM.tmp for the global grid,
/// CASE_LGR1.tmp), and close joins them in the order in which the grids were declared. The files are the same as those
/// of SequentialInitWriter, which needs no second copy.
///
///     InitWriter writer(directory, "CASE", YearMonthDay(2026, 1, 1), {}, false, params, false);
///     writer.addGridSpec(grid);
///     writer.addGridSpec(localGrid);
///     writer.open();
///     writer.getPropertyWriter("LGR1", localPorv).write("PORO", localPoro, true);
///     writer.getPropertyWriter(porv).write("PORO", poro, true);
///     writer.close(0);
///
/// open refuses to replace a data file unless params.overwriteData gives it away. An index file is continued unless
/// params.overwriteSpec gives it away: its old rows then stay in front of the new ones. Both permissions are spent when
/// they are used, which is at close. Without close nothing reaches the files.
///
/// Only one writer of a case may be open at a time, since the temporary files of a second one have the same names. In
/// one process that one fails when it opens such a file, after 27.5 seconds of trying; writers in two processes are kept
/// apart only while an array is being written, and spoil each other's files between two arrays.
///
/// Pore volumes, rock volumes and the header callback must live until close. One thread at a time.
class MRLIO_EXPORT InitWriter
{
public:
    /// directory    where the files go; a relative one counts from the current directory
    /// rootName     name of the case; the extensions are added
    /// date, time   the start of the run
    /// formatted    text files rather than unformatted ones
    /// params       copied. Its strict mode, once on, makes text with exponents of 10 and above fail in the middle of
    ///              an array with "Can't use 'strict' - exponent overflow".
    /// skipChecks   trust the callers: no array is compared with its grid, and no name is looked at
    InitWriter(const std::string& directory, const std::string& rootName, const Service::YearMonthDay& date,
               const Service::HourMinuteSecondMillisecond& time, bool formatted, const MrlWriterDefaultParams& params,
               bool skipChecks);
    InitWriter(const InitWriter&) = delete;
    InitWriter& operator=(const InitWriter&) = delete;

    /// Removes the temporary files. What was not closed is not written.
    ~InitWriter();

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

    /// Allows writing.
    ///
    /// throws   std::runtime_error if the writer is open, or the data file exists and params.overwriteData doesn't give
    ///          it away
    void open();

    /// Joins what was written into the files, removes the temporary ones, and forgets the grids; open may follow after
    /// addGridSpec. A grid that was declared and not asked for gets its headers. Does nothing on a closed writer, and
    /// makes no file if no writer was asked for.
    ///
    /// bufferSize   bytes of the data file's buffer; below 1, and above 1 MiB, stands for 1 MiB
    /// throws       std::runtime_error without a global grid, if a value of the header callback meets one of the
    ///              library's, and if writing fails. The writer is closed then all the same and what it held is lost.
    void close(int bufferSize);

    /// The writer of a grid, made at the first call for that grid; further calls give the same one, whatever their
    /// arguments. It belongs to this object and lives until close. The forms without gridName are for the global grid.
    ///
    /// porv, rockv   volumes of the cells, by which they are active; must live until close
    /// throws        std::runtime_error if the writer is closed or the temporary file can't be opened;
    ///               std::invalid_argument if the grid is not declared, the volumes don't fit it, there is a slash in
    ///               its name, or its temporary file would be that of another grid (FFM beside the global grid; A_NNC
    ///               beside the connections of A)
    IGridPropertyWriter& getPropertyWriter(const IGridPropertyArray<float>& porv) const;
    IGridPropertyWriter& getPropertyWriter(const IGridPropertyArray<float>& porv,
                                           const IGridPropertyArray<float>& rockv) const;
    IGridPropertyWriter& getPropertyWriter(const std::string& gridName, const IGridPropertyArray<float>& porv) const;
    IGridPropertyWriter& getPropertyWriter(const std::string& gridName, const IGridPropertyArray<float>& porv,
                                           const IGridPropertyArray<float>& rockv) const;

    /// The writer of a grid's non-neighbour connections, whose arrays have any length and go behind all grids.
    /// throws   as getPropertyWriter
    IGridPropertyWriter& getNNCPropertyWriter(const std::string& gridName) const;

private:
    std::unique_ptr<SectionWriterImpl> impl_;
};

} // namespace Kvt::Mrl::MrlIO
