#pragma once

/// \file
/// The two forms in which arrays of cell values are written.

#include "core/FormattedEncoder.h"

#include <mrlio/ValueType.h>

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <span>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// The type by which each kind of value is written.
template <class T>
inline constexpr ValueType::Enum valueTypeOf = ValueType::CHAR;
template <>
inline constexpr ValueType::Enum valueTypeOf<int> = ValueType::INTE;
template <>
inline constexpr ValueType::Enum valueTypeOf<float> = ValueType::REAL;
template <>
inline constexpr ValueType::Enum valueTypeOf<double> = ValueType::DOUB;

/// A formatted array. Every operation gives true when the stream is good.
class AsciiSolutionArrayWriter
{
public:
    /// Writes the header and stays with the stream, which must live until finish.
    bool start(std::ostream& stream, const std::string& name, std::int32_t count, ValueType::Enum type);

    /// Goes on where the last call stopped.
    bool write(std::span<const int> values) { return encoder_->writeIntegers(values, 0); }

    bool write(std::span<const float> values) { return encoder_->writeReals(values); }

    bool write(std::span<const double> values) { return encoder_->writeDoubles(values); }

    bool write(std::span<const std::string> values) { return encoder_->writeChars(values); }

    /// Ends a line that is not full.
    bool finish() { return encoder_->finish(); }

private:
    std::optional<FormattedArrayEncoder> encoder_;
};

/// An unformatted array. The same operations, each write opening records of its own.
class BinarySolutionArrayWriter
{
public:
    bool start(std::ostream& stream, const std::string& name, std::int32_t count, ValueType::Enum type);

    bool write(std::span<const int> values);
    bool write(std::span<const float> values);
    bool write(std::span<const double> values);
    bool write(std::span<const std::string> values);

    bool finish();

private:
    std::ostream* stream_ = nullptr;
};

} // namespace Kvt::Mrl::MrlIO
