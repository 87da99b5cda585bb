#include "initrestart/write/RestartOutput.h"

#include "core/Fail.h"

#include <stdexcept>

namespace Kvt::Mrl::MrlIO {

namespace {

using Service::FileMode;

void open(Service::FileStream& stream, const Service::FileName& file, bool truncate, const char* failure)
{
    const FileMode place = truncate ? FileMode::Truncate : FileMode::AtEnd;
    stream.open(file.GetFullName(), FileMode::Write | FileMode::Create | place);
    if (!stream)
        fail<std::runtime_error>(failure, file.GetFullName());
}

/// True for a file that is not open, or of which all bytes have reached the system.
bool closesWell(Service::FileStream& stream)
{
    if (!stream.is_open())
        return true;
    stream.close();
    return stream.good();
}

} // namespace

RestartOutput::RestartOutput(bool formatted, const MrlWriterDefaultParams& params)
    : formatted_(formatted),
      mayOverwriteData_(params.overwriteData),
      mayOverwriteIndex_(params.overwriteSpec)
{}

void RestartOutput::setFiles(const Service::FileName& data, const Service::FileName& index)
{
    dataFile_ = data;
    indexFile_ = index;
}

void RestartOutput::openData(int bufferSize)
{
    if (data_.is_open())
        return;
    data_.setBufferSize(bufferSize);
    open(data_, dataFile_, mayOverwriteData_, "Problem encountered at restart get stream when opening file : ");
    mayOverwriteData_ = false;
}

bool RestartOutput::openIndex()
{
    if (index_.is_open())
        return false;
    const bool isNew = mayOverwriteIndex_ || !indexFile_.FileExists();
    open(index_, indexFile_, isNew, "Problem encountered at restart spec stream when opening file : ");
    mayOverwriteIndex_ = false;
    return isNew;
}

void RestartOutput::addData(Service::FileStreamBuf& source, std::int64_t count)
{
    data_.copyFrom(source, count);
    if (!data_)
        fail<std::runtime_error>("Problem encountered adding a section to file : ", dataFile_.GetFullName());
}

void RestartOutput::cutDataBack(std::int64_t length)
{
    if (length >= 0)
        data_.truncateTo(length);
}

void RestartOutput::flushData()
{
    if (!data_.flush())
        fail<std::runtime_error>("Problem encountered writing file : ", dataFile_.GetFullName());
}

void RestartOutput::close()
{
    const bool dataIsWhole = closesWell(data_);
    const bool indexIsWhole = closesWell(index_);
    if (!dataIsWhole || !indexIsWhole)
        fail<std::runtime_error>("Problem closing file: ", (dataIsWhole ? indexFile_ : dataFile_).GetFullName());
}

} // namespace Kvt::Mrl::MrlIO
