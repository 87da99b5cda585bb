#pragma once

/// \file
/// The header line of a keyword in a formatted file, in columns from 0:
///
///      'ZCORN   '         100 'REAL'
///     0 2       10 12        23  29
///
///  2 to 9    name, trimmed of blanks
/// 12 to 22   element count, in the notation of strtol: 010 is eight, 0x10 sixteen, blanks are none
/// 23         ends the count
/// 25 to 28   type text, trimmed of blanks
///
/// The quotes and blanks around them are not looked at.

#include <mrlio/KeywordHeader.h>

#include <cstdint>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// Turns the line at byte `position` of a file into `header`. A `header` of type X231 on entry is the first half of a
/// double header and is completed by the line. The count in `line` gets a NUL behind it.
/// throws MrlIOException, with the place in the file, if the line is too short, has no name, a count that is no number
///        or of the wrong sign for its type, or an unknown type, or if it doesn't belong to the first half
void parseTextHeaderLine(KeywordHeader& header, std::string& line, std::int64_t position, const std::string& fileName);

} // namespace Kvt::Mrl::MrlIO
