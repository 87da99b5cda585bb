#include "core/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr std::array<char, 200> makeDigitPairs()
{
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}

constexpr std::array<char, 200> digitPairs = makeDigitPairs();

/// Writes the digits so that they end at end; gives the first of them.
char* printDigitsBackwards(char* end, std::uint32_t value) noexcept
{
    while (value >= 100) {
        end -= 2;
        std::memcpy(end, &digitPairs[std::size_t{2} * (value % 100)], 2);
        value /= 100;
    }
    if (value >= 10) {
        end -= 2;
        std::memcpy(end, &digitPairs[std::size_t{2} * value], 2);
        return end;
    }
    *--end = static_cast<char>('0' + value);
    return end;
}

/// Only 'e', "inf" and "nan" hold letters, so clearing the bit of lower case in every letter is enough.
void toUpper(char* first, const char* last) noexcept
{
    for (; first != last; ++first)
        if (*first >= 'a' && *first <= 'z')
            *first = static_cast<char>(*first - 'a' + 'A');
}

template <std::size_t itemLength, int precision, class T>
char* printScientific(char* out, T value) noexcept
{
    std::array<char, itemLength> text;
    char* const end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific, precision).ptr;
    toUpper(text.data(), end);
    const auto length = static_cast<std::size_t>(end - text.data());
    std::memset(out, ' ', itemLength - length);
    std::memcpy(out + itemLength - length, text.data(), length);
    return out + itemLength;
}

} // namespace

char* printInteger(char* out, std::int32_t value) noexcept
{
    char* const end = out + integerItemLength;
    std::memset(out, ' ', integerItemLength);
    const auto bits = static_cast<std::uint32_t>(value);
    char* const first = printDigitsBackwards(end, value < 0 ? 0U - bits : bits);
    if (value < 0)
        *(first - 1) = '-';
    return end;
}

char* printReal(char* out, float value) noexcept
{
    return printScientific<realItemLength, 7>(out, static_cast<double>(value));
}

char* printDouble(char* out, double value) noexcept
{
    return printScientific<doubleItemLength, 13>(out, value);
}

char* shiftPoint(char* item, char* end) noexcept
{
    char* const point = std::find(item, end, '.');
    if (point == end)
        return end;
    const char leadingDigit = point[-1];
    std::memmove(point + 1, point, static_cast<std::size_t>(end - point));
    ++end;
    point[-1] = '0';
    point[0] = '.';
    point[1] = leadingDigit;
    const char* const sign = std::find_if(point, end, [](char c) { return c == '+' || c == '-'; });
    return end - sign > 2 && sign[1] != '0' ? nullptr : end;
}

} // namespace Kvt::Mrl::MrlIO
