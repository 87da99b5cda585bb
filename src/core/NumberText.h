#pragma once

/// \file
/// Numbers as the columns of formatted keyword files, character for character what printf gives in the classic locale.

#include <cstddef>
#include <cstdint>

namespace Kvt::Mrl::MrlIO {

/// Characters of one item, the blank in front included. No value of its type is longer, so lines can be cut by
/// counting.
constexpr std::size_t integerItemLength = 12; ///< " %11d"
constexpr std::size_t realItemLength = 17;    ///< " %16.7E"
constexpr std::size_t doubleItemLength = 23;  ///< " %22.13E"

/// Each writes one item to out and gives the place behind it; out has room for the length above.
char* printInteger(char* out, std::int32_t value) noexcept;

/// " %16.7E" of a float: what a REAL looks like. INF, -INF, NAN and -NAN for values that are not finite.
char* printReal(char* out, float value) noexcept;

/// " %22.13E"
char* printDouble(char* out, double value) noexcept;

/// Moves the point of a printed REAL or DOUB item one digit to the left, leaving the exponent as it is, so the item
/// grows by one character: -1.2345678E+01 becomes -0.12345678E+01. The value changes by that; it is what strict files
/// hold. Gives the new end, the old one for an item without a point, and null for an exponent of 10 or more in size,
/// which such items can't hold (the point has moved even then).
char* shiftPoint(char* item, char* end) noexcept;

} // namespace Kvt::Mrl::MrlIO
