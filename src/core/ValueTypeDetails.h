#pragma once

#include "service/BufferedBinaryFileReader.h"

#include <mrlio/ValueType.h>

#include <cstdint>
#include <string>
#include <string_view>

/// \file
/// What the unformatted reader needs to know of value types.

namespace Kvt::Mrl::MrlIO::ValueTypeImplementationDetails {

/// The longest raw text that is read as one string.
constexpr int longestString = 255;

/// Bytes of one element in an unformatted file, 0 for X231.
/// throws MrlIOException for a C0nn of negative width, and for values outside the enumeration
int binaryStorageSize(const ValueTypeInfo& info);

/// Parses a type text as the constructor of ValueTypeInfo does.
/// throws MrlIOException if it can't be parsed
ValueTypeInfo parseTypeText(std::string_view text);

/// The text up to the first NUL, without the blanks at its ends.
std::string_view trimmedText(const char* bytes, int count);

/// Reads width raw bytes and trims them. False, with `out` untouched, if the file doesn't hold them or width is no
/// number from 0 to 255; nothing is read then.
bool readUnformattedString(Service::BufferedBinaryFileReader& file, int width, std::string& out);

/// The same for consecutive strings; stops at the first that fails.
bool readUnformattedStrings(Service::BufferedBinaryFileReader& file, int width, std::string* out, std::int64_t count);

} // namespace Kvt::Mrl::MrlIO::ValueTypeImplementationDetails
