#pragma once

#include <mrlio/Export.h>
#include <mrlio/SummarySpecData.h>
#include <mrlio/service/HourMinuteSecondMillisecond.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/YearMonthDay.h>

#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Reads the summary of a case: which vectors there are, and their values over time. Failures in reading data are
/// logged and answered with empty results, so that a viewer survives a case that is still being written. A reader
/// belongs to one thread at a time; separate readers may run on separate threads. References and values stay valid as
/// long as the reader lives. The order of the virtual operations is part of the interface.
class MRLIO_EXPORT ISummaryReader
{
public:
    /// What a reader does with the content index cache beside the data files: two bits.
    enum ContentCacheBehaviour : int
    {
        NoCache = 0,       ///< always walks through the data files
        ReadCache = 1,     ///< takes the index from a valid cache
        WriteCache = 2,    ///< writes the cache after each walk
        ReadWriteCache = 3 ///< both
    };

    virtual ~ISummaryReader();

    /// Goes on with the files that a running simulator has added. files is the whole list: the names known so far, in
    /// their order, and behind them the new ones.
    /// True if there are new files; they are read at the next question that needs them. False if files has as many
    /// names as are known.
    /// Only the new files are looked through. What came into a known file after it was looked through stays out: the
    /// rest of a file that was still being written then, so that mini steps are missing in the middle, or the growth of
    /// a unified file. So leave a file out of the list until the run has begun the next one, or make a new reader.
    /// Where looking through the files has failed, the next call with new files looks through all of them again.
    /// throws  SummaryReaderException if names are missing or differ from the known ones; nothing has changed then
    virtual bool readNewData(const std::vector<std::string>& files) = 0;

    /// Whether the spec file and all data files exist.
    virtual bool isValid() const = 0;

    /// The data files, in order.
    virtual std::vector<std::string> summaryFiles() const = 0;
    virtual std::string specFilename() const = 0;
    virtual const Service::YearMonthDay& startDate() const = 0;
    virtual const Service::HourMinuteSecondMillisecond& startTime() const = 0;

    /// The values of the vector TIME, one per mini step, as stored: days since the start of the case, hours in a case
    /// of LAB units. Empty if there is no such vector or it can't be read. Refilled by calls after readNewData().
    virtual const std::vector<float>& timeStepDays() const = 0;

    /// Cells of the grid in each direction; 0 if not known.
    virtual int NX() const = 0;
    virtual int NY() const = 0;
    virtual int NZ() const = 0;

    /// Names of the local grids.
    virtual const std::vector<std::string>& LGRs() const = 0;
    /// All vectors, by their place in every PARAMS.
    virtual const std::vector<SummaryVectorIDParams>& allVectorIDs() const = 0;
    /// The first vector named TIME; where there is none, an identity of that name that has no place.
    virtual const SummaryVectorIDParams& timeVectorID() const = 0;
    /// Empty for an unknown vector.
    virtual const std::string& unit(const SummaryVectorIDParams& id) const = 0;
    /// Empty for an unknown vector.
    virtual const std::string& measurement(const SummaryVectorIDParams& id) const = 0;

    /// The values of a vector, one per mini step, in the unit that unit() tells. Null if the vector is unknown, or if
    /// its data can't be read: the cause is logged at level 3, and the call may be repeated later.
    /// The vector is the reader's own and grows under its holders: a later request, after readNewData(), appends to it.
    /// Copy it if it has to stay as it is or to be used on another thread.
    virtual std::shared_ptr<const std::vector<float>> getValues(const SummaryVectorIDParams& id) const = 0;

    /// The place of a vector, counted from 0, or -1.
    virtual int index(const SummaryVectorIDParams& id) const = 0;
    virtual const SummarySpecData& specData() const = 0;
};

/// A summary reader of one run of a case, with the numbers of its mini steps and the times of its report steps.
class MRLIO_EXPORT ISimpleSummaryReader : public virtual ISummaryReader
{
public:
    ~ISimpleSummaryReader() override;

    /// The numbers of the mini steps, in the order of the values. Empty, with a line in the log, if the data files
    /// can't be read.
    virtual const std::vector<int>& miniTimeSteps() const = 0;

    /// One value per report step: the TIME value, as stored (days; hours in LAB units), of its last mini step. Empty if
    /// there is no vector TIME or it can't be read. Refilled by calls after readNewData().
    virtual const std::vector<float>& reportStepDays() const = 0;
};

} // namespace Kvt::Mrl::MrlIO
