#pragma once

#include "core/DataSectionReader.h"
#include "core/Fail.h"
#include "core/ValueTypeDetails.h"
#include "core/VectorGrowth.h"
#include "service/BufferedBinaryFileReader.h"

#include <mrlio/KeywordHeader.h>
#include <mrlio/MorvaneReader.h>
#include <mrlio/MrlIOException.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The open file, the current keyword, and all that is done with them. The slice operations take indexes that have been
/// checked, and a type that fits the element.
class MorvaneBinaryReaderImpl
{
public:
    /// owner   names the file in error texts
    explicit MorvaneBinaryReaderImpl(const MorvaneReader& owner) : owner_(owner) {}

    bool open(const std::string& fileName);

    bool eof() const { return file_ == nullptr || file_->eof(); }

    void setCurrent(const KeywordHeader& header);
    bool readNext(KeywordHeader& header);
    bool readHeader(KeywordHeader& header);
    void seekToData(const KeywordHeader& header);

    /// The same where the file may have been rewritten since its bytes were read.
    void seekToDataAnew(const KeywordHeader& header);

    template <class T>
    void readArray(const KeywordHeader& header, T* out, std::int64_t first, std::int64_t last);

    template <class T>
    void readVector(const KeywordHeader& header, std::vector<T>& out, std::int64_t first, std::int64_t last);

private:
    void passCurrent();
    void passData(const KeywordHeader& header);
    std::int64_t passRecord(std::int64_t bytesLeft);

    void noticeChanges(const KeywordHeader& header);
    bool startSlice(const KeywordHeader& header, std::int64_t last);
    std::int64_t heldElements(int width, std::int64_t wanted);

    const MorvaneReader& owner_;
    std::unique_ptr<Service::BufferedBinaryFileReader> file_;
    KeywordHeader current_;
    bool startsAnew_ = false; // the walk doesn't go on from a step that gave a header
    bool justWalked_ = false; // nothing was read since the walk gave the current header
};

template <class T>
void MorvaneBinaryReaderImpl::readArray(const KeywordHeader& header, T* out, std::int64_t first, std::int64_t last)
{
    if (!startSlice(header, last))
        return;
    const int width = ValueTypeImplementationDetails::binaryStorageSize(header.valueTypeInfo());
    BufferFiller<T> filler(out);
    DataSectionReaderImpl(*file_, width, header.size()).read(first, last, filler);
}

template <class T>
void MorvaneBinaryReaderImpl::readVector(const KeywordHeader& header, std::vector<T>& out, std::int64_t first,
                                         std::int64_t last)
{
    if (!startSlice(header, last)) {
        out.clear();
        return;
    }
    const int width = ValueTypeImplementationDetails::binaryStorageSize(header.valueTypeInfo());
    const std::int64_t count = last - first + 1;
    VectorFiller<T> filler(out, count, heldElements(width, count));
    DataSectionReaderImpl(*file_, width, header.size()).read(first, last, filler);
}

} // namespace Kvt::Mrl::MrlIO
