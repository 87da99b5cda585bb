#include "core/DataSectionReader.h"

#include "service/BinaryFileIO.h"

#include <limits>
#include <utility>

namespace Kvt::Mrl::MrlIO {

std::int64_t arrayBytes(int width, std::int64_t size)
{
    std::int64_t bytes = 0;
    if (__builtin_mul_overflow(std::int64_t{width}, size, &bytes))
        return size < 0 ? -1 : std::numeric_limits<std::int64_t>::max();
    return bytes;
}

/// Reads the length of the next record and gives the number of its elements.
std::int64_t DataSectionReaderImpl::openBlock(std::int64_t& length)
{
    int stored = 0;
    if (!Service::BinaryFileIO::readInt32(file_, stored))
        fail<MrlIOException>(inReadDataBlock, ": failed to read data block size at start of data block");
    if (stored < 0)
        fail<MrlIOException>(inReadDataBlock, ": negative data block size");
    if (width_ == 0 || stored % width_ != 0)
        fail<MrlIOException>(inReadDataBlock, ": data block size is not multiple of value size");
    length = stored;
    blockBytes_ += length;
    // The bytes of a later record that goes beyond the array belong to another keyword.
    if (std::exchange(behindFirstBlock_, true) && blockBytes_ > arrayBytes_)
        fail<MrlIOException>(inRead, ": failed to read specified number of values from file");
    return length / width_;
}

void DataSectionReaderImpl::skipValues(std::int64_t count)
{
    file_.seekg(file_.tellg() + count * width_);
    if (!file_.good())
        fail<MrlIOException>(inReadDataBlock, ": failed to seek within file when skipping values");
}

void DataSectionReaderImpl::closeBlock(std::int64_t length)
{
    int stored = 0;
    if (!Service::BinaryFileIO::readInt32(file_, stored))
        fail<MrlIOException>(inReadDataBlock, ": failed to read data block size at end of data block");
    if (stored != length)
        fail<MrlIOException>(inReadDataBlock, ": data block size at start and end of data block do not match");
}

} // namespace Kvt::Mrl::MrlIO
