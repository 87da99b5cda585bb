#include "core/UnformattedEncoder.h"

#include "core/RecordLayout.h"
#include "core/ValueTypeLayout.h"
#include "service/ByteOrder.h"
#include "service/FileStream.h"

#include <mrlio/service/Namespaces.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <ostream>
#include <string_view>

namespace Kvt::Mrl::MrlIO {

namespace {

namespace ByteOrder = Service::ByteOrder;

constexpr std::size_t markLength = recordMarkLength;
constexpr std::size_t numberBlock = numberBlockLength;
constexpr std::size_t stringBlock = stringBlockLength;

/// Puts text into a field of the given width: cut, or padded with blanks.
void storeText(char* field, std::string_view text, std::size_t width)
{
    const std::size_t used = std::min(text.size(), width);
    std::memcpy(field, text.data(), used);
    std::memset(field + used, ' ', width - used);
}

/// Cuts the values into blocks and writes each as one record, in one piece: made in the buffer of the stream where that
/// is ours and has room, else on the stack. encode(to, block) stores a block's values and gives the number of bytes.
template <std::size_t blockLength, std::size_t longestElement, class T, class Encode>
bool writeRecords(std::ostream& stream, std::span<const T> values, Encode encode)
{
    auto* const file = dynamic_cast<Service::FileStreamBuf*>(stream.rdbuf());
    std::array<char, blockLength * longestElement + 2 * markLength> ownRecord;
    while (!values.empty() && stream.good()) {
        const auto block = values.first(std::min(values.size(), blockLength));
        char* const room = file != nullptr ? file->room(ownRecord.size()) : nullptr;
        char* const record = room != nullptr ? room : ownRecord.data();
        char* const data = record + markLength;
        const std::size_t length = encode(data, block);
        ByteOrder::storeInt32(record, static_cast<std::int32_t>(length));
        ByteOrder::storeInt32(data + length, static_cast<std::int32_t>(length));
        if (room != nullptr)
            file->accept(length + 2 * markLength);
        else
            stream.write(record, static_cast<std::streamsize>(length + 2 * markLength));
        values = values.subspan(block.size());
    }
    return stream.good();
}

} // namespace

bool writeUnformattedHeader(std::ostream& stream, const std::string& name, std::int32_t count,
                            const std::string& typeText)
{
    std::string record(markLength + headerNameLength + headerCountLength, '\0');
    ByteOrder::storeInt32(record.data(), headerContentLength);
    storeText(record.data() + markLength, name, headerNameLength);
    ByteOrder::storeInt32(record.data() + markLength + headerNameLength, count);
    record += typeText;
    record.append(record, 0, markLength);
    stream.write(record.data(), std::ssize(record));
    return stream.good();
}

bool writeDoubleRecords(std::ostream& stream, std::span<const double> values)
{
    return writeRecords<numberBlock, sizeof(double)>(stream, values, [](char* to, std::span<const double> block) {
        ByteOrder::copy64(to, block.data(), block.size());
        return block.size_bytes();
    });
}

bool writeRealRecords(std::ostream& stream, std::span<const float> values)
{
    return writeRecords<numberBlock, sizeof(float)>(stream, values, [](char* to, std::span<const float> block) {
        ByteOrder::copy32(to, block.data(), block.size());
        return block.size_bytes();
    });
}

bool writeIntegerRecords(std::ostream& stream, std::span<const int> values, int shift)
{
    const auto unsignedShift = static_cast<std::uint32_t>(shift);
    return writeRecords<numberBlock, sizeof(int)>(stream, values, [=](char* to, std::span<const int> block) {
        if (unsignedShift == 0) {
            ByteOrder::copy32(to, block.data(), block.size());
            return block.size_bytes();
        }
        std::array<std::uint32_t, numberBlock> shifted;
        std::transform(block.begin(), block.end(), shifted.begin(),
                       [=](int value) { return static_cast<std::uint32_t>(value) - unsignedShift; });
        ByteOrder::copy32(to, shifted.data(), block.size());
        return block.size_bytes();
    });
}

bool writeStringRecords(std::ostream& stream, std::span<const std::string> values, int width)
{
    const auto elementLength = static_cast<std::size_t>(width);
    return writeRecords<stringBlock, longestStringElement>(stream, values,
                                                           [=](char* to, std::span<const std::string> block) {
                                                               for (const std::string& value : block) {
                                                                   storeText(to, value, elementLength);
                                                                   to += elementLength;
                                                               }
                                                               return block.size() * elementLength;
                                                           });
}

} // namespace Kvt::Mrl::MrlIO
