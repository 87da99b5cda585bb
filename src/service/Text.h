#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// \file
/// Helpers for texts. Letter case means that of the ASCII letters; the process's locale is never asked. A blank is the
/// space character, white space is what the C locale counts as such.

namespace Kvt::Mrl::Core::Service {

/// True if the text holds nothing but blanks; an empty one too.
bool AllBlanks(std::string_view text);

/// A copy without the white space at both ends.
std::string StringTrim(std::string_view text);

/// Removes the blanks at the ends that are asked for.
void StringTrimBlank(std::string& text, bool left, bool right);

/// Removes the white space at the ends that are asked for.
void StringTrimSpace(std::string& text, bool left, bool right);

void StringToLower(std::string& text);

bool NoCaseStringEqual(std::string_view a, std::string_view b);

/// The order of the texts in lower case, as bytes.
bool NoCaseStringLess(std::string_view a, std::string_view b);

/// Cuts a text into pieces of `width` characters, the last of which may be shorter. `pieces` is emptied first, and
/// stays empty for an empty text. A width of 0 sets no limit.
void StringSplit(std::string_view text, std::uint64_t width, std::vector<std::string>& pieces);

inline bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

inline char toLower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

inline char toUpper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

} // namespace Kvt::Mrl::Core::Service
