#pragma once

#include <mrlio/Export.h>
#include <mrlio/GridSpec.h>
#include <mrlio/ISummaryVectorArray.h>
#include <mrlio/MrlWriterDefaultParams.h>
#include <mrlio/RestartSpec.h>
#include <mrlio/service/HourMinuteSecondMillisecond.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/YearMonthDay.h>

#include <memory>
#include <string>

namespace Kvt::Mrl::MrlIO {

class SummaryWriterImpl;

/// Writes the summary of a running simulation: a spec file (SMSPEC, FSMSPEC) that says which vectors there are, and
/// data with the values of all of them at each mini step, in one file (UNSMRY, FUNSMRY) or one for each report step
/// (S0001, A0001 and on). A reader in another process sees a sound case at any moment of the run: the spec file is
/// there before the first record and is replaced in a single step, and each record is appended whole.
///
///     SummaryWriter writer(directory, "CASE", grid, YearMonthDay(2026, 1, 1), false, params, true);
///     writer.addArraySpec(fieldAndWells);                      // describe the vectors, a grid at a time
///     writer.addArraySpec("LGR1", localWells);
///     writer.writeArray(values);                               // report step 1, mini step 0, at 0 days
///     writer.writeArray("LGR1", localValues);
///     writer.nextMiniStep(0.5F, false);                        // writes mini step 0
///     writer.writeArray(values);                               // mini step 1
///     writer.writeArray("LGR1", localValues);
///     writer.close();                                          // writes mini step 1, ends report step 1
///     writer.openAtNextReportStep(1.0F);                       // report step 2, mini step 2
///     ...
///     writer.close();
///
/// A record holds the time, first in days and then in years (in LAB units hours and then days), the vectors of the
/// global grid, and those of the local grids in the order in which they were added. It carries the time at which its
/// mini step began.
///
/// The writer copies what it is given; nothing must outlive a call. It throws std::invalid_argument for bad arguments
/// and std::runtime_error for calls out of order and trouble with files. After a failure to write a record its arrays
/// are kept and the file is cut back to its last whole record, so that the same call may be made again. One thread at a
/// time.
class MRLIO_EXPORT SummaryWriter
{
public:
    /// Checks the names; the files are made with the first record.
    ///
    /// directory        must exist; a relative one counts from the current directory
    /// rootName         name of the case; the extensions are added
    /// grid             the global grid: units, and dimensions for the spec file
    /// startDate        the date from which elapsed times count; startTime is midnight unless given
    /// restart          the case that this one continues, copied; null for none
    /// formatted        text files rather than unformatted ones
    /// params           copied
    /// writeINTEHEAD    begin the spec file with units and simulator
    /// throws           std::invalid_argument if the directory is none, or a spec file exists that params.overwriteSpec
    ///                  doesn't give away; std::runtime_error if the local time can't be had
    SummaryWriter(const std::string& directory, const std::string& rootName, const GridSpec& grid,
                  const Service::YearMonthDay& startDate, bool formatted, const MrlWriterDefaultParams& params,
                  bool writeINTEHEAD);
    SummaryWriter(const std::string& directory, const std::string& rootName, const GridSpec& grid,
                  const Service::YearMonthDay& startDate, const Service::HourMinuteSecondMillisecond& startTime,
                  bool formatted, const MrlWriterDefaultParams& params, bool writeINTEHEAD);
    SummaryWriter(const std::string& directory, const std::string& rootName, const GridSpec& grid,
                  const Service::YearMonthDay& startDate, const RestartSpec* restart, bool formatted,
                  const MrlWriterDefaultParams& params, bool writeINTEHEAD);
    SummaryWriter(const std::string& directory, const std::string& rootName, const GridSpec& grid,
                  const Service::YearMonthDay& startDate, const Service::HourMinuteSecondMillisecond& startTime,
                  const RestartSpec* restart, bool formatted, const MrlWriterDefaultParams& params, bool writeINTEHEAD);

    SummaryWriter(const SummaryWriter&) = delete;
    SummaryWriter& operator=(const SummaryWriter&) = delete;

    /// Marks the case as complete in the spec file, whatever the state. The arrays of an open mini step are lost:
    /// call close first. Never throws.
    ~SummaryWriter();

    /// Adds the vectors of a grid. Allowed within the first mini step, until its record is written.
    ///
    /// grid     name of a local grid, of which unformatted files hold 8 characters; empty for the global one, which
    ///          goes in front of the others whenever it is added
    /// throws   std::runtime_error if it is too late; std::invalid_argument if the grid was added before, a keyword or
    ///          units have more than 8 characters, a name more than 72, or a local grid has no positions. The writer is
    ///          unchanged then.
    void addArraySpec(const std::string& grid, const ISummaryVectorArraySpec& spec);
    void addArraySpec(const ISummaryVectorArraySpec& spec);

    /// Replaces the description of a grid's vectors by another of the same size, at any time. It reaches the spec file
    /// when that is written next. Positions of the global grid stay, and so do the measurements if spec has none.
    ///
    /// throws   std::invalid_argument if the grid wasn't added, the size differs, or as in addArraySpec. The writer is
    ///          unchanged then.
    void updateArraySpec(const std::string& grid, const ISummaryVectorArraySpec& spec);
    void updateArraySpec(const ISummaryVectorArraySpec& spec);

    /// Takes the values of a grid for the current mini step. Nothing is written before the step ends; it needs the
    /// values of all grids or of none.
    ///
    /// returns  the number of the mini step
    /// throws   std::runtime_error if the writer is closed or no mini step is open; std::invalid_argument if the grid
    ///          is unknown, the size differs from its description, or its values were given before. What the array itself
    ///          throws passes through, and its values count as not given.
    int writeArray(const std::string& grid, const ISummaryVectorArray& array);
    int writeArray(const ISummaryVectorArray& array);

    /// Writes the open mini step and begins the next one. A step without any array leaves no record, and the next one
    /// gets its number.
    ///
    /// elapsedDays   time of the new step since the start date, not before that of the last one
    /// rewriteSpec   write the spec file anew too. If that fails, it is tried again with the next record.
    /// returns       the number of the new mini step
    /// throws        std::runtime_error if the writer is closed, arrays of some grids are missing, or the record can't
    ///               be written; std::invalid_argument for a time that is too early or not finite, and for data files
    ///               of an earlier run that params.overwriteData doesn't give away
    int nextMiniStep(float elapsedDays, bool rewriteSpec);

    /// Writes the open mini step and begins no other. Follow it by close: a nextMiniStep behind it gives the same
    /// number again, and readers refuse two records of one number in a report step. That is kept so.
    ///
    /// throws   as nextMiniStep
    void endMiniStep();

    /// Begins the next report step with its first mini step, after close.
    ///
    /// elapsedDays   time of that mini step, not before that of the last one
    /// returns       the number of the mini step
    /// throws        std::invalid_argument for a time that is negative, too early or not finite; std::runtime_error if
    ///               the writer is open
    int openAtNextReportStep(float elapsedDays);

    /// Ends the report step: writes the open mini step and, with it, the spec file, and closes the files. Does nothing
    /// on a closed writer.
    ///
    /// throws   as nextMiniStep; the writer stays open then, and close may be called again
    void close();

    /// The number of the current mini step; the first one is 0, or that of the restart.
    int getMiniStep() const;

    /// The number of the current report step; the first one is 1, or that of the restart.
    int getReportStep() const;

    /// Days from the start date to the current mini step.
    float getElapsedTime() const;

private:
    std::unique_ptr<SummaryWriterImpl> impl_;
};

} // namespace Kvt::Mrl::MrlIO
