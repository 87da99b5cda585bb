#include "core/MorvaneBinaryReaderImpl.h"

#include "core/HeaderRecord.h"
#include "core/SameKeyword.h"
#include "core/ValueTypeLayout.h"
#include "service/BinaryFileIO.h"

#include <algorithm>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

using Service::BinaryFileIO;
using ValueTypeImplementationDetails::binaryStorageSize;

constexpr const char* inReadNext = "Kvt::Mrl::MrlIO::MorvaneBinaryReader::readNextSingleKeywordHeader";
constexpr const char* inReadKeywordHeader = "Kvt::Mrl::MrlIO::MorvaneBinaryReader::readKeywordHeader";
constexpr const char* inSeekToStartOfData = "Kvt::Mrl::MrlIO::MorvaneBinaryReader::seekToStartOfData";
constexpr const char* inReadKeywordData = "Kvt::Mrl::MrlIO::MorvaneBinaryReader::readKeywordData";

/// There is no current keyword; only a position counts.
constexpr auto noType = static_cast<ValueType::Enum>(8);

/// Bytes from the start of the data to the end of an element, in records of the usual length. A hint, not a fact.
std::int64_t usualBytes(const KeywordHeader& header, std::int64_t element)
{
    constexpr std::int64_t framing = 8;
    constexpr std::int64_t enough = std::int64_t{1} << 30;
    const ValueTypeLayout& layout = valueTypeLayout(header.valueType());
    const int width = layout.readWidth != elementWidthVaries ? layout.readWidth : header.valueTypeInfo().intData();
    const std::int64_t last = std::clamp<std::int64_t>(element, 0, enough);
    return (last + 1) * width + (last / layout.blockLength + 1) * framing;
}

} // namespace

bool MorvaneBinaryReaderImpl::open(const std::string& fileName)
{
    current_ = KeywordHeader();
    file_ = std::make_unique<Service::BufferedBinaryFileReader>(fileName.c_str());
    if (!file_->good())
        file_.reset();
    return file_ != nullptr;
}

void MorvaneBinaryReaderImpl::setCurrent(const KeywordHeader& header)
{
    current_ = header;
    startsAnew_ = true;
    justWalked_ = false;
    if (file_ != nullptr)
        file_->seekg(current_.keywordLargePos());
}

bool MorvaneBinaryReaderImpl::readNext(KeywordHeader& header)
{
    if (file_ == nullptr)
        fail<MrlIOException>(inReadNext, ": no file open");
    justWalked_ = false;
    // Where a walk starts anew, has ended or failed, what the file holds by now counts, not what was read before.
    if (std::exchange(startsAnew_, true))
        file_->forget();
    passCurrent();
    if (!readHeader(header))
        return false;
    current_ = header;
    startsAnew_ = false;
    justWalked_ = true;
    return true;
}

/// Leaves the file where the header behind the current keyword stands.
void MorvaneBinaryReaderImpl::passCurrent()
{
    if (current_.valueType() == noType) {
        file_->seekg(current_.keywordLargePos());
        return;
    }
    if (current_.valueType() != ValueType::X231) {
        seekToData(current_);
        passData(current_);
        return;
    }
    // The second record of a double header follows. Should it be missing yet, the walk begins again at the first.
    const KeywordHeader first = current_;
    current_ = KeywordHeader("", -1, noType, first.keywordLargePos());
    seekToData(first);
}

bool MorvaneBinaryReaderImpl::readHeader(KeywordHeader& header)
try {
    if (file_ == nullptr)
        fail<MrlIOException>(inReadKeywordHeader, ": no file open");
    if (!file_->good())
        fail<MrlIOException>(inReadKeywordHeader, ": error reading file");
    HeaderRecord record;
    if (!record.read(*file_))
        return false;
    // A walk that found no second record comes to the first one again.
    const bool firstAgain = record.info.type() == ValueType::X231 && record.position == header.keywordLargePos();
    if (header.valueType() == ValueType::X231 && !firstAgain)
        record.complete(header);
    else
        record.store(header);
    return true;

} catch (const MrlIOException& fault) {
    // The offset is the one that the header holds: of the record only if it got as far as being stored. Kept.
    fail<MrlIOException>(fault.what(), "\nFile  : ", owner_.getFileName(), "\nOffset: ", header.keywordLargePos());
}

void MorvaneBinaryReaderImpl::seekToData(const KeywordHeader& header)
{
    if (file_ == nullptr)
        fail<MrlIOException>(inSeekToStartOfData, ": no file open");
    file_->seekg(header.second_keywordLargePos());
    if (!file_->good())
        fail<MrlIOException>(inSeekToStartOfData, ": error seeking in file");
    KeywordHeader found;
    if (!readHeader(found))
        fail<MrlIOException>(inSeekToStartOfData, ": failed to read keyword header");
    requireSameKeyword(inSeekToStartOfData, header, found);
}

void MorvaneBinaryReaderImpl::seekToDataAnew(const KeywordHeader& header)
{
    noticeChanges(header);
    seekToData(header);
}

/// Has old bytes dropped where the reader may hold some: where it doesn't go on. Only there it looks at the file.
void MorvaneBinaryReaderImpl::noticeChanges(const KeywordHeader& header)
{
    if (file_ != nullptr && header.second_keywordLargePos() <= file_->tellg())
        file_->length();
}

/// Checks the framing of all records of a keyword, whose data are not read.
void MorvaneBinaryReaderImpl::passData(const KeywordHeader& header)
{
    if (header.size() == 0)
        return;
    const std::int64_t total = arrayBytes(binaryStorageSize(header.valueTypeInfo()), header.size());
    std::int64_t done = 0;
    while (done < total)
        done += passRecord(total - done);
    if (done != total)
        fail<MrlIOException>(inReadNext, ": failed to read specified number of bytes from file");
}

std::int64_t MorvaneBinaryReaderImpl::passRecord(std::int64_t bytesLeft)
{
    int length = 0;
    if (!BinaryFileIO::readInt32(*file_, length))
        fail<MrlIOException>(inReadNext, ": failed to read data block size at start of data block");
    if (length < 0)
        fail<MrlIOException>(inReadNext, ": negative data block size");
    if (length > bytesLeft)
        fail<MrlIOException>(inReadNext, ": too many values to read");
    file_->seekg(file_->tellg() + length);
    int endLength = 0;
    if (!BinaryFileIO::readInt32(*file_, endLength))
        fail<MrlIOException>(inReadNext, ": failed to read data block size at end of data block");
    if (endLength != length)
        fail<MrlIOException>(inReadNext, ": data block size at start and end of data block do not match");
    return length;
}

/// Checks the keyword and leaves the file at its data. False if there are none to read.
bool MorvaneBinaryReaderImpl::startSlice(const KeywordHeader& header, std::int64_t last)
{
    if (file_ == nullptr)
        fail<MrlIOException>(inReadKeywordData, ": no file open");
    // The header that the walk has just read needs no second look, but only once: another attempt looks again.
    const bool isJustRead = header.second_keywordLargePos() == current_.second_keywordLargePos();
    if (!std::exchange(justWalked_, false) || !isJustRead)
        noticeChanges(header);
    file_->seekg(header.second_keywordLargePos());
    file_->expect(headerRecordLength + usualBytes(header, last)); // the mark of each record on the way is wanted
    seekToData(header);
    if (header.size() == 0)
        return false;
    if (!file_->good())
        fail<MrlIOException>(inReadKeywordData, ": error reading file");
    return true;
}

/// How many of the wanted elements can stand between here and the end of the file. Few are not worth asking for.
std::int64_t MorvaneBinaryReaderImpl::heldElements(int width, std::int64_t wanted)
{
    constexpr std::int64_t few = 8 * 1024;
    if (wanted <= few || width == 0)
        return few;
    return std::max<std::int64_t>(0, file_->length() - file_->tellg()) / width;
}

} // namespace Kvt::Mrl::MrlIO
