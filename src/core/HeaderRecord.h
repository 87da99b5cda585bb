#pragma once

#include "service/BufferedBinaryFileReader.h"

#include <mrlio/KeywordHeader.h>

#include <cstdint>
#include <string>

/// \file
/// The header record of an unformatted keyword, big-endian:
///
///     length 16 | name, 8 characters | count, 4 bytes | type text, 4 characters | length 16
///
/// An array of 2147483648 elements or more has two in a row, of one name: the first of type X231 with minus the
/// multiple of 2147483648 as count, the second with the true type and the remainder.

namespace Kvt::Mrl::MrlIO {

constexpr int headerRecordLength = 24;

/// The content of a header record, in file order.
struct HeaderRecord
{
    std::int64_t position;
    std::string name;
    std::int32_t count;
    ValueTypeInfo info;

    /// Reads the record at the file's place. False if it isn't one of 16 bytes, or the file ends here.
    /// throws MrlIOException if it is cut short or damaged
    bool read(Service::BufferedBinaryFileReader& file);

    /// Puts a record that stands alone, or is the first of two, in place of what header holds.
    /// throws MrlIOException, with header changed, if it is the first of two and states a positive number
    void store(KeywordHeader& header) const;

    /// Adds the second record to a header that holds the first.
    /// throws MrlIOException, with header changed, if the names differ or it is no second record
    void complete(KeywordHeader& header) const;
};

} // namespace Kvt::Mrl::MrlIO
