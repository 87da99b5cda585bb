#pragma once

#include <mrlio/Export.h>
#include <mrlio/GRFTParameter.h>
#include <mrlio/ValueType.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

class HMDReaderImpl;

/// Reads a file of history match data: for each report time, the quantities of wells and groups and their derivatives
/// with respect to the parameters of the match. In front of the reports stands a preamble, which describes the run.
///
/// There are no dates: reports are told by the index of their time, from 0 on in file order. Wells and groups are told
/// by name, letter case included, and share the names: where a group is called like a well, whichever comes later in a
/// report replaces the arrays of the other. What the file doesn't hold is no failure: the answers are false and empty
/// lists.
///
/// read takes the content index of the file from a cache beside it, <root>_hmd_content_index__.xml, or else walks once
/// over the headers of the file and writes that cache. The first question for an array of a report reads all arrays of
/// that report, at the cost of reading just these; the same holds for the preamble. What has been read stays in memory
/// until the next read or the reader's end. No file stays open in between.
///
/// A report of which the reading failed isn't read again: later questions find what had been read until then, and
/// answer false for the rest as if it weren't in the file. A new read starts afresh.
///
/// The cache is trusted if the file's name, length and time of last change (in whole seconds) agree with it. One of
/// another version, or that lacks a part, is made anew. With one that isn't XML, or holds a text in place of a number,
/// read throws until HMDReaderEnvironment::flushContentIndexCache is called. So it does for each file of 2 GiB or
/// more that has a cache, with boost::bad_lexical_cast, which is no MrlIOException: such files open once per flush.
///
/// Failures are HMDReaderException where this class itself finds them, and other kinds of MrlIOException where the
/// layers below do: catch MrlIOException. Without a file, that is before any read and after one that failed, each
/// question but HMDFile throws.
///
/// References stay valid until the next read. A reader belongs to one thread: its questions fill it. Separate readers
/// are independent of each other, also in several threads.
class MRLIO_EXPORT HMDReader
{
public:
    /// A reader that has read nothing yet.
    HMDReader();

    ~HMDReader();
    HMDReader(const HMDReader&) = delete;
    HMDReader& operator=(const HMDReader&) = delete;

    /// Opens a file in place of the one that was read before. The extension tells whether it is formatted.
    /// throws   MrlIOException if the file is missing, empty or damaged, or holds a keyword that such files don't have
    ///          (see the categories below), or if its cache isn't well-formed; boost::bad_lexical_cast if the cache
    ///          holds a number that can't be read. The reader holds no file then.
    void read(const std::string& fileName);

    /// An empty name if no file is held.
    Service::FileName HMDFile() const;

    /// Whether the file is marked as encoded. The arrays are given as they stand, encoded or not.
    bool isFileEncoded() const;

    /// Whether the derivatives are stored as 32-bit numbers; false if there are none.
    bool isSinglePrecision() const;

    /// Whether the file holds derivatives alone, without the values of the quantities.
    bool isWithoutValues() const;

    /// The reports: the time and the step of each. A report of which the time doesn't lie above that of the one before
    /// counts as a part of it. One that lies above it by no more than a billionth is a report of its own, but the one
    /// before has its arrays too.
    const std::vector<double>& times() const;
    const std::vector<double>& timeSteps() const;

    /// The parameters, ordered by name and domains, each once.
    const std::vector<HMDParameter>& parameters() const;

    /// Who has derivatives, in byte order.
    const std::vector<std::string>& wellNames() const;
    const std::vector<std::string>& groupNames() const;

    /// What the quantities are, in the order of the file.
    const std::vector<std::string>& wellQuantities() const;
    const std::vector<std::string>& groupQuantities() const;

    /// The arrays that the file holds, in byte order: those of the preamble (GRADWELL, GRADGRUP, GRADRESV and the INFO,
    /// ORIG and VER arrays of the simulators), those that name wells, groups and parameters (NAMES, GNAMES, HMHEADI),
    /// and the numbers themselves (DERIVS, VALUES).
    std::vector<std::string> preambleArrayNames() const;
    std::vector<std::string> variableArrayNames() const;
    std::vector<std::string> gradientArrayNames() const;

    /// The type that an array has where it first appears in the file; 8, which has no name, for an unknown array.
    ValueType::Enum arrayValueType(const std::string& array) const;

    /// Replaces `values` by an array of the preamble.
    /// returns   false, with `values` empty, if there is no such array. An array without values is one: true.
    /// throws    MrlIOException if the type of the array doesn't convert, or the preamble can't be read
    bool getArray(const std::string& array, std::vector<int>& values) const;
    bool getArray(const std::string& array, std::vector<std::string>& values) const;

    /// Replaces `values` by an array of a report. Numbers widen, from int to float and double and from float to double.
    ///
    /// parameter   counts for all but VALUES and the arrays of the preamble, which don't depend on it; a default one
    ///             finds what stands ahead of all parameters
    /// name        of a well or a group; counts for all but HMHEADI and the arrays of the preamble. An empty one finds
    ///             what stands ahead of all wells and groups
    /// timeIndex   the largest std::size_t means the preamble
    /// returns     false, with `values` empty, if there is no such array. An array without values is one: true.
    /// throws      MrlIOException if the type of the array doesn't convert, or the report can't be read
    /// cost        a copy, and with the first question for the report the reading of it
    bool getArray(const std::string& array, const HMDParameter& parameter, const std::string& name,
                  std::size_t timeIndex, std::vector<int>& values) const;
    bool getArray(const std::string& array, const HMDParameter& parameter, const std::string& name,
                  std::size_t timeIndex, std::vector<float>& values) const;
    bool getArray(const std::string& array, const HMDParameter& parameter, const std::string& name,
                  std::size_t timeIndex, std::vector<double>& values) const;
    bool getArray(const std::string& array, const HMDParameter& parameter, const std::string& name,
                  std::size_t timeIndex, std::vector<std::string>& values) const;

private:
    std::unique_ptr<HMDReaderImpl> impl_;
};

} // namespace Kvt::Mrl::MrlIO
