#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Kvt::Mrl::Core::Service {

/// Appends a text in UTF-16 as UTF-8. Halves of surrogate pairs that stand alone become U+FFFD.
void appendUtf8(std::string& out, std::u16string_view text);

/// The length in bytes of the character at the beginning of a text in UTF-8; 0 if what stands there is not a whole,
/// valid character in its shortest form.
std::size_t utf8CharacterLength(std::string_view text);

} // namespace Kvt::Mrl::Core::Service
