#pragma once

#include <string>
#include <string_view>

/// \file
/// Texts and numbers of the well result caches, free of the process's locale.

namespace Kvt::Mrl::MrlIO {

/// A text of a data file as it stands in a cache: each byte is the character U+0000 to U+00FF, in UTF-8. So names in any
/// character set survive.
std::string toCacheText(const std::string& bytes);

/// The way back.
/// throws   MrlIOException for a character above U+00FF, which no cache of ours holds
std::string fromCacheText(std::string_view text);

/// The shortest number of digits by which each value is told from all others: 9 and 17.
std::string numberText(float value);
std::string numberText(double value);

/// The number that a text is, nothing around it.
/// throws   boost::bad_lexical_cast if it is none or lies out of range
template <class Number>
Number numberOf(std::string_view text);

} // namespace Kvt::Mrl::MrlIO
