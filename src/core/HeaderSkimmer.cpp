#include "core/HeaderSkimmer.h"

#include "core/DataSectionReader.h"
#include "core/RecordLayout.h"
#include "core/ValueTypeDetails.h"
#include "core/ValueTypeLayout.h"
#include "service/ByteOrder.h"

#include <algorithm>
#include <cstring>

namespace Kvt::Mrl::MrlIO {

namespace {

namespace ByteOrder = Service::ByteOrder;
using Service::BufferedBinaryFileReader;

constexpr int nameOffset = recordMarkLength;
constexpr int countOffset = nameOffset + headerNameLength;
constexpr int typeOffset = countOffset + headerCountLength;
constexpr int endMarkOffset = typeOffset + headerTypeLength;

int widthOf(const ValueTypeInfo& info)
{
    const int width = valueTypeLayout(info.type()).readWidth;
    return width == elementWidthVaries ? info.intData() : width;
}

bool isFramed(const char* record, std::int64_t length)
{
    return ByteOrder::loadInt32(record) == length && ByteOrder::loadInt32(record + recordMarkLength + length) == length;
}

} // namespace

bool HeaderSkimmer::next()
{
    if (kinds_.empty())
        return false;
    const char* const bytes = behindData();
    if (bytes == nullptr || ByteOrder::loadInt32(bytes) != headerContentLength ||
        ByteOrder::loadInt32(bytes + endMarkOffset) != headerContentLength)
        return false;
    const std::int64_t size = ByteOrder::loadInt32(bytes + countOffset);
    const Key key = keyOf(bytes);
    // The headers of a file come in nearly the same order in block after block.
    std::uint32_t kind = kinds_[kind_].follower;
    if (size < 0 || (kinds_[kind].key != key && !findKind(key, kind)) || kinds_[kind].width < 0)
        return false;
    kind_ = kind;
    size_ = size;
    resumeAt_ = file_.tellg();
    position_ = resumeAt_ - headerRecordLength;
    bytesLeft_ = size * kinds_[kind].width;
    return true;
}

/// The bytes of a header behind the present data; null if there aren't any, or the records are damaged.
const char* HeaderSkimmer::behindData()
{
    if (file_.tellg() != resumeAt_)
        file_.seekg(resumeAt_);
    if (bytesLeft_ == 0)
        return file_.view(headerRecordLength);
    // Mostly one record holds all, and one look takes it and the header.
    constexpr int around = 2 * recordMarkLength + headerRecordLength;
    if (bytesLeft_ > 0 && bytesLeft_ <= BufferedBinaryFileReader::largestView - around) {
        const std::int64_t framed = bytesLeft_ + 2 * recordMarkLength;
        const char* const record = file_.view(static_cast<int>(framed + headerRecordLength));
        if (record != nullptr && isFramed(record, bytesLeft_))
            return record + framed;
        file_.seekg(resumeAt_);
    }
    return passRecords() ? file_.view(headerRecordLength) : nullptr;
}

bool HeaderSkimmer::passRecords()
{
    for (std::int64_t left = bytesLeft_; left != 0;) {
        const char* const mark = file_.view(recordMarkLength);
        const std::int32_t length = mark != nullptr ? ByteOrder::loadInt32(mark) : -1;
        if (length < 0 || length > left)
            return false;
        file_.seekg(file_.tellg() + length);
        const char* const endMark = file_.view(recordMarkLength);
        if (endMark == nullptr || ByteOrder::loadInt32(endMark) != length)
            return false;
        left -= length;
    }
    return true;
}

HeaderSkimmer::Key HeaderSkimmer::keyOf(const char* header)
{
    Key key{};
    std::memcpy(&key.name, header + nameOffset, sizeof key.name);
    std::memcpy(&key.type, header + typeOffset, sizeof key.type);
    return key;
}

std::size_t HeaderSkimmer::Hash::operator()(const Key& key) const
{
    constexpr std::uint64_t spread = 0x9E3779B97F4A7C15;
    const std::uint64_t hash = (key.name ^ key.type) * spread;
    return static_cast<std::size_t>(hash ^ hash >> 32);
}

bool HeaderSkimmer::findKind(const Key& key, std::uint32_t& kind)
{
    const auto known = numbers_.find(key);
    if (known == numbers_.end())
        return false;
    kind = kinds_[kind_].follower = known->second;
    return true;
}

bool HeaderSkimmer::learn(const KeywordHeader& header)
{
    file_.seekg(header.second_keywordLargePos());
    const char* const bytes = file_.view(headerRecordLength);
    if (bytes == nullptr ||
        ValueTypeImplementationDetails::trimmedText(bytes + nameOffset, headerNameLength) != header.name())
        return false;
    const Key key = keyOf(bytes);
    const auto [place, isNew] = numbers_.try_emplace(key, static_cast<std::uint32_t>(kinds_.size()));
    kind_ = place->second;
    if (isNew)
        kinds_.push_back({key, header.name(), header.valueTypeInfo(), widthOf(header.valueTypeInfo()), kind_});
    position_ = header.keywordLargePos();
    size_ = header.size();
    resumeAt_ = header.second_keywordLargePos() + headerRecordLength;
    bytesLeft_ = arrayBytes(kinds_[kind_].width, size_);
    return true;
}

KeywordHeader HeaderSkimmer::header() const
{
    return {kinds_[kind_].name, size_, kinds_[kind_].info, position_};
}

/// The data, if they are of that type and in one record that can be seen whole; they count as passed then.
const char* HeaderSkimmer::onlyRecord(ValueType::Enum type)
{
    if (kinds_[kind_].info.type() != type || bytesLeft_ <= 0 ||
        bytesLeft_ > BufferedBinaryFileReader::largestView - 2 * recordMarkLength)
        return nullptr;
    const auto length = static_cast<int>(bytesLeft_);
    file_.seekg(resumeAt_);
    const char* const bytes = file_.view(length + 2 * recordMarkLength);
    if (bytes == nullptr || !isFramed(bytes, length))
        return nullptr;
    resumeAt_ += length + 2 * recordMarkLength;
    bytesLeft_ = 0;
    return bytes + recordMarkLength;
}

bool HeaderSkimmer::read(std::vector<int>& values)
{
    const char* const bytes = onlyRecord(ValueType::INTE);
    if (bytes == nullptr)
        return false;
    values.resize(static_cast<std::size_t>(size_));
    ByteOrder::copy32(values.data(), bytes, values.size());
    return true;
}

bool HeaderSkimmer::read(std::vector<float>& values)
{
    const char* const bytes = onlyRecord(ValueType::REAL);
    if (bytes == nullptr)
        return false;
    values.resize(static_cast<std::size_t>(size_));
    ByteOrder::copy32(values.data(), bytes, values.size());
    return true;
}

bool HeaderSkimmer::read(std::vector<std::string>& values, std::int64_t most)
{
    const char* bytes = onlyRecord(ValueType::CHAR);
    if (bytes == nullptr)
        return false;
    values.resize(static_cast<std::size_t>(std::min(size_, most)));
    for (std::string& value : values) {
        value.assign(ValueTypeImplementationDetails::trimmedText(bytes, charWidth));
        bytes += charWidth;
    }
    return true;
}

} // namespace Kvt::Mrl::MrlIO
