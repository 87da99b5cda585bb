#include "dumpflux/DumpfluxWriterFile.h"

#include "core/Fail.h"

#include <cstdio>
#include <stdexcept>
#include <system_error>

namespace Kvt::Mrl::MrlIO {

DumpfluxWriterFile::DumpfluxWriterFile(const Service::FileName& file, bool formatted)
    : file_(file),
      formatted_(formatted)
{
    using Service::FileMode;
    stream_.open(file_.GetFullName(), FileMode::Write | FileMode::Create | FileMode::New);
    if (stream_)
        return;
    if (stream_.lastError() == std::errc::file_exists) // somebody else has made it since the caller looked
        failDumpfluxFileExists(file_);
    fail<std::runtime_error>("Problem encountered opening file : ", file_.GetFullName());
}

DumpfluxWriterFile::~DumpfluxWriterFile()
{
    stream_.close();
    if (wholeLength_ == 0)
        std::remove(file_.GetFullName().c_str());
}

bool DumpfluxWriterFile::close()
{
    stream_.close();
    return stream_.good();
}

/// A stream that failed before is good again once the file is cut back, which may not have been possible then.
void DumpfluxWriterFile::begin()
{
    if (!stream_)
        cutBack();
    if (!stream_)
        fail<std::runtime_error>("Problem encountered writing file : ", file_.GetFullName());
}

void DumpfluxWriterFile::end()
{
    stream_.flush();
    const std::int64_t length = stream_.tellp();
    if (!stream_)
        fail<std::runtime_error>("Problem encountered writing file : ", file_.GetFullName());
    wholeLength_ = length;
}

void failDumpfluxFileExists(const Service::FileName& file)
{
    fail<std::invalid_argument>("DUMPFLUX file ", file.GetFullName(), " already exists.");
}

} // namespace Kvt::Mrl::MrlIO
