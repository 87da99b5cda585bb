#pragma once

#include "core/Fail.h"
#include "core/ValueTypeDetails.h"
#include "service/BufferedBinaryFileReader.h"

#include <mrlio/MrlIOException.h>

#include <algorithm>
#include <cstdint>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// Bytes of size elements of the given width; the largest number there is if they don't fit into 64 bits, which no file
/// can hold either.
std::int64_t arrayBytes(int width, std::int64_t size);

/// Reads a slice of an array from its data records: each is its length, whole elements, and its length again. Records
/// before the slice are jumped over.
class DataSectionReaderImpl
{
public:
    /// file    stands at the first record of the array
    /// width   bytes of an element in the file
    /// size    number of elements of the whole array
    DataSectionReaderImpl(Service::BufferedBinaryFileReader& file, int width, std::int64_t size)
        : file_(file),
          width_(width),
          arrayBytes_(arrayBytes(width, size))
    {}

    /// Reads elements first to last into what out.next(count) gives, in pieces of at most out.step.
    /// throws MrlIOException if the records are damaged or don't hold the slice
    template <class Filler>
    void read(std::int64_t first, std::int64_t last, Filler& out);

private:
    template <class Filler>
    void readDataBlock(std::int64_t toSkip, std::int64_t toRead, Filler& out, std::int64_t& skipped,
                       std::int64_t& read);
    template <class Filler>
    void readValues(std::int64_t count, Filler& out);

    std::int64_t openBlock(std::int64_t& length);
    void skipValues(std::int64_t count);
    void closeBlock(std::int64_t length);

    bool decode(float* out, std::int64_t count) { return file_.readNumbers32(out, count); }

    bool decode(int* out, std::int64_t count) { return file_.readNumbers32(out, count); }

    bool decode(double* out, std::int64_t count) { return file_.readNumbers64(out, count); }

    bool decode(std::string* out, std::int64_t count)
    {
        return ValueTypeImplementationDetails::readUnformattedStrings(file_, width_, out, count);
    }

    static constexpr const char* inRead = "DataSectionReaderImpl::read";
    static constexpr const char* inReadDataBlock = "DataSectionReaderImpl::readDataBlock";

    Service::BufferedBinaryFileReader& file_;
    int width_;
    std::int64_t arrayBytes_;
    std::int64_t blockBytes_ = 0; // of the records met so far
    bool behindFirstBlock_ = false;
};

template <class Filler>
void DataSectionReaderImpl::read(std::int64_t first, std::int64_t last, Filler& out)
{
    const std::int64_t count = last - first + 1;
    std::int64_t skipped = 0;
    std::int64_t read = 0;
    while (read < count) {
        std::int64_t skippedNow = 0;
        std::int64_t readNow = 0;
        readDataBlock(first - skipped, count - read, out, skippedNow, readNow);
        skipped += skippedNow;
        read += readNow;
    }
    if (read != count)
        fail<MrlIOException>(inRead, ": failed to read specified number of values from file");
}

template <class Filler>
void DataSectionReaderImpl::readDataBlock(std::int64_t toSkip, std::int64_t toRead, Filler& out, std::int64_t& skipped,
                                          std::int64_t& read)
{
    if (toSkip == 0 && toRead == 0)
        fail<MrlIOException>(inReadDataBlock, ": nothing to skip or read");
    std::int64_t length = 0;
    const std::int64_t values = openBlock(length);
    if (toSkip > 0) {
        skipped = std::min(toSkip, values);
        skipValues(skipped);
    }
    if (skipped < values && toRead > 0) {
        read = std::min(toRead, values - skipped);
        readValues(read, out);
    }
    if (skipped + read == values)
        closeBlock(length);
}

template <class Filler>
void DataSectionReaderImpl::readValues(std::int64_t count, Filler& out)
{
    for (std::int64_t done = 0; done < count;) {
        const std::int64_t now = std::min(count - done, Filler::step);
        if (!decode(out.next(now), now))
            fail<MrlIOException>(inReadDataBlock, ": failed to read array from file");
        done += now;
    }
}

} // namespace Kvt::Mrl::MrlIO
