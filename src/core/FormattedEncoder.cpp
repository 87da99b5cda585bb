#include "core/FormattedEncoder.h"

#include "core/NumberText.h"
#include "core/TextBuffer.h"
#include "core/ValueTypeLayout.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>
#include <limits>
#include <ostream>
#include <stdexcept>
#include <string_view>

namespace Kvt::Mrl::MrlIO {

namespace {

std::atomic<bool> strictFlag{false};

/// What a string contributes to text: formatting stops at the first NUL.
std::string_view printable(const std::string& text)
{
    return std::string_view(text.c_str());
}

template <class T>
char* printStrict(char* (*print)(char*, T) noexcept, char* out, T value)
{
    return shiftPoint(out, print(out, value));
}

char* printLogical(char* out, int value) noexcept
{
    constexpr std::string_view blanks = "  ";
    std::memcpy(out, blanks.data(), blanks.size());
    out[2] = value == 1 ? 'T' : 'F';
    return out + 3;
}

constexpr std::size_t logicalItemLength = 3;

/// An item is a blank and its column.
constexpr bool fitsColumn(ValueType::Enum type, std::size_t itemLength)
{
    return static_cast<std::size_t>(valueTypeLayout(type).columnWidth) + 1 == itemLength;
}

static_assert(fitsColumn(ValueType::DOUB, doubleItemLength));
static_assert(fitsColumn(ValueType::REAL, realItemLength));
static_assert(fitsColumn(ValueType::INTE, integerItemLength));
static_assert(fitsColumn(ValueType::LOGI, logicalItemLength));

} // namespace

void setStrictMode(bool strict) noexcept
{
    strictFlag.store(strict, std::memory_order_relaxed);
}

bool strictMode() noexcept
{
    return strictFlag.load(std::memory_order_relaxed);
}

bool writeFormattedHeader(std::ostream& stream, const std::string& name, std::int32_t count,
                          const std::string& typeText)
{
    constexpr std::size_t nameWidth = 8;
    std::string line = " '";
    line += printable(name);
    line.append(nameWidth - std::min(nameWidth, printable(name).size()), ' ');
    line += '\'';
    std::array<char, integerItemLength> number{};
    line.append(number.data(), printInteger(number.data(), count));
    line += " '" + typeText + "'\n";
    stream.write(line.data(), std::ssize(line));
    return stream.good();
}

FormattedArrayEncoder::FormattedArrayEncoder(std::ostream& stream, int itemsPerLine, int blockLength)
    : stream_(stream),
      itemsPerLine_(itemsPerLine),
      blockLength_(blockLength)
{}

bool FormattedArrayEncoder::writeReals(std::span<const float> values)
{
    if (strictMode())
        return writeItems(values, realItemLength + 1,
                          [](char* out, float value) { return printStrict<float>(printReal, out, value); });
    return writeItems(values, realItemLength, printReal);
}

bool FormattedArrayEncoder::writeDoubles(std::span<const double> values)
{
    if (strictMode())
        return writeItems(values, doubleItemLength + 1,
                          [](char* out, double value) { return printStrict<double>(printDouble, out, value); });
    return writeItems(values, doubleItemLength, printDouble);
}

bool FormattedArrayEncoder::writeIntegers(std::span<const int> values, int shift)
{
    const auto unsignedShift = static_cast<std::uint32_t>(shift);
    return writeItems(values, integerItemLength, [unsignedShift](char* out, int value) {
        return printInteger(out, static_cast<std::int32_t>(static_cast<std::uint32_t>(value) - unsignedShift));
    });
}

bool FormattedArrayEncoder::writeLogicals(std::span<const int> values)
{
    return writeItems(values, logicalItemLength, printLogical);
}

bool FormattedArrayEncoder::writeChars(std::span<const std::string> values)
{
    constexpr std::size_t longestItem = 15;
    return writeQuoted(values, charWidth, longestItem - std::strlen(" '"));
}

bool FormattedArrayEncoder::writeStrings(std::span<const std::string> values, int width)
{
    return writeQuoted(values, width, std::numeric_limits<std::size_t>::max());
}

bool FormattedArrayEncoder::finish()
{
    if (inLine_ > 0)
        stream_.put('\n');
    inLine_ = 0;
    return stream_.good();
}

template <class T, class Print>
bool FormattedArrayEncoder::writeItems(std::span<const T> values, std::size_t longestItem, Print print)
{
    TextBuffer text(stream_);
    for (const T value : values) {
        char* const item = text.room(longestItem + 1);
        if (item == nullptr)
            return false;
        char* end = print(item, value);
        if (end == nullptr) {
            text.flush();
            throw std::runtime_error("Can't use 'strict' - exponent overflow");
        }
        if (endsLine())
            *end++ = '\n';
        text.taken(end);
    }
    return text.flush();
}

/// The text between the quotes has at most longestText characters, the closing quote counted.
bool FormattedArrayEncoder::writeQuoted(std::span<const std::string> values, int width, std::size_t longestText)
{
    TextBuffer text(stream_);
    for (const std::string& value : values) {
        const std::string_view body = printable(value).substr(0, longestText);
        text.append(" '");
        text.append(body);
        text.appendBlanks(width - std::ssize(body));
        if (body.size() < longestText)
            text.append('\'');
        if (endsLine())
            text.append('\n');
        if (!stream_.good())
            return false;
    }
    return text.flush();
}

/// Counts one value; true if its line ends behind it.
bool FormattedArrayEncoder::endsLine() noexcept
{
    const bool blockEnds = ++inBlock_ == blockLength_;
    const bool lineEnds = ++inLine_ == itemsPerLine_ || blockEnds;
    if (blockEnds)
        inBlock_ = 0;
    if (lineEnds)
        inLine_ = 0;
    return lineEnds;
}

} // namespace Kvt::Mrl::MrlIO
