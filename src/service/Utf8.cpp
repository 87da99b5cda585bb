#include "service/Utf8.h"

#include <algorithm>
#include <cstdint>

namespace Kvt::Mrl::Core::Service {
namespace {

constexpr char32_t replacement = 0xFFFD;

char byteOf(char32_t bits)
{
    return static_cast<char>(static_cast<unsigned char>(bits));
}

void appendCharacter(std::string& out, char32_t c)
{
    if (c < 0x80) {
        out += byteOf(c);
    } else if (c < 0x800) {
        out += {byteOf(0xC0 | (c >> 6)), byteOf(0x80 | (c & 0x3F))};
    } else if (c < 0x10000) {
        out += {byteOf(0xE0 | (c >> 12)), byteOf(0x80 | ((c >> 6) & 0x3F)), byteOf(0x80 | (c & 0x3F))};
    } else {
        out += {byteOf(0xF0 | (c >> 18)), byteOf(0x80 | ((c >> 12) & 0x3F)), byteOf(0x80 | ((c >> 6) & 0x3F)),
                byteOf(0x80 | (c & 0x3F))};
    }
}

bool isLeading(char16_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isTrailing(char16_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

/// Takes one character off the beginning of a text that isn't empty.
char32_t takeCharacter(std::u16string_view& text)
{
    const char16_t first = text[0];
    text.remove_prefix(1);
    if (isLeading(first) && !text.empty() && isTrailing(text[0])) {
        const char16_t second = text[0];
        text.remove_prefix(1);
        return 0x10000 + ((static_cast<char32_t>(first) - 0xD800) << 10) + (second - 0xDC00u);
    }
    return isLeading(first) || isTrailing(first) ? replacement : first;
}

struct Range
{
    unsigned char low;
    unsigned char high;
};

/// What may follow a first byte of a character of several bytes. Narrower ranges shut out longer forms than needed,
/// surrogates, and what lies beyond the last character.
Range secondByteRange(unsigned char first)
{
    switch (first) {
    case 0xE0:
        return {0xA0, 0xBF};
    case 0xED:
        return {0x80, 0x9F};
    case 0xF0:
        return {0x90, 0xBF};
    case 0xF4:
        return {0x80, 0x8F};
    default:
        return {0x80, 0xBF};
    }
}

std::size_t lengthByFirstByte(unsigned char first)
{
    if (first < 0x80)
        return 1;
    if (first < 0xC2 || first > 0xF4)
        return 0;
    return first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
}

} // namespace

void appendUtf8(std::string& out, std::u16string_view text)
{
    const auto plainEnd = std::find_if(text.begin(), text.end(), [](char16_t unit) { return unit >= 0x80; });
    const std::size_t oldSize = out.size();
    out.resize(oldSize + static_cast<std::size_t>(plainEnd - text.begin()));
    std::transform(text.begin(), plainEnd, out.begin() + static_cast<std::ptrdiff_t>(oldSize),
                   [](char16_t unit) { return static_cast<char>(unit); });
    text.remove_prefix(static_cast<std::size_t>(plainEnd - text.begin()));
    while (!text.empty())
        appendCharacter(out, takeCharacter(text));
}

std::size_t utf8CharacterLength(std::string_view text)
{
    if (text.empty())
        return 0;
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const std::size_t length = lengthByFirstByte(byteAt(0));
    if (length > text.size())
        return 0;
    for (std::size_t i = 1; i < length; ++i) {
        const Range range = i == 1 ? secondByteRange(byteAt(0)) : Range{0x80, 0xBF};
        if (byteAt(i) < range.low || byteAt(i) > range.high)
            return 0;
    }
    return length;
}

} // namespace Kvt::Mrl::Core::Service
