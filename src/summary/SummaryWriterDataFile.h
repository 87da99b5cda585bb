#pragma once

#include "service/FileStream.h"
#include "summary/SummaryWriterClock.h"

#include <mrlio/MrlWriterDefaultParams.h>
#include <mrlio/service/Directory.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <cstdint>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The data files of a summary writer: opens the file of a report step when its first record comes, and appends records
/// so that at any time the file holds whole ones only.
///
///     SEQHDR    INTE  1   stamp of the run            at the start of each report step
///     MINISTEP  INTE  1   number of the mini step     | each record
///     PARAMS    REAL  n   values                      |
class SummaryWriterDataFile
{
public:
    SummaryWriterDataFile(const Service::Directory& directory, const std::string& rootName, bool formatted,
                          const MrlWriterDefaultParams& params, LocalClock clock);

    /// Appends a record to the file of that report step, which is opened if need be.
    /// throws   std::invalid_argument if files of an earlier run stand there and may not be overwritten;
    ///          std::runtime_error if the file can't be opened or the record can't be written. The file ends with its
    ///          last whole record then.
    void append(int reportStep, int miniStep, const std::vector<float>& values);

    /// Does nothing if no file is open.
    /// throws   std::runtime_error if what was written didn't reach the file. It is closed then all the same.
    void close();

private:
    void open(int reportStep);
    void clearOldSteps() const;
    Service::FileName fileOf(int reportStep) const;
    int stamp();
    void writeHeader();
    template <class Encode>
    void writeWhole(const char* lastKeyword, const Encode& encode);
    void sendWhole(const char* lastKeyword, std::string_view bytes);

    Service::Directory directory_;
    std::string rootName_;
    bool formatted_;
    bool unified_;
    bool swapCase_;
    bool mayOverwrite_;
    bool hasTimeStamps_;
    LocalClock clock_;

    Service::FileName file_; // the last one opened
    bool isFirstOpening_ = true;
    std::optional<std::uint32_t> stamp_;
    Service::FileStream stream_;
    std::int64_t wholeLength_ = 0; // of the open file, up to its last whole record
    bool needsHeader_ = false;     // the open file has yet to get the header of this report step
    std::ostringstream encoded_;
};

} // namespace Kvt::Mrl::MrlIO
