#pragma once

#include "service/FileStream.h"

#include <mrlio/KeywordWriter.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <cstdint>

namespace Kvt::Mrl::MrlIO {

/// A new dumpflux file, which at any time holds whole blocks only. It is removed again if not even its first block gets
/// into it.
class DumpfluxWriterFile
{
public:
    /// throws   std::invalid_argument if the file exists; std::runtime_error if it can't be made
    DumpfluxWriterFile(const Service::FileName& file, bool formatted);
    DumpfluxWriterFile(const DumpfluxWriterFile&) = delete;
    DumpfluxWriterFile& operator=(const DumpfluxWriterFile&) = delete;
    ~DumpfluxWriterFile();

    const Service::FileName& name() const { return file_; }

    /// Adds the keywords that encode(KeywordWriter&) writes: all of them or none. The system has them when this returns.
    /// throws   what encode throws; std::runtime_error if the keywords can't be written
    template <class Encode>
    void append(const Encode& encode)
    {
        begin();
        try {
            KeywordWriter out(stream_, formatted_, file_);
            encode(out);
            end();
        } catch (...) {
            cutBack();
            throw;
        }
    }

    /// False if something that was written didn't reach the file.
    bool close();

private:
    void begin();
    void end();

    void cutBack() { stream_.truncateTo(wholeLength_); }

    Service::FileName file_;
    bool formatted_;
    Service::FileStream stream_;
    std::int64_t wholeLength_ = 0;
};

/// Throws the std::invalid_argument for a file that is there already.
[[noreturn]] void failDumpfluxFileExists(const Service::FileName& file);

} // namespace Kvt::Mrl::MrlIO
