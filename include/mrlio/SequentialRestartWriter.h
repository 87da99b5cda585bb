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

class SequentialRestartWriterImpl;

/// Writes report steps of a case in one forward pass: the restart file, either one for all steps (UNRST, FUNRST) or one
/// for each (X0001, F0001 and on), and the index file of all of them (RSSPEC, FRSSPEC). RestartWriter takes the grids
/// of a step in any order.
///
///     SequentialRestartWriter writer(directory, "CASE", YearMonthDay(2026, 1, 1), {}, false, params, false, false);
///     for (each report step) {
///         writer.addGridSpec(grid);                           // anew for each step
///         writer.open(step, elapsedDays, 0);
///         writer.writeWellDataArray("P-1", WellType::Producer, WellStatus::Open, connections);
///         writer.sequenceStart();
///         writer.sequenceStartGrid("", porv, -1);
///         writer.sequenceGetCurrentGridWriter()->write("PRESSURE", pressure, true);
///         writer.sequenceEndGrid();
///         writer.sequenceEnd();
///         writer.close();
///     }
///
/// The operations on grids and arrays are those of SequentialInitWriter, and so is what holds after a failure.
///
/// Steps are appended: a unified file, a file of a single step and the index file are each continued behind what they
/// hold, so a step that is written again stands there twice, and an index file that is kept has its old rows in front.
/// params.overwriteData empties the data file at its first opening and params.overwriteSpec the index file; each counts
/// once in a writer's life.
///
/// Pore volumes and the header callback must live until close. One thread at a time.
class MRLIO_EXPORT SequentialRestartWriter
{
public:
    /// The arguments of SequentialInitWriter. The last one is ignored.
    /// params   unified says whether all steps go into one file
    SequentialRestartWriter(const std::string& directory, const std::string& rootName,
                            const Service::YearMonthDay& date, const Service::HourMinuteSecondMillisecond& time,
                            bool formatted, const MrlWriterDefaultParams& params, bool skipChecks, bool ignored);
    SequentialRestartWriter(const SequentialRestartWriter&) = delete;
    SequentialRestartWriter& operator=(const SequentialRestartWriter&) = delete;

    /// Closes the files. What then goes wrong is not reported.
    ~SequentialRestartWriter();

    /// As SequentialInitWriter::addGridSpec; needed for each step.
    void addGridSpec(const GridSpec& spec);

    /// The source of further header values; not owned, must live until close; null for none. It stays in use until it is
    /// replaced.
    void setRestartHeaderInfoCallback(const IRestartHeaderInfo* headerInfo);

    /// Begins a report step. The files are made when the sequence starts.
    ///
    /// reportStep    0 to 29999
    /// elapsedTime   days since the start of the run, 0 or above; the date in the headers is rounded to milliseconds
    /// bufferSize    as in SequentialInitWriter::open
    /// throws        std::runtime_error if the writer is open; std::invalid_argument for a step or a time out of range,
    ///               and at step 0 of separate files if some exist that params.overwriteData doesn't give away. The
    ///               writer is unchanged then.
    void open(int reportStep, double elapsedTime, int bufferSize);

    /// Ends the step: closes the files and forgets grids and wells, whatever was written. Does nothing on a closed
    /// writer. A step that no sequence was started in makes no file.
    ///
    /// throws   std::runtime_error if what was written doesn't reach a file. The writer is closed then all the same.
    void close();

    /// Gives a well of the step; before sequenceStart, to reach the headers. Step 0 has no well records. Only grids
    /// that a well has connections in have it in their records. A well that is given again keeps its place; everything
    /// else is replaced.
    ///
    /// name          1 to 72 characters
    /// connections   asked in this call only. One in a local grid is recorded there, and by its host cell in the global
    ///               grid; there, consecutive connections with the same cell become one, open if one of them is.
    /// segments      of a multi-segment well, asked in this call only; null for other wells
    /// throws        std::runtime_error if the writer is closed; std::invalid_argument for a blank or long name, a
    ///               local grid without name, grids that are not declared (the global one included), another number of
    ///               connections in segments, segment numbers below 1, and numbers of connections, segments or branches
    ///               below 0 or so large that a record of the wells would pass 134217728 words. The writer is unchanged
    ///               then.
    void writeWellDataArray(const std::string& name, WellType::Enum type, WellStatus::Enum status,
                            const IWellConnectionArray& connections);
    void writeWellDataArray(const std::string& name, WellType::Enum type, WellStatus::Enum status,
                            const IWellConnectionArray& connections, const IMSWSegmentData* segments);

    /// As in SequentialInitWriter, for this and all that follows.
    void sequenceStart();
    void sequenceEnd();

    void sequenceStartGrid(const std::string& name, const IGridPropertyArray<float>& porv, int activeCount);
    void sequenceStartGrid(const std::string& name, bool dualPorosity, int activeCount);
    void sequenceEndGrid();

    void sequenceStartSolutionArray(const std::string& name, int count, const IGridPropertyArray<int>& typeTag,
                                    bool rememberPosition);
    void sequenceStartSolutionArray(const std::string& name, int count, const IGridPropertyArray<float>& typeTag,
                                    bool rememberPosition);
    void sequenceStartSolutionArray(const std::string& name, int count, const IGridPropertyArray<double>& typeTag,
                                    bool rememberPosition);
    void sequenceStartSolutionArray(const std::string& name, int count, const IGridPropertyArray<std::string>& typeTag,
                                    bool rememberPosition);

    void sequenceWriteSolutionValues(const IGridPropertyArray<int>& values);
    void sequenceWriteSolutionValues(const IGridPropertyArray<float>& values);
    void sequenceWriteSolutionValues(const IGridPropertyArray<double>& values);
    void sequenceWriteSolutionValues(const IGridPropertyArray<std::string>& values);

    void sequenceEndSolutionArray();

    void sequenceWriteSolutionArray(const std::string& name, const IGridPropertyArray<int>& array,
                                    bool rememberPosition);
    void sequenceWriteSolutionArray(const std::string& name, const IGridPropertyArray<float>& array,
                                    bool rememberPosition);
    void sequenceWriteSolutionArray(const std::string& name, const IGridPropertyArray<double>& array,
                                    bool rememberPosition);
    void sequenceWriteSolutionArray(const std::string& name, const IGridPropertyArray<std::string>& array,
                                    bool rememberPosition);

    IGridPropertyWriter* sequenceGetCurrentGridWriter() const;

private:
    std::unique_ptr<SequentialRestartWriterImpl> impl_;
};

} // namespace Kvt::Mrl::MrlIO
