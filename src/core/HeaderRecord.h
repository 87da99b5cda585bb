#pragma once

#include "core/RecordLayout.h"
#include "service/BufferedBinaryFileReader.h"

#include <mrlio/KeywordHeader.h>

#include <cstdint>
#include <string>

/// \file
/// Header records, read from a file and put into keyword headers.

namespace Kvt::Mrl::MrlIO {

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
