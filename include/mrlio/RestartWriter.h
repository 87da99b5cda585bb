#pragma once

#include <mrlio/Export.h>
#include <mrlio/GridSpec.h>
#include <mrlio/IGridPropertyArray.h>
#include <mrlio/IGridPropertyWriter.h>
#include <mrlio/IMSWSegmentData.h>
#include <mrlio/IRestartHeaderInfo.h>
#include <mrlio/IWellConnectionArray.h>
#include <mrlio/MrlWriterDefaultParams.h>
#include <mrlio/WellStatus.h>
#include <mrlio/WellType.h>
#include <mrlio/service/HourMinuteSecondMillisecond.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/YearMonthDay.h>

#include <memory>
#include <string>

namespace Kvt::Mrl::MrlIO {

class SectionWriterImpl;

/// Writes report steps of a case, the grids of a step in any order and at the same time: the restart file, either one
/// for all steps (UNRST, FUNRST) or one for each (X0001, F0001 and on), and the index file of all of them (RSSPEC,
/// FRSSPEC). Each grid is written to a temporary file beside the result, and close joins them in the order in which the
/// grids were declared. The files are the same as those of SequentialRestartWriter, which needs no second copy.
///
///     RestartWriter writer(directory, "CASE", YearMonthDay(2026, 1, 1), {}, false, params, false);
///     for (each report step) {
///         writer.addGridSpec(grid);                           // anew for each step
///         writer.open(step, elapsedDays);
///         writer.writeWellDataArray("P-1", WellType::Producer, WellStatus::Open, connections);
///         writer.getSolutionWriter(porv).write("PRESSURE", pressure, true);
///         writer.close(0);
///     }
///
/// Steps are appended: a unified file, a file of a single step and the index file are each continued behind what they
/// hold, so a step that is written again stands there twice, and an index file that is kept has its old rows in front.
/// params.overwriteData empties a unified file at its first opening, or deletes the separate files of an earlier run;
/// params.overwriteSpec empties the index file. Each counts once in a writer's life. Without close nothing of a step
/// reaches the files.
///
/// Only one writer of a case may be open at a time, since the temporary files of a second one have the same names. In
/// one process that one fails when it opens such a file, after 27.5 seconds of trying; writers in two processes are kept
/// apart only while an array is being written, and spoil each other's files between two arrays.
///
/// Pore volumes, rock volumes and the header callback must live until close. One thread at a time.
class MRLIO_EXPORT RestartWriter
{
public:
    /// The arguments of InitWriter.
    /// params   unified says whether all steps go into one file
    RestartWriter(const std::string& directory, const std::string& rootName, const Service::YearMonthDay& date,
                  const Service::HourMinuteSecondMillisecond& time, bool formatted,
                  const MrlWriterDefaultParams& params, bool skipChecks);
    RestartWriter(const RestartWriter&) = delete;
    RestartWriter& operator=(const RestartWriter&) = delete;

    /// Removes the temporary files. What was not closed is not written.
    ~RestartWriter();

    /// As InitWriter::addGridSpec; needed for each step.
    void addGridSpec(const GridSpec& spec);

    /// The source of further header values; not owned, must live until close; null for none. It stays in use until it is
    /// replaced.
    void setRestartHeaderInfoCallback(const IRestartHeaderInfo* headerInfo);

    /// Begins a report step.
    ///
    /// reportStep    0 to 29999
    /// elapsedTime   days since the start of the run, 0 or above; the date in the headers is rounded to milliseconds
    /// throws        std::runtime_error if the writer is open; std::invalid_argument for a step or a time out of range,
    ///               and at step 0 of separate files if some exist that params.overwriteData doesn't give away. The
    ///               writer is unchanged then. What keeps a separate file of an earlier run from being deleted passes.
    void open(int reportStep, double elapsedTime);

    /// Ends the step as InitWriter::close does. Makes no file if no writer was asked for and no well was given.
    void close(int bufferSize);

    /// The writer of a grid, as InitWriter::getPropertyWriter.
    ///
    /// activeCount   number of active cells for the headers; if negative, as in the other forms, it is counted from the
    ///               volumes
    IGridPropertyWriter& getSolutionWriter(const IGridPropertyArray<float>& porv) const;
    IGridPropertyWriter& getSolutionWriter(const IGridPropertyArray<float>& porv,
                                           const IGridPropertyArray<float>& rockv) const;
    IGridPropertyWriter& getSolutionWriter(const std::string& gridName, const IGridPropertyArray<float>& porv,
                                           int activeCount) const;
    IGridPropertyWriter& getSolutionWriter(const std::string& gridName, const IGridPropertyArray<float>& porv,
                                           const IGridPropertyArray<float>& rockv) const;

    /// As SequentialRestartWriter::writeWellDataArray, at any time between open and close.
    void writeWellDataArray(const std::string& name, WellType::Enum type, WellStatus::Enum status,
                            const IWellConnectionArray& connections);
    void writeWellDataArray(const std::string& name, WellType::Enum type, WellStatus::Enum status,
                            const IWellConnectionArray& connections, const IMSWSegmentData* segments);

private:
    std::unique_ptr<SectionWriterImpl> impl_;
};

} // namespace Kvt::Mrl::MrlIO
