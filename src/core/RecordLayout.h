#pragma once

/// \file
/// The records of unformatted keyword files, as readers and writers see them. Every record is its length, its bytes and
/// its length again, all big-endian:
///
///     header   16 | name, 8 characters | count, 4 bytes | type text, 4 characters | 16
///     data     bytes | elements, up to one block | bytes
///
/// An array of 2147483648 elements or more has two headers in a row, of one name: the first of type X231 with minus the
/// multiple of 2147483648 as count, the second with the true type and the remainder.

namespace Kvt::Mrl::MrlIO {

/// The length in front of a record's bytes, and the one behind them.
constexpr int recordMarkLength = 4;

constexpr int headerNameLength = 8;
constexpr int headerCountLength = 4;
constexpr int headerTypeLength = 4;

/// What the marks of a header record say.
constexpr int headerContentLength = headerNameLength + headerCountLength + headerTypeLength;

/// A header record with its marks.
constexpr int headerRecordLength = headerContentLength + 2 * recordMarkLength;

} // namespace Kvt::Mrl::MrlIO
