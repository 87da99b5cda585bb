#include "core/HeaderRecord.h"

#include "core/Fail.h"
#include "core/ValueTypeDetails.h"
#include "service/ByteOrder.h"

#include <mrlio/MrlIOException.h>

namespace Kvt::Mrl::MrlIO {

namespace {

namespace ByteOrder = Service::ByteOrder;
using Service::BufferedBinaryFileReader;
using ValueTypeImplementationDetails::parseTypeText;
using ValueTypeImplementationDetails::trimmedText;

constexpr const char* where = "Kvt::Mrl::MrlIO::MorvaneBinaryReader::readKeywordHeader";

/// Hands out the bytes of a header record: from one view of all of it, or part by part where the file ends within.
class HeaderBytes
{
public:
    explicit HeaderBytes(BufferedBinaryFileReader& file) : file_(file)
    {
        const std::int64_t start = file.tellg();
        bytes_ = file.view(headerRecordLength);
        if (bytes_ == nullptr)
            file.seekg(start);
    }

    /// Null at the end of the file. Good until the next call.
    const char* next(int count)
    {
        if (bytes_ == nullptr)
            return file_.view(count);
        const char* const part = bytes_;
        bytes_ += count;
        return part;
    }

    const char* next(int count, const char* failure)
    {
        const char* const part = next(count);
        if (part == nullptr)
            fail<MrlIOException>(where, failure);
        return part;
    }

private:
    BufferedBinaryFileReader& file_;
    const char* bytes_;
};

std::int64_t magnitude(std::int32_t count)
{
    const std::int64_t wide = count;
    return wide < 0 ? -wide : wide;
}

} // namespace

bool HeaderRecord::read(BufferedBinaryFileReader& file)
{
    position = file.tellg();
    HeaderBytes bytes(file);
    const char* const length = bytes.next(recordMarkLength);
    if (length == nullptr || ByteOrder::loadInt32(length) != headerContentLength)
        return false;
    name.assign(trimmedText(bytes.next(headerNameLength, ": failed to read keyword name"), headerNameLength));
    if (name.empty())
        fail<MrlIOException>(where, ": empty array name");
    count = ByteOrder::loadInt32(bytes.next(headerCountLength, ": failed to read array size"));
    info = parseTypeText(trimmedText(bytes.next(headerTypeLength, ": failed to read keyword type"), headerTypeLength));
    if (ByteOrder::loadInt32(bytes.next(recordMarkLength, ": failed to read end code")) != headerContentLength)
        fail<MrlIOException>(where, ": failed to read end code");
    return true;
}

void HeaderRecord::store(KeywordHeader& header) const
{
    header.name(name);
    header.size(magnitude(count));
    header.valueTypeInfo(info);
    header.keywordLargePos(position);
    if (info.type() == ValueType::X231 && count >= 1)
        fail<MrlIOException>(where, ": header size should be negative");
}

void HeaderRecord::complete(KeywordHeader& header) const
{
    header.update_header_size(magnitude(count));
    header.valueTypeInfo(info);
    header.second_keywordLargePos(position);
    if (name != header.name())
        fail<MrlIOException>(where, ": header name does not match X231 header");
    // A third record can't follow, so another first one is as wrong as a negative remainder.
    if (count < 0 || info.type() == ValueType::X231)
        fail<MrlIOException>(where, ": header size should be positive");
}

} // namespace Kvt::Mrl::MrlIO
