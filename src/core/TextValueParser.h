#pragma once

/// \file
/// Scanners for the numbers of formatted keyword files. A scanner starts at the first character of a number, moves `p`
/// to the first character that it doesn't take, and says whether the characters passed are a number. Which characters
/// are taken and which results count as failures is the rule of formatted stream extraction in the classic locale.
///
/// The text ends at `end` with a NUL and further readable bytes, as the window of a TextFileReader does: no number
/// holds a NUL, so none runs past the end. A scanner that stops at the very end may have seen a part of a number only.

#include "service/TextFileReader.h"

#include <mrlio/service/Namespaces.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

namespace Kvt::Mrl::MrlIO {

namespace TextValueParserDetails {

constexpr std::uint64_t integerPowers[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};

/// All exactly representable powers of ten; products and quotients with an exact integer are rounded once.
constexpr double exactPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                  1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int largestExactPower = 22;
constexpr std::uint64_t largestExactInteger = std::uint64_t{1} << 53;

/// Any number of up to 19 digits fits into 64 bits.
constexpr int safeDigits = 19;

inline bool isDigit(char c) noexcept
{
    return static_cast<unsigned char>(c - '0') < 10;
}

/// Takes the digits among the next eight characters at once, appends them to number and gives how many they were.
inline int takeUpToEightDigits(const char*& p, std::uint64_t& number) noexcept
{
    std::uint64_t digits;
    std::memcpy(&digits, p, sizeof digits);
    digits ^= 0x3030303030303030u;
    // A byte above 9 sets its top bit. It may disturb the bytes behind it, which are not asked any more.
    const std::uint64_t others = ((digits + 0x7676767676767676u) | digits) & 0x8080808080808080u;
    const int count = std::countr_zero(others) / 8;
    if (count == 0)
        return 0;
    digits <<= 64 - 8 * count;
    digits = digits * 10 + (digits >> 8);
    constexpr std::uint64_t pairs = 0x000000FF000000FFu;
    digits = ((digits & pairs) * 0x000F424000000064u + ((digits >> 16) & pairs) * 0x0000271000000001u) >> 32;
    number = number * integerPowers[count] + (digits & 0xFFFFFFFFu);
    p += count;
    return count;
}

/// Takes digits as long as there are any. The number wraps around beyond safeDigits; the count is always right.
inline std::ptrdiff_t takeDigits(const char*& p, std::uint64_t& number) noexcept
{
    const char* const begin = p;
    if constexpr (std::endian::native == std::endian::little) {
        while (takeUpToEightDigits(p, number) == 8) {}
    } else {
        for (; isDigit(*p); ++p)
            number = number * 10 + static_cast<std::uint64_t>(*p - '0');
    }
    return p - begin;
}

/// Takes an optional sign and gives whether it was a minus.
inline bool takeSign(const char*& p) noexcept
{
    const bool negative = *p == '-';
    p += negative || *p == '+';
    return negative;
}

/// Parts of a decimal number as far as the exact fast path needs them.
struct Decimal
{
    bool valid = false;         ///< a digit in front of the exponent, and one in it if there is a letter
    bool negative = false;      ///< sign of the number
    bool simple = false;        ///< mantissa and exponent below hold the whole number
    std::uint64_t mantissa = 0; ///< all digits, the point left out
    std::int64_t exponent = 0;  ///< power of ten that belongs to the mantissa
};

/// Takes the digits of an exponent behind its letter. False without any.
inline bool takeExponent(const char*& p, Decimal& number) noexcept
{
    const bool negative = takeSign(p);
    std::uint64_t exponent = 0;
    std::ptrdiff_t digits = 2;
    if (isDigit(p[0]) && isDigit(p[1]) && !isDigit(p[2])) {
        exponent = static_cast<std::uint64_t>(10 * (p[0] - '0') + (p[1] - '0'));
        p += 2;
    } else {
        digits = takeDigits(p, exponent);
    }
    number.simple = number.simple && digits <= safeDigits && exponent <= 1000000;
    number.exponent += negative ? -static_cast<std::int64_t>(exponent) : static_cast<std::int64_t>(exponent);
    return digits > 0;
}

/// Takes a decimal number; withD says whether D and d are exponent letters besides E and e.
template <bool withD>
inline Decimal takeDecimal(const char*& p) noexcept
{
    Decimal number;
    number.negative = takeSign(p);
    std::ptrdiff_t digits = 1;
    if (isDigit(p[0]) && p[1] == '.')
        number.mantissa = static_cast<std::uint64_t>(*p++ - '0');
    else
        digits = takeDigits(p, number.mantissa);
    if (*p == '.') {
        const std::ptrdiff_t decimals = takeDigits(++p, number.mantissa);
        digits += decimals;
        number.exponent = -decimals;
    }
    if (digits == 0)
        return number;
    number.valid = true;
    number.simple = digits <= safeDigits;
    const char letter = static_cast<char>(*p | 0x20);
    if (letter == 'e' || (withD && letter == 'd'))
        number.valid = takeExponent(++p, number);
    return number;
}

/// The exact value where one multiplication or division of exact doubles gives it.
inline bool valueOfSimple(const Decimal& number, double& value) noexcept
{
    if (!number.simple || number.mantissa > largestExactInteger || number.exponent < -largestExactPower ||
        number.exponent > largestExactPower)
        return false;
    const double mantissa = static_cast<double>(number.mantissa);
    const double magnitude =
        number.exponent < 0 ? mantissa / exactPowers[-number.exponent] : mantissa * exactPowers[number.exponent];
    value = number.negative ? -magnitude : magnitude;
    return true;
}

/// An int of this sign and magnitude; false if there is none.
inline bool boundedInteger(bool negative, std::uint64_t magnitude, int& value) noexcept
{
    if (magnitude > std::uint64_t{std::numeric_limits<int>::max()} + negative)
        return false;
    const auto number = static_cast<std::int64_t>(magnitude);
    value = static_cast<int>(negative ? -number : number);
    return true;
}

/// The int of more than safeDigits digits: leading zeros are free.
bool convertLongInteger(const char* begin, const char* end, int& value) noexcept;

/// The value that strtod gives for a valid decimal number, exponent letters D and d included.
double convertDecimal(const char* begin, const char* end);

/// Converts a whole token as strtod does in the classic locale, its last D or d replaced by an e. False if a part of
/// the token is left over.
bool convertDoubleToken(const char* begin, const char* end, double& value);

inline const char* endOfToken(const char* p, const char* end) noexcept
{
    while (p != end && !Service::isWhiteSpace(*p))
        ++p;
    return p;
}

} // namespace TextValueParserDetails

/// Rounds to the nearest float; a value beyond the range of float becomes an infinity.
inline float narrowToFloat(double value) noexcept
{
    // Up to half a step above the largest float the nearest one is still finite: -3.4028235E+38 is read back as it was.
    constexpr double firstBeyond = 0x1.ffffffp+127;
    constexpr double largest = std::numeric_limits<float>::max();
    const double magnitude = value < 0 ? -value : value;
    if (magnitude <= largest)
        return static_cast<float>(value);
    const float limit =
        magnitude >= firstBeyond ? std::numeric_limits<float>::infinity() : std::numeric_limits<float>::max();
    return value < 0 ? -limit : limit;
}

/// Scans an int: digits with an optional sign. A value out of range is a failure.
inline bool scanInteger(const char*& p, const char*, int& value) noexcept
{
    using namespace TextValueParserDetails;
    const char* const begin = p;
    const bool negative = takeSign(p);
    std::uint64_t magnitude = 0;
    const std::ptrdiff_t digits = takeDigits(p, magnitude);
    if (digits > safeDigits)
        return convertLongInteger(begin, p, value);
    return digits != 0 && boundedInteger(negative, magnitude, value);
}

/// Scans a double the way extraction does and narrows it. E and e are the only exponent letters, and a value beyond the
/// range of double is a failure.
inline bool scanReal(const char*& p, const char*, float& value)
{
    using namespace TextValueParserDetails;
    const char* const begin = p;
    const Decimal number = takeDecimal<false>(p);
    if (!number.valid)
        return false;
    double wide;
    if (!valueOfSimple(number, wide)) {
        wide = convertDecimal(begin, p);
        if (wide > std::numeric_limits<double>::max() || wide < std::numeric_limits<double>::lowest())
            return false;
    }
    value = narrowToFloat(wide);
    return true;
}

/// Scans a whole token as strtod would: inf, nan, hexadecimal numbers and infinities from too large exponents are
/// values, and D or d is an exponent letter too.
inline bool scanDouble(const char*& p, const char* end, double& value)
{
    using namespace TextValueParserDetails;
    const char* const begin = p;
    const Decimal number = takeDecimal<true>(p);
    const bool plain = number.valid && (p == end || Service::isWhiteSpace(*p));
    if (plain && valueOfSimple(number, value))
        return true;
    p = endOfToken(p, end);
    if (!plain)
        return convertDoubleToken(begin, p, value);
    value = convertDecimal(begin, p);
    return true;
}

/// Scans a whole token: T gives 1 and F gives 0, anything else is a failure.
inline bool scanLogical(const char*& p, const char* end, int& value) noexcept
{
    const char* const begin = p;
    p = TextValueParserDetails::endOfToken(p, end);
    value = *begin == 'T';
    return p - begin == 1 && (*begin == 'T' || *begin == 'F');
}

} // namespace Kvt::Mrl::MrlIO
