#pragma once

#include <mrlio/Export.h>
#include <mrlio/SummaryVectorIDParams.h>
#include <mrlio/service/HourMinuteSecondMillisecond.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/YearMonthDay.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Kvt::Mrl::MrlIO {

class SummarySpecDataImpl;

/// What the summary specification file (SMSPEC, FSMSPEC) of a case says: which vectors every PARAMS record of the data
/// files carries, their units and measurements, the grid size, the start date and the restart root. Read whole at
/// construction and never changed afterwards: copies are cheap and share their content, references stay valid as long
/// as any copy lives, and several threads may read one object.
class MRLIO_EXPORT SummarySpecData
{
public:
    /// Reads the spec file; the extension tells whether it is formatted.
    /// throws  SummaryReaderException if the file can't be opened, an array can't be read or the arrays don't fit
    ///         together; MrlIOException if the framing is damaged or cut off; ServiceException for a start date or time
    ///         that doesn't exist
    explicit SummarySpecData(const std::string& path);

    /// A specification in memory, of the given vectors: without a file, units and measurements.
    explicit SummarySpecData(const std::vector<SummaryVectorIDParams>& ids);

    SummarySpecData(const SummarySpecData& other);
    SummarySpecData& operator=(const SummarySpecData& other);
    ~SummarySpecData();

    /// The path given to the constructor; empty for a specification in memory.
    const std::string& specFilepath() const;
    /// Whether the spec file was read from a file.
    bool isInitialized() const;
    bool isFormatted() const;

    /// Cells of the grid in each direction; 0 if the file doesn't tell.
    int NX() const;
    int NY() const;
    int NZ() const;

    /// The INTEHEAD array as read; empty if there is none or it couldn't be read.
    const std::vector<int>& INTEHEADData() const;
    /// Root name of the case that this one restarts from; empty if none.
    const std::string& restart() const;
    /// Start of the case; the year is 0 if the file doesn't tell.
    const Service::YearMonthDay& startDate() const;
    const Service::HourMinuteSecondMillisecond& startTime() const;

    /// The vectors in the order of the file: place i is element i of every PARAMS.
    const std::vector<SummaryVectorIDParams>& allVectorIDs() const;
    /// Names of the local grids.
    const std::vector<std::string>& LGRs() const;

    /// CRC-32 of the file's bytes, below 2^32; 0xFFFFFFFF if they could not be read, 0 without a file.
    unsigned long getCRCChecksum() const;
    /// Whether a TIMESTMP or RUNTIMEI keyword was seen.
    bool hasTIMESTMPorRUNTIMEIKeyword() const;

    /// The place of a vector, counted from 0, or -1. Of several equal vectors the first has the place.
    /// cost  one hashed look-up
    int index(const SummaryVectorIDParams& id) const;

    /// The runs of neighbouring places that hold vectors of that keyword, as pairs of first and last place, both
    /// inclusive, in the order of the file. Empty for an unknown keyword and without a file.
    /// cost  one hashed look-up
    const std::vector<std::pair<int, int>>& indexRange(const std::string& keyword) const;

    /// The unit of a vector; empty if the vector is unknown or has none.
    const std::string& unit(const SummaryVectorIDParams& id) const;
    /// What a vector measures; empty if the vector is unknown or the file doesn't tell.
    const std::string& measurement(const SummaryVectorIDParams& id) const;

    /// The first vector named TIME. Where there is none, an identity of that name all the same: ask index() whether it
    /// has a place.
    const SummaryVectorIDParams& timesVectorID() const;

private:
    std::shared_ptr<const SummarySpecDataImpl> impl_;
};

} // namespace Kvt::Mrl::MrlIO
