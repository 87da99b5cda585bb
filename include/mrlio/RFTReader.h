#pragma once

#include <mrlio/Export.h>
#include <mrlio/ValueType.h>
#include <mrlio/WellModelType.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/YearMonthDay.h>

#include <cstddef>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

class RFTReaderImpl;

/// Reads a file of well test results: for each date of report and each well, arrays along the well. They are of four
/// categories: RFT (pressure and saturations against depth), PLT (flow through the connections), segment, and basic for
/// all others.
///
/// Dates are told by index, from 0 on in file order, or as dates. Of two equal dates the later one is meant; the other
/// one can be asked for by index alone. Wells and arrays are told by name, letter case included. What the file doesn't
/// hold is no failure: the answers are false, -1, empty texts and lists.
///
/// read takes the content index of the file from a cache beside it, <root>_rft_content_index__.xml, or else walks once
/// over the headers of the file and writes that cache. The first question for an array of a date reads all arrays of
/// all wells of that date, at the cost of reading just these. Dates that have been read stay in memory until the next
/// read or the reader's end. No file stays open in between.
///
/// A date of which the reading failed isn't read again: later questions find what had been read until then, and answer
/// false for the rest as if it weren't in the file. A new read starts afresh.
///
/// The cache is trusted if the file's name, length and time of last change (in whole seconds) agree with it. One of
/// another version, or that lacks a part, is made anew. With one that isn't XML, or holds a text in place of a number,
/// read throws until RFTReaderEnvironment::flushContentIndexCache is called. So it does for each file of 2 GiB or
/// more that has a cache, with boost::bad_lexical_cast, which is no MrlIOException: such files open once per flush.
///
/// Failures are RFTReaderException where this class itself finds them, and other kinds of MrlIOException where the
/// layers below do: catch MrlIOException. Without a file, that is before any read and after one that failed, each
/// question but RFTFile throws.
///
/// References stay valid until the next read, unless told otherwise. A reader belongs to one thread: its questions fill
/// it. Separate readers are independent of each other, also in several threads.
class MRLIO_EXPORT RFTReader
{
public:
    /// A reader that has read nothing yet.
    RFTReader();

    ~RFTReader();
    RFTReader(const RFTReader&) = delete;
    RFTReader& operator=(const RFTReader&) = delete;

    /// Opens a file in place of the one that was read before. The extension tells whether it is formatted.
    /// throws   MrlIOException if the file is missing, empty or damaged, or its cache isn't well-formed;
    ///          boost::bad_lexical_cast if the cache holds a number that can't be read. The reader holds no file then.
    void read(const std::string& fileName);

    /// An empty name if no file is held.
    Service::FileName RFTFile() const;

    /// The wells in byte order.
    const std::vector<std::string>& wells() const;

    /// The reports: their dates, and their times in the unit that timeUnit() tells.
    const std::vector<Service::YearMonthDay>& dates() const;
    const std::vector<float>& times() const;

    /// The local grid in which a well lies; empty for the global one and for an unknown well.
    const std::string& LGR(const std::string& well) const;

    /// 4, which has no name, for an unknown well.
    WellModelType::Enum wellType(const std::string& well) const;

    /// The type that an array has where it first appears in the file; 8, which has no name, for an unknown array.
    ValueType::Enum arrayValueType(const std::string& array) const;

    /// The arrays of a category in the whole file, in byte order. Each operation has one list per thread: the next call
    /// of the same operation, on whatever reader, changes what the reference shows.
    const std::vector<std::string>& basicArrayNames() const;
    const std::vector<std::string>& RFTArrayNames() const;
    const std::vector<std::string>& PLTArrayNames() const;
    const std::vector<std::string>& segmentArrayNames() const;

    /// The arrays of a category that a well has at any date; for an empty name those of the whole file.
    const std::set<std::string>& basicArrays(const std::string& well) const;
    const std::set<std::string>& RFTArrays(const std::string& well) const;
    const std::set<std::string>& PLTArrays(const std::string& well) const;
    const std::set<std::string>& segmentArrays(const std::string& well) const;

    /// Replaces `values` by an array of a well at a date. Numbers widen, from int to float and double and from float to
    /// double; into bool go integers and truth values.
    /// returns   false if there is no such array; `values` is empty then, but untouched if the date is unknown. An
    ///           array without values is one: true.
    /// throws    MrlIOException if the type of the array doesn't convert, or the date can't be read
    /// cost      a copy, and with the first question for the date the reading of it
    bool getArray(const std::string& array, const std::string& well, const Service::YearMonthDay& date,
                  std::vector<int>& values) const;
    bool getArray(const std::string& array, const std::string& well, const Service::YearMonthDay& date,
                  std::vector<float>& values) const;
    bool getArray(const std::string& array, const std::string& well, const Service::YearMonthDay& date,
                  std::vector<double>& values) const;
    bool getArray(const std::string& array, const std::string& well, const Service::YearMonthDay& date,
                  std::vector<std::string>& values) const;
    bool getArray(const std::string& array, const std::string& well, const Service::YearMonthDay& date,
                  std::vector<bool>& values) const;
    bool getArray(const std::string& array, const std::string& well, std::size_t index, std::vector<int>& values) const;
    bool getArray(const std::string& array, const std::string& well, std::size_t index,
                  std::vector<float>& values) const;
    bool getArray(const std::string& array, const std::string& well, std::size_t index,
                  std::vector<double>& values) const;
    bool getArray(const std::string& array, const std::string& well, std::size_t index,
                  std::vector<std::string>& values) const;
    bool getArray(const std::string& array, const std::string& well, std::size_t index,
                  std::vector<bool>& values) const;

    /// The number of connections of a well at a date, by the first of the arrays CONIPOS, DEPTH and CONDEPTH that it
    /// has; -1 if it has none.
    /// throws    MrlIOException if the array isn't of the usual type (INTE, REAL, REAL), or the date can't be read
    int getNCON(const std::string& well, const Service::YearMonthDay& date) const;
    int getNCON(const std::string& well, std::size_t index) const;

    /// The number of river reaches, by READEPTH, likewise.
    int getNREA(const std::string& well, const Service::YearMonthDay& date) const;
    int getNREA(const std::string& well, std::size_t index) const;

    /// The number of well segments, by SEGDEPTH, likewise.
    int getNSEG(const std::string& well, const Service::YearMonthDay& date) const;
    int getNSEG(const std::string& well, std::size_t index) const;

    /// The units, as the first well block of the file names them; those from viscosity on are empty in older files.
    const std::string& timeUnit() const;
    const std::string& depthUnit() const;
    const std::string& pressureUnit() const;
    const std::string& oilAndWaterFlowRateUnit() const;
    const std::string& gasFlowRateUnit() const;
    const std::string& localVolumetricFlowRateUnit() const;
    const std::string& flowVelocityUnit() const;
    const std::string& viscosityUnit() const;
    const std::string& polymerAndBrineConcentrationUnit() const;
    const std::string& polymerAndBrineFlowRateUnit() const;
    const std::string& adsorbedPolymerConcentrationUnit() const;
    const std::string& temperatureUnit() const;
    const std::string& massDensityUnit() const;
    const std::string& energyUnit() const;

private:
    std::unique_ptr<RFTReaderImpl> impl_;
};

} // namespace Kvt::Mrl::MrlIO
