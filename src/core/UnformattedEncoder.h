#pragma once

/// \file
/// Headers and arrays of the unformatted form (see RecordLayout.h), onto any stream.

#include <cstdint>
#include <iosfwd>
#include <span>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// One header record. The name is cut or padded to 8 characters. True when the stream is good.
bool writeUnformattedHeader(std::ostream& stream, const std::string& name, std::int32_t count,
                            const std::string& typeText);

/// Longest string element: the type text has no room for a third digit.
constexpr int longestStringElement = 99;

/// The values as data records of one block each, 1000 numbers or 105 strings, one write to the stream per record; none
/// for no values. A piece of an array that is written by a call of its own opens its own records. True when the stream
/// is good behind the last one.
bool writeDoubleRecords(std::ostream& stream, std::span<const double> values);
bool writeRealRecords(std::ostream& stream, std::span<const float> values);

/// Each value less shift, in 32 bits that wrap around. LOGI goes this way with a shift of 0.
bool writeIntegerRecords(std::ostream& stream, std::span<const int> values, int shift);

/// Each string cut or blank-padded to width, 0 to longestStringElement.
bool writeStringRecords(std::ostream& stream, std::span<const std::string> values, int width);

} // namespace Kvt::Mrl::MrlIO
