#include "core/KeywordEncoder.h"

#include "core/FormattedEncoder.h"
#include "core/RecordLayout.h"
#include "core/UnformattedEncoder.h"
#include "core/ValueTypeLayout.h"

#include <mrlio/ValueType.h>
#include <mrlio/service/EnumInfo.h>
#include <mrlio/service/Namespaces.h>

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr int quotedItemExtra = 3; // the blank and the two quotes

/// How a formatted array is cut.
struct ItemLines
{
    int itemsPerLine;
    int blockLength;
};

constexpr ItemLines linesOf(ValueType::Enum type)
{
    return {valueTypeLayout(type).itemsPerLine, valueTypeLayout(type).blockLength};
}

constexpr ItemLines linesOf(StringWidths widths)
{
    return {formattedLineLength / (widths.laidOut + quotedItemExtra), valueTypeLayout(ValueType::C0nn).blockLength};
}

} // namespace

std::string typeText(const ValueTypeInfo& info)
{
    std::string text;
    Service::findLabel<ValueType>(info.type(), text);
    if (info.type() != ValueType::C0nn)
        return text;
    const std::string width = std::to_string(info.intData());
    text.replace(text.find('n'), std::string::npos, width.size() < 2 ? "0" + width : width);
    return text;
}

int widestStrings(bool formatted) noexcept
{
    return formatted ? formattedLineLength - quotedItemExtra : longestStringElement;
}

int longestString(const KeywordTmpl<6>& keyword) noexcept
{
    constexpr std::size_t limit = std::numeric_limits<int>::max();
    int longest = -1;
    for (const std::string& value : keyword.array())
        longest = std::max(longest, static_cast<int>(std::min(value.size(), limit)));
    return longest;
}

bool KeywordEncoder::writeHeader(const KeywordHeader& keyword, std::uint64_t count)
{
    const std::string type = typeText(keyword.valueTypeInfo());
    if (std::ssize(type) != headerTypeLength)
        return false;
    if (!keyword.requires_double_header(count))
        return writeHeaderRecord(keyword.name(), static_cast<std::int64_t>(count), type);
    KeywordHeader first;
    KeywordHeader second;
    keyword.split_header(first, second, count);
    return writeHeaderRecord(first.name(), -first.size(), typeText(first.valueTypeInfo())) &&
           writeHeaderRecord(second.name(), second.size(), type);
}

bool KeywordEncoder::writeHeaderRecord(const std::string& name, std::int64_t count, const std::string& type)
{
    const auto storedCount = static_cast<std::int32_t>(count);
    return formatted_ ? writeFormattedHeader(stream_, name, storedCount, type)
                      : writeUnformattedHeader(stream_, name, storedCount, type);
}

/// records() writes the values in the unformatted form, items(encoder) in the formatted one, cut by lines.
template <class Lines, class Records, class Items>
bool KeywordEncoder::writeKeyword(const KeywordHeader& keyword, std::size_t count, Lines lines, Records records,
                                  Items items)
{
    if (!writeHeader(keyword, count))
        return false;
    if (!formatted_)
        return records();
    FormattedArrayEncoder encoder(stream_, lines.itemsPerLine, lines.blockLength);
    return items(encoder) && encoder.finish();
}

bool KeywordEncoder::write(const KeywordTmpl<0>& keyword)
{
    const auto& values = keyword.array();
    return writeKeyword(
        keyword, values.size(), linesOf(ValueType::DOUB), [&] { return writeDoubleRecords(stream_, values); },
        [&](FormattedArrayEncoder& encoder) { return encoder.writeDoubles(values); });
}

bool KeywordEncoder::write(const KeywordTmpl<1>& keyword)
{
    const auto& values = keyword.array();
    return writeKeyword(
        keyword, values.size(), linesOf(ValueType::REAL), [&] { return writeRealRecords(stream_, values); },
        [&](FormattedArrayEncoder& encoder) { return encoder.writeReals(values); });
}

bool KeywordEncoder::write(const KeywordTmpl<3>& keyword)
{
    const auto& values = keyword.array();
    return writeKeyword(
        keyword, values.size(), linesOf(ValueType::LOGI), [&] { return writeIntegerRecords(stream_, values, 0); },
        [&](FormattedArrayEncoder& encoder) { return encoder.writeLogicals(values); });
}

bool KeywordEncoder::write(const KeywordINTE& keyword)
{
    const auto& values = keyword.array();
    const int shift = keyword.getShift();
    return writeKeyword(
        keyword, values.size(), linesOf(ValueType::INTE), [&] { return writeIntegerRecords(stream_, values, shift); },
        [&](FormattedArrayEncoder& encoder) { return encoder.writeIntegers(values, shift); });
}

bool KeywordEncoder::write(const KeywordTmpl<4>& keyword)
{
    return writeText(keyword, keyword.array());
}

bool KeywordEncoder::write(const KeywordTmpl<5>& keyword)
{
    return writeText(keyword, keyword.array());
}

bool KeywordEncoder::write(const KeywordTmpl<6>& keyword)
{
    return writeText(keyword, keyword.array());
}

bool KeywordEncoder::write(const KeywordTmpl<6>& keyword, StringWidths widths)
{
    return writeStrings(keyword, keyword.array(), widths);
}

bool KeywordEncoder::writeText(const KeywordHeader& keyword, const std::vector<std::string>& values)
{
    if (keyword.valueType() != ValueType::C0nn)
        return writeChars(keyword, values);
    const int width = keyword.valueTypeInfo().intData();
    return writeStrings(keyword, values, {.declared = width, .laidOut = width});
}

bool KeywordEncoder::writeChars(const KeywordHeader& keyword, const std::vector<std::string>& values)
{
    return writeKeyword(
        keyword, values.size(), linesOf(ValueType::CHAR),
        [&] { return writeStringRecords(stream_, values, charWidth); },
        [&](FormattedArrayEncoder& encoder) { return encoder.writeChars(values); });
}

bool KeywordEncoder::writeStrings(const KeywordHeader& keyword, const std::vector<std::string>& values,
                                  StringWidths widths)
{
    checkWidths(widths);
    return writeKeyword(
        keyword, values.size(), linesOf(widths), [&] { return writeStringRecords(stream_, values, widths.laidOut); },
        [&](FormattedArrayEncoder& encoder) { return encoder.writeStrings(values, widths.declared); });
}

void KeywordEncoder::checkWidths(StringWidths widths) const
{
    if (widths.declared < 1)
        throw std::invalid_argument("Word size for C0nn data type must be > 0");
    const int widest = widestStrings(formatted_);
    if (std::max(widths.declared, widths.laidOut) > widest)
        throw std::invalid_argument("Word size for C0nn data type must be <= " + std::to_string(widest));
}

} // namespace Kvt::Mrl::MrlIO
