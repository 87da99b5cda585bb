#pragma once

#include "service/FileStream.h"

#include <mrlio/KeywordWriter.h>
#include <mrlio/MrlWriterDefaultParams.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <cstdint>
#include <iosfwd>

namespace Kvt::Mrl::MrlIO {

/// The data file and the index file of a writer, one pair after the other. Files from an earlier run are continued
/// unless the writer's settings give them away, which counts once for each of the two.
class RestartOutput
{
public:
    RestartOutput(bool formatted, const MrlWriterDefaultParams& params);

    /// Which files come next. None may be open.
    void setFiles(const Service::FileName& data, const Service::FileName& index);

    const Service::FileName& dataFile() const { return dataFile_; }

    bool mayOverwriteData() const { return mayOverwriteData_; }

    /// The permission was used in another way than by opening the file.
    void spendOverwriteData() { mayOverwriteData_ = false; }

    /// Opens the data file unless it is open.
    /// bufferSize   bytes; below 1, the stream's own choice
    /// throws       std::runtime_error
    void openData(int bufferSize);

    bool isDataOpen() const { return data_.is_open(); }

    std::iostream& data() { return data_; }

    /// Adds the next count bytes of source to the data file.
    /// throws   std::runtime_error
    void addData(Service::FileStreamBuf& source, std::int64_t count);

    /// Takes out of the data file what lies behind its first length bytes. It stays failed if that can't be done.
    void cutDataBack(std::int64_t length);

    KeywordWriter dataKeywords() { return {data_, formatted_, dataFile_}; }

    /// Opens the index file unless it is open. True if it was opened and holds nothing that shall stay.
    /// throws   std::runtime_error
    bool openIndex();

    KeywordWriter indexKeywords() { return {index_, formatted_, indexFile_}; }

    /// throws   std::runtime_error if the system doesn't take what waits for the data file
    void flushData();

    /// Closes both files. A file that is not open counts as closed.
    /// throws   std::runtime_error, when both are closed, if one of them has failed
    void close();

private:
    bool formatted_;
    bool mayOverwriteData_;
    bool mayOverwriteIndex_;
    Service::FileName dataFile_;
    Service::FileName indexFile_;
    Service::FileStream data_;
    Service::FileStream index_;
};

} // namespace Kvt::Mrl::MrlIO
